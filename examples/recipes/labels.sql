-- Price labels (bill type 55), three beside each other on a sheet of 24.

create table t_label (
  FLabelID  integer primary key,                -- the order on the sheets
  FItemName varchar(60) not null default '',
  FModel    varchar(30) not null default '',
  FNumber   varchar(30) not null default '',
  FOrigin   varchar(30) not null default '',
  FUnit     varchar(10) not null default '',
  FPrice    decimal(18,2),
  FCopies   integer not null default 1          -- labels of this kind
);

-- One row for each label, numbered from 0 by its place on the sheets. The words of a label are written
-- here, since a label that isn't there shall not print 规格 and 货号 either.
create view v_label_place as
with recursive label_copy (FLabelID, FCopy) as (
  select FLabelID, 1 from t_label where FCopies > 0
  union all
  select c.FLabelID, c.FCopy + 1
  from label_copy c
  join t_label l on l.FLabelID = c.FLabelID
  where c.FCopy < l.FCopies
)
select row_number() over (order by c.FLabelID, c.FCopy) - 1 as FPlace, l.FItemName,
       case when l.FModel <> '' then '规格：' || l.FModel end as FModelText,
       case when l.FNumber <> '' then '货号：' || l.FNumber end as FNumberText,
       case when l.FOrigin <> '' then '产地：' || l.FOrigin end as FOriginText,
       case when l.FPrice is not null then '¥' || printf('%.2f', l.FPrice) end as FPriceText,
       case when l.FUnit <> '' then '元/' || l.FUnit end as FUnitText
from label_copy c
join t_label l on l.FLabelID = c.FLabelID;

-- Print data: one row is a row of three labels. What the last row hasn't got is Null.
create view v_label as
select 0 as FInterID, FPlace - FPlace % 3 as FFirstPlace,
       max(case when FPlace % 3 = 0 then FItemName end) as FItemName1,
       max(case when FPlace % 3 = 0 then FModelText end) as FModelText1,
       max(case when FPlace % 3 = 0 then FNumberText end) as FNumberText1,
       max(case when FPlace % 3 = 0 then FOriginText end) as FOriginText1,
       max(case when FPlace % 3 = 0 then FPriceText end) as FPriceText1,
       max(case when FPlace % 3 = 0 then FUnitText end) as FUnitText1,
       max(case when FPlace % 3 = 1 then FItemName end) as FItemName2,
       max(case when FPlace % 3 = 1 then FModelText end) as FModelText2,
       max(case when FPlace % 3 = 1 then FNumberText end) as FNumberText2,
       max(case when FPlace % 3 = 1 then FOriginText end) as FOriginText2,
       max(case when FPlace % 3 = 1 then FPriceText end) as FPriceText2,
       max(case when FPlace % 3 = 1 then FUnitText end) as FUnitText2,
       max(case when FPlace % 3 = 2 then FItemName end) as FItemName3,
       max(case when FPlace % 3 = 2 then FModelText end) as FModelText3,
       max(case when FPlace % 3 = 2 then FNumberText end) as FNumberText3,
       max(case when FPlace % 3 = 2 then FOriginText end) as FOriginText3,
       max(case when FPlace % 3 = 2 then FPriceText end) as FPriceText3,
       max(case when FPlace % 3 = 2 then FUnitText end) as FUnitText3
from v_label_place
group by FPlace - FPlace % 3;

-- The first two labels of the sheet are used already.
insert into t_label (FLabelID, FCopies) values (0, 2);
insert into t_label (FLabelID, FItemName, FModel, FNumber, FOrigin, FUnit, FPrice, FCopies) values
  (1, '珍珠米', '10kg/袋', 'SP-1001', '江城', '袋', 59.9, 4),
  (2, '精制食盐', '400g', 'SP-1023', '南浦', '袋', 2.5, 6),
  (3, '干木耳（东北秋耳，无根小碗耳）', '250g', 'SP-1029', '云州', '袋', 29.8, 3),
  (4, '洗衣液（薰衣草香）', '2kg', 'RY-2003', '江城', '瓶', 25.9, 5),
  (5, '铜芯球阀', 'DN20', 'WJ-0120', '', '只', 1038, 6);
