// The traceback table after a function's code: a zero word, where no
// instruction can be, then the fields a debugger or a stack walker reads to
// learn the function's name, length and saved registers.
#include "Compiler/BackEnds/PowerPC/CGPPC.h"

namespace {

enum {
  kTracebackLanguage = 9,       // "C++"-like compiled code
  kHasTracebackOffset = 0x20,   // first flags byte
  kNamePresent = 0x40,          // second flags byte
  kSavesConditionRegister = 0x02,
  kSavesLinkRegister = 0x01,
};

}  // namespace

void CGPPC::GenerateTracebackTable(unsigned int prologLength, int savedGPRs,
                                   int savedFPRs) {
  unsigned int codeLength = mFunc->Length();
  string const& name = mFunc->mName;
  unsigned int flags2 = kNamePresent;
  if (mChangedCR) flags2 |= kSavesConditionRegister;
  if (mMadeCall) flags2 |= kSavesLinkRegister;
  mFunc->Append32(0);
  mFunc->Append8(0);  // version
  mFunc->Append8(kTracebackLanguage);
  mFunc->Append8(kHasTracebackOffset);
  mFunc->Append8(flags2);
  mFunc->Append8(savedFPRs & 0x3f);
  mFunc->Append8(savedGPRs & 0x3f);
  mFunc->Append8(0);  // fixed-point parameters: not recorded
  mFunc->Append8(0);  // float parameters
  mFunc->Append32(codeLength);
  mFunc->Append16(static_cast<unsigned int>(name.Length()));
  mFunc->Append(name.CString(), static_cast<unsigned int>(name.Length()));
  while (mFunc->Length() % 4) mFunc->Append8(0);
}
