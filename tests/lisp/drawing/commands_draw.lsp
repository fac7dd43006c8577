; Commands that draw: what they make of their input, and how they wait for it.
(defun groups (codes / e) (setq e (entget (entlast))) (mapcar '(lambda (c) (cdr (assoc c e))) codes))
(defun all (code / e r) (foreach g (entget (entlast)) (if (= (car g) code) (setq r (cons (cdr g) r)))) (reverse r))
(defun near (a b) (equal a b 1e-9))
(defun count (kind / s) (if (setq s (ssget "X" (list (cons 0 kind)))) (sslength s) 0))
(setvar "CLAYER" "0")

; -- input: points as lists and as text, relative, polar; prefixes of names and options
(command "_.LINE" '(0 0) "10,0" "@0,5" "@5<180" "_Close") ; => nil
(list (count "LINE") (groups '(0 10 11)))                  ; => (4 ("LINE" (5.0 5.0 0.0) (0.0 0.0 0.0)))
(progn (command "line" "0,0" '(1.0 2.0 3.0) "") (groups '(10 11))) ; => ((0.0 0.0 0.0) (1.0 2.0 3.0))
(progn (command "'_.LINE" "" "@1,1" "") (groups '(10)))   ; => ((1.0 2.0 3.0))
(progn (command "_LINE" '(0 0) '(1 1) '(2 2) "_U" '(3 3) "") (groups '(10 11))) ; => ((1.0 1.0 0.0) (3.0 3.0 0.0))
(progn (command "_.LINE" '(0 0) "*5,5" "") (groups '(11))) ; => ((5.0 5.0 0.0))

; -- a command waits for the next call, until it has what it wants or is cancelled
(progn (command "_.LINE" '(7 7)) (list (getvar "CMDACTIVE") (getvar "CMDNAMES"))) ; => (1 "LINE")
(progn (command '(8 8)) (command '(9 9)) (command "") (list (getvar "CMDACTIVE") (groups '(10 11)))) ; => (0 ((8.0 8.0 0.0) (9.0 9.0 0.0)))
(progn (command "_.CIRCLE" '(0 0)) (command) (list (getvar "CMDACTIVE") (count "CIRCLE"))) ; => (0 0)
(progn (command "_.CIRCLE" '(0 0) nil) (getvar "CMDACTIVE")) ; => 0
; what it has drawn until then stays
(progn (command "_.PLINE" '(0 0) '(4 0) '(4 4)) (command) (list (groups '(0 90 70)))) ; => (("LWPOLYLINE" 3 0))
; input that does not fit ends it, and is never passed over
(command "_.LINE" "here")                                 ; ! Function cancelled
(list (getvar "CMDACTIVE") (vl-cmdf "_.CIRCLE" '(0 0) -1) (count "CIRCLE")) ; => (0 nil 0)
(command "_.LINE" 'symbol)                                ; ! bad argument type: 2D/3D point: SYMBOL
(progn (command) (command "_.DIMLINEAR" '(0 0)))          ; ! command "DIMLINEAR" is not available in this host
; one command is one step, over several calls too
(setq before (count "LINE"))
(progn (command "_.LINE" '(0 0) '(1 0)) (command '(2 0) "") (command "_.U") (= (count "LINE") before)) ; => T

; -- circles and arcs
(progn (command "_.CIRCLE" '(5 5) 2.5) (groups '(10 40))) ; => ((5.0 5.0 0.0) 2.5)
(progn (command "_.CIRCLE" '(5 5) "_D" "3") (groups '(40))) ; => (1.5)
(progn (command "_.CIRCLE" '(5 5) "") (groups '(40)))     ; => (1.5)
(progn (command "_.CIRCLE" '(5 5) '(5 9)) (list (groups '(40)) (getvar "LASTPOINT"))) ; => ((4.0) (5.0 5.0 0.0))
(progn (command "_.CIRCLE" "_2P" '(0 0) '(4 0)) (groups '(10 40))) ; => ((2.0 0.0 0.0) 2.0)
(progn (command "_.CIRCLE" "_3P" '(1 0) '(0 1) '(-1 0)) (near (groups '(10 40)) '((0.0 0.0 0.0) 1.0))) ; => T
(command "_.CIRCLE" "_3P" '(1 0) '(2 0) '(3 0))           ; ! Function cancelled
(setq quarter (list '(0.0 0.0 0.0) 2.0 0.0 (/ pi 2)))
(defun arc (args) (apply 'command (cons "_.ARC" args)) (near (groups '(10 40 50 51)) quarter))
(arc (list '(2 0) (list (sqrt 2.0) (sqrt 2.0)) '(0 2)))   ; => T
(arc (list '(0 2) (list (sqrt 2.0) (sqrt 2.0)) '(2 0)))   ; => T
(arc '((2 0) "_C" (0 0) (0 5)))                           ; => T
(arc '((2 0) "_C" (0 0) "_A" 90))                         ; => T
(arc (list '(2 0) "_C" '(0 0) "_L" (sqrt 8.0)))           ; => T
(arc '((2 0) "_E" (0 2) (0 0)))                           ; => T
(arc '((2 0) "_E" (0 2) "_A" "90"))                       ; => T
(arc '((2 0) "_E" (0 2) "_D" 90))                         ; => T
(arc '((2 0) "_E" (0 2) "_R" 2))                          ; => T
(arc '("_C" (0 0) (2 0) (0 7)))                           ; => T
(arc '("_C" (0 0) (0 2) "_A" -90))                        ; => T

; -- polylines: lines, arcs that go on without a bend, widths
(progn (command "_.PLINE" '(0 0) '(10 0) "_A" '(10 4) "_L" '(0 4) "_C") (list (groups '(70 90)) (all 10) (near (all 42) '(0.0 1.0 0.0 0.0)))) ; => ((1 4) ((0.0 0.0) (10.0 0.0) (10.0 4.0) (0.0 4.0)) T)
(progn (command "_.PLINE" '(0 0) "_W" 1 2 '(5 0) '(9 0) "_U" '(8 0) "") (list (all 40) (all 41) (getvar "PLINEWID"))) ; => ((1.0 2.0 2.0) (2.0 2.0 2.0) 2.0)
(progn (command "_.PLINE" '(0 0) "_H" 0 "" '(5 0) "_L" 3 "") (list (groups '(43)) (all 10))) ; => ((0.0) ((0.0 0.0) (5.0 0.0) (8.0 0.0)))
(progn (command "_.PLINE" '(0 0) "_A" "_S" '(1 1) '(2 0) "_CE" '(3 0) "_A" -180 "") (near (all 42) '(-1.0 -1.0 0.0))) ; => T
(progn (command "_.PLINE" '(0 0) "_A" "_A" 180 '(0 -2) "_D" 0 '(0 2) "") (near (all 42) '(1.0 1.0 0.0))) ; => T

; -- rectangles
(progn (command "_.RECTANG" '(1 1) "@4,2") (list (groups '(0 70)) (all 10))) ; => (("LWPOLYLINE" 1) ((1.0 1.0) (5.0 1.0) (5.0 3.0) (1.0 3.0)))
(progn (command "_.RECTANG" "_F" 0.5 '(0 0) '(-4 2)) (list (groups '(90)) (car (all 10)) (near (car (all 42)) (- 1 (sqrt 2.0))))) ; => ((8) (0.0 0.5) T)
(progn (command "_.RECTANG" '(0 0) "_D" 4 2 '(-1 -1)) (all 10)) ; => ((0.0 0.0) (-4.0 0.0) (-4.0 -2.0) (0.0 -2.0))
(progn (command "_.RECTANG" "_C" 1 0.5 '(0 0) '(4 4)) (all 10)) ; => ((0.0 1.0) (0.5 0.0) (3.0 0.0) (4.0 0.5) (4.0 3.0) (3.5 4.0) (1.0 4.0) (0.0 3.5))

; -- text: height from the style or the input, justification
(progn (command "_.TEXT" '(1 2) 3.5 90 "one two") (list (groups '(1 10 40 72 73)) (getvar "TEXTSIZE"))) ; => (("one two" (1.0 2.0 0.0) 3.5 0 0) 3.5)
(progn (command "_.TEXT" "_J" "_MC" '(1 2) "" "" "mid") (groups '(1 11 40 50 72 73))) ; => ("mid" (1.0 2.0 0.0) 3.5 0.0 1 2)
(progn (command "_.DTEXT" "_R" '(1 2) 2 0 5) (groups '(1 11 72))) ; => ("5" (1.0 2.0 0.0) 2)
(progn (command "_.TEXT" "_F" '(0 0) '(0 9) 2 "fit") (list (groups '(11 72)) (near (groups '(50)) (list (/ pi 2))))) ; => (((0.0 9.0 0.0) 5) T)
(entmake '((0 . "STYLE") (100 . "AcDbSymbolTableRecord") (100 . "AcDbTextStyleTableRecord") (2 . "Fixed") (70 . 0) (40 . 4.0) (41 . 0.8) (50 . 0.0) (71 . 0) (42 . 4.0) (3 . "txt")  (4 . ""))) 
(progn (command "_.TEXT" "_S" "Fixed" '(0 0) 0 "style") (groups '(1 7 40 41))) ; => ("style" "Fixed" 4.0 0.8)
(command "_.TEXT" "_S" "None" '(0 0) 0 "style")           ; ! Function cancelled

; -- the current properties, elevation and coordinate system
(progn (entmake '((0 . "LAYER") (100 . "AcDbSymbolTableRecord") (100 . "AcDbLayerTableRecord") (2 . "Wall") (70 . 0) (62 . 3) (6 . "Continuous"))) (setvar "CLAYER" "Wall") (setvar "CECOLOR" "1") (setvar "ELEVATION" 2.0) (setvar "THICKNESS" 5.0) (command "_.LINE" '(0 0) "1,0" "") (groups '(8 62 10 11 39))) ; => ("Wall" 1 (0.0 0.0 2.0) (1.0 0.0 2.0) 5.0)
(progn (command "_.POINT" '(1 2 3)) (groups '(0 10)))     ; => ("POINT" (1.0 2.0 3.0))
