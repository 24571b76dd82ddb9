// Classes and interfaces: their heads and ends, Inherits and Implements,
// stored and computed properties with their accessors, and events.
//
// STAND-INS FOR NOW: each action returns a harmless value (usually code
// of the null type) so that the whole language parses; the issues of
// these actions fill the bodies in.
#ifndef COMPILER_FRONTEND_CLASSES_H
#define COMPILER_FRONTEND_CLASSES_H

class SemBase;

// class_def: the class-start marker
SemBase* CompileClass(SemBase* ident);
// class_def: Class IDENT EOL [class-start] opt_class_members End Class EOL
SemBase* CompileEndClass(SemBase* ident, SemBase* marker, SemBase* body);
// inherits_line: Inherits type_name EOL
SemBase* CompileInheritance(SemBase* type, SemBase* unused);
// implements_line: Implements type_name EOL
SemBase* CompileImplements(SemBase* type);
// interface_def: Interface IDENT EOL [interface-scope] opt_interface_members
//   End Interface EOL
SemBase* CompileInterface(SemBase* ident, SemBase* code);
// simple_property: opt_shared opt_dim declared_name opt_bounds As type_name
//   opt_property_default EOL
SemBase* CompileProperty(SemBase* ident, SemBase* dims, SemBase* type,
                         SemBase* init, SemBase* shared);
// property_block: the property-start marker
SemBase* CompilePropertyBlock(SemBase* ident);
// property_block: opt_shared Property IDENT As type_name EOL [property-start]
//   accessors End Property EOL
SemBase* CompileEndPropertyBlock(SemBase* ident, SemBase* body);
// accessor: the accessor-start marker
SemBase* CompilePropertyAccessor(SemBase* word);
// accessor: IDENT EOL [accessor-start] method_body End IDENT EOL
SemBase* CompileEndPropertyAccessor(SemBase* word, SemBase* endWord,
                                    SemBase* marker, SemBase* body);
// event_decl: Event IDENT [event-scope] ( parameter_list ) opt_event_return EOL
SemBase* CompileEvent(SemBase* ident, SemBase* params, SemBase* returnType,
                      SemBase* handled);

#endif
