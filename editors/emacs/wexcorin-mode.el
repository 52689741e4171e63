;;; wexcorin-mode.el --- Option files of solvers and their definitions  -*- lexical-binding: t -*-

;; Author: the wexcorin maintainers
;; Version: 2.0.0
;; Package-Requires: ((emacs "26.1"))
;; Keywords: languages

;;; Commentary:

;; A major mode for each of the two kinds of files: option files, *.opt, and
;; definitions, *.def.  Eglot starts the language server `wexcorin lsp' for them:
;;
;;   (load "FOLDER/wexcorin-mode-autoloads") ; not for an installed package
;;   (add-hook 'wexcorin-options-mode-hook #'eglot-ensure)
;;   (add-hook 'wexcorin-definition-mode-hook #'eglot-ensure)

;;; Code:

(defgroup wexcorin nil
  "Option files of solvers and their definitions."
  :group 'languages)

(defcustom wexcorin-program "wexcorin"
  "The tool, which is the language server, too."
  :type 'string)

(defcustom wexcorin-definition ""
  "The definition of option files for which none is found.
A relative path counts from the root of the project."
  :type 'string)

(defcustom wexcorin-allow nil
  "Rules whose warnings are left out, for example \"set-again\"."
  :type '(repeat string))

(defcustom wexcorin-limit 1000
  "How many findings of each kind are listed."
  :type 'integer)

(defcustom wexcorin-inlay-hints nil
  "Whether the server offers the default of an option beside each value."
  :type 'boolean)

(defcustom wexcorin-comment-characters "!#"
  "Characters that begin a comment at the end of a line of an option file.
The definition declares them.  They are for the colours only."
  :type 'string)

;;; Option files

(defconst wexcorin--number "[-+]?\\(?:[0-9]+\\.?[0-9]*\\|\\.[0-9]+\\)\\(?:[eEdD][-+]?[0-9]+\\)?")
(defconst wexcorin--constants '("maxint" "minint" "maxdouble" "mindouble" "epsdouble" "eps"))

(defun wexcorin--find-tail (limit)
  "Find the next comment at the end of a line before LIMIT.
A comment character in a text in double quotes begins none."
  (let ((pattern (concat "\\(?:^\\|[ \t]\\)\\([" wexcorin-comment-characters "].*\\)"))
        (found nil))
    (while (and (not found) (re-search-forward pattern limit t))
      (let ((start (match-beginning 1)))
        (if (save-match-data (wexcorin--outside-text-p start))
            (setq found t)
          (goto-char (1+ start)))))
    found))

(defun wexcorin--outside-text-p (position)
  "Whether a comment may begin at POSITION.
It does not within double quotes, in the text of a list with two dashes, and in
a comment."
  (save-excursion
    (goto-char position)
    (let ((line (buffer-substring-no-properties (line-beginning-position) position)))
      (and (not (string-match-p "\\`\\(?:\\*\\|[ \t]*\\(?:--\\|//\\)\\)" line))
           (zerop (mod (length (replace-regexp-in-string "[^\"]" "" line)) 2))))))

(defconst wexcorin-options-keywords
  `(("^\\*.*" . font-lock-comment-face)
    (wexcorin--find-tail 1 font-lock-comment-face t)
    ("^[ \t]*\\(?:--\\|//\\)\\([A-Za-z][A-Za-z0-9_]*\\)\\(.*\\)"
     (1 font-lock-variable-name-face) (2 font-lock-string-face))
    ("^[ \t]*\\([A-Za-z][A-Za-z0-9_]*\\)[ \t]+[^\"=!#\n]*\\$" 1 font-lock-keyword-face)
    ("^[ \t]*\\([A-Za-z][A-Za-z0-9_]*\\)\\(\\.[A-Za-z][A-Za-z0-9_]*\\)"
     (1 font-lock-type-face) (2 font-lock-variable-name-face))
    ("^[ \t]*,?[ \t]*[-/]?\\([A-Za-z][A-Za-z0-9_]*\\)\\(?:[ \t=]\\|$\\)" 1 font-lock-variable-name-face)
    ("\"[^\"\n]*\"\\|'[^'\n]*'" . font-lock-string-face)
    (,(concat "[ \t=:,]\\(" wexcorin--number "\\)\\_>") 1 font-lock-constant-face)
    (,(regexp-opt (append wexcorin--constants '("yes" "no" "on" "off" "true" "false")) 'symbols)
     . font-lock-constant-face))
  "Colours of option files.")

(defvar wexcorin-mode-syntax-table
  (let ((table (make-syntax-table)))
    (modify-syntax-entry ?_ "_" table)
    (modify-syntax-entry ?\" "." table) ; the rules for colours know where a text may stand
    (modify-syntax-entry ?' "." table)
    (modify-syntax-entry ?\\ "." table)
    table)
  "Syntax of both kinds of files.")

(defun wexcorin--mode (keywords)
  "Set what the two modes have in common, with colours by KEYWORDS."
  (setq-local comment-start "*")
  (setq-local comment-start-skip "^\\*[ \t]*")
  (setq-local comment-end "")
  (setq-local comment-column 0)
  (setq-local font-lock-defaults (list keywords t t))
  (setq-local indent-line-function #'indent-relative))

(define-derived-mode wexcorin-options-mode prog-mode "Options"
  "Major mode for the option file of a solver."
  :syntax-table wexcorin-mode-syntax-table
  (wexcorin--mode 'wexcorin-options-keywords))

;;; Definitions

(defconst wexcorin--types
  '("integer" "double" "boolean" "string" "enumstr" "enumint" "multilist" "strlist" "macro" "immediate"))
(defconst wexcorin--other-keywords
  '("synonym" "group" "deprecated" "obsolete" "indicator" "lookup" "eolcomm"))

(defconst wexcorin--line
  (concat "^\\(\\.?[A-Za-z][A-Za-z0-9_]*\\)[ \t]+\\(?:"
          "\\(" (regexp-opt wexcorin--types) "\\)\\(\\.[A-Za-z0-9_]+\\)?\\|\\("
          (regexp-opt wexcorin--other-keywords) "\\)\\)\\(?:[ \t]\\|$\\)")
  "A definition line, up to its keyword.")

(defconst wexcorin--field "\\(\"[^\"\n]*\"\\|[^ \t\n,\"]+\\)")

(defun wexcorin--text (keywords fields)
  "Colour the text at the end of a line of KEYWORDS, after so many FIELDS."
  (let ((field "[ \t]+\\(?:\"[^\"\n]*\"\\|[^ \t\n,\"]+\\)"))
    (list (format "^[^ \t*]+[ \t]+\\(?:%s\\)\\(?:\\.[a-z]+\\)?\\(?:%s\\)\\{%d\\}[ \t]+\\(.+\\)"
                  (regexp-opt keywords) field fields)
          1 font-lock-doc-face)))

(defconst wexcorin-definition-keywords
  `(("^\\*.*" . font-lock-comment-face)
    (,wexcorin--line (1 font-lock-variable-name-face) (2 font-lock-type-face nil t)
                     (3 font-lock-builtin-face nil t) (4 font-lock-keyword-face nil t))
    ("^\\(\\.?[A-Za-z][A-Za-z0-9_]*\\)[ \t]+\\([^ \t\n]+\\)"
     (1 font-lock-variable-name-face) (2 font-lock-warning-face))
    (,(concat "^ +" wexcorin--field "[ \t]+[0-9]+\\(?:[ \t]\\|$\\)") 1 font-lock-constant-face)
    ("^ .*" 0 font-lock-doc-face keep)
    ,(wexcorin--text '("integer" "double") 6)
    ,(wexcorin--text '("boolean" "string" "enumstr" "enumint") 4)
    ,(wexcorin--text '("multilist" "strlist" "immediate") 3)
    ,(wexcorin--text '("macro" "group") 2)
    ("\"[^\"\n]*\"" . font-lock-string-face)
    (,(concat "[ \t]\\(" wexcorin--number "\\)\\_>") 1 font-lock-constant-face)
    (,(regexp-opt wexcorin--constants 'symbols) . font-lock-constant-face))
  "Colours of definitions.")

(define-derived-mode wexcorin-definition-mode prog-mode "Definition"
  "Major mode for the definition of a solver's options."
  :syntax-table wexcorin-mode-syntax-table
  (wexcorin--mode 'wexcorin-definition-keywords))

(defun wexcorin-definition-p ()
  "Whether the buffer begins like a definition.
Other programs have files *.def, too.  An empty file is a new definition."
  (save-excursion
    (goto-char (point-min))
    (let ((case-fold-search t))
      (while (looking-at "\\(?:\\*.*\\)?\n")
        (forward-line))
      (or (eobp) (looking-at-p wexcorin--line)))))

;;; The language server

(defun wexcorin--settings ()
  "The settings of the server, as it wants them."
  (list :definition wexcorin-definition
        :allow (vconcat wexcorin-allow)
        :limit wexcorin-limit
        :inlayHints (if wexcorin-inlay-hints t :json-false)))

(defun wexcorin--server (&rest _)
  "The command that starts the server, with its settings."
  (list wexcorin-program "lsp" :initializationOptions (wexcorin--settings)))

(defvar eglot-server-programs)
(with-eval-after-load 'eglot
  (add-to-list 'eglot-server-programs '((wexcorin-options-mode wexcorin-definition-mode) . wexcorin--server)))

(provide 'wexcorin-mode)
;;; wexcorin-mode.el ends here
