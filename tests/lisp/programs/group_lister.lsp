; GLIST: the group codes of a picked object with their meaning, parts and extended data included, to
; the text window or a file; as found in every collection of such programs.

(setq *gl:meanings*
  '((-4 . "operator") (-3 . "extended data") (-2 . "first entity of the block") (-1 . "entity name")
    (0 . "type") (1 . "text") (2 . "name") (3 . "further text") (5 . "handle") (6 . "linetype")
    (7 . "text style") (8 . "layer") (10 . "first point") (11 . "second point") (38 . "elevation")
    (39 . "thickness") (40 . "size") (41 . "factor") (42 . "bulge") (43 . "constant width")
    (48 . "linetype scale") (50 . "angle") (51 . "end angle") (62 . "colour") (66 . "parts follow")
    (67 . "space") (70 . "flags") (71 . "flags") (72 . "alignment") (73 . "alignment")
    (90 . "count") (91 . "number") (100 . "class") (102 . "group") (210 . "normal")
    (330 . "owner") (360 . "owned object") (410 . "layout")))

(setq *gl:ranges*
  '((10 18 "point") (40 58 "real") (60 79 "integer") (90 99 "long") (140 149 "real")
    (170 179 "integer") (210 239 "vector") (300 309 "text") (310 319 "bytes") (320 329 "handle")
    (330 369 "pointer") (370 379 "integer") (1000 1009 "text of application")
    (1010 1059 "number of application") (1060 1071 "integer of application")))

(defun gl:meaning (code / r)
  (cond
    ((cdr (assoc code *gl:meanings*)))
    ((setq r (vl-member-if '(lambda (row) (<= (car row) code (cadr row))) *gl:ranges*)) (caddar r))
    ("?")))

(defun gl:pad (s width) (while (< (strlen s) width) (setq s (strcat s " "))) s)

(defun gl:value (v)
  (cond
    ((= 'STR (type v)) (strcat "\"" v "\""))
    ((= 'INT (type v)) (itoa v))
    ((= 'REAL (type v)) (rtos v 2 6))
    ((= 'ENAME (type v)) (strcat "-> " (cond ((cdr (assoc 0 (entget v)))) ("nothing"))))
    ((and (listp v) (vl-every 'numberp v))
     (strcat "(" (vl-string-left-trim " " (apply 'strcat (mapcar '(lambda (n) (strcat " " (rtos n 2 4))) v))) ")"))
    (T (vl-prin1-to-string v))))

;; One line of text for each group; extended data one step in.
(defun gl:lines (groups indent / out)
  (foreach g groups
    (cond
      ((= -3 (car g))
       (setq out (cons (strcat indent "-3") out))
       (foreach app (cdr g)
         (setq out (cons (strcat indent "  [" (car app) "]") out)
               out (append (reverse (gl:lines (cdr app) (strcat indent "    "))) out))))
      (T
       (setq out (cons (strcat indent (gl:pad (itoa (car g)) 6) (gl:pad (gl:meaning (car g)) 18)
                               (gl:value (cdr g)))
                       out)))))
  (reverse out))

;; The entity, then its parts up to and with SEQEND.
(defun gl:all (e / el kind out)
  (setq el (entget e '("*")) out (gl:lines el ""))
  (if (or (= "POLYLINE" (cdr (assoc 0 el))) (= 1 (cdr (assoc 66 el))))
    (while (progn
             (setq e (entnext e) el (entget e '("*")) kind (cdr (assoc 0 el)))
             (setq out (append out (cons (strcat "-- " kind) (gl:lines el "  "))))
             (/= kind "SEQEND"))))
  out)

(defun c:GLIST (/ pick where f lines)
  (initget "Nested Block")
  (setq pick (entsel "\nObject or [Nested/Block]: "))
  (cond
    ((= pick "Nested") (setq pick (car (nentsel "\nPart: "))))
    ((= pick "Block") (setq pick (tblobjname "BLOCK" (getstring T "\nName: "))))
    (T (setq pick (car pick))))
  (if pick
    (progn
      (initget "Screen File")
      (setq where (cond ((getkword "\nTo [Screen/File] <Screen>: ")) ("Screen"))
            lines (gl:all pick))
      (if (= where "File")
        (progn
          (setq f (open (getstring T "\nFile: ") "w"))
          (foreach line lines (write-line line f))
          (close f))
        (progn (textscr) (foreach line lines (princ line) (terpri)) (graphscr)))
      (length lines))))

; -- a line with extended data, a polyline of the old kind, a block with an attribute
(defun shown (code lines) (vl-string-trim " " (substr (car (vl-member-if '(lambda (l) (= code (atoi l))) lines)) 25)))
(setq line (entmakex '((0 . "LINE") (8 . "A-1") (62 . 1) (48 . 0.5) (10 1.0 2.0 0.0) (11 4.25 6.0 0.0))))
(regapp "GL_TEST")
(entmod (append (entget line) '((-3 ("GL_TEST" (1000 . "say \"x\"") (1010 1.0 2.0 3.0) (1070 . 7) (1040 . 0.5))))))
(setq lines (gl:all line))
(list (shown 0 lines) (shown 8 lines) (shown 10 lines) (shown 48 lines) (shown 62 lines) (shown 330 lines)) ; => ("\"LINE\"" "\"A-1\"" "(1 2 0)" "0.5" "1" "-> BLOCK_RECORD")
(cdr (member "-3" lines)) ; => ("  [GL_TEST]" "    1000  text of application\"say \"x\"\"" "    1010  number of application(1 2 3)" "    1070  integer of application7" "    1040  number of application0.5")
(mapcar 'gl:meaning '(-1 11 47 173 350 1071 999)) ; => ("entity name" "second point" "real" "integer" "pointer" "integer of application" "?")

(entmake '((0 . "POLYLINE") (66 . 1) (70 . 9)))
(foreach p '((0.0 0.0 1.0) (5.0 0.0 2.0) (5.0 5.0 3.0)) (entmake (list '(0 . "VERTEX") (cons 10 p) '(70 . 32))))
(entmake '((0 . "SEQEND")))
(vl-remove-if-not '(lambda (l) (wcmatch l "--*")) (gl:all (entlast))) ; => ("-- VERTEX" "-- VERTEX" "-- VERTEX" "-- SEQEND")

(setq file (vl-filename-mktemp "gl" nil ".txt"))
(progn (answers "L" "File" file) (= (c:glist) (length (gl:all (entlast))))) ; => T
(progn (setq f (open file "r")) (read-line f) (setq l (read-line f)) (close f) l) ; => "0     type              \"POLYLINE\""
(progn (answers "N" "1,2" "") (c:glist)) ; => 16
(progn (answers "B" "*Model_Space" "S") (c:glist)) ; => 13
(progn (answers "") (c:glist)) ; => nil
(vl-file-delete file) ; => T
