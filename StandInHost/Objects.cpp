// Host objects as the embedding program holds them.
#include "StandInHost/HostObjects.h"
#include "StandInHost/PluginCalls.h"

namespace quorl {

Object Object::New(std::string const& className) {
  VELDClassRef cls = standin::FindClass(className.c_str());
  if (!cls) throw UnknownClass(className);
  VELDObject object = nullptr;
  standin::CallIntoPlugin([&] { object = standin::NewObject(cls); });
  return Object(object);
}

Object Object::Adopt(VELDObject object) { return Object(object); }

Object Object::Share(VELDObject object) {
  standin::LockObject(object);
  return Object(object);
}

Object::Object(Object const& other) : mObject(other.mObject) {
  standin::LockObject(mObject);
}

Object::Object(Object&& other) noexcept : mObject(other.mObject) {
  other.mObject = nullptr;
}

Object& Object::operator=(Object other) noexcept {
  std::swap(mObject, other.mObject);
  return *this;
}

// A destructor of the engine's may record a failure, but a C++ destructor
// has nowhere to throw it: it is dropped.
Object::~Object() {
  if (!mObject) return;
  try {
    standin::CallIntoPlugin([&] { standin::UnlockObject(mObject); });
  } catch (...) {
  }
}

std::string Object::ClassName() const { return ClassNameOf(mObject); }

void* Object::Data() const { return InstanceData(mObject); }

long Object::References() const { return standin::ReferenceCount(mObject); }

std::string ClassNameOf(VELDObject object) {
  return object ? object->mClass->mName : std::string();
}

bool IsInstanceOf(VELDObject object, std::string const& className) {
  return object && standin::DerivesFrom(object->mClass, className.c_str());
}

void* InstanceData(VELDObject object) {
  return object ? standin::ClassData(object, object->mClass) : nullptr;
}

long LiveObjectCount() { return standin::LiveObjects(); }

}  // namespace quorl
