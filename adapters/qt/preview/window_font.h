// Fonts of the component's windows.
#pragma once

#include <QFont>
#include <string>

namespace td {

// A font in the families that stand for a name of a stored format, such as 宋体.
[[nodiscard]] QFont FontWithFamilies(QFont font, const std::string& name);

// The user's font, with 黑体 for the Chinese characters if it has none of its own: the system's
// choice among all installed fonts would be an arbitrary one.
[[nodiscard]] QFont FontWithChinese(QFont font);

}  // namespace td
