#include "ORVTextColumns_p.h"
#include "TextExport.h"
#include "TextWrap.h"
#include "interchangehelpers.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

/*! The text of an RTF document with \a body. */
QString textOf(const QByteArray& body, const TextLayout& layout)
{
    const Reading reading = importBody(body);
    return QString::fromUtf8(documentToPlainText(*reading.document, layout));
}

QByteArray row(const QByteArray& begin, std::initializer_list<QByteArray> cells)
{
    QByteArray result = "\\trowd" + begin;
    for (int i = 1; i <= int(cells.size()); ++i)
        result += "\\cellx" + QByteArray::number(1000 * i);
    result += "\\pard\\intbl ";
    for (const QByteArray& cell : cells)
        result += cell + "\\cell ";
    return result + "\\row ";
}

int longestLine(const QString& text)
{
    int longest = 0;
    const QStringList lines = text.split('\n');
    for (const QString& line : lines)
        longest = qMax(longest, ORVTextColumns::of(line));
    return longest;
}

} // namespace

/*! Plain text with tables laid out and lines wrapped. */
class TestToolPlainText : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(columns)
    {
        const Rows add([](const QString& text, int columns) { QCOMPARE(ORVTextColumns::of(text), columns); });
        add("nothing", "", 0);
        add("ASCII", "abc", 3);
        add("combining mark", "e\u0301", 1);
        add("invisible", "a\u200bb", 2);
        add("Greek", "\u03b1", 1);
        add("Chinese", "\u4e2d\u6587", 4);
        add("Hiragana", "\u3042", 2);
        add("Korean", "\uac00", 2);
        add("Korean of parts", "\u1100\u1161\u11a8", 2);
        add("fullwidth and halfwidth", "\uff21\uff71", 3);
        add("beyond U+FFFF", "\U00020000", 2);
        add("pictograph", "\U0001f600", 2);
        add("mathematical letter", "\U0001d400", 1);
        add("half a surrogate", QString(QChar(0xd83d)) + "a"_s, 2);
    }

    ORV_ROWS(wrapped)
    {
        const Rows add([](const QString& text, int width, const QString& expected) {
            QCOMPARE(TextWrap::lines(QString(), text, width).join('\n'), expected);
        });
        add("no limit", "one two three", 0, "one two three");
        add("fits", "one two", 7, "one two");
        add("at a blank", "one two", 6, "one\ntwo");
        add("several lines", "aa bb cc dd ee", 5, "aa bb\ncc dd\nee");
        add("several blanks at the break", "one   two", 4, "one\ntwo");
        add("blanks elsewhere stay", "  a   b ", 20, "  a   b ");
        add("long word", "a longest b", 4, "a\nlongest\nb");
        add("only a long word", "longest", 4, "longest");
        add("blanks in front of a long word", "  longest", 4, "  longest");
        add("line feeds", "one two\nthree", 4, "one\ntwo\nthree");
        add("empty lines", "a\n\nb", 4, "a\n\nb");
        add("no-break space", "a b\u00a0c d", 4, "a\nb\u00a0c\nd");
        add("narrow no-break space", "a b\u202fc d", 4, "a\nb\u202fc\nd");
        add("tab", "a\tb", 8, "a\nb");
        add("tab with room", "a\tb", 9, "a\tb");
        add("other blanks", "aa\u2003bb", 4, "aa\nbb");
        add("hyphen", "aa-bb", 4, "aa-bb");
        add("combining marks", "a\u0301b\u0301 c", 4, "a\u0301b\u0301 c");
        add("Chinese", "\u4e2d\u6587\u5b57", 4, "\u4e2d\u6587\n\u5b57");
        add("Chinese full stop stays with its sentence", "\u4e2d\u6587\u3002\u5b57", 4,
            "\u4e2d\n\u6587\u3002\n\u5b57");
        add("Korean words stay whole", "\uac00\uac00\uac00 \uac00", 4, "\uac00\uac00\uac00\n\uac00");
        add("empty", "", 4, "");
    }

    ORV_ROWS(brokenWords)
    {
        const Rows add([](const QString& text, int width, const QString& expected) {
            QCOMPARE(TextWrap::lines(QString(), text, width, TextWrap::Broken).join('\n'), expected);
        });
        add("word", "abcdefg", 3, "abc\ndef\ng");
        add("at a blank first", "a bcdef", 3, "a\nbcd\nef");
        add("behind a hyphen", "ab-cde", 4, "ab-\ncde");
        add("mark stays with its letter", "abc\u0301d", 3, "abc\u0301\nd");
        add("pair of surrogates", "\U0001d400\U0001d400", 1, "\U0001d400\n\U0001d400");
    }

    ORV_ROWS(labelled)
    {
        const Rows add([](const QString& label, const QString& text, int width, const QString& expected) {
            QCOMPARE(TextWrap::lines(label, text, width).join('\n'), expected);
        });
        add("hanging", "1.", "one two three", 8, "1. one\n   two\n   three");
        add("line break", "1.", "one\ntwo", 8, "1. one\n   two");
        add("line break without limit", "1.", "one\ntwo", 0, "1. one\ntwo");
        add("label alone", "1.", "", 8, "1.");
        add("long label", "Article 1", "one two three", 12, "Article 1\none two\nthree");
    }

    ORV_ROWS(tables)
    {
        const TextLayout layout = {true, 0};
        const Rows add([layout](const QByteArray& body, const QString& expected) {
            QCOMPARE(textOf(body, layout), expected);
        });
        add("no table", "a\\par b", "a\nb\n");
        add("cells", row("", {"a", "bbb"}) + row("", {"ccc", "d"}) + "\\pard after",
            "a   | bbb\nccc | d\n\nafter\n");
        add("text in front", "\\pard before\\par " + row("", {"a", "b"}) + "\\pard after",
            "before\n\na | b\n\nafter\n");
        add("empty paragraphs around", "\\pard before\\par\\par " + row("", {"a"}) + "\\pard\\par after",
            "before\n\na\n\nafter\n");
        add("head", row("\\trhdr", {"A", "B"}) + row("", {"aa", "b"}), "A  | B\n---+--\naa | b\n");
        add("lines of a cell", row("", {"a\\line b", "c"}) + row("", {"d\\par e", "f"}),
            "a | c\nb |\n\nd | f\ne |\n");
        add("empty cells", row("", {"", "b"}) + row("", {"a", ""}), "  | b\na |\n");
        add("only empty cells", row("", {"", ""}), " |\n");
        add("tab in a cell", row("", {"a\\tab b", "c"}), "a       b | c\n");
        add("wide characters", row("", {"\\u20013?", "x"}) + row("", {"abc", "y"}), "\u4e2d  | x\nabc | y\n");
        add("merged columns",
            "\\trowd\\clmgf\\cellx1000\\clmrg\\cellx2000\\cellx3000\\pard\\intbl ab\\cell\\cell c\\cell\\row "
                + row("", {"d", "e", "f"}),
            "ab    | c\nd | e | f\n");
        add("merged columns that need room",
            "\\trowd\\clmgf\\cellx1000\\clmrg\\cellx2000\\pard\\intbl abcdefg\\cell\\cell\\row "
                + row("", {"d", "e"}),
            "abcdefg\nd  | e\n");
        add("merged rows",
            "\\trowd\\clvmgf\\cellx1000\\cellx2000\\pard\\intbl a\\line b\\line c\\cell 1\\cell\\row "
            "\\trowd\\clvmrg\\cellx1000\\cellx2000\\pard\\intbl\\cell 2\\cell\\row "
                + row("", {"d", "3"}),
            "a | 1\n\nb | 2\nc |\n\nd | 3\n");
        add("table in a cell",
            "\\trowd\\cellx4000\\cellx6000\\pard\\intbl a\\par\\pard\\intbl\\itap2 x\\nestcell y\\nestcell"
            "{\\*\\nesttableprops\\trowd\\cellx1000\\cellx2000\\nestrow}\\pard\\intbl b\\cell c\\cell\\row",
            "a     | c\nx | y |\nb     |\n");
        add("list in a cell",
            "\\trowd\\cellx2000\\pard\\intbl{\\*\\pn\\pnlvlblt{\\pntxtb -}}a\\cell\\row\\pard b",
            "- a\n\nb\n");
    }

    ORV_ROWS(wrappedTables)
    {
        const Rows add([](const QByteArray& body, int width, const QString& expected) {
            const TextLayout layout = {true, width};
            QCOMPARE(textOf(body, layout), expected);
        });
        // 20 columns are 3 for the bar, 1 for the number, and 16 for the text.
        add("prose", row("", {"the quick brown fox jumps", "1"}), 20,
            "the quick brown  | 1\nfox jumps        |\n");
        add("narrow columns keep their words", row("", {"aaa bbb ccc ddd eee fff", "word"}), 14,
            "aaa bbb | word\nccc ddd |\neee fff |\n");
        add("words that are too long are broken", row("", {"abcdefghij", "klmnopqrst"}), 13,
            "abcde | klmno\nfghij | pqrst\n");
        add("too narrow for the columns", row("", {"one two", "three four", "five six"}), 8,
            "one two\nthree\nfour\nfive six\n");
        add("paragraphs", "one two three", 8, "one two\nthree\n");
    }

    /*! A cell of prose does not make lines that nobody can read. */
    void widestCell()
    {
        const QString text = textOf(row("", {QByteArray("word ").repeated(100), "end"}), {true, 0});
        // 16 words and the blanks between them are 79 columns of 80, and the bar has a blank in front.
        QCOMPARE(text.split('\n').first(), QString("word "_s).repeated(16) + " | end"_s);
        QCOMPARE(text.count("word"_s), 100);
    }

    void manyRows()
    {
        QByteArray body;
        for (int i = 0; i < 3000; ++i)
            body += row("", {QByteArray::number(i), "b"});
        const QString text = textOf(body, {true, 40});
        QCOMPARE(text.count('\n'), 3000);
        QVERIFY(text.startsWith("0    | b\n1    | b\n"_s));
        QVERIFY(text.endsWith("2999 | b\n"_s));
    }

    /*! Tables in tables have no more columns than there are; in the end their cells stand below each other. */
    void deepTables()
    {
        QTextDocument document;
        QTextCursor cursor(&document);
        const int depth = 60;
        for (int i = 0; i < depth; ++i) {
            QTextTable* const table = cursor.insertTable(1, 2);
            table->cellAt(0, 0).firstCursorPosition().insertText("word%1"_s.arg(i));
            cursor = table->cellAt(0, 1).firstCursorPosition();
        }
        cursor.insertText("innermost"_s);
        const QString text = QString::fromUtf8(documentToPlainText(document, {true, 0}));
        QVERIFY2(longestLine(text) <= 200, qPrintable(text));
        QVERIFY(text.size() < 100000);
        // A word can be broken between lines, but nothing is lost.
        QString squeezed = text;
        for (const QChar character : " |\n"_s)
            squeezed.remove(character);
        QCOMPARE(squeezed.count('w'), depth);
        QVERIFY(squeezed.contains("innermost"_s));
    }

    /*! Blanks in front of a long cell would be most of the text. */
    void oneLongCell()
    {
        QByteArray body = "\\trowd";
        const int columns = 30;
        for (int i = 1; i <= columns; ++i)
            body += "\\cellx" + QByteArray::number(700 * i);
        const QByteArray wide = QByteArray(80, 'x') + "\\cell ";
        const QByteArray begin = body + "\\pard\\intbl ";
        body = begin + wide.repeated(columns) + "\\row " + begin + QByteArray("\\cell ").repeated(columns - 1)
            + QByteArray("y\\line ").repeated(20000) + "z\\cell\\row ";
        const QString text = textOf(body, {true, 0});
        QCOMPARE(text.count('y'), 20000);
        QVERIFY2(text.size() < 4000000, qPrintable(QString::number(text.size())));
    }

    void longLines()
    {
        const QByteArray words = QByteArray("word ").repeated(200000);
        QElapsedTimer timer;
        timer.start();
        const QString text = textOf(row("", {words, words}), {true, 60});
        QCOMPARE(text.count("word"_s), 400000);
        QVERIFY(longestLine(text) <= 60);
        const QString plain = textOf(QByteArray(1000000, 'x'), {true, 60});
        QCOMPARE(plain.size(), 1000001);
        QVERIFY2(timer.elapsed() < 60000, "more than linear time");
    }
};

ORV_TEST("tool_plaintext", TestToolPlainText, QGuiApplication)
#include "plaintext.moc"
