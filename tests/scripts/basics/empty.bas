// A program with nothing in it runs and prints nothing.
