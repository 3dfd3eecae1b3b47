#include "explanation/unreached_items.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "platform/failure.h"
#include "state/print_context.h"
#include "store/statements.h"

namespace td {
namespace {

class FormatItems {
 public:
  FormatItems(Database& database, const std::string& connection, const Explanation& explanation)
      : database_(database) {
    request_.New_PromptString = connection;
    request_.New_TranType = explanation.billType;
    request_.TDBillName = explanation.format;
  }

  [[nodiscard]] std::vector<ExplainedItem> All() const { return Read(AllItemsStatement(request_)); }

  // Whether the band's own query finds the item, when all or only variable items are wanted.
  [[nodiscard]] bool IsFound(const ExplainedItem& item, bool onlyVariantItems) {
    const auto [known, isNew] = found_.try_emplace({item.band, onlyVariantItems});
    if (isNew) {
      request_.New_OnlyPrintVariantItem = onlyVariantItems;
      const auto site = static_cast<ItemSite>(item.band);
      const bool isHead = site == ItemSite::kHead;
      for (const ExplainedItem& found :
           Read(isHead ? HeaderItemStatement(request_) : ItemStatement(request_, site, {}))) {
        known->second.insert(ContentOf(found));
      }
    }
    return known->second.contains(ContentOf(item));
  }

 private:
  [[nodiscard]] std::vector<ExplainedItem> Read(const std::string& sql) const {
    std::vector<ExplainedItem> items;
    const RecordsetRef rows = database_.OpenQuery(request_.New_PromptString, sql);
    for (; !rows->Eof(); rows->MoveNext()) items.push_back(ReadItem(*rows));
    return items;
  }

  Database& database_;
  PrintContext request_;
  std::map<std::pair<int, bool>, std::set<std::string>> found_;  // by band
};

bool IsBand(int band) {
  return band >= static_cast<int>(ItemSite::kHead) && band <= static_cast<int>(ItemSite::kFoot);
}

Reason WhyUnreached(const ExplainedItem& item, FormatItems& format, const ItemLedger& reached,
                    const Explanation& explanation) {
  const auto because = [](Cause cause) { return ReasonAt({}, cause); };
  if (!IsBand(item.band)) return because(Cause::kUnknownBand);
  if (!format.IsFound(item, false)) return because(Cause::kHiddenPosition);
  if (explanation.onlyVariantItems && !format.IsFound(item, true)) {
    return because(Cause::kNotVariable);
  }
  const std::vector<Reason>& stops = reached.Stops(item.band);
  return stops.empty() ? because(Cause::kBandNotDrawn) : stops.front();
}

// Items of a band that ended before it came to them, now and then.
void AddStops(const ItemLedger& reached, std::vector<ExplainedItem>& items) {
  for (ExplainedItem& item : items) {
    if (!IsBand(item.band) || item.reached >= reached.DrawnTimes(item.band)) continue;
    int lacking = reached.DrawnTimes(item.band) - item.reached;
    for (Reason stop : reached.Stops(item.band)) {
      stop.times = std::min(stop.times, lacking);
      lacking -= stop.times;
      if (stop.times > 0) item.leftOut.push_back(std::move(stop));
    }
  }
}

}  // namespace

void AddUnreachedItems(Database& database, const std::string& connection, const ItemLedger& reached,
                       Explanation& explanation) {
  AddStops(reached, explanation.items);
  std::map<std::string, int> known;
  for (const ExplainedItem& item : explanation.items) ++known[ContentOf(item)];
  try {
    FormatItems format(database, connection, explanation);
    for (ExplainedItem& item : format.All()) {
      if (known[ContentOf(item)]-- > 0) continue;
      item.leftOut.push_back(WhyUnreached(item, format, reached, explanation));
      explanation.items.push_back(std::move(item));
    }
  } catch (const Failure& failure) {
    explanation.unreadItems = failure.Description();
  }
}

}  // namespace td
