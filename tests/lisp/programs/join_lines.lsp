; JOINLINES: chains lines and arcs whose ends meet within a fuzz into polylines, keeping layer and
; bulges; the parts are erased.

;; (start end bulge ename) of a line or an arc
(defun jl:part (e / l c r a b)
  (setq l (entget e))
  (cond
    ((= "LINE" (cdr (assoc 0 l)))
     (list (cdr (assoc 10 l)) (cdr (assoc 11 l)) 0.0 e))
    ((= "ARC" (cdr (assoc 0 l)))
     (setq c (cdr (assoc 10 l)) r (cdr (assoc 40 l)) a (cdr (assoc 50 l)) b (cdr (assoc 51 l)))
     (if (< b a) (setq b (+ b pi pi)))
     (list (polar c a r) (polar c b r) (jl:tan (/ (- b a) 4.0)) e))))

(defun jl:tan (x) (/ (sin x) (cos x)))

(defun jl:turned (part) (list (cadr part) (car part) (- (caddr part)) (cadddr part)))

;; The first part that begins or ends at the point, turned so that it begins there; nil.
(defun jl:next (pt parts fuzz / found)
  (while (and parts (not found))
    (cond
      ((equal (caar parts) pt fuzz) (setq found (car parts)))
      ((equal (cadar parts) pt fuzz) (setq found (jl:turned (car parts)))))
    (setq parts (cdr parts)))
  found)

(defun jl:without (part parts)
  (vl-remove-if '(lambda (p) (eq (cadddr p) (cadddr part))) parts))

;; Goes on from the end of a chain, and, turned round, from its start.
(defun jl:chain (parts fuzz / chain next turn)
  (setq chain (list (car parts)) parts (cdr parts))
  (repeat 2
    (while (setq next (jl:next (cadr (last chain)) parts fuzz))
      (setq chain (append chain (list next)) parts (jl:without next parts)))
    (setq chain (reverse (mapcar 'jl:turned chain))))
  (list chain parts))

(defun jl:polyline (chain fuzz / closed pts)
  (setq closed (and (cdr chain) (equal (caar chain) (cadr (last chain)) fuzz)))
  (setq pts (mapcar '(lambda (p) (list (car p) (caddr p))) chain))
  (if (not closed) (setq pts (append pts (list (list (cadr (last chain)) 0.0)))))
  (entmakex
    (append
      (list '(0 . "LWPOLYLINE") '(100 . "AcDbEntity") (assoc 8 (entget (cadddr (car chain))))
            '(100 . "AcDbPolyline") (cons 90 (length pts)) (cons 70 (if closed 1 0)))
      (apply 'append
        (mapcar '(lambda (p) (list (list 10 (caar p) (cadar p)) (cons 42 (cadr p)))) pts)))))

(defun jl:all (ss / i out)
  (repeat (setq i (sslength ss)) (setq out (cons (jl:part (ssname ss (setq i (1- i)))) out)))
  out)

(defun c:JOINLINES (/ ss parts r made)
  (if (setq ss (ssget "_X" '((0 . "LINE,ARC") (8 . "CUT"))))
    (progn
      (setq parts (jl:all ss))
      (while parts
        (setq r (jl:chain parts 1e-6) parts (cadr r))
        (if (cdr (car r))
          (progn
            (setq made (cons (jl:polyline (car r) 1e-6) made))
            (foreach p (car r) (entdel (cadddr p))))))
      (reverse made))))

; -- a slot of two lines and two half circles, in wild order and turned; a hook; a line alone
(defun line (a b) (entmake (list '(0 . "LINE") '(8 . "CUT") (cons 10 a) (cons 11 b))))
(defun arc (c r a b) (entmake (list '(0 . "ARC") '(8 . "CUT") (cons 10 c) (cons 40 r) (cons 50 a) (cons 51 b))))
(line '(0.0 0.0 0.0) '(10.0 0.0 0.0))
(line '(50.0 0.0 0.0) '(60.0 0.0 0.0))
(line '(0.0 4.0 0.0) '(10.0 4.0 0.0))
(arc '(10.0 2.0 0.0) 2.0 (* 1.5 pi) (* 0.5 pi))
(line '(30.0 0.0 0.0) '(30.0 5.0 0.0))
(arc '(0.0 2.0 0.0) 2.0 (* 0.5 pi) (* 1.5 pi))
(line '(35.0 5.0 0.0) '(30.0 5.0 0.0))
(setq made (c:joinlines))
(mapcar 'vlax-curve-isClosed made) ; => (nil T)
(mapcar '(lambda (e) (vlax-curve-getEndParam e)) made) ; => (2.0 4.0)
(equal (mapcar '(lambda (e) (vlax-curve-getDistAtParam e (vlax-curve-getEndParam e))) made) (list 10.0 (+ 20.0 (* 4.0 pi))) 1e-9) ; => T
(equal (vlax-curve-getArea (cadr made)) (+ 40.0 (* 4.0 pi)) 1e-9) ; => T
(sslength (ssget "X" '((0 . "LINE,ARC")))) ; => 1
(cdr (assoc 8 (entget (car made)))) ; => "CUT"
