local function build(count)
  local list, seed = {}, 42
  for i = 1, count do
    seed = (seed * 1309 + 13849) % 65536
    list[i] = seed + 0.0
  end
  return list
end
local function less(a, b) return a < b end
measure(10, function()
  local list = build(100000)
  table.sort(list, less)
  return math.floor(list[1] + list[#list])
end)
