#include "print_log/secrets.h"

#include <gtest/gtest.h>

namespace td {
namespace {

TEST(Secrets, HideTheConnectionTextAndItsPassword) {
  const Secrets secrets("Driver=PostgreSQL;Server=db;UID=shop;PWD=geheim{};");
  EXPECT_EQ(secrets.Mask("no login with geheim{} on db"), "no login with *** on db");
  EXPECT_EQ(secrets.Mask("at Driver=PostgreSQL;Server=db;UID=shop;PWD=geheim{};"), "at ***");
  EXPECT_EQ(secrets.Mask("类型不匹配"), "类型不匹配");
}

TEST(Secrets, KnowAPasswordWithAndWithoutItsQuotes) {
  const Secrets secrets("Driver=x;Password = \"ab\"\"cd;ef\";UID=u");
  EXPECT_EQ(secrets.Mask("<ab\"cd;ef> <\"ab\"\"cd;ef\">"), "<***> <***>");
  const Secrets braced("DSN=x;PWD={ab}}cd}");
  EXPECT_EQ(braced.Mask("ab}cd"), "***");
}

TEST(Secrets, HideWhatSaysThatItIsAPassword) {
  const Secrets none("sqlite:shop.db");
  EXPECT_EQ(none.Mask("Server=a;PASSWORD=b c;PWD= 'd e' (passwd=f) x_pass=\"g;h\"."),
            "Server=a;PASSWORD=*** c;PWD= *** (passwd=***) x_pass=***.");
  EXPECT_EQ(none.Mask("PWD={a;b}}c};UID=u"), "PWD=***;UID=u");
  EXPECT_EQ(none.Mask("PWD="), "PWD=***");
  EXPECT_EQ(none.Mask("PWD='never ended; UID=u"), "PWD=***") << "better too much than too little";
  EXPECT_EQ(none.Mask("password: the wrong one, a = b, =c"), "password: the wrong one, a = b, =c");
}

TEST(Secrets, AShortPasswordIsHiddenAsAWordAlone) {
  const Secrets secrets("DSN=x;PWD=sa");
  EXPECT_EQ(secrets.Mask("user sa has 'sa', said sa."), "user *** has '***', said ***.");
  EXPECT_EQ(secrets.Mask("密码sa错"), "密码***错");
}

TEST(Secrets, ABrokenOrEmptyTextHidesWhatItCan) {
  EXPECT_EQ(Secrets("").Mask("abc"), "abc");
  EXPECT_EQ(Secrets("Driver=x;PWD={openend").Mask("with openend"), "with ***");
}

}  // namespace
}  // namespace td
