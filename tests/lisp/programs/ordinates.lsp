; ORD, PTOUT, PTIN: coordinates at the vertices of a polyline with leaders, a list of points as CSV,
; and points from such a list; one *error* of the old kind for all commands.

(setq *ord:sep* ";" *ord:places* 3)

(defun ord:err (msg)
  (if (not (member msg '("Function cancelled" "quit / exit abort" "console break")))
    (princ (strcat "\nError: " msg)))
  (ord:reset)
  (setq *error* ord:olderr)
  (princ))

(defun ord:begin (vars)
  (setq ord:olderr *error* *error* ord:err)
  (setq ord:saved (mapcar '(lambda (v) (cons v (getvar v))) vars))
  (setvar "CMDECHO" 0)
  (command "_.UNDO" "_GROUP"))

(defun ord:reset ()
  (foreach pair ord:saved (setvar (car pair) (cdr pair)))
  (command "_.UNDO" "_END")
  (setq ord:saved nil))

(defun ord:finish () (ord:reset) (setq *error* ord:olderr))

;; Vertices of LWPOLYLINE and POLYLINE, in world coordinates.
(defun ord:vertices (en / el out)
  (setq el (entget en))
  (cond
    ((= (cdr (assoc 0 el)) "LWPOLYLINE")
     (foreach item el
       (if (= 10 (car item)) (setq out (cons (list (cadr item) (caddr item) (cdr (assoc 38 el))) out)))))
    ((= (cdr (assoc 0 el)) "POLYLINE")
     (setq en (entnext en))
     (while (/= "SEQEND" (cdr (assoc 0 (setq el (entget en)))))
       (setq out (cons (cdr (assoc 10 el)) out) en (entnext en)))))
  (reverse out))

(defun ord:number (r) (rtos r 2 *ord:places*))

;; A leader of two lines with the text above its second one; the side by where the point lies.
(defun ord:label (pt size / dir knee end)
  (setq dir (if (< (car pt) (car (getvar "VIEWCTR"))) -1.0 1.0)
        knee (list (+ (car pt) (* dir 2.0 size)) (+ (cadr pt) (* 2.0 size)))
        end (list (+ (car knee) (* dir 12.0 size)) (cadr knee)))
  (command "_.LINE" "_NON" pt "_NON" knee "_NON" end "")
  (command "_.TEXT" "_J" (if (minusp dir) "_BR" "_BL")
           (list (car knee) (+ (cadr knee) (* 0.4 size))) size 0.0
           (strcat "X=" (ord:number (car pt)) " Y=" (ord:number (cadr pt))))
  (entlast))

(defun c:ORD (/ sel size n)
  (ord:begin '("CMDECHO" "OSMODE" "CLAYER" "DIMZIN"))
  (setvar "DIMZIN" 0)
  (command "_.-LAYER" "_M" "ORDINATES" "_C" "3" "" "")
  (if (and (setq sel (entsel "\nPolyline: "))
           (wcmatch (cdr (assoc 0 (entget (car sel)))) "*POLYLINE"))
    (progn
      (initget 6)
      (if (null (setq size (getreal (strcat "\nText height <" (rtos (getvar "TEXTSIZE") 2 2) ">: "))))
        (setq size (getvar "TEXTSIZE")))
      (setq n 0)
      (foreach pt (ord:vertices (car sel)) (ord:label pt size) (setq n (1+ n)))
      (princ (strcat "\n" (itoa n) " vertices.")))
    (exit))
  (ord:finish)
  n)

(defun ord:split (s / p out)
  (while (setq p (vl-string-search *ord:sep* s))
    (setq out (cons (substr s 1 p) out) s (substr s (+ p 2))))
  (reverse (cons s out)))

(defun c:PTOUT (/ name f ss i el)
  (ord:begin '("CMDECHO" "DIMZIN"))
  (setvar "DIMZIN" 0)
  (setq name (getstring T "\nFile: "))
  (if (and (setq ss (ssget "_X" '((0 . "POINT")))) (setq f (open name "w")))
    (progn
      (write-line (strcat "No" *ord:sep* "X" *ord:sep* "Y" *ord:sep* "Z" *ord:sep* "Layer") f)
      (setq i (sslength ss))
      (while (> i 0)
        (setq i (1- i) el (entget (ssname ss i)))
        (write-line
          (apply 'strcat
            (append (list (itoa (- (sslength ss) i)))
                    (mapcar '(lambda (c) (strcat *ord:sep* (ord:number c))) (cdr (assoc 10 el)))
                    (list *ord:sep* (cdr (assoc 8 el)))))
          f))
      (close f)))
  (ord:finish)
  (if ss (sslength ss)))

;; Lines that begin with # or have no three numbers are passed over and counted.
(defun c:PTIN (/ name f line parts good bad)
  (ord:begin '("CMDECHO" "CLAYER" "PDMODE"))
  (setvar "PDMODE" 3)
  (setq name (getstring T "\nFile: ") good 0 bad 0)
  (if (null (setq f (open name "r"))) (progn (princ "\nNo such file.") (exit)))
  (read-line f)
  (while (setq line (read-line f))
    (setq parts (ord:split line))
    (cond
      ((or (= line "") (= (substr line 1 1) "#")))
      ((or (< (length parts) 5) (not (vl-every 'distof (list (nth 1 parts) (nth 2 parts) (nth 3 parts)))))
       (setq bad (1+ bad)))
      (T
       (if (not (tblsearch "LAYER" (nth 4 parts)))
         (command "_.-LAYER" "_N" (nth 4 parts) ""))
       (entmake (list '(0 . "POINT") (cons 8 (nth 4 parts))
                      (cons 10 (mapcar 'atof (list (nth 1 parts) (nth 2 parts) (nth 3 parts))))))
       (setq good (1+ good)))))
  (close f)
  (ord:finish)
  (list good bad))

; -- a polyline of each kind; labels on both sides of the middle of the view
(command "_.PLINE" "10,10" "200.5,10" "400.1256,250" "")
(progn (answers "L" "5") (c:ord)) ; => 3
(defun labels (/ ss i out)
  (setq ss (ssget "X" '((0 . "TEXT") (8 . "ORDINATES"))) i 0)
  (repeat (sslength ss) (setq out (cons (cdr (assoc 1 (entget (ssname ss i)))) out) i (1+ i)))
  out)
(labels) ; => ("X=10.000 Y=10.000" "X=200.500 Y=10.000" "X=400.126 Y=250.000")
(setq text (entget (ssname (ssget "X" '((0 . "TEXT"))) 2)))
(list (cdr (assoc 72 text)) (cdr (assoc 73 text)) (cdr (assoc 11 text))) ; => (2 1 (0.0 22.0 0.0))
(sslength (ssget "X" '((0 . "LINE") (8 . "ORDINATES")))) ; => 6
(mapcar 'getvar '("CLAYER" "DIMZIN" "CMDECHO" "OSMODE")) ; => ("0" 8 1 4133)
; all of it is one step
(progn (command "_.U") (ssget "X" '((0 . "TEXT")))) ; => nil
; a wrong pick leaves everything as it was, *error* too
(progn (entmake '((0 . "CIRCLE") (10 0 0 0) (40 . 1))) (answers "L") (c:ord)) ; ! quit / exit abort
(list *error* ord:saved (getvar "CLAYER") (getvar "CMDECHO")) ; => (nil nil "0" 1)

; -- out and in again
(setq file (vl-filename-mktemp "points" nil ".csv"))
(foreach p '((1.0 2.0 3.0) (-4.5 0.125 0.0) (1e3 2e-3 0.0004)) (entmake (list '(0 . "POINT") (cons 8 "SURVEY") (cons 10 p))))
(progn (answers file) (c:ptout)) ; => 3
(progn (setq f (open file "r") l nil) (while (setq x (read-line f)) (setq l (cons x l))) (close f) (reverse l)) ; => ("No;X;Y;Z;Layer" "1;1.000;2.000;3.000;SURVEY" "2;-4.500;0.125;0.000;SURVEY" "3;1000.000;0.002;0.000;SURVEY")
(progn (setq f (open file "a")) (foreach s '("# remark" "" "4;x;1;2;SURVEY" "5;7;8;9;Höhen" "6;1;2") (write-line s f)) (close f))
(progn (command "_.ERASE" (ssget "X" '((0 . "POINT"))) "") (answers file) (c:ptin)) ; => (4 2)
(cdr (assoc 10 (entget (ssname (ssget "X" '((0 . "POINT") (8 . "höhen"))) 0)))) ; => (7.0 8.0 9.0)
(list (getvar "PDMODE") (vl-file-delete file)) ; => (0 T)
(progn (answers "/no/such/file") (c:ptin)) ; ! quit / exit abort
