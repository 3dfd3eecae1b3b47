#include "designer/model/item_choices.h"

#include <algorithm>

#include "items/count_fields.h"
#include "items/image_items.h"
#include "items/named_fields.h"
#include "state/window_kind.h"
#include "text/conversions.h"

namespace td::designer {
namespace {

const ImageToken* TokenNamed(std::string_view name) {
  const auto* found = std::ranges::find(kImageTokens, name, &ImageToken::name);
  return found == kImageTokens.end() ? nullptr : found;
}

bool IsHeadField(std::string_view name) {
  return std::ranges::find(kHeadFields, LowerCase(name)) != kHeadFields.end();
}

std::vector<ItemChoice> AllChoices() {
  std::vector<ItemChoice> choices = {
      {ChoiceKind::kText}, {ChoiceKind::kLine}, {ChoiceKind::kPicture}};
  for (const ImageToken& token : kImageTokens) {
    choices.push_back({ChoiceKind::kImage, token.name, token.column});
  }
  for (const NamedField& field : NamedFields()) {
    choices.push_back({ChoiceKind::kComputed, field.name});
  }
  return choices;
}

}  // namespace

bool ItemChoice::WorksIn(ItemSite site) const {
  if (std::ranges::find(kAllSites, site) == kAllSites.end()) return false;
  if (kind == ChoiceKind::kImage) {
    const ImageToken* token = TokenNamed(name);
    return token != nullptr && token->WorksIn(site);
  }
  if (kind != ChoiceKind::kComputed) return true;
  if (site == ItemSite::kHead) return IsHeadField(name);
  const NamedField* field = FindNamedField(name, kPlainWindow);
  return field != nullptr && HasValueIn(*field, site);
}

std::span<const ItemChoice> ItemChoices() {
  static const std::vector<ItemChoice> choices = AllChoices();
  return choices;
}

ItemChoice ChoiceOf(const Format& format, const Item& item) {
  if (item.Kind() == ItemKind::kLine) return {ChoiceKind::kLine};
  if (item.Kind() == ItemKind::kPicture) return {ChoiceKind::kPicture};
  const std::string name = item.FieldName();
  if (const ImageToken* token = TokenNamed(name)) {
    return {ChoiceKind::kImage, token->name, token->column};
  }
  const Variable* variable = VariableOf(format, item);
  if (variable == nullptr) return {ChoiceKind::kText};
  const NamedField* field = FindNamedField(variable->Name(), kPlainWindow);
  if (field == nullptr) return {ChoiceKind::kVariable};
  return {ChoiceKind::kComputed, field->name};
}

Item NewItemOf(const Format& format, const ItemChoice& choice, const std::string& caption,
               ItemSite site, const Box& place) {
  const ItemKind kind = choice.kind == ChoiceKind::kLine      ? ItemKind::kLine
                        : choice.kind == ChoiceKind::kPicture ? ItemKind::kPicture
                                                              : ItemKind::kText;
  Item item = NewItem(format, kind, site, place);
  switch (choice.kind) {
    case ChoiceKind::kText:
      item.row.Set("FObjectCaption", caption);
      break;
    case ChoiceKind::kImage:
      item.row.Set("FObjectFieldName", std::string(choice.name));
      item.row.PutFlag("FIsVariant", true);
      break;
    case ChoiceKind::kVariable:
    case ChoiceKind::kComputed:
      // A caption that repeats the name is no label: the value prints alone. The head by stock area
      // has no such rule, where the label is left empty by hand.
      item.row.Set("FObjectFieldName", caption);
      item.row.Set("FObjectCaption", caption);
      item.row.PutFlag("FIsVariant", true);
      break;
    case ChoiceKind::kLine:
    case ChoiceKind::kPicture:
      break;
  }
  return item;
}

}  // namespace td::designer
