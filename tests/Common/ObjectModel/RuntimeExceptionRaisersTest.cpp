// The runtime's own raises, as seen by the unhandled hook when no script
// frame handles them.
#include <gtest/gtest.h>

#include <vector>

#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "ObjectModelTestSupport.h"

namespace {

// Each raise that reached the hook: its class (nil for a nil exception)
// and its count at the time.
struct Seen {
  RuntimeClass* cls;
  int32_t refCount;
  bool operator==(Seen const& o) const {
    return cls == o.cls && refCount == o.refCount;
  }
};
std::vector<Seen> sSeen;
void RecordUnhandled(RuntimeObject* exception) {
  sSeen.push_back({RuntimeClassOf(exception),
                   exception ? exception->refCount : 0});
}

void RaiseRecursively() { RaiseNilObjectException(); }

}  // namespace

// With no class at all nothing is raised (and no hook is no failure);
// without its own class, the nil object exception stands in.
TEST(RuntimeRaiserTest, MissingClassesFallBackToTheNilObjectExceptionOrNothing) {
  SetUnhandledExceptionHook(RecordUnhandled);
  CallAtFrameChainEnd(RaiseNilObjectException);
  CallAtFrameChainEnd(RaiseIllegalCastException);
  SetUnhandledExceptionHook(nullptr);
  CallAtFrameChainEnd(RaiseNilObjectException);
  EXPECT_EQ((std::vector<Seen>{{nullptr, 0}, {nullptr, 0}}), sSeen);
  RuntimeClass* nilObject = TestClass();
  SetNilObjectExceptionClass(nilObject);
  SetUnhandledExceptionHook(RecordUnhandled);
  CallAtFrameChainEnd(RaiseIllegalCastException);
  CallAtFrameChainEnd(RaiseOutOfBoundsException);
  EXPECT_EQ((std::vector<Seen>{{nullptr, 0}, {nullptr, 0}, {nilObject, 1}, {nilObject, 1}}), sSeen);
}

TEST(RuntimeRaiserTest, ANilRaiseWhileMakingTheNilExceptionDoesNotRecurse) {
  RuntimeClass* nilObject = TestClass();
  nilObject->initializer = [](RuntimeObject*) { RaiseRecursively(); };
  SetNilObjectExceptionClass(nilObject);
  SetUnhandledExceptionHook(RecordUnhandled);
  CallAtFrameChainEnd(RaiseNilObjectException);
  EXPECT_EQ((std::vector<Seen>{{nullptr, 0}, {nilObject, 1}}), sSeen);
}
