; 2000 lines made, read, changed, and every other one erased; then the rest
(defun get (code groups) (cdr (assoc code groups)))
(defun run ( / i e groups sum gone)
  (setq i 0 sum 0)
  (repeat 2000
    (entmake (list '(0 . "LINE") (cons 8 (if (= 0 (rem i 2)) "WALLS" "AXES"))
                   (list 10 (float i) 0.0 0.0) (list 11 (float i) 5.0 0.0)))
    (setq i (1+ i)))
  (setq e (entnext))
  (while e
    (setq groups (entget e))
    (if (= "WALLS" (get 8 groups))
      (entmod (subst (list 11 (car (get 10 groups)) 9.0 0.0) (assoc 11 groups) groups))
      (setq gone (cons e gone)))
    (setq e (entnext e)))
  (foreach e gone (entdel e))
  (setq e (entnext))
  (while e
    (setq groups (entget e)
          sum (+ sum (fix (distance (get 10 groups) (get 11 groups)))))
    (entdel e)
    (setq e (entnext e)))
  sum)
(measure 10 run)
