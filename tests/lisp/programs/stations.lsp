; STATIONS: ticks and chainage along an axis of any kind, every so many units, with a text at each;
; and the nearest station of a point beside the axis with its offset, left positive.

(defun st:tangent (e param) (vlax-curve-getFirstDeriv e param))

;; Angle of the normal to the left of the axis.
(defun st:normal (e param / d)
  (setq d (st:tangent e param))
  (+ (atan (cadr d) (car d)) (/ pi 2.0)))

(defun st:length (e) (vlax-curve-getDistAtParam e (vlax-curve-getEndParam e)))

;; 1+234.50
(defun st:chainage (dist / km rest)
  (setq km (fix (/ dist 1000.0)) rest (- dist (* 1000.0 km)))
  (strcat (itoa km) "+" (st:zeros (rtos rest 2 2) 6)))

(defun st:zeros (s n) (while (< (strlen s) n) (setq s (strcat "0" s))) s)

(defun st:tick (e dist size / param at normal a b)
  (setq param (vlax-curve-getParamAtDist e dist)
        at (vlax-curve-getPointAtParam e param)
        normal (st:normal e param)
        a (polar at normal (/ size 2.0))
        b (polar at normal (/ size -2.0)))
  (entmake (list '(0 . "LINE") '(8 . "STATIONS") (cons 10 a) (cons 11 b)))
  (entmake (list '(0 . "TEXT") '(8 . "STATIONS") (cons 10 a) (cons 40 (* 0.6 size))
                 (cons 1 (st:chainage dist)) (cons 50 normal))))

(defun st:along (e step size / dist end)
  (setq dist 0.0 end (st:length e))
  (while (< dist (- end 1e-6))
    (st:tick e dist size)
    (setq dist (+ dist step)))
  (st:tick e end size))

;; (station offset): offset positive to the left
(defun st:station (e pt / foot param d v side)
  (setq foot (vlax-curve-getClosestPointTo e pt)
        param (vlax-curve-getParamAtPoint e foot)
        d (st:tangent e param)
        v (mapcar '- pt foot)
        side (- (* (car d) (cadr v)) (* (cadr d) (car v))))
  (list (vlax-curve-getDistAtParam e param)
        (if (minusp side) (- (distance pt foot)) (distance pt foot))))

(defun c:STATIONS (/ e step doc)
  (vl-load-com)
  (setq doc (vla-get-activedocument (vlax-get-acad-object)))
  (vla-startundomark doc)
  (setq e (car (entsel "\nAxis: ")))
  (initget 7)
  (setq step (getreal "\nStep: "))
  (st:along e step 2.0)
  (vla-endundomark doc)
  (princ))

; -- the axis: straight for 50, a quarter circle of radius 100 to the left, straight for 42.92
(setvar "DIMZIN" 0)
(entmake (list '(0 . "LWPOLYLINE") '(100 . "AcDbEntity") '(8 . "AXIS") '(100 . "AcDbPolyline") '(90 . 4) '(70 . 0)
               '(10 0.0 0.0) '(10 50.0 0.0) (cons 42 (/ (sin (/ pi 8)) (cos (/ pi 8)))) '(10 150.0 100.0) '(10 150.0 142.92)))
(setq axis (entlast))
(equal (st:length axis) (+ 92.92 (* 50.0 pi)) 1e-9) ; => T
(answers "L" "50")
(c:stations)
(defun chainages (/ ss i l)
  (repeat (setq i (sslength (setq ss (ssget "X" '((0 . "TEXT") (8 . "STATIONS"))))))
    (setq l (cons (cdr (assoc 1 (entget (ssname ss (setq i (1- i)))))) l)))
  (vl-sort l '<))
(chainages) ; => ("0+000.00" "0+050.00" "0+100.00" "0+150.00" "0+200.00" "0+250.00")
(unused) ; => 0
; ticks stand at right angles to the axis: on the arc they point to its centre (50 100)
(defun tick (txt / e)
  (setq e (ssname (ssget "X" (list '(0 . "TEXT") (cons 1 txt))) 0))
  (cdr (assoc 10 (entget e))))
(equal (distance (tick "0+100.00") '(50.0 100.0 0.0)) 99.0 1e-9) ; => T
(equal (tick "0+250.00") '(149.0 142.92 0.0) 1e-2) ; => T
; stations of points beside it
(defun rounded (l) (mapcar '(lambda (x) (rtos x 2 3)) l))
(rounded (st:station axis '(20.0 5.0 0.0))) ; => ("20.000" "5.000")
(rounded (st:station axis '(50.0 -10.0 0.0))) ; => ("50.000" "-10.000")
(rounded (st:station axis (list (+ 50.0 (* 90.0 (sin (/ pi 4)))) (- 100.0 (* 90.0 (cos (/ pi 4)))) 0.0))) ; => ("128.540" "10.000")
(st:chainage 12345.678) ; => "12+345.68"
; one step back takes all ticks away
(progn (command "_.U") (ssget "X" '((8 . "STATIONS")))) ; => nil
