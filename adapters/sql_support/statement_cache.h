// Keeps the prepared statements of one connection.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace td {

// The statements used last, by their text. A print run sends the same few texts over and over.
template <typename Statement>
class StatementCache {
 public:
  // The kept statement of that text, or nothing. Good until the next Add or Remove.
  [[nodiscard]] Statement* Find(const std::string& sql) {
    const auto found = std::find_if(kept_.begin(), kept_.end(),
                                    [&sql](const Kept& kept) { return kept.sql == sql; });
    if (found == kept_.end()) return nullptr;
    std::rotate(kept_.begin(), found, found + 1);
    return &kept_.front().statement;
  }

  Statement& Add(const std::string& sql, Statement statement) {
    if (kept_.size() == kMostKept) kept_.pop_back();
    return kept_.insert(kept_.begin(), Kept{sql, std::move(statement)})->statement;
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

  std::vector<Kept> kept_;  // the last used first
};

}  // namespace td
