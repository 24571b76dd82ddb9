// Input shows its prompt without a line end, then reads one line of
// standard input per call, without its line end; numbers come through Val.
// stdin: Ada
// stdin: 12
// stdin: 30.5
Dim name As String = Input("Name? ")
Dim a As Double = Val(Input(""))
Dim b As Double = Val(Input(""))
Print "Hello, " + name                 // expect: Name? Hello, Ada
Print Str(a + b)                       // expect: 42.5
