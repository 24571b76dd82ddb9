#include "Compiler/BackEnds/Minilinker/ScriptCallStack.h"

#include <algorithm>
#include <vector>

#include "Common/ObjectModel/RuntimeThread.h"
#include "Compiler/BackEnds/Minilinker/minilinker.h"

char const* const kMainBodyFrameName = "<main>";

namespace {

struct NotedStack {
  unsigned char const* mReturns[kMostNotedFrames];
  unsigned long mCount = 0;
  bool mMoreFrames = false;
};
thread_local NotedStack sNoted;

// Where each function starts, in the order of the code.
struct FunctionStart {
  unsigned long mOffset;
  string mLinkName;
  bool operator<(FunctionStart const& other) const {
    return mOffset < other.mOffset;
  }
};

std::vector<FunctionStart> FunctionStarts(RunReadyCode const* code) {
  std::vector<FunctionStart> starts;
  StringMapCase<unsigned long> entrypoints = code->Entrypoints();
  StringMapIterator<unsigned long>* iter = entrypoints.NewIterator();
  unsigned long offset = 0;
  while (iter->Next(offset)) starts.push_back({offset, iter->Key()});
  delete iter;
  std::sort(starts.begin(), starts.end());
  return starts;
}

// The function whose code holds `offset`: the last one that starts at or
// before it; null before the first.
FunctionStart const* FunctionAt(std::vector<FunctionStart> const& starts,
                                unsigned long offset) {
  FunctionStart probe = {offset, string()};
  auto after = std::upper_bound(starts.begin(), starts.end(), probe);
  if (after == starts.begin()) return nullptr;
  return &*(after - 1);
}

}  // namespace

// A call's return address lies just past the call instruction, which may
// end a function: the byte before it belongs to the calling line.
void NoteScriptCallStack(RunReadyCode const* code, void* frame) {
  sNoted.mCount = 0;
  sNoted.mMoreFrames = false;
  void** limit = static_cast<void**>(GetCurrentRuntimeThread()->StackBase());
  void** at = static_cast<void**>(frame);
  while (at) {
    void** caller = static_cast<void**>(*at);
    unsigned char const* returnAddress =
        static_cast<unsigned char const*>(at[1]);
    if (returnAddress && code->Contains(returnAddress - 1)) {
      if (sNoted.mCount == kMostNotedFrames) {
        sNoted.mMoreFrames = true;
        return;
      }
      sNoted.mReturns[sNoted.mCount++] = returnAddress - 1;
    }
    if (caller <= at || caller > limit) return;
    at = caller;
  }
}

unsigned long NotedRaiseLine(RunReadyCode const* code) {
  return sNoted.mCount ? code->LineAt(sNoted.mReturns[0]) : 0;
}

ScriptCallStack NotedScriptCallStack(RunReadyCode const* code) {
  ScriptCallStack stack;
  std::vector<FunctionStart> starts = FunctionStarts(code);
  unsigned char const* base = code->Code()->Buffer();
  unsigned long mainBody = static_cast<unsigned long>(
      reinterpret_cast<unsigned char const*>(code->Entrypoint()) - base);
  for (unsigned long i = 0; i < sNoted.mCount; i++) {
    ScriptStackFrame frame;
    FunctionStart const* start = FunctionAt(
        starts, static_cast<unsigned long>(sNoted.mReturns[i] - base));
    if (start && start->mOffset == mainBody)
      frame.mFunction = string(kMainBodyFrameName);
    else if (start)
      frame.mFunction = ReadableFunctionName(start->mLinkName);
    frame.mLine = code->LineAt(sNoted.mReturns[i]);
    stack.mFrames.push_back(frame);
  }
  stack.mMoreFrames = sNoted.mMoreFrames;
  return stack;
}

string ReadableFunctionName(string const& linkName) {
  char const* text = linkName.CString();
  for (unsigned long i = 1; i < linkName.Length(); i++)
    if (text[i] == '%') return left(linkName, static_cast<int>(i));
  return linkName;
}
