#include "options_file.h"

#include <CLI/CLI.hpp>
#include <fstream>
#include <set>
#include <string>

#include "files/path_text.h"

namespace td {
namespace {

constexpr const char* kByteOrderMark = "\xEF\xBB\xBF";

// A driver or a file of settings that is named by its path would be loaded into this program: a
// file that somebody sent must not be able to ask for that. Names of drivers and data sources have
// no slash.
bool MayLoadForeignCode(const std::string& connection) {
  return !connection.starts_with("sqlite:") && connection.find('/') != std::string::npos;
}

class OptionsFile {
 public:
  OptionsFile(CLI::App& command, const std::string& path) : command_(command), path_(path) {}

  void Read() {
    std::ifstream file(PathOf(path_));
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
    if (name == "db" && MayLoadForeignCode(value)) Fail("db can't hold the path of a driver");
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
