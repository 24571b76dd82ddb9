// The declaration resolver: turns the merged declaration tree into a linked
// one. Every written type name is bound to its declaration, every member
// gets its link name, every class its superclass, vtable slots, property
// indices and instance layout, every structure its size. It runs once per
// compilation, before the grammar pass, and reports nothing: what it cannot
// resolve stays unresolved, and the grammar pass reports it where it is used.
#ifndef COMPILER_MINER_MINER_H
#define COMPILER_MINER_MINER_H

#include "Compiler/SymbolTable/MethodSignatures.h"
#include "Compiler/datatypes.h"

class ClassSymbol;
class GlobalSymbolTable;
class InterfaceSymbol;
class MethodSymbol;
class ModuleSymbol;
class StructureSymbol;

// Containers, types, scope link names, member link names, then layouts.
void ResolveDeclarations(GlobalSymbolTable* decls);

// The passes, in the order ResolveDeclarations runs them.
void LinkModuleContainers(ModuleSymbol* module);
void ResolveModuleTypes(ModuleSymbol* module);
void ComputeScopeLinkIDs(GlobalSymbolTable* decls);
void ComputeMemberLinkIDs(GlobalSymbolTable* decls);
void ComputeTypeMetadata(ModuleSymbol* module);

// The type that `type` names as seen from `module`, and from inside `cls`
// when given, wrapped again in its array and reference; `type` itself if
// nothing is found.
IRDataType ResolveOneType(ModuleSymbol* module, IRDataType const& type,
                          ClassSymbol* cls = nullptr);
// Packed layout of a structure; nested structures first. A structure that
// contains itself counts its inner occurrence as empty.
void ComputeStructureStorage(StructureSymbol* it);
// Vtable slots of a class with no known superclass.
void ComputeBaseClass(ClassSymbol* it, ModuleSymbol* module);
// Links `child` under `parent`, completes the parent first, and extends
// its layout and vtable.
void ComputeInheritance(ClassSymbol* child, ClassSymbol* parent,
                        ModuleSymbol* module);
void ComputeInterfaceVtable(InterfaceSymbol* it);

#endif
