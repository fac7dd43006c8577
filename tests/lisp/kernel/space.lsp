; Vectors, planes, matrices, elevations.
(defun near (a b) (equal a b 1e-9))
(setq o '(0 0 0) x '(1 0 0) y '(0 1 0) z '(0 0 1))
(setq floor (list o z) wall (list '(5 0 0) x))

; -- vectors
(list (kex_g_vc_cross x y) (kex_g_vc_dot '(1 2 3) '(4 5 6)) (kex_g_vc_len '(2 3 6))) ; => ((0.0 0.0 1.0) 32.0 7.0)
(near (list (kex_g_vc_ang x y) (kex_g_vc_ang x y '(0 0 -2)) (kex_g_vc_ang x '(-1 0 5) z) (kex_g_vc_ang o x))
      (list (/ pi 2) (/ pi -2) pi 0)) ; => T
(kex_g_vc_ang z x z)             ; => 0.0
(near (kex_g_vc_rot '(1 0 5) '(0 0 9) (/ pi 2)) '(0 1 5)) ; => T
(kex_g_vc_rot '(1 2 3) o 1)      ; => (1.0 2.0 3.0)
(list (kex_g_vc_par x '(5 1e-7 0)) (kex_g_vc_par x '(-5 0 0)) (kex_g_vc_par x '(1 1e-5 0)) (kex_g_vc_par x o)) ; => (1 -1 0 0)
(kex_g_vc_ang x y "z")           ; ! kex_g_vc_ang: Argument 3 ist ungültig
(kex_g_vc_len 3)                 ; ! kex_g_vc_len: Argument ist ungültig

; -- planes; a matrix stands for its XY plane
(list (kex_g_plan_3p '(0 0 5) '(1 0 5) '(0 1 5)) (kex_g_plan_3p o x '(3 0 0)) (kex_g_plan_3p o o x)) ; => (((0.0 0.0 5.0) (0.0 0.0 1.0)) nil nil)
(list (kex_g_plan_dist '(1 2 3) floor) (kex_g_plan_dist '(1 2 3) '((0 0 1) (0 0 -2))) (kex_g_plan_dist '(1 2 3) (kex_g_mtx_move '(0 0 1))))
; => (3.0 -2.0 2.0)
(kex_g_plan_dist o (list o o))   ; ! kex_g_plan_dist: Argument 2 ist ungültig
(list (kex_g_plan_proj '(1 2 3) floor) (kex_g_plan_proj '(1 2 3) floor '(1 0 1)) (kex_g_plan_proj '(1 2 3) floor x)) ; => ((1.0 2.0 0.0) (-2.0 2.0 0.0) nil)
(list (kex_g_plan_int_l floor '(0 0 2) '(1 1 1)) (kex_g_plan_int_l floor '(0 0 2) '(1 1 1) T) (kex_g_plan_int_l floor z '(9 9 1)))
; => ((2.0 2.0 0.0) nil nil)
(list (kex_g_plan_int wall floor) (kex_g_plan_int floor (list '(0 0 7) z))) ; => (((5.0 0.0 0.0) (5.0 -1.0 0.0)) nil)
(near (list (kex_g_plan_ang floor wall) (kex_g_plan_ang floor wall y) (kex_g_plan_ang floor wall '(0 -1 0)))
      (list (/ pi 2) (/ pi 2) (/ pi -2))) ; => T
(list (kex_g_plan_equal floor '((9 9 0) (0 0 -1))) (kex_g_plan_equal floor '((9 9 0) (0 0 -1)) T) (kex_g_plan_equal floor '((9 9 0.001) (0 0 1))) (kex_g_plan_equal floor wall))
; => (T nil nil nil)
(kex_g_plan_mtx wall)            ; => ((0.0 0.0 1.0 5.0) (1.0 0.0 0.0 0.0) (0.0 1.0 0.0 0.0) (0.0 0.0 0.0 1.0))
(list (caddr (kex_g_plan_mtx wall '(3 0 2))) (kex_g_plan_mtx wall '(-4 0 0))) ; => ((1.0 0.0 0.0 0.0) nil)

; -- matrices
(kex_g_mtx_unit)                 ; => ((1.0 0.0 0.0 0.0) (0.0 1.0 0.0 0.0) (0.0 0.0 1.0 0.0) (0.0 0.0 0.0 1.0))
(kex_g_p_mtx x (kex_g_mtx_move '(1 2 3))) ; => (2.0 2.0 3.0)
(near (kex_g_p_mtx '(2 0 7) (kex_g_mtx_rot (/ pi 2) x)) '(1 1 7)) ; => T
(near (kex_g_p_mtx y (kex_g_mtx_rot (/ pi 2) nil x)) z) ; => T
(kex_g_mtx_rot 1 o o)            ; => nil
(list (kex_g_p_mtx '(3 4 5) (kex_g_mtx_scale 2 x)) (kex_g_p_mtx '(3 4 5) (kex_g_mtx_scale '(1 0.5 -1)))) ; => ((5.0 8.0 10.0) (3.0 2.0 -5.0))
(kex_g_mtx_scale "2")            ; ! kex_g_mtx_scale: Argument 1 ist ungültig
(list (kex_g_p_mtx '(3 4 5) (kex_g_mtx_mir '(0 7) '(9 7))) (kex_g_mtx_mir x '(1 0 5)) (kex_g_mtx_mir o x '(2 0 0))) ; => ((3.0 10.0 5.0) nil nil)
(kex_g_p_mtx '(3 4 5) (kex_g_mtx_mir z '(1 0 1) '(0 1 1))) ; => (3.0 4.0 -3.0)
; the last factor acts first
(setq turn (kex_g_mtx_rot (/ pi 2)) shift (kex_g_mtx_move '(10 0)))
(near (list (kex_g_p_mtx x (kex_g_mtx_mul shift turn)) (kex_g_p_mtx x (kex_g_mtx_mul turn shift))) '((10 1 0) (0 11 0))) ; => T
(kex_g_mtx_equal (kex_g_mtx_mul shift turn (kex_g_mtx_inv turn) (kex_g_mtx_inv shift)) (kex_g_mtx_unit)) ; => T
(kex_g_mtx_mul shift turn 3)     ; ! kex_g_mtx_mul: Argument 3 ist ungültig
(kex_g_mtx_mul)                  ; ! kex_g_mtx_mul: Argument 1 ist ungültig
(list (kex_g_mtx_inv (kex_g_mtx_scale 1e-5)) (kex_g_mtx_is_mir (kex_g_mtx_scale -1)) (kex_g_mtx_is_mir turn)) ; => (nil T nil)
(list (kex_g_mtx_vc x (kex_g_mtx_mul shift (kex_g_mtx_scale 3))) (kex_g_mtx_axis shift 0) (kex_g_mtx_axis shift 2) (kex_g_mtx_axis shift 4))
; => ((3.0 0.0 0.0) (10.0 0.0 0.0) (0.0 1.0 0.0) nil)
(near (kex_g_mtx_3p '(1 1 0) '(1 5 0) '(0 1 0)) '((0 -1 0 1) (1 0 0 1) (0 0 1 0) (0 0 0 1))) ; => T
(kex_g_mtx_3p o x '(7 0 0))      ; => nil
(car (kex_g_mtx_axes '(7 8 9) '(2 0 0) '(0 3 0))) ; => (2.0 0.0 0.0 7.0)
(caddr (kex_g_mtx_axes '(7 8 9) '(2 0 0) '(0 3 0))) ; => (0.0 0.0 6.0 9.0)
(car (kex_g_mtx_ocs '(0 0 -2) '(1 2 3))) ; => (-1.0 0.0 0.0 1.0)
(kex_g_mtx_ocs o)                ; => nil
(list (kex_g_mtx_equal shift (kex_g_mtx_move '(10.00005 0))) (kex_g_mtx_equal shift (kex_g_mtx_move '(10.001 0)))) ; => (T nil)
(progn (setvar "CMDECHO" 0) (equal (kex_g_mtx_ucs) (kex_g_mtx_unit))) ; => T
(equal (kex_g_mtx_ucs T) (kex_g_mtx_unit)) ; => T

; -- elevations: the sheet has x to the right, y up, z towards the viewer
(defun seen (view) (kex_g_p_mtx '(1 2 3) (kex_g_elev_mtx view)))
(mapcar 'seen '("V" "H" "L" "R" "D" "U")) ; => ((1.0 3.0 -2.0) (-1.0 3.0 2.0) (-2.0 3.0 -1.0) (2.0 3.0 1.0) (1.0 2.0 3.0) (1.0 -2.0 -3.0))
(near (seen (/ pi 2)) (seen "V")) ; => T
(kex_g_p_mtx '(5 5 5) (kex_g_elev_mtx "H" '(5 5 5))) ; => (0.0 0.0 0.0)
(mapcar '(lambda (v) (kex_g_elev_view (kex_g_elev_mtx v '(1 2 3)))) (list "V" "H" "L" "R" "D" "U" pi 1.0)) ; => ("V" "H" "L" "R" "D" "U" "R" nil)
(kex_g_elev_mtx "X")             ; => nil
(kex_g_elev_mtx nil)             ; ! kex_g_elev_mtx: Argument 1 ist ungültig
