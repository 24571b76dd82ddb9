#include "Compiler/TacListing.h"

#include "Universal/ByteHelpers.h"

namespace {

// Width of the opcode column: the longest name, "HandleException", plus a
// blank.
unsigned const kOpcodeColumn = 16;
// Width of the source line column.
unsigned const kLineColumn = 6;

string PadRight(string const& text, unsigned width) {
  string padded = text;
  for (unsigned long n = text.Length(); n < width; n++) padded += " ";
  return padded;
}

string PadLeft(string const& text, unsigned width) {
  string padded;
  for (unsigned long n = text.Length(); n < width; n++) padded += " ";
  return padded + text;
}

bool IsNil(TacAddr const* addr) { return addr == nilTacAddr || !addr; }

// Whether the result operand of a line is a jump target.
bool ResultIsLabel(TacOpcode op) {
  switch (op) {
    case kTacJump:
    case kTacIfEQI:
    case kTacIfNEI:
    case kTacIfLTI:
    case kTacIfLTU:
    case kTacHandleException:
      return true;
    default:
      return false;
  }
}

string LabelText(TacAddr const* addr) {
  if (!addr->IsConstant()) return TacAddrText(addr);
  return string("L") + ultoa(addr->GetValue()->uSInt32);
}

string StorageText(TacAddr const* addr) {
  switch (addr->GetStorageClass()) {
    case kGlobalDataStorage:
      return "global";
    case kStackDataStorage:
      return string("stack ") + ultoa(addr->StorageOffset());
    case kBaseRelativeDataStorage:
      return string("field +") + ultoa(addr->StorageOffset());
  }
  return "storage?";
}

// Numbers that name something rather than being values: an intrinsic's
// number, a function's local table.
string NumberedText(char const* what, TacAddr const* addr) {
  if (!addr->IsConstant()) return TacAddrText(addr);
  return string(what) + ultoa(addr->GetValue()->uSInt32);
}

string OpAText(TacLine const& line) {
  if (line.opcode == kTacLabel) return LabelText(line.opA);
  if (line.opcode == kTacIntrinsic) return NumberedText("intrinsic ", line.opA);
  return TacAddrText(line.opA);
}

string OpBText(TacLine const& line) {
  if (line.opcode == kTacEnter) return NumberedText("table ", line.opB);
  return TacAddrText(line.opB);
}

// The operand list of one line: `opA, opB -> result`.
string OperandsText(TacLine const& line) {
  bool hasA = !IsNil(line.opA), hasB = !IsNil(line.opB);
  string text;
  if (hasA || hasB) text = OpAText(line);
  if (hasB) text += string(", ") + OpBText(line);
  if (!IsNil(line.result)) {
    if (text.Length()) text += " ";
    text += "-> ";
    text += ResultIsLabel(line.opcode) ? LabelText(line.result)
                                       : TacAddrText(line.result);
  }
  return text;
}

}  // namespace

string TacAddrText(TacAddr const* addr) {
  if (IsNil(addr)) return "nil";
  string type = string(" As ") + addr->mType.ToString();
  if (addr->IsConstant())
    return addr->GetValue()->ToString(addr->mType) + type;
  return addr->LinkID() + type + " (" + StorageText(addr) + ")";
}

string TacLineText(TacLine const& line) {
  if (line.opcode == kTacLabel) return LabelText(line.opA) + ":";
  string text = PadRight(TacOpcodeName(line.opcode), kOpcodeColumn);
  return rtrim(text + OperandsText(line));
}

// Labels stand flush left like in an assembler listing, so that the jumps'
// targets are easy to find; operations are indented below them.
string ListTacBlock(TacBlock const& block) {
  string listing;
  TacBlockIterator lines(&block);
  while (lines.Next()) {
    TacLine const& line = lines.Value();
    listing += PadLeft(ultoa(line.mLine), kLineColumn);
    listing += line.opcode == kTacLabel ? "  " : "      ";
    listing += TacLineText(line);
    listing += "\n";
  }
  return listing;
}
