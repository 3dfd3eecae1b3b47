' Prints a bill from a script: VBScript, Office, and whatever creates objects by their name.
'
'   regsvr32 QbTdPrinter.dll                       once, see README.txt
'   cscript //nologo print_bill.vbs CONNECTION BILLTYPE [FORMAT [PRINTER]]
'
'   cscript //nologo print_bill.vbs sqlite:C:\shop\sample.db 21
'
' A 64-bit Windows runs scripts in 64 bits; C:\Windows\SysWOW64\cscript.exe runs them in 32 bits and
' needs the DLL of the folder x86.
'
' Keep scripts with Chinese text in UTF-16: script hosts read others in the code page of the machine.
Option Explicit

' What Fields(name) answers. With a record set of the platform's own data objects (ADO) neither of
' the two classes is needed: hand it over as it is.
Class OneField
  Public Value
End Class

' A record set over rows of the script: the component calls these five members.
Class RowSet
  Private names
  Private rows
  Private current

  Public Sub Load(newNames, newRows)
    names = newNames
    rows = newRows
    current = 0
  End Sub

  Public Property Get EOF()
    EOF = (current > UBound(rows))
  End Property

  ' Called for every value that a format shows. A column that the rows don't have is error 3265, and
  ' what shows it stays blank.
  Public Function Fields(name)
    Dim i, found
    For i = 0 To UBound(names)
      If LCase(names(i)) = LCase(name) Then
        Set found = New OneField
        found.Value = rows(current)(i)
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

  ' A second cursor over the same rows.
  Public Function Clone()
    Dim other
    Set other = New RowSet
    other.Load names, rows
    Set Clone = other
  End Function
End Class

Dim given, data, printer
Set given = WScript.Arguments
If given.Count < 2 Then
  WScript.Echo "usage: print_bill.vbs CONNECTION BILLTYPE [FORMAT [PRINTER]]"
  WScript.Quit 2
End If

' The rows of a bill stand together, and FInterID tells the bills apart.
Set data = New RowSet
Dim names, first, second
names = Array("FInterID", "FEntryID", "FBillNo", "FItemName", "FUnitName", "FQty", "FPrice", "FAmount")
first = Array(1, 1, "XD-0001", "Rice", "kg", 25, 5.2, 130)
second = Array(1, 2, "XD-0001", "Salt", "bag", 10, 2.5, 25)
data.Load names, Array(first, second)

On Error Resume Next
' A session prints to an output of the program's choice and tells what became of the document.
Set printer = CreateObject("QbTdPrinter.Session")
If Err.Number <> 0 Then
  WScript.Echo "QbTdPrinter is not registered for programs of this kind: " & Err.Description
  WScript.Quit 1
End If
If given.Count > 3 Then printer.ToPrinter given(3)
If given.Count > 2 Then
  printer.DoPrint True, given(0), CInt(given(1)), False, False, data, given(2)
Else
  printer.DoPrint True, given(0), CInt(given(1)), False, False, data
End If
If Err.Number <> 0 Then
  WScript.Echo "not printed: " & Err.Description
  WScript.Quit 1
End If
If Not printer.Delivered Then
  WScript.Echo "not printed"
  WScript.Quit 1
End If
WScript.Echo "printed, pages: " & printer.Pages
