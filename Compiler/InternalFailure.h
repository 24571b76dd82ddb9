// Assertion failures whose explanatory text is only known at run time, such
// as a type's spelling or a symbol's name. Like QFAIL, they print one line
// and end the process: these are faults of the compiler, not of a script.
#ifndef COMPILER_INTERNALFAILURE_H
#define COMPILER_INTERNALFAILURE_H

#include "Universal/ustring.h"

// Prints "failed assertion: " followed by `text` through the one assertion
// routine, naming `file` and `line`, and never returns.
[[noreturn]] void InternalFailure(string const& text, char const* file,
                                  int line);

#define QFAIL_STRING(text) InternalFailure((text), __FILE__, __LINE__)

#endif
