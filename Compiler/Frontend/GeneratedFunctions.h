// Functions that the compiler writes itself for classes and properties
// (initialisers, finalisers, record builders, lookups). Each has a local
// table for its temporaries, which the back end finds through the Enter
// line; the table's variables start zeroed, like any method's, so that a
// counted temporary never releases garbage.
#ifndef COMPILER_FRONTEND_GENERATEDFUNCTIONS_H
#define COMPILER_FRONTEND_GENERATEDFUNCTIONS_H

#include "Compiler/InterRep.h"
#include "Compiler/datatypes.h"
#include "Universal/ustring.h"

class SemBase;

class GeneratedFunction {
 public:
  // Opens a table of its own for the function `linkName`.
  explicit GeneratedFunction(string const& linkName);
  // Uses the current table, whose index is `tableIndex`: it already holds
  // the temporaries of code compiled for this function.
  GeneratedFunction(string const& linkName, unsigned long tableIndex);

  // The next incoming parameter, as a variable of the function.
  TacAddr const* Parameter(IRDataType const& type);
  // The body so far; temporaries made on it live in the function's table.
  SemBase* Body() const { return mBody; }
  // Enter, parameters, zeroed variables, the body, Leave with `result`
  // (nilTacAddr for none). Closes a table of its own.
  SemBase* Finish(TacAddr const* result);
  // Closes a table of its own without making a function.
  void Abandon();

 private:
  string mName;
  unsigned long mTableIndex;
  bool mOwnsTable;
  SemBase* mParameters;
  SemBase* mBody;
};

// Shorthands for the lines such functions are made of.
TacAddr const* IntConstant(long value);
TacAddr const* TextConstant(string const& text);
// `Poke value, offset, pointer` and `Peek pointer, offset, place`.
void PokeWord(SemBase* code, TacAddr const* value, TacAddr const* pointer,
              long offset);
void PeekWord(SemBase* code, TacAddr const* pointer, long offset,
              TacAddr const* place);
// A new temporary of `type`.
TacAddr const* NewTempAddr(SemBase* code, IRDataType const& type);
// A temporary holding the address of the function `linkName`.
TacAddr const* FunctionPointer(SemBase* code, string const& linkName,
                               string const& library);

#endif
