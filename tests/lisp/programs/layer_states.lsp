; LSAVE, LRESTORE, LLIST: states of all layers (colour, on, frozen, locked) under names, kept in the
; drawing as xrecords of a dictionary of the program.

(setq *ls:dictionary* "ORVALD_LAYER_STATES")

;; The program's dictionary; made when it is not there and `make` is true.
(defun ls:dictionary (make / found)
  (cond
    ((setq found (dictsearch (namedobjdict) *ls:dictionary*)) (cdr (assoc -1 found)))
    (make
     (dictadd (namedobjdict) *ls:dictionary*
              (entmakex '((0 . "DICTIONARY") (100 . "AcDbDictionary")))))))

(defun ls:layers (/ l out)
  (setq l (tblnext "LAYER" T))
  (while l
    (setq out (cons l out) l (tblnext "LAYER")))
  (reverse out))

(defun ls:record (layers)
  (append '((0 . "XRECORD") (100 . "AcDbXrecord") (280 . 1))
          (apply 'append
            (mapcar '(lambda (l) (list (cons 1 (cdr (assoc 2 l)))
                                       (cons 62 (cdr (assoc 62 l)))
                                       (cons 70 (logand 5 (cdr (assoc 70 l))))))
                    layers))))

(defun ls:save (name / dict)
  (setq dict (ls:dictionary T))
  (if (dictsearch dict name) (entdel (dictremove dict name)))
  (dictadd dict name (entmakex (ls:record (ls:layers)))))

;; ((layer colour flags) ...) of a saved state
(defun ls:read (name / dict data out item)
  (if (and (setq dict (ls:dictionary nil)) (setq data (dictsearch dict name)))
    (foreach item (cdr (member (assoc 280 data) data))
      (cond
        ((= 1 (car item)) (setq out (cons (list (cdr item)) out)))
        (out (setq out (cons (append (car out) (list (cdr item))) (cdr out)))))))
  (reverse out))

(defun ls:put (state / e l)
  (if (setq e (tblobjname "LAYER" (car state)))
    (progn
      (setq l (entget e)
            l (subst (cons 62 (cadr state)) (assoc 62 l) l)
            l (subst (cons 70 (logior (caddr state) (logand (~ 5) (cdr (assoc 70 l))))) (assoc 70 l) l))
      (if (entmod l) 1 0))
    0))

(defun ls:restore (name / states)
  (setq states (ls:read name))
  (apply '+ (mapcar 'ls:put states)))

(defun ls:names (/ dict item names)
  (if (setq dict (ls:dictionary nil))
    (foreach item (entget dict) (if (= 3 (car item)) (setq names (cons (cdr item) names)))))
  (acad_strlsort names))

(defun c:LSAVE (/ name)
  (setq name (getstring T "\nName of the state: "))
  (if (snvalid name) (progn (ls:save name) name) (progn (princ "\nNo valid name.") nil)))
(defun c:LRESTORE (/ name)
  (setq name (getstring T "\nState to restore: "))
  (if (member name (ls:names)) (ls:restore name)))
(defun c:LLIST () (ls:names))

(defun layer (name colour flags)
  (entmake (list '(0 . "LAYER") '(100 . "AcDbSymbolTableRecord") '(100 . "AcDbLayerTableRecord")
                 (cons 2 name) (cons 70 flags) (cons 62 colour) '(6 . "Continuous"))))
(layer "Walls" 1 0)
(layer "Doors" 2 4)
(layer "Notes" -3 1)
(defun look () (mapcar '(lambda (l) (list (cdr (assoc 2 l)) (cdr (assoc 62 l)) (cdr (assoc 70 l)))) (cdr (ls:layers))))
(progn (answers "plan 1-50") (c:lsave)) ; => "plan 1-50"
; a name may hold blanks, but no | of a reference
(progn (answers "a|b") (c:lsave)) ; => nil
(ls:put '("Walls" 5 1)) ; => 1
(ls:put '("Doors" -2 0)) ; => 1
(look) ; => (("Walls" 5 1) ("Doors" -2 0) ("Notes" -3 1))
(progn (answers "all off") (c:lsave) (c:llist)) ; => ("all off" "plan 1-50")
(progn (answers "plan 1-50") (c:lrestore)) ; => 4
(look) ; => (("Walls" 1 0) ("Doors" 2 4) ("Notes" -3 1))
(progn (answers "nosuch") (c:lrestore)) ; => nil
; saved again, a state has the layers of now
(progn (layer "New" 7 0) (ls:save "all off") (length (ls:read "all off"))) ; => 5
(progn (dictremove (namedobjdict) *ls:dictionary*) (c:llist)) ; => nil
