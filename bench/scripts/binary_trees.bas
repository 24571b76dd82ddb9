// Binary trees: about fifteen million small objects built into trees and
// dropped again, with one long-lived tree beside them.
Class TreeNode
  Dim left As TreeNode
  Dim right As TreeNode
End Class

Function BottomUp(depth As Integer) As TreeNode
  Dim node As New TreeNode
  If depth > 0 Then
    node.left = BottomUp(depth - 1)
    node.right = BottomUp(depth - 1)
  End If
  Return node
End Function

Function Check(node As TreeNode) As Integer
  If node.left Is Nil Then
    Return 1
  End If
  Return 1 + Check(node.left) + Check(node.right)
End Function

Dim maxDepth As Integer = 16
Print Str(Check(BottomUp(maxDepth + 1)))
Dim longLived As TreeNode = BottomUp(maxDepth)
Dim depth As Integer = 4
While depth <= maxDepth
  Dim iterations As Integer = 1
  For i As Integer = 1 To maxDepth - depth + 4
    iterations = iterations * 2
  Next
  Dim total As Integer = 0
  For i As Integer = 1 To iterations
    total = total + Check(BottomUp(depth))
  Next
  Print Str(iterations) + " " + Str(depth) + " " + Str(total)
  depth = depth + 2
Wend
Print Str(Check(longLived))
