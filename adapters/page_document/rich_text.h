// Rich text as lines of text runs.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "page_document/drawing.h"

namespace td {

// Reads rich text (RTF): its characters in UTF-8, its lines, and of its formatting bold, italic and
// the size; the rest of each font is that of `base`. Text that is no RTF is plain text. `share`
// makes the reference to a font. Damaged RTF gives what could be read of it.
std::vector<TextLine> ReadRichText(std::string_view rtf, const TextFont& base,
                                   const std::function<FontRef(const TextFont&)>& share);

// Plain text as lines of one run each, broken at \r\n, \r and \n. A break at the end begins no
// line; the empty text is one empty line.
std::vector<TextLine> ReadPlainText(std::string_view text, const FontRef& font);

}  // namespace td
