; Bit-strings have their least significant digit first; 0x says the usual order.
(kex_d_itox 31)                  ; => "F1"
(kex_d_itox 0)                   ; => "0"
(kex_d_itox -1)                  ; => "FFFFFFFF"
(kex_d_itox 305419896)           ; => "87654321"
(kex_d_itox 1.0)                 ; => ""
(kex_d_itox)                     ; => ""
(kex_d_xtoi "F1")                ; => 31
(kex_d_xtoi "f1")                ; => 31
(kex_d_xtoi "0x1F")              ; => 31
(kex_d_xtoi "0XfFffFFfF")        ; => -1
(kex_d_xtoi "")                  ; => 0
(kex_d_xtoi "0x")                ; => 0
(kex_d_xtoi "0x1G2")             ; => 1
(kex_d_xtoi "0x123456789")       ; => 591751049
(kex_d_xtoi 1)                   ; ! kex_d_xtoi: Argument 1 ist ungültig
(defun same (v) (= v (kex_d_xtoi (kex_d_itox v))))
(vl-every 'same '(0 1 15 16 -1 2147483647 -2147483647 1234567)) ; => T
(kex_d_xlogand "F1" "0x13")      ; => "31"
(kex_d_xlogand "F" "")           ; => "0"
(kex_d_xlogand "F" "F" 5)        ; => "F"
(kex_d_xlogand)                  ; ! kex_d_xlogand: Argument ist ungültig
(kex_d_xlogand 5)                ; ! kex_d_xlogand: Argument ist ungültig
(kex_d_xlogand 5 "1")            ; ! kex_d_xlogand: Argument 1 ist ungültig
(kex_d_xlogand "1" 5)            ; ! kex_d_xlogand: Argument 2 ist ungültig

; Dates: a real is the host's calendar date, whatever the time zone; an integer counts seconds.
(kex_str_date 2450815.5)         ; => "01.01.1998"
(kex_str_time 2450815.5)         ; => "12:00"
(kex_str_date 2460311.0)         ; => "01.01.2024"
(kex_str_date 2460370.999998)    ; => "01.03.2024"
(kex_str_time 2460370.9999)      ; => "23:59"
(= (kex_time_stamp (kex_time_stamp 1700000000)) 1700000000) ; => T
(equal (kex_str_date 1700000000) (kex_str_date (kex_time_stamp 1700000000))) ; => T
(kex_str_date 1e300)             ; ! kex_str_date: Argument ist ungültig
(kex_str_date "1")               ; ! kex_str_date: Argument ist ungültig
(kex_str_time)                   ; ! kex_str_time: Argument ist ungültig
(kex_str_time nil)               ; ! kex_str_time: Argument ist ungültig
(setq now (kex_time_stamp) later (kex_time_stamp nil))
(<= now later (+ now 5))         ; => T
(type now)                       ; => INT
(type (kex_time_stamp now))      ; => REAL
(< (abs (- (getvar "DATE") (kex_time_stamp later))) 0.001) ; => T
(kex_time_stamp "now")           ; ! kex_time_stamp: Argument ist ungültig
(kex_time_stamp -1e300)          ; ! kex_time_stamp: Argument ist ungültig

(wcmatch (kex_str_UuidCreate 1 "x") "########-####-4###-@###-############") ; => nil
(strlen (kex_str_UuidCreate))    ; => 36
(= (kex_str_UuidCreate) (kex_str_UuidCreate)) ; => nil

; Lengths as people write them.
(kex_str_to_unit "12,5" 4)       ; => 12.5
(kex_str_to_unit " 1.5 m " 4)    ; => 1500.0
(kex_str_to_unit "-3/4" 4)       ; => -0.75
(kex_str_to_unit "2 3/4 in" 1)   ; => 2.75
(kex_str_to_unit "5'-6 1/2\"" 1) ; => 66.5
(kex_str_to_unit "5'6\"" 2)      ; => 5.5
(kex_str_to_unit "1/2\"" 4)      ; => 12.7
(kex_str_to_unit "250 µm" 4)     ; => 0.25
(kex_str_to_unit "1 KM" 6)       ; => 1000.0
(kex_str_to_unit "1 M" 6)        ; => nil
(kex_str_to_unit "1 mm x" 4)     ; => nil
(kex_str_to_unit "1+1" 4)        ; => nil
(kex_str_to_unit "" 4)           ; => nil
(kex_str_to_unit nil)            ; => nil
(setvar "INSUNITS" 5)
(kex_str_to_unit "25 mm")        ; => 2.5
(kex_str_to_unit "25 mm" nil)    ; => 2.5
(kex_str_to_unit "25")           ; => 25.0
(kex_str_to_unit "25 mm" 0)      ; => 25.0
(kex_str_to_unit "25 mm" 2147483647) ; => 25.0
(kex_str_to_unit 25 4)           ; ! kex_str_to_unit: Argument 1 ist ungültig
(kex_str_to_unit)                ; ! kex_str_to_unit: Argument 1 ist ungültig
(kex_str_to_unit "25" "mm")      ; ! kex_str_to_unit: Argument 2 ist ungültig

; Size keys; what is none comes back as it is.
(kex_str_gd_key 12.5)            ; => "12.5"
(kex_str_gd_key 24)              ; => "24"
(kex_str_gd_key 100.0)           ; => "100"
(kex_str_gd_key -0.00001)        ; => "0"
(kex_str_gd_key 1.00004)         ; => "1"
(kex_str_gd_key 1.00006)         ; => "1.0001"
(kex_str_gd_key "a")             ; => "a"
(kex_str_gd_key '(1.0 2.0 3.0 4)) ; => (1.0 2.0 3.0 4)
(kex_str_gd_key "a" "b")         ; => "a"
(kex_str_gd_key)                 ; => nil
(kex_str_key_gd "12,5x3")        ; => 12.5
(kex_str_key_gd "-8")            ; => -8.0
(kex_str_key_gd "-0")            ; => 0.0
(kex_str_key_gd "x12")           ; => 0.0
(kex_str_key_gd "")              ; => 0.0
(kex_str_key_gd '("a" . 1))      ; => ("a" . 1)
(kex_str_key_gd 5)               ; => 5
(kex_str_key_gd)                 ; => nil
(equal (mapcar '(lambda (x) (kex_str_key_gd (kex_str_gd_key x))) '(0.5 12.0 -3.25 0.0001))
       '(0.5 12.0 -3.25 0.0001)) ; => T

; Rounding settings are kept in millimetres.
(kex_rndl 4)                     ; => 0.0001
(kex_rndf 4)                     ; => 0.001
(equal (kex_rndf) 0.0001 1e-12)  ; => T
(equal (kex_rndl "x") (kex_rndl)) ; => T
(equal (kex_rndf nil) (kex_rndf -1)) ; => T
(equal (* 25.4 (kex_rndf 1)) (kex_rndf 4) 1e-12) ; => T
