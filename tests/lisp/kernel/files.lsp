; Files, folders and lock files, below the session's home, which is new and goes with it.
(setq dir (strcat (kex_file_unc (getenv "KEX_HOME")) "\\lsp\\"))
(kex_file_mkdir (strcat dir "Sub\\Deep\\")) ; => T
(kex_file_mkdir (strcat dir "sub\\deep"))   ; => nil
(kex_file_mkdir 1)                          ; ! ADS request error
(kex_file_mkdir)                            ; ! ADS request error
(setq catalog (findfile "kex_run.rsx") plan (strcat dir "Plan.DWG")) ; some file to begin with
(kex_file_copy catalog plan)                ; => T
(kex_file_copy catalog plan)                ; => nil
(kex_file_copy catalog "Q:\\no\\drive")     ; => nil
(kex_file_copy "" plan)                     ; => nil
(kex_file_copy)                             ; ! kex_file_copy: Argument 1 ist ungültig
(kex_file_copy plan)                        ; ! kex_file_copy: Argument 2 ist ungültig
(kex_file_copy plan 2.0)                    ; ! kex_file_copy: Argument 2 ist ungültig
(kex_file_rename plan (strcat dir "b.txt")) ; => T
(kex_file_rename plan (strcat dir "c.txt")) ; => nil
(kex_file_rename (strcat dir "B.TXT") plan) ; => T
(kex_file_rename nil plan)                  ; ! kex_file_rename: Argument 1 ist ungültig
(kex_file_rename plan 2)                    ; ! kex_file_rename: Argument 2 ist ungültig
(kex_file_access plan)                      ; => T
(kex_file_access (strcat dir "new"))        ; => T
(kex_file_access (strcat dir "new\\new"))   ; => nil
(kex_file_access)                           ; ! kex_file_access: Argument ist ungültig

; What a folder holds. The mask 16 adds folders, 32768 leaves only what has all its other bits.
(kex_file_dir (strcat dir "*.*") 0)         ; => ("Plan.DWG")
(kex_file_dir (strcat dir "*") 16)          ; => ("Plan.DWG" "Sub")
(kex_file_dir (strcat dir "*") 32784)       ; => ("Sub")
(kex_file_dir (strcat dir "?lan.*g") 0)     ; => ("Plan.DWG")
(kex_file_dir (strcat dir "*.txt") 0)       ; => nil
(listp (kex_file_dir nil 16))               ; => T
(equal (kex_file_dir 16) (kex_file_dir "" 16)) ; => T
(kex_file_dir)                              ; ! kex_file_dir: Argument ist ungültig
(kex_file_dir "*")                          ; ! kex_file_dir: Argument ist ungültig
(kex_file_dir "*" 1.0)                      ; ! kex_file_dir: Argument ist ungültig
(kex_file_dir 1.0 1)                        ; ! kex_file_dir: Argument ist ungültig

; Sort key 1 is the name; a direction turns it round and stays until another one is given.
(foreach name '("b" "a" "a.x" "ab") (kex_file_copy plan (strcat dir "Sub\\" name)))
(kex_file_dir (strcat dir "Sub\\") 0)       ; => ("a" "a.x" "ab" "b")
(kex_file_dirmode 1 1)
(kex_file_dir (strcat dir "Sub\\") 0)       ; => ("b" "ab" "a.x" "a")
(kex_file_dirmode 1 "?")
(kex_file_dir (strcat dir "Sub\\") 0)       ; => ("b" "ab" "a.x" "a")
(kex_file_dirmode 2 0)
(kex_file_dir (strcat dir "Sub\\") 0)       ; => ("a.x" "b" "ab" "a")
(kex_file_dirmode 0)
(kex_file_dir (strcat dir "Sub\\") 0)       ; => ("a" "a.x" "ab" "b")
(kex_file_dirmode)                          ; ! kex_file_dirmode: Argument ist ungültig
(kex_file_dirmode 1.0)                      ; ! kex_file_dirmode: Argument ist ungültig
(car (kex_file_dirinfo (strcat dir "Sub") "a*")) ; => 3
(= (* 4 (caddr (kex_file_info plan))) (cadr (kex_file_dirinfo (strcat dir "sub\\")))) ; => T
(mapcar 'type (kex_file_dirinfo))           ; => (INT REAL REAL REAL)
(kex_file_dirinfo "Q:\\")                   ; => (0 0.0 0.0 0.0)
(mapcar 'type (kex_file_dirinfo 1 2))       ; => (INT REAL REAL REAL)

; Dates and times in local time; a missing first file counts as older.
(mapcar 'type (kex_file_info plan))         ; => (STR STR REAL)
(mapcar 'type (kex_file_info "C:\\"))       ; => (STR STR REAL)
(wcmatch (strcat (car (kex_file_info plan)) " " (cadr (kex_file_info plan))) "##.##.#### ##:##") ; => T
(kex_file_info (strcat dir "nothing"))      ; => nil
(kex_file_info)                             ; ! kex_file_info: Argument ist ungültig
(kex_file_dcmp plan plan)                   ; => nil
(kex_file_dcmp "nothing" "nothing")         ; => T
(kex_file_dcmp plan "nothing")              ; => nil
(kex_file_dcmp)                             ; ! kex_file_dcmp: Argument 1 ist ungültig
(kex_file_dcmp plan)                        ; ! kex_file_dcmp: Argument 2 ist ungültig

; Lock files: the process's own lock counts for itself too.
(kex_file_locked plan)                      ; => nil
(kex_file_lock plan)                        ; => T
(kex_file_locked plan)                      ; => T
(kex_file_lock (strcase plan) 0)            ; => nil
(kex_file_dir (strcat dir "*.dwk") 0)       ; => ("plan.dwk")
(kex_file_unlock plan)
(kex_file_dir (strcat dir "*.dwk") 0)       ; => nil
(kex_file_locked plan)                      ; => nil
(kex_file_lock plan "?")                    ; => T
(kex_file_unlock (strcase plan T))
(kex_file_unlock plan)
(kex_file_lock)                             ; ! kex_file_lock: Argument 1 ist ungültig
(kex_file_lock 5 5)                         ; ! kex_file_lock: Argument 1 ist ungültig
(kex_file_locked '(1))                      ; ! kex_file_locked: Argument ist ungültig
(kex_file_unlock)                           ; ! kex_file_unlock: Argument ist ungültig

; Names. Parts of a path joined are the path in the kernel's form.
(kex_file_splitpath "c:/work//plan.x.dwg")  ; => ("C:" "\\work\\" "plan.x" ".dwg")
(kex_file_splitpath "\\\\srv\\share\\")     ; => ("" "\\\\srv\\share\\" "" "")
(kex_file_splitpath "")                     ; => ("" "" "" "")
(kex_file_splitpath 1)                      ; ! kex_file_splitpath: Argument ist ungültig
(car (kex_file_getdrives))                  ; => "C:"
(kex_file_unc "C:\\a\\..\\Plan.DWG")        ; => "C:\\Plan.DWG"
(= (kex_file_unc "a/Plan.DWG") (strcat (kex_file_cpath) "a\\Plan.DWG")) ; => T
(kex_file_unc "")                           ; => nil
(kex_file_unc nil)                          ; ! kex_file_unc: Argument ist ungültig
(setq before (kex_file_cpath))
(= (kex_file_cpath dir) before)             ; => T
(= (kex_file_cpath "nowhere") dir)          ; => T
(= (kex_file_cpath 1) dir)                  ; => T
(kex_file_dir "*.DWG" 0)                    ; => ("Plan.DWG")
(= (kex_file_cpath before) dir)             ; => T
(= (kex_file_cpath) before)                 ; => T
(wcmatch (kex_file_tmpname) "*`\\tmp????????`.tmp") ; => T
(wcmatch (kex_file_tmpname "bau") "*`\\bau????????`.tmp") ; => T
(setenv "KEX_CASE" "Träger")
(kex_file_fillenv "%KEX_CASE%\\%KEX_CASE%.dwg %KEX_CASE") ; => "Träger\\Träger.dwg %KEX_CASE"
(kex_file_fillenv "%NO_SUCH_NAME%")         ; => "%NO_SUCH_NAME%"
(kex_file_fillenv)                          ; ! kex_file_fillenv: Argument ist ungültig

; Removing passes over what is no text; wrong arguments of these are no errors.
(kex_file_remove)
(kex_file_remove nil 1 "" (strcat dir "nothing") dir (strcat dir "Sub\\a") (strcat dir "Sub\\A.X") '(1))
(kex_file_dir (strcat dir "Sub\\") 0)       ; => ("ab" "b")
(kex_file_rm_rdonly dir)
(kex_file_rm_rdonly nil)
(kex_file_rm_rdonly)
