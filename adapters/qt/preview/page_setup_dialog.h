// The page-setup dialog.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <string>

#include "preview/page_setup_choice.h"
#include "qt/fields/choice_list.h"
#include "qt/fields/length_field.h"
#include "qt/preview/sheet_picture.h"

namespace td {

// Shows a document's paper, orientation, margins and printer. A sheet without an area, and margins
// that leave nothing of it, can't be confirmed; the dialog then says why. A user-defined sheet that
// no new document will begin with is confirmed only after a warning, as its size is not kept.
class PageSetupDialog : public QDialog {
 public:
  // Reads the document's properties; it outlives the dialog. `printer` takes the document as
  // things are, and is shown if the machine has it.
  PageSetupDialog(PageDocument& document, const std::string& printer, OwnSheets ownSheets,
                  QWidget* parent);

  // Puts the choices into the document; a printer that the user has left alone is none. To be
  // called after the user has confirmed. Fails with kInvalidProperty when the chosen printer has
  // gone meanwhile; the rest is then put all the same.
  void Apply();

  // Empty if the user has left the printer alone.
  [[nodiscard]] std::string ChosenPrinter() const;

  void accept() override;

 private:
  void MakeFields();
  void LayOutFields();
  void ConnectFields();
  void FillPrinters(const std::string& printer);
  void FillPapers();
  void PaperChosen();
  void ChooseNamedPaper(const PaperExtent& sheet);
  [[nodiscard]] bool MayBeUsed();
  void Check();
  [[nodiscard]] std::int32_t PaperCode() const;
  [[nodiscard]] PageSetupChoice Choice() const;

  PageDocument& document_;
  OwnSheets ownSheets_;
  ChoiceList* printer_ = nullptr;
  int shownPrinter_ = -1;
  ChoiceList* paper_ = nullptr;
  LengthField* width_ = nullptr;
  LengthField* height_ = nullptr;
  QRadioButton* portrait_ = nullptr;
  QRadioButton* landscape_ = nullptr;
  LengthField* left_ = nullptr;
  LengthField* top_ = nullptr;
  LengthField* right_ = nullptr;
  LengthField* bottom_ = nullptr;
  SheetPicture* picture_ = nullptr;
  QLabel* objection_ = nullptr;
  QPushButton* confirm_ = nullptr;
  QPushButton* cancel_ = nullptr;
};

}  // namespace td
