// Making the objects that hold arrays: every layout starts with the object
// header and the method table, and belongs to the one array class.
#ifndef COMMON_ARRAYS_ARRAYOBJECTS_H
#define COMMON_ARRAYS_ARRAYOBJECTS_H

#include "Common/Arrays/RuntimeArrays.h"

namespace arrays {

// A zeroed block of `bytes` with the header of an array object: count 1,
// the array class, `methods` at offset 24. It is not yet on the list of
// live objects; the caller fills it in and registers it.
void* NewArrayObject(long bytes, RuntimeArrayMethods const* methods);

}  // namespace arrays

#endif
