// The methods and properties of a class as the host reports them to the
// plug-in, which makes them callable from a script whose context is an
// object of that class. Only the class's own members are reported.
#include <ctype.h>
#include <strings.h>

#include "StandInHost/HostClassMembers.h"
#include "StandInHost/HostClasses.h"
#include "StandInHost/HostOperations.h"
#include "StandInHost/HostStrings.h"

namespace quorl {
namespace standin {
namespace {

bool IsPrefixWord(std::string const& word) {
  static char const* const kWords[] = {"Private", "Public", "Protected",
                                       "Shared",  "Sub",    "Function"};
  for (char const* w : kWords)
    if (strcasecmp(word.c_str(), w) == 0) return true;
  return false;
}

// Where the method's name ends in a declaration without a parameter list.
size_t EndOfName(std::string const& text) {
  size_t pos = 0;
  while (pos < text.size()) {
    while (pos < text.size() && isspace((unsigned char)text[pos])) ++pos;
    size_t start = pos;
    while (pos < text.size() && !isspace((unsigned char)text[pos])) ++pos;
    if (!IsPrefixWord(text.substr(start, pos - start))) return pos;
  }
  return pos;
}

}  // namespace

// The engine calls a context method as entry(object, arguments...), and
// expects the declaration to name that receiver as its first parameter,
// which it then binds to the context object. The embedding program writes
// the declaration as the script sees it; the receiver is added here, and
// only here.
std::string ReportedMethodDeclaration(std::string const& declaration) {
  static char const kReceiver[] = "Self As Object";
  size_t open = declaration.find('(');
  if (open == std::string::npos) {
    size_t end = EndOfName(declaration);
    return declaration.substr(0, end) + "(" + kReceiver + ")" +
           declaration.substr(end);
  }
  size_t next = declaration.find_first_not_of(" \t", open + 1);
  bool empty = next == std::string::npos || declaration[next] == ')';
  return declaration.substr(0, open + 1) + kReceiver + (empty ? "" : ", ") +
         declaration.substr(open + 1);
}

int VELDCountClassMethods(VELDClassRef cls) {
  return cls ? static_cast<int>(cls->mMethods.size()) : 0;
}

int VELDGetClassMethod(VELDClassRef cls, int index, void** entry,
                       VELDString* declaration) {
  if (!cls || index < 0 || index >= VELDCountClassMethods(cls)) return 0;
  HostClass::Method const& method = cls->mMethods[index];
  if (entry) *entry = method.entry;
  if (declaration)
    *declaration = NewHostString(ReportedMethodDeclaration(method.declaration));
  return 1;
}

int VELDCountClassProperties(VELDClassRef cls) {
  return cls ? static_cast<int>(cls->mProperties.size()) : 0;
}

int VELDGetClassProperty(VELDClassRef cls, int index, void** getter,
                         void** setter, long* parameter,
                         VELDString* declaration) {
  if (!cls || index < 0 || index >= VELDCountClassProperties(cls)) return 0;
  HostClass::Property const& property = cls->mProperties[index];
  if (getter) *getter = property.getter;
  if (setter) *setter = property.setter;
  if (parameter) *parameter = property.parameter;
  if (declaration) *declaration = NewHostString(property.declaration);
  return 1;
}

}  // namespace standin
}  // namespace quorl
