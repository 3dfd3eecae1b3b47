// The sample database in a folder of its own, and tdprint in that folder.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "program_run.h"
#include "scratch_folder.h"

namespace td {

class SampleShop : public testing::Test {
 protected:
  SampleShop();

  // Changes sample.db.
  void Execute(const std::string& sql);

  // A command of the shell, in the folder, with tdprint and td_replay in reach.
  [[nodiscard]] ProgramResult Shell(const std::string& command) const;

  [[nodiscard]] std::string ContentOf(const std::string& file) const;

  const ScratchFolder folder_;
};

}  // namespace td
