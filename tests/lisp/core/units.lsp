; cvunit: units of measure.
(defun near (a b) (equal a b 1e-9))
(mapcar '(lambda (r) (cvunit (car r) (cadr r) (caddr r))) '((1 "inch" "cm") (10 "mm" "Centimeters") (1 "mile" "ft") (2 "hectare" "sq meter") (1 "m^3" "liters") (1 "day" "minutes") (180 "deg" "grad"))) ; => (2.54 1.0 5280.0 20000.0 1000.0 1440.0 200.0)
(near (cvunit 100.0 "celsius" "fahrenheit") 212.0) ; => T
(near (cvunit 36.0 "km/hour" "m/sec") 10.0) ; => T
(near (cvunit '(1.0 2.5) "ft" "in") '(12.0 30.0)) ; => T
(length (cvunit '(1 2 3) "yd" "m")) ; => 3
(list (cvunit 1 "inch" "kg") (cvunit 1 "nosuch" "cm") (cvunit 1 "" "") (cvunit 1 "m^2" "m")) ; => (nil nil nil nil)
(cvunit "1" "m" "cm") ; ! bad argument type: 2D/3D point: "1"
