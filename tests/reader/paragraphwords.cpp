#include "runhelpers.h"
#include "testsupport.h"

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
        tabs << "%1 %2%3"_s.arg(stop.position).arg(int(stop.type)).arg(delimiter);
    }
    return tabs.join(", "_s);
}

int pageBreaksOf(const QTextBlockFormat& format)
{
    return format.intProperty(QTextFormat::PageBreakPolicy) & 0x11;
}

} // namespace

/*! The control words of paragraphs and pages, and those that are accepted without effect. */
class TestParagraphWords : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(paragraphWords)
    {
        const Rows add([](const Properties& expected) {
            const Reading reading = readBody(QTest::currentDataTag() + " one\\par two"_b);
            QCOMPARE(reading.status, 0);
            QCOMPARE(reading.text(), "one\ntwo"_s);
            // Paragraph formatting holds until it is reset.
            for (int i = 0; i < 2; ++i)
                QCOMPARE(dump(reading.blockFormat(i)), dump(expected));
        });
        const int align = QTextFormat::BlockAlignment;
        add("\\ql", {{align, 1}});
        add("\\qr", {{align, 2}});
        add("\\qc", {{align, 4}});
        add("\\qj", {{align, 8}});
        add("\\qc0", {{align, 4}});
        add("\\qc\\ql", {{align, 1}});

        const int direction = QTextFormat::LayoutDirection;
        add("\\ltrpar", {{direction, 0}});
        add("\\rtlpar", {{direction, 1}});
        add("\\rtlpar\\ltrpar", {{direction, 0}});

        const int above = QTextFormat::BlockTopMargin;
        const int below = QTextFormat::BlockBottomMargin;
        add("\\sb240", {{above, 12.0}});
        add("\\sa120", {{below, 6.0}});
        add("\\sb1", {{above, 0.05}});
        add("\\sb", {{above, 0.0}});
        add("\\sa-20", {{below, -1.0}});
        add("\\sb240\\sa120\\sb0", {{above, 0.0}, {below, 6.0}});

        const int spacing = ORVRtfProperty::LineSpacing;
        const int multiple = ORVRtfProperty::LineMultiple;
        add("\\sl360", {{spacing, 18.0}});
        add("\\sl-360", {{spacing, -18.0}});
        add("\\sl0", {{spacing, 0.0}});
        add("\\slmult1", {{multiple, 12.0}});
        add("\\sl360\\slmult1", {{spacing, 18.0}, {multiple, 12.0}});
        add("\\slmult1\\sl360", {{spacing, 18.0}, {multiple, 12.0}});
        add("\\slmult1\\slmult0", {});
        add("\\slmult1\\slmult", {});
        add("\\slmult1\\slmult2", {});
        add("\\slmult0", {});

        // The right indent is where the right edge of the text is, measured from the left margin.
        add("\\lin720", {{leftIndent, 36.0}, {QTextFormat::TextIndent, 36.0}});
        add("\\rin360", {{rightIndent, 414.0}});
        add("\\li720\\lin720", {{leftIndent, 36.0}, {QTextFormat::TextIndent, 36.0}});
        add("\\li720\\ri360", {{leftIndent, 36.0}, {rightIndent, 414.0}, {QTextFormat::TextIndent, 36.0}});
        add("\\rtlpar\\lin720", {{direction, 1}, {leftIndent, 36.0}, {QTextFormat::TextIndent, 36.0}});
        add("\\rtlpar\\rin360", {{direction, 1}, {rightIndent, 414.0}});

        add("\\keep", {{pageBreak, 0x200}});
        add("\\keepn", {{pageBreak, 0x20}});
        add("\\pagebb", {{pageBreak, 0x01}});
        add("\\keep\\keepn\\pagebb", {{pageBreak, 0x221}});
        add("\\keep\\keep", {{pageBreak, 0x200}});

        add("\\qc\\rtlpar\\sb240\\sa120\\sl360\\slmult1\\li720\\fi360\\ri360\\keep\\keepn\\pagebb\\tx720\\par"
            "d",
            {});

        const int first = QTextFormat::TextIndent;
        add("\\li720", {{leftIndent, 36.0}, {first, 36.0}});
        add("\\fi360", {{first, 18.0}});
        add("\\fi-360", {{first, -18.0}});
        add("\\li720\\fi-360", {{leftIndent, 36.0}, {first, 18.0}});
        add("\\fi-360\\li720", {{leftIndent, 36.0}, {first, 18.0}});
        add("\\li720\\fi-360\\li1440", {{leftIndent, 72.0}, {first, 54.0}});
        add("\\li720\\li0", {{leftIndent, 0.0}, {first, 0.0}});
        add("\\li720\\fi-360\\fi200", {{leftIndent, 36.0}, {first, 46.0}});
        add("\\li-720", {{leftIndent, -36.0}, {first, -36.0}});
        add("\\li5", {{leftIndent, 0.25}, {first, 0.25}});
        add("\\li\\fi", {{leftIndent, 0.0}, {first, 0.0}});
        // 12240 wide, two margins of 1800.
        add("\\ri360", {{rightIndent, 414.0}});
        add("\\ri0", {{rightIndent, 432.0}});
        add("\\ri-360", {{rightIndent, 450.0}});
        add("\\li720\\fi-360\\ri360\\pard", {});
        add("\\li720\\fi-360\\pard\\li1440", {{leftIndent, 72.0}, {first, 72.0}});
        add("\\footnote\\li720\\fi-360\\ri360", {});
        add("\\annotation\\li720\\fi-360\\ri360", {});
    }

    ORV_ROWS(pageGeometry)
    {
        const Rows add([](const QByteArray& words, double edge) {
            const Reading reading = readBody(words + " x");
            QCOMPARE(dump(reading.blockFormat(0)), dump(Properties{{rightIndent, edge}}));
        });
        add("defaults", "\\ri0", 432.0);
        add("paper", "\\paperw10000\\ri0", 320.0);
        add("left margin", "\\margl800\\ri0", 482.0);
        add("right margin", "\\margr800\\ri0", 482.0);
        add("all", "\\paperw11906\\margl1134\\margr1134\\ri567", 453.55);
        add("height does not count", "\\paperh1\\margt1\\margb1\\ri0", 432.0);
        add("too late", "\\ri0\\paperw10000", 432.0);
        add("no number", "\\margl\\ri0", 522.0);
        add("narrower than its margins", "\\paperw0\\ri0", -180.0);
        add("in a group before", "{\\paperw10000}\\ri0", 320.0);
    }

    // The direction that counts is the one of the characters, which only a default format can give.
    void indentsOfRightToLeftText()
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

    ORV_ROWS(pageBreaks)
    {
        const Rows add([](const QByteArray& body, const QString& text, const QList<int>& breaks) {
            const Reading reading = readBody(body);
            QCOMPARE(reading.status, 0);
            QCOMPARE(reading.text(), text);
            QList<int> actual;
            for (int i = 0; i < reading.blockCount(); ++i)
                actual << pageBreaksOf(reading.blockFormat(i));
            QCOMPARE(actual, breaks);
        });
        // All breaks end up as breaks before a paragraph.
        add("none", "a\\par b", "a\nb", QList<int>{0, 0});
        add("between", "a\\page b\\par c", "a\nb\nc", QList<int>{0, 1, 0});
        add("after an end", "a\\par\\page b", "a\n\nb", QList<int>{0, 0, 1});
        add("first", "\\page a", "\na", QList<int>{0, 1});
        add("last", "a\\page", "a\n", QList<int>{0, 1});
        add("twice", "a\\page\\page b\\par c", "a\n\nb\nc", QList<int>{0, 1, 1, 0});
        add("before", "\\pagebb a\\par\\pard b", "a\nb", QList<int>{1, 0});
        add("before holds on", "a\\par\\pagebb b\\par c", "a\nb\nc", QList<int>{0, 1, 1});
        add("reset in between", "\\pard a\\page\\pard b\\par\\pard c", "a\nb\nc", QList<int>{0, 1, 0});
        add("in a group", "{\\b a\\page}b\\par c", "a\nb\nc", QList<int>{0, 1, 0});
    }

    // Nothing comes that would give the last paragraph its format.
    void pageBreakBeforeTheEndOfTheInput()
    {
        QCOMPARE(read("{a\\page").status, 8);
        const Reading complete = read("{a\\page ");
        QCOMPARE(complete.status, 2);
        QCOMPARE(complete.text(), "a\n"_s);
        QCOMPARE(pageBreaksOf(complete.blockFormat(0)), 0);
        QCOMPARE(pageBreaksOf(complete.blockFormat(1)), 1);
    }

    void keepBitsAreIndependentOfBreaks()
    {
        const Reading reading = readBody("\\keep\\keepn\\qc a\\page b");
        QCOMPARE(reading.blockFormat(0).intProperty(pageBreak), 0x220);
        QCOMPARE(reading.blockFormat(1).intProperty(pageBreak), 0x221);
        QCOMPARE(reading.blockFormat(1).intProperty(QTextFormat::BlockAlignment), 4);
    }

    ORV_ROWS(tabs)
    {
        const Rows add([](const QString& expected) {
            const Reading reading = readBody(QTest::currentDataTag() + " one\\par two"_b);
            QCOMPARE(tabsOf(reading.blockFormat(0)), expected);
            QCOMPARE(tabsOf(reading.blockFormat(1)), expected);
        });
        add("\\tx720", "36 0");
        add("\\tx720\\tx1440\\tx2165", "36 0, 72 0, 108.25 0");
        add("\\tx1440\\tx720", "72 0, 36 0");
        add("\\tqr\\tx720", "36 1");
        add("\\tqc\\tx720", "36 2");
        add("\\tqdec\\tx720", "36 3.");
        add("\\tqr\\tx720\\tx1440", "36 1, 72 0");
        add("\\tqdec\\tx720\\tx1440", "36 3., 72 0");
        add("\\tqdec\\tx720\\tqr\\tx1440", "36 3., 72 1");
        add("\\tqr\\tqc\\tx720", "36 2");
        add("\\tqr", "");
        add("\\tx", "0 0");
        add("\\tx-720", "-36 0");
        add("\\tx720\\pard", "");
        add("\\tx720\\pard\\tx1440", "72 0");
        add("{\\tx720}", "36 0");
    }

    ORV_ROWS(wordsInNotes)
    {
        const Rows add([](const Properties& expected) {
            const Properties centred{{QTextFormat::BlockAlignment, 4}};
            for (const QByteArray& note : {"\\footnote"_b, "\\annotation"_b}) {
                const Reading reading =
                    readBody("\\qc one{" + note + QTest::currentDataTag() + " two}\\par three");
                QCOMPARE(reading.text(), "onetwo\nthree"_s);
                QCOMPARE(dump(reading.blockFormat(0)), dump(centred));
                QCOMPARE(dump(reading.blockFormat(1)), dump(expected));
            }
        });
        const int align = QTextFormat::BlockAlignment;
        const QByteArray ignored =
            "\\pard \\ql \\qr \\qj \\ltrpar \\rtlpar \\sb240 \\sa240 \\sl240 \\slmult1 "
            "\\li720 \\fi360 \\ri360 \\lin720 \\rin360";
        for (const QByteArray& word : ignored.split(' '))
            add(word, {{align, 4}});
        add("\\keep", {{align, 4}, {pageBreak, 0x200}});
        add("\\keepn", {{align, 4}, {pageBreak, 0x20}});
        add("\\pagebb", {{align, 4}, {pageBreak, 0x01}});
        add("\\ilvl2", {{align, 4}, {ORVRtfProperty::ListLevel, 2}});
    }

    void tabsAndListsInNotes()
    {
        const Reading reading = readBody("one{\\footnote\\tx720\\ls3 two}\\par three");
        QCOMPARE(tabsOf(reading.blockFormat(1)), "36 0"_s);
        QVERIFY(!reading.block(0).textList());
        QVERIFY(reading.block(1).textList());
    }

    // A note's content may be read with the note's own format as the default: \\plain makes it a note's then.
    void wordsInTextThatIsANoteByDefault()
    {
        for (const int flag : {ORVRtfProperty::InFootnote, ORVRtfProperty::InAnnotation}) {
            QTextCharFormat format;
            format.setProperty(flag, true);
            QByteArray rtf = "{\\rtf1\\ansi\\qc one\\par\\pard\\plain\\qr two\\par{\\pard\\qj three}}";
            QBuffer buffer(&rtf);
            ORVTextRtfReader reader(&buffer);
            QTextDocument document;
            QVERIFY(reader.read(&document, true, format));
            const int alignment = QTextFormat::BlockAlignment;
            QCOMPARE(document.begin().blockFormat().property(alignment), QVariant(int(Qt::AlignHCenter)));
            QVERIFY(!document.begin().next().blockFormat().hasProperty(alignment));
            QVERIFY(!document.lastBlock().blockFormat().hasProperty(alignment));
        }
    }

    ORV_ROWS(wordsWithoutEffect)
    {
        const Rows add([] {
            for (const char* parameter : {"", "1", "0", "-5"}) {
                const QByteArray words = QTest::currentDataTag() + QByteArray(parameter);
                const Reading reading =
                    readBody("a" + words + " b{" + words + " c}{\\*" + words + " d}\\par e");
                QCOMPARE(reading.status, 0);
                QCOMPARE(runsOf(reading), QStringList({run("abcd", plainRun), "|"_s, run("e", plainRun)}));
                QCOMPARE(dump(reading.blockFormat(0)), QString());
                QCOMPARE(dump(reading.blockFormat(1)), QString());
                QVERIFY(!reading.block(1).textList());
            }
        });
        // The last ones mean nothing outside their tables.
        const QByteArray all =
            "\\ud \\absw \\absh \\nowrap \\posxl \\posxc \\posxr \\strokewidth \\strokec \\strikec \\fet "
            "\\ftnbj \\aenddoc \\chatn \\chftn \\ftnalt \\ltrch \\rtlch \\loch \\hich \\dbch \\af "
            "\\shppict \\cs \\header \\headerf \\headerl \\headerr \\footer \\footerf \\footerl \\footerr "
            "\\titlepg \\pgnrestart \\pgnstarts \\chpgn \\listsimple \\leveltemplateid \\levelnumbers "
            "\\leveljc \\leveljcn \\levelfollow \\levelstartat \\levelspace \\levelindent "
            "\\listoverridecount \\trowd \\nesttableprops \\trautofit \\trleft \\clmgf \\clvmgf \\clpadt "
            "\\clpadl \\clpadr \\clpadb \\rtf \\ansi "
            "\\froman \\fnil \\fswiss \\fmodern \\fscript \\fdecor \\ftech \\fbidi \\red \\green \\blue "
            "\\list \\listid \\listtemplateid \\listhybrid \\listlevel \\levelnfc \\levelnfcn \\listoverride";
        for (const QByteArray& word : all.split(' '))
            add(word);
    }

    ORV_ROWS(ignoredGroups)
    {
        const Rows add([] {
            const QByteArray word = QTest::currentDataTag();
            for (const QByteArray& opening : {"{" + word, "{\\*" + word, "{" + word + "1"}) {
                const Reading reading =
                    readBody("\\b a" + opening + " b\\par{c{\\i d}}\\'zz\\pard\\qc e}f\\par g");
                QCOMPARE(reading.status, 0);
                QCOMPARE(runsOf(reading), QStringList({run("af", boldRun), "|"_s, run("g", boldRun)}));
                QCOMPARE(dump(reading.blockFormat(1)), QString());
            }
            // Text before the word belongs to the group around it.
            QCOMPARE(readBody("a{b" + word + " c}d").text(), "abd"_s);
        });
        const QByteArray all =
            "\\atnid \\atnauthor \\bkmkstart \\bkmkend \\nonesttables \\nonshppict \\listname \\listtext "
            "\\levelmarker \\pntext \\lfolevel \\stylesheet \\info";
        for (const QByteArray& word : all.split(' '))
            add(word);
    }
};

ORV_TEST("paragraphwords", TestParagraphWords, QGuiApplication)
#include "paragraphwords.moc"
