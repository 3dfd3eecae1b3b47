// A registered format and the print data, read from the sample database by this test's own means.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace td {

struct Cell {
  bool isNull = true;
  bool isNumber = false;  // as stored
  double number = 0;
  std::string text;
};

// Cells by column name in lower case.
class SampleRow {
 public:
  void Put(const std::string& column, Cell cell);
  // An absent column reads as Null.
  [[nodiscard]] const Cell& At(const std::string& column) const;
  [[nodiscard]] double Number(const std::string& column) const { return At(column).number; }
  [[nodiscard]] const std::string& Text(const std::string& column) const { return At(column).text; }
  [[nodiscard]] bool Flag(const std::string& column) const { return Number(column) != 0; }

 private:
  std::map<std::string, Cell> cells_;
};

std::vector<SampleRow> QueryRows(const std::filesystem::path& database, const std::string& sql);

enum class Band { kHead = 1, kColumnHead = 2, kRow = 3, kBehindRows = 4, kFoot = 5 };
enum class Kind { kText = 0, kLine = 1, kPicture = 2 };
enum class Side { kLeft, kCentre, kRight };

// Twips.
struct Area {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
  [[nodiscard]] double Right() const { return left + width; }
  [[nodiscard]] double Bottom() const { return top + height; }
};

struct SampleItem {
  Band band = Band::kHead;
  Kind kind = Kind::kText;
  Area area;
  Side side = Side::kLeft;
  bool wraps = false;
  bool hasNoBox = false;
  bool printsOnForms = false;  // on a pre-printed form, too
  double border = 0;
  std::string font;
  double fontSize = 0;
  bool bold = false;
  std::string variable;  // as the item names it
  std::string field;     // the variable's column or computed field, lower case; empty: fixed text
  std::string caption;
  std::string picture;
};

struct SampleFormat {
  double paperWidth = 0;  // as printed, twips
  double paperHeight = 0;
  std::size_t rowsPerPage = 0;
  double rowHeight = 0;
  double headerShift = 0;
  bool headerPerPage = false;
  bool footerPerPage = false;
  bool integralPage = false;
  std::vector<SampleItem> items;
};

SampleFormat ReadFormat(const std::filesystem::path& database, int billType,
                        const std::string& name);

std::string LowerCase(std::string text);

}  // namespace td
