// The console plays the host: Print writes a line to standard output,
// Input reads one from standard input after its prompt, a runtime error is
// reported on standard error as "NAME:LINE: runtime error: CLASS: MESSAGE"
// as quorl reports it, less the call stack quorl lists below it. The
// compiled code passes the compiling process's own correspondent to Print
// and Input, which means nothing here, so the console's versions of both
// ignore it.
#include "PowerPCLoader/RuntimeTable.h"

#include <stdio.h>

#include <string>

#include "Common/Arrays/ArrayLibrary.h"
#include "Common/Variants/RuntimeVariants.h"
#include "Compiler/BackEnds/Minilinker/QuorlScriptIntrinsics.h"
#include "PowerPCLoader/ExceptionRaiser.h"
#include "StandInHost/RuntimeLibrary/LibraryEntries.h"
#include "Universal/ustring.h"

namespace quorl {
// The library's registration with a host; the loader has none and reads
// the entries itself.
void RegisterHostFunction(std::string const& name, void* address) {}
namespace detail {
// A library function's raise: the runtime is this very process's.
void RaiseInScript(char const* className, char const* message) {
  RaiseNamedException(className, string(message));
}
}  // namespace detail
}  // namespace quorl

namespace ppcloader {
namespace {

std::string sScriptName;
int sRuntimeErrors;

class Console : public QuorlScriptCorrespondent {
 public:
  void ScriptError(RuntimeErrorCode code, unsigned long line) override {
    sRuntimeErrors++;
    fflush(stdout);
    UncaughtExceptionDetail const& uncaught = LastUncaughtException();
    bool fromException = code != kRuntimeErrorNoExceptionClass &&
                         !uncaught.mClassName.IsEmpty();
    std::string where = sScriptName;
    unsigned long raisedAt = fromException ? UncaughtExceptionLine() : 0;
    if (raisedAt > 0) where += ":" + std::to_string(raisedAt);
    std::string text =
        fromException ? uncaught.mClassName.CString() : RuntimeErrorClassName(code);
    if (fromException && !uncaught.mMessage.IsEmpty())
      text += std::string(": ") + uncaught.mMessage.CString();
    fprintf(stderr, "%s: runtime error: %s\n", where.c_str(), text.c_str());
  }
};

Console sConsole;

void ConsolePrint(QuorlScriptCorrespondent*, stringStorage* text) {
  string utf8 = string(text).GetUTF8String();
  fwrite(utf8.CString(), 1, utf8.Length(), stdout);
  fputc('\n', stdout);
}

stringStorage* ConsoleInput(QuorlScriptCorrespondent*, stringStorage* prompt) {
  string text = string(prompt).GetUTF8String();
  fwrite(text.CString(), 1, text.Length(), stdout);
  fflush(stdout);
  std::string line;
  int c;
  while ((c = fgetc(stdin)) != EOF && c != '\n') line += static_cast<char>(c);
  if (!line.empty() && line.back() == '\r') line.pop_back();
  string result;
  result.ConstructFromBuffer(line.data(), static_cast<unsigned int>(line.size()));
  result.SetEncoding(kEncodingUTF8);
  return result.ExtractStringStorage();
}

// The library as the stand-in host serves it, and the array and variant
// functions the plug-in serves itself.
FunctionTable const& Library() {
  static FunctionTable library;
  if (!library.empty()) return library;
  using namespace quorl::standin::library;
  for (LibraryEntries (*theme)() :
       {&CharacterStringEntries, &ByteStringEntries, &TextEncodingEntries,
        &CaseAndTrimEntries,
        &FieldAndReplaceEntries, &NumberTextEntries, &FormatEntries,
        &ClockEntries, &EnvironmentHookEntries, &RuntimeFoundationEntries,
        &RuntimeIntrinsicEntries})
    for (LibraryEntry const& entry : theme()) library[entry.name] = entry.address;
  library["StringSplit"] = reinterpret_cast<void*>(&StringSplit);
  library["StringJoin"] = reinterpret_cast<void*>(&StringJoin);
  library["RuntimeMax"] = reinterpret_cast<void*>(&RuntimeMax);
  library["RuntimeMin"] = reinterpret_cast<void*>(&RuntimeMin);
  library["VarType"] = reinterpret_cast<void*>(&VarType);
  return library;
}

void* ResolveLibraryName(char const* name) {
  auto found = Library().find(name);
  return found == Library().end() ? nullptr : found->second;
}

}  // namespace

void ConnectConsole(std::string const& scriptName) {
  sScriptName = scriptName;
  SetRuntimeCorrespondent(&sConsole);
}

int RuntimeErrorCount() { return sRuntimeErrors; }

FunctionTable MakeRuntimeTable() {
  FunctionTable table = Library();
  StringMap<void*>* engine = MakeQuorlScriptRuntimeFunctionTable(&ResolveLibraryName);
  StringMapIterator<void*>* iter = engine->NewIterator();
  void* address;
  while (iter->Next(address))
    table[iter->Key().GetUTF8String().CString()] = address;
  delete iter;
  delete engine;
  table["Print"] = reinterpret_cast<void*>(&ConsolePrint);
  table["Input"] = reinterpret_cast<void*>(&ConsoleInput);
  table["RuntimeInit"] = reinterpret_cast<void*>(&InitRuntimeNotingRaiseLines);
  return table;
}

}  // namespace ppcloader
