#include "StatementTestSupport.h"

#include <sstream>

#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/ParserSupport.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Miner/DeclarationParser.h"
#include "Compiler/Miner/Miner.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/TacListing.h"
#include "Compiler/compiler.h"

namespace {

class Recorder : public CompilerDelegate {
 public:
  int CompilerError(CompileError error) override {
    mErrors.push_back(
        std::make_pair(int(error.Type()), error.Location().mStartLine));
    return 0;
  }
  std::vector<std::pair<int, unsigned>> mErrors;
};

std::string Trim(std::string const& s) {
  size_t b = s.find_first_not_of(" \t");
  if (b == std::string::npos) return "";
  size_t e = s.find_last_not_of(" \t");
  return s.substr(b, e - b + 1);
}

}  // namespace

CompiledProgram CompileProgramText(std::string const& text,
                                   LanguageOptions options) {
  std::string source = text + "\n";
  Recorder recorder;
  CompiledProgram out;
  GlobalSymbolTable global;
  UnitSymbolTable* unit = ParseDeclarations("", source.c_str(), &recorder);
  if (unit) {
    global.MergeUnitSymbols(unit, "");
    delete unit;
  }
  ResolveDeclarations(&global);
  SrcContext* context = new SrcContext;
  context->mDelegate = &recorder;
  context->mOptions = options;
  context->blocks.Enter(&global);
  InitLexer(source.c_str());
  out.status = yyparse();
  out.listing =
      std::string(ListTacBlock(*context->mProgramCode->Code()).CString());
  delete context;
  out.errors = recorder.mErrors;
  return out;
}

std::vector<std::string> CompiledProgram::Lines() const {
  std::vector<std::string> lines;
  std::istringstream in(listing);
  for (std::string line; std::getline(in, line);) {
    // The source line column comes first.
    size_t at = line.find_first_not_of(" \t");
    at = at == std::string::npos ? 0 : line.find_first_of(" \t", at);
    lines.push_back(Trim(at == std::string::npos ? "" : line.substr(at)));
  }
  return lines;
}

int CompiledProgram::Count(std::string const& text) const {
  int n = 0;
  for (std::string const& line : Lines())
    if (line.find(text) != std::string::npos) n++;
  return n;
}

int CompiledProgram::Find(std::string const& text, int from) const {
  std::vector<std::string> lines = Lines();
  for (int i = from; i < int(lines.size()); i++)
    if (lines[i].find(text) != std::string::npos) return i;
  return -1;
}

std::vector<int> CompiledProgram::ErrorCodes() const {
  std::vector<int> codes;
  for (auto const& e : errors) codes.push_back(e.first);
  return codes;
}

listing::Section CompiledProgram::Body(std::string const& name) const {
  return listing::FindBody(Lines(), name);
}

std::vector<std::string> CompiledProgram::Statements(
    std::string const& name) const {
  return listing::Statements(Lines(), name);
}

// ------------------------------------------------------- DeclaredProgram

#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Compiler/datatypes.h"

struct DeclaredProgram::Recorder final : public CompilerDelegate {
  int CompilerError(CompileError error) override {
    mCodes.push_back(int(error.Type()));
    return 0;
  }
  std::vector<int> mCodes;
};

DeclaredProgram::DeclaredProgram(std::string const& text)
    : mGlobal(new GlobalSymbolTable), mRecorder(new Recorder) {
  std::string source = text + "\n";
  UnitSymbolTable* unit = ParseDeclarations("", source.c_str(), mRecorder);
  if (unit) {
    mGlobal->MergeUnitSymbols(unit, "");
    delete unit;
  }
  ResolveDeclarations(mGlobal);
  mContext = new SrcContext;
  mContext->mDelegate = mRecorder;
  mContext->blocks.Enter(mGlobal);
}

DeclaredProgram::~DeclaredProgram() {
  delete mContext;
  delete mGlobal;
  delete mRecorder;
}

std::vector<MethodSymbol*> DeclaredProgram::Methods(char const* name) const {
  std::vector<MethodSymbol*> out;
  MethodList found = mGlobal->LookupMethodsRecursive(name, kAllMethods);
  if (found)
    for (unsigned long i = 0; i < found->size(); i++)
      out.push_back((*found)[i]);
  return out;
}

SemBase* DeclaredProgram::Variable(char const* typeName) {
  static int counter = 0;
  std::string name = "v" + std::to_string(++counter);
  VariableSymbol* var = mContext->mSymbols->AddVariable(
      name.c_str(), IRDataType::Lookup(typeName));
  return SemValue::New(var->GetAddr(), nullptr);
}

SemBase* DeclaredProgram::VariableOfDeclared(char const* typeName) {
  static int counter = 0;
  std::string name = "o" + std::to_string(++counter);
  TypeSymbol* decl = mGlobal->LookupType(typeName);
  VariableSymbol* var =
      mContext->mSymbols->AddVariable(name.c_str(), decl->InstanceType());
  return SemValue::New(var->GetAddr(), nullptr);
}

std::vector<MethodSymbol*> DeclaredProgram::MemberMethods(
    char const* typeName, char const* name) const {
  std::vector<MethodSymbol*> out;
  TypeSymbol* decl = mGlobal->LookupType(typeName);
  MethodDeclarationListOwner* owner = nullptr;
  if (decl->IsA(Symbol::kClass)) owner = static_cast<ClassSymbol*>(decl);
  if (decl->IsA(Symbol::kInterface))
    owner = static_cast<InterfaceSymbol*>(decl);
  MethodList found = owner->LookupMethods(name, kAllMethods);
  if (found)
    for (unsigned long i = 0; i < found->size(); i++)
      out.push_back((*found)[i]);
  if (decl->IsA(Symbol::kClass))
    if (MethodSymbol* event =
            static_cast<ClassSymbol*>(decl)->LookupEvent(name))
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
      mContext->GetLiteral(IRValue::Real64(value), IRDataType(kReal64Type)),
      nullptr);
}

std::string DeclaredProgram::Listing(SemBase* code) {
  return std::string(ListTacBlock(*code->Code()).CString());
}

std::vector<int> DeclaredProgram::ErrorCodes() const {
  return mRecorder->mCodes;
}
