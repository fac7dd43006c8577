; Input: keywords, numbers, angles and points as users type them, and picking entities.

; -- Enter is nil, unless it is not allowed
(progn (answers "") (getint "Number: "))    ; => nil
(progn (answers "" "7") (initget 1) (list (getint "Number: ") (unused))) ; => (7 0)
; the rules are used up by one input
(progn (answers "0" "5" "0") (initget 2) (list (getint) (getint))) ; => (5 0)

; -- whole numbers, numbers, and what is asked for again
(progn (answers "1.5" "40000" "x" "-32768") (getint)) ; => -32768
(progn (answers "-3" "0" "3") (initget 6) (getint)) ; => 3
(progn (answers "abc" "2" "1.5e3") (list (getreal) (getreal))) ; => (2.0 1500.0)

; -- keywords: shortened down to their capitals or to what follows the comma
(defun asked (words typed) (answers typed) (initget words) (getkword "Option: "))
(mapcar '(lambda (typed) (asked "LType eXit toP 2Point" typed)) '("lt" "LTY" "x" "exit" "p" "2p" "2point")) ; => ("LType" "LType" "eXit" "eXit" "toP" "2Point" "2Point")
(mapcar '(lambda (typed) (asked "LTYPE,LT ALL only" typed)) '("ltyp" "all" "only")) ; => ("LTYPE" "ALL" "only")
(progn (answers "l" "al" "on" "Only") (initget "LTYPE,LT ALL only") (getkword)) ; => "only"
; the language of programs stands behind a lone "_"
(mapcar '(lambda (typed) (asked "Ja Nein ? _ Yes No ?" typed)) '("ja" "n" "_y" "_No" "?")) ; => ("Yes" "No" "Yes" "No" "?")
(list (asked "_hidden" "_HIDDEN") (asked "Yes" "_y")) ; => ("_hidden" "Yes")
; a keyword is an answer wherever a value is wanted; other text only when it is allowed
(progn (answers "e") (initget "Exit") (getpoint "Point: ")) ; => "Exit"
(progn (answers "anything goes") (initget 128) (getreal)) ; => "anything goes"
(progn (answers "1,2") (initget 128 "Exit") (getpoint)) ; => (1.0 2.0 0.0)

; -- points: absolute, from the last one, by angle; z from ELEVATION
(progn (answers "1,2" "@3,4" "@" "@10<90" "*1,1") (mapcar '(lambda (x) (getpoint)) '(1 2 3 4 5))) ; => ((1.0 2.0 0.0) (4.0 6.0 0.0) (4.0 6.0 0.0) (4.0 16.0 0.0) (1.0 1.0 0.0))
(progn (answers "5<180,2") (equal (getpoint) '(-5 0 2) 1e-9)) ; => T
(progn (setvar "ELEVATION" 3.5) (answers "1,2" "1,2,0") (list (getpoint) (getpoint))) ; => ((1.0 2.0 3.5) (1.0 2.0 0.0))
(setvar "ELEVATION" 0)
(progn (answers "@1,1") (getpoint '(10 10) "Next: ")) ; => (11.0 11.0 0.0)
(progn (answers "1" "1,2,3,4" "a,b" "@x" "7,8") (list (getpoint) (unused))) ; => ((7.0 8.0 0.0) 0)
(progn (answers "4,4") (getcorner '(1 1) "Corner: ")) ; => (4.0 4.0 0.0)
(getcorner "x")                             ; ! bad argument type: 2D/3D point: "x"
(getpoint 5)                                ; ! bad argument type: stringp 5

; -- distances by a number or by two points
(progn (answers "2.5" "3,4" "0,0" "3,4,12") (list (getdist) (getdist '(0 0)) (getdist))) ; => (2.5 5.0 13.0)
(progn (answers "3,4,12") (initget 64) (getdist '(0 0 0))) ; => 5.0

; -- angles count from ANGBASE, orientations from the X axis
(progn (setvar "ANGBASE" (/ pi 2)) (answers "0" "0" "-90" "-90") (list (getangle) (getorient) (getangle) (getorient))) ; => (0.0 1.5708 4.71239 0.0)
(progn (answers "0,5" "0,5") (list (getangle '(0 0)) (getorient '(0 0)))) ; => (0.0 1.5708)
(progn (setvar "ANGDIR" 1) (answers "90" "10<90") (list (getorient) (equal (getpoint) '(10 0 0) 1e-9))) ; => (0.0 T)
(progn (setvar "ANGBASE" 0) (setvar "ANGDIR" 0))

; -- text: a blank ends it unless blanks are wanted; initget does not count and is kept
(progn (answers "Gehrung links" "  Gehrung links " "") (list (getstring) (getstring T "Text: ") (getstring nil "Text: "))) ; => ("Gehrung" "  Gehrung links " "")
(progn (answers "" "0" "4") (initget 3) (list (getstring) (getint))) ; => ("" 4)

; -- picking: by handle or the last one, with a point or at the entity's own
(setq line (entmakex '((0 . "LINE") (10 1 2) (11 5 5))))
(setq handle (cdr (assoc 5 (entget line))))
(progn (answers (strcat "'" handle)) (setq pick (entsel "Pick: ")) (list (eq (car pick) line) (cadr pick))) ; => (T (1.0 2.0 0.0))
(progn (answers "l 3,3.5") (cadr (entsel)))  ; => (3.0 3.5 0.0)
(progn (answers "'FFFF" "nonsense" "L") (eq (car (nentsel)) line)) ; => T
(progn (answers "nonsense" "" "9,9") (list (entsel) (getvar "ERRNO") (entsel) (getvar "ERRNO"))) ; => (nil 52 nil 7)
(progn (answers "s") (initget "Settings") (entsel)) ; => "Settings"
(eq (car (nentselp "Pick: " '(1 2))) line)   ; => T
(progn (answers "1,2" "x" "") (list (grread) (grread T) (grread))) ; => ((3 (1.0 2.0 0.0)) (2 120) (2 13))

; -- files: one that is there, or a new one with its suffix
(setq file (vl-filename-mktemp "kex" nil ".lin"))
(close (open file "w"))
(progn (answers "nosuch" file) (= (getfiled "Open" "" "lin" 0) file)) ; => T
(progn (answers "new" "" "") (list (getfiled "Save" "" "lin" 1) (getfiled "Save" "old.lin" "lin" 1) (getfiled "Open" "" "lin" 0))) ; => ("new.lin" "old.lin" nil)
(vl-file-delete file)                       ; => T

; -- input that has ended names the prompt
(progn (answers) (getpoint "\nStart point: ")) ; ! no input for: Start point:
(getreal)                                   ; ! no input for: Enter a number:
(progn (answers "x" "y") (getint "How many? ")) ; ! no input for: How many?
(vl-catch-all-error-message (vl-catch-all-apply 'getstring '("Name: "))) ; => "no input for: Name:"
(getint 5)                                  ; ! bad argument type: stringp 5
