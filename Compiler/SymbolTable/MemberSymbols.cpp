// Scopes, constants, parameters, properties and handled events of the
// declaration tree.
#include "Compiler/InternalFailure.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/SymbolTextHelpers.h"

// -------------------------------------------------------------- scopes

string MemberSymbol::ScopePrototype(GlobalSymbol* container,
                                    Scope which) const {
  QASSERT_TEXT(container, "container");
  if (container->IsA(kGlobal) || container->IsA(kUnit)) {
    QASSERT_TEXT(kPublic == which, "kPublic == which");
    return string();
  }
  bool inModule = container->IsA(kModule);
  switch (which) {
    case kProtected:
      return "Protected ";
    case kPrivate:
      return "Private ";
    default:
      return inModule ? "Global " : "Public ";
  }
}

// ----------------------------------------------------------- constants

ConstantSymbol::ConstantSymbol(ConstantSymbol const& original,
                               SourceUnitDependencyLink* link)
    : MemberSymbol(original, link), mType(original.mType),
      mValue(original.mValue) {
  if (mType.Declaration())
    QFAIL_STRING(string("cloning constant declaration with type = ") +
                 mType.ToString());
}

GlobalSymbol* ConstantSymbol::Clone(SourceUnitDependencyLink* link) const {
  return new ConstantSymbol(*this, link);
}

// A private constant stays out of an interface listing, except the one
// that reserves a class's extra bytes.
string ConstantSymbol::MakePrototype(GlobalSymbol* container) const {
  QASSERT_TEXT(container, "container");
  string assignment = Name() + " = " + mValue.ToString(mType) + "\n";
  if (container->IsA(kEnum)) return assignment;
  if (GetScope() == kPrivate && Name() != "_compiler_extrabytes")
    return string();
  return ScopePrototype(container, GetScope()) + "Const " + assignment;
}

// ---------------------------------------------------------- parameters

ParameterSymbol::ParameterSymbol(string const& name, IRDataType const& type,
                                 Role role)
    : GlobalSymbol(name), mRole(role), mMode(kRequired), mType(type) {}

ParameterSymbol::ParameterSymbol(ParameterSymbol const& original,
                                 SourceUnitDependencyLink* link)
    : GlobalSymbol(original, link), mRole(original.mRole),
      mMode(original.mMode), mType(original.mType),
      mDefaultValue(original.mDefaultValue) {
  QASSERT_TEXT(not mType.Declaration(), "not mType.Declaration()");
  QASSERT_TEXT(not mDefaultValue.type.Declaration(),
               "not mDefaultValue.type.Declaration()");
}

ParameterSymbol* ParameterSymbol::NewImplicitSelf() {
  return new ParameterSymbol("self", IRDataType(kUnresolvedType),
                             kImplicitSelf);
}

GlobalSymbol* ParameterSymbol::Clone(SourceUnitDependencyLink* link) const {
  return new ParameterSymbol(*this, link);
}

void ParameterSymbol::SetDefaultValue(ParameterDefaultValue const& value) {
  if (mMode == kRequired) mMode = kOptional;
  mDefaultValue = value;
}

ParameterDefaultValue ParameterSymbol::GetDefaultValue() const {
  if (mMode != kRequired) return mDefaultValue;
  ParameterDefaultValue zero;
  zero.type = mType;
  return zero;
}

namespace {

char const* RolePrefix(ParameterSymbol::Role role) {
  switch (role) {
    case ParameterSymbol::kAssignsParameter:
      return "Assigns ";
    case ParameterSymbol::kExtendsParameter:
      return "Extends ";
    case ParameterSymbol::kParamArrayParameter:
      return "ParamArray ";
    case ParameterSymbol::kImplicitSelf:
      QFAIL("prototype of an implicit self parameter");
    default:
      return "";
  }
}

}  // namespace

// A default that has no literal spelling is written as "Optional" in
// front, which reads back as a default-less optional parameter.
string ParameterSymbol::MakePrototype(GlobalSymbol* container) const {
  QASSERT_TEXT(container, "container");
  QASSERT_TEXT(container->IsA(Symbol::kMethod),
               "container->IsA( Symbol::kMethod )");
  string text = RolePrefix(mRole);
  if (mType.GetMainType() == kReferenceType) text += "ByRef ";
  text += Name() + ArraySuffix(mType) + " As " + ElementTypeText(mType);
  if (mMode == kRequired) return text;
  string value = mDefaultValue.value.ToString(mDefaultValue.type);
  if (value.Length()) return text + " = " + value;
  return string("Optional ") + text;
}

// ---------------------------------------------------------- properties

PropertySymbol::PropertySymbol(string const& name, IRDataType const& type)
    : MemberSymbol(name), mCustomAccessors(false), mStorageOffset(0),
      mPropertyIndex(-1), mShared(false), mType(type), mGetter(nullptr),
      mSetter(nullptr) {}

PropertySymbol::PropertySymbol(PropertySymbol const& original,
                               SourceUnitDependencyLink* link)
    : MemberSymbol(original, link),
      mCustomAccessors(original.mCustomAccessors),
      mStorageOffset(original.mStorageOffset),
      mPropertyIndex(original.mPropertyIndex), mLinkName(original.mLinkName),
      mShared(original.mShared), mType(original.mType), mGetter(nullptr),
      mSetter(nullptr) {
  QASSERT_TEXT(not mType.Declaration(), "not mType.Declaration()");
}

GlobalSymbol* PropertySymbol::Clone(SourceUnitDependencyLink* link) const {
  return new PropertySymbol(*this, link);
}

string PropertySymbol::MakePrototype(GlobalSymbol* container) const {
  string text = ScopePrototype(container, GetScope());
  if (mShared) text += "Shared ";
  if (!mCustomAccessors)
    return text + "Dim " + Name() + ArraySuffix(mType) + " As " +
           ElementTypeText(mType) + "\n";
  if (GetScope() == kPrivate) return text;
  text += "Property " + Name() + " As " + mType.ToString() + "\n";
  if (mGetter) text += "Get\nEnd Get\n";
  if (mSetter) text += "Set\nEnd Set\n";
  return text + "End Property\n";
}

// ------------------------------------------------------ handled events

HandledEvent::HandledEvent(string const& eventName, MethodSymbol* handler)
    : mEventName(eventName), mHandler(handler) {
  QASSERT_TEXT(handler, "handler");
}
