// The members of an embedding program's class, as the host reports them to
// the plug-in for a script's context.
#include <gtest/gtest.h>

#include <string>

#include "StandInHost/HostClassMembers.h"
#include "quorl/QuorlHost.h"

namespace {

template <class Proc>
Proc Operation(char const* name) {
  return reinterpret_cast<Proc>(quorl::ResolveHostName(name));
}

std::string TakeText(VELDString text) {
  std::string result(text->CString(), text->mLength);
  EXPECT_EQ(text->mRefCount, 1) << result;
  UnlockStringStorage(text);
  return result;
}

void Beep(VELDObject) {}
int Twice(VELDObject, int value) { return 2 * value; }
int GetCount(VELDObject, long) { return 0; }
void SetCount(VELDObject, long, int) {}

VELDClassRef DefineGreeter() {
  return quorl::DefineClass(
      quorl::HostClass("Greeter", 8)
          .AddMethod(&Beep, "Sub Beep()")
          .AddMethod(&Twice, "Function Twice(x As Integer) As Integer")
          .AddProperty(reinterpret_cast<void*>(&GetCount),
                       reinterpret_cast<void*>(&SetCount), 4,
                       "Count As Integer"));
}

TEST(HostClassMembers, TheReceiverBecomesTheFirstParameter) {
  using quorl::standin::ReportedMethodDeclaration;
  EXPECT_EQ(ReportedMethodDeclaration("Sub Beep()"),
            "Sub Beep(Self As Object)");
  EXPECT_EQ(ReportedMethodDeclaration("Function Twice(x As Integer) As Integer"),
            "Function Twice(Self As Object, x As Integer) As Integer");
  EXPECT_EQ(ReportedMethodDeclaration("Sub Beep( )"),
            "Sub Beep(Self As Object )");
  EXPECT_EQ(ReportedMethodDeclaration("Function Now As Double"),
            "Function Now(Self As Object) As Double");
  EXPECT_EQ(ReportedMethodDeclaration("Private Sub Hidden"),
            "Private Sub Hidden(Self As Object)");
}

TEST(HostClassMembers, MembersAreReportedInOrderWithFreshDeclarations) {
  VELDClassRef greeter = DefineGreeter();
  auto getMethod = Operation<VELDGetClassMethodProc>("VELDGetClassMethod");
  void* entry = nullptr;
  VELDString declaration = nullptr;
  ASSERT_TRUE(getMethod(greeter, 1, &entry, &declaration));
  EXPECT_EQ(entry, reinterpret_cast<void*>(&Twice));
  EXPECT_EQ(TakeText(declaration),
            "Function Twice(Self As Object, x As Integer) As Integer");
  EXPECT_FALSE(getMethod(greeter, 2, &entry, &declaration));
  EXPECT_FALSE(getMethod(greeter, -1, &entry, &declaration));

  auto getProperty = Operation<VELDGetClassPropertyProc>("VELDGetClassProperty");
  void* getter = nullptr;
  void* setter = nullptr;
  long parameter = 0;
  ASSERT_TRUE(getProperty(greeter, 0, &getter, &setter, &parameter, &declaration));
  EXPECT_EQ(getter, reinterpret_cast<void*>(&GetCount));
  EXPECT_EQ(setter, reinterpret_cast<void*>(&SetCount));
  EXPECT_EQ(parameter, 4);
  EXPECT_EQ(TakeText(declaration), "Count As Integer");
  EXPECT_FALSE(getProperty(greeter, 1, &getter, &setter, &parameter, &declaration));
}

TEST(HostClassMembers, AClassReportsOnlyItsOwnMembers) {
  DefineGreeter();
  VELDClassRef loud = quorl::DefineClass(
      quorl::HostClass("LoudGreeter", 0, "Greeter").AddMethod(&Beep, "Sub Shout()"));
  EXPECT_EQ(Operation<VELDCountClassMethodsProc>("VELDCountClassMethods")(loud), 1);
  EXPECT_EQ(Operation<VELDCountClassPropertiesProc>("VELDCountClassProperties")(loud), 0);
  EXPECT_EQ(Operation<VELDCountClassMethodsProc>("VELDCountClassMethods")(nullptr), 0);
}

}  // namespace
