#include "server_fixture.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "file_content.h"
#include "module_loading.h"
#include "objects/variant_values.h"
#include "test_rows.h"

namespace td {
namespace {

constexpr const char* kFormats = R"(
  insert into TDBill (FTDBillID, FTranType, FTDBillName, FSelected, FPaperSize, FRowsPerPage,
                      FRowHeight, FHeaderPerPage)
    values (1, 21, '销售单', 1, 9, 10, 300, 0), (2, 21, '金额单', 0, 9, 10, 300, 0);
  insert into TDBillDetail (FTDBillID, FSite, FLeft, FTop, FWidth, FHeight, FIsVariant,
                            FObjectFieldName)
    values (1, 3, 500, 1500, 5000, 300, 1, '品名'), (2, 3, 500, 1500, 5000, 300, 1, '金额');
  insert into TDVariant values (21, '品名', 'FName'), (21, '金额', 'FAmount');
)";

template <class Function>
Function Exported(void* handle, const char* name) {
  auto function = reinterpret_cast<Function>(ExportOf(handle, name));
  if (function == nullptr) throw std::runtime_error(name);
  return function;
}

Outcome OutcomeOf(TdResult result, TdExceptionInfo& info) {
  Outcome outcome{result, info.result, TextOf(info.description)};
  TdClearException(&info);
  return outcome;
}

}  // namespace

LoadedModule::LoadedModule(const std::string& path) : handle_(LoadModule(path)) {
  getClassObject = td::Exported<TdGetClassObjectFunction>(handle_, "DllGetClassObject");
  canUnloadNow = td::Exported<TdCanUnloadNowFunction>(handle_, "DllCanUnloadNow");
  registerServer = td::Exported<TdRegisterServerFunction>(handle_, "DllRegisterServer");
  unregisterServer = td::Exported<TdRegisterServerFunction>(handle_, "DllUnregisterServer");
}

LoadedModule::~LoadedModule() {
  UnloadModule(handle_);
}

Reference<TdClassFactory> LoadedModule::Factory(const TdGuid& classId) const {
  void* found = nullptr;
  EXPECT_EQ(getClassObject(&classId, &kTdClassFactoryId, &found), TD_OK);
  return Reference<TdClassFactory>::Taking(static_cast<TdClassFactory*>(found));
}

Reference<TdDispatch> LoadedModule::Create(const TdGuid& classId) const {
  const auto factory = Factory(classId);
  void* object = nullptr;
  EXPECT_EQ(factory.Get()->table->CreateInstance(factory.Get(), nullptr, &kTdDispatchId, &object),
            TD_OK);
  return Reference<TdDispatch>::Taking(static_cast<TdDispatch*>(object));
}

Arguments::~Arguments() {
  for (TdVariant& value : values_) TdClearVariant(&value);
}

Outcome Call(TdDispatch* object, const char* method, Arguments arguments) {
  TdExceptionInfo info{};
  const TdResult result =
      TdCall(object, method, arguments.Data(), arguments.Count(), nullptr, &info);
  return OutcomeOf(result, info);
}

Outcome Get(TdDispatch* object, const char* property, OwnedVariant& value) {
  TdExceptionInfo info{};
  const TdResult result = TdGet(object, property, &*value, &info);
  return OutcomeOf(result, info);
}

Outcome Put(TdDispatch* object, const char* property, TdVariant value) {
  TdExceptionInfo info{};
  const TdResult result = TdPut(object, property, value, &info);
  return OutcomeOf(result, info);
}

void ExpectOk(const Outcome& outcome) {
  EXPECT_EQ(outcome.result, TD_OK) << std::hex << outcome.number << " " << outcome.description;
}

void ExpectRaised(const Outcome& outcome, TdResult number, const std::string& description) {
  EXPECT_EQ(outcome.result, TD_EXCEPTION);
  EXPECT_EQ(outcome.number, number) << std::hex << outcome.number;
  EXPECT_EQ(outcome.description, description);
}

ServerTest::ServerTest()
    : connection_(MakeDatabase(folder_.File("bills.db"),
                               ContentOf(QBTD_SOURCE_DIR "/examples/schema.sql") + kFormats)) {
  PutVariable("QBTDPRINTER_STATE_DIR", folder_.File("state"));
  PutVariable(kSettingsVariable, folder_.File("config"));
  testing::internal::CaptureStderr();
  module_ = std::make_unique<LoadedModule>();
}

ServerTest::~ServerTest() {
  EXPECT_TRUE(!module_ || module_->CanUnload()) << "an object is still held";
  EXPECT_EQ(TestRows::Alive(), 0) << "data objects were not given back";
  const std::string messages = testing::internal::GetCapturedStderr();
  if (HasFailure()) std::fputs(messages.c_str(), stderr);
}

Outcome ServerTest::Print(TdDispatch* printer, TdDispatch* data, const char* format) const {
  return Call(printer, "DoPrint",
              {TdFlagVariant(1), TdTextVariant(connection_.c_str()), TdIntegerVariant(21),
               TdFlagVariant(0), TdFlagVariant(0), TdDispatchVariant(data), TdTextVariant(format)});
}

Outcome ServerTest::PrintByArea(TdDispatch* printer, TdDispatch* data) const {
  return Call(printer, "DoPrint_GroupByArea",
              {TdFlagVariant(1), TdTextVariant(connection_.c_str()), TdIntegerVariant(21),
               TdFlagVariant(0), TdFlagVariant(0), TdDispatchVariant(data)});
}

bool ServerTest::PrintOk(TdDispatch* printer) {
  OwnedVariant value;
  ExpectOk(Get(printer, "PrintOk", value));
  EXPECT_EQ(value->type, TD_BOOLEAN);
  return value->value.flag == TD_TRUE_FLAG;
}

std::string ServerTest::Exported() const {
  return ContentOf(PathOf(folder_.File("state/订单.html")));
}

void ServerTest::WriteBarcodeSettings(const std::string& content) const {
  std::filesystem::create_directories(folder_.Path() / "config" / "qbtdprinter");
  std::ofstream(folder_.Path() / "config" / "qbtdprinter" / "barcode.conf") << content;
}

std::string ServerTest::Messages() {
  std::string messages = testing::internal::GetCapturedStderr();
  testing::internal::CaptureStderr();
  return messages;
}

}  // namespace td
