#include "arguments.h"
#include "run_command.h"
#include "standard_streams.h"

int main(int argc, char** argv) {
  td::PrepareStandardStreams();
  return static_cast<int>(td::RunCommand(td::ParseArguments(argc, argv)));
}
