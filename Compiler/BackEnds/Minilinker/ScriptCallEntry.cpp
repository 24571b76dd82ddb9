#include "Compiler/BackEnds/Minilinker/ScriptCallEntry.h"

#include "Common/ObjectModel/ExceptionMarkerLayout.h"

// The handler record behind the call follows ExceptionMarkerLayout.h: a
// five-byte jump over it, the marker, a zero half-word, the frame offset of
// the exception's slot (-16: below the three saved registers), and the
// resume code. The slot lies in the padding that keeps the call 16-byte
// aligned: 4 + 12 saved bytes and 140 reserved put ESP on a boundary.
static_assert(kHandlerBlockMarker == 1041 && kMarkerValueOffset == 5 &&
                  kMarkerFrameOffset == 11 && kMarkerResumeOffset == 13,
              "the record below is written for this layout");

asm(R"(
  .text
  .globl CallScriptEntry
  .hidden CallScriptEntry
  .type CallScriptEntry, @function
CallScriptEntry:
  pushl %ebp
  movl %esp, %ebp
  pushl %ebx
  pushl %esi
  pushl %edi
  subl $140, %esp
  movl $0, -16(%ebp)
  cld
  movl 12(%ebp), %esi
  movl %esp, %edi
  movl $32, %ecx
  rep movsl
  movl 8(%ebp), %eax
  call *%eax
  .byte 0xE9
  .long 2f - 1f
1:
  .long 1041
  .short 0
  .short -16
  leal -12(%ebp), %esp
  movl -16(%ebp), %eax
  movl 24(%ebp), %ecx
  movl %eax, (%ecx)
  xorl %eax, %eax
  xorl %edx, %edx
  jmp 3f
2:
  movl 24(%ebp), %ecx
  movl $0, (%ecx)
  cmpl $0, 16(%ebp)
  je 3f
  movl 20(%ebp), %ecx
  fstpl (%ecx)
3:
  leal -12(%ebp), %esp
  popl %edi
  popl %esi
  popl %ebx
  popl %ebp
  ret
  .size CallScriptEntry, .-CallScriptEntry
)");
