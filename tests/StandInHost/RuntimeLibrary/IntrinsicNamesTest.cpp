// The runtime entry points that generated code reaches by intrinsic number
// resolve through the host, to the engine runtime's own functions; the
// intrinsics still missing are pinned, so that the list shrinks only on
// purpose.
#include "LibraryTestSupport.h"

#include <math.h>

#include <set>

#include "Common/ObjectModel/RuntimeObjectFoundation.h"
#include "Common/RuntimeColorFoundation.h"
#include "Common/RuntimeNumerics.h"
#include "Common/RuntimeStringFoundation.h"
#include "Compiler/Intrinsics.h"

namespace {

std::set<std::string> UnservedIntrinsics() {
  std::set<std::string> unserved;
  SimpleVector<string> const& names = IntrinsicFunctionNames();
  for (unsigned long i = 1; i < names.size(); i++)
    if (!quorl::ResolveHostName(names[i].CString()))
      unserved.insert(names[i].CString());
  return unserved;
}

TEST(HostServesIntrinsics, OnlyTheRuntimeStillToComeIsMissing) {
  std::set<std::string> const expected = {
      // served by the plug-in itself, from its own copy of the runtime
      "RuntimeInit", "RuntimeExit", "RuntimeRaiseException",
      "RuntimeReraiseException", "RemoteDebuggerStartup", "RuntimeCheckStack",
      // object model
      "RuntimeNewObject", "RuntimeNewClass", "RuntimeRegisterClass",
      "RuntimeNewVtable", "RuntimeObjectIsa", "RuntimeCheckCast",
      "RuntimeLookupInterfaceVtable", "RuntimeLockUnlockObjects",
      "RuntimeNilObject", "RuntimeRaiseFunctionNotFoundException",
      "LoadFunctionPointerFromLibrary",
      // variants
      "VarType", "RuntimeIsNumeric", "IsNull", "VariantHash", "VariantEqual",
      "VariantToInt32", "VariantToUInt32", "VariantToInt64", "VariantToUInt64",
      "VariantToColor", "VariantToSingle", "VariantToDouble",
      "VariantToObject", "VariantToString", "VariantToBoolean",
      "VariantToDate", "VariantToCurrency", "VariantCompare", "VariantAdd",
      "VariantSubtract", "VariantMultiply", "VariantDivide",
      "VariantIntegerDivide", "VariantModulo", "VariantNegate",
      "VariantPower", "VariantAnd", "VariantOr", "VariantNot",
      "Int32ToVariant", "UInt32ToVariant", "Int64ToVariant",
      "UInt64ToVariant", "ColorToVariant", "SingleToVariant",
      "DoubleToVariant", "CurrencyToVariant", "ObjectToVariant",
      "StringToVariant", "BooleanToVariant",
      // arrays
      "CreateArray", "RuntimeCreateArrayCastWrapper",
      "RuntimeCreateStructureArray", "RaiseOutOfBoundsException",
      // delegates
      "RuntimeCreateDelegate", "RuntimeDelegateIsA",
      "RuntimeCheckDelegateCast", "RuntimeCompareDelegates",
  };
  std::set<std::string> unserved = UnservedIntrinsics();
  for (std::string const& name : unserved)
    EXPECT_TRUE(expected.count(name)) << name << " is not served";
  for (std::string const& name : expected)
    EXPECT_TRUE(unserved.count(name)) << name << " is served now: unpin it";
}

template <class Function>
void* Address(Function* function) {
  return reinterpret_cast<void*>(function);
}

TEST(HostServesIntrinsics, NamesLeadToTheEngineRuntimesFunctions) {
  EXPECT_EQ(quorl::ResolveHostName("RuntimePow"), Address(&RuntimePow));
  EXPECT_EQ(quorl::ResolveHostName("RuntimeCvtCurrencyToReal64"),
            Address(&RuntimeCvtCurrencyToReal64));
  EXPECT_EQ(quorl::ResolveHostName("RuntimeShiftRightInt64"),
            Address(&RuntimeShiftRightInt64));
  EXPECT_EQ(quorl::ResolveHostName("RuntimeLockUnlockStrings"),
            Address(&RuntimeLockUnlockStrings));
  EXPECT_EQ(quorl::ResolveHostName("SwapCFStringLocks"),
            Address(&SwapCFStringLocks));
  EXPECT_EQ(quorl::ResolveHostName("readColorMagenta"),
            Address(&readColorMagenta));
  EXPECT_EQ(quorl::ResolveHostName("RuntimeUnlockObject"),
            Address(&RuntimeUnlockObject));
  // The library's math names are the engine runtime's functions too.
  EXPECT_EQ(quorl::ResolveHostName("RuntimeSign"), Address(&RuntimeSign));
  EXPECT_EQ(quorl::ResolveHostName("rnd"), Address(&rnd));
}

TEST(HostServesIntrinsics, CallsThroughTheResolverUseTheCConvention) {
  typedef long long Binary64(long long, long long);
  EXPECT_EQ(Library<Binary64>("RuntimeDivSInt64")(-7, 2), -3);
  EXPECT_EQ(Library<Binary64>("RuntimeModSInt64")(-7, 0), 0);
  EXPECT_EQ(Library<Binary64>("RuntimeMulCurrency")(25000, 25000), 62500);
  EXPECT_EQ(Library<long long(long long, long)>("RuntimeShiftLeftInt64")(3, 64),
            3);
  EXPECT_EQ(Library<double(unsigned long long)>("RuntimeCvtUInt64ToReal64")(
                0xFFFFFFFFFFFFFFFFull),
            18446744073709551616.0);
  EXPECT_EQ(Library<long(float)>("RuntimeCvtReal32ToSInt32")(-2.5f), -2);
  EXPECT_EQ(Library<long long(double)>("RuntimeCvtReal64ToCurrency")(-0.5),
            -5000);
}

TEST(HostServesIntrinsics, RndThroughTheHostFollowsTheSeed) {
  srnd(1);
  auto hostRnd = Library<double()>("rnd");
  EXPECT_EQ(hostRnd(), 16807 / 1048576.0);
  EXPECT_EQ(hostRnd(), 687738 / 1048576.0);
}

}  // namespace

// A script compiled under "disableAutoWaitCursor" calls two in every method:
// unserved, such a script could not be linked at all.
TEST(HostServesIntrinsics, EnvironmentHooksAreServed) {
  EXPECT_NE(quorl::ResolveHostName("DisableAutoWaitCursor"), nullptr);
  EXPECT_NE(quorl::ResolveHostName("EnableAutoWaitCursor"), nullptr);
  // And one under "#pragma Debug" calls the debugger's hook per statement.
  EXPECT_NE(quorl::ResolveHostName("DebuggerHook"), nullptr);
}
