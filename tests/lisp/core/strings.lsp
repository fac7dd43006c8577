; Strings: substr counts from 1, the vl-string family from 0; lengths are UTF-16 units.

(list (strcat) (strcat "a") (strcat "a" "b" "c") (strlen "ab" "cd") (strlen)) ; => ("" "a" "abc" 4 0)
(list (substr "abc" 2) (substr "abc" 2 1) (substr "abc" 4) (substr "abc" 9 2) (substr "abc" 1 0) (substr "abc" 2 99)) ; => ("bc" "b" "" "" "" "bc")
(substr "abc" 0)                    ; ! 0
(list (strcase "Größe äé я") (strcase "ÀÖ" t)) ; => ("GRÖßE ÄÉ Я" "àö")
(list (ascii "A") (ascii "€") (ascii "") (chr 65) (chr 8364)) ; => (65 8364 0 "A" "€")
(chr -1)                            ; ! bad argument type: characterp -1
(list (vl-string->list "aä") (vl-list->string '(97 228)) (vl-string->list "")) ; => ((97 228) "aä" nil)
; a character beyond 16 bits is two units of length and one code
(list (strlen "😀") (vl-string->list "😀") (vl-list->string '(128512))) ; => (2 (128512) "😀")
(vl-string-elt "abc" 1)             ; => 98
(vl-string-elt "abc" 3)             ; ! 3

(list (vl-string-search "b" "abcb") (vl-string-search "b" "abcb" 2) (vl-string-search "x" "abc") (vl-string-search "" "abc")) ; => (1 3 nil 0)
(list (vl-string-position 98 "abcb") (vl-string-position 98 "abcb" 2) (vl-string-position 98 "abcb" 0 t) (vl-string-position 120 "abc")) ; => (1 3 3 nil)
(list (vl-string-subst "X" "b" "abcb") (vl-string-subst "X" "b" "abcb" 2) (vl-string-subst "X" "q" "abc")) ; => ("aXcb" "abcX" "abc")
(list (vl-string-translate "abc" "xyz" "aabbcd") (vl-string-translate "ab" "x" "abc")) ; => ("xxyyzd" "xbc")
(list (vl-string-mismatch "VL-FUN" "VL-VAR") (vl-string-mismatch "vl-fun" "VL-VAR" 0 0 t) (vl-string-mismatch "abc" "xbc" 1 1)) ; => (3 3 2)
(list (vl-string-trim " \t" "\t a b \t") (vl-string-left-trim "xy" "yxabx") (vl-string-right-trim "x" "axx") (vl-string-trim "a" "aaa")) ; => ("a b" "abx" "a" "")
(vl-string-search "a" "abc" -1)     ; ! -1

; a string that grows at its end keeps every earlier value
(setq s "" seen nil)
(repeat 60 (setq s (strcat s "ab")) (setq seen (cons s seen)))
(list (strlen s) (strlen (nth 29 seen)) (strcat (nth 29 seen) "!") (strlen (car seen)) (equal (substr s 1 62) (nth 29 seen))) ; => (120 62 "ababababababababababababababababababababababababababababababab!" 120 T)
(setq one (strcat (nth 20 seen) "1") two (strcat (nth 20 seen) "2"))
(list (substr one 79) (substr two 79) (strlen (nth 20 seen))) ; => ("ab1" "ab2" 80)
