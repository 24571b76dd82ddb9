int TypeNameLength();
