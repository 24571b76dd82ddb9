// What lives beside the generated parser: its error report, the periodic
// check that lets a delegate cancel, and the fixed size of its stacks.
#ifndef COMPILER_FRONTEND_PARSERSUPPORT_H
#define COMPILER_FRONTEND_PARSERSUPPORT_H

// The parser's two stacks (states and values) have this many entries, on
// the frame of yyparse, and never grow: nesting beyond them is compile
// error 5, not a crash.
enum { kParserStackDepth = 400 };

// The parser generator's own message texts, in this system's words:
// "parse error" for a syntax error, "parser stack overflow" when the
// stacks are full.
char const* ParserMessage(char const* generatorText);

// A syntax error (compile error 1, see SyntaxRecovery.h) or a full stack
// (compile error 5, at the current line); sets the compilation's error
// flag.
void yyerror(char const* message);

// True when the parse must stop now: the delegate asked to cancel or,
// without a delegate, an error has been reported.
bool CheckDelegate();

// Parses the text given to InitLexer: 0 accepted, 1 aborted, 2 stack
// overflow. Defined by the generated parser.
int yyparse();

#endif
