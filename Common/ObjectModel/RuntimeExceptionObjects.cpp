#include "Common/ObjectModel/RuntimeExceptionObjects.h"

#include <string.h>

#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Common/RuntimeStringFoundation.h"
#include "Universal/ustring.h"

namespace {

RuntimeExceptionObject* FieldsOf(RuntimeObject* object) {
  if (!IsExceptionObject(object)) return nullptr;
  return reinterpret_cast<RuntimeExceptionObject*>(object);
}

}  // namespace

bool IsExceptionObject(RuntimeObject* object) {
  RuntimeClass* root = GetExceptionClass();
  if (!object || !root) return false;
  for (RuntimeClass* cls = object->mClass; cls; cls = cls->base)
    if (cls == root) return true;
  return false;
}

// Called for every object of the root class and its subclasses, so the
// class test is not needed: the chain of finalizers led here.
void FinalizeExceptionObject(RuntimeObject* object) {
  RuntimeExceptionObject* fields =
      reinterpret_cast<RuntimeExceptionObject*>(object);
  RuntimeUnlockString(fields->message);
  fields->message = nullptr;
}

stringStorage* ExceptionMessageOf(RuntimeObject* object) {
  RuntimeExceptionObject* fields = FieldsOf(object);
  return fields ? fields->message : nullptr;
}

int32_t ExceptionErrorNumberOf(RuntimeObject* object) {
  RuntimeExceptionObject* fields = FieldsOf(object);
  return fields ? fields->errorNumber : 0;
}

void SetExceptionMessage(RuntimeObject* object, char const* text,
                         uint32_t length) {
  RuntimeExceptionObject* fields = FieldsOf(object);
  if (!fields) return;
  // A message that cannot be had leaves the exception without one: the
  // raise matters more than its text.
  stringStorage* message =
      length ? TryNewStringStorage(text, length, kEncodingUTF8) : nullptr;
  RuntimeUnlockString(fields->message);
  fields->message = message;
}

void SetExceptionMessageText(RuntimeObject* object, char const* text) {
  SetExceptionMessage(object, text, text ? uint32_t(strlen(text)) : 0);
}

void RaiseExceptionClassWithMessage(RuntimeClass* cls, char const* message) {
  RuntimeObject* exception = RuntimeNewObject(cls);
  SetExceptionMessageText(exception, message);
  RuntimeRaiseException(exception);
  RuntimeUnlockObject(exception);
}
