; OFFBOTH, STRIP: parallels on both sides of curves, by several distances, on a layer of their own;
; and closed strips of a width along open polylines. Old manner: globals with defaults that are
; offered again, command with everything.

(if (null ob:dist) (setq ob:dist 10.0))
(if (null ob:layer) (setq ob:layer ""))

(defun ob:ask-distances (/ s d out)
  (setq s (getstring (strcat "\nDistances, apart by commas <" (rtos ob:dist 2 2) ">: ")))
  (if (= s "")
    (list ob:dist)
    (progn
      (while (/= s "")
        (setq d (atof s))
        (if (> d 0.0) (setq out (cons d out)))
        (while (and (/= s "") (/= (substr s 1 1) ",")) (setq s (substr s 2)))
        (setq s (substr s 2)))
      (if out (setq ob:dist (last out)))
      (reverse out))))

;; A point beside the middle of a curve: left for a side of 1, right for -1.
(defun ob:beside (e side dist / p d)
  (setq p (/ (+ (vlax-curve-getStartParam e) (vlax-curve-getEndParam e)) 2.0)
        d (vlax-curve-getFirstDeriv e p))
  (polar (vlax-curve-getPointAtParam e p)
         (+ (angle '(0.0 0.0) d) (* side (/ pi 2.0)))
         dist))

;; The parallel, moved to the layer; nil when there is none, as inside a circle that is too small.
(defun ob:offset (e side dist / before)
  (setq before (entlast))
  (command "_.OFFSET" dist (list e (vlax-curve-getStartPoint e)) "_NON" (ob:beside e side (* 0.5 dist)) "")
  (if (not (eq before (entlast)))
    (progn
      (if (/= ob:layer "") (command "_.CHPROP" "_L" "" "_LA" ob:layer ""))
      (entlast))))

(defun ob:layer-ready (name)
  (if (and (/= name "") (not (tblsearch "LAYER" name)))
    (command "_.LAYER" "_NEW" name "_COLOR" "8" name "_LTYPE" "CONTINUOUS" name "")))

(defun c:OFFBOTH (/ *error* ss i e d made olds)
  (defun *error* (msg)
    (command)
    (while olds (setvar (caar olds) (cdar olds)) (setq olds (cdr olds)))
    (command "_.UNDO" "_E")
    (princ msg) (princ))
  (foreach v '("CMDECHO" "OSMODE" "OFFSETDIST") (setq olds (cons (cons v (getvar v)) olds)))
  (command "_.UNDO" "_BE")
  (setvar "CMDECHO" 0)
  (setq ds (ob:ask-distances)
        ob:layer (getstring "\nLayer <as the curve>: "))
  (ob:layer-ready ob:layer)
  (prompt "\nCurves: ")
  (if (setq ss (ssget '((0 . "LINE,ARC,CIRCLE,LWPOLYLINE,ELLIPSE"))))
    (progn
      (setq i -1 made 0)
      (while (setq e (ssname ss (setq i (1+ i))))
        (foreach d ds
          (foreach side '(1 -1)
            (if (ob:offset e side d) (setq made (1+ made))))))))
  (foreach pair olds (setvar (car pair) (cdr pair)))
  (command "_.UNDO" "_E")
  made)

(defun ob:points (e / out)
  (foreach g (entget e) (if (= 10 (car g)) (setq out (cons (list (cadr g) (caddr g)) out))))
  (reverse out))

;; A strip of the width with the polyline as its middle: both parallels, joined.
(defun c:STRIP (/ pick w a b pts)
  (setvar "CMDECHO" 0)
  (initget 1 "Width")
  (setq pick (entsel "\nPolyline or [Width]: "))
  (if (= pick "Width")
    (progn
      (initget 6)
      (if (setq w (getreal (strcat "\nWidth <" (rtos ob:dist) ">: "))) (setq ob:dist w))
      (setq pick (entsel "\nPolyline: "))))
  (setq ob:layer "")
  (if (and pick (not (vlax-curve-isClosed (car pick))))
    (progn
      (setq a (ob:offset (car pick) 1 (/ ob:dist 2.0))
            b (ob:offset (car pick) -1 (/ ob:dist 2.0))
            pts (append (ob:points a) (reverse (ob:points b))))
      (entdel a) (entdel b)
      (command "_.PLINE")
      (apply 'command pts)
      (command "_C")
      (setvar "CMDECHO" 1)
      (entlast))))

; -- a line, a circle, an open polyline with a corner
(setvar "OFFSETDIST" 1.5)
(entmake '((0 . "LINE") (10 0.0 0.0 0.0) (11 100.0 0.0 0.0)))
(entmake '((0 . "CIRCLE") (10 50.0 50.0 0.0) (40 . 4.0)))
(progn (answers "3,5" "AXES" "ALL" "") (c:offboth)) ; => 7
(mapcar 'getvar '("CMDECHO" "OFFSETDIST" "OSMODE")) ; => (1 1.5 4133)
(defun values (kind code / ss i out)
  (setq ss (ssget "_X" (list (cons 0 kind) '(8 . "AXES"))) i 0)
  (repeat (sslength ss) (setq out (cons (cdr (assoc code (entget (ssname ss i)))) out) i (1+ i)))
  out)
(mapcar 'cadr (values "LINE" 10)) ; => (3.0 -3.0 5.0 -5.0)
(vl-sort (values "CIRCLE" 40) '<) ; => (1.0 7.0 9.0)
(cdr (assoc 62 (tblsearch "LAYER" "axes"))) ; => 8
(progn (command "_.U") (list (ssget "_X" '((8 . "AXES"))) (sslength (ssget "_X")))) ; => (nil 2)
; the distance is offered again
(progn (answers "" "" "L" "") (list (c:offboth) ob:dist)) ; => (2 3.0)

(command "_.ERASE" "_ALL" "")
(command "_.PLINE" "0,0" "20,0" "20,10" "")
(progn (answers "w" "4" "L") (setq strip (c:strip)) (list (vlax-curve-isClosed strip) (vlax-curve-getArea strip))) ; => (T 120.0)
(ob:points strip) ; => ((0.0 2.0) (18.0 2.0) (18.0 10.0) (22.0 10.0) (22.0 -2.0) (0.0 -2.0))
(sslength (ssget "_X")) ; => 2
; a closed one is not taken
(progn (answers "L") (c:strip)) ; => nil
