; PWEED, PADD, PDEL, PREV, POLD: weeding out, adding and deleting vertices of polylines, turning their
; direction round, and from the old to the new kind.

;; A vertex: (point start-width end-width bulge). The list is cut at each group 10.
(defun vt:vertices (el / v out)
  (while (setq el (member (assoc 10 el) el))
    (setq v (list (cdar el) (cdr (assoc 40 el)) (cdr (assoc 41 el)) (cdr (assoc 42 el)))
          out (cons v out)
          el (cdr el)))
  (reverse out))

(defun vt:groups (v)
  (list (cons 10 (car v)) (cons 40 (cadr v)) (cons 41 (caddr v)) (cons 42 (cadddr v))))

;; The list of the polyline with other vertices: what stands before the first and behind the last stays.
(defun vt:with (el vertices / head tail)
  (while (/= 10 (caar el)) (setq head (cons (car el) head) el (cdr el)))
  (setq tail (member (assoc 210 el) el))
  (append (subst (cons 90 (length vertices)) (assoc 90 head) (reverse head))
          (apply 'append (mapcar 'vt:groups vertices))
          tail))

(defun vt:put (e vertices)
  (if (> (length vertices) 1) (entmod (vt:with (entget e) vertices))))

(defun vt:closed (el) (= 1 (logand 1 (cdr (assoc 70 el)))))

;; Height of a triangle over its longest side's line; a point for a place on the line itself.
(defun vt:height (a p b / base)
  (setq base (distance a b))
  (if (equal base 0.0 1e-12)
    (distance a p)
    (abs (/ (- (* (- (car b) (car a)) (- (cadr a) (cadr p)))
               (* (- (car a) (car p)) (- (cadr b) (cadr a))))
            base))))

;; Recursive: the vertex that is farthest from the line between the ends stays when it is beyond the tolerance.
(defun vt:weed (vs tol / i n far farthest d left)
  (if (< (length vs) 3)
    vs
    (progn
      (setq farthest 0.0 i 0 n (1- (length vs)))
      (foreach v vs
        (if (and (< 0 i n)
                 (or (/= 0.0 (cadddr v)) (/= 0.0 (cadddr (nth (1- i) vs)))
                     (> (setq d (vt:height (caar vs) (car v) (car (last vs)))) farthest)))
          (progn (setq farthest (if (/= 0.0 (cadddr v)) 1e99 (max farthest (cond (d) (0.0)))) far i)))
        (setq d nil i (1+ i)))
      (if (and far (> farthest tol))
        (progn
          (setq left (vt:weed (vt:part vs 0 far) tol))
          (append (vt:part left 0 (- (length left) 2)) (vt:weed (vt:part vs far n) tol)))
        (list (car vs) (last vs))))))

(defun vt:part (l from to / out i)
  (setq i 0)
  (foreach x l (if (<= from i to) (setq out (cons x out))) (setq i (1+ i)))
  (reverse out))

(defun vt:pick (msg / pick)
  (setvar "ERRNO" 0)
  (while (and (null pick) (/= 52 (getvar "ERRNO")))
    (setq pick (entsel msg))
    (cond
      ((null pick) (if (= 7 (getvar "ERRNO")) (princ "\nMissed.")))
      ((/= "LWPOLYLINE" (cdr (assoc 0 (entget (car pick))))) (princ "\nNo polyline.") (setq pick nil))))
  pick)

(defun c:PWEED (/ pick tol before)
  (if (setq pick (vt:pick "\nPolyline: "))
    (progn
      (initget 7)
      (setq tol (getdist "\nTolerance: ") before (vt:vertices (entget (car pick))))
      (vt:put (car pick) (vt:weed before tol))
      (- (length before) (cdr (assoc 90 (entget (car pick))))))))

;; The vertex goes in where the picked point lies; an arc is split into two.
(defun c:PADD (/ pick e p k vs v b ang)
  (if (setq pick (vt:pick "\nPolyline at the new vertex: "))
    (progn
      (setq e (car pick)
            p (vlax-curve-getClosestPointTo e (trans (cadr pick) 1 0))
            k (vlax-curve-getParamAtPoint e p)
            vs (vt:vertices (entget e))
            v (nth (fix k) vs))
      (if (equal k (fix k) 1e-8)
        (progn (princ "\nThere is a vertex already.") nil)
        (progn
          (setq ang (* 4.0 (atan (cadddr v))) b (- k (fix k)))
          (vt:put e
            (append (vt:part vs 0 (1- (fix k)))
                    (list (list (car v) (cadr v) (caddr v) (vt:tan (/ (* ang b) 4.0)))
                          (list (list (car p) (cadr p)) (cadr v) (caddr v) (vt:tan (/ (* ang (- 1.0 b)) 4.0))))
                    (vt:part vs (1+ (fix k)) (length vs))))
          (1+ (fix k)))))))

(defun vt:tan (x) (/ (sin x) (cos x)))

(defun c:PDEL (/ pick e vs near i)
  (if (setq pick (vt:pick "\nPolyline near the vertex: "))
    (progn
      (setq e (car pick) vs (vt:vertices (entget e))
            near (car (vl-sort (mapcar 'car vs) '(lambda (a b) (< (distance a (cadr pick)) (distance b (cadr pick))))))
            i (vl-position near (mapcar 'car vs)))
      (if (vt:put e (append (vt:part vs 0 (1- i)) (vt:part vs (1+ i) (length vs)))) i))))

;; The bulge belongs to the segment: it goes with the vertex before it, turned.
(defun vt:turned (vs / bs)
  (setq bs (reverse (mapcar 'cdr vs)) vs (reverse vs))
  (setq bs (append (cdr bs) (list (car bs))))
  (mapcar '(lambda (v b) (list (car v) (cadr b) (car b) (- (caddr b)))) vs bs))

(defun c:PREV (/ pick)
  (if (setq pick (vt:pick "\nPolyline: "))
    (progn (vt:put (car pick) (vt:turned (vt:vertices (entget (car pick))))) (car pick))))

(defun c:POLD (/ ss i e el v out n)
  (setq n 0)
  (if (setq ss (ssget "_X" '((0 . "POLYLINE") (-4 . "<NOT") (-4 . "&") (70 . 120) (-4 . "NOT>"))))
    (repeat (setq i (sslength ss))
      (setq i (1- i) e (ssname ss i) el (entget e) v e out nil)
      (while (= "VERTEX" (cdr (assoc 0 (entget (setq v (entnext v))))))
        (setq out (cons (list (list (car (cdr (assoc 10 (entget v)))) (cadr (cdr (assoc 10 (entget v)))))
                              (cdr (assoc 40 (entget v))) (cdr (assoc 41 (entget v))) (cdr (assoc 42 (entget v))))
                        out)))
      (if (entmake
            (append
              (list '(0 . "LWPOLYLINE") '(100 . "AcDbEntity") (assoc 8 el))
              (if (assoc 62 el) (list (assoc 62 el)))
              (list '(100 . "AcDbPolyline") (cons 90 (length out)) (cons 70 (logand 129 (cdr (assoc 70 el))))
                    (cons 38 (caddr (cdr (assoc 10 el)))))
              (apply 'append (mapcar 'vt:groups (reverse out)))))
        (progn (entdel e) (setq n (1+ n))))))
  n)

; -- a wave that is nearly straight, with one arc and one spike
(defun pline (closed vs)
  (entmakex (append (list '(0 . "LWPOLYLINE") '(100 . "AcDbEntity") '(8 . "0") '(100 . "AcDbPolyline") (cons 90 (length vs)) (cons 70 closed) '(38 . 2.0))
                    (apply 'append (mapcar 'vt:groups vs)))))
(defun v (x y b) (list (list x y) 0.0 0.0 b))
(setq p (pline 0 (list (v 0.0 0.0 0.0) (v 10.0 0.1 0.0) (v 20.0 -0.1 0.0) (v 30.0 5.0 0.0) (v 40.0 0.0 0.0) (v 50.0 0.05 0.0) (v 60.0 0.0 0.0))))
(progn (answers "L" "0.5") (c:pweed)) ; => 2
(mapcar 'car (vt:vertices (entget p))) ; => ((0.0 0.0) (20.0 -0.1) (30.0 5.0) (40.0 0.0) (60.0 0.0))
(cdr (assoc 38 (entget p))) ; => 2.0
; missed, then a circle, then the polyline
(progn (entmake '((0 . "CIRCLE") (10 0.0 50.0 0.0) (40 . 5.0))) (answers "200,200" "L" "0,0") (c:pdel)) ; => 0
(progn (answers "50,0") (c:padd)) ; => 3
(mapcar 'car (vt:vertices (entget p))) ; => ((20.0 -0.1) (30.0 5.0) (40.0 0.0) (50.0 0.0) (60.0 0.0))
(progn (answers "") (c:padd)) ; => nil

; -- an arc is split without change of shape; turned round twice is as before
(setq q (pline 1 (list (v 0.0 100.0 0.0) (v 20.0 100.0 1.0) (v 20.0 120.0 0.0) (v 0.0 120.0 0.5))))
(setq area (vlax-curve-getArea q) len (vlax-curve-getDistAtParam q 4))
(progn (answers "30,110") (c:padd)) ; => 2
(list (equal area (vlax-curve-getArea q) 1e-9) (equal len (vlax-curve-getDistAtParam q 5) 1e-9)) ; => (T T)
(setq before (vt:vertices (entget q)))
(progn (answers "0,100") (c:prev) (list (equal area (vlax-curve-getArea q) 1e-9) (equal before (vt:vertices (entget q))))) ; => (T nil)
(mapcar 'car (vt:vertices (entget q))) ; => ((0.0 120.0) (20.0 120.0) (30.0 110.0) (20.0 100.0) (0.0 100.0))
(progn (answers "0,100") (c:prev) (equal before (vt:vertices (entget q)) 1e-12)) ; => T

; -- old polylines, one of them in space
(defun old (flags zs)
  (entmake (list '(0 . "POLYLINE") '(8 . "OLD") '(62 . 3) '(66 . 1) (cons 70 flags) (list 10 0.0 0.0 7.0)))
  (foreach z zs (entmake (list '(0 . "VERTEX") (cons 10 z) (cons 42 (if (= flags 1) 0.25 0.0)) (cons 70 (if (= flags 8) 32 0)))))
  (entmake '((0 . "SEQEND"))))
(old 1 '((0.0 0.0 7.0) (5.0 0.0 7.0) (5.0 5.0 7.0)))
(old 8 '((0.0 0.0 1.0) (5.0 0.0 2.0)))
(c:pold) ; => 1
(mapcar '(lambda (c) (cdr (assoc c (entget (entlast))))) '(0 8 62 90 70 38)) ; => ("LWPOLYLINE" "OLD" 3 3 1 7.0)
(mapcar 'cadddr (vt:vertices (entget (entlast)))) ; => (0.25 0.25 0.25)
(sslength (ssget "_X" '((0 . "POLYLINE")))) ; => 1
