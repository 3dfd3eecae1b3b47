// What is wrong with the format that is being edited, for all views of it.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "designer/model/format.h"

namespace td::designer {

enum class FindingSeverity {
  kHint,     // worth a look
  kWarning,  // prints something else than was meant, probably
  kError,    // prints wrong, or not at all
};

// In the language of the desktop.
struct FormatFinding {
  FindingSeverity severity = FindingSeverity::kHint;
  ItemId item = 0;  // 0: the format itself
  std::string wrong;
  std::string effect;  // what comes of it on paper
  std::string mend;
  bool onPictureString = false;
};

class Findings {
 public:
  using Listener = std::function<void()>;

  // Those on the format first, then by the order of the items.
  [[nodiscard]] const std::vector<FormatFinding>& All() const { return all_; }
  // Of each item that has findings the worst: what the sheet marks.
  [[nodiscard]] const std::map<ItemId, FindingSeverity>& Marks() const { return marks_; }
  [[nodiscard]] int CountOf(FindingSeverity severity) const;

  void Put(std::vector<FormatFinding> findings);

  // Called after each Put, in the order in which they were added, by the number returned.
  int AddListener(Listener listener);
  void RemoveListener(int number);

 private:
  std::vector<FormatFinding> all_;
  std::map<ItemId, FindingSeverity> marks_;
  std::vector<std::pair<int, Listener>> listeners_;
  int lastListener_ = 0;
};

}  // namespace td::designer
