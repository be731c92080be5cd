#include "ORVTextRtf.h"
#include "ORVTextUtil.h"
#include "interchangehelpers.h"
#include "runhelpers.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

QStringList familiesOf(const QTextCharFormat& format)
{
    const QStringList families = format.property(QTextFormat::FontFamilies).toStringList();
    return families.isEmpty() ? QStringList(compat::fontFamily(format)) : families;
}

/*! The families of text in font 1, which \a entry defines. */
QStringList families(const QByteArray& entry)
{
    const Reading reading = importBody("{\\fonttbl{\\f0 Quibble;}{\\f1 " + entry + "}}\\f1 x");
    return familiesOf(reading.format("x"_s));
}

QString installedFamily()
{
    const QStringList families = compat::fontFamilies();
    for (const QString& family : families) {
        // The name of its foundry is none of the font's own.
        if (!family.contains('['))
            return family;
    }
    return QString();
}

/*! Fonts 1 to 4; Western text is in font 1 and in 10 points. */
Reading inScripts(const QByteArray& body)
{
    return importBody("{\\fonttbl{\\f1 West;}{\\f2 East;}{\\f3 Complex;}{\\f4 Other;}}\\f1\\fs20 " + body);
}

/*! Each run with what its font, size, weight and slant are. */
QString runsIn(const Reading& reading)
{
    QStringList runs;
    for (const QTextFragment& fragment : fragmentsOf(*reading.document)) {
        const QTextCharFormat format = fragment.charFormat();
        runs << QStringLiteral("%1:%2 %3%4%5")
                    .arg(fragment.text(), compat::fontFamily(format).left(1))
                    .arg(format.fontPointSize())
                    .arg(format.fontWeight() == QFont::Bold ? "b"_s : QString(),
                         format.fontItalic() ? "i"_s : QString());
    }
    return runs.join('|');
}

} // namespace

/*! Names of fonts, and fonts that depend on the script of the text. */
class TestInterchangeFonts : public QObject {
    Q_OBJECT

private slots:
    void nameOfAFontThatIsNotInstalled()
    {
        QCOMPARE(families("Quibble Serif;"), QStringList("Quibble Serif"_s));
    }

    void installedFontHasNoOthers()
    {
        const QString installed = installedFamily();
        QVERIFY(!installed.isEmpty());
        QCOMPARE(families("{\\*\\falt Quibble Sans}" + installed.toLatin1() + ';'), QStringList(installed));
    }

    ORV_ROWS(alternative)
    {
        const Rows add([](const QByteArray& entry, const QString& expected) {
            QCOMPARE(families(entry).join(','), expected);
        });
        add("behind the name", "Quibble Serif{\\*\\falt Quibble Sans};", "Quibble Serif,Quibble Sans");
        add("in front of the name", "{\\*\\falt Quibble Sans}Quibble Serif;", "Quibble Serif,Quibble Sans");
        add("behind other words",
            "\\froman\\fcharset0\\fprq2{\\*\\panose 02020603050405020304}Quibble Serif"
            "{\\*\\falt Quibble Sans};",
            "Quibble Serif,Quibble Sans");
        add("of the same name", "Quibble Serif{\\*\\falt quibble serif};", "Quibble Serif");
        add("empty", "Quibble Serif{\\*\\falt };", "Quibble Serif");
        add("with a semicolon", "Quibble Serif{\\*\\falt Quibble Sans;};", "Quibble Serif,Quibble Sans");
        add("in its code page", "\\fcharset204 Quibble Serif{\\*\\falt \\'d8\\'f0};", u8"Quibble Serif,Шр");
        add("of the font before", "Quibble{\\*\\falt A};}{\\f1 Quibble Serif;", "Quibble Serif");
        add("of a font without a name", "Quibble;}{\\f3{\\*\\falt A}}{\\f1 Quibble Serif;", "Quibble Serif");
    }

    // Only where a font of equal metrics is installed there is one to look for.
    void installedRelative()
    {
        const QString relative = ORVTextUtil::findBestFontFamily("Arial"_s);
        if (relative.isEmpty() || relative == "Arial"_s)
            QSKIP("Arial is installed itself, or no font of its metrics is");
        QCOMPARE(families("Arial;"), QStringList({"Arial"_s, relative}));
        QCOMPARE(families("Arial{\\*\\falt Quibble};"), QStringList({"Arial"_s, "Quibble"_s, relative}));
        const Reading reading = importBody("{\\fonttbl{\\f0 Arial;}}\\f0 x");
        QVERIFY2(reading.document->toHtml().contains("font-family:'Arial','"_s + relative + '\''),
                 qPrintable(reading.document->toHtml()));
        QCOMPARE(compat::fontFamily(read("{\\rtf1{\\fonttbl{\\f0 Arial;}}\\f0 x}").format("x"_s)), relative);
    }

    void rtfHasTheNameOfTheFile()
    {
        const Reading reading = importBody("{\\fonttbl{\\f1 Arial{\\*\\falt Quibble};}}\\f1 x");
        const QByteArray rtf = ORVTextRtf::toRtfCData(reading.document.data(), false);
        QVERIFY2(rtf.contains("Arial;"), rtf.constData());
        QVERIFY(!rtf.contains("Quibble;"));
    }

    void equalFontsAreOneRun()
    {
        const Reading reading =
            importBody("{\\fonttbl{\\f1 A{\\*\\falt B};}{\\f2 C;}}\\f1\\fs20 x\\f1 y{\\f1 z}");
        QCOMPARE(fragmentsOf(*reading.document).size(), 1);
    }

    ORV_ROWS(scripts)
    {
        const Rows add([](const QByteArray& body, const QString& runs) {
            const Reading reading = inScripts(body);
            QCOMPARE(reading.status, 0);
            QCOMPARE(runsIn(reading), runs);
        });
        const QByteArray all = "a\\u23383?\\u1488?b";
        add("nothing stated", all, u8"a字אb:W 10");
        add("East Asian", "\\dbch\\af2\\afs24\\ab\\ai\\loch " + all, u8"a:W 10|字:E 12bi|אb:W 10");
        add("complex", "\\rtlch\\af3\\afs28\\ab \\ltrch " + all, u8"a字:W 10|א:C 14b|b:W 10");
        add("both", "\\rtlch\\af3\\afs28 \\ltrch\\loch\\dbch\\af2 " + all, u8"a:W 10|字:E 10|א:C 14|b:W 10");
        add("plain words count for all that state nothing", "\\dbch\\af2\\loch\\fs30\\b " + all,
            u8"a:W 15b|字:E 15b|אb:W 15b");
        add("each property on its own", "\\b\\dbch\\ab0\\loch " + all, u8"a:W 10b|字:W 10|אb:W 10b");
        add("plain words behind it", "\\dbch\\af2\\dbch\\f4 \\u23383?", u8"字:O 10");
        add("Western text of an East Asian run", "\\loch\\af1\\hich\\af1\\dbch\\f2 a\\u23383?",
            u8"a:W 10|字:E 10");
        add("run from right to left", "\\ltrch\\af1\\afs20 \\rtlch\\f3\\fs28 \\u1488?a", u8"א:C 14|a:W 10");
        add("font of high characters", "\\hich\\af4\\loch a\\'e9", u8"aé:W 10");
        add("no direction stated", "\\af3\\afs28 a\\u1488?", u8"a:W 10|א:C 14");
        add("group", "{\\dbch\\af2 }\\u23383?", u8"字:W 10");
        add("plain", "\\dbch\\af2\\plain\\f1\\fs20 \\u23383?", u8"字:W 10");
        add("blanks and signs follow", "\\dbch\\af2 \\u23383?, 1 a", u8"字, 1 :E 10|a:W 10");
        add("signs that are Western", "{\\dbch\\af2 \\u23383?}{\\dbch\\af2\\loch 1 \\u23383?}",
            u8"字:E 10|1 :W 10|字:E 10");
        add("signs at the beginning", "\\dbch\\af2 (\\u23383?)", u8"(:W 10|字):E 10");
        add("beyond the first plane", "\\dbch\\af2 a\\u-10188?\\u-9205?\\u-10176?\\u-9214?",
            u8"a𝀋:W 10|𠀂:E 10");
        add("unknown font", "\\dbch\\af99 \\u23383?", u8"字:W 10");
        add("Thai", "\\rtlch\\af3\\ltrch\\u3585?", u8"ก:C 10");
        add("Adlam", "\\rtlch\\af3\\ltrch\\u-10182?\\u-8960?", u8"𞤀:C 10");
        add("Brahmi", "\\rtlch\\af3\\ltrch\\u-10236?\\u-9211?", u8"𑀅:C 10");
        add("Javanese", "\\rtlch\\af3\\ltrch\\u-22140?", u8"ꦄ:C 10");
        add("end of the weight", "\\rtlch\\ab\\ab0\\ltrch\\b a\\u1488?", u8"a:W 10b|א:W 10");
        add("size that is too large", "\\rtlch\\afs2147483647\\ltrch a\\u1488?", u8"a:W 10|א:W 1638");
        add("size that is none", "\\rtlch\\afs0\\ltrch a\\u1488?", u8"aא:W 10");
        add("Hangul", "\\dbch\\af2\\loch\\u-21504?", u8"가:E 10");
    }

    void paragraphsBeginAnew()
    {
        const Reading reading = inScripts("\\dbch\\af2\\u23383?\\par 1");
        QCOMPARE(compat::fontFamily(reading.format("1"_s)), "West"_s);
    }
};

ORV_TEST("interchange_fonts", TestInterchangeFonts, QGuiApplication)
#include "fonts.moc"
