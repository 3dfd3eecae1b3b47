#include "designer/window/scan_panel.h"

#include <QCheckBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QInputDialog>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>
#include <cmath>

#include "designer/sheet/scan_file.h"
#include "designer/sheet/scan_tools.h"
#include "designer/view/words.h"
#include "designer/window/questions.h"
#include "platform/failure.h"

namespace td::designer {
namespace {

constexpr double kFarthest = 2000;  // millimetres

QDoubleSpinBox* MakeMillimetres(const char* name, QWidget* parent) {
  auto* field = new QDoubleSpinBox(parent);
  field->setObjectName(name);
  field->setDecimals(1);
  field->setSingleStep(0.1);
  field->setRange(-kFarthest, kFarthest);
  field->setSuffix(QStringLiteral(" mm"));
  field->setKeyboardTracking(false);
  return field;
}

}  // namespace

ScanPanel::ScanPanel(SheetView& view, std::function<void()> loaded, QWidget* parent)
    : QWidget(parent), view_(view), loaded_(std::move(loaded)) {
  auto* layout = new QVBoxLayout(this);
  const auto addButton = [this, layout](const char* name, const char* words) {
    auto* button = new QPushButton(Say(words), this);
    button->setObjectName(name);
    layout->addWidget(button);
    return button;
  };
  auto* load = addButton("loadScan", "Load a scan or a photo …");
  remove_ = addButton("removeScan", "Remove the scan");
  drag_ = addButton("dragScan", "Drag it with the mouse");
  drag_->setCheckable(true);
  points_ = addButton("scanPoints", "Straighten by three points …");
  hint_ = new QLabel(this);
  hint_->setObjectName("scanHint");
  hint_->setWordWrap(true);
  hint_->hide();
  layout->addWidget(hint_);

  auto* form = new QFormLayout;
  shown_ = new QCheckBox(Say("Show the scan"), this);
  shown_->setObjectName("scanShown");
  form->addRow(shown_);
  opacity_ = new QSlider(Qt::Horizontal, this);
  opacity_->setObjectName("scanOpacity");
  opacity_->setRange(5, 100);
  form->addRow(Say("Opacity:"), opacity_);
  left_ = MakeLength("scanLeft", Say("Left:"));
  top_ = MakeLength("scanTop", Say("Top:"));
  width_ = MakeLength("scanWidth", Say("Width:"));
  height_ = MakeLength("scanHeight", Say("Height:"));
  width_->setMinimum(1);
  height_->setMinimum(1);
  form->addRow(Say("Left:"), left_);
  form->addRow(Say("Top:"), top_);
  form->addRow(Say("Width:"), width_);
  form->addRow(Say("Height:"), height_);
  layout->addLayout(form);
  layout->addStretch();

  connect(load, &QPushButton::clicked, this, [this] { AskForFile(); });
  connect(remove_, &QPushButton::clicked, this, [this] { Remove(); });
  connect(drag_, &QPushButton::toggled, this, [this](bool on) { StartDragging(on); });
  connect(points_, &QPushButton::clicked, this, [this] { StartPoints(); });
  connect(shown_, &QCheckBox::toggled, this, [this] { PutPlace(); });
  connect(opacity_, &QSlider::valueChanged, this, [this] { PutPlace(); });
  for (QDoubleSpinBox* field : {left_, top_, width_, height_}) {
    connect(field, &QDoubleSpinBox::valueChanged, this, [this] { PutPlace(); });
  }
  ShowAids();
}

QDoubleSpinBox* ScanPanel::MakeLength(const char* name, const QString& caption) {
  QDoubleSpinBox* field = MakeMillimetres(name, this);
  field->setAccessibleName(caption);
  return field;
}

void ScanPanel::ShowAids() {
  isShowing_ = true;
  const Scan& scan = view_.Aids().scan;
  for (QWidget* widget : std::initializer_list<QWidget*>{remove_, drag_, points_, shown_, opacity_,
                                                         left_, top_, width_, height_}) {
    widget->setEnabled(!scan.Empty());
  }
  shown_->setChecked(scan.isShown);
  opacity_->setValue(qRound(scan.opacity * 100));
  const QPointF corner = scan.toSheet.map(QPointF(0, 0));
  const QTransform& to = scan.toSheet;
  left_->setValue(MillimetresOf(corner.x()));
  top_->setValue(MillimetresOf(corner.y()));
  width_->setValue(MillimetresOf(std::hypot(to.m11(), to.m12()) * scan.image.width()));
  height_->setValue(MillimetresOf(std::hypot(to.m21(), to.m22()) * scan.image.height()));
  isShowing_ = false;
}

// A length that wasn't touched stays: a scan that three points have straightened is slanted, which
// width and height alone don't tell.
void ScanPanel::PutPlace() {
  if (isShowing_) return;
  Scan& scan = view_.Aids().scan;
  scan.isShown = shown_->isChecked();
  scan.opacity = opacity_->value() / 100.0;
  const auto* changed = sender();
  if (changed == width_ || changed == height_) {
    scan.toSheet = PlacingBySize(scan, TwipsOf(width_->value()), TwipsOf(height_->value()));
  } else if (changed == left_ || changed == top_) {
    const QPointF corner = scan.toSheet.map(QPointF(0, 0));
    const double dx = changed == left_ ? TwipsOf(left_->value()) - corner.x() : 0;
    const double dy = changed == top_ ? TwipsOf(top_->value()) - corner.y() : 0;
    scan.toSheet *= QTransform::fromTranslate(dx, dy);
  }
  view_.AidsWereChanged();
}

void ScanPanel::AskForFile() {
  const QString path = QFileDialog::getOpenFileName(
      this, Say("Load a scan or a photo"), {},
      Say("Pictures and PDF") +
          QStringLiteral(" (*.png *.jpg *.jpeg *.tif *.tiff *.bmp *.webp *.pdf)"));
  if (!path.isEmpty()) Load(path.toStdString());
}

void ScanPanel::Load(const std::string& path) {
  try {
    const int pages = PagesOfScan(path);
    int page = 1;
    if (pages > 1) {
      bool isChosen = false;
      page =
          QInputDialog::getInt(this, Say("Load a scan or a photo"),
                               Say("Which of the %1 pages?").arg(pages), 1, 1, pages, 1, &isChosen);
      if (!isChosen) return;
    }
    Scan scan{.image = ReadScan(path, page), .toSheet = {}};
    scan.toSheet = NaturalPlacing(scan.image, view_.Page().width, view_.Page().height);
    view_.Aids().scan = std::move(scan);
  } catch (const Failure& failure) {
    Tell(this, QString::fromStdString(failure.Description()));
    return;
  }
  view_.AidsWereChanged();
  loaded_();
}

void ScanPanel::Remove() {
  view_.PutTool(nullptr);
  view_.Aids().scan = {};
  view_.AidsWereChanged();
  loaded_();
}

void ScanPanel::StartDragging(bool on) {
  if (!on) {
    view_.PutTool(nullptr);
    return;
  }
  view_.PutTool(std::make_unique<ScanMoveTool>(view_, [this] { drag_->setChecked(false); }));
}

void ScanPanel::StartPoints() {
  drag_->setChecked(false);
  const auto say = [this](int points) {
    const QString number = QString::number(points + 1);
    hint_->setText(points == 0   ? Say("Click the first point: a corner of the form's frame.")
                   : points == 1 ? Say("Click the second point, in one line with it to the right.")
                                 : Say("Click the third point, straight below the first."));
    hint_->setVisible(points < 3);
  };
  say(0);
  view_.PutTool(std::make_unique<ScanPointsTool>(
      view_, say, [this](std::optional<ScanPointsTool::Pixels> pixels) {
        hint_->hide();
        view_.PutTool(nullptr);
        if (pixels) AskForDistances(*pixels);
      }));
}

void ScanPanel::AskForDistances(const std::array<QPointF, 3>& pixels) {
  Scan& scan = view_.Aids().scan;
  std::array<QPointF, 3> now;
  for (std::size_t i = 0; i < now.size(); ++i) now[i] = scan.toSheet.map(pixels[i]);

  QDialog dialog(this);
  dialog.setObjectName("distances");
  dialog.setWindowTitle(Say("Distances on the form"));
  auto* layout = new QFormLayout(&dialog);
  const auto add = [&](const char* name, const char* words, double twips) {
    QDoubleSpinBox* field = MakeMillimetres(name, &dialog);
    field->setValue(MillimetresOf(twips));
    layout->addRow(Say(words), field);
    return field;
  };
  auto* note = new QLabel(Say("Measure them on the paper form with a ruler."), &dialog);
  layout->addRow(note);
  auto* across = add("across", "From the first to the second point:",
                     std::hypot(now[1].x() - now[0].x(), now[1].y() - now[0].y()));
  auto* down = add("down", "From the first to the third point:",
                   std::hypot(now[2].x() - now[0].x(), now[2].y() - now[0].y()));
  auto* left = add("left", "From the left edge of the sheet to the first point:", now[0].x());
  auto* top = add("top", "From the top edge of the sheet to the first point:", now[0].y());
  across->setMinimum(1);
  down->setMinimum(1);
  auto* buttons = new QDialogButtonBox(&dialog);
  auto* accept = buttons->addButton(Say("Straighten"), QDialogButtonBox::AcceptRole);
  accept->setObjectName("accept");
  auto* cancel = buttons->addButton(Say("Cancel"), QDialogButtonBox::RejectRole);
  connect(accept, &QPushButton::clicked, &dialog, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, &dialog, &QDialog::reject);
  layout->addRow(buttons);
  if (dialog.exec() != QDialog::Accepted) return;

  const KnownPoints known{.first = {TwipsOf(left->value()), TwipsOf(top->value())},
                          .across = TwipsOf(across->value()),
                          .down = TwipsOf(down->value())};
  if (!PlaceByPoints(scan, pixels, known)) {
    Tell(this, Say("The three points lie in one line; choose others."));
    return;
  }
  view_.AidsWereChanged();
}

}  // namespace td::designer
