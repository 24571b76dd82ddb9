#include "Common/ObjectModel/RuntimeThread.h"

#include <pthread.h>

#include "Universal/Assertion.h"

namespace {

class PosixRuntimeThread : public RuntimeThread {
 public:
  PosixRuntimeThread() : mStackBase(nullptr) {}
  unsigned long ThreadID() override {
    return static_cast<unsigned long>(pthread_self());
  }
  // Asked of the system once: the top of the thread's stack mapping.
  void* StackBase() override {
    if (mStackBase) return mStackBase;
    pthread_attr_t attributes;
    QASSERT(pthread_getattr_np(pthread_self(), &attributes) == 0);
    void* low = nullptr;
    size_t size = 0;
    pthread_attr_getstack(&attributes, &low, &size);
    pthread_attr_destroy(&attributes);
    mStackBase = static_cast<char*>(low) + size;
    return mStackBase;
  }

 private:
  void* mStackBase;
};

// One per thread, living as long as the thread.
thread_local PosixRuntimeThread sCurrentThread;

}  // namespace

RuntimeThread* GetCurrentRuntimeThread() { return &sCurrentThread; }
