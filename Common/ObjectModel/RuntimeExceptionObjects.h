// What every exception object carries. An exception is an object of the
// runtime's RuntimeException class or of a class derived from it (the
// runtime's own kinds and the script's subclasses alike); behind the object
// header it holds the fields that scripts read as Message and ErrorNumber,
// and a script subclass lays its own fields out behind these.
#ifndef COMMON_OBJECTMODEL_RUNTIMEEXCEPTIONOBJECTS_H
#define COMMON_OBJECTMODEL_RUNTIMEEXCEPTIONOBJECTS_H

#include <stddef.h>
#include <stdint.h>

#include "Common/ObjectModel/RuntimeObjectFoundation.h"

struct RuntimeExceptionObject {
  RuntimeObject header;
  stringStorage* message;  // counted; nil is the empty message
  int32_t errorNumber;
};

// The compiler lays the fields out from the declarations of RuntimeException;
// these tie the runtime's view to that layout.
enum RuntimeExceptionLayout : long {
  kExceptionMessageOffset = 24,
  kExceptionErrorNumberOffset = 28,
  kExceptionInstanceSize = 32,
};

#if defined(__i386__)
static_assert(offsetof(RuntimeExceptionObject, message) ==
                  kExceptionMessageOffset,
              "the message right behind the header");
static_assert(offsetof(RuntimeExceptionObject, errorNumber) ==
                  kExceptionErrorNumberOffset,
              "the error number behind the message");
static_assert(sizeof(RuntimeExceptionObject) == kExceptionInstanceSize,
              "subclass fields behind the error number");
#endif

// Whether the object's class is the stored exception class or derives from
// it (SetExceptionClass): only then does it have the fields above.
bool IsExceptionObject(RuntimeObject* object);
// The finalizer of the root exception class: drops the message.
void FinalizeExceptionObject(RuntimeObject* object);
// The message, borrowed; nil for none and for an object that is no
// exception.
stringStorage* ExceptionMessageOf(RuntimeObject* object);
// The error number; 0 for an object that is no exception.
int32_t ExceptionErrorNumberOf(RuntimeObject* object);
// Replaces the message with a copy of `length` bytes of UTF-8 `text`.
// Does nothing to an object that is no exception.
void SetExceptionMessage(RuntimeObject* object, char const* text,
                         uint32_t length);
void SetExceptionMessageText(RuntimeObject* object, char const* text);

extern "C" {
// A new object of the class with the message, raised, and its own
// reference dropped (as RaiseExceptionClass).
void RaiseExceptionClassWithMessage(RuntimeClass* cls, char const* message);
}

#endif
