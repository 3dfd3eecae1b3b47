#include "designer/window/format_session.h"

#include <QApplication>
#include <QProgressDialog>
#include <algorithm>

#include "designer/view/words.h"
#include "designer/window/format_list.h"
#include "designer/window/questions.h"
#include "platform/failure.h"

namespace td::designer {
namespace {

QString Text(const std::string& text) {
  return QString::fromStdString(text);
}

}  // namespace

FormatSession::FormatSession(SessionSetup setup, Workspace& workspace, QWidget& window,
                             std::function<void(Opened)> opened)
    : setup_(std::move(setup)),
      workspace_(workspace),
      window_(window),
      opened_(std::move(opened)),
      store_(setup_.database, setup_.connection, [this] { return KeepsWaiting(); }) {}

std::string FormatSession::StoredName() const {
  const Format& base = workspace_.document.Base();
  return IsNull(base.id) ? std::string() : base.Name();
}

// A box that can be closed to give up stands there as long as somebody else locks the tables.
bool FormatSession::KeepsWaiting() {
  if (!waiting_) {
    auto box = std::make_unique<QProgressDialog>(
        Say("Somebody else is writing to these tables. Waiting …"), Say("Give up"), 0, 0, &window_);
    box->setObjectName("waiting");
    box->setWindowModality(Qt::WindowModal);
    box->setMinimumDuration(0);
    QObject::connect(box.get(), &QProgressDialog::canceled, [this] { hasGivenUp_ = true; });
    box->show();
    waiting_ = std::move(box);
  }
  QApplication::processEvents();
  return !hasGivenUp_;
}

bool FormatSession::Attempt(const std::function<void()>& action) {
  hasGivenUp_ = false;
  std::optional<QString> failed;
  try {
    action();
  } catch (const Failure& failure) {
    failed = Text(failure.Description());
  }
  waiting_.reset();
  if (failed) Tell(&window_, *failed);
  return !failed;
}

RecoveryFile FormatSession::RecoveryOf(const std::string& name) const {
  return {setup_.stateFolder, setup_.connection, setup_.billType, name};
}

void FormatSession::Show(Format format, Opened opened) {
  workspace_.selection.Clear();
  workspace_.document.Reset(std::move(format));
  recovery_.emplace(RecoveryOf(StoredName()));
  OfferRecovery();
  opened_(opened);
}

void FormatSession::OfferRecovery() {
  const auto recovered = recovery_->Find();
  if (!recovered) return;
  const auto minutes = std::chrono::duration_cast<std::chrono::minutes>(
      std::chrono::system_clock::now() - recovered->written);
  const int answer = Ask(
      &window_,
      Say("The designer ended %1 minutes ago without saving “%2”. What was kept can be restored.")
          .arg(std::max<std::int64_t>(minutes.count(), 0))
          .arg(Text(recovered->current.Name())),
      {Say("Restore"), Say("Discard")});
  if (answer == 0) {
    workspace_.document.Reset(recovered->base);
    workspace_.document.Recover(recovered->current);
  } else if (answer == 1) {
    recovery_->Remove();
  }
}

bool FormatSession::Open(const std::string& name) {
  Format format;
  const bool isLoaded = Attempt([&] {
    if (!name.empty()) {
      format = store_.Load(setup_.billType, name);
      return;
    }
    const auto formats = store_.List(setup_.billType);
    format = formats.empty() ? store_.Blank(setup_.billType, Say("New format").toStdString())
                             : store_.LoadById(formats.front().id);
  });
  if (isLoaded) Show(std::move(format));
  return isLoaded;
}

void FormatSession::Begin(const std::string& name) {
  Format format;
  if (Attempt([&] { format = store_.Blank(setup_.billType, name); })) Show(std::move(format));
}

bool FormatSession::MayLeave() {
  if (!workspace_.document.IsModified()) return true;
  const int answer = Ask(
      &window_,
      Say("“%1” has changes that are not saved.").arg(Text(workspace_.document.Current().Name())),
      {Say("Save"), Say("Discard")});
  if (answer == 0) return Save();
  if (answer == 1 && recovery_) recovery_->Remove();
  return answer == 1;
}

bool FormatSession::OpenAnother() {
  std::vector<FormatEntry> formats;
  if (!Attempt([&] { formats = store_.List(setup_.billType); })) return false;
  const auto chosen = ChooseFormat(&window_, formats, StoredName());
  if (!chosen || !MayLeave()) return false;
  return Open(*chosen);
}

std::optional<std::string> FormatSession::UnusedName(const QString& question,
                                                     const std::string& suggested) {
  std::vector<FormatEntry> formats;
  if (!Attempt([&] { formats = store_.List(setup_.billType); })) return std::nullopt;
  QString name = Text(suggested);
  for (;;) {
    const auto chosen = AskName(&window_, question, name);
    if (!chosen) return std::nullopt;
    name = *chosen;
    const bool isUsed = std::ranges::any_of(
        formats, [&](const FormatEntry& format) { return Text(format.name) == name; });
    if (!isUsed) return name.toStdString();
    Tell(&window_, Say("There is a format “%1” already.").arg(name));
  }
}

bool FormatSession::New() {
  if (!MayLeave()) return false;
  const auto name = UnusedName(Say("Name of the new format:"), Say("New format").toStdString());
  if (!name) return false;
  Begin(*name);
  return true;
}

bool FormatSession::Adopt(Format format) {
  if (!MayLeave()) return false;
  const auto name = UnusedName(Say("Name of the new format:"), format.Name());
  if (!name) return false;
  Format blank;
  if (!Attempt([&] { blank = store_.Blank(setup_.billType, *name); })) return false;
  Show(std::move(blank));
  // All of it is one step: an undo leads back to the empty format.
  Command command{.kind = CommandKind::kChangeFormat, .edits = {}, .items = {}};
  format.row.Set("FTDBillName", *name);
  Format now = workspace_.document.Current();
  const auto take = [&](const Command& part) {
    td::designer::Do(now, part);
    command.edits.insert(command.edits.end(), part.edits.begin(), part.edits.end());
  };
  for (std::size_t i = 0; i < format.row.Size(); ++i) {
    const std::string& column = format.row.Names().Name(i);
    if (column == "FSelected" || column == "FTranType") continue;
    take(SetOnFormat(now, column, format.row.At(i)));
  }
  for (const Variable& variable : format.variables) {
    if (std::ranges::find(now.variables, variable.Caption(), &Variable::Caption) ==
        now.variables.end()) {
      take(AddVariable(now, variable));
    }
  }
  const std::vector<Item> items(format.items.begin(), format.items.end());
  take(AddItems(now, items));
  workspace_.document.Do(std::move(command));
  return true;
}

bool FormatSession::Save() {
  Format wanted = workspace_.document.Current();
  if (IsNull(wanted.id)) {
    const auto name = UnusedName(Say("Save the format under the name:"), wanted.Name());
    if (!name) return false;
    wanted.row.Set("FTDBillName", *name);
  }
  return SaveAs(workspace_.document.Base(), std::move(wanted), OnConflict::kReport);
}

bool FormatSession::SaveAs(Format base, Format wanted, OnConflict onConflict) {
  std::optional<std::variant<Saved, Conflict>> result;
  if (!Attempt([&] { result = store_.Save(base, wanted, onConflict); })) return false;
  if (const auto* conflict = std::get_if<Conflict>(&*result)) return ResolveConflict(*conflict);
  if (recovery_) recovery_->Remove();
  workspace_.document.MarkSaved(std::get<Saved>(*result).stored);
  recovery_.emplace(RecoveryOf(StoredName()));
  opened_(Opened::kSaved);
  return true;
}

bool FormatSession::ResolveConflict(const Conflict& conflict) {
  const FormatDocument& document = workspace_.document;
  const QString name = Text(document.Current().Name());
  if (conflict.isGone) {
    const int answer =
        Ask(&window_, Say("Somebody else has deleted “%1” since it was opened.").arg(name),
            {Say("Save as a new format")});
    if (answer != 0) return false;
    Format base = document.Base();
    Format wanted = document.Current();
    base.id = wanted.id = Null{};
    return SaveAs(std::move(base), std::move(wanted), OnConflict::kReport);
  }
  QStringList differences;
  for (const Difference& difference : conflict.differences) {
    differences << Text(InWords(difference, SpeaksChinese()));
  }
  const int answer = Ask(
      &window_,
      Say("Somebody else has changed “%1” since it was opened. This is what differs:").arg(name),
      {Say("Save over it"), Say("Drop mine and load theirs")}, differences);
  if (answer == 0) return SaveAs(document.Base(), document.Current(), OnConflict::kOverwrite);
  if (answer == 1) {
    if (recovery_) recovery_->Remove();
    Show(conflict.theirs, Opened::kSaved);
  }
  return false;
}

bool FormatSession::Copy() {
  if (!MayLeave() || StoredName().empty()) return false;
  const auto name =
      UnusedName(Say("Name of the copy:"), Say("Copy of %1").arg(Text(StoredName())).toStdString());
  if (!name) return false;
  Format copy;
  if (!Attempt([&] { copy = store_.Copy(workspace_.document.Base().id, *name); })) return false;
  Show(std::move(copy), Opened::kCopied);
  return true;
}

bool FormatSession::Rename() {
  if (!MayLeave() || StoredName().empty()) return false;
  const auto name = UnusedName(Say("New name of the format:"), StoredName());
  if (!name) return false;
  const Value id = workspace_.document.Base().id;
  Format renamed;
  if (!Attempt([&] {
        store_.Rename(id, *name);
        renamed = store_.LoadById(id);
      })) {
    return false;
  }
  Show(std::move(renamed), Opened::kRenamed);
  return true;
}

bool FormatSession::Delete() {
  if (StoredName().empty()) return false;
  const int answer = Ask(&window_,
                         Say("Delete the format “%1” with all its items? This can't be undone.")
                             .arg(Text(StoredName())),
                         {Say("Delete")});
  if (answer != 0) return false;
  if (!Attempt([&] { store_.Delete(workspace_.document.Base().id); })) return false;
  if (recovery_) recovery_->Remove();
  return Open({});
}

bool FormatSession::Select() {
  if (!MayLeave() || StoredName().empty()) return false;
  const Value id = workspace_.document.Base().id;
  Format selected;
  if (!Attempt([&] {
        store_.Select(id);
        selected = store_.LoadById(id);
      })) {
    return false;
  }
  Show(std::move(selected), Opened::kSaved);
  return true;
}

void FormatSession::KeepRecovery() {
  const FormatDocument& document = workspace_.document;
  if (!recovery_ || !document.IsModified()) return;
  try {
    recovery_->Keep(document.Base(), document.Current());
  } catch (const Failure& failure) {
    if (!std::exchange(isKeepingTold_, true)) {
      Tell(&window_, Say("What isn't saved can't be kept against a crash: %1")
                         .arg(Text(failure.Description())));
    }
  }
}

}  // namespace td::designer
