// How compiled classes get their records: by default each class builds its
// record at run time on first use; a program that links the engine in can
// ask for records laid out as linked data instead, for every compilation of
// the process from then on.
#ifndef PLUGIN_CLASSRECORDMODE_H
#define PLUGIN_CLASSRECORDMODE_H

void SetClassRecordsAsStaticData(bool staticData);
bool ClassRecordsAsStaticData();

#endif
