// The public class through which a caller prints.
#pragma once

#include <cstdint>
#include <string>

#include "platform/database.h"
#include "platform/failure.h"
#include "platform/platform.h"

namespace td {

// The number of the error that a print call without data raises.
inline constexpr int kNothingToPrint = static_cast<int>(0x800403e9);
[[nodiscard]] Failure NothingToPrintFailure();

// Prints bills through overlay formats that are registered in the caller's database. All instances
// share one request state: whichever call came last wins.
//
// Every operation fails with kWrongThread on another thread than the platform's, and a print call
// with kInvalidCall while another one, a preview or a dialog runs; nothing has changed then.
class Printer {
 public:
  // The platform is borrowed and must outlive the printer.
  explicit Printer(Platform& platform) : platform_(platform) {}

  // Prints the bills of `PrintData`, whose rows stand bill by bill. The rows stay the caller's; the
  // run moves the cursor and puts it back on the first row.
  //   New_DoPrint               print at once; otherwise show the preview and return when it closes
  //   New_PromptString          database connection text
  //   New_TranType              bill type number
  //   New_OnlyPrintVariantItem  the sheet is pre-printed: draw only variable items
  //   New_PrintBorder           has no effect
  //   TDBillName                format name; empty: the format marked as selected
  //   PrintDevice               has no effect: the printer comes from the format and the machine
  // Fails with kNothingToPrint when `PrintData` is empty, before anything is stored. Any other
  // error shows itself or stays silent; PrintOk tells whether the document went to the printer.
  void DoPrint(bool New_DoPrint, const std::string& New_PromptString, std::int16_t New_TranType,
               bool New_OnlyPrintVariantItem, bool New_PrintBorder, const RecordsetRef& PrintData,
               const std::string& TDBillName = {}, Value* PrintDevice = nullptr);

  // The same with a new page at each new stock area (the first character of `FStockArea`) instead
  // of each new bill. The rows stand area by area.
  void DoPrint_GroupByArea(bool New_DoPrint, const std::string& New_PromptString,
                           std::int16_t New_TranType, bool New_OnlyPrintVariantItem,
                           bool New_PrintBorder, const RecordsetRef& PrintData,
                           const std::string& TDBillName = {}, Value* PrintDevice = nullptr);

  // True once the document of the last call was sent to the printer.
  [[nodiscard]] bool PrintOk() const;

  // Rows to leave blank at the start of the following runs, until they are used up.
  void PrintBlankRows(std::int16_t NewValue);

 private:
  Platform& platform_;
};

}  // namespace td
