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

; LISP text: nil when it is balanced, 1 an open string, 2 parentheses.
(kex_d_chkstr "(a \"(\" b)")     ; => nil
(kex_d_chkstr "(a")              ; => 2
(kex_d_chkstr ")(")              ; => 2
(kex_d_chkstr "(\"a)")           ; => 1
(kex_d_chkstr "\"a\\\"b\"")      ; => nil
(kex_d_chkstr "\"a\\\\\"")       ; => nil
(kex_d_chkstr 5)                 ; => nil
(kex_d_chkstr)                   ; => nil

; Both names of an alias are one function; a function that is not built says so.
(equal (kex_cfg_get "_RNDL") (c:kex_cfg_get "_RNDL")) ; => T
(kex_str_rpl "a" "b" "c")        ; ! kex_str_rpl: nicht verfügbar
