// Keeps the prepared statements of one connection.
#pragma once

#include <algorithm>
#include <cstddef>
#include <list>
#include <string>
#include <utility>

namespace td {

// The statements used last, by their text. A print run sends the same few texts over and over.
template <typename Statement>
class StatementCache {
 public:
  // The kept statement of that text, or nothing. Good until the next Add or Remove.
  [[nodiscard]] Statement* Find(const std::string& sql) {
    const auto found = std::ranges::find(kept_, sql, &Kept::sql);
    if (found == kept_.end()) return nullptr;
    kept_.splice(kept_.begin(), kept_, found);
    return &kept_.front().statement;
  }

  Statement& Add(const std::string& sql, Statement statement) {
    if (kept_.size() == kMostKept) kept_.pop_back();
    kept_.push_front({sql, std::move(statement)});
    return kept_.front().statement;
  }

  void Remove(const std::string& sql) {
    std::erase_if(kept_, [&sql](const Kept& kept) { return kept.sql == sql; });
  }

 private:
  static constexpr std::size_t kMostKept = 32;

  struct Kept {
    std::string sql;
    Statement statement;
  };

  // The last used first. Nothing is ever moved onto another one, whose parts would end in the order
  // in which they are declared: a statement before what is bound to it.
  std::list<Kept> kept_;
};

}  // namespace td
