; Taking back and doing again.
(defun line (x) (entmakex (list '(0 . "LINE") '(8 . "Wand") (list 10 x 0.0 0.0) (list 11 x 5.0 0.0))))
(defun lines ( / e n) (setq e (entnext) n 0) (while e (setq n (1+ n) e (entnext e))) n)
(defun undo (what) (command "_.UNDO" what))

; -- everything since a mark; each mark is used up
(undo "_Mark")
(setq a (line 1.0))
(undo "_M")
(progn (line 2.0) (entdel a) (setvar "LTSCALE" 7.0) (regapp "MINE"))
(list (lines) (getvar "LTSCALE")) ; => (1 7.0)
(undo "_Back")
(list (lines) (getvar "LTSCALE") (tblsearch "APPID" "MINE")) ; => (1 1.0 nil)
(cdr (assoc 10 (entget a))) ; => (1.0 0.0 0.0)
(undo "_back")
(list (lines) (tblsearch "LAYER" "Wand") (entget a)) ; => (0 nil nil)
; what was taken back cannot be restored by hand, and its handle is not given again
(entdel a) ; => nil
(/= (cdr (assoc 5 (entget (line 3.0)))) "0") ; => T

; -- without a mark everything goes only when that is meant
(progn (undo "_Back") (command "_No") (lines)) ; => 1
(progn (undo "_Back") (command) (lines)) ; => 1
(progn (command "_.UNDO" "_Back" "_Yes") (lines)) ; => 0
(progn (command "_.REDO") (lines)) ; => 1

; -- groups count as one step and may be nested
(progn (undo "_BE") (line 4.0) (undo "_Begin") (line 5.0) (undo "_E") (line 6.0) (undo "_End") (lines)) ; => 4
(progn (command "_.U") (lines)) ; => 1
(progn (command "_.REDO") (lines)) ; => 4
; a command is one step by itself
(defun c:two () (line 7.0) (line 8.0))
(progn (command "two") (command "two") (command "_.UNDO" 2) (lines)) ; => 4
(progn (command "two" "_.U" "two" "_.UNDO" "") (lines)) ; => 4
; once something else has changed there is nothing to do again
(progn (command "two" "_.U") (line 9.0) (command "_.REDO") (lines)) ; => 5

; -- a program that fails inside a group can be taken back whole
(defun fails () (undo "_Begin") (line 1.0) (line 2.0) (car 5))
(vl-catch-all-error-p (vl-catch-all-apply 'fails nil)) ; => T
(progn (undo "_End") (command "_.U") (lines)) ; => 5
; dictionaries
(setq root (namedobjdict) key "MY")
(undo "_Mark")
(setq d (entmakex '((0 . "DICTIONARY") (100 . "AcDbDictionary"))))
(progn (dictadd root key d) (dictadd d "one" (entmakex '((0 . "XRECORD") (100 . "AcDbXrecord") (1 . "text")))) (dictadd d "*" (entmakex '((0 . "XRECORD") (100 . "AcDbXrecord") (90 . 5)))) (cdr (assoc 3 (cddr (member '(3 . "*A1") (entget d)))))) ; => "one"
(undo "_Back")
(dictsearch root key) ; => nil
; options that do nothing here take their answers along
(progn (command "_.UNDO" "_Control" "_All" "_.UNDO" "_Auto" "_Off" "two") (lines)) ; => 7
(undo "_Nothing") ; ! Function cancelled
(undo 0) ; ! Function cancelled
