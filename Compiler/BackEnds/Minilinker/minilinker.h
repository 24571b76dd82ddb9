// Linked, ready-to-run code in memory.
#ifndef COMPILER_BACKENDS_MINILINKER_MINILINKER_H
#define COMPILER_BACKENDS_MINILINKER_MINILINKER_H

class QuorlScriptCorrespondent;

// The product of linking one compiled script: the merged code, the global
// data and the literals, owned together. The in-memory linker makes it.
class RunReadyCode {
 public:
  virtual ~RunReadyCode() {}
  // Runs the script's main body on this thread, reporting to `correspondent`.
  virtual void Run(QuorlScriptCorrespondent* correspondent) = 0;
};

#endif
