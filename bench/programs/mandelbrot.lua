local function stays(cr, ci)
  local zr, zi, n = 0.0, 0.0, 0
  while n < 50 do
    local r, i = zr * zr, zi * zi
    if r + i > 4.0 then break end
    zi = 2.0 * zr * zi + ci
    zr = r - i + cr
    n = n + 1
  end
  return n == 50
end
measure(10, function()
  local count = 0
  for y = 0, 79 do
    for x = 0, 79 do
      if stays(x / 30.0 - 2.0, y / 40.0 - 1.0) then count = count + 1 end
    end
  end
  return count
end)
