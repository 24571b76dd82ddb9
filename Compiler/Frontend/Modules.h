// Modules: the head and end of a Module block. A module's members are
// compiled by the actions of their own kinds (functions, properties,
// constants, types); the block only makes the module current, so that the
// lookups and the declarations of its members find it.
#ifndef COMPILER_FRONTEND_MODULES_H
#define COMPILER_FRONTEND_MODULES_H

class SemBase;

// module_def: the module-start marker. Opens a table for the module's
// static data and enters the module's block; gives the table's index.
SemBase* CompileModule(SemBase* ident);
// module_def: Module IDENT EOL [module-start] opt_module_members End Module
// EOL. Leaves the block and its table; gives the members' code.
SemBase* CompileEndModule(SemBase* marker, SemBase* body);

#endif
