// Whole prints of one long bill, and the query that each of its rows costs, on the databases that
// are named on the command line: bill_benchmark NAME CONNECTION [NAME CONNECTION …]. Each database
// holds the sample. See whole-runs.sh.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "desktop/databases.h"
#include "desktop/desktop_platform.h"
#include "page_document/page_document.h"
#include "platform/failure.h"
#include "qt/render/outputs.h"
#include "service/printer.h"

namespace td {
namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

// How much of what adapters can keep is kept from one query to the next.
enum class Kept { kAll, kConnections, kNothing };

// Sums up the time in a real database.
class TimedDatabase final : public Database {
 public:
  explicit TimedDatabase(Kept kept) : kept_(kept), real_(std::make_unique<Databases>()) {}

  RecordsetRef OpenQuery(const std::string& connection, const std::string& sql, CursorType cursor,
                         LockType lock) override {
    const auto start = Clock::now();
    if (kept_ == Kept::kNothing) real_ = std::make_unique<Databases>();
    // A comment of its own makes a statement that nobody has prepared.
    const std::string own =
        kept_ == Kept::kConnections ? sql + " /* " + std::to_string(queries_) + " */" : sql;
    RecordsetRef rows = real_->OpenQuery(connection, own, cursor, lock);
    seconds_ += Clock::now() - start;
    ++queries_;
    if (sql.ends_with("t2.FSite=3")) ++rowQueries_;
    return rows;
  }
  std::unique_ptr<Connection> Connect(const std::string& connection) override {
    return real_->Connect(connection);
  }

  [[nodiscard]] double InDatabase() const { return seconds_.count(); }
  [[nodiscard]] int Queries() const { return queries_; }
  // Of them, those for the items of a detail row.
  [[nodiscard]] int RowQueries() const { return rowQueries_; }

 private:
  Kept kept_;
  std::unique_ptr<Databases> real_;
  Seconds seconds_{0};
  int queries_ = 0;
  int rowQueries_ = 0;
};

constexpr const char* kBill = "99000";

void Execute(const std::string& connection, const std::string& sql) {
  Databases().Connect(connection)->Execute(sql);
}

// Makes the bill anew, with this number of rows.
void MakeBill(const std::string& connection, int rows) {
  Execute(connection, std::string("delete from t_bill_entry where FInterID=") + kBill);
  Execute(connection, std::string("delete from t_bill where FInterID=") + kBill);
  Execute(connection, std::string("insert into t_bill (FInterID,FTranType,FBillNo,FDate,FPartnerID)"
                                  " values (") +
                          kBill + ",21,'XD-9999-0001','2024-03-31',1)");
  constexpr int kRowsOfAnInsert = 500;
  for (int row = 0; row < rows;) {
    std::string sql =
        "insert into t_bill_entry (FInterID,FEntryID,FItemID,FMainQty,FPrice,FTaxRate)"
        " values ";
    const int end = std::min(rows, row + kRowsOfAnInsert);
    for (const char* comma = ""; row < end; ++row, comma = ",") {
      sql.append(comma).append("(").append(kBill).append(",").append(std::to_string(row + 1));
      sql.append(",").append(std::to_string(1001 + row % 50)).append(",");
      sql.append(std::to_string(1 + row % 9)).append(",").append(std::to_string(1 + row % 70));
      sql.append(".25,13)");
    }
    Execute(connection, sql);
  }
}

void PrintBill(benchmark::State& state, const std::string& connection, Kept kept, int rows) {
  MakeBill(connection, rows);
  double inDatabase = 0;
  double inRendering = 0;
  double whole = 0;
  double queries = 0;
  double rowQueries = 0;
  for (auto unused : state) {
    const auto start = Clock::now();
    DesktopOptions options;
    options.messages = MessageMode::kStandardError;
    Seconds rendering{0};
    Seconds again{0};
    options.documentSink = [&](const PageDocument& document) {
      const auto begin = Clock::now();
      const auto file = std::filesystem::temp_directory_path() / "qbtd-bill-benchmark.pdf";
      WritePdf(document.Pages(), file.string(), "benchmark");
      std::filesystem::remove(file);
      rendering += Clock::now() - begin;
      // Out of sight the run exports the pages as HTML, too: how long that takes is seen by doing
      // it again.
      const auto beginAgain = Clock::now();
      benchmark::DoNotOptimize(ToHtml(document.Pages(), "benchmark"));
      again = Clock::now() - beginAgain;
      rendering += again;
    };
    DesktopPlatform desktop(std::move(options));
    TimedDatabase database(kept);
    Platform& real = desktop.Get();
    Platform platform{database, real.pictures, real.messages, real.machine, real.windows};
    Printer printer(platform);
    printer.DoPrint(true, connection, 21, false, false,
                    database.OpenQuery(connection,
                                       std::string("select * from v_sales_order where FInterID=") +
                                           kBill + " order by FEntryID",
                                       CursorType::kUnspecified, LockType::kUnspecified),
                    "销售订单A4");
    if (!printer.PrintOk()) state.SkipWithError("not printed");
    const double elapsed = Seconds(Clock::now() - start - again).count();
    state.SetIterationTime(elapsed);
    whole += elapsed;
    inDatabase += database.InDatabase();
    inRendering += rendering.count();
    queries += database.Queries();
    rowQueries += database.RowQueries();
  }
  state.SetItemsProcessed(state.iterations() * rows);
  state.counters["database_%"] = 100 * inDatabase / whole;
  state.counters["rendering_%"] = 100 * inRendering / whole;
  state.counters["logic_%"] = 100 * (whole - inDatabase - inRendering) / whole;
  const double allRows = static_cast<double>(rows) * static_cast<double>(state.iterations());
  state.counters["queries_per_row"] = rowQueries / allRows;
  state.counters["other_queries_per_row"] = (queries - rowQueries) / allRows;
}

void QueryItems(benchmark::State& state, const std::string& connection, Kept kept) {
  TimedDatabase database(kept);
  for (auto unused : state) {
    benchmark::DoNotOptimize(database.OpenQuery(
        connection,
        "select t2.*,t3.FVarName as FFieldName from ((select FTDBillID from TDBill where "
        "FtranType=21 and FTDBillName='销售订单A4') t1 Inner Join TDBillDetail t2 ON "
        "t1.FTDBillID=t2.FTDBillID) Left Join (select * from TDVariant where FTranType=21) t3 ON "
        "t2.FObjectFieldName=t3.FVarCaption  where t2.FTop>=0 and t2.FLeft>=0 and t2.FSite=3",
        CursorType::kUnspecified, LockType::kUnspecified));
  }
}

void Register(const std::string& name, const std::string& connection) {
  const auto print = [&](const std::string& what, Kept kept, int rows) {
    benchmark::RegisterBenchmark(
        (name + "/bill/" + what).c_str(),
        [=](benchmark::State& state) { PrintBill(state, connection, kept, rows); })
        ->Unit(benchmark::kMillisecond)
        ->Iterations(1)
        ->UseManualTime();
  };
  print("10000_rows", Kept::kAll, 10000);
  print("1000_rows", Kept::kAll, 1000);
  print("1000_rows/statements_anew", Kept::kConnections, 1000);
  print("1000_rows/connections_anew", Kept::kNothing, 1000);
  const auto query = [&](const std::string& what, Kept kept) {
    benchmark::RegisterBenchmark((name + "/items/" + what).c_str(), [=](benchmark::State& state) {
      QueryItems(state, connection, kept);
    })->UseRealTime();
  };
  query("all_kept", Kept::kAll);
  query("statements_anew", Kept::kConnections);
  query("connections_anew", Kept::kNothing);
}

}  // namespace
}  // namespace td

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  benchmark::Initialize(&argc, argv);
  if (argc < 3 || argc % 2 == 0) {
    std::cerr << "usage: bill_benchmark NAME CONNECTION [NAME CONNECTION …]\n";
    return 2;
  }
  for (int i = 1; i + 1 < argc; i += 2) td::Register(argv[i], argv[i + 1]);
  benchmark::RunSpecifiedBenchmarks();
}
