#include "windows/system/local_machine.h"

// The sockets come before all else of the system.
#include <winsock2.h>
#include <ws2tcpip.h>

// Behind them.
#include <iphlpapi.h>

#include <array>
#include <cstddef>
#include <vector>

#include "windows/api/wide_text.h"

namespace td {
namespace {

std::vector<std::byte> ReadAdapters() {
  constexpr ULONG kNothingElse = GAA_FLAG_SKIP_ANYCAST | GAA_FLAG_SKIP_MULTICAST |
                                 GAA_FLAG_SKIP_DNS_SERVER | GAA_FLAG_SKIP_FRIENDLY_NAME;
  std::vector<std::byte> list(16'384);
  for (;;) {
    auto size = static_cast<ULONG>(list.size());
    const ULONG result =
        GetAdaptersAddresses(AF_UNSPEC, kNothingElse, nullptr,
                             reinterpret_cast<IP_ADAPTER_ADDRESSES*>(list.data()), &size);
    if (result == ERROR_SUCCESS) return list;
    if (result != ERROR_BUFFER_OVERFLOW) return {};
    list.resize(size);
  }
}

// The address as text, empty if it is of another family or reaches only its own link.
std::string AddressText(const sockaddr* address, int family) {
  if (address == nullptr || address->sa_family != family) return {};
  const void* bytes = nullptr;
  if (family == AF_INET) {
    bytes = &reinterpret_cast<const sockaddr_in*>(address)->sin_addr;
  } else {
    const in6_addr& wide = reinterpret_cast<const sockaddr_in6*>(address)->sin6_addr;
    if (IN6_IS_ADDR_LINKLOCAL(&wide)) return {};
    bytes = &wide;
  }
  std::array<wchar_t, INET6_ADDRSTRLEN> text{};
  return InetNtopW(family, bytes, text.data(), text.size()) == nullptr ? std::string()
                                                                       : FromWide(text.data());
}

std::string FirstAddress(const IP_ADAPTER_ADDRESSES* first, int family) {
  for (const auto* adapter = first; adapter != nullptr; adapter = adapter->Next) {
    if (adapter->OperStatus != IfOperStatusUp || adapter->IfType == IF_TYPE_SOFTWARE_LOOPBACK) {
      continue;
    }
    for (const auto* entry = adapter->FirstUnicastAddress; entry != nullptr; entry = entry->Next) {
      std::string text = AddressText(entry->Address.lpSockaddr, family);
      if (!text.empty()) return text;
    }
  }
  return {};
}

}  // namespace

std::string LocalMachine::LocalMachineId() {
  const std::vector<std::byte> list = ReadAdapters();
  const auto* first =
      list.empty() ? nullptr : reinterpret_cast<const IP_ADAPTER_ADDRESSES*>(list.data());
  for (const int family : {AF_INET, AF_INET6}) {
    if (std::string text = FirstAddress(first, family); !text.empty()) return text;
  }
  return "127.0.0.1";
}

}  // namespace td
