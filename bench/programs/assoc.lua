local function assoc(key, list)
  for i = 1, #list do
    local entry = list[i]
    if entry[1] == key then return entry end
  end
end
local function subst(new, old, list)
  local copy = {}
  for i = 1, #list do
    local entry = list[i]
    copy[i] = entry == old and new or entry
  end
  return copy
end
measure(10, function()
  local list, sum = {}, 0
  for i = 0, 99 do list[#list + 1] = {i, 0} end
  for i = 0, 19999 do
    local entry = assoc(i % 100, list)
    if i % 50 == 0 then list = subst({entry[1], entry[2] + 1}, entry, list) end
    sum = sum + entry[1]
  end
  return "(" .. sum .. " " .. assoc(50, list)[2] .. ")"
end)
