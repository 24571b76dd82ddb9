// The state of one compilation, reached by every semantic action through
// gContext. It interns the constants (it is a literal pool), holds the
// current local table, the block stack, the program's code, labels, the
// pragma state and the error flag, and at its end sweeps every semantic
// value the compilation made.
//
// Only one context exists at a time: the compiler's state is global per
// process, and a second context fails an assertion.
#ifndef COMPILER_FRONTEND_SRCCONTEXT_H
#define COMPILER_FRONTEND_SRCCONTEXT_H

#include "Compiler/CompilationState.h"
#include "Compiler/Frontend/BlockContext.h"
#include "Compiler/Frontend/LanguageOptions.h"
#include "Compiler/Frontend/StringSums.h"
#include "Compiler/Frontend/SyntaxRecovery.h"
#include "Compiler/Frontend/TacLiteralPool.h"
#include "Compiler/InterRep.h"
#include "Compiler/SmartRef.h"
#include "Compiler/datatypes.h"
#include "Universal/SimpleVector.h"
#include "Universal/stringmap.h"
#include "Universal/ustring.h"

class CompilerDelegate;
class DelegateSymbol;
class FunctionSink;
class LocalSymbolTable;
class LocalSymbolTableList;
class SemCode;
class SourceUnitDependencyLink;
class StaticDataBlock;

class SrcContext : public TacLiteralPool, public CompilationState {
 public:
  SrcContext();
  ~SrcContext() override;

  // A fresh label number, counting up from 1.
  long NewLabel();
  // One label per name, names compared without regard to case, so that a
  // GoTo may come before its label.
  TacAddr const* NamedLabel(string const& name);
  // One operand per name for a static variable (storage class 0) and for an
  // instance field (storage class 2); the first request fixes its type and
  // offset.
  TacAddr const* GetStaticSymbolAddr(IRDataType const& type,
                                     string const& name);
  TacAddr const* GetObjectSymbolAddr(IRDataType const& type,
                                     string const& name, unsigned int offset);
  // A static data block in the target's byte order, owned by the context
  // until MoveStaticDataBlocks hands it over.
  StaticDataBlock* MakeStaticDataBlock(string const& name);
  void MoveStaticDataBlocks(SimpleVector<StaticDataBlock*>* target);
  void RecordDependency(SourceUnitDependencyLink* link) override;
  LocalSymbolTable* CurrentLocalTable() const override;

  CompilerDelegate* mDelegate;  // receives compile errors; may be null
  // The innermost active local table; starts as a static table with an
  // empty name.
  LocalSymbolTable* mSymbols;
  Ref<LocalSymbolTableList> mTables;  // every local table of this compile
  SemCode* mProgramCode;  // the whole program; what the back end gets
  // The top items so far, moved here one by one as the parser finishes
  // them: the top-level statements and the functions, each in source order.
  SemCode* mTopStatements;
  SemCode* mTopFunctions;
  // When set, takes the functions of each top item as it is finished, and
  // mTopFunctions stays empty. Not owned.
  FunctionSink* mFunctionSink;
  // How many semantic values lived when the last top item was taken in:
  // whatever is newer belongs to the next item alone.
  unsigned long mTopItemMark;
  // Per item, the link name of a function to run at start and at exit.
  StringMap<string> mInitializers;
  StringMap<string> mFinalizers;
  BlockContextList blocks;
  SyntaxRecoveryState mSyntaxRecovery;  // what the parse's recovery remembers
  long mConditionalDepth;                 // open #if blocks
  SimpleVector<bool> mConditionalStack;   // per #if: a branch was taken
  SemCode* mStubCode;  // invoker stubs, appended last
  StringSumLines mLastStringSum;  // what the next + of a chain may extend
  // The main body's local table and its place in mTables; null until the
  // first handler or the program's assembly asks for it.
  LocalSymbolTable* mMainBodyTable;
  unsigned long mMainBodyTableIndex;
  StringSet mInvokerStubNames;  // the stubs made so far, each made once
  // The delegate types that AddressOf makes for bare methods; owned.
  SimpleVector<DelegateSymbol*> mImplicitDelegateTypes;
  LanguageOptions mOptions;                    // current pragma state
  SimpleVector<LanguageOptions> mPragmaStack;  // saved per method
  unsigned char mLibrary;          // no main body in this unit
  unsigned char mBigEndian;        // byte order of the target
  string mSourceName;
  unsigned char mStaticClassData;  // class records as static data
  unsigned char mScriptMode;       // forbids what needs external code
  // Set by every compile error, never cleared: keeps the compilation from
  // reaching the back end.
  unsigned char mErrorFlag;
  long mNextLabel;
  long mNextID;

 private:
  SrcContext(SrcContext const&) = delete;
  SrcContext& operator=(SrcContext const&) = delete;

  StringMap<TacAddr const*> mNamedLabels;  // a named label's operand
  StringMap<TacAddr*> mObjectSymbols;
  StringMap<TacAddr*> mStaticSymbols;
  SimpleVector<StaticDataBlock*> mStaticBlocks;
};

// The compilation under way, or null. Set by the SrcContext constructor,
// cleared by its destructor.
extern SrcContext* gContext;

// A fresh label of the current compilation as an Int32 constant operand.
TacAddr const* NewLabel();

#endif
