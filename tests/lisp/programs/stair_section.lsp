; STAIR: the section of a straight stair from rise, run and number of steps: the steps as one
; polyline, the slab below at its thickness, a handrail, heights beside it. The rule 2 h + a = 63 cm
; is looked at before anything is drawn.

(defun stair:steps (at h a n / out)
  (setq out (list at))
  (repeat n
    (setq at (list (car at) (+ (cadr at) h)) out (cons at out)
          at (list (+ (car at) a) (cadr at)) out (cons at out)))
  (reverse out))

;; Underside, parallel to the pitch line at the thickness.
(defun stair:slab (at h a n d / pitch drop)
  (setq pitch (atan h a) drop (/ d (cos pitch)))
  (list (list (car at) (- (cadr at) drop))
        (list (+ (car at) (* n a)) (- (+ (cadr at) (* n h)) drop))))

(defun stair:comfort (h a / s)
  (setq s (+ (* 2.0 h) a))
  (cond
    ((< s 59.0) "too easy")
    ((> s 65.0) "too steep")
    (T "well")))

(defun stair:layer (name colour)
  (command "_.-LAYER" "_Make" name "_Color" (itoa colour) name ""))

(defun stair:height (at z)
  (command "_.TEXT" "_J" "_BR" at 10.0 0.0
           (strcat (cond ((> z 0.0) "+") ((zerop z) "%%p") ("")) (rtos (/ z 100.0) 2 2))))

(defun stair:draw (at h a n d / pts slab i)
  (setq pts (stair:steps at h a n))
  (stair:layer "STAIR" 4)
  (command "_.PLINE")
  (foreach p pts (command p))
  (command "")
  (setq slab (stair:slab at h a n d))
  (command "_.LINE" (car slab) (cadr slab) "")
  (stair:layer "RAIL" 2)
  (command "_.LINE" (polar at (/ pi 2) 90.0) (polar (last pts) (/ pi 2) 90.0) "")
  (stair:layer "HEIGHTS" 7)
  (setq i 0)
  (while (<= i n)
    (stair:height (list (- (car at) 20.0) (+ (cadr at) (* i h))) (* i h))
    (setq i (+ i 4))))

(defun c:STAIR (/ *error* old at h a n d verdict)
  (defun *error* (msg)
    (mapcar 'setvar '("CMDECHO" "OSMODE" "CLAYER" "DIMZIN") old)
    (princ (strcat "\n" msg))
    (princ))
  (setq old (mapcar 'getvar '("CMDECHO" "OSMODE" "CLAYER" "DIMZIN")))
  (mapcar 'setvar '("CMDECHO" "OSMODE" "DIMZIN") '(0 0 0))
  (initget 1)
  (setq at (getpoint "\nFoot of the stair: "))
  (initget 7)
  (setq h (getdist at "\nRise of a step: "))
  (initget 7)
  (setq a (getdist at "\nRun of a step: "))
  (setq verdict (stair:comfort h a))
  (initget "Yes No")
  (if (and (/= verdict "well")
           (/= "Yes" (getkword (strcat "\nThe stair is " verdict ". Draw it? [Yes/No] <No>: "))))
    (exit))
  (initget 7)
  (setq n (getint "\nNumber of steps: "))
  (initget 7)
  (setq d (getreal "\nThickness of the slab: "))
  (stair:draw (list (car at) (cadr at)) h a n d)
  (mapcar 'setvar '("CMDECHO" "OSMODE" "CLAYER" "DIMZIN") old)
  (list verdict (* n h) (* n a)))

(answers "0,0" "17" "29" "16" "18")
(c:stair) ; => ("well" 272.0 464.0)
(setq steps (ssname (ssget "X" '((0 . "LWPOLYLINE") (8 . "STAIR"))) 0))
(list (cdr (assoc 90 (entget steps))) (vlax-curve-getDistAtParam steps (vlax-curve-getEndParam steps)) (vlax-curve-getEndPoint steps)) ; => (33 736.0 (464.0 272.0 0.0))
; the slab is parallel to the pitch, at its thickness below the inner corners of the steps
(equal 18.0 (distance '(29.0 17.0 0.0) (vlax-curve-getClosestPointTo (ssname (ssget "X" '((0 . "LINE") (8 . "STAIR"))) 0) '(29.0 17.0 0.0))) 1e-9) ; => T
(equal (vlax-curve-getStartPoint (ssname (ssget "X" '((8 . "RAIL"))) 0)) '(0.0 90.0 0.0) 1e-9) ; => T
(defun heights (/ ss i l)
  (repeat (setq i (sslength (setq ss (ssget "X" '((8 . "HEIGHTS"))))))
    (setq l (cons (cdr (assoc 1 (entget (ssname ss (setq i (1- i)))))) l)))
  (vl-sort l '<))
(heights) ; => ("%%p0.00" "+0.68" "+1.36" "+2.04" "+2.72")
(list (getvar "CLAYER") (getvar "OSMODE") (getvar "CMDECHO") (getvar "DIMZIN")) ; => ("0" 4133 1 8)

; -- a bad stair is drawn only when it is meant
(progn (answers "0,0" "20" "29" "") (vl-catch-all-error-message (vl-catch-all-apply 'c:stair nil))) ; => "quit / exit abort"
