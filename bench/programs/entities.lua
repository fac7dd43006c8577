-- The least of a drawing: records by handle in the order of their making, layers by name, groups that are
-- required, groups with defaults; get gives a copy of a record, mod takes one over.
local defaults = {[8] = "0", [39] = 0.0, [67] = 0, [100] = "AcDbLine", [210] = {0.0, 0.0, 1.0}, [330] = "1F", [410] = "Model"}
local required = {LINE = {10, 11}}
local records, order, layers, seed
local function make(groups)
  for _, code in ipairs(required[groups[0]]) do
    if type(groups[code]) ~= "table" then return nil end
  end
  local handle = string.format("%X", seed)
  local record = {[5] = handle}
  for code, value in pairs(defaults) do record[code] = value end
  for code, value in pairs(groups) do record[code] = value end
  local layer = string.upper(record[8])
  if not layers[layer] then layers[layer] = {[2] = record[8], [70] = 0} end
  records[handle] = record
  order[#order + 1] = handle
  seed = seed + 1
  return handle
end
local function get(handle)
  local record = records[handle]
  if record.erased then return nil end
  local copy = {}
  for code, value in pairs(record) do copy[code] = value end
  return copy
end
local function mod(groups)
  local record = records[groups[5]]
  if record.erased or record[0] ~= groups[0] then return nil end
  if layers[string.upper(groups[8])][70] ~= 0 then return nil end
  for _, code in ipairs(required[groups[0]]) do
    if type(groups[code]) ~= "table" then return nil end
  end
  for code, value in pairs(groups) do record[code] = value end
  return groups
end
local function del(handle) records[handle].erased = true end
measure(10, function()
  records, order, layers, seed = {}, {}, {}, 256
  local sum, gone = 0, {}
  for i = 0, 1999 do
    make{[0] = "LINE", [8] = i % 2 == 0 and "WALLS" or "AXES", [10] = {i + 0.0, 0.0, 0.0}, [11] = {i + 0.0, 5.0, 0.0}}
  end
  for _, e in ipairs(order) do
    local groups = get(e)
    if groups[8] == "WALLS" then
      groups[11] = {groups[10][1], 9.0, 0.0}
      mod(groups)
    else
      gone[#gone + 1] = e
    end
  end
  for _, e in ipairs(gone) do del(e) end
  for _, e in ipairs(order) do
    local groups = get(e)
    if groups then
      local a, b = groups[10], groups[11]
      sum = sum + math.floor(math.sqrt((b[1] - a[1]) ^ 2 + (b[2] - a[2]) ^ 2 + (b[3] - a[3]) ^ 2))
      del(e)
    end
  end
  return sum
end)
