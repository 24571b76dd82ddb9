// The call sequence: argument words in r3 to r10 and beyond them in the
// caller's argument area from 24(r1), floats also in f1 to f13; the base
// register reloaded after the call. The caller's stack pointer never
// moves, so there is nothing to reset afterwards.
#include "Compiler/BackEnds/PowerPC/CGPPC.h"

#include "Compiler/Intrinsics.h"
#include "Universal/Assertion.h"
#include "Universal/ByteHelpers.h"

namespace {

// The first argument registers, as a scheme.
unsigned long const kArgumentRegisters = 0x7f8;

int StackWordOffset(unsigned long word) {
  return static_cast<int>(CGPPC::kLinkageSize + 4 * word);
}

}  // namespace

// ---------------------------------------------------------------- words

// One word of a 32-bit value: into its register while the registers last,
// else into the argument area.
void CGPPC::LoadArgumentWord(TacAddr const* arg, unsigned long word,
                             unsigned long* reserved) {
  if (word < kArgumentRegisterCount) {
    int target = kFirstArgumentRegister + static_cast<int>(word);
    int reg = LoadTacAddr(arg, 1ul << target);
    QASSERT(reg == target);
    *reserved |= 1ul << target;
    mReserved = *reserved;
    return;
  }
  int reg = LoadTacAddr(arg, kSelectAnyGPR & ~kArgumentRegisters);
  ppc_stw(reg, StackWordOffset(word), kStackPointer);
}

// A word already in `reg` goes to its argument place.
static void PlaceWord(CGPPC* gen, int reg, unsigned long word,
                      unsigned long* reserved) {
  if (word < CGPPC::kArgumentRegisterCount) {
    int target = CGPPC::kFirstArgumentRegister + static_cast<int>(word);
    if (reg != target) gen->ppc_mr(target, reg);
    gen->Touch(target);
    *reserved |= 1ul << target;
  } else {
    gen->ppc_stw(reg, StackWordOffset(word), CGPPC::kStackPointer);
  }
}

void CGPPC::PassArgument(TacAddr const* arg, unsigned long* word,
                         unsigned long* floats, unsigned long* reserved,
                         unsigned long* reservedFloats) {
  IRDataType const& type = arg->mType;
  unsigned long size = type.StorageSize();
  if (type.IsFloat()) {
    unsigned long words = size == 4 ? 1 : 2;
    if (*floats < kFloatArgumentCount) {
      int target = kFirstFloatArgument + static_cast<int>(*floats);
      QASSERT(LoadTacAddr(arg, 1ul << target) == target);
      *reservedFloats |= 1ul << target;
      mReservedFloats = *reservedFloats;
    } else {
      // Every float argument register is taken: f0 carries it.
      int reg = LoadTacAddr(arg, 1ul << kScratch);
      if (size == 4)
        ppc_stfs(reg, StackWordOffset(*word), kStackPointer);
      else
        ppc_stfd(reg, StackWordOffset(*word), kStackPointer);
    }
    (*floats)++;
    *word += words;
  } else if (AddrIsInt64(arg) && size == 8) {
    // The pair stays clear of the two registers it is going to.
    unsigned long scheme = kSelectAnyGPR;
    for (unsigned long w = *word; w < *word + 2 && w < kArgumentRegisterCount; w++)
      scheme = SchemeExclude(kFirstArgumentRegister + static_cast<int>(w), scheme);
    int hi, lo;
    LoadInt64TacAddr(arg, &hi, &lo, scheme);
    PlaceWord(this, hi, *word, reserved);
    PlaceWord(this, lo, *word + 1, reserved);
    mReserved = *reserved;
    *word += 2;
  } else if (AddrIsStruct(arg)) {
    int src = LoadSymbolAddress(arg, kSelectAnyGPR & ~kArgumentRegisters);
    unsigned long words = AlignBytes(size, 4) / 4;
    for (unsigned long k = 0; k < words; k++, (*word)++) {
      if (*word < kArgumentRegisterCount) {
        int target = kFirstArgumentRegister + static_cast<int>(*word);
        Touch(target);
        ppc_lwz(target, static_cast<int>(4 * k), src);
        *reserved |= 1ul << target;
      } else {
        ppc_lwz(kScratch, static_cast<int>(4 * k), src);
        ppc_stw(kScratch, StackWordOffset(*word), kStackPointer);
      }
    }
    mReserved = *reserved;
  } else {
    LoadArgumentWord(arg, *word, reserved);
    (*word)++;
  }
}

// A structure result's address takes the first word.
void CGPPC::PushCallParameters(TacAddr const* result) {
  unsigned long word = 0, floats = 0, reserved = 0, reservedFloats = 0;
  if (result != nilTacAddr && AddrIsStruct(result)) {
    QASSERT(LoadSymbolAddress(result, 1ul << kFirstArgumentRegister) ==
            kFirstArgumentRegister);
    reserved |= 1ul << kFirstArgumentRegister;
    mReserved = reserved;
    word = 1;
  }
  for (unsigned long i = 0; i < mArguments.size(); i++)
    PassArgument(mArguments[i], &word, &floats, &reserved, &reservedFloats);
  if (4 * word > mOutgoingParameterSpace) mOutgoingParameterSpace = 4 * word;
}

// ---------------------------------------------------------------- shapes

// Answers the shape.
string CGPPC::NoteCallShape(string const& name, bool varargs) {
  string shape = varargs ? "v" : "";
  for (unsigned long i = 0; i < mArguments.size(); i++) {
    IRDataType const& type = mArguments[i]->mType;
    unsigned long size = type.StorageSize();
    if (type.IsFloat())
      shape += size == 4 ? "f" : "d";
    else if (AddrIsInt64(mArguments[i]) && size == 8)
      shape += "l";
    else if (AddrIsStruct(mArguments[i]))
      shape += string("s") + ultoa(size) + string(".");
    else
      shape += "w";
  }
  if (name.Length() && !mCallShapes.HasEntry(name))
    mCallShapes.AddEntry(name, shape);
  return shape;
}

// ---------------------------------------------------------------- results

void CGPPC::BackFromFunctionCall(TacAddr const* result) {
  ppc_lwz(kBaseRegister, kSavedBaseOffset, kStackPointer);
  mArguments.deleteAll();
  mReserved = 0;
  mReservedFloats = 0;
  mMadeCall = true;
  InvalidateRegisters();
  GetReturnedResult(result);
}

// A callee may leave the upper bytes of a narrow result undefined.
void CGPPC::GetReturnedResult(TacAddr const* result) {
  if (result == nilTacAddr || AddrIsStruct(result)) return;
  if (result->mType.IsFloat()) {
    Touch(true, kFirstFloatArgument);
    StoreTacAddr(kFirstFloatArgument, result);
    return;
  }
  int r3 = kFirstArgumentRegister;
  Touch(r3);
  if (AddrIsInt64(result) && result->mType.StorageSize() == 8) {
    Touch(r3 + 1);
    StoreInt64TacAddr(r3, r3 + 1, result);
    return;
  }
  switch (result->mType.GetMainType()) {
    case kBooleanType:
      ppc_rlwinm(r3, r3, 0, 31, 31);
      break;
    case kSInt8Type:
      ppc_extsb(r3, r3);
      break;
    case kSInt16Type:
      ppc_extsh(r3, r3);
      break;
    case kUInt16Type:
      ppc_rlwinm(r3, r3, 0, 16, 31);
      break;
    case kUInt8Type:
      ppc_rlwinm(r3, r3, 0, 24, 31);
      break;
    default:
      break;
  }
  StoreTacAddr(r3, result);
}

// ---------------------------------------------------------------- calls

void CGPPC::EmitCallTo(string const& name, string const& library) {
  MarkImport(Import::kImportPPCBranch, name, library, 0);
  ppc_bl(0);
}

char const* const kShapedCallInfix = "% shape ";

// A function that takes a count of arguments (a string sum) is called with
// other words than at its first call: such a call links by the name with
// its shape, so that the loader bridges each shape on its own.
string CGPPC::ShapedCallName(string const& name, string const& shape) {
  string first;
  if (!mCallShapes.GetEntry(name, first) || first == shape) return name;
  string shaped = name + string(kShapedCallInfix) + shape;
  if (!mCallShapes.HasEntry(shaped)) mCallShapes.AddEntry(shaped, shape);
  return shaped;
}

void CGPPC::CallIntrinsic(unsigned int functionID, TacAddr const* result) {
  string const& name = mIntrinsicLinkNames[functionID];
  string shape = NoteCallShape(name, IntrinsicHasVarArgs(functionID));
  PushCallParameters(result);
  EmitCallTo(ShapedCallName(name, shape), string());
  BackFromFunctionCall(result);
}

void CGPPC::tac_PutParam(TacLine const& line) { mArguments.push_back(line.opA); }

void CGPPC::tac_GetParam(TacLine const& line) {
  QASSERT_TEXT(!line.result->IsConstant(), "!line.result->IsConstant()");
  mParameters.push_back(line.result);
}

void CGPPC::tac_Intrinsic(TacLine const& line) {
  unsigned long functionID = line.opA->GetValue()->uSInt32;
  QASSERT_TEXT(functionID < kQtyIntrinsics, "functionID < kQtyIntrinsics");
  QASSERT_TEXT(functionID < mIntrinsicLinkNames.size(),
               "functionID < mIntrinsicLinkNames.size()");
  CallIntrinsic(functionID, line.result);
}

void CGPPC::tac_Call(TacLine const& line) {
  string const& name = line.opA->GetValue()->mString;
  string library =
      line.opB == nilTacAddr ? string() : line.opB->GetValue()->mString;
  string shape = NoteCallShape(name, false);
  PushCallParameters(line.result);
  EmitCallTo(ShapedCallName(name, shape), library);
  BackFromFunctionCall(line.result);
}

char const* const kPointerCallGluePrefix = "% call pointer ";

// The pointer is loaded after the arguments, into a register none of them
// uses: r12, where the glue expects it.
void CGPPC::CallThroughPointer(TacLine const& line, bool varargs) {
  string shape = NoteCallShape(string(), varargs);
  PushCallParameters(line.result);
  int reg = LoadTacAddr(line.opA, 1ul << kGlueTargetRegister);
  if (mOptions.mCallPointersThroughGlue) {
    string glue = string(kPointerCallGluePrefix) + shape;
    if (!mCallShapes.HasEntry(glue)) mCallShapes.AddEntry(glue, shape);
    EmitCallTo(glue, string());
  } else {
    ppc_mtctr(reg);
    ppc_bctrl();
  }
  BackFromFunctionCall(line.result);
}

void CGPPC::tac_CallPtr(TacLine const& line) { CallThroughPointer(line, false); }

void CGPPC::tac_CallPtrVarargs(TacLine const& line) {
  CallThroughPointer(line, true);
}

// Vtable entries are 8 bytes apart.
void CGPPC::tac_CallVirtual(TacLine const& line) {
  QASSERT_TEXT(mArguments.size() > 0, "mArguments.size() > 0");
  TacAddr const* object = mArguments[0];
  QASSERT(object->mType.GetMainType() == kObjectType);
  QASSERT(line.opA->IsConstant() &&
          line.opA->mType.GetMainType() == kSInt32Type);
  int disp = line.opA->GetValue()->uSInt32 * 8;
  PushCallParameters(line.result);
  int reg = LoadTacAddr(object, kSelectAnyGPR & ~kArgumentRegisters);
  Touch(reg);
  ppc_lwz(reg, 0, reg);
  ppc_lwz(reg, disp, reg);
  ppc_mtctr(reg);
  ppc_bctrl();
  BackFromFunctionCall(line.result);
}

// The linker fills the halves of the address; with the base for functions
// the pair holds the distance from the base register instead.
void CGPPC::tac_FuncPtr(TacLine const& line) {
  int reg = AllocateRegister(false, kSelectAnyGPR);
  string const& name = line.opA->GetValue()->mString;
  string library =
      line.opB == nilTacAddr ? string() : line.opB->GetValue()->mString;
  bool baseRelative = mOptions.mCodeModel == kCodeModelTableOfContents &&
                      mOptions.mUseBaseForFunctions;
  MarkImport(baseRelative ? Import::kImportPPCFunctionOffset
                          : Import::kImportPPCFunctionHigh,
             name, library, 0);
  ppc_lis(reg, 0);
  if (!baseRelative) MarkImport(Import::kImportPPCFunctionLow, name, library, 0);
  ppc_ori(reg, reg, 0);
  if (baseRelative) ppc_add(reg, reg, kBaseRegister);
  StoreTacAddr(reg, line.result);
}
