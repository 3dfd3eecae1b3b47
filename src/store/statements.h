// Every statement that the component sends, each built in one place. Values are spliced in as they
// are: a quote in a name breaks the statement, and the error policy reports it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "state/print_context.h"
#include "store/template_item.h"

namespace td {

// The format asked for by name, or the selected one when `context.TDBillName` is empty.
[[nodiscard]] std::string TemplateRowStatement(const PrintContext& context);

// The paper of a format on one machine.
[[nodiscard]] std::string MachinePaperStatement(std::string_view machineId,
                                                std::string_view formatName);

// The items of a band for DrawItems. A filter takes the place of the variable-only restriction.
[[nodiscard]] std::string ItemStatement(const PrintContext& context, ItemSite site,
                                        std::string_view filter);

// A filter: the frame of a row without its data.
inline constexpr std::string_view kOnlyLines = "t2.FTypeID=1";

// All items of the format, those that no band draws included. No run asks for them.
[[nodiscard]] std::string AllItemsStatement(const PrintContext& context);

// The items of the head, hidden positions included.
[[nodiscard]] std::string HeaderItemStatement(const PrintContext& context);

[[nodiscard]] std::string ComplexQtySettingStatement();
[[nodiscard]] std::string AdvertisingSettingStatement();

[[nodiscard]] std::string GoodsPictureStatement(std::int32_t itemId);

// The settings dialog: its formats with their settings, and what it saves.
[[nodiscard]] std::string FormatsStatement(const PrintContext& context);
[[nodiscard]] std::string FormatSettingsStatement(const PrintContext& context,
                                                  std::string_view formatName);
[[nodiscard]] std::string ClearSelectionStatement(const PrintContext& context);

struct OverlaySettings {
  double AdjuctLeft = 0;
  double AdjuctTop = 0;
  double AdjuctHeader = 0;
  double RowHeight = 0;
  double RowsPerPage = 0;
  double QtysPerRow = 0;
  int Orientation = 0;
  int HeaderPerPage = 0;
  int FooterPerPage = 0;
  int IntegralPage = 0;
  std::string PrintDevice;
};

[[nodiscard]] std::string SaveOverlaySettingsStatement(const PrintContext& context,
                                                       std::string_view formatName,
                                                       const OverlaySettings& settings);

// The stock-area printer dialog.
struct AreaPrinterKey {
  int tranType = 0;
  std::string formatName;
  std::string stockArea;
};

[[nodiscard]] std::string FormatNamesStatement(int tranType);
[[nodiscard]] std::string StockAreasStatement();
[[nodiscard]] std::string AreaPrinterStatement(std::string_view machineId,
                                               const AreaPrinterKey& key);
[[nodiscard]] std::string ClearAreaPrinterStatement(std::string_view machineId,
                                                    const AreaPrinterKey& key);
[[nodiscard]] std::string SaveAreaPrinterStatement(std::string_view machineId,
                                                   const AreaPrinterKey& key,
                                                   std::string_view printer);

// What page setup stores: margins in twips as the surface gives them, paper and printer.
struct PageSettings {
  double MarginLeft = 0;
  double MarginTop = 0;
  double MarginRight = 0;
  double MarginBottom = 0;
  std::int32_t Orientation = 0;
  std::int32_t PaperSize = 0;
  float PaperWidth = 0;
  float PaperHeight = 0;
  std::string Device;
};

[[nodiscard]] std::string SaveFormatPaperStatement(const PrintContext& context,
                                                   const PageSettings& settings);
[[nodiscard]] std::string ClearMachinePaperStatement(std::string_view machineId,
                                                     std::string_view formatName);
[[nodiscard]] std::string SaveMachinePaperStatement(std::string_view machineId,
                                                    std::string_view formatName,
                                                    const PageSettings& settings);

}  // namespace td
