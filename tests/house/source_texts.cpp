#include "source_texts.h"

#include <fstream>
#include <sstream>

namespace td {
namespace {

namespace fs = std::filesystem;

std::string ContentOf(const fs::path& path) {
  std::stringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

// Takes a source apart. A statement ends at a semicolon, and at a brace that ends its line or
// begins it; others belong to values.
class Reader {
 public:
  Reader(std::string source, std::string file)
      : source_(std::move(source)), file_(std::move(file)) {}

  std::vector<SourceText> Read() {
    while (at_ < source_.size()) {
      if (StartsWith("//")) {
        at_ = source_.find('\n', at_);
      } else if (StartsWith("/*")) {
        at_ = std::min(source_.size(), source_.find("*/", at_) + 2);
      } else if (StartsWith("R\"")) {
        ReadRaw();
      } else if (source_[at_] == '"') {
        ReadText();
      } else if (source_[at_] == '\'') {
        at_ += source_[at_ + 1] == '\\' ? 4 : 3;
      } else {
        ReadOther();
      }
    }
    EndStatement();
    return std::move(found_);
  }

 private:
  [[nodiscard]] bool StartsWith(const char* what) const {
    return source_.compare(at_, std::string_view(what).size(), what) == 0;
  }

  void ReadRaw() {
    const std::size_t open = source_.find('(', at_);
    const std::string close = ")" + source_.substr(at_ + 2, open - at_ - 2) + "\"";
    const std::size_t end = source_.find(close, open);
    Add(source_.substr(open + 1, end - open - 1));
    at_ = end + close.size();
  }

  void ReadText() {
    std::string text;
    for (++at_; source_[at_] != '"'; ++at_) {
      if (source_[at_] != '\\') {
        text += source_[at_];
        continue;
      }
      ++at_;
      text += source_[at_] == 'n' ? '\n' : source_[at_];
    }
    ++at_;
    Add(text);
  }

  void ReadOther() {
    const char c = source_[at_];
    if (c == ';' || (c == '{' && EndsLine()) || (c == '}' && BeginsLine())) {
      EndStatement();
    } else {
      statement_ += c;
      const bool isBlank = c == ' ' || c == '\n';
      isBesideText_ = isBesideText_ && isBlank;
    }
    ++at_;
  }

  [[nodiscard]] bool EndsLine() const {
    const std::size_t next = source_.find_first_not_of(' ', at_ + 1);
    return next == source_.npos || source_[next] == '\n' || source_.compare(next, 2, "//") == 0;
  }
  [[nodiscard]] bool BeginsLine() const {
    const std::size_t before = at_ == 0 ? source_.npos : source_.find_last_not_of(' ', at_ - 1);
    return before == source_.npos || source_[before] == '\n';
  }

  void Add(const std::string& text) {
    if (isBesideText_) {
      texts_.back() += text;
    } else {
      texts_.push_back(text);
    }
    isBesideText_ = true;
  }

  void EndStatement() {
    for (std::string& text : texts_) found_.push_back({std::move(text), statement_, file_});
    texts_.clear();
    statement_.clear();
    isBesideText_ = false;
  }

  std::string source_;
  std::string file_;
  std::size_t at_ = 0;
  std::string statement_;  // so far, without its texts
  std::vector<std::string> texts_;
  bool isBesideText_ = false;
  std::vector<SourceText> found_;
};

}  // namespace

std::vector<SourceText> TextsOf(const fs::path& project, const std::string& folder) {
  std::vector<SourceText> all;
  for (const auto& entry : fs::recursive_directory_iterator(project / folder)) {
    const fs::path& path = entry.path();
    if (path.extension() != ".cpp" && path.extension() != ".h") continue;
    const std::string file = path.lexically_relative(project).string();
    for (SourceText& text : Reader(ContentOf(path), file).Read()) all.push_back(std::move(text));
  }
  return all;
}

}  // namespace td
