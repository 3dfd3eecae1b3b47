' Prints bills as a program does that has neither the platform's data objects nor types.
'
'   print_bill.vbs CONNECTION ROWS BILLTYPE FORMAT ONLYVARIABLES BLANKROWS BYAREA REFUSAL
'
' REFUSAL is the description of the error that a print without data fails with. The script itself is in
' ASCII, which every script host reads in the same way.
'
' ROWS is a UTF-16 file: names of columns, then rows, all separated by tabs. Writes what a program
' learns of the print if that isn't what it should be, else "printed".
Option Explicit

Class OneField
  Public Value
End Class

' A record set of its own: what the component asks of one, and nothing else.
Class RowSet
  Private names
  Private rows
  Private current
  Private count

  Public Sub Load(newNames, newRows, newCount)
    names = newNames
    rows = newRows
    count = newCount
    current = 0
  End Sub

  Public Property Get EOF()
    EOF = (current >= count)
  End Property

  Public Function Fields(name)
    Dim i, found
    For i = 0 To UBound(names)
      If LCase(names(i)) = LCase(name) Then
        Set found = New OneField
        If current < count Then
          If rows(current)(i) = "\N" Then found.Value = Null Else found.Value = rows(current)(i)
        End If
        Set Fields = found
        Exit Function
      End If
    Next
    Err.Raise 3265, "RowSet", "no column " & name
  End Function

  Public Sub MoveNext()
    current = current + 1
  End Sub

  Public Sub MoveFirst()
    current = 0
  End Sub

  Public Function Clone()
    Dim other
    Set other = New RowSet
    other.Load names, rows, count
    Set Clone = other
  End Function
End Class

Function RowsOf(path)
  Const kReading = 1, kUnicode = -1
  Dim file, names, rows(1000), count
  Set file = CreateObject("Scripting.FileSystemObject").OpenTextFile(path, kReading, False, kUnicode)
  names = Split(file.ReadLine, vbTab)
  count = 0
  Do Until file.AtEndOfStream
    rows(count) = Split(file.ReadLine, vbTab)
    count = count + 1
  Loop
  file.Close
  Set RowsOf = New RowSet
  RowsOf.Load names, rows, count
End Function

Dim failures
failures = 0

Sub Expect(what, actual, expected)
  If actual = expected Then Exit Sub
  WScript.Echo what & ": " & actual & ", expected " & expected
  failures = failures + 1
End Sub

Dim printer, data, given
Set given = WScript.Arguments
Set printer = CreateObject("QbTdPrinter.Printer")
Expect "PrintOk before a print", printer.PrintOk, False

On Error Resume Next
printer.DoPrint True, given(0), CInt(given(2)), False, False, Nothing
Expect "the number without data", Err.Number, &H800403E9
Expect "the description without data", Err.Description, given(7)
Err.Clear
printer.DoPrint True, given(0)
Expect "an error for missing arguments", (Err.Number <> 0), True
Err.Clear
printer.DoPrint True, given(0), "no number", False, False, RowsOf(given(1))
Expect "an error for a wrong kind", (Err.Number <> 0), True
Err.Clear
printer.PrintBlankRows = CInt(given(5))
Expect "an error for a property", Err.Number, 0
On Error GoTo 0

Set data = RowsOf(given(1))
If given(6) = "1" Then
  printer.DoPrint_GroupByArea True, given(0), CInt(given(2)), (given(4) = "1"), False, data, given(3)
Else
  printer.DoPrint True, given(0), CInt(given(2)), (given(4) = "1"), False, data, given(3)
End If
Expect "PrintOk behind the print", printer.PrintOk, True
Expect "the cursor is back on the first row", data.EOF, False

If failures = 0 Then WScript.Echo "printed"
WScript.Quit failures
