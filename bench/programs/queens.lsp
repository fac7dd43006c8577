; number of ways to place 8 queens; `placed` holds the columns of the rows done
(defun safe (column distance placed)
  (cond ((null placed) t)
        ((= column (car placed)) nil)
        ((= (abs (- column (car placed))) distance) nil)
        (t (safe column (1+ distance) (cdr placed)))))
(defun place (row placed / column count)
  (if (= row 0) 1
    (progn
      (setq column 1 count 0)
      (repeat 8
        (if (safe column 1 placed)
          (setq count (+ count (place (1- row) (cons column placed)))))
        (setq column (1+ column)))
      count)))
(defun run () (place 8 nil))
(measure 10 run)
