#include "format_commands.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iostream>
#include <optional>
#include <utility>
#include <vector>

#include "complaint.h"
#include "designer/model/format_file.h"
#include "designer/model/format_store.h"
#include "desktop/databases.h"
#include "files/file_error.h"
#include "files/output_file.h"
#include "files/path_text.h"
#include "files/user_files.h"
#include "platform/failure.h"

namespace td {
namespace {

namespace fs = std::filesystem;
using designer::Format;
using designer::FormatFile;
using designer::FormatStore;
using designer::Variable;

constexpr std::size_t kLargestFile = std::size_t{256} << 20U;

std::string ContentOf(const std::string& path) {
  try {
    std::optional<std::string> content = ReadUserFile(PathOf(path), kLargestFile);
    if (!content) throw FileError(ENOENT);
    return std::move(*content);
  } catch (const FileError& error) {
    throw Failure(kFileNotFound, path + ": " + error.what());
  }
}

FormatFile ReadFile(const std::string& path) {
  const std::string content = ContentOf(path);
  try {
    return designer::ReadFormatFile(content);
  } catch (const Failure& failure) {
    throw Failure(failure.Number(), path + ": " + failure.Description());
  }
}

std::optional<Bytes> PictureAt(const std::string& path) {
  const std::string content = ContentOf(path);
  const auto* begin = reinterpret_cast<const std::byte*>(content.data());
  return Bytes(begin, begin + content.size());
}

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

// Where each picture of a file goes: its own name in the folder, with a number where another
// picture has the name already. What has the same content is the same picture.
class PictureFolder {
 public:
  explicit PictureFolder(std::string folder) : folder_(std::move(folder)) {}

  // Changes the paths of the items to the files that Write will make.
  void Place(FormatFile& file) {
    for (const designer::FilePicture& picture : file.pictures) {
      const std::string path = FreePath(picture);
      files_.push_back({path, picture.bytes});
      for (std::size_t i = 0; i < file.format.items.Size(); ++i) {
        if (file.format.items[i].row.Text("FPicturePath") == picture.path) {
          file.format.items.Change(i).row.Set("FPicturePath", path);
        }
      }
    }
  }

  void Write() {
    for (const designer::FilePicture& file : files_) {
      if (HoldsAlready(file.path, file.bytes)) continue;
      written_.push_back(file.path);
      const auto* begin = reinterpret_cast<const char*>(file.bytes.data());
      try {
        WriteOutput(file.path, WriterOf({begin, file.bytes.size()}));
      } catch (const FileError& error) {
        throw Failure(kDeviceIo, file.path + ": " + error.what());
      }
    }
  }

  // Removes what Write has made, for a format that nobody has got.
  void TakeBack() const {
    for (const std::string& path : written_) {
      std::error_code ignored;
      fs::remove(PathOf(path), ignored);
    }
  }

  [[nodiscard]] const std::vector<designer::FilePicture>& Files() const { return files_; }

 private:
  static bool HoldsAlready(const std::string& path, const Bytes& bytes) {
    return fs::exists(PathOf(path)) && PictureAt(path) == bytes;
  }

  [[nodiscard]] std::string FreePath(const designer::FilePicture& picture) const {
    const std::size_t separator = picture.path.find_last_of("/\\:");
    std::string given =
        separator == std::string::npos ? picture.path : picture.path.substr(separator + 1);
    if (given.empty() || given == "." || given == "..") given = "picture";
    const fs::path name = PathOf(given);
    for (int number = 1;; ++number) {
      const std::string own = number == 1 ? given
                                          : TextOf(name.stem()) + "-" + std::to_string(number) +
                                                TextOf(name.extension());
      std::string path = TextOf((fs::absolute(PathOf(folder_)) / PathOf(own)).lexically_normal());
      const bool isTaken =
          std::ranges::any_of(files_,
                              [&](const designer::FilePicture& file) {
                                return file.path == path && file.bytes != picture.bytes;
                              }) ||
          (fs::exists(PathOf(path)) && !HoldsAlready(path, picture.bytes));
      if (!isTaken) return path;
    }
  }

  std::string folder_;
  std::vector<designer::FilePicture> files_;
  std::vector<std::string> written_;
};

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
    const auto there = std::ranges::find_if(plan.base.variables, [&](const Variable& one) {
      return one.Caption() == variable.Caption();
    });
    if (there == plan.base.variables.end()) {
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
        format, arguments.withPictures ? PictureAt : designer::ReadPicture());
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
    FormatFile file = ReadFile(arguments.file);
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
    const FormatFile first = ReadFile(arguments.first);
    const FormatFile second = ReadFile(arguments.second);
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
