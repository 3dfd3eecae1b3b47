#include "designer/view/dropped_choice.h"

#include <QIODevice>
#include <algorithm>

namespace td::designer {
namespace {

const QString kMimeType = QStringLiteral("application/x-qbtdprinter-choice");

// The choice whose names are those of the program, which live as long as it does.
std::optional<ItemChoice> KnownChoice(ChoiceKind kind, const std::string& name) {
  if (kind == ChoiceKind::kVariable) return ItemChoice{ChoiceKind::kVariable};
  const auto choices = ItemChoices();
  const auto found = std::ranges::find_if(choices, [&](const ItemChoice& choice) {
    return choice.kind == kind && choice.name == name;
  });
  if (found == choices.end()) return std::nullopt;
  return *found;
}

bool HasVariable(const Format& format, const std::string& caption) {
  return std::ranges::find(format.variables, caption, &Variable::Caption) != format.variables.end();
}

}  // namespace

std::unique_ptr<QMimeData> MimeOf(const DroppedChoice& choice) {
  QByteArray bytes;
  QDataStream stream(&bytes, QIODevice::WriteOnly);
  stream << static_cast<qint32>(choice.choice.kind)
         << QByteArray::fromStdString(std::string(choice.choice.name))
         << QByteArray::fromStdString(choice.caption) << QByteArray::fromStdString(choice.column)
         << static_cast<qint32>(choice.site ? static_cast<int>(*choice.site) : 0);
  auto data = std::make_unique<QMimeData>();
  data->setData(kMimeType, bytes);
  return data;
}

std::optional<DroppedChoice> ChoiceIn(const QMimeData& data) {
  if (!data.hasFormat(kMimeType)) return std::nullopt;
  const QByteArray bytes = data.data(kMimeType);
  QDataStream stream(bytes);
  qint32 kind = 0;
  qint32 site = 0;
  QByteArray name;
  QByteArray caption;
  QByteArray column;
  stream >> kind >> name >> caption >> column >> site;
  const auto choice = KnownChoice(static_cast<ChoiceKind>(kind), name.toStdString());
  if (stream.status() != QDataStream::Ok || !choice) return std::nullopt;
  DroppedChoice dropped{*choice, caption.toStdString(), column.toStdString()};
  if (site != 0) dropped.site = static_cast<ItemSite>(site);
  return dropped;
}

Box UsualPlace(const ItemChoice& choice, Point corner) {
  switch (choice.kind) {
    case ChoiceKind::kLine:
      return {corner.x, corner.y, TwipsOf(50), 0};
    case ChoiceKind::kImage:
      return {corner.x, corner.y, TwipsOf(50), TwipsOf(12)};
    case ChoiceKind::kPicture:
      return {corner.x, corner.y, TwipsOf(20), TwipsOf(20)};
    default:
      return {corner.x, corner.y, TwipsOf(30), TwipsOf(6)};
  }
}

ItemId AddChoice(FormatDocument& document, const DroppedChoice& choice, ItemSite site,
                 const Box& place) {
  const Format& format = document.Current();
  const Item item = NewItemOf(format, choice.choice, choice.caption, site, place);
  const std::uint64_t gesture = document.NewGesture();
  const bool isVariable =
      choice.choice.kind == ChoiceKind::kVariable || choice.choice.kind == ChoiceKind::kComputed;
  Format copy = format;
  Command added = AddItems(copy, std::span(&item, 1));
  if (isVariable && !HasVariable(format, choice.caption)) {
    const std::string column = choice.choice.kind == ChoiceKind::kComputed
                                   ? std::string(choice.choice.name)
                                   : choice.column;
    const Command variable =
        AddVariable(format, NewVariable(choice.caption, column.empty() ? choice.caption : column));
    added.edits.insert(added.edits.begin(), variable.edits.begin(), variable.edits.end());
  }
  added.gesture = gesture;
  const ItemId id = added.items.empty() ? 0 : added.items.front();
  document.Do(std::move(added));
  return id;
}

}  // namespace td::designer
