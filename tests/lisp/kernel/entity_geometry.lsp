; Geometry of entities. Points are those of the world, whatever the entity's own system.
(setq line (entmakex '((0 . "LINE") (10 0.0 0.0 0.0) (11 3.0 4.0 0.0))))
(setq arc (entmakex (list '(0 . "ARC") '(10 1.0 2.0 0.0) '(40 . 5.0) '(50 . 0.0) (cons 51 pi))))
(setq circle (entmakex '((0 . "CIRCLE") (10 0.0 0.0 3.0) (40 . 2.0) (210 0.0 0.0 -1.0))))
(defun path (closed points) (entmakex (append '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline")) (list (cons 90 (length points)) (cons 70 (if closed 1 0))) (apply 'append points))))
(setq slot (path T '(((10 0.0 0.0)) ((10 10.0 0.0) (42 . 1.0)) ((10 10.0 4.0)) ((10 0.0 4.0) (42 . 1.0)))))
(setq tilted (entmakex '((0 . "CIRCLE") (10 1.0 2.0 3.0) (40 . 5.0) (210 1.0 2.0 2.0))))
(setq ellipse (entmakex '((0 . "ELLIPSE") (100 . "AcDbEntity") (100 . "AcDbEllipse") (10 1.0 2.0 0.0) (11 5.0 0.0 0.0) (40 . 0.6) (41 . 0.0) (42 . 6.283185307179586))))
(setq text (entmakex '((0 . "TEXT") (10 1.0 2.0 0.0) (40 . 2.5) (1 . "Blech"))))
(setq solid (entmakex '((0 . "SOLID") (10 0.0 0.0 0.0) (11 1.0 0.0 0.0) (12 0.0 1.0 0.0) (13 1.0 1.0 0.0))))
(defun near (a b) (or (equal a b 1e-6) (list a b)))
(defun mapped (p m) (mapcar '(lambda (row) (apply '+ (mapcar '* row (append p '(1))))) (list (car m) (cadr m) (caddr m))))
(setq move10 '((1 0 0 10) (0 1 0 0) (0 0 1 0) (0 0 0 1)) mirror '((-1 0 0 0) (0 1 0 0) (0 0 1 0) (0 0 0 1)) flat '((1 0 0 0) (0 2 0 0) (0 0 1 0) (0 0 0 1)))

; -- length and area
(kex_g_e_len line) ; => 5.0
(near (kex_g_e_len slot) (+ 20 (* 4 pi))) ; => T
(near (kex_g_e_len tilted) (* 10 pi)) ; => T
(near (kex_g_e_len ellipse) 25.526998863398) ; => T
(near (kex_g_e_area slot) (+ 40 (* 4 pi))) ; => T
(near (kex_g_e_area tilted) (* 25 pi)) ; => T
(near (kex_g_e_area ellipse) (* 15 pi)) ; => T
(list (kex_g_e_area arc) (kex_g_e_len text) (kex_g_e_len solid) (kex_g_e_area solid)) ; => (nil nil nil nil)
; a hatch: a round hole in a square, a round piece within the hole
(defun hatch (paths) (entmakex (append '((0 . "HATCH") (100 . "AcDbEntity") (100 . "AcDbHatch") (10 0.0 0.0 0.0) (210 0.0 0.0 1.0) (2 . "SOLID") (70 . 1) (71 . 0)) (list (cons 91 (length paths))) (apply 'append paths) '((75 . 0) (76 . 1) (98 . 0)))))
(defun ring (r) (list '(92 . 0) '(93 . 1) '(72 . 2) '(10 0.0 0.0) (cons 40 r) '(50 . 0.0) (cons 51 (* 2 pi)) '(73 . 1) '(97 . 0)))
(defun square (r) (list '(92 . 3) '(72 . 0) '(73 . 1) '(93 . 4) (list 10 r r) (list 10 (- r) r) (list 10 (- r) (- r)) (list 10 r (- r)) '(97 . 0)))
(near (kex_g_e_area (hatch (list (square 10.0) (ring 5.0) (ring 2.0)))) (+ 400 (* -25 pi) (* 4 pi))) ; => T

; -- places
(kex_g_e_near line '(30 40 0)) ; => (3.0 4.0 0.0)
(kex_g_e_near line '(30 40 0) T) ; => (30.0 40.0 0.0)
(near (kex_g_e_near arc '(1 -9 0)) '(6.0 2.0 0.0)) ; => T
(near (kex_g_e_near arc '(1 -9 0) T) '(1.0 -3.0 0.0)) ; => T
(near (kex_g_e_near circle '(-9 0 0)) '(-2.0 0.0 -3.0)) ; => T
(near (kex_g_e_pt line 2.5) '(1.5 2.0 0.0)) ; => T
(kex_g_e_pt line 5.00001) ; => (3.0 4.0 0.0)
(list (kex_g_e_pt line 5.1) (kex_g_e_pt line -0.1) (kex_g_e_pt text 1)) ; => (nil nil nil)
(near (kex_g_e_dist slot '(10 9 0)) (+ 10 (* 2 pi))) ; => T
(near (kex_g_e_tang slot '(10 0 0)) '(1.0 0.0 0.0)) ; => T
; at a corner the segment that begins there
(setq angle (path nil '(((10 0.0 0.0)) ((10 5.0 0.0)) ((10 5.0 5.0)))))
(near (kex_g_e_tang angle '(5 0 0)) '(0.0 1.0 0.0)) ; => T
(near (kex_g_e_tang arc '(1 99 0)) '(-1.0 0.0 0.0)) ; => T
; what lies on a tilted circle has the radius as its distance from the centre, and its tangent is square to it
(setq centre (trans '(1.0 2.0 3.0) tilted 0) p (kex_g_e_near tilted '(50 -20 7)) v (mapcar '- p centre))
(near (distance p centre) 5.0) ; => T
(near (apply '+ (mapcar '* v (kex_g_e_tang tilted p))) 0.0) ; => T
(near (kex_g_e_near tilted p) p) ; => T
(near (kex_g_e_pt tilted (kex_g_e_dist tilted p)) p) ; => T

; -- systems and boxes
(kex_g_e_vl line) ; => (((0.0 0.0 0.0) (3.0 4.0 0.0) 0.0))
; the outline of a tilted entity lies in the XY plane of its system
(near (mapped (caar (kex_g_e_vl tilted)) (kex_g_e_mtx tilted)) (trans '(6.0 2.0 3.0) tilted 0)) ; => T
(near (caddr (caar (kex_g_e_vl tilted))) 0.0) ; => T
(near (kex_g_e_plan tilted) (list (mapcar '(lambda (c) (* c 3.0 (/ 1.0 3))) '(1.0 2.0 2.0)) '(0.333333333 0.666666667 0.666666667))) ; => T
(near (kex_g_e_plan circle) '((0.0 0.0 -3.0) (0.0 0.0 -1.0))) ; => T
(list (kex_g_e_mtx line) (kex_g_e_plan line)) ; => (nil nil)
(progn (entmake '((0 . "BLOCK") (2 . "GRIFF") (10 1.0 1.0 0.0) (70 . 0))) (entmake '((0 . "LINE") (10 1.0 1.0 0.0) (11 2.0 1.0 0.0))) (entmake '((0 . "ENDBLK"))))
(setq handle (entmakex (list '(0 . "INSERT") '(2 . "GRIFF") '(10 5.0 5.0 0.0) '(41 . 2.0) (cons 50 (/ pi 2)))))
(near (mapped '(1 1 0) (kex_g_e_mtx handle)) '(5.0 5.0 0.0)) ; => T
(near (mapped '(2 1 0) (kex_g_e_mtx handle)) '(5.0 7.0 0.0)) ; => T
(near (kex_g_e_ext handle) '((5.0 5.0 0.0) (5.0 7.0 0.0))) ; => T
(near (kex_g_e_ext arc) '((-4.0 2.0 0.0) (6.0 7.0 0.0))) ; => T
(near (kex_g_el_ext (list line arc)) '((-4.0 0.0 0.0) (6.0 7.0 0.0))) ; => T
(kex_g_el_ext nil) ; => nil

; -- making and replacing
(defun kind (e) (cdr (assoc 0 (entget e))))
(setq made (kex_g_e_mk '(((0 0 1) (10 0 1) 0.5) ((10 0 1) (10 5 1) 0.0)) '((8 . "Wand") (62 . 3) (39 . 2.5) (10 9.0 9.0 9.0))))
(mapcar '(lambda (code) (cdr (assoc code (entget made)))) '(0 8 62 39 38 90 10 42)) ; => ("LWPOLYLINE" "Wand" 3 2.5 1.0 3 (0.0 0.0) 0.5)
(kind (kex_g_e_mk '(((0 0 0) (1 2 3))))) ; => "LINE"
(near (kex_g_e_vl (kex_g_e_mk '(((0 0 0) (4 0 0) -0.5)))) '(((4.0 0.0 0.0) (0.0 0.0 0.0) 0.5))) ; => T
(near (kex_g_e_area (kex_g_e_mk (kex_g_e_vl circle))) (* 4 pi)) ; => T
(list (kex_g_e_mk nil) (kex_g_e_mk '(((0 0) (1 0)) ((2 0) (3 0)))) (kex_g_e_mk '(((0 0 0) (1 0 0)) ((1 0 0) (1 0 5))))) ; => (nil nil nil)
(setq handles (mapcar '(lambda (e) (cdr (assoc 5 (entget e)))) (list line made circle)))
(eq (kex_g_e_vl_set line '(((1 1 0) (2 2 5)))) line) ; => T
(kex_g_e_vl line) ; => (((1.0 1.0 0.0) (2.0 2.0 5.0) 0.0))
(progn (kex_g_e_vl_set made (kex_g_e_vl slot)) (near (kex_g_e_area made) (kex_g_e_area slot))) ; => T
(cdr (assoc 8 (entget made))) ; => "Wand"
(progn (kex_g_e_vl_set circle '(((1 0 7) (5 0 7) 1) ((5 0 7) (1 0 7) 1))) (near (kex_g_e_ext circle) '((1.0 -2.0 7.0) (5.0 2.0 7.0)))) ; => T
(progn (kex_g_e_vl_set tilted (kex_g_e_vl tilted)) (near (kex_g_e_near tilted p) p)) ; => T
(equal handles (mapcar '(lambda (e) (cdr (assoc 5 (entget e)))) (list line made circle))) ; => T
(list (kex_g_e_vl_set line (kex_g_e_vl slot)) (kex_g_e_vl_set circle '(((0 0) (1 0)))) (kex_g_e_vl_set text '(((0 0) (1 0))))) ; => (nil nil nil)

; -- moving and copying
(setq copy (kex_g_e_copy arc move10))
(near (kex_g_e_ext copy) '((6.0 2.0 0.0) (16.0 7.0 0.0))) ; => T
(near (kex_g_e_ext (kex_g_e_trans copy mirror)) '((-16.0 2.0 0.0) (-6.0 7.0 0.0))) ; => T
(list (kex_g_e_trans copy flat) (kex_g_e_copy copy flat)) ; => (nil nil)
(near (kex_g_e_ext copy) '((-16.0 2.0 0.0) (-6.0 7.0 0.0))) ; => T
(near (kex_g_e_ext (kex_g_e_trans line flat)) '((1.0 2.0 0.0) (2.0 4.0 5.0))) ; => T
(progn (entmake '((0 . "LAYER") (100 . "AcDbSymbolTableRecord") (100 . "AcDbLayerTableRecord") (2 . "ZU") (70 . 4) (62 . 7) (6 . "Continuous"))) (entmod (subst '(8 . "ZU") '(8 . "0") (entget copy))) (kex_g_e_trans copy move10)) ; => nil
(kex_g_el_trans (list line copy slot) move10) ; => 2
(near (kex_g_el_ext (kex_g_el_copy (list line slot) move10)) '((18.0 0.0 0.0) (32.0 4.0 5.0))) ; => T
(kex_g_el_copy (list line arc) flat) ; => nil

; -- lists
(setq all (list arc slot text line))
(length (kex_g_el_vll all)) ; => 3
(equal (kex_g_el_near all '(0 0 0)) (list arc (kex_g_e_near arc '(0 0 0)))) ; => T
(kex_g_el_near (list text) '(0 0 0)) ; => nil
(equal (kex_g_el_sort all 0.0) (list arc text slot line)) ; => T
(equal (kex_g_el_sort all (/ pi 2) T) (list line slot text arc)) ; => T
; erased entities have no geometry
(progn (entdel line) (list (kex_g_e_len line) (kex_g_e_ext line) (kex_g_e_trans line move10) (kex_g_e_copy line) (kex_g_e_vl line))) ; => (nil nil nil nil nil)

; -- wrong arguments
(kex_g_e_len "x") ; ! kex_g_e_len: Argument ist ungültig
(kex_g_e_len) ; ! kex_g_e_len: Argument ist ungültig
(kex_g_e_near arc "x") ; ! kex_g_e_near: Argument 2 ist ungültig
(kex_g_e_vl arc 0.0) ; ! kex_g_e_vl: Argument 2 ist ungültig
(kex_g_e_trans arc '(1 2)) ; ! kex_g_e_trans: Argument 2 ist ungültig
(kex_g_e_mk '(((0 0) (1 0))) '((8 . 5))) ; ! kex_g_e_mk: Argument 2 ist ungültig
(kex_g_el_ext arc) ; ! kex_g_el_ext: Argument ist ungültig
(kex_g_el_sort all "x") ; ! kex_g_el_sort: Argument 2 ist ungültig

; -- common points
(defun line-of (p q) (entmakex (list '(0 . "LINE") (cons 10 p) (cons 11 q))))
(setq ground (line-of '(-10.0 0.0 0.0) '(10.0 0.0 0.0)) short (line-of '(3.0 1.0 0.0) '(3.0 5.0 0.0)) wheel (entmakex '((0 . "CIRCLE") (10 0.0 0.0 0.0) (40 . 5.0))))
(near (kex_g_e_inters ground wheel) '((-5.0 0.0 0.0) (5.0 0.0 0.0))) ; => T
(near (kex_g_e_inters wheel ground) '((5.0 0.0 0.0) (-5.0 0.0 0.0))) ; => T
(kex_g_e_inters ground short) ; => nil
(kex_g_e_inters ground short 1) ; => nil
(near (kex_g_e_inters ground short 2) '((3.0 0.0 0.0))) ; => T
(near (kex_g_e_inters short wheel 1) '((3.0 -4.0 0.0) (3.0 4.0 0.0))) ; => T
; skew lines have none, a line that pierces the plane of a circle one, circles in different planes two
(kex_g_e_inters ground (line-of '(0.0 -1.0 1.0) '(0.0 1.0 1.0))) ; => nil
(near (kex_g_e_inters wheel (line-of '(3.0 4.0 -1.0) '(3.0 4.0 9.0))) '((3.0 4.0 0.0))) ; => T
(setq upright (entmakex '((0 . "CIRCLE") (10 0.0 0.0 0.0) (40 . 5.0) (210 1.0 0.0 0.0))))
(near (kex_g_e_inters wheel upright) '((0.0 5.0 0.0) (0.0 -5.0 0.0))) ; => T
(near (length (kex_g_e_inters tilted tilted)) 2) ; => T
; pieces that coincide give their ends; a joint is met once
(near (kex_g_e_inters ground (line-of '(2.0 0.0 0.0) '(40.0 0.0 0.0))) '((2.0 0.0 0.0) (10.0 0.0 0.0))) ; => T
(near (kex_g_e_inters (line-of '(5.0 -3.0 0.0) '(5.0 3.0 0.0)) angle) '((5.0 0.0 0.0) (5.0 3.0 0.0))) ; => T
(list (kex_g_e_inters text wheel) (kex_g_e_inters solid wheel)) ; => (nil nil)
(setq eight (path nil '(((10 0.0 20.0)) ((10 10.0 30.0)) ((10 10.0 20.0)) ((10 0.0 30.0)))))
(kex_g_el_int (list ground wheel eight)) ; => ((-5.0 0.0 0.0) (5.0 0.0 0.0))
(near (kex_g_el_int (list ground wheel eight) T) '((-5.0 0.0 0.0) (5.0 0.0 0.0) (5.0 25.0 0.0))) ; => T
(kex_g_el_int (list slot) T) ; => nil
; windows: what lies in them, and what crosses them
(equal (kex_g_el_win (list ground wheel short text) '(2 0 0) '(4 6 0)) (list short)) ; => T
(equal (kex_g_el_win (list ground wheel short text) '(4 6 0) '(2 0 0) T) (list ground wheel short text)) ; => T
(kex_g_el_win (list wheel upright) '(1 1 0) '(2 2 0) T) ; => nil
(kex_g_e_inters ground wheel 4) ; ! kex_g_e_inters: Argument 3 ist ungültig

; -- regions: a frame of four lines that do not quite meet, a round hole, a disc in it, a piece apart
(setq frame (mapcar '(lambda (p q) (line-of p q)) '((0.0 50.0 0.0) (100.0 50.0 0.0) (100.0005 100.0 0.0) (0.0 100.0 0.0)) '((100.0 50.0 0.0) (100.0 100.0 0.0) (0.0 100.0 0.0) (0.0 50.0001 0.0))))
(defun disc (x y r) (entmakex (list '(0 . "CIRCLE") (list 10 x y 0.0) (cons 40 r))))
(setq regions (kex_g_el_regl (append frame (list (disc 30.0 75.0 20.0) (disc 30.0 75.0 5.0) (disc 200.0 0.0 9.0) text (line-of '(0.0 0.0 0.0) '(5.0 5.0 0.0))))))
(mapcar 'length regions) ; => (2 1 1)
(defun signed (vl) (car (kex_g_solid_vol (kex_g_solid_extr vl 1))))
(equal (mapcar 'signed regions) (list (- 5000 (* 400 pi)) (* 81 pi) (* 25 pi)) 0.1) ; => T
(equal (caar (caar regions)) '(0.0 50.0 0.0) 1e-3) ; => T
(mapcar '(lambda (vl) (if (minusp (caddr (car vl))) "cw" "ccw")) (list (cadr (car regions)) (car (cadr regions)))) ; => ("cw" "ccw")
(kex_g_el_regl (cdr frame)) ; => nil
(kex_g_el_regl nil) ; => nil
