-- The tables that the print component reads and writes, and the tables of a small wholesaler's
-- application from which the print data of the sample is made. SQLite runs this file as it is;
-- `tdprint sample-sql` writes it for PostgreSQL, MariaDB and SQL Server.
--
-- Lengths are twips (1,440 to the inch, 56.7 to the millimetre), measured from the paper's top left
-- corner. Quantities and prices are decimal: exact on the servers, so that each rounds to the same
-- cent.

-- One row is one registered format.
create table TDBill (
  FTDBillID      integer primary key,         -- links the format to its items
  FTranType      integer not null,            -- bill type: 12 purchase receipt, 21 sales order, 22 stock-out
  FTDBillName    varchar(50) not null,        -- format name, unique within a bill type
  FSelected      integer not null default 0,  -- 1: used when the caller names no format
  FPaperSize     integer,                     -- paper code: 9 A4, 11 A5, 256 the size below, 0 as it is
  FPaperWidth    real,                        -- sheet width of a user-defined paper; Null: no paper is set
  FPaperHeight   real,                        -- sheet height of a user-defined paper
  FOrientation   integer not null default 0,  -- 0 portrait, 1 landscape
  FRowsPerPage   real not null,               -- detail rows on a page; the settings dialog takes 12.5, too
  FRowHeight     real not null,               -- height of one detail row
  FAdjuctLeft    real not null default 0,     -- added to every item's left
  FAdjuctTop     real not null default 0,     -- added to every item's top
  FAdjuctHeader  real not null default 0,     -- added to the top of bands 2 to 5 from the second page on
  FQtysPerRow    real not null default 0,     -- kept by the settings dialog
  FHeaderPerPage integer not null default 1,  -- 1: the head stands on every page
  FFooterPerPage integer not null default 0,  -- 1: the foot stands on every page
  FIntegralPage  integer not null default 0,  -- 1: a part page is filled with empty table rows
  FPrintDevice   varchar(200),                -- preferred printer; empty: the system's default
  FMarginleft    real,                        -- left margin, stored by the page setup
  FMarginTop     real,                        -- top margin
  FMarginRight   real,                        -- right margin
  FMarginBottom  real,                        -- bottom margin
  unique (FTranType, FTDBillName)
);

-- One row is one item of a format: a text, a line or a picture at a place.
create table TDBillDetail (
  FTDBillID        integer not null,                   -- the format
  FSite            integer not null,                   -- 1 head, 2 column head, 3 detail row, 4 after the rows, 5 foot
  FLeft            real not null,                      -- place; of a row item, its place in the first row
  FTop             real not null,                      -- bands 4 and 5: place if the page had only one row
  FWidth           real not null,                      -- width of a text box; length of a line to the right
  FHeight          real not null,                      -- height of a text box; length of a line downwards
  FTypeID          integer not null default 0,         -- 0 text, 1 line, 2 picture file
  FIsVariant       integer not null default 0,         -- 1: a value, printed on pre-printed forms, too
  FMustPrint       integer not null default 0,         -- 1: printed on pre-printed forms although it is fixed
  FObjectFieldName varchar(50) not null default '',    -- the variable in TDVariant, or an image in <>
  FObjectCaption   varchar(500) not null default '',   -- fixed text; of a variable, a label before its value
  FFontName        varchar(50) not null default '宋体',  -- font family
  FFontSize        real not null default 9,            -- points
  FFontBold        integer not null default 0,         -- 1: bold
  FFontItalic      integer not null default 0,         -- 1: italic
  FAlignMent       integer not null default 0,         -- 0 left, 2 centre, 1 right
  FWordWrap        integer not null default 0,         -- 1: a long text breaks inside its width
  FAutoSize        integer not null default 0,         -- 1: head and page number are written without a box
  FFormatString    varchar(50) not null default '',    -- picture of a number, such as #,##0.00; empty: none
  Fborderwidth     integer not null default 1,         -- thickness of a line
  FPicturePath     varchar(260) not null default ''    -- file of a picture item
);
create index IX_TDBillDetail on TDBillDetail (FTDBillID, FSite);

-- The variables that the items of a bill type may name.
create table TDVariant (
  FTranType   integer not null,      -- bill type
  FVarCaption varchar(50) not null,  -- what an item's FObjectFieldName says
  FVarName    varchar(50) not null,  -- column of the print data, or a field that the run computes
  primary key (FTranType, FVarCaption)
);

-- Paper and printer of a format on one machine; filled by the page setup.
create table TDBill_PaperSize (
  FIP          varchar(45) not null,  -- the machine's address
  FTDBillName  varchar(50) not null,  -- format name
  FPaperSize   integer,               -- paper code, as in TDBill
  FPaperWidth  real,                  -- sheet width
  FPaperHeight real,                  -- sheet height
  FOrientation integer,               -- 0 portrait, 1 landscape
  FDevice      varchar(200),          -- printer
  primary key (FIP, FTDBillName)
);

-- Printer of a stock area; filled by the stock-area printer dialog.
create table TDBill_AreaPrinterDevice (
  FIp          varchar(45) not null,  -- the machine's address
  FTranType    integer not null,      -- bill type
  FTdBillName  varchar(50) not null,  -- format name
  FStockArea   varchar(1) not null,   -- first character of the stock area
  FPrintDevice varchar(200),          -- printer
  primary key (FIp, FTranType, FTdBillName, FStockArea)
);

-- Settings of the application.
create table t_SystemProfile (
  FKey   varchar(50) primary key,  -- setting
  FValue varchar(200)              -- its value
);

-- Goods.
create table t_icitem (
  FItemID    integer primary key,               -- goods
  FNumber    varchar(30) not null,              -- goods code
  FName      varchar(100) not null,             -- goods name
  FModel     varchar(50) not null default '',   -- size or specification
  FUnit      varchar(10) not null,              -- small unit, in which the goods are priced
  FMUnit     varchar(10),                       -- main unit; Null: sold in the small unit only
  FRate      decimal(18,6) not null default 1,  -- small units in one main unit
  FStockArea varchar(20)                        -- shelf; its first character is the area
);
create index IX_t_icitem on t_icitem (FStockArea);

-- Pictures of goods.
create table t_icitem_Picture (
  FItemID  integer primary key,  -- goods
  FPicture blob not null,        -- bytes of a PNG or JPEG file
  FPicPath varchar(260)          -- where the picture came from
);

-- Customers and suppliers.
create table t_partner (
  FPartnerID integer primary key,               -- customer or supplier
  FName      varchar(100) not null,             -- company
  FContact   varchar(50) not null default '',   -- person to ask for
  FPhone     varchar(50) not null default '',   -- telephone
  FAddress   varchar(200) not null default ''   -- place of delivery
);

-- Heads of all bills.
create table t_bill (
  FInterID     integer primary key,              -- bill
  FTranType    integer not null,                 -- bill type
  FBillNo      varchar(30) not null unique,      -- number that the clerks know it by
  FDate        varchar(10) not null,             -- date, as printed
  FPartnerID   integer not null,                 -- customer or supplier
  FStockName   varchar(50) not null default '',  -- warehouse
  FEmpName     varchar(50) not null default '',  -- salesman or buyer
  FBiller      varchar(50) not null default '',  -- who wrote the bill
  FChecker     varchar(50) not null default '',  -- who released it
  FSettle      varchar(50) not null default '',  -- terms of payment
  FEarnest     decimal(18,6),                    -- payment in advance
  FUserBarCode varchar(50),                      -- the partner's own order number
  FNote        varchar(500) not null default ''  -- remark on the whole bill
);

-- Lines of all bills. A line without goods is a remark between the lines: its FMainQty is -999.99,
-- which keeps it out of all sums.
create table t_bill_entry (
  FInterID  integer not null,                  -- bill
  FEntryID  integer not null,                  -- line number
  FItemID   integer,                           -- goods; Null: a remark
  FMainQty  decimal(18,6) not null default 0,  -- quantity in the main unit
  FSlaveQty decimal(18,6) not null default 0,  -- and what comes on top in the small unit
  FPrice    decimal(18,6),                     -- price of one small unit, tax included
  FTaxRate  decimal(18,6),                     -- per cent
  FNote     varchar(200) not null default '',  -- remark on the line
  primary key (FInterID, FEntryID)
);

-- Print data, one row for each line of each bill. Totals that stand in the bands 4 and 5 are texts:
-- a number under a picture would there be read from the next bill when several are printed at once.
create view v_bill_line as
select b.FInterID, e.FEntryID, b.FTranType, b.FBillNo, b.FDate, b.FStockName, b.FEmpName,
       b.FBiller, b.FChecker, b.FSettle, b.FNote, b.FUserBarCode,
       cast(b.FTranType as varchar(10)) || substring(b.FBillNo, 6, 7) as FBillNoBarCode,
       p.FName as FPartnerName, p.FContact, p.FPhone, p.FAddress,
       i.FItemID as FItemiD, i.FNumber, coalesce(i.FName, e.FNote) as FItemName, i.FModel,
       i.FUnit, i.FMUnit, i.FStockArea,
       e.FMainQty, e.FSlaveQty, e.FMainQty * i.FRate + e.FSlaveQty as FQty, e.FPrice, e.FTaxRate,
       round((e.FMainQty * i.FRate + e.FSlaveQty) * e.FPrice, 2) as FAmount,
       round((e.FMainQty * i.FRate + e.FSlaveQty) * e.FPrice / (1 + e.FTaxRate / 100.0), 2)
           as FNoTaxAmount,
       round(round((e.FMainQty * i.FRate + e.FSlaveQty) * e.FPrice, 2)
             - round((e.FMainQty * i.FRate + e.FSlaveQty) * e.FPrice
                     / (1 + e.FTaxRate / 100.0), 2), 2)
           as FTax,
       case when i.FItemID is not null then e.FNote end as FRowNote,
       b.FEarnest,
       s.FSumAmount, printf('%.2f', s.FSumAmount) as FSumAmountText, s.FSumQty as FSumQtyText
from t_bill b
join t_partner p on p.FPartnerID = b.FPartnerID
join t_bill_entry e on e.FInterID = b.FInterID
left join t_icitem i on i.FItemID = e.FItemID
join (select se.FInterID,
             round(sum(round((se.FMainQty * si.FRate + se.FSlaveQty) * se.FPrice, 2)), 2)
                 as FSumAmount,
             printf('%.15g', sum(se.FMainQty * si.FRate + se.FSlaveQty)) as FSumQty
      from t_bill_entry se
      join t_icitem si on si.FItemID = se.FItemID
      group by se.FInterID) s on s.FInterID = b.FInterID;

create view v_purchase_receipt as
select *, FPartnerName as FSupplierName from v_bill_line where FTranType = 12;

create view v_sales_order as
select *, FPartnerName as FCustName from v_bill_line where FTranType = 21;

create view v_stock_out as
select *, FPartnerName as FCustName from v_bill_line where FTranType = 22;
