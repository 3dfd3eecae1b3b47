// The command line of tdprint.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "exit_status.h"

namespace td {

// One call of the component. Texts are UTF-8; an empty one was not given.
struct PrintArguments {
  std::string database;  // connection text
  std::int16_t billType = 0;
  std::string data;    // the statement that selects the rows of the bills
  std::string format;  // empty: the selected format of the bill type
  bool onlyVariant = false;
  std::int16_t blankRows = 0;
  bool byArea = false;   // a new page at each stock area instead of each bill
  bool preview = false;  // in a window; printed only if its user prints
  // Where the document goes. Without any of them: the printer that the format chooses.
  std::string printer;
  std::string pdf;   // a file; standard output has its path, too
  std::string png;   // a folder
  std::string html;  // as pdf
  // Where the explanation of the print goes, a file as pdf; empty: none is asked for.
  std::string explain;

  std::string log;  // a file to which a line is added; empty: as the environment says

  bool operator==(const PrintArguments&) const = default;
};

// Looks for mistakes in formats.
struct CheckArguments {
  std::string database;
  std::optional<std::int16_t> billType{};  // none: all
  std::string format{};                    // empty: all
  std::string data{};                      // a statement that selects rows; empty: none are read
  std::string printer{};  // that takes the documents; empty: the one that each format chooses
  bool byArea = false;
  bool json = false;

  bool operator==(const CheckArguments&) const = default;
};

// Writes down what a print reads, as a scenario.
struct RecordArguments {
  PrintArguments print;  // without outputs
  bool mask = false;     // other values of the same kind in the data
  std::string out;       // a file; empty: standard output

  bool operator==(const RecordArguments&) const = default;
};

struct DemoArguments {
  std::string out = "out";
  std::string samples;  // folder of the sample's SQL files; empty: where they were installed
  std::string printer;  // for one job more; empty: none is sent

  bool operator==(const DemoArguments&) const = default;
};

// Opens the overlay settings of a bill type.
struct SettingsArguments {
  std::string database;
  std::int16_t billType = 0;

  bool operator==(const SettingsArguments&) const = default;
};

// Opens the designer of formats.
struct DesignArguments {
  std::string database;  // empty: the user is asked for it
  std::optional<std::int16_t> billType;
  std::string format;  // empty: the selected format of the bill type
  std::string data;    // as in PrintArguments; empty: captions are shown

  bool operator==(const DesignArguments&) const = default;
};

// Opens the printers of the stock areas.
struct AreaPrintersArguments {
  std::string database;

  bool operator==(const AreaPrintersArguments&) const = default;
};

// Writes the sample as a script for a database engine.
struct SampleSqlArguments {
  std::string engine;  // as ScriptEngineNamed knows it
  bool onlySchema = false;
  std::string samples;  // as in DemoArguments
  std::string out;      // a file; empty: standard output

  bool operator==(const SampleSqlArguments&) const = default;
};

// Makes the module QbTdPrinter known to programs of the user.
struct RegisterArguments {
  std::string module;  // a file; empty: where the module was installed

  bool operator==(const RegisterArguments&) const = default;
};

// Makes it unknown again.
struct UnregisterArguments {
  std::string module;  // as in RegisterArguments

  bool operator==(const UnregisterArguments&) const = default;
};

// Writes a format into a file.
struct ExportFormatArguments {
  std::string database;
  std::int16_t billType = 0;
  std::string format;         // empty: the selected one
  std::string out;            // a file; empty: standard output
  bool withPictures = false;  // those of the picture items go into the file

  bool operator==(const ExportFormatArguments&) const = default;
};

// Takes a format from a file into a database.
struct ImportFormatArguments {
  std::string database;
  std::optional<std::int16_t> billType;  // nothing: as the file says
  std::string format;                    // likewise
  bool replace = false;                  // a format of that name
  bool dryRun = false;
  std::string pictures;  // folder for the file's pictures; empty: they stay in the file
  std::string file;

  bool operator==(const ImportFormatArguments&) const = default;
};

// Tells two files of formats apart.
struct DiffFormatArguments {
  std::string first;
  std::string second;

  bool operator==(const DiffFormatArguments&) const = default;
};

// Looks prints up in a print log. Empty texts ask for nothing.
struct LogArguments {
  std::string bill;  // its number
  std::optional<std::int16_t> billType;
  std::string format;
  std::string printer;
  std::string user;
  std::string since;  // as ParseTimeSpan reads it
  std::string until;
  bool asJson = false;             // the lines as they stand in the log
  std::vector<std::string> files;  // none: the one that the environment names

  bool operator==(const LogArguments&) const = default;
};

// Measures how a printer misses the places on a sheet. Empty texts were not given.
struct CalibrateArguments {
  std::string printer;
  std::string paper;    // as SheetNamed reads it
  std::string topLeft;  // as ParseDistances reads them
  std::string topRight;
  std::string bottomLeft;
  bool check = false;
  std::string form;  // a format's name, with its database and bill type
  std::string database;
  std::optional<std::int16_t> billType;
  std::string pdf;  // a file in the printer's place
  bool list = false;
  bool remove = false;
  bool allUsers = false;

  bool operator==(const CalibrateArguments&) const = default;
};

// What to do, or the status to end with: help was shown, or the usage is wrong and said so.
using Command =
    std::variant<PrintArguments, CheckArguments, DemoArguments, SettingsArguments, DesignArguments,
                 AreaPrintersArguments, SampleSqlArguments, RecordArguments, RegisterArguments,
                 UnregisterArguments, ExportFormatArguments, ImportFormatArguments,
                 DiffFormatArguments, LogArguments, CalibrateArguments, ExitStatus>;

Command ParseArguments(int argc, const char* const* argv);

}  // namespace td
