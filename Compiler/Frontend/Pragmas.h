// Pragmas: the #pragma statement and the pragma state, which a method
// saves at its start and restores at its end.
#ifndef COMPILER_FRONTEND_PRAGMAS_H
#define COMPILER_FRONTEND_PRAGMAS_H

class SemBase;

// The pragma names, in the order of the table that CompilePragma matches.
enum pragmas {
  kPragmaDisableBoundsChecking = 0,
  kPragmaDisableBackgroundTasks,
  kPragmaDisableAutoWaitCursor,
  kPragmaBoundsChecking,
  kPragmaBackgroundTasks,
  kPragmaStackOverflowChecking,
  kPragmaNilObjectChecking,
  kPragmaDebug,
  kPragmaReset,
  kPragmaBindingPart,
  kPragmaBindingDeclaration,
  kPragmaDeprecated,
  kPragmaLockRefCountedParameters,
  kPragmaProfileCode,
  kPragmaX86CallingConvention,
};

// pragma_statement: #pragma IDENT pragma_arg EOL. `arg` is nil for no
// argument and for False, as the grammar gives it; an identifier counts as
// true. Unknown names are compile error 87.
SemBase* CompilePragma(SemBase* name, SemBase* arg);
// A method's start saves the options; its end restores them.
void PushPragmas();
void PopPragmas();
// Back to the options saved at the current method's start.
void ResetPragmas();

#endif
