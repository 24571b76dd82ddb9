// Delegates: run-time objects that hold a method to call, the object it is
// bound to, and the invoker stub that adapts the fixed way of calling a
// delegate to the method's own. Generated code reads the words of the
// object directly, at the offsets below.
#ifndef COMMON_OBJECTMODEL_RUNTIMEDELEGATES_H
#define COMMON_OBJECTMODEL_RUNTIMEDELEGATES_H

#include <stddef.h>
#include <stdint.h>

#include "Common/ObjectModel/RuntimeObjectFoundation.h"

struct RuntimeDelegate {
  RuntimeObject header;     // class: the one delegate class
  void* invoker;            // the stub that every call enters
  void* function;           // the method's code
  RuntimeObject* target;    // the bound object or nil; locked
  stringStorage* signature; // the text of the method's shape; locked
};

enum DelegateLayout : long {
  kDelegateInvokerOffset = 24,
  kDelegateFunctionOffset = 28,
  kDelegateTargetOffset = 32,
  kDelegateSignatureOffset = 36,
  kDelegateObjectSize = 40,
};

#if defined(__i386__)
static_assert(offsetof(RuntimeDelegate, invoker) == kDelegateInvokerOffset,
              "the invoker behind the header");
static_assert(offsetof(RuntimeDelegate, function) == kDelegateFunctionOffset,
              "the function behind the invoker");
static_assert(offsetof(RuntimeDelegate, target) == kDelegateTargetOffset,
              "the bound object behind the function");
static_assert(offsetof(RuntimeDelegate, signature) == kDelegateSignatureOffset,
              "the signature last");
static_assert(sizeof(RuntimeDelegate) == kDelegateObjectSize,
              "a delegate is 40 bytes");
#endif

extern "C" {
// A new delegate with one reference, or nil after the nil-object exception
// when `invoker` or `function` is null. `target` may be nil.
RuntimeObject* RuntimeCreateDelegate(void* invoker, void* function,
                                     RuntimeObject* target,
                                     stringStorage* signature);
// Whether `object` is a delegate of that signature.
int32_t RuntimeDelegateIsA(RuntimeObject* object, stringStorage* signature);
// The object with a reference for the caller; nil for nil; else the
// illegal-cast exception and nil.
RuntimeObject* RuntimeCheckDelegateCast(RuntimeObject* object,
                                        stringStorage* signature);
// 1 when both are nil, or both call one function on one object.
int32_t RuntimeCompareDelegates(RuntimeObject* a, RuntimeObject* b);
}

#endif
