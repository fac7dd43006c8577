; Commands on blocks, and on properties of objects.
(defun groups (e codes / l) (setq l (entget e)) (mapcar '(lambda (c) (cdr (assoc c l))) codes))
(defun near (a b) (equal a b 1e-9))
(defun kinds ( / s n r) (if (setq s (ssget "X")) (repeat (setq n (sslength s)) (setq r (cons (cdr (assoc 0 (entget (ssname s (setq n (1- n)))))) r)))) (acad_strlsort r))
(defun line (a b) (entmakex (list '(0 . "LINE") '(8 . "0") (cons 10 a) (cons 11 b))))

; -- a block takes its objects out of the drawing; its base point is where it is inserted
(setq a (line '(5.0 5.0 0.0) '(7.0 5.0 0.0)))
(progn (command "_.-BLOCK" "Bar" '(5 5) a "") (list (entget a) (kinds) (cdr (assoc 10 (tblsearch "BLOCK" "Bar"))))) ; => (nil nil (5.0 5.0 0.0))
(progn (command "_.INSERT" "bar" '(1 2) 2 "" 90) (groups (entlast) '(0 2 10 41 42 43))) ; => ("INSERT" "Bar" (1.0 2.0 0.0) 2.0 2.0 2.0)
(progn (command "_.INSERT" "Bar" "_S" 3 "_R" 180 '(0 0)) (list (groups (entlast) '(41 42 43)) (near (groups (entlast) '(50)) (list pi)))) ; => ((3.0 3.0 3.0) T)
(progn (command "_.INSERT" "Bar" '(0 0) 2 -1 0) (groups (entlast) '(41 42 43))) ; => (2.0 -1.0 2.0)
(command "_.INSERT" "None")                               ; ! Function cancelled
; one that is there is made anew only when that is meant, and never of itself
(progn (setq b (line '(0.0 0.0 0.0) '(1.0 0.0 0.0))) (command "_.BLOCK" "Bar" "_N") (list (getvar "CMDACTIVE") (if (entget b) T))) ; => (0 T)
(command "_.BLOCK" "Bar" "_Y" '(0 0) "_ALL" "")           ; ! Function cancelled
(progn (command "_.BLOCK" "Bar" "_Y" '(0 0) b "") (cdr (assoc 11 (entget (cdr (assoc -2 (tblsearch "BLOCK" "Bar"))))))) ; => (1.0 0.0 0.0)
(progn (command "_.U") (cdr (assoc 10 (tblsearch "BLOCK" "Bar")))) ; => (5.0 5.0 0.0)

; -- attributes are asked for one by one, stand as their definitions say, and follow the insert
(entmake '((0 . "BLOCK") (2 . "Tag") (70 . 2) (10 0.0 0.0 0.0)))
(entmake '((0 . "ATTDEF") (100 . "AcDbEntity") (8 . "0") (100 . "AcDbText") (10 1.0 0.0 0.0) (40 . 2.0) (1 . "none") (100 . "AcDbAttributeDefinition") (3 . "Number?") (2 . "NO") (70 . 0)))
(entmake '((0 . "ATTDEF") (100 . "AcDbEntity") (8 . "0") (100 . "AcDbText") (10 1.0 -3.0 0.0) (40 . 2.0) (1 . "steel") (100 . "AcDbAttributeDefinition") (3 . "Material?") (2 . "MAT") (70 . 0)))
(entmake '((0 . "ENDBLK")))
(progn (command "_.INSERT" "Tag" '(10 0) 2 "" 90 "17" "") (setq c (entnext (entlast))) (near (groups c '(0 1 2 40 10 50)) (list "ATTRIB" "17" "NO" 4.0 '(10.0 2.0 0.0) (/ pi 2)))) ; => T
(groups (entnext c) '(1 2))                               ; => ("steel" "MAT")
(progn (setvar "ATTREQ" 0) (command "_.INSERT" "Tag" '(0 0) 1 1 0) (setvar "ATTREQ" 1) (list (getvar "CMDACTIVE") (groups (entnext (entlast)) '(1)))) ; => (0 ("none"))
(progn (command "_.ERASE" "_ALL" "") (kinds))             ; => nil

; -- exploding: what the block shows stands where it was seen; polylines become lines and arcs
(progn (command "_.INSERT" "Bar" '(1 2) 2 2 90 "_.EXPLODE" "_L" "") (list (kinds) (near (groups (entlast) '(10 11)) '((1.0 2.0 0.0) (1.0 6.0 0.0))))) ; => (("LINE") T)
(progn (command "_.ERASE" "_ALL" "" "_.COLOR" 3 "_.PLINE" '(0 0) '(4 0) "_A" '(4 2) "_L" '(0 2) "_C" "_.COLOR" "BYLAYER") (command "_.EXPLODE" (entlast)) (list (kinds) (groups (entlast) '(62 10 11)))) ; => (("ARC" "LINE" "LINE" "LINE") (3 (0.0 2.0 0.0) (0.0 0.0 0.0)))
(progn (command "_.EXPLODE" "_L") (list (length (kinds)) (getvar "CMDACTIVE"))) ; => (4 0)

; -- properties, change points
(progn (command "_.ERASE" "_ALL" "" "_.LAYER" "_N" "Other" "") (setq d (line '(0.0 0.0 0.0) '(9.0 0.0 0.0))) (command "_.CHANGE" d "" "_P" "_C" "red" "_LA" "other" "_S" 2 "_T" 3 "") (groups d '(8 62 48 39))) ; => ("Other" 1 2.0 3.0)
(progn (command "_.CHPROP" d "" "_C" "bylayer" "_LW" 0.5 "_LT" "byblock" "") (groups d '(62 370 6))) ; => (nil 50 "ByBlock")
(progn (command "_.CHANGE" d "" "_P" "_E" 5 "" "_.CHANGE" d "" '(8 1 5)) (groups d '(10 11))) ; => ((0.0 0.0 5.0) (8.0 1.0 5.0))
(progn (command "_.TEXT" '(0 0) 2 0 "old" "_.CHANGE" "_L" "" '(3 3) "" 4 90 "new") (near (groups (entlast) '(1 10 40 50)) (list "new" '(3.0 3.0 0.0) 4.0 (/ pi 2)))) ; => T
(command "_.CHANGE" d "" "_P" "_LA" "None")               ; ! Function cancelled

; -- purging: what nothing uses, block by block
(entmake '((0 . "BLOCK") (2 . "Outer") (70 . 0) (10 0.0 0.0 0.0)))
(entmake '((0 . "INSERT") (2 . "Tag") (10 0.0 0.0 0.0)))
(entmake '((0 . "ENDBLK")))
(progn (command "_.INSERT" "Bar" '(0 0) 1 1 0 "_.-PURGE" "_B" "*" "_N") (mapcar '(lambda (b) (if (tblsearch "BLOCK" b) T)) '("Bar" "Tag" "Outer"))) ; => (T nil nil)
(progn (command "_.LAYER" "_N" "Free1,Free2" "" "_.PURGE" "_LA" "Free*" "_Y" "_Y" "_N") (list (tblsearch "LAYER" "Free1") (if (tblsearch "LAYER" "Free2") T) (if (tblsearch "LAYER" "Other") T) (getvar "CMDACTIVE"))) ; => (nil T T 0)
(progn (command "_.PURGE" "_A" "" "_N") (list (tblsearch "LAYER" "Free2") (if (tblsearch "STYLE" "Standard") T) (if (tblsearch "LTYPE" "Continuous") T))) ; => (nil T T)
