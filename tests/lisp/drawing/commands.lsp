; Commands by name, modules, arguments, and what answers without a screen.

; -- a "c:" function runs by its name, with any prefix, and in a row with others
(defun c:hello () (setq log (cons 'hello log)))
(defun c:again () (setq log (cons 'again log)))
(setq log nil)
(command "hello" "_.HELLO" "" "Again")      ; => nil
(reverse log)                               ; => (HELLO HELLO AGAIN)
(list (vl-cmdf "again") (command-s "again") (command) (length log)) ; => (T nil nil 5)
; an unknown one takes the rest with it
(progn (setq log nil) (command "NOSUCH" "hello") log) ; => nil
(progn (command 5 "hello") (command '(1 2) "hello") log) ; => nil
; errors come through, and a removed function is no command any more
(defun c:fails () (car 5))
(command "fails")                           ; ! bad argument type: consp 5
(progn (setq c:hello nil) (command "hello") log) ; => nil
PAUSE                                       ; => "\\"

; -- modules
(arx)                                       ; => nil
(arxload "nosuch.arx")                      ; ! ARXLOAD failed: "nosuch.arx"
(list (arxload "nosuch.arx" "no") (arxunload "nosuch" nil)) ; => ("no" nil)
(argv)                                      ; => ("one" "zwölf")

; -- nothing to show, nothing to start
(list (alert "Halt") (menucmd "P1=*") (graphscr) (osnap '(1 2) "end") (grtext -1 "x")) ; => (nil nil nil nil "x")
(alert 5)                                   ; ! bad argument type: stringp 5
(list (startapp "notepad") (vl-registry-read "HKEY_CURRENT_USER") (getcname "LINE")) ; => (nil nil nil)
(vports)                                    ; => ((2 (0.0 0.0) (1.0 1.0)))
