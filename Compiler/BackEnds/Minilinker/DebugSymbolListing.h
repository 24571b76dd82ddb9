// The debug data of a linked script in a form people read: its functions
// with their code ranges and lines, the variables of each scope with their
// types and places, the globals with their offsets in the data image, and
// the fields of classes and structures, enums and constants.
#ifndef COMPILER_BACKENDS_MINILINKER_DEBUGSYMBOLLISTING_H
#define COMPILER_BACKENDS_MINILINKER_DEBUGSYMBOLLISTING_H

#include "Compiler/Linker/LinkedDebugSymbols.h"
#include "Universal/ustring.h"

// Sections in a fixed order, entries in the order of the data; lines count
// from 1.
string ListDebuggerSymbols(DebuggerSymbols& symbols);

#endif
