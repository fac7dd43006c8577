; SPDX-License-Identifier: LicenseRef-ORVALD
; Measures the outlines of a drawing: writes the length of each polyline beside it as a text, keeps a
; table of the results in the drawing and prints it.
;
;   orvald run outline_lengths.lsp check_lengths.lsp -d panel.dxf -s measured.dxf

(setq *length-layer* "LAENGE")
(setq *table-name* "ORV_OUTLINE_LENGTHS")

; Smallest and largest value of one coordinate of the points.
(defun reach (points pick / values)
  (setq values (mapcar pick points))
  (list (apply 'min values) (apply 'max values)))

; A length as text, centred below its outline; in a large outline just above its lower edge.
(defun write-length (points len / xs ys width height at)
  (setq xs     (reach points 'car)
        ys     (reach points 'cadr)
        width  (- (cadr xs) (car xs))
        height (max 3.0 (min 40.0 (/ width 12.0)))
        at     (list (/ (+ (car xs) (cadr xs)) 2.0)
                     (if (> width 800.0)
                       (+ (car ys) 50.0 height)
                       (- (car ys) (* 0.4 height)))
                     0.0))
  (entmake (list '(0 . "TEXT")
                 (cons 8 *length-layer*)
                 (cons 10 at)
                 (cons 11 at)
                 (cons 40 height)
                 (cons 1 (rtos len 2 1))
                 '(72 . 1)
                 '(73 . 3))))

; One row of the table: layer, handle, length, points of the outline.
(defun measure (ent / data outline points len)
  (setq data    (entget ent)
        outline (kex_g_gvl ent))
  (if outline
    (progn
      (setq points (kex_g_vl_pts outline)
            len    (kex_g_vl_len outline))
      (write-length points len)
      (list (cdr (assoc 8 data)) (cdr (assoc 5 data)) len points))))

; Sum and number of the rows of one layer.
(defun layer-sum (layer rows / n sum)
  (setq n 0 sum 0.0)
  (foreach row rows
    (if (= (car row) layer)
      (setq n (1+ n) sum (+ sum (caddr row)))))
  (list layer n sum))

(defun layers-of (rows / found)
  (foreach row rows
    (if (not (member (car row) found))
      (setq found (cons (car row) found))))
  (vl-sort found '<))

; The table as an xrecord of the drawing: layer, number, sum, one after the other.
(defun store-table (sums / groups)
  (if (dictsearch (namedobjdict) *table-name*)
    (entdel (dictremove (namedobjdict) *table-name*)))
  (foreach row sums
    (setq groups (append groups
                         (list (cons 300 (car row)) (cons 90 (cadr row)) (cons 40 (caddr row))))))
  (dictadd (namedobjdict)
           *table-name*
           (entmakex (append '((0 . "XRECORD") (100 . "AcDbXrecord") (280 . 1)) groups))))

(defun pad (text width)
  (while (< (strlen text) width) (setq text (strcat text " ")))
  text)

(defun pad-left (text width)
  (while (< (strlen text) width) (setq text (strcat " " text)))
  text)

(defun print-table (sums / total)
  (setq total 0.0)
  (princ (strcat (pad "Layer" 16) (pad-left "outlines" 10) (pad-left "length mm" 16) "\n"))
  (foreach row sums
    (setq total (+ total (caddr row)))
    (princ (strcat (pad (car row) 16)
                   (pad-left (itoa (cadr row)) 10)
                   (pad-left (rtos (caddr row) 2 1) 16)
                   "\n")))
  (princ (strcat (pad "all" 26) (pad-left (rtos total 2 1) 16) "\n")))

(defun c:outline_lengths (/ set i row rows sums)
  (setq set (ssget "X" '((0 . "LWPOLYLINE,POLYLINE")))
        i   0)
  (if (null set)
    (princ "no outlines in this drawing\n")
    (progn
      (repeat (sslength set)
        (if (setq row (measure (ssname set i)))
          (setq rows (cons row rows)))
        (setq i (1+ i)))
      (setq sums (mapcar '(lambda (layer) (layer-sum layer rows)) (layers-of rows)))
      (store-table sums)
      (print-table sums)))
  (princ))

(c:outline_lengths)
