// Expectation of a failure with a certain number.
#pragma once

#include <gtest/gtest.h>

#include "platform/failure.h"

namespace td {

template <typename Action>
void ExpectFailure(int number, Action action) {
  try {
    action();
    ADD_FAILURE() << "expected failure " << number;
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), number);
    EXPECT_FALSE(failure.Description().empty());
  }
}

}  // namespace td
