// What the parts of one execution of DoPrinting hand to each other.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/run_witness.h"
#include "policy/error_policy.h"
#include "state/print_window.h"
#include "store/query.h"

namespace td {

struct PrintRun {
  PrintWindow& window;
  const Guard& guard;
  Query& paper;  // the machine's paper row; the report of a refused printer reads it, too

  const WindowKind& kind = window.kind;
  PrintContext& request = window.request;
  RunState& state = window.state;
  PrintSurface& vp = window.vp;
  RunWitness* witness = window.platform.witness;

  // A column of the current row.
  [[nodiscard]] const Value& Data(std::string_view column) const {
    return ReadColumn(witness, *request.PrintData, column);
  }

  // NoTax and Tax of the last row whose price and quantity could be read.
  double NoTax = 0;
  double Tax = 0;
  std::int16_t blankRowsDue = 0;  // on the first page, when the document opens
};

}  // namespace td
