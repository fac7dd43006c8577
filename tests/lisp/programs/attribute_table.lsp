; ATTOUT, ATTIN, ATTNUM: attributes of blocks as a CSV table by handle, changed values back from the
; table, and consecutive numbers for one tag from top left to bottom right.

(defun at:attributes (insert / e l out)
  (if (= 1 (cdr (assoc 66 (entget insert))))
    (progn
      (setq e (entnext insert))
      (while (= "ATTRIB" (cdr (assoc 0 (setq l (entget e)))))
        (setq out (cons (list (strcase (cdr (assoc 2 l))) (cdr (assoc 1 l)) e) out)
              e (entnext e)))))
  (reverse out))

(defun at:inserts (pattern / ss n out)
  (if (setq ss (ssget "_X" (list '(0 . "INSERT") '(66 . 1) (cons 2 pattern))))
    (repeat (setq n (sslength ss))
      (setq n (1- n) out (cons (ssname ss n) out))))
  (reverse out))

;; All tags, each once, in the order in which they come up.
(defun at:tags (inserts / tags)
  (foreach insert inserts
    (foreach a (at:attributes insert)
      (if (not (member (car a) tags)) (setq tags (append tags (list (car a)))))))
  tags)

;; A field in quotes when it needs them; quotes inside are doubled.
(defun at:quoted (s / out c i)
  (if (wcmatch s "*[;\"]*")
    (progn
      (setq out "" i 1)
      (repeat (strlen s)
        (setq c (substr s i 1) out (strcat out (if (= c "\"") "\"\"" c)) i (1+ i)))
      (strcat "\"" out "\""))
    s))

(defun at:join (fields / out)
  (setq out (at:quoted (car fields)))
  (foreach f (cdr fields) (setq out (strcat out ";" (at:quoted f))))
  out)

;; The fields of a line, character by character: a state machine of two states.
(defun at:fields (s / quoted field out chars c)
  (setq field "" chars (vl-string->list s))
  (while chars
    (setq c (car chars) chars (cdr chars))
    (cond
      ((and quoted (= c 34) (= (car chars) 34)) (setq field (strcat field "\"") chars (cdr chars)))
      ((= c 34) (setq quoted (not quoted)))
      ((and (= c 59) (not quoted)) (setq out (cons field out) field ""))
      (T (setq field (strcat field (chr c))))))
  (reverse (cons field out)))

(defun c:ATTOUT (/ name pattern inserts tags f values)
  (setq pattern (getstring "\nBlocks <*>: "))
  (if (= pattern "") (setq pattern "*"))
  (setq name (getstring T "\nFile: ")
        inserts (at:inserts pattern)
        tags (at:tags inserts))
  (if (and inserts (setq f (open name "w")))
    (progn
      (write-line (at:join (append '("HANDLE" "BLOCK") tags)) f)
      (foreach insert inserts
        (setq values (at:attributes insert))
        (write-line
          (at:join
            (append
              (list (cdr (assoc 5 (entget insert))) (cdr (assoc 2 (entget insert))))
              (mapcar '(lambda (tag / a) (if (setq a (assoc tag values)) (cadr a) "<>")) tags)))
          f))
      (close f)
      (length inserts))))

(defun at:set (attribute value / l)
  (setq l (entget attribute))
  (if (/= value (cdr (assoc 1 l)))
    (if (entmod (subst (cons 1 value) (assoc 1 l) l))
      (progn (entupd attribute) 1)
      0)
    0))

(defun c:ATTIN (/ name f line head fields insert values changed)
  (setq name (getfiled "Table" "" "csv" 0) changed 0)
  (if (setq f (open name "r"))
    (progn
      (setq head (cddr (at:fields (read-line f))))
      (while (setq line (read-line f))
        (setq fields (at:fields line) insert (handent (car fields)))
        (if (and insert (entget insert))
          (progn
            (setq values (at:attributes insert))
            (mapcar
              '(lambda (tag value / a)
                 (if (and (/= value "<>") (setq a (assoc tag values)))
                   (setq changed (+ changed (at:set (caddr a) value)))))
              head (cddr fields)))))
      (close f)
      changed)))

;; Rows within the tolerance from top to bottom, each from left to right.
(defun at:order (inserts tol / at)
  (setq at '(lambda (e) (cdr (assoc 10 (entget e)))))
  (vl-sort inserts
    (function (lambda (a b / p q)
      (setq p (at a) q (at b))
      (if (equal (cadr p) (cadr q) tol)
        (< (car p) (car q))
        (> (cadr p) (cadr q)))))))

(defun c:ATTNUM (/ tag prefix start digits n s a)
  (setq tag (strcase (getstring "\nTag: ")) prefix (getstring "\nPrefix: "))
  (initget 5)
  (setq start (getint "\nFirst number: "))
  (initget "1 2 3 4")
  (setq digits (atoi (cond ((getkword "\nDigits [1/2/3/4] <3>: ")) ("3"))))
  (setq n start)
  (foreach insert (at:order (at:inserts "*") 5.0)
    (setq s (itoa n))
    (while (< (strlen s) digits) (setq s (strcat "0" s)))
    (if (setq a (assoc tag (at:attributes insert)))
      (progn (at:set (caddr a) (strcat prefix s)) (setq n (1+ n)))))
  (- n start))

; -- doors in two rows, a window; blocks made by entmake, inserted by the command with its prompts
(defun attdef (tag prompt default y)
  (entmake (list '(0 . "ATTDEF") '(8 . "0") (list 10 0.0 y 0.0) '(40 . 2.5) (cons 1 default) (cons 3 prompt) (cons 2 tag) '(70 . 0))))
(defun block (name tags / y)
  (setq y 0.0)
  (entmake (list '(0 . "BLOCK") (cons 2 name) '(70 . 2) '(10 0.0 0.0 0.0)))
  (entmake '((0 . "CIRCLE") (8 . "0") (10 0.0 0.0 0.0) (40 . 5.0)))
  (foreach tag tags (attdef (car tag) (cadr tag) (caddr tag) y) (setq y (- y 4.0)))
  (entmake '((0 . "ENDBLK"))))
(block "DOOR" '(("NO" "Number" "?") ("WIDTH" "Width" "885")))
(block "WINDOW" '(("NO" "Number" "?") ("GLASS" "Glass" "2;6 mm")))
(setvar "CMDECHO" 0)
(command "_.-INSERT" "DOOR" "0,101" 1 1 0 "a" "1010")
(command "_.-INSERT" "DOOR" "100,98" 1 1 0 "b" "")
(command "_.-INSERT" "window" "50,0" 1 1 0 "c" "say \"low e\"")
(command "_.-INSERT" "DOOR" "0,0" 1 1 0 "" "760")

(setq file (vl-filename-mktemp "table" nil ".csv"))
(progn (answers "" file) (c:attout)) ; => 4
(setq f (open file "r") table nil)
(while (setq line (read-line f)) (setq table (cons (at:fields line) table)))
(close f)
(setq table (reverse table))
(mapcar 'cdr table) ; => (("BLOCK" "NO" "WIDTH" "GLASS") ("DOOR" "a" "1010" "<>") ("DOOR" "b" "885" "<>") ("WINDOW" "c" "<>" "say \"low e\"") ("DOOR" "?" "760" "<>"))

; -- numbers by place
(progn (answers "no" "T" "7" "") (c:attnum)) ; => 4
(defun numbers (/ out) (foreach i (at:order (at:inserts "*") 5.0) (setq out (cons (cadr (assoc "NO" (at:attributes i))) out))) (reverse out))
(numbers) ; => ("T007" "T008" "T009" "T010")
(mapcar '(lambda (i) (cdr (assoc 10 (entget i)))) (at:order (at:inserts "*") 5.0)) ; => ((0.0 101.0 0.0) (100.0 98.0 0.0) (0.0 0.0 0.0) (50.0 0.0 0.0))

; -- the table from before, with one width changed and a handle that is nobody's
(setq f (open file "w"))
(foreach row (list (car table) (append (list (car (nth 1 table)) "DOOR" "T1" "999" "<>")) (nth 2 table) '("FFFFF" "DOOR" "x" "y" "z"))
  (write-line (at:join row) f))
(close f)
(progn (answers file) (c:attin)) ; => 3
(numbers) ; => ("T1" "b" "T009" "T010")
(progn (answers "WIN*" file) (c:attout)) ; => 1
(at:fields "a;\"b;\"\"c\";;") ; => ("a" "b;\"c" "" "")
(vl-file-delete file) ; => T
