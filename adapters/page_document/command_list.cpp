#include "page_document/command_list.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace td {
namespace {

enum class Kind : std::uint8_t { kBox, kLine, kRare };

// Places and sizes are mostly whole twips, which single precision holds.
bool FitsSingle(double number) {
  return static_cast<double>(static_cast<float>(number)) == number;
}

template <typename Number>
void Append(std::vector<char>& bytes, Number number) {
  std::array<char, sizeof(Number)> raw{};
  std::memcpy(raw.data(), &number, raw.size());
  bytes.insert(bytes.end(), raw.begin(), raw.end());
}

template <typename Number>
Number Take(const char*& at) {
  Number number{};
  std::memcpy(&number, at, sizeof(Number));
  at += sizeof(Number);
  return number;
}

// Numbers, behind a byte with a bit for each that needs double precision.
template <std::size_t count>
void AppendNumbers(std::vector<char>& bytes, const std::array<double, count>& numbers) {
  unsigned wide = 0;
  for (std::size_t i = 0; i < count; ++i) {
    if (!FitsSingle(numbers[i])) wide |= 1U << i;
  }
  Append(bytes, static_cast<std::uint8_t>(wide));
  for (const double number : numbers) {
    if (FitsSingle(number)) {
      Append(bytes, static_cast<float>(number));
    } else {
      Append(bytes, number);
    }
  }
}

template <std::size_t count>
std::array<double, count> TakeNumbers(const char*& at) {
  const unsigned wide = Take<std::uint8_t>(at);
  std::array<double, count> numbers{};
  for (std::size_t i = 0; i < count; ++i) {
    numbers[i] = (wide >> i & 1U) != 0 ? Take<double>(at) : Take<float>(at);
  }
  return numbers;
}

}  // namespace

CommandList::CommandList(const std::vector<DrawingCommand>& commands) {
  for (const DrawingCommand& command : commands) push_back(command);
}

DrawingCommand CommandList::operator[](std::size_t index) const {
  return *std::next(begin(), static_cast<std::ptrdiff_t>(index));
}

std::size_t CommandList::AddText(const PointText& text) {
  emplace_back(text);
  return rare_.size() - 1;
}

void CommandList::ShrinkToFit() {
  bytes_.shrink_to_fit();
  fonts_.shrink_to_fit();
  rare_.shrink_to_fit();
}

std::uint32_t CommandList::FontNumber(const FontRef& font) {
  auto found = std::ranges::find(fonts_, font);
  if (found == fonts_.end()) found = fonts_.insert(found, font);
  return static_cast<std::uint32_t>(found - fonts_.begin());
}

void CommandList::Add(const BoxText& text) {
  constexpr unsigned kWordWrap = 0x80;
  Append(bytes_, Kind::kBox);
  Append(bytes_, static_cast<std::uint8_t>(static_cast<unsigned>(text.alignment) |
                                           (text.wordWrap ? kWordWrap : 0U)));
  Append(bytes_, FontNumber(text.font));
  AppendNumbers(bytes_, std::array{text.left, text.top, text.width, text.height});
  Append(bytes_, static_cast<std::uint32_t>(text.text.size()));
  bytes_.insert(bytes_.end(), text.text.begin(), text.text.end());
}

void CommandList::Add(const Line& line) {
  Append(bytes_, Kind::kLine);
  AppendNumbers(bytes_, std::array{line.x1, line.y1, line.x2, line.y2, line.penWidth});
}

void CommandList::AddRare(Rare command) {
  Append(bytes_, Kind::kRare);
  Append(bytes_, static_cast<std::uint32_t>(rare_.size()));
  rare_.push_back(std::move(command));
}

std::size_t CommandList::Read(std::size_t begin, DrawingCommand& command) const {
  constexpr unsigned kAlignment = 0x7F;
  const char* at = bytes_.data() + begin;
  switch (Take<Kind>(at)) {
    case Kind::kBox: {
      BoxText* const old = std::get_if<BoxText>(&command);
      BoxText& text = old != nullptr ? *old : command.emplace<BoxText>();
      const unsigned flags = Take<std::uint8_t>(at);
      text.alignment = static_cast<TextAlignment>(flags & kAlignment);
      text.wordWrap = flags > kAlignment;
      const FontRef& font = fonts_[Take<std::uint32_t>(at)];
      if (text.font != font) text.font = font;
      const auto numbers = TakeNumbers<4>(at);
      text.left = numbers[0];
      text.top = numbers[1];
      text.width = numbers[2];
      text.height = numbers[3];
      const auto length = Take<std::uint32_t>(at);
      text.text.assign(at, length);
      at += length;
      break;
    }
    case Kind::kLine: {
      const auto numbers = TakeNumbers<5>(at);
      command = Line{numbers[0], numbers[1], numbers[2], numbers[3], numbers[4]};
      break;
    }
    case Kind::kRare: {
      const Rare& rare = rare_[Take<std::uint32_t>(at)];
      std::visit([&command](const auto& drawn) { command = drawn; }, rare);
      break;
    }
  }
  return static_cast<std::size_t>(at - bytes_.data());
}

CommandList::Iterator& CommandList::Iterator::operator++() {
  at_ = next_;
  if (at_ < list_->bytes_.size()) next_ = list_->Read(at_, command_);
  return *this;
}

}  // namespace td
