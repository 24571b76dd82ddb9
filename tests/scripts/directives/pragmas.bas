// Every pragma name is accepted, with and without its argument, at the top
// level and in methods; the program still runs normally.
#pragma BackgroundTasks False
#pragma BoundsChecking True
#pragma StackOverflowChecking False
#pragma NilObjectChecking True
#pragma Debug False
#pragma ProfileCode
#pragma LockRefCountedParameters True
#pragma disableBackgroundTasks
#pragma disableBoundsChecking
#pragma disableAutoWaitCursor
#pragma Deprecated
#pragma BindingPart
#pragma BindingDeclaration
#pragma X86CallingConvention StdCall
#pragma Reset
Function Loop3() As Integer
  #pragma BackgroundTasks False
  #pragma StackOverflowChecking True
  Dim i, n As Integer
  For i = 1 To 3
    n = n + i
  Next
  Return n
End Function
Print Str(Loop3())            // expect: 6
