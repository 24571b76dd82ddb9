#include "Compiler/BackEnds/codestorage.h"

#include "Universal/Assertion.h"

void CodeOffsetToLineIndex::AddEntry(unsigned int offset, unsigned int line) {
  if (mIndex.size()) {
    if (mIndex.peek_back().line == line) return;
    QASSERT_TEXT(mIndex.peek_back().offset <= offset,
                 "mIndex.peek_back().offset <= offset");
  }
  cotlis entry = {offset, line};
  mIndex.push_back(entry);
}

bool CodeOffsetToLineIndex::LookupLine(unsigned int offset, int* line) const {
  for (unsigned long i = mIndex.size(); i > 0; i--) {
    if (mIndex[i - 1].offset <= offset) {
      *line = static_cast<int>(mIndex[i - 1].line);
      return true;
    }
  }
  return false;
}

bool CodeOffsetToLineIndex::LookupOffset(unsigned int line,
                                         unsigned int* offset) const {
  for (unsigned long i = 0; i < mIndex.size(); i++) {
    if (mIndex[i].line == line) {
      *offset = mIndex[i].offset;
      return true;
    }
  }
  return false;
}

void CodeOffsetToLineIndex::Adjust(int delta) {
  for (unsigned long i = 0; i < mIndex.size(); i++) mIndex[i].offset += delta;
}
