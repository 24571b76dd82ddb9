// The offsets in an object that generated code reads directly. The compiler
// writes them into the code as constants; the asserts tie each one to the
// runtime's structure, so that the two cannot disagree.
#ifndef COMMON_OBJECTMODEL_OBJECTLAYOUT_H
#define COMMON_OBJECTMODEL_OBJECTLAYOUT_H

#include <stddef.h>

#include "Common/ObjectModel/RuntimeObjectFoundation.h"

enum ObjectLayout : long {
  kObjectClassOffset = 4,          // the class record
  kObjectInstanceDataOffset = 24,  // the first field, behind the header
};

#if defined(__i386__)
static_assert(offsetof(RuntimeObject, mClass) == kObjectClassOffset,
              "the class record behind the method table");
static_assert(sizeof(RuntimeObject) == kObjectInstanceDataOffset,
              "instance data behind the header");
#endif

#endif
