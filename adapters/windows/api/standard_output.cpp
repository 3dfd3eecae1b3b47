#include "windows/api/standard_output.h"

#include <algorithm>

#include "windows/api/wide_text.h"

namespace td {
namespace {

// Of one call: consoles take no more than 64 kB at once.
constexpr std::size_t kMostUnits = 8192;
constexpr std::size_t kMostBytes = std::size_t{1} << 24U;

HANDLE HandleOf(StandardStream stream) {
  return GetStdHandle(stream == StandardStream::kOutput ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
}

bool IsConsole(HANDLE handle) {
  DWORD mode = 0;
  return GetConsoleMode(handle, &mode) != FALSE;
}

// How many bytes a character has that begins so; 1 for what begins none.
std::size_t LengthOf(unsigned char first) {
  if (first >= 0xF0) return 4;
  if (first >= 0xE0) return 3;
  return first >= 0xC0 ? 2 : 1;
}

// The length of the text without a character at its end that isn't whole.
std::size_t WholeCharacters(std::string_view text) {
  for (std::size_t back = 1; back <= std::min<std::size_t>(3, text.size()); ++back) {
    const auto byte = static_cast<unsigned char>(text[text.size() - back]);
    if ((byte & 0xC0U) == 0x80U) continue;
    return LengthOf(byte) > back ? text.size() - back : text.size();
  }
  return text.size();
}

}  // namespace

StandardStreamWriter::StandardStreamWriter(StandardStream stream)
    : StandardStreamWriter(HandleOf(stream)) {}

StandardStreamWriter::StandardStreamWriter(HANDLE target)
    : target_(target), isConsole_(IsConsole(target)) {}

bool StandardStreamWriter::Write(std::string_view utf8) {
  return isConsole_ ? WriteToConsole(utf8) : WriteAsItIs(utf8);
}

bool StandardStreamWriter::WriteToConsole(std::string_view utf8) {
  pending_ += utf8;
  const std::size_t whole = WholeCharacters(pending_);
  const std::wstring text = ToWide(std::string_view(pending_).substr(0, whole));
  pending_.erase(0, whole);
  for (std::wstring_view rest = text; !rest.empty();) {
    std::size_t part = std::min(rest.size(), kMostUnits);
    if (part < rest.size() && IS_HIGH_SURROGATE(rest[part - 1])) --part;
    DWORD written = 0;
    if (WriteConsoleW(target_, rest.data(), static_cast<DWORD>(part), &written, nullptr) == FALSE) {
      return false;
    }
    rest.remove_prefix(part);
  }
  return true;
}

bool StandardStreamWriter::WriteAsItIs(std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto part = static_cast<DWORD>(std::min(bytes.size(), kMostBytes));
    if (WriteFile(target_, bytes.data(), part, &written, nullptr) == FALSE) return false;
    bytes.remove_prefix(written);
  }
  return true;
}

bool CanWipeLines(StandardStream stream) {
  const HANDLE handle = HandleOf(stream);
  DWORD mode = 0;
  return GetConsoleMode(handle, &mode) != FALSE &&
         SetConsoleMode(handle, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != FALSE;
}

}  // namespace td
