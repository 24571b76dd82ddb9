// Ref handles: counting, the nil forms, and non-recursive release of chains.
#include <gtest/gtest.h>

#include "Compiler/SmartRef.h"

namespace {

int gLiveNodes = 0;
int gDestructorDepth = 0;
int gMaxDestructorDepth = 0;

// Each node holds the next: releasing the head releases the chain.
class Node {
 public:
  Node() { gLiveNodes++; }
  virtual ~Node() {
    gDestructorDepth++;
    if (gDestructorDepth > gMaxDestructorDepth)
      gMaxDestructorDepth = gDestructorDepth;
    mNext.Unbind();
    gDestructorDepth--;
    gLiveNodes--;
  }
  Ref<Node> mNext;
  int mValue = 0;
};

}  // namespace

TEST(SmartRef, NilForms) {
  Ref<Node> a, b(0);
  EXPECT_FALSE(a);
  EXPECT_FALSE(b);
  EXPECT_TRUE(a == 0);
  EXPECT_EXIT({ Ref<Node> bad(1); }, testing::ExitedWithCode(1), "");
}

TEST(SmartRef, SharingAndLastRelease) {
  gLiveNodes = 0;
  {
    Ref<Node> a;
    a.BindNewObject(new Node);
    a->mValue = 4;
    EXPECT_TRUE(a);
    EXPECT_EQ(a.Rep()->mRefCount, 1);
    Ref<Node> b = a;
    EXPECT_EQ(a.Rep()->mRefCount, 2);
    EXPECT_TRUE(a == b);
    EXPECT_EQ(b->mValue, 4);
    b = b;
    EXPECT_EQ(a.Rep()->mRefCount, 2);
    a.Unbind();
    EXPECT_FALSE(a);
    EXPECT_EQ(gLiveNodes, 1);
  }
  EXPECT_EQ(gLiveNodes, 0);
}

TEST(SmartRef, AssigningFromInsideTheOldObjectIsSafe) {
  gLiveNodes = 0;
  Ref<Node> head;
  head.BindNewObject(new Node);
  head->mNext.BindNewObject(new Node);
  head->mNext->mValue = 9;
  head = head->mNext;  // the old head held the only other reference
  EXPECT_EQ(gLiveNodes, 1);
  EXPECT_EQ(head->mValue, 9);
}

TEST(SmartRef, LongChainIsReleasedWithoutRecursion) {
  gLiveNodes = 0;
  gDestructorDepth = gMaxDestructorDepth = 0;
  Ref<Node> head;
  head.BindNewObject(new Node);
  Ref<Node> tail = head;
  for (int i = 1; i < 10000; i++) {
    tail->mNext.BindNewObject(new Node);
    tail = tail->mNext;
  }
  tail.Unbind();
  EXPECT_EQ(gLiveNodes, 10000);
  head.Unbind();
  EXPECT_EQ(gLiveNodes, 0);
  EXPECT_EQ(gMaxDestructorDepth, 1);
}
