' Pragmas and conditional compilation.
#pragma BoundsChecking False
#pragma disableBackgroundTasks
#pragma NilObjectChecking True
#pragma Debug
#pragma X86CallingConvention StdCall
#pragma BindingPart Name, "a", "b"
#pragma BindingDeclaration Name, Other, "c"
#pragma DisableAutoWaitCursor
#pragma Deprecated

#if TargetLinux
  Print "linux"
#elseif TargetWin32
  Print "windows"
#else
  Print "other"
#endif

#if TargetWin32 Then
  This line is skipped: ] ) (
#else
  Print "not windows"
#endif

#if TargetMacOS
  skipped
#elseif TargetX86
  Print "x86"
#elseif TargetLinux Then
  also skipped
#endif

#if TargetX86 Then Print "inline"
#if TargetWin32 Then skipped garbage ( (
#if TargetLinux Then
#endif

Sub Configured()
  #pragma StackOverflowChecking False
  #if TargetHasGUI
    Print "gui"
  #if True
    nested skipped
  #endif
  #endif
  #pragma Reset
End Sub

Sub Guarded()
  #if TargetWin32
    Print "no"
End Sub
