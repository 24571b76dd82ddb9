#include "Compiler/Frontend/Colors.h"

#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/TypeConversions.h"
#include "Compiler/Intrinsics.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

namespace {

long const kByteMask = 255;

// The in-line members: the shift that brings the byte to the bottom.
struct ByteMember {
  char const* name;
  long shift;
};
ByteMember const kByteMembers[] = {
    {"Red", 16}, {"Green", 8}, {"Blue", 0}, {"Alpha", 24}};

// The members read by a runtime function of the colour.
struct RuntimeMember {
  char const* name;
  IntrinsicID reader;
};
RuntimeMember const kRuntimeMembers[] = {
    {"Hue", kIntrinsicreadColorHue},
    {"Saturation", kIntrinsicreadColorSaturation},
    {"Value", kIntrinsicreadColorValue},
    {"Cyan", kIntrinsicreadColorCyan},
    {"Magenta", kIntrinsicreadColorMagenta},
    {"Yellow", kIntrinsicreadColorYellow},
};

TacAddr const* Int(long value) {
  return gContext->GetLiteral((long long)value, kSInt32Type);
}

SemBase* ReadByte(SemBase* expr, long shift, SourceLocation const& where) {
  SemBase* code = SemCode::New(IRDataType(kSInt32Type), &where);
  TacAddr const* color =
      CompileRefAs(expr, IRDataType(kColorType), code)->GetAddr();
  TacAddr const* result = code->GetAddr();
  if (shift) {
    code->AddLine(kTacBitShiftRight, color, Int(shift), result);
    code->AddLine(kTacBitAnd, result, Int(kByteMask), result);
  } else {
    code->AddLine(kTacBitAnd, color, Int(kByteMask), result);
  }
  return code;
}

SemBase* ReadThroughRuntime(SemBase* expr, IntrinsicID reader,
                            SourceLocation const& where) {
  SemBase* code = SemCode::New(IRDataType(kReal64Type), &where);
  TacAddr const* color =
      CompileRefAs(expr, IRDataType(kColorType), code)->GetAddr();
  code->AddLine(kTacPutParam, color, nilTacAddr, nilTacAddr);
  code->AddLine(kTacIntrinsic, IntrinsicTacAddr(reader), nilTacAddr,
                code->GetAddr());
  return code;
}

// Names compare without regard to case, as `string` does.
bool SameName(string const& name, char const* member) {
  return name == string(member);
}

}  // namespace

bool IsPotentialColorMethodName(string const& name) {
  for (ByteMember const& m : kByteMembers)
    if (SameName(name, m.name)) return true;
  for (RuntimeMember const& m : kRuntimeMembers)
    if (SameName(name, m.name)) return true;
  return false;
}

SemBase* HandleColorMethodCall(SemBase* expr, SemBase* ident) {
  QASSERT(expr);
  QASSERT(ident);
  string name = ident->toString();
  SourceLocation where = expr->Location() + ident->Location();
  for (ByteMember const& m : kByteMembers)
    if (SameName(name, m.name)) return ReadByte(expr, m.shift, where);
  for (RuntimeMember const& m : kRuntimeMembers)
    if (SameName(name, m.name)) return ReadThroughRuntime(expr, m.reader, where);
  QFAIL("sColorMethodNames.GetEntry( identString, handler )");
  return nullptr;
}
