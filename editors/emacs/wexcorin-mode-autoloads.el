;;; wexcorin-mode-autoloads.el --- What Emacs knows of wexcorin-mode before it is used  -*- lexical-binding: t -*-

;;; Code:

(add-to-list 'load-path (directory-file-name (file-name-directory load-file-name)))
(autoload 'wexcorin-options-mode "wexcorin-mode" "Major mode for the option file of a solver." t)
(autoload 'wexcorin-definition-mode "wexcorin-mode" "Major mode for the definition of a solver's options." t)
(autoload 'wexcorin-definition-p "wexcorin-mode" "Whether the buffer begins like a definition.")
(add-to-list 'auto-mode-alist '("\\.opt\\'" . wexcorin-options-mode))
(add-to-list 'magic-mode-alist
             (cons (lambda ()
                     (and buffer-file-name
                          (string-match-p "\\.def\\'" buffer-file-name)
                          (wexcorin-definition-p)))
                   'wexcorin-definition-mode))

;;; wexcorin-mode-autoloads.el ends here
