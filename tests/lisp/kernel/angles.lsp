; Angles, bulges, arcs and rounding as LISP programs call them.
(defun near (a b) (equal a b 1e-9))
(setq o '(0 0) x '(1 0) y '(0 1))

; -- directions: 0 up to, not including, a full turn
(mapcar 'kex_g_ang (list 0 (- pi) (* 2 pi) -1e-12)) ; => (0.0 3.14159 0.0 0.0)
(kex_g_ang "0")                  ; ! kex_g_ang: Argument ist ungültig
(kex_g_ang)                      ; ! kex_g_ang: Argument ist ungültig
; the angle at the second point: without sense, counter-clockwise, signed; the turn of the path
(near (list (kex_g_ang_abs y o x) (kex_g_ang_dif y o x) (kex_g_ang_dif1 y o x) (kex_g_ang_dif2 o x '(1 -1)))
      (list (/ pi 2) (* 1.5 pi) (/ pi -2) (/ pi -2))) ; => T
(kex_g_ang_abs '(0 0 1) '(0 0 0) '(0 0 -1)) ; => 3.14159
(kex_g_ang_abs o o x)            ; => 0.0
; a half turn is always positive
(near (list (kex_g_ang_dif1 '(-1 0) o x) (kex_g_ang_dif1 x o '(-1 0)) (kex_g_ang_dif3 pi 0)
            (kex_g_ang_dif3 0.5 (- 0.5 pi)))
      (list pi pi pi pi))        ; => T
(kex_g_ang_dif3 1 1)             ; => 0.0
(kex_g_ang_dif o x)              ; ! kex_g_ang_dif: Argument 3 ist ungültig
(kex_g_ang_dif o 1 x)            ; ! kex_g_ang_dif: Argument 2 ist ungültig
(near (list (kex_g_ang_halb 0 (/ pi 2)) (kex_g_ang_mid (* 1.5 pi) (/ pi 2)) (kex_g_ang_mid (/ pi 2) (* 1.5 pi)))
      (list (/ pi 4) 0 pi))      ; => T
(near (kex_g_ang_quad (* 0.75 pi)) (/ pi 4)) ; => T
(kex_g_ang_seg 3 2)              ; => 1.5
(type (kex_g_ang_seg 1 0))       ; => REAL
(kex_g_ang_seg 1)                ; ! kex_g_ang_seg: Argument 2 ist ungültig

; -- the triangle's angle opposite to the third side
(near (list (kex_g_ang_3eck 3 4 5) (kex_g_ang_3eck 1 1 2) (kex_g_ang_3eck 5 1 2) (kex_g_ang_3eck 0 1 1))
      (list (/ pi 2) pi 0 0))    ; => T
(kex_g_ang_3eck 1 1 2.5)         ; => nil
(near (kex_g_ang_3eck 1e7 1e7 1e-3) 1e-10) ; => T

; -- equality: within _RNDA unless a number says otherwise
(kex_g_ang_equal 0 (* 2 pi))     ; => T
(kex_g_ang_equal 0 2e-6)         ; => nil
(kex_g_ang_equal 0 -0.01 0.02)   ; => T
(kex_g_ang_equal 0 2e-6 "wide")  ; => nil
(kex_g_ang_equal 0)              ; ! kex_g_ang_equal: Argument 2 ist ungültig

; -- slopes are ratios, not per cent
(list (near (kex_g_angto% (/ pi 4)) 1.0) (near (kex_g_%toang -1) (/ pi -4))) ; => (T T)
(list (kex_g_asin 1) (kex_g_acos -1) (kex_g_asin 0)) ; => (1.5708 3.14159 0.0)
(kex_g_asin 1.0000001)           ; => 0.0
(kex_g_acos -2)                  ; => 0.0
(kex_g_acos "1")                 ; ! kex_g_acos: Argument ist ungültig
; eighths and sixths count from 1; just below a boundary is on it
(mapcar 'kex_g_oktant (list 0 (/ pi 4) (- (/ pi 2) 1e-7) (- (/ pi 2) 1e-5) pi -0.1 -1e-7)) ; => (1 2 3 2 5 8 1)
(mapcar 'kex_g_sextant (list 0 (/ pi 3) pi (* 1.5 pi) -0.1)) ; => (1 2 4 5 6)

; -- rounding: halves away from zero, in decimals as written
(mapcar '(lambda (v) (kex_g_rnd v 0.01)) '(2.675 -2.675 1.005 2.674999)) ; => (2.68 -2.68 1.01 2.67)
(list (kex_g_rnd 7 5) (kex_g_rnd 7.5 5) (kex_g_rnd -7.5 5) (kex_g_rnd 7 0) (kex_g_rnd -0.2 1)) ; => (5.0 10.0 -10.0 7.0 0.0)
(= (kex_g_rnd 0.29 0.1) 0.3)     ; => T
(kex_g_p_rnd '(1.26 -1.25 0.04) 0.1) ; => (1.3 -1.3 0.0)
(list (kex_g_rnd_up 1000.0005 10) (kex_g_rnd_up 1000.002 10) (kex_g_rnd_up -7 5) (kex_g_rnd_up 7 -1)) ; => (1000.0 1010.0 -5.0 7.0)
(near (mapcar 'kex_g_rnd_quad (list 0.1 (/ pi 4) (* -0.25 pi) (* 0.74 pi) (* 1.75 pi)))
      (list 0 (/ pi 2) 0 (/ pi 2) 0)) ; => T
(near (list (kex_g_rnd_ang -0.1 (/ pi 12)) (kex_g_rnd_ang 0.2 (/ pi 12)) (kex_g_rnd_ang -1 0))
      (list 0 (/ pi 12) (- (* 2 pi) 1))) ; => T
(progn (setvar "INSUNITS" 6) (list (kex_g_rnd_unit 1.23456 0 4) (kex_g_rnd_unit 1.23456 -2 4) (kex_g_rnd_unit 1.23456 2 6)))
; => (1.235 1.2 1.23)
(progn (setvar "INSUNITS" 0) (list (kex_g_rnd_unit 1.25 1 4) (kex_g_rnd_unit 1.25 400 4) (kex_g_rnd_unit 1.25 -400 4)))
; => (1.3 1.25 0.0)
(kex_g_rnd_unit 1 1.5 4)         ; ! kex_g_rnd_unit: Argument 2 ist ungültig
(near (kex_g_tang_radius 5 (/ pi 2)) 5.0) ; => T

; -- bulges
(list (kex_g_bulg_cen o '(4 2 2) 0) (kex_g_bulg_cen o '(4 0) 1) (kex_g_bulg_mid o '(4 0) -1)) ; => ((2.0 1.0 1.0) (2.0 0.0 0.0) (2.0 2.0 0.0))
(near (list (kex_g_bulg_len1 o '(2 0) 1) (kex_g_bulg_len o '(2 0) 1) (kex_g_bulg_len o '(2 0) '(1 1)))
      (list pi pi pi))           ; => T
; three points on a line give the chord, also when the third lies beyond
(list (kex_g_bulg_len o '(2 0) '(1 0)) (kex_g_bulg_len o '(2 0) '(3 0))) ; => (2.0 2.0)
(kex_g_bulg_len o x "x")         ; ! kex_g_bulg_len: Argument 3 ist ungültig
(kex_g_bulg_len1 o x y)          ; ! kex_g_bulg_len1: Argument 3 ist ungültig

; -- arcs run counter-clockwise from the first direction to the second
(near (list (kex_g_arc_len 10 0 (/ pi 2)) (kex_g_arc_len 10 (/ pi 2)) (kex_g_arc_len -10 6 7))
      (list (* 5 pi) (* 15 pi) 10)) ; => T
(kex_g_arc_len 10 1 1)           ; => 0.0
(near (list (kex_g_arc_bulg 0 pi) (kex_g_arc_bulg pi 0) (kex_g_arc_bulg 0 (* 1.5 pi))) (list 1 1 (1+ (sqrt 2)))) ; => T
(kex_g_arc3p_cen '(5 0 3) '(0 5) '(-5 0)) ; => (0.0 0.0 3.0)
(kex_g_arc3p_cen o '(1 0.00005) '(2 0)) ; => nil
(kex_g_arc3p_cen o o x)          ; => nil
(near (list (kex_g_arc3p_bulg o '(1 -1) '(2 0)) (kex_g_arc3p_bulg o '(1 0) '(2 0))) '(1.0 0.0)) ; => T
(list (kex_g_arc3p_bulg o '(3 0) '(2 0)) (kex_g_arc3p_bulg o x o)) ; => (nil nil)
; the shorter way about a centre; a half turn goes counter-clockwise
(near (list (kex_g_arcmp_bulg x y o) (kex_g_arcmp_bulg y x o) (kex_g_arcmp_bulg x '(-1 0) o) (kex_g_arcmp_bulg '(-1 0) x o))
      (list (kex_g_ang_bulg (/ pi 2)) (kex_g_ang_bulg (/ pi -2)) 1 1)) ; => T
(near (list (kex_g_arc2pr_bulg o '(6 0) 5) (kex_g_arc2pr_bulg o '(6 0) -5) (kex_g_arc2pr_bulg o '(6 0) 5 1))
      (list (/ 1.0 3) (/ -1.0 3) 3)) ; => T
(list (kex_g_arc2pr_bulg o '(6.0001 0) 3) (kex_g_arc2pr_bulg o '(6.001 0) 3) (kex_g_arc2pr_bulg o o 3) (kex_g_arc2pr_bulg o x 0))
; => (1.0 nil nil nil)
(near (kex_g_arc_mid '(1 1 7) 2 (* 1.5 pi) (/ pi 2)) '(3 1 7)) ; => T
; no number beyond the finite ones comes back
(kex_g_bulg_len1 o '(1e308 1e308) 0.5) ; => nil
