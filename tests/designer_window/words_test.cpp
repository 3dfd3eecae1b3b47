// The window's texts: in the language of the desktop, and none of them cut off.
#include "designer/view/words.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QDockWidget>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QToolButton>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

#include "shown_designer.h"

namespace td::designer {
namespace {

namespace fs = std::filesystem;

bool HoldsChinese(const QString& text) {
  return text.contains(QRegularExpression("\\p{Han}"));
}

// Texts that need no translation.
bool IsNeutral(const QString& text) {
  return !text.contains(QRegularExpression("\\p{L}{3}"));
}

std::string ContentOf(const fs::path& path) {
  std::stringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

TEST(DesignerWords, EachTextHasALineInTheTable) {
  const std::regex said("\\bSay\\(\\s*((?:\"(?:[^\"\\\\]|\\\\.)*\"\\s*)+)\\)");
  const std::regex piece("\"((?:[^\"\\\\]|\\\\.)*)\"");
  int found = 0;
  for (const auto& entry :
       fs::recursive_directory_iterator(fs::path(QBTD_SOURCE_DIR) / "designer")) {
    if (entry.path().extension() != ".cpp") continue;
    const std::string source = ContentOf(entry.path());
    for (std::sregex_iterator call(source.begin(), source.end(), said), end; call != end; ++call) {
      const std::string pieces = (*call)[1];
      std::string text;
      for (std::sregex_iterator part(pieces.begin(), pieces.end(), piece), none; part != none;
           ++part) {
        text += (*part)[1];
      }
      text = std::regex_replace(text, std::regex("\\\\n"), "\n");
      EXPECT_TRUE(HasWords(text)) << entry.path().filename() << ": " << text;
      ++found;
    }
  }
  EXPECT_GT(found, 50);
}

class WindowWords : public ShownDesigner {
 protected:
  static void ExpectLanguage(const QString& text) {
    if (IsNeutral(text)) return;
    EXPECT_EQ(HoldsChinese(text), SpeaksChinese()) << text.toStdString();
  }

  static void ExpectWhole(const QWidget& shown) {
    for (const QWidget* widget : shown.findChildren<QWidget*>()) {
      if (!widget->isVisible()) continue;
      const auto* label = qobject_cast<const QLabel*>(widget);
      const bool isText = (label != nullptr && !label->wordWrap()) ||
                          qobject_cast<const QPushButton*>(widget) != nullptr ||
                          qobject_cast<const QCheckBox*>(widget) != nullptr;
      if (!isText || widget->objectName() == "messages") continue;
      EXPECT_GE(widget->width(), widget->minimumSizeHint().width())
          << widget->objectName().toStdString();
      // One with a name shows what the format says.
      if (label != nullptr && label->objectName().isEmpty()) ExpectLanguage(label->text());
    }
  }
};

TEST_F(WindowWords, AreInTheLanguageOfTheDesktopAndWhole) {
  Open();
  for (const char* item : {"客户", "地址", "结算方式"}) Selected().Add({ItemNamed(item).id});
  Settle();
  for (const QAction* action : Window().findChildren<QAction*>()) {
    if (!action->objectName().isEmpty()) ExpectLanguage(action->text());
  }
  for (QDockWidget* dock : Window().findChildren<QDockWidget*>()) {
    ExpectLanguage(dock->windowTitle());
    dock->show();
    dock->raise();
    Settle();
    ExpectWhole(Window());
  }
  Find<QDockWidget>("palette").raise();
  Find<QDockWidget>("item").raise();
  Window().resize(1360, 860);
  Settle();
  Sheet().FitWidth();
  Settle();
  Photograph(Window(), "designer-window");
}

TEST_F(WindowWords, OfTheQuestionsAreWhole) {
  Open();
  WhenShown("name", [](QDialog& dialog) {
    ExpectWhole(dialog);
    dialog.reject();
  });
  Trigger("new");
  WhenShown("formats", [](QDialog& dialog) {
    ExpectWhole(dialog);
    dialog.reject();
  });
  Trigger("open");
  WhenShown("question", [](QDialog& dialog) {
    ExpectWhole(dialog);
    ExpectLanguage(dialog.findChild<QLabel*>("text")->text().remove(QRegularExpression("“.*”")));
    dialog.reject();
  });
  Trigger("deleteFormat");
  WhenShown("message", [](QDialog& dialog) {
    ExpectWhole(dialog);
    Photograph(dialog, "help");
    dialog.reject();
  });
  Trigger("help");
}

}  // namespace
}  // namespace td::designer
