; LEGEND, LISO, LUNISO, LMERGE: a legend of the layers in use, isolating layers by wildcards and back,
; merging layers. Tables by tblnext and by entmod of their records.

(defun lg:all (/ l out)
  (while (setq l (tblnext "LAYER" (null l)))
    (setq out (cons (cdr (assoc 2 l)) out)))
  (acad_strlsort out))

(defun lg:flag (layer bit) (= bit (logand bit (cdr (assoc 70 (tblsearch "LAYER" layer))))))
(defun lg:off (layer) (minusp (cdr (assoc 62 (tblsearch "LAYER" layer)))))

;; How many objects stand on a layer, and how long its curves are together.
(defun lg:sum (layer / ss i e n len)
  (setq n 0 len 0.0)
  (if (setq ss (ssget "_X" (list (cons 8 (lg:literal layer)) '(410 . "Model"))))
    (progn
      (setq n (sslength ss) i 0)
      (while (setq e (ssname ss i))
        (if (wcmatch (cdr (assoc 0 (entget e))) "LINE,ARC,CIRCLE,*POLYLINE,ELLIPSE,SPLINE")
          (setq len (+ len (vlax-curve-getDistAtParam e (vlax-curve-getEndParam e)))))
        (setq i (1+ i)))))
  (list n len))

;; A name as a pattern that matches nothing else.
(defun lg:literal (s / i c out)
  (setq i 0 out "")
  (while (/= "" (setq c (substr s (setq i (1+ i)) 1)))
    (setq out (strcat out (if (wcmatch c "[-#@.*?~`[`,]") "`" "") c)))
  out)

(defun lg:put (layer row org h / y sum colour)
  (setq y (- (cadr org) (* 2.0 h row)) sum (lg:sum layer))
  (foreach g
    (list
      (list '(0 . "LINE") (cons 8 layer) (list 10 (car org) (+ y (/ h 2.0)) 0.0) (list 11 (+ (car org) (* 6 h)) (+ y (/ h 2.0)) 0.0))
      (list '(0 . "TEXT") '(8 . "0") (list 10 (+ (car org) (* 7 h)) y 0.0) (cons 40 h)
            (cons 1 (strcat layer (cond ((lg:flag layer 1) " (frozen)") ((lg:off layer) " (off)") ("")))))
      (list '(0 . "TEXT") '(8 . "0") (list 10 (+ (car org) (* 30 h)) y 0.0) (cons 40 h)
            (cons 1 (strcat (itoa (car sum)) " / " (rtos (cadr sum) 2 1)))))
    (entmake g))
  sum)

(defun c:LEGEND (/ org h row used)
  (setq org (cond ((getpoint "\nTop left <0,0>: ")) ('(0.0 0.0 0.0)))
        h (getvar "TEXTSIZE") row 0
        used (vl-remove-if '(lambda (l) (or (= l "0") (= 0 (car (lg:sum l))))) (lg:all)))
  (mapcar '(lambda (l) (cons l (lg:put l (1- (setq row (1+ row))) org h))) used))

;; Patterns with commas; the state before is kept on the blackboard.
(defun c:LISO (/ pattern state)
  (setq pattern (strcase (getstring T "\nLayers to keep: ")))
  (foreach l (lg:all)
    (if (not (or (wcmatch (strcase l) pattern) (lg:off l)))
      (setq state (cons l state))))
  (cond
    ((null state) (princ "\nNothing to switch off.") 0)
    (T
     (vl-bb-set 'lg:state state)
     (if (member (getvar "CLAYER") state)
       (setvar "CLAYER" (car (vl-remove-if-not '(lambda (l) (and (wcmatch (strcase l) pattern) (not (lg:flag l 1)))) (lg:all)))))
     (setvar "CMDECHO" 0)
     (command "_.-LAYER")
     (foreach l state (command "_OFF" (lg:literal l)))
     (command "")
     (length state))))

(defun c:LUNISO (/ state)
  (if (setq state (vl-bb-ref 'lg:state))
    (progn
      (foreach l state
        (setq l (entget (tblobjname "LAYER" l)))
        (entmod (subst (cons 62 (abs (cdr (assoc 62 l)))) (assoc 62 l) l)))
      (vl-bb-set 'lg:state nil)
      (length state))))

;; Everything of a layer goes to another one, inside blocks as well; then it is purged.
(defun c:LMERGE (/ from to b e l n)
  (setq from (getstring T "\nLayer to dissolve: ") to (getstring T "\nInto layer: ") n 0)
  (if (and (tblsearch "LAYER" from) (tblsearch "LAYER" to) (/= (strcase from) (strcase to)))
    (progn
      (defun lg:move (e / l)
        (while e
          (setq l (entget e))
          (if (= (strcase from) (strcase (cdr (assoc 8 l))))
            (if (entmod (subst (cons 8 to) (assoc 8 l) l)) (setq n (1+ n))))
          (setq e (entnext e))))
      (lg:move (entnext))
      (while (setq b (tblnext "BLOCK" (not b))) (lg:move (cdr (assoc -2 b))))
      (if (= (strcase from) (strcase (getvar "CLAYER"))) (setvar "CLAYER" to))
      (command "_.-PURGE" "_LA" (lg:literal from) "_N")
      (list n (if (tblsearch "LAYER" from) "kept" "gone")))))

; -- layers of all states; names with signs that patterns use
(setvar "CMDECHO" 0)
(command "_.-LAYER" "_N" "WALL,WALL-2,AXIS,EMPTY,#1" "_C" "1" "WALL" "_C" "2" "WALL-2" "_F" "AXIS" "")
(defun line (layer x) (entmake (list '(0 . "LINE") (cons 8 layer) (list 10 x 0.0 0.0) (list 11 x 10.0 0.0))))
(mapcar 'line '("WALL" "WALL" "WALL-2" "AXIS" "#1") '(0.0 1.0 2.0 3.0 4.0))
(entmake '((0 . "CIRCLE") (8 . "WALL") (10 50.0 0.0 0.0) (40 . 1.0)))
(lg:all) ; => ("#1" "0" "AXIS" "EMPTY" "WALL" "WALL-2")
(progn (answers "") (mapcar '(lambda (r) (list (car r) (cadr r) (rtos (caddr r) 2 2))) (c:legend))) ; => (("#1" 1 "10") ("AXIS" 1 "10") ("WALL" 3 "26.28") ("WALL-2" 1 "10"))
(cdr (assoc 1 (entget (ssname (ssget "_X" '((0 . "TEXT") (1 . "AXIS*"))) 0)))) ; => "AXIS (frozen)"
(progn (command "_.ERASE" (ssget "_X" '((0 . "TEXT"))) "") (lg:sum "#1")) ; => (2 25.0)

; -- off but for some, and on again
(setvar "CLAYER" "WALL-2")
(progn (answers "WALL,`#1") (list (c:liso) (getvar "CLAYER"))) ; => (4 "#1")
(vl-remove-if-not 'lg:off (lg:all)) ; => ("0" "AXIS" "EMPTY" "WALL-2")
(list (c:luniso) (c:luniso) (vl-remove-if-not 'lg:off (lg:all))) ; => (4 nil nil)
(progn (answers "*") (c:liso)) ; => 0

; -- merged, blocks included
(entmake '((0 . "BLOCK") (2 . "B") (70 . 0) (10 0.0 0.0 0.0)))
(line "WALL-2" 0.0)
(entmake '((0 . "ENDBLK")))
(progn (answers "wall-2" "WALL") (c:lmerge)) ; => (3 "gone")
(cdr (assoc 8 (entget (cdr (assoc -2 (tblsearch "BLOCK" "B")))))) ; => "WALL"
(progn (answers "EMPTY" "nowhere") (c:lmerge)) ; => nil
(lg:all) ; => ("#1" "0" "AXIS" "EMPTY" "WALL")
