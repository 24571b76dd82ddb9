# Turns every ```cpp block of a Markdown file into one function of a single
# C++ program: each block's includes go to the top, its body into a
# namespace of its own with its main renamed, and a main at the end runs
# them all in order and fails when one does.
/^```cpp[ \t]*$/ { inBlock = 1; count++; body[count] = ""; next }
/^```[ \t]*$/ && inBlock { inBlock = 0; next }
inBlock && /^#include/ { includes[$0] = 1; next }
inBlock {
  line = $0
  sub(/^int main\(\)/, "int Main()", line)
  body[count] = body[count] line "\n"
}
END {
  for (include in includes) print include
  print "#include <cstdio>"
  for (i = 1; i <= count; i++) {
    print "namespace example" i " {"
    printf "%s", body[i]
    print "}  // namespace example" i
  }
  print "int main() {"
  print "  int failed = 0;"
  for (i = 1; i <= count; i++) {
    print "  if (example" i "::Main() != 0) { std::printf(\"example " i " failed\\n\"); failed = 1; }"
  }
  print "  std::printf(\"%d examples ran\\n\", " count ");"
  print "  return failed;"
  print "}"
}
