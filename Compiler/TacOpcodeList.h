// The operations of three-address code, in value order.
//
// QUORL_TAC_OPCODES(X) calls X(Name) once per operation. The enumerator is
// kTacName, its text in listings is "Name", and a back end's handler is
// tac_Name: every table keyed by opcode is generated from this one list, so
// they cannot drift apart. The value of each entry is the back end's
// dispatch index: append only, never reorder.
//
// Operand columns are opA, opB, result; "-" is nilTacAddr, "label" an Int32
// constant holding a label number.
#ifndef COMPILER_TACOPCODELIST_H
#define COMPILER_TACOPCODELIST_H

#define QUORL_TAC_OPCODES(X)                                                  \
  X(Noop)              /*  0  -, -, -                                      */ \
  X(Debugout)          /*  1  reserved; back ends refuse it                */ \
  X(Store)             /*  2  value, -, place: plain copy, no counting     */ \
  X(Zero)              /*  3  -, -, place: all zero bits                   */ \
  X(EndianSwap)        /*  4  place, -, place: bytes reversed              */ \
  X(Varptr)            /*  5  place, -, place: address of opA              */ \
  X(Peek)              /*  6  pointer, offset or -, place                  */ \
  X(Poke)              /*  7  value, offset or -, pointer (read)           */ \
  X(Add)               /*  8  value, value, place                          */ \
  X(Sub)               /*  9                                               */ \
  X(Mul)               /* 10                                               */ \
  X(Div)               /* 11  integer division by zero gives 0             */ \
  X(Mod)               /* 12  integers; a zero divisor gives opA           */ \
  X(Pow)               /* 13  floating point only                          */ \
  X(Neg)               /* 14  value, -, place                              */ \
  X(EQ)                /* 15  value, value, Boolean place                  */ \
  X(NE)                /* 16                                               */ \
  X(LT)                /* 17                                               */ \
  X(LE)                /* 18                                               */ \
  X(Cvt)               /* 19  numeric value, -, numeric place              */ \
  X(BitAnd)            /* 20                                               */ \
  X(BitOr)             /* 21                                               */ \
  X(BitNot)            /* 22  value, -, place                              */ \
  X(BitXor)            /* 23                                               */ \
  X(BitShiftLeft)      /* 24  value, count, place                          */ \
  X(BitShiftRight)     /* 25  arithmetic                                   */ \
  X(Label)             /* 26  label, -, -: register knowledge ends here    */ \
  X(Jump)              /* 27  -, -, label                                  */ \
  X(IfEQI)             /* 28  value, value, label: 32-bit compare          */ \
  X(IfNEI)             /* 29                                               */ \
  X(IfLTI)             /* 30  signed                                       */ \
  X(IfLTU)             /* 31  unsigned                                     */ \
  X(Lock)              /* 32  counted value, -, -                          */ \
  X(Unlock)            /* 33  counted place, -, -: releases, sets nil      */ \
  X(SwapLocks)         /* 34  new value, old place, -                      */ \
  X(Enter)             /* 35  function name, local table number or -, -    */ \
  X(Leave)             /* 36  return value or -, -, -                      */ \
  X(GetParam)          /* 37  -, -, place: next incoming parameter         */ \
  X(Baseref)           /* 38  pointer, offset, -: base of field operands   */ \
  X(PutParam)          /* 39  value, -, -: queues an outgoing argument     */ \
  X(Intrinsic)         /* 40  intrinsic number, -, place or -              */ \
  X(Call)              /* 41  link name, library, place or -               */ \
  X(CallPtr)           /* 42  function pointer, -, place or -              */ \
  X(CallPtrVarargs)    /* 43  function pointer, -, place or -              */ \
  X(CallVirtual)       /* 44  vtable index, -, place or -                  */ \
  X(FuncPtr)           /* 45  link name, library, place                    */ \
  X(HandleException)   /* 46  exception variable or -, -, label or -       */ \
  X(BeginTry)          /* 47                                               */ \
  X(EndTry)            /* 48                                               */ \
  X(Stop)              /* 49  return value or -: closes the main body      */ \
  X(Pragma)            /* 50  pragma number, value, -                      */

#endif
