// Guards before a dereference: with the NilObjectChecking pragma on, a nil
// object, class record or array raises a NilObjectException at run time instead of
// crashing the script.
#ifndef COMPILER_FRONTEND_NILCHECKS_H
#define COMPILER_FRONTEND_NILCHECKS_H

class SemBase;
class TacAddr;

// The object or class record expression, guarded; the expression itself
// when checking is off or it is neither.
SemBase* CheckForNilObject(SemBase* object);
// The same for an array expression; a null expression stays null.
SemBase* CheckForNil(SemBase* array);
// Appends to `code` a test that raises NilObjectException when `value` is
// zero.
void AddNilTest(TacAddr const* value, SemBase* code);
// The same for a Ptr about to be read or written through, when checking is
// on: address zero is never memory a script may touch.
void CheckPointerForNil(TacAddr const* pointer, SemBase* code);

#endif
