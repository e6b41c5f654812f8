object MainForm: TQzCForm
  Left = 250
  Top = 140
  Width = 520
  Height = 419
  Color = clBtnFace
  Font.Charset = DEFAULT_CHARSET
  Font.Color = clWindowText
  Font.Height = -11
  Font.Name = 'MS Sans Serif'
  Font.Style = []
  Caption = 'QzControls demo'
  Menu = MainMenu1
  OldCreateOrder = False
  DataSources = <>
  PixelsPerInch = 96
  TextHeight = 13
  object QzCApplication1: TQzCApplication
    Left = 40
    Top = 318
  end
  object PkgStrings: TQzPkgStrings
    Left = 140
    Top = 318
    PkgName = 'DEMO'
    Data = {
      02010104FFFFFF7F0200020002000200000102011408000000437573746F6D65
      72140000000008020214040000004E616D651400000000080203140400000043
      6974791400000000080204140400000053617665141200000053617665732074
      686520637573746F6D6572080205140600000043616E63656C1415000000436C
      6F73657320776974686F757420736176696E6708020614050000004E6F746573
      1400000000080207140F00000041637469766520637573746F6D657214200000
      004F6E6C792061637469766520637573746F6D657273206172652062696C6C65
      64080208140D000000437573746F6D65722066696C6514000000000802091410
      00000044656D6F206170706C69636174696F6E140000000008020A1402000000
      4F4B140000000008020B1407000000446973706C6179140000000008020C140B
      0000004C617267652069636F6E73140000000008020D140B000000536D616C6C
      2069636F6E73140000000008020E141600000053686F77207468652073706C61
      73682073637265656E14000000000800010201142A000000546865206E616D65
      206D617920686F6C64206C65747465727320616E6420626C616E6B73206F6E6C
      792E080202142A0000005468652063697479206D617920686F6C64206C657474
      65727320616E6420626C616E6B73206F6E6C792E080203141500000044656C65
      7465207468697320637573746F6D65723F080001020114330000004E6F746573
      2061626F75742074686520637573746F6D65722E0D0A5772697465206F6E6520
      72656D61726B2061206C696E652E0802021438000000517A436F6E74726F6C73
      2064656D6F0D0A4120736D616C6C2070726F6A65637420746F20747279207468
      652064657369676E6572206F6E2E0800}
  end
  object PkgImages: TQzPkgImages
    Left = 240
    Top = 318
    PkgName = 'DEMO'
  end
  object MainMenu1: TQzMainMenu
    Left = 440
    Top = 4
    object MenuFile: TQzMenuItem
      Caption = '&File'
      object MenuSave: TQzMenuItem
        Caption = '&Save'
        ShortCut = 16467
      end
      object MenuLine1: TQzMenuItem
        Caption = '-'
      end
      object MenuExit: TQzMenuItem
        Caption = 'E&xit'
      end
    end
    object MenuHelp: TQzMenuItem
      Caption = '&Help'
      object MenuAbout: TQzMenuItem
        Caption = '&About...'
      end
    end
  end
  object PanelTop: TQzPanel
    Left = 0
    Top = 0
    Width = 512
    Height = 41
    Align = alTop
    TabOrder = 0
    object LabelTitle: TQzLabel
      Left = 12
      Top = 12
      Width = 160
      Height = 16
      Caption.PkgName = 'DEMO'
      Caption.Id = 8
    end
  end
  object Pages: TQzPageControl
    Left = 8
    Top = 48
    Width = 488
    Height = 260
    TabOrder = 1
    ActivePage = SheetCustomer
    Pages = <
      item
        Caption.PkgName = 'DEMO'
        Caption.Id = 1
        TabSheet = SheetCustomer
      end
      item
        Caption.PkgName = 'DEMO'
        Caption.Id = 6
        TabSheet = SheetNotes
      end>
    object SheetCustomer: TQzTabSheet
      Left = 0
      Top = 0
      Width = 0
      Height = 0
      Align = alClient
      TabOrder = 0
      object LabelName: TQzLabel
        Left = 16
        Top = 20
        Width = 60
        Height = 13
        Caption.PkgName = 'DEMO'
        Caption.Id = 2
      end
      object EditName: TQzEdit
        Left = 96
        Top = 16
        Width = 240
        Height = 21
        TabOrder = 0
        ErrorMessage.PkgName = 'DEMO'
        ErrorMessage.Id = 1
        Value = 'Ada Lovelace'
      end
      object LabelCity: TQzLabel
        Left = 16
        Top = 52
        Width = 60
        Height = 13
        Caption.PkgName = 'DEMO'
        Caption.Id = 3
      end
      object EditCity: TQzEdit
        Left = 96
        Top = 48
        Width = 240
        Height = 21
        TabOrder = 1
        ErrorMessage.PkgName = 'DEMO'
        ErrorMessage.Id = 2
        Value = 'London'
      end
      object CheckActive: TQzCheckBox
        Left = 96
        Top = 84
        Width = 160
        Height = 17
        TabOrder = 2
        Caption.PkgName = 'DEMO'
        Caption.Id = 7
      end
    end
    object SheetNotes: TQzTabSheet
      Left = 0
      Top = 0
      Width = 0
      Height = 0
      Align = alClient
      TabOrder = 1
      object MemoNotes: TQzMemo
        Left = 8
        Top = 8
        Width = 464
        Height = 210
        TabOrder = 0
        Text.PkgName = 'DEMO'
        Text.Id = 1
      end
    end
  end
  object ButtonSave: TQzBitBtn
    Left = 336
    Top = 324
    Width = 75
    Height = 25
    TabOrder = 2
    Caption.PkgName = 'DEMO'
    Caption.Id = 4
  end
  object ButtonCancel: TQzBitBtn
    Left = 421
    Top = 324
    Width = 75
    Height = 25
    TabOrder = 3
    Caption.PkgName = 'DEMO'
    Caption.Id = 5
  end
end
