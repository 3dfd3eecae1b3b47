// Options of a command from a file, so that a print can be kept and opened like a document.
//
//   # the open sales orders
//   db = sqlite:/srv/shop/shop.db
//   type = 21
//   data = select * from v_sales_order where FInterID=21002
//   only-variant
//
// One option a line, by its long name without the dashes. The value is the rest of the line as it
// stands, without the blanks around it: statements need no quoting. Empty lines and lines that
// begin with # are skipped. What is given on the command line counts, not what the file says of it.
#pragma once

namespace CLI {
class App;
}

namespace td {

// Adds the option --config to a command. Must be called before any other option is added: CLI11
// takes the options in the order in which they were added, and this one gives values to the others.
// Options that are marked as not configurable can't be given in the file.
void AddOptionsFile(CLI::App& command);

}  // namespace td
