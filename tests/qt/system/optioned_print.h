// Print calls of a C++ program with options of its own, on a machine without a display and without
// a printer.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "desktop/desktop_platform.h"
#include "memory_rows/memory_recordset.h"
#include "page_document/page_document.h"
#include "service/printer.h"
#include "temporary_database.h"
#include "test_tools.h"

namespace td {

// One format, of two rows a page.
inline constexpr const char* kTwoRowFormat = R"(
  insert into TDBill (FTDBillID, FTranType, FTDBillName, FSelected, FPaperSize, FPaperWidth,
                      FPaperHeight, FRowsPerPage, FRowHeight)
    values (1, 21, '两行订单', 1, 256, 13663, 7937, 2, 400);
  insert into TDVariant (FTranType, FVarCaption, FVarName) values (21, '品名', 'FItemName');
  insert into TDBillDetail (FTDBillID, FSite, FLeft, FTop, FWidth, FHeight, FTypeID, FIsVariant,
                            FObjectFieldName, FObjectCaption)
    values (1, 3, 1000, 2000, 4000, 400, 0, 1, '品名', '品名');
)";

class OptionedPrint : public testing::Test {
 protected:
  OptionedPrint() {
    options_.stateDirectory = folder_.File("state");
    options_.messages = MessageMode::kCollected;
    options_.documentSink = [this](const PageDocument&) { ++documents_; };
  }
  void Start() {
    desktop_ = std::make_unique<DesktopPlatform>(options_);
    printer_ = std::make_unique<Printer>(desktop_->Get());
  }
  static RecordsetRef Rows(int count) {
    const std::vector<Value> row = {std::int64_t{7}, Value("大米")};
    return std::make_shared<MemoryRecordset>(
        std::vector<std::string>{"FInterID", "FItemName"},
        std::vector<std::vector<Value>>(static_cast<std::size_t>(count), row));
  }
  void Print(const RecordsetRef& rows) {
    printer_->DoPrint(true, connection_, 21, false, false, rows);
  }
  // The text of the only message of the last print call.
  [[nodiscard]] std::string Message() const {
    const DocumentOutcome outcome = desktop_->LastDocument();
    EXPECT_EQ(outcome.messages, 1);
    return outcome.texts.size() == 1 ? outcome.texts[0] : std::string();
  }
  // Another program writes, and doesn't end.
  void Lock() { other_.Run("begin exclusive"); }
  void Unlock() { other_.Run("rollback"); }

  TemporaryFolder folder_;
  const std::string connection_ = MakeDatabase(
      folder_.File("bills.db"), ReadFile(QBTD_SOURCE_DIR "/examples/schema.sql") + kTwoRowFormat);
  OtherUser other_{folder_.File("bills.db")};
  DesktopOptions options_;
  int documents_ = 0;
  std::unique_ptr<DesktopPlatform> desktop_;
  std::unique_ptr<Printer> printer_;
};

}  // namespace td
