#include "documented_rights.h"

#include <algorithm>
#include <fstream>
#include <regex>
#include <sstream>

namespace td {
namespace {

std::string PageOnDatabases() {
  std::stringstream page;
  page << std::ifstream(QBTD_SOURCE_DIR "/docs/databases.md").rdbuf();
  return page.str();
}

// What the page grants to the roles, to a user instead, one table in a statement.
std::string Grants(const std::vector<std::string>& roles, const std::string& user) {
  static const std::regex kGrant(R"(grant ([a-z, ]+) on ([^;`]+) to (\w+);)");
  static const std::regex kTable(R"(\w+)");
  const std::string page = PageOnDatabases();
  std::string script;
  for (std::sregex_iterator grant(page.begin(), page.end(), kGrant), end; grant != end; ++grant) {
    if (std::find(roles.begin(), roles.end(), (*grant)[3]) == roles.end()) continue;
    const std::string tables = (*grant)[2];
    for (std::sregex_iterator table(tables.begin(), tables.end(), kTable); table != end; ++table) {
      script += "grant " + (*grant)[1].str() + " on " + table->str() + " to " + user + ";\n";
    }
  }
  EXPECT_FALSE(script.empty());
  return script;
}

}  // namespace

UserWithRights::UserWithRights(SampleEngine engine, const std::vector<std::string>& roles,
                               const std::vector<std::string>& printData)
    : isPostgreSql_(engine == SampleEngine::kPostgreSql),
      server_(isPostgreSql_ ? Server::kPostgreSql : Server::kMariaDb),
      connection_(ConnectionOf(server_)) {
  const std::string user = isPostgreSql_ ? "cashier" : "cashier@'127.0.0.1'";
  std::string script = isPostgreSql_ ? "create user cashier password 'kasse';\n"
                                     : "create user cashier@'127.0.0.1' identified by 'kasse';\n";
  script += Grants(roles, user);
  for (const std::string& table : printData) {
    script += "grant select on " + table + " to " + user + ";\n";
  }
  RunScript(server_, scratch_.Write("rights.sql", script));
  const std::string owner = "UID=clerk;PWD={geheim;}}1}";
  connection_.replace(connection_.find(owner), owner.size(), "UID=cashier;PWD=kasse");
}

UserWithRights::~UserWithRights() {
  RunScript(server_,
            scratch_.Write("end.sql", isPostgreSql_ ? "drop owned by cashier; drop user cashier;\n"
                                                    : "drop user cashier@'127.0.0.1';\n"));
}

}  // namespace td
