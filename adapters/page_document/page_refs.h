// The pages of a document, or some of them, where they lie.
#pragma once

#include <optional>
#include <vector>

#include "page_document/drawing.h"

namespace td {

using PageRefs = std::vector<const Page*>;

[[nodiscard]] PageRefs RefsTo(const std::vector<Page>& pages);

// Those with the numbers, each from 1, in their order; nothing: all.
[[nodiscard]] PageRefs ChosenPages(const std::vector<Page>& pages,
                                   const std::optional<std::vector<int>>& numbers);

// A job has one sheet: the runs of pages on the same sheet, lying along or across it, in their
// order.
[[nodiscard]] std::vector<PageRefs> SheetRuns(const PageRefs& pages);

}  // namespace td
