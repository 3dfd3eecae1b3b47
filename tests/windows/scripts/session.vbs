' Prints into a file with rows of the script's own that are hard to read, and asks what became of it.
'
'   session.vbs CONNECTION BILLTYPE FORMAT FILE
'
' Writes what a program learns if that isn't what it should be, else "printed". In ASCII, which every
' script host reads in the same way.
Option Explicit

Class OneField
  Public Value
End Class

' Three rows of one bill; FailingColumn raises an error on its second one.
Class RowSet
  Private current
  Public FailingColumn
  Public FailsToClone
  Public Clones

  Public Property Get EOF()
    EOF = (current >= 3)
  End Property

  Public Function Fields(name)
    Set Fields = New OneField
    If LCase(name) = LCase(FailingColumn) And current = 1 Then
      Err.Raise 4711, "RowSet", "the drawer is locked up"
    End If
    Select Case LCase(name)
      Case "finterid"
        Fields.Value = 1
      Case "fitemname"
        Fields.Value = "row" & Chr(0) & "tail" & (current + 1)
      Case "famount"
        Fields.Value = CCur(12.5)
      Case Else
        Err.Raise 3265, "RowSet", "no column " & name
    End Select
  End Function

  Public Sub MoveNext()
    current = current + 1
  End Sub

  Public Sub MoveFirst()
    current = 0
  End Sub

  Public Function Clone()
    If FailsToClone Then Err.Raise 3251, "RowSet", "there is one cursor"
    Clones = Clones + 1
    Set Clone = New RowSet
    Clone.FailingColumn = FailingColumn
    Clone.MoveFirst
  End Function
End Class

Function NewRows()
  Set NewRows = New RowSet
  NewRows.MoveFirst
  NewRows.Clones = 0
End Function

Dim failures
failures = 0

Sub Expect(what, actual, expected)
  If actual = expected Then Exit Sub
  WScript.Echo what & ": " & actual & ", expected " & expected
  failures = failures + 1
End Sub

Dim session, given, data, connection, billType, format, content
Set given = WScript.Arguments
connection = given(0)
billType = CInt(given(1))
format = given(2)
Set session = CreateObject("QbTdPrinter.Session")
session.MessageMode = 2
session.ToHtml given(3)

Set data = NewRows()
session.DoPrint True, connection, billType, False, False, data, format
Expect "Result", session.Result, "written"
Expect "Delivered", session.Delivered, True
Expect "Messages", session.Messages, ""
Expect "clones", data.Clones, 1
Expect "the cursor is back on the first row", data.EOF, False

Set content = CreateObject("Scripting.FileSystemObject").OpenTextFile(given(3))
content = content.ReadAll
Expect "a text goes on behind a zero", (InStr(content, "tail3<") > 0), True

Set data = NewRows()
data.FailingColumn = "FItemName"
session.DoPrint True, connection, billType, False, False, data, format
' Some hosts hand on the number alone.
If InStr(session.Messages, "the drawer is locked up") + InStr(session.Messages, "1267") = 0 Then
  Expect "what a row raises", session.Messages, "a message with its words"
End If

Set data = NewRows()
data.FailsToClone = True
session.DoPrint True, connection, billType, False, False, data, format
Expect "Result without a clone", session.Result, "written"
Expect "Messages without a clone", session.Messages, ""

On Error Resume Next
session.ToHtml "a" & Chr(0) & "b"
Expect "a name with a zero", Err.Number, 5
Err.Clear
session.Message 1
Expect "a message that isn't there", Err.Number, 9
Err.Clear
session.ToPrinter "no such printer"
session.DoPrint True, connection, billType, False, False, NewRows(), format
Expect "an unknown printer", Err.Number, 380
Err.Clear
On Error GoTo 0

If failures = 0 Then WScript.Echo "printed"
WScript.Quit failures
