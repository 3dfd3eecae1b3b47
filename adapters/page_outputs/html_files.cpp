#include "page_outputs/document_files.h"
#include "page_outputs/written_file.h"

namespace td {

std::string ToHtml(const std::vector<Page>& pages, const std::string& title) {
  std::string html;
  StreamHtml(pages, title, [&html](std::string_view part) { html += part; });
  return html;
}

void WriteHtml(const std::vector<Page>& pages, const std::string& path, const std::string& title) {
  WriteFile(path, [&](const ByteSink& sink) { StreamHtml(pages, title, sink); });
}

}  // namespace td
