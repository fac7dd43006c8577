; Temporary vectors and coordinate systems.

; -- vectors: in the drawing's colours, dashed when highlighted; the complement twice is nothing
(list (grdraw '(0 0) '(1 2 3) 1) (grdraw '(0 0) '(5 0) 2 1)) ; => (nil nil)
(vectors)                                   ; => (((0.0 0.0 0.0) (1.0 2.0 3.0) 1 nil) ((0.0 0.0 0.0) (5.0 0.0 0.0) 2 T))
(progn (redraw) (grdraw '(0 0) '(1 0) -1) (grdraw '(1 0) '(0 0) -1) (vectors)) ; => nil
; colours hold until the next one; negative ones are dashed
(grvecs '(3 (0 0) (1 0) (1 0) (1 1) -5 (0 0) (0 1)))
(mapcar 'cddr (vectors))                    ; => ((3 nil) (3 nil) (5 T))
(progn (redraw) (grvecs '((1 0) (2 0)) '((0 -1 0 10) (1 0 0 20) (0 0 1 0) (0 0 0 1))) (vectors)) ; => (((10.0 21.0 0.0) (10.0 22.0 0.0) 7 nil))
(grvecs '(3 (0 0)))                         ; ! bad grvecs list: ((0 0))
(grvecs '((0 0) (1 1)) '((1 0)))            ; ! bad grvecs matrix: ((1 0))
(grdraw '(0) '(1 1) 1)                      ; ! bad argument type: 2D/3D point: (0)
(progn (redraw (entmakex '((0 . "POINT") (10 0 0)))) (length (vectors))) ; => 1
; drawing the screen anew takes them away
(progn (command "_.REGEN") (vectors))       ; => nil
(modified)                                  ; => T

; -- coordinate systems: by number, by entity, by normal
(trans '(1 2) 0 1)                          ; => (1.0 2.0 0.0)
(trans '(1 2 3) 1 2)                        ; => (1.0 2.0 3.0)
(trans '(1 2 3) 0 '(0 0 -1))                ; => (-1.0 2.0 -3.0)
(trans '(1 2 3) '(1 0 0) 0)                 ; => (3.0 1.0 2.0)
(setq circle (entmakex '((0 . "CIRCLE") (10 1 2 3) (40 . 1) (210 0 0 -1))))
(trans (cdr (assoc 10 (entget circle))) circle 0) ; => (-1.0 2.0 -3.0)
; a line's points are in the world, whatever its normal
(setq line (entmakex '((0 . "LINE") (10 1 2 3) (11 4 5 6) (210 0 0 -1))))
(trans '(1 2 3) line 0)                     ; => (1.0 2.0 3.0)
; there and back again is the same point; a displacement has no place
(progn (setq n '(0.36 0.48 0.8)) (equal (trans (trans '(1 2 3) 0 n) n 0) '(1 2 3) 1e-12)) ; => T
(trans '(1 2 3) 0 1 T)                      ; => (1.0 2.0 3.0)
(trans '(1 2) 0 7)                          ; ! invalid coordinate system: 7
(trans 5 0 1)                               ; ! bad argument type: 2D/3D point: 5

; -- the box of a text grows with its letters, its height and its width; place and turn do not count
(setq box (textbox '((0 . "TEXT") (1 . "abc") (40 . 2.0) (10 5 5 0) (50 . 1.0))))
(list (car box) (cadr (cadr box)))          ; => ((0.0 0.0 0.0) 2.0)
(defun width (groups) (car (cadr (textbox groups))))
(equal (width '((1 . "abcabc") (40 . 2.0))) (* 2 (caadr box)) 1e-9) ; => T
(equal (width '((1 . "abc") (40 . 2.0) (41 . 0.5))) (/ (caadr box) 2) 1e-9) ; => T
(equal (width '((1 . "abc"))) (* 1.25 (caadr box)) 1e-9) ; => T
(textbox '((40 . 2.0)))                     ; => nil
