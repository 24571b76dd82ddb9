-- Text splitting and joining: a line of 2,000 words split and joined
-- again, 300 times.
local words = {}
for i = 1, 2000 do words[#words + 1] = "w" .. tostring(i % 97) end
local line = table.concat(words, ",")
local total = 0
for round = 1, 300 do
  local parts = {}
  for word in string.gmatch(line, "[^,]+") do parts[#parts + 1] = word end
  total = total + (#parts - 1) + #table.concat(parts, ";")
end
print(total)
