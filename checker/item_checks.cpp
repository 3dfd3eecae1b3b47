// Items one by one.
#include <algorithm>
#include <array>
#include <set>

#include "checker/checks.h"
#include "checker/nearest_name.h"
#include "items/image_items.h"
#include "items/named_fields.h"
#include "page_document/commands.h"
#include "state/window_kind.h"
#include "store/template_item.h"
#include "text/conversions.h"

namespace td::checker {
namespace {

using enum FindingKind;

const std::vector<std::string>& ImageNames() {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> all;
    all.reserve(std::size(kImageTokens));
    for (const ImageToken& token : kImageTokens) all.emplace_back(token.name);
    return all;
  }();
  return names;
}

bool IsImageName(const std::string& name) {
  return std::ranges::find(ImageNames(), name) != ImageNames().end();
}

// A name in some kind of angle brackets, or with the words that only images have.
bool LooksLikeImage(const std::string& name) {
  constexpr std::array kSigns = {"<", "〈", "《", "＜", "条码图", "商品图片"};
  return std::ranges::any_of(
      kSigns, [&](const char* sign) { return name.find(sign) != std::string::npos; });
}

std::string LowerCaseOf(const std::string& text) {
  return LowerCase(text);
}

bool IsKind(const StoredRow& item, ItemKind kind) {
  return item.Number("FTypeID") == static_cast<double>(kind);
}

// One item with what has become of it.
class ItemCheck {
 public:
  ItemCheck(const FormatRows& format, const TrialResult& trial, std::size_t index, bool byArea,
            const std::vector<std::string>& dataColumns, FindingList& findings)
      : format_(format),
        trial_(trial.items[index]),
        item_(format.Item(index)),
        index_(index),
        kind_(byArea ? kStockAreaWindow : kPlainWindow),
        dataColumns_(dataColumns),
        findings_(findings) {}

  void Run() {
    if (trial_.times == 0) {
      CheckWhyNotReached();
      return;
    }
    if (trial_.met.contains(Circumstance::kUnknownKind)) {
      Add(kItemKind, {StoredText(item_, "FTypeID")});
    }
    CheckNulls();
    if (IsKind(item_, ItemKind::kText)) CheckText();
    if (trial_.takenBy) {
      Add(kTotalPagesTaken, {NameOf(format_.Item(*trial_.takenBy))}, "");
    }
    if (IsKind(item_, ItemKind::kPicture)) CheckPictureFile();
    CheckMessage();
  }

 private:
  void Add(FindingKind kind, Arguments arguments, std::string sql = {}) {
    findings_.AddItem(index_, kind, std::move(arguments), std::move(sql));
  }

  // An item that the run never comes to: its band isn't drawn, or its place hides it. One behind an
  // item that has ended the band by a message may be sound.
  void CheckWhyNotReached() {
    for (const char* column : {"FLeft", "FTop", "FSite"}) {
      if (item_.HasNull(column)) return Add(kItemNull, {column});
    }
    const double left = item_.Number("FLeft").value_or(0);
    const double top = item_.Number("FTop").value_or(0);
    const double site = item_.Number("FSite").value_or(0);
    const auto first = static_cast<double>(ItemSite::kHead);
    const auto last = static_cast<double>(ItemSite::kFoot);
    const bool isBand = site >= first && site <= last && site == static_cast<int>(site);
    if (isBand && (left < 0 || top < 0)) {
      Add(kItemHidden, {StoredText(item_, "FLeft"), StoredText(item_, "FTop")});
    } else if (!isBand) {
      Add(kItemBand, {StoredText(item_, "FSite")});
    }
  }

  void CheckNulls() {
    for (const std::string& column : trial_.nullsSkipped) {
      const std::string lower = LowerCase(column);
      if (lower.starts_with("ffont")) {
        Add(kItemFontNull, {column});
      } else if (lower == "fobjectcaption" && trial_.drawn > 0) {
        Add(kItemCaptionNull, {}, UpdateItem(format_, index_, "FObjectCaption=''"));
      } else if (trial_.drawn == 0) {
        const bool isText = lower == "fformatstring" || lower == "fobjectcaption";
        Add(kItemNull, {column}, isText ? UpdateItem(format_, index_, column + "=''") : "");
      }
    }
  }

  void CheckText() {
    const std::string name = item_.Text("FObjectFieldName");
    const Value* field = item_.Find("FFieldName");
    const bool hasField = field != nullptr && !IsNull(*field);
    if (kind_.drawsImages && IsImageName(name)) {
      CheckImage(name);
    } else if (hasField) {
      CheckField(item_.Text("FFieldName"));
    } else if (!name.empty() && !IsImageName(name)) {
      CheckUnknown(name);
    }
    if (item_.Number("FFontSize").value_or(1) <= 0) {
      Add(kFontSize, {StoredText(item_, "FFontSize")});
    }
    CheckBox();
  }

  void CheckImage(const std::string& name) {
    const bool isBarcode = !trial_.barcodes.empty();
    const bool isGoods = trial_.dataColumns.contains("FItemiD");
    if (!isBarcode && !isGoods) Add(kImageBand, {name, trial_.text});
  }

  void CheckUnknown(const std::string& name) {
    if (LooksLikeImage(name)) {
      const std::string nearest = NearestName(name, ImageNames());
      Add(kImageUnknown, {name, nearest, trial_.text}, Rename(nearest));
      return;
    }
    std::vector<std::string> captions;
    for (std::size_t i = 0; i < format_.variables.rows.size(); ++i) {
      captions.push_back(StoredRow(format_.variables, i).Text("FVarCaption"));
    }
    const auto isSame = [&](const std::string& caption) {
      return WithoutBlanks(caption) == WithoutBlanks(name);
    };
    const auto same = std::ranges::find_if(captions, isSame);
    if (same != captions.end()) {
      Add(kVariableBlanks, {name, *same, trial_.text}, Rename(*same));
      return;
    }
    const std::string nearest = NearestName(name, captions);
    if (item_.Flag("FIsVariant") || !nearest.empty() || trial_.text.empty()) {
      Add(kVariableUnknown, {name, nearest, trial_.text},
          nearest.empty() ? Register(name) : Rename(nearest));
    } else {
      Add(kVariableUnmarked, {name, trial_.text},
          UpdateItem(format_, index_, "FObjectFieldName=''"));
    }
  }

  [[nodiscard]] std::string Rename(const std::string& name) const {
    return name.empty() ? "" : UpdateItem(format_, index_, "FObjectFieldName=" + Quoted(name));
  }

  // The variable as a new one. Where no column of the rows resembles its name, the statement has a
  // place for it.
  [[nodiscard]] std::string Register(const std::string& name) const {
    const auto same = std::ranges::find(dataColumns_, LowerCase(name), LowerCaseOf);
    std::string column = same == dataColumns_.end() ? NearestName(name, dataColumns_) : *same;
    if (column.empty()) column = "FColumn";
    return "insert into TDVariant (FTranType,FVarCaption,FVarName) values (" +
           ToText(format_.billType) + "," + Quoted(name) + "," + Quoted(column) + ")";
  }

  void CheckField(const std::string& field) {
    const std::string caption = item_.Text("FObjectFieldName");
    if (HasOuterBlanks(field)) {
      Add(kColumnBlanks, {caption, field},
          "update TDVariant set FVarName=" + Quoted(WithoutBlanks(field)) + " where FTranType=" +
              ToText(format_.billType) + " and FVarCaption=" + Quoted(caption));
    }
    CheckTwice(caption);
    const NamedField* named = FindNamedField(field, kind_);
    if (named == nullptr) return;
    // A computed field that the run has taken for a column of the rows, or a quantity of a row
    // where there is none.
    const bool isColumn = std::ranges::any_of(trial_.dataColumns, [&](const auto& use) {
      return LowerCase(use.first) == LowerCase(field);
    });
    const bool isQuantity = std::holds_alternative<QuantityColumns>(named->drawing);
    if (isColumn || (isQuantity && !trial_.message.empty())) {
      Add(kFieldBand, {field, trial_.message});
    }
  }

  void CheckTwice(const std::string& caption) {
    std::string columns;
    std::int64_t count = 0;
    for (std::size_t i = 0; i < format_.variables.rows.size(); ++i) {
      const StoredRow variable(format_.variables, i);
      if (variable.Text("FVarCaption") != caption) continue;
      columns += (columns.empty() ? "" : ", ") + variable.Text("FVarName");
      ++count;
    }
    if (count > 1) Add(kVariableTwice, {caption, ToText(count), columns});
  }

  // A box smaller than a letter was measured in millimetres.
  void CheckBox() {
    constexpr double kOfFont = 0.4;
    constexpr double kLetters = 4;
    const double font = item_.Number("FFontSize").value_or(0) * kTwipsPerPoint;
    const double width = item_.Number("FWidth").value_or(0);
    const double height = item_.Number("FHeight").value_or(0);
    if (findings_.Has(kItemsMillimetres) || width <= 0 || height <= 0) return;
    if (height >= font * kOfFont || width >= font * kLetters) return;
    Add(kItemMillimetres,
        {MillimetresText(width), MillimetresText(height), TenthsText(height), TwipsText(height)});
  }

  void CheckPictureFile() {
    if (!trial_.message.empty()) {
      Add(kPictureFile, {trial_.message});
      return;
    }
    const std::string path = item_.Text("FPicturePath");
    const bool isWhole =
        path.starts_with('/') || path.starts_with('\\') || (path.size() > 1 && path[1] == ':');
    if (!path.empty() && !isWhole) Add(kPicturePath, {path});
  }

  // What no other finding tells of.
  void CheckMessage() {
    if (trial_.message.empty() || findings_.HasItem(index_, kFieldBand) ||
        findings_.HasItem(index_, kPictureFile) || findings_.HasItem(index_, kFontSize)) {
      return;
    }
    Add(kRunMessage, {trial_.message, "1"});
  }

  const FormatRows& format_;
  const ItemTrial& trial_;
  StoredRow item_;
  std::size_t index_;
  const WindowKind& kind_;
  const std::vector<std::string>& dataColumns_;
  FindingList& findings_;
};

// Where some values are marked for pre-printed forms, those that are not were forgotten.
void CheckPreprinted(const FormatRows& format, bool byArea, FindingList& findings) {
  const WindowKind& kind = byArea ? kStockAreaWindow : kPlainWindow;
  std::vector<std::size_t> unmarked;
  bool isMarked = false;
  for (std::size_t i = 0; i < format.ItemCount(); ++i) {
    const StoredRow item = format.Item(i);
    const Value* field = item.Find("FFieldName");
    const bool isImage = kind.drawsImages && IsKind(item, ItemKind::kText) &&
                         IsImageName(item.Text("FObjectFieldName"));
    if (!isImage && (field == nullptr || IsNull(*field))) continue;
    if (item.Flag("FIsVariant")) {
      isMarked = true;
    } else if (!item.Flag("FMustPrint")) {
      unmarked.push_back(i);
    }
  }
  if (!isMarked) return;
  for (const std::size_t i : unmarked) {
    findings.AddItem(i, kPreprintedMissing, {}, UpdateItem(format, i, "FIsVariant=1"));
  }
}

// Few items in the corner where printers don't reach: their places were measured in
// millimetres. On a small sheet an item may well begin there.
void CheckPlaces(const FormatRows& format, const TrialResult& trial, FindingList& findings) {
  constexpr double kCorner = 250;          // 4.4 mm, and a place in millimetres on most sheets
  constexpr double kSmallestSheet = 5700;  // 100 mm
  if (!trial.sheet || findings.Has(kPaperMillimetres) || findings.Has(kItemsMillimetres)) return;
  if (std::min(trial.sheet->width, trial.sheet->height) < kSmallestSheet) return;
  std::vector<std::size_t> suspects;
  for (std::size_t i = 0; i < format.ItemCount(); ++i) {
    const double left = format.Item(i).Number("FLeft").value_or(0);
    const double top = format.Item(i).Number("FTop").value_or(0);
    if (left > 0 && top > 0 && left < kCorner && top < kCorner) {
      suspects.push_back(i);
    }
  }
  if (suspects.size() * 2 >= format.ItemCount()) return;
  for (const std::size_t i : suspects) {
    if (findings.HasItem(i, kItemMillimetres)) continue;
    const double left = format.Item(i).Number("FLeft").value_or(0);
    const double top = format.Item(i).Number("FTop").value_or(0);
    const std::string change = "FLeft=" + TwipsText(left) + ",FTop=" + TwipsText(top);
    findings.AddItem(i, kPlaceMillimetres,
                     {TenthsText(left), TenthsText(top), MillimetresText(left),
                      MillimetresText(top), TwipsText(left), TwipsText(top)},
                     UpdateItem(format, i, change));
  }
}

}  // namespace

void CheckItems(const FormatRows& format, const TrialResult& trial, bool byArea,
                const std::vector<std::string>& dataColumns, FindingList& findings) {
  for (std::size_t i = 0; i < format.ItemCount(); ++i) {
    ItemCheck(format, trial, i, byArea, dataColumns, findings).Run();
  }
  CheckPlaces(format, trial, findings);
  CheckPreprinted(format, byArea, findings);
}

}  // namespace td::checker
