// The address of this machine.
#pragma once

#include <string>

#include "platform/platform.h"

namespace td {

// The address is the first IPv4 address of an adapter that is up and no loopback, in the system's
// order of adapters; if there is none, the first such IPv6 address that is valid beyond its link;
// if there is none either, 127.0.0.1.
class LocalMachine : public Machine {
 public:
  std::string LocalMachineId() override;
};

}  // namespace td
