#include "Compiler/BackEnds/Minilinker/RuntimeDeclarations.h"

#include "Compiler/SymbolTable/GlobalSymbolTable.h"

MethodSymbol* MakeRuntimeMethodDeclaration(string const& linkName,
                                           string const& name,
                                           SimpleDataType returnType,
                                           SimpleDataType p1, SimpleDataType p2,
                                           SimpleDataType p3) {
  static char const* const kParameterNames[] = {"Parameter1", "Parameter2",
                                                "Parameter3"};
  MethodSymbol* method = new MethodSymbol(name, IRDataType(returnType));
  method->SetDispatchMethod(MethodSymbol::Normal);
  method->SetLinkID(linkName);
  method->SetExternal(true);
  SimpleDataType parameters[] = {p1, p2, p3};
  for (int i = 0; i < 3; i++) {
    if (parameters[i] == kNoType) continue;
    method->AddParameter(
        new ParameterSymbol(string(kParameterNames[i]), IRDataType(parameters[i])));
  }
  return method;
}

// The script never writes the correspondent: every call passes it silently
// as the hidden first argument, baked into the compiled code.
static MethodSymbol* MakeCorrespondentMethod(char const* name,
                                             SimpleDataType returnType,
                                             QuorlScriptCorrespondent* correspondent) {
  MethodSymbol* method = MakeRuntimeMethodDeclaration(
      string(name), string(name), returnType, kSInt32Type, kStringType);
  ParameterSymbol* hidden = method->GetParameter(0);
  ParameterDefaultValue value;
  value.value = IRValue::SInt32((long)correspondent);
  value.type = IRDataType(kSInt32Type);
  hidden->SetDefaultValue(value);
  hidden->SetMode(ParameterSymbol::kHidden);
  return method;
}

// A runtime exception class. Generated code gets the class at run time by
// calling its lookup function, whose name is the class's link name: the
// class's __Lookup is that function of the runtime's.
static ClassSymbol* MakeExceptionClass(char const* name, char const* lookupName,
                                       ClassSymbol* parent) {
  ClassSymbol* cls = new ClassSymbol(string(name));
  cls->mLinkName = string(lookupName);
  if (parent) cls->SetSuperclassType(IRDataType(kObjectType, parent));
  MethodSymbol* lookup = MakeRuntimeMethodDeclaration(
      string(lookupName), string("__Lookup"), kClassType);
  lookup->SetScope(MemberSymbol::kPrivate);
  cls->AddMethod(lookup);
  return cls;
}

// What every exception carries, in the order the runtime lays them out
// behind the object header (see RuntimeExceptionObjects.h).
static void AddExceptionFields(ClassSymbol* cls) {
  cls->AddProperty(new PropertySymbol(string("Message"), IRDataType(kStringType)));
  cls->AddProperty(
      new PropertySymbol(string("ErrorNumber"), IRDataType(kSInt32Type)));
}

static void AddRuntimeExceptions(GlobalSymbolTable* symbols) {
  static char const* const kSubclasses[][2] = {
      {"OutOfMemoryExceptionLookup", "OutOfMemoryException"},
      {"NilObjectExceptionLookup", "NilObjectException"},
      {"IllegalCastExceptionLookup", "IllegalCastException"},
      {"TypeMismatchExceptionLookup", "TypeMismatchException"},
      {"OutOfBoundsExceptionLookup", "OutOfBoundsException"},
      {"StackOverflowExceptionLookup", "StackOverflowException"},
  };
  ClassSymbol* base =
      MakeExceptionClass("RuntimeException", "RuntimeExceptionLookup", nullptr);
  AddExceptionFields(base);
  symbols->AddType(base);
  for (auto const& subclass : kSubclasses)
    symbols->AddType(MakeExceptionClass(subclass[1], subclass[0], base));
}

GlobalSymbolTable* MakeQuorlScriptRuntimeDeclarations(
    QuorlScriptCorrespondent* correspondent) {
  GlobalSymbolTable* symbols = new GlobalSymbolTable();
  symbols->AddMethod(MakeCorrespondentMethod("Input", kStringType, correspondent));
  symbols->AddMethod(MakeCorrespondentMethod("Print", kNoType, correspondent));
  AddRuntimeExceptions(symbols);
  return symbols;
}
