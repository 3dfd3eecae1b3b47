#include "format_commands.h"

#include <algorithm>
#include <iostream>
#include <optional>
#include <utility>
#include <vector>

#include "complaint.h"
#include "designer/model/format_file.h"
#include "designer/model/format_on_disk.h"
#include "designer/model/format_store.h"
#include "desktop/databases.h"
#include "files/file_error.h"
#include "files/output_file.h"
#include "platform/failure.h"

namespace td {
namespace {

using designer::Format;
using designer::FormatFile;
using designer::FormatStore;
using designer::PictureFolder;
using designer::Variable;

// Runs what may fail, with one line about the failure.
template <class Action>
ExitStatus Run(const char* whatFailed, ExitStatus failed, Action action) {
  try {
    return action();
  } catch (const Failure& failure) {
    Complain(whatFailed, failure.Description());
  } catch (const std::exception& failure) {
    Complain(whatFailed, failure.what());
  }
  return failed;
}

// What an import would do, before it does it.
struct Plan {
  Format base;    // as it stands in the tables; without an id for a format that isn't there
  Format wanted;  // as it shall stand there
  std::vector<std::string> notes;
};

std::string QuotedName(const std::string& name) {
  return "\u201C" + name + "\u201D";
}

std::optional<designer::FormatEntry> EntryNamed(const std::vector<designer::FormatEntry>& entries,
                                                const std::string& name) {
  const auto found = std::ranges::find(entries, name, &designer::FormatEntry::name);
  return found == entries.end() ? std::nullopt : std::optional(*found);
}

// A variable of the bill type stays as it is there: it names a column of that application's data.
void AddVariables(Plan& plan, const std::vector<Variable>& ofFile) {
  plan.wanted.variables = plan.base.variables;
  for (const Variable& variable : ofFile) {
    const Variable* there = FindVariable(plan.base.variables, variable.Caption());
    if (there == nullptr) {
      plan.wanted.variables.push_back(variable);
      plan.notes.push_back("variable added: " + QuotedName(variable.Caption()) + " = " +
                           variable.Name());
    } else if (there->Name() != variable.Name()) {
      plan.notes.push_back("variable kept: " + QuotedName(variable.Caption()) + " = " +
                           there->Name() + " (in the file: " + variable.Name() + ")");
    }
  }
}

// Another format's selection stays: what prints without a name is not an import's to decide.
void KeepSelection(Plan& plan, const std::vector<designer::FormatEntry>& entries) {
  const bool isSelectedThere = plan.base.row.Flag("FSelected") && !IsNull(plan.base.id);
  const bool anotherIs = std::ranges::any_of(entries, [&](const designer::FormatEntry& entry) {
    return entry.selected && entry.id != plan.base.id;
  });
  const bool wanted = plan.wanted.row.Flag("FSelected");
  if (isSelectedThere && !wanted) plan.wanted.row.PutFlag("FSelected", true);
  if (anotherIs && wanted) {
    plan.wanted.row.PutFlag("FSelected", false);
    plan.notes.emplace_back("not selected: another format of the bill type is");
  }
}

Plan MakePlan(const FormatStore& store, const ImportFormatArguments& arguments,
              const FormatFile& file) {
  const int type = arguments.billType ? *arguments.billType : file.format.BillType();
  const std::string name = arguments.format.empty() ? file.format.Name() : arguments.format;
  const std::vector<designer::FormatEntry> entries = store.List(type);
  const auto there = EntryNamed(entries, name);
  if (there && !arguments.replace) {
    throw Failure(kInvalidCall, "bill type " + std::to_string(type) + " has a format " +
                                    QuotedName(name) +
                                    " already; give another name (--format), or --replace");
  }
  Plan plan;
  plan.base = there ? store.LoadById(there->id) : store.Blank(type, name);
  plan.wanted = file.format;
  plan.wanted.id = plan.base.id;
  plan.wanted.others = plan.base.others;
  plan.wanted.row.PutNumber("FTranType", type);
  plan.wanted.row.Set("FTDBillName", name);
  KeepSelection(plan, entries);
  AddVariables(plan, file.format.variables);
  return plan;
}

void Tell(const Plan& plan, const PictureFolder& pictures, bool isDone) {
  const bool isNew = IsNull(plan.base.id);
  std::cout << (isDone ? "" : "would be ") << (isNew ? "added" : "replaced") << ": format "
            << QuotedName(plan.wanted.Name()) << " of bill type " << plan.wanted.BillType()
            << " with " << plan.wanted.items.Size() << " items\n";
  if (!isNew) {
    for (const designer::Difference& difference : DifferencesOf(plan.base, plan.wanted)) {
      if (difference.kind == designer::DifferenceKind::kVariableAdded) continue;
      std::cout << "  " << InWords(difference, false) << "\n";
    }
  }
  for (const std::string& note : plan.notes) std::cout << "  " << note << "\n";
  for (const designer::FilePicture& file : pictures.Files()) {
    std::cout << "  picture: " << file.path << "\n";
  }
}

void Write(FormatStore& store, const Plan& plan, PictureFolder& pictures) {
  Format base = plan.base;
  base.items = {};  // the ids of a file's items mean nothing to the rows of the table
  try {
    pictures.Write();
    // Over what somebody else may have changed since the plan was made: a file replaces all.
    static_cast<void>(store.Save(base, plan.wanted, designer::OnConflict::kOverwrite));
  } catch (...) {
    pictures.TakeBack();
    throw;
  }
}

}  // namespace

ExitStatus ExportFormat(const ExportFormatArguments& arguments) {
  return Run("the format wasn't written", ExitStatus::kNotPrinted, [&] {
    Databases databases;
    const FormatStore store(databases, arguments.database);
    const Format format = store.Load(arguments.billType, arguments.format);
    const std::string text = designer::WriteFormatFile(
        format, arguments.withPictures ? designer::PictureAt : designer::ReadPicture());
    const std::string out = arguments.out.empty() ? kStandardOutput : arguments.out;
    try {
      WriteOutput(out, WriterOf(text));
    } catch (const FileError& error) {
      throw Failure(kDeviceIo, out + ": " + error.what());
    }
    return ExitStatus::kPrinted;
  });
}

ExitStatus ImportFormat(const ImportFormatArguments& arguments) {
  return Run("the format wasn't imported", ExitStatus::kNotPrinted, [&] {
    FormatFile file = designer::LoadFormatFile(arguments.file);
    Databases databases;
    FormatStore store(databases, arguments.database);
    PictureFolder pictures(arguments.pictures);
    if (!arguments.pictures.empty()) pictures.Place(file);
    const Plan plan = MakePlan(store, arguments, file);
    if (!arguments.dryRun) Write(store, plan, pictures);
    Tell(plan, pictures, !arguments.dryRun);
    return ExitStatus::kPrinted;
  });
}

ExitStatus DiffFormats(const DiffFormatArguments& arguments) {
  return Run("not compared", ExitStatus::kWrongUsage, [&] {
    const FormatFile first = designer::LoadFormatFile(arguments.first);
    const FormatFile second = designer::LoadFormatFile(arguments.second);
    const auto differences = DifferencesOf(first.format, second.format);
    for (const designer::Difference& difference : differences) {
      std::cout << InWords(difference, false) << "\n";
    }
    bool isEqual = differences.empty();
    const auto named = [](const FormatFile& file, const std::string& path) {
      return std::ranges::find(file.pictures, path, &designer::FilePicture::path);
    };
    for (const designer::FilePicture& picture : first.pictures) {
      const auto other = named(second, picture.path);
      if (other != second.pictures.end() && other->bytes == picture.bytes) continue;
      std::cout << (other == second.pictures.end() ? "picture removed: " : "picture: ")
                << picture.path << "\n";
      isEqual = false;
    }
    for (const designer::FilePicture& picture : second.pictures) {
      if (named(first, picture.path) != first.pictures.end()) continue;
      std::cout << "picture added: " << picture.path << "\n";
      isEqual = false;
    }
    return isEqual ? ExitStatus::kPrinted : ExitStatus::kNotPrinted;
  });
}

}  // namespace td
