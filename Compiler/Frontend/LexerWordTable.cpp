// The words the lexer has met in this compilation, by their exact bytes:
// each word's text is made once and shared by every token that spells it,
// and its keyword token is looked up once. A program names the same few
// words over and over; without the table each of them cost a string, and
// each keyword a case-folding map lookup.
#include <string.h>

#include <vector>

#include "Compiler/Frontend/LexerInternal.h"
#include "Universal/Encodings.h"

namespace {

// A table past this many words starts again empty, so that no input keeps
// more than this many words alive.
unsigned int const kMostWords = 1u << 16;
unsigned int const kFirstSlotCount = 1024;

struct Word {
  string text;
  int token;
  uint32_t hash;
};

class WordTable {
 public:
  LexerWord Find(char const* bytes, unsigned int length) {
    uint32_t hash = HashOf(bytes, length);
    if (mSlots.empty()) Grow();
    unsigned int mask = (unsigned int)mSlots.size() - 1;
    for (unsigned int slot = hash & mask;; slot = (slot + 1) & mask) {
      unsigned int index = mSlots[slot];
      if (index == kEmpty) break;
      Word const& word = mWords[index];
      if (word.hash == hash && word.text.Length() == length &&
          memcmp(word.text.CString(), bytes, length) == 0)
        return Answer(word);
    }
    if (mWords.size() >= kMostWords) Clear();
    if (2 * (mWords.size() + 1) > mSlots.size()) Grow();
    Word word;
    word.text.ConstructFromBuffer(bytes, length);
    word.text.SetEncoding(kEncodingUTF8);
    word.token = KeywordToken(word.text);
    word.hash = hash;
    mWords.push_back(word);
    Place((unsigned int)mWords.size() - 1);
    return Answer(mWords.back());
  }

  void Clear() {
    mWords.clear();
    mWords.shrink_to_fit();
    mSlots.clear();
    mSlots.shrink_to_fit();
  }

 private:
  static constexpr unsigned int kEmpty = ~0u;

  // FNV-1a over the bytes.
  static uint32_t HashOf(char const* bytes, unsigned int length) {
    uint32_t hash = 2166136261u;
    for (unsigned int i = 0; i < length; i++)
      hash = (hash ^ (unsigned char)bytes[i]) * 16777619u;
    return hash;
  }

  static LexerWord Answer(Word const& word) { return {&word.text, word.token}; }

  void Place(unsigned int index) {
    unsigned int mask = (unsigned int)mSlots.size() - 1;
    unsigned int slot = mWords[index].hash & mask;
    while (mSlots[slot] != kEmpty) slot = (slot + 1) & mask;
    mSlots[slot] = index;
  }

  void Grow() {
    if (mSlots.empty()) mSlots.assign(kFirstSlotCount, kEmpty);
    else mSlots.assign(2 * mSlots.size(), kEmpty);
    for (unsigned int i = 0; i < mWords.size(); i++) Place(i);
  }

  std::vector<Word> mWords;
  std::vector<unsigned int> mSlots;
};

WordTable sWords;

}  // namespace

LexerWord FindLexerWord(char const* bytes, unsigned int length) {
  return sWords.Find(bytes, length);
}

void ForgetLexerWords() { sWords.Clear(); }
