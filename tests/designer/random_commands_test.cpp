// Whatever is done can be undone and done again.
#include <gtest/gtest.h>

#include <random>

#include "designer/model/format_document.h"
#include "designer/model/format_file.h"

namespace td::designer {
namespace {

// The whole state, to be compared.
std::string StateOf(const Format& format) {
  std::string state = WriteFormatFile(format);
  for (const Item& item : format.items) state += std::to_string(item.id) + " ";
  for (const Variable& variable : format.variables) {
    state += variable.Caption() + "=" + variable.Name() + " ";
  }
  return state;
}

class RandomUser {
 public:
  RandomUser(FormatDocument& document, unsigned seed) : document_(document), random_(seed) {}

  void Act() {
    const ItemIds ids = SomeIds();
    const double dx = Number(-500, 500);
    const double dy = Number(-500, 500);
    switch (Choose(16)) {
      case 0:
      case 1:
      case 2: {
        const Item item = NewItem(document_.Current(), static_cast<ItemKind>(Choose(3)),
                                  static_cast<ItemSite>(1 + Choose(5)), {dx, dy, 300, 100});
        document_.Add({&item, 1});
        break;
      }
      case 3:
        document_.Remove(ids);
        break;
      case 4:
        document_.Move(ids, dx, dy, static_cast<std::uint64_t>(Choose(3)));
        break;
      case 5:
        document_.DragTo(ids, dx, dy, static_cast<std::uint64_t>(Choose(3)));
        break;
      case 6:
        document_.Resize(ids, {0, 0, 1000, 1000}, {dx, dy, 800, 1700});
        break;
      case 7:
        document_.Align(ids, static_cast<Alignment>(Choose(6)));
        break;
      case 8:
        document_.Distribute(ids, static_cast<Direction>(Choose(2)));
        break;
      case 9:
        document_.SetBand(ids, static_cast<ItemSite>(1 + Choose(5)));
        break;
      case 10:
        document_.Reorder(ids, static_cast<Order>(Choose(4)));
        break;
      case 11:
        document_.Set(ids, "FObjectFieldName", "v" + std::to_string(Choose(4)));
        break;
      case 12:
        document_.SetFormatNumber("FRowHeight", dx, static_cast<std::uint64_t>(Choose(3)));
        break;
      case 13:
        document_.Do(
            AddVariable(document_.Current(), NewVariable("v" + std::to_string(Choose(4)), "x")));
        break;
      case 14:
        document_.Do(RemoveVariableAt(document_.Current(), static_cast<std::size_t>(Choose(4))));
        break;
      default:
        document_.Do(SetOnVariable(document_.Current(), static_cast<std::size_t>(Choose(4)),
                                   "FVarCaption", "w" + std::to_string(Choose(4))));
    }
  }

  int Choose(int count) { return std::uniform_int_distribution(0, count - 1)(random_); }

 private:
  double Number(int from, int to) { return std::uniform_int_distribution(from, to)(random_) / 7.0; }

  ItemIds SomeIds() {
    ItemIds ids;
    for (const Item& item : document_.Current().items) {
      if (Choose(3) == 0) ids.push_back(item.id);
    }
    return ids;
  }

  FormatDocument& document_;
  std::mt19937 random_;
};

TEST(RandomCommandsTest, UndoingAllIsTheStartAndRedoingAllTheEnd) {
  for (unsigned seed = 0; seed < 40; ++seed) {
    FormatDocument document(NewFormat(21, "test"));
    RandomUser user(document, seed);
    const std::string start = StateOf(document.Current());
    for (int i = 0; i < 120; ++i) {
      user.Act();
      for (int k = user.Choose(8) - 5; k > 0; --k) document.Undo();
      if (user.Choose(4) == 0) document.Redo();
    }
    while (document.CanRedo()) document.Redo();
    const std::string end = StateOf(document.Current());
    std::vector<std::string> states;
    while (document.CanUndo()) {
      states.push_back(StateOf(document.Current()));
      document.Undo();
    }
    ASSERT_EQ(StateOf(document.Current()), start) << "seed " << seed;
    for (; document.CanRedo(); states.pop_back()) {
      document.Redo();
      ASSERT_EQ(StateOf(document.Current()), states.back()) << "seed " << seed;
    }
    ASSERT_EQ(StateOf(document.Current()), end) << "seed " << seed;
  }
}

TEST(RandomCommandsTest, TheFlagOfChangesTellsWhetherTheStateDiffers) {
  for (unsigned seed = 0; seed < 20; ++seed) {
    FormatDocument document(NewFormat(21, "test"));
    RandomUser user(document, seed);
    std::string saved = StateOf(document.Current());
    for (int i = 0; i < 100; ++i) {
      user.Act();
      if (user.Choose(3) == 0) document.Undo();
      if (user.Choose(3) == 0) document.Redo();
      if (user.Choose(10) == 0) {
        document.MarkSaved(document.Current());
        saved = StateOf(document.Current());
      }
      if (document.IsModified()) continue;
      ASSERT_EQ(StateOf(document.Current()), saved) << "seed " << seed;
    }
  }
}

// One step of a drag of 500 items writes two columns of each and copies nothing else.
TEST(RandomCommandsTest, ADragOfManyItemsHoldsTwoEditsForEach) {
  FormatDocument document(NewFormat(21, "test"));
  std::vector<Item> items(
      500, NewItem(document.Current(), ItemKind::kText, ItemSite::kHead, {0, 0, 100, 20}));
  const ItemIds ids = document.Add(items);
  int told = 0;
  document.AddListener([&](const DocumentChange& change) {
    ++told;
    EXPECT_EQ(change.items.size(), 500U);
    EXPECT_FALSE(change.itemsCameOrWent);
  });
  const std::uint64_t gesture = document.NewGesture();
  for (int i = 1; i <= 20; ++i) document.Move(ids, 1, 1, gesture);
  EXPECT_EQ(told, 20);
  EXPECT_EQ(document.NextUndo().edits.size(), 1000U);
  document.Undo();
  EXPECT_EQ(document.Find(ids.back())->Place().left, 0);
}

}  // namespace
}  // namespace td::designer
