// What a piece of code fails with.
#pragma once

#include <gtest/gtest.h>

#include "platform/failure.h"

namespace td {

// Runs `action`, which must fail, and returns its failure.
template <typename Action>
Failure FailureOf(const Action& action) {
  try {
    action();
  } catch (const Failure& failure) {
    return failure;
  }
  ADD_FAILURE() << "did not fail";
  return {0, ""};
}

}  // namespace td
