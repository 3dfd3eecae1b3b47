#include "recording/recording_platform.h"

#include <utility>

namespace td::recording {

std::string RecordingMachine::LocalMachineId() {
  recorder_.Request("LocalMachineId");
  return id_;
}

RecordingPlatform::RecordingPlatform(Scenario scenario)
    : scenario_(std::move(scenario)),
      recorder_(scenario_.faults),
      tables_(scenario_.tables),
      database_(recorder_, tables_),
      pictures_(recorder_, scenario_.pictures, scenario_.has_picture_folder),
      messages_(recorder_),
      machine_(recorder_, scenario_.machine),
      windows_(recorder_, messages_, user_, scenario_),
      platform_{database_, pictures_, messages_, machine_, windows_} {}

}  // namespace td::recording
