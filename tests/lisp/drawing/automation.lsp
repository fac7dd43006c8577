; What stands in for automation: marks around a step to take back; all else says that it is not here.
(vl-load-com) ; => nil
(setq acad (vlax-get-acad-object) doc (vla-get-ActiveDocument acad)) ; => #<VLA-OBJECT IAcadDocument>
(type doc) ; => VLA-OBJECT
(defun lines ( / e n) (setq e (entnext) n 0) (while e (setq n (1+ n) e (entnext e))) n)
(defun line (x) (entmakex (list '(0 . "LINE") (list 10 x 0.0 0.0) (list 11 x 5.0 0.0))))
(progn (vla-StartUndoMark doc) (line 1.0) (line 2.0) (vla-EndUndoMark doc) (line 3.0) (lines)) ; => 3
(progn (command "_.U") (lines)) ; => 2
(progn (command "_.U") (lines)) ; => 0
(progn (vlax-invoke doc 'StartUndoMark) (line 1.0) (line 2.0) (vlax-invoke-method doc "EndUndoMark") (command "_.U") (lines)) ; => 0
; programs look whether a group is open
(mapcar '(lambda (f) (f doc) (getvar "UNDOCTL")) (list vla-StartUndoMark vla-EndUndoMark)) ; => (13 5)
; *error* ends a mark that was never set
(vla-EndUndoMark (vlax-get-property acad 'ActiveDocument)) ; => nil
(vla-StartUndoMark nil) ; ! bad argument type: VLA-OBJECT nil
(list (vlax-object-released-p doc) (vlax-release-object doc) (vlax-object-released-p doc)) ; => (nil 0 T)
(vla-EndUndoMark doc) ; ! bad argument type: VLA-OBJECT #<VLA-OBJECT IAcadDocument>

; an object of the drawing: its name, and a curve as good as by its name
(setq e (line 1.0) o (vlax-ename->vla-object e))
(list (type o) (wcmatch (vl-princ-to-string o) "`#<VLA-OBJECT IAcadLine *>") (eq e (vlax-vla-object->ename o))) ; => (VLA-OBJECT T T)
(list (vlax-curve-getEndParam o) (vlax-curve-getPointAtDist o 1.0) (vlax-curve-isClosed o)) ; => (5.0 (1.0 1.0 0.0) nil)
(mapcar '(lambda (o) (vl-princ-to-string (vlax-vla-object->ename o))) (list acad)) ; ! bad argument type: VLA-OBJECT #<VLA-OBJECT IAcadApplication>
(vlax-curve-getArea acad) ; ! bad argument type: lentityp nil
(progn (vlax-release-object o) (vl-catch-all-error-p (vl-catch-all-apply 'vlax-curve-getEndParam (list o)))) ; => T
(progn (setq o (vlax-ename->vla-object e)) (entdel e) (vl-catch-all-error-p (vl-catch-all-apply 'vlax-curve-getEndParam (list o)))) ; => T
(vl-catch-all-error-p (vl-catch-all-apply 'vlax-ename->vla-object (list e))) ; => T

(vla-get-Length doc) ; ! vla-get-length: not available in this host
(mapcar 'vlax-create-object '("Excel.Application")) ; ! vlax-create-object: not available in this host
(vlr-command-reactor nil nil) ; ! vlr-command-reactor: not available in this host
(vlax-get-property acad 'Preferences) ; ! vlax-get-property PREFERENCES: not available in this host
(load_dialog "x.dcl") ; ! load_dialog: not available in this host
(vl-catch-all-error-message (vl-catch-all-apply '(lambda () (new_dialog "a" 1)) nil)) ; => "new_dialog: not available in this host"
(vl-catch-all-error-message (vl-catch-all-apply 'vla-Delete (list doc))) ; => "vla-delete: not available in this host"
(vlad) ; ! no function definition: VLAD
(vl-catch-all-apply 'vlad nil) ; ! bad function: VLAD
; programs ask first
(list (type vla-get-length) (and vlax-make-safearray)) ; => (nil nil)
