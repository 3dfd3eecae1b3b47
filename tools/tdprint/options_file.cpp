#include "options_file.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <fstream>
#include <set>
#include <string>
#include <string_view>

#include "files/path_text.h"
#include "sql_support/connection_entries.h"
#include "sql_support/sql_scanner.h"

namespace td {
namespace {

constexpr const char* kByteOrderMark = "\xEF\xBB\xBF";

// HOST\INSTANCE and DOMAIN\USER are no paths; every other value with a backslash may be one. Some
// drivers end each value at a semicolon, whatever quotes it stands in.
bool MayHoldPath(const ConnectionEntry& entry) {
  constexpr std::array<std::string_view, 9> kNames = {"Server", "Data Source",     "Address",
                                                      "Addr",   "Network Address", "User ID",
                                                      "UID",    "Password",        "PWD"};
  if (entry.value.find('\\') == std::string::npos) return false;
  const bool isName = std::ranges::any_of(
      kNames, [&entry](std::string_view name) { return EqualWords(entry.key, name); });
  return !isName || entry.value.find(';') != std::string::npos;
}

// What drivers load besides themselves; without a path it may lie in the working directory.
bool AsksForLibrary(const std::string& connection) {
  for (std::string_view rest = connection; !rest.empty(); rest.remove_prefix(1)) {
    for (const std::string_view key : {"LoadExt", "PLUGIN_DIR"}) {
      if (EqualWords(rest.substr(0, key.size()), key)) return true;
    }
  }
  return false;
}

// A driver or a file of settings that is named by its path would be loaded into this program: a
// file that somebody sent must not be able to ask for that. Names of drivers and data sources have
// neither a slash nor a backslash.
bool MayLoadForeignCode(const std::string& connection) {
  if (connection.starts_with("sqlite:")) return false;
  if (connection.find('/') != std::string::npos || AsksForLibrary(connection)) return true;
  try {
    return std::ranges::any_of(ReadConnectionEntries(connection), MayHoldPath);
  } catch (const Failure&) {
    return false;  // no text for a driver
  }
}

class OptionsFile {
 public:
  OptionsFile(CLI::App& command, const std::string& path) : command_(command), path_(path) {}

  void Read() {
    std::ifstream file(OpenPathOf(path_));
    bool isFirst = true;
    for (std::string line; std::getline(file, line); isFirst = false) {
      if (isFirst && line.starts_with(kByteOrderMark)) line.erase(0, 3);
      CLI::detail::trim(line);
      if (!line.empty() && line.front() != '#') Take(line);
    }
    if (!file.eof()) throw CLI::FileError(path_ + " can't be read");
  }

 private:
  void Take(const std::string& line) {
    const std::size_t equals = line.find('=');
    const std::string name = CLI::detail::trim_copy(line.substr(0, equals));
    CLI::Option* option = command_.get_option_no_throw("--" + name);
    if (option == nullptr || !option->get_configurable()) Fail(name + " can't be given in a file");
    if (!given_.insert(option).second) Fail(name + " is given twice");
    if (option->count() > 0) return;
    const bool isFlag = option->get_expected_min() == 0;
    if (isFlag != (equals == std::string::npos)) {
      Fail(name + (isFlag ? " takes no value" : " needs a value"));
    }
    const std::string value = isFlag ? "true" : CLI::detail::trim_copy(line.substr(equals + 1));
    if (name == "db" && MayLoadForeignCode(value)) {
      Fail("db can't hold the path of a driver or a library");
    }
    option->add_result(value);
  }

  [[noreturn]] void Fail(const std::string& what) const {
    throw CLI::ConfigError(path_ + ": " + what);
  }

  CLI::App& command_;
  const std::string path_;
  std::set<const CLI::Option*> given_;
};

}  // namespace

void AddOptionsFile(CLI::App& command) {
  command
      .add_option_function<std::string>(
          "--config", [&command](const std::string& path) { OptionsFile(command, path).Read(); },
          "A file of these options, one NAME = VALUE a line")
      ->configurable(false)
      ->type_name("FILE");
}

}  // namespace td
