// Faults of parameter lists, each at its line.
Sub A(ByRef Optional x As Integer)                 // expect error 2 76
End Sub
Sub B(ParamArray Optional ys As Integer)           // expect error 4 77
End Sub
Sub C(ByRef ByVal z As Integer)                    // expect error 6 74
End Sub
Sub D(ByVal ByVal w As Integer)                    // expect error 8 75
End Sub
Sub E(k As Integer = "text")                       // expect error 10 10
End Sub
Sub F(a As Integer, Extends b As Integer)          // expect error 12 80
End Sub
Sub G(Assigns c As Integer, d As Integer)          // expect error 14 81
End Sub
Sub H(ParamArray e As Integer, f As Integer)       // expect error 16 82
End Sub
Sub I(Assigns g As Integer, Assigns h As Integer)  // expect error 18 83
End Sub
Sub J(ParamArray p As Integer, ParamArray q As Integer)  // expect error 20 84
End Sub
Sub K(ParamArray m(,) As Integer)                  // expect error 22 85
End Sub
Sub Fine(a As Integer, Optional b As Integer = 2, ParamArray rest As Integer)
End Sub
