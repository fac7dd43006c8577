measure(2, function()
  local s = ""
  for i = 0, 99999 do s = s .. "piece" .. tostring(i) end
  return #s
end)
