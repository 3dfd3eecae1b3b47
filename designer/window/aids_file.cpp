#include "designer/window/aids_file.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QFile>
#include <QImageReader>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

#include "page_outputs/export_folder.h"

namespace td::designer {
namespace {

QByteArray Bytes(const std::string& path) {
  QFile file(QString::fromStdString(path));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void Write(const std::string& folder, const std::string& name, const QByteArray& bytes) {
  WritePrivateFile(folder, name, [&bytes](const ByteSink& sink) {
    sink({bytes.constData(), static_cast<std::size_t>(bytes.size())});
  });
}

QJsonArray ToJson(const std::vector<double>& numbers) {
  QJsonArray array;
  for (const double number : numbers) array.append(number);
  return array;
}

std::vector<double> ToNumbers(const QJsonValue& json) {
  std::vector<double> numbers;
  for (const auto& number : json.toArray()) numbers.push_back(number.toDouble());
  return numbers;
}

}  // namespace

AidsFile::AidsFile(std::string folder, const std::string& connection, int billType,
                   const std::string& format)
    : folder_(std::move(folder)) {
  QCryptographicHash hash(QCryptographicHash::Sha256);
  hash.addData(
      QByteArray::fromStdString(connection + '\0' + std::to_string(billType) + '\0' + format));
  name_ = hash.result().toHex().left(32).toStdString();
}

SheetAids AidsFile::Read() const {
  SheetAids aids;
  const QJsonObject places =
      QJsonDocument::fromJson(Bytes(folder_ + "/" + name_ + ".json")).object();
  aids.guides.x = ToNumbers(places["guides-down"]);
  aids.guides.y = ToNumbers(places["guides-across"]);
  const std::vector<double> placing = ToNumbers(places["scan-placing"]);
  if (placing.size() != 6) return aids;
  QImageReader reader(QString::fromStdString(folder_ + "/" + name_ + ".png"));
  const QImage image = reader.read();
  const QTransform toSheet(placing[0], placing[1], placing[2], placing[3], placing[4], placing[5]);
  if (image.isNull() || !toSheet.isInvertible()) return aids;
  aids.scan = {.image = image,
               .toSheet = toSheet,
               .opacity = std::clamp(places["scan-opacity"].toDouble(0.5), 0.0, 1.0),
               .isShown = places["scan-shown"].toBool(true)};
  return aids;
}

void AidsFile::Remove() const {
  for (const char* ending : {".json", ".png"}) {
    QFile::remove(QString::fromStdString(folder_ + "/" + name_ + ending));
  }
}

void AidsFile::WritePlaces(const SheetAids& aids) const {
  QJsonObject places;
  places["guides-down"] = ToJson(aids.guides.x);
  places["guides-across"] = ToJson(aids.guides.y);
  if (!aids.scan.Empty()) {
    const QTransform& to = aids.scan.toSheet;
    places["scan-placing"] = ToJson({to.m11(), to.m12(), to.m21(), to.m22(), to.dx(), to.dy()});
    places["scan-opacity"] = aids.scan.opacity;
    places["scan-shown"] = aids.scan.isShown;
  }
  Write(folder_, name_ + ".json", QJsonDocument(places).toJson());
}

void AidsFile::WritePicture(const SheetAids& aids) const {
  const std::string name = name_ + ".png";
  if (aids.scan.Empty()) {
    QFile::remove(QString::fromStdString(folder_ + "/" + name));
    return;
  }
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  aids.scan.image.save(&buffer, "PNG");
  Write(folder_, name, bytes);
}

}  // namespace td::designer
