#include "designer/window/clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <algorithm>

#include "designer/model/format_file.h"
#include "platform/failure.h"

namespace td::designer {
namespace {

const QString kMimeType = QStringLiteral("application/x-qbtdprinter-items");

// Another window of the designer gets the text of a format file; this one gets the items
// themselves, with the columns of the application.
class CopiedItems : public QMimeData {
 public:
  explicit CopiedItems(Format format) : format_(std::move(format)) {
    setData(kMimeType, QByteArray::fromStdString(WriteFormatFile(format_)));
  }
  [[nodiscard]] const Format& Copied() const { return format_; }

 private:
  Format format_;
};

std::optional<Format> Copied() {
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  if (data == nullptr || !data->hasFormat(kMimeType)) return std::nullopt;
  if (const auto* own = dynamic_cast<const CopiedItems*>(data)) return own->Copied();
  try {
    return ReadFormatFile(data->data(kMimeType).toStdString()).format;
  } catch (const Failure&) {
    return std::nullopt;
  }
}

}  // namespace

void CopyItems(const Format& format, const ItemIds& ids) {
  Format copied = format;
  copied.items = {};
  for (const Item& item : format.items) {
    if (std::ranges::find(ids, item.id) != ids.end()) copied.items.Append(item);
  }
  std::erase_if(copied.variables, [&copied](const Variable& variable) {
    return std::ranges::none_of(copied.items, [&variable](const Item& item) {
      return item.FieldName() == variable.Caption();
    });
  });
  if (copied.items.Empty()) return;
  QGuiApplication::clipboard()->setMimeData(new CopiedItems(std::move(copied)));
}

bool CanPaste() {
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  return data != nullptr && data->hasFormat(kMimeType);
}

ItemIds PasteCopied(FormatDocument& document, double distance) {
  const auto copied = Copied();
  if (!copied) return {};
  Format now = document.Current();
  Command command;
  for (const Variable& variable : copied->variables) {
    const bool isKnown = std::ranges::find(now.variables, variable.Caption(), &Variable::Caption) !=
                         now.variables.end();
    if (isKnown) continue;
    const Command added = AddVariable(now, NewVariable(variable.Caption(), variable.Name()));
    td::designer::Do(now, added);
    command.edits.insert(command.edits.end(), added.edits.begin(), added.edits.end());
  }
  const std::vector<Item> items(copied->items.begin(), copied->items.end());
  Command pasted = PasteItems(now, items, distance, distance);
  pasted.edits.insert(pasted.edits.begin(), command.edits.begin(), command.edits.end());
  ItemIds ids = pasted.items;
  document.Do(std::move(pasted));
  return ids;
}

}  // namespace td::designer
