// The IA-32 operations of the instruction writer, by family.
//
// Each family is an X-macro: the writer declares its operations from these
// lists, and the writer's tests assemble the same lists with the system
// assembler, so an operation cannot be added without being checked. The
// last column is the instruction in Intel syntax with placeholders the
// tests fill in: %r32, %r16, %r8 and %x name the reg field as a general,
// 16-bit, byte or SSE register; %m32, %m16, %m8, %m64, %m128 and %m name the
// r/m operand with its size (plain %m for an address without a size); a
// leading {load} or {store} fixes the direction the assembler picks for a
// register pair.
#ifndef COMPILER_BACKENDS_IA32_IA32OPERATIONLIST_H
#define COMPILER_BACKENDS_IA32_IA32OPERATIONLIST_H

// X(name, opcode, text): register from or to r/m; all four operand shapes.
#define QUORL_IA32_REG_MEM_OPERATIONS(X)                          \
  X(ia32_add, 0x03, "{load} add %r32, %m32")                      \
  X(ia32_adc, 0x13, "{load} adc %r32, %m32")                      \
  X(ia32_and, 0x23, "{load} and %r32, %m32")                      \
  X(ia32_cmp, 0x3B, "{load} cmp %r32, %m32")                      \
  X(ia32_or, 0x0B, "{load} or %r32, %m32")                        \
  X(ia32_sbb, 0x1B, "{load} sbb %r32, %m32")                      \
  X(ia32_sub, 0x2B, "{load} sub %r32, %m32")                      \
  X(ia32_xor, 0x33, "{load} xor %r32, %m32")                      \
  X(ia32_imul, 0x0FAF, "imul %r32, %m32")                         \
  X(ia32_mov, 0x8B, "{load} mov %r32, %m32")                      \
  X(ia32_mov_store, 0x89, "{store} mov %m32, %r32")               \
  X(ia32_mov8, 0x8A, "{load} mov %r8, %m8")                       \
  X(ia32_mov8_store, 0x88, "{store} mov %m8, %r8")                \
  X(ia32_mov16, 0x668B, "{load} mov %r16, %m16")                  \
  X(ia32_mov16_store, 0x6689, "{store} mov %m16, %r16")           \
  X(ia32_lea, 0x8D, "lea %r32, %m")

// X(name, opcode, text): SSE scalar moves and arithmetic; all shapes but
// the displaced SIB one.
#define QUORL_IA32_SSE_OPERATIONS(X)                              \
  X(ia32_movsd, 0xF20F10, "{load} movsd %x, %m64")                \
  X(ia32_movsd_store, 0xF20F11, "{store} movsd %m64, %x")         \
  X(ia32_movss, 0xF30F10, "{load} movss %x, %m32")                \
  X(ia32_movss_store, 0xF30F11, "{store} movss %m32, %x")         \
  X(ia32_addpd, 0x660F58, "addpd %x, %m128")                      \
  X(ia32_subpd, 0x660F5C, "subpd %x, %m128")                      \
  X(ia32_mulpd, 0x660F59, "mulpd %x, %m128")                      \
  X(ia32_divpd, 0x660F5E, "divpd %x, %m128")                      \
  X(ia32_addps, 0x0F58, "addps %x, %m128")                        \
  X(ia32_subps, 0x0F5C, "subps %x, %m128")                        \
  X(ia32_mulps, 0x0F59, "mulps %x, %m128")                        \
  X(ia32_divps, 0x0F5E, "divps %x, %m128")                        \
  X(ia32_addsd, 0xF20F58, "addsd %x, %m64")                       \
  X(ia32_subsd, 0xF20F5C, "subsd %x, %m64")                       \
  X(ia32_mulsd, 0xF20F59, "mulsd %x, %m64")                       \
  X(ia32_divsd, 0xF20F5E, "divsd %x, %m64")                       \
  X(ia32_sqrtsd, 0xF20F51, "sqrtsd %x, %m64")                     \
  X(ia32_addss, 0xF30F58, "addss %x, %m32")                       \
  X(ia32_subss, 0xF30F5C, "subss %x, %m32")                       \
  X(ia32_mulss, 0xF30F59, "mulss %x, %m32")                       \
  X(ia32_divss, 0xF30F5E, "divss %x, %m32")                       \
  X(ia32_ucomisd, 0x660F2E, "ucomisd %x, %m64")                   \
  X(ia32_cvtsi2sd, 0xF20F2A, "cvtsi2sd %x, %m32")

// X(name, opcode, reg field, text): one r/m operand; (mod, rm) and
// (mod, rm, disp).
#define QUORL_IA32_GROUP_OPERATIONS(X)                            \
  X(ia32_not, 0xF7, 2, "not %m32")                                \
  X(ia32_neg, 0xF7, 3, "neg %m32")                                \
  X(ia32_mul, 0xF7, 4, "mul %m32")                                \
  X(ia32_div, 0xF7, 6, "div %m32")                                \
  X(ia32_idiv, 0xF7, 7, "idiv %m32")                              \
  X(ia32_setb, 0x0F92, 0, "setb %m8")                             \
  X(ia32_setbe, 0x0F96, 0, "setbe %m8")                           \
  X(ia32_sete, 0x0F94, 0, "sete %m8")                             \
  X(ia32_setl, 0x0F9C, 0, "setl %m8")                             \
  X(ia32_setle, 0x0F9E, 0, "setle %m8")                           \
  X(ia32_setne, 0x0F95, 0, "setne %m8")                           \
  X(ia32_seta, 0x0F97, 0, "seta %m8")                             \
  X(ia32_setnp, 0x0F9B, 0, "setnp %m8")                           \
  X(ia32_setp, 0x0F9A, 0, "setp %m8")                             \
  X(ia32_dec_mem, 0xFF, 1, "dec %m32")                            \
  X(ia32_call, 0xFF, 2, "call %m32")

// X(name, opcode, reg field, text): x87 memory operands.
#define QUORL_IA32_X87_MEMORY_OPERATIONS(X)                       \
  X(ia32_fld32, 0xD9, 0, "fld %m32")                              \
  X(ia32_fld64, 0xDD, 0, "fld %m64")                              \
  X(ia32_fstp32, 0xD9, 3, "fstp %m32")                            \
  X(ia32_fstp64, 0xDD, 3, "fstp %m64")                            \
  X(ia32_fild, 0xDB, 0, "fild %m32")                              \
  X(ia32_fistp, 0xDB, 3, "fistp %m32")                            \
  X(ia32_fldcw, 0xD9, 5, "fldcw %m16")                            \
  X(ia32_fnstcw, 0xD9, 7, "fnstcw %m16")

// X(name, opcode, text): no operands.
#define QUORL_IA32_FIXED_OPERATIONS(X)                            \
  X(ia32_cbw, 0x6698, "cbw")                                      \
  X(ia32_cwde, 0x98, "cwde")                                      \
  X(ia32_cdq, 0x99, "cdq")                                        \
  X(ia32_ret_near, 0xC3, "ret")                                   \
  X(ia32_nop, 0x90, "nop")                                        \
  X(ia32_pushad, 0x60, "pushad")                                  \
  X(ia32_popad, 0x61, "popad")                                    \
  X(ia32_int3, 0xCC, "int3")                                      \
  X(ia32_emms, 0x0F77, "emms")                                    \
  X(ia32_hlt, 0xF4, "hlt")                                        \
  X(ia32_faddp, 0xDEC1, "faddp st(1), st")                        \
  X(ia32_fsubp, 0xDEE9, "fsubp st(1), st")                        \
  X(ia32_fmulp, 0xDEC9, "fmulp st(1), st")                        \
  X(ia32_fdivp, 0xDEF9, "fdivp st(1), st")                        \
  X(ia32_fchs, 0xD9E0, "fchs")                                    \
  X(ia32_fcompp, 0xDED9, "fcompp")                                \
  X(ia32_fnstsw, 0xDFE0, "fnstsw ax")

#endif
