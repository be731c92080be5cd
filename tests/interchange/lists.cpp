#include "ORVTextListFormat.h"
#include "ORVTextListLabels.h"
#include "interchangehelpers.h"
#include "testsupport.h"

#include <QElapsedTimer>

using namespace rtftest;

typedef ORVTextListLevel Level;

namespace {

const char bulletFonts[] = "{\\fonttbl{\\f0 Quibble;}{\\f1\\fcharset2 Symbol;}{\\f2\\fcharset2 Wingdings;}}";

/*! A level of the list table; \a text has its length in front. */
QByteArray level(int kind, const QByteArray& text, const QByteArray& words = QByteArray())
{
    return "{\\listlevel\\levelnfc" + QByteArray::number(kind) + "\\levelnfcn" + QByteArray::number(kind)
        + words + "{\\leveltext" + text + ";}{\\levelnumbers;}\\fi-360\\li720\\lin720}";
}

QByteArray threeLevels()
{
    return level(0, "\\'02\\'00.") + level(4, "\\'02\\'01)")
        + level(2, "\\'06\\'00.\\'01.\\'02.", "\\levelstartat3");
}

/*! A document with list 7 of \a levels, which override 1 cites, and \a overrides, whose list is 7 too. */
Reading importList(const QByteArray& levels, const QByteArray& body,
                   const QByteArray& overrides = QByteArray())
{
    return import(
        "{\\rtf1\\ansi" + QByteArray(bulletFonts) + "{\\*\\listtable{\\list\\listtemplateid1" + levels
        + "{\\listname ;}\\listid7}}{\\*\\listoverridetable{\\listoverride\\listid7\\listoverridecount0\\ls1}"
        + overrides + "}" + body + "}");
}

/*! An item of override \a number on \a itemLevel. */
QByteArray item(int itemLevel, int number = 1)
{
    return "\\pard\\plain\\ls" + QByteArray::number(number) + "\\ilvl" + QByteArray::number(itemLevel)
        + " x\\par ";
}

QByteArray items(const QList<int>& levels, int number = 1)
{
    QByteArray result;
    for (const int itemLevel : levels)
        result += item(itemLevel, number);
    return result;
}

/*! An override of list 7 that has \a own for its levels. */
QByteArray override(int number, const QByteArray& own, int list = 7)
{
    return "{\\listoverride\\listid" + QByteArray::number(list) + "\\listoverridecount1" + own + "\\ls"
        + QByteArray::number(number) + "}";
}

/*! The labels of all paragraphs but the last, empty one, "-" for those that are no items. */
QString labelsOf(const Reading& reading)
{
    const ORVTextListLabels labels(reading.document.data());
    QStringList result;
    for (QTextBlock block = reading.document->begin(); block.isValid(); block = block.next()) {
        if (block.length() > 1)
            result << (block.textList() ? labels.label(block).text : "-"_s);
    }
    return result.join("|"_s);
}

/*! The labels of \a body, whose paragraphs state their numbers themselves. */
QString oldLabels(const QByteArray& body)
{
    return labelsOf(importBody(bulletFonts + body));
}

/*! A paragraph that states its number by \a words, behind \a label if there is one. */
QByteArray oldItem(const QByteArray& words, const QByteArray& label = QByteArray())
{
    const QByteArray text = label.isEmpty() ? QByteArray() : "{\\pntext " + label + "\\tab}";
    return "\\pard\\plain" + text + "{\\*\\pn " + words + "}\\fi-360\\li360 x\\par ";
}

/*! For each QTextList that the document has, in order of its first item, the numbers of its paragraphs. */
QStringList textListsOf(const QTextDocument& document)
{
    QList<QTextList*> lists;
    QStringList result;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QTextList* const list = block.textList();
        if (!list)
            continue;
        if (!lists.contains(list)) {
            lists.append(list);
            result.append(QString());
        }
        result[lists.indexOf(list)] += QString::number(block.blockNumber());
    }
    return result;
}

} // namespace

class TestInterchangeLists : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(labels)
    {
        const Rows add([](const QByteArray& levels, const QByteArray& body, const QString& labels) {
            QCOMPARE(labelsOf(importList(levels, body)), labels);
        });
        add("levels", threeLevels(), items({0, 1, 2, 2, 1, 0, 1}), "1.|a)|1.a.iii.|1.a.iv.|b)|2.|a)");
        add("count goes on behind other text", threeLevels(),
            items({0, 1}) + "\\pard x\\par " + items({1, 0}), "1.|a)|-|b)|2.");
        add("level beyond the last", threeLevels(), items({0, 8}), "1.|1.a.iii.");
        add("level beyond all", threeLevels(), items({0, 99}), "1.|1.a.iii.");
        add("negative level", threeLevels(), items({-1}), "1.");
        add("start", level(3, "\\'02\\'00.", "\\levelstartat24"), items({0, 0, 0, 0}), "X.|Y.|Z.|AA.");
        add("start 0", level(0, "\\'02\\'00.", "\\levelstartat0"), items({0, 0}), "0.|1.");
        add("negative start", level(0, "\\'02\\'00.", "\\levelstartat-5"), items({0}), "0.");
        add("huge start", level(0, "\\'02\\'00.", "\\levelstartat2000000000"), items({0}), "32767.");
        add("ordinals are decimal", level(5, "\\'02\\'00."), items({0}), "1.");
        add("two digits are decimal", level(22, "\\'02\\'00."), items({0}), "1.");
        add("katakana", level(20, "\\'02\\'00."), items({0, 0}), "ア.|イ.");
        add("stems", level(30, "\\'02\\'00."), items({0, 0}), "甲.|乙.");
        add("unknown kind", level(-3, "\\'02\\'00."), items({0}), "1.");
        add("bullet", level(23, "\\'01\\'95"), items({0}), u8"\u2022");
        add("bullet of a symbol font", "{\\listlevel\\levelnfc23{\\leveltext\\'01\\u-3913 ?;}\\f1}",
            items({0}), u8"\u2022");
        add("byte of a symbol font", "{\\listlevel\\levelnfc23{\\leveltext\\'01\\'d8;}\\f2}", items({0}),
            u8"\u2b9a");
        add("bullet without text", level(23, "\\'00"), items({0}), "");
        add("text without its length", level(0, " No. "), items({0}), "No. ");
        add("length beyond the text", level(0, "\\'1fA\\'00"), items({0}), "A1;");
        add("no text", "{\\listlevel\\levelnfc0}", items({0}), "");
        add("number of a deeper level", level(0, "\\'04\\'00-\\'02."), items({0}), "1-.");
        add("control characters", level(0, "\\'04\\'0b\\'00\\'1f."), items({0}), "1.");
        add("level without number within a template", level(255, "\\'00") + level(0, "\\'04\\'00.\\'01."),
            items({1}), ".1.");
        add("nine levels and more", threeLevels() + threeLevels() + threeLevels() + threeLevels(),
            items({0, 8}), "1.|1.a.iii.");
    }

    ORV_ROWS(overrides)
    {
        const Rows add([](const QByteArray& own, const QByteArray& body, const QString& labels) {
            const QByteArray levels = level(0, "\\'02\\'00.") + level(0, "\\'04\\'00.\\'01.");
            QCOMPARE(labelsOf(importList(levels, body, own)), labels);
        });
        const QByteArray alternating = item(0, 1) + item(0, 2) + item(0, 1) + item(0, 2);
        add("without anything of its own", override(2, ""), alternating, "1.|2.|3.|4.");
        add("start", override(2, "{\\lfolevel\\listoverridestartat\\levelstartat5}"), alternating,
            "1.|5.|2.|6.");
        add("start that is not stated", override(2, "{\\lfolevel\\listoverridestartat}"), alternating,
            "1.|1.|2.|2.");
        add("start of the second level",
            override(2, "{\\lfolevel}{\\lfolevel\\listoverridestartat\\levelstartat4}"), items({0, 1}, 2),
            "1.|1.4.");
        add("start without the word for it", override(2, "{\\lfolevel\\levelstartat5}"), alternating,
            "1.|2.|3.|4.");
        add("level of its own",
            override(2,
                     "{\\lfolevel\\listoverrideformat1" + level(2, "\\'03(\\'00)", "\\levelstartat3") + "}"),
            items({0, 0, 1}, 2), "(iii)|(iv)|iv.1.");
        add("level and start",
            override(2,
                     "{\\lfolevel\\listoverridestartat" + level(0, "\\'02\\'00:", "\\levelstartat9") + "}"),
            items({0}, 2), "9:");
        add("start behind the level",
            override(2,
                     "{\\lfolevel\\listoverridestartat\\listoverrideformat" + level(0, "\\'02\\'00:")
                         + "\\levelstartat9}"),
            items({0}, 2), "9:");
        add("same number twice",
            override(2, "") + override(2, "{\\lfolevel\\listoverridestartat\\levelstartat5}"), alternating,
            "1.|2.|3.|4.");
        add("levels beyond nine", override(2, QByteArray("{\\lfolevel\\listoverridestartat}").repeated(20)),
            items({0}, 2), "1.");
        add("level outside of an override", "{\\lfolevel\\listoverridestartat\\levelstartat5}", items({0}),
            "1.");
    }

    ORV_ROWS(noList)
    {
        const Rows add([](const QByteArray& own, const QByteArray& words) {
            const Reading reading = importList(threeLevels(), "\\pard" + words + " x", own);
            QCOMPARE(labelsOf(reading), "-"_s);
            const QTextBlockFormat format = reading.document->begin().blockFormat();
            QVERIFY(!format.hasProperty(ORVRtfProperty::ListOverride));
            QVERIFY(!format.hasProperty(ORVRtfProperty::ListLevel));
        });
        add("number 0", "", "\\ls1\\ls0");
        add("level and number 0", "", "\\ilvl0\\ls0");
        add("unknown number", "", "\\ls5\\ilvl1");
        add("level alone", "", "\\ilvl1");
        add("override of no list", override(2, "", 99), "\\ls2");
        add("override of no list with a start", override(2, "{\\lfolevel\\listoverridestartat}", 99),
            "\\ls2");
        add("override with number 0", override(0, ""), "\\ls0");
        add("number outside of the text", "", "{\\fldinst\\ls1}");
    }

    void levelTextHasThePageOfTheDocument()
    {
        const Reading reading = import(
            "{\\rtf1\\ansi\\ansicpg950\\deff0{\\fonttbl{\\f0\\fcharset0 Quibble;}}{\\*\\listtable{\\list"
            + level(0, "\\'02\\'abe\\'00") + "\\listid7}}{\\listoverridetable{\\listoverride\\listid7\\ls1}}"
            + item(0) + "}");
        QCOMPARE(labelsOf(reading), QString(QChar(0x524d)) + '1');
    }

    void listWithoutLevels() { QCOMPARE(labelsOf(importList(QByteArray(), items({0}))), "-"_s); }

    // Programs state numbers that nothing shows where they want the indents of a list.
    ORV_ROWS(levelWithoutNumber)
    {
        const Rows add([](const QByteArray& words, double indent, double firstLine) {
            const Reading reading = importList(level(255, "\\'00"), "\\pard\\ls1" + words + " x");
            QCOMPARE(labelsOf(reading), "-"_s);
            const QTextBlockFormat format = reading.document->begin().blockFormat();
            QCOMPARE(format.doubleProperty(ORVRtfProperty::LeftIndent), indent);
            QCOMPARE(format.doubleProperty(QTextFormat::TextIndent), firstLine);
            QVERIFY(!format.hasProperty(ORVRtfProperty::ListOverride));
        });
        add("indents of the level", "", 36, 18);
        add("of its own", "\\li200\\fi0", 10, 10);
        add("none", "\\li0\\fi0", 0, 0);
    }

    ORV_ROWS(indentsOfItems)
    {
        const Rows add([](const QByteArray& words, double indent, double firstLine) {
            const Reading reading = importList(threeLevels(), "\\pard\\ls1\\ilvl1" + words + " x");
            const QTextBlockFormat format = reading.document->begin().blockFormat();
            QCOMPARE(format.doubleProperty(ORVRtfProperty::LeftIndent), indent);
            QCOMPARE(format.doubleProperty(QTextFormat::TextIndent), firstLine);
            QCOMPARE(format.intProperty(ORVRtfProperty::ListLevel), 1);
        });
        add("none", "", 0, 0);
        add("first line", "\\fi-100", 0, -5);
        add("of its own", "\\li200\\fi-100", 10, 5);
    }

    ORV_ROWS(follow)
    {
        const Rows add([](const QByteArray& words, Level::Follow follow) {
            const Reading reading = importList(level(0, "\\'02\\'00.", words), items({0}));
            const QTextBlock block = reading.document->begin();
            QCOMPARE(ORVTextListLabels(reading.document.data()).label(block).follow, follow);
        });
        add("none stated", "", Level::Tab);
        add("tab", "\\levelfollow0", Level::Tab);
        add("space", "\\levelfollow1", Level::Space);
        add("nothing", "\\levelfollow2", Level::Nothing);
        add("unknown", "\\levelfollow3", Level::Tab);
        add("negative", "\\levelfollow-1", Level::Tab);
    }

    ORV_ROWS(justification)
    {
        const Rows add([](const QByteArray& words, Level::Justification justification) {
            const Reading reading = importList(level(0, "\\'02\\'00.", words), items({0}));
            const QTextBlock block = reading.document->begin();
            QCOMPARE(ORVTextListLabels(reading.document.data()).label(block).justification, justification);
        });
        add("none stated", "", Level::Left);
        add("centre", "\\leveljc1", Level::Center);
        add("right", "\\leveljc2", Level::Right);
        add("both words", "\\leveljc2\\leveljcn0", Level::Left);
        add("unknown", "\\leveljc3", Level::Left);
    }

    ORV_ROWS(textLists)
    {
        const Rows add([](const QByteArray& body, const QString& lists) {
            const Reading reading = importList(threeLevels(), body, override(2, ""));
            QCOMPARE(textListsOf(*reading.document).join("|"_s), lists);
        });
        add("one level", items({0, 0, 0}), "012");
        add("deeper items do not end a level", items({0, 1, 1, 0, 1}), "03|12|4");
        add("three levels", items({0, 2, 1, 2, 0}), "04|1|2|3");
        add("other text ends all", items({0, 1}) + "\\pard x\\par " + items({1, 0}), "0|1|3|4");
        add("an override of the same list", item(0, 1) + item(0, 2), "01");
        add("cells of a table",
            "\\trowd\\cellx1000\\cellx2000" + items({0}).replace("\\par ", "\\cell ")
                + items({0}).replace("\\par ", "\\cell ") + "\\row\\pard " + items({0}),
            "1|2|3");
    }

    void textListsKeepWhatBelongsTogether()
    {
        const Reading reading = importList(threeLevels(), items({0, 0, 1, 2}));
        const QTextBlock deepest = reading.document->findBlockByNumber(3);
        const QTextListFormat format = deepest.textList()->format();
        QCOMPARE(ORVTextListFormat::levels(format).size(), 3);
        QCOMPARE(ORVTextListFormat::shownLevel(format), 2);
        QCOMPARE(format.style(), QTextListFormat::ListLowerRoman);
        QCOMPARE(format.numberPrefix(), "2.a."_s);
        QCOMPARE(format.numberSuffix(), "."_s);
        QCOMPARE(format.indent(), 3);
        QCOMPARE(deepest.blockFormat().intProperty(ORVRtfProperty::ListOverride), 1);
        QVERIFY(ORVTextListFormat::levels(reading.document->begin().textList()->format())
                == ORVTextListFormat::levels(format));
    }

    void overridesWithTheSameCountHaveOneNumber()
    {
        const Reading reading =
            importList(threeLevels(), item(0, 3) + item(0, 1), override(3, "") + override(4, ""));
        for (int i = 0; i < 2; ++i)
            QCOMPARE(reading.document->findBlockByNumber(i).blockFormat().intProperty(
                         ORVRtfProperty::ListOverride),
                     1);
    }

    void overridesBetweenTexts()
    {
        const auto table = [](const QByteArray& own) { return "{\\*\\listoverridetable" + own + "}"; };
        QCOMPARE(labelsOf(importList(
                     level(0, "\\'02\\'00."),
                     item(0) + table(override(2, "{\\lfolevel\\listoverridestartat\\levelstartat5}"))
                         + item(0, 2) + table(override(2, "") + override(3, "")) + item(0, 2) + item(0, 3))),
                 "1.|5.|6.|2."_s);
    }

    /*! Neither the table of overrides nor tables between the text are searched or indexed anew for each item. */
    ORV_ROWS(timeOfManyOverrides)
    {
        const Rows add([](bool isOneTable) {
            const auto milliseconds = [isOneTable](int count) {
                QByteArray table;
                QByteArray body;
                for (int number = 2; number < count; ++number) {
                    (isOneTable ? table : body) += isOneTable
                        ? override(number, "")
                        : "{\\*\\listoverridetable" + override(number, "") + "}";
                    body += item(0, number);
                }
                QElapsedTimer timer;
                timer.start();
                importList(level(23, "\\'01-"), body.replace("\\par ", "\\par\\pard x\\par "), table);
                return qMax<qint64>(1, timer.elapsed());
            };
            milliseconds(2000);
            const qint64 few = qMax(milliseconds(2000), milliseconds(2000));
            QVERIFY(qMin(milliseconds(8000), milliseconds(8000)) < 9 * few);
        });
        add("one table", true);
        add("tables between the text", false);
    }

    /*! "-" stands for paragraphs that are no items, empty ones too. */
    /*! A QTextList has a bounded number of items, as Qt looks at all of them for each that is added. */
    void longListGoesOnInAnotherTextList()
    {
        const int count = 5002;
        const Reading reading = importList(threeLevels(), item(0).repeated(count));
        const QTextBlock last = reading.document->findBlockByNumber(count - 1);
        const ORVTextListLabels labels(reading.document.data());
        QCOMPARE(reading.document->begin().textList()->count(), 5000);
        QCOMPARE(last.textList()->count(), 2);
        QCOMPARE(labels.label(last).text, "5002."_s);
        QCOMPARE(labels.label(last).list, 0);
    }

    ORV_ROWS(breaksInLists)
    {
        const Rows add([](const QByteArray& body, const QString& labels) {
            const Reading reading = importList(level(0, "\\'02\\'00."), body);
            const ORVTextListLabels found(reading.document.data());
            QStringList result;
            for (QTextBlock block = reading.document->begin(); block.isValid(); block = block.next())
                result << (block.textList() ? found.label(block).text : "-"_s);
            QCOMPARE(result.join("|"_s), labels);
        });
        const QByteArray begin = "\\pard\\ls1 x\\par";
        const QByteArray old = "\\pard{\\*\\pn\\pnlvlbody\\pndec{\\pntxta )}}x\\par";
        add("page", begin + "\\page\\pard\\ls1 y", "1.|-|2.");
        add("page in the same format", begin + "\\page y", "1.|-|2.");
        add("section", begin + "\\sect\\pard\\ls1 y", "1.|-|2.");
        add("section in the same format", begin + "\\sect y", "1.|-|2.");
        add("column", begin + "\\column y", "1.|-|2.");
        add("several", begin + "\\page\\sect\\page y", "1.|-|-|-|2.");
        add("page behind text", begin + " y\\page z", "1.|2.|3.");
        add("section behind text", begin + " y\\sect z", "1.|2.|3.");
        add("empty item", begin + "\\par y", "1.|2.|3.");
        add("empty item behind a page", begin + "\\page\\par y", "1.|-|2.|3.");
        add("old list", old + "\\sect y", "1)|-|2)");
        add("old list that states its number again", old + "\\sect" + old + " y", "1)|-|2)|3)");
        add("hidden", begin + "{\\v\\page\\sect}y", "1.|2.");
    }

    ORV_ROWS(oldLists)
    {
        const Rows add(
            [](const QByteArray& body, const QString& labels) { QCOMPARE(oldLabels(body), labels); });
        const QByteArray decimal = "\\pnlvlbody\\pndec{\\pntxta .}";
        const QByteArray follower = "{\\pntext 2.\\tab}x\\par ";
        const QByteArray text = "\\pard x\\par ";
        add("numbers", oldItem(decimal) + "x\\par x\\par ", "1.|2.|3.");
        add("it ends with the paragraph's format", oldItem(decimal) + text, "1.|-");
        add("start", oldItem(decimal + "\\pnstart5") + "x\\par ", "5.|6.");
        add("huge start", oldItem(decimal + "\\pnstart2000000000"), "32767.");
        add("negative start", oldItem(decimal + "\\pnstart-4"), "0.");
        add("around the number", oldItem("\\pnlvlbody\\pnucltr{\\pntxtb (}{\\pntxta )}") + "x\\par ",
            "(A)|(B)");
        add("lower letters", oldItem("\\pnlvlbody\\pnlcltr") + "x\\par ", "a|b");
        add("lower roman", oldItem("\\pnlvlbody\\pnlcrm") + "x\\par ", "i|ii");
        add("upper roman", oldItem("\\pnlvlbody\\pnucrm") + "x\\par ", "I|II");
        add("words are decimal", oldItem("\\pnlvlbody\\pncard") + "x\\par ", "1|2");
        add("ordinals are decimal", oldItem("\\pnlvlbody\\pnord") + "x\\par ", "1|2");
        add("label of the first item", oldItem(decimal, "7.") + follower, "7.|8.");
        add("label in letters", oldItem("\\pnlvlbody\\pnlcltr{\\pntxta )}", "d)") + "x\\par ", "d)|e)");
        add("label in roman digits", oldItem("\\pnlvlbody\\pnucrm", "IX") + "x\\par ", "IX|X");
        add("label of another kind", oldItem("\\pnlvlbody\\pnlcrm\\pnstart2", "?") + "x\\par ", "ii|iii");
        add("stated again", oldItem(decimal, "1.") + oldItem(decimal, "2.") + oldItem(decimal, "3."),
            "1.|2.|3.");
        add("stated again without labels", oldItem(decimal) + oldItem(decimal), "1.|2.");
        add("label that begins again",
            oldItem(decimal, "1.") + oldItem(decimal, "2.") + oldItem(decimal, "1."), "1.|2.|1.");
        add("other text begins again", oldItem(decimal) + text + oldItem(decimal), "1.|-|1.");
        add("label behind other text", oldItem(decimal, "1.") + text + oldItem(decimal, "2."), "1.|-|2.");
        add("continuing paragraph", oldItem(decimal) + oldItem("\\pnlvlcont\\pndec") + oldItem(decimal),
            "1.|-|2.");
        add("levels",
            oldItem("\\pnlvl1\\pndec{\\pntxta .}") + oldItem("\\pnlvl2\\pnlcltr{\\pntxta )}") + "x\\par "
                + oldItem("\\pnlvl1\\pndec{\\pntxta .}") + oldItem("\\pnlvl2\\pnlcltr{\\pntxta )}"),
            "1.|a)|b)|2.|a)");
        add("numbers of the levels above",
            oldItem("\\pnlvl1\\pndec") + oldItem("\\pnlvl2\\pndec\\pnprev", "1.1")
                + oldItem("\\pnlvl3\\pndec\\pnprev"),
            "1|1.1|1.1.1");
        add("a level that changes keeps those above",
            oldItem("\\pnlvl1\\pnucrm") + oldItem("\\pnlvl2\\pnucltr") + oldItem("\\pnlvl1\\pnucrm")
                + oldItem("\\pnlvl2\\pnucltr\\pnprev") + oldItem("\\pnlvl1\\pnucrm"),
            "I|A|II|II.A|III");
        add("a level that changes behind other text",
            oldItem("\\pnlvl1\\pndec") + oldItem("\\pnlvl2\\pnucltr") + text
                + oldItem("\\pnlvl2\\pnlcltr\\pnprev"),
            "1|A|-|1.a");
        add("level beyond nine", oldItem("\\pnlvl99\\pndec"), "1");
        add("bullet", oldItem("\\pnlvlblt{\\pntxtb -}") + "x\\par ", "-|-");
        add("bullet of a symbol font", oldItem("\\pnlvlblt\\pnf1{\\pntxtb\\'b7}"), u8"\u2022");
        add("bullet by its label", oldItem("\\pnlvlblt", "\\f1\\'b7"), u8"\u2022");
        add("empty bullet", oldItem("\\pnlvlblt"), "");
        add("no words", oldItem(""), "-");
        add("words of paragraphs do not count", oldItem("\\pnlvlblt\\par\\cell\\page\\sect{\\pntxtb\\par -}"),
            "-");
        add("number that does not end", "\\pard x\\par{\\*\\pn\\pnlvlbody\\pndec y\\par z", "-");
        add("section's numbers", "{\\*\\pnseclvl1\\pndec\\pnstart1{\\pntxta .}}x\\par ", "-");
        add("number outside of the text", "{\\info{\\title{\\*\\pn\\pnlvlbody\\pndec}}}x", "-");
    }

    ORV_ROWS(labelsAlone)
    {
        const Rows add(
            [](const QByteArray& body, const QString& labels) { QCOMPARE(oldLabels(body), labels); });
        const auto labelled = [](const QByteArray& label) {
            return "\\pard{\\pntext" + label + "\\tab}x\\par ";
        };
        add("bullet", labelled("\\f1\\'b7"), u8"\u2022");
        add("numbers", labelled(" (4)") + labelled(" (5)"), "(4)|(5)");
        add("letters", labelled(" a)") + labelled(" b)"), "a)|b)");
        add("that paragraph alone", labelled(" 1.") + "x\\par ", "1.|-");
        add("several numbers", labelled(" 1.2.") + labelled(" 1.3."), "1.2.|1.3.");
        add("nothing but a tab", labelled(""), "-");
        add("huge number", labelled(" 99999999999."), "99999999999.");
        add("paragraphs within", labelled(" 1.\\par\\page"), "1.");
        add("in a cell", "\\trowd\\cellx1000\\pard\\intbl{\\pntext 3.\\tab}x\\cell\\row\\pard y", "3.|-");
    }

    // Programs state both kinds, so that older ones have lists as well.
    ORV_ROWS(oldNumberBesideAList)
    {
        const Rows add([](const QByteArray& words, const QString& labels) {
            QCOMPARE(labelsOf(importList(threeLevels(), "\\pard" + words + " x\\par ", override(2, ""))),
                     labels);
        });
        const QByteArray number = "{\\*\\pn\\pnlvlbody\\pnstart9\\pndec{\\pntxta )}}";
        add("behind the list", "\\ls1\\ilvl1" + number, "a)");
        add("in front of the list", number + "\\ls1\\ilvl1", "a)");
        add("label", "{\\pntext 9)\\tab}\\ls1", "1.");
        add("list within the number", "{\\*\\pn\\pnlvlbody\\ilvl1\\ls2\\pnrnot0\\pndec}", "a)");
        add("unknown list within the number", "{\\*\\pn\\pnlvlbody\\ls9\\pndec{\\pntxta )}}", "1)");
    }

    void listsOfNotesCountForThemselves()
    {
        const Reading reading =
            importList(threeLevels(), item(0) + "\\pard x{\\footnote " + item(0) + "}\\par " + item(0));
        QCOMPARE(labelsOf(reading), "1.|-|2."_s);
    }

    // A number that paragraphs state must not be that of a list in the table.
    void oldListsAreNoneOfTheTable()
    {
        const Reading reading =
            importList(threeLevels(), item(0) + oldItem("\\pnlvlbody\\pndec") + item(0), override(2, ""));
        QCOMPARE(labelsOf(reading), "1.|1|2."_s);
    }

    ORV_ROWS(hostile)
    {
        const Rows add(
            [](const QByteArray& rtf, const QString& labels) { QCOMPARE(labelsOf(import(rtf)), labels); });
        add("level without list", "{\\rtf1{\\*\\listtable{\\listlevel\\levelnfc4{\\leveltext x}}}\\ls1 x}",
            "-");
        add("override of a level without override",
            "{\\rtf1{\\*\\listoverridetable{\\lfolevel\\listoverridestartat{\\listlevel}}}\\ls0 x}", "-");
        add("tables within tables",
            "{\\rtf1{\\listtable{\\list{\\listoverridetable{\\listoverride{\\list\\ls1}}}}}x}", "-");
        add("level text in the running text", "{\\rtf1{\\leveltext y}x}", "-");
        add("cut off in a level", "{\\rtf1 x\\par{\\*\\listtable{\\list{\\listlevel{\\leveltext\\'02\\'00",
            "-");
        add("cut off in an override",
            "{\\rtf1 x\\par{\\listoverridetable{\\listoverride{\\lfolevel{\\listlevel", "-");
        add("cut off in a label", "{\\rtf1 x\\par{\\pntext 1.", "-");
        add("too many lists",
            "{\\rtf1{\\listtable" + QByteArray("{\\list{\\listlevel}}").repeated(20000)
                + "}{\\listoverridetable" + QByteArray("{\\listoverride{\\lfolevel}}").repeated(20000)
                + "}\\ls1 x}",
            "-");
        add("long level text",
            "{\\rtf1{\\listtable{\\list{\\listlevel{\\leveltext\\'ff" + QByteArray(70000, 'x')
                + "}}\\listid1}}{\\listoverridetable{\\listoverride\\listid1\\ls1}}\\ls1 x}",
            QString(255, QLatin1Char('x')));
    }

    void manyOldListsAreLimited()
    {
        const int count = 10100;
        QByteArray body;
        for (int i = 0; i < count; ++i)
            body += oldItem("\\pnlvlbody\\pndec") + "\\pard x\\par ";
        const Reading reading = importBody(body);
        QCOMPARE(labelsOf(reading).count("1|-"_s), 10000);
    }
};

ORV_TEST("interchange_lists", TestInterchangeLists, QGuiApplication)
#include "lists.moc"
