; Commands that move, copy and erase: how objects are selected, and where they go.
(defun line (a b) (entmakex (list '(0 . "LINE") '(8 . "0") (cons 10 a) (cons 11 b))))
(defun ends (e) (list (cdr (assoc 10 (entget e))) (cdr (assoc 11 (entget e)))))
(defun near (a b) (equal a b 1e-9))
(defun count ( / s) (if (setq s (ssget "X")) (sslength s) 0))
(setq a (line '(0.0 0.0 0.0) '(1.0 0.0 0.0)) b (line '(0.0 1.0 0.0) '(1.0 1.0 0.0)) c (line '(0.0 2.0 0.0) '(1.0 2.0 0.0)))

; -- selecting: entities, sets, what entsel answers, words; the selection is the previous one then
(progn (command "_.SELECT" a (list b '(0 1 0)) "") (sslength (ssget "P"))) ; => 2
(progn (command "_.SELECT" (ssget "X") "_R" a "_A" a "_R" "_L" "") (ssmemb c (ssget "P"))) ; => nil
(progn (command "_.MOVE" "_P" "" '(0 0) '(0 0)) (sslength (ssget "P"))) ; => 2
(progn (command "_.SELECT" "_ALL" "") (sslength (ssget "P"))) ; => 3
(command "_.SELECT" "nothing")                             ; ! Function cancelled

; -- moving: by two points, by one, by a displacement
(progn (command "_.MOVE" a "" '(0 0) '(3 4)) (ends a))    ; => ((3.0 4.0 0.0) (4.0 4.0 0.0))
(progn (command "_.MOVE" a "" "-3,-4" "") (ends a))       ; => ((0.0 0.0 0.0) (1.0 0.0 0.0))
(progn (command "_.MOVE" a b "" "_D" "0,0,5") (list (ends a) (ends b))) ; => (((0.0 0.0 5.0) (1.0 0.0 5.0)) ((0.0 1.0 5.0) (1.0 1.0 5.0)))
(progn (command "_.U") (ends a))                          ; => ((0.0 0.0 0.0) (1.0 0.0 0.0))
(progn (command "_.MOVE" "" '(0 0) '(5 5)) (getvar "CMDACTIVE")) ; => 0

; -- copying: once, or to many places; the copy is the last entity
(progn (command "_.COPY" a "" '(0 0) "@5<90") (list (count) (near (ends (entlast)) '((0.0 5.0 0.0) (1.0 5.0 0.0))))) ; => (4 T)
(progn (command "_.COPY" a "" "_M" '(0 0) '(1 0) '(2 0) "") (list (count) (ends (entlast)))) ; => (6 ((2.0 0.0 0.0) (3.0 0.0 0.0)))
(progn (command "_.ERASE" "_L" "") (count))               ; => 5

; -- turning, scaling, mirroring
(progn (command "_.ROTATE" a "" '(0 0) 90) (near (ends a) '((0.0 0.0 0.0) (0.0 1.0 0.0)))) ; => T
(progn (command "_.ROTATE" a "" '(0 0) "_R" '(0 0) '(0 1) 0) (near (ends a) '((0.0 0.0 0.0) (1.0 0.0 0.0)))) ; => T
(progn (command "_.ROTATE" a "" '(0 0) "_C" '(-5 0)) (list (count) (near (ends (entlast)) '((0.0 0.0 0.0) (-1.0 0.0 0.0))))) ; => (6 T)
(progn (command "_.SCALE" a "" '(1 0) 3) (ends a))        ; => ((-2.0 0.0 0.0) (1.0 0.0 0.0))
(progn (command "_.SCALE" a "" '(1 0) "_R" 3 1) (near (ends a) '((0.0 0.0 0.0) (1.0 0.0 0.0)))) ; => T
(command "_.SCALE" a "" '(1 0) 0)                         ; ! Function cancelled
(progn (command "_.MIRROR" a "" '(0 0) '(1 1) "_Y") (list (count) (near (ends a) '((0.0 0.0 0.0) (0.0 1.0 0.0))))) ; => (6 T)
; texts stay readable where their images stand, with MIRRTEXT they turn backward; an "a" of 2.0 is 1.4 wide
(defun text (x y) (entmake (list '(0 . "TEXT") (list 10 x y 0.0) '(40 . 2.0) '(1 . "a"))) (entlast))
(defun mirrored (e p q / l) (command "_.MIRROR" e "" p q "_Y") (setq l (mapcar '(lambda (c) (cdr (assoc c (entget e)))) '(10 50 71))) (entdel e) l)
(near (mirrored (text 1.0 0.0) '(5 0) '(5 1)) '((7.6 0.0 0.0) 0.0 0)) ; => T
(near (mirrored (text 1.0 0.0) '(0 5) '(1 5)) '((1.0 8.0 0.0) 0.0 0)) ; => T
(near (mirrored (text 1.0 0.0) '(0 0) '(1 1)) (list '(2.0 1.0 0.0) (/ pi 2) 0)) ; => T
(progn (setvar "MIRRTEXT" 1) (near (mirrored (text 1.0 0.0) '(5 0) '(5 1)) '((9.0 0.0 0.0) 0.0 2))) ; => T
(length (vl-remove-if-not '(lambda (g) (= 71 (car g))) (progn (setq e (text 1.0 0.0)) (command "_.MIRROR" e "" '(5 0) '(5 1) "_Y") (entget e)))) ; => 1
(progn (entdel e) (setvar "MIRRTEXT" 0))
(progn (command "_.MIRROR" a "" '(5 0) '(5 1) "_N") (list (count) (near (ends (entlast)) '((10.0 0.0 0.0) (10.0 1.0 0.0))))) ; => (7 T)

; -- erasing; what stands on a locked layer stays as it is
(progn (entmake '((0 . "LAYER") (100 . "AcDbSymbolTableRecord") (100 . "AcDbLayerTableRecord") (2 . "Locked") (70 . 4) (62 . 3) (6 . "Continuous"))) (setq d (entmakex '((0 . "POINT") (8 . "Locked") (10 5.0 5.0 0.0)))) (command "_.ERASE" "_ALL" "") (list (count) (cdr (assoc 0 (entget (entlast)))))) ; => (1 "POINT")
(progn (command "_.MOVE" d "") (getvar "CMDACTIVE"))      ; => 0
(progn (command "_.COPY" d "" '(0 0) '(1 0)) (count))     ; => 2

; -- selecting by where things are drawn: points, windows, crossing windows, polygons, fences
(progn (entdel d) (command "_.LAYER" "_U" "*" "" "_.ERASE" "_ALL" "") (setq a (line '(0.0 0.0 0.0) '(4.0 0.0 0.0)) b (line '(0.0 2.0 0.0) '(4.0 2.0 0.0)) c (line '(0.0 4.0 0.0) '(9.0 4.0 0.0))) (defun chosen (args / s) (command "_.SELECT") (apply 'command args) (setq s (ssget "P")) (mapcar '(lambda (e) (if (ssmemb e s) 1 0)) (list a b c))) (count)) ; => 3
(chosen '((2 2) ""))                                      ; => (0 1 0)
(chosen '("_W" (-1 -1) (5 3) ""))                         ; => (1 1 0)
(chosen '("_C" (-1 1) (1 5) ""))                          ; => (0 1 1)
(chosen '("_W" (-1 -1) (10 5) "_R" (2 2) ""))             ; => (1 0 1)
(chosen '("_CP" (-1 -1) (5 -1) (5 1) "" ""))              ; => (1 0 0)
(chosen '("_F" (1 -1) (1 3) "" ""))                       ; => (1 1 0)
(chosen '((8 3) (1 1) ""))                                ; => (0 1 0)
(chosen '((1 1) (5 5) "_L" "_U" ""))                      ; => (0 1 0)
(progn (command "_.ERASE" "_C" '(-1 -1) '(1 3) "") (count)) ; => 1
