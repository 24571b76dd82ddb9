// The integration analysis: counts, per function, the lines that are the
// price of being a function against the lines that do the work.
#include "Compiler/Optimizer/optimizer.h"

#include "Compiler/Intrinsics.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Universal/Assertion.h"

TacBlock const* Optimizer::Optimize(TacBlock const* code,
                                    Ref<LocalSymbolTableList> symbols) {
  QASSERT_TEXT(code, "code");
  QASSERT_TEXT(symbols, "symbols");
  return IntegrateProcedures(code, symbols);
}

TacBlock const* IntegrateProcedures(TacBlock const* code,
                                    Ref<LocalSymbolTableList> symbols) {
  StringMap<unsigned char> verdicts;
  AnalyzeProcedureIntegration(code, verdicts);
  return code;
}

namespace {

// Sizes of the function under way; a call site costs no line of its own.
struct FunctionSizes {
  string name;
  long lines = 0;
  long body = 0;
};

void CountLine(TacLine const& line, FunctionSizes* current,
               StringMap<long>* callCounts) {
  switch (line.opcode) {
    case kTacGetParam:
    case kTacBaseref:
      current->lines++;
      return;
    case kTacIntrinsic:
      current->lines++;
      if (line.opA->GetValue()->uSInt32 != kIntrinsicRuntimeCheckStack)
        current->body++;
      return;
    case kTacCall: {
      if (line.opB != nilTacAddr && line.opB->GetValue()->mString.Length())
        return;
      string const& callee = line.opA->GetValue()->mString;
      long count = 0;
      callCounts->GetEntry(callee, count);
      callCounts->AddEntry(callee, count + 1);
      return;
    }
    default:
      current->lines++;
      current->body++;
      return;
  }
}

}  // namespace

StringMap<unsigned char> AnalyzeProcedureIntegration(
    TacBlock const* code, StringMap<unsigned char> verdicts) {
  StringMap<long> totalSizes;
  StringMap<long> bodySizes;
  StringMap<long> callCounts;
  FunctionSizes current;
  TacBlockIterator lines(code);
  while (lines.Next()) {
    TacLine const& line = lines.Value();
    if (line.opcode == kTacEnter) {
      current = FunctionSizes();
      current.name = line.opA->GetValue()->mString;
    } else if (line.opcode == kTacLeave) {
      current.lines++;
      totalSizes.AddEntry(current.name, current.lines);
      bodySizes.AddEntry(current.name, current.body);
    } else {
      CountLine(line, &current, &callCounts);
    }
  }
  StringMapIterator<long>* iter = totalSizes.NewIterator();
  long total = 0;
  while (iter->Next(total)) {
    long bodySize = 0;
    bool sized = bodySizes.GetEntry(iter->Key(), bodySize);
    QASSERT_TEXT(sized, "bodySizes.GetEntry( iter->Key(), bodySize )");
    int overhead = static_cast<int>(total - bodySize);
    verdicts.AddEntry(iter->Key(), overhead >= static_cast<int>(bodySize));
  }
  delete iter;
  return verdicts;
}
