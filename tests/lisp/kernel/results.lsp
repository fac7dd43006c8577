; What each kernel type looks like in LISP.
(probe_flag T)          ; => T
(probe_flag 1)          ; => nil
(probe_flag)            ; => nil
(probe_int)             ; => 70000
(probe_real)            ; => 2.5
(probe_text)            ; => "Maß"
(probe_null_text)       ; => ""
(probe_point)           ; => (1.0 2.0 3.0)
(probe_vector)          ; => (0.0 0.0 1.0)
(probe_four)            ; => (1.0 2.0 3.0 4.0)
(probe_points)          ; => ((1.0 2.0 3.0) (4.0 5.0 6.0))
(probe_ints)            ; => (1 70000)
(probe_shorts)          ; => (1 -2)
(probe_reals)           ; => (1.5 2.0)
(probe_texts)           ; => ("a" "")
(probe_point_lists)     ; => (((1.0 2.0 3.0)) nil)
(probe_text_lists)      ; => (("a" "b") ("c"))
(probe_matrix)
; => ((1.0 0.0 0.0 0.0) (0.0 1.0 0.0 0.0) (0.0 0.0 1.0 0.0) (0.0 0.0 0.0 1.0))

; Integers always arrive whole, whatever width they had on the way.
(probe_short_chain)     ; => (-7 70000 8)
(mapcar 'type (probe_short_chain)) ; => (INT INT INT)

; Names: null is nil.
(setq pt (entmakex '((0 . "POINT") (10 1.0 2.0 3.0))))
(eq (probe_name pt) pt)          ; => T
(type (probe_name (ssadd)))      ; => PICKSET
(probe_null_name)                ; => nil
(eq (probe_id pt) pt)            ; => T
(probe_id)                       ; => nil
(equal (probe_ids pt) (list pt)) ; => T
(equal (probe_enames pt pt) (list pt pt)) ; => T

; A vertex is (start end bulge), extended with its data, nil when it has none.
(probe_vertex)          ; => ((0.0 0.0 0.0) (2.0 0.0 0.0) 1.0)
(probe_vertex_list)     ; => (((0.0 0.0 0.0) (2.0 0.0 0.0) 0.0) ((2.0 0.0 0.0) (0.0 0.0 0.0) 1.0))
(equal (probe_vertex_lists) (list (probe_vertex_list)))  ; => T
(equal (probe_regions) (list (list (probe_vertex_list)))) ; => T
(probe_extended)
; => (((0.0 0.0 0.0) (2.0 0.0 0.0) 1.0 nil) ((2.0 0.0 0.0) (3.0 0.0 0.0) 0.0 "Kante"))
(equal (probe_extended_lists) (list (list (probe_extended)))) ; => T

; A row of norm values ends at the first that is no number.
(probe_norm)            ; => (1.0 2.5)
(probe_norm_none)       ; => nil

; Maps in key order, pairs for texts, lists for arrays.
(probe_text_map)        ; => nil
(probe_text_map T)      ; => (("A" . "1") ("B" . "2"))
(probe_texts_map)       ; => (("A" "x" "y") ("B"))
(probe_keys)            ; => ("A" 3 ("PARM2" "TYPE"))

; A single node with a group code is a list of one pair; both forms of dotted pairs are taken.
(probe_dxf_node)        ; => ((8 . "Wand"))
(probe_middle_dot)      ; => ((1 . "a") (2 . "b"))
(probe_closing_dot)     ; => (("k" . "v"))

; nil is preset; a status other than success is an error, whatever value was set.
(probe_nothing)         ; => nil
(probe_then_fail)       ; ! ADS request error
(probe_unbalanced)      ; => nil
(type probe_int)        ; => EXRXSUBR

; Data items: an atom is itself, a list stays a list, a directory is one.
(probe_no_item)         ; => nil
(probe_item nil)        ; => nil
(probe_item "a")        ; => "a"
(probe_item '(1 2.5 "x" (3 (4)))) ; => (1 2.5 "x" (3 (4)))
(probe_item '(("K" . 1) ("D" (2 . "x") ("S" 1 2)) ("L" 1 2 3)))
; => (("K" . 1) ("D" (2 . "x") ("S" 1 2)) ("L" 1 2 3))
