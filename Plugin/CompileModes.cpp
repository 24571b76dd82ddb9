#include "Plugin/CompileModes.h"

#include <atomic>

static std::atomic<bool> sClassRecordsAsStaticData(false);
static std::atomic<bool> sGenerateAsParsed(true);

void SetClassRecordsAsStaticData(bool staticData) {
  sClassRecordsAsStaticData = staticData;
}

bool ClassRecordsAsStaticData() { return sClassRecordsAsStaticData; }

void SetGenerateAsParsed(bool asParsed) { sGenerateAsParsed = asParsed; }

bool GenerateAsParsed() { return sGenerateAsParsed; }
