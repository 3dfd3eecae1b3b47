// The format that a window has open, and the tables that it comes from: opening, saving, what is
// asked before something would be lost.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "designer/model/format_store.h"
#include "designer/model/recovery_file.h"
#include "designer/view/workspace.h"

class QWidget;

namespace td::designer {

struct SessionSetup {
  TransactionalDatabase& database;
  std::string connection;
  int billType = 0;
  std::string stateFolder;  // of the recovery files
};

// What has become of the format that was open before.
enum class Opened {
  kAnother,  // it was left
  kSaved,    // it is the same, perhaps in the tables for the first time
  kCopied,
  kRenamed,
};

// Every failure is shown on the window, and leaves the format as it was.
class FormatSession {
 public:
  // Workspace and window outlive the session. `opened` is called when another format is open, or
  // the same was saved.
  FormatSession(SessionSetup setup, Workspace& workspace, QWidget& window,
                std::function<void(Opened)> opened);

  [[nodiscard]] const SessionSetup& Setup() const { return setup_; }
  [[nodiscard]] FormatStore& Store() { return store_; }
  // Under which name the tables have the format; empty for one that they don't have.
  [[nodiscard]] std::string StoredName() const;

  // The format of a name; without one the selected format of the bill type, or the first, or a new
  // one if there is none. False if it couldn't be loaded.
  bool Open(const std::string& name);
  // A format that is in no table yet, without any question.
  void Begin(const std::string& name);

  // Each asks what it needs to know. True if it was done.
  bool OpenAnother();
  bool New();
  bool Save();
  bool Copy();
  bool Rename();
  bool Delete();
  bool Select();
  // Takes up a format of a file as a new one.
  bool Adopt(Format format);

  // Whether what isn't saved may go: saved on the way if the user wants it.
  [[nodiscard]] bool MayLeave();

  // To be called often: writes the recovery file when it is time.
  void KeepRecovery();

 private:
  void Show(Format format, Opened opened = Opened::kAnother);
  void OfferRecovery();
  bool Attempt(const std::function<void()>& action);
  bool SaveAs(Format base, Format wanted, OnConflict onConflict);
  bool ResolveConflict(const Conflict& conflict);
  [[nodiscard]] bool KeepsWaiting();
  [[nodiscard]] std::optional<std::string> UnusedName(const QString& question,
                                                      const std::string& suggested);
  [[nodiscard]] RecoveryFile RecoveryOf(const std::string& name) const;

  SessionSetup setup_;
  Workspace& workspace_;
  QWidget& window_;
  std::function<void(Opened)> opened_;
  FormatStore store_;
  std::optional<RecoveryFile> recovery_;
  std::unique_ptr<QWidget> waiting_;  // while a lock is waited for
  bool hasGivenUp_ = false;
  bool isKeepingTold_ = false;  // that recovery files can't be written
};

}  // namespace td::designer
