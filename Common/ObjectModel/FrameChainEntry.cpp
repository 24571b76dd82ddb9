#include "Common/ObjectModel/FrameChainEntry.h"

// EBP is 0 across the call, so the callee's saved frame pointer ends the
// chain; EBX keeps this frame meanwhile (code called here saves it when it
// uses it). The call keeps the stack 16-byte aligned.
asm(R"(
  .text
  .globl CallAtFrameChainEnd
  .hidden CallAtFrameChainEnd
  .type CallAtFrameChainEnd, @function
CallAtFrameChainEnd:
  pushl %ebp
  movl %esp, %ebp
  pushl %ebx
  subl $4, %esp
  movl 8(%ebp), %eax
  movl %ebp, %ebx
  xorl %ebp, %ebp
  call *%eax
  movl %ebx, %ebp
  leal -4(%ebp), %esp
  popl %ebx
  popl %ebp
  ret
  .size CallAtFrameChainEnd, .-CallAtFrameChainEnd
)");
