// Fields of delimited text and replacement, by character (ignoring case)
// and by byte.
Dim csv As String = "red,green,,blue"
Print Str(CountFields(csv, ",")) + " " + Str(csv.CountFields(","))   // expect: 4 4
Print NthField(csv, ",", 2) + "|" + NthField(csv, ",", 3) + "|" + csv.NthField(",", 4)  // expect: green||blue
Print "[" + NthField(csv, ",", 9) + "]"           // expect: []
Print Replace("a-b-c", "-", "+")                  // expect: a+b-c
Print ReplaceAll("a-b-c", "-", "+")               // expect: a+b+c
Print ReplaceAll("Cat cat CAT", "cat", "dog")     // expect: dog dog dog
Print ReplaceB("Cat cat", "cat", "dog")           // expect: Cat dog
Print ReplaceAllB("xAxa", "a", "")                // expect: xAx
Dim t As String = "one two"
Print t.Replace("TWO", "three") + "/" + t.ReplaceAll("o", "0")   // expect: one three/0ne tw0
Print Str(CountFields("", ","))                   // expect: 0
