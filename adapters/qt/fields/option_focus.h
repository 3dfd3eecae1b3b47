// Which option of a group the Tab key goes to.
#pragma once

#include <QAbstractButton>
#include <QList>

namespace td {

// To the one that is set, or to the first if none is; the arrow keys lead to the others. By itself
// Tab goes to the first one until somebody has been there, and Space would then choose it.
void LetTabReachTheSetOption(const QList<QAbstractButton*>& options);

}  // namespace td
