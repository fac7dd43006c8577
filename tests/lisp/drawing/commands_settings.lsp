; Commands that set: layers, variables, the coordinate system, the display.
(defun layer (name) (mapcar '(lambda (c) (cdr (assoc c (tblsearch "LAYER" name)))) '(70 62 6)))
(defun near (a b) (equal a b 1e-9))
(defun last-groups (codes / e) (setq e (entget (entlast))) (mapcar '(lambda (c) (cdr (assoc c e))) codes))

; -- layers: made, set, coloured in one call; patterns of names; nothing but Enter ends it
(progn (command "_.-LAYER" "_Make" "Wall" "_Color" "red" "" "_LType" "Continuous" "Wall" "") (list (getvar "CLAYER") (layer "wall") (getvar "CMDACTIVE"))) ; => ("Wall" (0 1 "Continuous") 0)
(progn (command "_LAYER" "_N" "A1,A2,B1" "_C" 5 "A*" "_OFF" "A2" "_F" "B?" "_LO" "A1" "") (mapcar 'layer '("A1" "A2" "B1"))) ; => ((4 5 "Continuous") (0 -5 "Continuous") (1 7 "Continuous"))
(progn (command "LAYER" "_ON" "*" "_T" "*" "_U" "*" "_S" "A1" "") (list (getvar "CLAYER") (mapcar 'layer '("A1" "A2" "B1")))) ; => ("A1" ((0 5 "Continuous") (0 5 "Continuous") (0 7 "Continuous")))
; the current layer is off only when that is meant, and never frozen
(progn (command "_.LAYER" "_OFF" "A1" "_N" "_F" "A1" "") (layer "A1")) ; => (0 5 "Continuous")
(progn (command "_.LAYER" "_OFF" "A*" "_Y" "") (mapcar 'cadr (list (layer "A1") (layer "A2")))) ; => (-5 -5)
(progn (command "_.LAYER" "_R" "B1" "Beam" "_LW" 0.35 "Beam" "_P" "_N" "Beam" "") (mapcar '(lambda (c) (cdr (assoc c (entget (tblobjname "LAYER" "Beam"))))) '(2 370 290))) ; => ("Beam" 35 0)
(command "_.LAYER" "_S" "None")                           ; ! Function cancelled
(command "_.LAYER" "_C" "pink" "")                        ; ! Function cancelled
(progn (setvar "CLAYER" "0") (command "_.LAYER" "_M" "") (command "") (getvar "CLAYER")) ; => "0"
; what is done is one step
(progn (command "_.LAYER" "_N" "Gone" "_C" 3 "Gone" "" "_.U") (tblsearch "LAYER" "Gone")) ; => nil

; -- variables, by SETVAR and by their own names, in the type that they have
(progn (command "_.SETVAR" "LTSCALE" "2.5" "_.SETVAR" "CECOLOR" 3 "'_.SETVAR" "OSMODE" 0) (mapcar 'getvar '("LTSCALE" "CECOLOR" "OSMODE"))) ; => (2.5 "3" 0)
(progn (command "_.SETVAR" "CECOLOR" "ByLayer" "ELEVATION" 4 "_.LTSCALE" "") (mapcar 'getvar '("CECOLOR" "ELEVATION" "LTSCALE"))) ; => ("BYLAYER" 4.0 2.5)
(command "_.SETVAR" "NOSUCH" 1)                           ; ! Function cancelled
(command "_.SETVAR" "OSMODE" 1.5)                         ; ! Function cancelled
(progn (command "_.COLOR" "_blue" "_.LINETYPE" "_S" "ByBlock" "" "_.ELEV" 1 2) (mapcar 'getvar '("CECOLOR" "CELTYPE" "ELEVATION" "THICKNESS"))) ; => ("5" "ByBlock" 1.0 2.0)
(progn (command "_.COLOR" "_ByLayer" "_.LINETYPE" "_S" "ByLayer" "" "_.ELEV" 0 0 "_.LIMITS" '(0 0) '(50 60)) (getvar "LIMMAX")) ; => (50.0 60.0)
(progn (command "_.STYLE" "Notes" "romans.shx" 3 0.8 15 "_N" "_N" "_N") (list (getvar "TEXTSTYLE") (mapcar '(lambda (c) (cdr (assoc c (tblsearch "STYLE" "Notes")))) '(40 41 3)))) ; => ("Notes" (3.0 0.8 "romans.shx"))

; -- the coordinate system: points that follow are in it, entities lie in its plane
(progn (command "_.UCS" "_O" '(10 20) "_.UCS" "_Z" 90) (command "_.LINE" '(0 0) '(5 0) "") (near (last-groups '(10 11)) '((10.0 20.0 0.0) (10.0 25.0 0.0)))) ; => T
(progn (setvar "TEXTSTYLE" "Standard") (command "_.TEXT" '(1 0) 2 0 "up") (near (last-groups '(10 50)) (list '(10.0 21.0 0.0) (/ pi 2)))) ; => T
(progn (command "_.ROTATE" "_L" "" '(0 0) 90 "_.UCS" "_P" "_.UCS" "_P") (list (getvar "WORLDUCS") (near (last-groups '(10 50)) (list '(9.0 20.0 0.0) pi)))) ; => (1 T)
(progn (command "_.UCS" "_3" '(0 0 0) '(0 1 0) '(0 0 1) "_.CIRCLE" '(2 3) 1) (list (near (last-groups '(210)) '((1.0 0.0 0.0))) (near (trans (cdr (assoc 10 (entget (entlast)))) (entlast) 0) '(0.0 2.0 3.0)))) ; => (T T)
(progn (command "_.MOVE" "_L" "" '(0 0) '(1 1) "_.UCS" "_S" "Side" "_.UCS" "") (near (trans (cdr (assoc 10 (entget (entlast)))) (entlast) 0) '(0.0 3.0 4.0))) ; => T
(progn (command "_.UCS" "_R" "Side") (list (near (getvar "UCSXDIR") '(0.0 1.0 0.0)) (progn (command "_.UCS" "_W") (getvar "WORLDUCS")))) ; => (T 1)
(progn (command "_.UCS" "_X" 90) (near (getvar "UCSYDIR") '(0.0 0.0 1.0))) ; => T
(progn (command "_.UCS" "_W" "_.UCS" "_ZA" '(0 0 0) '(0 0 -1)) (near (getvar "UCSXDIR") '(-1.0 0.0 0.0))) ; => T
(progn (command "_.UCS" "_W" "_.LINE" '(3 3) '(3 9) "" "_.UCS" "_OB" "_L") (list (getvar "UCSORG") (near (getvar "UCSXDIR") '(0.0 1.0 0.0)))) ; => ((3.0 3.0 0.0) T)
(progn (command "_.UCS" "_W" "_.UCS" '(1 2) "") (list (getvar "UCSORG") (progn (command "_.UCS" "_W") (getvar "UCSORG")))) ; => ((1.0 2.0 0.0) (0.0 0.0 0.0))
(command "_.UCS" "_R" "None")                             ; ! Function cancelled

; -- the display
(progn (command "_.ZOOM" "_W" '(0 0) '(30 20)) (list (getvar "VIEWCTR") (>= (getvar "VIEWSIZE") 20.0))) ; => ((15.0 10.0 0.0) T)
(progn (setq size (getvar "VIEWSIZE")) (command "_.ZOOM" "2X") (near (getvar "VIEWSIZE") (/ size 2))) ; => T
(progn (command "_.ZOOM" "_P") (near (getvar "VIEWSIZE") size)) ; => T
(progn (command "_.ZOOM" "_C" '(5 6) 7) (list (getvar "VIEWCTR") (getvar "VIEWSIZE"))) ; => ((5.0 6.0 0.0) 7.0)
(progn (command "_.ZOOM" "_E") (and (<= (car (getvar "VSMIN")) (car (getvar "EXTMIN"))) (>= (car (getvar "VSMAX")) (car (getvar "EXTMAX"))))) ; => T
(progn (command "'_.ZOOM" '(0 0) '(1 1) "_.PAN" '(0 0) '(1 0)) (getvar "VIEWCTR")) ; => (-0.5 0.5 0.0)
(progn (command "_.ZOOM" "_O" "_L" "" "_.ZOOM" "_S" ".8x" "_.REGEN" "_.REDRAW") (getvar "CMDACTIVE")) ; => 0
