-- Strings: a million short pieces built into lines with .., the lines
-- appended to a table and concatenated, then the text walked field by field
-- with string.find, string.sub and tonumber.
local lines = {}
local line = ""
for i = 1, 1000000 do
  line = line .. tostring(i % 1000) .. ","
  if i % 10 == 0 then
    lines[#lines + 1] = line
    line = ""
  end
end
local text = table.concat(lines, "")
local total, count, at = 0, 0, 1
local comma = string.find(text, ",", at, true)
while comma do
  total = total + tonumber(string.sub(text, at, comma - 1))
  count = count + 1
  at = comma + 1
  comma = string.find(text, ",", at, true)
end
print(count .. " " .. total)
