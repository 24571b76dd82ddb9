// The end of an object's life, shared by the files of the object model.
#ifndef COMMON_OBJECTMODEL_RUNTIMEOBJECTLIFECYCLE_H
#define COMMON_OBJECTMODEL_RUNTIMEOBJECTLIFECYCLE_H

#include "Common/ObjectModel/RuntimeObjectFoundation.h"

// Called when the count has fallen to 0. Runs the destructors from the
// object's own class up; a destructor that keeps a reference resurrects the
// object and stops the chain. Otherwise the object is freed, or queued
// when a destruction is already running further up the stack.
// Hidden, so that the reference-count functions reach it with a plain call
// and their fast path needs no set-up of the position-independent base.
__attribute__((visibility("hidden"))) void DestroyInstance(
    RuntimeObject* object);

// Frees one object whose destructors have run: finalizers, the monitor,
// weak references, a private event table, the list, the memory.
void Destroy1Instance(RuntimeObject* object);

#endif
