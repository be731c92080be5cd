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

ORVTextListLevel listLevel(const QString& text, unsigned kind, double indent = 0, double firstLine = 0)
{
    ORVTextListLevel level;
    level.setText(text);
    level.setKind(kind);
    level.setIndent(indent);
    level.setFirstLinePosition(firstLine);
    return level;
}

QString describe(const QList<ORVTextListLevel>& levels)
{
    QStringList lines;
    for (const ORVTextListLevel& level : levels)
        lines << "'" + level.text()
                + "' %1 %2 %3"_s.arg(level.kind()).arg(level.indent()).arg(level.firstLinePosition());
    return lines.join(", "_s);
}

/*! The levels of the list that the first paragraph is in. */
QList<ORVTextListLevel> levelsOf(const Reading& reading, int block = 0)
{
    QTextList* list = reading.block(block).textList();
    return list ? ORVTextListFormat::levels(list->format())
                : QList<ORVTextListLevel>{listLevel("no list", 99)};
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
            add(name, level(words), describe({listLevel(expected, ORVTextListLevel::Decimal)}));
        };
        const auto kind = [&add](const QByteArray& words, ORVTextListLevel::Kind expected) {
            add(words.constData(), "{\\listlevel" + words + "{\\leveltext\\'02\\'00.;}}",
                describe({listLevel("%0."_s, expected)}));
        };
        const auto indent = [&add](const QByteArray& words, double indent, double firstLine) {
            add(words.constData(), level("\\'02\\'00.;", words),
                describe({listLevel("%0."_s, ORVTextListLevel::Decimal, indent, firstLine)}));
        };

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

    // Templates count upwards: "%0" is the number of the level itself, "%1" of the one above, and so on.
    void levelTextsOfLowerLevels()
    {
        const QByteArray levels = level("\\'02\\'00.;") + level("\\'03\\'00.\\'01;")
            + level("\\'06\\'00.\\'01.\\'02.;") + level("\\'02\\'03);") + level("\\'03\\'00-\\'04;");
        QCOMPARE(describe(levelsOf(levels)),
                 "'%0.' 1 0 0, '%1.%0' 1 0 0, '%2.%1.%0.' 1 0 0, '%0)' 1 0 0, '%4-%0' 1 0 0"_s);
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

    void levelLimit()
    {
        QByteArray words;
        QList<ORVTextListLevel> expected;
        for (int i = 0; i < 12; ++i) {
            const int left = 100 * (i + 1);
            words +=
                level("\\'02\\'0" + QByteArray::number(qMin(i, 9)) + ".;", "\\li" + QByteArray::number(left));
            if (i < 9)
                expected << listLevel("%0."_s, ORVTextListLevel::Decimal, left / 20.0, left / 20.0);
        }
        QCOMPARE(describe(levelsOf(words)), describe(expected));
    }

    void levelLimitIsPerList()
    {
        const QByteArray many = level("\\'02\\'00.;").repeated(11);
        const Reading reading =
            readBody("{\\*\\listtable{\\list" + many + "\\listid7}{\\list" + level("\\'01x;", "\\li720", 23)
                     + "\\listid8}}" + "{\\*\\listoverridetable{\\listoverride\\listid8\\ls1}}\\pard\\ls1 a");
        QCOMPARE(describe(levelsOf(reading)), "'x' 0 36 36"_s);
    }

    // Without a level, or without a list, there is nothing these words could describe.
    void wordsWithoutALevel()
    {
        const QByteArray words = "\\levelnfc23\\li720\\fi360\\lin720{\\leveltext\\'01x;}";
        QCOMPARE(levelsOf(words).size(), 0);
        const QByteArray noList = "{\\*\\listtable\\listid7\\listtemplateid1\\listhybrid{\\listlevel" + words
            + "}}"
              "{\\*\\listoverridetable\\ls5{\\listoverride\\listid7\\ls1}}";
        const Reading reading = readBody(noList + "\\pard\\ls1 a");
        QCOMPARE(reading.status, 0);
        QCOMPARE(reading.text(), "a"_s);
        QCOMPARE(levelsOf(reading).size(), 0);
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

    void paragraphLevels()
    {
        const Reading reading =
            readBody(listTables(level("\\'02\\'00.;") + level("\\'02\\'01.;"))
                     + "\\pard\\ls1\\ilvl0 a\\par\\ilvl1 b\\par c\\par\\pard\\ls1 d\\par\\ilvl0 e");
        QCOMPARE(itemLines(*reading.document), "0 0 a\n0 1 b\n0 1 c\n0 0 d\n0 0 e"_s);
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

    void firstMatchCounts()
    {
        const Reading reading =
            readBody("{\\*\\listtable{\\list" + level("\\'01a;") + "\\listid7}{\\list" + level("\\'01b;")
                     + "\\listid7}{\\list" + level("\\'01c;") + "\\listid8}}"
                     + "{\\*\\listoverridetable{\\listoverride\\listid7\\ls1}"
                       "{\\listoverride\\listid8\\ls1}{\\listoverride\\ls3\\listid8}}"
                       "\\pard\\ls1 x\\par\\ls3 y");
        QCOMPARE(levelsOf(reading, 0).value(0).text(), "a"_s);
        QCOMPARE(levelsOf(reading, 1).value(0).text(), "c"_s);
    }

    // Outside the override table an override is none; inside it the word of paragraphs marks no paragraph.
    void overrideWordsOutsideTheirTables()
    {
        const QByteArray list = "{\\*\\listtable{\\list" + level("\\'01a;") + "\\listid7}}";
        const Reading outside = readBody(list + "{\\listoverride\\listid7\\ls1}\\pard\\ls1 x");
        QCOMPARE(levelsOf(outside).size(), 0);
        QVERIFY(!readBody(list + "{\\*\\listoverridetable\\ls1}x").block(0).textList());
        QVERIFY(!readBody("{\\*\\listtable\\ls1}x").block(0).textList());
    }

    void listTextIsNotInserted()
    {
        const Reading reading = readBody(listTables(level("\\'02\\'00.;"))
                                         + "{\\listtext\\pard\\plain 1.\\tab}\\pard\\ls1 a\\par"
                                           "{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pntxtb x}b");
        QCOMPARE(reading.text(), "a\nb"_s);
    }

    void listNumberInAFieldResult()
    {
        const Reading reading = readBody(listTables(level("\\'02\\'00.;")) + "{\\field{\\fldrslt\\ls1 a}}");
        QCOMPARE(reading.text(), "a"_s);
        QVERIFY(!reading.block(0).textList());
    }

    void listsInTheMiddleOfADocument()
    {
        const Reading reading =
            readBody(listTables(level("\\'02\\'00.;")) + "\\pard a\\par\\pard\\ls1 b\\par c\\par\\pard d");
        QCOMPARE(itemLines(*reading.document), "0 0 b\n0 0 c"_s);
        QCOMPARE(reading.blockFormat(3).hasProperty(ORVRtfProperty::ListOverride), false);
    }
};

ORV_TEST("lists_reading", TestListsReading, QGuiApplication)
#include "listsreading.moc"
