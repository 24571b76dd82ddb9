// Every library function that builds or scans text does work in proportion
// to the text it reads and writes: counted at n and 16n bytes, never timed.
#include "LibraryTestSupport.h"
#include "tests/Universal/StringWorkTesting.h"

#include <functional>

namespace {

class LibraryLinearity : public LibraryTest {
 protected:
  // Comma-separated words of about n bytes; with `accented`, UTF-8 text
  // beyond ASCII, otherwise text tagged ASCII.
  Str Words(unsigned long n, bool accented) {
    std::string text;
    while (text.size() < n) text += accented ? "alpha,B\xC3\xA9ta,gamma," : "alpha,Beta,gamma,";
    return S(text.c_str(), accented ? kEncodingUTF8 : kEncodingASCII);
  }

  // The work of one call that returns a string, with its input and output
  // bytes.
  template <class... A>
  MeasuredWork TextCall(char const* name, Str input, A... args) {
    auto function = Library<Str(Str, A...)>(name);
    Str result = nullptr;
    double work = StringWorkOf([&] { result = function(input, args...); });
    double bytes = Bytes(input).size() + Bytes(result).size();
    UnlockStringStorage(result);
    return {work, bytes};
  }
};

TEST_F(LibraryLinearity, FunctionsThatBuildText) {
  Str comma = S(","), semicolons = S(";;"), beta = S("BETA"), empty = nullptr;
  std::pair<char const*, std::function<MeasuredWork(unsigned long, bool)>> rows[] = {
      {"ReplaceAll", [&](unsigned long n, bool u) { return TextCall("StringReplaceAll", Words(n, u), comma, semicolons); }},
      {"ReplaceAll to nothing", [&](unsigned long n, bool u) { return TextCall("StringReplaceAll", Words(n, u), beta, empty); }},
      {"Replace", [&](unsigned long n, bool u) { return TextCall("StringReplace", Words(n, u), beta, semicolons); }},
      {"ReplaceAllB", [&](unsigned long n, bool u) { return TextCall("StringReplaceAllB", Words(n, u), comma, semicolons); }},
      {"ReplaceB", [&](unsigned long n, bool u) { return TextCall("StringReplaceB", Words(n, u), comma, semicolons); }},
      {"Uppercase", [&](unsigned long n, bool u) { return TextCall("StringUCase", Words(n, u)); }},
      {"Titlecase", [&](unsigned long n, bool u) { return TextCall("StringTitleCase", Words(n, u)); }},
      {"Trim", [&](unsigned long n, bool u) { return TextCall("runTrim", Words(n, u)); }},
      {"Left", [&](unsigned long n, bool u) { return TextCall("StringDBCSLeft", Words(n, u), long(n / 2)); }},
      {"Right", [&](unsigned long n, bool u) { return TextCall("StringDBCSRight", Words(n, u), long(n / 2)); }},
      {"Mid", [&](unsigned long n, bool u) { return TextCall("StringDBCSMid3", Words(n, u), long(n / 3), long(n / 3)); }},
      {"Mid to the end", [&](unsigned long n, bool u) { return TextCall("StringDBCSMid2", Words(n, u), long(n / 2)); }},
      {"NthField", [&](unsigned long n, bool u) { return TextCall("StringNthField", Words(n, u), comma, long(n / 20)); }},
  };
  for (auto const& row : rows)
    for (bool accented : {false, true})
      ExpectLinearWork(row.first, [&](unsigned long n) { return row.second(n, accented); });
}

TEST_F(LibraryLinearity, FunctionsThatScanText) {
  Str comma = S(","), missing = S("gammaX");
  auto instr = Library<long(long, Str, Str)>("StringInStr");
  auto instrB = Library<long(long, Str, Str)>("StringInStrB");
  auto count = Library<long(Str, Str)>("StringCountFields");
  auto len = Library<long(Str)>("StringDBCSLen");
  std::pair<char const*, std::function<double(Str, unsigned long)>> rows[] = {
      {"InStr from a start", [&](Str t, unsigned long n) { return double(instr(long(n / 2), t, missing)); }},
      {"InStrB from a start", [&](Str t, unsigned long n) { return double(instrB(long(n / 2), t, missing)); }},
      {"CountFields", [&](Str t, unsigned long) { return double(count(t, comma)); }},
      {"Len", [&](Str t, unsigned long) { return double(len(t)); }},
  };
  for (auto const& row : rows)
    for (bool accented : {false, true})
      ExpectLinearWork(row.first, [&](unsigned long n) {
        Str text = Words(n, accented);
        double work = StringWorkOf([&] { row.second(text, n); });
        return MeasuredWork{work, double(text->mLength)};
      });
}

// A program's walk through a text, field by field with InStr, Mid and Len:
// each step costs its own field, not the text before it, whether a
// character is a byte or not.
TEST_F(LibraryLinearity, WalkingForwardThroughText) {
  auto instr = Library<long(long, Str, Str)>("StringInStr");
  auto mid = Library<Str(Str, long, long)>("StringDBCSMid3");
  auto len = Library<long(Str)>("StringDBCSLen");
  Str comma = S(",");
  for (bool accented : {false, true}) {
    ExpectLinearWork(accented ? "walk through UTF-8" : "walk through ASCII", [&](unsigned long n) {
      Str text = Words(n, accented);
      long fields = 0;
      double work = StringWorkOf([&] {
        for (long at = 1, next; at <= len(text) && (next = instr(at, text, comma)) > 0;
             at = next + 1, fields++)
          UnlockStringStorage(mid(text, at, next - at));
      });
      EXPECT_EQ(fields, long(text->mLength / (accented ? 18 : 17) * 3));
      return MeasuredWork{work, double(text->mLength)};
    });
    quorl::standin::library::ForgetCharacterPositions();
  }
}

// NthField asked for each field in turn resumes where the last call ended;
// asked out of order, or of another text or delimiter, it starts again and
// gives the same fields.
TEST_F(LibraryLinearity, NthFieldOverEveryField) {
  auto nth = Library<Str(Str, Str, long)>("StringNthField");
  auto count = Library<long(Str, Str)>("StringCountFields");
  Str comma = S(","), semicolon = S(";");
  for (bool accented : {false, true}) {
    ExpectLinearWork(accented ? "every field of UTF-8" : "every field of ASCII", [&](unsigned long n) {
      Str text = Words(n, accented);
      long fields = count(text, comma);
      double work = StringWorkOf([&] {
        for (long k = 1; k <= fields; k++) UnlockStringStorage(nth(text, comma, k));
      });
      return MeasuredWork{work, double(text->mLength)};
    });
  }
  Str text = S("a,b;c,d"), other = S("x,y,z");
  auto field = [&](Str in, Str delimiter, long k) {
    Str piece = nth(in, delimiter, k);
    std::string bytes = Bytes(piece);
    UnlockStringStorage(piece);
    return bytes;
  };
  EXPECT_EQ(field(text, comma, 3), "d");
  EXPECT_EQ(field(text, comma, 2), "b;c");
  EXPECT_EQ(field(text, semicolon, 2), "c,d");
  EXPECT_EQ(field(other, comma, 3), "z");
  EXPECT_EQ(field(text, comma, 4), "");
  quorl::standin::library::ForgetCharacterPositions();
}

// Positions remembered in one text never answer for another; the text is
// kept alive while remembered, so that no other text can take its address.
TEST_F(LibraryLinearity, RememberedPositionsBelongToTheirText) {
  auto mid = Library<Str(Str, long, long)>("StringDBCSMid3");
  auto instr = Library<long(long, Str, Str)>("StringInStr");
  Str first = NewStringStorage("\xC3\xA9\xC3\xA9" "abc", 7, kEncodingUTF8);
  EXPECT_EQ(instr(3, first, S("b")), 4);
  UnlockStringStorage(first);
  EXPECT_EQ(first->mRefCount, 1) << "the remembered text is kept alive";
  Str second = S("xy\xC3\xA9\xC3\xA9" "b");
  EXPECT_EQ(Text("StringDBCSMid3", second, 3L, 2L), "\xC3\xA9\xC3\xA9");
  EXPECT_EQ(instr(2, second, S("b")), 5);
  Str piece = mid(second, 5, 1);
  EXPECT_EQ(Bytes(piece), "b");
  UnlockStringStorage(piece);
  quorl::standin::library::ForgetCharacterPositions();
}

}  // namespace
