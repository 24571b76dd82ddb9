// Methods: their parameters, their kind as read off the parameters' roles,
// and their source text.
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/SymbolTextHelpers.h"

MethodSymbol::MethodSymbol(string const& name, IRDataType const& returnType)
    : MemberSymbol(name), mReturnType(returnType), mDispatchMethod(Normal),
      mDispatchID(0), mExternal(false) {}

MethodSymbol::MethodSymbol(MethodSymbol const& original,
                           SourceUnitDependencyLink* link)
    : MemberSymbol(original, link), mFixedLinkName(original.mFixedLinkName),
      mHandles(original.mHandles), mReturnType(original.mReturnType),
      mDispatchMethod(original.mDispatchMethod),
      mDispatchID(original.mDispatchID),
      mSourceLibrary(original.mSourceLibrary), mExternal(original.mExternal),
      mLinkID(original.mLinkID) {
  QASSERT_TEXT(not mReturnType.Declaration(), "not mReturnType.Declaration()");
  for (unsigned long i = 0; i < original.mParameters.size(); i++)
    AddParameter(static_cast<ParameterSymbol*>(
        original.mParameters[i]->Clone(link)));
}

MethodSymbol::~MethodSymbol() {
  for (unsigned long i = 0; i < mParameters.size(); i++)
    delete mParameters[i];
}

GlobalSymbol* MethodSymbol::Clone(SourceUnitDependencyLink* link) const {
  return new MethodSymbol(*this, link);
}

void MethodSymbol::AddParameter(ParameterSymbol* it) {
  QASSERT_TEXT(it, "it");
  mParameters.push_back(it);
}

void MethodSymbol::InsertParameter(unsigned int index, ParameterSymbol* it) {
  QASSERT_TEXT(it, "it");
  mParameters.insert(it, index);
}

bool MethodSymbol::External() const {
  return mExternal || mSourceLibrary.Length() != 0;
}

void MethodSymbol::SetExternal(bool state) {
  mExternal = state;
  QASSERT_TEXT(state == External(), "state == External()");
}

namespace {
unsigned long sLinkIDChanges = 0;  // compiles run one at a time
}  // namespace

void MethodSymbol::SetLinkID(string const& itsID) {
  QASSERT_TEXT(itsID.Length(), "itsID.Length()");
  mLinkID = itsID;
  sLinkIDChanges++;
}

unsigned long MethodSymbol::LinkIDChanges() { return sLinkIDChanges; }

// ------------------------------------------------------------- kinds

bool MethodSymbol::LastRoleIs(ParameterSymbol::Role role) const {
  unsigned long count = mParameters.size();
  return count && mParameters[count - 1]->GetRole() == role;
}

bool MethodSymbol::IsInstanceMethod() const {
  return mParameters.size() &&
         mParameters[0]->GetRole() == ParameterSymbol::kImplicitSelf;
}

bool MethodSymbol::IsSetterMethod() const {
  return LastRoleIs(ParameterSymbol::kAssignsParameter);
}

bool MethodSymbol::IsExtensionMethod() const {
  return mParameters.size() &&
         mParameters[0]->GetRole() == ParameterSymbol::kExtendsParameter;
}

// A param array may be followed by the Assigns parameter of a setter.
bool MethodSymbol::IsParamArrayMethod() const {
  unsigned long count = mParameters.size();
  if (LastRoleIs(ParameterSymbol::kParamArrayParameter)) return true;
  return count >= 2 && mParameters[count - 2]->GetRole() ==
                           ParameterSymbol::kParamArrayParameter;
}

bool MethodSymbol::MatchesFilter(MethodFilter filter) const {
  bool setter = IsSetterMethod();
  bool extension = IsExtensionMethod();
  switch (filter) {
    case kPlainMethods:
      return !setter && !extension;
    case kExtensionMethods:
      return extension && !setter;
    case kSetterMethods:
      return setter && !extension;
    case kExtensionSetterMethods:
      return setter && extension;
    default:
      return true;
  }
}

// ------------------------------------------------------------ source text

// What stands before the name: the scope, Shared, Declare and the keyword.
// Empty for a private method, unless it is an instance method of a class.
string MethodSymbol::HeaderPrototype(GlobalSymbol* container) const {
  if (mDispatchMethod == Event) {
    QASSERT_TEXT(container->IsA(kClass), "container->IsA( Symbol::kClass )");
    QASSERT_TEXT(!External(), "not External()");
    return "Event ";
  }
  bool inClass = container->IsA(kClass);
  string text;
  if (!container->IsA(kInterface)) text = ScopePrototype(container, GetScope());
  if (inClass && !IsInstanceMethod()) text += "Shared ";
  if (External()) text += "Declare ";
  bool isFunction = mReturnType.GetMainType() != kNoType;
  return text + (isFunction ? "Function " : "Sub ");
}

string MethodSymbol::MakePrototype(GlobalSymbol* container) const {
  QASSERT_TEXT(container, "container");
  bool inClass = container->IsA(kClass);
  if (GetScope() == kPrivate && mDispatchMethod != Event &&
      !(inClass && IsInstanceMethod()))
    return string();
  string text = HeaderPrototype(container) + Name();
  if (External()) {
    text += string(" Lib \"") + mSourceLibrary + "\" ";
    if (mLinkID.Length() && mLinkID.CompareWithCase(Name()) != 0)
      text += string("Alias \"") + mLinkID + "\" ";
  }
  text += "(";
  bool first = true;
  MethodSymbol* self = const_cast<MethodSymbol*>(this);
  for (unsigned long i = 0; i < mParameters.size(); i++) {
    if (mParameters[i]->GetRole() == ParameterSymbol::kImplicitSelf) continue;
    if (!first) text += ", ";
    text += mParameters[i]->MakePrototype(self);
    first = false;
  }
  text += string(")") + AsClause(mReturnType);
  if (mHandles.Length()) text += string(" Handles ") + mHandles;
  text += "\n";
  if (External() || container->IsA(kInterface) || mDispatchMethod == Event)
    return text;
  bool isFunction = mReturnType.GetMainType() != kNoType;
  return text + (isFunction ? "End Function\n" : "End Sub\n");
}
