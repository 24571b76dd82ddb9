// Code compiled for a debugger calls its hook at every statement; a host
// without a debugger serves the hook as nothing, and the script runs.
#pragma Debug True
Dim total As Integer
For i As Integer = 1 To 3
  total = total + i
Next
Print Str(total)    // expect: 6
