#include "tests/Compiler/BackEnds/GeneratedCode.h"

#include <string.h>
#include <sys/mman.h>

#include "Common/ObjectModel/RuntimeExceptionFoundation.h"

TacProgram::TacProgram() {
  mTables.BindNewObject(new LocalSymbolTableList);
  mTables->AddTable(new StaticSymbolTable(""));
}

TacAddr const* TacProgram::Int(long value, SimpleDataType type) {
  mOwned.emplace_back(new ConstAddr(IRValue::SInt32(value), IRDataType(type)));
  return mOwned.back().get();
}

TacAddr const* TacProgram::Int64(long long value, SimpleDataType type) {
  mOwned.emplace_back(new ConstAddr(IRValue::SInt64(value), IRDataType(type)));
  return mOwned.back().get();
}

TacAddr const* TacProgram::Real64(double value) {
  mOwned.emplace_back(new ConstAddr(IRValue::Real64(value), IRDataType(kReal64Type)));
  return mOwned.back().get();
}

TacAddr const* TacProgram::Real32(float value) {
  mOwned.emplace_back(new ConstAddr(IRValue::Real32(value), IRDataType(kReal32Type)));
  return mOwned.back().get();
}

TacAddr const* TacProgram::Text(char const* text) {
  mOwned.emplace_back(new ConstAddr(string(text)));
  return mOwned.back().get();
}

long TacProgram::Frame(char const* name) {
  return mTables->AddTable(new FrameTable(name));
}

TacAddr const* TacProgram::Local(long frame, char const* name,
                                 IRDataType const& type) {
  return mTables->GetTable(frame)->AddVariable(name, type)->GetAddr();
}

TacAddr const* TacProgram::Global(char const* name, IRDataType const& type) {
  return mTables->GetGlobalTable()->AddVariable(name, type)->GetAddr();
}

IRDataType TacProgram::Structure(unsigned long size) {
  mStructures.emplace_back(
      new StructureSymbol(("S" + std::to_string(size)).c_str()));
  mStructures.back()->SetStorageSize(size);
  return mStructures.back()->InstanceType();
}

void TacProgram::Line(TacOpcode opcode, TacAddr const* a, TacAddr const* b,
                      TacAddr const* r) {
  mBlock.AddLine(opcode, a, b, r, 0);
}

void TacProgram::Enter(char const* name, long frame) {
  Line(kTacEnter, Text(name), frame >= 0 ? Int(frame) : nilTacAddr);
}

void TacProgram::Params(std::vector<TacAddr const*> const& params) {
  for (size_t i = params.size(); i > 0; i--)
    Line(kTacGetParam, nilTacAddr, nilTacAddr, params[i - 1]);
}

void TacProgram::Intrinsic(IntrinsicID id, TacAddr const* result) {
  Line(kTacIntrinsic, IntrinsicTacAddr(id), nilTacAddr, result);
}

Ref<CodeModule> GenerateIA32(TacProgram& program, CGIA32Options const& options,
                             RecordingDelegate* delegate) {
  RecordingDelegate local;
  CGIA32 generator;
  generator.Configure(options, IntrinsicFunctionNames());
  generator.SetDelegate(delegate ? delegate : &local);
  return generator.Generate("test", &program.mBlock, program.mTables);
}

Bytes FunctionBytes(Ref<CodeModule> module, std::string const& name) {
  for (unsigned long i = 0; i < module->mFunctions.size(); i++) {
    FunctionBlock* f = module->mFunctions[i];
    if (Std(f->mName) == name)
      return Bytes(f->Buffer(), f->Buffer() + f->Length());
  }
  return Bytes();
}

// ---------------------------------------------------------------- loading

LoadedCode::LoadedCode(Ref<CodeModule> module) : mCode(nullptr), mSize(0) {
  std::vector<size_t> starts;
  for (unsigned long i = 0; i < module->mFunctions.size(); i++) {
    starts.push_back(mSize);
    mSize += (module->mFunctions[i]->Length() + 15) / 16 * 16;
  }
  mCode = static_cast<unsigned char*>(mmap(nullptr, mSize ? mSize : 16,
                                           PROT_READ | PROT_WRITE,
                                           MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
  for (unsigned long i = 0; i < module->mFunctions.size(); i++) {
    FunctionBlock* f = module->mFunctions[i];
    memcpy(mCode + starts[i], f->Buffer(), f->Length());
    mFunctions[Std(f->mName)] = mCode + starts[i];
  }
  for (unsigned long i = 0; i < module->mFunctions.size(); i++) {
    FunctionBlock* f = module->mFunctions[i];
    for (unsigned long k = 0; k < f->mImports.size(); k++) {
      Import const& import = f->mImports[k];
      unsigned char* field = mCode + starts[i] + import.mOffset;
      std::string name = Std(import.mName);
      uint32_t value;
      memcpy(&value, field, 4);
      void* target = mFunctions.count(name) ? mFunctions[name]
                                            : TestRuntimeTable()[name];
      switch (import.mType) {
        case Import::kImportCall32:
          value = reinterpret_cast<uintptr_t>(target) -
                  reinterpret_cast<uintptr_t>(field + 4);
          break;
        case Import::kImportGlobal32: {
          unsigned size = 8;
          module->mGlobals.GetEntry(import.mName, size);
          std::vector<double>& storage = mGlobals[name];
          if (storage.empty()) storage.resize(size / 8 + 1);
          value += reinterpret_cast<uintptr_t>(storage.data());
          break;
        }
        default:
          ADD_FAILURE() << "unexpected import kind " << import.mType;
      }
      if (!target && import.mType == Import::kImportCall32)
        ADD_FAILURE() << "unresolved " << name;
      memcpy(field, &value, 4);
    }
  }
  mprotect(mCode, mSize ? mSize : 16, PROT_READ | PROT_EXEC);
}

LoadedCode::~LoadedCode() {
  ForgetHandlerSearches();
  munmap(mCode, mSize ? mSize : 16);
}

void* LoadedCode::Function(std::string const& name) const {
  auto it = mFunctions.find(name);
  return it == mFunctions.end() ? nullptr : it->second;
}

void* LoadedCode::Global(std::string const& name) const {
  auto it = mGlobals.find(name);
  return it == mGlobals.end() ? nullptr
                              : const_cast<double*>(it->second.data());
}

// EBX keeps this frame while EBP is borrowed.
asm(R"(
  .text
  .globl CallWithFrameBase
  .type CallWithFrameBase, @function
CallWithFrameBase:
  pushl %ebp
  movl %esp, %ebp
  pushl %ebx
  movl 8(%ebp), %eax
  movl 12(%ebp), %ecx
  movl %ebp, %ebx
  movl %ecx, %ebp
  call *%eax
  movl %ebx, %ebp
  popl %ebx
  popl %ebp
  ret
)");
