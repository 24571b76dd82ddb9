// Reading, indexing and assigning what a lookup found: a local variable, a
// constant, a property of Self, of a module or of an object. Each gives the
// value or the code, or null with the reason stored through `err` so that
// the search can go on.
#ifndef COMPILER_FRONTEND_MEMBERACCESS_H
#define COMPILER_FRONTEND_MEMBERACCESS_H

#include "Compiler/Frontend/FunctionResultMode.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/SourceLocation.h"

class ClassSymbol;
class ConstantSymbol;
class MemberSymbol;
class PropertySymbol;
class SemBase;

SemBase* AccessLocalVariable(SemBase* var, SemBase* args, SemBase* assignValue,
                             FunctionResultMode mode, CompileErrorCode* err);
SemBase* AccessConstant(SemBase* ident, ConstantSymbol* constant,
                        SemBase* args, SemBase* assignValue,
                        FunctionResultMode mode, CompileErrorCode* err);
SemBase* AccessSelfProperty(PropertySymbol* prop, SourceLocation const& where,
                            SemBase* args, SemBase* assignValue,
                            FunctionResultMode mode, CompileErrorCode* err);
SemBase* AccessModuleProperty(PropertySymbol* prop,
                              SourceLocation const& where, SemBase* args,
                              SemBase* assignValue, FunctionResultMode mode,
                              CompileErrorCode* err);
SemBase* AccessInstanceProperty(SemBase* expr, PropertySymbol* prop,
                                SourceLocation const& where, SemBase* args,
                                SemBase* assignValue, FunctionResultMode mode,
                                CompileErrorCode* err);

// Whether the code being compiled may use `member` of `cls`: public
// always; private only inside the declaring class; protected inside a
// class that descends from the class first declaring it.
bool CurrentlyHasPermissionToAccessFunction(ClassSymbol* cls,
                                            MemberSymbol* member);
bool CurrentlyHasPermissionToAccessProperty(ClassSymbol* cls,
                                            MemberSymbol* member);
bool CurrentlyHasPermissionToAccessConstant(ClassSymbol* cls,
                                            MemberSymbol* member);

#endif
