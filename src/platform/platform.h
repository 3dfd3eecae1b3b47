// Everything that the logic needs from outside, in one place.
#pragma once

#include <string>

#include "platform/database.h"
#include "platform/pictures.h"
#include "platform/windows.h"

namespace td {

class RunWitness;

inline constexpr int kInformationIcon = 64;

class Messages {
 public:
  virtual ~Messages() = default;
  // A message box with one button and no title of its own; returns when the user has closed it.
  virtual void ShowBox(const std::string& text, int style) = 0;
};

class Machine {
 public:
  virtual ~Machine() = default;
  // The machine's address as text, asked for afresh each time.
  virtual std::string LocalMachineId() = 0;
};

// Borrowed, never owned: the platform outlives every class of the component that was given it.
struct Platform {
  Database& database;
  Pictures& pictures;
  Messages& messages;
  Machine& machine;
  Windows& windows;
  RunWitness* witness = nullptr;  // is told of the runs if there is one
};

}  // namespace td
