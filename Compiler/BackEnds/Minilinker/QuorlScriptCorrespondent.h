// What a running script's runtime talks to: output, input, error reports and
// the cooperative yield. The runtime holds one correspondent for the script
// now running and knows nothing else of the host.
#ifndef COMPILER_BACKENDS_MINILINKER_QUORLSCRIPTCORRESPONDENT_H
#define COMPILER_BACKENDS_MINILINKER_QUORLSCRIPTCORRESPONDENT_H

// Why a run was stopped, as the runtime reports it. Every other value means a
// plain RuntimeException.
enum RuntimeErrorCode {
  kRuntimeErrorUnhandledException = 2,
  kRuntimeErrorStackOverflow = 6,
  kRuntimeErrorStackOverflow2 = 7,
  kRuntimeErrorOutOfBounds = 9,
  kRuntimeErrorNoExceptionClass = 10,
  // Ours: the runtime's other own exceptions keep their class for the host.
  kRuntimeErrorNilObject = 11,
  kRuntimeErrorIllegalCast = 12,
  kRuntimeErrorOutOfMemory = 13,
  // Not an error of the script: the host stopped it. No RuntimeError event.
  kRuntimeErrorStopped = 14,
  kRuntimeErrorTypeMismatch = 15,
};

class QuorlScriptCorrespondent {
 public:
  // A runtime error that ends the run. The line is 0: the runtime knows no
  // source lines.
  virtual void ScriptError(RuntimeErrorCode code, unsigned long line) {}
  virtual void Print(char const* text, unsigned long length) {}
  // The answer as a buffer made with array new, which the caller frees, and
  // its byte length in *resultLength; null when there is no answer.
  virtual char* Input(char const* prompt, unsigned long promptLength,
                      unsigned long* resultLength) {
    return nullptr;
  }
  // Called once per loop iteration of running code.
  virtual void ScriptYield() {}

 protected:
  // Never deleted through this face.
  ~QuorlScriptCorrespondent() {}
};

#endif
