#include "windows/api/standard_output.h"

#include <gtest/gtest.h>

#include <string>

#include "windows/api/wide_text.h"

namespace td {
namespace {

// The two ends of a pipe.
class Pipe {
 public:
  Pipe() { CreatePipe(&reading_, &writing_, nullptr, 0); }
  ~Pipe() {
    if (writing_ != nullptr) CloseHandle(writing_);
    CloseHandle(reading_);
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;

  [[nodiscard]] HANDLE Writing() const { return writing_; }
  // Ends the writing.
  [[nodiscard]] std::string Content() {
    CloseHandle(writing_);
    writing_ = nullptr;
    std::string content;
    char part[256];
    for (DWORD count = 0; ReadFile(reading_, part, sizeof part, &count, nullptr) != FALSE;) {
      content.append(part, count);
    }
    return content;
  }

 private:
  HANDLE reading_ = nullptr;
  HANDLE writing_ = nullptr;
};

// A console's screen of this process's own, that nobody sees.
class Screen {
 public:
  Screen()
      : handle_(CreateConsoleScreenBuffer(GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                          CONSOLE_TEXTMODE_BUFFER, nullptr)) {}
  ~Screen() { CloseHandle(handle_); }
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  [[nodiscard]] HANDLE Handle() const { return handle_; }
  // The first line. A console puts a wide character into two cells.
  [[nodiscard]] std::string FirstLine() const {
    std::wstring cells(80, L'\0');
    DWORD count = 0;
    ReadConsoleOutputCharacterW(handle_, cells.data(), static_cast<DWORD>(cells.size()), {0, 0},
                                &count);
    cells.resize(count);
    std::wstring line;
    for (const wchar_t cell : cells) {
      if (cell != L' ' && cell != L'\0') line += cell;
    }
    return FromWide(line);
  }

 private:
  HANDLE handle_;
};

TEST(StandardOutput, GoesIntoAPipeAsItIs) {
  Pipe pipe;
  StandardStreamWriter writer(pipe.Writing());
  EXPECT_TRUE(writer.Write("订单\n"));
  EXPECT_TRUE(writer.Write(std::string("\0\xFF", 2)));
  EXPECT_EQ(pipe.Content(), std::string("订单\n\0\xFF", 9));
}

TEST(StandardOutput, FailsWhereNobodyReads) {
  StandardStreamWriter writer(static_cast<HANDLE>(nullptr));
  EXPECT_FALSE(writer.Write("订单"));
}

class ConsoleOutput : public testing::Test {
 protected:
  void SetUp() override {
    FreeConsole();
    hasConsole_ = AllocConsole() != FALSE;
    codePage_ = GetConsoleOutputCP();
  }
  void TearDown() override {
    SetConsoleOutputCP(codePage_);
    if (hasConsole_) FreeConsole();
  }

 private:
  bool hasConsole_ = false;
  UINT codePage_ = 0;
};

TEST_F(ConsoleOutput, ShowsChineseInAnyCodePage) {
  for (const UINT codePage : {437U, 936U, 1252U}) {
    SetConsoleOutputCP(codePage);
    const Screen screen;
    StandardStreamWriter writer(screen.Handle());
    ASSERT_TRUE(writer.Write("未打印：订单")) << GetLastError();
    EXPECT_EQ(screen.FirstLine(), "未打印：订单") << codePage;
  }
}

TEST_F(ConsoleOutput, PutsACharacterTogetherThatComesInParts) {
  const Screen screen;
  StandardStreamWriter writer(screen.Handle());
  const std::string text = "a订b单";
  for (const char byte : text) ASSERT_TRUE(writer.Write({&byte, 1}));
  EXPECT_EQ(screen.FirstLine(), text);
}

}  // namespace
}  // namespace td
