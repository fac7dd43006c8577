; Arithmetic: 32-bit integers that wrap, and reals. One real makes the result real.

(+ 2147483646 3)                    ; => -2147483647
(list (- -2147483647 2) (* 65536 65536) (1+ 2147483647) (1- -2147483647)) ; => (2147483647 0 -2147483648 -2147483648)
(list (+) (-) (+ 1 2.0) (+ 1 2 3) (- 10 2 3) (- 5) (- 2.5)) ; => (0 0 3.0 6 5 -5 -2.5)
(list (/ 7 2) (/ -7 2) (/ 4) (/ 100 5 2) (/ 7 2.0) (/ 7 2 2.0)) ; => (3 -3 4 10 3.5 1.5)
(list (rem 26 7 2) (rem -7 3) (rem 7.5 2) (rem 5)) ; => (1 -1 1.5 5)
(/ (- -2147483647 1) -1)            ; => -2147483648
(rem (- -2147483647 1) -1)          ; => 0
(/ 1 0)                             ; ! divide by zero
(/ 1.0 0)                           ; ! divide by zero
(/ 1 0.0)                           ; ! divide by zero
(rem 5 0)                           ; ! divide by zero
(list (max 2.1 4 8) (min 2 4 6.7) (max 3 9 4) (min -1 -5)) ; => (8.0 2.0 9 -5)
(list (abs -3) (abs -3.5) (1+ 1.5) (1- 3)) ; => (3 3.5 2.5 2)

; fix gives a truncated real when the result does not fit an integer
(list (fix 3.9) (fix -3.9) (fix 7) (fix 2147483647.5) (fix 3e9)) ; => (3 -3 7 2147483647 3.0e+009)
(list (float 3) (float 2.5))        ; => (3.0 2.5)

(list (expt 2 10) (expt 2 31) (expt 2 0) (expt 2 -1) (expt 2.0 3) (expt 4 0.5)) ; => (1024 -2147483648 1 0 8.0 2.0)
(list (sqrt 4) (exp 0) (log 1) (expt -1 -3)) ; => (2.0 1.0 0.0 -1)
(sqrt -1)                           ; ! function undefined for argument: -1
(log 0)                             ; ! function undefined for argument: 0
(expt -8 0.5)                       ; ! function undefined for argument: -8
(expt 0 -1)                         ; ! divide by zero

; atan with two arguments gives an angle in (-pi, pi]
(list (atan 1) (atan 1 -1) (atan 0 -1) (atan -0.0 -1) (atan -1 0)) ; => (0.785398 2.35619 3.14159 3.14159 -1.5708)
(list (sin 0) (cos 0))              ; => (0.0 1.0)

(list (gcd 54 24) (gcd -8 12) (lcm 4 6) (gcd 7)) ; => (6 4 12 7)
(list (logand 7 15 3) (logior 1 2 8) (~ 3) (lsh 2 1) (lsh 2 -1) (lsh -1 -28) (lsh 1 32)) ; => (3 11 -4 4 1 15 0)
; bit i of boole's selector chooses a case: 1 and, 6 exclusive or, 7 or, 4 not-a and b
(list (boole 1 12 5) (boole 6 6 5) (boole 7 1 2 8) (boole 4 3 14) (boole 8 1 2)) ; => (4 3 11 12 -4)
(list (zerop 0) (zerop 0.0) (zerop 1) (minusp -1) (minusp -0.5) (minusp 0) (numberp 1) (numberp "1")) ; => (T T nil T T nil T nil)

; arguments are all evaluated before one is found wrong, and the first wrong one is named
(setq n 0)
(+ nil (setq n 5))                  ; ! bad argument type: numberp: nil
n                                   ; => 5
(+ 1 "2")                           ; ! bad argument type: numberp: "2"
(* 'a 2)                            ; ! bad argument type: numberp: A
(1+ nil)                            ; ! bad argument type: numberp: nil
(logand 1 2.0)                      ; ! bad argument type: fixnump: 2.0
(lsh nil 1)                         ; ! bad argument type: fixnump: nil
(zerop "0")                         ; ! bad argument type: numberp: "0"
(sqrt)                              ; ! too few arguments
(sqrt 1 2)                          ; ! too many arguments
