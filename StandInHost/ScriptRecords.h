// The members of the plug-in's script class, found by name in the class
// record it registered, as a host finds them.
#ifndef STANDINHOST_SCRIPTRECORDS_H
#define STANDINHOST_SCRIPTRECORDS_H

#include "Plugin/PluginBoundary.h"

namespace quorl {
namespace standin {

// The property of that name (any case); throws quorl::Error when missing.
VELDProperty const& FindProperty(VELDClassDefinition const* cls,
                                 char const* name);

// The method with that declaration (any case); throws quorl::Error.
VELDMethodDefinition const& FindMethod(VELDClassDefinition const* cls,
                                       char const* declaration);

// Where a property the host accesses directly lives in the instance data.
void* DirectField(VELDObject instance, VELDClassDefinition* cls,
                  VELDProperty const& property);

}  // namespace standin
}  // namespace quorl

#endif
