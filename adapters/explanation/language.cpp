#include "explanation/language.h"

namespace td {

std::string FillPlaces(std::string_view sentence, const std::string_view* texts,
                       std::size_t count) {
  std::string filled;
  for (std::size_t i = 0; i < sentence.size(); ++i) {
    const bool isPlace = sentence[i] == '{' && i + 2 < sentence.size() && sentence[i + 2] == '}';
    const std::size_t place = isPlace ? static_cast<std::size_t>(sentence[i + 1] - '0') : count;
    if (place >= count) {
      filled += sentence[i];
      continue;
    }
    filled += texts[place];
    i += 2;
  }
  return filled;
}

}  // namespace td
