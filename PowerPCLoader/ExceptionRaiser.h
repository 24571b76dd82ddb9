// The loader's side of a raise: the raiser that walks PowerPC frames, and
// the note of the line each exception was raised at, which the runtime's
// own monitor cannot take (it reads IA-32 frames and line tables).
#ifndef POWERPCLOADER_EXCEPTIONRAISER_H
#define POWERPCLOADER_EXCEPTIONRAISER_H

struct RuntimeObject;

namespace ppcloader {

// What the module calls for the runtime's RuntimeInit: the runtime's, then
// the loader's monitor in place of the runtime's.
void InitRuntimeNotingRaiseLines();

// The line the exception that no handler caught was raised at, from 1; 0
// when unknown.
unsigned long UncaughtExceptionLine();
// Reports an exception that ended the run at once (a runaway stack
// overflow) as uncaught, with the line it was raised from.
void ReportEndingException(RuntimeObject* exception);

}  // namespace ppcloader

#endif
