#include "print_log/secrets.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "platform/failure.h"
#include "sql_support/connection_entries.h"

namespace td {
namespace {

constexpr std::string_view kMask = "***";
// Longer words first: "pass" begins some of them.
constexpr std::array<std::string_view, 6> kPasswordKeys = {"password", "passwd", "passphrase",
                                                           "pass",     "pwd",    "secret"};
constexpr std::size_t kShortestAnywhere = 4;

std::string LowerCaseAscii(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

bool IsPasswordKey(std::string_view key) {
  return std::ranges::find(kPasswordKeys, LowerCaseAscii(key)) != kPasswordKeys.end();
}

// Bytes of characters beyond ASCII part words, as the marks of Chinese sentences do.
bool IsOfWord(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

bool IsWord(std::string_view text, std::size_t at, std::size_t length) {
  const bool beginsWord = at == 0 || !IsOfWord(text[at - 1]);
  const bool endsWord = at + length == text.size() || !IsOfWord(text[at + length]);
  return beginsWord && endsWord;
}

std::size_t BehindBlanks(std::string_view text, std::size_t at) {
  const std::size_t next = text.find_first_not_of(" \t", at);
  return next == text.npos ? text.size() : next;
}

// Where the value that begins at `at` ends: at its closing quote, doubled ones passed over, else at
// a semicolon, a blank or a mark that closes what it stands in.
std::size_t EndOfValue(std::string_view text, std::size_t at) {
  if (at < text.size() && std::string_view("'\"{").find(text[at]) != std::string_view::npos) {
    const char close = text[at] == '{' ? '}' : text[at];
    for (std::size_t end = text.find(close, at + 1); end != text.npos;
         end = text.find(close, end + 2)) {
      if (end + 1 >= text.size() || text[end + 1] != close) return end + 1;
    }
    return text.size();
  }
  const std::size_t end = text.find_first_of("; \t\r\n'\")", at);
  return end == text.npos ? text.size() : end;
}

struct Place {
  std::size_t begin;
  std::size_t end;
};

// The values behind KEY= of a password, in their order.
std::vector<Place> PasswordPlaces(std::string_view text) {
  const std::string lower = LowerCaseAscii(text);
  std::vector<Place> places;
  for (std::size_t equals = lower.find('='); equals != lower.npos;
       equals = lower.find('=', equals + 1)) {
    if (!places.empty() && equals < places.back().end) continue;
    const std::string_view before = std::string_view(lower).substr(0, equals);
    const std::size_t last = before.find_last_not_of(" \t");
    if (last == before.npos) continue;
    const std::string_view trimmed = before.substr(0, last + 1);
    const bool isPassword = std::ranges::any_of(
        kPasswordKeys, [&](std::string_view key) { return trimmed.ends_with(key); });
    if (!isPassword) continue;
    const std::size_t begin = BehindBlanks(text, equals + 1);
    places.push_back({begin, EndOfValue(text, begin)});
  }
  return places;
}

void MaskEach(std::string& text, const std::string& secret) {
  const bool onlyWords = secret.size() < kShortestAnywhere;
  for (std::size_t at = text.find(secret); at != text.npos;) {
    if (onlyWords && !IsWord(text, at, secret.size())) {
      at = text.find(secret, at + 1);
    } else {
      text.replace(at, secret.size(), kMask);
      at = text.find(secret, at + kMask.size());
    }
  }
}

}  // namespace

Secrets::Secrets(const std::string& connection) {
  secrets_.push_back(connection);
  for (const Place& place : PasswordPlaces(connection)) {
    const std::string value = connection.substr(place.begin, place.end - place.begin);
    secrets_.push_back(value);
    // A quote that never ends belongs to no entry.
    secrets_.push_back(
        value.substr(std::min<std::size_t>(value.find_first_not_of("'\"{"), value.size())));
  }
  try {
    for (const ConnectionEntry& entry : ReadConnectionEntries(connection)) {
      if (IsPasswordKey(entry.key)) secrets_.push_back(entry.value);
    }
  } catch (const Failure&) {
    // No list of entries; what looks like a password was taken all the same.
  }
  std::erase_if(secrets_, [](const std::string& secret) { return secret.empty(); });
  std::ranges::sort(secrets_, std::ranges::greater(), &std::string::size);
}

std::string Secrets::Mask(std::string_view text) const {
  std::string masked(text);
  for (const std::string& secret : secrets_) MaskEach(masked, secret);
  const std::vector<Place> places = PasswordPlaces(masked);
  for (auto place = places.rbegin(); place != places.rend(); ++place) {
    masked.replace(place->begin, place->end - place->begin, kMask);
  }
  return masked;
}

}  // namespace td
