// Functions of shared libraries that a script's Declare statements name,
// found when the script first calls them.
#ifndef COMMON_RUNTIMEEXTERNALFUNCTIONS_H
#define COMMON_RUNTIMEEXTERNALFUNCTIONS_H

#include "Universal/ustring.h"

extern "C" {
// The address of `name` in `library`, or null when the library cannot be
// loaded or has no such symbol. A library name that does not load as
// written is tried as "libNAME.so" and "NAME.so". Libraries stay loaded
// for the life of the process; answers are remembered per thread.
void* LoadFunctionPointerFromLibrary(stringStorage* name,
                                     stringStorage* library);
}

#endif
