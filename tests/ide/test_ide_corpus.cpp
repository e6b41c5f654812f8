// Every real form of the corpus opens in the designer and paints: classes
// of other libraries with their own page controls, sheets, menus and image
// lists, forms stored as text, binary and compiled resources.

#include "IdeFixture.h"

#include "ide/QzDesignSurface.h"
#include "designide/forms/QzIdeProject.h"

#include "support/Corpus.h"

#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>

#include <map>

TEST_F(TIdeTest, EveryCorpusFormOpensAndPaints)
{
    QTemporaryDir dir;
    std::map<QString, std::string> source;   // unit name -> corpus path
    for (const TCorpusFile& file : CorpusFiles()) {
        if (file.Format == "project")
            continue;
        const QString unit = QStringLiteral("Form%1").arg(source.size() + 1, 3, 10, QLatin1Char('0'));
        ASSERT_TRUE(QFile::copy(QString::fromStdString(file.FullPath()), dir.filePath(unit + ".dfm")));
        source[unit] = file.Path;
    }
    ASSERT_TRUE(FWindow->OpenProject(dir.path()));
    ASSERT_EQ(FWindow->Project()->FormCount(), int(source.size()));
    ASSERT_GT(source.size(), 250u);

    std::vector<std::string> failures;
    FDialogs->Script().SetFailureHandler([&](const AnsiString& message) { failures.push_back(message); });
    for (int i = 0; i < FWindow->Project()->FormCount(); ++i) {
        const QString unit = QFileInfo(QString::fromStdString(FWindow->Project()->FormName(i))).baseName();
        const size_t before = failures.size();
        TIdeDesigner* d = FWindow->ShowForm(i);
        if (!d || failures.size() != before) {
            failures.push_back(source[unit] + ": not opened");
            continue;
        }
        TQzDesignSurface* s = FWindow->SurfaceOf(d);
        QImage image(s->sizeHint(), QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        s->render(&painter);
        painter.end();
        EXPECT_FALSE(d->IsModified()) << source[unit];
        FWindow->CloseForm(i);
    }
    std::string all;
    for (const std::string& f : failures)
        all += f + "\n";
    EXPECT_TRUE(failures.empty()) << all;
}
