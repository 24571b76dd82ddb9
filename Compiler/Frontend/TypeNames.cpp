#include "Compiler/Frontend/TypeNames.h"

#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/TacLiteralPool.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

// type_name: Class (312) | Object (313)
SemBase* BasicType(int token) {
  SemBase* ident;
  if (token == kTokClass) {
    ident = SemIdentifier::New("Class");
    ident->SetType(IRDataType(kClassType));
  } else {
    QASSERT_TEXT(token == kTokObject, "unknown basic type token");
    ident = SemIdentifier::New("Object");
    ident->SetType(IRDataType(kObjectType));
  }
  return ident;
}

IRDataType ResolveType(string const& name) { return IRDataType::Lookup(name); }

SemBase* CompileType(SemBase* ident) {
  QASSERT(ident);
  if (ident->IsIdentifier()) ident->SetType(ResolveType(ident->toString()));
  return ident;
}

// type_name: type_prefix IDENT
SemBase* CompileType(SemBase* prefix, SemBase* name) {
  return CompileType(name);
}

// (,) has rank 2: one more than the commas.
SemBase* ArrayRank(SemBase* commas) {
  long rank = 1;
  if (commas) {
    rank++;
    if (commas->IsList()) {
      rank = 1;
      for (SemBase* c = commas->GetContents(); c; c = c->GetNext()) rank++;
    }
  }
  return SemValue::New(CurrentTLP()->GetLiteral(rank, kSInt32Type), nullptr);
}

SemBase* ArrayType(SemBase* element, SemBase* rank) {
  QASSERT(element);
  QASSERT(rank);
  QASSERT(rank->IsConstant() && rank->GetType().GetMainType() == kSInt32Type);
  SemBase* array = SemIdentifier::New(element->toString(), element->Location());
  array->SetType(element->GetType().AsArray(rank->GetValue().uSInt32));
  return array;
}
