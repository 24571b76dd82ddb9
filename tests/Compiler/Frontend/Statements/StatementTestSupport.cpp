#include "StatementTestSupport.h"

#include <sstream>

#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/ParserSupport.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Miner/DeclarationParser.h"
#include "Compiler/Miner/Miner.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Compiler/TacListing.h"
#include "Compiler/compiler.h"
#include "Compiler/datatypes.h"

struct StatementRecorder : public CompilerDelegate {
  int CompilerError(CompileError error) override {
    mErrors.push_back(std::make_pair(int(error.Type()), error.Location().mStartLine));
    return 0;
  }
  ErrorList mErrors;
};

namespace {

std::vector<int> Codes(ErrorList const& errors) {
  std::vector<int> codes;
  for (auto const& e : errors) codes.push_back(e.first);
  return codes;
}

SrcContext* Declare(std::string const& source, GlobalSymbolTable* global,
                    StatementRecorder* recorder) {
  if (UnitSymbolTable* unit = ParseDeclarations("", source.c_str(), recorder)) {
    global->MergeUnitSymbols(unit, "");
    delete unit;
  }
  ResolveDeclarations(global);
  SrcContext* context = new SrcContext;
  context->mDelegate = recorder;
  context->blocks.Enter(global);
  return context;
}

std::vector<MethodSymbol*> ToVector(MethodList const& found) {
  std::vector<MethodSymbol*> out;
  if (found)
    for (unsigned long i = 0; i < found->size(); i++) out.push_back((*found)[i]);
  return out;
}

}  // namespace

CompiledProgram CompileProgramText(std::string const& text, LanguageOptions options) {
  std::string source = text + "\n";
  StatementRecorder recorder;
  GlobalSymbolTable global;
  SrcContext* context = Declare(source, &global, &recorder);
  context->mOptions = options;
  InitLexer(source.c_str());
  CompiledProgram out;
  out.status = yyparse();
  out.listing = std::string(ListTacBlock(*context->mProgramCode->Code()).CString());
  delete context;
  out.errors = recorder.mErrors;
  return out;
}

std::vector<std::string> CompiledProgram::Lines() const {
  std::vector<std::string> lines;
  std::istringstream in(listing);
  for (std::string line; std::getline(in, line);) {
    size_t at = line.find_first_not_of(" \t");  // past the source line column
    at = at == std::string::npos ? at : line.find_first_of(" \t", at);
    at = at == std::string::npos ? at : line.find_first_not_of(" \t", at);
    size_t end = line.find_last_not_of(" \t");
    lines.push_back(at == std::string::npos ? "" : line.substr(at, end - at + 1));
  }
  return lines;
}

int CompiledProgram::Count(std::string const& text) const {
  int n = 0;
  for (std::string const& line : Lines()) n += line.find(text) != std::string::npos;
  return n;
}

int CompiledProgram::Find(std::string const& text, int from) const {
  std::vector<std::string> lines = Lines();
  for (int i = from; i < int(lines.size()); i++)
    if (lines[i].find(text) != std::string::npos) return i;
  return -1;
}

std::vector<int> CompiledProgram::ErrorCodes() const { return Codes(errors); }

listing::Section CompiledProgram::Body(std::string const& name) const {
  return listing::FindBody(Lines(), name);
}

std::vector<std::string> CompiledProgram::Statements(std::string const& name) const {
  return listing::Statements(Lines(), name);
}

DeclaredProgram::DeclaredProgram(std::string const& text)
    : mGlobal(new GlobalSymbolTable), mRecorder(new StatementRecorder) {
  mContext = Declare(text + "\n", mGlobal, mRecorder);
}

DeclaredProgram::~DeclaredProgram() {
  delete mContext;
  delete mGlobal;
  delete mRecorder;
}

std::vector<MethodSymbol*> DeclaredProgram::Methods(char const* name) const {
  return ToVector(mGlobal->LookupMethodsRecursive(name, kAllMethods));
}

SemBase* DeclaredProgram::Variable(char const* typeName) {
  static int counter = 0;
  std::string name = "v" + std::to_string(++counter);
  return SemValue::New(mContext->mSymbols->AddVariable(
      name.c_str(), IRDataType::Lookup(typeName))->GetAddr(), nullptr);
}

SemBase* DeclaredProgram::VariableOfDeclared(char const* typeName) {
  static int counter = 0;
  std::string name = "o" + std::to_string(++counter);
  return SemValue::New(mContext->mSymbols->AddVariable(
      name.c_str(), mGlobal->LookupType(typeName)->InstanceType())->GetAddr(), nullptr);
}

std::vector<MethodSymbol*> DeclaredProgram::MemberMethods(char const* typeName,
                                                          char const* name) const {
  TypeSymbol* decl = mGlobal->LookupType(typeName);
  bool isClass = decl->IsA(Symbol::kClass);
  MethodDeclarationListOwner* owner = nullptr;
  if (isClass) owner = static_cast<ClassSymbol*>(decl);
  if (decl->IsA(Symbol::kInterface)) owner = static_cast<InterfaceSymbol*>(decl);
  std::vector<MethodSymbol*> out = ToVector(owner->LookupMethods(name, kAllMethods));
  if (isClass)
    if (MethodSymbol* event = static_cast<ClassSymbol*>(decl)->LookupEvent(name))
      out.push_back(event);
  return out;
}

void DeclaredProgram::EnterClass(char const* typeName) {
  mContext->blocks.Enter(mGlobal->LookupType(typeName));
}

SemBase* DeclaredProgram::Constant(long value) {
  return SemValue::New(mContext->GetLiteral(value, kSInt32Type), nullptr);
}

SemBase* DeclaredProgram::Constant(double value) {
  return SemValue::New(
      mContext->GetLiteral(IRValue::Real64(value), IRDataType(kReal64Type)), nullptr);
}

std::string DeclaredProgram::Listing(SemBase* code) {
  return std::string(ListTacBlock(*code->Code()).CString());
}

std::vector<int> DeclaredProgram::ErrorCodes() const { return Codes(mRecorder->mErrors); }
