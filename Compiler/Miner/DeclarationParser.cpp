// Entry points of the declaration scanner, its error report, its token
// primitives, and the block loops of units, modules, classes and
// interfaces.
#include "Compiler/Miner/DeclarationParser.h"

#include "Compiler/CompilerDelegate.h"
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Miner/DeclarationScanner.h"
#include "Compiler/SemBase.h"
#include "Universal/ByteHelpers.h"

namespace {

// Who hears of the scanner's errors during ParseDeclarations; null
// otherwise. Set and cleared by ParseDeclarations.
CompilerDelegate* sDelegate = nullptr;
// Set by FlagError; cleared at the start of each scan.
bool sSyntaxError = false;

// The scanner runs the process-wide lexer over its own text. The parser's
// position is put back afterwards, so that a scan may happen at any time.
class LexerSwap {
 public:
  explicit LexerSwap(string const& text)
      : mText(text.GetUTF8String()), mSaved(sState), mSavedValue(yylval),
        mSavedNull(kNullSemBase) {
    InitLexer(mText.CString());
  }
  ~LexerSwap() {
    sState = mSaved;
    yylval = mSavedValue;
    kNullSemBase = mSavedNull;
  }

 private:
  string mText;
  LexerState mSaved;
  SemBase* mSavedValue;
  SemBase* mSavedNull;
};

}  // namespace

void FlagError(string message) { FlagError(message, current_line()); }

void FlagError(string message, unsigned int line) {
  sSyntaxError = true;
  if (!sDelegate) return;
  SimpleVector<string> arguments;
  arguments.push_back(message);
  sDelegate->CompilerError(
      CompileError(kErrorSyntax, SourceLocation(line), arguments));
}

void FlagNestingTooDeep() {
  sSyntaxError = true;
  if (!sDelegate) return;
  SimpleVector<string> arguments;
  arguments.push_back(ultoa(kDeepestDeclarationNesting));
  sDelegate->CompilerError(CompileError(
      kErrorNestingTooDeep, SourceLocation(current_line()), arguments));
}

// The tokens' semantic values die with the scan: the declarations keep
// copies of what they need, so a big source's tokens do not stay for the
// whole compilation.
UnitSymbolTable* ParseDeclarations(string unitName, string source,
                                   CompilerDelegate* delegate) {
  UnitSymbolTable* unit = new UnitSymbolTable(unitName);
  unsigned long valuesBefore = SemBase::LiveCount();
  // The words of a scan whose compilation never came are let go; this
  // scan's stay for the compilation that follows it.
  ForgetLexerWords();
  {
    LexerSwap lexer(source);
    sDelegate = delegate;
    sSyntaxError = false;
    DeclarationScanner scanner;
    scanner.ParseTopLevelDeclarations(unit);
    sDelegate = nullptr;
  }
  SemBase::ReleaseNewerThan(valuesBefore);
  if (!sSyntaxError) return unit;
  delete unit;
  return nullptr;
}

MethodSymbol* ExtractMethodDeclaration(string text, TypeSymbol* owner) {
  LexerSwap lexer(text);
  DeclarationScanner scanner;
  scanner.Start();
  MemberFlags flags;
  while (scanner.ParseScopeWord(flags, false)) scanner.Start();
  bool isFunction = scanner.Token() == kTokFunction;
  if (!isFunction && scanner.Token() != kTokSub) return nullptr;
  MethodSymbol* method =
      scanner.ParseMethodDeclaration(isFunction, owner, flags.shared);
  method->SetScope(flags.scope);
  return method;
}

PropertySymbol* ExtractPropertyDeclaration(string text) {
  LexerSwap lexer(text);
  DeclarationScanner scanner;
  scanner.Start();
  MemberFlags flags;
  while (scanner.ParseScopeWord(flags, false)) scanner.Start();
  if (scanner.Token() == kTokDim) scanner.Start();
  if (scanner.Token() != kTokIdent) return nullptr;
  PropertySymbol* property = scanner.ParsePropertyDeclaration();
  property->SetScope(flags.scope);
  property->SetShared(flags.shared);
  return property;
}

// ------------------------------------------------------------ tokens

DeclarationScanner::DeclarationScanner()
    : mToken(0), mBlockDepth(0), mTooDeep(false),
      mValuesMark(SemBase::LiveCount()) {}

// Only the token in hand is ever read, and what a declaration keeps of it
// is copied: the values of the tokens before it go, so that scanning a
// big source holds one token's value, not all of them.
int DeclarationScanner::Read() {
  SemBase::ReleaseNewerThan(mValuesMark);
  return mToken = GetToken();
}

void DeclarationScanner::ReadInLine() {
  if (!AtLineEnd()) Read();
}

bool DeclarationScanner::AtLineEnd() const {
  return mToken == kTokEOL || mToken == kTokEndOfText;
}

void DeclarationScanner::SkipLine() {
  while (!AtLineEnd()) Read();
}

bool DeclarationScanner::IsIdentifier() const { return mToken == kTokIdent; }

bool DeclarationScanner::IsIdentifierNamed(char const* name) const {
  return IsIdentifier() && TokenText() == name;
}

bool DeclarationScanner::IsEquals() const {
  return mToken == '=' || mToken == kTokAssign;
}

string DeclarationScanner::TokenText() const { return yylval->toString(); }

string DeclarationScanner::ParseDeclarationName() {
  ReadInLine();
  if (IsIdentifier()) return TokenText();
  FlagError("invalid declaration name");
  return string();
}

// The grammar lets a method be called "Property".
string DeclarationScanner::ParseMethodName() {
  ReadInLine();
  if (mToken == kTokProperty) return "Property";
  if (IsIdentifier()) return TokenText();
  FlagError("invalid declaration name");
  return string();
}

// -------------------------------------------------------------- blocks

bool DeclarationScanner::ParseScopeWord(MemberFlags& flags, bool moduleWords) {
  switch (mToken) {
    case kTokGlobal:
      if (!moduleWords) return false;
      flags.scope = MemberSymbol::kPublic;
      return true;
    case kTokPublic:
      flags.scope = MemberSymbol::kPublic;
      return true;
    case kTokProtected:
      flags.scope = MemberSymbol::kProtected;
      return true;
    case kTokPrivate:
      flags.scope = MemberSymbol::kPrivate;
      return true;
    case kTokShared:
      flags.shared = true;
      return true;
    case kTokSoft:
      flags.soft = true;
      return true;
    default:
      return false;
  }
}

// With "End" in hand: reads the word after it. The block's own word ends
// it; one of `badEnders` (zero-terminated) ends it with `message`; any
// other word leaves the block open.
bool DeclarationScanner::BlockEnds(int blockToken, int const* badEnders,
                                   char const* message) {
  Read();
  if (mToken == blockToken) return true;
  for (; *badEnders; badEnders++) {
    if (mToken != *badEnders) continue;
    FlagError(message);
    return true;
  }
  return false;
}

void DeclarationScanner::ParseTopLevelDeclarations(UnitSymbolTable* unit) {
  for (Read(); mToken != kTokEndOfText; Read()) {
    switch (mToken) {
      case kTokConst:
        unit->AddConstant(ParseConstantDeclaration());
        break;
      case kTokSub:
        unit->AddMethod(ParseSubDeclaration(nullptr, false));
        break;
      case kTokFunction:
        unit->AddMethod(ParseFunctionDeclaration(nullptr, false));
        break;
      case kTokDim:
        ParseTopLevelVariableDeclarations(unit);
        break;
      case kTokClass:
        AddModuleType(unit, ParseClassDeclaration(), MemberFlags());
        break;
      case kTokInterface:
        AddModuleType(unit, ParseInterfaceDeclaration(), MemberFlags());
        break;
      case kTokModule:
        unit->AddModule(ParseModuleDeclaration());
        break;
      default:
        break;
    }
    SkipLine();
  }
}

// "Dim a, b(2) As T, c As U": each name becomes a property of the unit,
// and names without their own "As" take the type of the next one, as the
// statement itself declares them.
void DeclarationScanner::ParseTopLevelVariableDeclarations(
    UnitSymbolTable* unit) {
  SimpleVector<PropertySymbol*> untyped;
  SimpleVector<unsigned> untypedDimensions;
  do {
    ReadInLine();
    if (!IsIdentifier()) return;
    unsigned dimensions = 0;
    PropertySymbol* property = ParsePropertyDeclaration(&dimensions);
    unit->AddProperty(property);
    if (property->GetType().GetMainType() == kNoType &&
        property->GetType().TypeName().IsEmpty()) {
      untyped.push_back(property);
      untypedDimensions.push_back(dimensions);
      continue;
    }
    IRDataType type = property->GetType();
    if (dimensions) type = type.AsElement();
    for (unsigned i = 0; i < untyped.size(); i++)
      untyped[i]->SetType(untypedDimensions[i]
                              ? type.AsArray(untypedDimensions[i])
                              : type);
    untyped.deleteAll();
    untypedDimensions.deleteAll();
    if (mToken == '=') SkipInitialValue();
  } while (mToken == ',');
}

// With "=" in hand: up to the comma that ends the clause (one outside
// parentheses) or the end of the line, so that "Dim a As T = f(1, 2), b As
// U" still declares b.
void DeclarationScanner::SkipInitialValue() {
  int depth = 0;
  for (ReadInLine(); !AtLineEnd(); ReadInLine()) {
    if (mToken == '(') depth++;
    else if (mToken == ')' && depth > 0) depth--;
    else if (mToken == ',' && depth == 0) return;
  }
}

// A later type of a name already declared is dropped here; the grammar
// pass reports it, finding the earlier declaration on another line.
void DeclarationScanner::AddModuleType(ModuleSymbol* module, TypeSymbol* type,
                                       MemberFlags const& flags) {
  type->SetScope(flags.scope);
  if (module->LookupType(type->Name()))
    delete type;
  else
    module->AddType(type);
}

ModuleSymbol* DeclarationScanner::ParseModuleDeclaration() {
  static int const kBadEnders[] = {kTokClass, kTokInterface, kTokSub,
                                   kTokFunction, 0};
  ModuleSymbol* it = new ModuleSymbol(ParseDeclarationName());
  BlockShape const shape = {kTokModule, kBadEnders, "end of input in module",
                            "bad block ender in module", kModuleScopeWords};
  ScanBlockBody(shape, [&](MemberFlags const& flags) { ParseModuleMember(it, flags); });
  return it;
}

void DeclarationScanner::ParseModuleMember(ModuleSymbol* it,
                                           MemberFlags const& flags) {
  switch (mToken) {
    case kTokDim:
      ReadInLine();
      if (!IsIdentifier()) return;
      [[fallthrough]];
    case kTokIdent: {
      PropertySymbol* property = ParsePropertyDeclaration();
      property->SetScope(flags.scope);
      it->AddProperty(property);
      return;
    }
    case kTokProperty: {
      PropertySymbol* property =
          ParsePropertyBlockDeclaration(nullptr, it, false);
      property->SetScope(flags.scope);
      it->AddProperty(property);
      return;
    }
    case kTokConst: {
      ConstantSymbol* constant = ParseConstantDeclaration();
      constant->SetScope(flags.scope);
      it->AddConstant(constant);
      return;
    }
    case kTokDeclare:
    case kTokSub:
    case kTokFunction: {
      MethodSymbol* method =
          mToken == kTokDeclare ? ParseExternalDeclaration(flags.soft, nullptr)
          : mToken == kTokSub   ? ParseSubDeclaration(nullptr, false)
                                : ParseFunctionDeclaration(nullptr, false);
      method->SetScope(flags.scope);
      it->AddMethod(method);
      return;
    }
    case kTokClass:
      return AddModuleType(it, ParseClassDeclaration(), flags);
    case kTokInterface:
      return AddModuleType(it, ParseInterfaceDeclaration(), flags);
    case kTokStructure:
      return AddModuleType(it, ParseStructureDeclaration(), flags);
    case kTokEnum:
      return AddModuleType(it, ParseEnumDeclaration(), flags);
    case kTokDelegate:
      return AddModuleType(it, ParseDelegateDeclaration(), flags);
    case kTokModule: {
      ModuleSymbol* inner = ParseModuleDeclaration();
      inner->SetScope(flags.scope);
      if (it->LookupModule(inner->Name()))
        delete inner;
      else
        it->AddModule(inner);
      return;
    }
    default:
      return;
  }
}

ClassSymbol* DeclarationScanner::ParseClassDeclaration() {
  static int const kBadEnders[] = {kTokInterface, kTokModule, kTokSub,
                                   kTokFunction, 0};
  ClassSymbol* it = new ClassSymbol(ParseDeclarationName());
  BlockShape const shape = {kTokClass, kBadEnders, "end of input in class",
                            "bad block end in class", kClassScopeWords};
  ScanBlockBody(shape, [&](MemberFlags const& flags) { ParseClassMember(it, flags); });
  it->AddMethod(MakeClassLookupFunction());
  return it;
}

void DeclarationScanner::AddClassProperty(ClassSymbol* it,
                                          MemberFlags const& flags) {
  PropertySymbol* property = ParsePropertyDeclaration();
  property->SetShared(flags.shared);
  property->SetScope(flags.scope);
  it->AddProperty(property);
}

// As in a module: a second type of the name is left to the grammar pass.
void DeclarationScanner::AddClassType(ClassSymbol* it, TypeSymbol* type,
                                      MemberFlags const& flags) {
  type->SetScope(flags.scope);
  if (it->LookupOwnType(type->Name()))
    delete type;
  else
    it->AddType(type);
}

// Events are private whatever their scope word says; public and protected
// instance methods dispatch through the vtable.
void DeclarationScanner::ParseClassMember(ClassSymbol* it,
                                          MemberFlags const& flags) {
  switch (mToken) {
    case kTokInherits: {
      IRDataType parent = ParseDataType();
      if (it->GetSuperclassType().GetMainType() == kNoType)
        it->SetSuperclassType(parent);
      return;
    }
    case kTokImplements:
      it->AddImplementedInterface(ParseDataType());
      return;
    case kTokDim:
      ReadInLine();
      if (IsIdentifier()) AddClassProperty(it, flags);
      return;
    case kTokIdent:
      return AddClassProperty(it, flags);
    case kTokProperty: {
      PropertySymbol* property =
          ParsePropertyBlockDeclaration(it, nullptr, flags.shared);
      property->SetScope(flags.scope);
      it->AddProperty(property);
      return;
    }
    case kTokEvent: {
      MethodSymbol* event = ParseEventDeclaration(it);
      event->SetScope(MemberSymbol::kPrivate);
      it->AddEvent(event);
      return;
    }
    case kTokConst: {
      ConstantSymbol* constant = ParseConstantDeclaration();
      constant->SetScope(flags.scope);
      it->AddConstant(constant);
      return;
    }
    case kTokStructure:
      return AddClassType(it, ParseStructureDeclaration(), flags);
    case kTokDeclare: {
      MethodSymbol* method = ParseExternalDeclaration(flags.soft, it);
      method->SetScope(flags.scope);
      it->AddMethod(method);
      return;
    }
    case kTokSub:
    case kTokFunction: {
      MethodSymbol* method = mToken == kTokSub
                                 ? ParseSubDeclaration(it, flags.shared)
                                 : ParseFunctionDeclaration(it, flags.shared);
      method->SetScope(flags.scope);
      it->AddMethod(method);
      if (flags.scope != MemberSymbol::kPrivate && method->IsInstanceMethod())
        method->SetDispatchMethod(MethodSymbol::Virtual);
      return;
    }
    default:
      return;
  }
}

InterfaceSymbol* DeclarationScanner::ParseInterfaceDeclaration() {
  static int const kBadEnders[] = {kTokSub, kTokFunction, kTokClass,
                                   kTokModule, 0};
  InterfaceSymbol* it = new InterfaceSymbol(ParseDeclarationName());
  BlockShape const shape = {kTokInterface, kBadEnders, "end of input in interface",
                            "bad block ender in interface", kNoScopeWords};
  ScanBlockBody(shape, [&](MemberFlags const&) { ParseInterfaceMember(it); });
  it->AddMethod(MakeClassLookupFunction());
  return it;
}

void DeclarationScanner::ParseInterfaceMember(InterfaceSymbol* it) {
  if (mToken == kTokInherits) {
    IRDataType parent = ParseDataType();
    if (it->GetSuperclassType().GetMainType() == kNoType)
      it->SetSuperclassType(parent);
    return;
  }
  if (mToken != kTokSub && mToken != kTokFunction) return;
  MethodSymbol* method =
      ParseMethodDeclaration(mToken == kTokFunction, it, false);
  method->SetDispatchMethod(MethodSymbol::Virtual);
  it->AddMethod(method);
}

MethodSymbol* MakeClassLookupFunction() {
  MethodSymbol* lookup = new MethodSymbol("__Lookup", IRDataType(kClassType));
  lookup->SetDispatchMethod(MethodSymbol::Normal);
  lookup->SetScope(MemberSymbol::kPrivate);
  return lookup;
}
