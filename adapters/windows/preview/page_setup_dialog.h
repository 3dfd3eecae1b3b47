// The page-setup dialog.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "preview/page_setup_choice.h"
#include "windows/controls/choice_list.h"
#include "windows/controls/dialog_frame.h"
#include "windows/preview/length_field.h"

namespace td {

// Shows a document's paper, orientation, margins and printer. A sheet without an area, and margins
// that leave nothing of it, can't be confirmed; the dialog then says why. A user-defined sheet that
// no new document will begin with is confirmed only after a warning, as its size is not kept.
class PageSetupDialog : public DialogFrame {
 public:
  // Reads the document's properties; it outlives the dialog. `printer` takes the document as
  // things are, and is shown if the machine has it.
  PageSetupDialog(PageDocument& document, const std::string& printer, OwnSheets ownSheets);

  // Shows the dialog and returns when it was closed: whether it was confirmed.
  bool Ask();

  // Puts the choices into the document; a printer that the user has left alone is none. To be
  // called after the user has confirmed. Fails with kInvalidProperty when the chosen printer has
  // gone meanwhile; the rest is then put all the same.
  void Apply() { PutChoice(document_, Choice(), ChosenPrinter()); }

  // Empty if the user has left the printer alone.
  [[nodiscard]] std::string ChosenPrinter() const;

  // The numbers of its controls.
  enum Control : int {
    kPrinterId = kFirstControl,
    kPaperId,
    kWidthId,
    kHeightId,
    kPortraitId,
    kLandscapeId,
    kLeftId,
    kTopId,
    kRightId,
    kBottomId,
    kObjectionId,
    kPictureId,
  };

 protected:
  SIZE LayOut() override;
  void Commanded(int id, int notification) override;
  bool Received(UINT message, WPARAM wide, LPARAM lengthy, LRESULT& result) override;

 private:
  // A caption and the list or the length that it names.
  struct Row {
    HWND label;
    ChoiceList* list;
    LengthField* field;
  };

  void AddRow(std::vector<Row>& rows, const char* caption, std::optional<ChoiceList>& list, int id);
  void AddRow(std::vector<Row>& rows, const char* caption, LengthField& field, int id,
              double twips);
  void AddDirection(bool isLandscape);
  void FillPrinters(const std::string& printer);
  void FillPapers(std::int32_t chosen);
  [[nodiscard]] int LabelWidth(const std::vector<Row>& rows) const;
  int PlaceRows(const std::vector<Row>& rows, const RECT& room, int line);

  [[nodiscard]] PageSetupChoice Choice() const;
  [[nodiscard]] std::int32_t PaperCode() const;
  void PaperChosen();
  void Check();
  [[nodiscard]] bool MayBeUsed();
  void DrawPart(const DRAWITEMSTRUCT& item) const;

  PageDocument& document_;
  OwnSheets ownSheets_;
  std::vector<std::string> printers_;
  int shownPrinter_ = -1;
  std::vector<PaperEntry> papers_;
  HWND sheetGroup_ = nullptr;
  std::vector<Row> sheetRows_;
  std::optional<ChoiceList> printer_;
  std::optional<ChoiceList> paper_;
  LengthField width_;
  LengthField height_;
  HWND directionGroup_ = nullptr;
  HWND portrait_ = nullptr;
  HWND landscape_ = nullptr;
  HWND marginGroup_ = nullptr;
  std::vector<Row> marginRows_;
  LengthField left_;
  LengthField top_;
  LengthField right_;
  LengthField bottom_;
  HWND picture_ = nullptr;
  HWND objection_ = nullptr;
  HWND confirm_ = nullptr;
  HWND cancel_ = nullptr;
  bool isMade_ = false;
  bool isConfirmed_ = false;
};

}  // namespace td
