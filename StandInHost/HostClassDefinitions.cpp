// Classes the embedding program defines.
#include "StandInHost/HostClasses.h"

namespace quorl {

HostClass::HostClass(std::string name, std::size_t dataSize,
                     std::string superName)
    : mName(std::move(name)),
      mSuperName(std::move(superName)),
      mDataSize(dataSize) {}

HostClass& HostClass::AddMethod(void* entry, std::string declaration) {
  mMethods.push_back({entry, std::move(declaration)});
  return *this;
}

HostClass& HostClass::AddProperty(void* getter, void* setter, long parameter,
                                  std::string declaration) {
  mProperties.push_back({getter, setter, parameter, std::move(declaration)});
  return *this;
}

HostClass& HostClass::SetConstructor(VELDInstanceProc constructor) {
  mConstructor = constructor;
  return *this;
}

HostClass& HostClass::SetDestructor(VELDInstanceProc destructor) {
  mDestructor = destructor;
  return *this;
}

VELDClassRef DefineClass(HostClass const& definition) {
  if (definition.Name().empty()) throw Error("a host class needs a name");
  auto cls = std::make_unique<VELDClassReference>();
  cls->mName = definition.Name();
  cls->mSuperName = definition.SuperName();
  cls->mDataSize = static_cast<uint32_t>(definition.DataSize());
  cls->mConstructor = definition.Constructor();
  cls->mDestructor = definition.Destructor();
  cls->mMethods = definition.Methods();
  cls->mProperties = definition.Properties();
  return standin::RegisterClassReference(std::move(cls));
}

}  // namespace quorl
