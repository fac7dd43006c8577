; Ways in which programs of users are written; each leans on several rules at once.

; a string cut at a delimiter, and joined again
(defun split (text delimiter / place parts)
  (while (setq place (vl-string-search delimiter text))
    (setq parts (cons (substr text 1 place) parts)
          text (substr text (+ place 1 (strlen delimiter)))))
  (reverse (cons text parts)))
(defun join (parts delimiter)
  (apply 'strcat (cons (car parts) (apply 'append (mapcar '(lambda (x) (list delimiter x)) (cdr parts))))))
(split "10,20,,30" ",")             ; => ("10" "20" "" "30")
(join (split "a; b; c" "; ") "|")   ; => "a|b|c"

; all matches replaced, one after the other
(defun replace-all (new old text / from)
  (setq from 0)
  (while (setq from (vl-string-search old text from))
    (setq text (vl-string-subst new old text from) from (+ from (strlen new))))
  text)
(replace-all "\\\\" "\\" "C:\\a\\b") ; => "C:\\\\a\\\\b"

; matrices: transposed by mapcar list, rows times columns
(defun transposed (m) (apply 'mapcar (cons 'list m)))
(defun product (a b) (mapcar '(lambda (row) (mapcar '(lambda (col) (apply '+ (mapcar '* row col))) (transposed b))) a))
(transposed '((1 2 3) (4 5 6)))     ; => ((1 4) (2 5) (3 6))
(product '((1 2) (3 4)) '((0 1) (1 0))) ; => ((2 1) (4 3))

; the list of an entity: groups found and changed
(setq groups '((0 . "LINE") (8 . "0") (10 0.0 0.0 0.0) (11 3.0 4.0 0.0) (62 . 1)))
(defun dxf (code list-of-groups) (cdr (assoc code list-of-groups)))
(distance (dxf 10 groups) (dxf 11 groups)) ; => 5.0
(subst (cons 8 "STAHL") (assoc 8 groups) groups) ; => ((0 . "LINE") (8 . "STAHL") (10 0.0 0.0 0.0) (11 3.0 4.0 0.0) (62 . 1))
(mapcar 'cdr (vl-remove-if-not '(lambda (pair) (member (car pair) '(10 11))) groups)) ; => ((0.0 0.0 0.0) (3.0 4.0 0.0))

; lists without duplicates, flat, in all orders
(defun unique (l) (if l (cons (car l) (unique (vl-remove (car l) (cdr l))))))
(defun flat (l) (cond ((null l) nil) ((atom l) (list l)) ((append (flat (car l)) (flat (cdr l))))))
(defun orders (l) (if l (apply 'append (mapcar '(lambda (x) (mapcar '(lambda (rest) (cons x rest)) (orders (vl-remove x l)))) l)) '(nil)))
(unique '(1 "a" 1 (2) "a" (2)))     ; => (1 "a" (2))
(flat '(1 (2 (3 nil) . 4) ((5))))   ; => (1 2 3 4 5)
(orders '(a b c))                   ; => ((A B C) (A C B) (B A C) (B C A) (C A B) (C B A))

; names made at run time, tables of functions, conditions from lists
(foreach i '(1 2 3) (set (read (strcat "item" (itoa i))) (* i i)))
(list item1 item2 item3)            ; => (1 4 9)
(setq shapes (list (cons 'square (lambda (s) (* s s))) (cons 'cube '(lambda (s) (* s s s)))))
(mapcar '(lambda (name) ((cdr (assoc name shapes)) 3)) '(square cube)) ; => (9 27)
(list (eval (cons 'and '(1 2 nil))) (eval (list 'quote 'x))) ; => (nil X)

; a loop whose condition does the work, with several exits
(defun first-above (limit numbers / found)
  (while (and numbers (not found))
    (cond ((not (numberp (car numbers))))
          ((> (car numbers) limit) (setq found (car numbers))))
    (setq numbers (cdr numbers)))
  found)
(list (first-above 3 '(1 a 5 9)) (first-above 9 '(1 2))) ; => (5 nil)

; 32-bit arithmetic as in checksums: integers wrap, shifts have no sign
(defun rotated (x n) (logior (lsh x n) (lsh x (- n 32))))
(defun checksum (text / h) (setq h 5381) (foreach c (vl-string->list text) (setq h (+ (rotated h 5) (boole 6 h c)))) h)
(list (rotated 1 31) (rotated -2147483647 1) (checksum "") (= (checksum "abc") (checksum "acb"))) ; => (-2147483648 3 5381 nil)
(type (checksum "a longer text that overflows many times")) ; => INT

; hexadecimal and back
(defun to-hex (n / digits)
  (while (progn (setq digits (strcat (substr "0123456789ABCDEF" (1+ (rem n 16)) 1) (cond (digits) (""))) n (/ n 16)) (> n 0)))
  digits)
(defun from-hex (text) (apply '+ (mapcar '(lambda (c k) (* (- c (if (< c 58) 48 55)) (expt 16 k))) (reverse (vl-string->list text)) '(0 1 2 3 4 5 6))))
(list (to-hex 0) (to-hex 48879) (from-hex "BEEF")) ; => ("0" "BEEF" 48879)

; settings saved in locals, restored by a local *error*, whatever happens
(setq setting 'user)
(defun program (fails / *error* old)
  (defun *error* (message) (setq setting old) (if (not (wcmatch message "*abort*")) (setq report message)) (princ))
  (setq old setting setting 'changed)
  (if fails (fails))
  (*error* "done")
  setting)
(list (program nil) setting report)  ; => (USER USER "done")
(program '(lambda () (setq setting 'worse) (nth "x" '(1)))) ; ! bad argument type: fixnump: "x"
(list setting report)               ; => (USER "bad argument type: fixnump: \"x\"")
(program exit)                      ; ! quit / exit abort
(list setting report)               ; => (USER "bad argument type: fixnump: \"x\"")

; recursion through data and counters in dynamic scope
(setq visits 0)
(defun walk (node) (setq visits (1+ visits)) (if (listp node) (foreach child node (walk child))))
(walk '(1 (2 3) ((4))))
visits                              ; => 8
(defun hanoi (n from to by) (if (= n 0) 0 (+ (hanoi (1- n) from by to) 1 (hanoi (1- n) by to from))))
(hanoi 10 'a 'b 'c)                 ; => 1023
(defun ackermann (m n) (cond ((= m 0) (1+ n)) ((= n 0) (ackermann (1- m) 1)) (t (ackermann (1- m) (ackermann m (1- n))))))
(ackermann 2 9)                     ; => 21

; points along a polyline, angles in degrees
(defun degrees (a) (/ (* a 180.0) pi))
(setq points '((0 0) (30 0) (30 40)))
(apply '+ (mapcar 'distance points (cdr points))) ; => 70.0
(mapcar '(lambda (a b) (rtos (degrees (angle a b)) 2 1)) points (cdr points)) ; => ("0.0" "90.0")
(mapcar '(lambda (k) (mapcar 'fix (polar '(0 0) (* k 0.5 pi) 10.5))) '(0 1 2 3)) ; => ((10 0) (0 10) (-10 0) (0 -10))
