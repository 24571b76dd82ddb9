// Generating each function as the parser finishes it gives the same module,
// to the byte, as generating the whole program at the end: every golden
// script is compiled both ways (optimised and not) and the modules compared
// in full: functions in order with their bytes, imports and line tables,
// then the globals in order.
#include <gtest/gtest.h>

#include <stdio.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <sstream>
#include <string>

#include "Compiler/BackEnds/codestorage.h"
#include "Plugin/CompileModes.h"
#include "tests/Plugin/PluginTestSupport.h"

namespace {

std::string Text(string const& s) { return std::string(s.CString()); }

// Everything of a module that the linker reads, as text, so that a
// difference shows where it lies.
std::string Describe(CodeModule* module) {
  if (!module) return "no module";
  std::ostringstream out;
  for (unsigned long f = 0; f < module->mFunctions.size(); f++) {
    FunctionBlock const* block = module->mFunctions[f];
    out << "function " << Text(block->mName) << " params "
        << block->mParameterSpace << " bytes";
    for (unsigned int i = 0; i < block->Length(); i++)
      out << ' ' << (int)block->Buffer()[i];
    out << "\n";
    for (unsigned long i = 0; i < block->mImports.size(); i++) {
      Import const& import = block->mImports[i];
      out << "  import " << import.mType << ' ' << Text(import.mName) << ' '
          << Text(import.mSourceLibrary) << " at " << import.mOffset << "\n";
    }
    for (unsigned long i = 0; i < block->mLineTable.mIndex.size(); i++)
      out << "  line " << block->mLineTable.mIndex[i].line << " at "
          << block->mLineTable.mIndex[i].offset << "\n";
  }
  StringMapIterator<unsigned int>* it = module->mGlobals.NewIterator();
  unsigned int size = 0;
  while (it->Next(size)) out << "global " << Text(it->Key()) << ' ' << size << "\n";
  delete it;
  return out.str();
}

// Static temporaries are named by a counter that runs for the whole
// process, so the second compile of a script names them anew: each such
// name becomes its rank of first appearance.
std::string NumberTemporaries(std::string const& text) {
  static std::regex const temporary("\\b[0-9A-F]{8}\\b");
  std::map<std::string, int> rank;
  std::string result;
  auto last = text.cbegin();
  for (std::sregex_iterator it(text.begin(), text.end(), temporary), end;
       it != end; ++it) {
    result.append(last, (*it)[0].first);
    auto found = rank.emplace(it->str(), (int)rank.size()).first;
    result += "temporary" + std::to_string(found->second);
    last = (*it)[0].second;
  }
  return result.append(last, text.cend());
}

// One script object compiles both ways: the code holds its address.
std::string CompileAndDescribe(quorl::Script& script, bool asParsed) {
  SetGenerateAsParsed(asParsed);
  Ref<CodeModule> module = InterfaceOf(script)->CompileToModule();
  SetGenerateAsParsed(true);
  return NumberTemporaries(Describe(module ? &*module : nullptr));
}

// With QUORL_MODULE_LISTINGS set to a folder, each module's description is
// also written there, so that two builds of the compiler can be shown to
// generate the same code: the script object's address, which the code
// holds and an import names in hex, is written as "address".
void KeepListing(std::filesystem::path const& script, bool optimize,
                 std::string text, void const* address) {
  char const* folder = getenv("QUORL_MODULE_LISTINGS");
  if (!folder) return;
  uintptr_t value = reinterpret_cast<uintptr_t>(address);
  std::string bytes;
  for (int i = 0; i < 4; i++) bytes += " " + std::to_string((value >> (8 * i)) & 0xFF);
  char hex[16];
  snprintf(hex, sizeof hex, "%08lX", (unsigned long)value);
  for (std::string const& form : {bytes, std::string(hex)})
    for (size_t at; (at = text.find(form)) != std::string::npos;)
      text.replace(at, form.size(), " address");
  std::string name = std::filesystem::relative(script, QUORL_GOLDEN_SCRIPTS).string();
  for (char& c : name) if (c == '/') c = '_';
  std::ofstream(std::string(folder) + "/" + name + (optimize ? ".optimized" : ".unoptimized")) << text;
}

void ExpectSameModulesForEveryGolden(bool optimize) {
  quorl::HostOptions options;
  options.optimize = optimize;
  quorl::Attach(&VELDPluginMain, options);
  int compared = 0;
  for (auto const& entry :
       std::filesystem::recursive_directory_iterator(QUORL_GOLDEN_SCRIPTS)) {
    if (entry.path().extension() != ".bas") continue;
    std::ifstream file(entry.path(), std::ios::binary);
    std::string source((std::istreambuf_iterator<char>(file)),
                       std::istreambuf_iterator<char>());
    quorl::Script script;
    script.OnCompilerError([](int, int, std::string const&) {});
    script.SetSource(source);
    std::string whole = CompileAndDescribe(script, false);
    EXPECT_EQ(whole, CompileAndDescribe(script, true)) << entry.path();
    KeepListing(entry.path(), optimize, whole, InterfaceOf(script));
    compared++;
  }
  EXPECT_GT(compared, 100);
  AttachEngine();
}

TEST(GenerateAsParsed, EveryGoldenScriptGivesTheSameOptimizedModule) {
  ExpectSameModulesForEveryGolden(true);
}

TEST(GenerateAsParsed, EveryGoldenScriptGivesTheSameUnoptimizedModule) {
  ExpectSameModulesForEveryGolden(false);
}

}  // namespace
