-- Binary trees: about fifteen million small objects built into trees and
-- dropped again, with one long-lived tree beside them.
local function bottomUp(depth)
  local node = {}
  if depth > 0 then
    node.left = bottomUp(depth - 1)
    node.right = bottomUp(depth - 1)
  end
  return node
end

local function check(node)
  if node.left == nil then return 1 end
  return 1 + check(node.left) + check(node.right)
end

local maxDepth = 16
print(check(bottomUp(maxDepth + 1)))
local longLived = bottomUp(maxDepth)
local depth = 4
while depth <= maxDepth do
  local iterations = 1
  for i = 1, maxDepth - depth + 4 do iterations = iterations * 2 end
  local total = 0
  for i = 1, iterations do total = total + check(bottomUp(depth)) end
  print(iterations .. " " .. depth .. " " .. total)
  depth = depth + 2
end
print(check(longLived))
