// Named labels and GoTo.
//
// STAND-INS FOR NOW: each action returns a harmless value (usually code
// of the null type) so that the whole language parses; the issues of
// these actions fill the bodies in.
#ifndef COMPILER_FRONTEND_LABELUTILITIES_H
#define COMPILER_FRONTEND_LABELUTILITIES_H

class SemBase;

// goto_statement: GoTo IDENT
SemBase* CompileGoto(SemBase* ident);
// label_statement: IDENT : EOL
SemBase* CompileLabel(SemBase* ident);

#endif
