{ Checks that the options in an include file from `wexcorin doc pascal` have the same numbers in the
  library, and tests the unit's own functions. unit.py writes the calls of mapped.

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
  expect(found = number, name + ' has another number in the library');
end;

begin
  expect(optInterfaceFits(text), text);
  expect(optSignatureFits('optGetNameNr', [optCodeInteger, optCodeInteger, optCodeVarString], text), text);
  expect(not optSignatureFits('optCount', [optCodeInteger, optCodeInteger], text),
    'optSignatureFits accepts a wrong signature');
  xCreate(options);
  optReadDefinition(options, ParamStr(1));
{$I statements.inc}
  xFree(options);
  expect(options = nil, 'xFree does not set the handle to nil');
end.
