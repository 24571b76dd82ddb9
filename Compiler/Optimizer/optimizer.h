// The stage between the front end and the back end.
//
// `Optimizer` is the stage's reserved face: it measures, per function,
// whether integrating the body at its call sites would pay, and hands its
// input back unchanged. The passes that do change the program are
// `ImproveProgram` below; the driver runs them unless told not to.
#ifndef COMPILER_OPTIMIZER_OPTIMIZER_H
#define COMPILER_OPTIMIZER_OPTIMIZER_H

#include "Compiler/InterRep.h"
#include "Compiler/SmartRef.h"
#include "Universal/stringmap.h"

class LocalSymbolTableList;

class Optimizer {
 public:
  // Returns `code` itself; no line changes.
  TacBlock const* Optimize(TacBlock const* code,
                           Ref<LocalSymbolTableList> symbols);
};

// Runs the integration analysis and returns its input.
TacBlock const* IntegrateProcedures(TacBlock const* code,
                                    Ref<LocalSymbolTableList> symbols);

// Per function name: true when the function's overhead lines (parameters,
// object bases, the stack check) are no fewer than its body lines, so that
// its body is cheaper than a call. `% main` has no entry.
StringMap<unsigned char> AnalyzeProcedureIntegration(
    TacBlock const* code, StringMap<unsigned char> verdicts);

// The optimizing passes over the program's lines, in place: what they
// remove can make no difference to what the program does.
void ImproveProgram(TacBlock* code);

#endif
