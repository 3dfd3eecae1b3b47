// Scan and guides of a format, kept on this machine beside it.
#pragma once

#include <string>

#include "designer/sheet/sheet_aids.h"

namespace td::designer {

// Two files of one format of one database, for the user alone: the scan's picture and what is known
// of it. Their names say nothing, and they hold no connection text.
class AidsFile {
 public:
  // `folder` is made when something is written; the others tell whose files they are.
  AidsFile(std::string folder, const std::string& connection, int billType,
           const std::string& format);

  // Without files, or with such that can't be read any more, there are no aids.
  [[nodiscard]] SheetAids Read() const;

  // Both fail with Failure. The picture is large and changes seldom.
  void WritePlaces(const SheetAids& aids) const;
  void WritePicture(const SheetAids& aids) const;
  void Remove() const;

 private:
  std::string folder_;
  std::string name_;
};

}  // namespace td::designer
