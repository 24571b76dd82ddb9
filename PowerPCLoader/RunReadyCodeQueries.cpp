// The runtime's exception monitor asks the running code where a raise
// came from, to name its line. The loader puts its own monitor in that
// one's place (ExceptionRaiser.cpp) and runs no RunReadyCode, so nothing
// asks; these answer for the link.
#include "Compiler/BackEnds/Minilinker/minilinker.h"

bool RunReadyCode::Contains(void const*) const { return false; }

unsigned long RunReadyCode::LineAt(void const*) const { return 0; }
