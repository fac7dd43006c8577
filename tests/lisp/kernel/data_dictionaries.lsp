; Dictionaries of the drawing and the data in their xrecords.
(setq line (entmakex '((0 . "LINE") (10 0.0 0.0 0.0) (11 1.0 0.0 0.0))))

; kex_dict_obj: a dictionary by key, made unless told not to
(kex_dict_obj "FIRM\\LISTS" nil)        ; => nil
(setq lists (kex_dict_obj "FIRM\\LISTS"))
(cdr (assoc 0 (entget lists)))          ; => "DICTIONARY"
(eq (kex_dict_obj '("firm" "lists") nil) lists) ; => T
(eq (kex_dict_obj "") (namedobjdict))   ; => T
(kex_dict_obj 1.5)                      ; => nil
(kex_dict_obj)                          ; ! kex_dict_obj: Argument 1 ist ungültig

; kex_dxr_mod, kex_dxr_get and kex_dxr_dir: data in an xrecord, by key or by name
(kex_dxr_mod "FIRM\\LISTS\\R" "A" nil)  ; => nil
(kex_dict_dir "FIRM\\LISTS")            ; => nil
(setq r (kex_dxr_mod "FIRM\\LISTS\\R" "A\\B" 1.5))
(cdr (assoc 0 (entget r)))              ; => "XRECORD"
(eq (kex_dxr_mod "FIRM\\LISTS\\R" "C" '(1 2 3)) r) ; => T
(eq (kex_dxr_mod r '("A" 5) "five") r)  ; => T
(kex_dxr_get "firm\\lists\\r" "")       ; => (("A" ("B" . 1.5) (5 . "five")) ("C" 1 2 3))
(kex_dxr_get r "A\\B")                  ; => 1.5
(kex_dxr_get r "NONE")                  ; => nil
(kex_dxr_get "FIRM\\LISTS" "A")         ; => nil
(kex_dxr_dir r "")                      ; => ("A" "C")
(kex_dxr_dir r "A")                     ; => ("B" 5)
(kex_dxr_dir r "" T)                    ; => (("A" "B") ("A" 5) ("C"))
(kex_dxr_dir "FIRM\\LISTS\\R" "A" T)    ; => (("B") (5))
(kex_dxr_dir r "C" T)                   ; => nil
(kex_dxr_mod r "C\\X" 1)                ; => nil
(eq (kex_dxr_mod r "A" nil) r)          ; => T
(kex_dxr_mod r "C" nil)                 ; => nil
(kex_dict_dir lists)                    ; => nil
(kex_dxr_mod "FIRM\\LISTS" "A" 1)       ; => nil
(kex_dxr_mod "" "A" 1)                  ; ! kex_dxr_mod: Argument 1 ist ungültig
(kex_dxr_mod 1.5 "A" 1)                 ; ! kex_dxr_mod: Argument 1 ist ungültig
(kex_dxr_mod r '(("A")) 1)              ; ! kex_dxr_mod: Argument 2 ist ungültig
(kex_dxr_mod r "" 5)                    ; ! kex_dxr_mod: Argument 3 ist ungültig
(kex_dxr_mod r "A")                     ; ! kex_dxr_mod: Argument 3 ist ungültig
(kex_dxr_get nil "A")                   ; ! kex_dxr_get: Argument 1 ist ungültig
(kex_dxr_get r)                         ; ! kex_dxr_get: Argument 2 ist ungültig
(kex_dxr_dir r 1.5)                     ; ! kex_dxr_dir: Argument 2 ist ungültig
; what is not the kernel's, or of a later version, is not written over
(defun record (name groups)
  (dictadd lists name (entmakex (append '((0 . "XRECORD") (100 . "AcDbXrecord")) groups))))
(setq later (record "LATER" '((300 . "KEX_ITEM") (90 . 2) (280 . 1) (2 . "A") (90 . 5) (280 . 2))))
(setq foreign (record "FOREIGN" '((1 . "A") (90 . 5))))
(kex_dxr_get later "A")                 ; => nil
(kex_dxr_mod later "A" 6)               ; => nil
(kex_dxr_mod "FIRM\\LISTS\\LATER" "" nil) ; => nil
(kex_xr_mod later "A" 6)                ; => nil
(kex_dxr_get foreign "")                ; => nil
(kex_dxr_mod foreign "A" 6)             ; => nil
(cdr (assoc 1 (entget foreign)))        ; => "A"
(member '(280 . 1) (member '(300 . "KEX_ITEM") (entget later)))
; => ((280 . 1) (2 . "A") (90 . 5) (280 . 2))
(mapcar 'entdel (list later foreign))
; the name of another object means its data, that of a dictionary too
(eq (kex_dxr_mod line "A" 1) (kex_xr_obj line)) ; => T
(kex_dxr_get line "A")                  ; => 1
(kex_dxr_mod line "A" nil)              ; => nil
(eq (kex_dxr_mod lists "OWN" "x") (kex_xr_obj lists)) ; => T
(kex_xr_get lists "OWN")                ; => "x"
(kex_dict_dir lists)                    ; => nil

; Names of entries, in the host's order
(kex_dxr_mod "FIRM\\b" "" '(1))
(kex_dxr_mod "FIRM\\A" "" '(1))
(kex_dxr_mod '("FIRM" 7) "" '(1))
(kex_dict_dir "FIRM")                   ; => ("7" "A" "b" "LISTS")
(kex_dwg_dict_dir "FIRM")               ; => ("LISTS")
(car (member "FIRM" (kex_dwg_dict_dir ""))) ; => "FIRM"
(kex_dwg_dict_dir "FIRM\\A")            ; => nil
(kex_dwg_dict_dir 1.5)                  ; ! kex_dwg_dict_dir: Argument ist ungültig
(kex_dict_dir line)                     ; => nil
(kex_dict_dir "NONE")                   ; => nil
(kex_dict_dir)                          ; ! kex_dict_dir: Argument 1 ist ungültig
(kex_dict_dir '(1.5))                   ; ! kex_dict_dir: Argument 1 ist ungültig
(equal (assoc "LISTS" (kex_obj_dict_dir "FIRM")) (cons "LISTS" lists)) ; => T
(mapcar 'car (kex_obj_dict_dir "FIRM")) ; => ("7" "A" "b" "LISTS")
(kex_obj_dict_dir "NONE")               ; => nil
(kex_obj_dict_dir 1.5)                  ; ! kex_obj_dict_dir: Argument 1 ist ungültig

; Where an object stands
(kex_obj_dict_path lists)               ; => ("FIRM" "LISTS")
(kex_obj_dict_name lists)               ; => "LISTS"
(kex_obj_dict_path (namedobjdict))      ; => nil
(kex_obj_dict_path line)                ; => nil
(kex_obj_dict_name line T)              ; => nil
(kex_obj_dict_name (kex_xr_obj line T)) ; => nil
(kex_obj_dict_name (kex_xr_obj line) T) ; => "KEX_DATA"
(kex_obj_dict_name 5)                   ; ! kex_obj_dict_name: Argument 1 ist ungültig
(kex_obj_dict_path)                     ; ! kex_obj_dict_path: Argument 1 ist ungültig

; Files in the drawing
(setq file (kex_file_tmpname) copy (kex_file_tmpname "copy"))
(kex_file_to_xrec file line "LOGO")     ; => nil
(kex_d_bwrite file '(("A" . 1)))        ; => T
(kex_file_to_xrec file line "PICS\\LOGO") ; => T
(kex_file_to_xrec file "FIRM\\FILES" '("LOGO" 1)) ; => T
(kex_xr_get line "PICS\\LOGO\\ENCODING") ; => 1
(kex_file_from_xrec copy line "PICS\\LOGO") ; => T
(kex_d_bread copy)                      ; => (("A" . 1))
(kex_file_remove copy)
(kex_file_from_xrec copy '("FIRM" "FILES") "LOGO\\1") ; => nil
(kex_file_from_xrec copy '("FIRM" "FILES") '("LOGO" 1)) ; => T
(kex_d_bread copy)                      ; => (("A" . 1))
; what is no file does not become an empty one
(kex_file_from_xrec copy line "PICS")   ; => nil
(kex_file_from_xrec copy line "NONE")   ; => nil
(kex_xr_mod line '("PICS" "LOGO" 0) "not base64") ; => T
(kex_file_from_xrec copy line "PICS\\LOGO") ; => nil
(kex_d_bread copy)                      ; => (("A" . 1))
(kex_xr_mod line '("PICS" "LOGO" "ENCODING") 0) ; => T
(kex_file_from_xrec copy line "PICS\\LOGO") ; => T
(kex_file_from_xrec "C:\\no\\such\\folder\\x" line "PICS\\LOGO") ; => nil
(kex_file_remove file copy)
(kex_file_to_xrec 5 line "A")           ; ! kex_file_to_xrec: Argument 1 ist ungültig
(kex_file_to_xrec file nil "A")         ; ! kex_file_to_xrec: Argument 2 ist ungültig
(kex_file_to_xrec file line "")         ; ! kex_file_to_xrec: Argument 3 ist ungültig
(kex_file_from_xrec file line)          ; ! kex_file_from_xrec: Argument 3 ist ungültig
