// A scenario made of a database: what one print reads there, so that it replays anywhere.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/database.h"
#include "recording/json_values.h"

namespace td::recording {

struct RecordedRequest {
  std::string connection;
  std::int16_t billType = 0;
  std::string format;  // empty: the selected one
  bool onlyVariantItems = false;
  std::int16_t blankRows = 0;
  bool byArea = false;
  std::string machine;                // the machine's address
  std::vector<std::string> printers;  // that are installed
  std::string defaultPrinter;
  // Whether a picture file can be loaded here.
  std::function<bool(const std::string& path)> canLoad;
};

struct RecordedPrint {
  Json scenario;
  // The first line of the trace that the scenario gives otherwise than the database, and both
  // lines; empty: they print alike.
  std::string difference;
};

// Makes the print on the recording platform, fed from `database` and `rows`, and records the rows
// of the component's tables and the columns of the data that it read. Nothing is printed and
// nothing is written. The cursor of `rows` stands on the first row then. Fails with Failure.
[[nodiscard]] RecordedPrint RecordPrint(Database& database, const RecordedRequest& request,
                                        const RecordsetRef& rows);

// The text of a scenario: a table's row is a line, so that people can read and change it.
[[nodiscard]] std::string ScenarioText(const Json& scenario);

}  // namespace td::recording
