; BREAKALL, GAP: breaks lines where they cross each other, and leaves a gap in the lower of two lines.

;; (ename start end) of every line of a set, oldest first.
(defun bx:lines (ss / i el out)
  (setq i 0)
  (while (< i (sslength ss))
    (setq el (entget (ssname ss i))
          out (cons (list (cdr (assoc -1 el)) (cdr (assoc 10 el)) (cdr (assoc 11 el))) out)
          i (1+ i)))
  out)

;; Points inside a line where others cross or touch it, from its start on, each once.
(defun bx:points (line lines / p pts last out)
  (foreach other lines
    (if (and (not (eq (car line) (car other)))
             (setq p (inters (cadr line) (caddr line) (cadr other) (caddr other)))
             (not (equal p (cadr line) 1e-8))
             (not (equal p (caddr line) 1e-8)))
      (setq pts (cons p pts))))
  (setq pts (vl-sort pts '(lambda (a b) (< (distance (cadr line) a) (distance (cadr line) b)))))
  (foreach p pts
    (if (not (and last (equal last p 1e-8))) (setq out (cons (setq last p) out))))
  (reverse out))

;; The line in pieces: the first keeps the entity, the others are copies of its list.
(defun bx:split (line pts / el from)
  (setq el (entget (car line)))
  (if (entmod (subst (cons 11 (car pts)) (assoc 11 el) el))
    (progn
      (setq el (vl-remove-if '(lambda (g) (member (car g) '(-1 5 330 102 360))) el))
      (while pts
        (setq from (car pts) pts (cdr pts))
        (entmake (subst (cons 10 from) (assoc 10 el)
                        (subst (cons 11 (if pts (car pts) (caddr line))) (assoc 11 el) el))))
      T)))

(defun bx:try (function-name args / r)
  (setq r (vl-catch-all-apply function-name args))
  (if (vl-catch-all-error-p r)
    (progn (princ (strcat "\n" (vl-catch-all-error-message r))) nil)
    r))

(defun c:BREAKALL (/ *error* doc ss lines todo n)
  (defun *error* (m)
    (vla-endundomark doc)
    (if (not (wcmatch (strcase m T) "*break,*cancel*,*exit*")) (princ (strcat "\n; " m)))
    (princ))
  (vl-load-com)
  (setq doc (vla-get-activedocument (vlax-get-acad-object)))
  (vla-startundomark doc)
  (princ "\nLines <all>: ")
  (if (null (setq ss (ssget "_:L" '((0 . "LINE"))))) (setq ss (ssget "_X" '((0 . "LINE")))))
  (setq lines (if ss (bx:lines ss)) n 0)
  ;; all points are found before anything is changed
  (setq todo (mapcar '(lambda (line) (list line (bx:points line lines))) lines))
  (foreach job todo
    (if (and (cadr job) (bx:try 'bx:split job)) (setq n (+ n (length (cadr job))))))
  (vla-endundomark doc)
  n)

(defun c:GAP (/ over under width p a e old)
  (if (and (setq over (entsel "\nLine on top: "))
           (setq under (entsel "\nLine below: ")))
    (progn
      (initget 71)
      (setq width (getdist "\nGap: "))
      (setq over (entget (car over)) e (car under) under (entget e)
            p (inters (cdr (assoc 10 over)) (cdr (assoc 11 over)) (cdr (assoc 10 under)) (cdr (assoc 11 under))))
      (if p
        (progn
          (setq a (angle (cdr (assoc 10 under)) (cdr (assoc 11 under))) old (getvar "OSMODE"))
          (setvar "OSMODE" 0)
          (command "_.BREAK" (list e p) "_F" (polar p a (/ width 2.0)) (polar p (+ a pi) (/ width 2.0)))
          (setvar "OSMODE" old)
          (entlast))))))

; -- a grid of three by two, a line that touches, one beside, one on a locked layer
(defun line (layer a b) (entmakex (list '(0 . "LINE") (cons 8 layer) '(62 . 3) (cons 10 a) (cons 11 b))))
(foreach x '(10.0 20.0 30.0) (line "GRID" (list x 0.0 0.0) (list x 30.0 0.0)))
(foreach y '(10.0 20.0) (line "GRID" (list 40.0 y 0.0) (list 0.0 y 0.0)))
(line "GRID" '(35.0 20.0 0.0) '(35.0 25.0 0.0))
(setq beside (line "GRID" '(50.0 0.0 0.0) '(60.0 0.0 0.0)))
(command "_.-LAYER" "_M" "FIXED" "_LO" "FIXED" "_S" "0" "")
(setq fixed (line "FIXED" '(0.0 15.0 0.0) '(40.0 15.0 0.0)))

(progn (answers "") (c:breakall)) ; => 16
(sslength (ssget "X" '((0 . "LINE") (8 . "GRID")))) ; => 23
(cdr (assoc 11 (entget fixed))) ; => (40.0 15.0 0.0)
; what is broken is as long as before, and no line crosses another but the locked one
(defun total (/ sum e) (setq sum 0.0 e (entnext)) (while e (setq sum (+ sum (distance (cdr (assoc 10 (entget e))) (cdr (assoc 11 (entget e))))) e (entnext e))) sum)
(total) ; => 225.0
(apply '+ (mapcar '(lambda (l) (length (bx:points l lines))) (setq lines (bx:lines (ssget "X" '((8 . "GRID"))))))) ; => 0
(cdr (assoc 62 (entget (entlast)))) ; => 3
(progn (command "_.U") (list (sslength (ssget "X" '((0 . "LINE")))) (total))) ; => (8 225.0)
; only what is picked
(progn (answers "C" "5,5" "15,12" "") (c:breakall)) ; => 2

; -- a gap of 2 around the crossing
(command "_.ERASE" "_ALL" "")
(setq a (line "0" '(0.0 0.0 0.0) '(10.0 0.0 0.0)) b (line "0" '(5.0 -5.0 0.0) '(5.0 5.0 0.0)))
(progn (answers (strcat "'" (cdr (assoc 5 (entget a)))) (strcat "'" (cdr (assoc 5 (entget b)))) "0" "2") (setq new (c:gap)) (unused)) ; => 0
(mapcar '(lambda (e) (list (cdr (assoc 10 (entget e))) (cdr (assoc 11 (entget e))))) (list b new)) ; => (((5.0 -5.0 0.0) (5.0 -1.0 0.0)) ((5.0 1.0 0.0) (5.0 5.0 0.0)))
(getvar "OSMODE") ; => 4133
