-- Delivery notes (bill type 54) in three copies: in one go on three-ply paper, or as three sheets, each
-- with the name of its copy.

create table t_delivery (
  FDeliveryID integer primary key,
  FBillNo     varchar(30) not null unique,
  FDate       varchar(10) not null,
  FCustName   varchar(100) not null,
  FPhone      varchar(50) not null default '',
  FAddress    varchar(200) not null,
  FTruck      varchar(20) not null default '',
  FBiller     varchar(50) not null
);

create table t_delivery_line (
  FDeliveryID integer not null,
  FEntryID    integer not null,
  FNumber     varchar(30) not null,
  FItemName   varchar(100) not null,
  FModel      varchar(50) not null default '',
  FUnit       varchar(10) not null,
  FQty        decimal(18,6) not null,
  FPrice      decimal(18,6) not null,
  FRowNote    varchar(50) not null default '',
  primary key (FDeliveryID, FEntryID)
);

-- 0 is the print on three-ply paper, which carries the names of all three.
create table t_delivery_copy (
  FCopy     integer primary key,
  FCopyName varchar(50) not null
);
insert into t_delivery_copy (FCopy, FCopyName) values
  (0, '白联存根／红联客户／黄联回单'), (1, '第一联 存根'), (2, '第二联 客户'), (3, '第三联 回单');

create view v_delivery_line as
select l.*, round(FQty * FPrice, 2) as FAmount,
       row_number() over (partition by FDeliveryID order by FEntryID) as FLine
from t_delivery_line l;

-- Every eighth line begins a sheet. A sheet of a copy is a bill of its own to the print, which begins a
-- page with it; the format has room for nine rows, so that no page is ever full by itself.
create view v_delivery_sheet_line as
select l.*, (FLine - 1 - (FLine - 1) % 8) / 8 + 1 as FSheet from v_delivery_line l;

create view v_delivery_sheet as
select FDeliveryID, FSheet, printf('%.15g', sum(FQty)) as FSheetQtyText,
       printf('%.2f', sum(FAmount)) as FSheetAmountText
from v_delivery_sheet_line
group by FDeliveryID, FSheet;

create view v_delivery_sum as
select FDeliveryID, max(FSheet) as FSheets, sum(FAmount) as FSumAmount,
       printf('%.2f', sum(FAmount)) as FSumAmountText
from v_delivery_sheet_line
group by FDeliveryID;

create view v_delivery as
select (d.FDeliveryID * 10 + c.FCopy) * 100 + cast(l.FSheet as integer) as FInterID, d.*, c.FCopy, c.FCopyName,
       l.FEntryID, l.FNumber, l.FItemName, l.FModel, l.FUnit, l.FQty, l.FPrice, l.FAmount, l.FRowNote,
       '第' || cast(cast(l.FSheet as integer) as varchar(10)) || '页　共'
           || cast(cast(n.FSheets as integer) as varchar(10)) || '页' as FPageText,
       s.FSheetQtyText, s.FSheetAmountText, n.FSumAmount, n.FSumAmountText
from t_delivery d
cross join t_delivery_copy c
join v_delivery_sheet_line l on l.FDeliveryID = d.FDeliveryID
join v_delivery_sheet s on s.FDeliveryID = l.FDeliveryID and s.FSheet = l.FSheet
join v_delivery_sum n on n.FDeliveryID = d.FDeliveryID;

insert into t_delivery (FDeliveryID, FBillNo, FDate, FCustName, FPhone, FAddress, FTruck, FBiller) values
  (1, 'SH-2403-0031', '2024-03-08', '东湖酒店管理有限公司', '0270-8123 4567', '江城市东湖路5号后厨收货口',
   '江A·0P318', '张敏'),
  (2, 'SH-2403-0032', '2024-03-08', '南浦惠民超市有限公司', '0591-8820 1177',
   '南浦市台江区五一中路199号惠民广场地下一层', '江A·0P318', '张敏');

insert into t_delivery_line (FDeliveryID, FEntryID, FNumber, FItemName, FModel, FUnit, FQty, FPrice, FRowNote)
values
  (1, 1, 'WJ-0120', '铜芯球阀', 'DN20', '只', 24, 35.8, ''),
  (1, 2, 'WJ-0131', '不锈钢编织软管', '60cm 四分口', '根', 40, 12.6, ''),
  (1, 3, 'WJ-0007', '生料带', '20m', '卷', 100, 1.05, '赠10'),
  (1, 4, 'WJ-0212', '活动扳手', '250mm', '把', 6, 42, ''),
  (1, 5, 'WJ-0233', '十字螺丝刀', 'PH2×150', '把', 10, 11.8, ''),
  (1, 6, 'WJ-0301', '膨胀螺栓', 'M8×80', '只', 500, 0.68, ''),
  (1, 7, 'WJ-0044', '绝缘胶带', '18mm×10m', '卷', 50, 2.2, ''),
  (1, 8, 'WJ-0250', '钢卷尺', '5m', '把', 8, 15.5, ''),
  (2, 1, 'SP-1001', '珍珠米', '10kg/袋', '袋', 60, 56.5, ''),
  (2, 2, 'SP-1023', '精制食盐', '400g×50袋', '箱', 20, 110, ''),
  (2, 3, 'SP-1026', '陈酿米醋', '500ml×12瓶', '箱', 15, 99, ''),
  (2, 4, 'SP-1029', '干木耳（东北秋耳，无根小碗耳，礼盒装）', '250g×20袋', '箱', 3, 472, '易潮'),
  (2, 5, 'RY-2003', '洗衣液（薰衣草香）', '2kg×6瓶', '箱', 8, 143.4, ''),
  (2, 6, 'RY-2010', '抽纸', '3层120抽×24包', '箱', 30, 52.8, ''),
  (2, 7, 'RY-2021', '垃圾袋', '45×50cm 100只', '捆', 50, 6.5, ''),
  (2, 8, 'YL-3001', '矿泉水', '550ml×24瓶', '箱', 50, 24.5, ''),
  (2, 9, 'YL-3004', '绿茶', '500ml×15瓶', '箱', 20, 35.25, ''),
  (2, 10, 'YL-3015', '啤酒', '330ml×24罐', '箱', 30, 69.6, '');
