// Faults of conditional compilation: a stray #else or #endif, a condition
// that is not constant, an #elseif whose value is not Boolean.
#else                         // expect error 3 43
#endif                        // expect error 4 44
Dim n As Integer
#if n Then                    // expect error 6 46
#endif
#if TargetX86 Then
Print "taken"
#elseif 1 Then                // expect error 10 45
#endif
