// Classes and interfaces: their heads and ends, Inherits and Implements,
// stored and computed properties with their accessors, and events; new
// instances, constructors and destructors; the paths by which code reaches
// a property.
//
// An instance's fields start 24 bytes past the object pointer, behind the
// object header. Each class and interface `C` gets hidden functions linked
// under C's link name: `__Init` runs the field initialisers of a new
// object, `__Exit` releases its counted fields, `__Lookup` gives the class
// record (made on first use by `__ctblinit` unless the record is static
// data).
#ifndef COMPILER_FRONTEND_CLASSES_H
#define COMPILER_FRONTEND_CLASSES_H

#include "Compiler/Frontend/FunctionResultMode.h"
#include "Compiler/SourceLocation.h"
#include "Universal/ustring.h"

class ClassSymbol;
class MethodDeclarationListOwner;
class MethodSymbol;
class PropertySymbol;
class SemBase;
class TypeSymbol;

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


// The record of a class or interface as a value: a call of its __Lookup.
SemBase* LookupClassRecord(TypeSymbol* decl);
SemBase* LookupInterfaceRecord(TypeSymbol* decl);
// The hidden __Lookup method that every class and interface declares.
MethodSymbol* ClassLookupFunction(MethodDeclarationListOwner* owner);

// A new object of `cls` into `code`'s result: a custom __New in reach
// allocates it, else the runtime; then the constructor, unless
// `callConstructor` is false.
void CreateNewClassInstance(ClassSymbol* cls, SemBase* args, SemBase* code,
                            bool callConstructor);
// The constructor that fits `args`: one named Constructor, else one named
// after the class or its nearest ancestor. Arguments with no constructor
// to take them are compile error 9; one the code may not call is 109.
void CallConstructor(ClassSymbol* cls, SemBase* newObject, SemBase* args,
                     SourceLocation const& where, SemBase* code);
// The link name of the destructor the class declares itself (Destructor,
// or the old form named "~" and the class's name), or empty.
string LookupDestructorMethod(ClassSymbol* cls);

// A stored instance property of the object `base`, as a place.
SemBase* CreatePropertyStorageReference(SemBase* base,
                                        PropertySymbol* property);
// Computed properties: 71 without a getter, 70 without a setter.
SemBase* CallPropertyGetter(SemBase* base, PropertySymbol* property);
SemBase* CallPropertySetter(SemBase* base, PropertySymbol* property,
                            SemBase* value);
SemBase* CallModulePropertyGetter(PropertySymbol* property);
SemBase* CallModulePropertySetter(PropertySymbol* property, SemBase* value);

// `expr.name` on a class record: "Name" gives the class's name.
SemBase* ClassScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                          SemBase* assignValue, FunctionResultMode mode);

#endif
