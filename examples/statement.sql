-- Statements of account with a partner who both buys and delivers (bill type 40): quantities in and
-- out, and every sum of the page, of the run and of the bill.

-- Lines of the statements.
create table t_statement_entry (
  FInterID      integer not null,                    -- the bill head
  FEntryID      integer not null,                    -- line number
  FEntryDate    varchar(10) not null,
  FRefNo        varchar(30) not null,                -- the bill or voucher that the line is about
  FItemID       integer,                             -- goods; Null for a payment
  FMainQty_In   decimal(18,6),                       -- received: main unit, and what comes on top; Null: none
  FSlaveQty_In  decimal(18,6),
  FMainQty_out  decimal(18,6),                       -- delivered: the same
  FSlaveQty_out decimal(18,6),
  FPrice        decimal(18,6) not null default 0,    -- price of one small unit, tax included
  FTaxRate      decimal(18,6) not null default 0,    -- per cent
  FListPrice    decimal(18,6) not null default 0,    -- price before the discount
  FRetailPrice  decimal(18,6) not null default 0,    -- recommended retail price
  FFkd          decimal(18,6) not null default 0,    -- paid to the partner
  FSkd          decimal(18,6) not null default 0,    -- received from the partner
  FFreight      decimal(18,6) not null default 0,    -- freight that we bear
  FFreight_Amount decimal(18,6) not null default 0,  -- freight advanced for the partner
  primary key (FInterID, FEntryID)
);

create view v_statement_line as
select e.*, i.FName as FItemName, i.FUnit, i.FMUnit as FMainUnit, i.FRate,
       e.FMainQty_In * i.FRate + e.FSlaveQty_In as FQty_In,
       e.FMainQty_out * i.FRate + e.FSlaveQty_out as FQty_out,
       coalesce(e.FMainQty_In, 0) + coalesce(e.FMainQty_out, 0) as FMainQty,
       coalesce(e.FSlaveQty_In, 0) + coalesce(e.FSlaveQty_out, 0) as FSlaveQty,
       coalesce(e.FMainQty_In * i.FRate + e.FSlaveQty_In, 0)
           + coalesce(e.FMainQty_out * i.FRate + e.FSlaveQty_out, 0) as FQty
from t_statement_entry e
left join t_icitem i on i.FItemID = e.FItemID;

-- Print data. A payment has the quantity and price 0, not Null: on a Null the run adds the tax of the line
-- before it once more.
create view v_statement as
select b.FInterID, l.FEntryID, b.FBillNo, b.FDate, b.FBiller, b.FChecker, b.FNote, b.FEarnest,
       p.FName as FPartnerName, p.FContact, p.FPhone,
       l.FEntryDate, l.FRefNo,
       coalesce(l.FItemName, case when l.FSkd <> 0 then '收到货款' else '支付货款' end) as FSummary,
       l.FUnit, l.FMainUnit, l.FMainQty_In, l.FSlaveQty_In, l.FQty_In,
       l.FMainQty_out, l.FSlaveQty_out, l.FQty_out, l.FMainQty, l.FSlaveQty, l.FQty,
       l.FPrice, l.FTaxRate, round(l.FQty * l.FPrice, 2) as FAmount,
       round(coalesce(l.FQty_In, 0) * l.FPrice, 2) as FPurAmount,
       round(coalesce(l.FQty_out, 0) * l.FPrice, 2) as FSaleAmount,
       round(l.FQty * l.FRetailPrice, 2) as FRetailAmount,
       round(l.FQty * l.FListPrice, 2) as FBeforeZkAmount,
       l.FFkd, l.FSkd, l.FFreight, l.FFreight_Amount,
       round(coalesce(l.FQty_out, 0) * l.FPrice, 2) + l.FFkd as FDebit,
       round(coalesce(l.FQty_In, 0) * l.FPrice, 2) + l.FSkd as FCredit,
       s.FSumAmount, s.FSumRetailAmount, s.FSumBzkAmount, s.FSumNoTaxAmount,
       round(s.FSumAmount - s.FSumNoTaxAmount, 2) as FSumTax
from t_bill b
join t_partner p on p.FPartnerID = b.FPartnerID
join v_statement_line l on l.FInterID = b.FInterID
join (select FInterID,
             round(sum(round(FQty * FPrice, 2)), 2) as FSumAmount,
             round(sum(round(FQty * FRetailPrice, 2)), 2) as FSumRetailAmount,
             round(sum(round(FQty * FListPrice, 2)), 2) as FSumBzkAmount,
             round(sum(round(FQty * FPrice / (1 + FTaxRate / 100.0), 2)), 2) as FSumNoTaxAmount
      from v_statement_line
      group by FInterID) s on s.FInterID = b.FInterID;

insert into TDVariant (FTranType, FVarCaption, FVarName) values
  (40, '单据编号', 'FBillNo'),
  (40, '单据日期', 'FDate'),
  (40, '往来单位', 'FPartnerName'),
  (40, '联系人', 'FContact'),
  (40, '联系电话', 'FPhone'),
  (40, '制单人', 'FBiller'),
  (40, '审核人', 'FChecker'),
  (40, '备注', 'FNote'),
  (40, '行号', 'forderid'),
  (40, '行日期', 'FEntryDate'),
  (40, '凭证号', 'FRefNo'),
  (40, '摘要', 'FSummary'),
  (40, '收入数量', 'fcomplexqty_in'),
  (40, '发出数量', 'fcomplexqty_out'),
  (40, '采购额', 'FPurAmount'),
  (40, '销售额', 'FSaleAmount'),
  (40, '付款', 'FFkd'),
  (40, '收款', 'FSkd'),
  (40, '借方', 'FDebit'),
  (40, '贷方', 'FCredit'),
  (40, '整单金额大写', 'fsumamount_dx'),
  (40, '整单零售额大写', 'fsumretailamount_dx'),
  (40, '整单税额大写', 'fsumtax_dx'),
  (40, '整单不含税大写', 'fsumnotaxamount_dx'),
  (40, '整单折前额大写', 'FSumBzkAmount_Dx'),
  (40, '预付款大写', 'fearnest_dx'),
  (40, '本页金额', 'ftotalpage'),
  (40, '累计金额', 'ftotalpage_1'),
  (40, '本页金额大写', 'ftotalpagedx'),
  (40, '累计金额大写', 'FTotalPage_1_Dx'),
  (40, '打印总额', 'FSumTotalPage'),
  (40, '本页税额', 'ftotalpagetax'),
  (40, '本页零售额', 'ftotalpage_retailamount'),
  (40, '本页折前额', 'ftotalpage_bzkamount'),
  (40, '累计税额', 'ftotalpagetax_1'),
  (40, '累计税额大写', 'ftotalpagetax_1_dx'),
  (40, '本页不含税', 'ftotalpagenotaxamount'),
  (40, '累计不含税', 'ftotalpagenotaxamount_1'),
  (40, '累计不含税大写', 'ftotalpagenotaxamount_1_dx'),
  (40, '本页数量', 'ftotalpage_qty'),
  (40, '本页总数量', 'ftotalpage_sumqty'),
  (40, '本页贷方', 'ftotalpage_credit'),
  (40, '本页借方', 'ftotalpage_debit'),
  (40, '本页散数', 'ftotalpage_slaveqty'),
  (40, '本页件数', 'ftotalpage_mainqty'),
  (40, '本页采购额', 'FPurAmount_TotalPage'),
  (40, '本页销售额', 'FSaleAmount_TotalPage'),
  (40, '本页收款', 'FSkd_TotalPage'),
  (40, '本页付款', 'FFkd_TotalPage'),
  (40, '自付运费', 'ftotalpageselffreight'),
  (40, '累计件数', 'ftotalpage_mainqty_1'),
  (40, '代垫运费', 'FTotalPageFreight_Amount'),
  (40, '页号', 'fpageno'),
  (40, '总页数', 'ftotalpageno');

-- A4 in landscape. Twelve rows of 360 twips begin at 2280; an item of the bands 4 and 5 that shall
-- stand at y below twelve rows has the top y - 11 * 360. Columns begin at 700 1150 2300 3750 6050
-- 7450 8850 10100 11350 12550 13750 14925 and end at 16100.
insert into TDBill (FTDBillID, FTranType, FTDBillName, FSelected, FPaperSize, FPaperWidth,
                    FPaperHeight, FOrientation, FRowsPerPage, FRowHeight, FHeaderPerPage,
                    FFooterPerPage, FIntegralPage)
values (4001, 40, '往来对账单', 1, 9, 11905.51, 16837.8, 1, 12, 360, 1, 1, 1);

with caption (FSite, FLeft, FTop, FWidth, FHeight, FFontName, FFontSize, FFontBold, FAlignMent,
              FWordWrap, FObjectCaption) as (values
  (1,   700,  450, 15400, 420, '宋体', 16, 1, 2, 0, '江城万源百货商贸有限公司'),
  (1,   700,  880, 15400, 420, '黑体', 16, 1, 2, 0, '往 来 对 账 单'),
  (1,   700, 1500,  1000, 320, '宋体', 9,  0, 0, 0, '往来单位：'),
  (1,  6050, 1500,   700, 320, '宋体', 9,  0, 0, 0, '联系：'),
  (1, 10800, 1500,   600, 320, '宋体', 9,  0, 0, 0, '单号：'),
  (1, 14150, 1500,   600, 320, '宋体', 9,  0, 0, 0, '日期：'),
  (2,   700, 1900,   450, 380, '宋体', 9,  1, 2, 0, '序号'),
  (2,  1150, 1900,  1150, 380, '宋体', 9,  1, 2, 0, '日期'),
  (2,  2300, 1900,  1450, 380, '宋体', 9,  1, 2, 0, '凭证号'),
  (2,  3750, 1900,  2300, 380, '宋体', 9,  1, 2, 0, '摘　要'),
  (2,  6050, 1900,  1400, 380, '宋体', 9,  1, 2, 0, '收入数量'),
  (2,  7450, 1900,  1400, 380, '宋体', 9,  1, 2, 0, '发出数量'),
  (2,  8850, 1900,  1250, 380, '宋体', 9,  1, 2, 0, '采购额'),
  (2, 10100, 1900,  1250, 380, '宋体', 9,  1, 2, 0, '销售额'),
  (2, 11350, 1900,  1200, 380, '宋体', 9,  1, 2, 0, '付款'),
  (2, 12550, 1900,  1200, 380, '宋体', 9,  1, 2, 0, '收款'),
  (2, 13750, 1900,  1175, 380, '宋体', 9,  1, 2, 0, '借方'),
  (2, 14925, 1900,  1175, 380, '宋体', 9,  1, 2, 0, '贷方'),
  (4,   760, 2640,  2000, 360, '宋体', 9,  1, 0, 0, '本页小计'),
  (5,  7300, 6800,   250, 300, '宋体', 9,  0, 2, 0, '第'),
  (5,  7850, 6800,   600, 300, '宋体', 9,  0, 2, 0, '页　共'),
  (5,  8750, 6800,   250, 300, '宋体', 9,  0, 2, 0, '页'),
  (4,   700, 6350,   700, 300, '宋体', 9,  0, 0, 0, '制单：'),
  (4,  4000, 6350,   700, 300, '宋体', 9,  0, 0, 0, '审核：'),
  (5, 11350, 6350,  2500, 300, '宋体', 9,  0, 0, 0, '对方确认（签章）：')
)
insert into TDBillDetail (FTDBillID, FSite, FLeft, FTop, FWidth, FHeight, FFontName, FFontSize,
                          FFontBold, FAlignMent, FWordWrap, FObjectCaption)
select 4001, FSite, FLeft, FTop, FWidth, FHeight, FFontName, FFontSize, FFontBold, FAlignMent,
       FWordWrap, FObjectCaption
from caption;

with variable (FSite, FLeft, FTop, FWidth, FHeight, FAlignMent, FAutoSize, FFormatString,
               FObjectFieldName, FObjectCaption) as (values
  (1,  1650, 1500, 4300, 320, 0, 0, '',         '往来单位',       '往来单位'),
  (1,  6650, 1500, 1000, 320, 0, 0, '',         '联系人',         '联系人'),
  (1,  7700, 1500, 3000, 320, 0, 0, '',         '联系电话',       '电话：'),
  (1, 11400, 1500, 2600, 320, 0, 0, '',         '单据编号',       '单据编号'),
  (1, 14750, 1500, 1350, 320, 0, 0, '',         '单据日期',       '单据日期'),
  (3,   700, 2280,  450, 360, 2, 0, '',         '行号',           '行号'),
  (3,  1150, 2280, 1150, 360, 2, 0, '',         '行日期',         '行日期'),
  (3,  2360, 2280, 1330, 360, 0, 0, '',         '凭证号',         '凭证号'),
  (3,  3810, 2280, 2180, 360, 0, 0, '',         '摘要',           '摘要'),
  (3,  6110, 2280, 1280, 360, 1, 0, '',         '收入数量',       '收入数量'),
  (3,  7510, 2280, 1280, 360, 1, 0, '',         '发出数量',       '发出数量'),
  (3,  8910, 2280, 1130, 360, 1, 0, '#,##0.00;-#,##0.00; ', '采购额', '采购额'),
  (3, 10160, 2280, 1130, 360, 1, 0, '#,##0.00;-#,##0.00; ', '销售额', '销售额'),
  (3, 11410, 2280, 1080, 360, 1, 0, '#,##0.00;-#,##0.00; ', '付款',   '付款'),
  (3, 12610, 2280, 1080, 360, 1, 0, '#,##0.00;-#,##0.00; ', '收款',   '收款'),
  (3, 13810, 2280, 1055, 360, 1, 0, '#,##0.00;-#,##0.00; ', '借方',   '借方'),
  (3, 14985, 2280, 1055, 360, 1, 0, '#,##0.00;-#,##0.00; ', '贷方',   '贷方'),
  (4,  8910, 2640, 1130, 360, 1, 0, '#,##0.00', '本页采购额',     '本页采购额'),
  (4, 10160, 2640, 1130, 360, 1, 0, '#,##0.00', '本页销售额',     '本页销售额'),
  (4, 11410, 2640, 1080, 360, 1, 0, '#,##0.00', '本页付款',       '本页付款'),
  (4, 12610, 2640, 1080, 360, 1, 0, '#,##0.00', '本页收款',       '本页收款'),
  (4, 13810, 2640, 1055, 360, 1, 0, '#,##0.00', '本页借方',       '本页借方'),
  (4, 14985, 2640, 1055, 360, 1, 0, '#,##0.00', '本页贷方',       '本页贷方'),
  (4,   760, 3040, 2900, 320, 0, 0, '#,##0.00', '本页金额',       '本页金额：'),
  (4,  3810, 3040, 2900, 320, 0, 0, '#,##0.00', '本页税额',       '本页税额：'),
  (4,  6860, 3040, 2900, 320, 0, 0, '#,##0.00', '本页不含税',     '本页不含税：'),
  (4,  9910, 3040, 2900, 320, 0, 0, '#,##0.00', '本页零售额',     '本页零售额：'),
  (4, 12960, 3040, 2900, 320, 0, 0, '#,##0.00', '本页折前额',     '本页折前额：'),
  (4,   760, 3360, 2900, 320, 0, 0, '#,##0.00', '累计金额',       '累计金额：'),
  (4,  3810, 3360, 2900, 320, 0, 0, '#,##0.00', '累计税额',       '累计税额：'),
  (4,  6860, 3360, 2900, 320, 0, 0, '#,##0.00', '累计不含税',     '累计不含税：'),
  (4,  9910, 3360, 2900, 320, 0, 0, '#,##0.00', '自付运费',       '自付运费：'),
  (4, 12960, 3360, 2900, 320, 0, 0, '#,##0.00', '代垫运费',       '代垫运费：'),
  (4,   760, 3680, 2900, 320, 0, 0, '#,##0',    '本页数量',       '本页数量：'),
  (4,  3810, 3680, 2900, 320, 0, 0, '',         '本页件数',       '本页件数：'),
  (4,  6860, 3680, 2900, 320, 0, 0, '',         '本页散数',       '本页散数：'),
  (4,  9910, 3680, 2900, 320, 0, 0, '',         '累计件数',       '累计件数：'),
  (4, 12960, 3680, 2900, 320, 0, 0, '#,##0.00', '打印总额',       '打印总额：'),
  (4,   760, 4060, 7500, 320, 0, 0, '',         '本页金额大写',   '本页金额：'),
  (4,  8910, 4060, 7100, 320, 0, 0, '',         '累计金额大写',   '累计金额：'),
  (4,   760, 4380, 7500, 320, 0, 0, '',         '累计税额大写',   '累计税额：'),
  (4,  8910, 4380, 7100, 320, 0, 0, '',         '累计不含税大写', '累计不含税：'),
  (4,   760, 4700, 7500, 320, 0, 0, '',         '整单金额大写',   '整单金额：'),
  (4,  8910, 4700, 7100, 320, 0, 0, '',         '整单零售额大写', '整单零售额：'),
  (4,   760, 5020, 7500, 320, 0, 0, '',         '整单税额大写',   '整单税额：'),
  (4,  8910, 5020, 7100, 320, 0, 0, '',         '整单不含税大写', '整单不含税：'),
  (4,   760, 5340, 7500, 320, 0, 0, '',         '整单折前额大写', '整单折前额：'),
  (4,  8910, 5340, 7100, 320, 0, 0, '',         '预付款大写',     '预付款：'),
  (4,   760, 5720, 7500, 320, 0, 0, '',         '备注',           '备注：'),
  (4,  8910, 5720, 4000, 320, 0, 0, '#,##0',    '本页总数量',     '本页收发数量合计：'),
  (4,  1300, 6350, 2000, 300, 0, 0, '',         '制单人',         '制单人'),
  (4,  4600, 6350, 2000, 300, 0, 0, '',         '审核人',         '审核人'),
  (5,  7640, 6820,  200, 300, 0, 1, '',         '页号',           '页号'),
  (5,  8450, 6800,  300, 300, 2, 0, '',         '总页数',         '总页数')
)
insert into TDBillDetail (FTDBillID, FIsVariant, FSite, FLeft, FTop, FWidth, FHeight, FAlignMent,
                          FAutoSize, FFormatString, FObjectFieldName, FObjectCaption)
select 4001, 1, FSite, FLeft, FTop, FWidth, FHeight, FAlignMent, FAutoSize, FFormatString,
       FObjectFieldName, FObjectCaption
from variable;

with ruling (FSite, FLeft, FTop, FWidth, FHeight, Fborderwidth) as (values
  (1,  7100, 1330, 2600, 0, 2),
  (2,   700, 1900, 15400, 0, 2), (2,   700, 2280, 15400, 0, 1),
  (2,   700, 1900, 0, 380, 2), (2,  1150, 1900, 0, 380, 1), (2,  2300, 1900, 0, 380, 1),
  (2,  3750, 1900, 0, 380, 1), (2,  6050, 1900, 0, 380, 1), (2,  7450, 1900, 0, 380, 1),
  (2,  8850, 1900, 0, 380, 1), (2, 10100, 1900, 0, 380, 1), (2, 11350, 1900, 0, 380, 1),
  (2, 12550, 1900, 0, 380, 1), (2, 13750, 1900, 0, 380, 1), (2, 14925, 1900, 0, 380, 1),
  (2, 16100, 1900, 0, 380, 2),
  (3,   700, 2640, 15400, 0, 1),
  (3,   700, 2280, 0, 360, 2), (3,  1150, 2280, 0, 360, 1), (3,  2300, 2280, 0, 360, 1),
  (3,  3750, 2280, 0, 360, 1), (3,  6050, 2280, 0, 360, 1), (3,  7450, 2280, 0, 360, 1),
  (3,  8850, 2280, 0, 360, 1), (3, 10100, 2280, 0, 360, 1), (3, 11350, 2280, 0, 360, 1),
  (3, 12550, 2280, 0, 360, 1), (3, 13750, 2280, 0, 360, 1), (3, 14925, 2280, 0, 360, 1),
  (3, 16100, 2280, 0, 360, 2),
  (4,   700, 3000, 15400, 0, 1), (4,   700, 4030, 15400, 0, 1), (4,   700, 5690, 15400, 0, 1),
  (4,   700, 6070, 15400, 0, 2),
  (4,   700, 2640, 0, 3430, 2), (4, 16100, 2640, 0, 3430, 2),
  (4,  8850, 2640, 0, 360, 1), (4, 10100, 2640, 0, 360, 1), (4, 11350, 2640, 0, 360, 1),
  (4, 12550, 2640, 0, 360, 1), (4, 13750, 2640, 0, 360, 1), (4, 14925, 2640, 0, 360, 1)
)
insert into TDBillDetail (FTDBillID, FTypeID, FSite, FLeft, FTop, FWidth, FHeight, Fborderwidth)
select 4001, 1, FSite, FLeft, FTop, FWidth, FHeight, Fborderwidth from ruling;

insert into t_bill (FInterID, FTranType, FBillNo, FDate, FPartnerID, FBiller, FChecker, FEarnest,
                    FNote) values
  (40001, 40, 'DZ-2403-0002', '2024-03-31', 5, '王倩', '郑海', 2000,
   '以上为3月往来，请核对无误后签章回传。');

insert into t_statement_entry (FInterID, FEntryID, FEntryDate, FRefNo, FItemID, FMainQty_In,
                               FSlaveQty_In, FMainQty_out, FSlaveQty_out, FPrice, FTaxRate,
                               FListPrice, FRetailPrice, FFreight, FFreight_Amount)
values
  (40001,  1, '2024-03-01', 'XC-2403-0002', 1047, null, null,  2,  10, 6.4,      13, 6.8,   9.9,  0,   0),
  (40001,  2, '2024-03-02', 'CR-2403-0003', 1051,  100,   0, null, null, 5.85,   13, 5.85,  8.5,  120, 0),
  (40001,  3, '2024-03-03', 'XC-2403-0005', 1048, null, null, 10,   0, 8.9,      13, 9.2,  13.5,  0,   0),
  (40001,  4, '2024-03-04', 'XC-2403-0009', 1045, null, null,  6, 500, 0.0365,   13, 0.04,  0.06, 0,   0),
  (40001,  5, '2024-03-05', 'CR-2403-0007', 1052,    8,   6, null, null, 17.25,  13, 17.25, 26,   0,  35),
  (40001,  6, '2024-03-06', 'XC-2403-0017', 1050, null, null,  0,   8, 2.2,      13, 2.4,   3.5,  0,   0),
  (40001,  8, '2024-03-10', 'XC-2403-0028', 1049, null, null,  4,  20, 1.958333, 13, 2.1,   2.8,  60,  0),
  (40001,  9, '2024-03-12', 'XC-2403-0033', 1053, null, null,  5,   0, 3.9,      13, 4.2,   6.5,  0,   0),
  (40001, 10, '2024-03-13', 'CR-2403-0012', 1051,   40,   2, null, null, 5.9,    13, 5.9,   8.5,  80,  0),
  (40001, 11, '2024-03-15', 'XC-2403-0036', 1054, null, null,  2,   3, 7.6,      13, 8,    12,    0,   0),
  (40001, 12, '2024-03-16', 'XC-2403-0037', 1046, null, null,  3,   0, 0.7825,   13, 0.82,  1.2,  0,   0),
  (40001, 13, '2024-03-18', 'XT-2403-0004', 1048, null, null, -2,  -5, 8.9,      13, 9.2,  13.5,  0,   0),
  (40001, 15, '2024-03-22', 'XC-2403-0045', 1047, null, null,  1,   0, 6.4,      13, 6.8,   9.9,  0,  18),
  (40001, 16, '2024-03-25', 'CR-2403-0020', 1052,    3,   0, null, null, 17.25,  13, 17.25, 26,   0,   0),
  (40001, 17, '2024-03-27', 'XC-2403-0052', 1045, null, null,  2,   0, 0.0365,   13, 0.04,  0.06, 0,   0);

insert into t_statement_entry (FInterID, FEntryID, FEntryDate, FRefNo, FFkd, FSkd) values
  (40001,  7, '2024-03-08', 'SK-2403-0006', 0,    1500),
  (40001, 14, '2024-03-20', 'FK-2403-0003', 2500, 0);
