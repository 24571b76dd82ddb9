-- String building: many small concatenations.
local text = ""
for i = 1, 60000 do
  text = text .. tostring(i % 10)
end
print(#text)
