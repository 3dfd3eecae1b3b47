-- Sales invoices with tax (bill type 53): eight lines on a sheet, and the totals of each sheet on it.

create table t_invoice (
  FInvoiceID     integer primary key,
  FInvoiceNo     varchar(20) not null unique,
  FDate          varchar(10) not null,           -- yyyy-mm-dd
  FBuyerName     varchar(100) not null,
  FBuyerTaxNo    varchar(20) not null,
  FBuyerAddress  varchar(200) not null,          -- address and telephone
  FBuyerAccount  varchar(200) not null,          -- bank and account
  FCashier       varchar(20) not null,
  FChecker       varchar(20) not null,
  FBiller        varchar(20) not null,
  FNote          varchar(200) not null default ''
);

create table t_invoice_line (
  FInvoiceID integer not null,
  FEntryID   integer not null,
  FItemName  varchar(60) not null,
  FModel     varchar(30) not null default '',
  FUnit      varchar(10) not null,
  FQty       decimal(18,6) not null,
  FPrice     decimal(18,6) not null,   -- tax included
  FTaxRate   decimal(18,6) not null,   -- per cent
  primary key (FInvoiceID, FEntryID)
);

-- Amounts are rounded line by line; the tax is what remains, so that both add up to the cent.
create view v_invoice_line as
select FInvoiceID, FEntryID, FItemName, FModel, FUnit, FQty, FTaxRate,
       round(FPrice / (1 + FTaxRate / 100.0), 6) as FNoTaxPrice,
       round(FQty * FPrice, 2) as FAmount,
       round(FQty * FPrice / (1 + FTaxRate / 100.0), 2) as FNoTaxAmount,
       round(round(FQty * FPrice, 2) - round(FQty * FPrice / (1 + FTaxRate / 100.0), 2), 2) as FTax,
       row_number() over (partition by FInvoiceID order by FEntryID) as FLine
from t_invoice_line;

-- Every eighth line begins a sheet. A sheet is a bill of its own to the print, which begins a page with
-- it; the format has room for nine rows, so that no page is ever full by itself.
create view v_invoice_sheet_line as
select l.*, (FLine - 1 - (FLine - 1) % 8) / 8 + 1 as FSheet from v_invoice_line l;

-- The totals of a sheet are texts, since they stand behind the rows, where a number under a picture
-- would be that of the next sheet. FSumAmount is printed in capitals.
create view v_invoice_sheet as
select FInvoiceID, FSheet, sum(FAmount) as FSumAmount,
       printf('%.2f', sum(FAmount)) as FSheetAmountText,
       '¥' || printf('%.2f', sum(FNoTaxAmount)) as FSheetNoTaxText,
       '¥' || printf('%.2f', sum(FTax)) as FSheetTaxText
from v_invoice_sheet_line
group by FInvoiceID, FSheet;

create view v_invoice as
select i.FInvoiceID * 100 + cast(l.FSheet as integer) as FInterID, i.*, l.FEntryID, l.FItemName, l.FModel,
       l.FUnit, l.FQty, l.FNoTaxPrice, l.FNoTaxAmount, l.FTax,
       cast(cast(l.FTaxRate as integer) as varchar(10)) || '%' as FTaxRateText,
       substring(i.FDate, 1, 4) || '年' || substring(i.FDate, 6, 2) || '月' || substring(i.FDate, 9, 2) || '日'
           as FDateText,
       '第' || cast(cast(l.FSheet as integer) as varchar(10)) || '张　共'
           || cast(cast(n.FSheets as integer) as varchar(10)) || '张' as FSheetText,
       s.FSumAmount, s.FSheetAmountText, s.FSheetNoTaxText, s.FSheetTaxText,
       '江城万源百货商贸有限公司' as FSellerName, '91420100MA00000X0X' as FSellerTaxNo,
       '江城市解放大道268号 0270-5566 8899' as FSellerAddress,
       '江城商业银行解放路支行 6200 1188 0042 17' as FSellerAccount
from t_invoice i
join v_invoice_sheet_line l on l.FInvoiceID = i.FInvoiceID
join v_invoice_sheet s on s.FInvoiceID = l.FInvoiceID and s.FSheet = l.FSheet
join (select FInvoiceID, max(FSheet) as FSheets from v_invoice_sheet group by FInvoiceID) n
    on n.FInvoiceID = i.FInvoiceID;

insert into t_invoice (FInvoiceID, FInvoiceNo, FDate, FBuyerName, FBuyerTaxNo, FBuyerAddress, FBuyerAccount,
                       FCashier, FChecker, FBiller, FNote) values
  (1, 'FP-2403-0001', '2024-03-08', '南浦惠民超市有限公司', '91350100MA00000Y1Y',
   '南浦市台江区五一中路199号 0591-8820 1177', '南浦商业银行台江支行 6213 0099 7751 08',
   '周莉', '郑海', '张敏', '订单 XD-2403-0015'),
  (2, 'FP-2403-0002', '2024-03-08', '东湖酒店管理有限公司', '91420100MA00000Z2Z',
   '江城市东湖路5号 0270-8123 4567', '江城商业银行东湖支行 6200 1188 0077 31', '周莉', '郑海', '张敏', ''),
  (3, 'FP-2403-0003', '2024-03-09', '江城市第三中学', '12420100MB00000A3A',
   '江城市学府路33号 0270-8765 4321', '江城商业银行学府路支行 6200 1188 0091 56',
   '周莉', '郑海', '王倩', '货到后开票。');

insert into t_invoice_line (FInvoiceID, FEntryID, FItemName, FModel, FUnit, FQty, FPrice, FTaxRate) values
  (1, 1, '*食品*珍珠米', '10kg/袋', '袋', 60, 56.5, 9),
  (1, 2, '*食品*精制食盐', '400g×50袋', '箱', 20, 110, 9),
  (1, 3, '*日用品*洗衣液', '2kg/瓶', '瓶', 48, 23.9, 13),
  (2, 1, '*五金*铜芯球阀', 'DN20', '只', 24, 35.8, 13),
  (2, 2, '*五金*不锈钢软管', '60cm', '根', 40, 12.6, 13),
  (2, 3, '*五金*生料带', '20m', '卷', 100, 1.05, 13),
  (2, 4, '*五金*活动扳手', '250mm', '把', 6, 42, 13),
  (2, 5, '*五金*十字螺丝刀', 'PH2×150', '把', 10, 11.8, 13),
  (2, 6, '*五金*膨胀螺栓', 'M8×80', '只', 500, 0.68, 13),
  (2, 7, '*五金*绝缘胶带', '18mm×10m', '卷', 50, 2.2, 13),
  (2, 8, '*五金*卷尺', '5m', '把', 8, 15.5, 13),
  (3, 1, '*文具*复印纸', 'A4 70g', '箱', 30, 128, 13),
  (3, 2, '*文具*中性笔', '0.5mm 黑', '盒', 60, 14.4, 13),
  (3, 3, '*文具*白板笔', '可加墨', '盒', 24, 19.9, 13),
  (3, 4, '*文具*硬面抄', 'B5 100页', '本', 240, 5.35, 13),
  (3, 5, '*文具*档案盒', '55mm', '只', 120, 6.3, 13),
  (3, 6, '*文具*订书机', '12号', '只', 20, 18.5, 13),
  (3, 7, '*文具*订书钉', '24/6', '盒', 200, 1.2, 13),
  (3, 8, '*文具*计算器', '12位', '只', 15, 36, 13),
  (3, 9, '*图书*现代汉语词典', '精装', '册', 40, 95, 9),
  (3, 10, '*图书*中学生字典', '平装', '册', 100, 28, 9),
  (3, 11, '*文具*磁性黑板擦', '', '只', 36, 4.5, 13);
