// The end of an array: the class's finaliser hands over to the table's
// destructor entry, which knows what the elements hold.
#include "Common/Arrays/ArrayStorage.h"

namespace {

// Set by the host side (or tests) at any time; null for none. Lives as
// long as the process.
RuntimeObjectHook sArrayDestructionMonitor = nullptr;

}  // namespace

namespace arrays {

// The buffer leaves the array before any element is released, so that code
// run by a release sees an empty array, never a half-freed one.
void ReleaseElements(ArrayBody body) {
  unsigned char* buffer = *body.data;
  if (!buffer) return;
  *body.data = nullptr;
  long count = ElementCount(body.shape);
  for (long d = 0; d < body.shape->dimensions; d++)
    body.shape->Ubounds()[d] = -1;
  body.shape->bufferLength = 0;
  if (body.unlock)
    for (long k = 0; k < count; k++)
      body.unlock(*reinterpret_cast<void**>(buffer + k * body.elementSize));
  FreeBuffer(buffer);
}

}  // namespace arrays

void DisposeArray(RuntimeObject* array) {
  if (!array) return;
  if (sArrayDestructionMonitor) sArrayDestructionMonitor(array);
  RuntimeArrayObject* a = reinterpret_cast<RuntimeArrayObject*>(array);
  a->methods->destructor(a);
}

void SetArrayDestructionMonitor(RuntimeObjectHook monitor) {
  sArrayDestructionMonitor = monitor;
}
