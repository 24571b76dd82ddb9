// Classes the embedding program defines.
#include <strings.h>

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

// A member hidden from scripts is still read: the engine skips its prefix.
char const kPrivatePrefix[] = "Private ";

std::string WithoutPrivatePrefix(std::string const& declaration) {
  size_t const length = sizeof kPrivatePrefix - 1;
  if (declaration.size() >= length &&
      strncasecmp(declaration.c_str(), kPrivatePrefix, length) == 0)
    return declaration.substr(length);
  return declaration;
}

// Every member is checked now if an engine is there to read declarations:
// those added in a checked or guarded form against their C++ functions, the
// others for a declaration that reads, so that none is dropped silently
// when a script is compiled.
void CheckMembers(HostClass const& definition) {
  QuorlEngineOperations const* engine = standin::Host().engine;
  if (!engine || !engine->mDescribeDeclaration) return;
  std::vector<bool> methodChecked(definition.Methods().size());
  std::vector<bool> propertyChecked(definition.Properties().size());
  for (HostClass::Check const& check : definition.Checks()) {
    if (check.property) {
      std::string declaration = definition.Properties()[check.index].declaration;
      detail::CppSignature getter{check.signature.result, {}};
      detail::CheckedDeclaration(GetterDeclaration(WithoutPrivatePrefix(declaration)),
                                 getter);
      propertyChecked[check.index] = true;
    } else {
      detail::CheckedDeclaration(
          WithoutPrivatePrefix(definition.Methods()[check.index].declaration),
          check.signature);
      methodChecked[check.index] = true;
    }
  }
  for (size_t i = 0; i < methodChecked.size(); ++i)
    if (!methodChecked[i])
      detail::CheckReadable(WithoutPrivatePrefix(definition.Methods()[i].declaration));
  for (size_t i = 0; i < propertyChecked.size(); ++i)
    if (!propertyChecked[i])
      detail::CheckReadable(GetterDeclaration(
          WithoutPrivatePrefix(definition.Properties()[i].declaration)));
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
