; Errors, catching them, *error*.

(setq caught (vl-catch-all-apply '/ '(1 0)))
(list (vl-catch-all-error-p caught) (vl-catch-all-error-message caught) (vl-catch-all-error-p 1) (if caught 'true)) ; => (T "divide by zero" nil TRUE)
(vl-catch-all-apply '+ '(1 2))      ; => 3
(vl-catch-all-error-message 5)      ; ! 5
; a symbol without a function is an error of the caller, not caught
(vl-catch-all-apply 'nosuch nil)    ; ! bad function: NOSUCH
(vl-catch-all-error-message (vl-catch-all-apply '(lambda () (nosuch)) nil)) ; => "no function definition: NOSUCH"
(vl-catch-all-error-message (vl-catch-all-apply 'exit nil)) ; => "quit / exit abort"
(vl-catch-all-error-message (vl-catch-all-apply 'vl-exit-with-error '("my text"))) ; => "my text"

; bindings of the failing calls are undone before the caught error is a value
(setq v 'outer)
(defun fails (v / w) (foreach v '(1 2) (mapcar '(lambda (v) (car v)) '(1))))
(list (vl-catch-all-error-p (vl-catch-all-apply 'fails '(5))) v) ; => (T OUTER)
; also from inside the arguments of an unfinished call
(list (vl-catch-all-error-p (vl-catch-all-apply '(lambda (v) (list 1 2 (car v))) '(5))) v) ; => (T OUTER)

; *error* gets the message while the locals of the failing call are still bound
(defun *error* (m) (setq log (list m v)))
(defun guarded (v) (car v))
(guarded 5)                         ; ! bad argument type: consp 5
(list log v)                        ; => (("bad argument type: consp 5" 5) OUTER)
; a caught error is no business of *error*
(setq log nil)
(vl-catch-all-apply 'guarded '(6))
log                                 ; => nil
; a local *error* is the usual way; afterwards the outer one is back
(defun restoring (/ *error* saved)
  (setq saved 'saved-value)
  (defun *error* (m) (setq log (list 'local m saved)))
  (exit))
(restoring)                         ; ! quit / exit abort
log                                 ; => (LOCAL "quit / exit abort" SAVED-VALUE)
(exit)                              ; ! quit / exit abort
log                                 ; => ("quit / exit abort" OUTER)
; an error inside *error* replaces the first one
(defun *error* (m) (car 7))
(car 8)                             ; ! bad argument type: consp 7
(setq *error* nil)
(vl-exit-with-error "done")         ; ! done
(progn (vl-exit-with-value 42) 1)   ; => 42

(itoa 1.5)                          ; ! bad argument type: fixnump: 1.5
(strcat "a" 1)                      ; ! bad argument type: stringp 1
(strlen nil)                        ; ! bad argument type: stringp nil
(distance '(1) '(1 2))              ; ! bad argument type: 2D/3D point: (1)
(set 5 1)                           ; ! bad argument type: symbolp 5
