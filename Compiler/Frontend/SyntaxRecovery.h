// Syntax errors as people read them, and the parse's recovery from them.
//
// A syntax error names the token the parser could not take and points at
// it; when the text ends inside a block, the report stands at the line
// that opened the block instead. At the top level the parse resumes at the
// next line (the grammar's top-level error rule), so that one run reports
// the mistakes of every line. A line given up that way may have opened a
// block: the lines that would have continued or closed it (Else, Case,
// End If, Next...) are then not mistakes of their own, and are not
// reported. Likewise, when a block was closed by the End of the block
// around it, the next End the parser can't take is that mistake's echo.
#ifndef COMPILER_FRONTEND_SYNTAXRECOVERY_H
#define COMPILER_FRONTEND_SYNTAXRECOVERY_H

// What the recovery remembers within one compilation (held by its
// SrcContext).
struct SyntaxRecoveryState {
  unsigned int lastErrorLine = 0;  // from 0
  int abandonedBlocks = 0;         // opened by lines given up at the top level
  int borrowedEnds = 0;            // Ends that closed a block not their own
};

// Reports the syntax error at the parser's lookahead token (compile error
// 1), or holds it back as the echo of an earlier one.
void ReportSyntaxError();

// A block was closed by the End of another (and reported): the End that
// the other block then lacks is not a mistake of its own.
void NoteBlockClosedByAnotherEnd();

// After a syntax error at the top level, true when the parse may go on at
// the next line: no declaration or block was left open by the error, and
// CheckDelegate() does not stop the parse.
bool ResumeAfterTopLevelError();

#endif
