// What two traces do differently, in short lines.
#pragma once

#include <string>
#include <vector>

#include "trace.h"

namespace td {

using ShortTrace = std::vector<std::string>;

// Neighbouring lines that only one of two traces has, the one's and the other's.
struct Hunk {
  ShortTrace one;
  ShortTrace other;
  bool operator==(const Hunk&) const = default;
};

// A trace with one short line for each step: "band 3" for the query of a band's items, "band 3
// lines" for that of its lines alone, "place 100,1300" for the font and the point that come before
// a text (with the font, if it is none of the defaults of Scenario::Item), "TextBox 甲 100,1300"
// and so on for calls, "OnNewPage" for events, "put MarginLeft 0" for properties. A band with a
// single text is one line, "band 3: 甲 100,1300". What only names the window or the entry point is
// left out of "show", "unload" and "after".
ShortTrace Shortened(const Trace& trace);

// The hunks of the shortest way from one trace to the other.
std::vector<Hunk> Differences(const ShortTrace& one, const ShortTrace& other);

}  // namespace td
