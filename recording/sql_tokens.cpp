#include "recording/sql_tokens.h"

#include <algorithm>

#include "platform/failure.h"

namespace td::recording {
namespace {

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
bool IsNamePart(char c) {
  const char lower = Lower(c);
  return (lower >= 'a' && lower <= 'z') || c == '_' || IsDigit(c) ||
         static_cast<unsigned char>(c) >= 0x80;
}

class Tokenizer {
 public:
  explicit Tokenizer(std::string_view sql) : sql_(sql) {}

  std::vector<Token> Run() {
    std::vector<Token> tokens;
    for (SkipBlanks(); at_ < sql_.size(); SkipBlanks()) {
      tokens.push_back(Next());
    }
    tokens.push_back({Token::Kind::kEnd, "", at_});
    return tokens;
  }

 private:
  [[nodiscard]] char Peek(std::size_t ahead = 0) const {
    return at_ + ahead < sql_.size() ? sql_[at_ + ahead] : '\0';
  }

  void SkipBlanks() {
    while (at_ < sql_.size()) {
      if (Peek() == '-' && Peek(1) == '-') {
        at_ = std::min(sql_.find('\n', at_), sql_.size());
      } else if (std::string_view(" \t\r\n").find(Peek()) != std::string_view::npos) {
        ++at_;
      } else {
        return;
      }
    }
  }

  Token Next() {
    const std::size_t start = at_;
    if (Peek() == '\'') {
      return {Token::Kind::kText, QuotedText(), start};
    }
    if (IsDigit(Peek()) || (Peek() == '.' && IsDigit(Peek(1)))) {
      SkipNumber();
      return {Token::Kind::kNumber, std::string(sql_.substr(start, at_ - start)), start};
    }
    if (IsNamePart(Peek())) {
      SkipWhile(IsNamePart);
      return {Token::Kind::kName, std::string(sql_.substr(start, at_ - start)), start};
    }
    return {Token::Kind::kSymbol, Symbol(), start};
  }

  std::string QuotedText() {
    const std::size_t start = at_++;
    std::string text;
    while (at_ < sql_.size()) {
      const char c = sql_[at_++];
      if (c != '\'') {
        text += c;
      } else if (Peek() == '\'') {
        text += c;
        ++at_;
      } else {
        return text;
      }
    }
    FailAt("字符串缺少右引号", start);
  }

  void SkipNumber() {
    SkipWhile(IsDigit);
    if (Peek() == '.') {
      ++at_;
      SkipWhile(IsDigit);
    }
    const std::size_t sign = Peek(1) == '+' || Peek(1) == '-' ? 1 : 0;
    if (Lower(Peek()) == 'e' && IsDigit(Peek(1 + sign))) {
      at_ += 1 + sign;
      SkipWhile(IsDigit);
    }
    if (IsNamePart(Peek())) {
      FailAt("数字有误", at_);
    }
  }

  std::string Symbol() {
    for (const std::string_view symbol : {"<>", "<=", ">="}) {
      if (sql_.substr(at_, 2) == symbol) {
        at_ += 2;
        return std::string(symbol);
      }
    }
    if (std::string_view("*,.()=<>-").find(Peek()) == std::string_view::npos) {
      FailAt("语句含有不认识的字符", at_);
    }
    return {sql_[at_++]};
  }

  void SkipWhile(bool (*belongs)(char)) {
    while (at_ < sql_.size() && belongs(sql_[at_])) {
      ++at_;
    }
  }

  std::string_view sql_;
  std::size_t at_ = 0;
};

}  // namespace

std::vector<Token> Tokenize(std::string_view sql) {
  return Tokenizer(sql).Run();
}

void FailAt(const std::string& what, std::size_t position) {
  throw Failure(kDatabaseFailed, what + "（语句的第" + std::to_string(position + 1) + "个字节）。");
}

bool SameName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return Lower(x) == Lower(y); });
}

}  // namespace td::recording
