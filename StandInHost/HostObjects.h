// The host's object model. An object is the two-word header the plug-in
// boundary fixes, followed by the host's bookkeeping: a reference count, the
// per-instance event handlers, a word for the embedding program, and the
// instance data of every class in the chain.
#ifndef STANDINHOST_HOSTOBJECTS_H
#define STANDINHOST_HOSTOBJECTS_H

#include <string>

#include "StandInHost/HostClasses.h"

namespace quorl {
namespace standin {

// A zero-filled object of the class with one reference; constructors run
// base first. Null for a null class.
VELDObject NewObject(VELDClassRef cls);

// Reference counting; null is ignored. The last release runs the destructors
// derived first, then frees the object.
void LockObject(VELDObject object);
void UnlockObject(VELDObject object);
long ReferenceCount(VELDObject object);
long LiveObjects();

// The data block of `cls` inside the object, or null when the object's chain
// does not hold that class.
void* ClassData(VELDObject object, VELDClassRef cls);

// The handler of the event with this declaration for this instance, or null.
// Handlers are matched by the event's declaration, without regard to case.
void* EventHandler(VELDObject object, char const* declaration);
// Installs a handler; null removes it.
void SetEventHandler(VELDObject object, char const* declaration,
                     void* handler);

// A word the embedding program keeps with the object.
void* EmbedderData(VELDObject object);
void SetEmbedderData(VELDObject object, void* data);

}  // namespace standin
}  // namespace quorl

#endif
