#include "Compiler/CompilationState.h"

namespace {

unsigned int (*sSourceLineReader)() = nullptr;

}  // namespace

unsigned int CurrentSourceLine() {
  return sSourceLineReader ? sSourceLineReader() : 0;
}

void SetSourceLineReader(unsigned int (*reader)()) { sSourceLineReader = reader; }

CompilationState* CompilationState::sCurrent = nullptr;
