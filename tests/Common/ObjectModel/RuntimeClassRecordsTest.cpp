// Class records made at run time: their layout and inheritance.
#include <gtest/gtest.h>
#include <unistd.h>

#include "Common/ObjectModel/RuntimeObjectFoundation.h"

namespace {

unsigned char* Bytes(void* p) { return static_cast<unsigned char*>(p); }

void FillWords(void* table, int words, int32_t first) {
  for (int i = 0; i < words; i++) static_cast<int32_t*>(table)[i] = first + i;
}

int32_t Word(void* table, int i) { return static_cast<int32_t*>(table)[i]; }

}  // namespace

TEST(RuntimeNewClassTest, TheTablesFollowTheHeaderInOrder) {
  RuntimeClass* cls = RuntimeNewClass(nullptr, 2, 3, 4, 5, 6);
  unsigned char* header = Bytes(cls);
  EXPECT_EQ(header + 68, Bytes(cls->InterfaceEntries()));
  EXPECT_EQ(header + 68 + 36, Bytes(cls->methods.table));
  EXPECT_EQ(Bytes(cls->methods.table) + 16, Bytes(cls->events.table));
  EXPECT_EQ(Bytes(cls->events.table) + 32, Bytes(cls->sharedMethods.table));
  EXPECT_EQ(Bytes(cls->sharedMethods.table) + 40,
            Bytes(cls->properties.table));
  EXPECT_EQ(2, cls->methods.count);
  EXPECT_EQ(3, cls->interfaceCount);
  EXPECT_EQ(4, cls->events.count);
  EXPECT_EQ(5, cls->sharedMethods.count);
  EXPECT_EQ(6, cls->properties.count);
  EXPECT_EQ(nullptr, cls->base);
  for (unsigned char* p = header + 68; p < header + 68 + 36 + 16 + 32 + 40 + 96; p++)
    ASSERT_EQ(0, *p) << p - header;
  EXPECT_EQ(0, cls->instanceSize);
  EXPECT_EQ(nullptr, cls->initializer);
}

TEST(RuntimeNewClassTest, AChildStartsWithItsParentsTables) {
  RuntimeClass* base = RuntimeNewClass(nullptr, 2, 1, 1, 3, 1);
  FillWords(base->methods.table, 4, 100);
  FillWords(base->InterfaceEntries(), 3, 200);
  FillWords(base->events.table, 2, 300);
  FillWords(base->sharedMethods.table, 6, 400);
  FillWords(base->properties.table, 4, 500);
  RuntimeClass* child = RuntimeNewClass(base, 3, 2, 1, 1, 2);
  EXPECT_EQ(base, child->base);
  EXPECT_EQ(103, Word(child->methods.table, 3));
  EXPECT_EQ(0, Word(child->methods.table, 4));
  EXPECT_EQ(202, Word(child->InterfaceEntries(), 2));
  EXPECT_EQ(0, Word(child->InterfaceEntries(), 3));
  EXPECT_EQ(301, Word(child->events.table, 1));
  // The shared table takes what fits, without complaint.
  EXPECT_EQ(401, Word(child->sharedMethods.table, 1));
  EXPECT_EQ(500, Word(child->properties.table, 0));
  EXPECT_EQ(0, Word(child->properties.table, 4));
}

TEST(RuntimeNewClassTest, AChildSmallerThanItsParentIsAFault) {
  RuntimeClass* base = RuntimeNewClass(nullptr, 0, 0, 0, 0, 2);
  EXPECT_EXIT({ dup2(2, 1); RuntimeNewClass(base, 0, 0, 0, 0, 1); },
              testing::ExitedWithCode(1), "Assertion failed");
}

