// The built-in methods of arrays: Append, Insert, Remove, Pop, Sort,
// SortWith, IndexOf, Shuffle and UBound. Each compiles to calls of the
// array's own table entries. A handler that finds the arguments wrong
// gives null with the reason, and an extension method of the same name may
// then serve the call.
#include "Compiler/Frontend/Arrays.h"

#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/Namespaces.h"
#include "Compiler/Frontend/NilChecks.h"
#include "Compiler/Frontend/OverloadResolution.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

namespace {

// What a handler works on: the array as a value of its one-dimensional
// type (or of its own type, for a method of any number of dimensions), the
// code it goes into and the element type.
struct ArrayCall {
  SemBase* code;
  TacAddr const* array;
  IRDataType element;
  SimpleVector<SemBase*> args;
  CompileErrorCode* why;
  SourceLocation where;

  TacAddr const* Temp(IRDataType const& type) {
    return code->NewTemp(type, &where)->GetAddr();
  }
  void Put(TacAddr const* value) {
    code->AddLine(kTacPutParam, value, nilTacAddr, nilTacAddr);
  }
  // A call of table entry `offset` with the queued arguments.
  void CallEntry(ArrayTableEntry offset, TacAddr const* result) {
    TacAddr const* entry = Temp(IRDataType(kPtrType));
    FetchArrayEntry(array, offset, entry, code);
    code->AddLine(kTacCallPtr, entry, nilTacAddr, result);
  }
  bool Fail(CompileErrorCode reason) {
    *why = reason;
    return false;
  }
  bool ArgumentCount(unsigned long least, unsigned long most) {
    if (args.size() < least) return Fail(kErrorNotEnoughArguments);
    if (args.size() > most) return Fail(kErrorTooManyArguments);
    return true;
  }
  bool Fits(unsigned long i, IRDataType const& type) {
    if (IsLegalConversion(type, args[i]->GetType(), nullptr)) return true;
    return Fail(kErrorNotAnArray);
  }
  // Argument `i` as a `type`; a structure element as a reference to it.
  TacAddr const* Value(unsigned long i, IRDataType const& type) {
    TacAddr const* value = CompileRefAs(args[i], type, code)->GetAddr();
    if (type.GetMainType() != kStructureType) return value;
    TacAddr const* ref = Temp(type.AsReference());
    code->AddLine(kTacVarptr, value, nilTacAddr, ref);
    return ref;
  }
};

// The number of elements, minus one, of dimension 1.
TacAddr const* UpperBound(ArrayCall& call) {
  TacAddr const* bound = call.Temp(IRDataType(kSInt32Type));
  call.Put(call.array);
  call.Put(gTacOne);
  call.CallEntry(kArrayUbound, bound);
  return bound;
}

bool HandleArrayAppend(ArrayCall& call) {
  if (!call.ArgumentCount(1, 1) || !call.Fits(0, call.element)) return false;
  TacAddr const* value = call.Value(0, call.element);
  TacAddr const* bound = UpperBound(call);
  call.code->AddLine(kTacAdd, bound, gTacOne, bound);
  call.Put(call.array);
  call.Put(bound);
  call.Put(value);
  call.CallEntry(kArrayInsert, nilTacAddr);
  return true;
}

bool HandleArrayInsert(ArrayCall& call) {
  if (!call.ArgumentCount(2, 2) || !call.Fits(0, IRDataType(kSInt32Type)) ||
      !call.Fits(1, call.element))
    return false;
  TacAddr const* index = call.Value(0, IRDataType(kSInt32Type));
  TacAddr const* value = call.Value(1, call.element);
  call.Put(call.array);
  call.Put(index);
  call.Put(value);
  call.CallEntry(kArrayInsert, nilTacAddr);
  return true;
}

bool HandleArrayRemove(ArrayCall& call) {
  if (!call.ArgumentCount(1, 1) || !call.Fits(0, IRDataType(kSInt32Type)))
    return false;
  TacAddr const* index = call.Value(0, IRDataType(kSInt32Type));
  call.Put(call.array);
  call.Put(index);
  call.CallEntry(kArrayRemove, nilTacAddr);
  return true;
}

// The checked Get, so that Pop on an empty array raises whatever the
// bounds-checking setting.
bool HandleArrayPop(ArrayCall& call) {
  if (!call.ArgumentCount(0, 0)) return false;
  ResetReturnTemp(call.code->GetAddr(), call.code);
  TacAddr const* bound = UpperBound(call);
  TacAddr const* entry = call.Temp(IRDataType(kPtrType));
  FetchArrayEntry(call.array, kArrayGet, entry, call.code);
  call.Put(call.array);
  call.Put(bound);
  if (call.element.GetMainType() == kStructureType) {
    TacAddr const* ref = call.Temp(call.element.AsReference());
    call.code->AddLine(kTacCallPtrVarargs, entry, nilTacAddr, ref);
    call.code->AddLine(kTacPeek, ref, nilTacAddr, call.code->GetAddr());
  } else {
    call.code->AddLine(kTacCallPtrVarargs, entry, nilTacAddr,
                       call.code->GetAddr());
  }
  call.Put(call.array);
  call.Put(bound);
  call.CallEntry(kArrayRemove, nilTacAddr);
  return true;
}

bool HandleArraySort(ArrayCall& call) {
  if (!call.ArgumentCount(0, 0)) return false;
  if (!SortableDatatype(call.element)) return call.Fail(kErrorArraySortType);
  call.Put(call.array);
  call.CallEntry(kArraySort, nilTacAddr);
  return true;
}

// The entry takes a list of arrays that ends with nil.
bool HandleArraySortWith(ArrayCall& call) {
  if (!call.ArgumentCount(1, ~0ul)) return false;
  if (!SortableDatatype(call.element)) return call.Fail(kErrorArraySortType);
  SimpleVector<TacAddr const*> others;
  for (unsigned long i = 0; i < call.args.size(); i++) {
    IRDataType type = StripReference(call.args[i]->GetType());
    if (!type.IsArray()) return call.Fail(kErrorNotAnArray);
    others.push_back(call.Value(i, type));
  }
  call.Put(call.array);
  for (unsigned long i = 0; i < others.size(); i++) call.Put(others[i]);
  call.Put(gTacZero);
  call.CallEntry(kArraySortWith, nilTacAddr);
  return true;
}

bool HandleArrayIndexOf(ArrayCall& call) {
  if (!call.ArgumentCount(1, 2) || !call.Fits(0, call.element)) return false;
  if (call.args.size() == 2 && !call.Fits(1, IRDataType(kSInt32Type)))
    return false;
  TacAddr const* value = call.Value(0, call.element);
  TacAddr const* start = call.args.size() == 2
                             ? call.Value(1, IRDataType(kSInt32Type))
                             : gTacZero;
  call.Put(call.array);
  call.Put(value);
  call.Put(start);
  call.CallEntry(kArrayIndexOf, call.code->GetAddr());
  return true;
}

bool HandleArrayShuffle(ArrayCall& call) {
  if (!call.ArgumentCount(0, 0)) return false;
  call.Put(call.array);
  call.CallEntry(kArrayShuffle, nilTacAddr);
  return true;
}

bool HandleArrayUBound(ArrayCall& call) {
  if (!call.ArgumentCount(0, 1)) return false;
  if (call.args.size() == 1 && !call.Fits(0, IRDataType(kSInt32Type)))
    return false;
  TacAddr const* dimension = call.args.size() == 1
                                 ? call.Value(0, IRDataType(kSInt32Type))
                                 : gTacOne;
  call.Put(call.array);
  call.Put(dimension);
  call.CallEntry(kArrayUbound, call.code->GetAddr());
  return true;
}

// `mAnyDimensions`: the method works on an array of any number of
// dimensions; the others take only one-dimensional arrays.
struct ArrayMethod {
  char const* mName;
  bool mHasResult;
  bool mAnyDimensions;
  bool (*mHandler)(ArrayCall& call);
};

ArrayMethod const kArrayMethods[] = {
    {"Append", false, false, HandleArrayAppend},
    {"Insert", false, false, HandleArrayInsert},
    {"Remove", false, false, HandleArrayRemove},
    {"Pop", true, false, HandleArrayPop},
    {"Sort", false, false, HandleArraySort},
    {"SortWith", false, false, HandleArraySortWith},
    {"IndexOf", true, false, HandleArrayIndexOf},
    {"Shuffle", false, false, HandleArrayShuffle},
    {"UBound", true, true, HandleArrayUBound},
};

ArrayMethod const* FindArrayMethod(string const& name) {
  for (ArrayMethod const& method : kArrayMethods)
    if (name == string(method.mName)) return &method;
  return nullptr;
}

// The type of a method's result: Int32 for IndexOf and UBound, the element
// for Pop.
IRDataType ResultType(ArrayMethod const& method, IRDataType const& element) {
  if (!method.mHasResult) return IRDataType();
  if (string("Pop") == string(method.mName)) return element;
  return IRDataType(kSInt32Type);
}

SemBase* RunHandler(ArrayMethod const& method, SemBase* array, SemBase* args,
                    IRDataType const& element, CompileErrorCode* why) {
  ArrayCall call;
  call.where = array->Location();
  call.code = SemCode::New(ResultType(method, element), &call.where);
  call.element = element;
  call.args = ArgumentVector(nullptr, args);
  call.why = why;
  IRDataType shape = method.mAnyDimensions ? StripReference(array->GetType())
                                            : element.AsArray(1);
  call.array = CompileRefAs(array, shape, call.code)->GetAddr();
  return method.mHandler(call) ? call.code : nullptr;
}

}  // namespace

bool IsPotentialArrayMethodName(string const& name) {
  return FindArrayMethod(name) != nullptr;
}

bool FindArrayElementType(SemBase* array, IRDataType* element) {
  QASSERT(array);
  IRDataType type = StripReference(array->GetType());
  if (!type.IsArray()) return false;
  if (element) *element = type.AsElement();
  return true;
}

SemBase* HandleArrayMethodCall(SemBase* array, SemBase* ident, SemBase* args,
                               FunctionResultMode mode) {
  QASSERT(array);
  QASSERT(ident);
  SemBase* checked = CheckForNil(array);
  ArrayMethod const* method = FindArrayMethod(ident->toString());
  CompileErrorCode why = kErrorUnknownName;
  SemBase* result = nullptr;
  IRDataType element;
  if (!method) {
    why = kErrorUnknownName;
  } else if (mode == kRequireFunctionResult && !method->mHasResult) {
    why = kErrorBadPointerCall;
  } else if (mode == kProhibitFunctionResult && method->mHasResult) {
    why = kErrorPointerCallForbidden;
  } else if (FindArrayElementType(checked, &element)) {
    result = RunHandler(*method, checked->Clone(), args, element, &why);
  }
  if (result) return result;
  return ExtensionLookup(checked, ident, args, nullptr, mode, why);
}
