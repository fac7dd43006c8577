; DOUBLES: erases lines and circles that lie exactly on others, joins lines that overlap on one
; straight line, and drops those of no length; says how many of each.

(defun db:items (filter / ss i out)
  (if (setq ss (ssget "_X" filter))
    (repeat (setq i (sslength ss)) (setq out (cons (entget (ssname ss (setq i (1- i)))) out))))
  out)

(defun db:get (code e) (cdr (assoc code e)))

;; Text of a number on a grid, so that equal places have equal keys.
(defun db:key (x) (itoa (fix (+ (* x 1e4) (if (minusp x) -0.5 0.5)))))
(defun db:point-key (p) (strcat (db:key (car p)) "," (db:key (cadr p)) "," (db:key (caddr p))))

(defun db:line-key (e / a b)
  (setq a (db:point-key (db:get 10 e)) b (db:point-key (db:get 11 e)))
  (strcat (db:get 8 e) "/" (if (< a b) (strcat a "/" b) (strcat b "/" a))))

(defun db:circle-key (e)
  (strcat (db:get 8 e) "/" (db:point-key (db:get 10 e)) "/" (db:key (db:get 40 e))))

(defun db:erase (e) (entdel (cdr (assoc -1 e))))

;; Erases all but the first of each key.
(defun db:unique (items key / seen n k)
  (setq n 0)
  (foreach e items
    (setq k (key e))
    (if (member k seen)
      (progn (db:erase e) (setq n (1+ n)))
      (setq seen (cons k seen))))
  n)

(defun db:empty (items / n)
  (setq n 0)
  (foreach e items
    (if (equal (db:get 10 e) (db:get 11 e) 1e-8) (progn (db:erase e) (setq n (1+ n)))))
  n)

;; True when four points lie on one line.
(defun db:collinear (e f / a b)
  (setq a (db:get 10 e) b (db:get 11 e))
  (and (equal (db:get 8 e) (db:get 8 f))
       (db:on-line a b (db:get 10 f))
       (db:on-line a b (db:get 11 f))))
(defun db:on-line (a b p)
  (equal 0.0
         (/ (- (* (- (car b) (car a)) (- (cadr p) (cadr a)))
               (* (- (cadr b) (cadr a)) (- (car p) (car a))))
            (distance a b))
         1e-6))

;; Places of the ends of `f` along `e`, as shares of its length.
(defun db:share (e p / a b)
  (setq a (db:get 10 e) b (db:get 11 e))
  (/ (apply '+ (mapcar '* (mapcar '- p a) (mapcar '- b a))) (expt (distance a b) 2)))

(defun db:overlap (e f / s u)
  (setq s (db:share e (db:get 10 f)) u (db:share e (db:get 11 f)))
  (and (db:collinear e f) (>= (max s u) -1e-9) (<= (min s u) (+ 1.0 1e-9))))

;; The line over both.
(defun db:merge (e f / pts lo hi a s)
  (setq pts (list (db:get 10 e) (db:get 11 e) (db:get 10 f) (db:get 11 f))
        pts (vl-sort pts '(lambda (p q) (< (db:share e p) (db:share e q)))))
  (entmod (subst (cons 11 (last pts)) (assoc 11 e) (subst (cons 10 (car pts)) (assoc 10 e) e)))
  (db:erase f))

(defun db:join (/ n again items e f)
  (setq n 0 again T)
  (while again
    (setq again nil items (db:items '((0 . "LINE"))))
    (while (and items (not again))
      (setq e (car items) items (cdr items))
      (if (setq f (vl-some '(lambda (x) (if (db:overlap e x) x)) items))
        (progn (db:merge e f) (setq n (1+ n) again T)))))
  n)

(defun c:DOUBLES (/ empty same joined)
  (setq empty (db:empty (db:items '((0 . "LINE"))))
        same (+ (db:unique (db:items '((0 . "LINE"))) db:line-key)
                (db:unique (db:items '((0 . "CIRCLE"))) db:circle-key))
        joined (db:join))
  (princ (strcat "\n" (itoa empty) " empty, " (itoa same) " double, " (itoa joined) " joined.\n"))
  (list empty same joined))

(defun line (layer a b) (entmake (list '(0 . "LINE") (cons 8 layer) (cons 10 a) (cons 11 b))))
(line "A" '(0.0 0.00001 0.0) '(10.0 0.0 0.0)) ; drawn badly
(line "A" '(0.0 0.0 0.0) '(10.0 0.0 0.0))
(line "A" '(10.0 0.0 0.0) '(0.0 0.0 0.0))     ; the same, turned
(line "B" '(0.0 0.0 0.0) '(10.0 0.0 0.0))     ; of another layer
(line "A" '(8.0 0.0 0.0) '(15.0 0.0 0.0))     ; goes on
(line "A" '(15.0 0.0 0.0) '(20.0 0.0 0.0))    ; touches
(line "A" '(25.0 0.0 0.0) '(30.0 0.0 0.0))    ; a gap
(line "A" '(0.0 3.0 0.0) '(10.0 3.0 0.0))     ; beside
(line "A" '(5.0 5.0 0.0) '(5.0 5.0 0.0))      ; nothing
(foreach r '(2.0 2.0 3.0) (entmake (list '(0 . "CIRCLE") '(8 . "A") '(10 0.0 0.0 0.0) (cons 40 r))))
(c:doubles) ; => (1 3 2)
(vl-sort (mapcar '(lambda (e) (list (db:get 8 e) (car (db:get 10 e)) (car (db:get 11 e)) (cadr (db:get 10 e)))) (db:items '((0 . "LINE") (8 . "A")))) '(lambda (a b) (< (+ (cadr a) (last a)) (+ (cadr b) (last b))))) ; => (("A" 0.0 20.0 0.0) ("A" 0.0 10.0 3.0) ("A" 25.0 30.0 0.0))
(length (db:items '((0 . "CIRCLE")))) ; => 2
(c:doubles) ; => (0 0 0)
