// The run of one link and the services around it: failure reports, the
// delegate's cancel, stub names and string tables.
#include "Compiler/Linker/Linker.h"

#include "Universal/Assertion.h"
#include "Universal/ByteHelpers.h"

char const* const kInitializeFunctionName = "% initialize";
char const* const kFinalizeFunctionName = "% finalize";
char const* const kStubNamePrefix = "%__glink.";

Linker::Linker()
    : mOneCode(nullptr), mStaticData(nullptr), mDelegate(nullptr),
      mFailed(false) {}

Linker::~Linker() {
  delete mOneCode;
  delete mStaticData;
}

// The list callers are added as ordinary functions first, so that they are
// merged and resolved like everything else.
Ref<DataBlock> Linker::Link(Ref<CodeModule> source, Ref<DebuggerSymbols> debug,
                            LinkerDelegate* delegate) {
  QASSERT_TEXT(source, "source");
  mSrc = source;
  mDebug = debug;
  mDelegate = delegate;
  GenerateStaticInitializerAndFinalizer();
  PrepareCodeModule();
  MergeModuleFunctions();
  MergeModuleStaticData();
  MergeModuleLiterals();
  Ref<DataBlock> result = FormatLink();
  if (mFailed) return Ref<DataBlock>();
  MergeDebugData();
  return result;
}

// The base class has no final form to give.
Ref<DataBlock> Linker::FormatLink() { return Ref<DataBlock>(); }

void Linker::GenerateStaticInitializerAndFinalizer() {
  GenerateListCaller(kInitializeFunctionName, mSrc->mInitializers);
  GenerateListCaller(kFinalizeFunctionName, mSrc->mFinalizers);
}

// A cancelled link has failed, but a cancel is no failure to report.
void Linker::LinkError(int code, string const& text) {
  if (!mFailed && mDelegate)
    mDelegate->LinkerFailed(string("Linker failed with error #") +
                            ultoa(code) + string(" ") + text);
  mFailed = true;
}

void Linker::DelegateIdle() {
  if (mDelegate && mDelegate->LinkerProgress()) mFailed = true;
}

string Linker::StubName(string const& linkName) {
  QASSERT_TEXT(left(linkName, 9) != kStubNamePrefix,
               "left( linkName, 9 ) != \"%__glink.\"");
  return (string(kStubNamePrefix) + linkName).GetUTF8String();
}

unsigned long Linker::AddStringToBlock(string const& text,
                                       Ref<DataBlock> block,
                                       StringMapCase<unsigned long>* offsets) {
  QASSERT_TEXT(block, "block");
  QASSERT_TEXT(offsets, "offsets");
  unsigned long offset;
  if (offsets->GetEntry(text, offset)) return offset;
  offset = block->Length();
  block->Append(text.CString(), static_cast<unsigned int>(text.Length()));
  block->Append8(0);
  offsets->AddEntry(text, offset);
  return offset;
}
