// The declaration scanner: the first of the two passes over a unit. It
// walks the source with the lexer alone and builds the unit's declaration
// tree without looking into any method body, so that a method may call one
// declared further down, or in a class declared later. It is tolerant and
// quiet: a malformed line is skipped, and the grammar pass reports it with
// a better message. Its own reports are few and all about block structure.
#ifndef COMPILER_MINER_DECLARATIONPARSER_H
#define COMPILER_MINER_DECLARATIONPARSER_H

#include "Universal/ustring.h"

class CompilerDelegate;
class MethodSymbol;
class PropertySymbol;
class TypeSymbol;
class UnitSymbolTable;

// The declarations of one unit, or null if a block-structure error was
// flagged. Errors go to `delegate`, if any, as compile error 1 with the
// message as argument.
UnitSymbolTable* ParseDeclarations(string unitName, string source,
                                   CompilerDelegate* delegate);
// One method header, "[scope] [Shared] Sub|Function name(...) [As type]",
// as the host describes its methods; null if it is none. With an `owner`,
// the method gets the implicit self parameter unless Shared. The caller
// owns the result.
MethodSymbol* ExtractMethodDeclaration(string text, TypeSymbol* owner);
// One property, "[scope] [Shared] [Dim] name[(...)] As type"; null if it is
// none. The caller owns the result.
PropertySymbol* ExtractPropertyDeclaration(string text);
// Marks the unit as failed and reports `message` at the current line, or at
// `line` (from 0).
void FlagError(string message);
void FlagError(string message, unsigned int line);
// Blocks (modules, classes, interfaces, structures) nest at most this deep:
// the scanner reads each level in a frame of its own.
enum { kDeepestDeclarationNesting = 256 };
// Reports blocks nested past kDeepestDeclarationNesting; fatal like
// FlagError.
void FlagNestingTooDeep();

#endif
