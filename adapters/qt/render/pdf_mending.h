// What Qt's PDF writer leaves inexact.
#pragma once

#include <QByteArray>
#include <QIODevice>
#include <exception>
#include <memory>
#include <vector>

#include "render/font_faces.h"
#include "render/outputs.h"

namespace td {

// The whole points that hold a length in twips: the page size to give to the PDF writer.
[[nodiscard]] int PointsToHold(double twips);

// Takes the file from the writer, with pages of PointsToHold(width) by PointsToHold(height) points,
// and hands it on object by object, mended:
// - Each sheet gets its exact size; its top left corner stays where it is.
// - The characters that a reader extracts become those that were drawn. The writer names a glyph by
//   the first character that the font shows with it: a tab for a blank, a radical for 金 or 门.
// A file of another structure than Qt 6 writes goes on as it is.
class MendedPdf final : public QIODevice {
 public:
  // Both outlive the device.
  MendedPdf(const PageRefs& pages, const ByteSink& sink);
  ~MendedPdf() override;

  // Whether the sink has thrown: nothing is handed on any more.
  [[nodiscard]] bool HasFailed() const { return failure_ != nullptr; }
  // To be called when the writer has gone: hands on the rest. What the sink has thrown goes
  // through.
  void Finish();

  [[nodiscard]] bool isSequential() const override { return true; }

 protected:
  qint64 readData(char*, qint64) override { return -1; }
  qint64 writeData(const char* data, qint64 size) override;

 private:
  void EndObject();
  void HandOn(const QByteArray& bytes);

  const PageRefs& pages_;
  const ByteSink& sink_;
  std::size_t page_ = 0;         // the next one whose object comes
  QByteArray object_;            // what has come of the current object
  std::vector<qint64> offsets_;  // of the objects by their number, where they begin now
  qint64 written_ = 0;
  qint64 tailOffset_ = -1;
  QByteArray tail_;  // the cross-reference table and what follows
  std::unique_ptr<DrawnCharacters> drawn_;
  std::exception_ptr failure_;
};

}  // namespace td
