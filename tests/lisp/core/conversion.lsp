; Numbers to text and back.

(list (itoa 5) (itoa -7) (atoi "3.9") (atoi " 17") (atoi "17x") (atoi "0xbabe") (atoi "") (atoi "-5") (atoi "99999999999")) ; => ("5" "-7" 3 17 17 0 0 -5 2147483647)
(list (atof "3,5") (atof "1.") (atof "abc") (atof " -2.5e2x") (atof ".5")) ; => (3.0 1.0 0.0 -250.0 0.5)
(itoa nil)                          ; ! bad argument type: fixnump: nil

; rtos: scientific, decimal, engineering, architectural, fractional
(mapcar '(lambda (mode precision) (rtos 17.5 mode precision)) '(1 2 3 4 5) '(4 2 2 2 2)) ; => ("1.7500E+01" "17.50" "1'-5.50\"" "1'-5 1/2\"" "17 1/2")
(list (rtos 3.5 2 0) (rtos 2.5 2 0) (rtos -2.5 2 0) (rtos 2.675 2 2) (rtos -0.001 2 2) (rtos 9.9999 2 2)) ; => ("4" "3" "-3" "2.68" "0.00" "10.00")
(list (rtos 1.5) (rtos 9.99999 1 2) (rtos 0 1 2) (rtos -1e-7 1 1) (rtos 1e15 2 1)) ; => ("1.5000" "1.00E+01" "0.00E+00" "-1.0E-07" "1000000000000000.0")
; rounding carries into the feet; a fraction is in lowest terms
(list (rtos 11.999 3 2) (rtos 11.999 4 2) (rtos 180 4 2) (rtos 6 4 2) (rtos 0.5 4 4) (rtos 12.5 4 4) (rtos 0 4 2) (rtos -17.5 4 2)) ; => ("1'" "1'" "15'" "6\"" "1/2\"" "1'-0 1/2\"" "0\"" "-1'-5 1/2\"")
(list (rtos 0.75 5 3) (rtos 0.9999 5 2) (rtos 3 5 2)) ; => ("3/4" "1" "3")
(variable "UNITMODE" 1)
(mapcar '(lambda (mode) (rtos 17.5 mode 2)) '(3 4 5)) ; => ("1'5.50\"" "1'5-1/2\"" "17-1/2")
(variable "UNITMODE" 0)
; DIMZIN: 1 shows zero feet and inches, 4 drops the leading zero, 8 trailing zeros
(variable "DIMZIN" 1)
(list (rtos 180 4 2) (rtos 6 4 2) (rtos 0 4 2)) ; => ("15'-0\"" "0'-6\"" "0'-0\"")
(variable "DIMZIN" 4)
(list (rtos 0.5 2 4) (rtos -0.5 2 2) (rtos 10.5 2 2)) ; => (".5000" "-.50" "10.50")
(variable "DIMZIN" 8)
(list (rtos 12.5 2 4) (rtos 12.0 2 4) (rtos 100.0 2 0) (angtos pi 0 4)) ; => ("12.5" "12" "100" "180")
(variable "DIMZIN" 0)
(variable "LUNITS" 4)
(variable "LUPREC" 1)
(list (rtos 17.5) (rtos 17.5 2))    ; => ("1'-5 1/2\"" "17.5")
(rtos "1")                          ; ! bad argument type: numberp: "1"

; angtos: degrees, d/m/s, grads, radians, surveyor's; a full turn is no turn
(mapcar '(lambda (mode) (angtos 0.785398 mode 4)) '(0 1 2 3 4)) ; => ("45.0000" "45d0'0\"" "50.0000g" "0.7854r" "N 45d0'0\" E")
(list (angtos -0.785398 4 0) (angtos -0.785398 0 4) (angtos 0 4 0) (angtos (/ pi 2) 4 2) (angtos pi 4) (angtos (* 1.5 pi) 4)) ; => ("S 45d E" "315.0000" "E" "N" "W" "S")
(list (angtos -1e-9 0 2) (angtos -1e-9 1 4) (angtos 0.5 1 0) (angtos 0.5 1 1) (angtos 0.5 1 6)) ; => ("0.00" "0d0'0\"" "29d" "28d39'" "28d38'52.40\"")

(list (angtof "45.0000") (angtof "45.0000" 3) (angtof "45d30'" 1) (angtof "100g" 2) (angtof "N 45d E" 4) (angtof "S45dW" 4) (angtof "W") (angtof "x")) ; => (0.785398 1.0177 0.794125 1.5708 0.785398 3.92699 3.14159 nil)
; distof reads what rtos wrote
(setq wrong nil)
(foreach mode '(1 2 3 4 5)
  (foreach value '(0.0 0.25 6.0 12.0 17.5 -30.25 1234.5)
    (if (not (equal (distof (rtos value mode 6) mode) value 1e-9)) (setq wrong (cons (list mode value) wrong)))))
wrong                               ; => nil
(list (distof "1'-5 1/2\"" 4) (distof "5'6" 4) (distof "1/2" 5) (distof "1'-" 4) (distof "12x" 2) (distof "" 2) (distof "3/0" 5)) ; => (17.5 66.0 0.5 12.0 nil nil nil)

(list (distance '(0 0) '(3 4)) (distance '(0 0 0) '(1 2 2)) (distance '(0 0) '(3 4 12))) ; => (5.0 3.0 5.0)
(list (angle '(0 0) '(1 1)) (angle '(0 0) '(0 -1)) (angle '(1 1) '(0 1)) (angle '(0 0) '(0 0))) ; => (0.785398 4.71239 3.14159 0.0)
(list (polar '(1 2) 0 5) (polar '(0 0 7) 0.0 1)) ; => ((6.0 2.0) (1.0 0.0 7.0))
(list (inters '(0 0) '(2 2) '(0 2) '(2 0)) (inters '(0 0) '(1 0) '(5 1) '(5 2)) (inters '(0 0) '(1 0) '(5 1) '(5 2) nil) (inters '(0 0) '(1 0) '(0 1) '(1 1) nil)) ; => ((1.0 1.0) nil (5.0 0.0) nil)
(list (inters '(0 0 0) '(2 0 0) '(1 -1 0) '(1 1 0)) (inters '(0 0 0) '(2 0 0) '(1 -1 1) '(1 1 1))) ; => ((1.0 0.0 0.0) nil)
