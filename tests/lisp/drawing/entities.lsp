; Entities by lists: what entget tells, entmod changes and entmake accepts.

(defun group (code ename) (cdr (assoc code (entget ename))))
(defun codes (ename) (mapcar 'car (entget ename)))

; -- making and reading
(entlast)                                   ; => nil
(setq line (entmakex '((0 . "LINE") (8 . "Wand") (10 1 2) (11 4.0 6.0 0.5))))
(type line)                                 ; => ENAME
(list (car (assoc -1 (entget line))) (eq (group -1 line) line)) ; => (-1 T)
(mapcar '(lambda (code) (assoc code (entget line))) '(0 8 10 11)) ; => ((0 . "LINE") (8 . "Wand") (10 1.0 2.0 0.0) (11 4.0 6.0 0.5))
(assoc 330 (entget line))
(type (group 330 line))                     ; => ENAME
(member 5 (codes line))
(= (group 5 line) (group 5 (entlast)))      ; => T
; the layer was made on the way
(cdr (assoc 2 (tblsearch "LAYER" "WAND")))  ; => "Wand"
; entmake gives its own list back, properties that are missing are the current ones
(setvar "CLAYER" "Wand")                    ; => "Wand"
(entmake '((0 . "POINT") nil (10 7.0 8.0 9.0))) ; => ((0 . "POINT") nil (10 7.0 8.0 9.0))
(list (group 0 (entlast)) (group 8 (entlast))) ; => ("POINT" "Wand")

; -- plane vertices have two coordinates
(setq pline (entmakex '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 2)
                        (10 0.0 0.0) (42 . 0.5) (10 10.0 0.0))))
(vl-remove-if-not '(lambda (g) (member (car g) '(10 42))) (entget pline)) ; => ((10 0.0 0.0) (42 . 0.5) (10 10.0 0.0) (42 . 0.0))

; -- what cannot be made is nil with ERRNO, a value of the wrong type an error
(setvar "ERRNO" 0)
(entmake '((0 . "NOSUCH") (10 0.0 0.0)))    ; => nil
(getvar "ERRNO")                            ; => 36
(entmake '((0 . "CIRCLE") (10 0.0 0.0)))    ; => nil
(entmake '((0 . "CIRCLE") (10 . 1.0) (40 . 1.0))) ; ! bad DXF group: (10 . 1.0)
(entmake '((0 "LINE")))                     ; ! bad DXF group: (0 "LINE")
(entmake '((0 . "LINE") (62 . 70000)))      ; ! bad DXF group: (62 . 70000)
(entmake '((0 . "LINE") (9999 . 1)))        ; ! bad DXF group: (9999 . 1)
(entmake '((0 . "POINT") (10 0.0 0.0 0.0 0.0))) ; ! bad DXF group: (10 0.0 0.0 0.0 0.0)
(entmake '((0 . "LINE") . 8))               ; ! bad argument type: listp 8
(entmake 5)                                 ; ! bad argument type: listp 5
(entmake nil)                               ; => nil
(entmake)                                   ; => nil

; -- changing
(setq list1 (subst '(10 5 5 5) (assoc 10 (entget line)) (entget line)))
(equal (entmod list1) list1)                ; => T
(group 10 line)                             ; => (5.0 5.0 5.0)
; numbers are brought to the type of the group
(progn (entmod (list (cons -1 line) '(62 . 3.0) '(48 . 2))) (list (group 62 line) (group 48 line))) ; => (3 2.0)
(entmod nil)                                ; ! bad argument type: consp nil
(entmod '((0 . "LINE")))                    ; => nil

; -- a locked layer keeps its entities
(defun lock (bit / layer)
  (setq layer (entget (tblobjname "LAYER" "Wand")))
  (entmod (subst (cons 70 bit) (assoc 70 layer) layer)))
(progn (lock 4) (entmod (list (cons -1 line) '(62 . 5)))) ; => nil
(list (getvar "ERRNO") (group 62 line) (entdel line)) ; => (35 3 nil)
(type (car (lock 0)))                       ; => LIST

; -- erasing and restoring
(eq (entdel pline) pline)                   ; => T
(list (entget pline) (eq (entlast) pline) (getvar "ERRNO")) ; => (nil nil 17)
(eq (entdel pline) pline)                   ; => T
(eq (entlast) pline)                        ; => T
(setq handle (group 5 pline))
(eq (handent handle) pline)                 ; => T
(progn (entdel pline) (list (type (handent handle)) (entget (handent handle)))) ; => (ENAME nil)
(list (handent "FFFFFF") (handent "") (handent "x") (getvar "ERRNO")) ; => (nil nil nil 13)
(entdel nil)                                ; ! bad argument type: lentityp nil
(entget "5")                                ; ! bad argument type: lentityp "5"
(eq (entupd line) line)                     ; => T

; -- complex entities are there when their end mark is
(setq before (entlast))
(car (entmake '((0 . "POLYLINE") (66 . 1) (8 . "0") (70 . 1)))) ; => (0 . "POLYLINE")
(foreach p '((0.0 0.0 0.0) (4.0 0.0 0.0) (4.0 3.0 0.0)) (entmake (list '(0 . "VERTEX") (cons 10 p))))
(eq (entlast) before)                       ; => T
(entmake '((0 . "SEQEND")))
(setq poly (entlast))
(group 0 poly)                              ; => "POLYLINE"
(progn (setq e poly kinds nil) (while (setq e (entnext e)) (setq kinds (cons (group 0 e) kinds))) (reverse kinds)) ; => ("VERTEX" "VERTEX" "VERTEX" "SEQEND")
(group 10 (entnext (entnext poly)))         ; => (4.0 0.0 0.0)
; one that is cancelled leaves nothing
(progn (entmake '((0 . "POLYLINE") (66 . 1))) (entmake) (eq (entlast) poly)) ; => T

; -- a block, an insert with its attribute
(entmake '((0 . "BLOCK") (2 . "Anker") (70 . 2) (10 0.0 0.0 0.0)))
(entmake '((0 . "CIRCLE") (10 0.0 0.0 0.0) (40 . 2.5)))
(entmake '((0 . "ENDBLK")))                 ; => "Anker"
(setq insert (entmakex '((0 . "INSERT") (2 . "Anker") (10 5.0 5.0 0.0))))
(list (group 2 insert) (group 41 insert) (group 50 insert)) ; => ("Anker" 1.0 0.0)
(setq first (cdr (assoc -2 (tblsearch "BLOCK" "anker"))))
(group 0 first)                             ; => "CIRCLE"
(group 0 (cdr (assoc -2 (entget (tblobjname "BLOCK" "ANKER"))))) ; => "CIRCLE"
(entnext first)                             ; => nil

; -- extended data
(entmake '((0 . "POINT") (10 0 0) (-3 ("Orvald" (1000 . "text"))))) ; => nil
(regapp "Orvald")                           ; => "Orvald"
(setq point (entmakex '((0 . "POINT") (10 0 0)
  (-3 ("Orvald" (1000 . "text") (1002 . "{") (1010 1 2 3) (1040 . 2) (1070 . 7) (1071 . 70000) (1002 . "}"))))))
(assoc -3 (entget point '("ORV*")))         ; => (-3 ("Orvald" (1000 . "text") (1002 . "{") (1010 1.0 2.0 3.0) (1040 . 2.0) (1070 . 7) (1071 . 70000) (1002 . "}")))
(assoc -3 (entget point))                   ; => nil
(assoc -3 (entget point '("OTHER")))        ; => nil
(entget point '(5))                         ; ! bad argument type: stringp 5
(entmod (list (cons -1 point) '(-3 ("Orvald" (1000))))) ; ! bad DXF group: (1000)
(entmod (list (cons -1 point) '(-3 (5))))   ; ! bad DXF group: (-3 (5))
(progn (entmod (list (cons -1 point) '(-3 ("Orvald")))) (assoc -3 (entget point '("*")))) ; => nil

; -- text comes back as it went in
(setq text (entmakex '((0 . "TEXT") (10 0 0) (40 . 2.5) (1 . "Größe ^ \\U+00D8 \n \"x\""))))
(group 1 text)                              ; => "Größe ^ \\U+00D8 \n \"x\""
; angles in radians
(progn (entmod (list (cons -1 text) (cons 50 (/ pi 4)))) (rtos (group 50 text) 2 6)) ; => "0.785398"

; -- a long run of entities: what was made first is walked first
(progn (setq last (entlast)) (repeat 2000 (entmake '((0 . "POINT") (10 1 1))))
  (setq n 0) (while (setq last (entnext last)) (setq n (1+ n))) n) ; => 2000
