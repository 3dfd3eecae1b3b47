#include "print_calls/kept_messages.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "files/standard_error.h"

namespace td {
namespace {

// Without the breaks and the spaces around them that a box would show.
std::string OneLine(std::string_view text) {
  constexpr std::string_view kSpaces = " \t\n\v\f\r";
  std::string line;
  for (std::size_t begin = 0;;) {
    begin = text.find_first_not_of(kSpaces, begin);
    if (begin == std::string_view::npos) return line;
    const std::size_t end = std::min(text.find_first_of(kSpaces, begin), text.size());
    if (!line.empty()) line += ' ';
    line += text.substr(begin, end - begin);
    begin = end;
  }
}

}  // namespace

void KeptMessages::ShowBox(const std::string& text, int style) {
  ++shown_;
  const std::string place = place_ ? place_() : std::string();
  if (outcome_ != nullptr) {
    ++outcome_->messages;
    outcome_->texts.push_back(text);
    outcome_->places.push_back(place);
  }
  if (mode_ == MessageMode::kCollected) return;
  if (mode_ == MessageMode::kStandardError || !HasDisplay()) {
    const std::string note = place.empty() ? std::string() : " (" + place + ")";
    WriteErrorLine(OneLine(text + note));
    return;
  }
  ShowInBox(text, style);
}

}  // namespace td
