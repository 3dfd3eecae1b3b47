// How a goods picture is asked of the database and what a file that stays in the way does.
#include <gtest/gtest.h>

#include "items/image_items.h"
#include "recording/recording_platform.h"
#include "scenario.h"
#include "state/print_window.h"

namespace td {
namespace {

// Remembers how the last record set was asked for.
class CursorWatch : public Database {
 public:
  explicit CursorWatch(Database& database) : database_(database) {}

  RecordsetRef OpenQuery(const std::string& connection, const std::string& sql, CursorType cursor,
                         LockType lock) override {
    cursorType = cursor;
    lockType = lock;
    return database_.OpenQuery(connection, sql, cursor, lock);
  }
  std::unique_ptr<Connection> Connect(const std::string& connection) override {
    return database_.Connect(connection);
  }

  CursorType cursorType = CursorType::kUnspecified;
  LockType lockType = LockType::kUnspecified;

 private:
  Database& database_;
};

// Picture files of which none can be deleted.
class ProtectedPictures : public Pictures {
 public:
  explicit ProtectedPictures(Pictures& pictures) : pictures_(pictures) {}

  std::string ComponentFolder() override { return pictures_.ComponentFolder(); }
  bool FileExists(const std::string& path) override { return pictures_.FileExists(path); }
  void DeleteFile(const std::string& /*path*/) override { throw Failure(70, "没有权限"); }
  void SaveNewFile(const std::string& path, const Value& bytes) override {
    pictures_.SaveNewFile(path, bytes);
  }
  PictureRef Load(const std::string& path) override { return pictures_.Load(path); }

 private:
  Pictures& pictures_;
};

// Goods 7 have a picture in the database, goods 8 also a file from an earlier load.
class LoadingGoodsPictures : public testing::Test {
 protected:
  static Json Document() {
    Scenario scenario;
    scenario.GoodsPicture(7, {{"base64", "AQID"}}).GoodsPicture(8, {{"base64", "AQID"}});
    scenario.Set("pictures", Json::array({"picture/8.jpg"})).Print();
    return scenario.Document();
  }

  Trace Lines() { return Trace(recording_.GetRecorder().TakeLines(), Json::object()); }

  recording::RecordingPlatform recording_{recording::ReadScenario(Document())};
  CursorWatch database_{recording_.Get().database};
  ProtectedPictures pictures_{recording_.Get().pictures};
  Platform platform_{database_, pictures_, recording_.Get().messages, recording_.Get().machine,
                     recording_.Get().windows};
  PrintContext request_;
  PrintWindow window_{platform_, request_, kPlainWindow};
};

TEST_F(LoadingGoodsPictures, AsksForAKeysetThatLocksItsRows) {
  LoadGoodsPicture(window_, 7);
  EXPECT_EQ(database_.cursorType, CursorType::kKeyset);
  EXPECT_EQ(database_.lockType, LockType::kPessimistic);
  EXPECT_EQ(recording::OriginOf(window_.Image1.Picture), "goods:7");
}

TEST_F(LoadingGoodsPictures, AFileThatCannotBeDeletedIsShownAndLeavesNoPicture) {
  LoadGoodsPicture(window_, 7);
  (void)Lines();
  LoadGoodsPicture(window_, 8);
  EXPECT_FALSE(window_.Image1.Picture) << "the picture of goods 7 is gone, too";
  const Trace trace = Lines();
  EXPECT_EQ(trace.Messages(), (std::vector<std::string>{"没有权限"}));
  EXPECT_TRUE(trace.Queries().empty()) << "the database is not asked any more";
}

}  // namespace
}  // namespace td
