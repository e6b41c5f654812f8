#include "ModelTestSupport.h"

#include <filesystem>
#include <random>

namespace QzModelTest {

TTempDir::TTempDir()
{
    std::random_device rd;
    const auto base = std::filesystem::temp_directory_path();
    for (;;) {
        auto candidate = base / ("qzmodel-" + std::to_string(rd()));
        if (std::filesystem::create_directory(candidate)) {
            FPath = candidate.string();
            return;
        }
    }
}

TTempDir::~TTempDir()
{
    std::error_code ec;
    std::filesystem::remove_all(FPath, ec);
}

TInstalledFormat::TInstalledFormat(bool install) : Format(install ? std::make_shared<TTestFileFormat>() : nullptr)
{
    for (TMetaClass* cls : {TQzPkgInfo::ClassInfo(), TQzPkgStrings::ClassInfo(), TQzPkgImages::ClassInfo(),
                            TQzPkgVars::ClassInfo(), TQzPkgPrivileges::ClassInfo(), TQzPkgDisplay::ClassInfo(),
                            TQzPkgLanguage::ClassInfo(), TQzPkgSetup::ClassInfo()})
        FPrevious.emplace_back(cls, QzRegisterPkgFileFormat(cls, Format));
}

TInstalledFormat::~TInstalledFormat()
{
    for (auto& [cls, previous] : FPrevious)
        QzRegisterPkgFileFormat(cls, previous);
}

void FillStrings(TQzPkgStrings& pkg)
{
    TQzPkgStringsLabels* labels = pkg.Labels();
    labels->Add(0, "Save", "Saves the file");
    labels->Add(7, "Größe ändern", "Ñandú – “quoted”")->SetProtected(true);
    labels->Add(3, "", "hint only");
    labels->Add(100000, "Ünïcödé 日本語", "");
    pkg.Messages()->Add(26, "Delete the item?")->SetProtected(true);
    pkg.Messages()->Add(1, "Mensaje: ¿Seguro?");
    pkg.Texts()->Add(5, "First line\r\nSecond line\r\n\r\nafter a blank");
    pkg.Texts()->Add(2, "");
    TQzWindowPlacement placement;
    placement.Left = 120;
    placement.Top = -5;
    placement.Width = 640;
    placement.Height = 480;
    placement.State = wsMaximized;
    pkg.SetPlacement(placement);
}

}  // namespace QzModelTest
