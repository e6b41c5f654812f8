{ The other side of convert_vs_fpc.sh: one form file converted by the Free
  Pascal class library's own ObjectTextToBinary or ObjectBinaryToText, one
  process per file, as a script would run it. }
program fpc_convert;

{$mode objfpc}{$H+}

uses
  Classes, SysUtils;

var
  Input, Output: TMemoryStream;
begin
  if (ParamCount <> 3) or ((ParamStr(1) <> 'binary') and (ParamStr(1) <> 'text')) then
  begin
    WriteLn(StdErr, 'Usage: fpc_convert binary|text IN OUT');
    Halt(1);
  end;
  Input := TMemoryStream.Create;
  Output := TMemoryStream.Create;
  try
    Input.LoadFromFile(ParamStr(2));
    if ParamStr(1) = 'binary' then
      ObjectTextToBinary(Input, Output)
    else
      ObjectBinaryToText(Input, Output);
    Output.SaveToFile(ParamStr(3));
  finally
    Output.Free;
    Input.Free;
  end;
end.
