; What the reader makes of text.

; integers are 32 bits; a literal beyond them is a real
2147483647                          ; => 2147483647
2147483648                          ; => 2.14748e+009
-2147483648                         ; => -2.14748e+009
(list 42. .5 -.5 +7 1e3 1E-3 -1.5e+2) ; => (42.0 0.5 -0.5 7 1000.0 0.001 -150.0)
(list 1e400 -1e400 1e-400)          ; => (inf -inf 0.0)
(mapcar 'type '(1+ - 1.2.3 1e 0x10 +)) ; => (SYM SYM SYM SYM SYM SYM)

; symbols fold to upper case; nil, () and '() are one object
(vl-symbol-name 'aBc)               ; => "ABC"
'(nil () t)                         ; => (nil nil T)
(eq 'strasse 'STRASSE)              ; => T
(vl-symbol-name 'größe)             ; => "GRÖßE"
'a'b                                ; => B

; strings: escapes, several lines, any other escaped unit as it stands
(vl-string->list "\\\"\e\n\r\t\101\U+00E4") ; => (92 34 27 10 13 9 65 228)
"one
two"                                ; => "one\ntwo"
"a\qb\8"                            ; => "aqb8"
(strlen "a;b;|c")                   ; => 6
"Maß 3/8\""                         ; => "Maß 3/8\""

; comments end with the line or with their bar
(list 1 ;| two |; 3)                ; => (1 3)
(+ 1 ; one
   2)                               ; => 3

; pairs: blanks around the point, and a tail that is a list disappears
'(1 . (2 3))                        ; => (1 2 3)
'(8 . nil)                          ; => (8)
'(0 . "LINE")                       ; => (0 . "LINE")
'(1 2 . 3)                          ; => (1 2 . 3)
'(1.5 .5)                           ; => (1.5 0.5)
(car '(a.b))                        ; => A.B

; quote prints as it is
'(quote x)                          ; => (QUOTE X)
''x                                 ; => (QUOTE X)

; read takes the first datum only
(read "87 3.2")                     ; => 87
(read "(a \"b\" 'c) d")             ; => (A "b" (QUOTE C))
(list (read "") (read "  ; no") (read)) ; => (nil nil nil)

(read "(1 2")                       ; ! malformed list on input
(read "'")                          ; ! malformed list on input
(read "('a ')")                     ; ! malformed list on input
(read ")")                          ; ! extra right paren on input
(read "\"abc")                      ; ! malformed string on input
(read "\"abc\\")                    ; ! malformed string on input
(read "(1 . 2 3)")                  ; ! extra cdrs in dotted pair on input
(read "(1 . 2 . 3)")                ; ! extra cdrs in dotted pair on input
(read "(1 . )")                     ; ! misplaced dot on input
(read "( . 1)")                     ; ! misplaced dot on input
(read ".")                          ; ! misplaced dot on input
(read 1)                            ; ! bad argument type: stringp 1
