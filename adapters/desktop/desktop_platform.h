// The whole platform of a desktop machine in one object: databases, pictures, messages, the
// machine's address and the print windows. A program that embeds the component needs one line to
// get it:
//
//   td::DesktopPlatform desktop;      // keep it alive as long as anything that was given Get()
//   … desktop.Get() …
//
// The program may have a Qt application of its own, which is then used and kept. If it has none,
// one is made when the first DesktopPlatform is constructed, and lives until the program ends; it
// needs no display. Everything but the databases runs on the thread that constructs the object,
// which must be the thread of the Qt application; a print call on another one is refused.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/platform.h"
#include "qt/system/document_outcome.h"

namespace td {

class PageDocument;

enum class MessageMode {
  kAutomatic,      // a message box if there is a window system, otherwise as kStandardError
  kStandardError,  // one line on standard error for each message, whatever display there is
};

// Texts are UTF-8; an empty text asks for what the comment calls the default.
struct DesktopOptions {
  // Every document goes to this printer, whatever printer its format or machine has; in a preview
  // the user can still choose another one. Default: the document's own choice.
  std::string printer;

  // Takes a finished document in the place of any printer: no printer is needed then, and none is
  // used. The reference is good during the call. A Failure that it throws leaves PrintDoc.
  std::function<void(const PageDocument&)> documentSink;

  MessageMode messages = MessageMode::kAutomatic;

  // The folder of the export file 订单.html. Default: the environment variable
  // QBTDPRINTER_STATE_DIR, else qbtdprinter in $XDG_STATE_HOME, else in ~/.local/state. It is
  // created when it is missing, for the user alone.
  std::string stateDirectory;

  // The folder whose subfolder "picture" holds the goods pictures. Default: the folder of the
  // shared library or program that holds the component.
  std::string componentFolder;

  // Called with the number of each page, from 1, when the run has finished it.
  std::function<void(int page)> onPage;

  // Called when a document has gone whole to its printer, or to the sink: Printer::PrintOk is set
  // before that and stays when it fails.
  std::function<void()> onPrinted;

  // Called with what a document goes on without, in words for those who look after the machine: a
  // paper code that nobody knows, a text that no barcode can carry. Once for each text and print
  // window. Default: a line on standard error.
  std::function<void(const std::string& text)> onComplaint;
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

  // How many messages were shown so far, as a box or as a line.
  [[nodiscard]] int MessagesShown() const;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace td
