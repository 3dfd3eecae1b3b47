// The platform of a replay, put together from a scenario.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/platform.h"
#include "recording/forwarding_database.h"
#include "recording/memory_tables.h"
#include "recording/recorder.h"
#include "recording/recording_pictures.h"
#include "recording/recording_windows.h"
#include "recording/scenario.h"

namespace td::recording {

class RecordingMachine : public Machine {
 public:
  RecordingMachine(Recorder& recorder, std::string id) : recorder_(recorder), id_(std::move(id)) {}
  std::string LocalMachineId() override;

 private:
  Recorder& recorder_;
  std::string id_;
};

class RecordingPlatform {
 public:
  // Without a real database the statements go to the tables of the scenario.
  explicit RecordingPlatform(Scenario scenario, std::optional<RealDatabase> real = std::nullopt);
  RecordingPlatform(const RecordingPlatform&) = delete;
  RecordingPlatform& operator=(const RecordingPlatform&) = delete;

  [[nodiscard]] Platform& Get() { return platform_; }
  [[nodiscard]] const Scenario& GetScenario() const { return scenario_; }
  [[nodiscard]] Recorder& GetRecorder() { return recorder_; }
  [[nodiscard]] const MemoryTables& Tables() const { return tables_; }

  // What the user does in the window that the next call shows.
  void ExpectUser(const std::vector<UserStep>& steps) { user_.Expect(steps); }

 private:
  Scenario scenario_;
  Recorder recorder_;
  MemoryTables tables_;
  User user_;
  std::unique_ptr<Database> database_;
  RecordingPictures pictures_;
  RecordingMessages messages_;
  RecordingMachine machine_;
  RecordingWindows windows_;
  Platform platform_;
};

}  // namespace td::recording
