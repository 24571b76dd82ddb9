-- The Mandelbrot set on a 1200 x 900 grid, at most 50 iterations a point.
local inside = 0
for py = 0, 899 do
  local ci = py * 2.0 / 900 - 1.0
  for px = 0, 1199 do
    local cr = px * 3.0 / 1200 - 2.0
    local zr, zi, n = 0.0, 0.0, 0
    while n < 50 and zr * zr + zi * zi <= 4.0 do
      local t = zr * zr - zi * zi + cr
      zi = 2.0 * zr * zi + ci
      zr = t
      n = n + 1
    end
    if n == 50 then inside = inside + 1 end
  end
end
print(inside)
