local abs = math.abs
local function safe(column, distance, placed)
  if placed == nil then return true end
  if column == placed[1] then return false end
  if abs(column - placed[1]) == distance then return false end
  return safe(column, distance + 1, placed[2])
end
local function place(row, placed)
  if row == 0 then return 1 end
  local count = 0
  for column = 1, 8 do
    if safe(column, 1, placed) then
      count = count + place(row - 1, {column, placed})
    end
  end
  return count
end
measure(10, function() return place(8, nil) end)
