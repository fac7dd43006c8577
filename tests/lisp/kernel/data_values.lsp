; Data as LISP lists: directories ((key . value) (key (subkey . value) ...) ...) and their keys.
(setq d '(("Name" . "Blech") ("PARM" ("TYPE" . 2) (7 "a" "b")) ("Q" 1.0 2.0)))

; kex_d_val: a key is a path; string keys are equal without regard to case
(kex_d_val d "NAME")                    ; => "Blech"
(kex_d_val d "parm\\type")              ; => 2
(kex_d_val d '("PARM" 7))               ; => ("a" "b")
(kex_d_val d "PARM\\7")                 ; => nil
(kex_d_val d "PARM")                    ; => (("TYPE" . 2) (7 "a" "b"))
(kex_d_val d "Q")                       ; => (1.0 2.0)
(equal (kex_d_val d "") d)              ; => T
(kex_d_val d "NAME\\X" "none")          ; => "none"
(kex_d_val d 7 '("x" . 1))              ; => ("x" . 1)
(kex_d_val '(("A")) "A" 5)              ; => nil
(kex_d_val nil "A" 5)                   ; => 5
(kex_d_val '((1 2) (3 4)) 1)            ; => nil
(kex_d_val "a" "A")                     ; ! kex_d_val: Argument 1 ist ungültig
(kex_d_val d 1.5)                       ; ! kex_d_val: Argument 2 ist ungültig
(kex_d_val d '("A" (1)))                ; ! kex_d_val: Argument 2 ist ungültig
(kex_d_val d)                           ; ! kex_d_val: Argument 2 ist ungültig

; kex_d_val_set: order stays, new children stand last, emptied directories go
(kex_d_val_set nil "A\\B" 1)            ; => (("A" ("B" . 1)))
(kex_d_val_set '(("x" . 1) ("y" . 2)) "X" 3) ; => (("x" . 3) ("y" . 2))
(kex_d_val_set '(("x" . 1)) 5 '(1 2))   ; => (("x" . 1) (5 1 2))
(kex_d_val_set d '("PARM" "NEW" 1) T)
; => (("Name" . "Blech") ("PARM" ("TYPE" . 2) (7 "a" "b") ("NEW" (1 . T))) ("Q" 1.0 2.0))
(kex_d_val_set '(("A" ("B" ("C" . 1)))) "A\\B\\C" nil) ; => nil
(kex_d_val_set '(("A" ("B" ("C" . 1))) ("D" . 2)) "A\\B\\C" nil) ; => (("D" . 2))
(kex_d_val_set '(("A" ("B" . 1) ("C" . 2))) "A\\B" nil) ; => (("A" ("C" . 2)))
(kex_d_val_set '(("A" . 1)) "X\\Y" nil) ; => (("A" . 1))
(kex_d_val_set '(("A" . 1)) "" '((1 2))) ; => ((1 2))
(kex_d_val_set '(("A" . 1)) "" nil)     ; => nil
(kex_d_val_set '(("A" . 1)) "" 5)       ; ! kex_d_val_set: Argument 3 ist ungültig
(kex_d_val_set '(("A" . 1)) "A\\B" 2)   ; ! kex_d_val_set: Argument 2 ist ungültig
(kex_d_val_set '(("A" . 1)) "A\\B" nil) ; ! kex_d_val_set: Argument 2 ist ungültig
(kex_d_val_set '((1 2) (3 4)) "A" 2)    ; ! kex_d_val_set: Argument 1 ist ungültig
(kex_d_val_set 1 "A" 2)                 ; ! kex_d_val_set: Argument 1 ist ungültig
(kex_d_val_set nil "A")                 ; ! kex_d_val_set: Argument 3 ist ungültig
(kex_d_val_set nil "A" (ssadd))         ; ! kex_d_val_set: Argument 3 ist ungültig
(defun path (n / key) (repeat n (setq key (cons "K" key))) key)
(setq deep (kex_d_val_set nil (path 10000) "found"))
(kex_d_val deep (path 10000))           ; => "found"
(kex_d_val_set deep (path 10000) nil)   ; => nil

; kex_d_dirp: a list of pairs and keyed lists
(kex_d_dirp '(("a" . 1)))               ; => T
(kex_d_dirp '(("a" 1 2) ("b")))         ; => T
(kex_d_dirp '((1 . 2) (3 4)))           ; => T
(kex_d_dirp '((1 2) (3 4)))             ; => nil
(kex_d_dirp '(("a" . 1) ("A" . 2)))     ; => nil
(kex_d_dirp '("a" . 1))                 ; => nil
(kex_d_dirp nil)                        ; => nil
(kex_d_dirp (ssadd))                    ; => nil
(kex_d_dirp)                            ; ! kex_d_dirp: Argument ist ungültig

; kex_d_key: a key as its components
(kex_d_key "\\PARM2\\\\TYPE\\")         ; => ("PARM2" "TYPE")
(kex_d_key '("A\\B" 3))                 ; => ("A" "B" 3)
(kex_d_key 70000)                       ; => (70000)
(kex_d_key "")                          ; => nil
(kex_d_key 1.0)                         ; => nil
(kex_d_key '(1 (2)))                    ; => nil
(kex_d_key '("A" . "B"))                ; => nil
(kex_d_key)                             ; ! kex_d_key: Argument ist ungültig

; kex_d_equal: order of directories does not count, nor does what lies within the tolerance
(kex_d_equal '(("a" . 1) ("b" . 2)) '(("B" . 2) ("A" . 1.0))) ; => T
(kex_d_equal '(("a" . 1)) '(("a" . 1) ("b" . 2)))     ; => nil
(kex_d_equal '(("a" . 1) ("b" . 2)) '(("a" . 1)))     ; => nil
(kex_d_equal '(("a" 1.0 2.0 3.0)) '(("a" 1 2 3)))     ; => T
(kex_d_equal '(1 (2.0 3.0) . 4) '(1 (2 3) . 4.0))     ; => T
(kex_d_equal '(1 (2.0 3.0) . 4) '(1 (2 3) 4))         ; => nil
(kex_d_equal '(1.0 2.0) '(1.0 2.0 0.0))               ; => nil
(kex_d_equal "a" "A")                                 ; => nil
(kex_d_equal 1 2 nil 5)                               ; => nil
(kex_d_equal 1 2.0 nil 5)                             ; => T
(kex_d_equal 10.0 10.0005 nil 0.001)                  ; => T
(kex_d_equal 10.0 10.0005 nil 0)                      ; => nil
(kex_d_equal (list (kex_rndf)) '(0.0))                ; => T
(kex_d_equal 1 "1")                                   ; => nil
(kex_d_equal nil '(("a")))                            ; => nil
(setq a '(("X" . 1) ("D" ("E" . 1) ("F" . 2))) b '(("D" ("F" . 2) ("E" . 5)) ("Y" . 9)))
(kex_d_equal a b)                                     ; => nil
(kex_d_equal a b '("x" "y" "D\\E"))                   ; => T
(kex_d_equal a b '("X" "Y" ("D" "G")))                ; => nil
(kex_d_equal a '(("D" ("F" . 2))) '("X" ("D" "E")))   ; => T
(kex_d_equal a 5 '(""))                               ; => T
(kex_d_equal '(("D" ("E" . 1))) nil '("D"))           ; => T
(kex_d_equal 1)                                       ; ! kex_d_equal: Argument 2 ist ungültig
(kex_d_equal (ssadd) 1)                               ; ! kex_d_equal: Argument 1 ist ungültig
(kex_d_equal 1 1 "A")                                 ; ! kex_d_equal: Argument 3 ist ungültig
(kex_d_equal 1 1 '(1.5 "a"))                          ; ! kex_d_equal: Argument 3 ist ungültig
(kex_d_equal 1 1 nil "x")                             ; ! kex_d_equal: Argument 4 ist ungültig
(kex_d_equal 1 1 nil -1)                              ; ! kex_d_equal: Argument 4 ist ungültig
(kex_d_equal deep (kex_d_val_set nil (path 10000) "found")) ; => T

; kex_d_merge: values of the second lie over the first
(kex_d_merge '(("a" . 1) ("d" ("x" . 1) ("y" . 2))) '(("D" ("Y" . 3) ("z" . 4)) ("e" . 5)))
; => (("a" . 1) ("d" ("x" . 1) ("y" . 3) ("z" . 4)) ("e" . 5))
(kex_d_merge '(("a" . 1) ("d" ("x" . 1))) '(("a" ("b" . 1)) ("d" . 2))) ; => (("a" ("b" . 1)) ("d" . 2))
(kex_d_merge '(("a" . 1) ("d" ("x" . 1))) '(("a") ("d"))) ; => (("a") ("d" ("x" . 1)))
(kex_d_merge nil '(("a" . 1)))          ; => (("a" . 1))
(kex_d_merge '(1 2) nil)                ; => (1 2)
(kex_d_merge '(1 2) '(("a" . 1)))       ; => (("a" . 1))
(kex_d_merge nil nil)                   ; => nil
(kex_d_merge 1 nil)                     ; ! kex_d_merge: Argument 1 ist ungültig
(kex_d_merge nil "a")                   ; ! kex_d_merge: Argument 2 ist ungültig
(equal (kex_d_merge deep deep) deep)    ; => T

; kex_d_crc: tells whether data has changed, whatever the order; the zip check of the data file
(kex_d_crc nil)                         ; => "D202EF8D"
(strlen (kex_d_crc d))                  ; => 8
(= (kex_d_crc d) (kex_d_crc (reverse d))) ; => T
(= (kex_d_crc d) (kex_d_crc (kex_d_val_set d "NAME" "blech"))) ; => nil
(= (kex_d_crc '(("a" . 1))) (kex_d_crc '(("a" . 1.0)))) ; => nil
(kex_d_crc)                             ; ! kex_d_crc: Argument ist ungültig
(kex_d_crc (ssadd))                     ; ! kex_d_crc: Argument ist ungültig

; kex_d_bwrite and kex_d_bread: data as a file
(setq file (kex_file_tmpname "data"))
(kex_d_bread file)                      ; => nil
(kex_d_bwrite file d)                   ; => T
(equal (kex_d_bread file) d)            ; => T
(kex_d_bwrite (strcat "\"" file "\"") deep) ; => T
(equal (kex_d_bread (vl-string-translate "\\" "/" file)) deep) ; => T
(kex_d_bwrite file '((1 2) (3 (4 "\u20AC\n") . 5))) ; => T
(equal (kex_d_bread file) '((1 2) (3 (4 "\u20AC\n") . 5))) ; => T
(kex_d_bwrite file nil)                 ; => T
(kex_d_bread file)                      ; => nil
(setq line (entmakex '((0 . "LINE") (10 0.0 0.0) (11 1.0 0.0))))
(kex_d_bwrite file (list (cons "E" line))) ; => T
(eq (kex_d_val (kex_d_bread file) "E") line) ; => T
(entdel line)
(kex_d_bread file)                      ; => (("E"))
(kex_d_bwrite "C:\\no\\such\\folder\\x.dex" d) ; => nil
(kex_d_bread "C:\\no\\such\\folder\\x.dex") ; => nil
(kex_file_remove file)
(kex_d_bread)                           ; ! kex_d_bread: Argument ist ungültig
(kex_d_bread 5)                         ; ! kex_d_bread: Argument ist ungültig
(kex_d_bwrite 5 nil)                    ; ! kex_d_bwrite: Argument 1 ist ungültig
(kex_d_bwrite file)                     ; ! kex_d_bwrite: Argument 2 ist ungültig
(kex_d_bwrite file 5)                   ; ! kex_d_bwrite: Argument 2 ist ungültig
