// Ref<T>: a shared handle on a compilation product (code modules, data
// blocks, local symbol table lists). The count lives in a separate RefRep, so
// T needs no base class, only a virtual deleting destructor.
//
// Releasing the last handle of a long chain (an object whose destructor
// releases the next) must not recurse once per link: RefRep<T>::Destroy
// queues the rep and lets only the outermost call do the deleting.
#ifndef COMPILER_SMARTREF_H
#define COMPILER_SMARTREF_H

#include <stdint.h>

#include "Universal/Assertion.h"

template <class T>
class RefRep {
 public:
  explicit RefRep(T* object)
      : mObject(object), mRefCount(0), mNextToDestroy(nullptr) {}

  ~RefRep() {
    QASSERT_TEXT(!mRefCount, "not mRefCount");
    delete mObject;
  }

  // Queues this rep for deletion. The count goes up by one while it waits,
  // which keeps it alive and marks it as queued. Only the outermost call
  // drains the queue; destructors run from the loop may queue more.
  void Destroy() {
    mNextToDestroy = sDestroyList;
    sDestroyList = this;
    mRefCount = static_cast<int16_t>(mRefCount + 1);
    if (sDestroyerBusy) return;
    sDestroyerBusy = true;
    while (sDestroyList) {
      RefRep* rep = sDestroyList;
      sDestroyList = rep->mNextToDestroy;
      rep->mRefCount = static_cast<int16_t>(rep->mRefCount - 1);
      delete rep;
    }
    sDestroyerBusy = false;
  }

  T* mObject;
  int16_t mRefCount;
  RefRep* mNextToDestroy;

 private:
  RefRep(RefRep const&) = delete;
  RefRep& operator=(RefRep const&) = delete;

  static RefRep* sDestroyList;
  static bool sDestroyerBusy;
};

template <class T>
RefRep<T>* RefRep<T>::sDestroyList = nullptr;
template <class T>
bool RefRep<T>::sDestroyerBusy = false;

template <class T>
class Ref {
 public:
  Ref() : mRep(nullptr) {}
  // Only 0 is accepted, so that `Ref<T> r(0)` reads as a nil handle and no
  // other integer turns silently into one.
  Ref(int zero) : mRep(nullptr) { QASSERT_TEXT(0 == zero, "0==zero"); }
  Ref(Ref const& other) : mRep(nullptr) { Bind(other.mRep); }
  ~Ref() { Unbind(); }

  // The new rep is counted before the old one is released, so assigning a
  // handle that only the old object keeps alive is safe.
  Ref& operator=(Ref const& other) {
    RefRep<T>* incoming = other.mRep;
    if (incoming == mRep) return *this;
    if (incoming)
      incoming->mRefCount = static_cast<int16_t>(incoming->mRefCount + 1);
    Unbind();
    mRep = incoming;
    return *this;
  }

  void Bind(RefRep<T>* rep) {
    mRep = rep;
    if (rep) rep->mRefCount = static_cast<int16_t>(rep->mRefCount + 1);
  }

  // Takes ownership of `object` under a fresh rep.
  void BindNewObject(T* object) {
    Unbind();
    RefRep<T>* rep = new RefRep<T>(object);
    QASSERT(rep);
    Bind(rep);
  }

  // Drops this handle's count; the last one destroys rep and object. The
  // handle is nil afterwards in every case.
  void Unbind() {
    RefRep<T>* rep = mRep;
    if (!rep) return;
    mRep = nullptr;
    rep->mRefCount = static_cast<int16_t>(rep->mRefCount - 1);
    QASSERT_TEXT(rep->mRefCount >= 0, "mRep->mRefCount >= 0");
    if (rep->mRefCount) return;
    QASSERT_TEXT((unsigned long)rep >= 0x1000, "(unsigned long)mRep >= 0x1000");
    rep->Destroy();
  }

  // The truth test: a rep with an object.
  operator unsigned char() const { return mRep && mRep->mObject; }

  T* operator->() const { return mRep->mObject; }
  T& operator*() const { return *mRep->mObject; }

  // Identity of the shared product (without these, == would compare the
  // truth values through the conversion above).
  bool operator==(Ref const& other) const { return mRep == other.mRep; }
  bool operator!=(Ref const& other) const { return mRep != other.mRep; }
  // `r == 0`: the truth test negated (an exact match, so no ambiguity).
  bool operator==(int zero) const { return !zero && !*this; }
  bool operator!=(int zero) const { return !(*this == zero); }

  RefRep<T>* Rep() const { return mRep; }

 private:
  RefRep<T>* mRep;
};

#endif
