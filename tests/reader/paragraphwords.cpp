#include "ORVRtfProperties.h"
#include "ORVTextFormat.h"
#include "rtftesthelpers.h"

#include <QtTest/QtTest>

using namespace rtftest;

namespace {

const int leftIndent = ORVRtfProperty::LeftIndent;
const int rightIndent = ORVRtfProperty::RightIndent;
const int pageBreak = QTextFormat::PageBreakPolicy;

/*! Tab stops in a comparable form: position, kind and delimiter of each. */
QString tabsOf(const QTextBlockFormat& format)
{
    QStringList tabs;
    const QList<QTextOption::Tab> stops = format.tabPositions();
    for (const QTextOption::Tab& stop : stops) {
        const QString delimiter = stop.delimiter.isNull() ? QString() : QString(stop.delimiter);
        tabs << QStringLiteral("%1 %2%3").arg(stop.position).arg(int(stop.type)).arg(delimiter);
    }
    return tabs.join(QLatin1String(", "));
}

int pageBreaksOf(const QTextBlockFormat& format)
{
    return format.intProperty(QTextFormat::PageBreakPolicy) & 0x11;
}

} // namespace

/*! The control words of paragraphs and pages, and those that are accepted without effect. */
class TestParagraphwords : public QObject {
    Q_OBJECT

private slots:
    void paragraphWords_data();
    void paragraphWords();
    void pageGeometry_data();
    void pageGeometry();
    void indentsOfRightToLeftText();
    void paragraphEnds_data();
    void paragraphEnds();
    void pageBreaks_data();
    void pageBreaks();
    void pageBreakBeforeTheEndOfTheInput();
    void keepBitsAreIndependentOfBreaks();
    void tabs_data();
    void tabs();
    void tabLimit();
    void resetInTheMiddle();
    void wordsInNotes_data();
    void wordsInNotes();
    void wordsInTextThatIsANoteByDefault();
    void wordsWithoutEffect_data();
    void wordsWithoutEffect();
    void ignoredGroups_data();
    void ignoredGroups();
    void unicodeAlternative_data();
    void unicodeAlternative();
};

void TestParagraphwords::paragraphWords_data()
{
    QTest::addColumn<QByteArray>("words");
    QTest::addColumn<QString>("expected");
    const auto row = [](const QByteArray& words, const Properties& expected) {
        QTest::newRow(words.constData()) << words << dump(expected);
    };

    const int align = QTextFormat::BlockAlignment;
    row("\\ql", {{align, 1}});
    row("\\qr", {{align, 2}});
    row("\\qc", {{align, 4}});
    row("\\qj", {{align, 8}});
    row("\\qc0", {{align, 4}});
    row("\\qc\\ql", {{align, 1}});

    const int direction = QTextFormat::LayoutDirection;
    row("\\ltrpar", {{direction, 0}});
    row("\\rtlpar", {{direction, 1}});
    row("\\rtlpar\\ltrpar", {{direction, 0}});

    const int above = QTextFormat::BlockTopMargin;
    const int below = QTextFormat::BlockBottomMargin;
    row("\\sb240", {{above, 12.0}});
    row("\\sa120", {{below, 6.0}});
    row("\\sb1", {{above, 0.05}});
    row("\\sb", {{above, 0.0}});
    row("\\sa-20", {{below, -1.0}});
    row("\\sb240\\sa120\\sb0", {{above, 0.0}, {below, 6.0}});

    const int spacing = ORVRtfProperty::LineSpacing;
    const int multiple = ORVRtfProperty::LineMultiple;
    row("\\sl360", {{spacing, 18.0}});
    row("\\sl-360", {{spacing, -18.0}});
    row("\\sl0", {{spacing, 0.0}});
    row("\\slmult1", {{multiple, 12.0}});
    row("\\sl360\\slmult1", {{spacing, 18.0}, {multiple, 12.0}});
    row("\\slmult1\\sl360", {{spacing, 18.0}, {multiple, 12.0}});
    row("\\slmult1\\slmult0", {});
    row("\\slmult1\\slmult", {});
    row("\\slmult1\\slmult2", {});
    row("\\slmult0", {});

    // The right indent is where the right edge of the text is, measured from the left margin.
    row("\\lin720", {{leftIndent, 36.0}, {QTextFormat::TextIndent, 36.0}});
    row("\\rin360", {{rightIndent, 414.0}});
    row("\\li720\\lin720", {{leftIndent, 36.0}, {QTextFormat::TextIndent, 36.0}});
    row("\\li720\\ri360", {{leftIndent, 36.0}, {rightIndent, 414.0}, {QTextFormat::TextIndent, 36.0}});
    row("\\rtlpar\\lin720", {{direction, 1}, {leftIndent, 36.0}, {QTextFormat::TextIndent, 36.0}});
    row("\\rtlpar\\rin360", {{direction, 1}, {rightIndent, 414.0}});

    row("\\keep", {{pageBreak, 0x200}});
    row("\\keepn", {{pageBreak, 0x20}});
    row("\\pagebb", {{pageBreak, 0x01}});
    row("\\keep\\keepn\\pagebb", {{pageBreak, 0x221}});
    row("\\keep\\keep", {{pageBreak, 0x200}});

    row("\\qc\\rtlpar\\sb240\\sa120\\sl360\\slmult1\\li720\\fi360\\ri360\\keep\\keepn\\pagebb\\tx720\\pard",
        {});
}

void TestParagraphwords::paragraphWords()
{
    QFETCH(QByteArray, words);
    QFETCH(QString, expected);

    const Reading reading = readBody(words + " one\\par two");
    QCOMPARE(reading.status, 0);
    QCOMPARE(reading.text(), QStringLiteral("one\ntwo"));
    QCOMPARE(dump(reading.blockFormat(0)), expected);
    // Paragraph formatting holds until it is reset.
    QCOMPARE(dump(reading.blockFormat(1)), expected);
}

void TestParagraphwords::pageGeometry_data()
{
    QTest::addColumn<QByteArray>("words");
    QTest::addColumn<double>("edge");

    QTest::newRow("defaults") << QByteArray("\\ri0") << 432.0;
    QTest::newRow("paper") << QByteArray("\\paperw10000\\ri0") << 320.0;
    QTest::newRow("left margin") << QByteArray("\\margl800\\ri0") << 482.0;
    QTest::newRow("right margin") << QByteArray("\\margr800\\ri0") << 482.0;
    QTest::newRow("all") << QByteArray("\\paperw11906\\margl1134\\margr1134\\ri567") << 453.55;
    QTest::newRow("height does not count") << QByteArray("\\paperh1\\margt1\\margb1\\ri0") << 432.0;
    QTest::newRow("too late") << QByteArray("\\ri0\\paperw10000") << 432.0;
    QTest::newRow("no number") << QByteArray("\\margl\\ri0") << 522.0;
    QTest::newRow("narrower than its margins") << QByteArray("\\paperw0\\ri0") << -180.0;
    QTest::newRow("in a group before") << QByteArray("{\\paperw10000}\\ri0") << 320.0;
}

void TestParagraphwords::pageGeometry()
{
    QFETCH(QByteArray, words);
    QFETCH(double, edge);

    const Reading reading = readBody(words + " x");
    QCOMPARE(dump(reading.blockFormat(0)), dump(Properties{{rightIndent, edge}}));
}

// The direction that counts is the one of the characters, which only a default format can give.
void TestParagraphwords::indentsOfRightToLeftText()
{
    const auto after = [](Qt::LayoutDirection direction, const QByteArray& words) {
        QTextCharFormat format;
        format.setProperty(QTextFormat::LayoutDirection, int(direction));
        const QSharedPointer<QTextDocument> document = newDocument();
        ORVTextFormat::setDefaultCharFormat(document.data(), format);
        return dump(readInto(document, "{\\rtf1\\plain" + words + " x}").blockFormat(0));
    };
    const QString left = dump(Properties{{leftIndent, 18.0}, {QTextFormat::TextIndent, 18.0}});
    const QString right = dump(Properties{{rightIndent, 414.0}});
    QCOMPARE(after(Qt::RightToLeft, "\\lin360"), right);
    QCOMPARE(after(Qt::RightToLeft, "\\rin360"), left);
    QCOMPARE(after(Qt::RightToLeft, "\\li360"), left);
    QCOMPARE(after(Qt::RightToLeft, "\\ri360"), right);
    QCOMPARE(after(Qt::LeftToRight, "\\lin360"), left);
    QCOMPARE(after(Qt::LeftToRight, "\\rin360"), right);
}

void TestParagraphwords::paragraphEnds_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("text");

    QTest::newRow("one") << QByteArray("a\\par b") << "a\nb";
    QTest::newRow("symbol") << QByteArray("a\\\nb") << "a\nb";
    QTest::newRow("last") << QByteArray("a\\par") << "a\n";
    QTest::newRow("first") << QByteArray("\\par a") << "\na";
    QTest::newRow("only") << QByteArray("\\par") << "\n";
    QTest::newRow("several") << QByteArray("a\\par\\par\\par b") << "a\n\n\nb";
    QTest::newRow("parameters do not count") << QByteArray("a\\par0 b") << "a\nb";
    QTest::newRow("in groups") << QByteArray("{a{\\par}b}") << "a\nb";
    QTest::newRow("in a note") << QByteArray("a{\\footnote b\\par c}d") << "ab\ncd";
    QTest::newRow("reset is no end") << QByteArray("a\\pard b") << "ab";
    QTest::newRow("encoded line feed") << QByteArray("a\\'0ab") << "a\nb";
}

void TestParagraphwords::paragraphEnds()
{
    QFETCH(QByteArray, body);
    QFETCH(QString, text);

    const Reading reading = readBody(body);
    QCOMPARE(reading.status, 0);
    QCOMPARE(reading.text(), text);
}

void TestParagraphwords::pageBreaks_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<int>>("breaks");

    // All breaks end up as breaks before a paragraph.
    QTest::newRow("none") << QByteArray("a\\par b") << "a\nb" << QList<int>{0, 0};
    QTest::newRow("between") << QByteArray("a\\page b\\par c") << "a\nb\nc" << QList<int>{0, 1, 0};
    QTest::newRow("after an end") << QByteArray("a\\par\\page b") << "a\n\nb" << QList<int>{0, 0, 1};
    QTest::newRow("first") << QByteArray("\\page a") << "\na" << QList<int>{0, 1};
    QTest::newRow("last") << QByteArray("a\\page") << "a\n" << QList<int>{0, 1};
    QTest::newRow("twice") << QByteArray("a\\page\\page b\\par c") << "a\n\nb\nc" << QList<int>{0, 1, 1, 0};
    QTest::newRow("before") << QByteArray("\\pagebb a\\par\\pard b") << "a\nb" << QList<int>{1, 0};
    QTest::newRow("before holds on") << QByteArray("a\\par\\pagebb b\\par c") << "a\nb\nc"
                                     << QList<int>{0, 1, 1};
    QTest::newRow("reset in between")
        << QByteArray("\\pard a\\page\\pard b\\par\\pard c") << "a\nb\nc" << QList<int>{0, 1, 0};
    QTest::newRow("in a group") << QByteArray("{\\b a\\page}b\\par c") << "a\nb\nc" << QList<int>{0, 1, 0};
}

void TestParagraphwords::pageBreaks()
{
    QFETCH(QByteArray, body);
    QFETCH(QString, text);
    QFETCH(QList<int>, breaks);

    const Reading reading = readBody(body);
    QCOMPARE(reading.status, 0);
    QCOMPARE(reading.text(), text);
    QList<int> actual;
    for (int i = 0; i < reading.blockCount(); ++i)
        actual << pageBreaksOf(reading.blockFormat(i));
    QCOMPARE(actual, breaks);
}

// Nothing comes that would give the last paragraph its format.
void TestParagraphwords::pageBreakBeforeTheEndOfTheInput()
{
    const Reading reading = read("{a\\page");
    QCOMPARE(reading.status, 8);
    const Reading complete = read("{a\\page ");
    QCOMPARE(complete.status, 2);
    QCOMPARE(complete.text(), QStringLiteral("a\n"));
    QCOMPARE(pageBreaksOf(complete.blockFormat(0)), 0);
    QCOMPARE(pageBreaksOf(complete.blockFormat(1)), 1);
}

void TestParagraphwords::keepBitsAreIndependentOfBreaks()
{
    const Reading reading = readBody("\\keep\\keepn\\qc a\\page b");
    QCOMPARE(reading.blockFormat(0).intProperty(pageBreak), 0x220);
    QCOMPARE(reading.blockFormat(1).intProperty(pageBreak), 0x221);
    QCOMPARE(reading.blockFormat(1).intProperty(QTextFormat::BlockAlignment), 4);
}

void TestParagraphwords::tabs_data()
{
    QTest::addColumn<QByteArray>("words");
    QTest::addColumn<QString>("expected");
    const auto row = [](const QByteArray& words, const char* expected) {
        QTest::newRow(words.constData()) << words << expected;
    };

    row("\\tx720", "36 0");
    row("\\tx720\\tx1440\\tx2165", "36 0, 72 0, 108.25 0");
    row("\\tx1440\\tx720", "72 0, 36 0");
    row("\\tqr\\tx720", "36 1");
    row("\\tqc\\tx720", "36 2");
    row("\\tqdec\\tx720", "36 3.");
    row("\\tqr\\tx720\\tx1440", "36 1, 72 0");
    row("\\tqdec\\tx720\\tx1440", "36 3., 72 0");
    row("\\tqdec\\tx720\\tqr\\tx1440", "36 3., 72 1");
    row("\\tqr\\tqc\\tx720", "36 2");
    row("\\tqr", "");
    row("\\tx", "0 0");
    row("\\tx-720", "-36 0");
    row("\\tx720\\pard", "");
    row("\\tx720\\pard\\tx1440", "72 0");
    row("{\\tx720}", "36 0");
}

void TestParagraphwords::tabs()
{
    QFETCH(QByteArray, words);
    QFETCH(QString, expected);

    const Reading reading = readBody(words + " one\\par two");
    QCOMPARE(tabsOf(reading.blockFormat(0)), expected);
    QCOMPARE(tabsOf(reading.blockFormat(1)), expected);
}

void TestParagraphwords::tabLimit()
{
    QByteArray words;
    for (int i = 1; i <= 300; ++i)
        words += "\\tx" + QByteArray::number(20 * i);
    const Reading reading = readBody("\\pard" + words + " one\\par\\pard\\tx20 two");
    const QList<QTextOption::Tab> stops = reading.blockFormat(0).tabPositions();
    QCOMPARE(int(stops.size()), 256);
    QCOMPARE(stops.first().position, 1.0);
    QCOMPARE(stops.last().position, 256.0);
    QCOMPARE(tabsOf(reading.blockFormat(1)), QStringLiteral("1 0"));
}

// A paragraph's format is what is in force when its first text comes.
void TestParagraphwords::resetInTheMiddle()
{
    const Reading reading = readBody("\\qc one\\pard two\\par three");
    QCOMPARE(dump(reading.blockFormat(0)), dump(Properties{{QTextFormat::BlockAlignment, 4}}));
    QCOMPARE(dump(reading.blockFormat(1)), QString());
}

void TestParagraphwords::wordsInNotes_data()
{
    QTest::addColumn<QByteArray>("words");
    QTest::addColumn<QString>("expected");
    const auto ignored = [](const QByteArray& words) {
        QTest::newRow(words.constData()) << words << dump(Properties{{QTextFormat::BlockAlignment, 4}});
    };
    const auto row = [](const QByteArray& words, int id, const QVariant& value) {
        QTest::newRow(words.constData())
            << words << dump(Properties{{QTextFormat::BlockAlignment, 4}, {id, value}});
    };

    for (const char* words :
         {"\\pard", "\\ql", "\\qr", "\\qj", "\\ltrpar", "\\rtlpar", "\\sb240", "\\sa240", "\\sl240",
          "\\slmult1", "\\li720", "\\fi360", "\\ri360", "\\lin720", "\\rin360"})
        ignored(words);
    row("\\keep", pageBreak, 0x200);
    row("\\keepn", pageBreak, 0x20);
    row("\\pagebb", pageBreak, 0x01);
    row("\\ilvl2", ORVRtfProperty::ListLevel, 2);
}

void TestParagraphwords::wordsInNotes()
{
    QFETCH(QByteArray, words);
    QFETCH(QString, expected);

    for (const QByteArray& note : {QByteArray("\\footnote"), QByteArray("\\annotation")}) {
        const Reading reading = readBody("\\qc one{" + note + words + " two}\\par three");
        QCOMPARE(reading.text(), QStringLiteral("onetwo\nthree"));
        QCOMPARE(dump(reading.blockFormat(0)), dump(Properties{{QTextFormat::BlockAlignment, 4}}));
        QCOMPARE(dump(reading.blockFormat(1)), expected);
    }
    const Reading tabbed = readBody("one{\\footnote\\tx720\\ls3 two}\\par three");
    QCOMPARE(tabsOf(tabbed.blockFormat(1)), QStringLiteral("36 0"));
    QVERIFY(!tabbed.block(0).textList());
    QVERIFY(tabbed.block(1).textList());
}

// A note's content may be read with the note's own format as the default: \\plain makes it a note's then.
void TestParagraphwords::wordsInTextThatIsANoteByDefault()
{
    for (const int flag : {ORVRtfProperty::InFootnote, ORVRtfProperty::InAnnotation}) {
        QTextCharFormat format;
        format.setProperty(flag, true);
        const QByteArray rtf = "{\\rtf1\\ansi\\qc one\\par\\pard\\plain\\qr two\\par{\\pard\\qj three}}";
        QBuffer buffer;
        buffer.setData(rtf);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        ORVTextRtfReader reader(&buffer);
        QTextDocument document;
        QVERIFY(reader.read(&document, true, format));
        const int alignment = QTextFormat::BlockAlignment;
        QCOMPARE(document.begin().blockFormat().property(alignment), QVariant(int(Qt::AlignHCenter)));
        QVERIFY(!document.begin().next().blockFormat().hasProperty(alignment));
        QVERIFY(!document.lastBlock().blockFormat().hasProperty(alignment));
    }
}

void TestParagraphwords::wordsWithoutEffect_data()
{
    QTest::addColumn<QByteArray>("word");
    for (const char* word : {"\\ud",           "\\absw",
                             "\\absh",         "\\nowrap",
                             "\\posxl",        "\\posxc",
                             "\\posxr",        "\\strokewidth",
                             "\\strokec",      "\\strikec",
                             "\\fet",          "\\ftnbj",
                             "\\aenddoc",      "\\chatn",
                             "\\chftn",        "\\ftnalt",
                             "\\ltrch",        "\\rtlch",
                             "\\loch",         "\\hich",
                             "\\dbch",         "\\af",
                             "\\shppict",      "\\cs",
                             "\\header",       "\\headerf",
                             "\\headerl",      "\\headerr",
                             "\\footer",       "\\footerf",
                             "\\footerl",      "\\footerr",
                             "\\titlepg",      "\\pgnrestart",
                             "\\pgnstarts",    "\\chpgn",
                             "\\listsimple",   "\\leveltemplateid",
                             "\\levelnumbers", "\\leveljc",
                             "\\leveljcn",     "\\levelfollow",
                             "\\levelstartat", "\\levelspace",
                             "\\levelindent",  "\\listoverridecount",
                             "\\trowd",        "\\nesttableprops",
                             "\\trautofit",    "\\trleft",
                             "\\clmgf",        "\\clvmgf",
                             "\\clpadt",       "\\clpadl",
                             "\\clpadr",       "\\clpadb",
                             "\\rtf",          "\\ansi"})
        QTest::newRow(word) << QByteArray(word);
    // Outside their tables these words mean nothing either.
    for (const char* word :
         {"\\froman", "\\fnil", "\\fswiss", "\\fmodern", "\\fscript", "\\fdecor", "\\ftech", "\\fbidi",
          "\\red", "\\green", "\\blue", "\\list", "\\listid", "\\listtemplateid", "\\listhybrid",
          "\\listlevel", "\\levelnfc", "\\levelnfcn", "\\listoverride"})
        QTest::newRow(word) << QByteArray(word);
}

void TestParagraphwords::wordsWithoutEffect()
{
    QFETCH(QByteArray, word);

    for (const QByteArray& parameter : {QByteArray(), QByteArray("1"), QByteArray("0"), QByteArray("-5")}) {
        const QByteArray words = word + parameter;
        const Reading reading = readBody("a" + words + " b{" + words + " c}{\\*" + words + " d}\\par e");
        QCOMPARE(reading.status, 0);
        QCOMPARE(reading.text(), QStringLiteral("abcd\ne"));
        QCOMPARE(fragmentsOf(*reading.document).size(), 2);
        QCOMPARE(dump(reading.format(QStringLiteral("abcd"))), QString());
        QCOMPARE(dump(reading.blockFormat(0)), QString());
        QCOMPARE(dump(reading.blockFormat(1)), QString());
        QVERIFY(!reading.block(1).textList());
    }
}

void TestParagraphwords::ignoredGroups_data()
{
    QTest::addColumn<QByteArray>("word");
    for (const char* word :
         {"\\atnid", "\\atnauthor", "\\bkmkstart", "\\bkmkend", "\\nonesttables", "\\nonshppict",
          "\\listname", "\\listtext", "\\levelmarker", "\\pntext", "\\lfolevel", "\\stylesheet", "\\info"})
        QTest::newRow(word) << QByteArray(word);
}

void TestParagraphwords::ignoredGroups()
{
    QFETCH(QByteArray, word);

    for (const QByteArray& opening : {"{" + word, "{\\*" + word, "{" + word + "1"}) {
        const Reading reading = readBody("\\b a" + opening + " b\\par{c{\\i d}}\\'zz\\pard\\qc e}f\\par g");
        QCOMPARE(reading.status, 0);
        QCOMPARE(reading.text(), QStringLiteral("af\ng"));
        QCOMPARE(dump(reading.format(QStringLiteral("af"))),
                 dump(Properties{{QTextFormat::FontWeight, int(QFont::Bold)}}));
        QCOMPARE(dump(reading.blockFormat(1)), QString());
    }
    // Text before the word belongs to the group around it.
    QCOMPARE(readBody("a{b" + word + " c}d").text(), QStringLiteral("abd"));
}

void TestParagraphwords::unicodeAlternative_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("text");

    QTest::newRow("Unicode half is read") << QByteArray("a{\\upr{b}{\\*\\ud{c}}}d") << "acd";
    QTest::newRow("without inner groups") << QByteArray("a{\\upr{b}{\\*\\ud c}}d") << "acd";
    QTest::newRow("groups in the ANSI half") << QByteArray("a{\\upr{b{\\i x}y}{\\*\\ud{c}}}d") << "acd";
    QTest::newRow("marked") << QByteArray("a{\\*\\upr{b}{\\*\\ud{c}}}d") << "acd";
    QTest::newRow("bookmarks") << QByteArray("a{\\upr{\\*\\bkmkstart b}{\\*\\ud{\\*\\bkmkstart c}}}d")
                               << "ad";
    QTest::newRow("twice") << QByteArray("{\\upr{a}{\\*\\ud b}}{\\upr{c}{\\*\\ud d}}") << "bd";
    QTest::newRow("line ends between") << QByteArray("a{\\upr\n{b}\n{\\*\\ud\n{c}}\n}d") << "acd";
}

void TestParagraphwords::unicodeAlternative()
{
    QFETCH(QByteArray, body);
    QFETCH(QString, text);

    const Reading reading = readBody(body);
    QCOMPARE(reading.status, 0);
    QCOMPARE(reading.text(), text);
}

QTEST_MAIN(TestParagraphwords)
#include "tst_paragraphwords.moc"
