// Independent readers for what the renderer writes.
#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QRectF>
#include <QTemporaryDir>
#include <string>
#include <vector>

#include "page_document/commands.h"
#include "platform/failure.h"

namespace td {

constexpr double kTolerance = 0.1;  // millimetres

// What a program writes on its standard output. Fails the test if it can't run or fails.
std::string OutputOf(const std::string& program, const std::vector<std::string>& arguments);

// A word that a reader extracts from a page, and its place in millimetres.
struct Word {
  std::string text;
  QRectF box;
};
// The words of a page, from 1.
std::vector<Word> WordsOf(const std::string& pdf, int page = 1);
// The only word with a text; fails the test if there is none or more.
QRectF PlaceOf(const std::vector<Word>& words, const std::string& text);

struct Sheet {
  double width = 0;  // millimetres
  double height = 0;
};
std::vector<Sheet> SheetsOf(const std::string& pdf);

// A page as an independent reader draws it.
QImage ImageOf(const std::string& pdf, double dotsPerInch, int page = 1);

// Prints an HTML file with a browser.
void PrintHtml(const std::string& html, const std::string& pdf);

// The smallest rectangle that holds everything dark inside a region, both in millimetres. Empty if
// there is nothing.
QRectF InkIn(const QImage& image, double dotsPerInch, const QRectF& region);

// Four lines of one pen's width that meet at the corners of a table, places in millimetres.
constexpr QRectF kTable(20, 20, 60, 30);
// Whether an image of a page shows the table's corners closed and no line beyond them.
void ExpectClosedCorners(const QImage& image, double dotsPerInch, double penWidth);

// A folder that lives as long as a test.
class Folder {
 public:
  [[nodiscard]] std::string Path(const std::string& name) const {
    return folder_.filePath(QString::fromStdString(name)).toStdString();
  }

 private:
  QTemporaryDir folder_;
};

std::string ReadFile(const std::string& path);

// The number of the failure that an action ends with, 0 if there is none.
template <typename Action>
int NumberOf(Action action) {
  try {
    action();
  } catch (const Failure& failure) {
    return failure.Number();
  }
  return 0;
}

}  // namespace td
