// Compile errors: faults of the user's source, known by number.
//
// The numbers are the whole user interface of compile errors: the engine keeps
// no message table, and the host's event receives the number with one fixed
// text. Both the front end and the back ends report them, so they live below
// both.
#ifndef COMPILER_COMPILEERROR_H
#define COMPILER_COMPILEERROR_H

#include "Compiler/SourceLocation.h"
#include "Universal/SimpleVector.h"
#include "Universal/ustring.h"

enum CompileErrorCode {
  kErrorNone = 0,
  kErrorSyntax = 1,
  kErrorTypeMismatch = 2,
  kErrorParserStackOverflow = 5,
  kErrorTooManyArguments = 6,
  kErrorNotEnoughArguments = 7,
  // Also an argument that fits no parameter: a call, a constructor, an
  // overload of a local method.
  kErrorNotAnArray = 9,
  kErrorBadParameterDefault = 10,
  kErrorUnknownName = 11,
  kErrorBadOperand = 12,
  kErrorBadArrayBound = 14,
  kErrorNotCallable = 15,
  kErrorNotAnArrayTarget = 16,
  kErrorBadArrayIndex = 17,
  kErrorWrongDimensionCount = 18,
  kErrorArrayFactoryOfArray = 19,
  kErrorArrayCastRank = 20,
  kErrorByRefNeedsVariable = 21,
  kErrorDuplicateName = 22,
  kErrorNoMatchingOverload = 24,
  kErrorBadParentClass = 25,
  kErrorBadTypeUse = 26,
  kErrorNotAnInterface = 27,
  kErrorInheritanceLoop = 28,
  kErrorInterfaceNotImplemented = 29,
  kErrorNegativeArrayBound = 30,
  kErrorPointerCallForbidden = 31,
  kErrorSelfOutsideClass = 32,
  kErrorMeOutsideClass = 33,
  kErrorReturnOutsideMethod = 34,
  kErrorCatchNotException = 35,
  kErrorInterfaceReturnType = 36,
  kErrorBadReturnType = 37,
  kErrorSuperOutsideClass = 41,
  kErrorSuperWithoutParent = 42,
  kErrorElseWithoutIf = 43,
  kErrorEndifWithoutIf = 44,
  kErrorConditionType = 45,
  kErrorConditionNotConstant = 46,
  kErrorNextNameMismatch = 47,
  kErrorArrayBoundNotConstant = 48,
  // 49 to 51: a type that cannot cross into a Declare'd C function.
  kErrorExternArrayType = 49,
  kErrorExternObjectType = 50,
  kErrorExternStringType = 51,
  kErrorArraySortType = 52,
  // 56 to 61: a name already used by another declaration.
  kErrorNameUsedByMethod = 56,
  kErrorNameUsedByClassMethod = 57,
  kErrorDuplicateEvent = 58,
  kErrorNameUsedByType = 59,
  kErrorNameUsedByModule = 60,
  kErrorNameUsedByConstant = 61,
  kErrorReservedWord = 62,
  kErrorNotAType = 63,
  kErrorExternLibraryName = 64,
  kErrorExternNeedsReturn = 65,
  kErrorBadPointerCall = 67,
  kErrorUnterminatedString = 68,
  kErrorClassCycle = 69,
  kErrorModulePropertySetter = 70,
  kErrorModulePropertyGetter = 71,
  kErrorIfWithoutCondition = 72,
  kErrorReturnValueMismatch = 73,
  kErrorExclusiveModifiers = 74,
  kErrorRepeatedModifier = 75,
  // 76 to 79: forbidden combinations of parameter modifiers.
  kErrorParameterModifier = 76,
  kErrorParameterModifier77 = 77,
  kErrorParameterModifier78 = 78,
  kErrorParameterModifier79 = 79,
  // 80 to 84: faults in the parameter list of a method; 82 is a parameter
  // behind a ParamArray.
  kErrorParameterOrder = 80,
  kErrorParameterOrder81 = 81,
  kErrorParameterAfterParamArray = 82,
  kErrorParameterOrder83 = 83,
  kErrorParameterOrder84 = 84,
  kErrorParameterArrayRank = 85,
  kErrorMissingThen = 86,
  kErrorUnknownPragma = 87,
  kErrorTypeAsValue = 89,
  kErrorCaseOutsideSelect = 90,
  kErrorBadAccessorWord = 91,
  kErrorAccessorEndMismatch = 92,
  kErrorDuplicateLinkName = 93,
  kErrorIfNotClosed = 95,
  kErrorSelectNotClosed = 96,
  kErrorForNotClosed = 97,
  kErrorWhileNotClosed = 98,
  kErrorTryNotClosed = 99,
  kErrorDoNotClosed = 100,
  kErrorBadContinue = 103,
  kErrorNoEnclosingBlock = 104,
  kErrorSelfPropertyAccess = 105,
  kErrorInstanceMemberInSharedContext = 106,
  kErrorSelfPropertyAccessInAccessor = 107,
  kErrorInstanceMemberInSharedAccessor = 108,
  kErrorConstructorCall = 109,
  kErrorStructureField = 110,
  kErrorStructureField111 = 111,
  kErrorStructureField112 = 112,
  kErrorEnum = 113,
  kErrorEnum114 = 114,
  kErrorNotAssignable = 115,
  kErrorStructureField116 = 116,
  kErrorStructureField117 = 117,
  kErrorStructureField118 = 118,
  kErrorTextOperand = 119,
  kErrorTextOperand120 = 120,
  kErrorPrivateType = 121,
  kErrorGlobalInClass = 122,
  kErrorScopeInNestedModule = 124,
  kErrorNewWithSeveralNames = 125,
  kErrorConstantRequired = 126,
  kErrorPrivateModule = 127,
  kErrorPropertyDefault = 128,
  kErrorArrayElementType = 129,
  kErrorDelegate = 130,
  kErrorDelegate131 = 131,
  kErrorPointerCallArgument = 133,
  kErrorDelegateInScript = 134,
  kErrorDuplicateConstant = 135,
  kErrorImportLimit = 136,
  kErrorUnresolvedForwardReference = 137,
  kErrorLocalStorageTooLarge = 138,
  kErrorNestingTooDeep = 139,
  kErrorExpressionTooLarge = 140,
  // The compiler itself ran out of memory: the program is too big for it.
  kErrorCompilerOutOfMemory = 141,
  // A class's own __Init or __Exit that the runtime cannot call: a
  // Function, a shared method, one with parameters, or more than one.
  kErrorHiddenMethodShape = 142,
};

// One reported fault: its number, where it is, and optional text arguments
// (type texts, names). The arguments stay in the record; the script engine
// delivers only the number and the start line.
class CompileError {
 public:
  CompileError() : mCode(kErrorNone) {}
  CompileError(CompileErrorCode code, SourceLocation const& where)
      : mCode(code), mLocation(where) {}
  CompileError(CompileErrorCode code, SourceLocation const& where,
               SimpleVector<string> const& arguments)
      : mCode(code), mLocation(where), mArguments(arguments) {}

  CompileErrorCode Type() const { return mCode; }
  SourceLocation const& Location() const { return mLocation; }
  SimpleVector<string> const& Arguments() const { return mArguments; }

 private:
  CompileErrorCode mCode;
  SourceLocation mLocation;
  SimpleVector<string> mArguments;
};

#endif
