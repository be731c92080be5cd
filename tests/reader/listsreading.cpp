#include "runhelpers.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

/*!
    A list table with one list, number 7, that has the given levels, and the override \a overrideNumber of it.
*/
QByteArray listTables(const QByteArray& levels, int overrideNumber = 1)
{
    return "{\\*\\listtable{\\list\\listtemplateid99\\listhybrid" + levels + "{\\listname name;}\\listid7}}"
        + "{\\*\\listoverridetable{\\listoverride\\listid7\\listoverridecount0\\ls"
        + QByteArray::number(overrideNumber) + "}}";
}

/*! A level with the number kind \a nfc, the text \a text and the words \a words. */
QByteArray level(const QByteArray& text, const QByteArray& words = QByteArray(), int nfc = 0)
{
    return "{\\listlevel\\levelnfc" + QByteArray::number(nfc) + "\\leveljc0\\levelfollow0\\levelstartat1"
        + "{\\leveltext" + text + "}{\\levelnumbers\\'01;}" + words + "}";
}

QString describe(const QList<ORVTextListLevel>& levels)
{
    QStringList lines;
    for (const ORVTextListLevel& level : levels)
        lines << "'" + level.text()
                + "' %1 %2 %3"_s.arg(level.kind()).arg(level.indent()).arg(level.firstLinePosition());
    return lines.join(", "_s);
}

QList<ORVTextListLevel> levelsOf(const QByteArray& levels)
{
    return levelsOf(readBody(listTables(levels) + "\\pard\\ls1 item"));
}

} // namespace

/*! List tables, and the lists that paragraphs become members of. */
class TestListsReading : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(levels)
    {
        const Rows add([](const QByteArray& rtf, const QString& expected) {
            QCOMPARE(describe(levelsOf(rtf)), expected);
        });
        const auto text = [&add](const char* name, const QByteArray& words, const Text& expected) {
            add(name, level(words), "'%1' 1 0 0"_s.arg(expected));
        };
        const auto kind = [&add](const QByteArray& words, ORVTextListLevel::Kind expected) {
            add(words.constData(), "{\\listlevel" + words + "{\\leveltext\\'02\\'00.;}}",
                "'%0.' "_s + QString::number(int(expected)) + " 0 0"_s);
        };
        const auto indent = [&add](const QByteArray& words, double indent, double firstLine) {
            add(words.constData(), level("\\'02\\'00.;", words),
                "'%0.' 1 "_s + "%1 %2"_s.arg(indent).arg(firstLine));
        };

        // Templates count upwards: "%0" is the number of the level itself, "%1" of the one above, and so on.
        add("several levels",
            level("\\'02\\'00.;") + level("\\'03\\'00.\\'01;") + level("\\'06\\'00.\\'01.\\'02.;")
                + level("\\'02\\'03);") + level("\\'03\\'00-\\'04;"),
            "'%0.' 1 0 0, '%1.%0' 1 0 0, '%2.%1.%0.' 1 0 0, '%0)' 1 0 0, '%4-%0' 1 0 0");
        // Without a level there is nothing these words could describe.
        add("words without a level", "\\levelnfc23\\li720\\fi360\\lin720{\\leveltext\\'01x;}", "");

        // The first character is the length of the template, \'00 the number of the level itself.
        text("number and dot", "\\'02\\'00.;", "%0.");
        text("number in brackets", "\\'03(\\'00);", "(%0)");
        text("template id in front", "\\leveltemplateid67\\'02\\'00.;", "%0.");
        text("number alone", "\\'01\\'00;", "%0");
        text("no number", "\\'00;", "");
        text("bullet", "\\'01\\u8226 ?;", QString(QChar(0x2022)));
        text("bullet as an escape", "\\'01\\'95;", QString(QChar(0x2022)));
        text("bullet of a symbol font", "\\'01\\u-3913 ?;", QString(QChar(0xF0B7)));
        text("text", "\\'09Chapter \\'00;", "Chapter %0");
        text("longer than its length", "\\'02\\'00.more;", "%0.");
        text("shorter than its length", "\\'09\\'00.", "%0.");
        text("length and nothing", "\\'02", "");
        text("empty", QByteArray(), "");
        text("filtered as text is", "\\'02\\'7f\\'00.;", "%0.");
        text("twice the number", "\\'03\\'00-\\'00;", "%0-%0");

        kind("\\levelnfc0", ORVTextListLevel::Decimal);
        kind("\\levelnfc1", ORVTextListLevel::UpperRoman);
        kind("\\levelnfc2", ORVTextListLevel::LowerRoman);
        kind("\\levelnfc3", ORVTextListLevel::UpperLetter);
        kind("\\levelnfc4", ORVTextListLevel::LowerLetter);
        kind("\\levelnfc23", ORVTextListLevel::Bullet);
        kind("\\levelnfcn23", ORVTextListLevel::Bullet);
        kind("\\levelnfcn4", ORVTextListLevel::LowerLetter);
        kind("\\levelnfc4\\levelnfcn2", ORVTextListLevel::LowerRoman);
        kind("\\levelnfc", ORVTextListLevel::Decimal);
        kind("\\leveljc0", ORVTextListLevel::Decimal);
        // Others leave the kind as it is.
        kind("\\levelnfc255", ORVTextListLevel::Decimal);
        kind("\\levelnfc5", ORVTextListLevel::Decimal);
        kind("\\levelnfc22", ORVTextListLevel::Decimal);
        kind("\\levelnfc-1", ORVTextListLevel::Decimal);
        kind("\\levelnfc23\\levelnfcn255", ORVTextListLevel::Bullet);
        kind("\\levelnfc4\\levelnfcn5", ORVTextListLevel::LowerLetter);

        indent("\\li720\\fi-360", 36, 18);
        indent("\\fi-360\\li720", 36, 18);
        indent("\\li720", 36, 36);
        indent("\\fi360", 0, 18);
        indent("\\li720\\fi-360\\li1440", 72, 54);
        indent("\\li720\\fi-360\\fi100", 36, 41);
        indent("\\lin720\\fi-360", 36, 18);
        indent("\\fi-360\\li720\\lin720", 36, 18);
        indent("\\li720\\ri500\\rin500", 36, 36);
        indent("\\li5", 0.25, 0.25);
        indent("\\li", 0, 0);
    }

    void listTablesLeaveNoText()
    {
        const Reading reading = readBody(
            "a" + listTables(level("\\'02\\'00.;", "\\fi-360\\li720\\jclisttab\\tx720")) + "b\\par c");
        QCOMPARE(reading.status, 0);
        QCOMPARE(reading.text(), "ab\nc"_s);
        for (int i = 0; i < 2; ++i) {
            QVERIFY(!reading.block(i).textList());
            QVERIFY(!reading.blockFormat(i).hasProperty(ORVRtfProperty::LeftIndent));
            QVERIFY(!reading.blockFormat(i).hasProperty(ORVRtfProperty::ListOverride));
        }
    }

    /*! Of a whole document, the levels of the list that the first paragraph is in. */
    ORV_ROWS(levelsOfDocuments)
    {
        const Rows add([](const QByteArray& body, const QString& expected) {
            const Reading reading = readBody(body + "\\pard\\ls1 a");
            QCOMPARE(reading.status, 0);
            QCOMPARE(reading.text(), "a"_s);
            QCOMPARE(describe(levelsOf(reading)), expected);
        });
        const QByteArray list = "{\\*\\listtable{\\list" + level("\\'01a;") + "\\listid7}{\\list"
            + level("\\'01b;") + "\\listid7}{\\list" + level("\\'01c;") + "\\listid8}}";
        add("limit of levels is per list",
            "{\\*\\listtable{\\list" + level("\\'02\\'00.;").repeated(11) + "\\listid7}{\\list"
                + level("\\'01x;", "\\li720", 23)
                + "\\listid8}}{\\*\\listoverridetable{\\listoverride\\listid8\\ls1}}",
            "'x' 0 36 36");
        add("words without a list",
            "{\\*\\listtable\\listid7\\listtemplateid1\\listhybrid{\\listlevel\\levelnfc23\\li720{"
            "\\leveltext\\'01x;}}}"
            "{\\*\\listoverridetable\\ls5{\\listoverride\\listid7\\ls1}}",
            "");
        add("the first match counts",
            list + "{\\*\\listoverridetable{\\listoverride\\listid7\\ls1}{\\listoverride\\listid8\\ls1}}",
            "'a' 1 0 0");
        add("override before its list", list + "{\\*\\listoverridetable{\\listoverride\\ls1\\listid8}}",
            "'c' 1 0 0");
        add("override outside its table", list + "{\\listoverride\\listid7\\ls1}", "");
    }

    // All paragraphs of one override are one list, wherever they are.
    void membership()
    {
        const QByteArray tables = "{\\*\\listtable{\\list" + level("\\'02\\'00.;") + "\\listid7}{\\list"
            + level("\\'02\\'00);", "", 4)
            + "\\listid8}}{\\*\\listoverridetable{\\listoverride\\listid7\\ls1}"
            + "{\\listoverride\\listid7\\ls2}{\\listoverride\\listid8\\ls3}}";
        const Reading reading = readBody(tables
                                         + "\\pard\\ls1 a\\par\\pard b\\par\\ls2 c\\par\\pard\\ls3 d\\par"
                                           "\\pard e\\par\\ls1 f\\par\\ls3 g");
        QCOMPARE(reading.text(), "a\nb\nc\nd\ne\nf\ng"_s);
        QCOMPARE(itemLines(*reading.document), "0 0 a\n1 0 c\n2 0 d\n0 0 f\n2 0 g"_s);
        QCOMPARE(describe(levelsOf(reading, 0)), "'%0.' 1 0 0"_s);
        QCOMPARE(describe(levelsOf(reading, 2)), "'%0.' 1 0 0"_s);
        QCOMPARE(describe(levelsOf(reading, 3)), "'%0)' 2 0 0"_s);
    }

    ORV_ROWS(listsWithoutDefinition)
    {
        const Rows add([](const QByteArray& tables) {
            const Reading reading = readBody(tables + "\\pard\\ls1\\ilvl3 a\\par b");
            QCOMPARE(reading.status, 0);
            QCOMPARE(itemLines(*reading.document), "0 3 a\n0 3 b"_s);
            QCOMPARE(levelsOf(reading).size(), 0);
            QCOMPARE(dump(reading.block(0).textList()->format()), dump(QTextListFormat()));
        });
        add("no tables", QByteArray());
        add("other override", listTables(level("\\'02\\'00.;"), 2));
        add("unknown list",
            "{\\*\\listtable{\\list" + level("\\'02\\'00.;") + "\\listid7}}"
                + "{\\*\\listoverridetable{\\listoverride\\listid8\\ls1}}");
        add("no overrides", "{\\*\\listtable{\\list" + level("\\'02\\'00.;") + "\\listid7}}");
        add("list without levels", listTables(QByteArray()));
    }

    /*! The items: list, level and text of each. Other paragraphs are in none. */
    ORV_ROWS(items)
    {
        const Rows add([](const QByteArray& body, const QString& text, const QString& items) {
            const Reading reading =
                readBody(listTables(level("\\'02\\'00.;") + level("\\'02\\'01.;")) + body);
            QCOMPARE(reading.text(), text);
            QCOMPARE(itemLines(*reading.document), items);
            for (int i = 0; i < reading.blockCount(); ++i)
                QCOMPARE(reading.blockFormat(i).hasProperty(ORVRtfProperty::ListOverride),
                         reading.block(i).textList() != nullptr);
        });
        add("levels", "\\pard\\ls1\\ilvl0 a\\par\\ilvl1 b\\par c\\par\\pard\\ls1 d\\par\\ilvl0 e",
            "a\nb\nc\nd\ne", "0 0 a\n0 1 b\n0 1 c\n0 0 d\n0 0 e");
        add("in the middle", "\\pard a\\par\\pard\\ls1 b\\par c\\par\\pard d", "a\nb\nc\nd", "0 0 b\n0 0 c");
        add("text of the number is not inserted",
            "{\\listtext\\pard\\plain 1.\\tab}\\pard\\ls1 a\\par"
            "{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pntxtb x}b",
            "a\nb", "0 0 a\n0 0 b");
        add("word in the result of a field", "{\\field{\\fldrslt\\ls1 a}}", "a", "");
        add("word in the table of overrides", "{\\*\\listoverridetable\\ls1}x", "x", "");
        add("word in the table of lists", "{\\*\\listtable\\ls1}x", "x", "");
    }
};

ORV_TEST("lists_reading", TestListsReading, QGuiApplication)
#include "listsreading.moc"
