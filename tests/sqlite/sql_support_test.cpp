#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "failure_of.h"
#include "sql_support/connection_entries.h"
#include "sql_support/read_only.h"
#include "sql_support/statement_cache.h"
#include "sql_support/statement_text.h"

namespace td {
namespace {

constexpr SqlLexicon kPlain{};

// The pieces of a statement, parted by bars; quoted ones in angle brackets, blanks left out.
std::string Pieces(std::string_view sql, const SqlLexicon& lexicon) {
  std::string result;
  SqlScanner scanner(sql, lexicon);
  for (SqlToken token = scanner.Next(); token != SqlToken::kEnd; token = scanner.Next()) {
    if (token == SqlToken::kBlank) continue;
    if (!result.empty()) result += '|';
    const std::string text(scanner.Text());
    result += token == SqlToken::kQuoted ? "<" + text + ">" : text;
  }
  return result;
}

TEST(StatementText, TellsWhetherAQueryAsksForAnOrder) {
  EXPECT_TRUE(AsksForOrder("select * from t Order By a", kPlain));
  EXPECT_FALSE(AsksForOrder("select ' order by ', \"order\" from t_order -- order by a", kPlain));
}

TEST(SqlScanner, TakesTextsAndNamesInQuotesWhole) {
  EXPECT_EQ(Pieces("a 'it''s' \"x\"\"y\" 'open", kPlain), "a|<'it''s'>|<\"x\"\"y\">|<'open>");
}

TEST(SqlScanner, KnowsTheQuotesOfEachEngine) {
  EXPECT_EQ(Pieces("[a;b]c", kPlain), "[|a|;|b|]|c");
  EXPECT_EQ(Pieces("[a;]]c", {.brackets = true}), "<[a;]>|]|c");
  EXPECT_EQ(Pieces("[a]];b]c", {.brackets = true, .doubledBrackets = true}), "<[a]];b]>|c");
  EXPECT_EQ(Pieces("`a``;`", {.backquotes = true}), "<`a``;`>");
  EXPECT_EQ(Pieces("`a`", kPlain), "`|a|`");
}

TEST(SqlScanner, KnowsDollarQuotes) {
  constexpr SqlLexicon kDollars{.dollarQuotes = true};
  EXPECT_EQ(Pieces("$$a;'b$$ c", kDollars), "<$$a;'b$$>|c");
  EXPECT_EQ(Pieces("$f$a;$$;$f$ c", kDollars), "<$f$a;$$;$f$>|c");
  EXPECT_EQ(Pieces("a$$b;c$$", kDollars), "a$$b|;|c$$");
  EXPECT_EQ(Pieces("$1;$2", kDollars), "$1|;|$2");
  EXPECT_EQ(Pieces("$1$;$1$", kDollars), "$1$|;|$1$");
}

TEST(SqlScanner, KnowsEscapeTexts) {
  constexpr SqlLexicon kEscapes{.escapeTexts = true};
  EXPECT_EQ(Pieces("E'a\\';b''c' d", kEscapes), "<E'a\\';b''c'>|d");
  EXPECT_EQ(Pieces("'a\\';e 'x'", kEscapes), "<'a\\'>|;|e|<'x'>");
  EXPECT_EQ(Pieces("e'a\\';", kPlain), "e|<'a\\'>|;");
}

TEST(SqlScanner, KnowsTheCommentsOfEachEngine) {
  EXPECT_EQ(Pieces("a--b;\nc /* d /* e */ f */ g", kPlain), "a|c|f|*|/|g");
  EXPECT_EQ(Pieces("c /* d /* e */ f */ g", {.nestedComments = true}), "c|g");
  EXPECT_EQ(Pieces("/* open /* */", {.nestedComments = true}), "");
  EXPECT_EQ(Pieces("a # b;\nc", {.hashComments = true}), "a|c");
  constexpr SqlLexicon kGuarded{.guardedComments = true};
  EXPECT_EQ(Pieces("1--1;2 -- x\n3 --", kGuarded), "1|-|-|1|;|2|3");
  EXPECT_EQ(Pieces("/*! a */ /*M!b*/ /*c*/", kGuarded), "/|*|!|a|*|/|/|*|M|!|b|*|/");
}

TEST(StatementText, EndsAtItsSemicolon) {
  CheckOneStatement("update t set a=';' ; -- all\n /* done; */ ", kPlain);
  CheckOneStatement("select 1", kPlain);
  for (const char* sql :
       {"select 1;select 2", "select 1;;", "", " ; ", "-- select 1", ";select 1"}) {
    EXPECT_EQ(FailureOf([sql] { CheckOneStatement(sql, kPlain); }).Number(), kDatabaseFailed)
        << sql;
  }
}

TEST(StatementText, TellsWhetherATextIsBlank) {
  EXPECT_TRUE(IsBlankSql("", kPlain));
  EXPECT_TRUE(IsBlankSql(" \r\n\t-- all comment\n/* more ; */", kPlain));
  EXPECT_FALSE(IsBlankSql(" ;", kPlain));
  EXPECT_FALSE(IsBlankSql("-- c\n x", kPlain));
}

TEST(StatementText, TellsStatementsThatLeaveNothingBehind) {
  EXPECT_TRUE(LeavesNothingBehind(" /* begin */ Update TDBill set FSelected=0", kPlain));
  EXPECT_TRUE(LeavesNothingBehind("SELECT 1", kPlain));
  EXPECT_FALSE(LeavesNothingBehind("begin", kPlain));
  EXPECT_FALSE(LeavesNothingBehind("create temp table t(a)", kPlain));
  EXPECT_FALSE(LeavesNothingBehind("(select 1)", kPlain));
}

// Engines that can't be told to refuse writing: the words decide.
TEST(ReadOnlyWords, RefuseEachCommandBehindAQuery) {
  const SqlLexicon sqlServer{.brackets = true, .doubledBrackets = true, .nestedComments = true};
  for (const char* sql :
       {"select * from v", "with n as (select 1 as a) select a from n", "(select 1) union select 2",
        "select [update], \"delete\" from t -- insert",
        "select 'drop' as a, updated, t.setting from t",
        "select max(FInterID) over (partition by FBillNo) from v"}) {
    EXPECT_NO_THROW(CheckIsQuery(sql, sqlServer)) << sql;
    EXPECT_NO_THROW(CheckHoldsNoCommand(sql, sqlServer)) << sql;
  }
  for (const char* sql : {"select 1 delete from t", "select 1 DELETE t", "select 1update t set a=2",
                          "select 1 exec p", "with n as (select 1 as a) insert t select a from n",
                          "select 1 set rowcount 1", "select 1/**/drop table t"}) {
    EXPECT_NO_THROW(CheckIsQuery(sql, sqlServer)) << sql;
    EXPECT_THROW(CheckHoldsNoCommand(sql, sqlServer), Failure) << sql;
  }
  for (const char* sql : {"select * into t2 from t", "select 1into t2", "exec p",
                          "update t set a=1", "((delete from t))", "", " -- select"}) {
    EXPECT_THROW(CheckIsQuery(sql, sqlServer), Failure) << sql;
  }
}

TEST(ConnectionEntries, ReadValuesInQuotesAndBraces) {
  const auto entries = ReadConnectionEntries("Driver={a;}}b} ; PWD=\"x\"\"y;\";;Server = h 1 ");
  ASSERT_EQ(entries.size(), 3U);
  EXPECT_EQ(entries[0].key, "Driver");
  EXPECT_EQ(entries[0].value, "a;}b");
  EXPECT_EQ(entries[1].value, "x\"y;");
  EXPECT_EQ(entries[2].key, "Server");
  EXPECT_EQ(entries[2].value, "h 1");
}

// Two parts that belong together: what is bound ends before the statement that it is bound to.
struct BoundStatement {
  struct Part {
    Part(std::string partName, std::vector<std::string>& endsOut)
        : name(std::move(partName)), ends(&endsOut) {}
    Part(Part&& other) noexcept : name(std::exchange(other.name, {})), ends(other.ends) {}
    Part& operator=(Part&& other) noexcept {
      End();
      name = std::exchange(other.name, {});
      ends = other.ends;
      return *this;
    }
    ~Part() { End(); }
    Part(const Part&) = delete;
    Part& operator=(const Part&) = delete;
    void End() const {
      if (!name.empty()) ends->push_back(name);
    }

    std::string name;
    std::vector<std::string>* ends;
  };

  Part statement;
  Part bound;
};

TEST(StatementCache, EndsWhatIsBoundBeforeItsStatement) {
  std::vector<std::string> ends;
  StatementCache<BoundStatement> cache;
  for (const std::string text : {"a", "b", "c"}) {
    cache.Add(text, {.statement = {text, ends}, .bound = {text + "'s rows", ends}});
  }
  ASSERT_NE(cache.Find("b"), nullptr);
  EXPECT_TRUE(ends.empty());
  cache.Remove("b");
  EXPECT_EQ(ends, (std::vector<std::string>{"b's rows", "b"}));
  EXPECT_EQ(cache.Find("b"), nullptr);
  ASSERT_NE(cache.Find("a"), nullptr);
  EXPECT_EQ(cache.Find("a")->bound.name, "a's rows");
  EXPECT_NE(cache.Find("c"), nullptr);
}

TEST(StatementCache, ForgetsTheOneThatWasNotUsedForLongest) {
  StatementCache<int> cache;
  for (int i = 0; i < 32; ++i) cache.Add(std::to_string(i), i);
  ASSERT_NE(cache.Find("0"), nullptr);
  cache.Add("32", 32);
  EXPECT_EQ(cache.Find("1"), nullptr);
  ASSERT_NE(cache.Find("0"), nullptr);
  EXPECT_EQ(*cache.Find("0"), 0);
  EXPECT_EQ(*cache.Find("32"), 32);
}

}  // namespace
}  // namespace td
