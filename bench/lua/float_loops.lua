-- Floating-point arithmetic: the midpoint rule for pi.
local steps = 20000000
local width = 1.0 / steps
local sum = 0.0
for i = 0, steps - 1 do
  local x = (i + 0.5) * width
  sum = sum + 4.0 / (1.0 + x * x)
end
print(string.format("%.15g", sum * width))
