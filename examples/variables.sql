-- The variables that items may name: the same for all bill types, and the partner's for each.

with variable (FVarCaption, FVarName) as (values
  -- head of the bill
  ('单据编号', 'FBillNo'),
  ('单据日期', 'FDate'),
  ('联系人', 'FContact'),
  ('联系电话', 'FPhone'),
  ('地址', 'FAddress'),
  ('仓库', 'FStockName'),
  ('业务员', 'FEmpName'),
  ('制单人', 'FBiller'),
  ('审核人', 'FChecker'),
  ('结算方式', 'FSettle'),
  ('备注', 'FNote'),
  ('预付款大写', 'fearnest_dx'),
  ('整单金额', 'FSumAmountText'),
  ('整单数量', 'FSumQtyText'),
  ('整单金额大写', 'fsumamount_dx'),
  -- detail row
  ('行号', 'forderid'),
  ('分录号', 'FEntryID'),
  ('商品编码', 'FNumber'),
  ('商品名称', 'FItemName'),
  ('规格型号', 'FModel'),
  ('单位', 'FUnit'),
  ('数量', 'FQty'),
  ('复合数量', 'fcomplexqty'),
  ('单价', 'FPrice'),
  ('税率', 'FTaxRate'),
  ('税额', 'FTax'),
  ('金额', 'FAmount'),
  ('不含税金额', 'FNoTaxAmount'),
  ('行备注', 'FRowNote'),
  -- sums of the page and of the run
  ('本页数量', 'ftotalpage_qty'),
  ('本页件数', 'ftotalpage_mainqty'),
  ('本页散数', 'ftotalpage_slaveqty'),
  ('本页金额', 'ftotalpage'),
  ('本页金额大写', 'ftotalpagedx'),
  ('本页税额', 'ftotalpagetax'),
  ('本页不含税金额', 'ftotalpagenotaxamount'),
  ('累计金额', 'ftotalpage_1'),
  ('累计金额大写', 'FTotalPage_1_Dx'),
  ('累计税额', 'ftotalpagetax_1'),
  ('累计件数', 'ftotalpage_mainqty_1'),
  -- page numbers
  ('页号', 'fpageno'),
  ('总页数', 'ftotalpageno')
),
bill_type (FTranType) as (values (12), (21), (22))
insert into TDVariant (FTranType, FVarCaption, FVarName)
select FTranType, FVarCaption, FVarName from bill_type cross join variable;

insert into TDVariant (FTranType, FVarCaption, FVarName) values
  (12, '供应商', 'FSupplierName'),
  (21, '客户', 'FCustName'),
  (22, '客户', 'FCustName');
