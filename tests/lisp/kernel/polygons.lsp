; Lists of points, and vertices with data.
(defun near (a b) (equal a b 1e-6))
(setq square '((0 0) (4 0) (4 4) (0 4)))

(list (kex_g_pl_len square) (kex_g_pl_len square T) (kex_g_pl_len '((0 0 0) (2 3 6)) T) (kex_g_pl_len nil)) ; => (12.0 16.0 14.0 0.0)
(list (kex_g_pl_area square) (kex_g_pl_area (reverse square)) (kex_g_pl_area '((0 0) (1 1)))) ; => (16.0 -16.0 0.0)
(list (kex_g_pl_cen square) (kex_g_pl_cen '((0 0) (2 0) (4 0))) (kex_g_pl_cen '((0 0 0) (4 0 4) (4 4 4) (0 4 0))) (kex_g_pl_cen nil))
; => ((2.0 2.0 0.0) (2.0 0.0 0.0) (2.0 2.0 2.0) nil)
; a list of points is nothing else; its only argument has a number
(kex_g_pl_area '((0 0) 1))       ; ! kex_g_pl_area: Argument 1 ist ungültig
(kex_g_pl_hull "x")              ; ! kex_g_pl_hull: Argument 1 ist ungültig
(kex_g_pl_cen)                   ; ! kex_g_pl_cen: Argument 1 ist ungültig

; the angle 100x100x10 with its corner at the origin, and far away
(setq angle '((0 0) (100 0) (100 10) (10 10) (10 100) (0 100)))
(near (kex_g_pl_statics angle)
      '(1900 (28.684211 28.684211 0) 1800043.859649 1800043.859649 -1065789.473684 2865833.333333 734254.385965
        0.785398 30.779726 30.779726 25240.467405 25240.467405 400 (0 0 0) (100 100 0))) ; => T
(setq far (kex_g_pl_statics (kex_g_pl_mtx (reverse angle) (kex_g_mtx_move '(1e7 -1e7 5)))))
(list (car far) (equal (nth 2 far) 1800043.859649 1e-3)) ; => (1900.0 T)
(nth 7 (kex_g_pl_statics '((0 0) (1 0) (1 9) (0 9)))) ; => 0.0
(nth 7 (kex_g_pl_statics '((0 0) (9 0) (9 1) (0 1)))) ; => 1.5708
(kex_g_pl_statics '((0 0) (1 0) (2 0))) ; => nil
(list (kex_g_pl_ext '((1 5 0) (3 2 9))) (kex_g_pl_ext nil)) ; => (((1.0 2.0 0.0) (3.0 5.0 9.0)) nil)

; sorted along a direction, ties from left to right
(kex_g_pl_sort '((1 0) (0 -1) (0.00005 1) (0 1)) 0) ; => ((0.0 1.0 0.0) (5.0e-005 1.0 0.0) (0.0 -1.0 0.0) (1.0 0.0 0.0))
(kex_g_pl_sort '((1 0) (0 -1) (0.00005 1) (0 1)) 0 T) ; => ((0.0 1.0 0.0) (0.0 -1.0 0.0) (1.0 0.0 0.0))
(kex_g_pl_sort nil 0)            ; => nil
(kex_g_pl_uniq '((0 0) (0.00005 0) (1 0) (0 0) (0.00012 0))) ; => ((0.0 0.0 0.0) (1.0 0.0 0.0) (0.00012 0.0 0.0))
(list (kex_g_pl_uniq '((0 0) (1 0) (1.5 0)) 1) (kex_g_pl_uniq '((0 0) (0 0) (1e-9 0)) 0)) ; => (((0.0 0.0 0.0) (1.0 0.0 0.0)) ((0.0 0.0 0.0) (1.0e-009 0.0 0.0)))
(kex_g_pl_hull '((2 2) (4 4) (0 4) (2 0) (0 0) (4 0) (3 1) (0 2))) ; => ((0.0 0.0 0.0) (4.0 0.0 0.0) (4.0 4.0 0.0) (0.0 4.0 0.0))
(list (kex_g_pl_hull '((1 1) (0 0) (2 2))) (kex_g_pl_hull '((5 5) (5 5)))) ; => (((0.0 0.0 0.0) (2.0 2.0 0.0)) ((5.0 5.0 0.0)))
(mapcar '(lambda (p) (kex_g_pl_inside square p)) '((2 2) (4 2) (4.00005 2) (5 2) (-1 4) (0 0))) ; => (1 0 0 -1 -1 0)
(list (kex_g_pl_near square '(3 3)) (kex_g_pl_near square '(2 2)) (kex_g_pl_near nil '(2 2))) ; => (3 1 nil)
(kex_g_pl_vl '((0 0) (2 0) (2.00005 0) (2 2)) T '(1 0.5 0.25))
; => (((0.0 0.0 0.0) (2.0 0.0 0.0) 1.0) ((2.0 0.0 0.0) (2.0 2.0 0.0) 0.25) ((2.0 2.0 0.0) (0.0 0.0 0.0) 0.0))
(list (kex_g_pl_vl '((0 0) (2 0)) nil '(0.5 0.0 0.0)) (kex_g_pl_vl '((0 0)) T)) ; => ((((0.0 0.0 0.0) (2.0 0.0 0.0) 0.5)) nil)
(kex_g_pl_vl square nil '(1 "x")) ; ! kex_g_pl_vl: Argument 3 ist ungültig
(list (kex_g_pl_plan '((0 0 1) (4 0 1) (4 4 1))) (kex_g_pl_plan '((0 0) (4 0) (4 4 1) (0 4))) (kex_g_pl_plan '((0 0) (1 0) (2 0))))
; => (((2.66667 1.33333 1.0) (0.0 0.0 1.0)) nil nil)
(list (kex_g_pl_colin '((0 0) (5 0.00005) (2 0))) (kex_g_pl_colin '((0 0) (5 1) (2 0))) (kex_g_pl_colin '((0 0) (5 1) (2 0)) 1) (kex_g_pl_colin nil))
; => (T nil T T)
(kex_g_pl_thin '((0 0) (1 0.1) (2 -0.1) (3 5) (4 6) (5 7) (6 8.1)) 0.2) ; => ((0.0 0.0 0.0) (2.0 -0.1 0.0) (3.0 5.0 0.0) (6.0 8.1 0.0))

; -- data at vertices
(kex_g_xvx '((0 0) (1 0)) '("MAT" . 5)) ; => ((0.0 0.0 0.0) (1.0 0.0 0.0) 0.0 ("MAT" . 5))
(kex_g_xvx '((0 0) (1 0) 1 "old") nil) ; => ((0.0 0.0 0.0) (1.0 0.0 0.0) 1.0 nil)
(kex_g_xvx '((0 0) (1 0)))       ; ! kex_g_xvx: Argument 2 ist ungültig
(setq path '(((0 0) (1 0)) ((1 0) (1 1) 0 "old") ((1 1) (0 1) 0 "kept")))
(mapcar 'cadddr (kex_g_xvl path '(("a" 1) "b"))) ; => (("a" 1) "b" "kept")
(mapcar 'cadddr (kex_g_xvl path '(1.5 2.5))) ; => (1.5 2.5 "kept")
(mapcar 'cadddr (kex_g_xvl path nil)) ; => (nil "old" "kept")
(kex_g_xvl path "x")             ; ! kex_g_xvl: Argument 2 ist ungültig
(kex_g_xvl path)                 ; ! kex_g_xvl: Argument 2 ist ungültig
(mapcar '(lambda (l) (mapcar 'cadddr l)) (kex_g_xvll (list path path path) '((1 2 3) nil))) ; => ((1 2 3) (nil "old" "kept") (nil "old" "kept"))
(kex_g_xvll (list path) '(1))    ; ! kex_g_xvll: Argument 2 ist ungültig
(kex_g_vl_len (kex_g_xvl path '(1 2 3))) ; => 3.0
