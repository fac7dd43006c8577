; Annotation scales of entities. The order is that of the drawing's scale list.
(setq text (entmakex '((0 . "TEXT") (10 1.0 2.0 0.0) (40 . 2.5) (1 . "Blech"))))
(setq line (entmakex '((0 . "LINE") (10 0.0 0.0 0.0) (11 3.0 4.0 0.0))))
(defun representations (en / x) (setq x (cdr (assoc 360 (member '(102 . "{ACAD_XDICTIONARY") (entget en)))))
  (if x (progn (setq x (cdr (assoc -1 (dictsearch (cdr (assoc -1 (dictsearch x "AcDbContextDataManager"))) "ACDB_ANNOTATIONSCALES"))))
    (vl-remove nil (mapcar '(lambda (g) (if (member (car g) '(350 360)) (entget (cdr g)))) (entget x))))))

(kex_g_e_annoscales text) ; => nil
(kex_g_e_annoscales_set text '("1:50" "1:10" "1:50")) ; => T
(kex_g_e_annoscales text) ; => ("1:10" "1:50")
(cdar (cdr (assoc -3 (entget text '("AcadAnnotative"))))) ; => ((1000 . "AnnotativeData") (1002 . "{") (1070 . 1) (1070 . 1) (1002 . "}"))
; each has an object for its look; one is the default
(mapcar '(lambda (r) (list (cdr (assoc 0 r)) (cdr (assoc 300 (entget (cdr (assoc 340 r))))))) (representations text)) ; => (("ACDB_TEXTOBJECTCONTEXTDATA_CLASS" "1:10") ("ACDB_TEXTOBJECTCONTEXTDATA_CLASS" "1:50"))
(mapcar '(lambda (r) (cdr (assoc 290 r))) (representations text)) ; => (1 0)

; -- exactly these: others go, and the default passes on
(kex_g_e_annoscales_set text '("1:50" "2:1")) ; => T
(kex_dim_annoscales text) ; => ("1:50" "2:1")
(mapcar '(lambda (r) (cdr (assoc 290 r))) (representations text)) ; => (1 0)

; -- a scale that the drawing lacks is made where its name says what it is; the list keeps its order
(kex_g_e_annoscales_set text '("1:25" "einszufünf" "1:20")) ; => T
(kex_g_e_annoscales text) ; => ("1:20" "1:25")
(setq made (entget (cdr (assoc 340 (last (representations text))))))
(mapcar '(lambda (c) (cdr (assoc c made))) '(0 300 140 141 290)) ; => ("SCALE" "1:25" 1.0 25.0 0)
(kex_g_e_annoscales_set text '("nichts" "1:0" "-1:2" "1:2:3" ":" "")) ; => nil
(kex_g_e_annoscales text) ; => ("1:20" "1:25")

; -- not annotative any more: nothing is left behind
(kex_g_e_annoscales_set text nil) ; => T
(list (kex_g_e_annoscales text) (representations text) (assoc -3 (entget text '("*")))) ; => (nil nil nil)
(assoc 102 (entget text)) ; => nil
(kex_g_e_annoscales_set text nil) ; => T

; -- kinds
(list (kex_g_e_annoscales_set line '("1:1")) (kex_g_e_annoscales_set line nil)) ; => (nil nil)
(setq note (entmakex '((0 . "MTEXT") (100 . "AcDbEntity") (100 . "AcDbMText") (10 5.0 6.0 0.0) (40 . 2.5) (41 . 30.0) (71 . 2) (1 . "a\\Pb"))))
(kex_dim_annoscales_set note '("1:1" "1:2")) ; => T
(mapcar '(lambda (c) (cdr (assoc c (member '(100 . "AcDbMTextObjectContextData") (car (representations note)))))) '(70 10 11 40)) ; => (2 (1.0 0.0 0.0) (5.0 6.0 0.0) 30.0)
(progn (entmake '((0 . "BLOCK") (2 . "GRIFF") (10 1.0 1.0 0.0) (70 . 0))) (entmake '((0 . "LINE") (10 1.0 1.0 0.0) (11 2.0 1.0 0.0))) (entmake '((0 . "ENDBLK"))))
(setq insert (entmakex '((0 . "INSERT") (2 . "GRIFF") (10 7.0 8.0 0.0) (41 . 2.0) (42 . 3.0) (43 . 4.0))))
(kex_g_e_annoscales_set insert '("1:1")) ; => T
(mapcar '(lambda (c) (cdr (assoc c (member '(100 . "AcDbBlkrefObjectContextData") (car (representations insert)))))) '(10 41 42 43)) ; => ((7.0 8.0 0.0) 2.0 3.0 4.0)

; -- a copy has its own
(setq twin (kex_g_e_copy note))
(kex_g_e_annoscales twin) ; => ("1:1" "1:2")
(kex_g_e_annoscales_set twin '("1:2")) ; => T
(list (kex_g_e_annoscales note) (kex_g_e_annoscales twin)) ; => (("1:1" "1:2") ("1:2"))

; -- what cannot be
(entdel text)
(list (kex_g_e_annoscales text) (kex_g_e_annoscales_set text '("1:1"))) ; => (nil nil)
(kex_g_e_annoscales 5) ; ! kex_g_e_annoscales: Argument ist ungültig
(kex_g_e_annoscales_set note '("1:1" 2)) ; ! kex_g_e_annoscales_set: Argument 2 ist ungültig
(kex_dim_annoscales_set line "1:1") ; ! kex_dim_annoscales_set: Argument 2 ist ungültig
