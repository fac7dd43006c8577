; Kinds of values, symbols, the session around a program.

(mapcar 'type (list 1 1.5 "s" 'a '(1) nil car)) ; => (INT REAL STR SYM LIST nil SUBR)
(list (type if) (type (lambda () 1)) (type t)) ; => (SUBR USUBR SYM)
; an unset symbol is nil, never an error; a symbol whose value is nil is not bound
(setq x nil)
(list unset (boundp 'x) (boundp 'unset) (boundp 'car) (boundp 'pi)) ; => (nil nil nil T T)
(boundp "x")                        ; ! bad argument type: symbolp "x"
(list t (eval t) pi pause)          ; => (T T 3.14159 "\\")
(list (vl-symbolp 'a) (vl-symbolp nil) (vl-symbolp "a") (vl-symbol-value 'x) (vl-symbol-value 'pause)) ; => (T nil nil nil "\\")
(list (atoms-family 1 '("CAR" "*NOSUCH*" "car")) (atoms-family 0 '("cdr"))) ; => (("CAR" nil "CAR") (CDR))
(numberp (length (atoms-family 0))) ; => T
(list (vl-bb-ref 'b) (vl-bb-set 'b '(1 "x")) (vl-bb-ref 'b) (vl-load-com)) ; => (nil (1 "x") (1 "x") nil)
(list (type (ver)) (numberp (mem)) (gc)) ; => (STR T nil)
(list (setenv "KEX_LISP_TEST" "wert") (getenv "KEX_LISP_TEST") (getenv "KEX_NO_SUCH_NAME")) ; => ("wert" "wert" nil)
