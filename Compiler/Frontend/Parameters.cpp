// Parameters as the grammar gives them: modifier words, an optional default
// and the name, checked and declared in the method's table.
#include "Compiler/Frontend/Functions.h"
#include "Compiler/Frontend/OverloadResolution.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/SymbolUtilities.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

namespace {

// The modifier words in the order the checks name them; the text is how a
// message spells each word.
enum Modifier {
  kByRef,
  kByVal,
  kAssigns,
  kExtends,
  kParamArray,
  kOptional,
  kModifierCount
};
char const* const kWords[kModifierCount] = {
    "BYREF", "BYVAL", "ASSIGNS", "EXTENDS", "PARAMARRAY", "OPTIONAL"};
char const* const kSpellings[kModifierCount] = {
    "ByRef", "ByVal", "Assigns", "Extends", "ParamArray", "Optional"};

int ModifierOf(SemBase* item) {
  if (!item->IsIdentifier()) return -1;
  for (int i = 0; i < kModifierCount; i++)
    if (item->toString() == string(kWords[i])) return i;
  return -1;
}

template <class Visit>
void ForEachItem(SemBase* list, Visit visit) {
  if (!list) return;
  if (!list->IsList()) {
    visit(list);
    return;
  }
  for (SemBase* item = list->GetContents(); item; item = item->GetNext())
    visit(item);
}

void ReportExclusive(SemBase* const* seen, int a, int b, bool& valid) {
  if (!seen[a] || !seen[b]) return;
  SimpleVector<string> words;
  words.push_back(kSpellings[a]);
  words.push_back(kSpellings[b]);
  Error(kErrorExclusiveModifiers, seen[b]->Location(), words);
  valid = false;
}

// The modifiers that a default value (or Optional) excludes, with their
// numbers: these leave the parameter usable.
void ReportForbiddenDefaults(SemBase* const* seen) {
  static int const kWithDefault[] = {kByRef, kParamArray, kAssigns, kExtends};
  static CompileErrorCode const kCodes[] = {
      kErrorParameterModifier, kErrorParameterModifier77,
      kErrorParameterModifier78, kErrorParameterModifier79};
  if (!seen[kOptional]) return;
  for (int i = 0; i < 4; i++)
    if (seen[kWithDefault[i]])
      Error(kCodes[i], seen[kWithDefault[i]]->Location());
}

}  // namespace

bool ValidateParameterModifiers(SemBase* modifiers, SemBase* defaultValue) {
  SemBase* seen[kModifierCount] = {};
  ForEachItem(modifiers, [&seen](SemBase* item) {
    int which = ModifierOf(item);
    if (which < 0) return;
    if (seen[which]) {
      SimpleVector<string> word;
      word.push_back(kSpellings[which]);
      Error(kErrorRepeatedModifier, seen[which]->Location(), word);
      return;
    }
    seen[which] = item;
  });
  if (defaultValue && !seen[kOptional]) seen[kOptional] = defaultValue;
  ReportForbiddenDefaults(seen);
  bool valid = true;
  ReportExclusive(seen, kByRef, kParamArray, valid);
  ReportExclusive(seen, kByRef, kAssigns, valid);
  ReportExclusive(seen, kByRef, kByVal, valid);
  ReportExclusive(seen, kAssigns, kParamArray, valid);
  ReportExclusive(seen, kAssigns, kExtends, valid);
  ReportExclusive(seen, kExtends, kParamArray, valid);
  return valid;
}

namespace {

// ParamArray makes the type an array of one dimension; ByRef a reference.
IRDataType ModifiedType(SemBase* modifiers, IRDataType type, SemBase* ident) {
  ForEachItem(modifiers, [&type, ident](SemBase* item) {
    int which = ModifierOf(item);
    if (which == kParamArray) {
      if (!type.IsArray())
        type = type.AsArray(1);
      else if (type.GetDimensions() > 1)
        Error(kErrorParameterArrayRank, ident->Location());
    } else if (which == kByRef) {
      type = type.AsReference();
    }
  });
  return type;
}

bool DefaultFits(IRDataType const& type, SemBase* defaultValue) {
  return defaultValue->IsConstant() && !defaultValue->Code() &&
         ParamAndArgAreCompatible(type, defaultValue, nullptr);
}

}  // namespace

SemBase* CompileParameter(SemBase* modifiers, SemBase* ident, SemBase* type,
                          SemBase* defaultValue) {
  QASSERT(ident);
  QASSERT(type);
  IRDataType declared = type->GetType();
  if (ValidateParameterModifiers(modifiers, defaultValue))
    declared = ModifiedType(modifiers, declared, ident);
  if (defaultValue && !DefaultFits(declared, defaultValue)) {
    Error(kErrorBadParameterDefault, defaultValue->Location());
    defaultValue = nullptr;
  }
  ident->SetType(declared);
  AddDeclaredName(ident);
  return ConcatList(ConcatList(modifiers, defaultValue), ident);
}
