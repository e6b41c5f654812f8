#pragma once
// The dialogs a program shows: Qt's message boxes, file dialogs (pictures
// with a preview beside the list), print dialog and printer.

#include "vcl/QzDialogs.h"

class TQzQtDialogs final : public IQzDialogs {
public:
    TModalResult MessageBox(const TQzMessageRequest& request) override;
    std::vector<AnsiString> OpenFiles(const TQzFileRequest& request) override;
    AnsiString SaveFile(const TQzFileRequest& request) override;
    AnsiString SelectFolder(const AnsiString& title, const AnsiString& initialDir, QWidget* parent) override;
    std::vector<AnsiString> OpenPictures(const TQzFileRequest& request) override;
    AnsiString SavePicture(const TQzFileRequest& request) override;
    bool PrinterSetup(QPrinter& printer, QWidget* parent) override;
    std::unique_ptr<QPrinter> CreatePrinter() override;
    bool ChooseColor(QColor& color, QWidget* parent) override;
    bool ChooseFont(QFont& font, QWidget* parent) override;
};

// The filters of every picture format the program reads (or writes), in the
// suite's syntax: "All pictures (*.png;*.bmp;...)|*.png;*.bmp;...|PNG
// (*.png)|*.png|...".
AnsiString QzPictureFilter(bool forWriting);
