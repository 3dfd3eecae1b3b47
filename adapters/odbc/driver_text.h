// From the caller's connection text to the text that the driver manager takes.
#pragma once

#include <string>
#include <vector>

#include "sql_support/connection_entries.h"

namespace td {

struct DriverText {
  std::string text;
  std::string password;  // to be kept out of every message; empty if there is none
};

// A text with Driver=, DSN= or FileDSN= goes to the driver manager as it is; that for SQLite's
// driver is told to wait one second for a lock, unless it says how long (Timeout=). The provider
// texts of older applications are translated (keys and providers without regard to case, endings
// such as .1 or 11 of a provider's name left aside):
//
//   Provider=SQLOLEDB, SQLNCLI or MSOLEDBSQL   Driver=FreeTDS; on Windows the newest that is
//                                              installed for SQL Server
//   Provider=MSDASQL                           the text in Extended Properties, then
//                                              Data Source as DSN, Driver as it is
//   Data Source, Server, Address, Addr, Network Address   Server, and Port behind a comma
//   Initial Catalog, Database                  Database
//   User ID, UID; Password, PWD                UID; PWD
//   Encrypt, Use Encryption for Data           Encryption=require, unless they say no; on Windows
//                                              Encrypt, which is no without them
//   TrustServerCertificate, Trust Server Certificate   on Windows TrustServerCertificate
//
// Other keys of a provider text have no effect. Fails on a text without driver or provider, on
// another provider, on more than 8 KB, and, except on Windows, where the user of the operating
// system is to log on (Integrated Security, Trusted_Connection, unless they say no).
[[nodiscard]] DriverText ToDriverText(const std::string& connectionText);

// The text of these entries for another driver than the one that they name. One for SQL Server that
// would encrypt is told not to where neither the text nor the driver that it was written for did.
[[nodiscard]] std::string TextForDriver(const std::string& driver,
                                        const std::vector<ConnectionEntry>& entries);

}  // namespace td
