; NUMTEXT: places texts with rising numbers at points that the user gives. The number's width, the
; step and a prefix are asked for; the last answers are the next defaults.

(setq *numtext:defaults* '("A-" "08" 1))

;; Digits of a number's text, filled up with zeros to the width of its model.
(defun numtext:pad (number width / s)
  (setq s (itoa number))
  (while (< (strlen s) width) (setq s (strcat "0" s)))
  s)

(defun numtext:ask-string (prompt default / answer)
  (setq answer (getstring T (strcat "\n" prompt " <" default ">: ")))
  (if (= answer "") default answer))

(defun numtext:ask-int (prompt default / answer)
  (initget 6)
  (setq answer (getint (strcat "\n" prompt " <" (itoa default) ">: ")))
  (if answer answer default))

(defun numtext:layer (name colour)
  (if (not (tblsearch "LAYER" name))
    (entmake (list '(0 . "LAYER") '(100 . "AcDbSymbolTableRecord")
                   '(100 . "AcDbLayerTableRecord") (cons 2 name) '(70 . 0)
                   (cons 62 colour) '(6 . "Continuous"))))
  name)

(defun numtext:text (at str height layer)
  (entmakex
    (list '(0 . "TEXT") (cons 8 layer)
          (cons 10 (trans at 1 0)) (cons 11 (trans at 1 0))
          (cons 40 height) (cons 1 str) (cons 7 (getvar "TEXTSTYLE"))
          '(72 . 1) '(73 . 2))))

(defun c:NUMTEXT (/ *error* oldecho oldosmode prefix first step width n pt made)
  (defun *error* (msg)
    (if oldosmode (setvar "OSMODE" oldosmode))
    (if oldecho (setvar "CMDECHO" oldecho))
    (if (not (member msg '("Function cancelled" "quit / exit abort")))
      (princ (strcat "\nError: " msg)))
    (princ))
  (setq oldecho (getvar "CMDECHO")
        oldosmode (getvar "OSMODE"))
  (setvar "CMDECHO" 0)
  (setvar "OSMODE" 0)
  (setq prefix (numtext:ask-string "Prefix" (car *numtext:defaults*))
        first (numtext:ask-string "First number" (cadr *numtext:defaults*))
        step (numtext:ask-int "Step" (caddr *numtext:defaults*))
        width (strlen first)
        n (atoi first))
  (numtext:layer "NUMBERS" 3)
  (while (setq pt (getpoint "\nPoint of the next number: "))
    (setq made (cons (numtext:text pt (strcat prefix (numtext:pad n width)) 2.5 "NUMBERS") made)
          n (+ n step)))
  (setq *numtext:defaults* (list prefix (numtext:pad n width) step))
  (setvar "OSMODE" oldosmode)
  (setvar "CMDECHO" oldecho)
  (princ (strcat "\n" (itoa (length made)) " numbers placed."))
  (princ))

; -- a first run with answers of its own, a second one with the defaults that it left
(answers "Pos " "008" "2" "0,0" "@10,0" "@5<90" "")
(c:numtext)
(defun texts (/ ss i e l)
  (if (setq ss (ssget "_X" '((0 . "TEXT") (8 . "NUMBERS"))))
    (repeat (setq i (sslength ss))
      (setq e (entget (ssname ss (setq i (1- i)))))
      (setq l (cons (list (cdr (assoc 1 e)) (cdr (assoc 11 e))) l))))
  (vl-sort l '(lambda (a b) (< (car a) (car b)))))
(texts) ; => (("Pos 008" (0.0 0.0 0.0)) ("Pos 010" (10.0 0.0 0.0)) ("Pos 012" (10.0 5.0 0.0)))
*numtext:defaults* ; => ("Pos " "014" 2)
(progn (answers "" "" "" "1,1" "") (c:numtext) (mapcar 'car (texts))) ; => ("Pos 008" "Pos 010" "Pos 012" "Pos 014")
(list (cdr (assoc 62 (tblsearch "LAYER" "numbers"))) (getvar "CMDECHO") (getvar "OSMODE")) ; => (3 1 4133)

; -- the user gives up half way: everything is as it was, what is drawn stays
(answers "X" "1")
(c:numtext) ; ! no input for: Step <2>:
(list (length (texts)) (getvar "CMDECHO") (getvar "OSMODE") (cadr *numtext:defaults*)) ; => (4 1 4133 "016")
