// The order of the optimizing passes.
#include "Compiler/Optimizer/OptimizerPasses.h"
#include "Compiler/Optimizer/optimizer.h"

void RemoveLine(TacBlock* code, TacLine* previous, TacLine* line) {
  if (previous)
    previous->mNext = line->mNext;
  else
    code->mFirst = line->mNext;
  if (code->mLast == line) code->mLast = previous;
  delete line;
}

void ImproveProgram(TacBlock* code) { RemoveDeadZeroing(code); }
