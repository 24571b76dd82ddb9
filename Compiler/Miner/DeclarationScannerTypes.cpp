// The scanner's types: type names, return types and array ranks, and the
// blocks of structures, enums and delegates.
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Miner/DeclarationParser.h"
#include "Compiler/Miner/DeclarationScanner.h"
#include "Compiler/SemBase.h"

namespace {

// The most dimensions a type value can hold.
enum { kMaxDimensions = 255 };

long long Negated(long long value) {
  return (long long)(0ull - (unsigned long long)value);
}

// What an enum may count in. Types that need a declaration of their own,
// and the null type, fall back to the default, so that the enum's values
// stay well-formed; the grammar pass judges the declaration.
SimpleDataType EnumElementType(IRDataType const& written) {
  switch (written.GetMainType()) {
    case kNoType:
    case kObjectType:
    case kStructureType:
    case kReferenceType:
    case kArrayType:
      return kSInt32Type;
    default:
      return written.GetMainType();
  }
}

}  // namespace

long long IntegerLiteralValue() {
  IRDataType type = yylval->GetType();
  IRValue const& value = yylval->GetValue();
  if (type.StorageSize() == 8) return value.uSInt64;
  if (type.GetMainType() == kUInt32Type)
    return (long long)(unsigned long)value.uSInt32;
  return value.uSInt32;
}

// ------------------------------------------------------------ type names

// Reads the type word and leaves the token after the type in hand; a word
// that is no type stays in hand and gives the null type. A dotted name is
// an unresolved type whose name keeps the dots.
IRDataType DeclarationScanner::ParseDataType() {
  ReadInLine();
  // "As New T" declares a T.
  if (mToken == kTokNew) ReadInLine();
  IRDataType type;
  string text;
  if (mToken == kTokObject) {
    type = IRDataType(kObjectType);
    text = "Object";
  } else if (mToken == kTokClass) {
    type = IRDataType(kClassType);
    text = "Class";
  } else if (IsIdentifier()) {
    text = TokenText();
    type = IRDataType::Lookup(text);
  } else {
    return type;
  }
  ReadInLine();
  while (mToken == '.') {
    ReadInLine();
    if (!IsIdentifier()) break;
    text = text + "." + TokenText();
    type = IRDataType::Lookup(text);
    ReadInLine();
  }
  return type;
}

// With "(" in hand: one dimension, and one more per comma, up to ")" or
// the line end, which stays in hand.
unsigned DeclarationScanner::CountDimensions() {
  unsigned dimensions = 1;
  for (ReadInLine(); !AtLineEnd() && mToken != ')'; ReadInLine())
    if (mToken == ',' && dimensions < kMaxDimensions) dimensions++;
  return dimensions;
}

IRDataType DeclarationScanner::ParseReturnType() {
  if (mToken != kTokAs) return IRDataType();
  IRDataType type = ParseDataType();
  if (mToken != '(') return type;
  unsigned dimensions = CountDimensions();
  if (mToken != ')') return type;
  ReadInLine();
  return type.AsArray(dimensions);
}

// ------------------------------------------------------------ structures

StructureSymbol* DeclarationScanner::ParseStructureDeclaration() {
  StructureSymbol* it = new StructureSymbol(ParseDeclarationName());
  for (SkipLine(), Read(); mToken != kTokEndOfText; SkipLine(), Read()) {
    if (IsIdentifier()) {
      CreateStructureFieldDeclaration(it);
    } else if (mToken == kTokEnd) {
      Read();
      if (mToken == kTokStructure) break;
    }
  }
  return it;
}

void DeclarationScanner::CreateStructureFieldDeclaration(StructureSymbol* it) {
  StructureFieldSymbol* field = new StructureFieldSymbol(TokenText());
  bool isArray = false;
  long ubound = -1;
  IRDataType type;
  unsigned long length = 0;
  ParseStructureField(isArray, ubound, type, length);
  field->SetType(isArray ? type.AsArray(1) : type);
  field->mArrayUbound = ubound;
  field->mStringLength = length;
  it->AddField(field);
}

// "[(ubound)] [As type] [* length]". A bound that is no 32-bit literal
// counts as none; the grammar pass judges it.
void DeclarationScanner::ParseStructureField(bool& isArray, long& ubound,
                                             IRDataType& type,
                                             unsigned long& length) {
  ReadInLine();
  ubound = -1;
  if (mToken == '(') {
    isArray = true;
    ReadInLine();
    bool negate = mToken == '-';
    if (negate) ReadInLine();
    if (mToken == kTokInteger && yylval->GetType().StorageSize() == 4) {
      long long value = IntegerLiteralValue();
      ubound = long(negate ? Negated(value) : value);
      ReadInLine();
    }
    if (mToken == ')') ReadInLine();
  }
  type = mToken == kTokAs ? ParseDataType() : IRDataType();
  length = 0;
  if (mToken != '*') return;
  ReadInLine();
  if (mToken != kTokInteger) return;
  length = (unsigned long)IntegerLiteralValue();
  ReadInLine();
}

// ----------------------------------------------------------------- enums

EnumSymbol* DeclarationScanner::ParseEnumDeclaration() {
  EnumSymbol* it = new EnumSymbol(ParseDeclarationName());
  ReadInLine();
  if (mToken == kTokAs) it->SetElementType(EnumElementType(ParseDataType()));
  for (SkipLine(), Read(); mToken != kTokEndOfText; SkipLine(), Read()) {
    if (IsIdentifier()) {
      ConstantSymbol* value = ParseEnumValue(it);
      value->SetScope(MemberSymbol::kPublic);
      it->AddConstant(value);
    } else if (mToken == kTokEnd) {
      Read();
      if (mToken == kTokEnum) break;
    }
  }
  return it;
}

// "name [= [-]integer]"; without a literal the value follows the one
// before. Only integer enums have values here.
ConstantSymbol* DeclarationScanner::ParseEnumValue(EnumSymbol* enumDecl) {
  IRDataType element(enumDecl->GetElementType());
  ConstantSymbol* constant = new ConstantSymbol(TokenText());
  constant->SetType(element);
  if (!element.IsInteger()) return constant;
  IRValue value = enumDecl->NextDefaultElementValue();
  ReadInLine();
  if (IsEquals()) {
    ReadInLine();
    bool negate = mToken == '-';
    if (negate) ReadInLine();
    if (mToken == kTokInteger) {
      long long number = IntegerLiteralValue();
      if (negate) number = Negated(number);
      if (element.StorageSize() == 8)
        value = IRValue::SInt64(number);
      else
        value = IRValue::SInt32(long(number));
    }
  }
  constant->SetValue(value);
  return constant;
}

// ------------------------------------------------------------- delegates

DelegateSymbol* DeclarationScanner::ParseDelegateDeclaration() {
  ReadInLine();
  DelegateSymbol* it = new DelegateSymbol(ParseDeclarationName());
  MethodSymbol* invoker = it->Invoker();
  ReadInLine();
  if (mToken == '(') {
    ParseParameterList(invoker);
    ReadInLine();
  }
  invoker->SetReturnType(ParseReturnType());
  return it;
}
