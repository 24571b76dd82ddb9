// The members of a colour: bytes in line, the HSV and CMY views through
// the runtime; the makers clamp what they are given.
Dim c As Color = &cFF8040
Print Str(c.Red) + " " + Str(c.Green) + " " + Str(c.Blue) + " " + Str(c.Alpha)  // expect: 255 128 64 0
Dim short As Color = &cFF
Print Str(short.Red) + " " + Str(short.Green) + " " + Str(short.Blue)  // expect: 255 0 0
Dim clamped As Color = RGB(300, -5, 128)
Print Str(clamped.Red) + " " + Str(clamped.Green) + " " + Str(clamped.Blue)  // expect: 255 0 128
// A hue at 1 wraps to 0: pure red, like a hue of 0.
Dim red As Color = HSV(1.0, 1, 1)
Print Str(red.Red) + " " + Str(red.Green) + " " + Str(red.Blue)  // expect: 255 0 0
Dim grey As Color = HSV(0.5, 0, 0.5)
Print Str(grey.Red) + " " + Str(grey.Green) + " " + Str(grey.Blue)  // expect: 127 127 127
Dim white As Color = CMY(0, 0, 0)
Print Str(white.Red) + " " + Str(white.Green) + " " + Str(white.Blue)  // expect: 255 255 255
Dim green As Color = RGB(0, 255, 0)
Print Str(green.Hue) + " " + Str(green.Saturation) + " " + Str(green.Value)  // expect: 0.333333333333333 1 1
Print Str(green.Cyan) + " " + Str(green.Magenta) + " " + Str(green.Yellow)  // expect: 1 0 1
Print Str(RGB(10, 20, 30).blue)  // expect: 30
