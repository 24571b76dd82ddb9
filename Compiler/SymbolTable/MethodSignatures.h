// Comparing the signatures of two methods: what the declaration resolver
// needs to find an override, and the grammar pass to check one.
#ifndef COMPILER_SYMBOLTABLE_METHODSIGNATURES_H
#define COMPILER_SYMBOLTABLE_METHODSIGNATURES_H

class MethodSymbol;

// Whether `b` overrides `a` (or the reverse): same presence of a result,
// same parameters by type and role past the first. Conversion operators
// also compare their results.
bool SignaturesMatchExactly(MethodSymbol* a, MethodSymbol* b);

#endif
