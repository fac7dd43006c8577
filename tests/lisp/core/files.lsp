; Files of the program. `folder` is an empty one that belongs to the test.

(setq name (strcat (folder) "/a.txt"))
(setq f (open name "w"))
(list (type f) (write-line "Größe €" f) (princ "x\n" f) (prin1 "q" f) (write-char 10 f) (print 5 f) (close f)) ; => (FILE "Größe €" "x\n" "q" 10 5 nil)
(setq f (open name "a"))
(write-line "end" f)
(close f)
(setq f (open name "r") lines nil)
(while (setq l (read-line f)) (setq lines (cons l lines)))
(reverse lines)                     ; => ("Größe €" "x" "\"q\"" "" "5 end")
(read-line f)                       ; => nil
(close f)
(close f)                           ; ! /a.txt">
(write-line "x" f)                  ; ! /a.txt">
(read-line nil)                     ; => nil
(write-line "x" 5)                  ; ! bad argument type: FILE 5
(open "/no/such/folder/x" "r")      ; => nil
(list (open (folder) "r") (open (strcat (folder) "/nosuch") "r")) ; => (nil nil)
(open name "x")                     ; ! "x"

; lines of any length, with and without letters beyond ASCII, come back as they were
(defun many (n text / out) (setq out "") (repeat n (setq out (strcat out "a"))) (strcat out text))
(setq lines (apply 'append (mapcar '(lambda (n) (list (many n "") (many n "ü"))) '(0 1 254 255 256 257 511 512 600))))
(setq f (open name "w"))
(foreach l lines (write-line l f))
(close f)
(setq f (open name "r"))
(equal lines (mapcar '(lambda (l) (read-line f)) lines)) ; => T
(list (read-line f) (close f))      ; => (nil nil)

; read-char sees octets, and each line's end as one
(setq f (open name "w"))
(princ "\303\244\r\n\rz" f)
(close f)
(setq f (open name "r") codes nil)
(while (setq c (read-char f)) (setq codes (cons c codes)))
(reverse codes)                     ; => (195 131 194 164 10 13 122)
(close f)

; copy, rename, size, delete; an existing target is left alone
(setq b (strcat (folder) "/b.txt") c (strcat (folder) "/c.txt"))
(list (vl-file-size name) (vl-file-copy name b) (vl-file-copy name b) (vl-file-copy name b t) (vl-file-size b)) ; => (8 8 nil 8 16)
(list (vl-file-rename b c) (vl-file-rename b c) (vl-file-size b) (vl-file-rename name c)) ; => (T nil nil nil)
(list (vl-mkdir (strcat (folder) "/sub")) (vl-mkdir (strcat (folder) "/sub")) (vl-file-directory-p (folder)) (vl-file-directory-p name)) ; => (T nil T nil)
(list (vl-directory-files (folder)) (vl-directory-files (folder) "*.TXT") (vl-directory-files (folder) nil -1) (vl-directory-files (folder) "a*" 1)) ; => (("." ".." "a.txt" "c.txt" "sub") ("a.txt" "c.txt") ("." ".." "sub") ("a.txt"))
(list (length (vl-file-systime name)) (vl-file-systime b) (vl-directory-files "/no/such")) ; => (8 nil nil)
(list (vl-file-delete c) (vl-file-delete c) (vl-file-delete (folder))) ; => (T nil nil)

; names are taken apart with either separator
(mapcar 'vl-filename-base '("C:\\a\\b.txt" "/x/y" "b.tar.gz" ".x")) ; => ("b" "y" "b.tar" "")
(mapcar 'vl-filename-directory '("C:\\a\\b.txt" "c:\\b" "/x/y/z" "/x" "b")) ; => ("C:\\a" "c:\\" "/x/y" "/" "")
(mapcar 'vl-filename-extension '("C:\\a.b\\c" "c.txt" "c.")) ; => (nil ".txt" ".")
(setq made (vl-filename-mktemp "tmp.dat" (folder)))
(list (wcmatch made "*/tmp###.dat") (findfile made)) ; => (T nil)

; load looks along the search path, also with .lsp, and gives the value of the last form
(setq f (open (strcat (folder) "/prog.lsp") "w"))
(write-line "(setq loaded 'yes)\n(defun from-file (x)\n  (* 2 x))\n(from-file 21)" f)
(close f)
(list (load "prog") loaded (from-file 4) (load "prog.lsp") (null (findfile "prog.lsp"))) ; => (42 YES 8 42 nil)
(load "test2")                      ; ! LOAD failed: "test2"
(list (load "test2" 'instead) (load "test2" (lambda () 'called))) ; => (INSTEAD CALLED)
; a command made by autoload loads its file, which defines it anew
(setq f (open (strcat (folder) "/auto.lsp") "w"))
(write-line "(defun c:auto () 'real)" f)
(close f)
(autoload "auto" '("auto"))
(list (c:auto) (c:auto))            ; => (REAL REAL)
; a faulty file is loaded up to its fault
(setq f (open (strcat (folder) "/bad.lsp") "w"))
(write-line "(setq before 1)\n(car" f)
(close f)
(load "bad")                        ; ! malformed list on input
before                              ; => 1
