// The registration of Windows: for all users of the machine where its writer may do that, else for
// the user alone.
#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>
#include <optional>
#include <utility>

#include "client/registration.h"
#include "client/result_failure.h"
#include "files/windows_file.h"
#include "windows/api/system_error.h"
#include "windows/api/wide_text.h"
#include "windows/api/windows_api.h"

namespace td {
namespace {

constexpr std::wstring_view kClasses = L"Software\\Classes";
constexpr std::wstring_view kNamesBegin = L"QbTdPrinter.";
// Of QbTdPrinter.idl.
constexpr const wchar_t* kTypeLibrary = L"{FB0C9C6E-63A5-4F1D-9C52-6E3C7E2B5D40}";
// The system's own marshaller reads the type library.
constexpr const wchar_t* kMarshaller = L"{00020424-0000-0000-C000-000000000046}";
constexpr const wchar_t* kLibraryVersion = L"1.0";
constexpr const wchar_t* kOwnKind = sizeof(void*) == 8 ? L"win64" : L"win32";

struct Interface {
  const wchar_t* name;
  TdGuid id;
};
const std::array<Interface, 3> kInterfaces = {{{L"ITdPrinter", kTdPrinterId},
                                               {L"ITdSession", kTdSessionId},
                                               {L"ITdSettings", kTdSettingsId}}};

struct KeyCloser {
  using pointer = HKEY;
  void operator()(HKEY key) const { RegCloseKey(key); }
};
using Key = std::unique_ptr<HKEY, KeyCloser>;

ResultFailure RegistryFailure(LSTATUS error) {
  const TdResult result = error == ERROR_ACCESS_DENIED ? TD_NO_ACCESS : TD_CANNOT_REGISTER;
  return {result, "注册表无法写入：" + SystemWords(static_cast<unsigned long>(error)) + "。"};
}

void Require(LSTATUS error) {
  if (error != ERROR_SUCCESS) throw RegistryFailure(error);
}

std::wstring Joined(std::wstring_view path, std::wstring_view name) {
  return std::wstring(path) + L"\\" + std::wstring(name);
}

std::wstring ClassPath(const std::wstring& id) {
  return Joined(kClasses, Joined(L"CLSID", id));
}

std::wstring InterfacePath(const TdGuid& id) {
  return Joined(kClasses, Joined(L"Interface", ToWide(TextOfGuid(id))));
}

std::wstring LibraryPath() {
  return Joined(kClasses, Joined(L"TypeLib", kTypeLibrary));
}

Key Make(HKEY scope, const std::wstring& path) {
  HKEY made = nullptr;
  Require(RegCreateKeyExW(scope, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &made, nullptr));
  return Key(made);
}

void PutText(const Key& key, const wchar_t* name, const std::wstring& text) {
  const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  Require(RegSetValueExW(key.get(), name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                         bytes));
}

// The unnamed text of a key; nothing where there is no such key.
std::optional<std::wstring> ReadText(HKEY scope, const std::wstring& path) {
  DWORD bytes = 0;
  constexpr DWORD kKind = RRF_RT_REG_SZ;
  if (RegGetValueW(scope, path.c_str(), nullptr, kKind, nullptr, nullptr, &bytes) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  std::wstring text(bytes / sizeof(wchar_t), L'\0');
  if (RegGetValueW(scope, path.c_str(), nullptr, kKind, nullptr, text.data(), &bytes) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  return text.c_str();
}

void WriteClass(HKEY scope, const RegisteredClass& one) {
  const std::wstring name = ToWide(one.name);
  const std::wstring id = ToWide(TextOfGuid(one.id));
  PutText(Make(scope, Joined(kClasses, name)), nullptr, name);
  PutText(Make(scope, Joined(Joined(kClasses, name), L"CLSID")), nullptr, id);
  const std::wstring path = ClassPath(id);
  PutText(Make(scope, path), nullptr, name);
  PutText(Make(scope, Joined(path, L"ProgID")), nullptr, name);
  (void)Make(scope, Joined(path, L"Programmable"));
  const Key server = Make(scope, Joined(path, L"InprocServer32"));
  PutText(server, nullptr, one.module.wstring());
  PutText(server, L"ThreadingModel", L"Apartment");
  PutText(Make(scope, Joined(path, L"TypeLib")), nullptr, kTypeLibrary);
}

// By it calls through the classes' own interfaces arrive from other threads, too.
void WriteTypeLibrary(HKEY scope, const std::filesystem::path& module) {
  const std::wstring version = Joined(LibraryPath(), kLibraryVersion);
  PutText(Make(scope, version), nullptr, L"QbTdPrinter");
  PutText(Make(scope, Joined(version, Joined(L"0", kOwnKind))), nullptr, module.wstring());
  PutText(Make(scope, Joined(version, L"FLAGS")), nullptr, L"0");
  PutText(Make(scope, Joined(version, L"HELPDIR")), nullptr, module.parent_path().wstring());
  for (const Interface& one : kInterfaces) {
    const std::wstring path = InterfacePath(one.id);
    PutText(Make(scope, path), nullptr, one.name);
    PutText(Make(scope, Joined(path, L"ProxyStubClsid32")), nullptr, kMarshaller);
    const Key typeLibrary = Make(scope, Joined(path, L"TypeLib"));
    PutText(typeLibrary, nullptr, kTypeLibrary);
    PutText(typeLibrary, L"Version", kLibraryVersion);
  }
}

// What tells a file from every other one, whatever path it is named by; nothing where there is
// none.
std::optional<std::array<DWORD, 3>> IdOfFile(const std::filesystem::path& path) {
  const WindowsFile file(CreateFileW(SystemPath(path).c_str(), FILE_READ_ATTRIBUTES,
                                     FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                     nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  BY_HANDLE_FILE_INFORMATION state{};
  if (!file.IsOpen() || GetFileInformationByHandle(file.Handle(), &state) == FALSE) {
    return std::nullopt;
  }
  return {{state.dwVolumeSerialNumber, state.nFileIndexHigh, state.nFileIndexLow}};
}

// Whose registration is to go.
class Owner {
 public:
  // Everybody's.
  Owner() = default;
  // That of a module; another file that is still there belongs to another program.
  explicit Owner(std::filesystem::path module) : module_(std::move(module)) {}

  [[nodiscard]] bool Owns(const std::optional<std::wstring>& registered) const {
    if (module_.empty() || !registered || registered->empty()) return true;
    const auto file = IdOfFile(*registered);
    return !file || file == IdOfFile(module_);
  }

 private:
  std::filesystem::path module_;
};

// False if there was nothing.
bool Remove(HKEY scope, const std::wstring& path) {
  const LSTATUS error = RegDeleteTreeW(scope, path.c_str());
  if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) return false;
  Require(error);
  return true;
}

bool ExistsInOtherView(HKEY scope, const std::wstring& path) {
  constexpr REGSAM kOther = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
  HKEY opened = nullptr;
  if (RegOpenKeyExW(scope, path.c_str(), 0, KEY_READ | kOther, &opened) != ERROR_SUCCESS) {
    return false;
  }
  RegCloseKey(opened);
  return true;
}

// The library stays as long as the component of the other kind is registered.
void RemoveTypeLibrary(HKEY scope, const Owner& owner) {
  const std::wstring kinds = Joined(Joined(LibraryPath(), kLibraryVersion), L"0");
  if (!owner.Owns(ReadText(scope, Joined(kinds, kOwnKind)))) return;
  for (const Interface& one : kInterfaces) Remove(scope, InterfacePath(one.id));
  Remove(scope, Joined(kinds, kOwnKind));
  const bool hasOther = ReadText(scope, Joined(kinds, L"win32")).has_value() ||
                        ReadText(scope, Joined(kinds, L"win64")).has_value();
  if (!hasOther) Remove(scope, LibraryPath());
}

// The names of the component's classes that are registered.
std::vector<std::wstring> NamesIn(HKEY scope) {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(scope, std::wstring(kClasses).c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) {
    return {};
  }
  const Key classes(opened);
  std::vector<std::wstring> names;
  std::array<wchar_t, 256> name{};
  for (DWORD i = 0;; ++i) {
    auto length = static_cast<DWORD>(name.size());
    const LSTATUS error =
        RegEnumKeyExW(classes.get(), i, name.data(), &length, nullptr, nullptr, nullptr, nullptr);
    if (error == ERROR_MORE_DATA) continue;  // a longer name than any of the component's
    if (error != ERROR_SUCCESS) return names;
    if (std::wstring_view(name.data(), length).starts_with(kNamesBegin)) {
      names.emplace_back(name.data(), length);
    }
  }
}

std::optional<std::wstring> IdIn(HKEY scope, const std::wstring& name) {
  return ReadText(scope, Joined(Joined(kClasses, name), L"CLSID"));
}

std::optional<std::wstring> ModuleOf(HKEY scope, const std::wstring& id) {
  return ReadText(scope, Joined(ClassPath(id), L"InprocServer32"));
}

bool HasClassOf(HKEY scope, const std::filesystem::path& module) {
  const auto file = IdOfFile(module);
  return std::ranges::any_of(NamesIn(scope), [&](const std::wstring& name) {
    const auto id = IdIn(scope, name);
    const auto registered = id ? ModuleOf(scope, *id) : std::nullopt;
    return registered && IdOfFile(*registered) == file;
  });
}

// The names stay as long as the component of the other kind, of 32 or 64 bits, is registered. False
// if the owner had no class there.
bool RemoveFrom(HKEY scope, const Owner& owner) {
  bool hadClass = false;
  for (const std::wstring& name : NamesIn(scope)) {
    const auto id = IdIn(scope, name);
    if (id && !id->empty()) {
      if (!owner.Owns(ModuleOf(scope, *id))) continue;
      if (Remove(scope, ClassPath(*id))) hadClass = true;
    }
    if (!id || !ExistsInOtherView(scope, ClassPath(*id))) Remove(scope, Joined(kClasses, name));
  }
  RemoveTypeLibrary(scope, owner);
  return hadClass;
}

void WriteTo(HKEY scope, const std::vector<RegisteredClass>& classes) {
  for (const RegisteredClass& one : classes) WriteClass(scope, one);
  WriteTypeLibrary(scope, classes.front().module);
}

// What can't be done to a part of the registry, mostly for want of rights.
template <class Change>
std::optional<ResultFailure> FailureOf(const Change& change) {
  try {
    change();
    return std::nullopt;
  } catch (const ResultFailure& failure) {
    return failure;
  }
}

}  // namespace

void WriteRegistration(const std::vector<RegisteredClass>& classes) {
  const std::filesystem::path& module = classes.front().module;
  const bool wasThere = HasClassOf(HKEY_LOCAL_MACHINE, module);
  if (!FailureOf([&] { WriteTo(HKEY_LOCAL_MACHINE, classes); })) {
    // An older one of the user's would hide it.
    RemoveFrom(HKEY_CURRENT_USER, Owner());
    return;
  }
  // Half a registration serves nobody; a whole one has got nothing but what it had.
  if (!wasThere) (void)FailureOf([&] { RemoveFrom(HKEY_LOCAL_MACHINE, Owner(module)); });
  WriteTo(HKEY_CURRENT_USER, classes);  // what else is wrong shows itself again
}

// The user's own first: what is registered for the machine may be none of the user's business.
void RemoveRegistration(const std::filesystem::path& module) {
  const Owner owner(module);
  const bool wasUsers = RemoveFrom(HKEY_CURRENT_USER, owner);
  const auto failure = FailureOf([&] { RemoveFrom(HKEY_LOCAL_MACHINE, owner); });
  if (failure && (!wasUsers || failure->Result() != TD_NO_ACCESS)) throw ResultFailure(*failure);
}

}  // namespace td
