// Keeps the runtime library non-empty while its first sources are written.
