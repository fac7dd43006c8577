; a string of 100,000 pieces, joined one after the other
(defun run ( / s i)
  (setq s "" i 0)
  (while (< i 100000) (setq s (strcat s "piece" (itoa i)) i (1+ i)))
  (strlen s))
(measure 10 run)
