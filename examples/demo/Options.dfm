object OptionsForm: TQzCForm
  Left = 280
  Top = 180
  Width = 380
  Height = 280
  Color = clBtnFace
  Font.Charset = DEFAULT_CHARSET
  Font.Color = clWindowText
  Font.Height = -11
  Font.Name = 'MS Sans Serif'
  Font.Style = []
  Caption = 'Options'
  OldCreateOrder = False
  DataSources = <>
  PixelsPerInch = 96
  TextHeight = 13
  object GroupDisplay: TQzGroupBox
    Left = 8
    Top = 8
    Width = 356
    Height = 120
    TabOrder = 0
    Caption.PkgName = 'DEMO'
    Caption.Id = 11
    object RadioLarge: TQzRadioButton
      Left = 16
      Top = 24
      Width = 140
      Height = 17
      TabOrder = 0
      Caption.PkgName = 'DEMO'
      Caption.Id = 12
    end
    object RadioSmall: TQzRadioButton
      Left = 16
      Top = 48
      Width = 140
      Height = 17
      TabOrder = 1
      Caption.PkgName = 'DEMO'
      Caption.Id = 13
    end
    object ComboLanguage: TQzComboBox
      Left = 16
      Top = 80
      Width = 200
      Height = 21
      TabOrder = 2
      Items = <
        item
          Value = 'English'
        end
        item
          Value = 'French'
        end
        item
          Value = 'German'
        end
        item
          Value = 'Italian'
        end>
      Value = 'English'
    end
  end
  object CheckSplash: TQzCheckBox
    Left = 16
    Top = 140
    Width = 200
    Height = 17
    TabOrder = 1
    Caption.PkgName = 'DEMO'
    Caption.Id = 14
  end
  object ListRecent: TQzListBox
    Left = 16
    Top = 164
    Width = 180
    Height = 60
    TabOrder = 2
    Items = <
      item
        Value = 'customers-2025.dat'
      end
      item
        Value = 'customers-2026.dat'
      end
      item
        Value = 'suppliers.dat'
      end>
  end
  object ButtonOk: TQzBitBtn
    Left = 208
    Top = 216
    Width = 75
    Height = 25
    TabOrder = 3
    Caption.PkgName = 'DEMO'
    Caption.Id = 10
  end
  object ButtonCancel: TQzBitBtn
    Left = 289
    Top = 216
    Width = 75
    Height = 25
    TabOrder = 4
    Caption.PkgName = 'DEMO'
    Caption.Id = 5
  end
end
