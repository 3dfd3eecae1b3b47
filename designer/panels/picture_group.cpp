#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QPushButton>

#include "designer/panels/item_groups.h"
#include "designer/view/words.h"
#include "page_document/pictures.h"
#include "platform/failure.h"
#include "qt/pictures/qt_picture_files.h"
#include "qt/render/picture_images.h"

namespace td::designer {
namespace {

constexpr int kThumbnailHeight = 96;  // pixels of the desktop
constexpr int kThumbnailWidth = 220;

QString SizeText(const PictureSize& size) {
  return Say("Prints at its natural size: %1 × %2 mm")
      .arg(MillimetresOf(size.width), 0, 'f', 1)
      .arg(MillimetresOf(size.height), 0, 'f', 1);
}

}  // namespace

PictureGroup::PictureGroup(EditedItems& items) : FieldGroup(Say("Picture")), items_(items) {
  Add(Say("File"), new LineField(items, "FPicturePath"),
      Say("With its whole path, as the machine that prints finds it."));
  auto* choose = new QPushButton(Say("&Choose…"));
  choose->setObjectName(QStringLiteral("ChoosePicture"));
  connect(choose, &QPushButton::clicked, this, [this] { Choose(); });
  auto* row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(choose);
  Form().addRow(row);
  thumbnail_ = new QLabel;
  thumbnail_->setObjectName(QStringLiteral("Thumbnail"));
  thumbnail_->setAlignment(Qt::AlignCenter);
  Form().addRow(thumbnail_);
  note_ = AddNote();
  note_->setObjectName(QStringLiteral("PictureNote"));
}

void PictureGroup::Refresh() {
  FieldGroup::Refresh();
  const SharedValue path = items_.Shared("FPicturePath");
  const bool isOne = path.isThere && !path.isMixed && !IsNull(path.value);
  const std::string wanted = isOne ? WordsFor(path).toStdString() : std::string();
  if (shown_ == wanted) return;
  shown_ = wanted;
  Load(wanted);
}

void PictureGroup::Load(const std::string& path) {
  QPixmap pixmap;
  QString note = path.empty() ? Say("No file is chosen.") : Say("There is no such picture.");
  try {
    const PictureRef picture = path.empty() ? nullptr : QtPictureFiles(".").Load(path);
    if (const auto* image = dynamic_cast<const ImagePicture*>(picture.get())) {
      const double ratio = devicePixelRatioF();
      pixmap = QPixmap::fromImage(
          DecodedImage(*image).scaled(QSize(kThumbnailWidth, kThumbnailHeight) * ratio,
                                      Qt::KeepAspectRatio, Qt::SmoothTransformation));
      pixmap.setDevicePixelRatio(ratio);
      note = SizeText(image->NaturalSize());
    }
  } catch (const Failure&) {
    pixmap = QPixmap();
  }
  thumbnail_->setPixmap(pixmap);
  Form().setRowVisible(thumbnail_, !pixmap.isNull());
  note_->setText(note);
}

void PictureGroup::Choose() {
  QString path = shown_ ? QString::fromStdString(*shown_).replace(u'\\', u'/') : QString();
  path = QFileDialog::getOpenFileName(
      this, Say("Choose a picture"), path,
      Say("Pictures") + QStringLiteral(" (*.png *.jpg *.jpeg *.bmp *.gif *.tif *.tiff)"));
  if (path.isEmpty()) return;
  items_.EndGesture();
  items_.Put("FPicturePath", path.toStdString());
  items_.EndGesture();
}

}  // namespace td::designer
