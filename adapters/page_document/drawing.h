// The pages that every output draws.
#pragma once

#include <cstdint>

#include "page_document/command_list.h"
#include "page_document/paper.h"
#include "platform/print_surface.h"

namespace td {

// A page keeps the sheet under which it began, whatever the document's paper is afterwards.
struct Page {
  double width = 0;
  double height = 0;
  CommandList commands;  // later ones lie on top
  std::int32_t paperCode = kUserDefinedPaper;
  bool landscape = false;  // it lies across its sheet

  // The sheet as it is fed, upright.
  [[nodiscard]] PaperExtent Sheet() const {
    return landscape ? PaperExtent{height, width} : PaperExtent{width, height};
  }
};

}  // namespace td
