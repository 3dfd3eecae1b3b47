#include "command_output.h"

#include <array>
#include <cstdio>
#include <memory>
#include <stdexcept>

namespace td {
namespace {

struct ClosePipe {
  void operator()(FILE* pipe) const { pclose(pipe); }
};

}  // namespace

std::string OutputOf(const std::string& command) {
  const std::unique_ptr<FILE, ClosePipe> pipe(popen(command.c_str(), "r"));
  if (!pipe) throw std::runtime_error(command);
  std::string output;
  std::array<char, 4096> part;
  for (std::size_t size = 0; (size = fread(part.data(), 1, part.size(), pipe.get())) > 0;) {
    output.append(part.data(), size);
  }
  return output;
}

}  // namespace td
