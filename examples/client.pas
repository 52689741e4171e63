{ client.pas: the same client in Free Pascal. It prints what client.c prints.

    fpc -Fupascal -FEbuild -Flbuild/release/lib -k-rpath -k$PWD/build/release/lib examples/client.pas
    build/client examples/solver.def examples/solver.opt }
program client;

{$mode objfpc}{$H-}

uses
  SysUtils, wexcorin;

procedure PrintOption(options: tvksoptions; number: LongInt);
var
  name, value, second: ShortString;
  defined, recent, refnr, datatype, opttype, subtype, index: LongInt;
begin
  optGetInfoNr(options, number, defined, recent, refnr, datatype, opttype, subtype);
  optGetHelpNr(options, number, name, value);     { the name as the definition file has it }
  if (defined = 0) or (name[1] = '.') then Exit;  { not set, or printed with the dot entries }
  if datatype = optDataStrList then
  begin
    index := 1;
    while optReadFromListStr(options, name, index, value) = 1 do
    begin
      WriteLn(name, ' [', index, '] = ', value);
      Inc(index);
    end;
  end
  else
  begin
    optGetStrNr(options, number, value);
    Write(name, ' = ', value);
    if optGetStr2Nr(options, number, second) = 1 then Write(', ', second);
    WriteLn;
  end;
end;

procedure PrintDotEntry(options: tvksoptions; number: LongInt);
var
  symbol, suffix, element: ShortString;
  option, dimensions, index: LongInt;
  value: Double;
begin
  optGetDotOptNr(options, number, symbol, option, dimensions, value);
  optGetNameNr(options, option, suffix);
  Write(symbol, suffix);
  for index := 1 to dimensions do
  begin
    optGetDotOptUel(options, number, index, element);
    Write(' [', element, ']');
  end;
  WriteLn(' = ', FloatToStr(value));
end;

procedure PrintIndicator(options: tvksoptions; number: LongInt);
var
  equation, variable: ShortString;
  equationdims, variabledims, value: LongInt;
begin
  optGetIndicatorNr(options, number, equation, variable, equationdims, variabledims, value);
  WriteLn(equation, ' (', equationdims, ') holds when ', variable, ' (', variabledims, ') is ', value);
end;

var
  options: tvksoptions;
  text: ShortString;
  number, kind, rejected, errors, warnings: LongInt;
begin
  if not optInterfaceFits(text) then
  begin
    WriteLn(StdErr, text);
    Halt(2);
  end;
  if (ParamCount = 0) or (xCreate(options) = nil) then
  begin
    WriteLn(StdErr, 'usage: client definition-file [option-file ...]');
    Halt(2);
  end;
  if optReadDefinition(options, ParamStr(1)) = 0 then
    for number := 2 to ParamCount do optReadParameterFile(options, ParamStr(number));

  for number := 1 to optCount(options) do PrintOption(options, number);
  for number := 1 to optDotOptCount(options, rejected) do PrintDotEntry(options, number);
  for number := 1 to optIndicatorCount(options, rejected) do PrintIndicator(options, number);
  for number := 1 to optMessageCount(options) do
  begin
    optGetMessage(options, number, text, kind);
    WriteLn(text);
  end;
  optErrorCount(options, errors, warnings);
  WriteLn(errors, ' errors, ', warnings, ' warnings');
  xFree(options);
  if (errors <> 0) or (warnings <> 0) then Halt(1);
end.
