// Process-wide choices of how scripts compile, for every compilation of the
// process from the moment they are set; a program that links the engine in
// (the runner, the tests) sets them.
#ifndef PLUGIN_COMPILEMODES_H
#define PLUGIN_COMPILEMODES_H

// How compiled classes get their records: by default each class builds its
// record at run time on first use; on request, records are laid out as
// linked data instead.
void SetClassRecordsAsStaticData(bool staticData);
bool ClassRecordsAsStaticData();

// Whether each function is generated as soon as the parser finishes it (the
// default), or the whole program at the end. The code is the same: the
// second way is there to prove it.
void SetGenerateAsParsed(bool asParsed);
bool GenerateAsParsed();

#endif
