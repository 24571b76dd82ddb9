// A syntax error in a Sub's first line leaves its table open; the counted
// Static local inside is still released at the end without a fault.
Sub Remember(s As String
  Static all As String
End Sub
// expect error 3 1
// expect error 4 11
// expect error 5 1
