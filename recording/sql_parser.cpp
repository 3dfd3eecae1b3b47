#include "recording/sql_parser.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "recording/sql_tokens.h"

namespace td::recording {
namespace {

constexpr int kDeepestNesting = 100;

constexpr std::array<std::string_view, 20> kKeywords = {
    "select", "from", "where", "group",  "order", "by",     "as",   "on",   "inner",  "left",
    "join",   "and",  "or",    "update", "set",   "insert", "into", "desc", "delete", "values"};

bool IsKeyword(const Token& token) {
  return std::any_of(kKeywords.begin(), kKeywords.end(),
                     [&](std::string_view keyword) { return SameName(token.text, keyword); });
}

Value NumberOf(const std::string& digits, bool isNegative) {
  const char* end = digits.data() + digits.size();
  const std::int64_t sign = isNegative ? -1 : 1;
  std::int64_t whole = 0;
  if (const auto read = std::from_chars(digits.data(), end, whole);
      read.ptr == end && read.ec == std::errc()) {
    return sign * whole;
  }
  double real = 0;
  std::from_chars(digits.data(), end, real);
  return static_cast<double>(sign) * real;
}

class Parser {
 public:
  explicit Parser(std::string_view sql) : tokens_(Tokenize(sql)) {}

  Statement Run() {
    Statement statement = ParseStatement();
    if (Peek().kind != Token::Kind::kEnd) {
      Fail();
    }
    return statement;
  }

 private:
  // Counts how deep the parser is in brackets.
  class Nesting {
   public:
    explicit Nesting(Parser& parser) : parser_(parser) {
      if (++parser_.depth_ > kDeepestNesting) {
        FailAt("语句嵌套过深", parser_.Peek().position);
      }
    }
    ~Nesting() { --parser_.depth_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

   private:
    Parser& parser_;
  };

  Statement ParseStatement() {
    if (PeekWord("select")) {
      return ParseSelect();
    }
    if (TakeWord("update")) {
      return ParseUpdate();
    }
    if (TakeWord("insert")) {
      return ParseInsert();
    }
    ExpectWord("delete");
    return ParseDelete();
  }

  Select ParseSelect() {
    const Nesting nesting(*this);
    ExpectWord("select");
    Select select;
    do {
      select.items.push_back(ParseSelectItem());
    } while (TakeSymbol(","));
    ExpectWord("from");
    select.from = ParseSource();
    select.where = ParseWhere();
    if (TakeWord("group")) {
      ExpectWord("by");
      do {
        select.groupBy.push_back(ParseColumn());
      } while (TakeSymbol(","));
    }
    if (TakeWord("order")) {
      ExpectWord("by");
      do {
        Scalar column = ParseColumn();
        select.orderBy.push_back({std::move(column), TakeWord("desc")});
      } while (TakeSymbol(","));
    }
    return select;
  }

  SelectItem ParseSelectItem() {
    SelectItem item;
    item.position = Peek().position;
    if (TakeSymbol("*")) {
      item.isAll = true;
      return item;
    }
    if (Peek().kind == Token::Kind::kName && PeekSymbol(".", 1) && PeekSymbol("*", 2)) {
      item.isAll = true;
      item.qualifier = Peek().text;
      at_ += 3;
      return item;
    }
    item.value = ParseScalar();
    item.name = TakeWord("as") ? ExpectName() : item.value.name;
    return item;
  }

  std::unique_ptr<Source> ParseSource() {
    const Nesting nesting(*this);
    auto source = ParseSingleSource();
    while (PeekWord("inner") || PeekWord("left")) {
      auto join = std::make_unique<Source>();
      join->keepsLeft = TakeWord("left");
      if (!join->keepsLeft) {
        ExpectWord("inner");
      }
      ExpectWord("join");
      join->left = std::move(source);
      join->right = ParseSingleSource();
      ExpectWord("on");
      join->on = ParseCondition();
      source = std::move(join);
    }
    return source;
  }

  std::unique_ptr<Source> ParseSingleSource() {
    auto source = std::make_unique<Source>();
    source->position = Peek().position;
    if (!TakeSymbol("(")) {
      source->table = ExpectName();
      const bool hasAlias = Peek().kind == Token::Kind::kName && !IsKeyword(Peek());
      source->alias = hasAlias ? ExpectName() : source->table;
      return source;
    }
    if (!PeekWord("select")) {
      source = ParseSource();
      ExpectSymbol(")");
      return source;
    }
    source->derived = std::make_unique<Select>(ParseSelect());
    ExpectSymbol(")");
    source->alias = ExpectName();
    return source;
  }

  Update ParseUpdate() {
    Update update;
    update.position = Peek().position;
    update.table = ExpectName();
    ExpectWord("set");
    do {
      Assignment assignment;
      assignment.column = ParseColumn();
      ExpectSymbol("=");
      assignment.value = ParseScalar();
      update.assignments.push_back(std::move(assignment));
    } while (TakeSymbol(","));
    update.where = ParseWhere();
    return update;
  }

  Insert ParseInsert() {
    Insert insert;
    ExpectWord("into");
    insert.position = Peek().position;
    insert.table = ExpectName();
    ExpectSymbol("(");
    do {
      insert.columns.push_back(ParseColumn());
    } while (TakeSymbol(","));
    ExpectSymbol(")");
    ExpectWord("values");
    ExpectSymbol("(");
    do {
      insert.values.push_back(ParseScalar());
    } while (TakeSymbol(","));
    ExpectSymbol(")");
    return insert;
  }

  Delete ParseDelete() {
    Delete statement;
    ExpectWord("from");
    statement.position = Peek().position;
    statement.table = ExpectName();
    statement.where = ParseWhere();
    return statement;
  }

  std::optional<Condition> ParseWhere() {
    if (!TakeWord("where")) {
      return std::nullopt;
    }
    return ParseCondition();
  }

  // "and" binds closer than "or".
  Condition ParseCondition() {
    const Nesting nesting(*this);
    Condition any{Condition::Kind::kAny, {}, {}, {}};
    do {
      Condition all{Condition::Kind::kAll, {}, {}, {}};
      do {
        all.parts.push_back(ParseSingleCondition());
      } while (TakeWord("and"));
      any.parts.push_back(std::move(all));
    } while (TakeWord("or"));
    return any;
  }

  Condition ParseSingleCondition() {
    if (TakeSymbol("(")) {
      Condition condition = ParseCondition();
      ExpectSymbol(")");
      return condition;
    }
    Condition condition;
    condition.sides.push_back(ParseScalar());
    condition.comparison = ParseComparison();
    condition.sides.push_back(ParseScalar());
    return condition;
  }

  Comparison ParseComparison() {
    static constexpr std::array<std::pair<std::string_view, Comparison>, 6> kSymbols = {{
        {"=", Comparison::kEqual},
        {"<>", Comparison::kUnequal},
        {"<", Comparison::kLess},
        {"<=", Comparison::kLessOrEqual},
        {">", Comparison::kGreater},
        {">=", Comparison::kGreaterOrEqual},
    }};
    for (const auto& [symbol, comparison] : kSymbols) {
      if (TakeSymbol(symbol)) {
        return comparison;
      }
    }
    Fail();
  }

  Scalar ParseScalar() {
    const Nesting nesting(*this);
    if (Peek().kind == Token::Kind::kName && PeekSymbol("(", 1)) {
      return ParseCall();
    }
    if (Peek().kind == Token::Kind::kName) {
      return ParseColumn();
    }
    Scalar literal;
    literal.position = Peek().position;
    const bool isNegative = TakeSymbol("-");
    if (Peek().kind == Token::Kind::kNumber) {
      literal.literal = NumberOf(Take().text, isNegative);
      return literal;
    }
    if (isNegative || Peek().kind != Token::Kind::kText) {
      Fail();
    }
    literal.literal = Take().text;
    return literal;
  }

  Scalar ParseCall() {
    Scalar call;
    call.position = Peek().position;
    if (TakeWord("left")) {
      call.kind = Scalar::Kind::kLeft;
    } else if (TakeWord("isnull")) {
      call.kind = Scalar::Kind::kIsNull;
    } else {
      FailAt("不认识的函数", call.position);
    }
    ExpectSymbol("(");
    call.arguments.push_back(ParseScalar());
    ExpectSymbol(",");
    call.arguments.push_back(ParseScalar());
    ExpectSymbol(")");
    return call;
  }

  Scalar ParseColumn() {
    Scalar column;
    column.kind = Scalar::Kind::kColumn;
    column.position = Peek().position;
    column.name = ExpectName();
    if (TakeSymbol(".")) {
      column.qualifier = std::exchange(column.name, ExpectName());
    }
    return column;
  }

  [[nodiscard]] const Token& Peek(std::size_t ahead = 0) const {
    return tokens_[std::min(at_ + ahead, tokens_.size() - 1)];
  }

  const Token& Take() { return tokens_[at_++]; }

  [[nodiscard]] bool PeekWord(std::string_view word) const {
    return Peek().kind == Token::Kind::kName && SameName(Peek().text, word);
  }

  bool TakeWord(std::string_view word) {
    const bool isNext = PeekWord(word);
    at_ += isNext ? 1 : 0;
    return isNext;
  }

  void ExpectWord(std::string_view word) {
    if (!TakeWord(word)) {
      Fail();
    }
  }

  [[nodiscard]] bool PeekSymbol(std::string_view symbol, std::size_t ahead = 0) const {
    return Peek(ahead).kind == Token::Kind::kSymbol && Peek(ahead).text == symbol;
  }

  bool TakeSymbol(std::string_view symbol) {
    const bool isNext = PeekSymbol(symbol);
    at_ += isNext ? 1 : 0;
    return isNext;
  }

  void ExpectSymbol(std::string_view symbol) {
    if (!TakeSymbol(symbol)) {
      Fail();
    }
  }

  std::string ExpectName() {
    if (Peek().kind != Token::Kind::kName || IsKeyword(Peek())) {
      Fail();
    }
    return Take().text;
  }

  [[noreturn]] void Fail() const { FailAt("语句有语法错误", Peek().position); }

  std::vector<Token> tokens_;
  std::size_t at_ = 0;
  int depth_ = 0;
};

}  // namespace

Statement Parse(std::string_view sql) {
  return Parser(sql).Run();
}

}  // namespace td::recording
