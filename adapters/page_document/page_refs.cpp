#include "page_document/page_refs.h"

#include <cstddef>

namespace td {

PageRefs RefsTo(const std::vector<Page>& pages) {
  PageRefs refs;
  refs.reserve(pages.size());
  for (const Page& page : pages) refs.push_back(&page);
  return refs;
}

PageRefs ChosenPages(const std::vector<Page>& pages,
                     const std::optional<std::vector<int>>& numbers) {
  if (!numbers) return RefsTo(pages);
  PageRefs chosen;
  chosen.reserve(numbers->size());
  for (const int number : *numbers) {
    chosen.push_back(&pages.at(static_cast<std::size_t>(number) - 1));
  }
  return chosen;
}

std::vector<PageRefs> SheetRuns(const PageRefs& pages) {
  std::vector<PageRefs> runs;
  for (const Page* page : pages) {
    if (runs.empty() || !(runs.back().front()->Sheet() == page->Sheet())) runs.emplace_back();
    runs.back().push_back(page);
  }
  return runs;
}

}  // namespace td
