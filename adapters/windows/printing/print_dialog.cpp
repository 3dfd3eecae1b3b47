#include "windows/printing/print_dialog.h"

#include <algorithm>
#include <cstring>
#include <numeric>

#include "platform/failure.h"
#include "platform/standard_failures.h"
#include "windows/api/wide_text.h"

// Behind the system's other headers.
#include <cderr.h>
#include <commdlg.h>

namespace td {
namespace {

// Movable memory, in which the dialog takes and gives its answers; it may replace it.
class SharedMemory {
 public:
  SharedMemory() = default;
  ~SharedMemory() {
    if (handle_ != nullptr) GlobalFree(handle_);
  }
  SharedMemory(const SharedMemory&) = delete;
  SharedMemory& operator=(const SharedMemory&) = delete;

  void Put(const std::vector<std::byte>& bytes) {
    if (bytes.empty()) return;
    handle_ = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    if (handle_ == nullptr) return;
    std::memcpy(GlobalLock(handle_), bytes.data(), bytes.size());
    GlobalUnlock(handle_);
  }

  [[nodiscard]] std::vector<std::byte> Bytes() const {
    if (handle_ == nullptr) return {};
    const auto* first = static_cast<const std::byte*>(GlobalLock(handle_));
    if (first == nullptr) return {};
    std::vector<std::byte> bytes(first, first + GlobalSize(handle_));
    GlobalUnlock(handle_);
    return bytes;
  }

  [[nodiscard]] HGLOBAL& Handle() { return handle_; }

 private:
  HGLOBAL handle_ = nullptr;
};

// Three texts behind a header that tells where they begin, in characters.
std::vector<std::byte> NamesOf(const std::string& printer) {
  const std::wstring name = ToWide(printer);
  std::wstring texts = L"winspool";
  DEVNAMES header{};
  constexpr auto kHeader = static_cast<WORD>(sizeof(DEVNAMES) / sizeof(wchar_t));
  header.wDriverOffset = kHeader;
  header.wDeviceOffset = static_cast<WORD>(kHeader + texts.size() + 1);
  texts += L'\0' + name;
  header.wOutputOffset = static_cast<WORD>(kHeader + texts.size() + 1);
  texts += L'\0';
  std::vector<std::byte> bytes(sizeof header + (texts.size() + 1) * sizeof(wchar_t));
  std::memcpy(bytes.data(), &header, sizeof header);
  std::memcpy(bytes.data() + sizeof header, texts.c_str(), (texts.size() + 1) * sizeof(wchar_t));
  return bytes;
}

std::string PrinterIn(const std::vector<std::byte>& names) {
  if (names.size() < sizeof(DEVNAMES)) return {};
  const auto* header = reinterpret_cast<const DEVNAMES*>(names.data());
  const auto* texts = reinterpret_cast<const wchar_t*>(names.data());
  const std::size_t end = names.size() / sizeof(wchar_t);
  const std::size_t start = std::min<std::size_t>(header->wDeviceOffset, end);
  return FromWide({texts + start, wcsnlen(texts + start, end - start)});
}

std::string Reason(DWORD error) {
  const bool hasNone = error == PDERR_NODEVICES || error == PDERR_NODEFAULTPRN;
  return hasNone ? "本机没有安装打印机，无法打印。"
                 : "系统无法打开打印对话框（错误 " + std::to_string(error) + "）。";
}

JobOptions OptionsOf(const PRINTDLGW& answer, std::vector<std::byte> settings) {
  JobOptions options;
  options.copies = std::max<int>(1, answer.nCopies);
  options.collated = (answer.Flags & PD_COLLATE) != 0;
  if (settings.size() >= sizeof(DEVMODEW)) {
    const auto* mode = reinterpret_cast<const DEVMODEW*>(settings.data());
    const bool counts = (mode->dmFields & DM_COPIES) != 0 && mode->dmCopies > 1;
    // Either the dialog counts them or the driver.
    if (counts && answer.nCopies <= 1) {
      options.copies = mode->dmCopies;
      options.collated = (mode->dmFields & DM_COLLATE) == 0 || mode->dmCollate != DMCOLLATE_FALSE;
    }
    options.settings = std::move(settings);
  }
  return options;
}

std::vector<int> PagesFrom(int first, int last, int pageCount) {
  const int begin = std::max(1, std::min(first, last));
  const int end = std::min(pageCount, std::max(first, last));
  std::vector<int> pages(static_cast<std::size_t>(std::max(0, end - begin + 1)));
  std::iota(pages.begin(), pages.end(), begin);
  return pages;
}

}  // namespace

std::optional<PrintChoice> AskForPrinter(const std::string& printer, int pageCount, HWND owner) {
  SharedMemory names;
  SharedMemory settings;
  if (const DriverSettings driver(printer); driver.IsKnown()) {
    names.Put(NamesOf(printer));
    settings.Put(driver.Bytes());
  }
  const auto lastPage = static_cast<WORD>(std::clamp(pageCount, 1, 0xFFFF));
  PRINTDLGW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner;
  dialog.hDevMode = settings.Handle();
  dialog.hDevNames = names.Handle();
  dialog.Flags = PD_ALLPAGES | PD_NOSELECTION | PD_HIDEPRINTTOFILE | PD_NOWARNING | PD_COLLATE;
  dialog.nFromPage = 1;
  dialog.nToPage = lastPage;
  dialog.nMinPage = 1;
  dialog.nMaxPage = lastPage;
  dialog.nCopies = 1;
  const bool isConfirmed = PrintDlgW(&dialog) != FALSE;
  settings.Handle() = dialog.hDevMode;
  names.Handle() = dialog.hDevNames;
  if (!isConfirmed) {
    const DWORD error = CommDlgExtendedError();
    if (error == 0) return std::nullopt;
    throw Failure(kDeviceIo, Reason(error));
  }
  PrintChoice choice;
  choice.printer = PrinterIn(names.Bytes());
  choice.options = OptionsOf(dialog, settings.Bytes());
  if ((dialog.Flags & PD_PAGENUMS) != 0) {
    choice.pages = PagesFrom(dialog.nFromPage, dialog.nToPage, pageCount);
  }
  return choice;
}

}  // namespace td
