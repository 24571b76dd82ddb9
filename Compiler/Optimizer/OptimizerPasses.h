// The passes behind ImproveProgram, each over the whole program's lines.
#ifndef COMPILER_OPTIMIZER_OPTIMIZERPASSES_H
#define COMPILER_OPTIMIZER_OPTIMIZERPASSES_H

#include "Compiler/InterRep.h"

// Unlinks and deletes `line`, whose predecessor is `previous` (null for the
// first line).
void RemoveLine(TacBlock* code, TacLine* previous, TacLine* line);

// Drops `Zero x` where x is a plain value written again before any read.
void RemoveDeadZeroing(TacBlock* code);

#endif
