; osnap, single properties, macros of menus, settings that programs keep.
(setq line (entmakex '((0 . "LINE") (10 0.0 0.0 0.0) (11 10.0 0.0 0.0))))
(setq ring (entmakex '((0 . "CIRCLE") (10 10.0 3.0 0.0) (40 . 5.0))))
(setq word (entmakex '((0 . "TEXT") (10 50.0 50.0 0.0) (40 . 2.5) (1 . "a"))))
(entmake '((0 . "POINT") (10 60.0 0.0 0.0)))
(setvar "LASTPOINT" '(7.0 9.0 0.0))
(defun near (p q) (and p (equal p q 1e-9)))

; -- the nearest of what the modes name, of objects within the aperture
(osnap '(0.3 0.2) "_end") ; => (0.0 0.0 0.0)
(osnap '(4.0 0.1) "_mid") ; => (5.0 0.0 0.0)
(osnap '(4.0 0.1 0.0) "end,mid") ; => (5.0 0.0 0.0)
(osnap '(15.1 3.0) "_cen") ; => (10.0 3.0 0.0)
(near (osnap '(10.3 8.1) "_quad") '(10.0 8.0 0.0)) ; => T
(osnap '(3.3 0.5) "_nea") ; => (3.3 0.0 0.0)
(osnap '(4.0 0.1) "_per") ; => (7.0 0.0 0.0)
(near (osnap '(6.2 0.3) "_int") '(6.0 0.0 0.0)) ; => T
(osnap '(60.5 0.3) "_nod") ; => (60.0 0.0 0.0)
(osnap '(50.2 50.3) "_ins") ; => (50.0 50.0 0.0)
(list (osnap '(0.0 30.0) "_nea") (osnap '(1.0 0.0) "_cen") (osnap '(1.0 0.0) "_int") (osnap '(3.0 0.0) "wrong")) ; => (nil nil nil nil)

; -- a word before a point of a command: the point is snapped; "none" takes it as it is
(defun drawn () (mapcar '(lambda (c) (cdr (assoc c (entget (entlast))))) '(10 11)))
(progn (command "_.LINE" "_END" '(0.3 0.2) "_non" "0.3,0.2" "") (drawn)) ; => ((0.0 0.0 0.0) (0.3 0.2 0.0))
(progn (command "_.CIRCLE" "_CEN" '(15.1 3.0) "_mid" '(4.0 0.1)) (equal (cdr (assoc 40 (entget (entlast)))) (distance '(10 3) '(5 0)) 1e-9)) ; => T
(progn (entdel (entlast)) (command "_.ERASE" (entlast) "") (command "_.LINE" "0,40" "_NEA" '(0.0 80.0))) ; ! Function cancelled
(command "_.CIRCLE" "9,9" "_NOSUCH") ; ! Function cancelled

; -- properties by name
(mapcar '(lambda (n) (getpropertyvalue ring n)) '("Radius" "Center" "center/Y" "Color" "Linetype" "Layer")) ; => (5.0 (10.0 3.0 0.0) 3.0 256 "ByLayer" "0")
(near (list (getpropertyvalue line "Length") (getpropertyvalue ring "AREA")) (list 10.0 (* 25 pi))) ; => T
(progn (setpropertyvalue ring "Radius" 2) (setpropertyvalue ring "Center/X" 1.5) (setpropertyvalue ring "Color" 3) (mapcar '(lambda (c) (cdr (assoc c (entget ring)))) '(40 10 62))) ; => (2.0 (1.5 3.0 0.0) 3)
(progn (setpropertyvalue (tblobjname "LAYER" "0") "IsLocked" 1) (list (getpropertyvalue (tblobjname "LAYER" "0") "IsLocked") (cdr (assoc 70 (tblsearch "LAYER" "0"))))) ; => (1 4)
(setpropertyvalue ring "Radius" 9) ; ! property value rejected: Radius
(setpropertyvalue (tblobjname "LAYER" "0") "IsLocked" 0) ; => nil
(getpropertyvalue word "Radius") ; ! no such property: Radius
(getpropertyvalue word "TextString") ; => "a"

; -- macros
(defun macro (s) (menucmd (strcat "M=" s)))
(mapcar 'macro '("plain" "$(+,1,2)" "$(/,7,2)" "a$(*,2,3)b" "$(-,1,2.5)" "$(=,1,1.0)" "$(<=,2,1)" "$(and,7,3)" "$(xor,7,3)")) ; => ("plain" "3" "3.5" "a6b" "-1.5" "1" "0" "3" "4")
(mapcar 'macro '("$(if,$(>,2,1),yes,no)" "$(if,0,yes,no)" "$(if,0,yes)" "$(eq,a,A)" "$(upper,abc)" "$(substr,abcdef,2,3)" "$(strlen,abc)" "$(nth,1,a,b,c)" "$(fix,-2.9)")) ; => ("yes" "no" "" "0" "ABC" "bcd" "3" "b" "-2")
(list (macro "$(getvar,clayer)") (macro "$(index,1,$(getvar,lastpoint))") (macro "$(rtos,3.14159,2,2)") (macro "$(eval,\"$(+,1,1)\")")) ; => ("0" "9" "3.14" "2")
(macro "$(edtime,2459216.75,YYYY-MO-DD HH:MM:SS)") ; => "2021-01-01 18:00:00"
(macro "$(edtime,2459216.75,DDDD\",\" D MONTH YY H:MMam/pm)") ; => "Friday, 1 January 21 6:00pm"
(mapcar 'macro '("$(+,1" "$(nosuch,1)" "$(/,1,0)" "$(getvar,nosuch)" "$(strlen)")) ; => ("$?" "$(NOSUCH)??" "$(/,??)" "$(GETVAR,??)" "$(STRLEN,??)")
; only the chosen branch runs
(macro "$(if,1,fine,$(nosuch))") ; => "fine"
(menucmd "P0=*") ; => nil

; -- settings under keys, in any case
(setq key "HKEY_CURRENT_USER\\Software\\Orvald\\Tools")
(vl-registry-write key "Step" "12") ; => "12"
(vl-registry-write (strcat key "\\Sub") "Count" 5) ; => 5
(list (vl-registry-read (strcase key) "step") (vl-registry-read (strcat key "\\sub") "COUNT") (vl-registry-read key "nosuch") (vl-registry-read "HKEY_CURRENT_USER\\Nothing")) ; => ("12" 5 nil nil)
(list (vl-registry-descendents "HKEY_CURRENT_USER\\Software") (vl-registry-descendents key) (vl-registry-descendents key "")) ; => (("Orvald") ("Sub") ("Step"))
(list (vl-registry-delete key "Step") (vl-registry-delete key "Step") (vl-registry-delete key) (vl-registry-read (strcat key "\\Sub") "Count")) ; => (T nil T nil)
