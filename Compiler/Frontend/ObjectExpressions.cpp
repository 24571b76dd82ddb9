#include "Compiler/Frontend/ObjectExpressions.h"

#include "Compiler/SemBase.h"

// object_ref: Self
SemBase* CompileSelf() { return SemIdentifier::New("self"); }

// object_ref: Me
SemBase* CompileMe() { return SemIdentifier::New("me"); }

// object_ref: Super
SemBase* CompileSuper() { return SemIdentifier::New("Object"); }

// expr: New type_name opt_paren_args; dim_clause: ... As New type_name
SemBase* CompileNew(SemBase* type, SemBase* arguments, bool callConstructor) {
  return SemCode::New(IRDataType(), nullptr);
}

// expr: expr Is expr
SemBase* CompileIs(SemBase* left, SemBase* right) {
  return SemCode::New(IRDataType(), nullptr);
}

// expr: expr IsA type_name
SemBase* CompileIsA(SemBase* expr, SemBase* type) {
  return SemCode::New(IRDataType(), nullptr);
}

// class_ref: Class type_name
SemBase* CompileClassReference(SemBase* type) {
  return SemCode::New(IRDataType(), nullptr);
}

// class_ref: Class Of object_ref
SemBase* CompileLookupClassOfExpression(SemBase* expr) {
  return SemCode::New(IRDataType(), nullptr);
}
