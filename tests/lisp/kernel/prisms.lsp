; Bodies of prisms: lists of (matrix region height).
(defun near (a b) (or (equal a b 1e-6) (list a b)))
(setq unit '((1.0 0.0 0.0 0.0) (0.0 1.0 0.0 0.0) (0.0 0.0 1.0 0.0) (0.0 0.0 0.0 1.0)))
(defun square (x y r) (kex_g_gvl (list (list (- x r) (- y r)) (list (+ x r) (- y r)) (list (+ x r) (+ y r)) (list (- x r) (+ y r))) T))
(defun round (x y r) (list (list (list (- x r) y) (list (+ x r) y) 1) (list (list (+ x r) y) (list (- x r) y) 1)))
(setq cube (kex_g_solid_extr (square 1 1 1) 2))
cube ; => ((((1.0 0.0 0.0 0.0) (0.0 1.0 0.0 0.0) (0.0 0.0 1.0 0.0) (0.0 0.0 0.0 1.0)) ((((0.0 0.0 0.0) (2.0 0.0 0.0) 0.0) ((2.0 0.0 0.0) (2.0 2.0 0.0) 0.0) ((2.0 2.0 0.0) (0.0 2.0 0.0) 0.0) ((0.0 2.0 0.0) (0.0 0.0 0.0) 0.0))) 2.0))
(kex_g_solid_vol cube) ; => (8.0 (1.0 1.0 1.0))
(kex_g_solid_ext cube) ; => ((0.0 0.0 0.0) (2.0 2.0 2.0))
(length (kex_g_solid_edges cube)) ; => 12
(mapcar '(lambda (p) (kex_g_solid_pt_inside cube p)) '((1 1 1) (2 1 1) (1 1 2) (1 1 2.1) (3 1 1))) ; => (1 0 0 -1 -1)
; a plate with a hole, downwards: the sense of the outlines does not matter
(setq plate (kex_g_solid_extr (list (reverse (mapcar '(lambda (v) (list (cadr v) (car v))) (square 0 0 10))) (round 5 0 3)) -4))
(near (car (kex_g_solid_vol plate)) (* 4 (- 400 (* 9 pi)))) ; => T
(near (cadr (kex_g_solid_vol plate)) (list (/ (* -45 pi) (- 400 (* 9 pi))) 0.0 -2.0)) ; => T
(list (kex_g_solid_pt_inside plate '(5 0 -1)) (kex_g_solid_pt_inside plate '(8 0 -1)) (kex_g_solid_pt_inside plate '(-5 0 -1)) (kex_g_solid_pt_inside plate '(-5 0 1))) ; => (-1 0 1 -1)
; four corners stand upright, the hole has 24 chords twice
(length (kex_g_solid_edges plate)) ; => 60
; a half disc has its centroid at 4r/3pi
(near (cadr (kex_g_solid_vol (kex_g_solid_extr '(((0 -3) (0 3) 1) ((0 3) (0 -3))) 1))) (list (/ 4 pi) 0.0 0.5)) ; => T
; what is missing of a disc more than half of one
(near (car (kex_g_solid_vol (kex_g_solid_extr '(((0 -3) (0 3) 3) ((0 3) (0 -3))) 2))) (* 2 25 0.5 (- (* 4 (atan 3)) (sin (* 4 (atan 3)))))) ; => T

; -- maps: equal scales, mirrored ones
(setq turned (kex_g_solid_mtx plate (kex_g_mtx_rot (/ pi 2) '(0 0 0) '(0 1 0))))
(near (kex_g_solid_ext turned) '((-4.0 -10.0 -10.0) (0.0 10.0 10.0))) ; => T
(near (car (kex_g_solid_vol (kex_g_solid_mtx plate (kex_g_mtx_scale 2)))) (* 8 (car (kex_g_solid_vol plate)))) ; => T
(near (kex_g_solid_vol (kex_g_solid_mtx plate (kex_g_mtx_mir '(0 0 0) '(0 1 0)))) (list (car (kex_g_solid_vol plate)) (mapcar '* '(-1 1 1) (cadr (kex_g_solid_vol plate))))) ; => T
(kex_g_solid_pt_inside (kex_g_solid_mtx plate (kex_g_mtx_mir '(0 0 0) '(0 1 0))) '(-5 0 -1)) ; => -1
(kex_g_solid_mtx plate (kex_g_mtx_scale '(1 2 1))) ; => nil
(kex_g_solid_mtx nil unit) ; => nil

; -- entities with a thickness
(setq rod (entmakex '((0 . "CIRCLE") (10 1.0 2.0 3.0) (40 . 2.0) (39 . 10.0) (210 0.0 0.0 -1.0))))
(near (kex_g_solid_ext (kex_g_solid_e rod)) '((-3.0 0.0 -13.0) (1.0 4.0 -3.0))) ; => T
(setq askew (entmakex '((0 . "CIRCLE") (10 1.0 2.0 3.0) (40 . 2.0) (39 . 10.0) (210 1.0 2.0 2.0))))
(near (car (kex_g_solid_vol (kex_g_solid_e askew))) (* 40 pi)) ; => T
(near (cadr (kex_g_solid_vol (kex_g_solid_e askew))) (trans '(1.0 2.0 8.0) askew 0)) ; => T
(kex_g_solid_e (entmakex '((0 . "LINE") (10 0.0 0.0 0.0) (11 1.0 0.0 0.0) (39 . 5.0)))) ; => nil

; -- what makes no body
(list (kex_g_solid_extr (square 0 0 1) 0) (kex_g_solid_extr '(((0 0) (1 0))) 1) (kex_g_solid_extr nil 1)) ; => (nil nil nil)
(kex_g_solid_vol nil) ; => (0.0 (0.0 0.0 0.0))
(kex_g_solid_ext nil) ; => nil
(kex_g_solid_extr "x" 1) ; ! kex_g_solid_extr: Argument 1 ist ungültig
(kex_g_solid_extr (square 0 0 1) 1 5) ; ! kex_g_solid_extr: Argument 3 ist ungültig
(kex_g_solid_vol '(1 2)) ; ! kex_g_solid_vol: Argument ist ungültig
(kex_g_solid_pt_inside cube "x") ; ! kex_g_solid_pt_inside: Argument 2 ist ungültig
