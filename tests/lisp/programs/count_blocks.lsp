; BLOCKCOUNT and RENUMBER: what blocks with attributes stand in a drawing, as a list of parts by
; name and size, and the position numbers written back into the attributes.

(defun bc:define (name tags / y)
  (entmake (list '(0 . "BLOCK") (cons 2 name) '(70 . 2) '(10 0.0 0.0 0.0)))
  (entmake '((0 . "LINE") (8 . "0") (10 0.0 0.0 0.0) (11 1.0 0.0 0.0)))
  (setq y 0.0)
  (foreach tag tags
    (entmake (list '(0 . "ATTDEF") '(8 . "0") (list 10 0.0 (setq y (- y 3.0)) 0.0) '(40 . 2.5)
                   '(1 . "") (cons 2 tag) (cons 3 tag) '(70 . 0))))
  (entmake '((0 . "ENDBLK"))))

(defun bc:insert (name at values / pair)
  (entmake (list '(0 . "INSERT") '(66 . 1) (cons 2 name) (cons 10 at)))
  (foreach pair values
    (entmake (list '(0 . "ATTRIB") '(8 . "0") (cons 10 at) '(40 . 2.5) (cons 2 (car pair))
                   (cons 1 (cdr pair)) '(70 . 0))))
  (entmakex '((0 . "SEQEND"))))

;; Attributes of an insert as ((tag . (value . ename)) ...).
(defun bc:attributes (insert / e l out)
  (setq e (entnext insert))
  (while (and e (= "ATTRIB" (cdr (assoc 0 (setq l (entget e))))))
    (setq out (cons (cons (strcase (cdr (assoc 2 l))) (cons (cdr (assoc 1 l)) e)) out)
          e (entnext e)))
  (reverse out))

(defun bc:value (attributes tag) (cadr (assoc tag attributes)))

(defun bc:set (attributes tag value / l)
  (if (assoc tag attributes)
    (progn
      (setq l (entget (cddr (assoc tag attributes))))
      (entmod (subst (cons 1 value) (assoc 1 l) l))
      (entupd (cdr (assoc -1 l))))))

(defun bc:inserts (pattern / ss i out)
  (if (setq ss (ssget "_X" (list '(0 . "INSERT") (cons 2 pattern) '(66 . 1))))
    (repeat (setq i (sslength ss))
      (setq out (cons (ssname ss (setq i (1- i))) out))))
  (reverse out))

;; ((key count inserts) ...), the key being the name and the values of the tags.
(defun bc:groups (inserts tags / key found groups a)
  (foreach e inserts
    (setq a (bc:attributes e)
          key (cons (cdr (assoc 2 (entget e)))
                    (mapcar '(lambda (tag) (cond ((bc:value a tag)) (""))) tags)))
    (if (setq found (assoc key groups))
      (setq groups (subst (list key (1+ (cadr found)) (cons e (caddr found))) found groups))
      (setq groups (cons (list key 1 (list e)) groups))))
  (vl-sort groups '(lambda (a b) (< (bc:text (car a)) (bc:text (car b))))))

(defun bc:text (key) (apply 'strcat (mapcar '(lambda (s) (strcat s "|")) key)))

(defun c:BLOCKCOUNT (/ g)
  (setq g (bc:groups (bc:inserts "PART*") '("SIZE")))
  (foreach row g
    (princ (strcat "\n" (caar row) "  " (cadar row) "  " (itoa (cadr row)))))
  (mapcar '(lambda (row) (append (car row) (list (cadr row)))) g))

(defun c:RENUMBER (/ n)
  (command "_.UNDO" "_Begin")
  (setq n 0)
  (foreach row (bc:groups (bc:inserts "PART*") '("SIZE"))
    (setq n (1+ n))
    (foreach e (caddr row) (bc:set (bc:attributes e) "POS" (strcat "P" (itoa n)))))
  (command "_.UNDO" "_End")
  n)

(bc:define "PART-A" '("POS" "SIZE"))
(bc:define "PART-B" '("SIZE" "POS"))
(bc:define "FRAME" '("POS"))
(foreach row '(("PART-A" 0 "100") ("PART-B" 10 "80") ("PART-A" 20 "120") ("PART-A" 30 "100") ("FRAME" 40 "1"))
  (bc:insert (car row) (list (float (cadr row)) 0.0 0.0) (list '("POS" . "?") (cons "SIZE" (caddr row)))))
(c:blockcount) ; => (("PART-A" "100" 2) ("PART-A" "120" 1) ("PART-B" "80" 1))
(c:renumber) ; => 3
(defun positions () (mapcar '(lambda (e) (bc:value (bc:attributes e) "POS")) (bc:inserts "*")))
(vl-sort (positions) '<) ; => ("?" "P1" "P1" "P2" "P3")
; one step takes all of it back
(progn (command "_.U") (positions)) ; => ("?" "?" "?" "?" "?")
(progn (command "_.REDO") (length (vl-remove "?" (positions)))) ; => 4
(cdr (assoc 70 (tblsearch "BLOCK" "part-b"))) ; => 2
