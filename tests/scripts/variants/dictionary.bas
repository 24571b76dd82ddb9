// A table of a hundred thousand variant keys and values held in arrays,
// found again by Hash and Equals: integer keys and text keys side by side,
// with open addressing.
Const kSlots = 262144
Const kMask = 262143
Const kCount = 50000
Dim keys(kMask) As Variant
Dim values(kMask) As Variant
Dim used(kMask) As Boolean
Dim stored As Integer

// The hash spread by a multiplication, whose upper bits make the slot: an
// integer's hash holds its value in its upper half, a text's hash mostly in
// its lower bits, and linear probing needs them scattered.
Const kSpread = -1640531527
Const kSlotShift = 16384
Function SlotOf(key As Variant) As Integer
  Dim h As Integer = key.Hash * kSpread
  Return (h \ kSlotShift) And kMask
End Function

Function Find(key As Variant) As Integer
  Dim slot As Integer = SlotOf(key)
  While used(slot)
    If keys(slot).Equals(key) Then Return slot
    slot = (slot + 1) And kMask
  Wend
  Return slot
End Function

Sub Store(key As Variant, value As Variant)
  Dim slot As Integer = Find(key)
  If Not used(slot) Then
    used(slot) = True
    keys(slot) = key
    stored = stored + 1
  End If
  values(slot) = value
End Sub

Function Lookup(key As Variant) As Variant
  Dim slot As Integer = Find(key)
  If used(slot) Then Return values(slot)
  Return Nil
End Function

For i As Integer = 1 To kCount
  Store(i, i * 2)
  Store("key" + Str(i), "value " + Str(i))
Next
// Storing a key again replaces its value; text keys ignore case.
Store(7, "seven")
Store("KEY7", 7.5)
Print Str(stored)
Dim found As Integer
Dim wrong As Integer
For i As Integer = 1 To kCount
  Dim number As Variant = Lookup(i)
  Dim text As Variant = Lookup("key" + Str(i))
  If number.IsNull Or text.IsNull Then
    wrong = wrong + 1
  ElseIf i = 7 Then
    If number = "seven" And text.DoubleValue = 7.5 Then found = found + 1
  ElseIf number.IntegerValue = i * 2 And text = "value " + Str(i) Then
    found = found + 1
  Else
    wrong = wrong + 1
  End If
Next
Print Str(found) + " found, " + Str(wrong) + " wrong"
// A double 1.0 is not the integer key 1; missing keys give nil.
Dim missing As Integer
If Lookup(1.0).IsNull Then missing = missing + 1
If Lookup("key0").IsNull Then missing = missing + 1
If Lookup(kCount + 1).IsNull Then missing = missing + 1
Print Str(missing) + " missing"
// expect: 100000
// expect: 50000 found, 0 wrong
// expect: 3 missing
