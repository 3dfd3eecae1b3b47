// The designer's message boxes.
#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>
#include <optional>

namespace td::designer {

// Shows a text with one button.
void Tell(QWidget* window, const QString& text);

// Asks with one button for each answer, the first of them the usual one, and "Cancel" behind them.
// The number of the answer, or -1 for none. `details` stand below, in a list that scrolls.
[[nodiscard]] int Ask(QWidget* window, const QString& text, const QStringList& answers,
                      const QStringList& details = {});

// Asks for a name: nothing if the user gave up, or left it empty.
[[nodiscard]] std::optional<QString> AskName(QWidget* window, const QString& question,
                                             const QString& suggested);

}  // namespace td::designer
