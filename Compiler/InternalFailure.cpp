#include "Compiler/InternalFailure.h"

#include "Universal/Assertion.h"

void InternalFailure(string const& text, char const* file, int line) {
  string message = string(QASSERT_MESSAGE) + text;
  xxxxxxx_printassertion(message.CString(), file, line, text.CString());
}
