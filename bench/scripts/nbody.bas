// N-body: the Jovian planets around the sun, their positions, velocities
// and masses held in class instances; the energy before and after 500,000
// steps, in billionths (the last digits of a double depend on the floating
// point unit's precision).
Class Body
  Dim x As Double
  Dim y As Double
  Dim z As Double
  Dim vx As Double
  Dim vy As Double
  Dim vz As Double
  Dim mass As Double
End Class

Const kPi = 3.141592653589793
Const kDaysPerYear = 365.24
Dim solarMass As Double = 4 * kPi * kPi

Function NewBody(x As Double, y As Double, z As Double, vx As Double, vy As Double, vz As Double, mass As Double) As Body
  Dim b As New Body
  b.x = x
  b.y = y
  b.z = z
  b.vx = vx * kDaysPerYear
  b.vy = vy * kDaysPerYear
  b.vz = vz * kDaysPerYear
  b.mass = mass * solarMass
  Return b
End Function

Dim bodies(4) As Body
bodies(0) = NewBody(0, 0, 0, 0, 0, 0, 1)
bodies(1) = NewBody(4.84143144246472090e+00, -1.16032004402742839e+00, -1.03622044471123109e-01, 1.66007664274403694e-03, 7.69901118419740425e-03, -6.90460016972063023e-05, 9.54791938424326609e-04)
bodies(2) = NewBody(8.34336671824457987e+00, 4.12479856412430479e+00, -4.03523417114321381e-01, -2.76742510726862411e-03, 4.99852801234917238e-03, 2.30417297573763929e-05, 2.85885980666130812e-04)
bodies(3) = NewBody(1.28943695621391310e+01, -1.51111514016986312e+01, -2.23307578892655734e-01, 2.96460137564761618e-03, 2.37847173959480950e-03, -2.96589568540237556e-05, 4.36624404335156298e-05)
bodies(4) = NewBody(1.53796971148509165e+01, -2.59193146099879641e+01, 1.79258772950371181e-01, 2.68067772490389322e-03, 1.62824170038242295e-03, -9.51592254519715870e-05, 5.15138902046611451e-05)

Sub OffsetMomentum()
  Dim px As Double
  Dim py As Double
  Dim pz As Double
  For i As Integer = 0 To 4
    Dim b As Body = bodies(i)
    px = px + b.vx * b.mass
    py = py + b.vy * b.mass
    pz = pz + b.vz * b.mass
  Next
  bodies(0).vx = -px / solarMass
  bodies(0).vy = -py / solarMass
  bodies(0).vz = -pz / solarMass
End Sub

Function Energy() As Double
  Dim e As Double
  For i As Integer = 0 To 4
    Dim b As Body = bodies(i)
    e = e + 0.5 * b.mass * (b.vx * b.vx + b.vy * b.vy + b.vz * b.vz)
    For j As Integer = i + 1 To 4
      Dim c As Body = bodies(j)
      Dim dx As Double = b.x - c.x
      Dim dy As Double = b.y - c.y
      Dim dz As Double = b.z - c.z
      e = e - b.mass * c.mass / Sqrt(dx * dx + dy * dy + dz * dz)
    Next
  Next
  Return e
End Function

Sub Advance(dt As Double)
  For i As Integer = 0 To 4
    Dim b As Body = bodies(i)
    For j As Integer = i + 1 To 4
      Dim c As Body = bodies(j)
      Dim dx As Double = b.x - c.x
      Dim dy As Double = b.y - c.y
      Dim dz As Double = b.z - c.z
      Dim d2 As Double = dx * dx + dy * dy + dz * dz
      Dim mag As Double = dt / (d2 * Sqrt(d2))
      Dim bm As Double = b.mass * mag
      Dim cm As Double = c.mass * mag
      b.vx = b.vx - dx * cm
      b.vy = b.vy - dy * cm
      b.vz = b.vz - dz * cm
      c.vx = c.vx + dx * bm
      c.vy = c.vy + dy * bm
      c.vz = c.vz + dz * bm
    Next
  Next
  For i As Integer = 0 To 4
    Dim b As Body = bodies(i)
    b.x = b.x + dt * b.vx
    b.y = b.y + dt * b.vy
    b.z = b.z + dt * b.vz
  Next
End Sub

OffsetMomentum
Print Str(Round(Energy() * 1000000000))
For n As Integer = 1 To 500000
  Advance(0.01)
Next
Print Str(Round(Energy() * 1000000000))
