#include "designer/panels/format_example.h"

#include "designer/model/item_choices.h"
#include "items/named_fields.h"
#include "items/plain_field.h"
#include "platform/failure.h"
#include "state/window_kind.h"
#include "text/amount_in_words.h"
#include "text/conversions.h"
#include "text/format_value.h"

namespace td::designer {
namespace {

constexpr double kMadeUp = 1234.5;

std::string PlainText(const Value& value) {
  const std::string text = ToText(value);
  return text.starts_with('.') ? "0" + text : text;
}

FormatExample SumExample(const SumField& sum, const Value& picture) {
  Value value = kMadeUp;
  if (sum.form == SumForm::kWords) value = AmountInWords(kMadeUp);
  FormatExample example{
      .use = PictureUse::kUsed, .isFromData = false, .value = ToText(value), .text = {}};
  if (IsNull(picture)) {
    example.use = PictureUse::kIsNull;
  } else {
    example.text = FormatValue(value, ToText(picture));
  }
  return example;
}

FormatExample ColumnExample(const std::string& column, const Value& picture,
                            const MemoryRows* data) {
  const std::optional<Value> first = FirstValue(data, column);
  const Value value = first.value_or(kMadeUp);
  FormatExample example{.use = PictureUse::kUsed,
                        .isFromData = first.has_value(),
                        .value = ToText(value),
                        .text = PlainText(value)};
  const std::string text = ToText(picture);
  if (text.empty()) return example;
  if (!IsNumeric(value)) {
    example.use = PictureUse::kNotANumber;
  } else {
    example.text = FormatValue(value, PriceRulePicture(value, column, text));
  }
  return example;
}

}  // namespace

std::optional<Value> FirstValue(const MemoryRows* data, const std::string& column) {
  if (data == nullptr || data->RowCount() == 0) return std::nullopt;
  const auto index = data->Columns().Find(column);
  if (!index) return std::nullopt;
  Value value;
  data->Read(0, *index, value);
  if (std::holds_alternative<Bytes>(value)) return std::nullopt;
  return value;
}

FormatExample ExampleOf(const Format& format, const Item& item, const MemoryRows* data) {
  const Variable* variable = VariableOf(format, item);
  const ItemChoice choice = ChoiceOf(format, item);
  const bool showsValue =
      choice.kind == ChoiceKind::kVariable || choice.kind == ChoiceKind::kComputed;
  if (variable == nullptr || !showsValue) return {.use = PictureUse::kFixedText};
  const Value& picture = item.row.Get("FFormatString");
  try {
    if (item.Site() == ItemSite::kHead) {
      const Value value = FirstValue(data, variable->Name()).value_or(kMadeUp);
      return {PictureUse::kNotInHead, data != nullptr, ToText(value), ToText(value)};
    }
    const NamedField* field = FindNamedField(variable->Name(), kPlainWindow);
    if (field == nullptr) return ColumnExample(variable->Name(), picture, data);
    const auto* sum = std::get_if<SumField>(&field->drawing);
    if (sum == nullptr) return {.use = PictureUse::kNoPicture};
    return SumExample(*sum, picture);
  } catch (const Failure& failure) {
    return {PictureUse::kUsed, false, {}, failure.Description()};
  }
}

}  // namespace td::designer
