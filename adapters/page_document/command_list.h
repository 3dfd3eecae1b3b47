// The drawing commands of a page, packed: a long document is held in memory whole.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <variant>
#include <vector>

#include "page_document/commands.h"

namespace td {

// A list that is added to and read from its beginning. Texts in boxes and lines, of which a page
// may have a thousand, lie one behind the other in one block; a command is unpacked while it is
// read.
class CommandList {
 public:
  CommandList() = default;
  CommandList(const std::vector<DrawingCommand>& commands);  // NOLINT: a list is a list

  [[nodiscard]] std::size_t size() const { return count_; }
  [[nodiscard]] bool empty() const { return count_ == 0; }

  template <typename Command>
  void emplace_back(const Command& command) {
    Add(command);
    ++count_;
  }
  void emplace_back(const DrawingCommand& command) {
    std::visit([this](const auto& drawn) { emplace_back(drawn); }, command);
  }
  void push_back(const DrawingCommand& command) { emplace_back(command); }

  // Adds a text that may still grow; the number is for TextAt, which is good until more is added.
  std::size_t AddText(const PointText& text);
  [[nodiscard]] PointText& TextAt(std::size_t number) { return std::get<PointText>(rare_[number]); }

  // A command by its number: walks from the beginning.
  [[nodiscard]] DrawingCommand operator[](std::size_t index) const;
  [[nodiscard]] DrawingCommand back() const { return (*this)[count_ - 1]; }

  // Gives up the room for more commands.
  void ShrinkToFit();

  // The command that it stands on is good until the iterator moves.
  class Iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = DrawingCommand;
    using difference_type = std::ptrdiff_t;
    using pointer = const DrawingCommand*;
    using reference = const DrawingCommand&;

    Iterator(const CommandList& list, std::size_t at) : list_(&list), next_(at) { ++*this; }
    explicit Iterator(const CommandList& list) : list_(&list), at_(list.bytes_.size()) {}
    const DrawingCommand& operator*() const { return command_; }
    const DrawingCommand* operator->() const { return &command_; }
    Iterator& operator++();
    bool operator==(const Iterator& other) const { return at_ == other.at_; }

   private:
    const CommandList* list_;
    std::size_t at_ = 0;
    std::size_t next_ = 0;  // where the command behind begins
    DrawingCommand command_;
  };
  [[nodiscard]] Iterator begin() const { return {*this, 0}; }
  [[nodiscard]] Iterator end() const { return Iterator(*this); }

 private:
  using Rare = std::variant<PointText, PlacedPicture>;

  void Add(const BoxText& text);
  void Add(const Line& line);
  void Add(const PointText& text) { AddRare(text); }
  void Add(const PlacedPicture& placed) { AddRare(placed); }
  void AddRare(Rare command);
  std::uint32_t FontNumber(const FontRef& font);
  // Unpacks the command at a place; returns the place behind it.
  std::size_t Read(std::size_t at, DrawingCommand& command) const;

  std::vector<char> bytes_;
  std::vector<FontRef> fonts_;
  std::vector<Rare> rare_;
  std::size_t count_ = 0;
};

}  // namespace td
