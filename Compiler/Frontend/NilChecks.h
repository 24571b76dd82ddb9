// Guards before a dereference: with the NilObjectChecking pragma on, a nil
// object or array raises a NilObjectException at run time instead of
// crashing the script.
#ifndef COMPILER_FRONTEND_NILCHECKS_H
#define COMPILER_FRONTEND_NILCHECKS_H

class SemBase;

// The object expression, guarded; the expression itself when checking is
// off or it is no object.
SemBase* CheckForNilObject(SemBase* object);
// The same for an array expression; a null expression stays null.
SemBase* CheckForNil(SemBase* array);

#endif
