// Page and row of a running print, shown on standard error to a person who watches a terminal.
#pragma once

#include "platform/database.h"

namespace td {

class Progress {
 public:
  // Shows nothing when standard error is no terminal.
  Progress();
  // Wipes the line.
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void PageFinished(int page);
  void RowReached(int row);

  // The rows, reported as the cursor moves over them; clones are not reported. The progress must
  // outlive the result.
  RecordsetRef Watch(RecordsetRef rows);

 private:
  void Show();

  bool shown_;
  int page_ = 1;
  int row_ = 1;
};

}  // namespace td
