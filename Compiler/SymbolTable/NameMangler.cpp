#include "Compiler/SymbolTable/NameMangler.h"

#include <string.h>

#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Universal/Assertion.h"
#include "Universal/ByteHelpers.h"

namespace {

// "<" the type's text ">": the link name of a declared type.
string TypeNameToken(IRDataType const& type) {
  return string("<") + type.ToString() + ">";
}

// An integer type that is an enumeration names it, so that overloads on an
// enumeration and on its underlying integer differ.
string EnumToken(IRDataType const& type) {
  return type.Declaration() ? TypeNameToken(type) : string();
}

// The fixed one-code types; null for those that need more.
char const* SimpleTypeCode(SimpleDataType type) {
  switch (type) {
    case kBooleanType: return "b";
    case kReal32Type: return "f4";
    case kReal64Type: return "f8";
    case kCurrencyType: return "e";
    case kStringType: return "s";
    case kColorType: return "c";
    case kVariantType: return "v";
    case kClassType: return "x";
    case kPtrType: return "p";
    default: return nullptr;
  }
}

char const* IntegerTypeCode(SimpleDataType type) {
  switch (type) {
    case kSInt8Type: return "i1";
    case kUInt8Type: return "u1";
    case kSInt16Type: return "i2";
    case kUInt16Type: return "u2";
    case kSInt32Type: return "i4";
    case kUInt32Type: return "u4";
    case kSInt64Type: return "i8";
    case kUInt64Type: return "u8";
    default: return nullptr;
  }
}

int IndexOf(string const& text, char c) {
  char const* bytes = text.CString();
  char const* hit = (char const*)memchr(bytes, c, text.Length());
  return hit ? int(hit - bytes) : -1;
}

}  // namespace

string QualifyName(string const& qualifier, string const& name) {
  if (qualifier.Length() == 0) return name;
  return JoinAround(qualifier, '.', name);
}

string TypeCode(IRDataType const& type) {
  SimpleDataType main = type.GetMainType();
  if (char const* code = SimpleTypeCode(main)) return code;
  if (char const* code = IntegerTypeCode(main))
    return string(code) + EnumToken(type);
  switch (main) {
    case kObjectType:
      return string("o") + TypeNameToken(type);
    case kStructureType:
      return string("t") + TypeNameToken(type);
    case kReferenceType:
      return string("&") + TypeCode(type.AsElement());
    case kArrayType:
      return string("A") + ultoa(long(type.GetDimensions())) +
             TypeCode(type.AsElement());
    default:
      return string("?") + TypeNameToken(type);
  }
}

char* RawTypeCode(char* buf, IRDataType const& type) {
  QASSERT_TEXT(buf, "buf");
  string code = TypeCode(type);
  memcpy(buf, code.CString(), code.Length());
  return buf + code.Length();
}

// Built as a string rather than in a fixed buffer: a name of any length,
// however deep its qualifier, has its link name.
string MangledMethodName(MethodSymbol* method, string qualifier) {
  QASSERT_TEXT(method, "method");
  if (method->External()) return method->GetLinkID();
  if (method->GetFixedLinkName().Length()) return method->GetFixedLinkName();
  string id;
  if (qualifier.Length()) id = qualifier + ".";
  if (method->IsSetterMethod()) id += "=";
  if (method->IsParamArrayMethod()) id += "*";
  if (method->IsExtensionMethod()) id += "$";
  id += method->Name();
  IRDataType const& result = method->GetReturnType();
  bool hasResult = result.GetMainType() != kNoType;
  if (method->CountParameters() != 0 || hasResult) {
    id += "%";
    if (hasResult) id += TypeCode(result);
    id += "%";
    for (unsigned long i = 0; i < method->CountParameters(); i++)
      id += TypeCode(method->GetParameter(i)->GetType());
  }
  id = id.GetUTF8String();
  id.SetEncoding(kEncodingUTF8);
  return id;
}

string AddParameterDescriptionToName(string name, IRDataType const& type) {
  if (IndexOf(name, '%') < 0) name += "%%";
  return name + TypeCode(type);
}

string AddReturnTypeDescriptionToName(string name, IRDataType const& type) {
  string code = type.GetMainType() == kNoType ? string() : TypeCode(type);
  int p = IndexOf(name, '%');
  if (p > 0)
    return left(name, p + 1) + code + mid(name, p + 1);
  return name + "%" + code + "%";
}

string AddDesignatorToName(string name, string designator) {
  char const* bytes = name.CString();
  int dot = -1;
  for (unsigned long i = 0; i < name.Length(); i++)
    if (bytes[i] == '.') dot = int(i);
  return left(name, dot + 1) + designator + mid(name, dot + 1);
}

string AddAssignsDesignatorToName(string name) {
  return AddDesignatorToName(name, "=");
}

string AddExtendsDesignatorToName(string name) {
  return AddDesignatorToName(name, "$");
}

string AddParamArrayDesignatorToName(string name) {
  return AddDesignatorToName(name, "*");
}

string AddInterfaceToClassName(string className, string interfaceName) {
  return className + ":" + interfaceName;
}

string MakeOldDestructorBaseName(string className) {
  return string("~") + className;
}

string ClassLookupFunctionLinkName(string className) {
  return QualifyName(className, AddReturnTypeDescriptionToName(
                                    "__Lookup", IRDataType(kClassType)));
}
