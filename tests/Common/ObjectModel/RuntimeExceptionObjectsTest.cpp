// The fields every exception carries: only objects of the exception tree
// have them, the message is counted and goes with the object, and a raise
// with a message reaches the handler with it.
#include <gtest/gtest.h>

#include <string>

#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Common/ObjectModel/RuntimeExceptionObjects.h"
#include "Common/RuntimeStringFoundation.h"
#include "ObjectModelTestSupport.h"

namespace {

int const kExceptionFieldWords = 2;

std::string MessageOf(RuntimeObject* object) {
  stringStorage* message = ExceptionMessageOf(object);
  return message ? std::string(message->CString(), message->mLength) : "";
}

RuntimeClass* ExceptionRoot() {
  RuntimeClass* root = TestClass(nullptr, kExceptionFieldWords, "Root");
  root->finalizer = FinalizeExceptionObject;
  SetExceptionClass(root);
  return root;
}

RuntimeClass* sRaisedClass;
std::string sRaisedMessage;
void RecordMessage(RuntimeObject* exception) {
  sRaisedMessage = MessageOf(exception);
}

}  // namespace

TEST(RuntimeExceptionObjects, OnlyTheExceptionTreeHasTheFields) {
  RuntimeClass* root = ExceptionRoot();
  RuntimeClass* derived = TestClass(root, kExceptionFieldWords, "Derived");
  RuntimeClass* other = TestClass(nullptr, kExceptionFieldWords, "Other");
  RuntimeObject* exception = RuntimeNewObject(derived);
  RuntimeObject* plain = RuntimeNewObject(other);
  EXPECT_TRUE(IsExceptionObject(exception));
  EXPECT_FALSE(IsExceptionObject(plain));
  EXPECT_FALSE(IsExceptionObject(nullptr));
  SetExceptionMessageText(plain, "ignored");
  EXPECT_EQ(Field(plain, 0), nullptr) << "a field of another class is left";
  SetExceptionMessageText(exception, "first");
  SetExceptionMessageText(exception, "second");
  EXPECT_EQ(MessageOf(exception), "second");
  stringStorage* message = ExceptionMessageOf(exception);
  message->mRefCount++;
  RuntimeUnlockObject(exception);
  EXPECT_EQ(message->mRefCount, 1) << "the object's reference went with it";
  RuntimeUnlockString(message);
  RuntimeUnlockObject(plain);
}

TEST(RuntimeExceptionObjects, ARaiseWithAMessageReachesTheHandlerWithIt) {
  sRaisedClass = ExceptionRoot();
  SetUnhandledExceptionHook(RecordMessage);
  CallAtFrameChainEnd(
      [] { RaiseExceptionClassWithMessage(sRaisedClass, "what happened"); });
  SetUnhandledExceptionHook(nullptr);
  EXPECT_EQ(sRaisedMessage, "what happened");
}
