#include "qt/preview/window_font.h"

#include "qt/render/fonts.h"

namespace td {

QFont FontWithFamilies(QFont font, const std::string& name) {
  font.setFamilies(FontTable::Instance().Families(name));
  return font;
}

QFont FontWithChinese(QFont font) {
  font.setFamilies(font.families() + FontTable::Instance().Families("黑体"));
  return font;
}

}  // namespace td
