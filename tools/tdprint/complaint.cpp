#include "complaint.h"

#include <algorithm>
#include <iostream>

namespace td {

void Complain(const std::string& what, const std::string& why) {
  std::string line = "tdprint: " + what + ": " + why;
  std::replace(line.begin(), line.end(), '\n', ' ');
  std::cerr << line << std::endl;
}

}  // namespace td
