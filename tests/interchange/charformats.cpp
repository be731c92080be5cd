#include "ORVRtfProperties.h"
#include "interchangehelpers.h"
#include "runhelpers.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

/*! The property \a id of "x" in \a body; invalid where it is missing. */
QVariant propertyOfX(const QByteArray& body, int id)
{
    return importBody(colorTable() + body).format("x"_s).property(id);
}

QString backgroundOfX(const QByteArray& body)
{
    const QVariant brush = propertyOfX(body, QTextFormat::BackgroundBrush);
    return brush.isValid() ? brush.value<QBrush>().color().name() : "-"_s;
}

} // namespace

/*! Formats of text that the storage form does not know, or reads in another way. */
class TestInterchangeCharFormats : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(capitals)
    {
        const Rows add([](const QByteArray& words, int capitalization) {
            QCOMPARE(propertyOfX(words + " x", QTextFormat::FontCapitalization).toInt(), capitalization);
        });
        add("none", "", QFont::MixedCase);
        add("all", "\\caps", QFont::AllUppercase);
        add("small", "\\scaps", QFont::SmallCaps);
        add("both", "\\scaps\\caps", QFont::AllUppercase);
        add("all ended", "\\caps\\caps0", QFont::MixedCase);
        add("small ended", "\\scaps\\scaps0", QFont::MixedCase);
        add("each ends itself only", "\\scaps\\caps\\caps0", QFont::SmallCaps);
        add("the other way round", "\\scaps\\caps\\scaps0", QFont::AllUppercase);
        add("plain", "\\caps\\scaps\\plain", QFont::MixedCase);
        add("state of the group", "\\scaps{\\caps}\\caps\\caps0", QFont::SmallCaps);
        add("plain forgets", "\\scaps\\plain\\caps\\caps0", QFont::MixedCase);
    }

    ORV_ROWS(strikeOut)
    {
        const Rows add([](const QByteArray& words, bool isStruckOut) {
            QCOMPARE(propertyOfX(words + " x", QTextFormat::FontStrikeOut).toBool(), isStruckOut);
        });
        add("none", "", false);
        add("one line", "\\strike", true);
        add("two lines", "\\striked1", true);
        add("one line ended", "\\strike\\strike0", false);
        add("two lines ended", "\\striked1\\striked0", false);
        add("each ends itself only", "\\strike\\striked1\\striked0", true);
        add("the other way round", "\\striked1\\strike0", true);
        add("group", "{\\striked1}", false);
    }

    void endedLinesAreNoFormat()
    {
        const Reading reading = importBody("a\\strike\\strike0 b\\striked1\\striked0 c\\ol\\ol0 d");
        QCOMPARE(fragmentsOf(*reading.document).size(), 1);
    }

    ORV_ROWS(underlines)
    {
        const Rows add([](const QByteArray& word, int style) {
            const int id = QTextFormat::TextUnderlineStyle;
            QCOMPARE(propertyOfX(word + " x", id).toInt(), style);
            QCOMPARE(propertyOfX(word + '1' + " x", id).toInt(), style);
            QVERIFY(!propertyOfX("\\ul" + word + "0 x", id).isValid());
            QVERIFY(!propertyOfX(word + "\\ulnone x", id).isValid());
        });
        const auto addAll = [&add](const QByteArray& words, int style) {
            for (const QByteArray& word : words.split(' '))
                add(word, word, style);
        };
        addAll("\\ul \\ulw \\uldb \\ulth", QTextCharFormat::SingleUnderline);
        addAll("\\uld \\ulthd", QTextCharFormat::DotLine);
        addAll("\\uldash \\ulthdash \\ulldash \\ulthldash", QTextCharFormat::DashUnderline);
        addAll("\\uldashd \\ulthdashd", QTextCharFormat::DashDotLine);
        addAll("\\uldashdd \\ulthdashdd", QTextCharFormat::DashDotDotLine);
        addAll("\\ulwave \\ulhwave \\ululdbwave", QTextCharFormat::WaveUnderline);
    }

    void overline()
    {
        QVERIFY(propertyOfX("\\ol x", QTextFormat::FontOverline).toBool());
        QVERIFY(!propertyOfX("\\ol\\ol0 x", QTextFormat::FontOverline).toBool());
        QVERIFY(!propertyOfX("{\\ol y}x", QTextFormat::FontOverline).toBool());
    }

    // In points; 0 for none.
    ORV_ROWS(letterSpacing)
    {
        const Rows add([](const QByteArray& words, double points) {
            const QTextCharFormat format = importBody(words + " x").format("x"_s);
            QCOMPARE(format.hasProperty(QTextFormat::FontLetterSpacing), points != 0);
            QCOMPARE(format.hasProperty(QTextFormat::FontLetterSpacingType), points != 0);
            QCOMPARE(format.doubleProperty(QTextFormat::FontLetterSpacing), points);
            if (points != 0)
                QCOMPARE(format.fontLetterSpacingType(), QFont::AbsoluteSpacing);
        });
        add("none", "", 0);
        add("quarter points", "\\expnd6", 1.5);
        add("twips", "\\expndtw30", 1.5);
        add("condensed", "\\expndtw-15", -0.75);
        add("the later word counts", "\\expnd4\\expndtw23", 1.15);
        add("in the other order", "\\expndtw23\\expnd4", 1);
        add("ended", "\\expndtw30\\expndtw0", 0);
        add("ended by the other word", "\\expndtw30\\expnd0", 0);
        add("too wide", "\\expndtw2147483647", 1584);
        add("too narrow", "\\expnd-2147483647", -1584);
    }

    ORV_ROWS(stretch)
    {
        const Rows add([](const QByteArray& words, const QVariant& stretch) {
            QCOMPARE(propertyOfX(words + " x", QTextFormat::FontStretch), stretch);
        });
        add("wide", "\\charscalex150", 150);
        add("narrow", "\\charscalex66", 66);
        add("ordinary", "\\charscalex150\\charscalex100", QVariant());
        add("nothing", "\\charscalex0", QVariant());
        add("below nothing", "\\charscalex-5", QVariant());
        add("too wide", "\\charscalex99999", 600);
    }

    ORV_ROWS(kerning)
    {
        const Rows add([](const QByteArray& words, const QVariant& kerning) {
            QCOMPARE(propertyOfX(words + " x", QTextFormat::FontKerning), kerning);
        });
        add("not stated", "", QVariant());
        add("from a size on", "\\kerning28", QVariant());
        add("off", "\\kerning0", false);
        add("on again", "\\kerning0\\kerning1", QVariant());
    }

    ORV_ROWS(backgrounds)
    {
        const Rows add([](const QByteArray& words, const QString& color) {
            QCOMPARE(backgroundOfX(words + " x"), color);
        });
        add("none", "", "-");
        add("highlight", "\\highlight1", "#ff0000");
        add("background", "\\cb1", "#ff0000");
        add("shading", "\\chcbpat1", "#ff0000");
        add("highlight counts more than shading", "\\highlight1\\chcbpat2", "#ff0000");
        add("in the other order", "\\chcbpat2\\highlight1", "#ff0000");
        add("shading counts more than background", "\\chcbpat2\\cb1", "#00ff00");
        add("highlight counts more than background", "\\highlight3\\cb1", "#0000ff");
        add("end of the highlight", "\\chcbpat2\\highlight1\\highlight0", "#00ff00");
        add("end of the shading", "\\cb3\\chcbpat2\\chcbpat0", "#0000ff");
        add("colour that is not there", "\\highlight1\\highlight99", "-");
        add("half a pattern", "\\chshdng5000\\chcfpat1\\chcbpat3", "#800080");
        add("in another order", "\\chcbpat3\\chcfpat1\\chshdng5000", "#800080");
        add("pattern without colours", "\\chshdng2000", "#cccccc");
        add("pattern ended", "\\chshdng2000\\chshdng0", "-");
        add("white shading", "\\chcbpat4", "#ffffff");
        add("group", "\\chcbpat2{\\highlight1 y}", "#00ff00");
        add("state of the group", "{\\chshdng5000 y}\\chcfpat1\\chcbpat2", "#00ff00");
        add("plain", "\\chcbpat2\\highlight1\\cb3\\plain", "-");
        add("plain forgets", "\\chshdng10000\\plain\\chcfpat1", "-");
    }

    void whiteBackgroundAsColorOneIsNone()
    {
        const QByteArray white = "{\\colortbl;\\red255\\green255\\blue255;}";
        QVERIFY(!importBody(white + "\\cb1 x").format("x"_s).hasProperty(QTextFormat::BackgroundBrush));
        QVERIFY(importBody(white + "\\chcbpat1 x").format("x"_s).hasProperty(QTextFormat::BackgroundBrush));
    }

    ORV_ROWS(sizes)
    {
        const Rows add([](const QByteArray& words, double points) {
            QCOMPARE(propertyOfX(words + " x", QTextFormat::FontPointSize).toDouble(), points);
        });
        add("half points", "\\fs21", 10.5);
        add("greatest", "\\fs3276", 1638);
        add("too large", "\\fs2147483647", 1638);
        add("nothing", "\\fs0", 10);
        add("below nothing", "\\fs-24", 10);
    }

    ORV_ROWS(languages)
    {
        const Rows add([](const QByteArray& words, const QVariant& language) {
            QCOMPARE(propertyOfX(words + " x", ORVRtfProperty::Language), language);
        });
        add("none", "", QVariant());
        add("German", "\\lang1031", "de-DE"_s);
        add("Serbian", "\\lang10266", "sr-Cyrl-RS"_s);
        add("of the document", "\\deflang1031\\lang1031", QVariant());
        add("another one", "\\deflang1033\\lang1031", "de-DE"_s);
        add("that of the document again", "\\deflang1033\\lang1031\\lang1033", QVariant());
        add("no proofing", "\\lang1031\\lang1024", QVariant());
        add("neutral", "\\lang1031\\lang0", QVariant());
        add("unknown", "\\lang1031\\lang65000", QVariant());
        add("plain", "\\lang1031\\plain", QVariant());
        add("of East Asian and complex text", "\\langfe1041\\alang1025", QVariant());
    }

    void languageOfTheDocument()
    {
        QCOMPARE(importBody("\\deflang2055 x").document->property("language").toString(), "de-CH"_s);
        QVERIFY(!importBody("x").document->property("language").isValid());
        QVERIFY(!importBody("\\deflang1024 x").document->property("language").isValid());
    }

    void equalFormatsAreOneRun()
    {
        const Reading reading = importBody(
            colorTable()
            + "\\deflang1033{\\lang1033\\kerning1\\expnd0\\expndtw0\\charscalex100\\ul0\\chcbpat0 a}"
              "{\\caps0\\striked0\\ol0\\highlight0 b}c");
        QCOMPARE(fragmentsOf(*reading.document).size(), 1);
    }

    void storageFormKnowsNone()
    {
        const QByteArray words =
            "\\caps\\striked1\\ulth\\ol\\expndtw30\\charscalex150\\kerning0\\chcbpat1\\lang1031";
        const Reading plain = readBody(colorTable() + "x");
        QCOMPARE(dump(readBody(colorTable() + words + " x").format("x"_s)), dump(plain.format("x"_s)));
    }
};

ORV_TEST("interchange_charformats", TestInterchangeCharFormats, QGuiApplication)
#include "charformats.moc"
