#include "qt/fields/choice_list.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QScreen>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QToolTip>
#include <algorithm>

namespace td {

ChoiceList::ChoiceList(QWidget* parent) : QComboBox(parent) {
  view()->setTextElideMode(Qt::ElideMiddle);
}

void ChoiceList::KeepUsualWidth() {
  constexpr int kUsualNameLength = 24;  // half-width characters
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(kUsualNameLength);
}

// Room for the longest entry, however narrow the closed list is.
void ChoiceList::showPopup() {
  QAbstractItemView& entries = *view();
  const int needed = entries.sizeHintForColumn(0) + entries.verticalScrollBar()->sizeHint().width();
  entries.setMinimumWidth(std::min(needed, screen()->availableGeometry().width()));
  QComboBox::showPopup();
}

bool ChoiceList::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QComboBox::event(event);
  QStyleOptionComboBox shown;
  initStyleOption(&shown);
  const bool isWhole = shown.currentText == currentText();
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                     isWhole ? QString() : currentText(), this);
  return true;
}

void ChoiceList::initStyleOption(QStyleOptionComboBox* option) const {
  constexpr int kBesideText = 4;  // pixels that styles leave free on both sides together
  QComboBox::initStyleOption(option);
  const QRect place =
      style()->subControlRect(QStyle::CC_ComboBox, option, QStyle::SC_ComboBoxEditField, this);
  option->currentText = option->fontMetrics.elidedText(option->currentText, Qt::ElideMiddle,
                                                       place.width() - kBesideText);
}

}  // namespace td
