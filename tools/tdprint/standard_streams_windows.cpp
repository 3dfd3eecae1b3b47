#include <array>
#include <cstdio>
#include <iostream>
#include <streambuf>
#include <string>

#include "standard_streams.h"
#include "windows/api/standard_output.h"
#include "windows/api/wide_text.h"
#include "windows/api/windows_api.h"

namespace td {
namespace {

// Lets a stream of the standard library write what is UTF-8: the run-time library's own streams
// take it for text in the console's code page.
class Utf8Buffer : public std::streambuf {
 public:
  explicit Utf8Buffer(StandardStream stream) : writer_(stream) {}

 protected:
  int_type overflow(int_type next) override {
    if (!traits_type::eq_int_type(next, traits_type::eof())) {
      waiting_ += traits_type::to_char_type(next);
    }
    return waiting_.size() < kBlock || Flush() ? traits_type::not_eof(next) : traits_type::eof();
  }

  std::streamsize xsputn(const char* text, std::streamsize count) override {
    waiting_.append(text, static_cast<std::size_t>(count));
    return waiting_.size() < kBlock || Flush() ? count : 0;
  }

  int sync() override { return Flush() ? 0 : -1; }

 private:
  static constexpr std::size_t kBlock = 4096;

  bool Flush() {
    const bool isWritten = writer_.Write(waiting_);
    waiting_.clear();
    return isWritten;
  }

  StandardStreamWriter writer_;
  std::string waiting_;
};

// Lets a stream of the standard library read as UTF-8 what is typed, whatever the code page.
class ConsoleInput : public std::streambuf {
 protected:
  int_type underflow() override {
    constexpr wchar_t kEnd = 0x1A;  // Ctrl+Z at the beginning of a line
    std::array<wchar_t, 1024> typed{};
    DWORD count = 0;
    if (ReadConsoleW(GetStdHandle(STD_INPUT_HANDLE), typed.data(), static_cast<DWORD>(typed.size()),
                     &count, nullptr) == FALSE ||
        count == 0 || typed[0] == kEnd) {
      return traits_type::eof();
    }
    read_ = FromWide({typed.data(), count});
    setg(read_.data(), read_.data(), read_.data() + read_.size());
    return traits_type::to_int_type(read_.front());
  }

 private:
  std::string read_;
};

bool IsConsole(DWORD stream) {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(stream), &mode) != FALSE;
}

}  // namespace

// The buffers live to the end, when the streams are flushed for the last time.
void PrepareStandardStreams() {
  static auto& output = *new Utf8Buffer(StandardStream::kOutput);
  static auto& error = *new Utf8Buffer(StandardStream::kError);
  std::cout.rdbuf(&output);
  std::cerr.rdbuf(&error);
  std::clog.rdbuf(&error);
  if (StandardInputIsTerminal()) std::cin.rdbuf(new ConsoleInput);
}

bool StandardInputIsTerminal() {
  return IsConsole(STD_INPUT_HANDLE);
}

bool StandardOutputIsTerminal() {
  return IsConsole(STD_OUTPUT_HANDLE);
}

bool StandardErrorIsTerminal() {
  return CanWipeLines(StandardStream::kError);
}

}  // namespace td
