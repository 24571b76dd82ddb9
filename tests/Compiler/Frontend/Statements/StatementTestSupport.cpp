#include "StatementTestSupport.h"

#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Miner/DeclarationParser.h"
#include "Compiler/Miner/Miner.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Compiler/TacListing.h"
#include "Compiler/compiler.h"
#include "Compiler/datatypes.h"

struct StatementRecorder final : public CompilerDelegate {
  int CompilerError(CompileError error) override {
    mCodes.push_back(int(error.Type()));
    return 0;
  }
  std::vector<int> mCodes;
};

namespace {

std::vector<MethodSymbol*> ToVector(MethodList const& found) {
  std::vector<MethodSymbol*> out;
  if (found)
    for (unsigned long i = 0; i < found->size(); i++) out.push_back((*found)[i]);
  return out;
}

}  // namespace

DeclaredProgram::DeclaredProgram(std::string const& text)
    : mGlobal(new GlobalSymbolTable), mRecorder(new StatementRecorder) {
  std::string source = text + "\n";
  if (UnitSymbolTable* unit = ParseDeclarations("", source.c_str(), mRecorder)) {
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

std::vector<int> DeclaredProgram::ErrorCodes() const { return mRecorder->mCodes; }
