; primes below 20000 by striking multiples out of a list
(defun numbers (from to / made) (while (<= from to) (setq made (cons to made) to (1- to))) made)
(defun run ( / rest primes p)
  (setq rest (numbers 2 20000))
  (while (<= (* (setq p (car rest)) p) 20000)
    (setq primes (cons p primes)
          rest (vl-remove-if '(lambda (n) (= 0 (rem n p))) (cdr rest))))
  (+ (length primes) (length rest)))
(measure 10 run)
