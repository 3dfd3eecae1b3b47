-- Cheques (bill type 52): one row is one cheque, and a page. All words are made here, by the rules that
-- banks apply: the amount in capitals, its digits for the boxes, the date in capitals.

create table t_cheque (
  FChequeID  integer primary key,
  FDate      varchar(10) not null,     -- yyyy-mm-dd
  FPayee     varchar(60) not null,
  FBank      varchar(40) not null,     -- where the drawer's account is
  FAccountNo varchar(30) not null,
  FAmount    decimal(18,2) not null check (FAmount >= 0.01 and FAmount < 1000000000),  -- eleven boxes
  FPurpose   varchar(40) not null
);

-- What becomes of an amount such as ^0亿0仟0佰1拾0万7仟0佰0拾0元5角3分, rule by rule. The mark ^ is its
-- beginning. Zeros in a row become one; a zero before 万 or 元 is silent, and so is one in front of all.
create table t_capital_rule (
  FRuleID integer primary key,
  FFrom   varchar(10) not null,
  FTo     varchar(10) not null
);
insert into t_capital_rule (FRuleID, FFrom, FTo) values
  (1, '0亿', '0'), (2, '0仟', '0'), (3, '0佰', '0'), (4, '0拾', '0'),
  (5, '00', '0'), (6, '00', '0'), (7, '00', '0'),
  (8, '^0万', '^'), (9, '亿0万', '亿0'), (10, '0万', '万'), (11, '00', '0'),
  (12, '^0元', '^'), (13, '0元', '元'), (14, '0角0分', '整'), (15, '0角', '0'), (16, '0分', '整'),
  (17, '^0', '^'), (18, '^', ''),
  (19, '0', '零'), (20, '1', '壹'), (21, '2', '贰'), (22, '3', '叁'), (23, '4', '肆'),
  (24, '5', '伍'), (25, '6', '陆'), (26, '7', '柒'), (27, '8', '捌'), (28, '9', '玖');

-- The digits of the amount in fen, and before them eleven places: blanks and a ¥.
create view v_cheque_digits as
select FChequeID, replace(printf('%.2f', FAmount), '.', '') as FDigits,
       '          ¥' || replace(printf('%.2f', FAmount), '.', '') as FBoxes,
       substring('00000000000' || replace(printf('%.2f', FAmount), '.', ''),
                 length(replace(printf('%.2f', FAmount), '.', '')) + 1, 11) as FPlaces
from t_cheque;

create view v_cheque_words as
with recursive words (FChequeID, FRuleID, FWords) as (
  select FChequeID, 0,
         cast('^' || substring(FPlaces, 1, 1) || '亿' || substring(FPlaces, 2, 1) || '仟'
              || substring(FPlaces, 3, 1) || '佰' || substring(FPlaces, 4, 1) || '拾'
              || substring(FPlaces, 5, 1) || '万' || substring(FPlaces, 6, 1) || '仟'
              || substring(FPlaces, 7, 1) || '佰' || substring(FPlaces, 8, 1) || '拾'
              || substring(FPlaces, 9, 1) || '元' || substring(FPlaces, 10, 1) || '角'
              || substring(FPlaces, 11, 1) || '分' as varchar(60))
  from v_cheque_digits
  union all
  select w.FChequeID, r.FRuleID, cast(replace(w.FWords, r.FFrom, r.FTo) as varchar(60))
  from words w
  join t_capital_rule r on r.FRuleID = w.FRuleID + 1
)
select FChequeID, FWords from words where FRuleID = (select max(FRuleID) from t_capital_rule);

-- Print data. In the date a 零 stands before the months 1, 2 and 10 and the days 1 to 10, 20 and 30, so
-- that nothing can be written in front of them.
create view v_cheque as
select 0 as FInterID, c.*,
       substring(c.FDate, 1, 4) as FYear,
       cast(substring(c.FDate, 6, 2) as integer) as FMonth,
       cast(substring(c.FDate, 9, 2) as integer) as FDay,
       substring('零壹贰叁肆伍陆柒捌玖', cast(substring(c.FDate, 1, 1) as integer) + 1, 1)
       || substring('零壹贰叁肆伍陆柒捌玖', cast(substring(c.FDate, 2, 1) as integer) + 1, 1)
       || substring('零壹贰叁肆伍陆柒捌玖', cast(substring(c.FDate, 3, 1) as integer) + 1, 1)
       || substring('零壹贰叁肆伍陆柒捌玖', cast(substring(c.FDate, 4, 1) as integer) + 1, 1) as FYearDx,
       case when substring(c.FDate, 6, 2) in ('01', '02', '10') then '零' else '' end
       || case substring(c.FDate, 6, 1) when '1' then '壹拾' else '' end
       || case substring(c.FDate, 7, 1) when '0' then ''
          else substring('壹贰叁肆伍陆柒捌玖', cast(substring(c.FDate, 7, 1) as integer), 1) end
           as FMonthDx,
       case when substring(c.FDate, 9, 1) = '0' or substring(c.FDate, 10, 1) = '0' then '零' else '' end
       || case substring(c.FDate, 9, 1) when '1' then '壹拾' when '2' then '贰拾' when '3' then '叁拾'
          else '' end
       || case substring(c.FDate, 10, 1) when '0' then ''
          else substring('壹贰叁肆伍陆柒捌玖', cast(substring(c.FDate, 10, 1) as integer), 1) end
           as FDayDx,
       '¥' || printf('%.2f', c.FAmount) as FAmountText,
       w.FWords as FAmountDx,
       substring(d.FBoxes, length(d.FDigits) + 1, 1) as FDigit1,
       substring(d.FBoxes, length(d.FDigits) + 2, 1) as FDigit2,
       substring(d.FBoxes, length(d.FDigits) + 3, 1) as FDigit3,
       substring(d.FBoxes, length(d.FDigits) + 4, 1) as FDigit4,
       substring(d.FBoxes, length(d.FDigits) + 5, 1) as FDigit5,
       substring(d.FBoxes, length(d.FDigits) + 6, 1) as FDigit6,
       substring(d.FBoxes, length(d.FDigits) + 7, 1) as FDigit7,
       substring(d.FBoxes, length(d.FDigits) + 8, 1) as FDigit8,
       substring(d.FBoxes, length(d.FDigits) + 9, 1) as FDigit9,
       substring(d.FBoxes, length(d.FDigits) + 10, 1) as FDigit10,
       substring(d.FBoxes, length(d.FDigits) + 11, 1) as FDigit11
from t_cheque c
join v_cheque_digits d on d.FChequeID = c.FChequeID
join v_cheque_words w on w.FChequeID = c.FChequeID;

insert into t_cheque (FChequeID, FDate, FPayee, FBank, FAccountNo, FAmount, FPurpose) values
  (1, '2024-03-08', '江南食品有限公司', '解放路支行', '6200 1188 0042 17', 107000.53, '货款'),
  (2, '2024-10-20', '城东物业管理有限公司', '解放路支行', '6200 1188 0042 17', 325.04, '三季度物业费'),
  (3, '2024-02-12', '江城市国库', '解放路支行', '6200 1188 0042 17', 100000001, '土地出让金');
