// What the table compares with: the same bill drawn by a plain loop, with no logic and one drawText
// a box. painter_loop DATABASE_FILE PDF_FILE
#include <sqlite3.h>

#include <QGuiApplication>
#include <QHash>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

namespace {

constexpr const char* kItems =
    "select t2.FLeft,t2.FTop,t2.FWidth,t2.FHeight,t2.FTypeID,t2.FAlignMent,t2.FObjectCaption,"
    "t3.FVarName from ((select FTDBillID from TDBill where FTranType=90 and FTDBillName='基准A4') "
    "t1 "
    "inner join TDBillDetail t2 on t1.FTDBillID=t2.FTDBillID) left join (select * from TDVariant "
    "where FTranType=90) t3 on t2.FObjectFieldName=t3.FVarCaption where t2.FSite=?";

QString Text(sqlite3_stmt* statement, int column) {
  return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)));
}

}  // namespace

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  sqlite3* database = nullptr;
  sqlite3_stmt* rows = nullptr;
  sqlite3_stmt* items = nullptr;
  sqlite3_open(argv[1], &database);
  sqlite3_prepare_v2(database, "select * from t_work order by FEntryID", -1, &rows, nullptr);
  sqlite3_prepare_v2(database, kItems, -1, &items, nullptr);
  QHash<QString, int> columns;
  for (int i = 0; i < sqlite3_column_count(rows); ++i) columns[sqlite3_column_name(rows, i)] = i;

  QPdfWriter writer(QString::fromUtf8(argv[2]));
  writer.setPageSize(QPageSize(QPageSize::A4));
  writer.setPageMargins(QMarginsF());
  writer.setResolution(1440);
  QPainter painter(&writer);
  QFont font("Noto Serif CJK SC");
  font.setPixelSize(180);
  painter.setFont(font);
  painter.setPen(QPen(Qt::black, 14));
  const auto draw = [&](int site, double down) {
    constexpr int kAlignments[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
    sqlite3_reset(items);
    sqlite3_bind_int(items, 1, site);
    while (sqlite3_step(items) == SQLITE_ROW) {
      const QRectF box(sqlite3_column_double(items, 0), sqlite3_column_double(items, 1) + down,
                       sqlite3_column_double(items, 2), sqlite3_column_double(items, 3));
      const int column = columns.value(Text(items, 7), -1);
      if (sqlite3_column_int(items, 4) == 1) {
        painter.drawLine(box.topLeft(), box.bottomRight());
      } else {
        painter.drawText(box, Qt::AlignVCenter | kAlignments[sqlite3_column_int(items, 5)],
                         column < 0 ? Text(items, 6) : Text(rows, column));
      }
    }
  };
  int row = 0;
  for (; sqlite3_step(rows) == SQLITE_ROW; ++row) {
    if (row % 25 == 0) {
      if (row > 0) writer.newPage();
      draw(1, 0);
      draw(2, 0);
      draw(5, 24 * 480);
    }
    draw(3, row % 25 * 480);
  }
  return row > 0 ? 0 : 1;
}
