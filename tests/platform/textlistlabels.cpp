#include "ORVTextListLabels.h"
#include "ORVTextNumber.h"
#include "testsupport.h"

using namespace rtftest;

typedef ORVTextListLevel Level;
typedef QList<Level> Levels;

namespace {

Level numbered(unsigned kind, const QString& text, int start = 1)
{
    Level level = makeLevel(kind, text);
    level.setStart(start);
    return level;
}

Levels threeLevels()
{
    return {numbered(Level::Decimal, "%0."_s), numbered(Level::LowerLetter, "%1.%0)"_s),
            numbered(Level::LowerRoman, "(%2.%1.%0)"_s)};
}

/*! A document that grows by paragraphs, items of lists and others. */
class Items {
public:
    /*! Adds an item of \a list on \a level. */
    void add(QTextList*& list, const QTextListFormat& format, int level = 0, int number = 0)
    {
        QTextBlockFormat block;
        if (number > 0)
            block.setProperty(ORVRtfProperty::ListOverride, number);
        begin(block);
        if (list)
            list->add(m_cursor.block());
        else
            list = m_cursor.createList(format);
        ORVTextListFormat::setBlockLevel(list, m_cursor.block(), level);
    }
    void addText() { begin(QTextBlockFormat()); }

    /*! A new list for each run of items on one level; all are of \a levels and have \a number. */
    void addSeparated(const Levels& levels, const QList<int>& itemLevels, int number = 1)
    {
        for (const int level : itemLevels) {
            QTextListFormat format = listFormatWith(levels);
            ORVTextListFormat::setShownLevel(format, level, levels.at(level).text(), 1);
            QTextList* list = nullptr;
            add(list, format, level, number);
        }
    }

    /*! Text, level and number of each paragraph: "a)/1/1"; "-" for one that is no item. */
    QStringList labels() const
    {
        const ORVTextListLabels labels(&m_document);
        QStringList result;
        for (QTextBlock block = m_document.begin(); block.isValid(); block = block.next()) {
            const ORVTextListLabels::Label label = labels.label(block);
            result << (label.list < 0 ? "-"_s : label.text);
        }
        return result;
    }

    QTextDocument m_document;

private:
    void begin(const QTextBlockFormat& format)
    {
        if (m_isEmpty)
            m_cursor.setBlockFormat(format);
        else
            m_cursor.insertBlock(format);
        m_isEmpty = false;
    }

    QTextCursor m_cursor{&m_document};
    bool m_isEmpty = true;
};

/*! The markers of items on \a itemLevels of one list that holds all levels. */
QStringList labelsOf(const Levels& levels, const QList<int>& itemLevels)
{
    Items items;
    QTextList* list = nullptr;
    for (const int level : itemLevels)
        items.add(list, listFormatWith(levels), level);
    return items.labels();
}

QTextListFormat stockFormat(QTextListFormat::Style style, int indent = 1)
{
    QTextListFormat format;
    format.setStyle(style);
    format.setIndent(indent);
    return format;
}

} // namespace

class TestTextListLabels : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(itemsOfSeveralLevels)
    {
        const Rows add([](const Levels& levels, const QList<int>& itemLevels, const QString& labels) {
            QCOMPARE(labelsOf(levels, itemLevels).join("|"_s), labels);
        });
        add("one level", threeLevels(), {0, 0, 0}, "1.|2.|3.");
        add("a higher item begins the deeper ones again", threeLevels(), {0, 1, 1, 0, 1},
            "1.|1.a)|1.b)|2.|2.a)");
        add("three levels", threeLevels(), {0, 1, 2, 2, 1, 2}, "1.|1.a)|(1.a.i)|(1.a.ii)|1.b)|(1.b.i)");
        add("a deeper item does not end the count", threeLevels(), {0, 2, 0}, "1.|(1.a.i)|2.");
        add("missing items of higher levels have the start", threeLevels(), {2, 2}, "(1.a.i)|(1.a.ii)");
        add("missing items count", threeLevels(), {2, 0, 1}, "(1.a.i)|2.|2.a)");
        add("level beyond the last", threeLevels(), {0, 7, 7}, "1.|(1.a.i)|(1.a.ii)");
        const Levels starts = {numbered(Level::Decimal, "%0."_s, 5),
                               numbered(Level::UpperLetter, "%1%0"_s, 3)};
        add("starts", starts, {0, 1, 1, 0, 1}, "5.|5C|5D|6.|6C");
        add("a missing item in the middle", threeLevels(), {0, 2, 1}, "1.|(1.a.i)|1.b)");
        add("start of a missing item", starts, {1, 0}, "5C|6.");
        add("start 0", {numbered(Level::Decimal, "%0"_s, 0)}, {0, 0}, "0|1");
        add("letters that are no number", {numbered(Level::LowerLetter, "%0)"_s, 0)}, {0, 0}, ")|a)");
        add("bullets", {makeLevel(Level::Bullet, QChar(0x2022)), makeLevel(Level::Bullet, "-"_s)}, {0, 1, 0},
            u8"\u2022|-|\u2022");
        add("empty template", {numbered(Level::Decimal, QString())}, {0}, "");
        add("template without a number", {numbered(Level::Decimal, "Note"_s)}, {0, 0}, "Note|Note");
        add("number twice", {numbered(Level::Decimal, "%0-%0"_s)}, {0, 0}, "1-1|2-2");
        add("level above the first", {numbered(Level::Decimal, "%1%0."_s)}, {0}, "1.");
        add("signs of percent", {numbered(Level::Decimal, "%%0%"_s)}, {0}, "%1%");
        add("unknown kind", {numbered(22, "%0."_s)}, {0, 0}, "1.|2.");
        add("bullet above a number", {makeLevel(Level::Bullet, "*"_s), numbered(Level::Decimal, "%1%0."_s)},
            {0, 1}, "*|1.");
    }

    void lettersRepeatAsInWordProcessors()
    {
        const Levels levels = {numbered(Level::LowerLetter, "%0"_s, 26)};
        QCOMPARE(labelsOf(levels, {0, 0, 0}), QStringList({"z"_s, "aa"_s, "bb"_s}));
    }

    void separatedLevelsShareCounters()
    {
        Items items;
        items.addSeparated(threeLevels(), {0, 1});
        items.addText();
        items.addSeparated(threeLevels(), {1, 0, 1, 2});
        QCOMPARE(items.labels().join("|"_s), "1.|1.a)|-|1.b)|2.|2.a)|(2.a.i)"_s);
        const ORVTextListLabels labels(&items.m_document);
        const ORVTextListLabels::Label last = labels.label(items.m_document.lastBlock());
        QCOMPARE(last.level, 2);
        QCOMPARE(last.number, 1);
        QCOMPARE(last.list, labels.label(items.m_document.begin()).list);
    }

    void otherNumberOrLevelsAreAnotherList()
    {
        Items items;
        Levels others = threeLevels();
        others[2].setStart(2);
        items.addSeparated(threeLevels(), {0}, 1);
        items.addSeparated(threeLevels(), {0}, 2);
        items.addSeparated(others, {0}, 1);
        items.addSeparated(threeLevels(), {0}, 1);
        QCOMPARE(items.labels().join("|"_s), "1.|1.|1.|2."_s);
    }

    void listsThatHoldAllLevelsCountForThemselves()
    {
        Items items;
        QTextList* first = nullptr;
        QTextList* second = nullptr;
        items.add(first, listFormatWith(threeLevels()), 0, 1);
        items.add(second, listFormatWith(threeLevels()), 0, 1);
        items.add(first, listFormatWith(threeLevels()), 1, 1);
        QCOMPARE(items.labels().join("|"_s), "1.|1.|1.a)"_s);
    }

    void stockLists()
    {
        Items items;
        QTextList* numbers = nullptr;
        QTextList* bullets = nullptr;
        QTextList* plain = nullptr;
        items.add(numbers, stockFormat(QTextListFormat::ListUpperAlpha, 3));
        items.add(bullets, stockFormat(QTextListFormat::ListSquare));
        items.add(numbers, QTextListFormat());
        items.add(plain, QTextListFormat());
        QCOMPARE(items.labels().join("|"_s), u8"A.|\u25aa|B.|"_s);
        const ORVTextListLabels labels(&items.m_document);
        QCOMPARE(labels.label(items.m_document.begin()).level, 2);
        QCOMPARE(labels.label(items.m_document.begin()).number, 1);
        QCOMPARE(labels.label(items.m_document.begin().next()).level, 0);
    }

    void stockNumberFromRightToLeftIsThatOfQt()
    {
        Items items;
        QTextList* list = nullptr;
        items.add(list, stockFormat(QTextListFormat::ListDecimal));
        QTextBlockFormat format = items.m_document.begin().blockFormat();
        format.setLayoutDirection(Qt::RightToLeft);
        QTextCursor(items.m_document.begin()).setBlockFormat(format);
        QCOMPARE(items.labels(), QStringList(list->itemText(items.m_document.begin())));
    }

    void followIsThatOfTheLevel()
    {
        Levels levels = threeLevels();
        levels[1].setFollow(Level::Nothing);
        Items items;
        QTextList* list = nullptr;
        items.add(list, listFormatWith(levels), 0);
        items.add(list, listFormatWith(levels), 1);
        const ORVTextListLabels labels(&items.m_document);
        QCOMPARE(labels.label(items.m_document.begin()).follow, Level::Tab);
        QCOMPARE(labels.label(items.m_document.lastBlock()).follow, Level::Nothing);
    }

    void noDocumentAndNoBlock()
    {
        QCOMPARE(ORVTextListLabels(nullptr).label(QTextBlock()).list, -1);
        Items items;
        items.addSeparated(threeLevels(), {0});
        QCOMPARE(ORVTextListLabels(&items.m_document).label(QTextBlock()).text, QString());
    }

    ORV_ROWS(numbers)
    {
        const Rows add([](int kind, int number, const QString& text, const QString& wordProcessorText) {
            QCOMPARE(ORVTextNumber::text(unsigned(kind), number), text);
            QCOMPARE(ORVTextNumber::wordProcessorText(unsigned(kind), number), wordProcessorText);
        });
        add("decimal", Level::Decimal, 12, "12", "12");
        add("negative", Level::Decimal, -3, "-3", "-3");
        add("unknown", 255, 7, "7", "7");
        add("bullet", Level::Bullet, 7, "", "");
        add("z", Level::UpperLetter, 26, "Z", "Z");
        add("behind z", Level::LowerLetter, 28, "ab", "bb");
        add("thirty letters", Level::LowerLetter, 780, "acz", QString(30, QLatin1Char('z')));
        add("letters again", Level::LowerLetter, 781, "ada", "a");
        add("no letter", Level::LowerLetter, 0, "", "");
        add("negative letter", Level::LowerLetter, -27, "", "");
        add("roman", Level::UpperRoman, 1999, "MCMXCIX", "MCMXCIX");
        add("lower roman", Level::LowerRoman, 4, "iv", "iv");
        add("roman 0", Level::LowerRoman, 0, "", "");
        add("beyond roman numbers", Level::LowerRoman, 5000, "?", "?");
    }

    ORV_ROWS(eastAsianNumbers)
    {
        const Rows add([](int kind, int number, const QString& text) {
            QCOMPARE(ORVTextNumber::text(unsigned(kind), number), text);
            QCOMPARE(ORVTextNumber::wordProcessorText(unsigned(kind), number), text);
        });
        add("katakana", Level::KatakanaAiueo, 2, "イ");
        add("last katakana", Level::KatakanaAiueo, 46, "ン");
        add("katakana again", Level::KatakanaAiueo, 47, "ア");
        add("poem", Level::KatakanaIroha, 2, "ロ");
        add("last of the poem", Level::KatakanaIroha, 48, "ン");
        add("hangul", Level::HangulSyllable, 14, "하");
        add("consonants", Level::HangulConsonant, 14, "ㅎ");
        add("stems", Level::HeavenlyStem, 10, "癸");
        add("stems again", Level::HeavenlyStem, 11, "甲");
        add("branches", Level::EarthlyBranch, 12, "亥");
        add("circled", Level::Circled, 20, "⑳");
        add("beyond circles", Level::Circled, 21, "21");
        add("digits", Level::IdeographDigit, 120, "一二〇");
        add("ten", Level::IdeographCounting, 10, "十");
        add("counting", Level::IdeographCounting, 2034, "二千三十四");
        add("one hundred", Level::IdeographCounting, 111, "百十一");
        add("largest", Level::IdeographCounting, 9999, "九千九百九十九");
        add("beyond", Level::IdeographCounting, 10000, "10000");
        add("zero", Level::KatakanaAiueo, 0, "0");
        add("negative", Level::IdeographDigit, -5, "-5");
    }

    ORV_ROWS(romanValue)
    {
        const Rows add(
            [](const QString& text, int value) { QCOMPARE(ORVTextNumber::romanValue(text), value); });
        add("one letter", "i", 1);
        add("capitals", "MCMXCIX", 1999);
        add("largest", "mmmmcmxcix", 4999);
        add("beyond", "mmmmm", 0);
        add("not as it is written", "iiii", 0);
        add("order", "vx", 0);
        add("other letters", "xa", 0);
        add("long", QString(100000, QLatin1Char('m')), 0);
        add("empty", "", 0);
    }

    ORV_ROWS(stockText)
    {
        const Rows add([](int style, int number, const QString& text) {
            QTextListFormat format;
            format.setStyle(QTextListFormat::Style(style));
            QCOMPARE(ORVTextListLabels::stockText(format, number, false), text);
        });
        add("decimal 1", QTextListFormat::ListDecimal, 1, "1.");
        add("decimal 20000", QTextListFormat::ListDecimal, 20000, "20000.");
        add("letter 26", QTextListFormat::ListLowerAlpha, 26, "z.");
        add("letter 27", QTextListFormat::ListLowerAlpha, 27, "aa.");
        add("letter 52", QTextListFormat::ListUpperAlpha, 52, "AZ.");
        add("letter 53", QTextListFormat::ListUpperAlpha, 53, "BA.");
        add("letter 702", QTextListFormat::ListLowerAlpha, 702, "zz.");
        add("letter 703", QTextListFormat::ListLowerAlpha, 703, "aaa.");
        add("roman 4", QTextListFormat::ListLowerRoman, 4, "iv.");
        add("roman 1999", QTextListFormat::ListUpperRoman, 1999, "MCMXCIX.");
        add("roman 4999", QTextListFormat::ListUpperRoman, 4999, "MMMMCMXCIX.");
        add("roman 5000", QTextListFormat::ListLowerRoman, 5000, "?.");
        add("disc", QTextListFormat::ListDisc, 3, ".");
        add("no style", QTextListFormat::ListStyleUndefined, 3, ".");
    }

    /*! The text of an item must be what Qt's own list gives. */
    ORV_ROWS(stockTextAgreesWithQt)
    {
        const Rows add([](int style, bool surrounded, bool rightToLeft) {
            QTextListFormat format;
            format.setStyle(QTextListFormat::Style(style));
            if (surrounded) {
                format.setNumberPrefix("(");
                format.setNumberSuffix(")");
            }
            QTextDocument document;
            QTextCursor cursor(&document);
            cursor.setBlockFormat(blockFormat(
                {{QTextFormat::LayoutDirection, rightToLeft ? Qt::RightToLeft : Qt::LeftToRight}}));
            QTextList* const list = cursor.createList(format);
            for (int i = 1; i < 150; ++i)
                cursor.insertBlock();
            QCOMPARE(list->count(), 150);
            for (int i = 0; i < list->count(); ++i)
                QCOMPARE(ORVTextListLabels::stockText(list->format(), i + 1,
                                                      list->item(i).textDirection() == Qt::RightToLeft),
                         list->itemText(list->item(i)));
        });
        for (int style = QTextListFormat::ListUpperRoman; style <= QTextListFormat::ListStyleUndefined;
             ++style) {
            const QByteArray name = "style " + QByteArray::number(style);
            add(name, style, false, false);
            add(name + ", surrounded", style, true, false);
            add(name + ", right to left", style, false, true);
            add(name + ", surrounded, right to left", style, true, true);
        }
    }
};

ORV_TEST("textlistlabels", TestTextListLabels, QGuiApplication)
#include "textlistlabels.moc"
