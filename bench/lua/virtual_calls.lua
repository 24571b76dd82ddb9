-- Virtual calls: twenty million calls of an overridden method through a
-- shared base, over objects of four subclasses in turn.
local Shape = {}
Shape.__index = Shape
function Shape.weight(self, n) return 0 end

local function subclass(weight)
  local class = setmetatable({}, {__index = Shape})
  class.__index = class
  class.weight = weight
  return class
end

local Circle = subclass(function(self, n) return n + 1 end)
local Square = subclass(function(self, n) return n * 2 end)
local Triangle = subclass(function(self, n) return n - 3 end)
local floor = math.floor
local Hexagon = subclass(function(self, n) return floor(n / 2) end)

local shapes = {
  setmetatable({}, Circle), setmetatable({}, Square),
  setmetatable({}, Triangle), setmetatable({}, Hexagon),
}
local total = 0
for i = 0, 19999999 do
  local s = shapes[i % 4 + 1]
  total = (total + s:weight(i % 1000)) % 1000000007
end
print(total)
