#include "shown_designer.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include "designer/view/words.h"
#include "text/conversions.h"

namespace td::designer {

ShownDesigner::ShownDesigner(SampleRows rows) {
  RenewSample(SampleEngine::kSqlite, rows);
  std::filesystem::create_directories((folder_ / "component") / "picture");
  desktop_ = std::make_unique<DesktopPlatform>(Options());
  auto* watch = new QTimer(&timers_);
  QObject::connect(watch, &QTimer::timeout, watch, [this] { RefuseUnexpected(); });
  constexpr int kInterval = 100;  // milliseconds
  watch->start(kInterval);
}

// A dialog that nobody expects would wait for its user without end.
void ShownDesigner::RefuseUnexpected() {
  auto* shown = dynamic_cast<QDialog*>(QApplication::activeModalWidget());
  if (shown == nullptr || expected_.contains(shown->objectName().toStdString())) return;
  if (shown->objectName() == "waiting") return;  // for a lock, and not for its user
  const auto* text = shown->findChild<QLabel*>("text");
  if (text == nullptr) text = shown->findChild<QLabel*>("qt_msgbox_label");
  ADD_FAILURE() << "not expected: " << shown->objectName().toStdString() << ": "
                << (text != nullptr ? text->text().toStdString() : "");
  shown->reject();
}

DesktopOptions ShownDesigner::Options() const {
  DesktopOptions options;
  options.stateDirectory = (folder_ / "state").string();
  options.componentFolder = (folder_ / "component").string();
  return options;
}

ShownDesigner::~ShownDesigner() {
  window_.reset();
}

DesignerWindow& ShownDesigner::Open(const ShownFormat& shown) {
  window_.reset();
  window_ =
      std::make_unique<DesignerWindow>(DesignerSetup{.database = databases_,
                                                     .platform = desktop_->Get(),
                                                     .connection = SampleOn(SampleEngine::kSqlite),
                                                     .billType = shown.billType,
                                                     .data = shown.data,
                                                     .stateFolder = (folder_ / "state").string(),
                                                     .barcodes = {},
                                                     .printers = {"前台", "仓库"}});
  EXPECT_TRUE(window_->Open(shown.format));
  window_->resize(1500, 1000);
  window_->show();
  EXPECT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
  window_->activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  Sheet().setFocus();
  Settle();
  return *window_;
}

void ShownDesigner::CloseWindow() {
  window_->close();
  window_.reset();
}

const Item& ShownDesigner::ItemNamed(const std::string& name) {
  for (const Item& item : Document().Current().items) {
    if (item.FieldName() == name || item.row.Text("FObjectCaption") == name) return item;
  }
  throw std::runtime_error("no item " + name);
}

Box ShownDesigner::PlaceOf(const std::string& name) {
  const Box place = ItemNamed(name).Place();
  return {MillimetresOf(place.left), MillimetresOf(place.top), MillimetresOf(place.width),
          MillimetresOf(place.height)};
}

QPoint ShownDesigner::PixelOf(const std::string& name) {
  const auto box = Sheet().BoxOf(ItemNamed(name).id);
  EXPECT_TRUE(box) << name << " is not on the page";
  return Sheet().ToView(box.value_or(Box{})).center().toPoint();
}

QPoint ShownDesigner::PixelAt(double x, double y) {
  return Sheet().ToView(Point{TwipsOf(x), TwipsOf(y)}).toPoint();
}

void ShownDesigner::Click(QPoint at, Qt::KeyboardModifiers modifiers) {
  QTest::mouseClick(Sheet().viewport(), Qt::LeftButton, modifiers, at);
}

void ShownDesigner::Drag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers) {
  QWidget* view = Sheet().viewport();
  QTest::mousePress(view, Qt::LeftButton, modifiers, from);
  constexpr int kSteps = 8;
  for (int i = 1; i <= kSteps; ++i) {
    const QPointF at = from + (QPointF(to) - from) * i / kSteps;
    QMouseEvent move(QEvent::MouseMove, at, view->mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                     modifiers);
    QApplication::sendEvent(view, &move);
  }
  QTest::mouseRelease(view, Qt::LeftButton, modifiers, to);
}

void ShownDesigner::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(&Sheet(), key, modifiers);
}

QAction& ShownDesigner::ActionNamed(const char* name) {
  return Find<QAction>(name);
}

void ShownDesigner::Trigger(const char* action) {
  EXPECT_TRUE(ActionNamed(action).isEnabled()) << action;
  ActionNamed(action).trigger();
}

QWidget& ShownDesigner::WidgetNamed(const char* name) {
  return Find<QWidget>(name);
}

void ShownDesigner::Settle() {
  QApplication::processEvents();
  (void)Sheet().Picture();
  QApplication::processEvents();
}

void ShownDesigner::WhenShown(const char* dialog, std::function<void(QDialog&)> use) {
  constexpr int kPollInterval = 20;  // milliseconds
  expected_.insert(dialog);
  auto* timer = new QTimer(&timers_);
  QObject::connect(timer, &QTimer::timeout, timer,
                   [this, timer, name = std::string(dialog), use = std::move(use)] {
                     auto* shown = dynamic_cast<QDialog*>(QApplication::activeModalWidget());
                     if (shown == nullptr || shown->objectName().toStdString() != name) return;
                     if (!shown->isVisible()) return;
                     timer->stop();
                     expected_.erase(expected_.find(name));
                     if (auto* text = shown->findChild<QLabel*>("text")) {
                       asked_.push_back(text->text().toStdString());
                     }
                     Photograph(*shown, "dialog-" + name);
                     use(*shown);
                   });
  timer->start(kPollInterval);
}

void ShownDesigner::Answer(const char* dialog, const char* button) {
  WhenShown(dialog, [name = std::string(button)](QDialog& shown) {
    auto* pressed = shown.findChild<QPushButton*>(QString::fromStdString(name));
    ASSERT_NE(pressed, nullptr) << name;
    QTest::mouseClick(pressed, Qt::LeftButton);
  });
}

void ShownDesigner::AnswerName(const char* name) {
  WhenShown("name", [text = QString::fromUtf8(name)](QDialog& shown) {
    shown.findChild<QLineEdit*>("edit")->setText(text);
    QTest::mouseClick(shown.findChild<QPushButton*>("accept"), Qt::LeftButton);
  });
}

std::string ShownDesigner::Cell(const std::string& statement) {
  const auto rows =
      databases_.OpenQuery(SampleOn(SampleEngine::kSqlite), "select (" + statement + ") as FCell",
                           CursorType::kUnspecified, LockType::kUnspecified);
  const Value& value = rows->Field("FCell");
  return IsNull(value) ? "Null" : ToText(value);
}

void Photograph(QWidget& widget, const std::string& name) {
  const QString folder = qEnvironmentVariable("QBTD_PICTURES");
  if (folder.isEmpty()) return;
  const QString language = SpeaksChinese() ? ".zh-CN" : "";
  widget.grab().save(folder + "/" + QString::fromStdString(name) + language + ".png");
}

}  // namespace td::designer
