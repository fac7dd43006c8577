-- measure(rounds, run): runs the function and prints its result and the shortest time
function measure(rounds, run)
  local best, result
  for _ = 1, rounds do
    collectgarbage()
    local start = os.clock()
    result = run()
    local taken = os.clock() - start
    if not best or taken < best then best = taken end
  end
  print("result " .. tostring(result))
  print(string.format("ms %.3f", best * 1000))
end
