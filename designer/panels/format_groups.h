// The groups of fields of the panel of the format.
#pragma once

#include "designer/panels/field_group.h"

namespace td::designer {

class NameGroup : public FieldGroup {
 public:
  NameGroup(EditedFormat& rows, Workspace& workspace);
  void Refresh() override;

 private:
  Workspace& workspace_;
  QLabel* billType_;
};

// The sheet by name or in millimetres. A width or height that is entered makes it a size of its
// own.
class PaperGroup : public FieldGroup {
 public:
  PaperGroup(EditedFormat& rows, Workspace& workspace);
  void Refresh() override;

 private:
  void Choose(int code);
  [[nodiscard]] NumberBox* MakeSide(const char* column, const QString& label);
  void EnterSide(const char* column, double millimetres);
  void RefreshPaper();

  EditedFormat& rows_;
  Workspace& workspace_;
  ChoiceList* paper_;
  NumberBox* width_;
  NumberBox* height_;
  QLabel* sheet_;
};

class RowsGroup : public FieldGroup {
 public:
  RowsGroup(EditedFormat& rows, Workspace& workspace);
  void Refresh() override;

 private:
  Workspace& workspace_;
  QLabel* note_;
};

class OffsetGroup : public FieldGroup {
 public:
  explicit OffsetGroup(EditedFormat& rows);
};

class PrinterGroup : public FieldGroup {
 public:
  PrinterGroup(EditedFormat& rows, Workspace& workspace);
  void Refresh() override;

 private:
  EditedFormat& rows_;
  Workspace& workspace_;
  QLabel* note_;
};

// What other programs and dialogs keep in the format, and no print reads.
class UnusedGroup : public FieldGroup {
 public:
  explicit UnusedGroup(EditedFormat& rows);
};

}  // namespace td::designer
