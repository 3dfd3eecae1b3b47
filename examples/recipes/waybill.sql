-- Express waybills (bill type 51): one row is one waybill, and a page.

create table t_waybill (
  FWaybillID       integer primary key,
  FOrderNo         varchar(30) not null unique,       -- the sender's own number, printed as a barcode
  FSendDate        varchar(10) not null,              -- yyyy-mm-dd
  FDestination     varchar(20) not null,
  FSender          varchar(30) not null,
  FSenderPhone     varchar(30) not null,
  FSenderCompany   varchar(100) not null default '',
  FSenderAddress   varchar(200) not null,
  FSenderPostcode  varchar(6) not null default '',
  FReceiver        varchar(30) not null,
  FReceiverPhone   varchar(30) not null,
  FReceiverCompany varchar(100) not null default '',
  FReceiverAddress varchar(200) not null,
  FReceiverPostcode varchar(6) not null default '',
  FGoods           varchar(100) not null,
  FPieces          integer not null default 1,
  FWeight          decimal(18,3),                     -- kilograms; Null: weighed at the counter
  FPayment         varchar(10) not null,              -- who pays: 寄付, 到付 or 月结
  FInsured         decimal(18,2),                     -- declared value; Null: not insured
  FCollect         decimal(18,2),                     -- to be collected from the receiver; Null: nothing
  FNote            varchar(200) not null default ''
);

-- Each waybill is a page of its own. With the bill number 0 no bill begins or ends between the rows; a
-- format of one row a page would otherwise print a page without a row between two bills.
create view v_waybill as
select 0 as FInterID, w.*,
       w.FOrderNo as FUserBarCode,
       substring(w.FSendDate, 1, 4) as FYear,
       cast(substring(w.FSendDate, 6, 2) as integer) as FMonth,
       cast(substring(w.FSendDate, 9, 2) as integer) as FDay,
       case when w.FPayment = '寄付' then '√' else '' end as FTickSender,
       case when w.FPayment = '到付' then '√' else '' end as FTickReceiver,
       case when w.FPayment = '月结' then '√' else '' end as FTickMonthly,
       case when w.FInsured is not null then '√' else '' end as FTickInsured,
       case when w.FInsured is null then '√' else '' end as FTickNotInsured,
       case when w.FInsured is not null then printf('%.2f', w.FInsured) else '' end as FInsuredText,
       case when w.FCollect is not null then printf('%.2f', w.FCollect) else '' end as FCollectText
from t_waybill w;

insert into t_waybill (FWaybillID, FOrderNo, FSendDate, FDestination, FSender, FSenderPhone, FSenderCompany,
                       FSenderAddress, FSenderPostcode, FReceiver, FReceiverPhone, FReceiverCompany,
                       FReceiverAddress, FReceiverPostcode, FGoods, FPieces, FWeight, FPayment, FInsured,
                       FCollect, FNote) values
  (1, 'YD-240308-0017', '2024-03-08', '南浦', '林晓峰', '0270-5566 8899', '江城万源百货商贸有限公司',
   '江城市解放大道268号万源大厦一层发货处', '430100', '陈国栋', '0591-8820 1177', '南浦惠民超市有限公司',
   '南浦市台江区五一中路199号惠民广场地下一层收货口（请走南侧货运通道，夜间按门铃）', '350004',
   '精制食盐、珍珠米样品', 2, 12.5, '寄付', 3000, null, '易潮，请勿与液体同装。'),
  (2, 'YD-240308-0018', '2024-03-08', '云州', '林晓峰', '0270-5566 8899', '江城万源百货商贸有限公司',
   '江城市解放大道268号万源大厦一层发货处', '430100', '欧阳雪莹', '138 0000 1234', '',
   '云州市西山区环城西路12号院3栋2单元601室', '650032', '五金工具一套', 1, 4.2, '到付', null, 268.5, ''),
  (3, 'YD-240309-0001', '2024-03-09', '江城东', '钱勇', '0270-5566 8890', '江城万源百货商贸有限公司',
   '江城市解放大道268号万源大厦一层发货处', '430100', '孙丽', '0270-8123 4567', '东湖酒店后厨',
   '江城市东湖路5号', '430071', '单据', 1, null, '月结', null, null, '内有发票，请当面签收。');
