// Checked bindings: host functions registered with their C++ signature.
//
// A script calls a host function directly, as machine code, with the
// arguments laid out as its declaration says. A binding registered here
// derives that declaration from the C++ signature, or checks a hand-written
// one against it, so that the two cannot disagree; and it stands between
// the script and the C++ function, so that a C++ exception becomes a script
// exception instead of ending the process.
//
// The types that cross, both ways:
//
//   C++                     script
//   int32_t (int)           Integer
//   int64_t (long long)     Int64
//   double                  Double
//   float                   Single
//   bool                    Boolean
//   std::string             String (UTF-8 bytes, copied both ways)
//
// Included by quorl/QuorlHost.h; not meant to be included alone.
#ifndef QUORL_QUORLBINDINGS_H
#define QUORL_QUORLBINDINGS_H

#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

struct stringStorage;  // a script string (Plugin/PluginBoundary.h)

namespace quorl {

// Thrown by a bound host function: the calling script gets an exception of
// the class (a script exception class, RuntimeException by default) with
// the message, and its Try can catch it. Any other C++ exception becomes a
// RuntimeException with what() as its message.
class ScriptException : public std::runtime_error {
 public:
  explicit ScriptException(std::string const& message,
                           std::string className = "RuntimeException")
      : std::runtime_error(message), mClassName(std::move(className)) {}
  std::string const& ClassName() const { return mClassName; }

 private:
  std::string mClassName;
};

// Thrown by a bound host function or a guarded context member: the script
// that called it stops right there, as Script::Stop() stops a script at its
// next yield (no Catch sees it, every frame's cleanup runs, and Run()
// reports a Stopped error).
class ScriptStop : public std::exception {
 public:
  char const* what() const noexcept override { return "script stopped by the host"; }
};

namespace detail {

// The value types as the engine names them (Plugin/EmbeddingBoundary.h).
enum ValueType : int { kNoValue = 0, kInteger, kInt64, kDouble, kSingle, kBoolean, kString };

// How one C++ type crosses: the word the machine code passes, and the
// conversions. Only the types in the table above have a Wire.
template <class T> struct Wire;
template <> struct Wire<int32_t> {
  using Type = int32_t;
  static constexpr ValueType kType = kInteger;
  static int32_t In(Type value) { return value; }
  static Type Out(int32_t value) { return value; }
};
template <> struct Wire<int64_t> {
  using Type = int64_t;
  static constexpr ValueType kType = kInt64;
  static int64_t In(Type value) { return value; }
  static Type Out(int64_t value) { return value; }
};
template <> struct Wire<double> {
  using Type = double;
  static constexpr ValueType kType = kDouble;
  static double In(Type value) { return value; }
  static Type Out(double value) { return value; }
};
template <> struct Wire<float> {
  using Type = float;
  static constexpr ValueType kType = kSingle;
  static float In(Type value) { return value; }
  static Type Out(float value) { return value; }
};
// A Boolean travels as a word of which only the low byte counts; a result
// is given as a whole word, 0 or 1.
template <> struct Wire<bool> {
  using Type = int32_t;
  static constexpr ValueType kType = kBoolean;
  static bool In(Type value) { return (value & 0xFF) != 0; }
  static Type Out(bool value) { return value ? 1 : 0; }
};
// A string argument is the script's: it is copied. A string result is
// handed to the script with one reference, which the script owns.
std::string StringFromScript(void* text);
void* StringToScript(std::string const& text);
template <> struct Wire<std::string> {
  using Type = void*;
  static constexpr ValueType kType = kString;
  static std::string In(Type value) { return StringFromScript(value); }
  static Type Out(std::string const& value) { return StringToScript(value); }
};
template <> struct Wire<long> : Wire<int32_t> {
  static_assert(sizeof(long) == 4, "long is Integer on the 32-bit target");
};

template <class T> using Plain = std::remove_cv_t<std::remove_reference_t<T>>;
template <class T> using WireOf = Wire<Plain<T>>;

// One argument or result of a call into a script, as the engine takes it.
struct CallValue {
  ValueType type = kNoValue;
  int64_t integer = 0;  // Integer, Int64, Boolean
  double real = 0;      // Double, Single
  std::string text;     // String
};
template <class T> CallValue ToCallValue(T const& value) {
  CallValue v;
  v.type = WireOf<T>::kType;
  if constexpr (std::is_same_v<Plain<T>, std::string>) v.text = value;
  else if constexpr (std::is_floating_point_v<Plain<T>>) v.real = value;
  else v.integer = static_cast<int64_t>(value);
  return v;
}
inline CallValue ToCallValue(char const* value) {
  return ToCallValue(std::string(value));
}
template <class R> R FromCallValue(CallValue const& value) {
  if constexpr (std::is_void_v<R>) return;
  else if constexpr (std::is_same_v<R, std::string>) return value.text;
  else if constexpr (std::is_floating_point_v<R>) return static_cast<R>(value.real);
  else if constexpr (std::is_same_v<R, bool>) return value.integer != 0;
  else return static_cast<R>(value.integer);
}
template <class R> constexpr ValueType ResultType() {
  if constexpr (std::is_void_v<R>) return kNoValue;
  else return Wire<Plain<R>>::kType;
}

// The C++ side of a binding, as the checks compare it.
struct CppSignature {
  ValueType result;
  std::vector<ValueType> parameters;
};

// The declaration to register: the given one when it is whole and fits the
// C++ signature, or the one derived from a bare name. Throws BindingError.
std::string CheckedDeclaration(std::string const& nameOrDeclaration,
                               CppSignature const& cpp);
// Throws BindingError when the declaration does not read.
void CheckReadable(std::string const& declaration);

// Raises the exception in the script that called the host function now
// running; the function returns right after. Call it with no C++ object
// alive in the host's frames above the script: the raise does not unwind
// them.
void RaiseInScript(char const* className, char const* message);

// What a guarded call failed with, kept per thread until it is raised.
// The raise leaves the host's frames without unwinding them, so it comes
// only after the catch has ended and the C++ exception is gone; the texts
// wait here, where nothing has to be destroyed.
void SetPendingRaise(char const* className, char const* message);
void SetPendingStop();
// Raises what was set in the script that called the host function now
// running (or stops it); the function returns right after.
void RaisePending();

// What a binding's entry does when its function throws.
template <class Call>
bool RunGuarded(Call const& call) {
  try {
    call();
    return true;
  } catch (ScriptStop const&) {
    SetPendingStop();
  } catch (ScriptException const& e) {
    SetPendingRaise(e.ClassName().c_str(), e.what());
  } catch (std::exception const& e) {
    SetPendingRaise("RuntimeException", e.what());
  } catch (...) {
    SetPendingRaise("RuntimeException", "unknown C++ exception");
  }
  RaisePending();
  return false;
}

// The entry the script calls: the data word (the bound function, passed
// silently) comes first, then the declared arguments. Scripts walk the
// frame chain when they raise, so this entry keeps its frame pointer: build
// hosts with -fno-omit-frame-pointer (the engine's package says so).
template <class R, class... A>
struct Binding {
  using Function = std::function<R(A...)>;

  static typename Wire<R>::Type Entry(void* data, typename WireOf<A>::Type... args) {
    Function const& function = *static_cast<Function const*>(data);
    typename Wire<R>::Type result{};
    RunGuarded([&] { result = Wire<R>::Out(function(WireOf<A>::In(args)...)); });
    return result;
  }

  static CppSignature Signature() { return {Wire<R>::kType, {WireOf<A>::kType...}}; }
};

template <class... A>
struct Binding<void, A...> {
  using Function = std::function<void(A...)>;

  static void Entry(void* data, typename WireOf<A>::Type... args) {
    Function const& function = *static_cast<Function const*>(data);
    RunGuarded([&] { function(WireOf<A>::In(args)...); });
  }

  static CppSignature Signature() { return {kNoValue, {WireOf<A>::kType...}}; }
};

// A context member in its guarded form: the script calls Entry with the
// object first and then the arguments as the wire passes them; Entry
// converts them, calls F, and turns an exception into a script exception.
template <class R> struct ResultWire {
  using Type = typename Wire<Plain<R>>::Type;
  static constexpr ValueType kType = Wire<Plain<R>>::kType;
};
template <> struct ResultWire<void> {
  using Type = void;
  static constexpr ValueType kType = kNoValue;
};

template <auto F> struct GuardedMember;
template <class O, class R, class... A, R (*F)(O, A...)>
struct GuardedMember<F> {
  using Result = typename ResultWire<R>::Type;

  static Result Entry(O self, typename WireOf<A>::Type... args) {
    if constexpr (std::is_void_v<R>) {
      RunGuarded([&] { F(self, WireOf<A>::In(args)...); });
    } else {
      Result result{};
      RunGuarded([&] { result = Wire<Plain<R>>::Out(F(self, WireOf<A>::In(args)...)); });
      return result;
    }
  }

  static CppSignature Signature() { return {ResultWire<R>::kType, {WireOf<A>::kType...}}; }
};

// The types of a context method or property that the script calls
// directly, without a binding between: what the machine code passes.
template <class T> struct Raw;
template <> struct Raw<int32_t> { static constexpr ValueType kType = kInteger; };
template <> struct Raw<long> { static constexpr ValueType kType = kInteger; };
template <> struct Raw<int64_t> { static constexpr ValueType kType = kInt64; };
template <> struct Raw<double> { static constexpr ValueType kType = kDouble; };
template <> struct Raw<float> { static constexpr ValueType kType = kSingle; };
template <> struct Raw<bool> { static constexpr ValueType kType = kBoolean; };
template <> struct Raw<stringStorage*> { static constexpr ValueType kType = kString; };
template <> struct Raw<void> { static constexpr ValueType kType = kNoValue; };

template <class R, class... A>
CppSignature RawSignature() {
  // A C++ bool result fills one byte of the register the script reads whole.
  static_assert(!std::is_same<R, bool>::value,
                "a context method gives a Boolean as int32_t, 0 or 1");
  return {Raw<R>::kType, {Raw<A>::kType...}};
}

// The signature of a plain function, a lambda or another callable object.
template <class F> struct Callable : Callable<decltype(&F::operator())> {};
template <class R, class... A> struct Callable<R (*)(A...)> {
  using Bound = Binding<Plain<R>, A...>;
};
template <class R, class... A> struct Callable<R(A...)> : Callable<R (*)(A...)> {};
template <class C, class R, class... A> struct Callable<R (C::*)(A...) const>
    : Callable<R (*)(A...)> {};
template <class C, class R, class... A> struct Callable<R (C::*)(A...)>
    : Callable<R (*)(A...)> {};

}  // namespace detail
}  // namespace quorl

#endif
