// The module as a program sees it, on a machine without a display and without a printer, and a
// small database with formats.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "client/client.h"
#include "objects/owned.h"
#include "temporary_database.h"

namespace td {

// The module's file, loaded as long as the object lives.
class LoadedModule {
 public:
  explicit LoadedModule(const std::string& path = QBTD_MODULE);
  ~LoadedModule();
  LoadedModule(const LoadedModule&) = delete;
  LoadedModule& operator=(const LoadedModule&) = delete;

  [[nodiscard]] Reference<TdClassFactory> Factory(const TdGuid& classId) const;
  [[nodiscard]] Reference<TdDispatch> Create(const TdGuid& classId) const;
  [[nodiscard]] bool CanUnload() const { return canUnloadNow() == TD_OK; }

  TdGetClassObjectFunction getClassObject;
  TdCanUnloadNowFunction canUnloadNow;
  TdRegisterServerFunction registerServer;
  TdRegisterServerFunction unregisterServer;

 private:
  void* handle_;
};

// How a call ended.
struct Outcome {
  TdResult result = TD_OK;
  TdResult number = TD_OK;  // of an exception
  std::string description;
};

// Arguments of a call, which are cleared when the object ends.
class Arguments {
 public:
  Arguments(std::initializer_list<TdVariant> values) : values_(values) {}
  ~Arguments();
  Arguments(const Arguments&) = delete;
  Arguments& operator=(const Arguments&) = delete;

  [[nodiscard]] TdVariant* Data() { return values_.data(); }
  [[nodiscard]] std::uint32_t Count() const { return static_cast<std::uint32_t>(values_.size()); }

 private:
  std::vector<TdVariant> values_;
};

Outcome Call(TdDispatch* object, const char* method, Arguments arguments);
Outcome Get(TdDispatch* object, const char* property, OwnedVariant& value);
Outcome Put(TdDispatch* object, const char* property, TdVariant value);
void ExpectOk(const Outcome& outcome);
// The call raised an error with that number, as a result code.
void ExpectRaised(const Outcome& outcome, TdResult number, const std::string& description);

class ServerTest : public testing::Test {
 protected:
  // Bill type 21 has the formats 销售单, which is selected and prints FName in ten rows a page, and
  // 金额单, which prints FAmount.
  ServerTest();
  ~ServerTest() override;

  [[nodiscard]] Reference<TdDispatch> NewPrinter() const {
    return module_->Create(kTdPrinterClass);
  }
  // Prints at once with the selected format.
  Outcome Print(TdDispatch* printer, TdDispatch* data, const char* format = "") const;
  Outcome PrintByArea(TdDispatch* printer, TdDispatch* data) const;
  [[nodiscard]] static bool PrintOk(TdDispatch* printer);

  // The export file of the last print; empty if there is none.
  [[nodiscard]] std::string Exported() const;
  [[nodiscard]] bool HasPrinted(const std::string& text) const {
    return Exported().find(text) != std::string::npos;
  }
  // Writes the file that a platform reads when it is made.
  void WriteBarcodeSettings(const std::string& content) const;

  // What the module wrote to standard error since the test began.
  [[nodiscard]] static std::string Messages();

  TemporaryFolder folder_;
  std::string connection_;
  std::unique_ptr<LoadedModule> module_;
};

}  // namespace td
