#include "ORVTextFormat.h"

#include "QtFontCompat_p.h"

#include <QFontInfo>
#include <QTextDocument>
#include <QtTest>

namespace {

const int familyId = [] {
    QTextCharFormat format;
    compat::setFontFamily(format, QLatin1String("Any"));
    return format.properties().constBegin().key();
}();

} // namespace

class TestTextFormat : public QObject {
    Q_OBJECT

private slots:
    void nothingStoredGivesFamilyAndSizeOnly();
    void fractionalPointSizeIsKept();
    void pixelSizeIsTranslatedToPoints();
    void nullDocument();

    void storedFormatIsReturned_data();
    void storedFormatIsReturned();
    void laterFormatReplacesEarlier();
    void documentsDoNotShareTheirFormats();
    void defaultFontFollowsFormat();
    void weightZeroMakesNormalDefaultFont();

    void imageNameIsTheResourceName();
};

void TestTextFormat::nothingStoredGivesFamilyAndSizeOnly()
{
    QTextDocument document;
    QFont font(QLatin1String("DejaVu Serif"), 17, QFont::Bold, true);
    document.setDefaultFont(font);

    const QTextCharFormat format = ORVTextFormat::defaultCharFormat(&document);
    QCOMPARE(compat::fontFamily(format), QString(QLatin1String("DejaVu Serif")));
    QCOMPARE(format.fontPointSize(), qreal(17));
    QCOMPARE(format.properties().keys(),
             QList<int>() << qMin(familyId, int(QTextFormat::FontPointSize))
                          << qMax(familyId, int(QTextFormat::FontPointSize)));
}

void TestTextFormat::fractionalPointSizeIsKept()
{
    QTextDocument document;
    QFont font(QLatin1String("DejaVu Serif"));
    font.setPointSizeF(10.5);
    document.setDefaultFont(font);
    QCOMPARE(ORVTextFormat::defaultCharFormat(&document).fontPointSize(), qreal(10.5));
}

void TestTextFormat::pixelSizeIsTranslatedToPoints()
{
    QTextDocument document;
    QFont font(QLatin1String("DejaVu Serif"));
    font.setPixelSize(40);
    document.setDefaultFont(font);
    const qreal size = ORVTextFormat::defaultCharFormat(&document).fontPointSize();
    QVERIFY(size > 0);
    QCOMPARE(size, QFontInfo(font).pointSizeF());
}

void TestTextFormat::nullDocument()
{
    ORVTextFormat::setDefaultCharFormat(nullptr, QTextCharFormat());
    QVERIFY(ORVTextFormat::defaultCharFormat(nullptr) == QTextCharFormat());
}

void TestTextFormat::storedFormatIsReturned_data()
{
    QTest::addColumn<QTextFormat>("format");

    QTest::newRow("empty") << QTextFormat(QTextCharFormat());
    QTextCharFormat format;
    compat::setFontFamily(format, QLatin1String("No Such Family"));
    format.setFontPointSize(13.5);
    QTest::newRow("font") << QTextFormat(format);
    format.setProperty(QTextFormat::FontWeight, 0);
    QTest::newRow("weight 0") << QTextFormat(format);
    format.setForeground(QColor(1, 2, 3));
    format.setProperty(QTextFormat::UserProperty + 10, 3);
    QTest::newRow("colour and property of the application") << QTextFormat(format);
}

void TestTextFormat::storedFormatIsReturned()
{
    QFETCH(QTextFormat, format);
    QTextDocument document;
    ORVTextFormat::setDefaultCharFormat(&document, format.toCharFormat());
    const QTextDocument& readOnly = document;
    const QTextCharFormat stored = ORVTextFormat::defaultCharFormat(&readOnly);
    QCOMPARE(stored.properties(), format.properties());
    QVERIFY(stored == format);
    QVERIFY(stored.isCharFormat());
}

void TestTextFormat::laterFormatReplacesEarlier()
{
    QTextDocument document;
    QTextCharFormat italic;
    italic.setFontItalic(true);
    QTextCharFormat large;
    large.setFontPointSize(40);
    ORVTextFormat::setDefaultCharFormat(&document, italic);
    ORVTextFormat::setDefaultCharFormat(&document, large);
    QVERIFY(ORVTextFormat::defaultCharFormat(&document) == large);
    QVERIFY(!document.defaultFont().italic());
}

void TestTextFormat::documentsDoNotShareTheirFormats()
{
    QTextDocument first;
    QTextDocument second;
    second.setDefaultFont(QFont(QLatin1String("DejaVu Serif"), 9));
    QTextCharFormat italic;
    italic.setFontItalic(true);
    ORVTextFormat::setDefaultCharFormat(&first, italic);
    QVERIFY(!ORVTextFormat::defaultCharFormat(&second).hasProperty(QTextFormat::FontItalic));
}

void TestTextFormat::defaultFontFollowsFormat()
{
    QTextDocument document;
    QTextCharFormat format;
    compat::setFontFamily(format, QLatin1String("DejaVu Serif"));
    format.setFontPointSize(13.5);
    format.setFontItalic(true);
    format.setProperty(QTextFormat::FontWeight, int(QFont::Bold));
    ORVTextFormat::setDefaultCharFormat(&document, format);
    QCOMPARE(document.defaultFont().family(), QString(QLatin1String("DejaVu Serif")));
    QCOMPARE(document.defaultFont().pointSizeF(), qreal(13.5));
    QVERIFY(document.defaultFont().italic());
    QCOMPARE(int(document.defaultFont().weight()), int(QFont::Bold));
}

void TestTextFormat::weightZeroMakesNormalDefaultFont()
{
    QTextDocument document;
    QTextCharFormat format;
    format.setProperty(QTextFormat::FontWeight, 0);
    ORVTextFormat::setDefaultCharFormat(&document, format);
    QCOMPARE(int(document.defaultFont().weight()), int(QFont::Normal));
}

void TestTextFormat::imageNameIsTheResourceName()
{
    QTextImageFormat format;
    QCOMPARE(ORVTextFormat::imageName(format), QString());
    format.setName(QLatin1String(":/images/a b.png"));
    QCOMPARE(ORVTextFormat::imageName(format), QString(QLatin1String(":/images/a b.png")));
}

QTEST_MAIN(TestTextFormat)
#include "tst_textformat.moc"
