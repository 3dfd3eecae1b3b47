#include "page_outputs/export_file.h"

#include "page_outputs/document_files.h"
#include "page_outputs/export_folder.h"
#include "platform/failure.h"

namespace td {

std::string FileNameOf(const std::string& path) {
  const std::size_t separator = path.find_last_of("/\\:");
  return separator == std::string::npos ? path : path.substr(separator + 1);
}

void ExportDocument(const PageDocument& document, const std::string& file, std::int32_t format,
                    const std::string& folder) {
  if (format != kExportHtml) {
    throw Failure(kInvalidCall, "不支持的导出格式：" + std::to_string(format));
  }
  const std::string place = folder.empty() ? DefaultStateFolder() : folder;
  if (place.empty()) throw Failure(kPathNotFound, "找不到用户的文件夹，无法保存导出文件。");
  const std::string name = FileNameOf(file);
  WritePrivateFile(place, name,
                   [&](const ByteSink& sink) { StreamHtml(document.Pages(), name, sink); });
}

}  // namespace td
