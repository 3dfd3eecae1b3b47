// Loads formats from the tables of an application, and saves them there.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "designer/model/difference.h"
#include "designer/model/format.h"
#include "sql_support/transaction.h"

namespace td::designer {

// One line of the list of formats.
struct FormatEntry {
  Value id = Null{};
  int billType = 0;
  std::string name;
  bool selected = false;
};

// Somebody else has changed what was loaded.
struct Conflict {
  bool isGone = false;                  // the format has been deleted; `theirs` is empty then
  Format theirs;                        // as it stands in the tables now
  std::vector<Difference> differences;  // from what was loaded to theirs
};

// As it stands in the tables now: the items have the ids of the format that was saved.
struct Saved {
  Format stored;
};

// Whether a save that meets another user's changes gives way or writes over them. What is written
// over are the format's columns, its items, and of the variables those that were changed here.
enum class OnConflict { kReport, kOverwrite };

// Every operation is one transaction: all of it or nothing. Fails with Failure, in the words of the
// error policy. Another user's lock is waited for as long as the policy waits.
class FormatStore {
 public:
  // Called each time that a lock was met, about once a second or five times on an embedded
  // database; false gives up, with the failure of the lock. Without it a lock is waited for.
  using WhileLocked = std::function<bool()>;

  FormatStore(TransactionalDatabase& database, std::string connection,
              WhileLocked whileLocked = {});

  // The formats of a bill type by name, or of all types; the selected one first in its type.
  [[nodiscard]] std::vector<FormatEntry> List(int billType) const;
  [[nodiscard]] std::vector<FormatEntry> ListAll() const;

  // Fails when there is no such format; without a name the selected one.
  [[nodiscard]] Format Load(int billType, const std::string& name) const;
  [[nodiscard]] Format LoadById(const Value& id) const;

  // The variables of a bill type, for a format that is in no table yet.
  [[nodiscard]] std::vector<Variable> Variables(int billType) const;

  // A new format with the columns that the tables have and the variables of the bill type; nothing
  // is written.
  [[nodiscard]] Format Blank(int billType, const std::string& name) const;

  // Writes what differs from `base`, the format as it was loaded: only columns that a designer
  // knows, of this format's rows and of the variables that were changed. A `wanted` without an id
  // becomes a new format. Fails when its name is another format's of the bill type.
  [[nodiscard]] std::variant<Saved, Conflict> Save(const Format& base, const Format& wanted,
                                                   OnConflict onConflict = OnConflict::kReport);

  // A copy in the tables, with the columns of the application, under another name; not selected.
  Format Copy(const Value& id, const std::string& newName);
  void Rename(const Value& id, const std::string& newName);
  // With its items and the papers and printers that machines have kept for it; the variables stay.
  void Delete(const Value& id);
  // Makes it the only selected format of its bill type.
  void Select(const Value& id);

 private:
  void InTransaction(Access access, const std::function<void(Transaction&)>& action) const;

  TransactionalDatabase& database_;
  std::string connection_;
  WhileLocked whileLocked_;
};

}  // namespace td::designer
