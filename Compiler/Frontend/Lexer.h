// The lexer: source text to the grammar's tokens.
//
// MINIMAL FOR NOW: only the position query that semantic values, symbols
// and compile errors read. The scanner itself, its state record and the
// rest of its interface come with the lexer issue, which extends this file.
#ifndef COMPILER_FRONTEND_LEXER_H
#define COMPILER_FRONTEND_LEXER_H

// The line, counted from 0, on which the current token began.
unsigned int current_line();

#endif
