-- A sheet for authors of formats (bill type 99): the name of each field and of each image beside
-- what it prints. Its three rows to a page show what is summed for the page and what for the print.

-- The fields of the sheet. A format finds a field by FVarName in any capitals: some here are odd.
create table t_print_field (
  FField   varchar(40) primary key,           -- as it is usually written; the caption of its variable
  FVarName varchar(40) not null,
  FMeaning varchar(40) not null,
  FBlock   integer not null,                  -- 1 and 2: figures, left and right; 3: in capitals
  FLine    integer not null,                  -- in its block
  FPicture varchar(20) not null default ''
);

insert into t_print_field (FField, FVarName, FMeaning, FBlock, FLine, FPicture) values
  ('ftotalpage',                 'ftotalpage',                 '本页金额',     1, 1, '#,##0.00'),
  ('ftotalpagetax',              'FTotalPageTax',              '本页税额',     1, 2, '#,##0.00'),
  ('ftotalpagenotaxamount',      'FTOTALPAGENOTAXAMOUNT',      '本页不含税',   1, 3, '#,##0.00'),
  ('ftotalpage_retailamount',    'fTotalPage_RetailAmount',    '本页零售额',   1, 4, '#,##0.00'),
  ('ftotalpage_bzkamount',       'ftotalpage_BZKamount',       '本页折前额',   1, 5, '#,##0.00'),
  ('ftotalpage_credit',          'FTOTALPAGE_CREDIT',          '本页贷方',     1, 6, '#,##0.00'),
  ('ftotalpage_debit',           'FTOTALPAGE_DEBIT',           '本页借方',     1, 7, '#,##0.00'),
  ('FPurAmount_TotalPage',       'fpuramount_totalpage',       '本页采购额',   1, 8, '#,##0.00'),
  ('FSaleAmount_TotalPage',      'FSaleAmount_TotalPage',      '本页销售额',   1, 9, '#,##0.00'),
  ('FSkd_TotalPage',             'FSKD_TOTALPAGE',             '本页收款',     1, 10, '#,##0.00'),
  ('FFkd_TotalPage',             'ffkd_totalpage',             '本页付款',     1, 11, '#,##0.00'),
  ('ftotalpage_1',               'FTotalPage_1',               '累计金额',     2, 1, '#,##0.00'),
  ('ftotalpagetax_1',            'fTOTALpageTAX_1',            '累计税额',     2, 2, '#,##0.00'),
  ('ftotalpagenotaxamount_1',    'ftotalpagenotaxamount_1',    '累计不含税',   2, 3, '#,##0.00'),
  ('FSumTotalPage',              'FSUMTOTALPAGE',              '打印总额',     2, 4, '#,##0.00'),
  ('ftotalpageselffreight',      'FTotalPageSelfFreight',      '累计自付运费', 2, 5, '#,##0.00'),
  ('FTotalPageFreight_Amount',   'ftotalpagefreight_amount',   '累计代垫运费', 2, 6, '#,##0.00'),
  ('ftotalpage_mainqty_1',       'FTotalPage_MainQty_1',       '累计件数',     2, 7, ''),
  ('ftotalpage_mainqty',         'FTOTALPAGE_mainqty',         '本页件数',     2, 8, ''),
  ('ftotalpage_slaveqty',        'ftotalpage_SlaveQty',        '本页散数',     2, 9, ''),
  ('ftotalpage_qty',             'FTotalPage_Qty',             '本页数量',     2, 10, ''),
  ('ftotalpage_sumqty',          'ftotalpage_sumqty',          '本页数量',     2, 11, ''),
  ('ftotalpagedx',               'FTotalPageDX',               '本页金额',     3, 1, ''),
  ('FTotalPage_1_Dx',            'ftotalpage_1_dx',            '累计金额',     3, 2, ''),
  ('ftotalpagetax_1_dx',         'FTOTALPAGETAX_1_DX',         '累计税额',     3, 3, ''),
  ('ftotalpagenotaxamount_1_dx', 'FTotalPageNoTaxAmount_1_Dx', '累计不含税',   3, 4, ''),
  ('fsumamount_dx',              'FSumAmount_Dx',              '整单金额',     3, 5, ''),
  ('fsumretailamount_dx',        'fSUMretailAMOUNT_dx',        '整单零售额',   3, 6, ''),
  ('fsumtax_dx',                 'FSUMTAX_DX',                 '整单税额',     3, 7, ''),
  ('fsumnotaxamount_dx',         'fsumnotaxamount_dx',         '整单不含税',   3, 8, ''),
  ('FSumBzkAmount_Dx',           'FSumBzkAmount_Dx',           '整单折前额',   3, 9, ''),
  ('fearnest_dx',                'FEarnest_DX',                '预付款',       3, 10, '');

-- The rows that the sheet prints, one value in every column that a field reads.
create table t_field_row (
  FEntryID        integer primary key,
  FItemID         integer not null,
  FQty            decimal(18,6) not null,
  FPrice          decimal(18,6) not null,
  FTaxRate        decimal(18,6) not null,
  FMainQty        decimal(18,6) not null,
  FSlaveQty       decimal(18,6) not null,
  FQty_In         decimal(18,6),
  FMainQty_In     decimal(18,6),
  FSlaveQty_In    decimal(18,6),
  FQty_out        decimal(18,6),
  FMainQty_out    decimal(18,6),
  FSlaveQty_out   decimal(18,6),
  FRetailAmount   decimal(18,6) not null,
  FBeforeZkAmount decimal(18,6) not null,
  FCredit         decimal(18,6) not null,
  FDebit          decimal(18,6) not null,
  FPurAmount      decimal(18,6) not null,
  FSaleAmount     decimal(18,6) not null,
  FSkd            decimal(18,6) not null,
  FFkd            decimal(18,6) not null,
  FFreight        decimal(18,6) not null,
  FFreight_Amount decimal(18,6) not null
);

insert into t_field_row (FEntryID, FItemID, FQty, FPrice, FTaxRate, FMainQty, FSlaveQty,
                         FQty_In, FMainQty_In, FSlaveQty_In, FQty_out, FMainQty_out, FSlaveQty_out,
                         FRetailAmount, FBeforeZkAmount, FCredit, FDebit, FPurAmount, FSaleAmount,
                         FSkd, FFkd, FFreight, FFreight_Amount)
values
  (1, 1047, 155, 6.4,      13,  3,   5, 105,   2,    5,   50,  1,    0,
   1534.5, 1054,  672, 320,  672, 320, 100, 200, 30, 11),
  (2, 1045, 500, 0.036528, 13,  0, 500, null, null, null, 500, 0,  500,
   30,     20,    0,   18.26, 0, 18.26, 50, 0,   0,  0),
  (3, 1052, -14, 21.5,     13, -1,  -2, 0,     0,   3,  null, null, null,
   -364,   -322,  1.5, 2.5,  3.5,  4.5, 5.5, 6.5, 7.5, 8.5),
  (4, 1050, 250, 2.15,     13, 25,   0, 250,  25,   0,    124, 12,   4,
   875,    600,   537.5, 266.6, 537.5, 266.6, 0, 300, 20, 9);

create view v_field_sheet as
select 99001 as FInterID, r.FEntryID, r.FItemID as FItemiD,
       'ZD-2403-0001' as FBillNo, '99-2403-0001' as FBillNoBarCode,
       '110101-234234-1/6' as FUserBarCode, 1005.3 as FEarnest,
       i.FName as FItemName, i.FUnit, i.FMUnit, i.FMUnit as FMainUnit,
       r.FQty, r.FPrice, r.FTaxRate, round(r.FQty * r.FPrice, 2) as FAmount,
       r.FMainQty, r.FSlaveQty, r.FQty_In, r.FMainQty_In, r.FSlaveQty_In,
       r.FQty_out, r.FMainQty_out, r.FSlaveQty_out, r.FRetailAmount, r.FBeforeZkAmount,
       r.FCredit, r.FDebit, r.FPurAmount, r.FSaleAmount, r.FSkd, r.FFkd,
       r.FFreight, r.FFreight_Amount,
       s.FSumAmount, s.FSumRetailAmount, s.FSumBzkAmount, s.FSumNoTaxAmount,
       round(s.FSumAmount - s.FSumNoTaxAmount, 2) as FSumTax
from t_field_row r
join t_icitem i on i.FItemID = r.FItemID
cross join (select round(sum(round(FQty * FPrice, 2)), 2) as FSumAmount,
                   sum(FRetailAmount) as FSumRetailAmount,
                   sum(FBeforeZkAmount) as FSumBzkAmount,
                   round(sum(round(FQty * FPrice / (1 + FTaxRate / 100.0), 2)), 2)
                       as FSumNoTaxAmount
            from t_field_row) s;

insert into TDVariant (FTranType, FVarCaption, FVarName)
select 99, FField, FVarName from t_print_field;

insert into TDVariant (FTranType, FVarCaption, FVarName) values
  (99, 'fpageno', 'FPageNo'),
  (99, 'ftotalpageno', 'FTOTALPAGENO'),
  (99, 'forderid', 'FOrderID'),
  (99, 'fcomplexqty', 'FComplexQty'),
  (99, 'fcomplexqty_in', 'FComplexQty_In'),
  (99, 'fcomplexqty_out', 'FCOMPLEXQTY_OUT'),
  (99, 'FItemName', 'fitemname'),
  (99, 'FPrice', 'FPRICE'),
  (99, 'FAmount', 'FAmount');

-- A4. Three rows of 900 twips begin at 3300; an item of the bands 4 and 5 that shall stand at y
-- below three rows has the top y - 2 * 900. Columns begin at 700 1500 3300 4400 5900 7400 8900
-- 10100 and end at 11200. The blocks of figures stand at 6300 with columns at 700 3200 4650, 5950
-- 8450 9900; that of the amounts in capitals stands at 10300 with columns at 700 3700 5200. All
-- their lines are 320 high.
insert into TDBill (FTDBillID, FTranType, FTDBillName, FSelected, FPaperSize, FPaperWidth,
                    FPaperHeight, FOrientation, FRowsPerPage, FRowHeight, FHeaderPerPage,
                    FFooterPerPage, FIntegralPage)
values (9901, 99, '打印字段一览', 1, 9, 11905.51, 16837.8, 0, 3, 900, 1, 1, 1);

with caption (FSite, FLeft, FTop, FWidth, FHeight, FFontName, FFontSize, FFontBold, FAlignMent,
              FWordWrap, FObjectCaption) as (values
  (1,   700,  520, 10500, 460, '黑体', 18, 1, 2, 0, '打印字段一览'),
  (1,  8300,  480,  1900, 300, '宋体', 9,  0, 1, 0, 'fpageno（表头）：'),
  (1,  8300,  780,  1900, 300, '宋体', 9,  0, 1, 0, 'ftotalpageno：'),
  (1,   700, 1300,  3000, 260, '宋体', 9,  0, 2, 0, '<单号条码图> FBillNo'),
  (1,  4450, 1300,  3000, 260, '宋体', 9,  0, 2, 0, '<随机条码图> FBillNoBarCode'),
  (1,  8200, 1300,  3000, 260, '宋体', 9,  0, 2, 0, '<用户条码图> FUserBarCode'),
  (2,   700, 2700,   800, 600, '宋体', 9,  1, 2, 0, 'forderid'),
  (2,  1500, 2700,  1800, 300, '宋体', 9,  1, 2, 0, 'FItemName'),
  (2,  1500, 2980,  1800, 300, '宋体', 9,  0, 2, 0, '（数据列）'),
  (2,  3300, 2700,  1100, 600, '宋体', 9,  1, 2, 0, '<商品图片>'),
  (2,  4400, 2700,  1500, 300, '宋体', 9,  1, 2, 0, 'fcomplexqty'),
  (2,  4400, 2980,  1500, 300, '宋体', 9,  0, 2, 0, '数量'),
  (2,  5900, 2700,  1500, 300, '宋体', 9,  1, 2, 0, 'fcomplexqty_in'),
  (2,  5900, 2980,  1500, 300, '宋体', 9,  0, 2, 0, '收入'),
  (2,  7400, 2700,  1500, 300, '宋体', 9,  1, 2, 0, 'fcomplexqty_out'),
  (2,  7400, 2980,  1500, 300, '宋体', 9,  0, 2, 0, '发出'),
  (2,  8900, 2700,  1200, 300, '宋体', 9,  1, 2, 0, 'FPrice'),
  (2,  8900, 2980,  1200, 300, '宋体', 9,  0, 2, 0, '格式 0.00'),
  (2, 10100, 2700,  1100, 300, '宋体', 9,  1, 2, 0, 'FAmount'),
  (2, 10100, 2980,  1100, 300, '宋体', 9,  0, 2, 0, '格式 0.00'),
  (4,   700, 4500,  2500, 320, '宋体', 9,  1, 2, 0, '字段'),
  (4,  3200, 4500,  1450, 320, '宋体', 9,  1, 2, 0, '含义'),
  (4,  4650, 4500,  1300, 320, '宋体', 9,  1, 2, 0, '打印结果'),
  (4,  5950, 4500,  2500, 320, '宋体', 9,  1, 2, 0, '字段'),
  (4,  8450, 4500,  1450, 320, '宋体', 9,  1, 2, 0, '含义'),
  (4,  9900, 4500,  1300, 320, '宋体', 9,  1, 2, 0, '打印结果'),
  (4,   700, 8500,  3000, 320, '宋体', 9,  1, 2, 0, '字段'),
  (4,  3700, 8500,  1500, 320, '宋体', 9,  1, 2, 0, '含义'),
  (4,  5200, 8500,  6000, 320, '宋体', 9,  1, 2, 0, '打印结果（大写）'),
  (4,   760, 12160, 2400, 320, '宋体', 9,  0, 0, 0, 'fpageno（其他栏）：'),
  (5,   700, 12560, 10500, 560, '楷体', 9, 0, 0, 1,
   '字段名不分大小写，条码图和商品图片的名称须完全一致。本页各数每页清零，累计各数自打印开始算起，整单各数取自数据列。徽标是图片项目（FTypeID 2），按原尺寸打印。')
)
insert into TDBillDetail (FTDBillID, FSite, FLeft, FTop, FWidth, FHeight, FFontName, FFontSize,
                          FFontBold, FAlignMent, FWordWrap, FObjectCaption)
select 9901, FSite, FLeft, FTop, FWidth, FHeight, FFontName, FFontSize, FFontBold, FAlignMent,
       FWordWrap, FObjectCaption
from caption;

with variable (FSite, FLeft, FTop, FWidth, FHeight, FFontSize, FAlignMent, FAutoSize,
               FFormatString, FObjectFieldName) as (values
  (1, 10260,  500,  900, 300, 9,  0, 1, '',     'fpageno'),
  (2, 10200,  780,  400, 300, 9,  2, 0, '',     'ftotalpageno'),
  (1,   700, 1580, 3000, 800, 10, 0, 0, '',     '<单号条码图>'),
  (1,  4450, 1580, 3000, 800, 10, 0, 0, '',     '<随机条码图>'),
  (1,  8200, 1580, 3000, 800, 10, 0, 0, '',     '<用户条码图>'),
  (3,   700, 3300,  800, 900, 10, 2, 0, '',     'forderid'),
  (3,  1560, 3300, 1680, 900, 10, 0, 0, '',     'FItemName'),
  (3,  3450, 3350,  800, 800, 10, 0, 0, '',     '<商品图片>'),
  (3,  4400, 3300, 1500, 900, 10, 2, 0, '',     'fcomplexqty'),
  (3,  5900, 3300, 1500, 900, 10, 2, 0, '',     'fcomplexqty_in'),
  (3,  7400, 3300, 1500, 900, 10, 2, 0, '',     'fcomplexqty_out'),
  (3,  8900, 3300, 1140, 900, 10, 1, 0, '0.00', 'FPrice'),
  (3, 10100, 3300, 1040, 900, 10, 1, 0, '0.00', 'FAmount'),
  (4,  2460, 12160, 600, 320, 9,  0, 0, '',     'fpageno')
)
insert into TDBillDetail (FTDBillID, FIsVariant, FSite, FLeft, FTop, FWidth, FHeight, FFontSize,
                          FAlignMent, FAutoSize, FFormatString, FObjectFieldName, FObjectCaption)
select 9901, 1, FSite, FLeft, FTop, FWidth, FHeight, FFontSize, FAlignMent, FAutoSize,
       FFormatString, FObjectFieldName, FObjectFieldName
from variable;

-- The blocks: of each field its name, its meaning and its value.
insert into TDBillDetail (FTDBillID, FSite, FLeft, FTop, FWidth, FHeight, FObjectCaption)
select 9901, 4, case FBlock when 2 then 6010 else 760 end,
       case FBlock when 3 then 8500 else 4500 end + FLine * 320, 2400, 320, FField
from t_print_field;

insert into TDBillDetail (FTDBillID, FSite, FLeft, FTop, FWidth, FHeight, FObjectCaption)
select 9901, 4, case FBlock when 1 then 3260 when 2 then 8510 else 3760 end,
       case FBlock when 3 then 8500 else 4500 end + FLine * 320, 1330, 320, FMeaning
from t_print_field;

insert into TDBillDetail (FTDBillID, FIsVariant, FSite, FLeft, FTop, FWidth, FHeight, FAlignMent,
                          FFormatString, FObjectFieldName, FObjectCaption)
select 9901, 1, 4, case FBlock when 1 then 4710 when 2 then 9960 else 5260 end,
       case FBlock when 3 then 8500 else 4500 end + FLine * 320,
       case FBlock when 3 then 5880 else 1180 end, 320, case FBlock when 3 then 0 else 1 end,
       FPicture, FField, FField
from t_print_field;

-- Below each line of a block a thin line; the blocks at the right have those of the left.
insert into TDBillDetail (FTDBillID, FTypeID, FSite, FLeft, FTop, FWidth, FHeight)
select 9901, 1, 4, 700, case FBlock when 3 then 8500 else 4500 end + FLine * 320, 10500, 0
from t_print_field
where FBlock <> 2;

with ruling (FSite, FLeft, FTop, FWidth, FHeight, Fborderwidth) as (values
  (2,   700, 2700, 10500, 0, 2), (2,   700, 3300, 10500, 0, 1),
  (2,   700, 2700, 0, 600, 2), (2,  1500, 2700, 0, 600, 1), (2,  3300, 2700, 0, 600, 1),
  (2,  4400, 2700, 0, 600, 1), (2,  5900, 2700, 0, 600, 1), (2,  7400, 2700, 0, 600, 1),
  (2,  8900, 2700, 0, 600, 1), (2, 10100, 2700, 0, 600, 1), (2, 11200, 2700, 0, 600, 2),
  (3,   700, 4200, 10500, 0, 1),
  (3,   700, 3300, 0, 900, 2), (3,  1500, 3300, 0, 900, 1), (3,  3300, 3300, 0, 900, 1),
  (3,  4400, 3300, 0, 900, 1), (3,  5900, 3300, 0, 900, 1), (3,  7400, 3300, 0, 900, 1),
  (3,  8900, 3300, 0, 900, 1), (3, 10100, 3300, 0, 900, 1), (3, 11200, 3300, 0, 900, 2),
  (4,   700, 4500, 10500, 0, 2), (4,   700, 8340, 10500, 0, 2),
  (4,   700, 4500, 0, 3840, 2), (4,  3200, 4500, 0, 3840, 1), (4,  4650, 4500, 0, 3840, 1),
  (4,  5950, 4500, 0, 3840, 2), (4,  8450, 4500, 0, 3840, 1), (4,  9900, 4500, 0, 3840, 1),
  (4, 11200, 4500, 0, 3840, 2),
  (4,   700, 8500, 10500, 0, 2), (4,   700, 12020, 10500, 0, 2),
  (4,   700, 8500, 0, 3520, 2), (4,  3700, 8500, 0, 3520, 1), (4,  5200, 8500, 0, 3520, 1),
  (4, 11200, 8500, 0, 3520, 2)
)
insert into TDBillDetail (FTDBillID, FTypeID, FSite, FLeft, FTop, FWidth, FHeight, Fborderwidth)
select 9901, 1, FSite, FLeft, FTop, FWidth, FHeight, Fborderwidth from ruling;

-- The house's mark, 1.2 by 0.48 inches by its own resolution.
insert into TDBillDetail (FTDBillID, FTypeID, FSite, FLeft, FTop, FWidth, FHeight, FPicturePath)
values (9901, 2, 1, 700, 450, 1728, 691, 'logo.png');
