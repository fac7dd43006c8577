; Checks of values, flags of bit-strings, label texts.

; kex_d_chktype: the position of the first value that is not of its letter's type
(setq e (entmakex '((0 . "POINT") (10 1.0 2.0 3.0))))
(kex_d_chktype (list "s" 1 1.5 '(1 2.0) e '(1) "A\\B" nil (ssadd)) "sinpelkb*") ; => nil
(kex_d_chktype '(1 2.5 (1.0 2.0 3.0) (1.0 2.0)) "nnlp") ; => nil
(kex_d_chktype '("a" "b") "si")         ; => 2
(kex_d_chktype '(1.0 2.0 3.0) "nnn")    ; => nil
(kex_d_chktype '(1.0 2.0) "ni")         ; => 2
(kex_d_chktype '((1 2 3 4)) "p")        ; => 1
(kex_d_chktype '((1 "a")) "p")          ; => 1
(kex_d_chktype '(("A" 2) 5 "A") "kkk")  ; => nil
(kex_d_chktype '((1 2.5)) "k")          ; => 1
(kex_d_chktype '(T nil) "bb")           ; => nil
(kex_d_chktype '(nil) "s")              ; => 1
(kex_d_chktype '(nil) "l")              ; => 1
(kex_d_chktype '(nil) "S")              ; => nil
(kex_d_chktype '("a" nil 2) "sSi")      ; => nil
(kex_d_chktype '("a") "sSIB")           ; => nil
(kex_d_chktype '("a") "sSi")            ; => 3
(kex_d_chktype '("a") "s*")             ; => 2
(kex_d_chktype '("a" nil) "s*")         ; => nil
(kex_d_chktype '("a" "b" "c") "ss")     ; => 3
(kex_d_chktype nil "")                  ; => nil
(kex_d_chktype '(1) "")                 ; => 1
(kex_d_chktype '(1 . 2) "ii")           ; ! kex_d_chktype: Argument 1 ist ungültig
(kex_d_chktype "a" "s")                 ; ! kex_d_chktype: Argument 1 ist ungültig
(kex_d_chktype '("a") "x")              ; ! kex_d_chktype: Argument 2 ist ungültig
(kex_d_chktype '("a"))                  ; ! kex_d_chktype: Argument 2 ist ungültig

; kex_d_chknum: a text that is wholly a number, within limits
(kex_d_chknum "12,5")                   ; => 12.5
(kex_d_chknum " -.5 ")                  ; => -0.5
(kex_d_chknum "+1.25E2")                ; => 125.0
(kex_d_chknum "-0")                     ; => 0.0
(kex_d_chknum "5.")                     ; => 5.0
(mapcar 'kex_d_chknum '("" " " "-" "." "," "1 2" "1,5,2" "1e" "e5" "--5" "-+5" "5mm" "0x1F" "inf" "nan" "1e400"))
; => (nil nil nil nil nil nil nil nil nil nil nil nil nil nil nil nil)
(kex_d_chknum "5" 5)                    ; => 5.0
(kex_d_chknum "5" 5.1)                  ; => nil
(kex_d_chknum "5" nil 5)                ; => 5.0
(kex_d_chknum "5" 0 4)                  ; => nil
(kex_d_chknum 5)                        ; ! kex_d_chknum: Argument 1 ist ungültig
(kex_d_chknum "5" "a")                  ; ! kex_d_chknum: Argument 2 ist ungültig
(kex_d_chknum "5" 1 "a")                ; ! kex_d_chknum: Argument 3 ist ungültig

; Flags in bit-strings
(kex_d_xlogior "F1" "0x100")            ; => "F11"
(kex_d_xlogior "" "")                   ; => "0"
(kex_d_xlogior "1")                     ; ! kex_d_xlogior: Argument ist ungültig
(kex_d_xlogior 1 "1")                   ; ! kex_d_xlogior: Argument 1 ist ungültig
(kex_d_xlogior "1" 1)                   ; ! kex_d_xlogior: Argument 2 ist ungültig
(mapcar '(lambda (n) (kex_d_xbit "21" n)) '(-1 0 1 2 4 5 32 2147483647)) ; => (nil nil T nil T nil nil nil)
(kex_d_xbit "0x80000000" 31)            ; => T
(kex_d_xbit 1 1)                        ; ! kex_d_xbit: Argument 1 ist ungültig
(kex_d_xbit "1" 1.0)                    ; ! kex_d_xbit: Argument 2 ist ungültig
(kex_d_xbit_set "0" 4 T)                ; => "01"
(kex_d_xbit_set "01" 4 nil)             ; => "0"
(kex_d_xbit_set "0" 31 T)               ; => "00000008"
(kex_d_xbit_set "21" 32 T)              ; => "21"
(kex_d_xbit_set "21" -1 nil)            ; => "21"
(kex_d_xbit_set 1 1 T)                  ; ! kex_d_xbit_set: Argument 1 ist ungültig
(kex_d_xbit_set "1" "1" T)              ; ! kex_d_xbit_set: Argument 2 ist ungültig
(kex_d_xbit_set "1" 1)                  ; ! kex_d_xbit_set: Argument 3 ist ungültig
(kex_d_xbit_set "1" 1 0)                ; ! kex_d_xbit_set: Argument 3 ist ungültig

; Labels: a main text and variants for contexts; "||" is a bar, "@" begins a catalog key
(kex_d_label_get "Blech|44:sheet|kurz:Bl" "44")   ; => "sheet"
(kex_d_label_get "Blech|44:sheet|kurz:Bl" "KURZ") ; => "Bl"
(kex_d_label_get "Blech|44:sheet|kurz:Bl" "33")   ; => "Blech"
(kex_d_label_get "Blech|44:sheet|kurz:Bl")        ; => "Blech"
(kex_d_label_get "Blech|49:Tafel")                ; => "Tafel"
(kex_d_label_get "a||b|||44:c||d" "44")           ; => "c|d"
(kex_d_label_get "a||b|||44:c||d" nil)            ; => "a|b|"
(kex_d_label_get "a|44:|44:c" "44")               ; => ""
(kex_d_label_get "a|b|:c" "")                     ; => "a"
(kex_d_label_get "@AD018")                        ; => "Argument"
(kex_d_label_get "x|44:@AD018" "44")              ; => "Argument"
(kex_d_label_get "@no such key")                  ; => "@no such key"
(kex_d_label_get "@@home")                        ; => "@home"
(kex_d_label_get "")                              ; => ""
(kex_d_bez_get "Blech|44:sheet" "44")             ; => "sheet"
(kex_d_label_get 5)                               ; ! kex_d_label_get: Argument 1 ist ungültig
(kex_d_label_get "a" 5)                           ; ! kex_d_label_get: Argument 2 ist ungültig
(kex_d_label_set "Blech|44:sheet" "44" "plate")   ; => "Blech|44:plate"
(kex_d_label_set "Blech|44:sheet" "33" "t|le")    ; => "Blech|44:sheet|33:t||le"
(kex_d_label_set "Blech|a:1|44:x|A:2" "A" "3")    ; => "Blech|a:3|44:x"
(kex_d_label_set "Blech|a:1|44:x|A:2" "a" nil)    ; => "Blech|44:x"
(kex_d_label_set "Blech|44:sheet" nil "T|fel")    ; => "T||fel|44:sheet"
(kex_d_label_set "Blech|44:sheet" nil nil)        ; => "|44:sheet"
(kex_d_label_set nil "44" "x")                    ; => "|44:x"
(kex_d_label_set nil nil nil)                     ; => ""
(kex_d_label_get (kex_d_label_set "a" "x" "||:|") "X") ; => "||:|"
(kex_d_bez_set "a" "44" "b")                      ; => "a|44:b"
(kex_d_label_set 5 nil nil)                       ; ! kex_d_label_set: Argument 1 ist ungültig
(kex_d_label_set)                                 ; ! kex_d_label_set: Argument 1 ist ungültig
(kex_d_label_set "a" "b:c" "d")                   ; ! kex_d_label_set: Argument 2 ist ungültig
(kex_d_label_set "a" "" "d")                      ; ! kex_d_label_set: Argument 2 ist ungültig
(kex_d_label_set "a")                             ; ! kex_d_label_set: Argument 2 ist ungültig
(kex_d_label_set "a" nil)                         ; ! kex_d_label_set: Argument 3 ist ungültig
(kex_d_label_set "a" nil 5)                       ; ! kex_d_label_set: Argument 3 ist ungültig
