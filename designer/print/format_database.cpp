#include "designer/print/format_database.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "designer/model/item_choices.h"
#include "memory_rows/memory_recordset.h"
#include "platform/standard_failures.h"
#include "store/statements.h"
#include "text/conversions.h"

namespace td::designer {
namespace {

constexpr std::string_view kFieldName = "FFieldName";

// What a variable shows where there is no value: what is printed in front of it, and its name.
std::string CaptionOf(const Item& item) {
  const std::string label = item.row.Text("FObjectCaption");
  const std::string name = item.FieldName();
  return label == name ? name : label + name;
}

// What a run gets of an item, column by column.
class ItemColumns {
 public:
  ItemColumns(const Format& format, const Item& item, bool captions) : item_(&item) {
    if (const Variable* variable = VariableOf(format, item)) {
      fieldName_ = variable->row.Get("FVarName");
    }
    const ChoiceKind kind = ChoiceOf(format, item).kind;
    const bool hasValue = kind == ChoiceKind::kVariable || kind == ChoiceKind::kComputed;
    if (!captions || !(hasValue || IsGoodsPicture(item, kind))) return;
    isCaption_ = true;
    fieldName_ = Null{};
    caption_ = CaptionOf(item);
  }

  [[nodiscard]] ItemId Id() const { return item_->id; }

  // Nothing for a column that the item doesn't have.
  [[nodiscard]] const Value* Find(std::string_view column) const {
    if (EqualNames(column, kFieldName)) return &fieldName_;
    if (isCaption_ && EqualNames(column, "FObjectCaption")) return &caption_;
    if (isCaption_ && EqualNames(column, "FObjectFieldName")) return &none_;
    if (item_->row.Has(column)) return &item_->row.Get(column);
    if (item_->others.Has(column)) return &item_->others.Get(column);
    return nullptr;
  }

 private:
  // The only image that needs a row of the application's.
  static bool IsGoodsPicture(const Item& item, ChoiceKind kind) {
    return kind == ChoiceKind::kImage && EqualNames(ChoiceColumn(item), "FItemiD");
  }
  static std::string_view ChoiceColumn(const Item& item) {
    const auto choices = ItemChoices();
    const auto found = std::ranges::find(choices, item.FieldName(), &ItemChoice::name);
    return found == choices.end() ? std::string_view() : found->column;
  }
  static bool EqualNames(std::string_view one, std::string_view other) {
    return LowerCase(one) == LowerCase(other);
  }

  const Item* item_;
  bool isCaption_ = false;
  Value fieldName_ = Null{};
  Value caption_;
  Value none_ = std::string();
};

// The items of a band, one after the other.
class ItemRows : public Recordset {
 public:
  ItemRows(std::vector<ItemColumns> items, std::function<void(ItemId)> itemBegins)
      : items_(std::move(items)), itemBegins_(std::move(itemBegins)) {
    Tell();
  }

  bool Eof() override { return position_ == items_.size(); }
  const Value& Field(std::string_view column) override {
    if (Eof()) throw NoCurrentRowFailure();
    const Value* value = items_[position_].Find(column);
    if (value == nullptr) throw NoSuchColumnFailure(column);
    return *value;
  }
  const Value* Find(std::string_view column) override {
    if (Eof()) throw NoCurrentRowFailure();
    return items_[position_].Find(column);
  }
  void MoveNext() override {
    if (Eof()) throw NoCurrentRowFailure();
    ++position_;
    Tell();
  }
  void MoveFirst() override {
    position_ = 0;
    Tell();
  }
  void Close() override {
    position_ = items_.size();
    Tell();
  }
  RecordsetRef Clone() override { return std::make_shared<ItemRows>(items_, itemBegins_); }

 private:
  void Tell() {
    if (itemBegins_) itemBegins_(Eof() ? 0 : items_[position_].Id());
  }

  std::vector<ItemColumns> items_;
  std::function<void(ItemId)> itemBegins_;
  std::size_t position_ = 0;
};

// As a statement compares a column with a number: what is no number is not equal to any.
bool IsAtLeastZero(const Row& row, std::string_view column) {
  return IsNumeric(row.Get(column)) && row.Number(column) >= 0;
}
bool IsOne(const Row& row, std::string_view column) {
  return row.Number(column) == 1;
}

}  // namespace

FormatDatabase::FormatDatabase(const Format& format, Database& rest, ShownItems shown,
                               ItemWatch watch)
    : format_(format), rest_(rest), shown_(shown), watch_(std::move(watch)) {
  PrintContext request;
  request.New_TranType = static_cast<std::int16_t>(format.BillType());
  request.TDBillName = format.Name();
  request.New_OnlyPrintVariantItem = shown.onlyValues;
  formatStatement_ = TemplateRowStatement(request);
  const std::string anyPaper = MachinePaperStatement({}, {});
  paperStatement_ = anyPaper.substr(0, anyPaper.find(" where"));
  bands_.push_back({HeaderItemStatement(request), ItemSite::kHead});
  for (const ItemSite site : kAllSites) {
    bands_.push_back({ItemStatement(request, site, {}), site});
    bands_.push_back({ItemStatement(request, site, kOnlyLines), site, true});
  }
}

RecordsetRef FormatDatabase::OpenQuery(const std::string& connection, const std::string& sql,
                                       CursorType cursor, LockType lock) {
  if (sql == formatStatement_) return FormatRow();
  // The sheet that is shown is the format's own, whatever sheet this machine has for it.
  if (sql.starts_with(paperStatement_)) {
    return std::make_shared<MemoryRecordset>(std::vector<std::string>{"FIP"},
                                             std::vector<std::vector<Value>>{});
  }
  const auto band = std::ranges::find(bands_, sql, &Band::sql);
  if (band != bands_.end()) return OpenBand(*band);
  return rest_.OpenQuery(connection, sql, cursor, lock);
}

std::unique_ptr<Connection> FormatDatabase::Connect(const std::string& connection) {
  return rest_.Connect(connection);
}

bool FormatDatabase::IsAsked(const Item& item, const Band& band) const {
  const bool isHead = band.site == ItemSite::kHead && band.sql == bands_.front().sql;
  if (item.row.Number("FSite") != static_cast<double>(band.site)) return false;
  if (!isHead && !(IsAtLeastZero(item.row, "FTop") && IsAtLeastZero(item.row, "FLeft"))) {
    return false;
  }
  if (band.onlyLines) return IsOne(item.row, "FTypeID");
  return !shown_.onlyValues || IsOne(item.row, "FIsVariant") || IsOne(item.row, "FMustPrint");
}

RecordsetRef FormatDatabase::OpenBand(const Band& band) const {
  if (watch_.bandBegins) watch_.bandBegins(band.site);
  std::vector<ItemColumns> items;
  for (const Item& item : format_.items) {
    if (IsAsked(item, band)) items.emplace_back(format_, item, shown_.captions);
  }
  return std::make_shared<ItemRows>(std::move(items), watch_.itemBegins);
}

RecordsetRef FormatDatabase::FormatRow() const {
  std::vector<std::string> columns;
  std::vector<Value> values;
  for (const Row* row : {&format_.row, &format_.others}) {
    for (std::size_t i = 0; i < row->Size(); ++i) {
      columns.push_back(row->Names().Name(i));
      values.push_back(row->At(i));
    }
  }
  return std::make_shared<MemoryRecordset>(std::move(columns),
                                           std::vector<std::vector<Value>>{std::move(values)});
}

}  // namespace td::designer
