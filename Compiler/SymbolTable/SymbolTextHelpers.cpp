#include "Compiler/SymbolTable/SymbolTextHelpers.h"

string ArraySuffix(IRDataType const& type) {
  unsigned dimensions = type.GetDimensions();
  if (dimensions == 0) return string();
  string text = "(";
  for (unsigned i = 1; i < dimensions; i++) text += ",";
  return text + ")";
}

string ElementTypeText(IRDataType const& type) {
  IRDataType element = type;
  if (element.GetMainType() == kReferenceType) element = element.AsElement();
  if (element.GetMainType() == kArrayType) element = element.AsElement();
  return element.ToString();
}

string AsClause(IRDataType const& type) {
  if (type.GetMainType() == kNoType) return string();
  return string(" As ") + type.ToString();
}
