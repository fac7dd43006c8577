; Functions that are given functions: a symbol, a lambda list, a function object.

(list (apply '+ '(1 2 3)) (apply + '(1 2)) (apply '(lambda (x) (* x x)) '(3)) (apply (function (lambda () 7)) nil)) ; => (6 3 9 7)
; and, or, progn may be applied too
(list (apply 'and '(1 2)) (apply 'or '(nil nil)) (apply 'progn '(1 2))) ; => (T nil 2)
(apply 'if '(1 2))                  ; ! IF>
(apply '+ 5)                        ; ! bad argument type: listp 5
(apply 'nosuch '(1))                ; ! no function definition: NOSUCH
(apply 5 '(1))                      ; ! bad function: 5
(apply nil '(1))                    ; ! bad function: nil

; mapcar stops with the shortest list
(mapcar '+ '(1 2 3) '(10 20))       ; => (11 22)
(mapcar '(lambda (x / y) (setq y (cons x y)) y) '(1 2)) ; => ((1) (2))
(mapcar 'car '((1 2) (3 4)))        ; => (1 3)
(mapcar 'list nil)                  ; => nil
(mapcar '(lambda (x y) x) '(1))     ; ! too few arguments
(mapcar '1+ '(1 a))                 ; ! bad argument type: numberp: A

(list (vl-remove-if 'minusp '(1 -2 3)) (vl-remove-if-not '(lambda (x) (> x 1)) '(1 2 3))) ; => ((1 3) (2 3))
(list (vl-member-if 'minusp '(1 -2 3)) (vl-member-if-not 'numberp '(1 a 2)) (vl-member-if 'minusp '(1))) ; => ((-2 3) (A 2) nil)
(list (vl-some '(lambda (x) (if (> x 1) (* 10 x))) '(1 2 3)) (vl-some 'minusp '(1)) (vl-every '< '(1 2) '(2 3)) (vl-every '= '(1) '(2)) (vl-every 'minusp nil)) ; => (20 nil T nil T)

; results grow while the function makes garbage, redefines itself, or comes back into the same call
(defun noisy (x) (defun noisy (y) (list y y)) (strcat "n" (itoa x)))
(mapcar 'noisy '(1 2))              ; => ("n1" "n2")
(noisy 3)                           ; => (3 3)
(mapcar '(lambda (row) (mapcar '(lambda (x) (list x (strcat "s" (itoa x)))) row)) '((1 2) (3))) ; => (((1 "s1") (2 "s2")) ((3 "s3")))
