-- A sieve of Eratosthenes over 5,000,000 Booleans, ten passes.
local limit = 5000000
local composite = {}
local count = 0
for pass = 1, 10 do
  for i = 0, limit do composite[i] = false end
  count = 0
  for i = 2, limit do
    if not composite[i] then
      count = count + 1
      for j = i + i, limit, i do composite[j] = true end
    end
  end
end
print(count)
