// A format for tests of print calls.
#pragma once

namespace td {

// Of two rows a page, and the variable that it shows; the tables are those of the sample.
inline constexpr const char* kTwoRowFormat = R"(
  insert into TDBill (FTDBillID, FTranType, FTDBillName, FSelected, FPaperSize, FPaperWidth,
                      FPaperHeight, FRowsPerPage, FRowHeight)
    values (1, 21, '两行订单', 1, 256, 13663, 7937, 2, 400);
  insert into TDVariant (FTranType, FVarCaption, FVarName) values (21, '品名', 'FItemName');
  insert into TDBillDetail (FTDBillID, FSite, FLeft, FTop, FWidth, FHeight, FTypeID, FIsVariant,
                            FObjectFieldName, FObjectCaption)
    values (1, 3, 1000, 2000, 4000, 400, 0, 1, '品名', '品名');
)";

}  // namespace td
