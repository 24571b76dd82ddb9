#include "Plugin/CompileErrorMessages.h"

#include "Compiler/Frontend/ParserError.h"

namespace {

// A range of numbers that share one text (most rows are one number).
struct MessageRow {
  int first;
  int last;
  char const* text;
};

MessageRow const kMessages[] = {
    {1, 1, "syntax error"},
    {2, 2, "type mismatch"},
    {5, 5, "program too deeply nested for the parser"},
    {6, 6, "too many arguments"},
    {7, 7, "not enough arguments"},
    {9, 9, "not an array, or an argument that does not fit its parameter"},
    {10, 10, "parameter default value does not fit its type"},
    {11, 11, "unknown name"},
    {12, 12, "operator does not apply to these operands"},
    {14, 14, "array bound has a bad type"},
    {15, 15, "value used as a statement"},
    {16, 16, "not an array to assign to or resize"},
    {17, 17, "bad array index"},
    {18, 18, "wrong number of array dimensions"},
    {19, 19, "Array() of an array type"},
    {20, 20, "cannot convert a multi-dimensional array"},
    {21, 21, "ByRef parameter needs a variable"},
    {22, 22, "name declared twice"},
    {24, 24, "no matching overload, or an ambiguous call"},
    {25, 25, "parent is not a class"},
    {26, 26, "operation not defined for this type"},
    {27, 27, "not an interface"},
    {28, 28, "bad inheritance: a loop or a second parent"},
    {29, 29, "interface method not implemented"},
    {30, 30, "negative array bound"},
    {31, 31, "call through a pointer not allowed here"},
    {32, 32, "Self used outside a class"},
    {33, 33, "Me used outside a class"},
    {34, 34, "Return outside a method"},
    {35, 35, "Catch type is not a RuntimeException"},
    {37, 37, "return type not allowed"},
    {41, 41, "Super used outside a class"},
    {42, 42, "Super used in a class without a parent"},
    {43, 43, "#else without #if"},
    {44, 44, "#endif without #if"},
    {45, 45, "directive expression has a wrong type"},
    {46, 46, "directive expression is not constant"},
    {47, 47, "Next names another variable"},
    {48, 48, "array bound is not constant"},
    {49, 49, "an array cannot be passed to an external function"},
    {50, 50, "an object or variant cannot be passed to an external function"},
    {51, 51, "a String cannot be passed to an external function: use CString, PString or WString"},
    {52, 52, "cannot sort an array of this element type"},
    {56, 56, "name already used by a method"},
    {57, 57, "name already used by a method of the class"},
    {58, 58, "name already used by an event of the class"},
    {59, 59, "name already used by a type"},
    {60, 60, "name already used by a module"},
    {61, 61, "name already used by a constant"},
    {62, 62, "reserved word used as a name"},
    {63, 63, "not a type"},
    {64, 64, "library name is not a string constant"},
    {65, 65, "Declare Function needs a return type"},
    {67, 67, "malformed call through a pointer"},
    {68, 68, "unterminated string"},
    {69, 69, "bad class declaration"},
    {70, 70, "module property has no setter"},
    {71, 71, "module property has no getter"},
    {72, 72, "If without a condition"},
    {73, 73, "Return value does not match the method"},
    {75, 75, "parameter modifier given twice"},
    {76, 79, "parameter modifiers do not go together"},
    {80, 81, "bad parameter list"},
    {82, 82, "parameter after ParamArray"},
    {83, 84, "bad parameter list"},
    {85, 85, "ParamArray of more than one dimension"},
    {86, 86, "missing Then"},
    {87, 87, "unknown pragma"},
    {89, 89, "type or module used as a value"},
    {90, 90, "Case outside Select Case, or after Case Else"},
    {93, 93, "two methods with one link name"},
    {95, 95, "If closed by another End"},
    {96, 96, "Select Case closed by another End"},
    {97, 97, "For closed by other than Next"},
    {98, 98, "While closed by other than Wend"},
    {99, 99, "Try closed by another End"},
    {100, 100, "Do closed by other than Loop"},
    {103, 103, "Continue of a block that does not loop"},
    {104, 104, "no such block to Exit or Continue"},
    {105, 105, "property used without an instance"},
    {106, 106, "instance member used without an instance"},
    {107, 107, "property used without an instance in an accessor"},
    {108, 108, "instance member used without an instance in an accessor"},
    {109, 109, "constructor call fails"},
    {110, 110, "bad structure field"},
    {111, 111, "a structure field cannot hold a counted type"},
    {112, 112, "bad structure field"},
    {113, 114, "bad enum base or value"},
    {115, 115, "cannot assign to a constant"},
    {116, 118, "bad structure field"},
    {119, 120, "bad operand"},
    {121, 121, "private type used from outside"},
    {122, 122, "Global on a class member"},
    {124, 124, "scope not allowed in a nested module"},
    {125, 125, "As New with several names"},
    {126, 126, "constant expression required"},
    {127, 127, "private module in a type name"},
    {128, 128, "property default does not fit"},
    {129, 129, "arrays of this type are not possible"},
    {130, 131, "bad Delegate declaration"},
    {133, 133, "bad argument in a call through a pointer"},
    {134, 134, "delegate objects are not allowed in scripts"},
    {135, 135, "constant declared twice"},
    {136, 136, "too many imports"},
    {137, 137, "unresolved forward reference"},
    {138, 138, "a function's local storage is too large"},
    {139, 139, "declarations nested too deeply"},
    {140, 140, "expression too large"},
    {141, 141, "out of memory while compiling"},
    {142, 142, "a class's own __Init or __Exit must be one Sub without parameters"},
};

// The longest stretch of source quoted in a message: the name at fault,
// not a whole statement.
unsigned long const kLongestQuote = 60;

// The text the location covers when it lies on one line, or "".
string QuotedSource(SourceLocation const& where, char const* source) {
  if (!source || where.mStartOffset < 0 || where.mEndLine != where.mStartLine ||
      where.mEndOffset <= where.mStartOffset)
    return string();
  char const* line = source;
  for (unsigned int n = 0; n < where.mStartLine && *line; n++) {
    while (*line && *line != '\n') line++;
    if (*line) line++;
  }
  unsigned long length = (unsigned long)(where.mEndOffset - where.mStartOffset);
  char const* start = line + where.mStartOffset;
  for (char const* p = line; p < start + length; p++)
    if (!*p || *p == '\n') return string();
  if (length > kLongestQuote) return string();
  string quote;
  quote.ConstructFromBuffer(start, (unsigned int)length);
  return quote;
}

}  // namespace

char const* CompileErrorSummary(int number) {
  for (MessageRow const& row : kMessages)
    if (number >= row.first && number <= row.last) return row.text;
  return "compile error";
}

// The arguments the raiser gave (type texts, names) say most; without any,
// the stretch of source the error points at names what is wrong.
string CompileErrorText(CompileError const& error, char const* source) {
  string text(CompileErrorSummary(error.Type()));
  SimpleVector<string> const& arguments = error.Arguments();
  string detail;
  for (unsigned long i = 0; i < arguments.size(); i++) {
    if (i) detail += string(", ");
    detail += arguments[i];
  }
  if (detail.IsEmpty()) detail = QuotedSource(error.Location(), source);
  if (detail.IsEmpty()) return text;
  return text + string(": ") + detail;
}
