// The sort behind Sort and SortWith: an iterative three-way quicksort with
// a median-of-three pivot, finishing runs shorter than 16 by insertion.
// Elements equal to the pivot gather in the middle and are never visited
// again, so arrays full of duplicates sort in linear passes. The whole is
// not stable.
//
// The algorithms move "slots" and ask an order whether one slot is greater
// than another. A direct sort moves the elements themselves; an indirect
// sort moves positions and compares the elements they point at, leaving
// the buffer untouched until the permutation is applied.
#ifndef COMMON_ARRAYS_ARRAYSORTALGORITHMS_H
#define COMMON_ARRAYS_ARRAYSORTALGORITHMS_H

#include "Universal/SimpleVector.h"

namespace arrays {

// Compares elements by the family's order.
template <class E>
struct DirectOrder {
  typedef typename E::Type Slot;
  bool Greater(Slot a, Slot b) const { return E::Greater(a, b); }
};

// Compares the elements at two positions of `elements`.
template <class E>
struct IndirectOrder {
  typedef long Slot;
  typename E::Type const* elements;
  bool Greater(Slot a, Slot b) const {
    return E::Greater(elements[a], elements[b]);
  }
};

template <class S>
void SwapSlots(S* a, long i, long j) {
  S slot = a[i];
  a[i] = a[j];
  a[j] = slot;
}

// Stable: an element moves only past greater ones.
template <class S, class Order>
void InsertionSort(S* a, long left, long right, Order const& order) {
  for (long i = left + 1; i <= right; i++) {
    S v = a[i];
    long k = i;
    for (; k > left && order.Greater(a[k - 1], v); k--) a[k] = a[k - 1];
    a[k] = v;
  }
}

// The median of the first, middle and last slot, found by exchanging the
// three positions, never the slots.
template <class S, class Order>
long ChoosePivot(S const* a, long left, long right, Order const& order) {
  long x = left, m = (left + right) / 2, y = right, t;
  if (order.Greater(a[x], a[m])) t = x, x = m, m = t;
  if (order.Greater(a[x], a[y])) t = x, x = y, y = t;
  if (order.Greater(a[m], a[y])) t = m, m = y, y = t;
  return m;
}

// Splits [l, r] into less, equal and greater than the pivot; answers the
// bounds of the equal run through `lt` and `hi`.
template <class S, class Order>
void Partition(S* a, long l, long r, S pivot, Order const& order, long* lt,
               long* hi) {
  long i = l;
  *lt = l;
  *hi = r;
  while (i <= *hi) {
    if (order.Greater(a[*hi], pivot)) {
      --*hi;
      continue;
    }
    SwapSlots(a, i, *hi);
    if (order.Greater(pivot, a[i])) SwapSlots(a, (*lt)++, i);
    i++;
  }
}

// An explicit stack of runs in place of recursion: the left run is pushed
// last and so sorted first.
template <class S, class Order>
void Quicksort(S* a, long left, long right, Order const& order) {
  SimpleVector<int> lefts, rights;
  lefts.push_back(left);
  rights.push_back(right);
  while (lefts.size()) {
    long l = lefts.pop_back(), r = rights.pop_back();
    if (l >= r) continue;
    if (r - l < 16) {
      InsertionSort(a, l, r, order);
      continue;
    }
    S pivot = a[ChoosePivot(a, l, r, order)];
    long lt, hi;
    Partition(a, l, r, pivot, order, &lt, &hi);
    lefts.push_back(hi + 1);
    rights.push_back(r);
    lefts.push_back(l);
    rights.push_back(lt - 1);
  }
}

}  // namespace arrays

#endif
