; Selection sets: filters, changing a set in place, the sets that are remembered.

(setq line (entmakex '((0 . "LINE") (8 . "Wand") (62 . 1) (10 0 0) (11 10 0))))
(setq circle (entmakex '((0 . "CIRCLE") (8 . "Achsen") (10 5 5) (40 . 2.5))))
(setq arc (entmakex '((0 . "ARC") (8 . "Wand") (10 5 5) (40 . 7.5) (50 . 0) (51 . 1))))
(defun kinds (set / i all)
  (setq i 0)
  (if set (repeat (sslength set)
    (setq all (cons (cdr (assoc 0 (entget (ssname set i)))) all) i (1+ i))))
  (reverse all))

; -- the whole drawing, newest first
(kinds (ssget "X"))                         ; => ("ARC" "CIRCLE" "LINE")
(kinds (ssget "_x" '((8 . "WAND"))))        ; => ("ARC" "LINE")
(ssget "X" '((0 . "TEXT")))                 ; => nil
(kinds (ssget "X" '((0 . "LINE,CIR*") (8 . "~Ach*")))) ; => ("LINE")
(kinds (ssget "X" '((-4 . "<OR") (-4 . ">") (40 . 5.0) (62 . 1) (-4 . "OR>")))) ; => ("ARC" "LINE")
(kinds (ssget "X" '((62 . 256))))           ; => ("ARC" "CIRCLE")
(kinds (ssget "X" '((-4 . ">=,*,*") (10 5.0 0.0 0.0)))) ; => ("ARC" "CIRCLE")
; a filter that begins with a point or with extended data is no list of points
(kinds (ssget "X" '((10 5.0 5.0 0.0))))     ; => ("ARC" "CIRCLE")
(regapp "MARK")
(entmod (list (cons -1 arc) '(-3 ("MARK" (1070 . 1)))))
(list (kinds (ssget "X" '((-3 ("MA*"))))) (ssget "_X" '((-3 ("OTHER"))))) ; => (("ARC") nil)
(kinds (ssget "_WP" '((0 0) (9 0) (9 9) (0 9)) '((10 5.0 5.0 0.0)))) ; => ("CIRCLE")
(ssget "X" '((-4 . "<OR") (0 . "LINE")))    ; ! bad SSGET list
(ssget "X" '((0 . 5)))                      ; ! bad DXF group: (0 . 5)
(ssget "Q")                                 ; ! bad SSGET mode string

; -- members
(setq set (ssget "X"))
(list (type set) (sslength set) (eq (ssname set 2) line) (eq (ssname set 1.9) circle)) ; => (PICKSET 3 T T)
(list (ssname set 3) (ssname set -1))       ; => (nil nil)
(list (eq (ssdel circle set) set) (ssdel circle set) (sslength set) (ssmemb circle set) (eq (ssmemb arc set) arc)) ; => (T nil 2 nil T)
(list (eq (ssadd circle set) set) (sslength (ssadd circle set)) (kinds set)) ; => (T 3 ("ARC" "LINE" "CIRCLE"))
(list (sslength (ssadd)) (kinds (ssadd line))) ; => (0 ("LINE"))
(sslength nil)                              ; ! bad argument type: lselsetp nil
(ssname "x" 0)                              ; ! bad argument type: lselsetp "x"
(ssadd 5)                                   ; ! bad argument type: lentityp 5
(mapcar 'car (ssnamex set))                 ; => (0 0 0)
(eq (cadar (ssnamex set 1)) line)           ; => T
; taken away from the front, one after the other
(progn (while (setq e (ssname set 0)) (ssdel e set)) (sslength set)) ; => 0

; -- last, previous, picked
(kinds (ssget "L"))                         ; => ("ARC")
(progn (ssget "X" '((0 . "CIRCLE"))) (kinds (ssget "P"))) ; => ("CIRCLE")
(ssget "P" '((0 . "LINE")))                 ; => nil
(kinds (ssget "P"))                         ; => ("CIRCLE")
(progn (entdel circle) (ssget "_P"))        ; => nil
(entdel circle)
(list (ssget "I") (ssgetfirst))             ; => (nil (nil nil))
(progn (sssetfirst nil (ssadd line)) (list (kinds (ssget "I")) (kinds (cadr (ssgetfirst))))) ; => (("LINE") ("LINE"))
(progn (sssetfirst nil) (ssgetfirst))       ; => (nil nil)

; -- what a user can reach: neither frozen layers nor the sheets
(progn (entmake '((0 . "POINT") (67 . 1) (10 1 1))) (list (kinds (ssget "A")) (car (kinds (ssget "X"))))) ; => (("ARC" "CIRCLE" "LINE") "POINT")
(setq layer (entget (tblobjname "LAYER" "Wand")))
(progn (entmod (subst '(70 . 1) (assoc 70 layer) layer)) (kinds (ssget "_A"))) ; => ("CIRCLE")
; :L leaves out what lies on locked layers
(progn (entmod (subst '(70 . 4) (assoc 70 layer) layer)) (kinds (ssget "_X:L"))) ; => ("POINT" "CIRCLE")

; -- without a user there is nothing to pick
(ssget)                                     ; ! no input for: Select objects:
(ssget '((0 . "LINE")))                     ; ! no input for: Select objects:
(ssget "+.:E:S" '((0 . "LINE")))            ; ! no input for: Select objects:

; -- sets that nobody holds any more make room for new ones
(progn (repeat 1000 (setq set (ssadd line))) (sslength set)) ; => 1
(progn (setq many nil) (repeat 200 (setq many (cons (ssadd) many)))) ; ! exceeded maximum number of selection sets
(progn (setq many nil) (sslength (ssadd)))  ; => 0
