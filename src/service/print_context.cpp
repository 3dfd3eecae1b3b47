#include "service/print_context.h"

namespace td {

PrintContext& Context() {
  static PrintContext context;
  return context;
}

}  // namespace td
