// What kept connections and kept statements save, on the query that a print run sends once a row.
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <stdlib.h>

#include <filesystem>
#include <stdexcept>
#include <string>

#include "sqlite/sqlite_database.h"

namespace td {
namespace {

constexpr const char* kTables = R"(
create table TDBill (FTDBillID integer primary key, FTranType integer, FTDBillName text,
  unique (FTranType, FTDBillName));
create table TDBillDetail (
  FTDBillID integer, FSite integer, FLeft real, FTop real, FWidth real, FHeight real,
  FTypeID integer, FIsVariant integer, FMustPrint integer, FObjectFieldName text,
  FObjectCaption text, FFontName text, FFontSize real, FFontBold integer, FFontItalic integer,
  FAlignMent integer, FWordWrap integer, FAutoSize integer, FFormatString text,
  Fborderwidth integer, FPicturePath text);
create index DetailOfBill on TDBillDetail (FTDBillID);
create table TDVariant (FTranType integer, FVarCaption text, FVarName text,
  primary key (FTranType, FVarCaption));
with n(i) as (select 1 union all select i+1 from n where i<30)
  insert into TDBill select i,21,'format'||i from n;
with n(i) as (select 0 union all select i+1 from n where i<1799)
  insert into TDBillDetail select 1+i/60,1+i%5,i%60*100,0,900,300,0,1,0,'变量'||(i%60),'',
    '宋体',10.5,0,0,0,0,0,'0.00',1,null from n;
with n(i) as (select 0 union all select i+1 from n where i<99)
  insert into TDVariant select 21,'变量'||i,'FField'||i from n;
)";

constexpr const char* kItems =
    "select t2.*,t3.FVarName as FFieldName from ((select FTDBillID from TDBill where FtranType=21 "
    "and FTDBillName='format7') t1 Inner Join TDBillDetail t2 ON t1.FTDBillID=t2.FTDBillID) Left "
    "Join (select * from TDVariant where FTranType=21) t3 ON t2.FObjectFieldName=t3.FVarCaption  "
    "where t2.FTop>=0 and t2.FLeft>=0 and t2.FSite=3";

// The connection text of a database that all benchmarks share.
class BenchmarkFile {
 public:
  BenchmarkFile() {
    std::string folder = (std::filesystem::temp_directory_path() / "qbtd-bench-XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr) throw std::runtime_error("no temporary folder");
    folder_ = folder;
    sqlite3* engine = nullptr;
    const std::string path = (folder_ / "items.db").string();
    sqlite3_open(path.c_str(), &engine);
    sqlite3_exec(engine, kTables, nullptr, nullptr, nullptr);
    sqlite3_close(engine);
    connection_ = "sqlite:" + path;
  }
  ~BenchmarkFile() { std::filesystem::remove_all(folder_); }
  BenchmarkFile(const BenchmarkFile&) = delete;
  BenchmarkFile& operator=(const BenchmarkFile&) = delete;

  [[nodiscard]] const std::string& Connection() const { return connection_; }

 private:
  std::filesystem::path folder_;
  std::string connection_;
};

const std::string& FileConnection() {
  static const BenchmarkFile file;
  return file.Connection();
}

void ItemQuery(benchmark::State& state) {
  SqliteDatabase database;
  for (auto _ : state) {
    benchmark::DoNotOptimize(database.OpenQuery(FileConnection(), kItems));
  }
}
BENCHMARK(ItemQuery);

void ItemQueryPreparedAnew(benchmark::State& state) {
  SqliteDatabase database;
  int i = 0;
  for (auto _ : state) {
    const std::string sql = kItems + (" -- " + std::to_string(++i));
    benchmark::DoNotOptimize(database.OpenQuery(FileConnection(), sql));
  }
}
BENCHMARK(ItemQueryPreparedAnew);

void ItemQueryOnANewConnection(benchmark::State& state) {
  for (auto _ : state) {
    SqliteDatabase database;
    benchmark::DoNotOptimize(database.OpenQuery(FileConnection(), kItems));
  }
}
BENCHMARK(ItemQueryOnANewConnection);

void SmallQuery(benchmark::State& state) {
  SqliteDatabase database;
  for (auto _ : state) {
    benchmark::DoNotOptimize(database.OpenQuery(
        FileConnection(), "select * from TDBill where FTDBillName='format7' and FTranType=21"));
  }
}
BENCHMARK(SmallQuery);

void FieldByName(benchmark::State& state) {
  SqliteDatabase database;
  const RecordsetRef rows = database.OpenQuery(FileConnection(), kItems);
  for (auto _ : state) {
    benchmark::DoNotOptimize(rows->Field("FObjectCaption"));
    benchmark::DoNotOptimize(rows->Field("FLeft"));
  }
}
BENCHMARK(FieldByName);

}  // namespace
}  // namespace td

BENCHMARK_MAIN();
