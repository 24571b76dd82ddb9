int StringLength(char const* text);
