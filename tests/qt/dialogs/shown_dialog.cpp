#include "shown_dialog.h"

#include <QAbstractItemView>
#include <QMessageBox>
#include <QTest>
#include <algorithm>

#include "service/request.h"
#include "service/td_set.h"
#include "windows/frm_area_print_set.h"

namespace td {
namespace {

// QbTd-PDF is one of the queues for tests.
constexpr const char* kRows = R"(
  insert into TDBill (FTDBillID, FTranType, FTDBillName, FSelected, FPaperSize, FPaperWidth,
                      FPaperHeight, FRowsPerPage, FRowHeight, FHeaderPerPage, FPrintDevice)
    values (1, 21, '销售单', 1, 9, 0, 0, 10, 300, 0, null),
           (2, 21, '两联单', 0, 9, 0, 0, 8, 350.5, 1, 'QbTd-PDF'),
           (3, 12, '入库单', 1, 9, 0, 0, 6, 300, 0, null);
  insert into t_icitem (FItemID, FNumber, FName, FUnit, FStockArea)
    values (1, '1', '大米', '袋', 'A1'), (2, '2', '绿豆', '袋', 'A2'), (3, '3', '花生油', '桶', 'B'),
           (4, '4', '样品', '件', null);
)";

DesktopOptions Options(const std::string& folder) {
  DesktopOptions options;
  options.stateDirectory = folder;
  options.componentFolder = folder;
  return options;
}

}  // namespace

void Click(QAbstractButton& button) {
  const int insideOfIndicator = button.height() / 2;
  QTest::mouseClick(&button, Qt::LeftButton, {}, {insideOfIndicator, insideOfIndicator});
}

void Click(DialogWindow& window, const char* button) {
  Click(window.Named<QPushButton>(button));
}

void Type(DialogWindow& window, const char* box, const char* text) {
  auto& field = window.Named<QLineEdit>(box);
  QTest::mouseClick(&field, Qt::LeftButton);
  QTest::keySequence(&field, QKeySequence::SelectAll);
  QTest::keyClick(&field, Qt::Key_Delete);
  for (const QChar c : QString::fromUtf8(text)) {
    QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_unknown, c, Qt::NoModifier);
  }
}

void Choose(DialogWindow& window, const char* list, const char* entry) {
  auto& field = window.Named<QComboBox>(list);
  const int index = field.findText(QString::fromUtf8(entry));
  ASSERT_GE(index, 0) << list << " has no " << entry;
  QTest::mouseClick(&field, Qt::LeftButton);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(field.view()->window()));
  QTest::keyClick(field.view(), Qt::Key_Home);
  for (int i = 0; i < index; ++i) QTest::keyClick(field.view(), Qt::Key_Down);
  QTest::keyClick(field.view(), Qt::Key_Return);
}

// A display without a window manager gives the keys back to the dialog some time after a message
// box was closed.
void PressKey(DialogWindow& window, Qt::Key key, Qt::KeyboardModifiers modifiers) {
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  QTest::keyClick(window.windowHandle(), key, modifiers);
}

void PressMnemonic(DialogWindow& window, Qt::Key key) {
  PressKey(window, key, Qt::AltModifier);
  const auto buttons = window.findChildren<QAbstractButton*>();
  ASSERT_TRUE(QTest::qWaitFor([&buttons] {
    return std::none_of(buttons.begin(), buttons.end(),
                        [](auto* button) { return button->isDown(); });
  })) << "a button stays down";
}

std::string TextOf(DialogWindow& window, const char* box) {
  return window.Named<QLineEdit>(box).text().toStdString();
}

std::vector<std::string> EntriesOf(DialogWindow& window, const char* list) {
  const auto& field = window.Named<QComboBox>(list);
  std::vector<std::string> entries;
  for (int i = 0; i < field.count(); ++i) entries.push_back(field.itemText(i).toStdString());
  return entries;
}

ShownDialog::ShownDialog() : ShownDialog(SampleRows::kNone) {
  database_.Run(kRows);
}

ShownDialog::ShownDialog(SampleRows rows)
    : database_(rows), desktop_(Options(folder_.Path().string())) {
  Context() = {};
  auto* timer = new QTimer(&timers_);
  QObject::connect(timer, &QTimer::timeout, timer, [this] { ConfirmBox(); });
  timer->start(kPollInterval);
}

void ShownDialog::ConfirmBox() {
  auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
  if (box == nullptr || !box->isVisible()) return;
  boxes_.push_back(box->text().toStdString());
  box->buttons().first()->click();
}

void ShownDialog::WhenDialogIsShown(Use use) {
  WhenShown<DialogWindow>([use = std::move(use)](DialogWindow& window) {
    use(window);
    if (window.isVisible()) window.close();
  });
}

void ShownDialog::ShowSettings(Use use) {
  WhenDialogIsShown(std::move(use));
  TDSet(desktop_.Get()).ShowSettings(database_.Connection(), 21);
}

void ShownDialog::ShowAreaPrinters(Use use) {
  WhenDialogIsShown(std::move(use));
  PrintContext request;
  request.New_PromptString = database_.Connection();
  frmAreaPrintSet(desktop_.Get(), request).ShowModal();
}

std::string ShownDialog::Setting(const std::string& column, const std::string& format) {
  return database_.Cell("select " + column + " from TDBill where FTDBillName='" + format + "'");
}

}  // namespace td
