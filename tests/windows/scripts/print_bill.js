// Prints a bill of rows that the script itself makes, as a program in a second language does.
//
//   print_bill.js CONNECTION BILLTYPE FORMAT
//
// Writes "printed", or what it has met. In ASCII, which every script host reads in the same way.

function RowSet(count) {
  this.current = 0;
  this.count = count;
}
RowSet.prototype.EOF = function () {
  return this.current >= this.count;
};
RowSet.prototype.Fields = function (name) {
  var value = null;
  if (this.current < this.count) {
    if (name.toLowerCase() == "finterid") value = 1;
    else if (name.toLowerCase() == "fitemname") value = "row " + (this.current + 1);
    else if (name.toLowerCase() == "famount") value = 12.5;
    else throw new Error(0x800A0CC1 - 0x100000000, "no column " + name);
  }
  return new Field(value);
};
RowSet.prototype.MoveNext = function () {
  this.current++;
};
RowSet.prototype.MoveFirst = function () {
  this.current = 0;
};
RowSet.prototype.Clone = function () {
  return new RowSet(this.count);
};

function Field(value) {
  this.stored = value;
}
Field.prototype.Value = function () {
  return this.stored;
};

var given = WScript.Arguments;
var printer = new ActiveXObject("QbTdPrinter.Printer");
var refusal = "none";
try {
  printer.DoPrint(true, given(0), parseInt(given(1), 10), false, false, null);
} catch (error) {
  refusal = (error.number & 0xffff).toString(16);
}
printer.DoPrint(true, given(0), parseInt(given(1), 10), false, false, new RowSet(3), given(2));
if (refusal != "3e9") WScript.Echo("without data: " + refusal);
else if (!printer.PrintOk) WScript.Echo("not printed");
else WScript.Echo("printed");
