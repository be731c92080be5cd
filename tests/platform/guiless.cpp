#include "ORVCoreUtil.h"
#include "ORVGuiUtil.h"
#include "ORVTextFormat.h"
#include "ORVTextListFormat.h"
#include "ORVTextUtil.h"
#include "ORVUnit.h"
#include "QtFontCompat_p.h"
#include "TextDocSupport.h"

#include <QImage>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QUrl>
#include <QtTest>

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
    document.addResource(QTextDocument::ImageResource, QUrl(QLatin1String("a.png")), makeImage());
    QTextCursor cursor(&document);
    cursor.insertText(QLatin1String("  text  "));
    cursor.select(QTextCursor::Document);
    ORVTextUtil::trim(cursor);
    TextDocSupport::clearDefaultTextOptionFlags(&document);
    TextDocSupport::normalizePageBreaks(&document);
    const QScopedPointer<QTextDocument> copy(TextDocSupport::cloneDocumentQtStyle(&document, nullptr));
    return copy->toPlainText() == QLatin1String("text")
        && TextDocSupport::image(copy.data(), QLatin1String("a.png")) == makeImage()
        && ORVTextUtil::findBestFontFamily(QLatin1String("Arial")).isEmpty()
        && ORVTextUtil::defaultFontWeight(QLatin1String("Arial"), 33) == 33;
}

// Runs before main(), when there is no application object of any kind.
const bool convertsBeforeMain = convertsWithoutScreen();

} // namespace

// The libraries serve command line tools and servers, which have no screen.
class TestPlatformGuiless : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void worksWithoutAnyApplicationObject();
    void worksWithoutScreen();
    void fontsAreNotLookedUp();
    void defaultFormatOfPixelFontHasNoPointSize();
    void listLevels();
    void picturesAreEncodedAndDecoded();
    void dataUrlIsDecoded();
    void namesAndUnits();
};

void TestPlatformGuiless::initTestCase()
{
    QVERIFY(!compat::hasGui());
}

void TestPlatformGuiless::worksWithoutAnyApplicationObject()
{
    QVERIFY(convertsBeforeMain);
}

void TestPlatformGuiless::worksWithoutScreen()
{
    QVERIFY(convertsWithoutScreen());
}

void TestPlatformGuiless::fontsAreNotLookedUp()
{
    QCOMPARE(ORVTextUtil::findBestFontFamily(QLatin1String("Liberation Sans")), QString());
    QCOMPARE(ORVTextUtil::defaultFontWeight(QLatin1String("Liberation Sans"), QFont::Light),
             int(QFont::Light));
}

void TestPlatformGuiless::defaultFormatOfPixelFontHasNoPointSize()
{
    QTextDocument document;
    QFont font(QLatin1String("Liberation Sans"));
    font.setPixelSize(20);
    document.setDefaultFont(font);
    const QTextCharFormat format = ORVTextFormat::defaultCharFormat(&document);
    QCOMPARE(compat::fontFamily(format), QString(QLatin1String("Liberation Sans")));
    QVERIFY(!format.hasProperty(QTextFormat::FontPointSize));
}

void TestPlatformGuiless::listLevels()
{
    ORVTextListLevel level;
    level.setText(QLatin1String("%0."));
    QTextListFormat format;
    ORVTextListFormat::setLevels(format, QList<ORVTextListLevel>() << level << level);
    QTextDocument document;
    QTextList* list = QTextCursor(&document).createList(format);
    ORVTextListFormat::setBlockLevel(list, document.begin(), 1);
    QCOMPARE(ORVTextListFormat::blockLevel(list, document.begin()), 1);
    const QScopedPointer<QTextDocument> copy(TextDocSupport::cloneDocumentQtStyle(&document, nullptr));
    QVERIFY(copy->begin().textList());
    QCOMPARE(ORVTextListFormat::levels(copy->begin().textList()->format()).size(), 2);
}

void TestPlatformGuiless::picturesAreEncodedAndDecoded()
{
    const QByteArray bytes = ORVGuiUtil::toByteArray(makeImage(), "PNG", -1);
    QTextDocument document;
    document.addResource(QTextDocument::ImageResource, QUrl(ORVGuiUtil::resourceId(makeImage())), bytes);
    QCOMPARE(TextDocSupport::image(&document, ORVGuiUtil::resourceId(makeImage()))
                 .convertToFormat(QImage::Format_RGB32),
             makeImage());
}

void TestPlatformGuiless::dataUrlIsDecoded()
{
    const QString url = QLatin1String("data:image/png;base64,")
        + QString::fromLatin1(ORVGuiUtil::toByteArray(makeImage(), "PNG", -1).toBase64());
    QTextDocument document;
    QCOMPARE(TextDocSupport::image(&document, url).convertToFormat(QImage::Format_RGB32), makeImage());
}

void TestPlatformGuiless::namesAndUnits()
{
    QVERIFY(ORVCoreUtil::GetNewTempFilePath(QLatin1String("rtf")).endsWith(QLatin1String(".rtf")));
    QCOMPARE(ORVUnit::rtfTwipsToPixels(1440), 96);
}

QTEST_GUILESS_MAIN(TestPlatformGuiless)
#include "tst_platform_guiless.moc"
