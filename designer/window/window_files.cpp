// Formats that leave the designer's window as files, and come back.
#include <QFileDialog>

#include "designer/model/format_on_disk.h"
#include "designer/view/words.h"
#include "designer/window/designer_window.h"
#include "designer/window/questions.h"
#include "files/file_error.h"
#include "files/output_file.h"
#include "platform/failure.h"

namespace td::designer {
namespace {

QString Filter() {
  return Say("Formats") + QStringLiteral(" (*.json)");
}

bool HasPictures(const Format& format) {
  return std::ranges::any_of(format.items, [](const Item& item) {
    return item.Kind() == ItemKind::kPicture && !item.row.Text("FPicturePath").empty();
  });
}

}  // namespace

void DesignerWindow::Export() {
  const Format& format = workspace_.document.Current();
  int answer = 0;
  if (HasPictures(format)) {
    answer = Ask(this, Say("Shall the picture files that items show go into the file, too?"),
                 {Say("With pictures"), Say("Without pictures")});
    if (answer < 0) return;
  }
  // A name may hold what separates folders.
  const QString suggested =
      QString::fromStdString(format.Name()).replace(u'/', u'-') + QStringLiteral(".json");
  const QString path =
      QFileDialog::getSaveFileName(this, Say("Export to a file"), suggested, Filter());
  if (path.isEmpty()) return;
  try {
    const std::string text = WriteFormatFile(format, answer == 0 ? PictureAt : ReadPicture());
    WriteOutput(path.toStdString(), WriterOf(text));
  } catch (const Failure& failure) {
    Tell(this, QString::fromStdString(failure.Description()));
  } catch (const FileError& error) {
    Tell(this, path + QStringLiteral(": ") + QString::fromStdString(ReasonOf(error.Number())));
  }
}

void DesignerWindow::Import() {
  const QString path = QFileDialog::getOpenFileName(this, Say("Import from a file"), {}, Filter());
  if (path.isEmpty()) return;
  try {
    FormatFile file = LoadFormatFile(path.toStdString());
    if (TakePictures(file)) session_.Adopt(std::move(file.format));
  } catch (const Failure& failure) {
    Tell(this, QString::fromStdString(failure.Description()));
  }
}

// False if the user gave up.
bool DesignerWindow::TakePictures(FormatFile& file) {
  if (file.pictures.empty()) return true;
  const int answer = Ask(
      this, Say("The file holds %1 pictures. Write them into a folder?").arg(file.pictures.size()),
      {Say("Choose a folder …"), Say("Leave the items their paths")});
  if (answer != 0) return answer == 1;
  const QString folder = QFileDialog::getExistingDirectory(this, Say("Folder of the pictures"));
  if (folder.isEmpty()) return false;
  PictureFolder pictures(folder.toStdString());
  pictures.Place(file);
  try {
    pictures.Write();
  } catch (const Failure&) {
    pictures.TakeBack();
    throw;
  }
  return true;
}

}  // namespace td::designer
