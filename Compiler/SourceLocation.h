// Where a piece of source text lies: start line, start byte offset in that
// line, end line, end byte offset. Lines count from 0 all the way to the
// host's event; nobody adds 1 on the way.
#ifndef COMPILER_SOURCELOCATION_H
#define COMPILER_SOURCELOCATION_H

struct SourceLocation {
  unsigned int mStartLine = 0;
  int mStartOffset = -1;
  unsigned int mEndLine = 0;
  int mEndOffset = -1;

  SourceLocation() = default;
  // Both lines set; the offsets stay unknown (-1).
  explicit SourceLocation(unsigned int line) : mStartLine(line), mEndLine(line) {}
  SourceLocation(unsigned int startLine, int startOffset, unsigned int endLine,
                 int endOffset)
      : mStartLine(startLine), mStartOffset(startOffset), mEndLine(endLine),
        mEndOffset(endOffset) {}
};

// The span of both: the earlier start and the later end (lines first, then
// offsets on equal lines).
inline SourceLocation operator+(SourceLocation const& a, SourceLocation const& b) {
  SourceLocation r = a;
  if (b.mStartLine < a.mStartLine ||
      (b.mStartLine == a.mStartLine && b.mStartOffset < a.mStartOffset)) {
    r.mStartLine = b.mStartLine;
    r.mStartOffset = b.mStartOffset;
  }
  if (b.mEndLine > a.mEndLine ||
      (b.mEndLine == a.mEndLine && b.mEndOffset > a.mEndOffset)) {
    r.mEndLine = b.mEndLine;
    r.mEndOffset = b.mEndOffset;
  }
  return r;
}

#endif
