// The items of a format that no band of a run came to.
#pragma once

#include <string>

#include "explanation/explanation.h"
#include "explanation/item_ledger.h"
#include "platform/database.h"

namespace td {

// Reads the items of the explanation's format and adds those that are not in it, with the reason;
// an item that was reached less often than its band was drawn gets the reason, too. A database that
// fails is told in `unreadItems`.
void AddUnreachedItems(Database& database, const std::string& connection, const ItemLedger& reached,
                       Explanation& explanation);

}  // namespace td
