// What the layers below the front end read of the compilation under way.
// Symbols and semantic values are born on the line the lexer has reached; a
// semantic value's temporary goes into the current local table; a symbol
// reached from a merged unit makes the compilation depend on that unit. The
// lexer and the compilation context live in the front end, above these
// layers, so they hand those answers down here rather than being included.
#ifndef COMPILER_COMPILATIONSTATE_H
#define COMPILER_COMPILATIONSTATE_H

class LocalSymbolTable;
class SourceUnitDependencyLink;

// The line of the token the lexer read last; 0 before any lexer exists.
unsigned int CurrentSourceLine();
// The lexer installs the function that answers CurrentSourceLine.
void SetSourceLineReader(unsigned int (*reader)());

// The compilation under way, as the layers below the front end see it. The
// front end's compilation context is the one implementation; it is current
// exactly while it is gContext.
class CompilationState {
 public:
  // The innermost active local table: it takes new temporaries.
  virtual LocalSymbolTable* CurrentLocalTable() const = 0;
  // Notes that the compilation used a symbol of a merged unit.
  virtual void RecordDependency(SourceUnitDependencyLink* link) = 0;

  // The compilation under way, or null.
  static CompilationState* Current() { return sCurrent; }
  static void SetCurrent(CompilationState* state) { sCurrent = state; }

 protected:
  // Never deleted through this face.
  ~CompilationState() {}

 private:
  static CompilationState* sCurrent;
};

#endif
