; Entities as curves: parameters, lengths, derivatives, nearest points, areas.
(defun made (groups) (entmakex groups))
(defun near (a b) (if (listp a) (and (= (length a) (length b)) (apply 'and (mapcar 'near a b))) (equal a b 1e-9)))
(defun and-all (l) (apply 'and l))
; one value of each kind, by the function's own name
(defun ends (e) (list (vlax-curve-getStartParam e) (vlax-curve-getEndParam e) (vlax-curve-getStartPoint e) (vlax-curve-getEndPoint e)))

(setq line (made '((0 . "LINE") (10 1.0 1.0 0.0) (11 4.0 5.0 0.0))))
(setq arc (made '((0 . "ARC") (10 0.0 0.0 0.0) (40 . 2.0) (50 . 4.71238898038469) (51 . 1.5707963267948966))))
(setq circle (made '((0 . "CIRCLE") (10 1.0 0.0 5.0) (40 . 3.0))))
(setq ellipse (made '((0 . "ELLIPSE") (100 . "AcDbEntity") (100 . "AcDbEllipse") (10 0.0 0.0 0.0) (11 5.0 0.0 0.0) (40 . 0.6) (41 . 0.0) (42 . 6.283185307179586))))
; a square with one side bulged to a half circle, closed
(setq pline (made '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 4) (70 . 1) (38 . 2.0) (10 0.0 0.0) (10 4.0 0.0) (42 . 1.0) (10 4.0 4.0) (10 0.0 4.0))))
; a parabola, y = x * x on 0 <= x <= 2, and a quarter circle of radius 1 as a rational curve
(setq parabola (made '((0 . "SPLINE") (100 . "AcDbEntity") (100 . "AcDbSpline") (70 . 8) (71 . 2) (72 . 6) (73 . 3) (74 . 0) (40 . 0.0) (40 . 0.0) (40 . 0.0) (40 . 2.0) (40 . 2.0) (40 . 2.0) (10 0.0 0.0 0.0) (10 1.0 0.0 0.0) (10 2.0 4.0 0.0))))
(setq quarter (made '((0 . "SPLINE") (100 . "AcDbEntity") (100 . "AcDbSpline") (70 . 12) (71 . 2) (72 . 6) (73 . 3) (74 . 0) (40 . 0.0) (40 . 0.0) (40 . 0.0) (40 . 1.0) (40 . 1.0) (40 . 1.0) (41 . 1.0) (41 . 0.7071067811865476) (41 . 1.0) (10 1.0 0.0 0.0) (10 1.0 1.0 0.0) (10 0.0 1.0 0.0))))
(setq ray (made '((0 . "RAY") (100 . "AcDbEntity") (100 . "AcDbRay") (10 1.0 0.0 0.0) (11 0.0 1.0 0.0))))
(setq xline (made '((0 . "XLINE") (100 . "AcDbEntity") (100 . "AcDbXline") (10 1.0 0.0 0.0) (11 0.0 1.0 0.0))))
(setq space (progn (entmake '((0 . "POLYLINE") (70 . 8) (10 0.0 0.0 0.0))) (mapcar '(lambda (p) (entmake (list '(0 . "VERTEX") (cons 10 p) '(70 . 32)))) '((0.0 0.0 0.0) (2.0 0.0 0.0) (2.0 2.0 0.0) (2.0 2.0 2.0))) (entmakex '((0 . "SEQEND"))) (entlast)))
(setq curves (list line arc circle ellipse pline parabola quarter space))
(and-all curves) ; => T

; -- parameters: lengths, angles, vertex numbers, knots
(ends line) ; => (0.0 5.0 (1.0 1.0 0.0) (4.0 5.0 0.0))
(near (ends arc) '(4.71238898038469 7.853981633974483 (0.0 -2.0 0.0) (0.0 2.0 0.0))) ; => T
(near (ends circle) '(0.0 6.283185307179586 (4.0 0.0 5.0) (4.0 0.0 5.0))) ; => T
(ends pline) ; => (0.0 4.0 (0.0 0.0 2.0) (0.0 0.0 2.0))
(ends parabola) ; => (0.0 2.0 (0.0 0.0 0.0) (2.0 4.0 0.0))
(ends ray) ; => (0.0 nil (1.0 0.0 0.0) nil)
(ends xline) ; => (nil nil nil nil)
(mapcar 'vlax-curve-isClosed curves) ; => (nil nil T T T nil nil nil)
(mapcar 'vlax-curve-isPeriodic curves) ; => (nil nil T T nil nil nil nil)
(mapcar 'vlax-curve-isPlanar curves) ; => (T T T T T T T nil)

; -- exact lengths
(defun whole (e) (vlax-curve-getDistAtParam e (vlax-curve-getEndParam e)))
(near (mapcar 'whole (list line arc circle pline quarter space)) (list 5.0 (* 2 pi) (* 6 pi) (+ 12.0 (* 2 pi)) (/ pi 2) 6.0)) ; => T
; the parabola's by its formula; the ellipse's by the arithmetic-geometric mean
(equal (whole parabola) (+ (sqrt 17.0) (/ (log (+ 4.0 (sqrt 17.0))) 4.0)) 1e-12) ; => T
(equal (whole ellipse) 25.5269988633981 1e-10) ; => T

; -- laws that hold on every curve, at places all along it
(defun places (e / n) (setq n -1) (mapcar '(lambda (x) (+ (vlax-curve-getStartParam e) (* (setq n (1+ n)) 0.0999 (- (vlax-curve-getEndParam e) (vlax-curve-getStartParam e))))) '(1 1 1 1 1 1 1 1 1 1 1)))
(defun holds (law) (mapcar '(lambda (e) (and-all (mapcar '(lambda (u) (law e u)) (places e)))) curves))
(setq all '(T T T T T T T T))
(equal all (holds '(lambda (e u) (near u (vlax-curve-getParamAtDist e (vlax-curve-getDistAtParam e u)))))) ; => T
(equal all (holds '(lambda (e u / p) (setq p (vlax-curve-getPointAtParam e u)) (equal p (vlax-curve-getPointAtDist e (vlax-curve-getDistAtPoint e p)) 1e-8)))) ; => T
(equal all (holds '(lambda (e u / p) (setq p (vlax-curve-getPointAtParam e u)) (equal p (vlax-curve-getClosestPointTo e p) 1e-8)))) ; => T
; derivatives against differences
(defun slope (f e u / h) (setq h 1e-4) (mapcar '(lambda (a b) (/ (- a b) 2 h)) (f e (+ u h)) (f e (- u h))))
(defun inner (smooth) (holds '(lambda (e u) (or (equal u (vlax-curve-getStartParam e)) (equal u (fix u) 0.001) (smooth e u)))))
(equal all (inner '(lambda (e u) (equal (slope vlax-curve-getPointAtParam e u) (vlax-curve-getFirstDeriv e u) 1e-5)))) ; => T
(equal all (inner '(lambda (e u) (equal (slope vlax-curve-getFirstDeriv e u) (vlax-curve-getSecondDeriv e u) 1e-5)))) ; => T
; the nearest point sees the place at a right angle, or is an end
(equal all (mapcar '(lambda (e / p u d) (setq p (vlax-curve-getClosestPointTo e '(1.5 2.5 1.0)) u (vlax-curve-getParamAtPoint e p) d (mapcar '- p '(1.5 2.5 1.0))) (or (equal u (fix u) 1e-6) (equal 0.0 (apply '+ (mapcar '* d (vlax-curve-getFirstDeriv e u))) 1e-6))) curves)) ; => T

; -- a vertex belongs to the segment that begins there; beyond the ends there is nothing
(mapcar '(lambda (u) (vlax-curve-getFirstDeriv pline u)) '(0 2 4)) ; => ((4.0 0.0 0.0) (-4.0 0.0 0.0) (0.0 -4.0 0.0))
(near (vlax-curve-getPointAtParam pline 1.5) '(6.0 2.0 2.0)) ; => T
(mapcar '(lambda (f) (f line)) (list '(lambda (e) (vlax-curve-getPointAtParam e 5.1)) '(lambda (e) (vlax-curve-getPointAtDist e -0.1)) '(lambda (e) (vlax-curve-getParamAtPoint e '(1.0 1.1 0.0))) '(lambda (e) (vlax-curve-getDistAtParam e -1)) '(lambda (e) (vlax-curve-getFirstDeriv e 6)))) ; => (nil nil nil nil nil)
(vlax-curve-getPointAtDist ray 100) ; => (1.0 100.0 0.0)

; -- nearest points; "extend" goes on beyond the ends
(vlax-curve-getClosestPointTo line '(10.0 1.0 0.0)) ; => (4.0 5.0 0.0)
(near (vlax-curve-getClosestPointTo line '(-2.0 -3.0 7.0) T) '(-2.0 -3.0 0.0)) ; => T
(near (vlax-curve-getClosestPointTo arc '(-5.0 -0.1 0.0)) '(0.0 -2.0 0.0)) ; => T
(near (vlax-curve-getClosestPointTo arc '(-5.0 0.0 0.0) T) '(-2.0 0.0 0.0)) ; => T
(near (vlax-curve-getClosestPointTo ellipse '(0.0 9.0)) '(0.0 3.0 0.0)) ; => T
(vlax-curve-getClosestPointTo xline '(7.0 -4.0 0.0)) ; => (1.0 -4.0 0.0)
; seen from the front the circle is a line
(near (cdr (vlax-curve-getClosestPointToProjection circle '(9.0 0.0 0.0) '(0.0 0.0 1.0))) '(0.0 5.0)) ; => T
(near (vlax-curve-getClosestPointToProjection space '(2.0 0.5 9.0) '(0.0 0.0 1.0)) '(2.0 0.5 0.0)) ; => T

; -- areas; between the ends of an open curve runs a line
(near (mapcar 'vlax-curve-getArea (list line arc circle ellipse pline)) (list 0.0 (* 2 pi) (* 9 pi) (* 15 pi) (+ 16.0 (* 2 pi)))) ; => T
(near (mapcar 'vlax-curve-getArea (list parabola quarter)) (list (/ 4.0 3.0) (- (/ pi 4) 0.5))) ; => T
(list (vlax-curve-getArea space) (vlax-curve-getArea ray)) ; => (nil nil)

; -- a mirrored arc runs clockwise as seen from above
(setq mirrored (made '((0 . "ARC") (10 0.0 0.0 0.0) (40 . 1.0) (50 . 0.0) (51 . 1.5707963267948966) (210 0.0 0.0 -1.0))))
(near (cddr (ends mirrored)) '((-1.0 0.0 0.0) (0.0 1.0 0.0))) ; => T
(near (vlax-curve-getFirstDeriv mirrored 0) '(0.0 1.0 0.0)) ; => T

; -- what is no curve
(setq text (made '((0 . "TEXT") (10 0.0 0.0 0.0) (40 . 1.0) (1 . "t"))))
(vl-catch-all-error-p (vl-catch-all-apply 'vlax-curve-getStartParam (list text))) ; => T
(vlax-curve-isClosed nil) ; ! bad argument type: lentityp nil
(vlax-curve-getPointAtParam line) ; ! too few arguments
(vlax-curve-getClosestPointTo line 5) ; ! bad argument type: 2D/3D point: 5
