// The tables as they would be if the format that is edited were saved: a run that asks for the
// format, its items or its paper gets them as they stand in memory.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "designer/model/format.h"
#include "platform/database.h"

namespace td::designer {

struct ShownItems {
  // Variables show what they are called in the place of a value.
  bool captions = false;
  // As on a pre-printed form.
  bool onlyValues = false;
};

// What a run does with the items, for those who want to know which item drew what.
struct ItemWatch {
  // It has asked for the items of a band, of a row's band once for each row.
  std::function<void(ItemSite site)> bandBegins;
  // It turns to an item, or has come to the end of a band: 0.
  std::function<void(ItemId item)> itemBegins;
};

class FormatDatabase : public Database {
 public:
  // `rest` answers all other statements. Both outlive the database.
  FormatDatabase(const Format& format, Database& rest, ShownItems shown, ItemWatch watch);

  RecordsetRef OpenQuery(const std::string& connection, const std::string& sql, CursorType cursor,
                         LockType lock) override;
  std::unique_ptr<Connection> Connect(const std::string& connection) override;

 private:
  struct Band {
    std::string sql;
    ItemSite site;
    bool onlyLines = false;  // the frame of a row without its data
  };

  [[nodiscard]] RecordsetRef OpenBand(const Band& band) const;
  [[nodiscard]] bool IsAsked(const Item& item, const Band& band) const;
  [[nodiscard]] RecordsetRef FormatRow() const;

  const Format& format_;
  Database& rest_;
  ShownItems shown_;
  ItemWatch watch_;
  std::string formatStatement_;
  std::string paperStatement_;  // how it begins
  std::vector<Band> bands_;
};

}  // namespace td::designer
