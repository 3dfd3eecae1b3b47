// The statements that the in-memory tables understand, as trees.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/value.h"

namespace td::recording {

// A value: a column, a literal, left(value, value) or isnull(value, value).
struct Scalar {
  enum class Kind { kColumn, kLiteral, kLeft, kIsNull };
  Kind kind = Kind::kLiteral;
  std::string qualifier;  // of a column, may be empty
  std::string name;       // of a column
  Value literal;
  std::vector<Scalar> arguments;
  std::size_t position = 0;  // in the statement
  std::size_t place = 0;     // of a column in its row, once it is bound
};

enum class Comparison { kEqual, kUnequal, kLess, kLessOrEqual, kGreater, kGreaterOrEqual };

// A comparison of two values, or conditions that all or partly hold.
struct Condition {
  enum class Kind { kComparison, kAll, kAny };
  Kind kind = Kind::kComparison;
  Comparison comparison = Comparison::kEqual;
  std::vector<Scalar> sides;  // two, of a comparison
  std::vector<Condition> parts;
};

struct SelectItem {
  bool isAll = false;     // "*" or "t2.*"
  std::string qualifier;  // of "t2.*"
  Scalar value;
  std::string name;  // of the result's column
  std::size_t position = 0;
};

struct OrderTerm {
  Scalar column;
  bool descends = false;
};

struct Source;

struct Select {
  std::vector<SelectItem> items;
  std::unique_ptr<Source> from;
  std::optional<Condition> where;
  std::vector<Scalar> groupBy;
  std::vector<OrderTerm> orderBy;
};

// A table, a derived table, or a join of two sources.
struct Source {
  std::string table;
  std::string alias;  // the table's name if there is none
  std::unique_ptr<Select> derived;
  std::unique_ptr<Source> left;
  std::unique_ptr<Source> right;
  bool keepsLeft = false;  // a left join
  Condition on;
  std::size_t position = 0;
};

struct Assignment {
  Scalar column;
  Scalar value;
};

struct Update {
  std::string table;
  std::vector<Assignment> assignments;
  std::optional<Condition> where;
  std::size_t position = 0;
};

struct Insert {
  std::string table;
  std::vector<Scalar> columns;
  std::vector<Scalar> values;
  std::size_t position = 0;
};

struct Delete {
  std::string table;
  std::optional<Condition> where;
  std::size_t position = 0;
};

using Statement = std::variant<Select, Update, Insert, Delete>;

}  // namespace td::recording
