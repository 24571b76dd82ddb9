// Output and input of running scripts, passed to the correspondent as
// UTF-8.
#include "Compiler/BackEnds/Minilinker/QuorlScriptIntrinsics.h"
#include "Universal/Assertion.h"

stringStorage* Input(QuorlScriptCorrespondent* corr, stringStorage* prompt) {
  QASSERT_TEXT(corr, "corr");
  string text = string(prompt).GetUTF8String();
  unsigned long resultLength = 0;
  char* answer = corr->Input(text.CString(), text.Length(), &resultLength);
  if (!answer) return nullptr;
  string result;
  result.ConstructFromBuffer(answer, static_cast<unsigned int>(resultLength));
  result.SetEncoding(kEncodingUTF8);
  delete[] answer;
  return result.ExtractStringStorage();
}

void Print(QuorlScriptCorrespondent* corr, stringStorage* text) {
  QASSERT_TEXT(corr, "corr");
  string utf8 = string(text).GetUTF8String();
  corr->Print(utf8.CString(), utf8.Length());
}
