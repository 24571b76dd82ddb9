// Modules, enums and delegates: a small alarm panel. The module keeps its
// state in module properties, an enum names the levels, and listeners
// subscribe with AddressOf, a module method or a method bound to an object.
Module Alarms
  Enum Level
    Info
    Warning = 10
    Critical
  End Enum
  Delegate Sub Listener(what As String, severity As Level)

  Private mListeners() As Listener
  Dim Raised As Integer

  Sub Subscribe(l As Listener)
    mListeners.Append(l)
  End Sub

  Sub Sound(what As String, severity As Level)
    Raised = Raised + 1
    For Each l As Listener In mListeners
      l.Invoke(what, severity)
    Next
  End Sub

  Function LevelName(severity As Level) As String
    Select Case severity
    Case Level.Info
      Return "info"
    Case Level.Warning
      Return "warning"
    Else
      Return "critical"
    End Select
  End Function

  Sub Console(what As String, severity As Level)
    Print "[" + LevelName(severity) + "] " + what
  End Sub
End Module

Class Pager
  Dim Owner As String
  Dim Pages As Integer
  Sub Constructor(name As String)
    Owner = name
  End Sub
  Sub Page(what As String, severity As Alarms.Level)
    If severity = Alarms.Level.Critical Then
      Pages = Pages + 1
      Print "paging " + Owner + ": " + what
    End If
  End Sub
End Class

Dim beeper As New Pager("dana")
Alarms.Subscribe(AddressOf Alarms.Console)
Alarms.Subscribe(AddressOf beeper.Page)
Alarms.Sound("disk at 70%", Alarms.Level.Info)
Alarms.Sound("disk at 90%", Alarms.Level.Warning)
Alarms.Sound("disk full", Alarms.Level.Critical)
Print Str(Alarms.Raised) + " alarms, " + Str(beeper.Pages) + " page, critical is " + Str(Int32(Alarms.Level.Critical))
