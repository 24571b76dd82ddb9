// Named labels and GoTo. A name gives one label per compilation, so a GoTo
// may come before its label and may jump into a block that is not open.
#ifndef COMPILER_FRONTEND_LABELUTILITIES_H
#define COMPILER_FRONTEND_LABELUTILITIES_H

class SemBase;

// goto_statement: GoTo IDENT
SemBase* CompileGoto(SemBase* ident);
// label_statement: IDENT : EOL
SemBase* CompileLabel(SemBase* ident);

#endif
