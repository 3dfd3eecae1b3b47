#include "sample_sql_command.h"

#include <sstream>

#include "complaint.h"
#include "files/file_error.h"
#include "files/output_file.h"
#include "platform/failure.h"
#include "sample_files.h"
#include "sample_script.h"

namespace td {
namespace {

std::string ScriptFor(const SampleSqlArguments& arguments) {
  const SampleDatabase sample = OpenSampleDatabase(FindSamples(arguments.samples));
  std::ostringstream script;
  WriteSampleScript(sample.get(), ScriptEngineNamed(arguments.engine).value(), arguments.onlySchema,
                    script);
  return script.str();
}

}  // namespace

ExitStatus WriteSampleSql(const SampleSqlArguments& arguments) {
  const std::string out = arguments.out.empty() ? kStandardOutput : arguments.out;
  try {
    WriteOutput(out, WriterOf(ScriptFor(arguments)));
    return ExitStatus::kPrinted;
  } catch (const FileError& error) {
    Complain("the script wasn't written", out + ": " + error.what());
    return ExitStatus::kNotPrinted;
  } catch (const Failure& failure) {
    Complain("the script wasn't written", failure.Description());
    return ExitStatus::kNotPrinted;
  }
}

}  // namespace td
