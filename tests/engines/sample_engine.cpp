#include "sample_engine.h"

#include <fstream>
#include <map>

#include "database_servers.h"
#include "sample_files.h"
#include "sample_script.h"
#include "scratch_folder.h"
#include "temporary_database.h"

namespace td {
namespace {

// The folder of the sample, or one that has nothing but its tables.
std::filesystem::path Samples(SampleRows rows) {
  std::filesystem::path all = std::filesystem::path(QBTD_SOURCE_DIR) / "examples";
  if (rows == SampleRows::kAll) return all;
  static const ScratchFolder tables;
  std::filesystem::copy_file(all / "schema.sql", tables / "schema.sql",
                             std::filesystem::copy_options::skip_existing);
  return tables.Path();
}

Server ServerOf(SampleEngine engine) {
  return engine == SampleEngine::kPostgreSql ? Server::kPostgreSql : Server::kMariaDb;
}

const ScratchFolder& Folder() {
  static const ScratchFolder folder;
  return folder;
}

std::filesystem::path SqliteFile() {
  return Folder() / "sample.db";
}

// Everything in the test database goes away.
std::string_view Emptying(SampleEngine engine) {
  return engine == SampleEngine::kPostgreSql
             ? "set client_min_messages=warning; drop schema public cascade; create schema public; "
               "grant usage on schema public to public;\n"
             : "drop database qbtd; create database qbtd character set utf8mb4; use qbtd;\n";
}

std::string Make(SampleEngine engine, SampleRows rows) {
  if (engine == SampleEngine::kSqlite) {
    MakeSampleDatabase(Samples(rows), SqliteFile());
    return "sqlite:" + SqliteFile().string();
  }
  const SampleDatabase sample = OpenSampleDatabase(Samples(rows));
  const std::filesystem::path script = Folder() / "sample.sql";
  std::ofstream out(script, std::ios::binary);
  out << Emptying(engine);
  WriteSampleScript(
      sample.get(),
      engine == SampleEngine::kPostgreSql ? ScriptEngine::kPostgreSql : ScriptEngine::kMariaDb,
      false, out);
  out.close();
  RunScript(ServerOf(engine), script);
  return ConnectionOf(ServerOf(engine));
}

std::map<SampleEngine, std::string>& Made() {
  static std::map<SampleEngine, std::string> made;
  return made;
}

}  // namespace

std::string NameOf(SampleEngine engine) {
  switch (engine) {
    case SampleEngine::kSqlite:
      return "Sqlite";
    case SampleEngine::kPostgreSql:
      return "PostgreSql";
    case SampleEngine::kMariaDb:
      return "MariaDb";
  }
  return {};
}

const std::string& SampleOn(SampleEngine engine) {
  std::string& connection = Made()[engine];
  if (connection.empty()) connection = Make(engine, SampleRows::kAll);
  return connection;
}

std::filesystem::path SampleFile() {
  (void)SampleOn(SampleEngine::kSqlite);
  return SqliteFile();
}

void RenewSample(SampleEngine engine, SampleRows rows) {
  Made()[engine] = Make(engine, rows);
}

void RunScriptOn(SampleEngine engine, const std::string& script) {
  if (engine == SampleEngine::kSqlite) {
    OtherUser(SqliteFile().string()).Run(script);
  } else {
    RunScript(ServerOf(engine), Folder().Write("statements.sql", script));
  }
}

}  // namespace td
