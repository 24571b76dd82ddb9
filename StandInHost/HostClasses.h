// The host's class registry: the built-in exception classes, the classes the
// plug-in registers and the classes the embedding program defines.
#ifndef STANDINHOST_HOSTCLASSES_H
#define STANDINHOST_HOSTCLASSES_H

#include <stdint.h>

#include <memory>
#include <string>
#include <vector>

#include "quorl/QuorlHost.h"

// The host's class reference, which every object header points at.
struct VELDClassReference {
  std::string mName;
  std::string mSuperName;  // empty for a root class
  uint32_t mDataSize = 0;
  VELDInstanceProc mConstructor = nullptr;
  VELDInstanceProc mDestructor = nullptr;
  // The plug-in's record for a class it registered, else null.
  VELDClassDefinition* mDefinition = nullptr;
  // What the embedding program declared for a class of its own.
  std::vector<quorl::HostClass::Method> mMethods;
  std::vector<quorl::HostClass::Property> mProperties;
};

namespace quorl {
namespace standin {

// Forgets every class but the built-in ones. Records of forgotten classes
// stay allocated, so objects that still point at them remain valid.
void ResetClassRegistry();

// Adds the class, or takes the place of a class of the same name.
VELDClassRef RegisterClassReference(std::unique_ptr<VELDClassReference> cls);

// The class of that name, compared without regard to case, or null.
VELDClassRef FindClass(char const* name);

// The registered class named as the superclass, or null for a root (or for a
// superclass nobody registered).
VELDClassRef SuperclassOf(VELDClassRef cls);

// The chain from the root down to `cls`.
std::vector<VELDClassRef> ClassChain(VELDClassRef cls);

// True when `cls` is the named class or derives from it.
bool DerivesFrom(VELDClassRef cls, char const* name);

// Where the class's instance data starts within an object's data area, and
// how large the whole area of an object of the class is. Each class of a
// chain gets its own block, base first, every block 8-byte aligned.
uint32_t DataOffset(VELDClassRef cls);
uint32_t InstanceDataSize(VELDClassRef cls);

}  // namespace standin
}  // namespace quorl

#endif
