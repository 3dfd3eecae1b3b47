#include "recording/recorder.h"

#include <algorithm>

#include "platform/failure.h"

namespace td::recording {

Recorder::Recorder(std::vector<Fault> faults) {
  for (Fault& fault : faults) {
    faults_.push_back({std::move(fault)});
  }
}

void Recorder::Write(const char* kind, Fields fields) {
  Json line = Json::object({{"e", kind}});
  for (const auto& [name, value] : fields) {
    line[name] = value;
  }
  lines_.push_back(std::move(line));
}

void Recorder::Request(std::string_view kind, std::optional<std::string_view> text) {
  const Fault* failing = nullptr;
  for (Injected& injected : faults_) {
    const Fault& fault = injected.fault;
    const bool counts = !fault.match || (text && text->find(*fault.match) != text->npos);
    if (fault.on != kind || !counts) {
      continue;
    }
    ++injected.requests;
    const std::int64_t over = injected.requests - fault.nth;
    if (failing == nullptr && over >= 0 && over < fault.times) {
      failing = &fault;
    }
  }
  if (failing != nullptr) {
    throw Failure(failing->number, failing->description);
  }
}

bool Recorder::IsInjected(std::string_view description) const {
  return std::any_of(faults_.begin(), faults_.end(), [&](const Injected& injected) {
    return injected.fault.description == description;
  });
}

std::vector<Json> Recorder::TakeLines() {
  return std::move(lines_);
}

}  // namespace td::recording
