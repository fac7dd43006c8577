; Choosing by places: windows, fences, points, and what stands inside a block.
(defun made (name l) (entmake l) (set name (entlast)))
(defun names (ss / i l)
  (if ss (repeat (setq i (sslength ss)) (setq l (cons (ssname ss (setq i (1- i))) l))))
  (mapcar '(lambda (e) (car (vl-member-if '(lambda (n) (eq e (eval n))) '(row diagonal ring word hidden other dot sofa far)))) l))
(defun layer (name flags colour) (entmake (list '(0 . "LAYER") '(100 . "AcDbSymbolTableRecord") '(100 . "AcDbLayerTableRecord") (cons 2 name) (cons 70 flags) (cons 62 colour) '(6 . "Continuous"))))
(layer "FROZEN" 1 7)
(layer "OFF" 0 -7)
(layer "LOCKED" 4 7)
(made 'row '((0 . "LINE") (8 . "LOCKED") (10 0.0 0.0 0.0) (11 10.0 0.0 0.0)))
(made 'diagonal '((0 . "LINE") (10 0.0 0.0 0.0) (11 30.0 30.0 0.0)))
(made 'ring '((0 . "CIRCLE") (10 20.0 0.0 0.0) (40 . 5.0)))
(made 'word '((0 . "TEXT") (10 40.0 0.0 0.0) (40 . 2.5) (1 . "four")))
(made 'hidden '((0 . "LINE") (8 . "FROZEN") (10 0.0 0.0 0.0) (11 10.0 0.0 0.0)))
(made 'other '((0 . "LINE") (8 . "OFF") (10 0.0 0.0 0.0) (11 10.0 0.0 0.0)))
(made 'dot '((0 . "POINT") (10 60.0 0.0 0.0)))
(made 'far '((0 . "XLINE") (100 . "AcDbEntity") (100 . "AcDbXline") (10 0.0 100.0 0.0) (11 1.0 0.0 0.0)))

; -- a window holds what is wholly inside, its border included; a crossing one what it touches
(names (ssget "_W" '(0 0) '(30 30))) ; => (DIAGONAL ROW)
(names (ssget "W" '(-1 -6) '(70 6) '((0 . "~LINE")))) ; => (DOT WORD RING)
(names (ssget "_C" '(24 -1) '(41 1))) ; => (WORD RING)
(ssget "C" '(18 -2) '(22 2)) ; => nil
(names (ssget "C" '(-5 99) '(-4 101))) ; => (FAR)
(ssget "W" '(-1e6 99) '(1e6 101)) ; => nil
; polygons and fences; the arc counts, not its chord
(names (ssget "_WP" '((-1 -1) (31 31) (31 32) (-1 1)))) ; => (DIAGONAL)
(names (ssget "_CP" '((23 4) (30 4) (30 -4)))) ; => (RING)
(ssget "_CP" '((23.7 3.7) (30 4) (30 3.7))) ; => nil
(names (ssget "_F" '((-1 -0.5) (5 1) (5 6) (61 0)) '((-4 . "<NOT") (0 . "TEXT") (-4 . "NOT>")))) ; => (RING DIAGONAL ROW)
(ssget "_W" '(0 0)) ; ! bad SSGET list
(ssget "_W" '(0 0) "x") ; ! bad SSGET list

; -- a point picks what is within the pick box, the newest first; inside a text counts
(mapcar '(lambda (p) (names (ssget p))) '((25.05 0) (41 1) (60 0.2) (5 0) (0 0) (15 -20))) ; => ((RING) (WORD) (DOT) (ROW) (DIAGONAL) nil)
(ssget '(5 0) '((0 . "CIRCLE"))) ; => nil

; -- "Select objects": points, windows, words, handles, up to Enter; ALL takes layers that are off
(defun answer (lines) (apply 'answers lines) (names (ssget)))
(answer '("25,0" "_L" "")) ; => (RING FAR)
(answer '("w" "-1,-1" "11,1" "CP" "24,1" "@20,0" "@0,-2" "" "R" "41,0" "")) ; => (ROW RING)
(answer '("0,-10" "62,10" "")) ; => (DOT WORD RING ROW)
(answer '("all" "_remove" "C" "-5,-5" "70,50" "")) ; => (FAR OTHER)
(answer '("25,0" "C" "-1,-1" "1,1" "U" "_P" "")) ; => (RING FAR OTHER)
(answer (list (strcat "'" (cdr (assoc 5 (entget row)))) "")) ; => (ROW)
(answer '("")) ; => nil
(progn (answers "25,0" "all" "") (names (ssget ":L" '((0 . "LINE"))))) ; => (OTHER DIAGONAL)
(progn (answers "_ALL") (sslength (ssget "_:S"))) ; => 7
(answer '("25,0")) ; ! no input for: Select objects:
(progn (answers) (names (ssget "_X" '((0 . "CIRCLE"))))) ; => (RING)

; -- one entity at a place
(progn (answers "25,0") (setq e (entsel)) (list (eq (car e) ring) (cadr e))) ; => (T (25.0 0.0 0.0))
(progn (answers "15,-20") (entsel)) ; => nil
(getvar "ERRNO") ; => 7

; -- parts: what stands in blocks, with the way from there to the world
(entmake '((0 . "BLOCK") (2 . "LEG") (70 . 0) (10 0.0 0.0 0.0)))
(entmake '((0 . "LINE") (8 . "0") (10 0.0 0.0 0.0) (11 0.0 2.0 0.0)))
(entmake '((0 . "ENDBLK")))
(entmake '((0 . "BLOCK") (2 . "SOFA") (70 . 0) (10 1.0 0.0 0.0)))
(entmake '((0 . "INSERT") (2 . "LEG") (10 1.0 1.0 0.0) (41 . 2.0) (42 . 2.0) (43 . 2.0)))
(entmake '((0 . "ENDBLK")))
(progn (entmake '((0 . "INSERT") (66 . 1) (2 . "SOFA") (10 100.0 0.0 0.0) (50 . 1.5707963267948966))) (entmake '((0 . "ATTRIB") (10 110.0 0.0 0.0) (40 . 2.0) (2 . "NAME") (1 . "two") (70 . 0))) (entmake '((0 . "SEQEND"))) (setq sofa (entlast)))
; the leg's line runs from (99 0) to (95 0) there: turned by a quarter, twice as long
(setq hit (nentselp '(97.0 0.0 0.0)))
(cdr (assoc 0 (entget (car hit)))) ; => "LINE"
(mapcar '(lambda (e) (cdr (assoc 2 (entget e)))) (cadddr hit)) ; => ("LEG" "SOFA")
(equal (eq (last (cadddr hit)) sofa) T) ; => T
(defun place (m p) (mapcar '(lambda (r) (apply '+ (mapcar '* r p))) m))
(equal (place (caddr hit) '(0.0 1.0 0.0 1.0)) '(97.0 0.0 0.0 1.0) 1e-9) ; => T
(progn (answers "97,0") (setq rows (caddr (nentsel))) (equal (cadddr rows) '(99.0 0.0 0.0) 1e-9)) ; => T
(progn (answers "97,0") (eq (car (entsel)) sofa)) ; => T
(progn (answers "111,1") (setq hit (nentsel)) (list (cdr (assoc 1 (entget (car hit)))) (length hit))) ; => ("two" 2)
(names (ssget "C" '(110 0) '(112 1))) ; => (SOFA)

; a vertex of an old polyline
(progn (entmake '((0 . "POLYLINE") (70 . 0) (10 0.0 0.0 0.0))) (foreach p '((200.0 0.0 0.0) (210.0 0.0 0.0) (210.0 10.0 0.0)) (entmake (list '(0 . "VERTEX") (cons 10 p)))) (entmake '((0 . "SEQEND"))) (cdr (assoc 10 (entget (car (nentselp '(210.0 5.0 0.0))))))) ; => (210.0 0.0 0.0)

; -- places are the user's: his axes are turned by a quarter
(progn (setvar "OSMODE" 0) (command "_.UCS" "_Z" 90) (names (ssget (trans '(60.0 0.0 0.0) 0 1)))) ; => (DOT)
