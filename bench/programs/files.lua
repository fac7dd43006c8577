local name = os.tmpname()
measure(10, function()
  local f = io.open(name, "w")
  for i = 0, 49999 do f:write("line ", i, ", some text behind it\n") end
  f:close()
  local sum = 0
  for line in io.lines(name) do
    sum = sum + #line + tonumber(line:match("%d+", 6)) % 7
  end
  return sum
end)
os.remove(name)
