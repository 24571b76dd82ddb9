-- Callbacks: a merge sort of 1,000,000 integers that orders them through a
-- comparison closure (by last digit, high first, then by value), and an
-- event-style list of five handlers, closures over four objects and a
-- module function, fired for 1,000,000 events.
local function byDigitThenValue(a, b)
  local da, db = a % 10, b % 10
  if da ~= db then return db - da end
  return a - b
end

-- Merges the runs src[lo..mid-1] and src[mid..hi-1] into dst (0-based).
local function merge(src, dst, lo, mid, hi, order)
  local i, j = lo, mid
  for k = lo, hi - 1 do
    if i < mid and (j >= hi or order(src[i], src[j]) <= 0) then
      dst[k] = src[i]
      i = i + 1
    else
      dst[k] = src[j]
      j = j + 1
    end
  end
end

-- Bottom-up: runs of 1, 2, 4... merged back and forth between two tables.
local function sortBy(values, n, order)
  local other = {}
  for k = 0, n - 1 do other[k] = 0 end
  local src, dst = values, other
  local width = 1
  while width < n do
    local lo = 0
    while lo < n do
      local mid = math.min(lo + width, n)
      local hi = math.min(lo + 2 * width, n)
      merge(src, dst, lo, mid, hi, order)
      lo = hi
    end
    src, dst = dst, src
    width = width * 2
  end
  if src ~= values then
    for k = 0, n - 1 do values[k] = src[k] end
  end
end

local heard = 0
local function count(n) heard = (heard + n) % 1000003 end

local values = {}
local seed = 12345
local n = 1000000
for i = 0, n - 1 do
  seed = (seed * 1103 + 12345) % 1000003
  values[i] = seed
end
sortBy(values, n, byDigitThenValue)
local check = 0
for i = 0, n - 1, 1000 do
  check = (check * 31 + values[i]) % 1000003
end

local listeners = {}
local handlers = {}
for k = 1, 4 do
  local listener = {weight = k, sum = 0}
  listeners[k] = listener
  handlers[#handlers + 1] = function(e)
    listener.sum = (listener.sum + e * listener.weight) % 1000003
  end
end
handlers[#handlers + 1] = count
for i = 1, 1000000 do
  for h = 1, #handlers do
    handlers[h](i)
  end
end
local total = heard
for k = 1, 4 do total = (total + listeners[k].sum) % 1000003 end
print(string.format("%d %d %d %d", values[0], values[n - 1], check, total))
