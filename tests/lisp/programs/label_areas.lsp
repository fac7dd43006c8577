; AREALABEL: writes its area into each closed polyline, circle and ellipse of the selected layers,
; and a table of the sums by layer beside the drawing.

(defun arealabel:closed (ss / i e l)
  (if ss
    (repeat (setq i (sslength ss))
      (setq i (1- i) e (ssname ss i))
      (if (vlax-curve-isClosed e) (setq l (cons e l)))))
  l)

;; Centre of gravity of a closed polygon, by the formula of the shoelace.
(defun arealabel:centre (pts / a cx cy p q c)
  (setq a 0.0 cx 0.0 cy 0.0)
  (mapcar
    '(lambda (p q)
       (setq c (- (* (car p) (cadr q)) (* (car q) (cadr p)))
             a (+ a c)
             cx (+ cx (* c (+ (car p) (car q))))
             cy (+ cy (* c (+ (cadr p) (cadr q))))))
    pts (append (cdr pts) (list (car pts))))
  (if (equal a 0.0 1e-12)
    (car pts)
    (list (/ cx 3.0 a) (/ cy 3.0 a) 0.0)))

;; Points all along a curve, close enough for its centre.
(defun arealabel:points (e / n step len l)
  (setq len (vlax-curve-getDistAtParam e (vlax-curve-getEndParam e)) n 360 step (/ len n))
  (repeat n
    (setq n (1- n)
          l (cons (vlax-curve-getPointAtDist e (* n step)) l)))
  l)

(defun arealabel:mtext (at txt height layer)
  (entmakex
    (list '(0 . "MTEXT") '(100 . "AcDbEntity") (cons 8 layer) '(100 . "AcDbMText")
          (cons 10 at) (cons 40 height) '(41 . 0.0) '(71 . 5) (cons 1 txt))))

;; Adds to the sum under a key of an association list.
(defun arealabel:add (key value alist / old)
  (if (setq old (assoc key alist))
    (subst (cons key (+ (cdr old) value)) old alist)
    (cons (cons key value) alist)))

(defun arealabel:table (sums at height / row)
  (foreach row (vl-sort sums '(lambda (a b) (< (car a) (car b))))
    (arealabel:mtext at (strcat (car row) "\\P" (rtos (cdr row) 2 2)) height "0")
    (setq at (polar at (* 1.5 pi) (* 4.0 height))))
  (length sums))

(defun c:AREALABEL (/ height e area sums layer todo)
  (setq height (getvar "TEXTSIZE")
        todo (arealabel:closed
               (ssget "_X" '((-4 . "<OR") (0 . "LWPOLYLINE,CIRCLE")
                             (-4 . "<AND") (0 . "ELLIPSE") (41 . 0.0) (-4 . "AND>")
                             (-4 . "OR>")))))
  (foreach e todo
    (setq area (vlax-curve-getArea e)
          layer (cdr (assoc 8 (entget e)))
          sums (arealabel:add layer area sums))
    (arealabel:mtext (arealabel:centre (arealabel:points e)) (strcat (rtos area 2 1) " m2") height layer))
  (if sums (arealabel:table sums (list 100.0 0.0 0.0) height))
  (vl-sort sums '(lambda (a b) (< (car a) (car b)))))

; -- the drawing: an L of 12, a square with a round side, a circle, an open line, an ellipse
(defun pline (layer closed pts)
  (entmake (append (list '(0 . "LWPOLYLINE") '(100 . "AcDbEntity") (cons 8 layer)
                         '(100 . "AcDbPolyline") (cons 90 (length pts)) (cons 70 closed))
                   (apply 'append
                     (mapcar '(lambda (p) (list (list 10 (car p) (cadr p)) (cons 42 (caddr p)))) pts)))))
(pline "ROOMS" 1 '((0 0 0) (4 0 0) (4 2 0) (2 2 0) (2 4 0) (0 4 0)))
(pline "ROOMS" 1 '((10 0 0) (14 0 1.0) (14 4 0) (10 4 0)))
(pline "WALLS" 0 '((0 0 0) (9 0 0) (9 9 0)))
(entmake '((0 . "CIRCLE") (8 . "POSTS") (10 20.0 20.0 0.0) (40 . 2.0)))
(entmake '((0 . "ELLIPSE") (100 . "AcDbEntity") (8 . "POSTS") (100 . "AcDbEllipse") (10 30.0 0.0 0.0) (11 2.0 0.0 0.0) (40 . 0.5) (41 . 0.0) (42 . 6.283185307179586)))

(defun rounded (l) (mapcar '(lambda (r) (cons (car r) (rtos (cdr r) 2 4))) l))
(setvar "DIMZIN" 0)
(rounded (c:arealabel)) ; => (("POSTS" . "18.8496") ("ROOMS" . "34.2832"))
(defun labels (/ ss i e l)
  (repeat (setq i (sslength (setq ss (ssget "X" '((0 . "MTEXT"))))))
    (setq i (1- i) e (entget (ssname ss i)))
    (setq l (cons (list (cdr (assoc 1 e)) (cdr (assoc 8 e)) (rtos (cadr (assoc 10 e)) 2 2) (rtos (caddr (assoc 10 e)) 2 2)) l)))
  (vl-sort l '(lambda (a b) (< (car a) (car b)))))
(mapcar 'car (labels)) ; => ("12.0 m2" "12.6 m2" "22.3 m2" "6.3 m2" "POSTS\\P18.85" "ROOMS\\P34.28")
; the L's centre of gravity by its two rectangles: (8 * 2 + 4 * 1) / 12
(assoc "12.0 m2" (labels)) ; => ("12.0 m2" "ROOMS" "1.67" "1.67")
(cddr (assoc "6.3 m2" (labels))) ; => ("30.00" "0.00")
