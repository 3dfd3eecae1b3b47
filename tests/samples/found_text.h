// Finds a text of a format among the words of a printed page.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "expected_pages.h"
#include "printed_document.h"

namespace td {

constexpr double kTolerance = 0.1 * 1440 / 25.4;  // twips

double CentreX(const Area& area);
double CentreY(const Area& area);

// Without all blanks, the wide blank of Chinese texts included.
std::string WithoutBlanks(std::string text);

// The words that make up a text that stands where it should, from left to right: a reader parts a
// text at blanks, and where the font of the letters takes over from that of the characters. The
// height is right within a tenth of the font's size.
std::optional<std::vector<PrintedWord>> FindText(const PrintedPage& page,
                                                 const PlacedText& expected);

// All that is written inside an area, from top to bottom and left to right, without blanks.
std::string TextInside(const PrintedPage& page, const Area& area);

// Compares how high the words stand in their boxes: characters in the middle, letters and figures,
// whose font has another height, on one base line with them.
class BaseLines {
 public:
  void Add(const PlacedText& expected, const PrintedWord& word);
  // What stands too high or too low; empty if nothing does.
  [[nodiscard]] std::string Uneven() const;

 private:
  struct Deviation {
    std::string text;
    double twips = 0;
  };
  std::map<std::string, std::vector<Deviation>> byFace_;
};

}  // namespace td
