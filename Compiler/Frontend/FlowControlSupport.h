// What the flow statements share: conditions as Boolean values, the body of
// a loop with its continue point and yield, and the checks of a For loop's
// variable.
#ifndef COMPILER_FRONTEND_FLOWCONTROLSUPPORT_H
#define COMPILER_FRONTEND_FLOWCONTROLSUPPORT_H

#include "Compiler/InterRep.h"

class SemBase;

// Appends the code of `cond`, made Boolean, to `code`; gives the address to
// test. With `filtered` the condition's temporaries are released right
// after it, so that a loop's test does not pile them up.
TacAddr const* AppendCondition(SemBase* cond, SemBase* code, bool filtered);
// Appends `body`, the continue label and, while background tasks are on,
// the yield to the host: every iteration yields at its Continue point.
void GenerateLoopBody(SemBase* code, SemBase* body, TacAddr const* continueAt);
// The yield to the host, while background tasks are on: in each loop
// iteration, before each GoTo and at each function's entry.
void EmitYield(SemBase* code);
// `Next x` must name the loop's variable: compile error 47 otherwise.
void MatchLoopCounters(SemBase* nextVar, SemBase* loopVar);
// Branch and label lines.
void EmitBranch(SemBase* code, TacOpcode opcode, TacAddr const* value,
                TacAddr const* against, TacAddr const* target);
void EmitJump(SemBase* code, TacAddr const* target);
void EmitLabel(SemBase* code, TacAddr const* label);
// Empty statement code at the current line.
SemBase* NewStatementCode();

#endif
