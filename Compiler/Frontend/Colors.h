// The members of a Color value: the bytes Red, Green, Blue and Alpha read
// in line, the hue, saturation, value and the cyan, magenta and yellow
// complements through the runtime's colour readers.
#ifndef COMPILER_FRONTEND_COLORS_H
#define COMPILER_FRONTEND_COLORS_H

#include "Universal/ustring.h"

class SemBase;

// Whether `name` is one of the members above (compared as names are).
bool IsPotentialColorMethodName(string const& name);
// `expr.ident` on a Color `expr`; the name must pass the test above.
SemBase* HandleColorMethodCall(SemBase* expr, SemBase* ident);

#endif
