#include "Compiler/Frontend/Modules.h"

#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/TacLiteralPool.h"
#include "Compiler/SemBase.h"

// module_def: the module-start marker
SemBase* CompileModule(SemBase* ident) {
  return SemValue::New(CurrentTLP()->GetLiteral(0, kSInt32Type), nullptr);
}

// module_def: Module IDENT EOL [module-start] opt_module_members End Module EOL
SemBase* CompileEndModule(SemBase* marker, SemBase* body) { return body; }
