#include "sample_format.h"

#include <sqlite3.h>

#include <cctype>
#include <cstdio>
#include <memory>
#include <stdexcept>

namespace td {
namespace {

struct CloseDatabase {
  void operator()(sqlite3* database) const { sqlite3_close(database); }
};
struct FinishStatement {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

std::string PlainNumber(double number) {
  char text[40];
  std::snprintf(text, sizeof text, "%.15g", number);
  return text;
}

Cell ReadCell(sqlite3_stmt* statement, int column) {
  Cell cell;
  const int type = sqlite3_column_type(statement, column);
  if (type == SQLITE_NULL) return cell;
  cell.isNull = false;
  cell.isNumber = type == SQLITE_INTEGER || type == SQLITE_FLOAT;
  cell.number = sqlite3_column_double(statement, column);
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
  cell.text = cell.isNumber ? PlainNumber(cell.number) : std::string(text);
  return cell;
}

Side SideOf(double alignment) {
  if (alignment == 0) return Side::kLeft;
  return alignment == 2 ? Side::kCentre : Side::kRight;
}

SampleItem ItemOf(const SampleRow& row) {
  return {.band = static_cast<Band>(static_cast<int>(row.Number("fsite"))),
          .kind = static_cast<Kind>(static_cast<int>(row.Number("ftypeid"))),
          .area = {row.Number("fleft"), row.Number("ftop"), row.Number("fwidth"),
                   row.Number("fheight")},
          .side = SideOf(row.Number("falignment")),
          .wraps = row.Flag("fwordwrap"),
          .hasNoBox = row.Flag("fautosize"),
          .printsOnForms = row.Flag("fisvariant") || row.Flag("fmustprint"),
          .border = row.Number("fborderwidth"),
          .font = row.Text("ffontname"),
          .fontSize = row.Number("ffontsize"),
          .bold = row.Flag("ffontbold"),
          .variable = row.Text("fobjectfieldname"),
          .field = LowerCase(row.Text("ffieldname")),
          .caption = row.Text("fobjectcaption"),
          .picture = row.Text("fformatstring")};
}

// Millimetres of the standard papers that the samples use.
Area SheetOf(const SampleRow& row) {
  constexpr double kTwipsPerMillimetre = 1440 / 25.4;
  switch (static_cast<int>(row.Number("fpapersize"))) {
    case 9:
      return {0, 0, 210 * kTwipsPerMillimetre, 297 * kTwipsPerMillimetre};
    case 11:
      return {0, 0, 148 * kTwipsPerMillimetre, 210 * kTwipsPerMillimetre};
    case 256:
      return {0, 0, row.Number("fpaperwidth"), row.Number("fpaperheight")};
    default:
      throw std::runtime_error("a paper that this test does not know");
  }
}

}  // namespace

std::string LowerCase(std::string text) {
  for (char& letter : text) {
    letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
  }
  return text;
}

void SampleRow::Put(const std::string& column, Cell cell) {
  cells_[LowerCase(column)] = std::move(cell);
}

const Cell& SampleRow::At(const std::string& column) const {
  static const Cell absent;
  const auto found = cells_.find(column);
  return found == cells_.end() ? absent : found->second;
}

std::vector<SampleRow> QueryRows(const std::filesystem::path& database, const std::string& sql) {
  sqlite3* handle = nullptr;
  const int opened = sqlite3_open_v2(database.c_str(), &handle, SQLITE_OPEN_READONLY, nullptr);
  const std::unique_ptr<sqlite3, CloseDatabase> closing(handle);
  sqlite3_stmt* statement = nullptr;
  if (opened != SQLITE_OK ||
      sqlite3_prepare_v2(handle, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(handle));
  }
  const std::unique_ptr<sqlite3_stmt, FinishStatement> finishing(statement);
  std::vector<SampleRow> rows;
  while (sqlite3_step(statement) == SQLITE_ROW) {
    SampleRow row;
    for (int column = 0; column < sqlite3_column_count(statement); ++column) {
      row.Put(sqlite3_column_name(statement, column), ReadCell(statement, column));
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

SampleFormat ReadFormat(const std::filesystem::path& database, int billType,
                        const std::string& name) {
  const std::string type = std::to_string(billType);
  const SampleRow row = QueryRows(database, "select * from TDBill where FTranType=" + type +
                                                " and FTDBillName='" + name + "'")
                            .at(0);
  const Area sheet = SheetOf(row);
  const bool isLandscape = row.Flag("forientation");
  SampleFormat format{.paperWidth = isLandscape ? sheet.height : sheet.width,
                      .paperHeight = isLandscape ? sheet.width : sheet.height,
                      .rowsPerPage = static_cast<std::size_t>(row.Number("frowsperpage")),
                      .rowHeight = row.Number("frowheight"),
                      .headerShift = row.Number("fadjuctheader"),
                      .headerPerPage = row.Flag("fheaderperpage"),
                      .footerPerPage = row.Flag("ffooterperpage"),
                      .integralPage = row.Flag("fintegralpage"),
                      .items = {}};
  for (const SampleRow& item :
       QueryRows(database,
                 "select d.*, v.FVarName as FFieldName from TDBillDetail d left join TDVariant v "
                 "on v.FVarCaption=d.FObjectFieldName and v.FTranType=" +
                     type + " where d.FTDBillID=" + row.Text("ftdbillid"))) {
    format.items.push_back(ItemOf(item));
  }
  return format;
}

}  // namespace td
