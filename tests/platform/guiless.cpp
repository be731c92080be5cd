#include "ORVGuiUtil.h"
#include "ORVTextUtil.h"
#include "TextDocSupport.h"
#include "TextTransform.h"
#include "conversionhelpers.h"
#include "testsupport.h"

using namespace conversiontest;

namespace {

// 3 x 2 opaque pixels of one colour.
QImage makeImage()
{
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(qRgb(10, 20, 30));
    return image;
}

// Everything the libraries do with documents; whether it all came out right.
bool convertsWithoutScreen()
{
    QTextDocument document;
    ORVTextFormat::setDefaultCharFormat(&document, ORVTextFormat::defaultCharFormat(&document));
    document.addResource(QTextDocument::ImageResource, QUrl("a.png"_s), makeImage());
    QTextCursor cursor(&document);
    cursor.insertText("  text  "_s);
    cursor.select(QTextCursor::Document);
    ORVTextUtil::trim(cursor);
    TextDocSupport::clearDefaultTextOptionFlags(&document);
    TextDocSupport::normalizePageBreaks(&document);
    const QScopedPointer<QTextDocument> copy(TextDocSupport::cloneDocumentQtStyle(&document, nullptr));
    return copy->toPlainText() == "text"_s && TextDocSupport::image(copy.data(), "a.png"_s) == makeImage()
        && ORVTextUtil::findBestFontFamily("Arial"_s).isEmpty()
        && ORVTextUtil::defaultFontWeight("Arial"_s, 33) == 33;
}

/*! What became of two conversions: by a program that works, and by one that hangs. */
QStringList conversions()
{
    const Folders folders;
    const QString tool = folders.path("tool"_s);
    writeFile(folders.path("in.docx"_s), "content");
    TextTransform::setToolPath(ORVImportExport::PandocEngine, tool);
    TextTransform::setTimeout(300);
    QStringList results;
    for (const char* commands : {"cp source.docx output/source.rtf", "sleep 1000"}) {
        writeScript(tool, commands);
        QString message;
        const TextTransform::Error error = TextTransform::transformFileViaTools(
            folders.path("in.docx"_s), folders.path("out.rtf"_s), ORVFormat::Rtf,
            ORVImportExport::PandocEngine, &message, true);
        results << QString::number(error) + message;
    }
    return results << QString::fromUtf8(readFile(folders.path("out.rtf"_s))) << folders.leftovers();
}

bool convertsWithoutApplication = false;
QStringList conversionsWithoutApplication;

} // namespace

// The libraries serve command line tools and servers, which have no screen.
class TestPlatformGuiless : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(!compat::hasGui()); }
    void worksWithoutAnyApplicationObject()
    {
        QVERIFY(convertsWithoutApplication);
        QCOMPARE(conversionsWithoutApplication,
                 QStringList({QString::number(TextTransform::NoError),
                              QString::number(TextTransform::ToolTimedOut)
                                  + "pandoc did not end within 0.3 seconds"_s,
                              "content"_s}));
    }
    void worksWithoutScreen() { QVERIFY(convertsWithoutScreen()); }

    void fontsAreNotLookedUp()
    {
        QCOMPARE(ORVTextUtil::findBestFontFamily("Liberation Sans"_s), QString());
        QCOMPARE(ORVTextUtil::defaultFontWeight("Liberation Sans"_s, QFont::Light), int(QFont::Light));
        QTextDocument document;
        QFont font("Liberation Sans"_s);
        font.setPixelSize(20);
        document.setDefaultFont(font);
        const QTextCharFormat format = ORVTextFormat::defaultCharFormat(&document);
        QCOMPARE(compat::fontFamily(format), "Liberation Sans"_s);
        QVERIFY(!format.hasProperty(QTextFormat::FontPointSize));
    }

    void listLevelsAreCopied()
    {
        const ORVTextListLevel level = rtftest::makeLevel(ORVTextListLevel::Decimal, "%0."_s);
        QTextDocument document;
        QTextList* original = QTextCursor(&document).createList(rtftest::listFormatWith({level, level}));
        ORVTextListFormat::setBlockLevel(original, document.begin(), 1);
        const QScopedPointer<QTextDocument> copy(TextDocSupport::cloneDocumentQtStyle(&document, nullptr));
        QCOMPARE(rtftest::listLines(*copy), rtftest::listLines(document));
        QCOMPARE(ORVTextListFormat::blockLevel(copy->begin().textList(), copy->begin()), 1);
    }

    void picturesAreDecoded()
    {
        const QByteArray png = ORVGuiUtil::toByteArray(makeImage(), "PNG", -1);
        QTextDocument document;
        document.addResource(QTextDocument::ImageResource, QUrl("a.png"_s), png);
        for (const QString& name :
             {"a.png"_s, "data:image/png;base64,"_s + QString::fromLatin1(png.toBase64())})
            QCOMPARE(TextDocSupport::image(&document, name).convertToFormat(QImage::Format_RGB32),
                     makeImage());
    }
};

static int runTestPlatformGuiless(int argc, char** argv)
{
    convertsWithoutApplication = convertsWithoutScreen();
    conversionsWithoutApplication = conversions();
    return registry::run<TestPlatformGuiless, QCoreApplication>(argc, argv);
}

ORV_TEST_MAIN("platform_guiless", runTestPlatformGuiless, TestPlatformGuiless)
#include "guiless.moc"
