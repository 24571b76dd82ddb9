// Text encodings for scripts: the tag a text carries, a tag by name, a
// conversion, and a new tag on the same bytes.
//
// Tags are numbers (Encodings.UTF8, FindEncoding("UTF-8"): 134217984); the
// module Encodings is among the runtime's declarations. A conversion turns
// each byte that has no place in the target into one "?" and goes on; a
// target the system cannot convert to leaves the text as it was. An
// encoding name nobody knows raises a RuntimeException that says so.
#include "StandInHost/RuntimeLibrary/LibraryEntries.h"
#include "StandInHost/RuntimeLibrary/LibraryText.h"
#include "Universal/Encodings.h"
#include "quorl/QuorlBindings.h"

namespace quorl {
namespace standin {
namespace library {
namespace {

long StringEncoding(stringStorage* text) {
  return static_cast<long>(string(text).Encoding());
}

long StringFindEncoding(stringStorage* name) {
  string wanted(name);
  unsigned long tag = GetEncodingFromName(wanted);
  if (tag == kEncodingUnknown) {
    std::string message = "unknown encoding: \"" +
                          std::string(wanted.CString(), wanted.Length()) + "\"";
    detail::RaiseInScript("RuntimeException", message.c_str());
  }
  return static_cast<long>(tag);
}

stringStorage* StringConvertEncoding(stringStorage* text, long encoding) {
  string converted =
      ConvertEncoding(string(text), static_cast<unsigned long>(encoding));
  if (converted.IsEmpty() && text && text->mLength) {
    detail::RaiseInScript("OutOfMemoryException",
                  "no room for the text in the new encoding");
    return nullptr;
  }
  return HandOut(converted);
}

stringStorage* StringDefineEncoding(stringStorage* text, long encoding) {
  if (!text || !text->mLength) return nullptr;
  string retagged = MakeText(text->CString(), text->mLength,
                             static_cast<unsigned long>(encoding));
  return HandOut(retagged);
}

}  // namespace

LibraryEntries TextEncodingEntries() {
  return {
      Entry<&StringEncoding>("StringEncoding"),
      Entry<&StringFindEncoding>("StringFindEncoding"),
      Entry<&StringConvertEncoding>("StringConvertEncoding"),
      Entry<&StringDefineEncoding>("StringDefineEncoding"),
  };
}

}  // namespace library
}  // namespace standin
}  // namespace quorl
