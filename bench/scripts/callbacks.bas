// Callbacks: a merge sort of 1,000,000 integers that orders them through a
// comparison delegate (by last digit, high first, then by value), and an
// event-style list of five handlers, bound methods of four objects and a
// module method, fired for 1,000,000 events.
Module Callbacks
  Delegate Function Comparison(a As Integer, b As Integer) As Integer
  Delegate Sub Handler(n As Integer)
  Dim Heard As Integer

  Function ByDigitThenValue(a As Integer, b As Integer) As Integer
    Dim da As Integer = a Mod 10
    Dim db As Integer = b Mod 10
    If da <> db Then Return db - da
    Return a - b
  End Function

  // Merges the runs src(lo..mid-1) and src(mid..hi-1) into dst.
  Sub Merge(src() As Integer, dst() As Integer, lo As Integer, mid As Integer, hi As Integer, order As Comparison)
    Dim i As Integer = lo
    Dim j As Integer = mid
    For k As Integer = lo To hi - 1
      If i < mid And (j >= hi Or order.Invoke(src(i), src(j)) <= 0) Then
        dst(k) = src(i)
        i = i + 1
      Else
        dst(k) = src(j)
        j = j + 1
      End If
    Next
  End Sub

  // Bottom-up: runs of 1, 2, 4... merged back and forth between two arrays.
  Sub SortBy(values() As Integer, order As Comparison)
    Dim n As Integer = values.UBound + 1
    Dim other() As Integer
    Redim other(n - 1)
    Dim src() As Integer = values
    Dim dst() As Integer = other
    Dim width As Integer = 1
    Dim swapped As Boolean
    While width < n
      Dim lo As Integer = 0
      While lo < n
        Dim mid As Integer = lo + width
        If mid > n Then mid = n
        Dim hi As Integer = lo + 2 * width
        If hi > n Then hi = n
        Merge(src, dst, lo, mid, hi, order)
        lo = hi
      Wend
      Dim swap() As Integer = src
      src = dst
      dst = swap
      swapped = Not swapped
      width = width * 2
    Wend
    If swapped Then
      For k As Integer = 0 To n - 1
        values(k) = src(k)
      Next
    End If
  End Sub

  Sub Count(n As Integer)
    Heard = (Heard + n) Mod 1000003
  End Sub
End Module

Class Listener
  Dim Weight As Integer
  Dim Sum As Integer
  Sub Hear(n As Integer)
    Sum = (Sum + n * Weight) Mod 1000003
  End Sub
End Class

Dim values() As Integer
Dim seed As Integer = 12345
For i As Integer = 1 To 1000000
  seed = (seed * 1103 + 12345) Mod 1000003
  values.Append(seed)
Next
Callbacks.SortBy(values, AddressOf Callbacks.ByDigitThenValue)
Dim check As Integer
For i As Integer = 0 To values.UBound Step 1000
  check = (check * 31 + values(i)) Mod 1000003
Next

Dim listeners(3) As Listener
Dim handlers() As Callbacks.Handler
For k As Integer = 0 To 3
  listeners(k) = New Listener
  listeners(k).Weight = k + 1
  handlers.Append(AddressOf listeners(k).Hear)
Next
handlers.Append(AddressOf Callbacks.Count)
For i As Integer = 1 To 1000000
  For Each h As Callbacks.Handler In handlers
    h.Invoke(i)
  Next
Next
Dim heard As Integer = Callbacks.Heard
For k As Integer = 0 To 3
  heard = (heard + listeners(k).Sum) Mod 1000003
Next
Print Str(values(0)) + " " + Str(values(values.UBound)) + " " + Str(check) + " " + Str(heard)
