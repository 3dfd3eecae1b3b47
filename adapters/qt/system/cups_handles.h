// Owners of the printing system's objects.
#pragma once

#include <memory>
#include <string>

#include "qt/system/cups_library.h"

namespace td {

// One printer with the user's settings for it, and what the printing system knows about it.
class CupsPrinter {
 public:
  explicit CupsPrinter(const std::string& name)
      : destination_(Cups().cupsGetNamedDest(CUPS_HTTP_DEFAULT, name.c_str(), nullptr)),
        details_(destination_ ? Cups().cupsCopyDestInfo(CUPS_HTTP_DEFAULT, destination_.get())
                              : nullptr) {}

  // The rest needs a printer that is known and answers.
  [[nodiscard]] bool IsReachable() const { return details_ != nullptr; }
  [[nodiscard]] cups_dest_t* Destination() const { return destination_.get(); }
  [[nodiscard]] cups_dinfo_t* Details() const { return details_.get(); }

 private:
  struct Free {
    void operator()(cups_dest_t* destination) const { Cups().cupsFreeDests(1, destination); }
    void operator()(cups_dinfo_t* details) const { Cups().cupsFreeDestInfo(details); }
  };
  std::unique_ptr<cups_dest_t, Free> destination_;
  std::unique_ptr<cups_dinfo_t, Free> details_;
};

// The options of a job.
class CupsOptions {
 public:
  CupsOptions() = default;
  ~CupsOptions() { Cups().cupsFreeOptions(count_, list_); }
  CupsOptions(const CupsOptions&) = delete;
  CupsOptions& operator=(const CupsOptions&) = delete;

  // Replaces an option of the same name.
  void Set(const std::string& name, const std::string& value) {
    count_ = Cups().cupsAddOption(name.c_str(), value.c_str(), count_, &list_);
  }
  [[nodiscard]] int Count() const { return count_; }
  [[nodiscard]] cups_option_t* List() const { return list_; }

 private:
  cups_option_t* list_ = nullptr;
  int count_ = 0;
};

}  // namespace td
