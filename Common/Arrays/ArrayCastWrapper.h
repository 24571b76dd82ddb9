// What the rest of the array runtime needs to know about cast wrappers.
#ifndef COMMON_ARRAYS_ARRAYCASTWRAPPER_H
#define COMMON_ARRAYS_ARRAYCASTWRAPPER_H

#include "Common/Arrays/RuntimeArrays.h"

namespace arrays {

bool IsCastWrapper(RuntimeArrayObject* array);
// The wrapped array of a cast wrapper; any other array as it is.
RuntimeArrayObject* UnwrapArray(RuntimeArrayObject* array);

}  // namespace arrays

#endif
