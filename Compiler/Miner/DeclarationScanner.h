// The scanner behind DeclarationParser.h: a recursive descent over tokens
// with one token in hand. Within a line it reads on only while the token in
// hand is no line end (ReadInLine), so a malformed declaration never eats
// the next line; block loops and method bodies read across lines.
#ifndef COMPILER_MINER_DECLARATIONSCANNER_H
#define COMPILER_MINER_DECLARATIONSCANNER_H

#include "Compiler/SymbolTable/GlobalSymbolTable.h"

// What the scope words before a member said; cleared after each member.
struct MemberFlags {
  MemberSymbol::Scope scope = MemberSymbol::kPublic;
  bool shared = false;
  bool soft = false;
};

class DeclarationScanner {
 public:
  DeclarationScanner();

  // Reads the first token.
  void Start() { Read(); }
  int Token() const { return mToken; }

  // Blocks.
  void ParseTopLevelDeclarations(UnitSymbolTable* unit);
  ModuleSymbol* ParseModuleDeclaration();
  ClassSymbol* ParseClassDeclaration();
  InterfaceSymbol* ParseInterfaceDeclaration();
  StructureSymbol* ParseStructureDeclaration();
  EnumSymbol* ParseEnumDeclaration();
  DelegateSymbol* ParseDelegateDeclaration();

  // Members.
  MethodSymbol* ParseMethodDeclaration(bool isFunction, TypeSymbol* owner,
                                       bool shared);
  MethodSymbol* ParseSubDeclaration(TypeSymbol* owner, bool shared);
  MethodSymbol* ParseFunctionDeclaration(TypeSymbol* owner, bool shared);
  MethodSymbol* ParseEventDeclaration(ClassSymbol* owner);
  MethodSymbol* ParseExternalDeclaration(bool soft, ClassSymbol* owner);
  PropertySymbol* ParsePropertyDeclaration(unsigned* dimensionsOut = nullptr);
  PropertySymbol* ParsePropertyBlockDeclaration(ClassSymbol* ownerClass,
                                                ModuleSymbol* ownerModule,
                                                bool shared);
  ConstantSymbol* ParseConstantDeclaration();
  // Scope words at the head of a member; true if the token was one.
  bool ParseScopeWord(MemberFlags& flags, bool moduleWords);

 private:
  // Tokens.
  int Read();
  void ReadInLine();
  bool AtLineEnd() const;
  void SkipLine();
  bool IsIdentifier() const;
  bool IsIdentifierNamed(char const* name) const;
  bool IsEquals() const;
  string TokenText() const;

  // Pieces.
  string ParseDeclarationName();
  string ParseMethodName();
  void ParseMethodBody(int endToken);
  void ParseParameterList(MethodSymbol* it);
  bool ParseParameterDefaultValue(ParameterSymbol* param);
  void SkipDefaultExpression();
  IRDataType ParseDataType();
  IRDataType ParseReturnType();
  unsigned CountDimensions();
  void ParseEventHandler(MethodSymbol* method, ClassSymbol* owner);
  MethodSymbol* ParseGetterDeclaration(PropertySymbol* property,
                                       ClassSymbol* ownerClass,
                                       ModuleSymbol* ownerModule);
  MethodSymbol* ParseSetterDeclaration(PropertySymbol* property,
                                       ClassSymbol* ownerClass,
                                       ModuleSymbol* ownerModule);
  MethodSymbol* NewAccessor(char const* suffix, PropertySymbol* property,
                            ClassSymbol* ownerClass,
                            ModuleSymbol* ownerModule);
  void ParseTopLevelVariableDeclarations(UnitSymbolTable* unit);
  void SkipInitialValue();
  void ParseClassMember(ClassSymbol* it, MemberFlags const& flags);
  void ParseModuleMember(ModuleSymbol* it, MemberFlags const& flags);
  void ParseInterfaceMember(InterfaceSymbol* it);
  void AddClassProperty(ClassSymbol* it, MemberFlags const& flags);
  void AddClassType(ClassSymbol* it, TypeSymbol* type,
                    MemberFlags const& flags);
  void AddModuleType(ModuleSymbol* module, TypeSymbol* type,
                     MemberFlags const& flags);
  bool BlockEnds(int blockToken, int const* badEnders, char const* message);

  // What tells a module's, a class's and an interface's block apart.
  enum ScopeWords { kNoScopeWords, kClassScopeWords, kModuleScopeWords };
  struct BlockShape {
    int blockToken;          // the word after End that closes the block
    int const* badEnders;    // words after End that close it wrongly
    char const* endOfText;   // flagged when the text ends inside the block
    char const* badEnd;      // flagged for a wrong End
    ScopeWords scopeWords;   // which scope words may precede a member
  };

  // Reads the lines of a block after its head up to its End. Scope words
  // gather on the member that follows them; every other line goes to
  // `parseMember` with the flags gathered for it.
  // One level deeper for the life of a block body.
  struct BlockDepth {
    explicit BlockDepth(int& depth) : mDepth(depth) { ++mDepth; }
    ~BlockDepth() { --mDepth; }
    int& mDepth;
  };

  // Past the deepest nesting the rest of the text is skipped: the error is
  // fatal, and every open level then meets the end of the text at once.
  template <class ParseMember>
  void ScanBlockBody(BlockShape const& shape, ParseMember parseMember) {
    BlockDepth level(mBlockDepth);
    if (mBlockDepth > kDeepestDeclarationNesting) {
      FlagNestingTooDeep();
      mTooDeep = true;
      while (mToken != kTokEndOfText) Read();
      return;
    }
    MemberFlags flags;
    for (SkipLine(), Read();; SkipLine(), Read()) {
      for (;;) {
        if (mToken == kTokEndOfText) {
          if (!mTooDeep)
            FlagError(shape.endOfText);
          return;
        }
        if (shape.scopeWords == kNoScopeWords ||
            !ParseScopeWord(flags, shape.scopeWords == kModuleScopeWords))
          break;
        Read();
      }
      if (mToken == kTokEnd) {
        if (BlockEnds(shape.blockToken, shape.badEnders, shape.badEnd)) return;
      } else {
        parseMember(flags);
      }
      flags = MemberFlags();
    }
  }
  void ParseStructureField(bool& isArray, long& ubound, IRDataType& type,
                           unsigned long& length);
  void CreateStructureFieldDeclaration(StructureSymbol* it);
  ConstantSymbol* ParseEnumValue(EnumSymbol* enumDecl);
  bool ParseConstantValue(ConstantSymbol* it);

  int mToken;  // the token in hand
  int mBlockDepth;  // block bodies open around the token
  bool mTooDeep;    // the nesting error was given: the text is abandoned
  unsigned long mValuesMark;  // the semantic values older than the scan
};

// "__Lookup": the class function that every class and interface declares.
MethodSymbol* MakeClassLookupFunction();
// The value of the integer literal in yylval, sign-extended or not by its
// type.
long long IntegerLiteralValue();

#endif
