; Temporary graphics: every symbol gives its point, or what its row says; the sizes follow the view,
; which is 297 high and three halves as wide in a new drawing.
(list (getvar "VIEWSIZE") (kex_g_vsmin) (kex_g_vsmax) (kex_g_af_fact)) ; => (297.0 (-12.75 0.0 0.0) (432.75 297.0 0.0) 1.5)
(setq p '(10 20 5))
(mapcar '(lambda (f) (f p)) (list kex_g_gr_cross kex_g_gr_rhombus kex_g_gr_plus kex_g_gr_minus kex_g_gr_xline kex_g_gr_yline kex_g_gr_ucs))
; => ((10.0 20.0 5.0) (10.0 20.0 5.0) (10.0 20.0 5.0) (10.0 20.0 5.0) (10.0 20.0 5.0) (10.0 20.0 5.0) (10.0 20.0 5.0))
(kex_g_gr_rect 0 0 10 10)        ; => nil
; the middle of the barb ends: a twentieth of the height away, at 6/7 of the half turn
(equal (kex_g_gr_arrow '(0 0) 0) (list (* (/ 297 20.0) (cos (* pi (/ 6.0 7)))) 0 0) 1e-9) ; => T
(kex_g_gr_cross 1)               ; ! kex_g_gr_cross: Argument ist ungültig
(kex_g_gr_arrow p)               ; ! kex_g_gr_arrow: Argument 2 ist ungültig
(kex_g_gr_rect 0 0 1 "1")        ; ! kex_g_gr_rect: Argument 4 ist ungültig
