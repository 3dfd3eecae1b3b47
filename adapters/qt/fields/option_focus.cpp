#include "qt/fields/option_focus.h"

#include <algorithm>

namespace td {
namespace {

void PutFocusPolicies(const QList<QAbstractButton*>& options) {
  const bool isAnySet = std::ranges::any_of(options, &QAbstractButton::isChecked);
  for (QAbstractButton* option : options) {
    const bool isReached = option->isChecked() || !isAnySet;
    option->setFocusPolicy(isReached ? Qt::StrongFocus : Qt::ClickFocus);
  }
}

}  // namespace

void LetTabReachTheSetOption(const QList<QAbstractButton*>& options) {
  PutFocusPolicies(options);
  for (QAbstractButton* option : options) {
    QObject::connect(option, &QAbstractButton::toggled, option,
                     [options] { PutFocusPolicies(options); });
  }
}

}  // namespace td
