// Hand-built TAC for the IA-32 back end, generated, placed in executable
// memory with a small test-side linker, and called.
#ifndef TESTS_COMPILER_BACKENDS_GENERATEDCODE_H
#define TESTS_COMPILER_BACKENDS_GENERATEDCODE_H

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Compiler/BackEnds/IA-32/CGIA32.h"
#include "Compiler/InterRep.h"
#include "Compiler/Intrinsics.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "tests/Compiler/BackEnds/ReferenceAssembler.h"
#include "tests/Compiler/CompilerTestSupport.h"

// A function's locals: each variable below the previous one, aligned to
// its size, as the frame layout expects.
class FrameTable : public LocalSymbolTable {
 public:
  explicit FrameTable(string const& name)
      : LocalSymbolTable(name, kStackDataStorage), mTotal(0) {}
  unsigned long GetTotalStorage() const override {
    return (mTotal + 3) / 4 * 4;
  }

 protected:
  void PrepareVariable(VariableSymbol* var) override {
    unsigned long offset = var->GetType().StorageAlign(mTotal);
    var->mAddr.mStorageOffset = offset;
    var->mAddr.SetQualifiedLinkID(mName, var->Name());
    mTotal = offset + var->GetType().StorageSize();
  }

 private:
  unsigned long mTotal;
};

// Operands, local tables and lines of one test program.
class TacProgram {
 public:
  TacProgram();

  TacAddr const* Int(long value, SimpleDataType type = kSInt32Type);
  TacAddr const* Int64(long long value, SimpleDataType type = kSInt64Type);
  TacAddr const* Real64(double value);
  TacAddr const* Real32(float value);
  TacAddr const* Text(char const* text);
  // A new frame table; its number is what Enter names.
  long Frame(char const* name);
  TacAddr const* Local(long frame, char const* name, IRDataType const& type);
  TacAddr const* Global(char const* name, IRDataType const& type);
  IRDataType Structure(unsigned long size);

  void Line(TacOpcode opcode, TacAddr const* a = nilTacAddr,
            TacAddr const* b = nilTacAddr, TacAddr const* r = nilTacAddr);
  void Enter(char const* name, long frame);
  // GetParam lines for the parameters in declaration order (written last
  // to first, as the frame expects).
  void Params(std::vector<TacAddr const*> const& params);
  void Intrinsic(IntrinsicID id, TacAddr const* result = nilTacAddr);

  TacBlock mBlock;
  Ref<LocalSymbolTableList> mTables;

 private:
  std::vector<std::unique_ptr<TacAddr>> mOwned;
  std::vector<std::unique_ptr<StructureSymbol>> mStructures;
};

// Generates with the given options; a null module on failure.
Ref<CodeModule> GenerateIA32(TacProgram& program,
                             CGIA32Options const& options = CGIA32Options(),
                             RecordingDelegate* delegate = nullptr);

// The module's functions in executable memory. Imports are resolved here:
// calls against the module's own functions and then the test runtime table,
// globals against zeroed storage per name.
class LoadedCode {
 public:
  explicit LoadedCode(Ref<CodeModule> module);
  ~LoadedCode();
  void* Function(std::string const& name) const;
  void* Global(std::string const& name) const;
  template <class F>
  F Fn(std::string const& name) const {
    return reinterpret_cast<F>(Function(name));
  }

 private:
  unsigned char* mCode;
  size_t mSize;
  std::map<std::string, void*> mFunctions;
  std::map<std::string, std::vector<double>> mGlobals;  // 8-aligned storage
};

// Link names the test runtime serves, and their addresses.
std::map<std::string, void*>& TestRuntimeTable();

// The bytes of one generated function.
Bytes FunctionBytes(Ref<CodeModule> module, std::string const& name);

// f(a) or f(a, b) returns `op a` or `a op b`, of the given types.
inline std::unique_ptr<LoadedCode> OperationFunction(
    TacOpcode op, std::vector<SimpleDataType> const& operands, SimpleDataType r,
    CGIA32Options const& options = CGIA32Options()) {
  TacProgram p;
  long f = p.Frame("f");
  std::vector<TacAddr const*> params;
  for (size_t i = 0; i < operands.size(); i++)
    params.push_back(p.Local(f, i ? "b" : "a", IRDataType(operands[i])));
  TacAddr const* z = p.Local(f, "r", IRDataType(r));
  p.Enter("f", f);
  p.Params(params);
  p.Line(op, params[0], params.size() > 1 ? params[1] : nilTacAddr, z);
  p.Line(kTacLeave, z);
  Ref<CodeModule> module = GenerateIA32(p, options);
  EXPECT_TRUE(module);
  return std::unique_ptr<LoadedCode>(new LoadedCode(module));
}

// Calls `function` (no arguments, an Int32 result) with EBP set to
// `frameBase`, so that the frame chain the generated code starts ends
// there.
extern "C" int CallWithFrameBase(void* function, void* frameBase);

#endif
