#include "arguments.h"
#include "demo_command.h"
#include "dialog_commands.h"
#include "print_command.h"
#include "registration_commands.h"
#include "sample_sql_command.h"

namespace {

struct Runner {
  td::ExitStatus operator()(const td::PrintArguments& arguments) const {
    return td::PrintBills(arguments);
  }
  td::ExitStatus operator()(const td::DemoArguments& arguments) const {
    return td::MakeDemo(arguments);
  }
  td::ExitStatus operator()(const td::SettingsArguments& arguments) const {
    return td::ShowSettings(arguments);
  }
  td::ExitStatus operator()(const td::AreaPrintersArguments& arguments) const {
    return td::ShowAreaPrinters(arguments);
  }
  td::ExitStatus operator()(const td::SampleSqlArguments& arguments) const {
    return td::WriteSampleSql(arguments);
  }
  td::ExitStatus operator()(const td::RegisterArguments& arguments) const {
    return td::RegisterModule(arguments);
  }
  td::ExitStatus operator()(const td::UnregisterArguments& arguments) const {
    return td::UnregisterModule(arguments);
  }
  td::ExitStatus operator()(td::ExitStatus status) const { return status; }
};

}  // namespace

int main(int argc, char** argv) {
  return static_cast<int>(std::visit(Runner{}, td::ParseArguments(argc, argv)));
}
