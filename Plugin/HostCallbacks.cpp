// Host callbacks as declarations: every registered host method and property
// becomes an external method symbol whose link name is "_" and the entry's
// address in hex, and the function table learns that name. No call is
// interpreted: compiled code calls the host function directly, and the
// context object reaches it as a hidden parameter baked into the code.
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Miner/DeclarationParser.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/NameMangler.h"
#include "Plugin/QuorlScriptInterface.h"
#include "Universal/Assertion.h"
#include "Universal/ByteHelpers.h"

// Objects and classes can't cross into the host: a script's classes are not
// the host's. One level of each array form is looked through.
bool TypeNotContextSafe(IRDataType type) {
  if (type.GetMainType() == kReferenceType) type = type.AsElement();
  if (type.GetMainType() == kArrayType) type = type.AsElement();
  SimpleDataType main = type.GetMainType();
  return (main >= kObjectType && main <= kUnresolvedType) || main == kClassType;
}

static string HostLinkName(void* entry) {
  return string("_") + ultohexa((unsigned long)entry);
}

// A hidden Int32 parameter whose value is baked into every call.
static ParameterSymbol* MakeHiddenParameter(char const* name, long value) {
  ParameterSymbol* parameter = new ParameterSymbol(string(name), IRDataType(kSInt32Type));
  ParameterDefaultValue hidden;
  hidden.value = IRValue::SInt32(value);
  hidden.type = IRDataType(kSInt32Type);
  parameter->SetDefaultValue(hidden);
  parameter->SetMode(ParameterSymbol::kHidden);
  return parameter;
}

static bool HasUnsafeSignature(MethodSymbol* method, unsigned long firstParameter) {
  if (TypeNotContextSafe(method->GetReturnType())) return true;
  for (unsigned long i = firstParameter; i < method->CountParameters(); i++)
    if (TypeNotContextSafe(method->GetParameter(i)->GetType())) return true;
  return false;
}

// The receiver that the declaration's text holds as its first parameter
// becomes the hidden context argument.
static void BindReceiver(MethodSymbol* method, void const* context) {
  QASSERT_TEXT(method->CountParameters() > 0, "selector");
  ParameterSymbol* receiver = method->GetParameter(0);
  receiver->SetType(IRDataType(kSInt32Type));
  ParameterDefaultValue value;
  value.value = IRValue::SInt32((long)context);
  value.type = IRDataType(kSInt32Type);
  receiver->SetDefaultValue(value);
  receiver->SetMode(ParameterSymbol::kHidden);
}

void QuorlScriptInterface::EncodeHostMethods(ModuleSymbol* symbols,
                                             StringMap<void*>* table) {
  for (unsigned long i = 0; i < mHostMethods.size(); i++) {
    HostMethod const& host = mHostMethods[i];
    MethodSymbol* method = ExtractMethodDeclaration(host.mDeclaration, nullptr);
    if (!method) continue;
    if (HasUnsafeSignature(method, host.mWantsContext ? 1 : 0)) {
      delete method;
      continue;
    }
    string linkName = HostLinkName(host.mEntry);
    method->SetLinkID(linkName);
    method->SetExternal(true);
    table->AddEntry(linkName, host.mEntry);
    if (host.mWantsContext) BindReceiver(method, mContext);
    symbols->AddMethod(method);
  }
}

// One accessor of a host property: a method named like the property, with
// the context and the property's parameter word passed silently.
static MethodSymbol* MakeAccessor(PropertySymbol* property, void* entry,
                                  bool isSetter, ParameterSymbol* self,
                                  ParameterSymbol* param, StringMap<void*>* table) {
  IRDataType returnType = isSetter ? IRDataType() : property->GetType();
  MethodSymbol* method = new MethodSymbol(property->Name(), returnType);
  string linkName = HostLinkName(entry);
  method->SetLinkID(linkName);
  method->SetExternal(true);
  table->AddEntry(linkName, entry);
  method->AddParameter((ParameterSymbol*)self->Clone(nullptr));
  method->AddParameter((ParameterSymbol*)param->Clone(nullptr));
  if (isSetter) {
    ParameterSymbol* value = new ParameterSymbol(string("value"), property->GetType());
    value->SetMode(ParameterSymbol::kHidden);
    method->AddParameter(value);
  }
  table->AddEntry(MangledMethodName(method, string("")), entry);
  return method;
}

void QuorlScriptInterface::EncodeHostProperties(ModuleSymbol* symbols,
                                                StringMap<void*>* table) {
  for (unsigned long i = 0; i < mHostProperties.size(); i++) {
    HostProperty const& host = mHostProperties[i];
    PropertySymbol* property = ExtractPropertyDeclaration(host.mDeclaration);
    if (!property) continue;
    if (TypeNotContextSafe(property->GetType()) || (!host.mGetter && !host.mSetter)) {
      delete property;
      continue;
    }
    ParameterSymbol* self = MakeHiddenParameter("Self", (long)mContext);
    ParameterSymbol* param = MakeHiddenParameter("param", host.mParameter);
    if (host.mGetter)
      symbols->AddMethod(MakeAccessor(property, host.mGetter, false, self, param, table));
    if (host.mSetter)
      symbols->AddMethod(MakeAccessor(property, host.mSetter, true, self, param, table));
    delete property;
    delete self;
    delete param;
  }
}

// The declaration reader's literals need a compilation context; this one
// lives only while the declarations are read.
void QuorlScriptInterface::EncodeHostCallbacks(ModuleSymbol* symbols,
                                               StringMap<void*>* table) {
  QASSERT_TEXT(table, "entryTable");
  SrcContext* context = new SrcContext();
  EncodeHostMethods(symbols, table);
  EncodeHostProperties(symbols, table);
  delete context;
}
