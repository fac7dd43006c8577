; Points, intersections, lines, arches and shapes as LISP programs call them.
(defun near (a b) (equal a b 1e-6))
(setq o '(0 0) x '(1 0) y '(0 1))

; -- points
(list (kex_g_p_mrx '(1 2 3)) (kex_g_p_mry '(1 2 3)) (kex_g_p_xy '(1 2 3))) ; => ((-1.0 2.0 3.0) (1.0 -2.0 3.0) (1.0 2.0 0.0))
(list (kex_g_p_mov '(1 2) '(3 4 5)) (kex_g_p_nrm '(0 3 4)) (kex_g_p_nrm '(1e-13 0))) ; => ((4.0 6.0 5.0) (0.0 0.6 0.8) (0.0 0.0 0.0))
(near (list (kex_g_p_dist_w o '(3 4) (/ pi 2)) (kex_g_p_dist_w1 o '(3 4) (/ pi 2)) (kex_g_p_dist_2d '(0 0 9) '(3 4)))
      '(4 -3 5))                 ; => T
(kex_g_p_mtx '(1 2 3) '((0 -1 0 10) (1 0 0 20) (0 0 1 30) (0 0 0 1))) ; => (8.0 21.0 33.0)
(kex_g_p_mtx x '((1 0 0 0) (0 1 0 0) (0 0 1 0))) ; ! kex_g_p_mtx: Argument 2 ist ungültig
(kex_g_p_mtx x '((1 0 0 0) (0 1 0 0) (0 0 1 0) (0 0 1 1))) ; ! kex_g_p_mtx: Argument 2 ist ungültig
; stretched are points beyond the line, not those on it
(list (kex_g_p_stretch '(5 7) '(4 0) 0 10) (kex_g_p_stretch '(4 7) '(4 0) 0 10)) ; => ((15.0 7.0 0.0) (4.0 7.0 0.0))
(list (kex_g_p_mov_vc o 1) (kex_g_p_mov_vc o 1 nil 3) (kex_g_p_mov_vc o)) ; => ((1.0 0.0 0.0) (1.0 0.0 3.0) nil)
(kex_g_p_mov_vc o "1")           ; ! kex_g_p_mov_vc: Argument 2 ist ungültig
(kex_g_p_trans3p '(10 12 1) '(10 10) '(10 20) '(0 10)) ; => (2.0 0.0 1.0)
(kex_g_p_trans3p '(2 0 1) '(10 10) '(10 20) '(0 10) T) ; => (10.0 12.0 1.0)
(kex_g_p_trans3p '(5 5) o x '(7 0)) ; => (5.0 5.0 0.0)

; -- intersections: with a line in its order, of circles first on the left
(kex_g_int_cl o 5 '(-9 3) '(9 3)) ; => ((-4.0 3.0 0.0) (4.0 3.0 0.0))
(kex_g_int_cl o 5 '(9 3) '(8 3)) ; => ((4.0 3.0 0.0) (-4.0 3.0 0.0))
(list (kex_g_int_cl o 5 '(0 5) '(1 5)) (kex_g_int_cl o 5 '(0 5.00005) '(1 5.00005)) (kex_g_int_cl o 5 '(0 5.001) '(1 5.001)))
; => (((0.0 5.0 0.0)) ((0.0 5.00005 0.0)) nil)
(list (kex_g_int_cl o 0 x y) (kex_g_int_cl o -5 '(-9 3) '(9 3)) (kex_g_int_cl o 5 x x)) ; => (nil nil nil)
(kex_g_int_cl o 5 x 3)           ; ! kex_g_int_cl: Argument 4 ist ungültig
; arcs: through the X axis, ends included
(kex_g_int_al o 5 (* 1.5 pi) (/ pi 2) '(-9 3) '(9 3)) ; => ((4.0 3.0 0.0))
(near (kex_g_int_al o 5 0 (/ pi 2) '(5 -9) '(5 9)) '((5 0 0))) ; => T
(kex_g_int_al o 5 1 1 '(-9 3) '(9 3)) ; => nil
(near (kex_g_int_cc o 5 '(6 0) 5) '((3 4 0) (3 -4 0))) ; => T
(list (kex_g_int_cc o 5 '(8 0) 3) (kex_g_int_cc o 5 '(2 0) 3) (kex_g_int_cc '(2 0) 3 o 5)) ; => (((5.0 0.0 0.0)) ((5.0 0.0 0.0)) ((5.0 0.0 0.0)))
(list (kex_g_int_cc o 5 o 3) (kex_g_int_cc o 5 o 5) (kex_g_int_cc o 5 '(9 0) 3) (kex_g_int_cc o 5 x 3)) ; => (nil nil nil nil)
(near (kex_g_int_ca o 5 '(6 0) 5 pi (* 1.5 pi)) '((3 -4 0))) ; => T
(near (kex_g_int_aa o 5 0 (/ pi 2) '(6 0) 5 (/ pi 2) pi) '((3 4 0))) ; => T
(kex_g_int_aa o 5 pi (* 2 pi) '(6 0) 5 (/ pi 2) pi) ; => nil
(kex_g_int_aa o 5 0 1 '(6 0) 5 0) ; ! kex_g_int_aa: Argument 8 ist ungültig
(kex_g_int_ll o '(4 4 4) '(0 4) '(4 0)) ; => (2.0 2.0 2.0)
(list (kex_g_int_ll o x '(3 1) '(3 2)) (kex_g_int_ll o x '(3 1) '(3 2) T) (kex_g_int_ll o x '(0 1) '(1 1))) ; => ((3.0 0.0 0.0) nil nil)

; -- feet and points on curves
(list (kex_g_lotp '(3 4) o '(9 0)) (kex_g_lotp '(0 0 4) o '(0 1 1)) (kex_g_lotp x o o)) ; => ((3.0 0.0 0.0) (0.0 2.0 2.0) nil)
(near (kex_g_lot '(3 4) o '(9 0)) (* 1.5 pi)) ; => T
(list (kex_g_lot '(3 0) o '(9 0)) (kex_g_lot x o o)) ; => (nil nil)
(list (kex_g_ispt o '(4 0) '(4.00005 0)) (kex_g_ispt o '(4 0) '(2 0.001)) (kex_g_ispt o '(4 0) '(5 0)) (kex_g_ispt x x x))
; => ((4.00005 0.0 0.0) nil nil (1.0 0.0 0.0))
(list (kex_g_isapt o 5 0 (/ pi 2) '(3 4)) (kex_g_isapt o 5 0 (/ pi 2) '(5 -0.00005)) (kex_g_isapt o 5 0 (/ pi 2) '(3 -4)) (kex_g_isapt o 5 0 0 '(5 0)))
; => ((3.0 4.0 0.0) (5.0 -5.0e-005 0.0) nil nil)

; -- lines
(list (kex_g_equal o '(0.00005 0)) (kex_g_equal o '(0.001 0)) (kex_g_equal o x 1) (kex_g_equal o '(0 0 1))) ; => (T nil T nil)
(kex_g_equal o x "1")            ; ! kex_g_equal: Argument 3 ist ungültig
(list (kex_g_side o x '(5 1)) (kex_g_side o x '(5 -1)) (kex_g_side o x '(5 0.00005)) (kex_g_side o o y)) ; => (1 -1 0 0)
(list (kex_g_line_dist '(0 3 4) o x) (kex_g_line_dist '(3 4) o o)) ; => (5.0 5.0)
(kex_g_line_near o x '(3 5 2) '(3 6 2)) ; => ((3.0 0.0 0.0) (3.0 0.0 2.0))
(kex_g_line_near o x '(0 1) '(5 1)) ; => nil
(list (kex_g_line_par o '(4 0 1) 2) (kex_g_line_par o '(0 0 1) 2)) ; => (((0.0 2.0 0.0) (4.0 2.0 1.0)) nil)
; mitres: at a corner, square where the path goes on, none where it turns back
(kex_g_line_gehr o '(10 0) '(10 10) 2 3) ; => ((10.0 0.0 0.0) (7.0 2.0 0.0))
(list (kex_g_line_gehr o '(10 0) '(20 0) 2 2) (kex_g_line_gehr o '(10 0) '(20 0) 2 3) (kex_g_line_gehr o '(10 0) o 2 2))
; => (((10.0 0.0 0.0) (10.0 2.0 0.0)) nil nil)

; -- tangents
(near (kex_g_tang_pc '(-5 0) o 3) '((-1.8 2.4 0) (-1.8 -2.4 0))) ; => T
(list (kex_g_tang_pc '(3 0) o 3) (kex_g_tang_pc x o 3)) ; => (((3.0 0.0 0.0)) nil)
(near (kex_g_tang_cc o 1 '(4 0) 1) (list '((0 1 0) (4 1 0)) '((0 -1 0) (4 -1 0))
      (list (list 0.5 (sqrt 0.75) 0) (list 3.5 (- (sqrt 0.75)) 0)) (list (list 0.5 (- (sqrt 0.75)) 0) (list 3.5 (sqrt 0.75) 0)))) ; => T
(mapcar '(lambda (c r) (length (kex_g_tang_cc o 2 c r))) '((3 0) (3 0) (1 0) (0 0)) '(1 2 1 1)) ; => (2 2 0 0)
(near (kex_g_tang_ll o '(10 0) '(10 10) 2) (list '(8 0 0) '(10 2 0) (kex_g_ang_bulg (/ pi 2)))) ; => T
(list (kex_g_tang_ll o x '(2 0) 1) (kex_g_tang_ll o x y 0)) ; => (nil nil)

; -- ellipses: directions from the centre
(near (kex_g_elps_p '(1 1) 4 2 (/ pi 2) (/ pi 2)) '(1 5 0)) ; => T
(near (list (kex_g_elps_r 4 2 0) (kex_g_elps_r 4 2 (/ pi 2)) (kex_g_elps_r 0 2 1)) '(4 2 0)) ; => T
(near (list (kex_g_elps_w 4 2 0 0 1) (kex_g_elps_w 4 2 0 0 -1) (kex_g_elps_w 3 3 1 2 0))
      (list (/ pi 2) (* 1.5 pi) (+ 2 (/ pi 2)))) ; => T

; -- basket handles over span 200 and rise 60; three centres and five
(near (list (kex_g_korb_3m 200 60) (kex_g_korb_r 200 60 (kex_g_korb_3m 200 60)) (kex_g_korb_r2 200 60 152.206346))
      '(44.676192 152.206346 44.676192)) ; => T
(near (kex_g_korb_5m 200 60) '(36 (-64 0 0) (-29.066144 -22.327778 0) (0 -106.666667 0) (29.066144 -22.327778 0) (64 0 0))) ; => T
(list (kex_g_korb_5m 200 0) (kex_g_korb_3m 0 60) (kex_g_korb_r 200 60 60) (kex_g_korb_r2 200 60 100) (kex_g_korb_r 200 100 7)) ; => (nil 0.0 0.0 0.0 100.0)
; a half circle has all its centres in one
(kex_g_korb_5m 200 100)          ; => (100.0 (0.0 0.0 0.0) (0.0 0.0 0.0) (0.0 0.0 0.0) (0.0 0.0 0.0) (0.0 0.0 0.0))

; -- the rail that changes its level
(near (list (kex_g_fries_w 300 100 50) (kex_g_fries_r 300 100 50) (kex_g_fries_r 300 -100 50) (kex_g_fries_r 300 0 50))
      '(0.556599318 243.75 0 0)) ; => T
(setq rail (kex_g_fries_2r 300 100 200 50))
(list (length rail) (cadr (last rail)) (near (kex_g_vl_len rail) (+ 50 (* 2 243.75 0.556599318)))) ; => (3 (300.0 100.0 0.0) T)
(list (length (kex_g_fries_2r 300 100 487.5 50)) (kex_g_fries_2r 300 100 488 50) (kex_g_fries_2r 300 0 9) (length (kex_g_fries_2r 300 -100 200)))
; => (2 nil nil 2)

; -- shapes
(kex_g_mk_rect '(1 2 3) 4 5)
; => (((1.0 2.0 3.0) (5.0 2.0 3.0) 0.0) ((5.0 2.0 3.0) (5.0 7.0 3.0) 0.0) ((5.0 7.0 3.0) (1.0 7.0 3.0) 0.0) ((1.0 7.0 3.0) (1.0 2.0 3.0) 0.0))
(mapcar '(lambda (r) (length (kex_g_mk_rect o 4 2 0.5 r))) '(0.5 1.0 1.00005 1.001 -1)) ; => (8 6 6 0 0)
(near (kex_g_vl_len (kex_g_mk_rect o 4 4 nil 2)) (* 4 pi)) ; => T
(kex_g_mk_circ o 2)              ; => (((2.0 0.0 0.0) (-2.0 0.0 0.0) 1.0) ((-2.0 0.0 0.0) (2.0 0.0 0.0) 1.0))
(kex_g_mk_slot o '(4 0) 2)
; => (((0.0 -1.0 0.0) (4.0 -1.0 0.0) 0.0) ((4.0 -1.0 0.0) (4.0 1.0 0.0) 1.0) ((4.0 1.0 0.0) (0.0 1.0 0.0) 0.0) ((0.0 1.0 0.0) (0.0 -1.0 0.0) 1.0))
(list (length (kex_g_mk_slot x x 2)) (kex_g_mk_slot o x 0)) ; => (2 nil)
(near (list (kex_g_vl_len (kex_g_mk_neck o 6 1)) (kex_g_vl_len (kex_g_mk_neck o 4 1 0 T))) '(6 8)) ; => T
(list (kex_g_mk_neck o 2 1) (kex_g_mk_neck o 2000000000 1)) ; => (nil nil)
(list (length (kex_g_mk_elps o 100 100)) (length (kex_g_mk_elps o 100 60)) (length (kex_g_mk_elps o 100 60 0 3.2)) (kex_g_mk_elps o 0 1)) ; => (4 32 4 nil)

; -- equal division: fields of at most 120 clear between bars of 12
(list (kex_g_teil_n 1000 120 12) (kex_g_teil_n 240 120) (kex_g_teil_n 240.001 120) (kex_g_teil_n 240.01 120) (kex_g_teil_n 100 120) (kex_g_teil_n 0 120))
; => (8 2 2 3 1 0)
(kex_g_teil_pts o '(300 0) 3 30) ; => ((95.0 0.0 0.0) (205.0 0.0 0.0))
(list (kex_g_teil_pts o x 1) (kex_g_teil_pts o x 3 1) (kex_g_teil_pts o x 2000000000)) ; => (nil nil nil)
