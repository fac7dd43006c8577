; Keyword prompts. What the host was told shows in its next input.

(kex_dl_initget "" '("Ja" "Nein"))              ; => "oder [Ja/Nein]"
(kex_dl_initget "Hilfe" '("Ja" "Nein") T)       ; => "oder [Ja/Nein/?]"
(kex_dl_initget "" '("Ja" "Nein") nil)          ; => "[Ja/Nein]"
; A hidden keyword is not shown, its "/" is.
(kex_dl_initget "" '("_X" "Ende") nil)          ; => "[/Ende]"
(kex_dl_initget "" '("Ende" "_X") nil)          ; => "[Ende]"
(kex_dl_initget "" '("_X") nil)                 ; => ""
(kex_dl_initget "" nil)                         ; => ""
(kex_dl_initget "Hilfe" nil)                    ; => "oder [?]"
(kex_dl_initget "" '("Neuer Punkt" "") nil)     ; => "[Neuer Punkt/]"
; Bits of another type count as 0.
(kex_dl_initget "" '("A") T "x")                ; => "oder [A]"
(kex_dl_initget)                                ; ! Argument 1 ist ungültig
(kex_dl_initget nil '("A"))                     ; ! Argument 1 ist ungültig
(kex_dl_initget "")                             ; ! Argument 2 ist ungültig
(kex_dl_initget "" "A")                         ; ! Argument 2 ist ungültig
(kex_dl_initget "" '("A" 1))                    ; ! Argument 2 ist ungültig
(kex_dl_initget "" '(1.0 2.0))                  ; ! Argument 2 ist ungültig
(kex_dl_initget "" '("A") 1)                    ; ! Argument 3 ist ungültig

; The status bar never fails.
(kex_dl_StatusBarSet 0.5)
(kex_dl_StatusBarSet)
(kex_dl_StatusBarSet "x")
(kex_dl_StatusBarStop)                          ; => nil
(kex_dl_StatusBarRestore 1 2)                   ; => nil
