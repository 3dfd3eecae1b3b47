#include "qt/system/local_machine.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>

#include <memory>

namespace td {
namespace {

using Interfaces = std::unique_ptr<ifaddrs, decltype(&freeifaddrs)>;

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
  char text[INET6_ADDRSTRLEN] = "";
  return inet_ntop(family, bytes, text, sizeof text) == nullptr ? std::string() : text;
}

std::string FirstAddress(const ifaddrs* first, int family) {
  for (const ifaddrs* entry = first; entry != nullptr; entry = entry->ifa_next) {
    const bool isUp = (entry->ifa_flags & IFF_UP) != 0;
    const bool isLoopback = (entry->ifa_flags & IFF_LOOPBACK) != 0;
    if (!isUp || isLoopback) continue;
    if (std::string text = AddressText(entry->ifa_addr, family); !text.empty()) return text;
  }
  return {};
}

}  // namespace

std::string LocalMachine::LocalMachineId() {
  ifaddrs* list = nullptr;
  const Interfaces interfaces(getifaddrs(&list) == 0 ? list : nullptr, &freeifaddrs);
  for (const int family : {AF_INET, AF_INET6}) {
    if (std::string text = FirstAddress(interfaces.get(), family); !text.empty()) return text;
  }
  return "127.0.0.1";
}

}  // namespace td
