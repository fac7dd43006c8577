; (measure rounds task): runs the function and prints its result and the shortest time
(defun measure (rounds task / best start taken result)
  (repeat rounds
    (setq start (seconds) result (task) taken (- (seconds) start))
    (if (or (null best) (< taken best)) (setq best taken)))
  (princ "result ") (princ result)
  (princ "\nms ") (princ (rtos (* 1000.0 best) 2 3)) (terpri))
