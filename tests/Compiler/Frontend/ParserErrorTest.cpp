#include <gtest/gtest.h>

#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "../CompilerTestSupport.h"

TEST(CompileErrors, NeedAContextAndSetItsFlag) {
  EXPECT_ASSERTION(Error(kErrorSyntax), "");
  EXPECT_ASSERTION(Error(kErrorSyntax, SourceLocation(3)), "");
  SrcContext* context = new SrcContext;  // without a delegate: the flag only
  Error(kErrorUnknownName, SourceLocation(2));
  EXPECT_EQ(1, context->mErrorFlag);
  delete context;
}

TEST(CompileErrors, EachErrorReachesTheDelegateAsItHappens) {
  RecordingDelegate delegate;
  SrcContext* context = new SrcContext;
  context->mDelegate = &delegate;
  Error(kErrorBadOperand, SourceLocation(4, 2, 4, 9));
  Error(kErrorNotCallable);
  ClassSymbol widget("Widget");
  widget.mLinkName = "Widget";
  TypeMismatchError(SourceLocation(8), IRDataType(kStringType).AsArray(2),
                    IRDataType(kObjectType, &widget));
  ASSERT_EQ(3u, delegate.mErrors.size());
  EXPECT_EQ(kErrorBadOperand, delegate.mErrors[0].Type());
  EXPECT_EQ(4u, delegate.mErrors[0].Location().mStartLine);
  EXPECT_EQ(9, delegate.mErrors[0].Location().mEndOffset);
  EXPECT_EQ(kErrorNotCallable, delegate.mErrors[1].Type());
  EXPECT_EQ(-1, delegate.mErrors[1].Location().mStartOffset);
  EXPECT_EQ(0u, delegate.mErrors[1].Arguments().size());
  CompileError const& error = delegate.mErrors[2];  // both type texts
  EXPECT_EQ(kErrorTypeMismatch, error.Type());
  EXPECT_EQ(8u, error.Location().mStartLine);
  ASSERT_EQ(2u, error.Arguments().size());
  EXPECT_EQ("String(,)", Std(error.Arguments()[0]));
  EXPECT_EQ("Widget", Std(error.Arguments()[1]));
  delete context;
}
