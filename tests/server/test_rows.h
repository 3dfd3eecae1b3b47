// Print data as a program in another language would write it: it answers by name and no other way.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "client/client.h"
#include "objects/owned.h"
#include "platform/value.h"

namespace td {

// Makes a new variant, or throws a Failure, which the object raises.
using TestValue = std::function<TdVariant()>;
using TestRow = std::map<std::string, TestValue>;

struct TestData {
  std::vector<TestRow> rows;
  std::set<std::string> missingMembers;  // the object doesn't know these names
  std::function<void()> onClone;         // may throw
  std::function<void()> onMoveNext;
  bool givesFirstInterface = false;  // fields and clones come as TD_OBJECT
  bool answersAtTheEnd = false;      // with the values of the last row
  int position = 0;  // of the object that all of this was given to, not of its clones
  int clones = 0;
  int timesAskedForEnd = 0;
};

class TestRows {
 public:
  // A new object on the first row.
  static Reference<TdDispatch> Make(const std::shared_ptr<TestData>& data);
  // How many of them, fields included, have not been given back.
  static int Alive();
};

// Rows of one bill, which differ in FName.
std::shared_ptr<TestData> NamedRows(const std::vector<std::string>& names);
// One row of one bill, in which a column has the value.
std::shared_ptr<TestData> OneValue(const std::string& column, TestValue value);

TestValue Text(const std::string& text);
TestValue Number(std::int32_t number);

}  // namespace td
