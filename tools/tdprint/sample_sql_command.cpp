#include "sample_sql_command.h"

#include <fstream>
#include <iostream>

#include "complaint.h"
#include "platform/failure.h"
#include "sample_files.h"
#include "sample_script.h"

namespace td {
namespace {

void Write(const SampleSqlArguments& arguments) {
  const SampleDatabase sample = OpenSampleDatabase(FindSamples(arguments.samples));
  std::ofstream file;
  if (!arguments.out.empty()) file.open(arguments.out, std::ios::binary);
  std::ostream& out = arguments.out.empty() ? std::cout : file;
  WriteSampleScript(sample.get(), ScriptEngineNamed(arguments.engine).value(), arguments.onlySchema,
                    out);
  out.flush();
  if (!out) throw Failure(kPathNotFound, arguments.out + " can't be written");
}

}  // namespace

ExitStatus WriteSampleSql(const SampleSqlArguments& arguments) {
  try {
    Write(arguments);
    return ExitStatus::kPrinted;
  } catch (const Failure& failure) {
    Complain("the script wasn't written", failure.Description());
    return ExitStatus::kNotPrinted;
  }
}

}  // namespace td
