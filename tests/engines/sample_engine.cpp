#include "sample_engine.h"

#include <fstream>
#include <map>

#include "database_servers.h"
#include "sample_files.h"
#include "sample_script.h"
#include "scratch_folder.h"

namespace td {
namespace {

std::filesystem::path Samples() {
  return std::filesystem::path(QBTD_SOURCE_DIR) / "examples";
}

Server ServerOf(SampleEngine engine) {
  return engine == SampleEngine::kPostgreSql ? Server::kPostgreSql : Server::kMariaDb;
}

const ScratchFolder& Folder() {
  static const ScratchFolder folder;
  return folder;
}

// Everything in the test database goes away.
std::string_view Emptying(SampleEngine engine) {
  return engine == SampleEngine::kPostgreSql
             ? "set client_min_messages=warning; drop schema public cascade; create schema public; "
               "grant usage on schema public to public;\n"
             : "drop database qbtd; create database qbtd character set utf8mb4; use qbtd;\n";
}

std::string Make(SampleEngine engine) {
  if (engine == SampleEngine::kSqlite) {
    const std::filesystem::path file = Folder() / "sample.db";
    MakeSampleDatabase(Samples(), file);
    return "sqlite:" + file.string();
  }
  const SampleDatabase sample = OpenSampleDatabase(Samples());
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
  if (connection.empty()) connection = Make(engine);
  return connection;
}

std::filesystem::path SampleFile() {
  (void)SampleOn(SampleEngine::kSqlite);
  return Folder() / "sample.db";
}

void RenewSample(SampleEngine engine) {
  Made()[engine] = Make(engine);
}

}  // namespace td
