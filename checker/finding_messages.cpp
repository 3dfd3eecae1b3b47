#include "checker/finding_messages.h"

#include <cstddef>
#include <vector>

#include "checker/message_tables.h"

namespace td::checker {
namespace {

std::vector<FindingMessage> AllMessages() {
  std::vector<FindingMessage> all;
  for (const auto& messages :
       {kBillMessages, kItemMessages, kSheetMessages, kTextMessages, kFormatStringMessages,
        kBarcodeMessages, kDataMessages, kSettingsMessages}) {
    all.insert(all.end(), messages.begin(), messages.end());
  }
  return all;
}

}  // namespace

std::span<const FindingMessage> FindingMessages() {
  static const std::vector<FindingMessage> all = AllMessages();
  return all;
}

const FindingMessage& MessageOf(FindingKind kind) {
  return FindingMessages()[static_cast<std::size_t>(kind)];
}

}  // namespace td::checker
