// Exceptions in statements: Try, its handlers and Finally, the handler
// that ends every method body and the main body, and Raise.
//
// There are no tables: the TAC lines BeginTry, EndTry and HandleException
// leave records in the machine code, and the raiser scans the code after
// each return address for the next handler record. A handler's variable
// receives the exception through the frame, so it must live on the stack.
#ifndef COMPILER_FRONTEND_EXCEPTIONS_H
#define COMPILER_FRONTEND_EXCEPTIONS_H

#include "Compiler/InterRep.h"
#include "Compiler/datatypes.h"

class LocalSymbolTable;
class SemBase;

// try_statement: the BeginTry record, where the protected region opens.
SemBase* CompileTry();
// try_statement: the protected code, then its handlers, then its Finally
// (or null), then EndTry, so that the raiser's scan treats BeginTry ...
// EndTry as one nesting level.
SemBase* CompileEndTry(SemBase* tryCode, SemBase* handlers,
                       SemBase* finallyCode);
// finally_block: Finally EOL [here] block. A jump out of the Finally leaves
// its Try without running the Finally again.
void EnterFinallyBlock();
// method_body: a method's own Finally (or null) behind the label where
// the method's Returns before it go, so that they run it.
SemBase* PlaceMethodFinally(SemBase* finallyCode);
// At the end of a compilation: no Try is open any more.
void ForgetOpenTries();
// A jump to `target` for Return, Exit and Continue: when it leaves a Try,
// it runs the Try's Finally on the way, and those of the Trys around it.
void EmitLeavingJump(SemBase* code, TacAddr const* target);
// exception_handler: exception_keyword [IDENT [As type_name]] EOL block.
// Normal flow jumps over the handler; an exception lands in it with the
// exception object stored (and locked) in the variable. A typed handler
// that does not match re-raises to the next handler.
SemBase* CompileExceptionBlock(SemBase* body, SemBase* exceptionVar,
                               SemBase* exceptionType);
// finally_block: Finally EOL block.
SemBase* CompileFinallyBlock(SemBase* body);
// Code that runs on normal exit and when an exception passes: the same
// lines serve both paths, and the exception, if there was one, goes on
// afterwards. Serves Finally and the end of every method body.
SemBase* MakeDefaultExceptionHandler(SemBase* code);
// raise_statement: Raise expr. A nil exception does nothing at run time.
SemBase* CompileRaiseException(SemBase* expr);

// A hidden slot of the current frame for an old value of `type` while it
// is released: one per frame and type, which no prolog or epilog touches.
TacAddr const* ReleasePendingSlot(IRDataType const& type);

// The stack frame of the main body: top-level variables are static, so
// the handler variables of top-level code live here instead. Made on first
// use in each compilation; the program assembly opens the main body with it.
LocalSymbolTable* MainBodyTable();
// Its index in the compilation's table list, for the main body's Enter.
unsigned long MainBodyTableIndex();

#endif
