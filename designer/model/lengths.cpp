#include "designer/model/lengths.h"

#include <algorithm>
#include <cmath>

namespace td::designer {

double StoredTwips(double twips) {
  return std::round(twips * 100) / 100;
}

Box Around(const Box& one, const Box& other) {
  const double left = std::min(one.left, other.left);
  const double top = std::min(one.top, other.top);
  return {left, top, std::max(one.Right(), other.Right()) - left,
          std::max(one.Bottom(), other.Bottom()) - top};
}

}  // namespace td::designer
