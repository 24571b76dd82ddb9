// #if / #elseif / #else / #endif pick one branch by constant expressions,
// nest, and the one-line #if ... Then statement form compiles its statement
// only when the condition holds.
#if TargetLinux Then
Print "linux"                 // expect: linux
#else
Print "elsewhere"
#endif
#if TargetWin32 Then
Print "windows"
#elseif TargetX86 Then
Print "x86"                   // expect: x86
#else
Print "other"
#endif
#if TargetMacOS Then
Print "mac"
#elseif TargetPPC Then
Print "ppc"
#else
Print "fallback"              // expect: fallback
#endif
#if TargetLittleEndian And Not TargetBigEndian Then
#if TargetX86 Then
Print "nested"                // expect: nested
#endif
#endif
#if TargetX86 Then Print "one line"      // expect: one line
#if TargetWin32 Then Print "not compiled"
Sub Inside()
#if TargetLinux Then
  Print "in a method"
#endif
End Sub
Inside()                      // expect: in a method
