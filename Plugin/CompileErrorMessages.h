// The words for the compile error numbers. Every host gets the same texts
// from the engine: a short summary per number, and the full message of one
// error with the names and types involved.
#ifndef PLUGIN_COMPILEERRORMESSAGES_H
#define PLUGIN_COMPILEERRORMESSAGES_H

#include "Universal/ustring.h"

class CompileError;

// The summary of the number ("unknown name"); a generic text for a number
// no error has.
char const* CompileErrorSummary(int number);

// The summary followed by what the error is about ("unknown name: Foo"):
// the raiser's arguments, or else the source text the error's location
// covers, when that is one short stretch of one line of `source`.
string CompileErrorText(CompileError const& error, char const* source);

#endif
