// The groups of fields of the panel of an item.
#pragma once

#include <QPixmap>
#include <optional>
#include <string>

#include "designer/panels/field_group.h"
#include "designer/panels/item_changes.h"
#include "designer/panels/item_words.h"

namespace td::designer {

// What the item is, in which band it stands, and when it prints.
class KindGroup : public FieldGroup {
 public:
  KindGroup(EditedItems& items, Workspace& workspace);
  void Refresh() override;

 private:
  EditedItems& items_;
  QCheckBox* hidden_;
};

// Where it stands, as it is stored and, where a band or the format's offsets move it, on the sheet.
class PlaceGroup : public FieldGroup {
 public:
  PlaceGroup(EditedItems& items, Workspace& workspace);
  void Refresh() override;

 private:
  NumberBox* MakeSheetBox(const char* name, const QString& label,
                          Command (*put)(const Format&, const ItemIds&, double));
  void RefreshSheetRow();

  EditedItems& items_;
  Workspace& workspace_;
  NumberBox* left_;
  NumberBox* top_;
  QWidget* sheetRow_;
};

// Which value or text it shows, and how that stands in its box.
class TextGroup : public FieldGroup {
 public:
  TextGroup(EditedItems& items, Workspace& workspace);
  void Refresh() override;

 private:
  void FillFields();
  void RefreshField();
  void RefreshExample();
  void RefreshFinding();

  EditedItems& items_;
  Workspace& workspace_;
  ChoiceList* field_;
  QLabel* fieldNote_;
  QLabel* example_;
  QLabel* pictureFinding_;
};

class FontGroup : public FieldGroup {
 public:
  explicit FontGroup(EditedItems& items);
  void Refresh() override;

 private:
  EditedItems& items_;
  QLabel* sample_;
  QLabel* standIn_;
};

class LineGroup : public FieldGroup {
 public:
  explicit LineGroup(EditedItems& items);
  void Refresh() override;

 private:
  EditedItems& items_;
  QLabel* thickness_;
};

class PictureGroup : public FieldGroup {
 public:
  explicit PictureGroup(EditedItems& items);
  void Refresh() override;

 private:
  void Choose();
  void Load(const std::string& path);

  EditedItems& items_;
  QLabel* thumbnail_;
  QLabel* note_;
  std::optional<std::string> shown_;  // the path of the thumbnail
};

}  // namespace td::designer
