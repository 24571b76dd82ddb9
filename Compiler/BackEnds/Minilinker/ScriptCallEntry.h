// The entry from the host into one function of a script, with a landing
// pad of its own right behind the call: an exception the function does not
// catch ends there, whatever frames it had, and the caller gets it.
#ifndef COMPILER_BACKENDS_MINILINKER_SCRIPTCALLENTRY_H
#define COMPILER_BACKENDS_MINILINKER_SCRIPTCALLENTRY_H

struct RuntimeObject;

extern "C" {
// Calls `entry` with the 32 argument words at `words` on the stack (a
// function takes those it declares; cdecl lets the rest lie). Gives EDX:EAX;
// with `floatResult` set, stores ST0 at `floating` instead. An exception
// that reaches the pad is stored, with the reference the raiser added, at
// `raised`, which is null otherwise.
unsigned long long CallScriptEntry(void* entry, unsigned long const* words,
                                   int floatResult, double* floating,
                                   RuntimeObject** raised);
}

#endif
