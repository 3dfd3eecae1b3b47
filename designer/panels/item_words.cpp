#include "designer/panels/item_words.h"

#include <QStringList>
#include <algorithm>
#include <array>
#include <string_view>

#include "designer/view/words.h"
#include "items/image_items.h"
#include "text/conversions.h"

namespace td::designer {
namespace {

struct NamedChoice {
  std::string_view name;  // as the run knows it
  const char* words;
};

constexpr std::array kImages = {
    NamedChoice{kBillNoBarcode, "Barcode of the bill number"},
    NamedChoice{kRandomBarcode, "Barcode of FBillNoBarCode"},
    NamedChoice{kUserBarcode, "Barcode of FUserBarCode"},
    NamedChoice{kGoodsPicture, "Picture of the goods"},
};

constexpr std::array kFields = {
    NamedChoice{"fpageno", "Page number"},
    NamedChoice{"ftotalpageno", "Number of pages"},
    NamedChoice{"forderid", "Row number"},
    NamedChoice{"fsumamount_dx", "Bill amount in capitals"},
    NamedChoice{"fsumretailamount_dx", "Bill retail amount in capitals"},
    NamedChoice{"fsumtax_dx", "Bill tax in capitals"},
    NamedChoice{"fsumnotaxamount_dx", "Bill amount without tax in capitals"},
    NamedChoice{"fsumbzkamount_dx", "Bill amount before discount in capitals"},
    NamedChoice{"fearnest_dx", "Bill earnest money in capitals"},
    NamedChoice{"ftotalpage", "Page amount"},
    NamedChoice{"ftotalpagedx", "Page amount in capitals"},
    NamedChoice{"ftotalpage_1", "Amount so far"},
    NamedChoice{"ftotalpage_1_dx", "Amount so far in capitals"},
    NamedChoice{"fsumtotalpage", "Amount so far with marker rows"},
    NamedChoice{"ftotalpagetax", "Page tax"},
    NamedChoice{"ftotalpagetax_1", "Tax so far"},
    NamedChoice{"ftotalpagetax_1_dx", "Tax so far in capitals"},
    NamedChoice{"ftotalpagenotaxamount", "Page amount without tax"},
    NamedChoice{"ftotalpagenotaxamount_1", "Amount without tax so far"},
    NamedChoice{"ftotalpagenotaxamount_1_dx", "Amount without tax so far in capitals"},
    NamedChoice{"ftotalpage_retailamount", "Page retail amount"},
    NamedChoice{"ftotalpage_bzkamount", "Page amount before discount"},
    NamedChoice{"ftotalpage_qty", "Page quantity"},
    NamedChoice{"ftotalpage_sumqty", "Page quantity, second sum"},
    NamedChoice{"ftotalpage_mainqty", "Page quantity in main units"},
    NamedChoice{"ftotalpage_slaveqty", "Page quantity in small units"},
    NamedChoice{"ftotalpage_mainqty_1", "Quantity in main units so far"},
    NamedChoice{"ftotalpage_debit", "Page debit"},
    NamedChoice{"ftotalpage_credit", "Page credit"},
    NamedChoice{"fsaleamount_totalpage", "Page sales amount"},
    NamedChoice{"fpuramount_totalpage", "Page purchase amount"},
    NamedChoice{"fskd_totalpage", "Page receipts"},
    NamedChoice{"ffkd_totalpage", "Page payments"},
    NamedChoice{"ftotalpageselffreight", "Freight so far"},
    NamedChoice{"ftotalpagefreight_amount", "Freight amount so far"},
    NamedChoice{"fcomplexqty", "Quantity in two units"},
    NamedChoice{"fcomplexqty_in", "Quantity in, in two units"},
    NamedChoice{"fcomplexqty_out", "Quantity out, in two units"},
};

// A field that got no words here yet is shown by its name.
QString NameIn(std::span<const NamedChoice> choices, std::string_view name) {
  const std::string wanted = LowerCase(name);
  const auto found = std::ranges::find(
      choices, wanted, [](const NamedChoice& choice) { return LowerCase(choice.name); });
  if (found != choices.end()) return Say(found->words);
  return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

QString ColumnOf(const ItemChoice& choice) {
  return QString::fromUtf8(choice.column.data(), static_cast<qsizetype>(choice.column.size()));
}

QString FieldDescription(std::string_view name) {
  const std::string field = LowerCase(name);
  if (field == "fpageno") {
    return Say("In the head the page of the whole print, in the other bands that of the bill.");
  }
  if (field == "ftotalpageno") {
    return Say("The pages of the whole print, written centred when all of them are known.");
  }
  if (field == "forderid") return Say("The number of the row, counted through the whole print.");
  if (field.starts_with("fcomplexqty")) {
    return Say("Main and small units of the row at once, such as 3箱+5瓶.");
  }
  if (field.ends_with("_dx") && !field.starts_with("ftotalpage")) {
    return Say("A column of the bill as an amount in Chinese capitals.");
  }
  return Say("A sum over the rows. It belongs behind the rows, where the page is complete.");
}

}  // namespace

QString NameOfKind(ChoiceKind kind) {
  switch (kind) {
    case ChoiceKind::kText:
      return Say("Text");
    case ChoiceKind::kVariable:
      return Say("Variable");
    case ChoiceKind::kLine:
      return Say("Line");
    case ChoiceKind::kPicture:
      return Say("Picture");
    case ChoiceKind::kImage:
      return Say("Image");
    case ChoiceKind::kComputed:
      return Say("Computed field");
  }
  return {};
}

QString NameOfChoice(const ItemChoice& choice) {
  if (choice.kind == ChoiceKind::kImage) return NameIn(kImages, choice.name);
  if (choice.kind == ChoiceKind::kComputed) return NameIn(kFields, choice.name);
  return NameOfKind(choice.kind);
}

QString DescriptionOf(const ItemChoice& choice) {
  switch (choice.kind) {
    case ChoiceKind::kText:
      return Say("The same words on every sheet. It stays away when only the values are printed.");
    case ChoiceKind::kVariable:
      return Say("A column of the print data.");
    case ChoiceKind::kLine:
      return Say("Across if it is wider than high, else down. In the row band each row has it.");
    case ChoiceKind::kPicture:
      return Say("A picture file. It prints at its natural size.");
    case ChoiceKind::kImage:
      if (choice.name == kGoodsPicture) {
        return Say("The picture of the goods that the row names in FItemiD.");
      }
      return Say("The column %1 as a barcode. In the row band all rows have the same place.")
          .arg(ColumnOf(choice));
    case ChoiceKind::kComputed:
      return FieldDescription(choice.name);
  }
  return {};
}

QString BandsOf(const ItemChoice& choice) {
  QStringList bands;
  QStringList others;
  for (const ItemSite site : kAllSites) {
    (choice.WorksIn(site) ? bands : others) << NameOfBand(static_cast<int>(site));
  }
  if (others.size() == 1) return Say("not %1").arg(others.front());
  return others.isEmpty() ? QString() : bands.join(Say(", "));
}

QString ReasonAgainst(const ItemChoice& choice, ItemSite site) {
  if (choice.WorksIn(site)) return {};
  if (choice.kind == ChoiceKind::kImage) {
    return site == ItemSite::kHead ? Say("The head draws no goods pictures.")
                                   : Say("Only the head draws this barcode.");
  }
  if (site == ItemSite::kHead) {
    return Say("The head knows only the page number and the number of pages.");
  }
  return Say("Behind the rows there is no row of which this could be the quantity.");
}

QString NameOfItem(const Item& item) {
  std::string name;
  if (item.Kind() == ItemKind::kPicture) {
    name = item.row.Text("FPicturePath");
    name.erase(0, name.find_last_of("/\\") + 1);
  } else if (item.Kind() == ItemKind::kText) {
    name = item.FieldName();
    if (name.empty()) name = item.row.Text("FObjectCaption");
  }
  if (!name.empty()) return QString::fromStdString(name).simplified();
  if (item.Kind() == ItemKind::kLine) return Say("Line");
  return item.Kind() == ItemKind::kPicture ? Say("Picture") : Say("Text");
}

const Variable* VariableNamed(const Format& format, const std::string& name) {
  const auto found =
      std::ranges::find(format.variables, LowerCase(name),
                        [](const Variable& variable) { return LowerCase(variable.Name()); });
  return found == format.variables.end() ? nullptr : &*found;
}

DroppedChoice ChoiceOfVariable(const std::string& caption, const std::string& name) {
  const auto choices = ItemChoices();
  const auto field = std::ranges::find_if(choices, [&](const ItemChoice& choice) {
    return choice.kind == ChoiceKind::kComputed && LowerCase(choice.name) == LowerCase(name);
  });
  if (field != choices.end()) return {*field, caption};
  return {{ChoiceKind::kVariable}, caption, name};
}

std::string FreeCaption(const Format& format, const std::string& wanted) {
  const auto isTaken = [&](const std::string& caption) {
    return std::ranges::find(format.variables, caption, &Variable::Caption) !=
           format.variables.end();
  };
  std::string caption = wanted;
  for (int number = 2; isTaken(caption); ++number) {
    caption = wanted + " " + std::to_string(number);
  }
  return caption;
}

int UsesOf(const Format& format, const std::string& caption) {
  return static_cast<int>(std::ranges::count_if(
      format.items, [&](const Item& item) { return item.FieldName() == caption; }));
}

}  // namespace td::designer
