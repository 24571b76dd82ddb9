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

// EBP is 0 across the call, so the callee's saved frame pointer ends the
// chain; EBX keeps this frame meanwhile. The call keeps the stack 16-byte
// aligned.
asm(R"(
  .text
  .globl CallWithNullFrame
  .type CallWithNullFrame, @function
CallWithNullFrame:
  pushl %ebp
  movl %esp, %ebp
  pushl %ebx
  subl $4, %esp
  movl 8(%ebp), %eax
  movl %ebp, %ebx
  xorl %ebp, %ebp
  call *%eax
  movl %ebx, %ebp
  addl $4, %esp
  popl %ebx
  popl %ebp
  ret
)");
