// The marker scanner, the frame crawl and the failure report.
#include <gtest/gtest.h>
#include <stdio.h>
#include <string.h>

#include <iterator>
#include <vector>

#include "Common/ObjectModel/ExceptionMarkerLayout.h"
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"

namespace {

// Marker records with filler between them and `pop ebp; ret` at the end.
class MarkedCode {
 public:
  void Filler(int n) { mBytes.insert(mBytes.end(), n, 0x90); }
  size_t Marker(int marker, int16_t frameOffset = 0) {
    size_t at = mBytes.size();
    int length = marker == kHandlerBlockMarker ? kHandlerRecordLength
                                               : kTryMarkerLength;
    mBytes.resize(at + length, 0);
    mBytes[at] = kMarkerJumpOpcode;
    int32_t skip = length - kMarkerValueOffset;  // normal flow passes the record
    memcpy(&mBytes[at + 1], &skip, 4);
    memcpy(&mBytes[at + kMarkerValueOffset], &marker, 4);
    if (marker == kHandlerBlockMarker)
      memcpy(&mBytes[at + kMarkerFrameOffset], &frameOffset, 2);
    return at;
  }
  unsigned char* End() {
    mBytes.push_back(0x5D);
    mBytes.push_back(0xC3);
    return mBytes.data();
  }
  std::vector<unsigned char> mBytes;
};

int sCrawled = 0;
bool CountFrames(void* frame, void* data) {
  sCrawled++;
  return frame == data;
}

}  // namespace

TEST(FindHandlerSwitchBlockTest, RegionsAfterTheStartAreSkippedWhole) {
  MarkedCode code;
  code.Filler(3);                                        // the raise is here
  size_t innerBegin = code.Marker(kTryBeginMarker);
  code.Filler(2);
  size_t innerPad = code.Marker(kHandlerBlockMarker);
  code.Marker(kTryEndMarker);
  code.Filler(1);
  size_t outerPad = code.Marker(kHandlerBlockMarker, -8);
  code.Marker(kTryEndMarker);
  unsigned char* bytes = code.End();
  EXPECT_EQ(bytes + outerPad, FindHandlerSwitchBlock(bytes));
  EXPECT_EQ(bytes + innerPad, FindHandlerSwitchBlock(bytes + innerBegin + kTryMarkerLength));
  EXPECT_EQ(bytes + outerPad, FindHandlerSwitchBlock(bytes + innerPad + kHandlerRecordLength));
}

// Operand bytes of ordinary code: `pop ebp; ret` inside an address, and a
// marker value after an E9 byte (a constant 1041, a region marker's value
// behind a jump that skips more than the marker).
TEST(FindHandlerSwitchBlockTest, BytesThatOnlyLookLikeRecordsAreNotTaken) {
  MarkedCode code;
  unsigned char const lookalikes[] = {
      0xA1, 0x5D, 0xC3, 0x00, 0x00,                          // mov eax, [0xC35D]
      0xE9, 0x00, 0x00, 0x00, 0x00, 0x11, 0x04, 0x00, 0x00,  // 1041, no skip
      0x01, 0x00,                                            // nonzero half-word
      0xE9, 0x40, 0x00, 0x00, 0x00, 0x12, 0x04, 0x00, 0x00}; // 1042, long skip
  code.mBytes.assign(std::begin(lookalikes), std::end(lookalikes));
  size_t pad = code.Marker(kHandlerBlockMarker);
  unsigned char* bytes = code.End();
  EXPECT_EQ(nullptr, FindHandlerSwitchBlock(bytes)) << "stopped at the operand";
  EXPECT_EQ(bytes + pad, FindHandlerSwitchBlockBefore(bytes, bytes + code.mBytes.size()));
  EXPECT_EQ(nullptr, FindHandlerSwitchBlockBefore(bytes, bytes + pad));
}

TEST(FindHandlerSwitchBlockTest, TheFunctionsEndStopsTheScan) {
  MarkedCode code;
  code.Filler(4);
  code.mBytes.push_back(0xC9);  // leave; ret
  code.mBytes.push_back(0xC3);
  code.Marker(kHandlerBlockMarker);
  unsigned char* bytes = code.End();
  EXPECT_EQ(nullptr, FindHandlerSwitchBlock(bytes));
  EXPECT_EQ(bytes + 6, FindHandlerSwitchBlock(bytes + 6));
}

TEST(CrawlStackTest, TheWalkClimbsAndStopsAtBackwardLinks) {
  void* frames[8] = {};
  frames[0] = &frames[2];
  frames[2] = &frames[4];
  frames[4] = &frames[1];  // runs backward
  EXPECT_EQ(&frames[1], CrawlStack(&frames[0], &frames[7], CountFrames, nullptr));
  EXPECT_EQ(3, sCrawled);
  frames[4] = &frames[6];  // past the limit
  sCrawled = 0;
  EXPECT_EQ(&frames[6], CrawlStack(&frames[0], &frames[5], CountFrames, nullptr));
  EXPECT_EQ(3, sCrawled);
}

TEST(RuntimeExceptionTest, TheFailureReport) {
  EXPECT_EQ(nullptr, FailureMode(9));
  testing::internal::CaptureStdout();
  DisplayRuntimeErrorAlert(0, 4, "file.cpp", 12, "x > 0", "detail");
  fflush(stdout);
  EXPECT_EQ(
      "Runtime Error 4:Failed Assertion\n\nPlease report what caused this "
      "error\nalong with the information below.\n\nfile.cpp: 12\nFailure "
      "Condition: x > 0\ndetail\n\n",
      testing::internal::GetCapturedStdout());
}
