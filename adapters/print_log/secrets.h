// Connection texts and passwords have no place in a log.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace td {

class Secrets {
 public:
  // What a database is connected with.
  explicit Secrets(const std::string& connection);

  // The text with *** in the place of the connection text, of each password in it, and of whatever
  // stands behind a word for password and an equals sign. A password of less than four characters
  // is only found where it stands as a word.
  [[nodiscard]] std::string Mask(std::string_view text) const;

 private:
  std::vector<std::string> secrets_;  // the longest first
};

}  // namespace td
