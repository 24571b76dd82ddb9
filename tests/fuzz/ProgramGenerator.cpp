// The grammar-based generator. Expressions are typed as they are built, so
// that most programs get past the compiler and exercise the generated code
// and the runtime; a few deliberate mismatches and edge values keep the
// error paths busy too.
#include "tests/fuzz/ProgramGenerator.h"

#include <sstream>

namespace fuzz {
namespace {

enum class Type { Integer, Int64, Double, String, Boolean };

char const* const kTypeNames[] = {"Integer", "Int64", "Double", "String",
                                  "Boolean"};
int const kTypeCount = 5;

// Values where arithmetic wraps, divides badly or runs out of digits.
char const* const kIntegerEdges[] = {"0", "1", "-1", "2147483647",
                                     "(-2147483647 - 1)", "65536", "7"};
char const* const kInt64Edges[] = {"5000000000", "-1", "0",
                                   "9223372036854775807", "3"};
char const* const kDoubleEdges[] = {"0.0", "-0.5", "1e308", "1e-308", "2.5",
                                    "-1e300"};
char const* const kStringEdges[] = {"\"\"", "\"a\"", "\"héllo\"", "\"x,y,z\"",
                                    "\"  pad  \"", "\"€\""};

int const kMostExpressionDepth = 4;
int const kMostStatementDepth = 3;

template <class T, size_t N>
char const* Pick(Random& random, T const (&choices)[N]) {
  return choices[std::uniform_int_distribution<size_t>(0, N - 1)(random)];
}

class Generator {
 public:
  explicit Generator(Random& random) : mRandom(random) {}

  std::string Program() {
    for (int k = 0; k < kTypeCount; k++) Declare(Type(k));
    int functions = Below(3);
    for (int k = 0; k < functions; k++) Function(k);
    int statements = 1 + Below(12);
    for (int k = 0; k < statements; k++) Statement(0);
    for (auto const& variable : mVariables) Show(variable);
    return mOut.str();
  }

 private:
  int Below(int n) { return std::uniform_int_distribution<int>(0, n - 1)(mRandom); }
  bool Chance(int percent) { return Below(100) < percent; }

  std::string Name(Type type) {
    std::vector<std::string> names;
    for (auto const& variable : mVariables)
      if (variable.second == type) names.push_back(variable.first);
    return names[Below(int(names.size()))];
  }

  void Declare(Type type) {
    std::string name = "v" + std::to_string(mVariables.size());
    mOut << "Dim " << name << " As " << kTypeNames[int(type)] << " = "
         << Literal(type) << "\n";
    mVariables.push_back({name, type});
  }

  std::string Literal(Type type) {
    switch (type) {
      case Type::Integer: return Pick(mRandom, kIntegerEdges);
      case Type::Int64: return Pick(mRandom, kInt64Edges);
      case Type::Double: return Pick(mRandom, kDoubleEdges);
      case Type::String: return Pick(mRandom, kStringEdges);
      case Type::Boolean: return Chance(50) ? "True" : "False";
    }
    return "0";
  }

  std::string Expression(Type type, int depth) {
    if (depth >= kMostExpressionDepth || Chance(30))
      return Chance(50) ? Name(type) : Literal(type);
    std::string a = Expression(type, depth + 1), b = Expression(type, depth + 1);
    switch (type) {
      case Type::Integer:
      case Type::Int64: {
        static char const* const ops[] = {"+", "-", "*", "\\", "Mod", "And",
                                          "Or", "Xor"};
        if (Chance(10)) return "Not " + a;
        if (Chance(10)) return "Len(" + Expression(Type::String, depth + 1) + ")";
        return "(" + a + " " + Pick(mRandom, ops) + " " + b + ")";
      }
      case Type::Double: {
        static char const* const ops[] = {"+", "-", "*", "/", "^"};
        static char const* const calls[] = {"Sqrt", "Abs", "Floor", "Sin",
                                            "Log", "Round", "Exp"};
        if (Chance(15)) return std::string(Pick(mRandom, calls)) + "(" + a + ")";
        if (Chance(10)) return "Val(" + Expression(Type::String, depth + 1) + ")";
        return "(" + a + " " + Pick(mRandom, ops) + " " + b + ")";
      }
      case Type::String: {
        std::string n = Expression(Type::Integer, depth + 1);
        switch (Below(9)) {
          case 0: return "Mid(" + a + ", " + n + ")";
          case 1: return "Left(" + a + ", " + n + ")";
          case 2: return "Str(" + Expression(Type::Double, depth + 1) + ")";
          // A replacement by the text itself would grow it exponentially
          // in nested calls, and the program would be slow, not wrong.
          case 3: return "ReplaceAll(" + a + ", " + b + ", \"z\")";
          case 4: return "Uppercase(" + a + ")";
          case 5: return "NthField(" + a + ", \",\", " + n + ")";
          case 6: return "Chr(" + n + ")";
          default: return "(" + a + " + " + b + ")";
        }
      }
      case Type::Boolean: {
        static char const* const ops[] = {"=", "<>", "<", ">=", "<=", ">"};
        Type compared = Type(Below(4));
        if (Chance(20)) return "(" + a + " And " + b + ")";
        if (Chance(10)) return "Not " + a;
        return "(" + Expression(compared, depth + 1) + " " + Pick(mRandom, ops) +
               " " + Expression(compared, depth + 1) + ")";
      }
    }
    return a;
  }

  void Indent(int depth) { mOut << std::string(2 * depth + mIndent, ' '); }

  void Assign(int depth) {
    Type type = Type(Below(kTypeCount));
    Indent(depth);
    // Now and then the wrong type on purpose: a compile error is an outcome
    // the engine must give cleanly too.
    Type source = Below(1000) < 3 ? Type(Below(kTypeCount)) : type;
    mOut << Name(type) << " = " << Expression(source, 0) << "\n";
  }

  void Show(std::pair<std::string, Type> const& variable) {
    std::string const& name = variable.first;
    if (variable.second == Type::String)
      mOut << "Print " << name << "\n";
    else if (variable.second == Type::Boolean)
      mOut << "If " << name << " Then Print \"T\" Else Print \"F\"\n";
    else
      mOut << "Print Str(" << name << ")\n";
  }

  void Statement(int depth) {
    int choice = depth >= kMostStatementDepth ? 0 : Below(9);
    switch (choice) {
      case 1:
        Indent(depth);
        mOut << "If " << Expression(Type::Boolean, 1) << " Then\n";
        Block(depth);
        if (Chance(50)) {
          Indent(depth);
          mOut << "Else\n";
          Block(depth);
        }
        Indent(depth);
        mOut << "End If\n";
        return;
      case 2: {
        std::string counter = "i" + std::to_string(mCounters++);
        Indent(depth);
        // Bounds stay small, so that loops inside loops end.
        mOut << "For " << counter << " As Integer = " << Below(3) << " To ("
             << Expression(Type::Integer, 2) << ") Mod 20"
             << (Chance(20) ? " Step -1" : "") << "\n";
        Block(depth);
        Indent(depth);
        mOut << "Next\n";
        return;
      }
      case 3:
        Indent(depth);
        mOut << "Try\n";
        Block(depth);
        Indent(depth);
        mOut << "Catch\n";
        Indent(depth + 1);
        mOut << "Print \"caught\"\n";
        Indent(depth);
        mOut << "End Try\n";
        return;
      case 4:
        Indent(depth);
        mOut << "Select Case " << Name(Type::Integer) << "\n";
        Indent(depth);
        mOut << "Case " << Literal(Type::Integer) << "\n";
        Block(depth);
        Indent(depth);
        mOut << "Case Else\n";
        Block(depth);
        Indent(depth);
        mOut << "End Select\n";
        return;
      case 5: {
        std::string list = "a" + std::to_string(mCounters++);
        Type type = Type(Below(kTypeCount));
        Indent(depth);
        mOut << "Dim " << list << "(" << Below(4) << ") As "
             << kTypeNames[int(type)] << "\n";
        Indent(depth);
        mOut << list << ".Append(" << Expression(type, 2) << ")\n";
        Indent(depth);
        mOut << list << "((" << Expression(Type::Integer, 3) << ") Mod 4) = "
             << Expression(type, 2) << "\n";
        Indent(depth);
        mOut << "Print Str(UBound(" << list << "))\n";
        return;
      }
      case 6:
        if (mFunctions) {
          Indent(depth);
          mOut << Name(Type::Integer) << " = F" << Below(mFunctions) << "("
               << Expression(Type::Integer, 2) << ", "
               << Expression(Type::String, 2) << ")\n";
          return;
        }
        break;
      case 7:
        Indent(depth);
        mOut << "While " << Expression(Type::Boolean, 2) << "\n";
        Block(depth);
        Indent(depth);
        mOut << "  Exit\n";
        Indent(depth);
        mOut << "Wend\n";
        return;
      case 8:
        Indent(depth);
        mOut << "Print " << Expression(Type::String, 1) << "\n";
        return;
    }
    Assign(depth);
  }

  void Block(int depth) {
    int count = 1 + Below(3);
    for (int k = 0; k < count; k++) Statement(depth + 1);
  }

  // Functions see the globals and may call those before them, themselves
  // included: recursion that runs out of stack is an outcome as well.
  void Function(int index) {
    mOut << "Function F" << index << "(n As Integer, s As String) As Integer\n";
    mFunctions = index + 1;
    mIndent = 2;
    int statements = 1 + Below(4);
    for (int k = 0; k < statements; k++) Statement(0);
    mOut << "  If n > 0 And n < 50 Then Return F" << index << "(n - 1, s + \"x\")\n";
    mOut << "  Return n + Len(s)\n";
    mIndent = 0;
    mOut << "End Function\n";
  }

  Random& mRandom;
  std::ostringstream mOut;
  std::vector<std::pair<std::string, Type>> mVariables;
  int mFunctions = 0;
  int mCounters = 0;
  int mIndent = 0;
};

}  // namespace

std::string GenerateProgram(Random& random) {
  return Generator(random).Program();
}

}  // namespace fuzz
