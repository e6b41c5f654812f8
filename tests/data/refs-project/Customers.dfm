object CustomersForm: TQzCForm
  Left = 240
  Top = 160
  Width = 400
  Height = 300
  Caption = 'Customer'
  Label.PkgName = 'APP'
  Label.Id = 1
  SetColor.Name = 'Calm'
  object LabelCity: TQzLabel
    Left = 16
    Top = 16
    Width = 60
    Height = 13
    Caption.PkgName = 'APP'
    Caption.Id = 3
    SetColor.Name = 'Warning'
  end
  object EditCity: TQzEdit
    Left = 96
    Top = 12
    Width = 200
    Height = 21
    TabOrder = 0
    ErrorMessage.PkgName = 'APP'
    ErrorMessage.Id = 2
    HintLabel.PkgName = 'APP'
    HintLabel.Id = 99
    Privilege.Id = 3
  end
  object PanelStatus: TQzPanel
    Left = 0
    Top = 200
    Width = 392
    Height = 40
    TabOrder = 1
    Caption.PkgName = 'EXTRA'
    Caption.Id = 1
    SetBackGround.Name = 'Marble'
    SetFont.Name = 'Small'
  end
  object MemoTerms: TQzMemo
    Left = 16
    Top = 48
    Width = 360
    Height = 140
    TabOrder = 2
    Text.PkgName = 'APP'
    Text.Id = 2
  end
end
