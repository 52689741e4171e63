{ Asks the library whether the unit's declarations are its own, and whether it has the options of an include
  file that `wexcorin doc pascal` wrote at the numbers there. The calls of signature, constant and mapped are
  made by unit.py; what the library cannot be asked for is tried.

    unit definition-file }
program unittest;

{$mode objfpc}{$H-}

uses
  wexcorin;

{$I solver.inc}

var
  options: tvksoptions;
  constants: array[1..4] of LongInt = (0, 0, 0, 0);
  failures: LongInt = 0;

procedure expect(holds: Boolean; constref message: ShortString);
begin
  if holds then Exit;
  WriteLn(message);
  Inc(failures);
end;

procedure signature(constref name: ShortString; const codes: array of LongInt);
var
  message: ShortString;
begin
  expect(optSignatureFits(name, codes, message), message);
end;

procedure constant(group, value: LongInt; constref name: ShortString);
var
  text: ShortString;
begin
  optGetConstName(options, group, value, text);
  expect(text = name, name + ': its value is that of ' + text);
  Inc(constants[group]);
end;

procedure mapped(constref name: ShortString; number: LongInt);
var
  found, refnr: LongInt;
begin
  optFindStr(options, name, found, refnr);
  expect(found = number, name + ' is mapped to another number than the library has it at');
end;

var
  group, compat: LongInt;
  text: ShortString;
begin
  expect(optInterfaceFits(text), text);
  text := '';
  expect((xAPIVersion(0, text, compat) = 0) and (compat = 0) and (text <> ''),
    'xAPIVersion takes any version');
  expect(not optSignatureFits('optCount', [optCodeInteger, optCodeInteger], text) and (text <> ''),
    'optSignatureFits takes any signature');

  expect((xCreate(options) = options) and (options <> nil), 'xCreate gives no handle');
  optReadDefinition(options, ParamStr(1));
{$I statements.inc}
  for group := 1 to 4 do
  begin
    optGetConstName(options, group, constants[group], text);
    expect(text = '', 'not declared as a constant: ' + text);
  end;
  xFree(options);
  expect(options = nil, 'xFree leaves the handle');

  optSetLoadPath('a path');
  optGetLoadPath(text);
  expect(text = 'a path', 'the load path is ' + text);

  if failures <> 0 then Halt(1);
end.
