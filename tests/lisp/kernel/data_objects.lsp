; Data of objects in the drawing: extension records, lists of hard pointers, finding.
(defun line () (entmakex '((0 . "LINE") (10 0.0 0.0 0.0) (11 1.0 0.0 0.0))))
(defun extension (e) (cdr (assoc 360 (entget e))))
(setq a (line) b (line) c (line) gone (line))
(entdel gone)

; kex_xr_mod, kex_xr_get and kex_xr_dir: values by key in an object's data
(kex_xr_get a "NAME")                   ; => nil
(kex_xr_dir a "")                       ; => nil
(kex_xr_mod a "NAME" "Blech")           ; => T
(kex_xr_mod a "PARM\\TYPE" 2)           ; => T
(kex_xr_mod a '("PARM" 7) '(1.0 "x" (2 . T))) ; => T
(kex_xr_mod a "PARM\\P" '(1.0 2.0))     ; => T
(kex_xr_get a "name")                   ; => "Blech"
(kex_xr_get a '("PARM" 7))              ; => (1.0 "x" (2 . T))
(kex_xr_get a "")                       ; => (("NAME" . "Blech") ("PARM" ("TYPE" . 2) (7 1.0 "x" (2 . T)) ("P" 1.0 2.0)))
(kex_xr_get a nil)                      ; => nil
(kex_xr_get a "NAME\\X")                ; => nil
(kex_xr_dir a nil)                      ; => ("NAME" "PARM")
(kex_xr_dir a "PARM")                   ; => ("TYPE" 7 "P")
(kex_xr_dir a "NAME")                   ; => nil
; what is a value is no directory, and a directory is replaced by a value
(kex_xr_mod a "NAME\\X" 1)              ; => nil
(kex_xr_get a "NAME")                   ; => "Blech"
(kex_xr_mod a "PARM\\7" '(("D" . 1)))   ; => T
(kex_xr_mod a "PARM" "flat")            ; => T
(kex_xr_get a "PARM")                   ; => "flat"
(kex_xr_mod a "NO\\SUCH" nil)           ; => T
(kex_xr_mod a "PARM" nil)               ; => T
(kex_xr_get a "")                       ; => (("NAME" . "Blech"))
; without its last key the item goes, with the record and the extension dictionary
(type (extension a))                    ; => ENAME
(kex_xr_mod a "NAME" nil)               ; => T
(kex_xr_get a "")                       ; => nil
(extension a)                           ; => nil
; the empty key is the whole item
(kex_xr_mod a "" '(("K" . 1) ("L" . 2))) ; => T
(kex_xr_dir a "")                       ; => ("K" "L")
(kex_xr_mod a "" '(1 (2) "c"))          ; => T
(kex_xr_get a "")                       ; => (1 (2) "c")
(kex_xr_mod a "K" 1)                    ; => nil
(kex_xr_mod a nil nil)                  ; => T
(kex_xr_get a "")                       ; => nil
(kex_xr_mod a "" 5)                     ; ! kex_xr_mod: Argument 3 ist ungültig
(kex_xr_mod a "K")                      ; ! kex_xr_mod: Argument 3 ist ungültig
(kex_xr_mod a "K" (ssadd))              ; ! kex_xr_mod: Argument 3 ist ungültig
(kex_xr_mod a 1.5 1)                    ; ! kex_xr_mod: Argument 2 ist ungültig
(kex_xr_mod "a" "K" 1)                  ; ! kex_xr_mod: Argument 1 ist ungültig
(kex_xr_get a)                          ; ! kex_xr_get: Argument 2 ist ungültig
(kex_xr_get a '("K" (1)))               ; ! kex_xr_get: Argument 2 ist ungültig
(kex_xr_get nil "K")                    ; ! kex_xr_get: Argument 1 ist ungültig
(kex_xr_get (ssadd) "K")                ; ! kex_xr_get: Argument 1 ist ungültig
(kex_xr_dir a)                          ; ! kex_xr_dir: Argument 2 ist ungültig
(kex_xr_dir)                            ; ! kex_xr_dir: Argument 1 ist ungültig
; an erased object is nil, never an error
(kex_xr_mod gone "K" 1)                 ; => nil
(kex_xr_get gone "K")                   ; => nil
(kex_xr_dir gone "")                    ; => nil
(kex_xr_obj gone T)                     ; => nil
; an erased reference reads as nil, and is there again when it lives again
(kex_xr_mod a "REF" (list c b))         ; => T
(equal (kex_xr_get a "REF") (list c b)) ; => T
(entdel c)
(equal (kex_xr_get a "REF") (list nil b)) ; => T
(kex_xr_mod a "OTHER" 1)                ; => T
(entdel c)
(equal (kex_xr_get a "REF") (list c b)) ; => T
(kex_xr_mod a "" nil)                   ; => T

; kex_xr_obj: the data xrecord
(kex_xr_obj a)                          ; => nil
(extension a)                           ; => nil
(cdr (assoc 0 (entget (kex_xr_obj a T)))) ; => "XRECORD"
(eq (kex_xr_obj a) (kex_xr_obj a T))    ; => T
(kex_xr_mod a "K" 1)                    ; => T
(cdr (assoc 300 (entget (kex_xr_obj a)))) ; => "KEX_ITEM"
(kex_xr_get (kex_xr_obj a) "K")         ; => 1
(kex_xr_obj 5)                          ; ! kex_xr_obj: Argument 1 ist ungültig
; kex_d_get, kex_d_copy
(kex_d_get a "K")                       ; => 1
(kex_d_get a "L" '(1 . 2))              ; => (1 . 2)
(kex_d_get a "")                        ; => (("K" . 1))
(kex_d_get gone "K" "none")             ; => "none"
(kex_d_get "a" "K")                     ; ! kex_d_get: Argument 1 ist ungültig
(kex_d_get a 2.5)                       ; ! kex_d_get: Argument 2 ist ungültig
(kex_xr_mod a "D\\E" "deep")            ; => T
(kex_d_copy a b "D\\E")                 ; => T
(kex_xr_get b "")                       ; => (("D" ("E" . "deep")))
(kex_d_copy a b)                        ; => T
(equal (kex_xr_get b "") (kex_xr_get a "")) ; => T
(kex_d_copy a a "K")                    ; => T
(kex_d_copy a b "NONE")                 ; => nil
(kex_d_copy c b)                        ; => nil
(kex_d_copy a gone)                     ; => nil
(kex_d_copy gone a)                     ; => nil
(kex_d_copy "a" b)                      ; ! kex_d_copy: Argument 1 ist ungültig
(kex_d_copy a)                          ; ! kex_d_copy: Argument 2 ist ungültig
(kex_d_copy a b 2.5)                    ; ! kex_d_copy: Argument 3 ist ungültig

; kex_d_find: objects whose data has a key, or holds a value there
(kex_xr_mod c "LEN" 10.0)               ; => T
(equal (kex_d_find "K") (list a b))     ; => T
(equal (kex_d_find "") (list a b c))    ; => T
(equal (kex_d_find "K" nil (list b c))  (list b)) ; => T
(equal (kex_d_find "LEN" 10) (list c))  ; => T
(kex_d_find "LEN" 11)                   ; => nil
(equal (kex_d_find "D" '(("e" . "deep")) (ssadd a (ssadd c))) (list a)) ; => T
(kex_d_find "NONE")                     ; => nil
(kex_d_find "K" nil "x")                ; ! kex_d_find: Argument 3 ist ungültig
(kex_d_find 1.5)                        ; ! kex_d_find: Argument 1 ist ungültig

; kex_d_hardpointer: a list of targets, each once
(kex_d_hardpointer_get a "PARTS")       ; => nil
(kex_d_hardpointer a "PARTS" b)         ; => T
(kex_d_hardpointer a "PARTS" c)         ; => T
(kex_d_hardpointer a "PARTS" b)         ; => T
(equal (kex_d_hardpointer_get a "parts") (list b c)) ; => T
(kex_d_hardpointer a "PARTS" nil)       ; => nil
(kex_d_hardpointer gone "PARTS" b)      ; => nil
(kex_d_hardpointer_rem a "PARTS" a)     ; => T
(kex_d_hardpointer_rem a "PARTS" b)     ; => T
(equal (kex_d_hardpointer_get a "PARTS") (list c)) ; => T
(kex_d_hardpointer c "BACK" a)          ; => T
(equal (kex_d_hardpointer_get c "BACK") (list a)) ; => T
; an erased target is passed over, and comes back; added, it empties the list
(entdel c)
(kex_d_hardpointer_get a "PARTS")       ; => nil
(entdel c)
(equal (kex_d_hardpointer_get a "PARTS") (list c)) ; => T
(kex_d_hardpointer a "PARTS" gone)      ; => T
(kex_d_hardpointer_get a "PARTS")       ; => nil
(kex_d_hardpointer a "kex_Data" b)      ; ! kex_d_hardpointer: Argument 2 ist ungültig
(kex_d_hardpointer_rem a "KEX_DATA" b)  ; ! kex_d_hardpointer_rem: Argument 2 ist ungültig
(kex_d_hardpointer_get a "KEX_DATA")    ; ! kex_d_hardpointer_get: Argument 2 ist ungültig
(kex_d_hardpointer "a" "X" b)           ; ! kex_d_hardpointer: Argument 1 ist ungültig
(kex_d_hardpointer a 5 b)               ; ! kex_d_hardpointer: Argument 2 ist ungültig
(kex_d_hardpointer a "X" 5)             ; ! kex_d_hardpointer: Argument 3 ist ungültig
(kex_d_hardpointer a "X")               ; ! kex_d_hardpointer: Argument 3 ist ungültig
(kex_d_hardpointer_rem a "X" nil)       ; ! kex_d_hardpointer_rem: Argument 3 ist ungültig

; kex_d_remove: the data, with T the lists and references as well
(kex_d_hardpointer a "PARTS" b)         ; => T
(type (kex_dxr_mod "KEX_LOBJ\\REF" "B1" (list a b))) ; => ENAME
(type (kex_dxr_mod "KEX_LOBJ\\REF" "B2" a)) ; => ENAME
(kex_d_remove a)                        ; => T
(kex_d_remove a)                        ; => nil
(equal (kex_d_hardpointer_get a "PARTS") (list b)) ; => T
(kex_d_remove a T)                      ; => T
(kex_d_hardpointer_get a "PARTS")       ; => nil
(equal (kex_dxr_get "KEX_LOBJ\\REF" "") (list (list "B1" b))) ; => T
(kex_d_remove a T)                      ; => nil
(kex_d_remove b T)                      ; => T
(kex_dxr_get "KEX_LOBJ\\REF" "")        ; => nil
(kex_d_remove gone)                     ; => nil
(kex_d_remove "a")                      ; ! kex_d_remove: Argument 1 ist ungültig

; kex_xd_mod, kex_xd_get, kex_xd_dir: the same through a cache, written when it is flushed
(kex_xd_get a "K")                      ; => nil
(kex_xd_mod a "K" 1)                    ; => T
(kex_xd_mod a "D\\E" '(1.0 2.0 3.0))    ; => T
(kex_xd_get a "k")                      ; => 1
(kex_xd_get a "")                       ; => (("K" . 1) ("D" ("E" 1.0 2.0 3.0)))
(kex_xd_get a nil)                      ; => nil
(kex_xd_dir a nil)                      ; => ("K" "D")
(kex_xd_dir a "K")                      ; => nil
(kex_xr_get a "K")                      ; => nil
(kex_xd_flush a)                        ; => T
(kex_xr_get a "K")                      ; => 1
(kex_xd_mod a "K\\X" 5)                 ; => nil
(kex_xd_mod a "NONE" nil)               ; => T
(kex_xd_mod b "" '((1 2) (3 4)))        ; => T
(kex_d_xdflush)                         ; => T
(kex_xr_get b "")                       ; => ((1 2) (3 4))
; what another function changes is read again
(kex_xr_mod a "K" 2)                    ; => T
(kex_xd_get a "K")                      ; => 2
; the last key takes the item
(kex_xd_mod a "K" nil)                  ; => T
(kex_xd_mod a "D" nil)                  ; => T
(kex_xd_get a "")                       ; => nil
(kex_xd_flush)                          ; => T
(kex_xr_obj a)                          ; => nil
; what waits in the cache is removed with the rest
(kex_xd_mod a "K" 1)                    ; => T
(kex_d_remove a)                        ; => T
(kex_xd_get a "K")                      ; => nil
(kex_d_xdflush "any")                   ; => T
(kex_xr_obj a)                          ; => nil
(kex_xd_mod gone "K" 1)                 ; => nil
(kex_xd_get gone "K")                   ; => nil
(kex_xd_dir gone "")                    ; => nil
(kex_xd_flush gone)                     ; => T
(kex_xd_get "a" "K")                    ; ! kex_xd_get: Argument 1 ist ungültig
(kex_xd_get a)                          ; ! kex_xd_get: Argument 2 ist ungültig
(kex_xd_mod a '((1)) 1)                 ; ! kex_xd_mod: Argument 2 ist ungültig
(kex_xd_mod a "" 1)                     ; ! kex_xd_mod: Argument 3 ist ungültig
(kex_xd_dir a 1.5)                      ; ! kex_xd_dir: Argument 2 ist ungültig
; a record that holds nothing is removed as well
(setq c (line))
(type (kex_xr_obj c T))                 ; => ENAME
(kex_xr_mod c "" nil)                   ; => T
(extension c)                           ; => nil
(type (kex_xr_obj c T))                 ; => ENAME
(kex_d_remove c)                        ; => T
(extension c)                           ; => nil
