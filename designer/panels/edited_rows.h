// The rows whose columns the fields of a panel show and change: those of the selected items, or the
// one of the format.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "designer/view/workspace.h"

namespace td::designer {

// What several rows hold in one column.
struct SharedValue {
  bool isThere = false;  // one of the rows has the column
  bool isMixed = false;  // they hold different values; `value` is that of the first
  Value value = Null{};
  bool isSet = false;  // of a flag; of the first, too
};

class EditedRows {
 public:
  explicit EditedRows(Workspace& workspace) : workspace_(workspace) {}
  virtual ~EditedRows() = default;
  EditedRows(const EditedRows&) = delete;
  EditedRows& operator=(const EditedRows&) = delete;

  [[nodiscard]] SharedValue Shared(std::string_view column) const;

  // Changes of one column that follow each other are one step of the history, until EndGesture.
  void Put(std::string_view column, const Value& value);
  void PutNumber(std::string_view column, double number);
  // In the kind that the column holds: a number, a flag or a text.
  void PutFlag(std::string_view column, bool flag);
  void EndGesture() { gestureColumn_.clear(); }

  // A change of several columns at once, or of what is no column: a step of its own.
  bool Do(Command command);
  // Goes on with the step that the last change under the same name began.
  bool DoWithin(std::string_view name, Command command);

  [[nodiscard]] virtual std::vector<const Row*> Rows() const = 0;

 protected:
  [[nodiscard]] virtual Command Setting(std::string_view column, const Value& value) const = 0;
  [[nodiscard]] virtual Command SettingNumber(std::string_view column, double number) const = 0;

  [[nodiscard]] const Format& Current() const { return workspace_.document.Current(); }

  Workspace& workspace_;

 private:
  std::string gestureColumn_;  // empty: no gesture goes on
  std::uint64_t gesture_ = 0;
};

// The items that a panel shows. They are told with each change of the selection, so that what was
// typed for one item never goes into the next.
class EditedItems : public EditedRows {
 public:
  using EditedRows::EditedRows;

  void Take(ItemIds ids);
  [[nodiscard]] const ItemIds& Ids() const { return ids_; }
  // Those that the format still has.
  [[nodiscard]] std::vector<const Item*> Items() const;

  [[nodiscard]] std::vector<const Row*> Rows() const override;

 protected:
  [[nodiscard]] Command Setting(std::string_view column, const Value& value) const override {
    return SetOnItems(Current(), ids_, column, value);
  }
  [[nodiscard]] Command SettingNumber(std::string_view column, double number) const override {
    return SetNumberOnItems(Current(), ids_, column, number);
  }

 private:
  ItemIds ids_;
};

class EditedFormat : public EditedRows {
 public:
  using EditedRows::EditedRows;

  [[nodiscard]] std::vector<const Row*> Rows() const override { return {&Current().row}; }

 protected:
  [[nodiscard]] Command Setting(std::string_view column, const Value& value) const override {
    return SetOnFormat(Current(), column, value);
  }
  [[nodiscard]] Command SettingNumber(std::string_view column, double number) const override {
    return SetNumberOnFormat(Current(), column, number);
  }
};

// Two changes of the same state as one step: the second may not set what the first one sets.
[[nodiscard]] Command Together(Command first, const Command& second);

}  // namespace td::designer
