// Asks for the database and the bill type of a designer that was started without them.
#pragma once

#include <optional>
#include <string>

#include "sql_support/transaction.h"

namespace td::designer {

struct ChosenConnection {
  std::string connection;
  int billType = 0;
};

// Starts with what was chosen last on this machine, which `stateFolder` keeps without passwords.
// Nothing if the user gave up; a connection that can't be opened is told, and asked for again.
[[nodiscard]] std::optional<ChosenConnection> AskForConnection(TransactionalDatabase& database,
                                                               const std::string& stateFolder);

}  // namespace td::designer
