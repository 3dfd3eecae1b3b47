#include "recording/replay.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "platform/failure.h"
#include "recording/recording_database.h"
#include "recording/recording_platform.h"
#include "service/printer.h"
#include "service/request.h"
#include "service/td_set.h"
#include "windows/frm_area_print_set.h"

namespace td::recording {
namespace {

// The connection text; the tables in memory do not look at it.
constexpr const char* kConnectionText = "recording";

std::string HexNumber(int number) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "0x%08x", static_cast<unsigned>(number));
  return text.data();
}

Json PositionOf(const RecordsetRef& rows) {
  const auto* recorded = dynamic_cast<const RecordingRecordset*>(rows.get());
  return recorded == nullptr ? Json(nullptr) : recorded->Position();
}

// The caller of the component.
class Caller {
 public:
  explicit Caller(RecordingPlatform& platform) : platform_(platform) {}

  void Make(const Call& call) {
    platform_.ExpectUser(call.user);
    try {
      std::visit([this](const auto& action) { Do(action); }, call.action);
    } catch (const Failure& failure) {
      platform_.GetRecorder().Write("raised", {{"number", HexNumber(failure.Number())},
                                               {"description", failure.Description()}});
    }
    const PrintContext& context = Context();
    platform_.GetRecorder().Write("after", {{"do", call.name},
                                            {"PrintOk", context.PrintOk},
                                            {"PrintBlankRows", context.PrintBlankRows},
                                            {"TDBillName", context.TDBillName},
                                            {"row", PositionOf(context.PrintData)},
                                            {"clone", PositionOf(context.PrintDataClone)}});
  }

 private:
  void Do(const SetBlankRows& call) { Printer(platform_.Get()).PrintBlankRows(call.value); }

  void Do(const Print& call) {
    rows_ = RowsOf(call);
    Printer printer(platform_.Get());
    const auto method = call.byArea ? &Printer::DoPrint_GroupByArea : &Printer::DoPrint;
    (printer.*method)(call.New_DoPrint, kConnectionText, call.New_TranType,
                      call.New_OnlyPrintVariantItem, call.New_PrintBorder, rows_, call.TDBillName,
                      nullptr);
  }

  void Do(const OpenSettings& call) {
    TDSet(platform_.Get()).ShowSettings(kConnectionText, call.TranType);
  }
  void Do(const OpenAreaPrinters& /*call*/) {
    PrintContext request;
    request.New_PromptString = kConnectionText;
    frmAreaPrintSet(platform_.Get(), request).ShowModal();
  }

  [[nodiscard]] RecordsetRef RowsOf(const Print& call) const {
    if (std::holds_alternative<SameRows>(call.data)) {
      return rows_;
    }
    if (const auto* own = std::get_if<RecordsetRef>(&call.data)) {
      return *own;
    }
    const auto* rows = std::get_if<PrintRows>(&call.data);
    if (rows == nullptr) {
      return nullptr;
    }
    return std::make_shared<RecordingRecordset>(
        platform_.GetRecorder(), std::make_shared<TableData>(rows->table), rows->canClone);
  }

  RecordingPlatform& platform_;
  RecordsetRef rows_;
};

void MakeCalls(RecordingPlatform& platform) {
  Context() = PrintContext{};
  Caller caller(platform);
  for (const Call& call : platform.GetScenario().calls) {
    caller.Make(call);
  }
  Context() = PrintContext{};
}

}  // namespace

Recording ReplayOn(RealDatabase real, Scenario scenario, RunWitness* witness) {
  RecordingPlatform platform(std::move(scenario), std::move(real));
  platform.Get().witness = witness;
  MakeCalls(platform);
  return {platform.GetRecorder().TakeLines(), nullptr};
}

Recording Replay(const Json& scenario, RunWitness* witness) {
  RecordingPlatform platform(ReadScenario(scenario));
  platform.Get().witness = witness;
  MakeCalls(platform);
  return {platform.GetRecorder().TakeLines(), platform.Tables().AsJson()};
}

Json ParseScenario(const std::string& text) {
  try {
    return Json::parse(text);
  } catch (const Json::exception& error) {
    std::string description = error.what();
    std::replace(description.begin(), description.end(), '\n', ' ');
    throw ScenarioError(description);
  }
}

std::string LineText(const Json& line) {
  return line.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace td::recording
