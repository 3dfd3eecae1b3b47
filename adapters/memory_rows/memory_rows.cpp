#include "memory_rows/memory_rows.h"

#include <bit>
#include <utility>

#include "text_encoding/text_repair.h"

namespace td {

MemoryRows::MemoryRows(ColumnNamesRef columns, std::size_t expectedRows, std::size_t expectedBytes)
    : columns_(std::move(columns)) {
  cells_.reserve(expectedRows * columns_->Size());
  bytes_.reserve(expectedBytes);
}

std::size_t MemoryRows::RowCount() const {
  return columns_->Size() == 0 ? 0 : cells_.size() / columns_->Size();
}

void MemoryRows::AddReal(double number) {
  Add(Kind::kReal, std::bit_cast<std::int64_t>(number));
}

void MemoryRows::AddDate(Date date) {
  Add(Kind::kDate, std::bit_cast<std::int64_t>(date.serial));
}

void MemoryRows::AddPiece(Kind kind, const char* bytes, std::size_t size) {
  const auto begin = static_cast<std::int64_t>(bytes_.size());
  bytes_.insert(bytes_.end(), bytes, bytes + size);
  Add(kind, begin, size);
}

void MemoryRows::AddText(std::string_view text) {
  if (IsValidUtf8(text)) {
    AddPiece(Kind::kText, text.data(), text.size());
  } else {
    const std::string valid = ValidUtf8(text);
    AddPiece(Kind::kText, valid.data(), valid.size());
  }
}

void MemoryRows::AddBytes(const void* bytes, std::size_t size) {
  AddPiece(Kind::kBytes, static_cast<const char*>(bytes), size);
}

void MemoryRows::Add(const Value& value) {
  struct Adder {
    MemoryRows& rows;
    void operator()(Null) const { rows.AddNull(); }
    void operator()(bool flag) const { rows.AddFlag(flag); }
    void operator()(std::int64_t number) const { rows.AddInteger(number); }
    void operator()(double number) const { rows.AddReal(number); }
    void operator()(const std::string& text) const {
      rows.AddPiece(Kind::kText, text.data(), text.size());
    }
    void operator()(Date date) const { rows.AddDate(date); }
    void operator()(const Bytes& bytes) const { rows.AddBytes(bytes.data(), bytes.size()); }
  };
  std::visit(Adder{*this}, value);
}

void MemoryRows::Read(std::size_t row, std::size_t column, Value& value) const {
  const Cell& cell = cells_[row * columns_->Size() + column];
  const auto piece = [&] {
    return std::string_view(bytes_.data() + cell.bits, static_cast<std::size_t>(cell.length));
  };
  switch (static_cast<Kind>(cell.kind)) {
    case Kind::kNull:
      value = Null{};
      return;
    case Kind::kFlag:
      value = cell.bits != 0;
      return;
    case Kind::kInteger:
      value = cell.bits;
      return;
    case Kind::kReal:
      value = std::bit_cast<double>(cell.bits);
      return;
    case Kind::kDate:
      value = Date{std::bit_cast<double>(cell.bits)};
      return;
    case Kind::kText:
      if (auto* text = std::get_if<std::string>(&value)) {
        text->assign(piece());
      } else {
        value.emplace<std::string>(piece());
      }
      return;
    case Kind::kBytes: {
      const auto* begin = reinterpret_cast<const std::byte*>(piece().data());
      value.emplace<Bytes>(begin, begin + cell.length);
      return;
    }
  }
}

}  // namespace td
