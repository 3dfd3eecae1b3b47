#include "recording/recording_platform.h"

#include <utility>

#include "recording/recording_database.h"

namespace td::recording {
namespace {

std::unique_ptr<Database> MakeDatabase(Recorder& recorder, MemoryTables& tables,
                                       std::optional<RealDatabase> real) {
  if (real) return std::make_unique<ForwardingDatabase>(recorder, *std::move(real));
  return std::make_unique<RecordingDatabase>(recorder, tables);
}

}  // namespace

std::string RecordingMachine::LocalMachineId() {
  recorder_.Request("LocalMachineId");
  return id_;
}

RecordingPlatform::RecordingPlatform(Scenario scenario, std::optional<RealDatabase> real)
    : scenario_(std::move(scenario)),
      recorder_(scenario_.faults),
      tables_(scenario_.tables),
      database_(MakeDatabase(recorder_, tables_, std::move(real))),
      pictures_(recorder_, scenario_.pictures, scenario_.hasPictureFolder),
      messages_(recorder_),
      machine_(recorder_, scenario_.machine),
      windows_(recorder_, messages_, user_, scenario_),
      platform_{*database_, pictures_, messages_, machine_, windows_} {}

}  // namespace td::recording
