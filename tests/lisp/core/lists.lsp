; Lists: parts, search, copies with a change, sorting.

; car and cdr of nil are nil, of anything else an error
(list (car nil) (cdr nil) (car '(1 . 2)) (cdr '(1 . 2)) (cadr '(1)) (caddr '(1 2 3))) ; => (nil nil 1 2 nil 3)
(setq tree '((((1) 2) (3 4)) ((5 6) 7) (8) 9 10))
(list (caaar tree) (cdaar tree) (cadar tree) (caadr tree) (cddddr tree) (cadddr tree) (cdadr tree) (caaaar tree)) ; => ((1) (2) (3 4) (5 6) (10) 9 (7) 1)
(car 5)                             ; ! bad argument type: consp 5
(cadr '(1 . 2))                     ; ! bad argument type: consp 2
(cdr t)                             ; ! bad argument type: consp T

(list (list) (list 1 "a" nil) (cons 1 nil) (cons 1 2) (vl-list* 1 2 3) (vl-list* 1 '(2)) (vl-list* 7)) ; => (nil (1 "a" nil) (1) (1 . 2) (1 2 . 3) (1 2) 7)
(list (length nil) (length '(1 2)) (vl-list-length '(1 2)) (vl-list-length '(1 . 2)) (vl-list-length nil)) ; => (0 2 2 nil 0)
(length '(1 . 2))                   ; ! bad argument type: listp (1 . 2)
(length 5)                          ; ! bad argument type: listp 5
(list (last '(1 2 3)) (last nil) (last '((1 2)))) ; => (3 nil (1 2))
(list (nth 0 '(a b)) (nth 1 '(a b)) (nth 10 '(a b)) (nth -1 '(a b)) (nth 0 nil)) ; => (A B nil nil nil)
(nth 1.0 '(a b))                    ; ! bad argument type: fixnump: 1.0
(nth 0 5)                           ; ! bad argument type: listp 5
(list (reverse '(1 2 3)) (reverse nil) (append '(1) '(2 3) nil '(4)) (append) (append nil)) ; => ((3 2 1) nil (1 2 3 4) nil nil)
(append '(1) 2)                     ; ! bad argument type: listp 2
(append 1 '(2))                     ; ! bad argument type: listp 1

; assoc, member, vl-position, subst and vl-remove compare by equal
(setq pairs '((0 . "LINE") ("k" 1) ((1 2) . x) (10 1.0 2.0) (10 9.0)))
(list (assoc 0 pairs) (assoc "k" pairs) (assoc '(1 2) pairs) (assoc 10.0 pairs) (assoc 5 pairs) (assoc 1 nil)) ; => ((0 . "LINE") ("k" 1) ((1 2) . X) (10 1.0 2.0) nil nil)
(assoc 1 '(nil (1 . 2)))            ; => (1 . 2)
(assoc 1 '(5 (1 . 2)))              ; ! bad association list: (5 (1 . 2))
(list (member '(2) '(1 (2) 3)) (member "b" '("a" "b")) (member 9 '(1)) (vl-position "b" '("a" "b")) (vl-position 9 '(1))) ; => (((2) 3) ("b") nil 1 nil)
(list (subst 'x '(1) '((1) 2 (1))) (vl-remove "a" '("a" "b" "a")) (vl-remove 1 '(1 1.0 2))) ; => ((X 2 X) ("b") (2))

; sorting: equal integers and symbols stay once, everything else stays; indices drop nothing, and
; of equal elements the later comes first
(list (vl-sort '(3 2 1 3) '<) (vl-sort-i '(3 2 1 3) '<)) ; => ((1 2 3) (2 1 3 0))
(list (vl-sort '(2.0 1.0 2.0) '<) (vl-sort '("b" "a" "b") '<) (vl-sort '(3 1 2) '>)) ; => ((1.0 2.0 2.0) ("a" "b" "b") (3 2 1))
(list (vl-sort '(b a b) '(lambda (x y) (< (vl-symbol-name x) (vl-symbol-name y)))) (vl-sort nil '<)) ; => ((A B) nil)
; stable: among equal keys the order stays, over more than one run of the merge
(vl-sort '((2 a) (1 b) (2 c) (1 d) (2 e) (1 f) (0 g) (2 h) (1 i) (0 j) (2 k) (1 l) (2 m)) (function (lambda (x y) (< (car x) (car y))))) ; => ((0 G) (0 J) (1 B) (1 D) (1 F) (1 I) (1 L) (2 A) (2 C) (2 E) (2 H) (2 K) (2 M))
; a predicate that contradicts itself gives some order of the same elements
(defun any (x y) t)
(length (vl-sort '((1) (2) (3) (4) (5) (6) (7) (8) (9)) 'any)) ; => 9
(vl-sort '(1 "a") '<)               ; ! bad argument type for compare: "a" 1
(list (acad_strlsort '("b" "a" "B")) (acad_strlsort nil)) ; => (("B" "a" "b") nil)
(acad_strlsort '("b" 1))            ; ! bad argument type: stringp 1

(list (listp nil) (listp '(1)) (listp 1) (atom nil) (atom '(1)) (vl-consp nil) (vl-consp '(1 . 2))) ; => (T T nil T nil nil T)
