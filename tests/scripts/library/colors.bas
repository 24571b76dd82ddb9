// Colour makers: the same colour by RGB, HSV and CMY compares equal.
Dim red As Color = RGB(255, 0, 0)
If red = HSV(0, 1, 1) Then Print "hsv red"        // expect: hsv red
If red = CMY(0, 1, 1) Then Print "cmy red"        // expect: cmy red
If red <> RGB(0, 0, 255) Then Print "not blue"    // expect: not blue
