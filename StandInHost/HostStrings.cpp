#include "StandInHost/HostStrings.h"

namespace quorl {
namespace standin {

std::string ToStdString(VELDString text) {
  if (!text || text->mLength == 0) return std::string();
  uint32_t tag = text->mEncoding;
  if (tag == kEncodingUTF8 || tag == kEncodingASCII || tag == kEncodingUnknown)
    return std::string(text->CString(), text->mLength);
  string utf8 = string(text).GetUTF8String();
  return std::string(utf8.CString(), utf8.Length());
}

VELDString NewHostString(std::string const& text) {
  return NewStringStorage(text.data(), static_cast<uint32_t>(text.size()),
                          kEncodingUTF8);
}

}  // namespace standin
}  // namespace quorl
