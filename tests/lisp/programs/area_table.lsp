;;; AREATAB.LSP
;;; Numbers closed outlines row by row, marks each with a numbered bubble at its middle and draws a
;;; table of area, perimeter and share. Uses objects where programs of today do.

(vl-load-com)

(defun areatab:doc () (vla-get-activedocument (vlax-get-acad-object)))

;; -> list of vla-objects
(defun areatab:ss->objects (ss / i l)
  (if ss
    (repeat (setq i (sslength ss))
      (setq l (cons (vlax-ename->vla-object (ssname ss (setq i (1- i)))) l)))))

;; Corners of the box around a curve, from points along it.
(defun areatab:box (obj / n step pts i)
  (setq n 64 step (/ (- (vlax-curve-getendparam obj) (vlax-curve-getstartparam obj)) n) i 0)
  (repeat n
    (setq pts (cons (vlax-curve-getpointatparam obj (+ (vlax-curve-getstartparam obj) (* i step))) pts)
          i (1+ i)))
  (list (apply 'mapcar (cons 'min pts)) (apply 'mapcar (cons 'max pts))))

(defun areatab:mid (a b) (mapcar '(lambda (x y) (* 0.5 (+ x y))) a b))

(defun areatab:sorted (objs fuzz)
  (mapcar 'cadr
    (vl-sort
      (mapcar '(lambda (o) (list (apply 'areatab:mid (areatab:box o)) o)) objs)
      '(lambda (a b)
         (if (equal (cadar a) (cadar b) fuzz)
           (< (caar a) (caar b))
           (> (cadar a) (cadar b)))))))

(defun areatab:text (str pt hgt just)
  (entmakex
    (list '(0 . "TEXT") '(8 . "AREATAB") (cons 10 pt) (cons 11 pt) (cons 40 hgt) (cons 1 str)
          (cons 72 just) '(73 . 2) (cons 7 (getvar 'textstyle)))))

(defun areatab:line (a b) (entmakex (list '(0 . "LINE") '(8 . "AREATAB") (cons 10 a) (cons 11 b))))

(defun areatab:bubble (n pt hgt)
  (entmakex (list '(0 . "CIRCLE") '(8 . "AREATAB") (cons 10 pt) (cons 40 (* 1.2 hgt))))
  (areatab:text (itoa n) pt hgt 1))

;; rows: lists of texts, all as long; widths by the longest text of a column
(defun areatab:table (rows org hgt / cols widths x y row)
  (setq cols (apply 'mapcar (cons 'list rows))
        widths (mapcar '(lambda (col) (* hgt (+ 2.0 (apply 'max (mapcar 'strlen col))))) cols)
        y (cadr org))
  (foreach row rows
    (setq x (car org))
    (mapcar
      '(lambda (str w)
         (areatab:text str (list (+ x (- w hgt)) (- y hgt) 0.0) hgt 2)
         (setq x (+ x w)))
      row widths)
    (areatab:line (list (car org) y 0.0) (list x y 0.0))
    (setq y (- y (* 2.0 hgt))))
  (areatab:line (list (car org) y 0.0) (list x y 0.0))
  (setq x (car org))
  (foreach w (append widths '(0.0))
    (areatab:line (list x (cadr org) 0.0) (list x y 0.0))
    (setq x (+ x w)))
  y)

(defun c:areatab (/ *error* doc ss objs hgt n rows sum a org)
  (defun *error* (msg)
    (if doc (vla-endundomark doc))
    (if (not (wcmatch (strcase msg t) "*break,*cancel*,*exit*")) (princ (strcat "\nError: " msg)))
    (princ))
  (cond
    ((not (setq ss (ssget "_X" '((-4 . "<OR")
                                   (-4 . "<AND") (0 . "LWPOLYLINE,SPLINE") (-4 . "&=") (70 . 1) (-4 . "AND>")
                                   (0 . "CIRCLE,ELLIPSE")
                                 (-4 . "OR>") (8 . "~AREATAB")))))
     (princ "\nNothing closed."))
    ((not (setq hgt (progn (initget 6) (getdist "\nText height: ")))) nil)
    ((not (setq org (getpoint "\nTop left of the table: "))) nil)
    (t
     (setq doc (areatab:doc))
     (vla-startundomark doc)
     (setq objs (areatab:sorted (areatab:ss->objects ss) hgt)
           sum (apply '+ (mapcar 'vlax-curve-getarea objs))
           n 0)
     (foreach o objs
       (setq n (1+ n) a (vlax-curve-getarea o))
       (areatab:bubble n (apply 'areatab:mid (areatab:box o)) hgt)
       (setq rows (cons (list (itoa n)
                              (rtos a 2 2)
                              (rtos (vlax-curve-getdistatparam o (vlax-curve-getendparam o)) 2 2)
                              (strcat (rtos (/ (* 100.0 a) sum) 2 0) "%"))
                        rows)))
     (setq rows (cons (list "" (rtos sum 2 2) "" "100%") rows))
     (areatab:table (cons '("No" "Area" "Length" "Share") (reverse rows)) org hgt)
     (mapcar 'vlax-release-object objs)
     (vla-endundomark doc)
     n)))

; -- two rows of outlines, an open one, a spline that is closed
(setvar "DIMZIN" 0)
(defun pline (closed pts)
  (entmake (append (list '(0 . "LWPOLYLINE") '(100 . "AcDbEntity") '(8 . "0") '(100 . "AcDbPolyline") (cons 90 (length pts)) (cons 70 closed))
                   (mapcar '(lambda (p) (cons 10 p)) pts))))
(pline 1 '((0.0 0.0) (10.0 0.0) (10.0 10.0) (0.0 10.0)))
(pline 129 '((20.0 1.0) (24.0 1.0) (24.0 9.0) (20.0 9.0)))
(pline 0 '((0.0 30.0) (10.0 30.0)))
(entmake '((0 . "CIRCLE") (10 30.0 25.0 0.0) (40 . 5.0)))
(entmake '((0 . "ELLIPSE") (100 . "AcDbEntity") (8 . "0") (100 . "AcDbEllipse") (10 5.0 25.0 0.0) (11 4.0 0.0 0.0) (40 . 0.5) (41 . 0.0) (42 . 6.283185307179586)))

(progn (answers "2" "100,50") (c:areatab)) ; => 4
(defun texts (/ ss i out)
  (setq ss (ssget "_X" '((0 . "TEXT") (8 . "AREATAB"))) i (sslength ss))
  (repeat i (setq i (1- i) out (cons (cdr (assoc 1 (entget (ssname ss i)))) out)))
  (reverse out))
(texts) ; => ("1" "2" "3" "4" "No" "Area" "Length" "Share" "1" "25.13" "19.38" "11%" "2" "78.54" "31.42" "33%" "3" "100.00" "40.00" "42%" "4" "32.00" "24.00" "14%" "" "235.67" "" "100%")
(mapcar '(lambda (r) (cdr (assoc 10 (entget r)))) (list (ssname (ssget "_X" '((0 . "CIRCLE") (8 . "AREATAB"))) 0))) ; => ((22.0 5.0 0.0))
; a table of 6 rows and 4 columns has 7 and 5 lines
(sslength (ssget "_X" '((0 . "LINE") (8 . "AREATAB")))) ; => 12
(progn (command "_.U") (ssget "_X" '((8 . "AREATAB")))) ; => nil
; Enter at the second prompt leaves the drawing as it is
(progn (answers "2" "") (list (c:areatab) (ssget "_X" '((8 . "AREATAB"))))) ; => (nil nil)
