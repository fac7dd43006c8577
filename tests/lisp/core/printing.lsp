; How values are written: princ and prin1, to the text window and to strings.

; a real has six significant digits and always a point
(list pi 1.4142135623 4840.0 0.198851 100000.0 1234567.0) ; => (3.14159 1.41421 4840.0 0.198851 100000.0 1.23457e+006)
(list 1e20 1.5e-10 -0.0 2147483648.0) ; => (1.0e+020 1.5e-010 -0.0 2.14748e+009)

; prin1 and what reads it: strings in quotes with escapes
(vl-prin1-to-string "a\"b\\c\n\t\e\001") ; => "\"a\\\"b\\\\c\\n\\t\\e\\001\""
(vl-princ-to-string "a\"b")         ; => "a\"b"
(vl-princ-to-string '("a" . "b"))   ; => "(a . b)"
(setq nested '((1 (2 . 3) "x\\") nil))
(equal nested (read (vl-prin1-to-string nested))) ; => T

; functions, files and caught errors have no text that reads back
(wcmatch (vl-princ-to-string car) "`#<SUBR `@* CAR>") ; => T
(defun twice (x) (* 2 x))
(wcmatch (vl-princ-to-string twice) "`#<USUBR `@* TWICE>") ; => T
(vl-princ-to-string (vl-catch-all-apply '/ '(1 0))) ; => "#<%catch-all-apply-error%>"

; princ and prin1 give their argument back; print puts a newline before and a blank behind
(princ "a\"b")                      ; => "a\"b"
(prin1 "c\n")                       ; => "c\n"
(print '(1 . "x"))                  ; => (1 . "x")
(prompt "p")                        ; => nil
(terpri)                            ; => nil
(write-line "line")                 ; => "line"
(write-char 228)                    ; => 228
(printed)                           ; => "a\"b\"c\\n\"\n(1 . \"x\") p\nline\nä"

; without arguments the result is the null symbol: prints nothing, but is not nil
(list (princ) (prin1) (print))      ; => (  )
(list (null (princ)) (type (princ))) ; => (nil SYM)
(strcat "<" (vl-princ-to-string (princ)) ">") ; => "<>"
(prompt 1)                          ; ! bad argument type: stringp 1
(princ 1 2)                         ; ! bad argument type: FILE 2
