#include "Compiler/BackEnds/Minilinker/RuntimeDeclarations.h"

#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Universal/Encodings.h"

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

// The module Encodings: a constant for each encoding a script most often
// names (Encodings.UTF8, Encodings.ISOLatin1), its value the encoding's tag.
// The constants are protected, so that only the qualified name reaches
// them and a script keeps names such as "utf8" and "ASCII" for itself.
static void AddEncodingsModule(GlobalSymbolTable* symbols) {
  static char const* const kNames[] = {
      "ASCII",     "UTF8",     "UTF16",         "UTF32", "ISOLatin1",
      "MacRoman",  "WindowsLatin1", "KOI8R",     "ShiftJIS"};
  ModuleSymbol* module = new ModuleSymbol(string("Encodings"));
  module->SetScope(MemberSymbol::kPublic);
  for (char const* name : kNames) {
    ConstantSymbol* constant = new ConstantSymbol(
        string(name), IRDataType(kSInt32Type),
        IRValue::SInt32(static_cast<long>(GetEncodingFromName(string(name)))));
    constant->SetScope(MemberSymbol::kProtected);
    module->AddConstant(constant);
  }
  symbols->AddModule(module);
}

GlobalSymbolTable* MakeQuorlScriptRuntimeDeclarations(
    QuorlScriptCorrespondent* correspondent) {
  GlobalSymbolTable* symbols = new GlobalSymbolTable();
  symbols->AddMethod(MakeCorrespondentMethod("Input", kStringType, correspondent));
  symbols->AddMethod(MakeCorrespondentMethod("Print", kNoType, correspondent));
  AddRuntimeExceptions(symbols);
  AddEncodingsModule(symbols);
  return symbols;
}
