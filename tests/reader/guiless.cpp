#include "testsupport.h"

using namespace rtftest;

/*! Reading in a program without a display, such as a tool or a server. */
class TestGuiless : public QObject {
    Q_OBJECT

private slots:
    void applicationHasNoGui()
    {
        QVERIFY(QCoreApplication::instance());
        QVERIFY(!compat::hasGui());
    }

    void everythingIsRead()
    {
        // A picture of one pixel: a header that is text, and the pixel.
        const QByteArray picture = "{\\pict\\wmetafile8 " + "P5 1 1 255 A"_b.toHex() + "}";
        const Reading reading = readBody(
            "{\\fonttbl{\\f0\\fswiss Arial;}{\\f1\\froman liberation serif;}}" + colorTable()
            + "\\pard\\plain one{\\f1\\fs24\\cf1\\b bold\\b0 normal}\\par"
              "{\\field{\\*\\fldinst HYPERLINK \"u\"}{\\fldrslt two}}\\par"
            + picture + "\\par\\pard\\ls1 three\\par\\trowd\\cellx1000\\intbl four\\cell\\row\\pard five");
        QCOMPARE(reading.status, 0);
        QCOMPARE(reading.images().size(), 1);
        for (const char* text : {"one", "two", "three", "four", "five"})
            QVERIFY2(reading.text().contains(QLatin1String(text)), text);
        QVERIFY(reading.block(3).textList());
        // Fonts keep their names, and bold that is switched off is normal.
        QCOMPARE(compat::fontFamily(reading.format("one"_s)), "Arial"_s);
        QCOMPARE(compat::fontFamily(reading.format("bold"_s)), "liberation serif"_s);
        QCOMPARE(reading.format("bold"_s).property(QTextFormat::FontWeight).toInt(), int(QFont::Bold));
        QCOMPARE(reading.format("normal"_s).property(QTextFormat::FontWeight).toInt(), int(QFont::Normal));
    }
};

ORV_TEST("guiless", TestGuiless, QCoreApplication)
#include "guiless.moc"
