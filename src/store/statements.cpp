#include "store/statements.h"

#include "service/print_context.h"
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

std::string ItemStatement(const PrintContext& context, std::int16_t site, std::string_view filter) {
  std::string sql = ItemsOfFormat(context, "FtranType");
  sql.append(" where t2.FTop>=0 and t2.FLeft>=0 and t2.FSite=").append(ToText(site));
  if (!filter.empty()) {
    sql.append(" and ").append(filter);
  } else if (context.New_OnlyPrintVariantItem) {
    sql.append(" and (FIsVariant=1 or FMustPrint=1)");
  }
  return sql;
}

std::string HeaderItemStatement(const PrintContext& context, std::int16_t site) {
  std::string sql = ItemsOfFormat(context, "FTranType");
  sql.append(" where t2.FSite=").append(ToText(site));
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

}  // namespace td
