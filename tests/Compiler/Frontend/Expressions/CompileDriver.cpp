#include "CompileDriver.h"

#include <ctype.h>

#include <algorithm>

#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/ParserSupport.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Miner/DeclarationParser.h"
#include "Compiler/Miner/Miner.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/TacListing.h"
#include "Compiler/compiler.h"
#include "../Statements/ListingSections.h"

namespace {

class RecordingDelegate : public CompilerDelegate {
 public:
  int CompilerError(CompileError error) override {
    ReportedError e;
    e.code = int(error.Type());
    e.line = error.Location().mStartLine;
    for (unsigned long i = 0; i < error.Arguments().size(); i++)
      e.arguments.push_back(error.Arguments()[i].CString());
    mErrors.push_back(e);
    return 0;
  }
  std::vector<ReportedError> mErrors;
};

bool IsHexName(std::string const& word) {
  if (word.size() != 8) return false;
  for (char c : word)
    if (!isdigit((unsigned char)c) && !(c >= 'A' && c <= 'F')) return false;
  return true;
}

// Temporaries are named by a counter that runs through the process; the
// listing names them t1, t2... in order of appearance in this program, and
// the opcode column shrinks to one blank, so that expectations are stable
// and short.
std::string Normalized(std::string const& line,
                       std::vector<std::string>* temps) {
  std::string out;
  size_t i = 0;
  while (i < line.size()) {
    size_t end = line.find_first_of(" ,", i);
    if (end == std::string::npos) end = line.size();
    std::string word = line.substr(i, end - i);
    if (IsHexName(word)) {
      size_t n = 0;
      while (n < temps->size() && (*temps)[n] != word) n++;
      if (n == temps->size()) temps->push_back(word);
      word = "t" + std::to_string(n + 1);
    }
    out += word;
    if (end < line.size()) out += line[end];
    i = end + 1;
    if (end < line.size() && line[end] == ' ')
      while (i < line.size() && line[i] == ' ') i++;
  }
  return out;
}

}  // namespace

std::vector<int> CompiledProgram::ErrorCodes() const {
  std::vector<int> codes;
  for (auto const& e : errors) codes.push_back(e.code);
  return codes;
}

std::vector<std::string> CompiledProgram::Lines(std::string const& opcode) const {
  std::vector<std::string> found;
  for (auto const& line : body)
    if (line.compare(0, opcode.size(), opcode) == 0 &&
        (line.size() == opcode.size() || line[opcode.size()] == ' '))
      found.push_back(line);
  return found;
}

bool CompiledProgram::Has(std::string const& fragment) const {
  for (auto const& line : body)
    if (line.find(fragment) != std::string::npos) return true;
  return false;
}

std::vector<std::string> CompiledProgram::Opening(size_t n) const {
  return std::vector<std::string>(body.begin(),
                                  body.begin() + std::min(n, body.size()));
}

std::string CompiledProgram::Listing() const {
  std::string all;
  for (auto const& line : numbered) all += line + "\n";
  return all;
}

CompiledProgram CompileSource(std::string const& text) {
  std::string source = text + "\n";
  CompiledProgram result;
  RecordingDelegate delegate;
  GlobalSymbolTable global;
  SrcContext* scanContext = new SrcContext;  // owns the scanned literals
  UnitSymbolTable* unit = ParseDeclarations("", source.c_str(), &delegate);
  result.scanned = unit != nullptr;
  if (unit) {
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
  while (lines.Next()) {
    std::string line = Normalized(TacLineText(lines.Value()).CString(), &temps);
    result.code.push_back(line);
    result.numbered.push_back(std::to_string(lines.Value().mLine) + ": " + line);
  }
  delete context;
  result.body = listing::Statements(result.code, "% main");
  result.errors = delegate.mErrors;
  return result;
}
