// Labelled fields of a panel that belong together.
#pragma once

#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <vector>

#include "designer/panels/column_fields.h"

namespace td::designer {

class FieldGroup : public QGroupBox {
 public:
  explicit FieldGroup(const QString& title, QWidget* parent = nullptr);

  // Shows what the rows hold now.
  virtual void Refresh();
  // Enters what is being typed in one of the fields.
  void FinishTyping();

 protected:
  // The field is named after its column, for tests and for screen readers with its label.
  void Add(const QString& label, ColumnField* field, const QString& explanation = {});
  // Two short fields side by side.
  void AddPair(const QString& label, ColumnField* field, const QString& secondLabel,
               ColumnField* second);
  // A field that is its own label.
  void AddWide(ColumnField* field, const QString& explanation = {});
  // Small words below a field, as wide as the group.
  QLabel* AddNote();

  QFormLayout& Form() { return *form_; }

 private:
  void Register(ColumnField& field, const QString& label, const QString& explanation);

  QFormLayout* form_;
  std::vector<ColumnField*> fields_;
};

// A label that wraps and doesn't widen its panel.
[[nodiscard]] QLabel* MakeNote(QWidget* parent);

}  // namespace td::designer
