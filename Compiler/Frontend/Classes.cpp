#include "Compiler/Frontend/Classes.h"

#include "Compiler/SemBase.h"

// class_def: the class-start marker
SemBase* CompileClass(SemBase* ident) { return ident; }

// class_def: Class IDENT EOL [class-start] opt_class_members End Class EOL
SemBase* CompileEndClass(SemBase* ident, SemBase* marker, SemBase* body) {
  return SemCode::New(IRDataType(), nullptr);
}

// inherits_line: Inherits type_name EOL
SemBase* CompileInheritance(SemBase* type, SemBase* unused) { return nullptr; }

// implements_line: Implements type_name EOL
SemBase* CompileImplements(SemBase* type) { return nullptr; }

// interface_def: Interface IDENT EOL [interface-scope] opt_interface_members
//   End Interface EOL
SemBase* CompileInterface(SemBase* ident, SemBase* code) {
  return SemCode::New(IRDataType(), nullptr);
}

// simple_property: opt_shared opt_dim declared_name opt_bounds As type_name
//   opt_property_default EOL
SemBase* CompileProperty(SemBase* ident, SemBase* dims, SemBase* type,
                         SemBase* init, SemBase* shared) {
  return SemCode::New(IRDataType(), nullptr);
}

// property_block: the property-start marker
SemBase* CompilePropertyBlock(SemBase* ident) { return ident; }

// property_block: opt_shared Property IDENT As type_name EOL [property-start]
//   accessors End Property EOL
SemBase* CompileEndPropertyBlock(SemBase* ident, SemBase* body) {
  return SemCode::New(IRDataType(), nullptr);
}

// accessor: the accessor-start marker
SemBase* CompilePropertyAccessor(SemBase* word) { return word; }

// accessor: IDENT EOL [accessor-start] method_body End IDENT EOL
SemBase* CompileEndPropertyAccessor(SemBase* word, SemBase* endWord,
                                    SemBase* marker, SemBase* body) {
  return SemCode::New(IRDataType(), nullptr);
}

// event_decl: Event IDENT [event-scope] ( parameter_list ) opt_event_return EOL
SemBase* CompileEvent(SemBase* ident, SemBase* params, SemBase* returnType,
                      SemBase* handled) {
  return nullptr;
}
