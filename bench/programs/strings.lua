-- As Lua programs join strings: s = s .. piece copies the whole string each time.
measure(10, function()
  local pieces = {}
  for i = 0, 99999 do pieces[#pieces + 1] = "piece" .. tostring(i) end
  return #table.concat(pieces)
end)
