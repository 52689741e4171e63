# Turns the unit's own text into statements of unit.pas: signature('optCount', [3]); for each function, with the
# codes that its declaration means, and constant(2, 0, 'optTypeInteger'); for each constant that the library can
# name. The symbols that the unit links to go to the file `symbols`. What is not understood ends it with an error.
# Input: the unit's functions and constants without comments, one a line.

BEGIN {
  value["LongInt"] = 3
  value["PAnsiChar"] = 10
  value["Double"] = 13
  reference["LongInt"] = 4
  reference["ShortString"] = 12
  reference["Double"] = 14
  group["optData"] = 1
  group["optType"] = 2
  group["optsub"] = 3
  group["optMsg"] = 4
  # These take no handle, and the library does not list them.
  split("optGetLoadPath optSetLoadPath xAPIVersion xCheck xCreate xFree", names)
  for (i in names) unlisted[names[i]] = 1
}

function fail(text) {
  print "pascal/wexcorin.pas: " text ": " $0 >"/dev/stderr"
  failed = 1
  exit 1
}

# The codes of "var number, refnr: LongInt", each behind a comma.
function codes(parameter,    modifier, type, code, text, count) {
  modifier = ""
  if (parameter ~ /^(var|const|constref|out) /) {
    modifier = parameter
    sub(/ .*/, "", modifier)
  }
  type = parameter
  sub(/.*: */, "", type)
  if (modifier == "") code = value[type]
  else if (modifier == "var") code = reference[type]
  else if (modifier == "constref" && type == "ShortString") code = 11
  if (code == "") fail("no code for the parameter " parameter)
  for (count = gsub(/,/, ",", parameter) + 1; count > 0; --count) text = text ", " code
  return text
}

/^(function|procedure) .* external / {
  name = $2
  sub(/[(:;].*/, "", name)
  symbol = $0
  if (symbol !~ /; cdecl; external wexcorinlibrary name '[a-z0-9]*'$/) fail("no function of the library")
  gsub(/.* name '|'$/, "", symbol)
  if (symbol != tolower(name)) fail("not the symbol of that name")
  print symbol >symbols
  if (name in unlisted) next

  arguments = $0
  if (!match(arguments, /\([^)]*\)/)) fail("no arguments")
  result = substr(arguments, RSTART + RLENGTH)
  arguments = substr(arguments, RSTART + 1, RLENGTH - 2)
  line = $1 == "procedure" ? "0" : result ~ /^: LongInt;/ ? "3" : ""
  if (line == "") fail("no code for the result")
  count = split(arguments, list, /; */)
  if (list[1] != "handle: tvksoptions") fail("no handle in front")
  for (i = 2; i <= count; ++i) line = line codes(list[i])
  print "  signature('" name "', [" line "]);"
}

/^opt(Data|Type|sub|Msg)[A-Za-z0-9]+ = [0-9]+$/ {
  match($1, /^opt(Data|Type|sub|Msg)/)
  if ($1 != "optMsgUserError") print "  constant(" group[substr($1, 1, RLENGTH)] ", " $3 ", '" $1 "');"
}

END { if (failed) exit 1 }
