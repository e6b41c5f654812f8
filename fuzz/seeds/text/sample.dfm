object Form1: TForm1
  Left = 8
  Caption = 'It'#39's' +
    'more'
  Font.Style = [fsBold]
  Data = {0102}
  Items.Strings = (
    'a'
    #1046)
  Columns = <
    item
      Width = 1.5
    end>
  inline Frame1: TFrame1 [0]
    Value = 10000c
  end
end
