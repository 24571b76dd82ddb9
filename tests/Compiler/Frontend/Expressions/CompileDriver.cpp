#include "CompileDriver.h"

#include <regex>

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

struct RecordingDelegate : public CompilerDelegate {
  int CompilerError(CompileError error) override {
    mErrors.push_back({int(error.Type()), error.Location().mStartLine, {}});
    for (unsigned long i = 0; i < error.Arguments().size(); i++)
      mErrors.back().arguments.push_back(error.Arguments()[i].CString());
    return 0;
  }
  std::vector<ReportedError> mErrors;
};

std::string Normalized(std::string const& line, std::vector<std::string>* temps) {
  static const std::regex hex("(^|[ ,])([0-9A-F]{8})(?=$|[ ,])");
  std::string out;
  size_t last = 0;
  for (std::sregex_iterator it(line.begin(), line.end(), hex), end; it != end; ++it) {
    std::string word = (*it)[2];
    size_t n = std::find(temps->begin(), temps->end(), word) - temps->begin();
    if (n == temps->size()) temps->push_back(word);
    size_t at = it->position(2);
    out += line.substr(last, at - last) + "t" + std::to_string(n + 1);
    last = at + 8;
  }
  return listing::Squeezed(out + line.substr(last));
}

}  // namespace

CompiledProgram CompileSource(std::string const& text) {
  std::string source = text + "\n";
  CompiledProgram result;
  RecordingDelegate delegate;
  GlobalSymbolTable global;
  SrcContext* scanContext = new SrcContext;  // owns the scanned literals
  if (UnitSymbolTable* unit = ParseDeclarations("", source.c_str(), &delegate)) {
    global.MergeUnitSymbols(unit, "");
    delete unit;
    ResolveDeclarations(&global);
  }
  delete scanContext;
  SrcContext* context = new SrcContext;
  context->mDelegate = &delegate;
  context->blocks.Enter(&global);
  InitLexer(source.c_str());
  result.status = yyparse();
  TacBlockIterator lines(context->mProgramCode->Code());
  std::vector<std::string> temps;
  std::vector<std::string>& code = result.code;
  while (lines.Next()) {
    code.push_back(Normalized(TacLineText(lines.Value()).CString(), &temps));
    result.numbered.push_back(std::to_string(lines.Value().mLine) + ": " + code.back());
  }
  delete context;
  result.body = listing::Statements(code, "% main");
  result.errors = delegate.mErrors;
  return result;
}
