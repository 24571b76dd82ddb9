// The declarations of the script's standard library and their runtime names.
#ifndef PLUGIN_RUNTIMELIBRARYTABLE_H
#define PLUGIN_RUNTIMELIBRARYTABLE_H

struct RuntimeLibraryEntry {
  char const* mDeclaration;  // "Function Left(text As String, len As Integer) As String"
  char const* mRuntimeName;  // "StringDBCSLeft", resolved through the host
};

// The table in registration order; its length in *count.
RuntimeLibraryEntry const* RuntimeLibraryEntries(unsigned long* count);

#endif
