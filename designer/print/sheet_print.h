// The pages of a format as the component prints them, and which item drew what.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "barcodes/barcode_settings.h"
#include "designer/model/format.h"
#include "memory_rows/memory_rows.h"
#include "page_document/drawing.h"
#include "platform/platform.h"

namespace td::designer {

// What one item drew for one row, or once on a page.
struct SheetPiece {
  ItemId item = 0;  // 0: nobody's, as the page counts that are written at the end
  ItemSite site = ItemSite::kHead;
  int row = 0;  // of a row's item, from 0
  std::vector<DrawingCommand> commands;
};

struct SheetPage {
  double width = 0;  // twips
  double height = 0;
  bool landscape = false;  // it lies across its sheet
  int rows = 0;
  std::vector<SheetPiece> pieces;
};

struct SheetPicture {
  std::vector<SheetPage> pages;
  // What the run had to say, as a picture file that can't be read.
  std::vector<std::string> messages;
};

enum class SheetContents {
  kCaptions,  // what the variables are called, on a full page
  kData,      // the first bill of the rows, as it is printed
};

class SheetPrinter {
 public:
  // `connection` is where everything but the format comes from. The platform is borrowed; of its
  // windows nothing is used.
  SheetPrinter(Platform& platform, std::string connection, BarcodeSettings barcodes);

  // The rows for kData; without any, captions are shown.
  void PutRows(std::shared_ptr<const MemoryRows> rows) { rows_ = std::move(rows); }
  void PutConnection(std::string connection) { connection_ = std::move(connection); }

  // Runs the print of the format as it stands. Never fails: what stops a run is a message.
  [[nodiscard]] SheetPicture Print(const Format& format, SheetContents contents, bool onlyValues);

 private:
  Platform& platform_;
  std::string connection_;
  BarcodeSettings barcodes_;
  std::shared_ptr<const MemoryRows> rows_;
};

}  // namespace td::designer
