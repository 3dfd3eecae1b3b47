#include "designer/view/findings.h"

#include <algorithm>

namespace td::designer {

int Findings::CountOf(FindingSeverity severity) const {
  return static_cast<int>(std::ranges::count(all_, severity, &FormatFinding::severity));
}

void Findings::Put(std::vector<FormatFinding> findings) {
  all_ = std::move(findings);
  marks_.clear();
  for (const FormatFinding& finding : all_) {
    if (finding.item == 0) continue;
    const auto [mark, isNew] = marks_.emplace(finding.item, finding.severity);
    mark->second = std::max(mark->second, finding.severity);
  }
  const auto listeners = listeners_;  // one may remove itself
  for (const auto& [number, listener] : listeners) listener();
}

int Findings::AddListener(Listener listener) {
  listeners_.emplace_back(++lastListener_, std::move(listener));
  return lastListener_;
}

void Findings::RemoveListener(int number) {
  std::erase_if(listeners_, [number](const auto& entry) { return entry.first == number; });
}

}  // namespace td::designer
