#include "document_bounds.h"

#include <limits>
#include <string>

#include "platform/failure.h"

namespace td {
namespace {

// Rows are numbered in 16 bits, and the number behind the last one must be one, too.
constexpr int kMostRows = std::numeric_limits<std::int16_t>::max() - 1;

int CountOf(Recordset& rows) {
  int count = 0;
  for (; !rows.Eof(); rows.MoveNext()) ++count;
  return count;
}

}  // namespace

void RequireFewRows(Recordset& rows, std::int16_t blankRows) {
  const int count = CountOf(*rows.Clone());
  if (count - blankRows <= kMostRows) return;
  throw Failure(kOverflow, "the query gave " + std::to_string(count) +
                               " rows, and a document can have " + std::to_string(kMostRows) +
                               "; print fewer bills at a time");
}

}  // namespace td
