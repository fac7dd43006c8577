; =, the orders, eq and equal.

; numbers by value, strings unit by unit, everything else by identity
(list (= 4 4.0) (= "a" "a") (= 1 "1") (= nil nil) (= 'a 'a) (= '(1) '(1))) ; => (T T nil T T nil)
(list (= 5 5 5) (= 5 5 6) (= 1) (< 1 2 3) (< 1 3 2) (>= 3 3 1)) ; => (T nil T T nil T)
; /= looks at neighbours only
(list (/= 10 20 10 20) (/= 10 10 20) (/= "a" "b")) ; => (T nil T)
(list (< "b" "c") (>= "c" "C") (> "b" "abc") (<= "a" "a") (< "ä" "z")) ; => (T T T T nil)

; nil compares with nothing, without an error
(list (< 1 nil) (> nil 1) (<= nil nil) (= nil 1) (/= nil 1)) ; => (nil nil nil nil T)
(setq chars '(48 57 65) seen nil)
(while (<= 48 (car chars) 57) (setq seen (cons (car chars) seen) chars (cdr chars)))
seen                                ; => (57 48)
(< 1 "a")                           ; ! bad argument type for compare: 1 "a"
(<)                                 ; ! too few arguments

; eq: lists by identity, numbers and strings by value of the same kind
(setq a '(1 2) b a)
(list (eq a b) (eq a '(1 2)) (eq 3 3) (eq 1 1.0) (eq 1.5 1.5) (eq "x" "x") (eq 'a 'A)) ; => (T nil T nil T T T)

; equal: by structure; the difference may be as large as the fuzz
(list (equal 1 1.0) (equal '(1 (2 . "x")) '(1.0 (2 . "x"))) (equal "a" "A") (equal a '(1 2 3))) ; => (T T nil nil)
(list (equal 1.123456 1.123457 0.000001) (equal 1.0 1.1 0.05) (equal '(0 0) '(0.001 0) 0.01)) ; => (T nil T)
(equal '((1 2) . 3) '((1 2) . 3))   ; => T
(equal 1 1 "x")                     ; ! bad argument type: numberp: "x"
(list (null nil) (not 0) (not nil)) ; => (T nil T)
