// What a page document asks of the machine around it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "page_document/drawing.h"
#include "page_document/paper.h"

namespace td {

class PageDocument;

// All calls come on the document's thread, inside an operation of the document. A Failure that is
// thrown leaves that operation, except where a call is said not to throw.
class DocumentHost {
 public:
  virtual ~DocumentHost() = default;

  // The machine's printers. Names are compared exactly.
  virtual int DeviceCount() = 0;
  virtual std::string DeviceName(int index) = 0;  // 0 <= index < DeviceCount()
  virtual std::string DefaultDevice() = 0;        // empty if there is no printer
  virtual bool HasDevice(const std::string& name) = 0;

  // The sheet of a paper code that is no standard number, as the printer `device` knows it.
  virtual std::optional<PaperExtent> PaperOf(std::int32_t code, const std::string& device) = 0;

  // Height of a line of text in twips, from its top to the top of the line below. A line with no
  // runs does not occur; a run may be empty and still has the height of its font.
  virtual double LineHeight(const TextLine& line) = 0;

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
  // 11 waiting, 1 arrow. Does not throw.
  virtual void PointerChanged(std::int32_t shape) = 0;
};

}  // namespace td
