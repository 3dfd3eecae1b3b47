// Prints the table of docs/performance.md. See table.sh.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "work.h"

namespace td {
namespace {

struct Cost {
  double seconds = 0;
  double processor = 0;  // seconds that it worked, whatever else the machine did
  double megabytes = 0;  // the most memory that the process had at one time
};

// Runs a program to its end.
Cost Run(std::vector<std::string> command) {
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (std::string& argument : command) arguments.push_back(argument.data());
  arguments.push_back(nullptr);
  const auto start = std::chrono::steady_clock::now();
  const pid_t process = fork();
  if (process == 0) {
    execv(arguments.front(), arguments.data());
    _exit(127);
  }
  int status = 0;
  rusage usage{};
  if (process < 0 || wait4(process, &status, 0, &usage) != process || status != 0) {
    throw std::runtime_error(command.front() + " failed");
  }
  const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return {elapsed.count(), seconds(usage.ru_utime) + seconds(usage.ru_stime),
          static_cast<double>(usage.ru_maxrss) / 1024};
}

Cost Median(std::vector<Cost> costs) {
  const auto middle = [&costs](double Cost::*figure) {
    std::ranges::sort(costs, {}, figure);
    return costs[costs.size() / 2].*figure;
  };
  return {middle(&Cost::seconds), middle(&Cost::processor), middle(&Cost::megabytes)};
}

class Table {
 public:
  Table(int runs, std::filesystem::path folder, std::string tdprint, std::string loop)
      : runs_(runs),
        folder_(std::move(folder)),
        tdprint_(std::move(tdprint)),
        loop_(std::move(loop)) {}

  // One line for each number of rows: the work beside the loop, in turns.
  void CompareWithLoop(const std::string& connection) const {
    MakeWorkFormat(connection);
    std::puts(
        "| rows | work, loop = 1 | processor, loop = 1 | rows per second | memory, MB "
        "| of the loop | PDF, MB | of the loop |\n|---|---|---|---|---|---|---|---|");
    for (const int rows : {100, 1000, 10'000, 30'000}) {
      MakeWorkRows(connection, rows);
      std::vector<Cost> work;
      std::vector<Cost> loop;
      for (int run = 0; run < runs_; ++run) {
        work.push_back(RunWork(connection));
        loop.push_back(Run({loop_, connection.substr(connection.find(':') + 1), Pdf("loop")}));
      }
      const Cost ofWork = Median(work);
      const Cost ofLoop = Median(loop);
      std::printf("| %d | %.2f | %.2f | %.0f | %.0f | %.0f | %.2f | %.2f |\n", rows,
                  ofWork.seconds / ofLoop.seconds, ofWork.processor / ofLoop.processor,
                  rows / ofWork.seconds, ofWork.megabytes, ofLoop.megabytes, Megabytes("work"),
                  Megabytes("loop"));
      std::fflush(stdout);
    }
  }

  // Rows per second of each engine, the first one's being 1.
  void CompareEngines(const std::vector<std::pair<std::string, std::string>>& engines) const {
    constexpr int kRows = 10'000;
    std::vector<std::vector<Cost>> costs(engines.size());
    for (const auto& [name, connection] : engines) {
      MakeWorkFormat(connection);
      MakeWorkRows(connection, kRows);
    }
    for (int run = 0; run < runs_; ++run) {
      for (std::size_t i = 0; i < engines.size(); ++i) {
        costs[i].push_back(RunWork(engines[i].second));
      }
    }
    std::puts("\n| rows per second | |\n|---|---|");
    const double first = Median(costs.front()).seconds;
    for (std::size_t i = 0; i < engines.size(); ++i) {
      std::printf("| %s | %.2f |\n", engines[i].first.c_str(), first / Median(costs[i]).seconds);
    }
  }

  // Processor's time of a row, without what a print of one row takes; that of 10,000 rows being 1.
  void CompareLengths(const std::string& connection) const {
    struct Length {
      const char* name;
      int rows;
      int rowsOfABill;
    };
    constexpr std::array<Length, 5> kLengths = {{{"1 row", 1, 1},
                                                 {"1,000 rows", 1000, 1000},
                                                 {"10,000 rows", 10'000, 10'000},
                                                 {"32,766 rows", 32'766, 32'766},
                                                 {"2,000 bills of 16 rows", 32'000, 16}}};
    std::array<double, kLengths.size()> seconds{};
    MakeWorkFormat(connection);
    for (std::size_t i = 0; i < kLengths.size(); ++i) {
      MakeWorkBills(connection, kLengths[i].rows, kLengths[i].rowsOfABill);
      std::vector<Cost> costs;
      costs.reserve(static_cast<std::size_t>(runs_));
      for (int run = 0; run < runs_; ++run) costs.push_back(RunWork(connection));
      seconds[i] = Median(costs).processor;
    }
    const auto ofARow = [&](std::size_t i) {
      return (seconds[i] - seconds[0]) / (kLengths[i].rows - 1);
    };
    std::puts("\n| print | processor, a row |\n|---|---|");
    for (std::size_t i = 1; i < kLengths.size(); ++i) {
      std::printf("| %s | %.2f |\n", kLengths[i].name, ofARow(i) / ofARow(2));
    }
    std::fflush(stdout);
  }

 private:
  [[nodiscard]] std::string Pdf(const char* name) const {
    return (folder_ / name).string() + ".pdf";
  }
  [[nodiscard]] double Megabytes(const char* name) const {
    return static_cast<double>(std::filesystem::file_size(Pdf(name))) / 1e6;
  }
  [[nodiscard]] Cost RunWork(const std::string& connection) const {
    return Run({tdprint_, "print", "--db", connection, "--type", std::to_string(kWorkBillType),
                "--format", kWorkFormat, "--data", kWorkData, "--pdf", Pdf("work")});
  }

  int runs_;
  std::filesystem::path folder_;
  std::string tdprint_;
  std::string loop_;
};

}  // namespace
}  // namespace td

int main(int argc, char** argv) {
  if (argc < 7 || argc % 2 == 0) {
    std::cerr << "usage: table RUNS FOLDER TDPRINT LOOP NAME CONNECTION [NAME CONNECTION …]\n";
    return 2;
  }
  std::vector<std::pair<std::string, std::string>> engines;
  for (int i = 5; i + 1 < argc; i += 2) engines.emplace_back(argv[i], argv[i + 1]);
  try {
    const td::Table table(std::stoi(argv[1]), argv[2], argv[3], argv[4]);
    table.CompareWithLoop(engines.front().second);
    table.CompareLengths(engines.front().second);
    table.CompareEngines(engines);
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
  }
}
