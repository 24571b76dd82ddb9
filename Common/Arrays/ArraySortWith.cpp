// SortWith's partners: the arrays that follow the sorted one in its order.
// The sort yields a permutation, which is then applied to every buffer.
#include "Common/Arrays/ArrayCastWrapper.h"
#include "Common/Arrays/ArrayStorage.h"
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Universal/Assertion.h"

namespace arrays {
namespace {

// Cycle by cycle, holding one element aside; `done` marks the slots that
// already hold their final element.
template <class U>
void RemapBuffer(U* buffer, long const* index, long count) {
  SimpleVector<unsigned char> done(count);
  for (long start = 0; start < count; start++) {
    if (done[start]) continue;
    done[start] = 1;
    if (index[start] == start) continue;
    U saved = buffer[start];
    long slot = start;
    while (index[slot] != start) {
      buffer[slot] = buffer[index[slot]];
      slot = index[slot];
      done[slot] = 1;
    }
    buffer[slot] = saved;
  }
}

}  // namespace

void RemapElements(void* data, long const* index, long count, long size) {
  switch (size) {
    case 1: return RemapBuffer(static_cast<uint8_t*>(data), index, count);
    case 2: return RemapBuffer(static_cast<uint16_t*>(data), index, count);
    case 4: return RemapBuffer(static_cast<uint32_t*>(data), index, count);
    case 8: return RemapBuffer(static_cast<uint64_t*>(data), index, count);
    default: QFAIL("element size 1, 2, 4 or 8");
  }
}

void CollectPartners(va_list others, SimpleVector<RuntimeArrayObject*>* out) {
  while (RuntimeArrayObject* other = va_arg(others, RuntimeArrayObject*))
    out->push_back(other);
}

bool PartnersMatch(SimpleVector<RuntimeArrayObject*> const& others,
                   long ubound) {
  for (unsigned long k = 0; k < others.size(); k++) {
    RuntimeArrayObject* other = others[k];
    if (!other) {
      RaiseNilObjectException();
      return false;
    }
    if (other->methods->ubound(other, -1) != 1 ||
        other->methods->ubound(other, 1) != ubound) {
      RaiseOutOfBoundsException();
      return false;
    }
  }
  return true;
}

// A cast wrapper's own data word is a copy from its creation; the buffer
// to move is the wrapped array's.
void RemapPartners(SimpleVector<RuntimeArrayObject*> const& others,
                   long const* index, long count) {
  for (unsigned long k = 0; k < others.size(); k++) {
    RuntimeArrayObject* other = UnwrapArray(others[k]);
    RemapElements(other->data, index, count,
                  other->methods->elementSize(other));
  }
}

}  // namespace arrays
