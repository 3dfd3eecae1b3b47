// Prints into a file with rows of the script's own, some of which throw, and asks what became of it.
//
//   session.js CONNECTION BILLTYPE FORMAT FILE
//
// Writes "printed", or what it has met. In ASCII, which every script host reads in the same way.

// `thrown` is what the second row throws instead of its name.
function RowSet(thrown) {
  this.current = 0;
  this.thrown = thrown;
}
RowSet.prototype.EOF = function () {
  return this.current >= 3;
};
RowSet.prototype.Fields = function (name) {
  name = name.toLowerCase();
  if (name == "finterid") return { Value: 1 };
  if (name == "famount") return { Value: 12.5 };
  if (name != "fitemname") throw new Error(0x800a0cc1 - 0x100000000, "no column " + name);
  if (this.thrown && this.current == 1) throw this.thrown;
  return { Value: "row " + (this.current + 1) };
};
RowSet.prototype.MoveNext = function () {
  this.current++;
};
RowSet.prototype.MoveFirst = function () {
  this.current = 0;
};
RowSet.prototype.Clone = function () {
  return new RowSet(this.thrown);
};

var given = WScript.Arguments;
var failures = 0;

function expect(what, actual, expected) {
  if (actual === expected) return;
  WScript.Echo(what + ": " + actual + ", expected " + expected);
  failures++;
}

function numberOf(action) {
  try {
    action();
    return "none";
  } catch (error) {
    return (error.number & 0xffff).toString(16);
  }
}

var session = new ActiveXObject("QbTdPrinter.Session");
session.MessageMode = 2;
session.ToHtml(given(3));

function print(rows) {
  session.DoPrint(true, given(0), parseInt(given(1), 10), false, false, rows, given(2));
}

print(new RowSet());
expect("Result", session.Result, "written");
expect("Pages", session.Pages, 1);
expect("Messages", session.Messages, "");

print(new RowSet(new Error(0x800a1267 - 0x100000000, "the drawer is locked up")));
expect("what a row throws is a message", session.Messages != "", true);

expect("no data", numberOf(function () { print(null); }), "3e9");
expect("too few arguments", numberOf(function () { session.DoPrint(true); }) != "none", true);
expect("no such member", numberOf(function () { session.Dance(); }) != "none", true);

if (failures == 0) WScript.Echo("printed");
WScript.Quit(failures);
