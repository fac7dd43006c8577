; Lengths count UTF-16 units.
(kex_str_len "")                 ; => 0
(kex_str_len "Straße")           ; => 6
(kex_str_len (strcat (chr 55357) (chr 56832))) ; => 2
(kex_str_len)                    ; ! kex_str_len: Argument ist ungültig
(kex_str_len 5)                  ; ! kex_str_len: Argument ist ungültig
(kex_str_len '("a"))             ; ! kex_str_len: Argument ist ungültig

(kex_ascii "")                   ; => 0
(kex_ascii "Ä")                  ; => 196
(kex_chr 196)                    ; => "Ä"
(kex_chr 0)                      ; => ""
(kex_chr 65601)                  ; => "A"
(kex_chr 65.0)                   ; ! kex_chr: Argument ist ungültig

; Case: one to one, never another length; only T asks for small letters.
(kex_str_case "Groß äöü")        ; => "GROß ÄÖÜ"
(kex_str_case "ÄÖÜ Groß" T)      ; => "äöü groß"
(kex_str_case "abc" 1)           ; => "ABC"
(kex_str_case "abc" nil)         ; => "ABC"
(kex_str_case nil)               ; ! kex_str_case: Argument ist ungültig

(kex_str_trim "  a b\t\n")       ; => "a b"
(kex_str_trim " \t ")            ; => ""
(kex_str_trim 1)                 ; ! kex_str_trim: Argument ist ungültig

(kex_str_revert "Lager")         ; => "regaL"
(kex_str_revert "")              ; => ""
(kex_str_revert (strcat "a" (chr 55357) (chr 56832) "b")) ; => "b😀a"
(vl-string->list (kex_str_revert (strcat (chr 55357) "a"))) ; => (97 55357)
(kex_str_revert)                 ; ! kex_str_revert: Argument ist ungültig

; Positions count from 1; what is not found is nil.
(kex_str_str "Stahlblech" "blech") ; => 6
(kex_str_str "Stahlblech" "Blech") ; => nil
(kex_str_str "abc" "")           ; => nil
(kex_str_str "" "a")             ; => nil
(kex_str_str "ab" "abc")         ; => nil
(kex_str_str "aaab" "aab")       ; => 2
(kex_str_str)                    ; ! kex_str_str: Argument ist ungültig
(kex_str_str 1 "a")              ; ! kex_str_str: Argument 1 ist ungültig
(kex_str_str "a")                ; ! kex_str_str: Argument 2 ist ungültig
(kex_str_str "a" nil)            ; ! kex_str_str: Argument 2 ist ungültig

(kex_str_chr "Maß 10x20" "x")    ; => 7
(kex_str_chr "Maß 10x20" "ßx")   ; => 3
(kex_str_chr "Maß 10x20" 120)    ; => 7
(kex_str_chr "ABA" 65601)        ; => 1
(kex_str_rchr "ABA" 65)          ; => 3
(kex_str_rchr "C:\\a\\b.dwg" "\\") ; => 5
(kex_str_rchr "abc" "x")         ; => nil
(kex_str_chr "abc" "")           ; => nil
(kex_str_chr "" 65)              ; => nil
(kex_str_chr)                    ; ! kex_str_chr: Argument 1 ist ungültig
(kex_str_rchr 5 65)              ; ! kex_str_rchr: Argument 1 ist ungültig
(kex_str_chr "abc")              ; ! kex_str_chr: Argument 2 ist ungültig
; A character of another type fails without a message.
(kex_str_chr "abc" 65.0)         ; ! ADS request error
(kex_str_rchr "abc" nil)         ; ! ADS request error
(kex_str_chr "abc" '(65))        ; ! ADS request error

(kex_str_pbrk "Pos. 12" "0123456789") ; => 6
(kex_str_cspn "Pos. 12" "0123456789") ; => 6
(kex_str_pbrk "Pos" "0123456789") ; => nil
(kex_str_cspn "Pos" "")          ; => nil
(kex_str_spn "aab" "a")          ; => 3
(kex_str_spn "aaa" "a")          ; => nil
(kex_str_spn "abc" "")           ; => 1
(kex_str_spn "" "a")             ; => nil
(kex_str_spn "äöx" "öäü")        ; => 3
(kex_str_pbrk "xΩЖ" "Ж")         ; => 3
(kex_str_pbrk 'T "a")            ; ! kex_str_pbrk: Argument 1 ist ungültig
(kex_str_cspn "a")               ; ! kex_str_cspn: Argument 2 ist ungültig
(kex_str_spn "a" 97)             ; ! kex_str_spn: Argument 2 ist ungültig

; A position by one way is the position by the other.
(defun both (s set) (equal (kex_str_pbrk s set) (kex_str_cspn s set)))
(vl-every 'both '("" "a" "ba" "bba" "bbb") '("a" "a" "a" "a" "a")) ; => T

; Replacing goes from the left and does not look at what it has put in.
(kex_str_rpl "a;b;c" ";" ", ")   ; => "a, b, c"
(kex_str_rpl "aaaa" "aa" "a")    ; => "aa"
(kex_str_rpl "abab" "ab" "xaby") ; => "xabyxaby"
(kex_str_rpl "abab" "b" nil)     ; => "aa"
(kex_str_rpl "abab" "ab" "")     ; => ""
(kex_str_rpl "abc" "" "x")       ; => "abc"
(kex_str_rpl "Straße" "ß" "ss")  ; => "Strasse"
(kex_str_rpl nil "a" "b")        ; ! kex_str_rpl: Argument 1 ist ungültig
(kex_str_rpl "a")                ; ! kex_str_rpl: Argument 2 ist ungültig
(kex_str_rpl "a" "b")            ; ! kex_str_rpl: Argument 3 ist ungültig
(kex_str_rpl "a" "b" 1)          ; ! kex_str_rpl: Argument 3 ist ungültig

; Padding never cuts; a fill that is no character is the blank.
(kex_str_lfill "12" 5 "0")       ; => "00012"
(kex_str_lfill "12" 5 48)        ; => "00012"
(kex_str_rfill "12" 5 ".-")      ; => "12..."
(kex_str_rfill "12" 4)           ; => "12  "
(kex_str_rfill "12" 4 "")        ; => "12  "
(kex_str_lfill "12" 4 2.5)       ; => "  12"
(kex_str_lfill "12" 4 0)         ; => "  12"
(kex_str_rfill "12345" 3 "x")    ; => "12345"
(kex_str_lfill "12" (~ 2147483647)) ; => "12"
(kex_str_rfill "12" 2147483647)  ; ! kex_str_rfill: Argument 2 ist ungültig
(kex_str_rfill "12" 4.0)         ; ! kex_str_rfill: Argument 2 ist ungültig
(kex_str_lfill "12")             ; ! kex_str_lfill: Argument 2 ist ungültig
(kex_str_lfill)                  ; ! kex_str_lfill: Argument 1 ist ungültig

; The start counts from 1; a count that is none, or no integer, is up to the end.
(kex_str_sub "Abwicklung" 3)     ; => "wicklung"
(kex_str_sub "Abwicklung" 3 4)   ; => "wick"
(kex_str_sub "Abwicklung" 3 0)   ; => ""
(kex_str_sub "Abwicklung" 3 nil) ; => "wicklung"
(kex_str_sub "Abwicklung" 3 4.0) ; => "wicklung"
(kex_str_sub "Abwicklung" 11)    ; => ""
(kex_str_sub "Abwicklung" 2147483647 2147483647) ; => ""
(kex_str_sub "Abwicklung" 2 2147483647) ; => "bwicklung"
(kex_str_sub "Abwicklung" 0)     ; ! kex_str_sub: Argument 2 ist ungültig
(kex_str_sub "Abwicklung" (~ 2147483647)) ; ! kex_str_sub: Argument 2 ist ungültig
(kex_str_sub "Abwicklung")       ; ! kex_str_sub: Argument 2 ist ungültig
(kex_str_sub "Abwicklung" 1 -1)  ; ! kex_str_sub: Argument 3 ist ungültig
(kex_str_sub 1 1)                ; ! kex_str_sub: Argument 1 ist ungültig

; Every delimiter separates, so that a row keeps its columns.
(kex_str_split "a;b" ";")        ; => ("a" "b")
(kex_str_split "a;;b" ";")       ; => ("a" "" "b")
(kex_str_split ";" ";")          ; => ("" "")
(kex_str_split "" ";")           ; => nil
(kex_str_split "abc" "")         ; => ("abc")
(kex_str_split "1,5x2;3" ",;x")  ; => ("1" "5" "2" "3")
(kex_str_split "aΩb" "Ω")        ; => ("a" "b")
(kex_str_split "a")              ; ! kex_str_split: Argument 2 ist ungültig
(kex_str_split nil ";")          ; ! kex_str_split: Argument 1 ist ungültig

; HTML
(kex_str_to_html "a<b> & \"ä\" '") ; => "a&lt;b&gt; &amp; &quot;ä&quot; &#39;"
(kex_str_to_html "ä€😀" T)        ; => "&#228;&#8364;&#128512;"
(kex_str_to_html "ä" 1)          ; => "ä"
(kex_str_from_html "&Auml;&#228;&#xE4;&lt;&foo;&") ; => "Äää<&foo;&"
(kex_str_to_html)                ; ! kex_str_to_html: Argument 1 ist ungültig
(kex_str_from_html 1)            ; ! kex_str_from_html: Argument 1 ist ungültig

; Symbol names, library texts
(kex_str_name " a<b>/\\\":;?*|,=`c ") ; => "a b            c"
(kex_str_name "Träger Ø48")      ; => "Träger Ø48"
(strlen (kex_str_name (kex_str_rfill "a" 300 "b"))) ; => 255
(kex_str_name nil)               ; ! kex_str_name: Argument ist ungültig
(kex_str_lib "PROF" "L 50x5")    ; => "PROF:L 50x5"
(kex_str_lib "" "L 50x5")        ; => "L 50x5"
(kex_str_lib_name "PROF:a:b")    ; => "a:b"
(kex_str_lib_libtype "PROF:a:b") ; => "PROF"
(kex_str_lib_name "ab")          ; => "ab"
(kex_str_lib_libtype "ab")       ; => ""
(kex_str_lib_name (kex_str_lib "" "a:b")) ; => "b"
(kex_str_lib 1 "a")              ; ! kex_str_lib: Argument 1 ist ungültig
(kex_str_lib "a")                ; ! kex_str_lib: Argument 2 ist ungültig
(kex_str_lib_name)               ; ! kex_str_lib_name: Argument ist ungültig
(kex_str_lib_libtype 1)          ; ! kex_str_lib_libtype: Argument ist ungültig

; Code pages: 132 is ä in page 850, 228 in 1252; a frame has no character there.
(mapcar 'ascii (kex_str_atowin (chr 132) (chr 196) (chr 225) (chr 937))) ; => (228 63 223 937)
(mapcar 'ascii (kex_str_atodos "ä" (chr 128) "A")) ; => (132 63 65)
(kex_str_atowin)                 ; => nil
(kex_str_atowin nil)             ; => nil
(kex_str_atowin "A")             ; => "A"
(kex_str_atodos 1 2.5 '("a" ("b" . 3)) T) ; => (1 2.5 ("a" ("b" . 3)) T)
(ascii (car (kex_d_chkarg (list (chr 132) 5)))) ; => 228
(setq s (chr 132) r (kex_str_atowin s 1))
(ascii s)                        ; => 132

; Long texts, and what makes a simple search slow.
(setq long (kex_str_rfill "" 1000000 "a") part (strcat (kex_str_rfill "" 1000 "a") "b"))
(kex_str_str long part)          ; => nil
(kex_str_str (strcat long "b") part) ; => 999001
(kex_str_len (kex_str_rpl long "a" "bb")) ; => 2000000
(length (kex_str_split long "a")) ; => 1000001
(kex_str_rpl long "a" long)      ; ! ADS request error

; LISP text: nil when it is balanced, 1 an open string, 2 parentheses.
(kex_d_chkstr "(a \"(\" b)")     ; => nil
(kex_d_chkstr "(a")              ; => 2
(kex_d_chkstr ")(")              ; => 2
(kex_d_chkstr "(\"a)")           ; => 1
(kex_d_chkstr "\"a\\\"b\"")      ; => nil
(kex_d_chkstr "\"a\\\\\"")       ; => nil
(kex_d_chkstr 5)                 ; => nil
(kex_d_chkstr)                   ; => nil

; Both names of an alias are one function.
(equal (kex_cfg_get "_RNDL") (c:kex_cfg_get "_RNDL")) ; => T
