#include "test_tools.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <cmath>

namespace td {
namespace {

constexpr double kMillimetresPerPoint = 25.4 / 72;

}  // namespace

std::string OutputOf(const std::string& program, const std::vector<std::string>& arguments) {
  QStringList list;
  for (const std::string& argument : arguments) list.append(QString::fromStdString(argument));
  QProcess process;
  process.start(QString::fromStdString(program), list);
  const bool finished = process.waitForFinished(60'000);
  EXPECT_TRUE(finished && process.exitCode() == 0)
      << program << ": " << process.readAllStandardError().toStdString();
  return process.readAllStandardOutput().toStdString();
}

std::vector<Word> WordsOf(const std::string& pdf, int page) {
  const std::string number = std::to_string(page);
  const QString html = QString::fromStdString(
      OutputOf("pdftotext", {"-bbox", "-f", number, "-l", number, pdf, "-"}));
  static const QRegularExpression word(
      R"re(<word xMin="(.*?)" yMin="(.*?)" xMax="(.*?)" yMax="(.*?)">(.*?)</word>)re");
  std::vector<Word> words;
  for (auto found = word.globalMatch(html); found.hasNext();) {
    const QRegularExpressionMatch match = found.next();
    const auto millimetres = [&match](int group) {
      return match.captured(group).toDouble() * kMillimetresPerPoint;
    };
    words.push_back(
        {match.captured(5).toStdString(),
         QRectF(QPointF(millimetres(1), millimetres(2)), QPointF(millimetres(3), millimetres(4)))});
  }
  return words;
}

QRectF PlaceOf(const std::vector<Word>& words, const std::string& text) {
  QRectF place;
  int count = 0;
  for (const Word& word : words) {
    if (word.text != text) continue;
    place = word.box;
    ++count;
  }
  EXPECT_EQ(count, 1) << text;
  return place;
}

std::vector<Sheet> SheetsOf(const std::string& pdf) {
  const QString information =
      QString::fromStdString(OutputOf("pdfinfo", {"-f", "1", "-l", "99999", pdf}));
  static const QRegularExpression size(R"(Page\s+\d+ size:\s+(\S+) x (\S+) pts)");
  std::vector<Sheet> sheets;
  for (auto found = size.globalMatch(information); found.hasNext();) {
    const QRegularExpressionMatch match = found.next();
    sheets.push_back({match.captured(1).toDouble() * kMillimetresPerPoint,
                      match.captured(2).toDouble() * kMillimetresPerPoint});
  }
  return sheets;
}

QImage ImageOf(const std::string& pdf, double dotsPerInch, int page) {
  const Folder folder;
  const std::string number = std::to_string(page);
  OutputOf("pdftoppm", {"-r", std::to_string(dotsPerInch), "-f", number, "-l", number, "-png",
                        "-singlefile", pdf, folder.Path("page")});
  return QImage(QString::fromStdString(folder.Path("page.png")));
}

void PrintHtml(const std::string& html, const std::string& pdf) {
  const Folder profile;
  OutputOf("chromium", {"--headless", "--no-sandbox", "--disable-gpu", "--no-first-run",
                        "--disable-background-networking", "--disable-component-update",
                        "--disable-sync", "--user-data-dir=" + profile.Path("profile"),
                        "--no-pdf-header-footer", "--print-to-pdf=" + pdf, "file://" + html});
}

QRectF InkIn(const QImage& image, double dotsPerInch, const QRectF& region) {
  constexpr int kDark = 160;
  const double pixels = dotsPerInch / 25.4;
  const QRect area = QRectF(region.topLeft() * pixels, region.size() * pixels)
                         .toAlignedRect()
                         .intersected(image.rect());
  QRect ink;
  for (int y = area.top(); y <= area.bottom(); ++y) {
    for (int x = area.left(); x <= area.right(); ++x) {
      if (qGray(image.pixel(x, y)) < kDark) ink |= QRect(x, y, 1, 1);
    }
  }
  return {QPointF(ink.topLeft()) / pixels, QSizeF(ink.size()) / pixels};
}

void ExpectClosedCorners(const QImage& image, double dotsPerInch, double penWidth) {
  const double pixels = dotsPerInch / 25.4;
  const double pen = penWidth / kTwipsPerMillimetre;
  const auto isDark = [&](QPointF millimetres) {
    return qGray(image.pixel(static_cast<int>(millimetres.x() * pixels),
                             static_cast<int>(millimetres.y() * pixels))) < 128;
  };
  for (const QPointF corner :
       {kTable.topLeft(), kTable.topRight(), kTable.bottomLeft(), kTable.bottomRight()}) {
    const double x = corner.x() < kTable.center().x() ? -1 : 1;  // outwards
    const double y = corner.y() < kTable.center().y() ? -1 : 1;
    const double inside = pen / 2 - 1 / pixels;
    EXPECT_TRUE(isDark(corner + QPointF(x * inside, y * inside)))
        << corner.x() << ',' << corner.y();
    const double outside = pen / 2 + 1.5 / pixels;
    EXPECT_FALSE(isDark(corner + QPointF(x * outside, 0))) << corner.x() << ',' << corner.y();
    EXPECT_FALSE(isDark(corner + QPointF(0, y * outside))) << corner.x() << ',' << corner.y();
  }
}

std::string ReadFile(const std::string& path) {
  QFile file(QString::fromStdString(path));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
  return file.readAll().toStdString();
}

}  // namespace td
