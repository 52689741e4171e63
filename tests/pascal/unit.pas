{ Asks the library whether it has the options of an include file that `wexcorin doc pascal` wrote at the
  numbers there, and tries the unit's own functions. The calls of mapped are made by unit.py.

    unit definition-file }
program unittest;

{$mode objfpc}{$H-}

uses
  wexcorin;

{$I solver.inc}

var
  options: tvksoptions;
  text: ShortString;

procedure expect(holds: Boolean; constref message: ShortString);
begin
  if holds then Exit;
  WriteLn(message);
  ExitCode := 1;
end;

procedure mapped(constref name: ShortString; number: LongInt);
var
  found, refnr: LongInt;
begin
  optFindStr(options, name, found, refnr);
  expect(found = number, name + ' is mapped to another number than the library has it at');
end;

begin
  expect(optInterfaceFits(text), text);
  expect(optSignatureFits('optGetNameNr', [optCodeInteger, optCodeInteger, optCodeVarString], text), text);
  expect(not optSignatureFits('optCount', [optCodeInteger, optCodeInteger], text),
    'optSignatureFits takes any signature');
  xCreate(options);
  optReadDefinition(options, ParamStr(1));
{$I statements.inc}
  xFree(options);
  expect(options = nil, 'xFree leaves the handle');
end.
