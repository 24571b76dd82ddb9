// Keeps the compiler library non-empty while its first sources are written.
