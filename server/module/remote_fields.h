// The columns of a program's record set.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "module/remote_calls.h"

namespace td {

// Finds them in the way in which the record set hands them out:
//   Fields(name)             a member that takes the name
//   Fields, item(name)       a collection, whose items are found by their names
//   Fields, item(number)     a collection, whose items have a number from 0 to Count, and a Name
// The first way that leads to a column is kept.
class RemoteFields {
 public:
  // The object of the column; its Value is to be read. All calls must be of one record set. Fails
  // with what the record set fails with, and with kNoSuchColumn if no item has the name.
  Reference<TdDispatch> Find(TdDispatch* rows, std::string_view column);

 private:
  enum class Way { kByName, kInCollection, kByNumber };

  Reference<TdDispatch> FindBy(Way way, TdDispatch* rows, std::string_view column);
  // An item of the collection.
  Reference<TdDispatch> Item(TdDispatch* rows, TdVariant index);
  void ReadNames(TdDispatch* rows);

  RemoteMember fields_{"Fields"};
  std::optional<Way> way_;
  std::map<std::string, std::int32_t> numbers_;  // by names in lower case; empty: not read
};

}  // namespace td
