// What a page document asks of the machine around it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "page_document/drawing.h"
#include "page_document/paper.h"

namespace td {

class PageDocument;

// All calls come on the document's thread, inside an operation of the document. A Failure that is
// thrown leaves that operation, except where a call is said not to throw.
class DocumentHost {
 public:
  virtual ~DocumentHost() = default;

  // The machine's printers, read afresh. Names are compared exactly.
  virtual std::vector<std::string> Devices() = 0;
  virtual std::string DefaultDevice() = 0;  // empty if there is no printer
  virtual bool HasDevice(const std::string& name) = 0;
  // The sheet that the printer has of its own which takes a document without a choice of printer.
  // Nothing if there is none, or if it doesn't say. Does not throw.
  virtual std::optional<PaperExtent> DefaultSheet() = 0;

  // Height of a line of text in twips, from its top to the top of the line below. A line with no
  // runs does not occur; a run may be empty and still has the height of its font.
  virtual double LineHeight(const TextLine& line) = 0;
  // From the beginning of its first letter to the end of its last one, twips.
  virtual double LineWidth(const TextLine& line) = 0;

  // Sends the pages of a closed document to its Device(), after the printer dialog if `withDialog`;
  // a user who cancels that dialog is no failure.
  virtual void Print(PageDocument& document, bool withDialog) = 0;

  // Shows the page-setup dialog. True if the user confirmed; the host has then put the choices into
  // the document's properties.
  virtual bool ShowPageSetup(PageDocument& document) = 0;

  // Writes a document that has just been closed to a file, 1 being HTML. Does not throw: a failing
  // save is shown to the user by the host, and the document prints all the same.
  virtual void Export(PageDocument& document, const std::string& file, std::int32_t format) = 0;

  // The pages, the page shown in the preview or the zoom have changed. Does not throw, and does
  // not change the document.
  virtual void PreviewChanged(PageDocument& document) = 0;
  // A page is complete, and the next begins: time for what can't wait until a long run has ended.
  // Does not throw, and does not change the document.
  virtual void PageCompleted() {}
  // 11 waiting, 1 arrow. Does not throw.
  virtual void PointerChanged(std::int32_t shape) = 0;

  // Tells those who look after the machine, once for each text, what the document goes on without.
  // Does not throw.
  virtual void Complain(const std::string& text) = 0;
};

}  // namespace td
