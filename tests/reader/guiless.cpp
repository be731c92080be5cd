#include "testsupport.h"

using namespace rtftest;

namespace {

/*! A document with everything that fonts, pictures, lists and tables are read from. */
Reading readEverything()
{
    // A picture of one pixel: a header that is text, and the pixel.
    const QByteArray picture = "{\\pict\\wmetafile8 " + "P5 1 1 255 A"_b.toHex() + "}";
    return readBody("{\\fonttbl{\\f0\\fswiss Arial;}{\\f1\\froman liberation serif;}}" + colorTable()
                    + "\\pard\\plain one{\\f1\\fs24\\cf1\\b bold\\b0 normal}\\par"
                      "{\\field{\\*\\fldinst HYPERLINK \"u\"}{\\fldrslt two}}\\par"
                    + picture
                    + "\\par\\pard\\ls1 three\\par\\trowd\\cellx1000\\intbl four\\cell\\row\\pard five");
}

Reading readWithoutApplication;
QString errorWithoutApplication;

} // namespace

/*! Reading in a program without a display, such as a tool or a server, and before there is an application. */
class TestGuiless : public QObject {
    Q_OBJECT

private slots:
    void applicationHasNoGui()
    {
        QVERIFY(QCoreApplication::instance());
        QVERIFY(!compat::hasGui());
        QCOMPARE(errorWithoutApplication, "Unmatched '}' in Rich Text file"_s);
    }

    ORV_ROWS(everythingIsRead)
    {
        const Rows add([](const Reading& reading) {
            QCOMPARE(reading.status, 0);
            QCOMPARE(reading.text(), "oneboldnormal\ntwo\n\ufffc\nthree\n\nfour\n\nfive"_s);
            QCOMPARE(reading.images().size(), 1);
            QVERIFY(reading.block(3).textList());
            // Fonts keep their names, and bold that is switched off is normal.
            QCOMPARE(compat::fontFamily(reading.format("one"_s)), "Arial"_s);
            QCOMPARE(compat::fontFamily(reading.format("bold"_s)), "liberation serif"_s);
            QCOMPARE(reading.format("bold"_s).property(QTextFormat::FontWeight).toInt(), int(QFont::Bold));
            QCOMPARE(reading.format("normal"_s).property(QTextFormat::FontWeight).toInt(),
                     int(QFont::Normal));
        });
        add("without a display", readEverything());
        add("without an application", readWithoutApplication);
    }
};

static int runTestGuiless(int argc, char** argv)
{
    readWithoutApplication = readEverything();
    errorWithoutApplication = read("{\\rtf1 a").message;
    return registry::run<TestGuiless, QCoreApplication>(argc, argv);
}

ORV_TEST_MAIN("guiless", runTestGuiless, TestGuiless)
#include "guiless.moc"
