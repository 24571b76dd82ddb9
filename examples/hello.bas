// The first program.
Print "Hello from QuorlScript"
