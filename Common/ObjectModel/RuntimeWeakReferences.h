// What the destruction of an object owes to the weak references.
#ifndef COMMON_OBJECTMODEL_RUNTIMEWEAKREFERENCES_H
#define COMMON_OBJECTMODEL_RUNTIMEWEAKREFERENCES_H

#include "Common/ObjectModel/RuntimeObjectFoundation.h"

// Unregisters every weak reference that points at `object`, and `object`
// itself if it is a registered weak reference, so that no entry of the list
// outlives the memory it names.
void ForgetWeakReferencesOf(RuntimeObject* object);

#endif
