; Symbol tables, dictionaries, registered applications, names, sheets.

(defun key (list) (cdr (assoc 2 list)))

; -- look-up without regard to case, nil for what is not there
(mapcar '(lambda (code) (assoc code (tblsearch "layer" "0"))) '(0 2 70 62 6)) ; => ((0 . "LAYER") (2 . "0") (70 . 0) (62 . 7) (6 . "Continuous"))
(list (tblsearch "LAYER" "NoSuch") (tblobjname "STYLE" "NoSuch")) ; => (nil nil)
(tblsearch "NOSUCH" "x")                    ; => nil
(getvar "ERRNO")                            ; => 1
(tblsearch nil "x")                         ; ! bad argument type: stringp nil
(cdr (assoc 0 (entget (tblobjname "STYLE" "STANDARD")))) ; => "STYLE"

; -- a walk begins with rewind, goes on behind a search that asks for it, ends with nil
(defun names (table / one all)
  (setq one (tblnext table T))
  (while one (setq all (cons (key one) all) one (tblnext table)))
  (reverse all))
(names "LTYPE")                             ; => ("ByBlock" "ByLayer" "Continuous")
(tblnext "LTYPE")                           ; => nil
(progn (tblsearch "LTYPE" "BYBLOCK" T) (key (tblnext "LTYPE"))) ; => "ByLayer"
; records are made and changed like entities
(entmake '((0 . "LAYER") (100 . "AcDbSymbolTableRecord") (100 . "AcDbLayerTableRecord") (2 . "Achsen") (70 . 0) (62 . 1) (6 . "Continuous")))
(cdr (assoc 62 (tblsearch "LAYER" "ACHSEN"))) ; => 1
(names "LAYER")                             ; => ("0" "Achsen")
(progn (setq layer (entget (tblobjname "LAYER" "Achsen"))) (entmod (subst '(62 . -3) (assoc 62 layer) layer)) (cdr (assoc 62 (tblsearch "LAYER" "Achsen")))) ; => -3

; -- registered applications
(list (regapp "Mine") (regapp "MINE") (regapp "a*b")) ; => ("Mine" nil nil)
(key (tblsearch "APPID" "mine"))            ; => "Mine"

; -- dictionaries
(setq root (namedobjdict))
(cdr (assoc 0 (entget root)))               ; => "DICTIONARY"
(setq record (entmakex '((0 . "XRECORD") (100 . "AcDbXrecord") (1 . "first") (40 . 2.5) (90 . 7) (10 1.0 2.0 3.0))))
(eq (dictadd root "Mine" record) record)    ; => T
(mapcar '(lambda (code) (assoc code (dictsearch root "MINE"))) '(0 1 40 90 10)) ; => ((0 . "XRECORD") (1 . "first") (40 . 2.5) (90 . 7) (10 1.0 2.0 3.0))
(eq (cdr (assoc 330 (dictsearch root "Mine"))) root) ; => T
(dictadd root "mine" (entmakex '((0 . "XRECORD") (100 . "AcDbXrecord")))) ; => nil
(dictsearch root "NoSuch")                  ; => nil
(dictsearch record "x")                     ; => nil
(dictrename root "Mine" "Yours")            ; => "Yours"
(list (dictsearch root "Mine") (cdr (assoc 1 (dictsearch root "yours")))) ; => (nil "first")
(dictrename root "Mine" "Other")            ; => nil
; a walk over a dictionary of our own
(setq dict (dictadd root "Box" (entmakex '((0 . "DICTIONARY") (100 . "AcDbDictionary")))))
(foreach k '("c" "A" "b") (dictadd dict k (entmakex (list '(0 . "XRECORD") '(100 . "AcDbXrecord") (cons 1 k)))))
(defun walk (dict / one all)
  (setq one (dictnext dict T))
  (while one (setq all (cons (cdr (assoc 1 one)) all) one (dictnext dict)))
  (reverse all))
(walk dict)                                 ; => ("A" "b" "c")
(mapcar 'cdr (vl-remove-if-not '(lambda (g) (= (car g) 3)) (entget dict))) ; => ("A" "b" "c")
(eq (dictremove dict "B") (dictremove dict "b")) ; => nil
(walk dict)                                 ; => ("A" "c")
(dictadd dict "line" (entmakex '((0 . "POINT") (10 0 0)))) ; => nil

; -- names and sheets
(mapcar 'snvalid '("Wand" "a b-1" "" "a*b" "a|b")) ; => (T T nil nil nil)
(snvalid "a|b" 1)                           ; => T
(layoutlist)                                ; => ("Layout1")
