// Classes the embedding program defines.
#include <algorithm>

#include "StandInHost/HostClasses.h"
#include "StandInHost/HostState.h"

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

namespace {

// A property's declaration ("Count As Integer") read as its getter's.
std::string GetterDeclaration(std::string const& property) {
  return "Function " + property.substr(0, property.find_first_of(" \t")) + "()" +
         property.substr(std::min(property.size(), property.find_first_of(" \t")));
}

// The members added in their checked forms, checked now if an engine is
// there to read declarations.
void CheckMembers(HostClass const& definition) {
  QuorlEngineOperations const* engine = standin::Host().engine;
  if (!engine || !engine->mDescribeDeclaration) return;
  for (HostClass::Check const& check : definition.Checks()) {
    if (check.property) {
      std::string declaration = definition.Properties()[check.index].declaration;
      detail::CppSignature getter{check.signature.result, {}};
      detail::CheckedDeclaration(GetterDeclaration(declaration), getter);
    } else {
      detail::CheckedDeclaration(definition.Methods()[check.index].declaration,
                                 check.signature);
    }
  }
}

}  // namespace

VELDClassRef DefineClass(HostClass const& definition) {
  if (definition.Name().empty()) throw Error("a host class needs a name");
  CheckMembers(definition);
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
