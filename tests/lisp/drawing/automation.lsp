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
; *error* ends a mark that was never set
(vla-EndUndoMark (vlax-get-property acad 'ActiveDocument)) ; => nil
(vlax-release-object acad) ; => nil
(vla-StartUndoMark nil) ; ! bad argument type: VLA-OBJECT nil

(vla-get-Length doc) ; ! vla-get-length: not available in this host
(mapcar 'vlax-ename->vla-object (list (line 1.0))) ; ! vlax-ename->vla-object: not available in this host
(vlr-command-reactor nil nil) ; ! vlr-command-reactor: not available in this host
(vlax-get-property acad 'Preferences) ; ! vlax-get-property PREFERENCES: not available in this host
(load_dialog "x.dcl") ; ! load_dialog: not available in this host
(vl-catch-all-error-message (vl-catch-all-apply '(lambda () (new_dialog "a" 1)) nil)) ; => "new_dialog: not available in this host"
(vlad) ; ! no function definition: VLAD
; programs ask first
(list (type vla-get-length) (and vlax-create-object)) ; => (nil nil)
