// A script's own Subs and Functions as the host may call them: their names,
// link names and signatures, kept with the ready code.
#ifndef PLUGIN_SCRIPTFUNCTIONS_H
#define PLUGIN_SCRIPTFUNCTIONS_H

#include "Compiler/datatypes.h"
#include "Plugin/EmbeddingBoundary.h"
#include "Universal/SimpleVector.h"
#include "Universal/ustring.h"

class GlobalSymbolTable;
class RunReadyCode;
class QuorlScriptCorrespondent;

struct ScriptFunction {
  string mName;
  string mLinkName;
  QuorlSignature mSignature;
};

// The value type a binding or a host call knows the type as.
QuorlValueType ValueTypeOf(IRDataType const& type);

// The compiled script's global methods, those the source defines.
void CollectScriptFunctions(GlobalSymbolTable* symbols,
                            SimpleVector<ScriptFunction>* functions);

// Calls the function of that name whose parameters the arguments fit, on
// `code`; a QuorlCallStatus.
int32_t CallScriptFunction(RunReadyCode* code, QuorlScriptCorrespondent* correspondent,
                           SimpleVector<ScriptFunction> const& functions,
                           char const* name, QuorlValue const* arguments,
                           int32_t count, QuorlValue* result);

#endif
