#include "Compiler/BackEnds/Minilinker/DebugSymbolListing.h"

#include <string>

#include "Compiler/BackEnds/Minilinker/ScriptCallStack.h"
#include "Compiler/BackEnds/codegenerator.h"
#include "Compiler/InterRep.h"

namespace {

// What a statement block's scope, which has no name, is listed as.
char const* const kBlockScopeName = "(block)";

std::string Text(string const& text) {
  return std::string(text.CString(), text.Length());
}

std::string Number(unsigned long value) { return std::to_string(value); }

// The main body is listed under the name its call stack frames have.
std::string FunctionName(string const& linkName) {
  if (linkName == string(kMainBodyFunctionName)) return kMainBodyFrameName;
  return Text(ReadableFunctionName(linkName));
}

// Where a symbol's value lives, as a debugger would find it.
std::string Place(DebuggerSymbol const& symbol) {
  if (symbol.mIsConstant) return "= " + Text(symbol.mValueText);
  std::string size = " (" + Number(symbol.mStorageSize) + " bytes)";
  switch (symbol.mStorageClass) {
    case kStackDataStorage:
      return "frame offset " + Number(symbol.mStorageOffset) + size;
    case kBaseRelativeDataStorage:
      return "field offset " + Number(symbol.mStorageOffset) + size;
    default:
      return "data offset " + Number(symbol.mStorageOffset) + size;
  }
}

void ListSymbols(DebuggerSymbolTable* table, std::string* out,
                 char const* indent = "    ") {
  for (unsigned long i = 0; i < table->Count(); i++) {
    DebuggerSymbol const& symbol = *table->At(i);
    *out += indent + Text(symbol.mName) + " As " +
            (symbol.mIsReference ? "ByRef " : "") + Text(symbol.mTypeName) +
            ", " + Place(symbol) + "\n";
  }
}

// One section of tables by name; nothing when there are none.
void ListKeyed(char const* title, StringMap<DebuggerSymbolTable*>& tables,
               std::string* out) {
  if (!tables.Count()) return;
  *out += std::string(title) + "\n";
  StringMapIterator<DebuggerSymbolTable*>* iter = tables.NewIterator();
  DebuggerSymbolTable* table = nullptr;
  while (iter->Next(table)) {
    *out += "  " + Text(iter->Key()) + "\n";
    ListSymbols(table, out);
  }
  delete iter;
}

// The first and last line of a function's code, from 1.
std::string LineRange(CodeOffsetToLineIndex const* lines) {
  if (!lines || !lines->mIndex.size()) return "no lines";
  unsigned long first = lines->mIndex[0].line, last = first;
  for (unsigned long i = 0; i < lines->mIndex.size(); i++) {
    if (lines->mIndex[i].line < first) first = lines->mIndex[i].line;
    if (lines->mIndex[i].line > last) last = lines->mIndex[i].line;
  }
  return "lines " + Number(first + 1) + "-" + Number(last + 1);
}

void ListFunctions(DebuggerSymbols& symbols, std::string* out) {
  *out += "functions\n";
  StringMapIterator<LinkedContainerEntry>* iter =
      symbols.mFunctionExtents.NewIterator();
  LinkedContainerEntry extent;
  while (iter->Next(extent)) {
    CodeOffsetToLineIndex* lines = nullptr;
    symbols.mLineTables.GetEntry(iter->Key(), lines);
    unsigned int parameters = 0;
    symbols.mParameterSpaces.GetEntry(iter->Key(), parameters);
    *out += "  " + FunctionName(iter->Key()) + "  code " +
            Number(extent.offset) + "-" + Number(extent.offset + extent.length) +
            ", " + LineRange(lines) + ", parameters " + Number(parameters) +
            " bytes\n";
  }
  delete iter;
}

// The globals of a scope come under "globals", its other variables under
// the scope.
void ListScopes(DebuggerCodeModuleData& data, std::string* out) {
  std::string globals, locals;
  for (unsigned long i = 0; i < data.mLocalTables.size(); i++) {
    DebuggerSymbolTable* table = data.mLocalTables[i];
    DebuggerSymbolTable* mine = DebuggerSymbolTable::New(table->Name());
    DebuggerSymbolTable* shared = DebuggerSymbolTable::New(table->Name());
    for (unsigned long k = 0; k < table->Count(); k++) {
      DebuggerSymbol const& symbol = *table->At(k);
      bool global = symbol.mStorageClass == kGlobalDataStorage;
      (global ? shared : mine)->AddEntry(new DebuggerSymbol(symbol));
    }
    if (mine->Count()) {
      std::string scope = table->Name().Length()
                              ? FunctionName(table->Name())
                              : std::string(kBlockScopeName);
      locals += "  " + scope + " (lines " +
                Number(table->mStartLine + 1) + "-" +
                Number(table->mEndLine + 1) + ")\n";
      ListSymbols(mine, &locals);
    }
    ListSymbols(shared, &globals, "  ");
    delete mine;
    delete shared;
  }
  if (locals.size()) *out += "locals\n" + locals;
  if (globals.size()) *out += "globals\n" + globals;
}

void ListEnums(DebuggerCodeModuleData& data, std::string* out) {
  if (!data.mEnums.Count()) return;
  *out += "enums\n";
  StringMapIterator<DebuggerEnum*>* iter = data.mEnums.NewIterator();
  DebuggerEnum* item = nullptr;
  while (iter->Next(item)) {
    *out += "  " + Text(item->mName) + " As " + Text(item->mTypeName) + "\n";
    for (unsigned long i = 0; i < item->mValues.size(); i++)
      *out += "    " + Text(item->mValues[i].mName) + " = " +
              Text(item->mValues[i].mValueText) + "\n";
  }
  delete iter;
}

}  // namespace

string ListDebuggerSymbols(DebuggerSymbols& symbols) {
  std::string out;
  ListFunctions(symbols, &out);
  ListScopes(symbols.mData, &out);
  ListKeyed("classes", symbols.mData.mClassTables, &out);
  ListKeyed("modules", symbols.mData.mModuleTables, &out);
  ListKeyed("structures", symbols.mData.mStructureTables, &out);
  ListEnums(symbols.mData, &out);
  ListKeyed("constants", symbols.mData.mConstantTables, &out);
  string result;
  result.ConstructFromBuffer(out.data(), static_cast<unsigned int>(out.size()));
  result.SetEncoding(kEncodingUTF8);
  return result;
}
