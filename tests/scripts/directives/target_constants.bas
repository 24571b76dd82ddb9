// The target constants decide which branch is compiled: the faults below
// are reported only where the branch is taken.
#if TargetWin32 Then
x = = 1
#else
y = = 2             // expect error 6 1
#endif
