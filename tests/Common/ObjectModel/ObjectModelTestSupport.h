// Classes and raises for the object model's tests.
#ifndef TESTS_COMMON_OBJECTMODEL_OBJECTMODELTESTSUPPORT_H
#define TESTS_COMMON_OBJECTMODEL_OBJECTMODELTESTSUPPORT_H

#include <stdint.h>

#include "Common/ObjectModel/FrameChainEntry.h"
#include "Common/ObjectModel/RuntimeObjectFoundation.h"

// A class record of its own with no tables, `fields` words of instance data
// behind the header, and the given name (not registered).
RuntimeClass* TestClass(RuntimeClass* base = nullptr, int32_t fields = 0,
                        char const* name = "Test");

// An interface record, inheriting `base` when given.
RuntimeClass* TestInterface(RuntimeClass* base = nullptr);

// Instance data word `i` of an object (word 0 at offset 24).
inline RuntimeObject*& Field(RuntimeObject* object, int i) {
  return reinterpret_cast<RuntimeObject**>(object + 1)[i];
}

#endif
