{ Looks options up through the maps of an include file that `wexcorin doc pascal` wrote, and by name in the
  library: both ways must give the same number.

    keys definition-file }
program keys;

{$mode objfpc}{$H-}

uses
  wexcorin;

{$I solver.inc}

var
  options: tvksoptions;
  looked: LongInt = 0;

{ key is written with the include file's "pf" in front of the option's name. }
procedure look(constref key: ShortString; mapped: LongInt);
var
  number, refnr: LongInt;
begin
  optFindStr(options, Copy(key, 3, Length(key)), number, refnr);
  Inc(looked);
  if number = mapped then Exit;
  WriteLn(key, ' is mapped to ', mapped, ', the library has the option as number ', number);
  Halt(1);
end;

var
  text: ShortString;
  integers: Tpfintegerkeys;
  reals: Tpfrealkeys;
  strings: Tpfstringkeys;
  macros: Tpfkeys;
begin
  xCreate(options);
  optReadDefinition(options, ParamStr(1));
  for integers in Tpfintegerkeys do
  begin
    WriteStr(text, integers);
    look(text, pfintegermap[integers]);
  end;
  for reals in Tpfrealkeys do
  begin
    WriteStr(text, reals);
    look(text, pfrealmap[reals]);
  end;
  for strings in Tpfstringkeys do
  begin
    WriteStr(text, strings);
    look(text, pfstringmap[strings]);
  end;
  for macros in Tpfkeys do
  begin
    WriteStr(text, macros);
    look(text, pfmap[macros]);
  end;

  { As a client uses it. }
  optSetIntNr(options, pfintegermap[pfthreads], 7);
  optGetValStr(options, 'threads', text);
  if text <> '7' then
  begin
    WriteLn('pfthreads sets another option than threads');
    Halt(1);
  end;
  xFree(options);
  WriteLn(looked, ' options, mapped to their numbers');
end.
