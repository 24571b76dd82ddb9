// Host callbacks as declarations: every registered host method and property
// becomes an external method symbol whose link name is "_" and the entry's
// address in hex, and the function table learns that name. No call is
// interpreted: compiled code calls the host function directly, and the
// context object reaches it as a hidden parameter baked into the code.
#include <ctype.h>
#include <string.h>
#include <strings.h>

#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Miner/DeclarationParser.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/NameMangler.h"
#include "Plugin/CompileLock.h"
#include "Plugin/EmbeddingBoundary.h"
#include "Plugin/QuorlScriptInterface.h"
#include "Plugin/ScriptFunctions.h"
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

bool IsHostLinkName(string const& name) {
  if (name.Length() != 9 || name[0] != '_') return false;
  for (int i = 1; i < 9; i++)
    if (!isxdigit(static_cast<unsigned char>(name[i]))) return false;
  return true;
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

// The data word goes first and silently; the link name tells the
// registrations of one entry with different data apart.
void QuorlScriptInterface::EncodeHostFunctions(ModuleSymbol* symbols,
                                               StringMap<void*>* table) {
  for (unsigned long i = 0; i < mHostFunctions.size(); i++) {
    HostFunction const& host = mHostFunctions[i];
    MethodSymbol* method = ExtractMethodDeclaration(host.mDeclaration, nullptr);
    if (!method) continue;
    if (HasUnsafeSignature(method, 0)) {
      delete method;
      continue;
    }
    string linkName = HostLinkName(host.mEntry) + HostLinkName(host.mData);
    method->SetLinkID(linkName);
    method->SetExternal(true);
    table->AddEntry(linkName, host.mEntry);
    method->InsertParameter(0, MakeHiddenParameter("data", (long)host.mData));
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
    // The value comes from the right side of an assignment to the name.
    ParameterSymbol* value = new ParameterSymbol(string("value"), property->GetType());
    value->SetRole(ParameterSymbol::kAssignsParameter);
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
  EncodeHostFunctions(symbols, table);
  delete context;
}


namespace {

bool IsNameStart(char c) { return isalpha((unsigned char)c) || c == '_'; }
bool IsNamePart(char c) { return isalnum((unsigned char)c) || c == '_'; }

char const* SkipSpace(char const* p) {
  while (*p == ' ' || *p == '\t') p++;
  return p;
}

// Past a name at `p`, or null when none starts there.
char const* SkipName(char const* p) {
  if (!IsNameStart(*p)) return nullptr;
  while (IsNamePart(*p)) p++;
  return p;
}

bool StartsWithWord(char const* p, char const* word) {
  size_t n = strlen(word);
  return strncasecmp(p, word, n) == 0 && !IsNamePart(p[n]);
}

// The declaration reader forgives much that a script's own declarations
// never contain; a host's declaration is held to the plain form:
// "Sub|Function Name(parameters) [As Type]", with "As Type" exactly when
// it is a Function, and nothing after.
bool HasPlainMethodForm(char const* text) {
  char const* p = SkipSpace(text);
  bool function = StartsWithWord(p, "Function");
  if (!function && !StartsWithWord(p, "Sub")) return false;
  p = SkipSpace(p + (function ? 8 : 3));
  p = SkipName(p);
  if (!p || *SkipSpace(p) != '(') return false;
  int depth = 0;
  for (p = SkipSpace(p); *p; p++) {
    if (*p == '(') depth++;
    if (*p == ')' && --depth == 0) break;
  }
  if (*p != ')') return false;
  p = SkipSpace(p + 1);
  if (!function) return *p == 0;
  if (!StartsWithWord(p, "As")) return false;
  p = SkipName(SkipSpace(p + 2));
  if (p && p[0] == '(' && p[1] == ')') p += 2;
  return p && *SkipSpace(p) == 0;
}

}  // namespace

int32_t DescribeHostDeclaration(char const* declaration, QuorlSignature* signature) {
  if (!declaration || !signature || !HasPlainMethodForm(declaration))
    return kQuorlBadDeclaration;
  std::lock_guard<std::mutex> reading(CompileLock());
  SrcContext* context = new SrcContext();
  MethodSymbol* method = ExtractMethodDeclaration(string(declaration), nullptr);
  int32_t status = kQuorlBadDeclaration;
  if (method && method->CountParameters() <= kQuorlMaxParameters) {
    signature->mReturnType = ValueTypeOf(method->GetReturnType());
    signature->mParameterCount = (int32_t)method->CountParameters();
    for (unsigned long i = 0; i < method->CountParameters(); i++)
      signature->mParameterTypes[i] = ValueTypeOf(method->GetParameter(i)->GetType());
    status = kQuorlCallDone;
  }
  delete method;
  delete context;
  return status;
}
