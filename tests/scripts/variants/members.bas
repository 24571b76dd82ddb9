// The type constants and the members of a variant value.
Dim v As Variant = 7
Print Str(Variant.TypeNil) + " " + Str(Variant.TypeInteger) + " " + Str(Variant.TypeLong) + " " + Str(Variant.TypeSingle)
Print Str(Variant.TypeDouble) + " " + Str(Variant.TypeCurrency) + " " + Str(Variant.TypeDate) + " " + Str(Variant.TypeString)
Print Str(Variant.TypeObject) + " " + Str(Variant.TypeBoolean) + " " + Str(Variant.TypeColor)
// The constants also read through a value.
If v.Type = v.TypeInteger Then Print "an integer"
// expect: 0 2 3 4
// expect: 5 6 7 8
// expect: 9 11 16
// expect: an integer

// TypeNil names no type at all; a nil variant's VarType is 1.
Dim n As Variant
Print Str(Variant.TypeNil) + " " + Str(n.Type) + " " + Str(VarType(n))
If n.IsNull Then Print "nil is null"
If Not v.IsNull Then Print "7 is not null"
// expect: 0 1 1
// expect: nil is null
// expect: 7 is not null

// IntegerValue and Int32Value are one member.
Dim d As Variant = -3.75
Print Str(d.IntegerValue) + " " + Str(d.Int32Value) + " " + Str(d.Int64Value) + " " + Str(d.UInt32Value)
Print Str(d.DoubleValue) + " " + Str(d.SingleValue) + " " + Str(d.CurrencyValue) + " " + d.StringValue
// expect: -3 -3 -3 4294967293
// expect: -3.75 -3.75 -3.75 -3.75

// IsNumeric: integers, longs and reals, not text that looks like a number.
Dim t As Variant = "12"
Dim i64 As Int64 = 5
Dim l As Variant = i64
If v.IsNumeric And d.IsNumeric And l.IsNumeric Then Print "numbers are numeric"
If Not t.IsNumeric And Not n.IsNumeric Then Print "text and nil are not"
// expect: numbers are numeric
// expect: text and nil are not

// Equals wants the same type and the same value: an integer 1 and a double
// 1.0 differ, while = compares their values.
Dim one As Variant = 1
Dim oneReal As Variant = 1.0
If Not one.Equals(oneReal) Then Print "1 and 1.0 are not Equals"
If one = oneReal Then Print "1 = 1.0"
If one.Equals(1) Then Print "1 Equals 1"
Dim word As Variant = "Hello"
If word.Equals("HELLO") Then Print "text Equals ignores case"
If n.Equals(Nil) Then Print "nil Equals nil"
If Not n.Equals(0) Then Print "nil is not 0"
// expect: 1 and 1.0 are not Equals
// expect: 1 = 1.0
// expect: 1 Equals 1
// expect: text Equals ignores case
// expect: nil Equals nil
// expect: nil is not 0

// Hash: 0 for nil, the text without regard to case, the value words.
Print Str(n.Hash) + " " + Str(v.Hash) + " " + Str(one.Hash)
Dim shout As Variant = "hELLO"
If word.Hash = shout.Hash Then Print "hash ignores case"
Dim x As Variant = "x"
Print Str(x.Hash) + " " + Str(word.Hash)
// expect: 0 458752 65536
// expect: hash ignores case
// expect: 88 23807

// The text "True" reads as a Boolean (in any case), as does "1"; other
// text is False.
Dim yes As Variant = "TRUE"
Dim no As Variant = "truth"
If yes.BooleanValue And Not no.BooleanValue Then Print "TRUE is True, truth is False"
Dim blue As Variant = &c0000FF
Dim back As Variant = blue.ColorValue
Print back.StringValue + " " + Str(blue.Int32Value)
// expect: TRUE is True, truth is False
// expect: &c0000FF 255
