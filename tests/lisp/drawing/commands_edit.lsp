; Commands that cut, join, offset and stretch lines, arcs, circles and polylines.
(defun line (a b) (entmakex (list '(0 . "LINE") '(8 . "0") (cons 10 a) (cons 11 b))))
(defun get (e code) (cdr (assoc code (entget e))))
(defun ends (e) (list (get e 10) (get e 11)))
(defun all (e code / r) (foreach g (entget e) (if (= (car g) code) (setq r (cons (cdr g) r)))) (reverse r))
(defun near (a b) (equal a b 1e-9))
(defun kinds ( / s n r) (if (setq s (ssget "X")) (repeat (setq n (sslength s)) (setq r (cons (get (ssname s (setq n (1- n))) 0) r)))) (acad_strlsort r))
(defun clear () (command "_.ERASE" "_ALL" "") (setvar "CMDECHO" 0))
(defun poly (closed points) (apply 'command (append (list "_.PLINE") points (list (if closed "_C" "")))) (entlast))

; -- BREAK: between two points, at one point, to the end; circles counter-clockwise
(progn (clear) (setq a (line '(0.0 0.0 0.0) '(10.0 0.0 0.0))) (command "_.BREAK" (list a '(2 0 0)) '(5 1)) (list (ends a) (ends (entlast)))) ; => (((0.0 0.0 0.0) (2.0 0.0 0.0)) ((5.0 0.0 0.0) (10.0 0.0 0.0)))
(progn (command "_.BREAK" a "_F" '(1 0) "@") (list (length (kinds)) (ends a) (ends (entlast)))) ; => (3 ((0.0 0.0 0.0) (1.0 0.0 0.0)) ((1.0 0.0 0.0) (2.0 0.0 0.0)))
(progn (command "_.BREAK" '(7 0) '(12 0)) (get (ssname (ssget '(6 0)) 0) 11)) ; => (7.0 0.0 0.0)
(progn (clear) (command "_.CIRCLE" '(0 0) 2 "_.BREAK" "_L" "_F" '(2 0) '(0 2)) (list (kinds) (near (mapcar '(lambda (c) (get (entlast) c)) '(10 40 50 51)) (list '(0.0 0.0 0.0) 2.0 (/ pi 2) 0.0)))) ; => (("ARC") T)
(progn (clear) (setq p (poly nil '((0 0) (4 0) (4 4)))) (command "_.BREAK" (list p '(3 0 0)) '(4 1)) (list (all p 10) (all (entlast) 10) (kinds))) ; => (((0.0 0.0) (3.0 0.0)) ((4.0 1.0) (4.0 4.0)) ("LWPOLYLINE" "LWPOLYLINE"))
(progn (clear) (setq p (poly T '((0 0) (4 0) (4 4) (0 4)))) (command "_.BREAK" (list p '(1 0 0)) '(3 0)) (list (get p 70) (all p 10))) ; => (0 ((3.0 0.0) (4.0 0.0) (4.0 4.0) (0.0 4.0) (0.0 0.0) (1.0 0.0)))
(progn (clear) (command "_.TEXT" '(0 0) 2 0 "text") (command "_.BREAK" (list (entlast) '(0 0 0)) '(3 0))) ; ! Function cancelled

; -- TRIM: what is picked goes, up to the next edges; any object may be an edge
(progn (clear) (setq a (line '(0.0 0.0 0.0) '(10.0 0.0 0.0)) b (line '(3.0 -1.0 0.0) '(3.0 1.0 0.0)) c (line '(7.0 -1.0 0.0) '(7.0 1.0 0.0))) (command "_.TRIM" b c "" (list a '(5 0 0)) "") (list (ends a) (ends (entlast)))) ; => (((0.0 0.0 0.0) (3.0 0.0 0.0)) ((7.0 0.0 0.0) (10.0 0.0 0.0)))
(progn (command "_.TRIM" "" '(1 0) '(3 0.5) "") (list (length (kinds)) (ends b))) ; => (4 ((3.0 -1.0 0.0) (3.0 0.0 0.0)))
(progn (clear) (setq b (line '(-5.0 1.0 0.0) '(5.0 1.0 0.0))) (command "_.CIRCLE" '(0 0) 2) (command "_.TRIM" b "" (list (entlast) '(0 2 0)) "") (list (get (entlast) 0) (near (mapcar '(lambda (c) (get (entlast) c)) '(50 51)) (list (* pi (/ 5.0 6)) (/ pi 6))))) ; => ("ARC" T)
(progn (clear) (setq p (poly nil '((0 0) (4 0) (4 4) (0 4))) b (line '(2.0 -1.0 0.0) '(2.0 5.0 0.0))) (command "_.TRIM" b "" (list p '(4 2 0)) "") (list (all p 10) (all (entlast) 10))) ; => (((0.0 0.0) (2.0 0.0)) ((2.0 4.0) (0.0 4.0)))
(progn (clear) (setq b (line '(0.0 0.0 0.0) '(9.0 0.0 0.0)) a (line '(1.0 -1.0 0.0) '(1.0 2.0 0.0)) c (line '(2.0 -1.0 0.0) '(2.0 2.0 0.0))) (command "_.TRIM" b "" "_F" '(0 1) '(5 1) "" "") (list (ends a) (ends c))) ; => (((1.0 -1.0 0.0) (1.0 0.0 0.0)) ((2.0 -1.0 0.0) (2.0 0.0 0.0)))
(progn (command "_.EXTEND" b "" (list a '(1 0 0)) "") (setq d (line '(5.0 3.0 0.0) '(5.0 1.0 0.0))) (command "_.EXTEND" b "" (list d '(5 1.2 0)) "") (ends d)) ; => ((5.0 3.0 0.0) (5.0 0.0 0.0))
(progn (clear) (command "_.ARC" '(2 0) "_C" '(0 0) '(0 2)) (setq a (entlast) b (line '(-3.0 0.0 0.0) '(-1.0 0.0 0.0))) (command "_.EXTEND" b "" (list a '(0 2 0)) "") (near (get a 51) pi)) ; => T

; -- OFFSET: to the side of the point; corners meet again, round parts change their radius
(progn (clear) (setq a (line '(0.0 0.0 0.0) '(10.0 0.0 0.0))) (command "_.OFFSET" 2 a '(5 5) "") (list (ends (entlast)) (getvar "OFFSETDIST"))) ; => (((0.0 2.0 0.0) (10.0 2.0 0.0)) 2.0)
(progn (command "_.OFFSET" "_T" a '(3 -4) "") (ends (entlast))) ; => ((0.0 -4.0 0.0) (10.0 -4.0 0.0))
(progn (clear) (command "_.CIRCLE" '(0 0) 5) (setq c (entlast)) (command "_.OFFSET" 1 c '(0 0) c '(9 9) "") (list (get (entlast) 40) (kinds))) ; => (6.0 ("CIRCLE" "CIRCLE" "CIRCLE"))
(progn (clear) (setq p (poly T '((0 0) (10 0) (10 6) (0 6)))) (command "_.OFFSET" 1 p '(5 3) p '(-5 3) "") (near (all (entlast) 10) '((-1.0 -1.0) (11.0 -1.0) (11.0 7.0) (-1.0 7.0)))) ; => T
(progn (clear) (setq p (poly nil '((0 0) (10 0) "_A" (10 4) "_L" (0 4)))) (command "_.OFFSET" 1 p '(5 2) "") (list (near (all (entlast) 10) '((0.0 1.0) (10.0 1.0) (10.0 3.0) (0.0 3.0))) (near (all (entlast) 42) '(0.0 1.0 0.0 0.0)))) ; => (T T)
; a notch that the distance fills is gone, a bump is wider
(progn (clear) (setq p (poly nil '((0 0) (10 0) (10 -1) (11 -1) (11 0) (20 0)))) (command "_.OFFSET" 3 p '(5 5) "") (mapcar 'cadr (all (entlast) 10))) ; => (3.0 3.0 3.0)
(progn (clear) (setq p (poly nil '((0 0) (10 0) (10 1) (11 1) (11 0) (20 0)))) (command "_.OFFSET" 3 p '(5 5) "") (near (all (entlast) 10) '((0.0 3.0) (7.0 3.0) (7.0 4.0) (14.0 4.0) (14.0 3.0) (20.0 3.0)))) ; => T
(progn (clear) (command "_.CIRCLE" '(0 0) 5) (setq c (entlast)) (command "_.OFFSET" 6 c '(0 1) c '(9 9) "") (list (kinds) (get (entlast) 40)))  ; => (("CIRCLE" "CIRCLE") 11.0)
(progn (clear) (command "_.-LAYER" "_M" "OTHER" "") (entmake '((0 . "LINE") (8 . "0") (10 0.0 0.0 0.0) (11 9.0 0.0 0.0))) (setq a (entlast)) (command "_.OFFSET" "_L" "_C" 1 a '(0 5) "") (setq b (entlast)) (command "_.OFFSET" "" a '(0 -5) "") (setvar "CLAYER" "0") (list (get b 8) (get (entlast) 8))) ; => ("OTHER" "0")

; -- FILLET: the sides that were picked stay; radius 0 makes a corner
(progn (command) (clear) (setq a (line '(0.0 0.0 0.0) '(9.0 0.0 0.0)) b (line '(4.0 1.0 0.0) '(4.0 8.0 0.0))) (command "_.FILLET" "_R" 0 (list a '(1 0 0)) (list b '(4 5 0))) (list (ends a) (ends b) (kinds))) ; => (((0.0 0.0 0.0) (4.0 0.0 0.0)) ((4.0 0.0 0.0) (4.0 8.0 0.0)) ("LINE" "LINE"))
(progn (command "_.FILLET" "_R" 2 (list a '(1 0 0)) (list b '(4 5 0))) (list (near (ends a) '((0.0 0.0 0.0) (2.0 0.0 0.0))) (near (ends b) '((4.0 2.0 0.0) (4.0 8.0 0.0))) (near (mapcar '(lambda (c) (get (entlast) c)) '(10 40 50 51)) (list '(2.0 2.0 0.0) 2.0 (* 1.5 pi) 0.0)))) ; => (T T T)
(progn (clear) (setq p (poly T '((0 0) (10 0) (10 6) (0 6)))) (command "_.FILLET" "_R" 1 "_P" p) (list (get p 90) (near (apply '+ (all p 42)) (* 4 (- (sqrt 2.0) 1))))) ; => (8 T)
(progn (clear) (setq a (line '(0.0 0.0 0.0) '(9.0 0.0 0.0)) b (line '(0.0 1.0 0.0) '(9.0 1.0 0.0))) (command "_.FILLET" a b)) ; ! Function cancelled

; -- STRETCH: what stands in the window moves, the rest stays
(progn (clear) (setq a (line '(0.0 0.0 0.0) '(10.0 0.0 0.0)) p (poly T '((0 2) (10 2) (10 6) (0 6)))) (command "_.CIRCLE" '(9 4) 0.5) (setq c (entlast)) (command "_.STRETCH" "_C" '(12 -1) '(8 7) "" '(0 0) '(5 0)) (list (ends a) (all p 10) (get c 10))) ; => (((0.0 0.0 0.0) (15.0 0.0 0.0)) ((0.0 2.0) (15.0 2.0) (15.0 6.0) (0.0 6.0)) (14.0 4.0 0.0))
(command "_.STRETCH" a "" '(0 0) '(1 0))                  ; ! Function cancelled

; -- PEDIT: lines become polylines and are joined, closed, given a width, turned
(progn (clear) (setq a (line '(0.0 0.0 0.0) '(4.0 0.0 0.0)) b (line '(4.0 3.0 0.0) '(4.0 0.0 0.0)) c (line '(9.0 9.0 0.0) '(8.0 8.0 0.0))) (command "_.PEDIT" a "_Y" "_J" b c "" "_W" 0.5 "") (setq p (entlast)) (list (kinds) (all p 10) (get p 43) (get p 70))) ; => (("LINE" "LWPOLYLINE") ((0.0 0.0) (4.0 0.0) (4.0 3.0)) 0.5 0)
(progn (command "_.PEDIT" p "_C" "_X") (get p 70))        ; => 1
(progn (command "_.PEDIT" p "_O" "_R" "_L" "_ON" "") (list (get p 70) (all p 10))) ; => (128 ((4.0 3.0) (4.0 0.0) (0.0 0.0)))
(progn (clear) (setvar "PEDITACCEPT" 1) (command "_.ARC" '(1 0) '(0 1) '(-1 0) "_.LINE" '(-1 0) '(1 0) "" "_.PEDIT" "_M" "_ALL" "" "_J" "" "") (setvar "PEDITACCEPT" 0) (list (kinds) (get (entlast) 70) (near (apply '+ (mapcar 'atan (all (entlast) 42))) (atan 1.0)))) ; => (("LWPOLYLINE") 1 T)
