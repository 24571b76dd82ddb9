#include "Compiler/Types.h"

#include "Universal/Strings.h"

int TypeNameLength() { return StringLength("Integer"); }
