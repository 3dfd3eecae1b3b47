// A program that ends while it still has an object of the module:
//   leaving_host.exe MODULE CLASS [CONNECTION FILE]    a session prints into the file before
#include "client/client.h"
#include "client/recordsets.h"
#include "windows/api/wide_text.h"
#include "windows/api/windows_api.h"

// Behind the system's other headers.
#include <objbase.h>
#include <oleauto.h>

namespace {

// Where it stopped.
enum Step { kDone, kArguments, kModule, kFactory, kObject, kCall, kOutput, kRows, kPrint };

TdDispatch* NewObject(HMODULE module, const CLSID& id, Step& step) {
  const auto get = reinterpret_cast<HRESULT(STDAPICALLTYPE*)(const GUID&, const GUID&, void**)>(
      reinterpret_cast<void*>(GetProcAddress(module, "DllGetClassObject")));
  void* factory = nullptr;
  step = kFactory;
  if (FAILED(get(id, IID_IClassFactory, &factory))) return nullptr;
  void* object = nullptr;
  step = kObject;
  if (FAILED(
          static_cast<IClassFactory*>(factory)->CreateInstance(nullptr, IID_IDispatch, &object))) {
    return nullptr;
  }
  return static_cast<TdDispatch*>(object);
}

Step Print(TdDispatch* session, const wchar_t* connection, const wchar_t* file) {
  TdVariant output = TdTextVariant(td::FromWide(file).c_str());
  if (TD_FAILED(TdCall(session, "ToHtml", &output, 1, nullptr, nullptr))) return kOutput;
  const std::string text = td::FromWide(connection);
  TdDispatch* rows = nullptr;
  if (TD_FAILED(TdOpenRecordset(text.c_str(), "select 7 FInterID, '大米' FName", &rows, nullptr))) {
    return kRows;
  }
  TdVariant arguments[] = {TdFlagVariant(1),     TdTextVariant(text.c_str()),
                           TdIntegerVariant(21), TdFlagVariant(0),
                           TdFlagVariant(0),     TdDispatchVariant(rows)};
  return TD_FAILED(TdCall(session, "DoPrint", arguments, 6, nullptr, nullptr)) ? kPrint : kDone;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  if (count != 3 && count != 5) return kArguments;
  CoInitialize(nullptr);
  const HMODULE module = LoadLibraryW(arguments[1]);
  CLSID id{};
  if (module == nullptr || FAILED(CLSIDFromString(arguments[2], &id))) return kModule;
  Step step = kDone;
  TdDispatch* printer = NewObject(module, id, step);
  if (printer == nullptr) return step;
  TdVariant value;
  if (TD_FAILED(TdGet(printer, "PrintOk", &value, nullptr))) return kCall;
  if (count == 5) {
    step = Print(printer, arguments[3], arguments[4]);
    if (step != kDone) return step;
  }
  CoUninitialize();  // with the object, and the rows that it has printed, still there
  return kDone;
}
