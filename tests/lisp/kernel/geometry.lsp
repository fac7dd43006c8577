; Bulges: the tangent of a quarter of the included angle.
(kex_g_ang_bulg 0)               ; => 0.0
(equal (kex_g_ang_bulg pi) 1.0 1e-12) ; => T
(equal (kex_g_bulg_ang 1) pi 1e-12)   ; => T
(equal (kex_g_bulg_ang (kex_g_ang_bulg -1.25)) -1.25 1e-12) ; => T
(kex_g_bulg_ang "1")             ; ! kex_g_bulg_ang: Argument ist ungültig
(kex_g_ang_bulg)                 ; ! kex_g_ang_bulg: Argument ist ungültig

; Lengths of outlines.
(kex_g_vl_len nil)               ; => 0.0
(kex_g_vl_len '(((0 0) (3 4))))  ; => 5.0
(equal (kex_g_vl_len '(((0 0) (2 0) 1))) pi 1e-12) ; => T
; A length beyond all numbers is none.
(kex_g_vl_len '(((0 0) (1e200 1e200)))) ; => nil
(kex_g_vl_len '((0 0) (1 0)))    ; ! kex_g_vl_len: Argument ist ungültig
(kex_g_vl_len "x")               ; ! kex_g_vl_len: Argument ist ungültig

; Points: all starts and the last end; at a gap both ends.
(kex_g_vl_pts '(((0 0) (1 0)) ((1 0) (1 1)))) ; => ((0.0 0.0 0.0) (1.0 0.0 0.0) (1.0 1.0 0.0))
(kex_g_vl_pts '(((0 0) (1 0)) ((5 0) (6 0))))
; => ((0.0 0.0 0.0) (1.0 0.0 0.0) (5.0 0.0 0.0) (6.0 0.0 0.0))
(kex_g_vl_pts nil)               ; => nil

; Other notations become vertex lists: points, points with bulges, vertices.
(kex_g_gvl '((0 0) (2 0)))       ; => (((0.0 0.0 0.0) (2.0 0.0 0.0) 0.0))
(kex_g_gvl '((0.0 0.0) (2.0 0.0) (2.0 2.0)) T)
; => (((0.0 0.0 0.0) (2.0 0.0 0.0) 0.0) ((2.0 0.0 0.0) (2.0 2.0 0.0) 0.0) ((2.0 2.0 0.0) (0.0 0.0 0.0) 0.0))
(kex_g_gvl '(((0 0) 1) ((2 0) 0.5)) T)
; => (((0.0 0.0 0.0) (2.0 0.0 0.0) 1.0) ((2.0 0.0 0.0) (0.0 0.0 0.0) 0.5))
(kex_g_gvl '(((0 0) 1) ((2 0) 0.5))) ; => (((0.0 0.0 0.0) (2.0 0.0 0.0) 1.0))
(kex_g_gvl '(((0 0) (2 0) 1 "data"))) ; => (((0.0 0.0 0.0) (2.0 0.0 0.0) 1.0))
(kex_g_gvl nil)                  ; => nil
(kex_g_gvl '(1 2 "x"))           ; => nil
(kex_g_gvl "x")                  ; => nil
(kex_g_gvl)                      ; ! kex_g_gvl: Argument 1 ist ungültig
(kex_g_gvl nil nil "x")          ; ! kex_g_gvl: Argument 3 ist ungültig
(kex_g_gvl nil nil 0)            ; ! kex_g_gvl: Argument 3 ist ungültig

; Entities. A circle is two half circles.
(defun made (groups) (kex_g_gvl (entmakex groups)))
(made '((0 . "LINE") (10 1.0 2.0 0.0) (11 4.0 6.0 0.0))) ; => (((1.0 2.0 0.0) (4.0 6.0 0.0) 0.0))
(made '((0 . "CIRCLE") (10 1.0 0.0 0.0) (40 . 2.0)))
; => (((3.0 0.0 0.0) (-1.0 0.0 0.0) 1.0) ((-1.0 0.0 0.0) (3.0 0.0 0.0) 1.0))
(equal (kex_g_vl_len (made (list '(0 . "ARC") '(10 0.0 0.0 0.0) '(40 . 2.0) (cons 50 0.5) (cons 51 2.0))))
       3.0 1e-12)                ; => T
; An arc that runs through the X axis.
(equal (kex_g_vl_len (made (list '(0 . "ARC") '(10 0.0 0.0 0.0) '(40 . 2.0) (cons 50 6.0) (cons 51 1.0))))
       (* 2.0 (+ (- (* 2 pi) 6.0) 1.0)) 1e-9) ; => T
(setq plate '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 3) (70 . 1) (38 . 5.0)
              (10 0.0 0.0) (10 4.0 0.0) (42 . 1.0) (10 4.0 2.0)))
(made plate)
; => (((0.0 0.0 5.0) (4.0 0.0 5.0) 0.0) ((4.0 0.0 5.0) (4.0 2.0 5.0) 1.0) ((4.0 2.0 5.0) (0.0 0.0 5.0) 0.0))
; Seen from below: the world's coordinates, bulges turned round.
(made (append plate '((210 0.0 0.0 -1.0))))
; => (((0.0 0.0 -5.0) (-4.0 0.0 -5.0) 0.0) ((-4.0 0.0 -5.0) (-4.0 2.0 -5.0) -1.0) ((-4.0 2.0 -5.0) (0.0 0.0 -5.0) 0.0))
; An old-style polyline with an arc, closed.
(progn
  (entmake '((0 . "POLYLINE") (66 . 1) (10 0.0 0.0 0.0) (70 . 1)))
  (entmake '((0 . "VERTEX") (10 0.0 0.0 0.0)))
  (entmake '((0 . "VERTEX") (10 2.0 0.0 0.0) (42 . 1.0)))
  (entmake '((0 . "VERTEX") (10 2.0 2.0 0.0)))
  (entmake '((0 . "SEQEND")))
  (kex_g_gvl (entlast)))
; => (((0.0 0.0 0.0) (2.0 0.0 0.0) 0.0) ((2.0 0.0 0.0) (2.0 2.0 0.0) 1.0) ((2.0 2.0 0.0) (0.0 0.0 0.0) 0.0))
; Ellipses become arcs within the given distance: the length of a 3 by 1 ellipse.
(setq ell (entmakex '((0 . "ELLIPSE") (100 . "AcDbEntity") (100 . "AcDbEllipse") (10 0.0 0.0 0.0)
                      (11 3.0 0.0 0.0) (40 . 0.3333333333333333) (41 . 0.0) (42 . 6.283185307179586))))
(equal (kex_g_vl_len (kex_g_gvl ell nil 1e-6)) 13.364893220555258 1e-4) ; => T
(< (length (kex_g_gvl ell nil 0.1)) (length (kex_g_gvl ell nil 1e-4))) ; => T
; A solid goes over its corners crosswise.
(length (made '((0 . "SOLID") (10 0.0 0.0 0.0) (11 1.0 0.0 0.0) (12 0.0 1.0 0.0) (13 1.0 1.0 0.0)))) ; => 4
; What has no outline, or is erased, gives nil.
(made '((0 . "POINT") (10 0.0 0.0 0.0))) ; => nil
(progn (entdel ell) (kex_g_gvl ell)) ; => nil

; One segment and several lists from the same notations.
(kex_g_gvx '((0 0) (2 0)))       ; => ((0.0 0.0 0.0) (2.0 0.0 0.0) 0.0)
(kex_g_gvx '((0 0) (2 0) 1 "edge")) ; => ((0.0 0.0 0.0) (2.0 0.0 0.0) 1.0)
(kex_g_gvx '(((0 0) 0.5) ((2 0) 0))) ; => ((0.0 0.0 0.0) (2.0 0.0 0.0) 0.5)
(setq line (entmakex '((0 . "LINE") (10 1.0 0.0 0.0) (11 1.0 5.0 0.0))))
(setq disc (entmakex '((0 . "CIRCLE") (10 0.0 0.0 0.0) (40 . 1.0))))
(kex_g_gvx line)                 ; => ((1.0 0.0 0.0) (1.0 5.0 0.0) 0.0)
(list (kex_g_gvx disc) (kex_g_gvx "x") (kex_g_gvx nil)) ; => (nil nil nil)
(kex_g_gvll (list line '((0 0) (1 0) (1 1)) "x" disc))
; => ((((1.0 0.0 0.0) (1.0 5.0 0.0) 0.0)) (((0.0 0.0 0.0) (1.0 0.0 0.0) 0.0) ((1.0 0.0 0.0) (1.0 1.0 0.0) 0.0)) (((1.0 0.0 0.0) (-1.0 0.0 0.0) 1.0) ((-1.0 0.0 0.0) (1.0 0.0 0.0) 1.0)))
(length (car (kex_g_gvll '(((0 0) (1 0) (1 1))) T))) ; => 3
(kex_g_gvll (ssget "_X" '((0 . "LINE") (10 1.0 0.0 0.0)))) ; => ((((1.0 0.0 0.0) (1.0 5.0 0.0) 0.0)))
(kex_g_gvll nil)                 ; => nil
(kex_g_gvx)                      ; ! kex_g_gvx: Argument 1 ist ungültig
(kex_g_gvll nil nil 0)           ; ! kex_g_gvll: Argument 3 ist ungültig
