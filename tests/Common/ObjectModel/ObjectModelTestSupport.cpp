#include "ObjectModelTestSupport.h"

#include <string.h>

#include "Universal/ustring.h"

RuntimeClass* TestClass(RuntimeClass* base, int32_t fields, char const* name) {
  RuntimeClass* cls = RuntimeNewClass(base, 0, base ? base->interfaceCount : 0,
                                      0, 0, 0);
  cls->instanceSize = sizeof(RuntimeObject) + 4 * fields;
  cls->name = NewStringStorage(name, strlen(name), kEncodingASCII);
  return cls;
}

RuntimeClass* TestInterface(RuntimeClass* base) {
  RuntimeClass* cls = TestClass(base, 0, "ITest");
  cls->isAnInterface = 1;
  return cls;
}
