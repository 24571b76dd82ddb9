#include "Compiler/Frontend/Declarations.h"

#include "Compiler/Frontend/Arrays.h"
#include "Compiler/Frontend/Assignments.h"
#include "Compiler/Frontend/Namespaces.h"
#include "Compiler/Frontend/ObjectExpressions.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/ProgramAssembly.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/SymbolUtilities.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Universal/Assertion.h"

namespace {

bool IsPlainConstant(SemBase* value) {
  return !value->Code() && value->IsConstant();
}

// Evaluates a computed initial value once, into a value that every name of
// the clause can take.
SemBase* EvaluateOnce(SemBase* initial, SemBase* code) {
  if (!initial || IsPlainConstant(initial)) return initial;
  TacAddr const* addr = initial->GetAddr();
  if (!addr || addr == nilTacAddr) {
    if (initial->Code()) code->Append(initial);
    return nullptr;
  }
  return FlattenExpression(initial, code);
}

SemBase* DeclareOneVar(SemBase* ident, SimpleVector<SemBase*> const& bounds,
                       SemBase* type, SemBase* initial) {
  IRDataType declared = type->GetType();
  if (bounds.size()) declared = declared.AsArray((unsigned)bounds.size());
  ident->SetType(declared);
  AddDeclaredName(ident);
  SemBase* var = CompileLookup(ident->Clone(), nullptr, nullptr, kExplicitCall,
                               kErrorUnknownName, false);
  if (!var) return var;
  if (!initial && bounds.size()) {
    SimpleVector<SemBase*> sizes = bounds;
    initial = AllocateNewArray(sizes, type);
  } else if (initial) {
    initial = initial->Clone();
  } else {
    return var;
  }
  SemBase* code = SemCode::NewValueWrapper(var, &ident->Location());
  TacAddr const* place = var->GetAddr();
  if (place && place != nilTacAddr)
    AssignToSymbol(place, initial, code);
  return code;
}

}  // namespace

SemBase* CompileDeclaration(SemBase* names, SemBase* type, SemBase* initial) {
  QASSERT_TEXT(names, "declnames");
  QASSERT_TEXT(type, "vartype");
  SemBase* code = SemCode::New(IRDataType(), &names->Location());
  initial = EvaluateOnce(initial, code);
  SemBase* first = names->IsList() ? names->GetContents() : names;
  SemBase* ident = nullptr;
  SimpleVector<SemBase*> bounds;
  for (SemBase* item = first; item;) {
    SemBase* next = names->IsList() ? item->GetNext() : nullptr;
    if (item->IsIdentifier()) {
      if (ident) {
        SemBase* one = DeclareOneVar(ident, bounds, type, initial);
        if (one && one->Code()) code->Append(one);
      }
      ident = item;
      bounds.deleteAll();
    } else {
      bounds.push_back(item);
    }
    item = next;
  }
  if (ident) {
    SemBase* one = DeclareOneVar(ident, bounds, type, initial);
    if (one && one->Code()) code->Append(one);
  }
  return code;
}

// More than one name would share one new object: compile error 125 at the
// second and later names.
SemBase* CompileNewObjectDeclaration(SemBase* names, SemBase* type,
                                     SemBase* arguments) {
  QASSERT(names);
  QASSERT(type);
  if (names->IsList()) {
    unsigned long count = 0;
    SourceLocation others;
    for (SemBase* item = names->GetContents(); item; item = item->GetNext()) {
      if (!item->IsIdentifier()) continue;
      if (++count == 2)
        others = item->Location();
      else if (count > 2)
        others = others + item->Location();
    }
    if (count > 1) Error(kErrorNewWithSeveralNames, others);
  }
  return CompileDeclaration(names, type, CompileNew(type, arguments, true));
}

// The flag lives in static storage too: the table is still in static mode.
SemBase* CompileStaticDeclaration(SemBase* code) {
  QASSERT(code);
  QASSERT(gContext);
  if (code->Code() && !code->Code()->IsEmpty()) {
    SemBase* guarded = SemCode::New(IRDataType(), &code->Location());
    TacAddr const* done =
        guarded->NewTemp(IRDataType(kBooleanType), nullptr)->GetAddr();
    TacAddr const* skip = NewLabel();
    guarded->AddLine(kTacIfNEI, done, gTacFalse, skip);
    guarded->AddLine(kTacStore, gTacTrue, nilTacAddr, done);
    guarded->Append(code);
    guarded->AddLine(kTacLabel, skip, nilTacAddr, nilTacAddr);
    code = guarded;
  }
  gContext->mSymbols->NormalStorageMode();
  return CompileDebugEntry(code);
}

// ------------------------------------------------------------------ Const

namespace {

// A constant of a method lives in the method's table.
void DeclareLocalConstant(SemBase* name, SemBase* value) {
  VerifyUniqueName(name);
  ConstantSymbol* constant =
      new ConstantSymbol(name->toString(), value->GetType(), kIRZeroValue);
  if (value->IsConstant() && !value->Code())
    constant->SetValue(value->GetValue());
  else
    Error(kErrorNotAssignable, value->Location());
  gContext->mSymbols->AddConstant(constant);
}

// Outside methods the scanner declared the constant; a second one of the
// name in the same class or module is compile error 135.
void ValidateDeclaredConstant(SemBase* name) {
  string const& unit = gContext->mSourceName;
  unsigned int line = name->Location().mStartLine;
  Symbol* declared = nullptr;
  ConstantSymbol* byName = nullptr;
  if (ClassSymbol* owner = gContext->blocks.CurrentClass()) {
    declared = owner->LookupDeclaration(name->toString(), unit, line);
    byName = owner->LookupConstant(name->toString());
  } else if (ModuleSymbol* module = gContext->blocks.CurrentModule()) {
    declared = module->LookupDeclaration(name->toString(), unit, line);
    byName = module->LookupConstant(name->toString());
  }
  if (!declared) return;
  QASSERT_TEXT(declared->IsA(Symbol::kConstant), "constant declaration");
  if (byName && byName != declared)
    Error(kErrorDuplicateConstant, name->Location());
}

}  // namespace

SemBase* CompileConst(SemBase* name, SemBase* value) {
  QASSERT(name);
  QASSERT(gContext);
  if (!value) {
    Error(kErrorUnknownName, name->Location());
    return nullptr;
  }
  if (gContext->blocks.CurrentMethod())
    DeclareLocalConstant(name, value);
  else
    ValidateDeclaredConstant(name);
  return nullptr;
}
