-- Integer arithmetic in a tight loop (32-bit wrap-around as in the script).
local total = 0
for i = 1, 50000000 do
  total = (total + (i % 7) * 3 - math.floor(i / 1000)) % 0x100000000
end
if total >= 0x80000000 then total = total - 0x100000000 end
print(total)
