; VERTEXTABLE: writes the vertices of polylines to a file of comma-separated values, one line a
; segment: layer, number, start point, bearing, length, radius. The file is read again into lists.

;; Groups 10 and 42 of a polyline as ((point bulge) ...), in order.
(defun vt:vertices (elist / item pts)
  (foreach item elist
    (cond
      ((= (car item) 10) (setq pts (cons (list (cdr item) 0.0) pts)))
      ((= (car item) 42) (setq pts (cons (list (caar pts) (cdr item)) (cdr pts))))))
  (reverse pts))

(defun vt:closed (elist) (= 1 (logand 1 (cdr (assoc 70 elist)))))

;; (length radius) of a segment; a radius of nil is straight.
(defun vt:measure (p q bulge / chord angle)
  (setq chord (distance p q))
  (if (zerop bulge)
    (list chord nil)
    (progn
      (setq angle (* 4.0 (atan (abs bulge))))
      (list (* angle (/ chord 2.0 (sin (/ angle 2.0)))) (/ chord 2.0 (sin (/ angle 2.0)))))))

(defun vt:segments (elist / v w out n m)
  (setq v (vt:vertices elist)
        w (append (cdr v) (if (vt:closed elist) (list (car v))))
        n 0)
  (while w
    (setq n (1+ n)
          m (vt:measure (caar v) (caar w) (cadar v))
          out (cons (list n (caar v) (angle (caar v) (caar w)) (car m) (cadr m)) out)
          v (cdr v)
          w (cdr w)))
  (reverse out))

(defun vt:join (strings sep / out)
  (setq out (car strings))
  (foreach s (cdr strings) (setq out (strcat out sep s)))
  out)

(defun vt:line (layer seg)
  (vt:join
    (list layer (itoa (car seg))
          (rtos (car (cadr seg)) 2 3) (rtos (cadr (cadr seg)) 2 3)
          (angtos (caddr seg) 1 4)
          (rtos (cadddr seg) 2 3)
          (if (last seg) (rtos (last seg) 2 3) ""))
    ","))

(defun vt:split (str sep / at out)
  (while (setq at (vl-string-search sep str))
    (setq out (cons (substr str 1 at) out)
          str (substr str (+ at 1 (strlen sep)))))
  (reverse (cons str out)))

(defun vt:read (file / f line out)
  (if (setq f (open file "r"))
    (progn
      (read-line f)
      (while (setq line (read-line f)) (setq out (cons (vt:split line ",") out)))
      (close f)))
  (reverse out))

(defun c:VERTEXTABLE (/ ss i e f file count)
  (setq file (vl-filename-mktemp "vertices.csv") count 0)
  (if (and (setq ss (ssget "_X" '((0 . "LWPOLYLINE")))) (setq f (open file "w")))
    (progn
      (write-line "layer,no,x,y,bearing,length,radius" f)
      (repeat (setq i (sslength ss))
        (setq i (1- i) e (entget (ssname ss i)))
        (foreach seg (vt:segments e)
          (setq count (1+ count))
          (write-line (vt:line (cdr (assoc 8 e)) seg) f)))
      (close f)
      (princ (strcat "\n" (itoa count) " segments.\n"))
      file)))

; -- one closed outline with a half circle, one open line
(setvar "DIMZIN" 0)
(entmake '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (8 . "OUT") (100 . "AcDbPolyline") (90 . 3) (70 . 1)
           (10 0.0 0.0) (42 . 0.0) (10 3.0 4.0) (42 . 1.0) (10 0.0 4.0)))
(entmake '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (8 . "AXIS") (100 . "AcDbPolyline") (90 . 2) (70 . 0)
           (10 10.0 -1.5) (10 12.0 0.5)))
(setq table (vt:read (setq file (c:vertextable))))
(length table) ; => 4
(car table) ; => ("OUT" "1" "0.000" "0.000" "53d7'48\"" "5.000" "")
(cadr table) ; => ("OUT" "2" "3.000" "4.000" "180d0'0\"" "4.712" "1.500")
(cddr table) ; => (("OUT" "3" "0.000" "4.000" "270d0'0\"" "4.000" "") ("AXIS" "1" "10.000" "-1.500" "45d0'0\"" "2.828" ""))
; the lengths agree with those of the curves
(equal (apply '+ (mapcar '(lambda (r) (atof (nth 5 r))) (list (car table) (cadr table) (caddr table)))) (vlax-curve-getDistAtParam (ssname (ssget "X" '((8 . "OUT"))) 0) 3) 1e-3) ; => T
(list (> (vl-file-size file) 100) (vl-file-delete file) (findfile file)) ; => (T T nil)
