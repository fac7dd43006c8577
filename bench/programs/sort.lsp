; a list of 100,000 reals, built from front to back and sorted by a function of the program
(defun build (count / reals seed)
  (setq seed 42)
  (repeat count
    (setq seed (rem (+ (* seed 1309) 13849) 65536)
          reals (cons (float seed) reals)))
  reals)
(defun less (a b) (< a b))
(defun run ( / sorted) (setq sorted (vl-sort (build 100000) 'less)) (fix (+ (car sorted) (last sorted))))
(measure 10 run)
