// The memory methods of a Ptr value: `p.Int32(4)` reads the Int32 four
// bytes past p, `p.Int32(4) = 1` writes one there, and so for every type
// that lives in raw bytes. A structure is not copied: `p.Rect` is the
// structure at p itself.
#include "Compiler/Frontend/ExternalDeclarations.h"

#include "Compiler/Frontend/NilChecks.h"
#include "Compiler/Frontend/OverloadResolution.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/Frontend/TypeNames.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

namespace {

bool IsKnownType(IRDataType const& type) {
  return type.GetMainType() != kNoType &&
         type.GetMainType() != kUnresolvedType;
}

// The offset argument as an Int32, or nil without one; null after an error.
TacAddr const* OffsetArgument(SemBase* args, SemBase* code) {
  SimpleVector<SemBase*> list = ArgumentVector(nullptr, args);
  if (list.size() == 0) return nilTacAddr;
  if (list.size() > 1) {
    Error(kErrorTooManyArguments, list[1]->Location());
    return nullptr;
  }
  return CompileRefAs(list[0], IRDataType(kSInt32Type), code)->GetAddr();
}

}  // namespace

bool IsPotentialPtrMethodName(SemBase* name) {
  QASSERT(name);
  IRDataType type = ResolveType(name->toString());
  if (!IsKnownType(type)) return false;
  return type.IsExternalString() || !type.RefCounted();
}

SemBase* HandlePtrMethodCall(SemBase* target, SemBase* type, SemBase* args,
                             SemBase* value, FunctionResultMode mode) {
  QASSERT(target);
  QASSERT(type);
  SourceLocation where = target->Location() + type->Location();
  if (value && mode == kRequireFunctionResult) {
    Error(kErrorBadPointerCall, where);
    return SemCode::New(IRDataType(), &where);
  }
  if (!value && mode == kProhibitFunctionResult) {
    Error(kErrorPointerCallForbidden, where);
    return SemCode::New(IRDataType(), &where);
  }
  IRDataType memory = ResolveType(type->toString());
  bool structure = memory.GetMainType() == kStructureType;
  IRDataType resultType = value ? IRDataType()
                          : structure ? memory.AsReference()
                                      : memory;
  SemBase* code = SemCode::New(resultType, &where);
  TacAddr const* pointer =
      CompileRefAs(target, IRDataType(kPtrType), code)->GetAddr();
  TacAddr const* offset = OffsetArgument(args, code);
  if (!offset) return code;
  CheckPointerForNil(pointer, code);
  if (value) {
    TacAddr const* converted = CompileRefAs(value, memory, code)->GetAddr();
    code->AddLine(kTacPoke, converted, offset, pointer);
  } else if (!structure) {
    code->AddLine(kTacPeek, pointer, offset, code->GetAddr());
  } else if (offset != nilTacAddr) {
    code->AddLine(kTacAdd, pointer, offset, code->GetAddr());
  } else {
    code->AddLine(kTacStore, pointer, nilTacAddr, code->GetAddr());
  }
  return code;
}
