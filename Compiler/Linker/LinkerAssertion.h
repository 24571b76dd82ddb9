// An assertion whose report names the item at fault: the message is built
// at the failure, since a link name is only known then.
#ifndef COMPILER_LINKER_LINKERASSERTION_H
#define COMPILER_LINKER_LINKERASSERTION_H

#include "Universal/Assertion.h"
#include "Universal/ustring.h"

#define QASSERT_NAMED(cond, expression, message)                          \
  ((cond) ? (void)0                                                       \
          : xxxxxxx_printassertion(                                       \
                (string(QASSERT_MESSAGE) + (message)).CString(), __FILE__, \
                __LINE__, expression))

#endif
