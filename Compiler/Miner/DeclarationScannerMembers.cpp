// The scanner's members: method headers and bodies, parameters and their
// defaults, properties with their accessors, events, external methods and
// constants.
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Miner/DeclarationParser.h"
#include "Compiler/Miner/DeclarationScanner.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/NameMangler.h"

namespace {

// The state of the parameter being read, cleared at each comma.
struct PendingParameter {
  ParameterSymbol* param = nullptr;
  unsigned dimensions = 0;
  bool byRef = false;
  bool optional = false;
  ParameterSymbol::Role role = ParameterSymbol::kNormalParameter;
};

IRValue Int32Value(long long value) { return IRValue::SInt32(long(value)); }

// Wraps instead of overflowing for the most negative literal.
long long Negated(long long value) {
  return (long long)(0ull - (unsigned long long)value);
}

}  // namespace

// ------------------------------------------------------------ methods

MethodSymbol* DeclarationScanner::ParseMethodDeclaration(bool isFunction,
                                                         TypeSymbol* owner,
                                                         bool shared) {
  MethodSymbol* method = new MethodSymbol(ParseMethodName());
  ReadInLine();
  if (IsIdentifierNamed("Alias")) {
    ReadInLine();
    if (mToken == kTokString) {
      method->SetFixedLinkName(yylval->GetValue().mString);
      ReadInLine();
    }
  }
  if (owner && !shared) method->AddParameter(ParameterSymbol::NewImplicitSelf());
  if (mToken == '(') {
    ParseParameterList(method);
    ReadInLine();
  }
  method->SetReturnType(ParseReturnType());
  if (owner && owner->IsA(Symbol::kClass) && mToken == kTokHandles)
    ParseEventHandler(method, static_cast<ClassSymbol*>(owner));
  return method;
}

MethodSymbol* DeclarationScanner::ParseSubDeclaration(TypeSymbol* owner,
                                                      bool shared) {
  MethodSymbol* method = ParseMethodDeclaration(false, owner, shared);
  ParseMethodBody(kTokSub);
  return method;
}

MethodSymbol* DeclarationScanner::ParseFunctionDeclaration(TypeSymbol* owner,
                                                           bool shared) {
  MethodSymbol* method = ParseMethodDeclaration(true, owner, shared);
  ParseMethodBody(kTokFunction);
  return method;
}

// Only "End" matters in a body, so End If, End Try and the like need no
// understanding. The own ender is tested first: End Sub is no bad end in a
// Sub. A body the text ends in is reported at its header, the line to fix.
void DeclarationScanner::ParseMethodBody(int endToken) {
  unsigned int header = current_line();
  string unclosed(endToken == kTokSub ? "no End Sub before the end of the text"
                                      : "no End Function before the end of the text");
  for (;;) {
    {
      // Only the word after End is read with its value.
      SkimmedTokens skimmed;
      Read();
    }
    if (mToken == kTokEndOfText) {
      FlagError(unclosed, header);
      return;
    }
    if (mToken != kTokEnd) continue;
    Read();
    if (mToken == endToken) return;
    switch (mToken) {
      case kTokSub:
      case kTokFunction:
      case kTokClass:
      case kTokInterface:
      case kTokModule:
        FlagError("bad scope end in method body");
        return;
      case kTokEndOfText:
        FlagError(unclosed, header);
        return;
      default:
        break;
    }
  }
}

void DeclarationScanner::ParseEventHandler(MethodSymbol* method,
                                           ClassSymbol* owner) {
  ReadInLine();
  string name;
  if (mToken == kTokEvent)
    name = method->Name();
  else if (IsIdentifier())
    name = TokenText();
  else
    return;
  owner->AddHandledEvent(new HandledEvent(name, method));
  method->SetHandles(name);
}

// ---------------------------------------------------------- parameters

// Called with "(" in hand; ends with ")" or the line end in hand. Flags
// may stand in any order; a parameter without As has no type.
void DeclarationScanner::ParseParameterList(MethodSymbol* it) {
  PendingParameter p;
  ReadInLine();
  for (;;) {
    switch (mToken) {
      case kTokByRef:
      case kTokByVal:
        p.byRef = mToken == kTokByRef;
        break;
      case kTokOptional:
        p.optional = true;
        break;
      case kTokExtends:
        p.role = ParameterSymbol::kExtendsParameter;
        break;
      case kTokAssigns:
        p.role = ParameterSymbol::kAssignsParameter;
        break;
      case kTokParamArray:
        p.role = ParameterSymbol::kParamArrayParameter;
        break;
      case kTokIdent:
      case kTokSelf:
      case kTokMe:
        delete p.param;
        p.param = new ParameterSymbol(mToken == kTokIdent ? TokenText()
                                      : mToken == kTokSelf ? string("Self")
                                                           : string("Me"));
        if (p.optional) p.param->SetMode(ParameterSymbol::kOptional);
        break;
      case '(':
        p.dimensions = CountDimensions();
        if (mToken != ')') continue;
        break;
      case '=':
      case kTokAssign:
        if (!p.param) break;
        if (ParseParameterDefaultValue(p.param)) break;
        SkipDefaultExpression();
        continue;
      case kTokAs: {
        if (!p.param) p.param = new ParameterSymbol("");
        p.param->SetRole(p.role);
        IRDataType type = ParseDataType();
        if (p.role == ParameterSymbol::kParamArrayParameter) p.dimensions = 1;
        if (p.dimensions) type = type.AsArray(p.dimensions);
        if (p.byRef) type = type.AsReference();
        p.param->SetType(type);
        ParameterDefaultValue& value = p.param->DefaultValueSlot();
        if (p.param->GetMode() != ParameterSymbol::kRequired &&
            value.type.GetMainType() == kNoType)
          value.type = type;
        continue;
      }
      case ',':
        if (!p.param) break;
        it->AddParameter(p.param);
        p = PendingParameter();
        break;
      case ')':
      case kTokEOL:
      case kTokEndOfText:
        if (p.param) it->AddParameter(p.param);
        return;
      default:
        break;
    }
    ReadInLine();
  }
}

// Passes over a default that is no literal, up to the "," or ")" that
// ends it, which stays in hand.
void DeclarationScanner::SkipDefaultExpression() {
  int depth = 0;
  for (; !AtLineEnd(); ReadInLine()) {
    if (mToken == '(') depth++;
    if (mToken == ',' && depth == 0) return;
    if (mToken == ')' && depth-- == 0) return;
  }
}

// Reads the value after "="; a literal is consumed, anything else is left
// in hand (the answer is false) and makes the parameter optional without a
// value: the grammar pass reads the real expression.
bool DeclarationScanner::ParseParameterDefaultValue(ParameterSymbol* param) {
  ReadInLine();
  ParameterDefaultValue value;
  bool negate = false;
  if (mToken == '-') {
    negate = true;
    ReadInLine();
    if (mToken != kTokInteger && mToken != kTokFloat) {
      param->SetMode(ParameterSymbol::kOptional);
      return false;
    }
  }
  switch (mToken) {
    case kTokNil:
      value.type = IRDataType(kNilType);
      break;
    case kTokTrue:
    case kTokFalse:
      value.value = Int32Value(mToken == kTokTrue ? 1 : 0);
      value.type = IRDataType(kBooleanType);
      break;
    case kTokString:
      value.value = IRValue::String(yylval->GetValue().mString);
      value.type = IRDataType(kStringType);
      break;
    case kTokInteger: {
      long long number = IntegerLiteralValue();
      value.value = Int32Value(negate ? Negated(number) : number);
      value.type = IRDataType(kSInt32Type);
      break;
    }
    case kTokFloat: {
      double number = yylval->GetValue().uReal64;
      value.value = IRValue::Real64(negate ? -number : number);
      value.type = IRDataType(kReal64Type);
      break;
    }
    case kTokColor:
      value.value = Int32Value(yylval->GetValue().uSInt32);
      value.type = IRDataType(kColorType);
      break;
    case ',':
    case ')':
      // "As String=" with nothing after it: the type's empty value. The
      // separator stays in hand.
      param->SetMode(ParameterSymbol::kOptional);
      value.type = param->GetType();
      param->SetDefaultValue(value);
      return false;
    default:
      param->SetMode(ParameterSymbol::kOptional);
      return false;
  }
  param->SetDefaultValue(value);
  if (param->Name() == "__Selector") param->SetMode(ParameterSymbol::kHidden);
  return true;
}

// --------------------------------------------------------- properties

// The name is in hand: "name[(,)] [As type]". The dimensions counted are
// also given back, for a name whose type comes from a later "As".
PropertySymbol* DeclarationScanner::ParsePropertyDeclaration(
    unsigned* dimensionsOut) {
  PropertySymbol* property = new PropertySymbol(TokenText());
  ReadInLine();
  unsigned dimensions = 0;
  if (mToken == '(') {
    dimensions = CountDimensions();
    if (mToken == ')') ReadInLine();
  }
  if (dimensionsOut) *dimensionsOut = dimensions;
  if (mToken != kTokAs) return property;
  IRDataType type = ParseDataType();
  property->SetType(dimensions ? type.AsArray(dimensions) : type);
  return property;
}

PropertySymbol* DeclarationScanner::ParsePropertyBlockDeclaration(
    ClassSymbol* ownerClass, ModuleSymbol* ownerModule, bool shared) {
  QASSERT_TEXT(ownerClass or ownerModule, "ownerClass or ownerModule");
  PropertySymbol* property = new PropertySymbol(ParseDeclarationName());
  property->SetShared(shared);
  property->SetCustomAccessors(true);
  ReadInLine();
  if (mToken == kTokAs) property->SetType(ParseDataType());
  for (;;) {
    if (mToken == kTokEndOfText) break;
    if (IsIdentifierNamed("Get")) {
      property->SetGetter(
          ParseGetterDeclaration(property, ownerClass, ownerModule));
    } else if (IsIdentifierNamed("Set")) {
      property->SetSetter(
          ParseSetterDeclaration(property, ownerClass, ownerModule));
    } else if (mToken == kTokEnd) {
      Read();
      if (mToken == kTokProperty) break;
      if (mToken == kTokClass || mToken == kTokInterface ||
          mToken == kTokModule || mToken == kTokSub || mToken == kTokFunction) {
        FlagError("bad block ender in computed property");
        break;
      }
      continue;
    }
    Read();
  }
  return property;
}

// An accessor of a computed property: a private member of the owner named
// "property.Get" or "property.Set"; an instance property's accessors take
// self and the hidden selector.
MethodSymbol* DeclarationScanner::NewAccessor(char const* suffix,
                                              PropertySymbol* property,
                                              ClassSymbol* ownerClass,
                                              ModuleSymbol* ownerModule) {
  MethodSymbol* method =
      new MethodSymbol(QualifyName(property->Name(), suffix));
  if (ownerClass && !property->IsShared()) {
    method->AddParameter(ParameterSymbol::NewImplicitSelf());
    method->AddParameter(
        new ParameterSymbol("__Selector", IRDataType(kSInt32Type)));
  }
  method->SetScope(MemberSymbol::kPrivate);
  method->SetDispatchMethod(MethodSymbol::Normal);
  return method;
}

MethodSymbol* DeclarationScanner::ParseGetterDeclaration(
    PropertySymbol* property, ClassSymbol* ownerClass,
    ModuleSymbol* ownerModule) {
  MethodSymbol* getter =
      NewAccessor("Get", property, ownerClass, ownerModule);
  getter->SetReturnType(property->GetType());
  if (ownerClass)
    ownerClass->AddMethod(getter);
  else
    ownerModule->AddMethod(getter);
  ParseMethodBody(kTokIdent);
  return getter;
}

MethodSymbol* DeclarationScanner::ParseSetterDeclaration(
    PropertySymbol* property, ClassSymbol* ownerClass,
    ModuleSymbol* ownerModule) {
  MethodSymbol* setter =
      NewAccessor("Set", property, ownerClass, ownerModule);
  setter->AddParameter(new ParameterSymbol("value", property->GetType()));
  if (ownerClass)
    ownerClass->AddMethod(setter);
  else
    ownerModule->AddMethod(setter);
  ParseMethodBody(kTokIdent);
  return setter;
}

// ------------------------------------------------- events and externals

MethodSymbol* DeclarationScanner::ParseEventDeclaration(ClassSymbol* owner) {
  MethodSymbol* event = new MethodSymbol(ParseDeclarationName());
  event->AddParameter(ParameterSymbol::NewImplicitSelf());
  event->SetDispatchMethod(MethodSymbol::Event);
  ReadInLine();
  if (mToken == '(') {
    ParseParameterList(event);
    ReadInLine();
  }
  event->SetReturnType(ParseReturnType());
  return event;
}

namespace {

// The selector goes behind the receiver: second, or third for an alias
// that begins with "#".
void AddSelectorParameter(MethodSymbol* method, string const& alias) {
  ParameterSymbol* selector =
      new ParameterSymbol("_sel", IRDataType(kPtrType));
  selector->SetMode(ParameterSymbol::kOptional);
  unsigned position = (alias.Length() && alias[0] == '#') ? 2 : 1;
  if (position - 1 < method->CountParameters())
    method->InsertParameter(position, selector);
  else
    method->AddParameter(selector);
}

}  // namespace

// After "Declare": Sub|Function name [Lib "lib"] [Alias|Selector "name"]
// [(params)] [As type]. Anything but Sub or Function gives an unnamed
// method and leaves the line.
MethodSymbol* DeclarationScanner::ParseExternalDeclaration(
    bool soft, ClassSymbol* owner) {
  ReadInLine();
  if (mToken != kTokSub && mToken != kTokFunction) return new MethodSymbol("");
  bool isFunction = mToken == kTokFunction;
  MethodSymbol* method = new MethodSymbol(ParseMethodName());
  method->SetExternal(true);
  string alias = method->Name();
  if (soft) method->SetDispatchMethod(MethodSymbol::WeakLinked);
  if (owner) method->AddParameter(ParameterSymbol::NewImplicitSelf());
  ReadInLine();
  if (mToken == kTokLib) {
    ReadInLine();
    if (mToken == kTokString) {
      method->SetSourceLibrary(yylval->GetValue().mString);
      ReadInLine();
    } else if (mToken == kTokIdent && !IsIdentifierNamed("Alias") &&
               !IsIdentifierNamed("Selector")) {
      // A constant's name: the grammar pass gives the library its value.
      ReadInLine();
    }
  }
  bool selector = IsIdentifierNamed("Selector");
  if (selector || IsIdentifierNamed("Alias")) {
    if (selector) method->SetDispatchMethod(MethodSymbol::ObjCMessage);
    ReadInLine();
    if (mToken == kTokString) {
      string literal = yylval->GetValue().mString;
      if (literal.Length()) alias = literal;
      ReadInLine();
    }
  }
  if (mToken == '(') {
    ParseParameterList(method);
    ReadInLine();
  }
  if (isFunction) method->SetReturnType(ParseReturnType());
  if (method->GetDispatchMethod() == MethodSymbol::ObjCMessage)
    AddSelectorParameter(method, alias);
  if (alias.Length()) method->SetLinkID(alias);
  return method;
}

// ----------------------------------------------------------- constants

ConstantSymbol* DeclarationScanner::ParseConstantDeclaration() {
  ConstantSymbol* constant = new ConstantSymbol(ParseDeclarationName());
  ReadInLine();
  if (mToken == kTokAs) ParseDataType();
  if (IsEquals()) ParseConstantValue(constant);
  return constant;
}

// After "=": [- | Not] literal. Anything else leaves value and type empty.
bool DeclarationScanner::ParseConstantValue(ConstantSymbol* it) {
  ReadInLine();
  bool negate = mToken == '-';
  bool invert = mToken == kTokNot;
  if (negate || invert) ReadInLine();
  switch (mToken) {
    case kTokInteger: {
      long long number = IntegerLiteralValue();
      if (negate) number = Negated(number);
      if (yylval->GetType().StorageSize() == 8) {
        it->SetType(IRDataType(kSInt64Type));
        it->SetValue(IRValue::SInt64(number));
      } else {
        it->SetType(IRDataType(kSInt32Type));
        it->SetValue(Int32Value(number));
      }
      return true;
    }
    case kTokFloat: {
      double number = yylval->GetValue().uReal64;
      it->SetType(IRDataType(kReal64Type));
      it->SetValue(IRValue::Real64(negate ? -number : number));
      return true;
    }
    case kTokTrue:
    case kTokFalse:
      it->SetType(IRDataType(kBooleanType));
      it->SetValue(Int32Value((mToken == kTokTrue) != invert ? 1 : 0));
      return true;
    case kTokNil:
      it->SetType(IRDataType(kNilType));
      return true;
    case kTokColor:
      it->SetType(IRDataType(kColorType));
      it->SetValue(Int32Value(yylval->GetValue().uSInt32));
      return true;
    case kTokString:
      it->SetType(IRDataType(kStringType));
      it->SetValue(IRValue::String(yylval->GetValue().mString));
      return true;
    default:
      return false;
  }
}
