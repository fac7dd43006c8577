; Trailing counters: one step up for nil and 0, n up, or down for a negative n.
(kex_str_increment "P099" nil)   ; => "P100"
(kex_str_increment "9" 0)        ; => "10"
(kex_str_increment "09" 1)       ; => "10"
(kex_str_increment "10" -1)      ; => "9"
(kex_str_increment "010" -1)     ; => "009"
(kex_str_increment "010" -50)    ; => "000"
(kex_str_increment "3" -4)       ; => "0"
(kex_str_increment "Pos. 12" 100) ; => "Pos. 112"

; Letters count like the columns of a table; one or two of one case, else they are a word.
(kex_str_increment "Z" nil)      ; => "AA"
(kex_str_increment "AZ" nil)     ; => "BA"
(kex_str_increment "zz" nil)     ; => "aaa"
(kex_str_increment "AA" -1)      ; => "Z"
(kex_str_increment "B" -5)       ; => "A"
(kex_str_increment "P1a" nil)    ; => "P1b"
(kex_str_increment "ABC" nil)    ; => "ABC1"
(kex_str_increment "Ab" nil)     ; => "Ab1"
(kex_str_increment "Ä" nil)      ; => "Ä1"
(kex_str_increment "Pos" nil)    ; => "Pos1"
(kex_str_increment "Pos" -3)     ; => "Pos1"

; The carry stays in its run; delimiters may follow the counter.
(kex_str_increment "A9" nil)     ; => "A10"
(kex_str_increment "(7)" nil)    ; => "(8)"
(kex_str_increment "P-1.9 -" 2)  ; => "P-1.11 -"
(kex_str_increment "12 mm²" nil) ; => "12 mm²1"
(kex_str_increment "--" nil)     ; => "--1"
(kex_str_increment "" nil)       ; => "1"

; Any number of steps, and more digits than an integer has.
(kex_str_increment "1" 2147483647) ; => "2147483648"
(kex_str_increment "99999999999999999999" nil) ; => "100000000000000000000"
(kex_str_increment "100000000000000000000" (~ 2147483647)) ; => "99999999997852516352"
(kex_str_increment "7" (~ 2147483647)) ; => "0"
(kex_str_increment (kex_str_increment "A" 701) -701) ; => "A"
(kex_str_increment "A" 2147483647) ; => "FXSHRXX"

; kex_str_increment0 cuts only a larger number of steps.
(kex_str_increment0 "P1" 5)      ; => "P2"
(kex_str_increment0 "P9" -5)     ; => "P4"
(kex_str_increment0 "P9" nil)    ; => "P10"

(kex_str_increment "a")          ; ! kex_str_increment: Argument 2 ist ungültig
(kex_str_increment "a" 1.0)      ; ! kex_str_increment: Argument 2 ist ungültig
(kex_str_increment nil 1)        ; ! kex_str_increment: Argument 1 ist ungültig
(kex_str_increment0)             ; ! kex_str_increment0: Argument 1 ist ungültig
(kex_str_increment0 "a")         ; ! kex_str_increment0: Argument 2 ist ungültig

(kex_str_incr_parse "Pos-12a (ü)")
; => ((0 . "Pos") (1 . "-") (2 . "12") (3 . "a") (4 . " ") (5 . "(") (6 . "ü") (7 . ")"))
(kex_str_incr_parse "7")         ; => ((0 . "7"))
(kex_str_incr_parse "")          ; => nil
(kex_str_incr_parse 7)           ; ! kex_str_incr_parse: Argument ist ungültig
(mapcar 'kex_str_incr_delimit '("-1" " " "1" "a" "ü" "\t" "")) ; => ("-" " " nil nil nil nil nil)
(mapcar 'kex_str_incr_type '("1-" "Ab" "zz" "-" "ü" ""))       ; => ("0" "A" "a" nil nil nil)
(kex_str_incr_delimit)           ; ! kex_str_incr_delimit: Argument ist ungültig
(kex_str_incr_type 1)            ; ! kex_str_incr_type: Argument ist ungültig
