#include "Compiler/Frontend/ExternalDeclarations.h"

#include "Compiler/Frontend/Expressions.h"
#include "Compiler/Frontend/GeneratedFunctions.h"
#include "Compiler/Frontend/Namespaces.h"
#include "Compiler/Frontend/OverloadResolution.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/Frontend/TypeNames.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Universal/Assertion.h"

namespace {

// A library named so is a function of a plug-in: its types are free.
char const kPluginLibraryPrefix[] = "plugin:";
unsigned long const kPluginLibraryPrefixLength = sizeof kPluginLibraryPrefix - 1;

char const* const kAliasWord = "Alias";
char const* const kSelectorWord = "Selector";
char const* const kSelectorParameter = "_sel";

// The words the parser puts before a parameter's name.
char const* const kModifierWords[] = {"ASSIGNS", "BYREF", "BYVAL",
                                      "PARAMARRAY", "OPTIONAL", "EXTENDS"};

bool IsModifierWord(SemBase* item) {
  if (!item->IsIdentifier()) return false;
  string text = item->toString();
  for (char const* word : kModifierWords)
    if (text.CompareWithCase(string(word)) == 0) return true;
  return false;
}

bool IsStringLiteral(SemBase* value) {
  return value && value->IsConstant() &&
         value->GetType().GetMainType() == kStringType;
}

SemBase* EmptyLibrary(SourceLocation const& where) {
  return SemValue::New(gContext->GetLiteral(string()), &where);
}

// Reports a type that cannot cross at the item's place; true if it can.
bool TestItemForDeclareLegality(SemBase* item) {
  QASSERT_TEXT(item, "item");
  CompileErrorCode why = TestExternalType(item->GetType());
  if (why == kErrorNone) return true;
  Error(why, item->Location());
  return false;
}

// The items of a parameter list: each parameter's name (typed) with the
// modifier words and default value that came before it.
struct ParsedParameter {
  SemBase* name = nullptr;
  SemBase* defaultValue = nullptr;
  bool byRef = false, optional = false, paramArray = false, assigns = false;
};

SimpleVector<ParsedParameter> ReadParameters(SemBase* params) {
  SimpleVector<ParsedParameter> out;
  ParsedParameter next;
  SemBase* item = params && params->IsList() ? params->GetContents() : params;
  for (; item; item = params->IsList() ? item->GetNext() : nullptr) {
    if (IsModifierWord(item)) {
      string word = item->toString();
      next.byRef |= word == string("BYREF");
      next.optional |= word == string("OPTIONAL");
      next.paramArray |= word == string("PARAMARRAY");
      next.assigns |= word == string("ASSIGNS");
    } else if (item->IsIdentifier()) {
      next.name = item;
      out.push_back(next);
      next = ParsedParameter();
    } else if (item->IsValue()) {
      next.defaultValue = item;
    } else {
      QFAIL("Unknown SemBase type in CompileExternalDeclaration");
    }
  }
  return out;
}

ParameterSymbol* MakeParameter(ParsedParameter const& parsed) {
  ParameterSymbol* param =
      new ParameterSymbol(parsed.name->toString(), parsed.name->GetType());
  if (parsed.paramArray) param->SetRole(ParameterSymbol::kParamArrayParameter);
  if (parsed.assigns) param->SetRole(ParameterSymbol::kAssignsParameter);
  if (parsed.defaultValue) {
    ParameterDefaultValue value;
    value.value = parsed.defaultValue->GetValue();
    value.type = parsed.defaultValue->GetType();
    param->SetDefaultValue(value);
  } else if (parsed.optional) {
    param->SetMode(ParameterSymbol::kOptional);
  }
  return param;
}

// The selector goes behind the receiver: second, or third for an alias
// that begins with "#".
void AddSelectorParameter(MethodSymbol* method, string const& alias) {
  ParameterSymbol* selector =
      new ParameterSymbol(kSelectorParameter, IRDataType(kPtrType));
  selector->SetMode(ParameterSymbol::kOptional);
  unsigned position = (alias.Length() && alias[0] == '#') ? 2 : 1;
  if (position - 1 < method->CountParameters())
    method->InsertParameter(position, selector);
  else
    method->AddParameter(selector);
}

// A Declare inside a method lives in the method's own table; one at the
// top level of the program, which the scanner skips, joins the global
// module from here on.
void DeclareHere(SemBase* ident, string const& alias, bool selector,
                 string const& library, SemBase* params, SemBase* returnType) {
  MethodSymbol* method = new MethodSymbol(ident->toString());
  method->SetLinkID(alias);
  method->SetSourceLibrary(library);
  method->SetExternal(true);
  if (returnType) method->SetReturnType(returnType->GetType());
  SimpleVector<ParsedParameter> parsed = ReadParameters(params);
  for (unsigned long i = 0; i < parsed.size(); i++)
    method->AddParameter(MakeParameter(parsed[i]));
  if (selector) AddSelectorParameter(method, alias);
  LocalSymbolTable* table = gContext->mSymbols;
  MethodSymbol::DispatchMethod dispatch = table->mDeclarationMode;
  if (selector && dispatch != MethodSymbol::WeakLinked)
    dispatch = MethodSymbol::ObjCMessage;
  ModuleSymbol* module = gContext->blocks.CurrentModule();
  if (gContext->blocks.CurrentMethod() || !module) {
    if (dispatch == MethodSymbol::ObjCMessage) table->ObjCDeclarationMode();
    table->AddMethod(method);
    return;
  }
  module->AddMethod(method);
  method->SetDispatchMethod(dispatch);
}

// A Declare of the script's own in `owner` by that name.
MethodSymbol* ScriptDeclare(MethodDeclarationListOwner* owner,
                            string const& name) {
  MethodList methods =
      owner->MethodDeclarationListOwner::LookupMethods(name, kAllMethods);
  for (unsigned long i = 0; methods && i < methods->size(); i++) {
    MethodSymbol* method = (*methods)[i];
    if (method->External() && method->WrittenInScript()) return method;
  }
  return nullptr;
}

MethodSymbol* ScriptDeclareInModules(ModuleSymbol* module,
                                     string const& name) {
  if (MethodSymbol* found = ScriptDeclare(module, name)) return found;
  ModuleSymbolIterator m = module->IterateModules();
  while (m.Next())
    if (MethodSymbol* found = ScriptDeclareInModules(m.Value(), name))
      return found;
  return nullptr;
}

// The declaration the scanner made of a Declare in a class or module, or
// null: the scanner skips those at the top level of the program, and a
// method's own come to be here.
MethodSymbol* ScannedDeclaration(SemBase* ident) {
  BlockContextList const& blocks = gContext->blocks;
  if (blocks.CurrentMethod()) return nullptr;
  if (ClassSymbol* cls = blocks.CurrentClass())
    return ScriptDeclare(cls, ident->toString());
  ModuleSymbol* module = blocks.CurrentModule();
  return module ? ScriptDeclareInModules(module, ident->toString()) : nullptr;
}

ConstantSymbol* LibraryConstant(string const& name) {
  if (ConstantSymbol* c = gContext->mSymbols->LookupConstant(name)) return c;
  if (ClassSymbol* cls = gContext->blocks.CurrentClass())
    if (ConstantSymbol* c = cls->LookupConstant(name)) return c;
  if (ModuleSymbol* module = gContext->blocks.CurrentModule())
    return module->LookupConstant(name);
  return nullptr;
}

}  // namespace

bool IsPluginLibrary(string const& library) {
  return left(library, int(kPluginLibraryPrefixLength)) ==
         string(kPluginLibraryPrefix);
}

CompileErrorCode TestExternalType(IRDataType const& type) {
  switch (StripReference(type).GetMainType()) {
    case kVariantType:
    case kObjectType:
      return kErrorExternObjectType;
    case kArrayType:
      return kErrorExternArrayType;
    case kStringType:
      return kErrorExternStringType;
    default:
      return kErrorNone;
  }
}

SemBase* CompileExternLib(SemBase* lib) {
  QASSERT(lib);
  if (IsStringLiteral(lib)) return lib;
  ConstantSymbol* constant = LibraryConstant(lib->toString());
  if (!constant || constant->GetType().GetMainType() != kStringType) {
    Error(kErrorExternLibraryName, lib->Location());
    return EmptyLibrary(lib->Location());
  }
  return SemValue::New(gContext->GetLiteral(constant->GetValue().mString),
                       &lib->Location());
}

SemBase* CompileExternAlias(SemBase* word, SemBase* value) {
  if (!word) {
    Error(kErrorSyntax);
    return value;
  }
  string text = word->toString();
  if (text != string(kAliasWord) && text != string(kSelectorWord))
    Error(kErrorSyntax, word->Location());
  return ConcatList(word, value);
}

SemBase* CompileExternDeclaration(SemBase* ident, SemBase* lib, SemBase* alias,
                                  SemBase* params, SemBase* returnType) {
  QASSERT_TEXT(gContext, "gContext");
  QASSERT_TEXT(ident, "ident");
  SemBase* done = SemCode::New(IRDataType(), &ident->Location());
  string aliasText = ident->toString();
  bool selector = false;
  if (alias) {
    QASSERT_TEXT(alias->IsList(), "alias->IsList()");
    SemBase* word = alias->GetContents();
    SemBase* value = word ? word->GetNext() : nullptr;
    selector = word && word->toString() == string(kSelectorWord);
    if (IsStringLiteral(value) && value->GetValue().mString.Length())
      aliasText = value->GetValue().mString;
  }
  string library;
  if (IsStringLiteral(lib)) library = lib->GetValue().mString;
  if (!lib) Error(kErrorExternLibraryName, ident->Location());

  BlockContextList const& blocks = gContext->blocks;
  ClassSymbol* cls = blocks.CurrentClass();
  MethodSymbol* openMethod = blocks.CurrentMethod();
  if (cls && !openMethod &&
      (cls->LookupProperty(ident->toString()) ||
       cls->LookupConstant(ident->toString())))
    Error(kErrorDuplicateName, ident->Location());

  if (!IsPluginLibrary(library)) {
    SimpleVector<ParsedParameter> parsed = ReadParameters(params);
    for (unsigned long i = 0; i < parsed.size(); i++)
      TestItemForDeclareLegality(parsed[i].name);
    if (returnType) TestItemForDeclareLegality(returnType);
  }
  // The scanner cannot read a library named by a constant: its
  // declaration learns the name here.
  if (MethodSymbol* scanned = ScannedDeclaration(ident)) {
    if (scanned->GetSourceLibrary().Length() == 0)
      scanned->SetSourceLibrary(library);
  } else {
    DeclareHere(ident, aliasText, selector, library, params, returnType);
  }
  gContext->mSymbols->NormalDeclarationMode();
  return done;
}
