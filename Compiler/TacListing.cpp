#include "Compiler/TacListing.h"

#include "Compiler/Intrinsics.h"
#include "Universal/ByteHelpers.h"
#include "Universal/StringAssembly.h"

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

// A constant that stands for something run-dependent, by its name.
bool StandInText(TacAddr const* addr, TacListingStandIns const* standIns,
                 string* text) {
  if (!standIns || IsNil(addr) || !addr->IsConstant()) return false;
  IRValue const* value = addr->GetValue();
  string name;
  SimpleDataType type = addr->mType.GetMainType();
  bool found = (type == kSInt32Type &&
                standIns->mAddresses.GetEntry(value->uSInt32, name)) ||
               (type == kStringType &&
                standIns->mLinkNames.GetEntry(value->mString, name));
  if (found) *text = string("<") + name + "> As " + addr->mType.ToString();
  return found;
}

string OperandText(TacAddr const* addr, TacListingStandIns const* standIns) {
  string text;
  return StandInText(addr, standIns, &text) ? text : TacAddrText(addr);
}

// An intrinsic by its link name, a local table by its number.
string OpAText(TacLine const& line, TacListingStandIns const* standIns) {
  if (line.opcode == kTacLabel) return LabelText(line.opA);
  if (line.opcode == kTacIntrinsic && line.opA->IsConstant()) {
    SimpleVector<string> const& names = IntrinsicFunctionNames();
    unsigned long number = line.opA->GetValue()->uSInt32;
    if (number > 0 && number < names.size()) return names[number];
  }
  return OperandText(line.opA, standIns);
}

string OpBText(TacLine const& line, TacListingStandIns const* standIns) {
  if (line.opcode == kTacEnter && line.opB->IsConstant())
    return string("table ") + ultoa(line.opB->GetValue()->uSInt32);
  return OperandText(line.opB, standIns);
}

// The operand list of one line: `opA, opB -> result`.
string OperandsText(TacLine const& line, TacListingStandIns const* standIns) {
  bool hasA = !IsNil(line.opA), hasB = !IsNil(line.opB);
  string text;
  if (hasA || hasB) text = OpAText(line, standIns);
  if (hasB) text += string(", ") + OpBText(line, standIns);
  if (!IsNil(line.result)) {
    if (text.Length()) text += " ";
    text += "-> ";
    text += ResultIsLabel(line.opcode) ? LabelText(line.result)
                                       : OperandText(line.result, standIns);
  }
  return text;
}

string LineText(TacLine const& line, TacListingStandIns const* standIns) {
  if (line.opcode == kTacLabel) return LabelText(line.opA) + ":";
  string text = PadRight(TacOpcodeName(line.opcode), kOpcodeColumn);
  return rtrim(text + OperandsText(line, standIns));
}

}  // namespace

string TacAddrText(TacAddr const* addr) {
  if (IsNil(addr)) return "nil";
  string type = string(" As ") + addr->mType.ToString();
  if (addr->IsConstant())
    return addr->GetValue()->ToString(addr->mType) + type;
  return addr->LinkID() + type + " (" + StorageText(addr) + ")";
}

string TacLineText(TacLine const& line) { return LineText(line, nullptr); }

// Labels stand flush left like in an assembler listing, so that the jumps'
// targets are easy to find; operations are indented below them. The lines
// are put together once at the end: adding each to the growing listing
// would copy it again for every line.
string ListTacBlock(TacBlock const& block, TacListingStandIns const* standIns) {
  SimpleVector<string> texts;
  TacBlockIterator lines(&block);
  while (lines.Next()) {
    TacLine const& line = lines.Value();
    texts.push_back(PadLeft(ultoa(line.mLine), kLineColumn) +
                    (line.opcode == kTacLabel ? "  " : "      ") +
                    LineText(line, standIns) + "\n");
  }
  return AssembleString([&](auto piece) {
    for (unsigned long i = 0; i < texts.size(); i++)
      piece(texts[i], 0, texts[i].Length());
  });
}
