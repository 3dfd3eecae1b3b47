// The whole platform of a desktop machine in one object: databases, pictures, messages, the
// machine's address and the print windows. A program that embeds the component needs one line to
// get it:
//
//   td::DesktopPlatform desktop;      // keep it alive as long as anything that was given Get()
//   … desktop.Get() …
//
// Elsewhere than on Windows, the program may have a Qt application of its own, which is then used
// and kept. If it has none, one is made when the first DesktopPlatform is constructed, and lives
// until the program ends; it needs no display. Everything but the databases runs on the thread that
// constructs the object, which must be that of the Qt application, where there is one; a print call
// on another one is refused.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "explanation/explanation.h"
#include "platform/platform.h"
#include "print_calls/document_outcome.h"
#include "print_calls/kept_messages.h"

namespace td {

class PageDocument;

// Texts are UTF-8; an empty text asks for what the comment calls the default.
struct DesktopOptions {
  // Every document goes to this printer, whatever printer its format or machine has; in a preview
  // the user can still choose another one. Default: the document's own choice.
  std::string printer;

  // Takes a finished document in the place of any printer: no printer is needed then, and none is
  // used. The reference is good during the call. A Failure that it throws leaves PrintDoc.
  std::function<void(const PageDocument&)> documentSink;

  // What the sink writes to, in words: a file's path, for LastDocument().file and the log.
  std::string sinkTarget;

  MessageMode messages = MessageMode::kAutomatic;

  // The folder of the export file 订单.html. Default: the environment variable
  // QBTDPRINTER_STATE_DIR, else qbtdprinter in $XDG_STATE_HOME, else in ~/.local/state; on Windows
  // QbTdPrinter in %LOCALAPPDATA%. It is created when it is missing, for the user alone.
  std::string stateDirectory;

  // The folder whose subfolder "picture" holds the goods pictures. Default: the folder of the
  // shared library or program that holds the component.
  std::string componentFolder;

  // Called with the number of each page, from 1, when the run has finished it. An exception that it
  // throws ends the print with its words as a message, and nothing is printed.
  std::function<void(int page)> onPage;

  // How many seconds a print waits for rows and tables that other users have locked. Then it ends
  // with a message, and nothing is printed. 0 doesn't wait; nothing waits without limit. Holds for
  // `database` of Get(), too, whose failure then is no lock conflict.
  std::optional<double> lockWaitLimit;

  // Called after each try that met a lock, with the seconds of the wait so far. False ends the wait
  // as if the limit was reached; an exception does so with its words.
  std::function<bool(double seconds)> onLockWait;

  // Called when a document has gone whole to its printer, or to the sink: Printer::PrintOk is set
  // before that and stays when it fails.
  std::function<void()> onPrinted;

  // Whether LastExplanation tells what becomes of the items of the format. A print then looks each
  // column up twice.
  bool explain = false;

  // Called with what a document goes on without, in words for those who look after the machine: a
  // paper code that nobody knows, a text that no barcode can carry. Once for each text and print
  // window. Default: a line on standard error.
  std::function<void(const std::string& text)> onComplaint;

  // The file to which each print call adds a line of JSON: who printed which bills, when, where,
  // and with what result. Empty: no log. Default: the absolute path in the environment variable
  // QBTDPRINTER_LOG_FILE, else no log. Several processes may share a file.
  std::optional<std::string> logFile;

  // Called when the log can't be written, once until it can be again; the print goes on. Default: a
  // line on standard error.
  std::function<void(const std::string& text)> onLogFailure;

  // Whether print jobs make up for how their printer misses, as it was measured with
  // `tdprint calibrate` on this machine. Files and the preview never do.
  bool calibrated = true;
};

class DesktopPlatform {
 public:
  // Fails with kInvalidProperty when `options.printer` names a printer that this machine doesn't
  // have, and with kInvalidCall when the program's own Qt application can't paint text or belongs
  // to another thread.
  explicit DesktopPlatform(DesktopOptions options = {});
  ~DesktopPlatform();
  DesktopPlatform(const DesktopPlatform&) = delete;
  DesktopPlatform& operator=(const DesktopPlatform&) = delete;

  // Good as long as this object lives.
  [[nodiscard]] Platform& Get();

  // What the print calls and dialogs from now on are to use; one that runs keeps what it began
  // with, but for `messages` and the waiting. `componentFolder` stays as it was. Database
  // connections stay open. Fails as the constructor does, and has changed nothing then.
  void PutOptions(DesktopOptions options);

  // The rows, for a print of this platform: `lockWaitLimit`, `onLockWait` and CancelPrint hold for
  // them, too. Without it they hold for the databases and between pages. This object outlives them.
  [[nodiscard]] RecordsetRef Limited(RecordsetRef rows);

  // Ends the print that runs, if there is one, with `reason` as its message, at its next page, row
  // (Limited) or try of what is locked; nothing is printed. Any thread may call it, and what is
  // called within a print.
  void CancelPrint(const std::string& reason = "打印被调用程序取消。");

  // The rows of a query that somebody else wrote, to be printed. A statement that would change
  // anything, or that is no query, fails with kDatabaseFailed and has changed nothing. On SQL
  // Server and engines other than SQLite, PostgreSQL and MariaDB the words of the statement decide.
  [[nodiscard]] RecordsetRef OpenReadOnly(const std::string& connection, const std::string& sql);

  // Whether windows can be shown: previews and dialogs fail without a display.
  [[nodiscard]] bool HasDisplay() const;

  // Names are compared exactly.
  [[nodiscard]] bool HasPrinter(const std::string& name) const;

  // What became of the last print call's document, also while the call runs. A call that makes no
  // document has none: no pages, not delivered. PrintOk says less: it is set before a document is
  // sent, and stays when that fails.
  [[nodiscard]] DocumentOutcome LastDocument() const;

  // What became of each item of the format in the last run of a print or a preview, or in the one
  // that goes on, and why. Nothing without the option `explain`. The items that no band came to are
  // read now, with the connection text of the print.
  [[nodiscard]] Explanation LastExplanation() const;

  // Where the print is that runs: what a message or a complaint is about. Unknown otherwise.
  [[nodiscard]] RunPlace CurrentPlace() const;

  // How many messages there were so far, in whatever way they were shown.
  [[nodiscard]] int MessagesShown() const;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace td
