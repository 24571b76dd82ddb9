// The runtime's view of the thread running script code: where its stack
// ends, so that a walk up the frame chain knows when to stop.
#ifndef COMMON_OBJECTMODEL_RUNTIMETHREAD_H
#define COMMON_OBJECTMODEL_RUNTIMETHREAD_H

class RuntimeThread {
 public:
  // The thread's own identifier.
  virtual unsigned long ThreadID() = 0;
  // The highest address of the thread's stack: no frame lies above it.
  virtual void* StackBase() = 0;

 protected:
  ~RuntimeThread() {}
};

// The calling thread's record, made on first use and kept for the thread's
// life.
RuntimeThread* GetCurrentRuntimeThread();

#endif
