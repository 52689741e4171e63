" Definition files. The first character and the second word of a line say what it is. After a line that begins with
" anything but a letter, a period, a blank or a star, nothing is read.
if exists('b:current_syntax')
  finish
endif

syn case ignore
syn match wexcorindefName /^\.\?\a\w*/ nextgroup=wexcorindefType,wexcorindefKeyword,wexcorindefUnknown skipwhite
syn match wexcorindefUnknown /[^ \t,]\+/ contained
syn keyword wexcorindefKeyword contained synonym deprecated obsolete indicator lookup eolcomm nextgroup=wexcorindefWord skipwhite
syn keyword wexcorindefKeyword contained group nextgroup=wexcorindefField2 skipwhite
syn keyword wexcorindefType contained integer double nextgroup=wexcorindefModifier,wexcorindefField6 skipwhite
syn keyword wexcorindefType contained boolean string enumstr enumint nextgroup=wexcorindefModifier4,wexcorindefField4 skipwhite
syn keyword wexcorindefType contained multilist strlist immediate nextgroup=wexcorindefField3 skipwhite
syn keyword wexcorindefType contained macro nextgroup=wexcorindefField2 skipwhite

" A field for each number of fields that are still to come before the text.
for s:left in range(6, 1, -1)
  execute 'syn match wexcorindefField' . s:left . ' /"[^"]*"\|[^ \t,"]\+/ contained contains=@wexcorindefValue nextgroup='
    \ . (s:left > 1 ? 'wexcorindefField' . (s:left - 1) : 'wexcorindefText') . ' skipwhite'
endfor
syn match wexcorindefModifier /\.\w\+/ contained nextgroup=wexcorindefField6 skipwhite
syn match wexcorindefModifier4 /\.\w\+/ contained nextgroup=wexcorindefField4 skipwhite
syn match wexcorindefText /\S.*/ contained
syn match wexcorindefWord /\S\+/ contained
syn match wexcorindefNumber /[-+]\?\%(\d\+\.\?\d*\|\.\d\+\)\%([ed][-+]\?\d\+\)\?\ze\%([ \t]\|$\)/ contained
syn match wexcorindefConstant /\%(maxint\|minint\|maxdouble\|mindouble\|epsdouble\|eps\)\ze\%([ \t]\|$\)/ contained
syn match wexcorindefString /"[^"]*"/ contained
syn cluster wexcorindefValue contains=wexcorindefNumber,wexcorindefConstant,wexcorindefString

" What continues an option is help, a value with its help flag, or names.
syn match wexcorindefHelp /^ .*/ contains=wexcorindefItem
syn match wexcorindefItem /^ \+\%("[^"]*"\|[^ \t"]\+\)[ \t]\+\d\+\ze\%([ \t]\|$\)/ contained
syn region wexcorindefUnread start=/^[^*.A-Za-z \n]/ end=/\%$/
syn match wexcorindefComment /^\*.*/

hi def link wexcorindefName Identifier
hi def link wexcorindefUnknown Error
hi def link wexcorindefKeyword Statement
hi def link wexcorindefType Type
hi def link wexcorindefModifier StorageClass
hi def link wexcorindefModifier4 StorageClass
hi def link wexcorindefText String
hi def link wexcorindefHelp String
hi def link wexcorindefItem Constant
hi def link wexcorindefWord Identifier
hi def link wexcorindefNumber Number
hi def link wexcorindefConstant Constant
hi def link wexcorindefString String
hi def link wexcorindefUnread Comment
hi def link wexcorindefComment Comment

let b:current_syntax = 'wexcorindef'
