-- Text: two hundred thousand lines split into words, the words compared,
-- each line joined again, searched and rewritten with gsub; then one big
-- concatenation of all the lines and a split of it.
local words = {"alpha", "beta", "gamma", "delta", "epsilon", "zeta", "eta", "theta"}

local function split(text, delimiter)
  local parts, at = {}, 1
  while true do
    local found = string.find(text, delimiter, at, true)
    if not found then
      parts[#parts + 1] = string.sub(text, at)
      return parts
    end
    parts[#parts + 1] = string.sub(text, at, found - 1)
    at = found + #delimiter
  end
end

local lines = {}
for i = 0, 199999 do
  lines[#lines + 1] = words[i % 8 + 1] .. " " .. words[(i * 3) % 8 + 1] .. " " ..
                      words[(i * 5 + 1) % 8 + 1] .. " " .. tostring(i)
end
local ordered, found = 0, 0
for i = 1, #lines do
  local parts = split(lines[i], " ")
  if parts[1] < parts[2] then ordered = ordered + 1 end
  local line = table.concat(parts, "-")
  if string.find(line, "-eta-", 1, true) then found = found + 1 end
  lines[i] = string.gsub(line, "%-", " ")
end
local all = table.concat(lines, "\n")
local again = split(all, "\n")
print(ordered .. " " .. found .. " " .. #again .. " " .. #all)
