// Programs for the fuzzer: well-formed ones built from the language's forms,
// and damaged ones made by mutating real scripts. Both are a pure function
// of their random source, so that a program can be made again from its seed.
#ifndef TESTS_FUZZ_PROGRAMGENERATOR_H
#define TESTS_FUZZ_PROGRAMGENERATOR_H

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace fuzz {

using Random = std::mt19937;

// A program of declarations, functions, loops, handlers and expressions
// over the scalar types, strings and arrays, which compiles as a rule.
std::string GenerateProgram(Random& random);

// One of the corpus scripts with a few edits: lines dropped, repeated,
// swapped or cut short, words swapped for others of the corpus, numbers
// for edge values, text spliced in from another script.
std::string MutateProgram(Random& random,
                          std::vector<std::string> const& corpus);

}  // namespace fuzz

#endif
