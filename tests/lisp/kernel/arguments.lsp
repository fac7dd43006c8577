; How LISP values reach a function of the kernel.
(defun on-one-line (text) (vl-string-translate "\n" " " (vl-string-right-trim "\n" text)))
(on-one-line (probe_print 1 70000 2.5 "a\"b" nil T)) ; => "1 70000 2.5 \"a\\\"b\" nil T"
(on-one-line (probe_print '(1.0 2.0) '(1.0 2.0 3.0))) ; => "(1.0 2.0) (1.0 2.0 3.0)"
(on-one-line (probe_print '(1 2 3) '(1.0) '(1.0 2.0 3.0 4.0))) ; => "(1 2 3) (1.0) (1.0 2.0 3.0 4.0)"
(on-one-line (probe_print '("k" . "v") '(1 2 . 3)))  ; => "(\"k\" . \"v\") (1 2 . 3)"

; And back: the same values, except that a point is always one of reals.
(defun same (value) (equal (car (probe_echo value)) value))
(same '(1 2 3))         ; => T
(same '(1.0 2.0))       ; => T
(same '(1.0 2.0 3.0))   ; => T
(same '((1.0 2.0) ((3.0 4.0 5.0)))) ; => T
(same '("k" . "v"))     ; => T
(same '(1 2 . 3))       ; => T
(same '(("a" . 1) ("b" . (2 . 3)) (("c" . 4) . "d"))) ; => T
(same '(nil T (nil) ((nil)))) ; => T
(same (strcat "Maß" (chr 8364) (chr 55357) (chr 56832))) ; => T
(same -2147483647)      ; => T

; What cannot be passed is an error before the function is called.
(probe_echo 'symbol)    ; ! bad argument type: SYMBOL
(probe_echo car)        ; ! >
(probe_echo '(1 (x)))   ; ! bad argument type: X

; The chain is the host's and the same whenever it is asked for.
(setq given "abc")
(probe_in_place given)  ; => "*bc"
given                   ; => "abc"

; Entity lists: a list or a set, never a single name; a list is read up to the first other value.
(setq a (entmakex '((0 . "POINT") (10 0.0 0.0 0.0)))
      b (entmakex '((0 . "POINT") (10 1.0 0.0 0.0)))
      c (entmakex '((0 . "POINT") (10 2.0 0.0 0.0))))
(probe_from_rb a)             ; => (0 0)
(probe_from_rb (list a b c))  ; => (3 0)
(probe_from_rb (list a b c) 1 2) ; => (3 2)
(probe_from_rb (ssadd a (ssadd b (ssadd))) "x") ; => (2 1)
(probe_from_rb nil)           ; => (0 0)
; The pointer stands one node behind the text: c and the list's end are left.
(probe_from_rb (list a "x" c)) ; => (1 2)
(equal (probe_from_rb_ids (list a b)) (list a b)) ; => T

; The typed reader names the first wrong argument only.
(probe_reader "t" 2 nil '(1 2) nil)           ; => "t 2 -1 1 2 0 0 nil"
(probe_reader "t" 2 2.5 '(1.0 2.0 3.0) '(((0 0) (1 0)) ((1 0) (1 1 0) 0.5)) T) ; => "t 2 2.5 1 2 3 2 T"
(probe_reader "t" 2 nil '(1 2) '(((0 0) (1 0) 1 "data"))) ; => "t 2 -1 1 2 0 1 nil"
(probe_reader)                   ; ! probe_reader: Argument 1 ist ungültig
(probe_reader "t" "x" "y" "z")   ; ! probe_reader: Argument 2 ist ungültig
(probe_reader "t" 0 nil '(1 2) nil)    ; ! probe_reader: Argument 2 ist ungültig
(probe_reader "t" 1 "x" '(1 2) nil)    ; ! probe_reader: Argument 3 ist ungültig
(probe_reader "t" 1 nil '(1) nil)      ; ! probe_reader: Argument 4 ist ungültig
(probe_reader "t" 1 nil '(1 2) '(((0 0) "x"))) ; ! probe_reader: Argument 5 ist ungültig
(probe_reader "t" 1 nil '(1 2) '(((0 0) (1 0) 1 2 3))) ; ! probe_reader: Argument 5 ist ungültig

; A row without a function says so.
(probe_not_built)                ; ! probe_not_built: nicht verfügbar
