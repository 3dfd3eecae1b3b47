#include "store/statements.h"

#include "text/conversions.h"

namespace td {
namespace {

// The frame that the item queries share. They differ in the case of one column, which is kept
// because the statements are matched byte for byte in traces.
std::string ItemsOfFormat(const PrintContext& context, std::string_view tranTypeColumn) {
  const std::string tranType = ToText(context.New_TranType);
  std::string sql =
      "select t2.*,t3.FVarName as FFieldName from ((select FTDBillID from TDBill where ";
  sql.append(tranTypeColumn).append("=").append(tranType);
  sql.append(" and FTDBillName='").append(context.TDBillName).append("') t1 ");
  sql.append("Inner Join TDBillDetail t2 ON t1.FTDBillID=t2.FTDBillID) ");
  sql.append("Left Join (select * from TDVariant where FTranType=").append(tranType);
  sql.append(") t3 ON t2.FObjectFieldName=t3.FVarCaption ");
  return sql;
}

std::string SiteText(ItemSite site) {
  return ToText(static_cast<std::int16_t>(site));
}

// Two bill types that use the same format name share one row a machine.
std::string OfMachineAndFormat(std::string_view machineId, std::string_view formatName) {
  std::string clause = " where FIP='";
  clause.append(machineId).append("' and FTDBillName='").append(formatName).append("'");
  return clause;
}

}  // namespace

std::string TemplateRowStatement(const PrintContext& context) {
  const std::string condition =
      context.TDBillName.empty() ? "FSelected=1" : "FTDBillName='" + context.TDBillName + "' ";
  return "select * from TDBill where " + condition +
         " and FTranType=" + ToText(context.New_TranType);
}

std::string MachinePaperStatement(std::string_view machineId, std::string_view formatName) {
  return "select * from TDBill_PaperSize" + OfMachineAndFormat(machineId, formatName);
}

std::string ItemStatement(const PrintContext& context, ItemSite site, std::string_view filter) {
  std::string sql = ItemsOfFormat(context, "FtranType");
  sql.append(" where t2.FTop>=0 and t2.FLeft>=0 and t2.FSite=").append(SiteText(site));
  if (!filter.empty()) {
    sql.append(" and ").append(filter);
  } else if (context.New_OnlyPrintVariantItem) {
    sql.append(" and (FIsVariant=1 or FMustPrint=1)");
  }
  return sql;
}

std::string AllItemsStatement(const PrintContext& context) {
  return ItemsOfFormat(context, "FTranType");
}

std::string HeaderItemStatement(const PrintContext& context) {
  std::string sql = ItemsOfFormat(context, "FTranType");
  sql.append(" where t2.FSite=").append(SiteText(ItemSite::kHead));
  if (context.New_OnlyPrintVariantItem) sql.append(" and (FIsVariant=1 or FMustPrint=1) ");
  return sql;
}

std::string ComplexQtySettingStatement() {
  return "select FValue from t_SystemProfile where FKey='MustShowComplexQty'";
}

std::string AdvertisingSettingStatement() {
  return "Select Fvalue from t_systemprofile where fkey='PrintAdvertising'";
}

std::string GoodsPictureStatement(std::int32_t itemId) {
  return "select FItemID,FPicture,FPicPath from t_icitem_Picture where FItemID=" + ToText(itemId);
}

std::string SaveFormatPaperStatement(const PrintContext& context, const PageSettings& settings) {
  return "Update TDBill set FMarginleft=" + ToText(settings.MarginLeft) +
         ",FMarginTop=" + ToText(settings.MarginTop) +
         ",FMarginRight=" + ToText(settings.MarginRight) +
         ",FMarginBottom=" + ToText(settings.MarginBottom) +
         ",FOrientation=" + ToText(settings.Orientation) +
         ",FPaperSize=" + ToText(settings.PaperSize) +
         ",FPaperWidth=" + ToText(settings.PaperWidth) +
         ",FPaperHeight=" + ToText(settings.PaperHeight) + " where FTDBillName='" +
         context.TDBillName + "' and FTranType=" + ToText(context.New_TranType);
}

std::string ClearMachinePaperStatement(std::string_view machineId, std::string_view formatName) {
  return "delete from TDBill_PaperSize" + OfMachineAndFormat(machineId, formatName);
}

std::string SaveMachinePaperStatement(std::string_view machineId, std::string_view formatName,
                                      const PageSettings& settings) {
  std::string sql =
      "insert into TDBill_PaperSize(FIP,FTDBillName,FPaperSize,FPaperWidth,FPaperHeight,"
      "FOrientation,FDevice) values('";
  sql.append(machineId).append("','").append(formatName).append("',");
  sql.append(ToText(settings.PaperSize)).append(",").append(ToText(settings.PaperWidth));
  sql.append(",").append(ToText(settings.PaperHeight)).append(",");
  sql.append(ToText(settings.Orientation)).append(",'").append(settings.Device).append("')");
  return sql;
}

std::string FormatsStatement(const PrintContext& context) {
  std::string sql = "select * from TDBill where FTranType=" + ToText(context.New_TranType);
  if (!context.TDBillName.empty()) sql += " and FTDBillName='" + context.TDBillName + "'";
  return sql + " order by FSelected desc";
}

std::string FormatSettingsStatement(const PrintContext& context, std::string_view formatName) {
  std::string sql = "select * from TDBill where FTranType=" + ToText(context.New_TranType);
  return sql.append(" and FTDBillName='").append(formatName).append("'");
}

std::string ClearSelectionStatement(const PrintContext& context) {
  return "Update TDBill set FSelected=0 where FTranType=" + ToText(context.New_TranType);
}

std::string SaveOverlaySettingsStatement(const PrintContext& context, std::string_view formatName,
                                         const OverlaySettings& settings) {
  std::string sql = "Update TDBill set FAdjuctLeft=" + ToText(settings.AdjuctLeft) +
                    ",FAdjuctTop=" + ToText(settings.AdjuctTop) +
                    ",FAdjuctHeader=" + ToText(settings.AdjuctHeader) +
                    ",FRowHeight=" + ToText(settings.RowHeight) +
                    ",FRowsPerPage=" + ToText(settings.RowsPerPage) +
                    ",FQtysPerRow=" + ToText(settings.QtysPerRow) +
                    ",FOrientation=" + ToText(settings.Orientation) + ",FSelected=1" +
                    ",FHeaderPerPage=" + ToText(settings.HeaderPerPage) +
                    ",FFooterPerPage=" + ToText(settings.FooterPerPage) +
                    ",FIntegralPage=" + ToText(settings.IntegralPage) + ",FPrintDevice='" +
                    settings.PrintDevice + "'  where FTDBillName='";
  return sql.append(formatName).append("' and FTranType=").append(ToText(context.New_TranType));
}

std::string FormatNamesStatement(int tranType) {
  return "select FTDBillName from TDBill where ftrantype=" + ToText(tranType);
}

std::string StockAreasStatement() {
  return "select left(isnull(FStockArea,''),1) as FStockArea from t_icitem group by FStockArea "
         "order by FStockArea";
}

std::string AreaPrinterStatement(std::string_view machineId, const AreaPrinterKey& key) {
  std::string sql = "select FPrintDevice from TDBill_AreaPrinterDevice where ftrantype=";
  sql.append(ToText(key.tranType)).append(" and FIP='").append(machineId);
  sql.append("' and FTDBillName='").append(key.formatName);
  return sql.append("' and FStockArea='").append(key.stockArea).append("'");
}

std::string ClearAreaPrinterStatement(std::string_view machineId, const AreaPrinterKey& key) {
  std::string sql = "delete from TDBill_AreaPrinterDevice where FIp='";
  sql.append(machineId).append("' and FTranType=").append(ToText(key.tranType));
  sql.append(" and FTdBillName='").append(key.formatName);
  return sql.append("' and FStockArea='").append(key.stockArea).append("'");
}

std::string SaveAreaPrinterStatement(std::string_view machineId, const AreaPrinterKey& key,
                                     std::string_view printer) {
  std::string sql =
      "Insert Into TDBill_AreaPrinterDevice(FPrintDevice,FIp,FTranType,FTdBillName,FStockArea) "
      "Values('";
  sql.append(printer).append("','").append(machineId).append("',");
  sql.append(ToText(key.tranType)).append(",'").append(key.formatName).append("','");
  return sql.append(key.stockArea).append("')");
}

}  // namespace td
