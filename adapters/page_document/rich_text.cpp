#include "page_document/rich_text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cstdint>
#include <string>

#include "page_document/code_page.h"

namespace td {
namespace {

void AppendUtf8(std::string& text, std::uint32_t code) {
  const auto add = [&text](std::uint32_t byte) { text.push_back(static_cast<char>(byte)); };
  if (code < 0x80) {
    add(code);
  } else if (code < 0x800) {
    add(0xC0 | code >> 6);
    add(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    add(0xE0 | code >> 12);
    add(0x80 | (code >> 6 & 0x3F));
    add(0x80 | (code & 0x3F));
  } else {
    add(0xF0 | code >> 18);
    add(0x80 | (code >> 12 & 0x3F));
    add(0x80 | (code >> 6 & 0x3F));
    add(0x80 | (code & 0x3F));
  }
}

bool IsHidden(std::string_view destination) {
  static constexpr std::array<std::string_view, 9> kHidden = {"fonttbl", "colortbl", "stylesheet",
                                                              "info",    "pict",     "header",
                                                              "footer",  "object",   "themedata"};
  return std::ranges::find(kHidden, destination) != kHidden.end();
}

class RichTextReader {
 public:
  RichTextReader(std::string_view rtf, const TextFont& base,
                 const std::function<FontRef(const TextFont&)>& share)
      : rtf_(rtf), share_(share), base_(base) {
    group_.font = base;
  }

  std::vector<TextLine> Read() {
    while (at_ < rtf_.size()) ReadToken();
    FlushRun();
    if (lines_.size() > 1 && lines_.back().empty()) lines_.pop_back();
    for (TextLine& line : lines_) {
      if (line.empty()) line.push_back({"", share_(base_)});
    }
    return std::move(lines_);
  }

 private:
  struct Group {
    TextFont font;
    bool hidden = false;
    int fallbackLength = 1;  // characters that stand behind \u for readers that don't know it
  };

  void ReadToken() {
    const char next = rtf_[at_++];
    if (next == '{') {
      outer_.push_back(group_);
    } else if (next == '}') {
      FlushRun();
      if (!outer_.empty()) {
        group_ = outer_.back();
        outer_.pop_back();
      }
    } else if (next == '\\') {
      ReadControl();
    } else if (next != '\r' && next != '\n') {
      AddByte(next);
    }
  }

  void ReadControl() {
    if (at_ >= rtf_.size()) return;
    const char symbol = rtf_[at_];
    if (std::isalpha(static_cast<unsigned char>(symbol)) != 0) {
      ReadControlWord();
      return;
    }
    ++at_;
    if (symbol == '\'') {
      unsigned byte = 0;
      const std::string_view digits = rtf_.substr(at_, 2);
      std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
      at_ += digits.size();
      AddByte(static_cast<char>(byte));
    } else if (symbol == '*') {
      group_.hidden = true;
    } else if (symbol == '~') {
      AddCharacter(0xA0);
    } else if (symbol == '\r' || symbol == '\n') {
      EndLine();
    } else if (symbol == '\\' || symbol == '{' || symbol == '}') {
      AddByte(symbol);
    }
  }

  void ReadControlWord() {
    const std::size_t start = at_;
    while (at_ < rtf_.size() && std::isalpha(static_cast<unsigned char>(rtf_[at_])) != 0) ++at_;
    const std::string_view word = rtf_.substr(start, at_ - start);
    int number = 0;
    const char* const end = rtf_.data() + rtf_.size();
    const auto parsed = std::from_chars(rtf_.data() + at_, end, number);
    const bool hasNumber = parsed.ptr != rtf_.data() + at_;
    at_ = static_cast<std::size_t>(parsed.ptr - rtf_.data());
    if (at_ < rtf_.size() && rtf_[at_] == ' ') ++at_;
    Apply(word, hasNumber, number);
  }

  void Apply(std::string_view word, bool hasNumber, int number) {
    const bool on = !hasNumber || number != 0;
    if (IsHidden(word)) {
      group_.hidden = true;
    } else if (word == "par" || word == "line") {
      EndLine();
    } else if (word == "tab") {
      AddByte(' ');
    } else if (word == "b") {
      ChangeFont([on](TextFont& font) { font.bold = on; });
    } else if (word == "i") {
      ChangeFont([on](TextFont& font) { font.italic = on; });
    } else if (word == "fs" && number > 0 && number <= 2000) {
      ChangeFont([number](TextFont& font) { font.points = number / 2.0; });
    } else if (word == "plain") {
      ChangeFont([this](TextFont& font) { font = base_; });
    } else if (word == "ansicpg") {
      codePage_ = number;
    } else if (word == "uc") {
      group_.fallbackLength = std::clamp(number, 0, 100);
    } else if (word == "u") {
      AddUtf16(static_cast<std::uint16_t>(number));
    }
  }

  template <typename Change>
  void ChangeFont(Change change) {
    FlushRun();
    change(group_.font);
  }

  void AddByte(char byte) {
    if (skip_ > 0) {
      --skip_;
    } else if (!group_.hidden) {
      bytes_.push_back(byte);
    }
  }

  void AddUtf16(std::uint16_t unit) {
    if (unit >= 0xD800 && unit < 0xDC00) {
      highSurrogate_ = unit;
    } else if (unit >= 0xDC00 && unit < 0xE000) {
      if (highSurrogate_ != 0)
        AddCharacter(0x10000U + ((highSurrogate_ - 0xD800U) << 10) + (unit - 0xDC00U));
      highSurrogate_ = 0;
    } else {
      AddCharacter(unit);
    }
    skip_ = group_.fallbackLength;
  }

  void AddCharacter(std::uint32_t code) {
    if (group_.hidden) return;
    FlushBytes();
    AppendUtf8(text_, code);
  }

  void FlushBytes() {
    if (bytes_.empty()) return;
    text_ += FromCodePage(std::move(bytes_), codePage_);
    bytes_.clear();
  }

  void FlushRun() {
    FlushBytes();
    if (!text_.empty()) lines_.back().push_back({std::move(text_), share_(group_.font)});
    text_.clear();
  }

  void EndLine() {
    if (group_.hidden) return;
    FlushRun();
    lines_.emplace_back();
  }

  std::string_view rtf_;
  const std::function<FontRef(const TextFont&)>& share_;
  TextFont base_;
  std::size_t at_ = 0;
  Group group_;
  std::vector<Group> outer_;
  int codePage_ = 1252;
  std::uint16_t highSurrogate_ = 0;
  int skip_ = 0;
  std::string bytes_;  // of the code page
  std::string text_;   // UTF-8
  std::vector<TextLine> lines_ = {{}};
};

}  // namespace

std::vector<TextLine> ReadRichText(std::string_view rtf, const TextFont& base,
                                   const std::function<FontRef(const TextFont&)>& share) {
  if (!rtf.starts_with("{\\rtf")) return ReadPlainText(rtf, share(base));
  return RichTextReader(rtf, base, share).Read();
}

std::vector<TextLine> ReadPlainText(std::string_view text, const FontRef& font) {
  std::vector<TextLine> lines;
  do {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    lines.push_back({{std::string(text.substr(0, end)), font}});
    text.remove_prefix(end);
    text.remove_prefix(text.starts_with("\r\n") ? 2 : std::min<std::size_t>(1, text.size()));
  } while (!text.empty());
  return lines;
}

}  // namespace td
