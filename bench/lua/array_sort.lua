-- Filling, sorting and summing an array of 1,000,000 pseudo-random
-- integers.
local values = {}
local seed = 12345
for i = 1, 1000000 do
  seed = (seed * 1103 + 12345) % 1000003
  values[#values + 1] = seed
end
table.sort(values)
local total = 0.0
for i = 1, #values, 1000 do
  total = total + values[i]
end
print(string.format("%d %d %.15g", values[1], values[#values], total))
