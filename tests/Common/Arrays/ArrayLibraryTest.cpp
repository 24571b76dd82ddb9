// Split and Join: each makes its result once, at its final size, so their
// work stays in proportion to the text (counted, never timed); and text of
// two encodings is joined as the sum of strings would join it.
#include "ArrayTestSupport.h"

#include "Common/Arrays/ArrayLibrary.h"
#include "tests/Universal/StringWorkTesting.h"

namespace arraytest {
namespace {

class ArrayLibrary : public ArrayTest {
 protected:
  static RuntimeArrayObject* AsArray(RuntimeObject* object) {
    return reinterpret_cast<RuntimeArrayObject*>(object);
  }
  // The text of `count` short lines, joined with `delimiter`.
  static std::string Lines(unsigned long count, char const* delimiter) {
    std::string text;
    for (unsigned long k = 0; k < count; k++)
      text += (k ? delimiter : "") + std::string("line ") + std::to_string(k);
    return text;
  }
  static std::string JoinedText(RuntimeObject* array, stringStorage* delimiter) {
    stringStorage* joined = StringJoin(array, delimiter);
    std::string text = joined ? std::string(joined->CString(), joined->mLength) : "";
    RuntimeUnlockString(joined);
    return text;
  }
};

TEST_F(ArrayLibrary, SplitAndJoinWorkInProportionToTheText) {
  stringStorage* newline = Text("\n");
  ExpectLinearWork("Split then Join", [&](unsigned long n) {
    std::string text = Lines(n / 8, "\n");
    stringStorage* source = Text(text.c_str());
    RuntimeObject* lines = nullptr;
    double splitWork = StringWorkOf([&] { lines = StringSplit(source, newline); });
    EXPECT_EQ(CurrentStringWork().allocations, n / 8) << "one storage a field";
    stringStorage* joined = nullptr;
    double joinWork = StringWorkOf([&] { joined = StringJoin(lines, newline); });
    EXPECT_EQ(CurrentStringWork().allocations, 1u) << "Join allocates once";
    EXPECT_EQ(joined->mLength, text.size());
    EXPECT_EQ(memcmp(joined->CString(), text.data(), text.size()), 0);
    RuntimeUnlockString(joined);
    RuntimeUnlockString(source);
    RuntimeUnlockObject(lines);
    return MeasuredWork{splitWork + joinWork, 2.0 * text.size()};
  });
  RuntimeUnlockString(newline);
}

// An empty delimiter joins with nothing and splits into characters (code
// points of UTF-8 text); a lone element is shared, not copied.
TEST_F(ArrayLibrary, EmptyDelimitersAndLoneElements) {
  stringStorage* word = NewStringStorage("h\xC3\xA9!", 4, kEncodingUTF8);
  RuntimeObject* letters = StringSplit(word, nullptr);
  EXPECT_EQ(Ubound(AsArray(letters)), 2);
  EXPECT_EQ(Elements<stringStorage*>(AsArray(letters))[1]->mLength, 2u);
  EXPECT_EQ(JoinedText(letters, nullptr), "h\xC3\xA9!");
  RuntimeUnlockObject(letters);

  stringStorage* absent = Text("::");
  RuntimeObject* whole = StringSplit(word, absent);
  RuntimeUnlockString(absent);
  EXPECT_EQ(Elements<stringStorage*>(AsArray(whole))[0], word);
  stringStorage* joined = StringJoin(whole, nullptr);
  EXPECT_EQ(joined, word) << "one element is the result";
  RuntimeUnlockString(joined);
  RuntimeUnlockObject(whole);
  EXPECT_EQ(word->mRefCount, 1);
  RuntimeUnlockString(word);
}

// Pieces in UTF-16 meet pieces in UTF-8: all are brought to UTF-8, as
// adding them one by one would.
TEST_F(ArrayLibrary, JoinBringsMixedEncodingsToOne) {
  string wide;
  unsigned short units[] = {0x4E16, 0x754C};
  wide.ConstructFromUTF16String(units, 2);
  RuntimeArrayObject* parts = CreateArray(1, kString, 2L);
  Elements<stringStorage*>(parts)[0] = Text("ab");
  Elements<stringStorage*>(parts)[1] = wide.ExtractStringStorage();
  Elements<stringStorage*>(parts)[2] = NewStringStorage("\xC3\xA9", 2, kEncodingUTF8);
  stringStorage* dash = Text("-");
  stringStorage* joined = StringJoin(&parts->header, dash);
  RuntimeUnlockString(dash);
  EXPECT_EQ(joined->mEncoding, (uint32_t)kEncodingUTF8);
  EXPECT_EQ(std::string(joined->CString(), joined->mLength),
            "ab-\xE4\xB8\x96\xE7\x95\x8C-\xC3\xA9");
  RuntimeUnlockString(joined);
  RuntimeUnlockObject(&parts->header);
}

// The delimiter is found whatever the case of its letters, a byte above 127
// is matched as it is, and delimiters side by side or at either end give
// empty fields; Join of those fields gives the text back.
TEST_F(ArrayLibrary, SplitFindsDelimitersInAnyCaseAndAtTheEdges) {
  struct Case {
    char const* text;
    char const* delimiter;
    std::vector<std::string> fields;
  } const cases[] = {
      {"aXbxxc", "x", {"a", "b", "", "c"}},
      {"oneANDtwoandthreeAnD", "and", {"one", "two", "three", ""}},
      {"\xC3\xA9" "a\xC3\xA9\xC3\xA9", "\xC3\xA9", {"", "a", "", ""}},
      {"abab", "bab", {"a", ""}},
      {"ab", "abc", {"ab"}},
  };
  for (Case const& c : cases) {
    stringStorage* text = NewStringStorage(c.text, strlen(c.text), kEncodingUTF8);
    stringStorage* delimiter =
        NewStringStorage(c.delimiter, strlen(c.delimiter), kEncodingUTF8);
    RuntimeArrayObject* fields = AsArray(StringSplit(text, delimiter));
    ASSERT_EQ(Ubound(fields) + 1, static_cast<long>(c.fields.size())) << c.text;
    for (unsigned long k = 0; k < c.fields.size(); k++) {
      stringStorage* field = Elements<stringStorage*>(fields)[k];
      std::string got = field ? std::string(field->CString(), field->mLength) : "";
      EXPECT_EQ(got, c.fields[k]) << c.text << " field " << k;
    }
    if (strcasecmp(c.delimiter, "and") != 0 && c.delimiter[0] != 'x') {
      EXPECT_EQ(JoinedText(&fields->header, delimiter), c.text);
    }
    RuntimeUnlockObject(&fields->header);
    RuntimeUnlockString(delimiter);
    RuntimeUnlockString(text);
  }
}

}  // namespace
}  // namespace arraytest
