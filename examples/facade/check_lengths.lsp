; SPDX-License-Identifier: LicenseRef-ORVALD
; Reads a measured drawing back: every outline has its text, and the table in the drawing holds the
; sums. Ends with an error when something is missing.

(defun fail (text) (vl-exit-with-error (strcat "check: " text)))

(defun selected (filter / set)
  (if (setq set (ssget "X" filter)) (sslength set) 0))

; Group codes of the table, three a row.
(defun table-rows (/ groups rows)
  (foreach group (dictsearch (namedobjdict) "ORV_OUTLINE_LENGTHS")
    (cond ((= (car group) 300) (setq rows (cons (list (cdr group)) rows)))
          ((and rows (member (car group) '(90 40)))
           (setq rows (cons (append (car rows) (list (cdr group))) (cdr rows))))))
  (reverse rows))

(defun layer-length (layer / set i sum)
  (setq set (ssget "X" (list '(0 . "LWPOLYLINE,POLYLINE") (cons 8 layer)))
        i   0
        sum 0.0)
  (repeat (sslength set)
    (setq sum (+ sum (kex_g_vl_len (kex_g_gvl (ssname set i))))
          i   (1+ i)))
  sum)

(defun check (/ outlines texts rows n)
  (setq outlines (selected '((0 . "LWPOLYLINE,POLYLINE")))
        texts    (selected '((0 . "TEXT") (8 . "LAENGE")))
        rows     (table-rows)
        n        0)
  (if (/= outlines texts) (fail (strcat (itoa outlines) " outlines, " (itoa texts) " texts")))
  (if (null rows) (fail "the drawing holds no table"))
  (foreach row rows
    (setq n (+ n (cadr row)))
    (if (not (equal (caddr row) (layer-length (car row)) 1e-6))
      (fail (strcat "layer " (car row) " has another length"))))
  (if (/= n outlines) (fail (strcat "the table counts " (itoa n) " of " (itoa outlines))))
  (princ (strcat "checked: " (itoa outlines) " outlines on " (itoa (length rows)) " layers\n"))
  (princ))

(check)
