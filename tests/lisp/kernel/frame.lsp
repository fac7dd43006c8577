; Version, platform, configuration and the stack of dialogs.
(kex_version)                    ; => "2015.20.0"
(kex_version T)                  ; => (2015 20 0)
(kex_version 1)                  ; => "2015.20.0"
(car (kex_platform))             ; => "Linux"
(cadr (kex_platform))            ; => 64
(= (caddr (kex_platform)) (getvar "PLATFORM")) ; => T

; The settings that the module makes sure of.
(kex_cfg_get "_RNDL")            ; => 0.0001
(kex_cfg_get "_RNDA")            ; => 1.0e-006
(kex_cfg_get "_RNDF")            ; => 0.001
(kex_cfg_get "_COUNTRY")         ; => "49"
(kex_cfg_get "_COUNTRY1")        ; => ""
(kex_cfg_get "leadertype")       ; => 0
(kex_cfg_get "CURVER")           ; => "2015.20.0"
(kex_cfg_get "*CVPORT*")         ; => 2
(kex_cfg_get "nowhere")          ; => nil
(kex_cfg_get '("a" 1))           ; => nil
(kex_cfg_get "")                 ; => nil
(kex_cfg_get '("_RNDL" nil))     ; ! kex_cfg_get: Argument ist ungültig
(kex_cfg_get 2.5)                ; ! kex_cfg_get: Argument ist ungültig
(getenv "KEX_CURVER")            ; => "2015.20.0"

; Handles of dialogs: text, upper-case hexadecimal. Without an open dialog only the text is pushed.
(kex_dlg_stack)                  ; => nil
(kex_dlg_pop)                    ; => nil
(kex_dlg_push)                   ; => nil
(kex_dlg_push "00000000000012aB") ; => nil
(kex_dlg_push "0xFF")            ; => nil
(kex_dlg_stack)                  ; => ("00000000000000FF" "00000000000012AB")
(kex_dlg_stack)                  ; => ("00000000000000FF" "00000000000012AB")
(kex_dlg_pop)                    ; => "00000000000000FF"
(kex_dlg_pop)                    ; => "00000000000012AB"
(kex_dlg_pop)                    ; => nil
; What is popped can be pushed again, null too; what is no handle is not pushed.
(kex_dlg_push "0000000000000000") ; => nil
(kex_dlg_push "")                ; => nil
(kex_dlg_push "window")          ; => nil
(kex_dlg_push "12345678901234567") ; => nil
(kex_dlg_push 5)                 ; => nil
(kex_dlg_stack)                  ; => ("0000000000000000")
(kex_dlg_pop)                    ; => "0000000000000000"
; With one its window is pushed too, behind the text.
(probe_dialog T)                 ; => T
(kex_dlg_push "1")               ; => T
(kex_dlg_push)                   ; => T
(kex_dlg_stack)                  ; => ("0000000000000ABC" "0000000000000ABC" "0000000000000001")
(repeat 3 (kex_dlg_pop))         ; => "0000000000000001"
(probe_dialog nil)               ; => T
