// The state of one request: what the caller asked for, and what the run leaves behind.
#pragma once

#include <cstdint>
#include <string>

#include "platform/database.h"

namespace td {

struct PrintContext {
  std::string New_PromptString;           // the database connection text of every query
  RecordsetRef PrintData;                 // the caller's rows; the run moves this cursor
  RecordsetRef PrintDataClone;            // parked on the first row of the current bill
  bool New_DoPrint = false;               // print at once, with no window shown
  bool New_PrintBorder = false;           // kept for callers; nothing reads it
  bool New_OnlyPrintVariantItem = false;  // the sheet is pre-printed: only variable items
  std::int16_t New_TranType = 0;          // bill type number
  std::string TDBillName;                 // format asked for; empty: the selected one
  bool PrintOk = false;                   // the document was sent to the printer
  std::int16_t PrintBlankRows = 0;        // rows to leave blank; counted down by the run
};

}  // namespace td
