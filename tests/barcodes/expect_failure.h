// What every refusal has in common.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/failure.h"

namespace td {

// Runs `action` and returns the description of the Failure that it must end with. A description
// must say something, and must not look like a lock conflict.
template <typename Action>
std::string ExpectFailure(int number, Action action) {
  try {
    action();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), number) << failure.Description();
    EXPECT_FALSE(failure.Description().empty());
    EXPECT_EQ(failure.Description().find("锁"), std::string::npos);
    return failure.Description();
  }
  ADD_FAILURE() << "no failure where number " << number << " was expected";
  return {};
}

}  // namespace td
