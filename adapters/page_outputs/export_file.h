// The export file of a document.
#pragma once

#include <cstdint>
#include <string>

#include "page_document/page_document.h"

namespace td {

// The name that a path of any system ends with: "订单.html" of "c:\订单.html".
[[nodiscard]] std::string FileNameOf(const std::string& path);

// Writes the document under the last part of `file` into a folder; empty: DefaultStateFolder().
// Fails with kInvalidCall for any other format than kExportHtml, and as WritePrivateFile does.
void ExportDocument(const PageDocument& document, const std::string& file, std::int32_t format,
                    const std::string& folder);

}  // namespace td
