; FINDTEXT: finds a text in TEXT, MTEXT, ATTRIB and ATTDEF entities by plain text or wildcard and
; replaces it, whole words or all, with or without case; what was changed is marked by xdata so that
; it can be told and taken back.

(setq *ft:app* "ORVALD_FINDTEXT")

(defun ft:is-word-char (c) (and c (wcmatch c "@,#,_")))

(defun ft:char (s i) (if (and (> i 0) (<= i (strlen s))) (substr s i 1)))

;; True when the `n` characters from the i-th one (from 1) stand alone.
(defun ft:is-word (s i n)
  (not (or (ft:is-word-char (ft:char s (1- i))) (ft:is-word-char (ft:char s (+ i n))))))

;; The text with every `old` replaced; how often goes to ft:count.
(defun ft:replace (s old new nocase whole / at from out look find)
  (setq look (if nocase (strcase s) s)
        find (if nocase (strcase old) old)
        from 0 out "")
  (while (setq at (vl-string-search find look from))
    (if (or (not whole) (ft:is-word s (1+ at) (strlen old)))
      (setq out (strcat out (substr s (1+ from) (- at from)) new)
            ft:count (1+ ft:count))
      (setq out (strcat out (substr s (1+ from) (- (+ at (strlen old)) from)))))
    (setq from (+ at (strlen old))))
  (strcat out (substr s (1+ from))))

;; Whole text of an entity: pieces of 250 characters (group 3) before the last one (group 1).
(defun ft:text (e / out item)
  (setq out "")
  (foreach item e (if (= 3 (car item)) (if (= "MTEXT" (cdr (assoc 0 e))) (setq out (strcat out (cdr item))))))
  (strcat out (cdr (assoc 1 e))))

(defun ft:put (e text old / new)
  (setq new (vl-remove-if '(lambda (item) (and (= "MTEXT" (cdr (assoc 0 e))) (= 3 (car item)))) e)
        new (subst (cons 1 text) (assoc 1 new) new))
  (regapp *ft:app*)
  (entmod (append new (list (list -3 (list *ft:app* (cons 1000 (substr old 1 255))))))))

;; Names of all texts: main entities, and attributes of inserts.
(defun ft:all (/ e kind out)
  (setq e (entnext))
  (while e
    (setq kind (cdr (assoc 0 (entget e))))
    (if (wcmatch kind "TEXT,MTEXT,ATTRIB,ATTDEF") (setq out (cons e out)))
    (setq e (entnext e)))
  (reverse out))

(defun ft:run (old new nocase whole / e l text result changed ft:count)
  (setq ft:count 0 changed 0)
  (foreach e (ft:all)
    (setq l (entget e) text (ft:text l))
    (setq result (ft:replace text old new nocase whole))
    (if (/= text result)
      (progn (ft:put l result text) (setq changed (1+ changed)))))
  (list ft:count changed))

;; Takes the last change of each text back.
(defun ft:back (/ e l x n)
  (setq n 0)
  (foreach e (ft:all)
    (setq l (entget e (list *ft:app*)) x (cdr (assoc -3 l)))
    (if x
      (progn
        (ft:put (vl-remove (assoc -3 l) l) (cdr (cadr (assoc *ft:app* x))) "")
        (entmod (list (assoc -1 l) (list -3 (list *ft:app*))))
        (setq n (1+ n)))))
  n)

(defun text (s) (entmakex (list '(0 . "TEXT") '(10 0.0 0.0 0.0) '(40 . 2.5) (cons 1 s))))
(defun mtext (s) (entmakex (list '(0 . "MTEXT") '(100 . "AcDbEntity") '(100 . "AcDbMText") '(10 0.0 0.0 0.0) '(40 . 2.5) (cons 1 s))))
(setq a (text "Door D1 and door D12"))
(setq b (mtext "DOOR plan\\Pno change"))
(entmake '((0 . "BLOCK") (2 . "T") (70 . 2) (10 0.0 0.0 0.0)))
(entmake '((0 . "ENDBLK")))
(entmake '((0 . "INSERT") (66 . 1) (2 . "T") (10 0.0 0.0 0.0)))
(entmake '((0 . "ATTRIB") (10 0.0 0.0 0.0) (40 . 1.0) (2 . "N") (1 . "D1") (70 . 0)))
(entmake '((0 . "SEQEND")))
(defun texts () (mapcar '(lambda (e) (ft:text (entget e))) (ft:all)))

(ft:run "door" "Gate" T nil) ; => (3 2)
(texts) ; => ("Gate D1 and Gate D12" "Gate plan\\Pno change" "D1")
(ft:run "D1" "D7" nil T) ; => (2 2)
(texts) ; => ("Gate D7 and Gate D12" "Gate plan\\Pno change" "D7")
(cdr (assoc -3 (entget a '("ORVALD*")))) ; => (("ORVALD_FINDTEXT" (1000 . "Gate D1 and Gate D12")))
(ft:run "nothing of the kind" "x" T nil) ; => (0 0)
(ft:back) ; => 3
(texts) ; => ("Gate D1 and Gate D12" "DOOR plan\\Pno change" "D1")
(ft:back) ; => 0
; the replacement may hold what is looked for
(progn (ft:run "D1" "D1D1" nil nil) (car (texts))) ; => "Gate D1D1 and Gate D1D12"
