; wcmatch: # digit, @ letter, . neither, * ? ~ [...] [~...] - , ` and case matters.

(defun matching (pattern texts) (vl-remove-if-not '(lambda (x) (wcmatch x pattern)) texts))
(matching "N*" '("Name" "name" "N" "aN"))        ; => ("Name" "N")
(matching "???,*a*~*" '("abc" "ab" "xa~y" "b"))  ; => ("abc" "xa~y")
(matching "~*m*" '("mm" "abc" ""))               ; => ("abc" "")
(matching "##@." '("12a-" "1aa-" "12ä " "12a1")) ; => ("12a-" "12ä ")
(matching "[a-c]x" '("ax" "bx" "dx" "-x"))       ; => ("ax" "bx")
(matching "[~a-c]x" '("ax" "dx" "x"))            ; => ("dx")
(matching "[]-]" '("]" "-" "a"))                 ; => ("]" "-")
(matching "`*`,`[" '("*,[" "a,["))               ; => ("*,[")
(matching "a,b*" '("a" "b" "bc" "c" "a,b"))      ; => ("a" "b" "bc")
(matching "[a,b]" '("a" "," "c"))                ; => ("a" ",")
(matching "*LINE,ARC" '("LINE" "LWPOLYLINE" "ARC" "LINES")) ; => ("LINE" "LWPOLYLINE" "ARC")
(matching "[" '("[" "a"))                        ; => ("[")
(matching "" '("" "a"))                          ; => ("")
; no pattern takes longer than the product of the lengths
(setq long "" stars "")
(repeat 200 (setq long (strcat long "aaaaaaaaaa") stars (strcat stars "a*")))
(wcmatch long (strcat stars "b"))                ; => nil
