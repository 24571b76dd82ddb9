// Modules: the head and end of a Module block.
//
// STAND-INS FOR NOW: each action returns a harmless value (usually code
// of the null type) so that the whole language parses; the issues of
// these actions fill the bodies in.
#ifndef COMPILER_FRONTEND_MODULES_H
#define COMPILER_FRONTEND_MODULES_H

class SemBase;

// module_def: the module-start marker
SemBase* CompileModule(SemBase* ident);
// module_def: Module IDENT EOL [module-start] opt_module_members End Module EOL
SemBase* CompileEndModule(SemBase* marker, SemBase* body);

#endif
