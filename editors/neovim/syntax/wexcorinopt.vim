" Option files. The definition says which characters begin a comment at the end of a line. `!` and `#` are usual;
" set g:wexcorin_comment_characters to others. Of two rules that match at the same place, the later one counts.
if exists('b:current_syntax')
  finish
endif

syn case ignore
syn match wexcorinoptMistake /^\s*[^* \t].*/ contains=wexcorinoptTail
syn match wexcorinoptText /[^ \t",:]\+/ contained nextgroup=@wexcorinoptValue skipwhite
syn match wexcorinoptSeparator /[,:]/ contained nextgroup=@wexcorinoptValue skipwhite
syn match wexcorinoptKey /^\s*,\?\s*[-\/]\?\a\w*\ze\%([ \t=]\|$\)/ skipwhite
  \ nextgroup=wexcorinoptAssign,@wexcorinoptValue,wexcorinoptSwitch
syn match wexcorinoptList /^\s*\%(--\|\/\/\)\a\w*/ nextgroup=wexcorinoptListText
syn match wexcorinoptListText /.*/ contained
syn match wexcorinoptSymbol /^\s*\a\w*\ze\./ nextgroup=wexcorinoptDot
syn match wexcorinoptDot /\.\a\w*/ contained nextgroup=wexcorinoptElements,wexcorinoptAssign,@wexcorinoptValue skipwhite
syn region wexcorinoptElements start=/[([{]/ end=/[)\]}]/ oneline contained contains=wexcorinoptElement,wexcorinoptAll
  \ nextgroup=wexcorinoptAssign,@wexcorinoptValue,wexcorinoptCondition,wexcorinoptSwitch skipwhite
syn match wexcorinoptElement /"[^"]*"\|'[^']*'/ contained
syn match wexcorinoptAll /\*/ contained
syn match wexcorinoptIndicator /^\s*\a\w*\ze\s\+[^"=!#]*\$/ nextgroup=wexcorinoptEquation skipwhite
syn match wexcorinoptEquation /\a\w*/ contained
  \ nextgroup=wexcorinoptElements,wexcorinoptCondition,wexcorinoptAssign,@wexcorinoptValue,wexcorinoptSwitch skipwhite
syn match wexcorinoptCondition /\$/ contained nextgroup=wexcorinoptEquation skipwhite
syn match wexcorinoptAssign /:\?=/ contained nextgroup=@wexcorinoptValue,wexcorinoptSwitch skipwhite
syn match wexcorinoptSwitch /\c\%(yes\|no\|on\|off\|true\|false\|y\|n\|t\|f\)\ze\%([ \t,]\|$\)/ contained
  \ nextgroup=@wexcorinoptValue skipwhite
syn match wexcorinoptString /"[^"]*"/ contained nextgroup=@wexcorinoptValue skipwhite
syn match wexcorinoptNumber /[-+]\?\%(\d\+\.\?\d*\|\.\d\+\)\%([ed][-+]\?\d\+\)\?\ze\%([ \t,:]\|$\)/ contained
  \ nextgroup=@wexcorinoptValue skipwhite
syn match wexcorinoptConstant /\%(maxint\|minint\|maxdouble\|mindouble\|epsdouble\|eps\)\ze\%([ \t,:]\|$\)/ contained
  \ nextgroup=@wexcorinoptValue skipwhite
syn match wexcorinoptStar /\*/ contained nextgroup=@wexcorinoptValue skipwhite
syn cluster wexcorinoptValue contains=wexcorinoptText,wexcorinoptSeparator,wexcorinoptString,wexcorinoptNumber,
  \ wexcorinoptConstant,wexcorinoptStar,wexcorinoptTail

execute 'syn match wexcorinoptTail /\%(^\|\s\)\@1<=['
  \ . escape(get(g:, 'wexcorin_comment_characters', '!#'), ']\^-/') . '].*/'
syn match wexcorinoptComment /^\*.*/

hi def link wexcorinoptMistake Error
hi def link wexcorinoptKey Identifier
hi def link wexcorinoptList Identifier
hi def link wexcorinoptListText String
hi def link wexcorinoptSymbol Type
hi def link wexcorinoptDot Identifier
hi def link wexcorinoptElement String
hi def link wexcorinoptAll Special
hi def link wexcorinoptIndicator Statement
hi def link wexcorinoptEquation Type
hi def link wexcorinoptCondition Operator
hi def link wexcorinoptAssign Operator
hi def link wexcorinoptSwitch Boolean
hi def link wexcorinoptText String
hi def link wexcorinoptString String
hi def link wexcorinoptNumber Number
hi def link wexcorinoptConstant Constant
hi def link wexcorinoptSeparator Delimiter
hi def link wexcorinoptStar Special
hi def link wexcorinoptTail Comment
hi def link wexcorinoptComment Comment

let b:current_syntax = 'wexcorinopt'
