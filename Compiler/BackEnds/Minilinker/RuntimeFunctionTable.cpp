// The table from link names to addresses that the in-memory linker resolves
// generated code against.
#include "Common/Arrays/RuntimeArrays.h"
#include "Common/ObjectModel/RuntimeDelegates.h"
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Common/RuntimeExternalFunctions.h"
#include "Common/RuntimeStringFoundation.h"
#include "Common/Variants/RuntimeVariants.h"
#include "Compiler/BackEnds/Minilinker/QuorlScriptIntrinsics.h"
#include "Compiler/Intrinsics.h"

namespace {

struct OwnEntry {
  char const* mName;
  void* mAddress;
};

#define QUORL_OWN(name, function) {name, reinterpret_cast<void*>(&function)}

// The plug-in serves these itself, in this order.
OwnEntry const kOwnEntries[] = {
    QUORL_OWN("Input", Input),
    QUORL_OWN("Print", Print),
    QUORL_OWN("RuntimeInit", RuntimeInit),
    QUORL_OWN("RuntimeExit", ExitQuorlScriptRuntime),
    QUORL_OWN("VELDYieldToQuorl", RuntimeYield),
    QUORL_OWN("RuntimePassStop", RuntimePassStop),
    QUORL_OWN("RuntimeDebugEntry", RuntimeDebugEntry),
    QUORL_OWN("RemoteDebuggerStartup", RemoteDebuggerStartup),
    QUORL_OWN("RuntimeCheckStack", RuntimeCheckStack),
    // Optimized code keeps the limit at hand and asks for it here.
    QUORL_OWN("RuntimeStackLimit", GetRuntimeStackLimit),
    // A sum of several strings: this copy raises when it cannot be stored.
    QUORL_OWN("RuntimeAddStrings", RuntimeAddStrings),
    QUORL_OWN("RuntimeNewClass", RuntimeNewClass),
    QUORL_OWN("RuntimeNewObject", RuntimeNewObject),
    QUORL_OWN("RuntimeRegisterClass", RuntimeRegisterClass),
    QUORL_OWN("RuntimeNewVtable", RuntimeNewVtable),
    QUORL_OWN("RuntimeRaiseException", RuntimeRaiseException),
    QUORL_OWN("RuntimeReraiseException", RuntimeReraiseException),
    QUORL_OWN("RaiseExceptionClass", RaiseExceptionClass),
    QUORL_OWN("RuntimeUnhandledException", RuntimeUnhandledException),
    QUORL_OWN("RaiseNilObjectException", RaiseNilObjectException),
    QUORL_OWN("RaiseIllegalCastException", RaiseIllegalCastException),
    QUORL_OWN("RaiseOutOfBoundsException", RaiseOutOfBoundsException),
    QUORL_OWN("RuntimeRaiseFunctionNotFoundException",
              RuntimeRaiseFunctionNotFoundException),
    QUORL_OWN("LoadFunctionPointerFromLibrary", LoadFunctionPointerFromLibrary),
    // Optimized code raises this for an element outside the bounds.
    QUORL_OWN("RaiseIndexOutOfBounds", RaiseIndexOutOfBounds),
    // The exception classes, by the link names their declarations carry.
    QUORL_OWN("RuntimeExceptionLookup", RuntimeExceptionLookup),
    QUORL_OWN("OutOfMemoryExceptionLookup", OutOfMemoryExceptionLookup),
    QUORL_OWN("NilObjectExceptionLookup", NilObjectExceptionLookup),
    QUORL_OWN("IllegalCastExceptionLookup", IllegalCastExceptionLookup),
    QUORL_OWN("TypeMismatchExceptionLookup", TypeMismatchExceptionLookup),
    QUORL_OWN("OutOfBoundsExceptionLookup", OutOfBoundsExceptionLookup),
    QUORL_OWN("StackOverflowExceptionLookup", StackOverflowExceptionLookup),
    // The object model and the arrays too: objects live on this copy's
    // lists and raise through this copy's exception state, so a host's
    // own copy of them must not serve a script.
    QUORL_OWN("RuntimeNilObject", RaiseNilObjectException),
    QUORL_OWN("RuntimeLockObject", RuntimeLockObject),
    QUORL_OWN("RuntimeUnlockObject", RuntimeUnlockObject),
    QUORL_OWN("RuntimeLockUnlockObjects", RuntimeLockUnlockObjects),
    QUORL_OWN("RuntimeObjectIsa", RuntimeObjectIsa),
    QUORL_OWN("RuntimeCheckCast", RuntimeCheckCast),
    QUORL_OWN("RuntimeLookupInterfaceVtable", RuntimeLookupInterfaceVtable),
    QUORL_OWN("RuntimeCreateDelegate", RuntimeCreateDelegate),
    QUORL_OWN("RuntimeDelegateIsA", RuntimeDelegateIsA),
    QUORL_OWN("RuntimeCheckDelegateCast", RuntimeCheckDelegateCast),
    QUORL_OWN("RuntimeCompareDelegates", RuntimeCompareDelegates),
    QUORL_OWN("CreateArray", CreateArray),
    QUORL_OWN("RuntimeCreateStructureArray", RuntimeCreateStructureArray),
    QUORL_OWN("RuntimeCreateArrayCastWrapper", RuntimeCreateArrayCastWrapper),
    // Variants are objects of this copy too: boxes live on its object list
    // and failed conversions raise through its exception state.
    QUORL_OWN("VarType", VarType),
    QUORL_OWN("RuntimeIsNumeric", RuntimeIsNumeric),
    QUORL_OWN("IsNull", IsNull),
    QUORL_OWN("VariantHash", VariantHash),
    QUORL_OWN("VariantEqual", VariantEqual),
    QUORL_OWN("VariantToInt32", VariantToInt32),
    QUORL_OWN("VariantToUInt32", VariantToUInt32),
    QUORL_OWN("VariantToInt64", VariantToInt64),
    QUORL_OWN("VariantToUInt64", VariantToUInt64),
    QUORL_OWN("VariantToColor", VariantToColor),
    QUORL_OWN("VariantToSingle", VariantToSingle),
    QUORL_OWN("VariantToDouble", VariantToDouble),
    QUORL_OWN("VariantToObject", VariantToObject),
    QUORL_OWN("VariantToString", VariantToString),
    QUORL_OWN("VariantToBoolean", VariantToBoolean),
    QUORL_OWN("VariantToDate", VariantToDate),
    QUORL_OWN("VariantToCurrency", VariantToCurrency),
    QUORL_OWN("VariantCompare", VariantCompare),
    QUORL_OWN("VariantAdd", VariantAdd),
    QUORL_OWN("VariantSubtract", VariantSubtract),
    QUORL_OWN("VariantMultiply", VariantMultiply),
    QUORL_OWN("VariantDivide", VariantDivide),
    QUORL_OWN("VariantIntegerDivide", VariantIntegerDivide),
    QUORL_OWN("VariantModulo", VariantModulo),
    QUORL_OWN("VariantNegate", VariantNegate),
    QUORL_OWN("VariantPower", VariantPower),
    QUORL_OWN("VariantAnd", VariantAnd),
    QUORL_OWN("VariantOr", VariantOr),
    QUORL_OWN("VariantNot", VariantNot),
    QUORL_OWN("Int32ToVariant", Int32ToVariant),
    QUORL_OWN("UInt32ToVariant", UInt32ToVariant),
    QUORL_OWN("Int64ToVariant", Int64ToVariant),
    QUORL_OWN("UInt64ToVariant", UInt64ToVariant),
    QUORL_OWN("ColorToVariant", ColorToVariant),
    QUORL_OWN("SingleToVariant", SingleToVariant),
    QUORL_OWN("DoubleToVariant", DoubleToVariant),
    QUORL_OWN("CurrencyToVariant", CurrencyToVariant),
    QUORL_OWN("ObjectToVariant", ObjectToVariant),
    QUORL_OWN("StringToVariant", StringToVariant),
    QUORL_OWN("BooleanToVariant", BooleanToVariant),
    // A string sum that cannot be stored raises the out-of-memory
    // exception, which only this copy's exception state can raise.
    QUORL_OWN("RuntimeAddString", RuntimeAddString),
};

#undef QUORL_OWN

}  // namespace

StringMap<void*>* MakeQuorlScriptRuntimeFunctionTable(
    RuntimeNameResolver resolver) {
  StringMap<void*>* table = new StringMap<void*>;
  for (unsigned long i = 0; i < sizeof kOwnEntries / sizeof *kOwnEntries; i++)
    if (kOwnEntries[i].mAddress)
      table->AddEntry(kOwnEntries[i].mName, kOwnEntries[i].mAddress);
  SimpleVector<string> const& names = IntrinsicFunctionNames();
  for (unsigned long i = 0; i < names.size(); i++) {
    if (names[i].IsEmpty() || table->HasEntry(names[i])) continue;
    table->AddEntry(names[i], resolver ? resolver(names[i].CString()) : nullptr);
  }
  return table;
}
