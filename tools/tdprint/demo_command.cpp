#include "demo_command.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <string>

#include "complaint.h"
#include "files/file_error.h"
#include "files/path_text.h"
#include "page_outputs/document_files.h"
#include "platform/failure.h"
#include "print_command.h"
#include "sample_files.h"

namespace td {
namespace {

namespace fs = std::filesystem;

PrintArguments ArgumentsFor(const SamplePrint& sample, const fs::path& database) {
  PrintArguments arguments;
  arguments.database = "sqlite:" + TextOf(database);
  arguments.billType = sample.billType;
  arguments.data = sample.data;
  arguments.format = sample.format;
  arguments.onlyVariant = sample.onlyVariant;
  arguments.blankRows = sample.blankRows;
  arguments.byArea = sample.byArea;
  return arguments;
}

// The worse of two results: nothing printed before printed with messages before printed.
ExitStatus Worse(ExitStatus one, ExitStatus other) {
  if (one == ExitStatus::kNotPrinted || other == ExitStatus::kNotPrinted) {
    return ExitStatus::kNotPrinted;
  }
  return std::max(one, other);
}

ExitStatus PrintToFiles(const SamplePrint& sample, const fs::path& out, const fs::path& database) {
  PrintArguments arguments = ArgumentsFor(sample, database);
  const std::string base = TextOf(out / PathOf(sample.name));
  if (CanWritePdf()) arguments.pdf = base + ".pdf";
  arguments.png = base;
  arguments.html = base + ".html";
  const ExitStatus status = PrintBills(arguments);
  if (status != ExitStatus::kNotPrinted) {
    std::cout << "  " << sample.name << std::endl;
  }
  return status;
}

ExitStatus PrintToPrinter(const SamplePrint& sample, const fs::path& database,
                          const std::string& printer) {
  PrintArguments arguments = ArgumentsFor(sample, database);
  arguments.printer = printer;
  const ExitStatus status = PrintBills(arguments);
  if (status != ExitStatus::kNotPrinted) {
    std::cout << sample.name << " was sent to the printer " << printer << "." << std::endl;
  }
  return status;
}

ExitStatus Demonstrate(const DemoArguments& arguments) {
  const fs::path samples = FindSamples(arguments.samples);
  const std::vector<SamplePrint> prints = ReadSamplePrints(samples);
  const fs::path out = fs::absolute(PathOf(arguments.out));
  fs::create_directories(out);
  const fs::path database = out / "sample.db";
  MakeSampleDatabase(samples, database);
  std::cout << "The sample database: " << TextOf(database) << "\nThe printed bills, each as "
            << (CanWritePdf() ? "NAME.pdf, " : "")
            << "NAME.html and NAME/page-001.png and so on, in " << TextOf(out) << ":" << std::endl;

  ExitStatus status = ExitStatus::kPrinted;
  for (const SamplePrint& sample : prints) {
    status = Worse(status, PrintToFiles(sample, out, database));
  }
  if (!prints.empty() && !arguments.printer.empty()) {
    status = Worse(status, PrintToPrinter(prints.front(), database, arguments.printer));
  }
  return status;
}

}  // namespace

ExitStatus MakeDemo(const DemoArguments& arguments) {
  try {
    return Demonstrate(arguments);
  } catch (const Failure& failure) {
    Complain("the demo failed", failure.Description());
  } catch (const fs::filesystem_error& failure) {
    Complain("the demo failed", TextOf(failure.path1()) + ": " +
                                    ReasonOf(failure.code().default_error_condition().value()));
  }
  return ExitStatus::kNotPrinted;
}

}  // namespace td
