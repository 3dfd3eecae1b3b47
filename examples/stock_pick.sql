-- Pick lists by stock area (bill type 22), for prints that begin a new page at each area: one list
-- for the warehouse, one for the accounts, and a note of 40 lines in four areas.

-- The areas of the warehouse: the first characters of t_icitem.FStockArea.
create table t_stock_area (
  FArea     varchar(1) primary key,
  FAreaName varchar(50) not null,            -- as it stands in the head of a pick list
  FKeeper   varchar(50) not null default ''  -- who picks there
);

insert into t_stock_area (FArea, FAreaName, FKeeper) values
  ('A', 'A区 粮油', '赵铁柱'),
  ('B', 'B区 饮料', '高小军'),
  ('C', 'C区 调味', '罗秀英'),
  ('D', 'D区 日化', '沈国平'),
  ('E', 'E区 文具', '沈国平'),
  ('F', 'F区 五金', '方大山');

-- Print data. Goods without an area are in no list.
create view v_stock_pick as
select l.*, a.FAreaName, a.FKeeper
from v_stock_out l
join t_stock_area a on l.FStockArea like a.FArea || '%';

insert into TDVariant (FTranType, FVarCaption, FVarName) values
  (22, '库区', 'FAreaName'),
  (22, '拣货员', 'FKeeper'),
  (22, '库位', 'FStockArea'),
  (22, '至本页累计金额：', 'FSumTotalPage');

-- The warehouse's list, A5 in landscape. Each area has its own sheets, with the area in the head.
-- Twelve rows of 360 twips begin at 2280; an item of the bands 4 and 5 that shall stand at y below
-- twelve rows has the top y - 11 * 360. Columns begin at 700 1150 1900 4600 5850 7400 8850 9650
-- 10150 and end at 11200. Values alone have an empty label: by area, a label that repeats the
-- variable's caption is printed, too.
insert into TDBill (FTDBillID, FTranType, FTDBillName, FSelected, FPaperSize, FPaperWidth,
                    FPaperHeight, FOrientation, FRowsPerPage, FRowHeight, FHeaderPerPage,
                    FFooterPerPage, FIntegralPage)
values (2202, 22, '分区拣货单', 0, 11, 8390.55, 11905.51, 1, 12, 360, 1, 0, 1);

with caption (FSite, FLeft, FTop, FWidth, FHeight, FFontName, FFontSize, FFontBold, FAlignMent,
              FWordWrap, FObjectCaption) as (values
  (1,   700,  420, 10500, 380, '宋体', 12, 1, 2, 0, '江城万源百货商贸有限公司'),
  (1,   700,  800, 10500, 460, '黑体', 18, 1, 2, 0, '分 区 拣 货 单'),
  (1,  9600,  960,   250, 280, '宋体', 9,  0, 2, 0, '第'),
  (1, 10150,  960,   500, 280, '宋体', 9,  0, 2, 0, '页　共'),
  (1, 10950,  960,   250, 280, '宋体', 9,  0, 2, 0, '页'),
  (1,  4600, 1480,   700, 320, '宋体', 10, 0, 0, 0, '仓库：'),
  (1,  7000, 1480,   900, 320, '宋体', 10, 0, 0, 0, '拣货员：'),
  (1,  9300, 1480,   700, 320, '宋体', 10, 0, 0, 0, '日期：'),
  (2,   700, 1900,   450, 380, '宋体', 10, 1, 2, 0, '序'),
  (2,  1150, 1900,   750, 380, '宋体', 10, 1, 2, 0, '库位'),
  (2,  1900, 1900,  2700, 380, '宋体', 10, 1, 2, 0, '商 品 名 称'),
  (2,  4600, 1900,  1250, 380, '宋体', 10, 1, 2, 0, '规格型号'),
  (2,  5850, 1900,  1550, 380, '宋体', 10, 1, 2, 0, '出库单号'),
  (2,  7400, 1900,  1450, 380, '宋体', 10, 1, 2, 0, '应拣件数'),
  (2,  8850, 1900,   800, 380, '宋体', 10, 1, 2, 0, '折合'),
  (2,  9650, 1900,   500, 380, '宋体', 10, 1, 2, 0, '单位'),
  (2, 10150, 1900,  1050, 380, '宋体', 10, 1, 2, 0, '实拣'),
  (4,   760, 2640,  3000, 360, '宋体', 10, 1, 0, 0, '本页合计'),
  (4,   700, 3140,  1100, 320, '宋体', 10, 0, 0, 0, '拣货签字：'),
  (4,  4600, 3140,  1100, 320, '宋体', 10, 0, 0, 0, '复核签字：'),
  (4,  8000, 3140,  1100, 320, '宋体', 10, 0, 0, 0, '完成时间：'),
  (5,   700, 3600, 10500, 300, '楷体', 10, 0, 2, 0,
   '各库区至此拣完，请将各页连同货物一并送复核台。')
)
insert into TDBillDetail (FTDBillID, FSite, FLeft, FTop, FWidth, FHeight, FFontName, FFontSize,
                          FFontBold, FAlignMent, FWordWrap, FObjectCaption)
select 2202, FSite, FLeft, FTop, FWidth, FHeight, FFontName, FFontSize, FFontBold, FAlignMent,
       FWordWrap, FObjectCaption
from caption;

with variable (FSite, FLeft, FTop, FWidth, FHeight, FFontName, FFontSize, FAlignMent,
               FFormatString, FObjectFieldName) as (values
  (1,   700, 1400, 3800, 420, '黑体', 16, 0, '',     '库区'),
  (1,  5250, 1480, 1700, 320, '宋体', 10, 0, '',     '仓库'),
  (1,  7850, 1480, 1400, 320, '宋体', 10, 0, '',     '拣货员'),
  (1,  9950, 1480, 1250, 320, '宋体', 10, 0, '',     '单据日期'),
  (1,  9850,  960,  300, 280, '宋体', 9,  2, '',     '页号'),
  (2, 10650,  960,  300, 280, '宋体', 9,  2, '',     '总页数'),
  (3,   700, 2280,  450, 360, '宋体', 10, 2, '',     '行号'),
  (3,  1150, 2280,  750, 360, '黑体', 11, 2, '',     '库位'),
  (3,  1960, 2280, 2580, 360, '宋体', 11, 0, '',     '商品名称'),
  (3,  4660, 2280, 1130, 360, '宋体', 10, 0, '',     '规格型号'),
  (3,  5850, 2280, 1550, 360, '宋体', 9,  2, '',     '单据编号'),
  (3,  7460, 2280, 1330, 360, '宋体', 11, 1, '',     '复合数量'),
  (3,  8910, 2280,  680, 360, '宋体', 10, 1, '#,##0', '数量'),
  (3,  9650, 2280,  500, 360, '宋体', 10, 2, '',     '单位'),
  (4,  7460, 2640, 1330, 360, '宋体', 10, 1, '0 件', '本页件数'),
  (4,  8910, 2640,  680, 360, '宋体', 10, 1, '#,##0', '本页数量')
)
insert into TDBillDetail (FTDBillID, FIsVariant, FSite, FLeft, FTop, FWidth, FHeight, FFontName,
                          FFontSize, FAlignMent, FFormatString, FObjectFieldName)
select 2202, 1, FSite, FLeft, FTop, FWidth, FHeight, FFontName, FFontSize, FAlignMent,
       FFormatString, FObjectFieldName
from variable;

with ruling (FSite, FLeft, FTop, FWidth, FHeight, Fborderwidth) as (values
  (2,   700, 1900, 10500, 0, 2), (2,   700, 2280, 10500, 0, 1),
  (2,   700, 1900, 0, 380, 2), (2,  1150, 1900, 0, 380, 1), (2, 1900, 1900, 0, 380, 1),
  (2,  4600, 1900, 0, 380, 1), (2,  5850, 1900, 0, 380, 1), (2, 7400, 1900, 0, 380, 1),
  (2,  8850, 1900, 0, 380, 1), (2,  9650, 1900, 0, 380, 1), (2, 10150, 1900, 0, 380, 1),
  (2, 11200, 1900, 0, 380, 2),
  (3,   700, 2640, 10500, 0, 1),
  (3,   700, 2280, 0, 360, 2), (3,  1150, 2280, 0, 360, 1), (3, 1900, 2280, 0, 360, 1),
  (3,  4600, 2280, 0, 360, 1), (3,  5850, 2280, 0, 360, 1), (3, 7400, 2280, 0, 360, 1),
  (3,  8850, 2280, 0, 360, 1), (3,  9650, 2280, 0, 360, 1), (3, 10150, 2280, 0, 360, 1),
  (3, 11200, 2280, 0, 360, 2),
  (4,   700, 3000, 10500, 0, 2), (4,   700, 2640, 0, 360, 2), (4, 11200, 2640, 0, 360, 2),
  (4,  7400, 2640, 0, 360, 1), (4,  8850, 2640, 0, 360, 1), (4, 9650, 2640, 0, 360, 1),
  (4,  1750, 3440, 2500, 0, 1), (4,  5650, 3440, 2100, 0, 1), (4, 9050, 3440, 2150, 0, 1)
)
insert into TDBillDetail (FTDBillID, FTypeID, FSite, FLeft, FTop, FWidth, FHeight, Fborderwidth)
select 2202, 1, FSite, FLeft, FTop, FWidth, FHeight, Fborderwidth from ruling;

-- The accounts' list, A5 in landscape: only the first sheet has the head, and all later ones begin
-- 1440 twips higher, which makes room for four more rows. Rows begin at 2280 on the first sheet; an
-- item of the bands 4 and 5 that shall stand at y below eight rows has the top y - 7 * 360. Columns
-- begin at 700 1150 1900 2900 5450 5950 6750 7650 8900 9900 and end at 11200. The areas' amounts
-- are summed from the amounts that each row has, tax and amount without tax included.
insert into TDBill (FTDBillID, FTranType, FTDBillName, FSelected, FPaperSize, FPaperWidth,
                    FPaperHeight, FOrientation, FRowsPerPage, FRowHeight, FAdjuctHeader,
                    FHeaderPerPage, FFooterPerPage, FIntegralPage)
values (2203, 22, '分区出库明细', 0, 11, 8390.55, 11905.51, 1, 8, 360, -1440, 0, 1, 0);

with caption (FSite, FLeft, FTop, FWidth, FHeight, FFontName, FFontSize, FFontBold, FAlignMent,
              FWordWrap, FObjectCaption) as (values
  (1,   700,  380, 10500, 360, '宋体', 12, 1, 2, 0, '江城万源百货商贸有限公司'),
  (1,   700,  740, 10500, 440, '黑体', 16, 1, 2, 0, '分 区 出 库 明 细'),
  (1,   700, 1220,   700, 300, '宋体', 10, 0, 0, 0, '客户：'),
  (1,  5450, 1220,   700, 300, '宋体', 10, 0, 0, 0, '单号：'),
  (1,  8900, 1220,   700, 300, '宋体', 10, 0, 0, 0, '日期：'),
  (2,   700, 1900,   450, 380, '宋体', 10, 1, 2, 0, '序'),
  (2,  1150, 1900,   750, 380, '宋体', 10, 1, 2, 0, '库位'),
  (2,  1900, 1900,  1000, 380, '宋体', 10, 1, 2, 0, '商品编码'),
  (2,  2900, 1900,  2550, 380, '宋体', 10, 1, 2, 0, '商 品 名 称'),
  (2,  5450, 1900,   500, 380, '宋体', 10, 1, 2, 0, '单位'),
  (2,  5950, 1900,   800, 380, '宋体', 10, 1, 2, 0, '数量'),
  (2,  6750, 1900,   900, 380, '宋体', 10, 1, 2, 0, '单价'),
  (2,  7650, 1900,  1250, 380, '宋体', 10, 1, 2, 0, '金额'),
  (2,  8900, 1900,  1000, 380, '宋体', 10, 1, 2, 0, '税额'),
  (2,  9900, 1900,  1300, 380, '宋体', 10, 1, 2, 0, '不含税'),
  (4,   760, 2640,  3000, 360, '宋体', 10, 1, 0, 0, '本页合计'),
  (4,   760, 3000,  2000, 360, '宋体', 10, 1, 0, 0, '本页金额（大写）：'),
  (5,   700, 3940,  4000, 300, '宋体', 10, 0, 0, 0, '第一联：财务记账'),
  (5,  5450, 3940,  1200, 300, '宋体', 10, 0, 0, 0, '记账签字：')
)
insert into TDBillDetail (FTDBillID, FSite, FLeft, FTop, FWidth, FHeight, FFontName, FFontSize,
                          FFontBold, FAlignMent, FWordWrap, FObjectCaption)
select 2203, FSite, FLeft, FTop, FWidth, FHeight, FFontName, FFontSize, FFontBold, FAlignMent,
       FWordWrap, FObjectCaption
from caption;

with variable (FSite, FLeft, FTop, FWidth, FHeight, FFontSize, FAlignMent, FFormatString,
               FObjectFieldName, FObjectCaption) as (values
  (1,  1350, 1220, 4000, 300, 10, 0, '',         '客户',           ''),
  (1,  6100, 1220, 2700, 300, 10, 0, '',         '单据编号',       ''),
  (1,  9550, 1220, 1650, 300, 10, 0, '',         '单据日期',       ''),
  (2,  8900, 1580, 2300, 300, 9,  1, '',         '页号',           '页码：'),
  (3,   700, 2280,  450, 360, 10, 2, '',         '行号',           ''),
  (3,  1150, 2280,  750, 360, 10, 2, '',         '库位',           ''),
  (3,  1960, 2280,  880, 360, 10, 0, '',         '商品编码',       ''),
  (3,  2960, 2280, 2430, 360, 10, 0, '',         '商品名称',       ''),
  (3,  5450, 2280,  500, 360, 10, 2, '',         '单位',           ''),
  (3,  6010, 2280,  680, 360, 10, 1, '#,##0',    '数量',           ''),
  (3,  6810, 2280,  780, 360, 10, 1, '0.00',     '单价',           ''),
  (3,  7710, 2280, 1130, 360, 10, 1, '#,##0.00', '金额',           ''),
  (3,  8960, 2280,  880, 360, 10, 1, '#,##0.00', '税额',           ''),
  (3,  9960, 2280, 1180, 360, 10, 1, '#,##0.00', '不含税金额',     ''),
  (4,  6010, 2640,  680, 360, 10, 1, '#,##0',    '本页数量',       ''),
  (4,  7710, 2640, 1130, 360, 10, 1, '#,##0.00', '本页金额',       ''),
  (4,  8960, 2640,  880, 360, 10, 1, '#,##0.00', '本页税额',       ''),
  (4,  9960, 2640, 1180, 360, 10, 1, '#,##0.00', '本页不含税金额', ''),
  (4,  2700, 3000, 6000, 360, 10, 0, '',         '本页金额大写',   ''),
  (5,   700, 3560, 5000, 300, 10, 0, '#,##0.00', '至本页累计金额：', '至本页累计金额：')
)
insert into TDBillDetail (FTDBillID, FIsVariant, FSite, FLeft, FTop, FWidth, FHeight, FFontSize,
                          FAlignMent, FFormatString, FObjectFieldName, FObjectCaption)
select 2203, 1, FSite, FLeft, FTop, FWidth, FHeight, FFontSize, FAlignMent, FFormatString,
       FObjectFieldName, FObjectCaption
from variable;

with ruling (FSite, FLeft, FTop, FWidth, FHeight, Fborderwidth) as (values
  (2,   700, 1900, 10500, 0, 2), (2,   700, 2280, 10500, 0, 1),
  (2,   700, 1900, 0, 380, 2), (2,  1150, 1900, 0, 380, 1), (2, 1900, 1900, 0, 380, 1),
  (2,  2900, 1900, 0, 380, 1), (2,  5450, 1900, 0, 380, 1), (2, 5950, 1900, 0, 380, 1),
  (2,  6750, 1900, 0, 380, 1), (2,  7650, 1900, 0, 380, 1), (2, 8900, 1900, 0, 380, 1),
  (2,  9900, 1900, 0, 380, 1), (2, 11200, 1900, 0, 380, 2),
  (3,   700, 2640, 10500, 0, 1),
  (3,   700, 2280, 0, 360, 2), (3,  1150, 2280, 0, 360, 1), (3, 1900, 2280, 0, 360, 1),
  (3,  2900, 2280, 0, 360, 1), (3,  5450, 2280, 0, 360, 1), (3, 5950, 2280, 0, 360, 1),
  (3,  6750, 2280, 0, 360, 1), (3,  7650, 2280, 0, 360, 1), (3, 8900, 2280, 0, 360, 1),
  (3,  9900, 2280, 0, 360, 1), (3, 11200, 2280, 0, 360, 2),
  (4,   700, 3000, 10500, 0, 1), (4,   700, 3360, 10500, 0, 2),
  (4,   700, 2640, 0, 720, 2), (4, 11200, 2640, 0, 720, 2),
  (4,  5950, 2640, 0, 360, 1), (4,  6750, 2640, 0, 360, 1), (4, 7650, 2640, 0, 360, 1),
  (4,  8900, 2640, 0, 360, 1), (4,  9900, 2640, 0, 360, 1),
  (5,  6550, 4240, 2350, 0, 1)
)
insert into TDBillDetail (FTDBillID, FTypeID, FSite, FLeft, FTop, FWidth, FHeight, Fborderwidth)
select 2203, 1, FSite, FLeft, FTop, FWidth, FHeight, Fborderwidth from ruling;

insert into t_bill (FInterID, FTranType, FBillNo, FDate, FPartnerID, FStockName, FEmpName, FBiller,
                    FChecker, FSettle, FNote) values
  (22005, 22, 'XC-2403-0012', '2024-03-05', 6, '城东总仓', '钱勇', '张敏', '郑海', '月结30天',
   '周末促销备货，务必当日送到。');

insert into t_bill_entry (FInterID, FEntryID, FItemID, FMainQty, FSlaveQty, FPrice, FTaxRate) values
  (22005,  1, 1001,   0, 60,   55.8,  9),
  (22005,  2, 1002,   6,  2,   30.6,  9),
  (22005,  3, 1003,   5,  0,   24.2,  9),
  (22005,  4, 1004,   3,  4,   13.5,  9),
  (22005,  5, 1005,   8,  0,   77.9,  9),
  (22005,  6, 1006,   6,  1,   51.2,  9),
  (22005,  7, 1007,   4,  0,   31.4,  9),
  (22005,  8, 1008,   2,  5,    5.9,  9),
  (22005,  9, 1009,   2,  0,    7.1,  9),
  (22005, 10, 1010,   3,  6,    9.8,  9),
  (22005, 11, 1011,   5,  0,    7.6,  9),
  (22005, 12, 1012,   4,  3,   7.05,  9),
  (22005, 13, 1013,  30,  0,   1.02, 13),
  (22005, 14, 1014,  10,  2,    6.2, 13),
  (22005, 15, 1015,  12,  0,   1.15, 13),
  (22005, 16, 1016,  12,  5,    2.3, 13),
  (22005, 17, 1017,   6,  0,    5.5, 13),
  (22005, 18, 1018,   6,  3,    5.5, 13),
  (22005, 19, 1019,   8,  0,   2.85, 13),
  (22005, 20, 1020,  10, 12,    2.1, 13),
  (22005, 21, 1021,   1, 10,    1.8, 13),
  (22005, 22, 1022,   2,  0,   5.35, 13),
  (22005, 23, 1023,   4,  6,    9.6, 13),
  (22005, 24, 1024,   4,  0,   6.75, 13),
  (22005, 25, 1025,   2,  3,    5.2, 13),
  (22005, 26, 1026,   3,  0,    8.1, 13),
  (22005, 27, 1027,   2,  8,   12.3, 13),
  (22005, 28, 1028,   1,  0,   4.15,  9),
  (22005, 29, 1029,   1,  5,   23.2,  9),
  (22005, 30, 1030,   0, 12,   18.9,  9),
  (22005, 31, 1031,   1, 20,   0.55, 13),
  (22005, 32, 1032,   6,  0,   8.75, 13),
  (22005, 33, 1033,   5,  2,   33.8, 13),
  (22005, 34, 1034,   8,  0,    9.7, 13),
  (22005, 35, 1035,   2,  6,    6.3, 13),
  (22005, 36, 1036,  10,  0,   22.5, 13),
  (22005, 37, 1037,   6,  8,   11.5, 13),
  (22005, 38, 1038,   1, 36,    6.8, 13),
  (22005, 39, 1039,   0, 24,    9.5, 13),
  (22005, 40, 1040,   3,  0,   4.25, 13);
