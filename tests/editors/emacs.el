;;; emacs.el --- Emacs with Eglot shows what the language server says  -*- lexical-binding: t -*-

;;; Commentary:

;; Runs in a folder with a copy of the examples.  The environment variable WEXCORIN names the tool.

;;; Code:

(require 'package)
(push (expand-file-name "elpa") package-directory-list) ; where the files for Emacs are installed
(package-initialize)
(require 'cl-lib)
(require 'flymake)
(require 'eglot)

(defconst root default-directory)
(defconst file "examples/solver_mistakes.opt")
(setq backtrace-on-error-noninteractive nil
      wexcorin-program (getenv "WEXCORIN")
      make-backup-files nil
      eglot-sync-connect 10
      project-find-functions (list (lambda (_) (cons 'transient root))))

(defun await (what holds)
  "Let Emacs go on until the function HOLDS returns non-nil, which is WHAT is waited for."
  (let ((end (+ (float-time) 10)))
    (while (not (funcall holds))
      (when (> (float-time) end) (error "In vain waited for: %s" what))
      (accept-process-output nil 0.02))))

(defun expect (what seen wanted)
  "Fail when SEEN, which is WHAT was looked at, is not WANTED."
  (unless (equal seen wanted) (error "%s:\nseen:   %S\nwanted: %S" what seen wanted)))

(defun findings ()
  "The diagnostics of the buffer, as check prints them."
  (mapcar (lambda (each)
            (format "%d: %s: %s"
                    (line-number-at-pos (flymake-diagnostic-beg each))
                    (pcase (flymake-diagnostic-type each) ('eglot-error "error") ('eglot-warning "warning") (_ "note"))
                    (replace-regexp-in-string "\\`[^:\"]*: " "" ; Eglot puts the source there
                                              (car (split-string (flymake-diagnostic-text each) "\n")))))
          (sort (flymake-diagnostics) (lambda (a b) (< (flymake-diagnostic-beg a) (flymake-diagnostic-beg b))))))

(defun findings-of-check ()
  "Those that check prints of the file, without notes and the names of rules."
  (with-temp-buffer
    (insert-file-contents (expand-file-name "examples/solver_mistakes.expected" root))
    (let (found)
      (while (re-search-forward (concat "^" (regexp-quote file) ":\\([0-9]+: \\(?:error\\|warning\\): .*\\)$") nil t)
        (push (replace-regexp-in-string " \\[[a-z0-9-]+\\]\\'" "" (match-string 1)) found))
      (nreverse found))))

(defun complete (text)
  "What is offered behind TEXT on a line of its own."
  (goto-char (point-max))
  (insert text)
  (let* ((found (or (eglot-completion-at-point) (error "Nothing is offered behind %S" text)))
         (typed (buffer-substring-no-properties (nth 0 found) (point)))
         (all (mapcar #'substring-no-properties (all-completions typed (nth 2 found)))))
    (delete-region (line-beginning-position) (point-max))
    all))

(find-file (expand-file-name "examples/solver.def" root))
(expect "mode of a definition" major-mode 'wexcorin-definition-mode)
(find-file (expand-file-name file root))
(expect "mode of an option file" major-mode 'wexcorin-options-mode)
(font-lock-ensure)
(search-forward "\nthread")
(expect "colour of a name" (get-text-property (1- (point)) 'face) 'font-lock-variable-name-face)

(apply #'eglot--connect (eglot--guess-contact))
(await "findings" (lambda () (flymake-start) (flymake-diagnostics)))
;; Several findings at the same place are in no order.
(expect "findings of check" (sort (findings) #'string<) (sort (findings-of-check) #'string<))

(expect "completion of a name" (car (complete "time_l")) "time_limit")
(let ((values (complete "method ")))
  (expect "completion of a value" (cl-subsetp '("auto" "primal" "dual" "interior" "race") values :test #'equal) t))

(eglot-shutdown (eglot-current-server))
(message "done")
;;; emacs.el ends here
