; CUTLIST: a list of bars from block attributes and a data file in LISP form: equal bars summed up,
; position numbers given, cut from stock lengths with little waste, written as a file and as a table.
; A reader of formulas for lengths ("2*(885+15)-30") is part of it.

;; -- formulas: tokens, then by rank of the signs
(defun cl:tokens (s / c i num out)
  (setq i 1 num "")
  (while (<= i (1+ (strlen s)))
    (setq c (substr s i 1) i (1+ i))
    (cond
      ((wcmatch c "#,`.") (setq num (strcat num c)))
      (T
       (if (/= num "") (setq out (cons (atof num) out) num ""))
       (if (wcmatch c "[-+*/()]") (setq out (cons c out))))))
  (reverse out))

(defun cl:next () (car cl:rest))
(defun cl:take (/ x) (setq x (car cl:rest) cl:rest (cdr cl:rest)) x)

(defun cl:factor (/ x)
  (setq x (cl:take))
  (cond
    ((numberp x) x)
    ((= x "-") (- (cl:factor)))
    ((= x "(") (setq x (cl:expr)) (if (/= ")" (cl:take)) (vl-exit-with-error "bracket missing")) x)
    (T (vl-exit-with-error (strcat "not expected: " (vl-princ-to-string x))))))

(defun cl:term (/ x op)
  (setq x (cl:factor))
  (while (member (cl:next) '("*" "/"))
    (setq op (cl:take) x ((if (= op "*") * /) x (cl:factor))))
  x)

(defun cl:expr (/ x op)
  (setq x (cl:term))
  (while (member (cl:next) '("+" "-"))
    (setq op (cl:take) x (apply (read op) (list x (cl:term)))))
  x)

;; The value of a formula; a caught error for one that is wrong.
(defun cl:value (s / cl:rest r)
  (setq cl:rest (cl:tokens s)
        r (vl-catch-all-apply 'cl:expr nil))
  (if (and (not (vl-catch-all-error-p r)) cl:rest)
    (vl-catch-all-apply 'vl-exit-with-error (list (strcat "too much: " (vl-princ-to-string cl:rest))))
    r))

;; -- bars: (profile length count)
(defun cl:sum-up (bars / key old out)
  (foreach b bars
    (setq key (list (car b) (cadr b)))
    (if (setq old (vl-some '(lambda (x) (if (equal key (list (car x) (cadr x)) 1e-6) x)) out))
      (setq out (subst (list (car old) (cadr old) (+ (caddr old) (caddr b))) old out))
      (setq out (cons b out))))
  (vl-sort out
    '(lambda (a b)
       (cond
         ((/= (car a) (car b)) (< (car a) (car b)))
         (T (> (cadr a) (cadr b)))))))

;; Each piece goes into the first stock bar that has room: ((rest piece ...) ...)
(defun cl:cut (pieces stock kerf / bars done)
  (foreach p pieces
    (setq done nil
          bars (mapcar
                 '(lambda (bar)
                    (if (and (not done) (>= (car bar) p))
                      (progn (setq done T) (cons (max 0.0 (- (car bar) p kerf)) (append (cdr bar) (list p))))
                      bar))
                 bars))
    (if (not done) (setq bars (append bars (list (list (- stock p kerf) p))))))
  bars)

(defun cl:repeated (x n / out) (repeat n (setq out (cons x out))))

(defun cl:from-drawing (/ ss i e a values bars)
  (if (setq ss (ssget "_X" '((0 . "INSERT") (2 . "BAR*") (66 . 1))))
    (repeat (setq i (sslength ss))
      (setq e (ssname ss (setq i (1- i))) values nil)
      (while (= "ATTRIB" (cdr (assoc 0 (setq a (entget (setq e (entnext e)))))))
        (setq values (cons (cons (read (cdr (assoc 2 a))) (cdr (assoc 1 a))) values)))
      (setq v (cl:value (cdr (assoc 'length values))))
      (if (vl-catch-all-error-p v)
        (princ (strcat "\n" (cdr (assoc 'length values)) ": " (vl-catch-all-error-message v)))
        (setq bars (cons (list (strcase (cdr (assoc 'profile values))) v
                               (max 1 (atoi (cond ((cdr (assoc 'count values))) ("1")))))
                         bars)))))
  bars)

;; A file of lists, one or several a line: (profile length [count])
(defun cl:from-file (name / f text line data)
  (if (setq f (open name "r"))
    (progn
      (setq text "(")
      (while (setq line (read-line f)) (setq text (strcat text line "\n")))
      (close f)
      (setq data (vl-catch-all-apply 'read (list (strcat text ")"))))
      (if (vl-catch-all-error-p data)
        (progn (princ (strcat "\n" name ": " (vl-catch-all-error-message data))) nil)
        (mapcar '(lambda (d) (list (strcase (vl-princ-to-string (car d))) (float (cadr d)) (cond ((caddr d)) (1)))) data)))))

(defun cl:pad (s n left) (while (< (strlen s) n) (setq s (if left (strcat " " s) (strcat s " ")))) s)

(defun cl:report (bars name stock kerf / f pos profile cuts waste)
  (setq f (open name "w") pos 0)
  (foreach b bars
    (setq pos (1+ pos))
    (write-line (strcat (cl:pad (itoa pos) 3 T) "  " (cl:pad (car b) 12 nil) (cl:pad (rtos (cadr b) 2 1) 8 T) " x" (cl:pad (itoa (caddr b)) 4 T)) f))
  (foreach profile (cl:unique (mapcar 'car bars))
    (setq cuts (cl:cut (apply 'append (mapcar '(lambda (b) (if (= profile (car b)) (cl:repeated (cadr b) (caddr b)))) bars)) stock kerf))
    (princ (strcat profile ": " (itoa (length cuts)) " bars, waste " (rtos (apply '+ (mapcar 'car cuts)) 2 0) "\n") f))
  (close f)
  pos)

(defun cl:unique (l / out)
  (while l (setq out (cons (car l) out) l (vl-remove (car l) l)))
  (reverse out))

(defun c:CUTLIST (/ name out stock bars)
  (initget 6)
  (setq stock (cond ((getreal "\nStock length <6000>: ")) (6000.0)))
  (setq name (getstring T "\nFurther bars from file <none>: ")
        out (getstring T "\nReport: ")
        bars (cl:sum-up (append (cl:from-drawing) (if (/= name "") (cl:from-file name)))))
  (cond
    ((null bars) nil)
    ((vl-some '(lambda (b) (> (cadr b) stock)) bars) (alert "A bar is longer than the stock.") nil)
    (T (cl:report bars out stock 3.0))))

; -- formulas
(mapcar 'cl:value '("885" "2*(885+15)-30" "-3+4*2.5" "100/8/2" "1-2-3" "--5")) ; => (885.0 1770.0 7.0 6.25 -4.0 5.0)
(mapcar '(lambda (s) (vl-catch-all-error-message (cl:value s))) '("2*" "(1+2" "1 2" "1/0")) ; => ("not expected: nil" "bracket missing" "too much: (2.0)" "divide by zero")
; what a formula names is not run
(vl-catch-all-error-p (cl:value "(exit)")) ; => T

; -- first fit
(cl:cut '(4000.0 3000.0 2500.0 1900.0) 6000.0 0.0) ; => ((100.0 4000.0 1900.0) (500.0 3000.0 2500.0))
(cl:sum-up '(("B" 10.0 1) ("A" 5.0 2) ("B" 10.0000001 3) ("A" 7.5 1))) ; => (("A" 7.5 1) ("A" 5.0 2) ("B" 10.0 4))

; -- a drawing and a file
(entmake '((0 . "BLOCK") (2 . "BAR1") (70 . 2) (10 0.0 0.0 0.0)))
(entmake '((0 . "ENDBLK")))
(defun bar (profile len count / a)
  (entmake '((0 . "INSERT") (66 . 1) (2 . "BAR1") (10 0.0 0.0 0.0)))
  (foreach a (list (cons "PROFILE" profile) (cons "LENGTH" len) (cons "COUNT" count))
    (if (cdr a) (entmake (list '(0 . "ATTRIB") '(10 0.0 0.0 0.0) '(40 . 2.5) (cons 2 (car a)) (cons 1 (cdr a)) '(70 . 0)))))
  (entmake '((0 . "SEQEND"))))
(bar "L50x5" "2*1000" "2")
(bar "l50X5" "1500+500" nil)
(bar "Tube 40" "(2500" "9")
(bar "Tube 40" "2500" "3")
(setq data (vl-filename-mktemp "bars" nil ".dat") report (vl-filename-mktemp "list" nil ".txt"))
(setq f (open data "w"))
(princ "(\"L50x5\" 1200.5 4) (flat 300) ; stock\n(flat\n 300 5)" f)
(close f)
(progn (answers "" data report) (c:cutlist)) ; => 4
(defun lines (name / f l out) (setq f (open name "r")) (while (setq l (read-line f)) (setq out (cons l out))) (close f) (reverse out))
(lines report) ; => ("  1  FLAT             300 x   6" "  2  L50X5           2000 x   3" "  3  L50X5         1200.5 x   4" "  4  TUBE 40         2500 x   3" "FLAT: 1 bars, waste 4182" "L50X5: 2 bars, waste 1177" "TUBE 40: 2 bars, waste 4491")
(progn (answers "2400" "" report) (c:cutlist)) ; => nil
(progn (setq f (open data "a")) (princ "(" f) (close f) (cl:from-file data)) ; => nil
(list (vl-file-delete data) (vl-file-delete report)) ; => (T T)
