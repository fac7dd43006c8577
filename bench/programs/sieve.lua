local function remove_if(test, list, from)
  local kept = {}
  for i = from, #list do
    if not test(list[i]) then kept[#kept + 1] = list[i] end
  end
  return kept
end
measure(10, function()
  local rest, count = {}, 0
  for n = 2, 20000 do rest[#rest + 1] = n end
  while rest[1] * rest[1] <= 20000 do
    local p = rest[1]
    count = count + 1
    rest = remove_if(function(n) return n % p == 0 end, rest, 2)
  end
  return count + #rest
end)
