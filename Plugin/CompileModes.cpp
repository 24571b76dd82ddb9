#include "Plugin/ClassRecordMode.h"

#include <atomic>

static std::atomic<bool> sClassRecordsAsStaticData(false);

void SetClassRecordsAsStaticData(bool staticData) {
  sClassRecordsAsStaticData = staticData;
}

bool ClassRecordsAsStaticData() { return sClassRecordsAsStaticData; }
