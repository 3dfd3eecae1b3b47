// td_replay SCENARIO.json: runs the component on a scenario and writes the trace to standard
// output.
#include <exception>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>

#include "recording/replay.h"

namespace {

enum ExitCode : int { kRan = 0, kFailed = 1, kCannotRead = 2 };

constexpr std::string_view kUsage = "usage: td_replay SCENARIO.json";

std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  if (!file.is_open() || file.bad() || text.bad()) {
    throw td::recording::ScenarioError("the file can't be read");
  }
  return text.str();
}

int Run(const std::string& path) {
  const auto recording = td::recording::Replay(td::recording::ParseScenario(ReadFile(path)));
  for (const auto& line : recording.trace) {
    std::cout << td::recording::LineText(line) << '\n';
  }
  std::cout.flush();
  if (!std::cout) {
    std::cerr << "td_replay: the trace can't be written\n";
    return kFailed;
  }
  return kRan;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string argument = argc == 2 ? argv[1] : "";
  if (argument == "--help" || argument == "-h") {
    std::cout << kUsage << '\n';
    return kRan;
  }
  if (argument.empty()) {
    std::cerr << kUsage << '\n';
    return kCannotRead;
  }
  try {
    return Run(argument);
  } catch (const td::recording::ScenarioError& error) {
    std::cerr << "td_replay: " << argument << ": " << error.what() << '\n';
    return kCannotRead;
  } catch (const std::exception& error) {
    std::cerr << "td_replay: " << error.what() << '\n';
    return kFailed;
  }
}
