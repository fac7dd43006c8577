; System variables: types, ranges, and that the drawing remembers.

; -- names as strings or symbols, in any case
(mapcar 'getvar '("CLAYER" "clayer" clayer LUNITS)) ; => ("0" "0" "0" 2)
(getvar "NOSUCH")                           ; => nil
(getvar 5)                                  ; ! bad argument type: (or stringp symbolp): 5

; -- one of each home: header, view port, session, computed
(mapcar 'getvar '("LTSCALE" "VIEWSIZE" "CMDECHO" "DWGNAME" "CTAB" "CVPORT")) ; => (1.0 297.0 1 "Drawing1.dxf" "Model" 2)
(mapcar 'getvar '("LIMMAX" "INSBASE" "VIEWCTR" "VIEWDIR" "UCSXDIR")) ; => ((420.0 297.0) (0.0 0.0 0.0) (210.0 148.5 0.0) (0.0 0.0 1.0) (1.0 0.0 0.0))
(mapcar '(lambda (a b) (- (car a) (car b))) (list (getvar "VSMAX")) (list (getvar "VSMIN"))) ; => (445.5)
(list (substr (getvar "ACADVER") 1 4) (substr (getvar "PLATFORM") 1 5) (getvar "WORLDUCS")) ; => ("20.0" "Linux" 1)

; -- setting gives the value back; the type must fit, an integer is good for a real
(progn (setvar 'LTSCALE 2) (getvar "LTSCALE")) ; => 2.0
(setvar "USERS1" "Text")                    ; => "Text"
(progn (setvar "LASTPOINT" '(1 2)) (getvar "LASTPOINT")) ; => (1.0 2.0 0.0)
(progn (setvar "LIMMIN" '(1 2 3)) (getvar "LIMMIN")) ; => (1.0 2.0)
(setvar "USERI1" 40000)                     ; ! AutoCAD variable setting rejected: "USERI1" 40000
(setvar "lunits" 9)                         ; ! AutoCAD variable setting rejected: "lunits" 9
(list (getvar "LUNITS") (getvar "ERRNO"))   ; => (2 22)
(setvar "CMDECHO" 0.0)                      ; ! AutoCAD variable setting rejected: "CMDECHO" 0.0
(setvar "TEXTSIZE" 0)                       ; ! AutoCAD variable setting rejected: "TEXTSIZE" 0
(setvar "CLAYER" nil)                       ; ! AutoCAD variable setting rejected: "CLAYER" nil
(setvar "DBMOD" 0)                          ; ! AutoCAD variable setting rejected: "DBMOD" 0
(getvar "ERRNO")                            ; => 20
(setvar "NOSUCH" 1)                         ; ! AutoCAD variable setting rejected: "NOSUCH" 1
(progn (setvar "ERRNO" 0) (getvar "ERRNO")) ; => 0

; -- a name must be one of the drawing, and is kept as the drawing spells it
(entmake '((0 . "LAYER") (100 . "AcDbSymbolTableRecord") (100 . "AcDbLayerTableRecord") (2 . "Wand") (70 . 0) (62 . 1) (6 . "Continuous")))
(progn (setvar "CLAYER" "WAND") (getvar "CLAYER")) ; => "Wand"
(setvar "CLAYER" "NoSuch")                  ; ! AutoCAD variable setting rejected: "CLAYER" "NoSuch"
(setvar "TEXTSTYLE" "NoSuch")               ; ! "TEXTSTYLE" "NoSuch"
(mapcar '(lambda (v) (setvar "CECOLOR" v) (getvar "CECOLOR")) '("red" "256" "byblock" "17")) ; => ("1" "BYLAYER" "BYBLOCK" "17")
(setvar "CECOLOR" "mauve")                  ; ! "CECOLOR" "mauve"
(progn (entmake '((0 . "POINT") (10 0 0))) (assoc 62 (entget (entlast)))) ; => (62 . 17)

; -- angles are radians here, degrees in the drawing
(progn (setvar "ANGBASE" (/ pi 2)) (setvar "SNAPANG" pi) (list (getvar "ANGBASE") (getvar "SNAPANG"))) ; => (1.5708 3.14159)
; units of the text functions follow at once
(progn (setvar "LUPREC" 1) (rtos 2.25))     ; => "2.3"

; -- the box of what is drawn
(progn (entdel (entlast)) (setvar "CTAB" "Layout1") (list (getvar "TILEMODE") (getvar "CVPORT") (car (getvar "EXTMIN")))) ; => (0 1 1.0e+020)
(setvar "CTAB" "NoSuch")                    ; ! "CTAB" "NoSuch"
(setvar "TILEMODE" 1)
(entmake '((0 . "LINE") (10 1 2 3) (11 -4 5 6)))
(list (getvar "EXTMIN") (getvar "EXTMAX"))  ; => ((-4.0 2.0 3.0) (1.0 5.0 6.0))
(progn (entdel (entlast)) (caddr (getvar "EXTMAX"))) ; => -1.0e+020

; -- the annotation scale is one of the drawing's list
(progn (setvar "CANNOSCALE" "1:50") (getvar "CANNOSCALEVALUE")) ; => 0.02
(setvar "CANNOSCALE" "1:49")                ; ! "CANNOSCALE" "1:49"

; -- time: the day of CDATE is the day of DATE
(defun julian (d / y m)
  (setq y (fix (/ d 10000)) m (- (fix (/ d 100)) (* 100 y)) d (- (fix d) (* 100 (fix (/ d 100)))))
  (if (< m 3) (setq y (1- y) m (+ m 12)))
  (+ (fix (* 365.25 (+ y 4716))) (fix (* 30.6001 (1+ m))) d (- (/ y 400) (/ y 100)) -1522))
(- (fix (getvar "DATE")) (julian (getvar "CDATE"))) ; => 0

; -- nobody draws on a frozen layer
(entmake '((0 . "LAYER") (100 . "AcDbSymbolTableRecord") (100 . "AcDbLayerTableRecord") (2 . "Eis") (70 . 1) (62 . 1) (6 . "Continuous")))
(setvar "CLAYER" "Eis")                     ; ! AutoCAD variable setting rejected: "CLAYER" "Eis"

; -- what belongs to the program, the machine or the state of things cannot be set
(defun fixed (v) (vl-catch-all-error-p (vl-catch-all-apply 'setvar (list v (getvar v)))))
(vl-remove-if 'fixed '("ACADVER" "PRODUCT" "PROGRAM" "CDATE" "DATE" "DWGNAME" "DWGPREFIX" "EXTMIN" "EXTMAX" "VIEWCTR" "VIEWSIZE" "CMDNAMES" "WORLDUCS" "AREA" "PERIMETER" "DISTANCE" "HANDLES" "LOCALROOTPREFIX" "PFACEVMAX" "POPUPS" "TDUSRTIMER" "UNDOCTL" "UCSNAME" "VIEWDIR" "SCREENSIZE")) ; => nil
; every other one takes back what it gave, and keeps it
(vl-remove-if '(lambda (v / x) (setq x (getvar v)) (setvar v x) (equal x (getvar v))) '("ATTREQ" "BLIPMODE" "CELTSCALE" "CLAYER" "CMDECHO" "COORDS" "CECOLOR" "CELTYPE" "CPLOTSTYLE" "DELOBJ" "DIMSCALE" "DIMZIN" "EXPERT" "FILEDIA" "FILLETRAD" "HIGHLIGHT" "HPNAME" "HPORIGIN" "INSBASE" "INSUNITSDEFSOURCE" "LASTPOINT" "LTSCALE" "LWUNITS" "MIRRTEXT" "NOMUTT" "ORTHOMODE" "OSMODE" "PDMODE" "PDSIZE" "PEDITACCEPT" "PICKBOX" "PICKSTYLE" "PLINEWID" "SNAPANG" "SNAPMODE" "SORTENTS" "TEXTSIZE" "TEXTSTYLE" "THICKNESS" "UCSICON" "USERR1" "USERS5" "WIPEOUTFRAME" "XEDIT")) ; => nil
