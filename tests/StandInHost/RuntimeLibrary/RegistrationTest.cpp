// The intrinsics still missing (pinned), and calls through the resolver.
#include "LibraryTestSupport.h"

#include <set>

#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Compiler/Intrinsics.h"
#include "StandInHost/RuntimeLibrary/LibraryEntries.h"

namespace {

std::string sRaisedClass;
void RecordRaise(char const* className, char const*) { sRaisedClass = className; }

long RefusedAllocation(long) { throw std::bad_alloc(); }
long Doubled(long n) { return 2 * n; }

TEST(LibraryEntries, AFailedAllocationBecomesTheScriptsOutOfMemoryException) {
  SetNamedExceptionRaiser(&RecordRaise);
  auto refused = reinterpret_cast<long (*)(long)>(
      quorl::standin::library::Entry<&RefusedAllocation>("Refused").address);
  auto doubled = reinterpret_cast<long (*)(long)>(
      quorl::standin::library::Entry<&Doubled>("Doubled").address);
  EXPECT_EQ(doubled(21), 42);
  EXPECT_EQ(sRaisedClass, "");
  EXPECT_EQ(refused(1), 0);
  EXPECT_EQ(sRaisedClass, "OutOfMemoryException");
  SetNamedExceptionRaiser(nullptr);
}

TEST(HostServesIntrinsics, OnlyTheRuntimeStillToComeIsMissing) {
  // Served by the plug-in itself, then the object model, variants, arrays and delegates.
  std::set<std::string> const expected = {
      "RuntimeInit", "RuntimeExit", "RuntimeRaiseException", "RuntimeReraiseException",
      "RemoteDebuggerStartup", "RuntimeCheckStack", "RuntimeNewObject", "RuntimeNewClass",
      "RuntimeRegisterClass", "RuntimeNewVtable", "RuntimeObjectIsa", "RuntimeCheckCast",
      "RuntimeLookupInterfaceVtable", "RuntimeLockObject", "RuntimeUnlockObject",
      "RuntimeLockUnlockObjects", "RuntimeNilObject",
      "RuntimeRaiseFunctionNotFoundException", "LoadFunctionPointerFromLibrary", "VarType",
      "RuntimeIsNumeric", "IsNull", "VariantHash", "VariantEqual", "VariantToInt32", "VariantToUInt32",
      "VariantToInt64", "VariantToUInt64", "VariantToColor", "VariantToSingle", "VariantToDouble",
      "VariantToObject", "VariantToString", "VariantToBoolean", "VariantToDate", "VariantToCurrency",
      "VariantCompare", "VariantAdd", "VariantSubtract", "VariantMultiply", "VariantDivide",
      "VariantIntegerDivide", "VariantModulo", "VariantNegate", "VariantPower", "VariantAnd",
      "VariantOr", "VariantNot", "Int32ToVariant", "UInt32ToVariant", "Int64ToVariant",
      "UInt64ToVariant", "ColorToVariant", "SingleToVariant", "DoubleToVariant", "CurrencyToVariant",
      "ObjectToVariant", "StringToVariant", "BooleanToVariant", "CreateArray",
      "RuntimeCreateArrayCastWrapper", "RuntimeCreateStructureArray", "RaiseOutOfBoundsException",
      "RuntimeCreateDelegate", "RuntimeDelegateIsA", "RuntimeCheckDelegateCast",
      "RuntimeCompareDelegates", "RuntimePassStop"};
  std::set<std::string> unserved;
  SimpleVector<string> const& names = IntrinsicFunctionNames();
  for (unsigned long i = 1; i < names.size(); i++)
    if (!quorl::ResolveHostName(names[i].CString())) unserved.insert(names[i].CString());
  for (std::string const& name : unserved) EXPECT_TRUE(expected.count(name)) << name << " is not served";
  for (std::string const& name : expected)
    EXPECT_TRUE(unserved.count(name)) << name << " is served now: unpin it";
}

TEST(HostServesIntrinsics, CallsThroughTheResolverUseTheCConvention) {
  EXPECT_EQ(Library<long long(long long, long long)>("RuntimeModSInt64")(-7, 0), 0);
  EXPECT_EQ(Library<long long(long long, long)>("RuntimeShiftLeftInt64")(3, 64), 3);
  EXPECT_EQ(Library<double(unsigned long long)>("RuntimeCvtUInt64ToReal64")(0xFFFFFFFFFFFFFFFFull),
            18446744073709551616.0);
  EXPECT_EQ(Library<long long(double)>("RuntimeCvtReal64ToCurrency")(-0.5), -5000);
}

}  // namespace
