#include "tests/Compiler/BackEnds/Minilinker/MinilinkerTestSupport.h"

namespace {

void RecordValue(long value) { RecordedValues().push_back(value); }

void* ResolveFromTestRuntime(char const* name) {
  auto found = TestRuntimeTable().find(name);
  return found == TestRuntimeTable().end() ? nullptr : found->second;
}

}  // namespace

std::vector<long>& RecordedValues() {
  static std::vector<long> values;
  return values;
}

std::unique_ptr<StringMap<void*>> TestFunctionTable() {
  std::unique_ptr<StringMap<void*>> table(
      MakeQuorlScriptRuntimeFunctionTable(ResolveFromTestRuntime));
  table->AddEntry("RecordValue", reinterpret_cast<void*>(&RecordValue));
  return table;
}

void ScriptProgram::Call(char const* name,
                         std::vector<TacAddr const*> const& args,
                         TacAddr const* r) {
  for (TacAddr const* arg : args) p.Line(kTacPutParam, arg);
  p.Line(kTacCall, p.Text(name), nilTacAddr, r);
}

void ScriptProgram::CallGlue(char const* name, TestCorrespondent* corr,
                             TacAddr const* arg, TacAddr const* r) {
  Call(name, {p.Int(reinterpret_cast<long>(corr)), arg}, r);
}

void ScriptProgram::Finish() {
  p.Intrinsic(kIntrinsicRuntimeExit);
  p.Line(kTacStop);
}

Ref<CodeModule> ScriptProgram::Generate() {
  Ref<CodeModule> module = GenerateIA32(p);
  EXPECT_TRUE(module);
  return module;
}

std::unique_ptr<RunReadyCode> ScriptProgram::Link(LinkerDelegate* failures) {
  std::unique_ptr<StringMap<void*>> table = TestFunctionTable();
  return std::unique_ptr<RunReadyCode>(
      MiniLink(Generate(), table.get(), failures));
}
