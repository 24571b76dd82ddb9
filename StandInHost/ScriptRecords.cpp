#include "StandInHost/ScriptRecords.h"

#include <strings.h>

#include <string>

#include "StandInHost/HostOperations.h"
#include "quorl/QuorlHost.h"

namespace quorl {
namespace standin {

VELDProperty const& FindProperty(VELDClassDefinition const* cls,
                                 char const* name) {
  for (uint32_t i = 0; i < cls->mPropertyCount; ++i) {
    VELDProperty const& property = cls->mProperties[i];
    if (property.mName && strcasecmp(property.mName, name) == 0)
      return property;
  }
  throw Error(std::string("class ") + cls->mName + " has no property " + name);
}

VELDMethodDefinition const& FindMethod(VELDClassDefinition const* cls,
                                       char const* declaration) {
  for (uint32_t i = 0; i < cls->mMethodCount; ++i) {
    VELDMethodDefinition const& method = cls->mMethods[i];
    if (method.mDeclaration && strcasecmp(method.mDeclaration, declaration) == 0)
      return method;
  }
  throw Error(std::string("class ") + cls->mName + " has no method " +
              declaration);
}

void* DirectField(VELDObject instance, VELDClassDefinition* cls,
                  VELDProperty const& property) {
  auto* data = static_cast<char*>(VELDGetClassData(instance, cls));
  if (!data) throw Error(std::string("object holds no ") + cls->mName);
  return data + property.mParameter;
}

}  // namespace standin
}  // namespace quorl
