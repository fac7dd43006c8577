; Special forms, scope, definitions, functions as values.

; if takes two or three arguments; cond without body gives the test's value
(list (if t 1) (if nil 1) (if nil 1 2) (if 0 'zero-is-true) (if "" 'empty-is-true)) ; => (1 nil 2 ZERO-IS-TRUE EMPTY-IS-TRUE)
(if t 1 2 3)                        ; ! syntax error
(list (cond ((= 1 2) 'a) ((+ 1 1)) (t 'b)) (cond (nil 1)) (cond) (cond (t 1 2 3))) ; => (2 nil nil 3)
(cond 5)                            ; ! syntax error
; and, or give T or nil, never the value, and stop as soon as it is known
(list (and 1 2 3) (or 'a 'b) (and) (or) (and nil (setq touched 1)) (or 1 (setq touched 1)) touched) ; => (T T T nil nil T nil)
(list (progn) (progn 1 2))          ; => (nil 2)

; setq gives its last value
(list (setq a 1 b (+ a 1)) a b (setq)) ; => (2 1 2 nil)
(setq a)                            ; ! too few arguments
(setq 1 2)                          ; ! syntax error
(list (set 'c 5) c (set (read "d") 6) d) ; => (5 5 6 6)

; loops give the last value of their last expression
(setq i 0)
(while (< i 3) (setq i (1+ i)) (list i)) ; => (3)
(while nil 1)                       ; => nil
(repeat 100 "Me" "You")             ; => "You"
(list (repeat 0 1) (repeat 3) (repeat -1 1)) ; => (nil nil nil)
(repeat 1.5 1)                      ; ! bad argument type: fixnump: 1.5
(setq x 'outer sum 0)
(list (foreach x '(1 2 3) (setq sum (+ sum x)) x) sum x (foreach x nil 1) (foreach x '(1))) ; => (3 6 OUTER nil nil)
(foreach x 5 x)                     ; ! bad argument type: listp 5

; scope is dynamic: a callee sees the caller's locals, and a returned lambda the later values
(defun callee () x)
(defun caller (x) (callee))
(list (caller 7) (callee))          ; => (7 OUTER)
(defun adder (n) (lambda (m) (+ m n)))
(setq n 100 add (adder 1))
(add 5)                             ; => 105
; locals start as nil and come back; arguments too
(defun locals (p / q) (setq p (1+ p) q (cons p q)) q)
(setq p 1 q 'kept)
(list (locals 5) (locals 6) p q)    ; => ((6) (7) 1 KEPT)
(defun pairs (x x / y) (list x y))
(list (pairs 1 2) x)                ; => ((2 nil) OUTER)

; defun gives the symbol; the value cell holds the function
(defun f (a b) (list a b))          ; => F
(list (type f) (f 1 2))             ; => (USUBR (1 2))
(f 1)                               ; ! too few arguments
(f 1 2 3)                           ; ! too many arguments
(setq f 42)
(f 1)                               ; ! bad function: 42
(defun bad (a 1) a)                 ; ! bad formal argument list: (A 1)
(defun)                             ; ! too few arguments
(nosuch 1)                          ; ! no function definition: NOSUCH
(setf a 1)                          ; ! no function definition: SETF
(5 1)                               ; ! bad function: 5
(car . 1)                           ; ! syntax error

; a parameter named like a function hides it, in callees too
(defun area (h w) (* h w))
(defun hiding (area) (uses 1 2))
(defun uses (a b) (area a b))
(hiding 15240.0)                    ; ! bad function: 15240.0
(uses 3 4)                          ; => 12
; builtins and special forms are values like any other: a redefinition is seen by compiled code
(defun inc (v) (1+ v))
(defun choose (v) (if v 'yes 'no))
(list (inc 1) (choose 1))           ; => (2 YES)
(setq old-inc 1+ old-if if)
(defun 1+ (v) (list 'one v))
(defun if (v w) (list 'if v w))
(list (inc 1) (choose 1 ))          ; ! too many arguments
(inc 1)                             ; => (ONE 1)
(setq 1+ old-inc if old-if)
(list (inc 1) (choose 1))           ; => (2 YES)
(defun shadow (max) (longest '(1 3 2)))
(defun longest (l) (apply 'max l))
(list (longest '(1 3 2)) (vl-catch-all-error-p (vl-catch-all-apply 'shadow '(5)))) ; => (3 T)

; the function of a call: a symbol, a lambda, or an expression that gives one
((lambda (x y) (- x y)) 5 2)        ; => 3
((eval 'car) '(1 2))                ; => 1
(setq g '(lambda (x) (* x x)))
(list (g 4) (apply g '(5)) (type g)) ; => (16 25 LIST)
(defun with-local (f / h) (setq h (lambda (x) (f (f x)))) (h 3))
(with-local '(lambda (x) (* 2 x)))  ; => 12

; a function kept as a list
(defun-q kept (x) (print (list x))) ; => KEPT
(list (type kept) (defun-q-list-ref 'kept) (kept 5)) ; => (LIST ((X) (PRINT (LIST X))) (5))
(defun-q-list-set 'kept '((x) (* x 2)))
(kept 21)                           ; => 42

(list (eval '(+ 1 2)) (eval 'x) (eval "s") (eval nil)) ; => (3 OUTER "s" nil)
(setq form (list '+ 1 'sum))
(list (eval form) (progn (setq sum 10) (eval form))) ; => (7 11)
(quote 1 2)                         ; ! syntax error
(list (trace f) (untrace f))        ; => (F F)

; a call deep enough for real programs
(defun deep (n) (if (= n 0) 0 (+ 1 (deep (1- n)))))
(deep 1000)                         ; => 1000
