;; -*- no-byte-compile: t; -*-
(define-package "wexcorin-mode" "2.0.0" "Option files of solvers and their definitions" '((emacs "26.1")))
