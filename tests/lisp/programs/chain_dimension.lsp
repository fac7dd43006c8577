; CHAIN: a chain of dimensions of lines, ticks and texts along any direction, points in any order, with
; the sum; DIMEDIT: its texts rounded anew. TALIGN, TCASE, TSUM: lines of text. Works in the user's axes.

(defun cd:err (m) (foreach p cd:old (setvar (car p) (cdr p))) (redraw) (setq *error* cd:err-before cd:old nil)
  (if (not (wcmatch (strcase m T) "*cancel*,*quit*")) (princ (strcat "\n" m))) (princ))

(defun cd:start (vars) (setq cd:err-before *error* *error* cd:err)
  (setq cd:old (mapcar (function (lambda (v) (cons v (getvar v)))) vars)))
(defun cd:end () (foreach p cd:old (setvar (car p) (cdr p))) (setq cd:old nil *error* cd:err-before))

;; Place of a point along the direction from the base.
(defun cd:along (p base dir) (+ (* (- (car p) (car base)) (cos dir)) (* (- (cadr p) (cadr base)) (sin dir))))

(defun cd:make (l) (entmake (mapcar '(lambda (g) (if (member (car g) '(10 11)) (cons (car g) (trans (cdr g) 1 0)) g)) l)))

(defun cd:tick (p dir h / d)
  (setq d (+ dir (/ pi 4)))
  (cd:make (list '(0 . "LINE") '(8 . "DIMS") (cons 10 (polar p d (/ h 2))) (cons 11 (polar p d (- (/ h 2)))))))

;; Texts never stand on their heads.
(defun cd:readable (a) (if (< (/ pi 2) (rem (+ a 1e-9 pi pi) (+ pi pi)) (* 1.5 pi)) (+ a pi) a))

(defun cd:text (s p dir h)
  (command "_.TEXT" "_S" (getvar "TEXTSTYLE") "_J" "_BC" (polar p (+ (cd:readable dir) (/ pi 2)) (* 0.4 h)) h
           (angtos (cd:readable dir) (getvar "AUNITS") 8) s))

;; Points until Enter; each is marked on the screen.
(defun cd:points (/ p l)
  (initget 1)
  (setq p (getpoint "\nFirst point: "))
  (while p
    (setq l (cons p l))
    (grdraw (polar p 0.7 1.0) (polar p 3.8 1.0) 1)
    (grdraw (polar p 2.3 1.0) (polar p 5.4 1.0) 1)
    (initget "Undo")
    (setq p (getpoint p "\nNext point or [Undo]: "))
    (if (= p "Undo") (setq l (cdr l) p (car l) l (cdr l))))
  l)

(defun c:CHAIN (/ pts at dir ps h last first s)
  (cd:start '("CMDECHO" "OSMODE" "CLAYER" "DIMZIN"))
  (setvar "CMDECHO" 0) (setvar "OSMODE" 0) (setvar "DIMZIN" 8)
  (command "_.-LAYER" "_M" "DIMS" "")
  (setq pts (cd:points) h (* (getvar "DIMSCALE") (getvar "DIMTXT")))
  (initget 1)
  (setq at (getpoint "\nPlace of the chain: "))
  (setq dir (cond ((getangle at "\nDirection <0>: ")) (0.0)))
  (setq ps (vl-sort (mapcar '(lambda (p) (cd:along p at dir)) pts) '<)
        ps (cd:unique ps 1e-6))
  (if (< (length ps) 2) (exit))
  (setq first (polar at dir (car ps)) last first)
  (cd:tick first dir h)
  (foreach p (mapcar '(lambda (x) (polar at dir x)) (cdr ps))
    (cd:tick p dir h)
    (cd:text (rtos (distance last p) 2 (getvar "LUPREC")) (polar last (angle last p) (/ (distance last p) 2.0)) dir h)
    (setq last p))
  (cd:make (list '(0 . "LINE") '(8 . "DIMS") (cons 10 first) (cons 11 last)))
  (foreach p pts
    (cd:make (list '(0 . "LINE") '(8 . "DIMS") (cons 10 p) (cons 11 (polar at dir (cd:along p at dir))))))
  (redraw)
  (setq s (distance first last))
  (cd:end)
  s)

(defun cd:unique (l fuzz / out)
  (foreach x l (if (not (and out (equal x (car out) fuzz))) (setq out (cons x out))))
  (reverse out))

(defun cd:texts (filter / ss i l)
  (if (setq ss (ssget "_X" (append '((0 . "TEXT")) filter)))
    (repeat (setq i (sslength ss)) (setq i (1- i) l (cons (ssname ss i) l)))))

(defun c:DIMEDIT (/ n r s l)
  (initget 5)
  (setq r (getint "\nDecimal places: ") n 0)
  (foreach e (cd:texts '((8 . "DIMS")))
    (setq l (entget e) s (rtos (atof (cdr (assoc 1 l))) 2 r))
    (if (/= s (cdr (assoc 1 l)))
      (progn (entmod (subst (cons 1 s) (assoc 1 l) l)) (setq n (1+ n)))))
  n)

(defun c:TSUM (/ sum v)
  (setq sum 0.0)
  (foreach e (cd:texts '((8 . "DIMS")))
    (if (setq v (distof (cdr (assoc 1 (entget e))) 2)) (setq sum (+ sum v))))
  (alert (strcat "Sum: " (rtos sum 2 3)))
  sum)

;; The texts under one another at the first one's place, left aligned, in their order from top down.
(defun c:TALIGN (/ es l p gap)
  (setq es (vl-sort (cd:texts '((8 . "NOTES"))) '(lambda (a b) (> (caddr (assoc 10 (entget a))) (caddr (assoc 10 (entget b)))))))
  (setq p (cdr (assoc 10 (entget (car es)))))
  (foreach e es
    (setq l (entget e) gap (* 1.5 (cdr (assoc 40 l))))
    (foreach g (list (cons 10 p) '(72 . 0) '(73 . 0)) (setq l (subst g (assoc (car g) l) l)))
    (entmod l)
    (setq p (polar p (* 1.5 pi) gap)))
  (length es))

(defun cd:title (s / i c up out)
  (setq i 1 up T out "")
  (while (<= i (strlen s))
    (setq c (substr s i 1) out (strcat out (strcase c (not up))) up (not (wcmatch c "@,#")) i (1+ i)))
  out)

(defun c:TCASE (/ how)
  (initget 1 "Upper Lower Title Sentence")
  (setq how (getkword "\nCase [Upper/Lower/Title/Sentence]: "))
  (foreach e (cd:texts '((8 . "NOTES")))
    (setq l (entget e) s (cdr (assoc 1 l)))
    (entmod (subst (cons 1 (cond ((= how "Upper") (strcase s)) ((= how "Lower") (strcase s T))
                                 ((= how "Title") (cd:title s))
                                 (T (strcat (strcase (substr s 1 1)) (strcase (substr s 2) T)))))
                   (assoc 1 l) l)))
  how)

; -- a chain along the X axis, points in wild order, one twice, one taken back
(setvar "DIMTXT" 2.5)
(defun shown (/ l) (mapcar '(lambda (e) (cdr (assoc 1 (entget e)))) (cd:texts '((8 . "DIMS")))))
(progn (answers "0,0" "35.125,4" "99,99" "U" "10,2" "35.125,-3" "" "0,20" "") (c:chain)) ; => 35.125
(shown) ; => ("25.125" "10")
(mapcar 'getvar '("CLAYER" "OSMODE" "CMDECHO")) ; => ("0" 4133 1)
(sslength (ssget "_X" '((0 . "LINE") (8 . "DIMS")))) ; => 8
(mapcar '(lambda (c) (cdr (assoc c (entget (car (cd:texts nil)))))) '(11 72 73 50)) ; => ((22.5625 21.0 0.0) 1 1 0.0)
(vectors) ; => nil
(progn (answers "1") (list (c:dimedit) (shown))) ; => (1 ("25.1" "10"))
(c:tsum) ; => 35.1

; -- in turned axes, along a slope: the texts stay readable
(command "_.ERASE" "_ALL" "")
(command "_.UCS" "_Z" 90)
(progn (answers "0,0" "0,-10" "0,-30" "" "5,0" "270") (c:chain)) ; => 30.0
(equal (mapcar '(lambda (e) (cdr (assoc 11 (entget e)))) (cd:texts nil)) '((20.0 6.0 0.0) (5.0 6.0 0.0)) 1e-6) ; => T
(equal (cdr (assoc 50 (entget (car (cd:texts nil))))) 0.0 1e-6) ; => T
(command "_.UCS" "_W")
; one point is not enough, and everything is put back
(progn (answers "0,0" "" "5,0" "") (c:chain)) ; ! quit / exit abort
(list *error* (getvar "CLAYER") (vectors)) ; => (nil "0" nil)

; -- texts
(mapcar '(lambda (s x y) (entmake (list '(0 . "TEXT") '(8 . "NOTES") (list 10 x y 0.0) '(40 . 2.0) (cons 1 s)))) '("second LINE" "first line, ÄÖ" "third") '(7.0 3.0 1.0) '(50.0 60.0 55.5))
(list (c:talign) (progn (answers "T") (c:tcase))) ; => (3 "Title")
(mapcar '(lambda (e) (list (cdr (assoc 1 (entget e))) (cdr (assoc 10 (entget e))))) (cd:texts '((8 . "NOTES")))) ; => (("Third" (3.0 57.0 0.0)) ("First Line, Äö" (3.0 60.0 0.0)) ("Second Line" (3.0 54.0 0.0)))
(progn (answers "S") (c:tcase) (cdr (assoc 1 (entget (last (cd:texts '((8 . "NOTES")))))))) ; => "Second line"
