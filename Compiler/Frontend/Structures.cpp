#include "Compiler/Frontend/Structures.h"

#include "Compiler/Frontend/GeneratedFunctions.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/SymbolUtilities.h"
#include "Compiler/Frontend/TypeNames.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Universal/Assertion.h"

namespace {

// The built-in members; a field may not take their names.
char const* const kReservedFieldNames[] = {"Size", "StringValue"};

void ReportWithText(CompileErrorCode code, SourceLocation const& where,
                    string const& text) {
  SimpleVector<string> args;
  args.push_back(text);
  Error(code, where, args);
}

StructureSymbol* StructureOf(IRDataType const& type) {
  TypeSymbol* decl = type.Declaration();
  if (!decl || !decl->IsA(Symbol::kStructure)) return nullptr;
  return static_cast<StructureSymbol*>(decl);
}

// The structure a field holds, itself or as array elements.
StructureSymbol* HeldStructure(StructureFieldSymbol* field) {
  IRDataType type = field->GetType();
  if (type.GetMainType() == kArrayType) type = type.AsElement();
  if (type.GetMainType() != kStructureType) return nullptr;
  return StructureOf(type);
}

// Whether `wanted` is `inside`, or held anywhere within it. `seen` stops
// a loop that does not pass through `wanted`.
bool HoldsStructure(StructureSymbol* inside, StructureSymbol* wanted,
                    SimpleVector<StructureSymbol*>& seen) {
  if (inside == wanted) return true;
  for (unsigned long i = 0; i < seen.size(); i++)
    if (seen[i] == inside) return false;
  seen.push_back(inside);
  FieldSymbolIterator f = inside->IterateFields();
  while (f.Next()) {
    StructureSymbol* held = HeldStructure(f.Value());
    if (held && HoldsStructure(held, wanted, seen)) return true;
  }
  return false;
}

bool IsRecursive(StructureSymbol* current, StructureFieldSymbol* field) {
  StructureSymbol* held = HeldStructure(field);
  SimpleVector<StructureSymbol*> seen;
  return held && HoldsStructure(held, current, seen);
}

// The field this very line declared, or null when an earlier field took
// its name (or the declaration pass never saw the line).
StructureFieldSymbol* FieldDeclaredAt(StructureSymbol* structure,
                                      string const& name, unsigned line) {
  StructureFieldSymbol* here = nullptr;
  FieldSymbolIterator f = structure->IterateFields();
  while (f.Next()) {
    StructureFieldSymbol* field = f.Value();
    if (field->Name() != name) continue;
    if (field->SourceLine() < line) return nullptr;
    if (field->SourceLine() == line) here = field;
  }
  return here;
}

bool IsReservedFieldName(string const& name) {
  for (char const* reserved : kReservedFieldNames)
    if (name == string(reserved)) return true;
  return false;
}

bool IsFixedStringType(SimpleDataType type) {
  return type == kStringType || type == kExternalCStringType ||
         type == kExternalPStringType || type == kExternalWStringType;
}

// The largest structure, in bytes. Offsets and sizes are 32-bit numbers in
// the code, and a value that large is copied at every assignment: beyond
// this a field is error 116.
unsigned long long const kLargestStructureBytes = 1ull << 24;

// The bytes the fields of the structure being compiled take so far, in 64
// bits so that no field size can wrap it.
unsigned long long sStructureBytes;

// At most the bytes the field takes (a fixed string counts its length plus
// one, the most any kind of it adds).
unsigned long long FieldBytes(StructureFieldSymbol* field) {
  IRDataType type = field->GetType();
  unsigned long long count = 1;
  if (type.GetMainType() == kArrayType) {
    count = static_cast<unsigned long long>(field->mArrayUbound) + 1;
    type = type.AsElement();
  }
  unsigned long long each = 0;
  if (field->mStringLength)
    each = 2ull * field->mStringLength + 1;
  else if (StructureSymbol* held = StructureOf(type))
    each = held->GetStorageSize();
  else if (type.GetMainType() != kStringType)
    each = type.StorageSize();
  return count * each;
}

// A field's type without a `* n`: a String has no size of its own, and
// nothing counted may live in raw bytes.
void CheckPlainFieldType(IRDataType const& type, SourceLocation const& where) {
  if (type.GetMainType() == kStringType)
    Error(kErrorStructureField, where);
  else if (type.GetMainType() != kExternalWStringType && type.RefCounted())
    ReportWithText(kErrorStructureField111, where, type.ToString());
}

// `name(count) As type [* size]`: a one-dimensional array of fixed length.
void CheckArrayField(StructureFieldSymbol* field, SemBase* count, SemBase* size,
                     SourceLocation const& where) {
  QASSERT_TEXT(field->GetType().GetMainType() == kArrayType,
               "kArrayType == fieldDecl->GetType().GetMainType()");
  if (count->IsList() || field->GetType().GetDimensions() != 1) {
    Error(kErrorStructureField112, where);
    return;
  }
  if (field->mArrayUbound < 0) {
    Error(kErrorNegativeArrayBound, count->Location());
    return;
  }
  IRDataType element = field->GetType().AsElement();
  if (size) {
    if (!IsFixedStringType(element.GetMainType()))
      Error(kErrorStructureField117, where);
    else if (field->mStringLength < 1)
      Error(kErrorStructureField116, where);
    return;
  }
  CheckPlainFieldType(element, where);
}

void CheckSizedField(StructureFieldSymbol* field, SemBase* size,
                     SourceLocation const& where) {
  QASSERT_TEXT(size->IsConstant(), "stringSize->IsConstant()");
  QASSERT_TEXT(long(field->mStringLength) == size->GetValue().uSInt32,
               "fieldDecl->mStringSize == stringSizeValue");
  if (!IsFixedStringType(field->GetType().GetMainType()))
    Error(kErrorStructureField117, where);
  else if (long(field->mStringLength) < 1)
    Error(kErrorStructureField116, where);
}

}  // namespace

SemBase* CompileStructure(SemBase* ident) {
  QASSERT(gContext);
  QASSERT(ident);
  string name = ident->toString();
  unsigned long table = PushSymTable(new ObjectSymbolTable(name));
  SemBase* marker = SemValue::New(IntConstant(long(table)), &ident->Location());
  StructureSymbol* structure = StructureOf(CompileType(ident)->GetType());
  if (!structure ||
      structure->SourceLine() != ident->Location().mStartLine) {
    Error(kErrorDuplicateName, ident->Location());
    return marker;
  }
  gContext->blocks.Enter(structure);
  sStructureBytes = 0;
  return marker;
}

SemBase* CompileStructureField(SemBase* ident, SemBase* count, SemBase* type,
                               SemBase* size) {
  QASSERT_TEXT(ident, "ident");
  QASSERT_TEXT(type, "type");
  StructureSymbol* current = gContext->blocks.CurrentStructure();
  if (!current) return ident;
  SourceLocation const& where = ident->Location();
  StructureFieldSymbol* field =
      FieldDeclaredAt(current, ident->toString(), where.mStartLine);
  if (!field || IsReservedFieldName(ident->toString())) {
    Error(kErrorDuplicateName, where);
    return ident;
  }
  if (IsRecursive(current, field)) {
    Error(kErrorStructureField118, where);
    return ident;
  }
  if (count)
    CheckArrayField(field, count, size, where);
  else if (size)
    CheckSizedField(field, size, where);
  else
    CheckPlainFieldType(field->GetType(), where);
  if (field->mArrayUbound < 0 && field->GetType().GetMainType() == kArrayType)
    return ident;
  bool fitted = sStructureBytes <= kLargestStructureBytes;
  sStructureBytes += FieldBytes(field);
  if (fitted && sStructureBytes > kLargestStructureBytes)
    Error(kErrorStructureField116, where);
  return ident;
}

// Field access is compiled in line at each use (see StructureMembers.cpp),
// so the block leaves no functions behind.
SemBase* CompileEndStructure(SemBase* name, SemBase* marker, SemBase* fields) {
  QASSERT(gContext);
  SemBase* code = SemCode::New(IRDataType(), name ? &name->Location() : nullptr);
  StructureSymbol* current = gContext->blocks.CurrentStructure();
  if (current && name && current->Name() == name->toString())
    gContext->blocks.Leave(current);
  PopSymTable();
  return code;
}
