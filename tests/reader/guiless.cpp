#include "QtFontCompat_p.h"
#include "rtftesthelpers.h"

#include <QtTest/QtTest>

using namespace rtftest;

/*! Reading in a program without a display, such as a tool or a server. */
class TestGuiless : public QObject {
    Q_OBJECT

private slots:
    void applicationHasNoGui();
    void fontsKeepTheirNames();
    void boldOffIsNormal();
    void everythingElseIsRead();
};

void TestGuiless::applicationHasNoGui()
{
    QVERIFY(QCoreApplication::instance());
    QVERIFY(!compat::hasGui());
}

void TestGuiless::fontsKeepTheirNames()
{
    const Reading reading =
        readBody("{\\fonttbl{\\f0\\fswiss Arial;}{\\f1\\froman liberation serif;}}\\plain a{\\f1 b}");
    QCOMPARE(reading.status, 0);
    QCOMPARE(compat::fontFamily(reading.format(QStringLiteral("a"))), QStringLiteral("Arial"));
    QCOMPARE(compat::fontFamily(reading.format(QStringLiteral("b"))), QStringLiteral("liberation serif"));
}

void TestGuiless::boldOffIsNormal()
{
    const Reading reading = readBody("{\\fonttbl{\\f0\\fswiss Arial;}}\\f0\\b a\\b0 b");
    QCOMPARE(reading.format(QStringLiteral("a")).property(QTextFormat::FontWeight).toInt(), int(QFont::Bold));
    QCOMPARE(reading.format(QStringLiteral("b")).property(QTextFormat::FontWeight).toInt(),
             int(QFont::Normal));
}

void TestGuiless::everythingElseIsRead()
{
    // A picture of one pixel: a header that is text, and the pixel.
    const QByteArray picture = "{\\pict\\wmetafile8 " + QByteArray("P5 1 1 255 A").toHex() + "}";
    const Reading reading = readBody(
        fontTable() + colorTable()
        + "\\pard\\plain\\f1\\fs24\\cf1 one\\par{\\field{\\*\\fldinst HYPERLINK \"u\"}{\\fldrslt two}}\\par"
        + picture + "\\par\\pard\\ls1 three\\par\\trowd\\cellx1000\\intbl four\\cell\\row\\pard five");
    QCOMPARE(reading.status, 0);
    QCOMPARE(reading.images().size(), 1);
    for (const char* text : {"one", "two", "three", "four", "five"})
        QVERIFY2(reading.text().contains(QLatin1String(text)), text);
    QVERIFY(reading.block(3).textList());
}

QTEST_GUILESS_MAIN(TestGuiless)
#include "tst_guiless.moc"
