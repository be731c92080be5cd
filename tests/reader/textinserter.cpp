#include "ORVRtfTextInserter_p.h"
#include "testsupport.h"

namespace {

QTextBlockFormat indented(double margin)
{
    QTextBlockFormat format;
    format.setLeftMargin(margin);
    return format;
}

QTextCharFormat sized(double points)
{
    QTextCharFormat format;
    format.setFontPointSize(points);
    return format;
}

/*! An inserter at the begin of a document. */
struct Inserter : ORVRtfTextInserter {
    explicit Inserter(QTextDocument& document) { moveTo(QTextCursor(&document)); }
    Inserter& formats(double margin, double points)
    {
        ORVRtfParagraph paragraph;
        paragraph.setProperty(QTextFormat::BlockLeftMargin, margin);
        setBlockFormats(paragraph, sized(points));
        return *this;
    }
    Inserter& text(const QString& text, double points)
    {
        insertText(text, sized(points));
        return *this;
    }
    Inserter& end()
    {
        endBlock();
        return *this;
    }
    Inserter& completed()
    {
        complete();
        return *this;
    }
};

/*! The texts of the paragraphs with their margins and the sizes of their own character formats. */
QStringList paragraphs(const QTextDocument& document)
{
    QStringList result;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        result << "%1|%2|%3"_s.arg(block.text())
                      .arg(block.blockFormat().leftMargin())
                      .arg(block.charFormat().fontPointSize());
    return result;
}

/*! The same with the pieces of their texts, as the document holds them. */
QStringList pieces(const QTextDocument& document)
{
    QStringList result = paragraphs(document);
    for (const QTextFragment& fragment : rtftest::fragmentsOf(document))
        result << "%1|%2"_s.arg(fragment.text()).arg(fragment.charFormat().fontPointSize());
    return result;
}

} // namespace

/*! The place where text is inserted, and what waits there. */
class TestTextInserter : public QObject {
    Q_OBJECT

private slots:
    void init() { m_document.clear(); }

    /*! What is done at the begin of a document, and what it has then. */
    ORV_ROWS(results)
    {
        const Rows add([this](const std::function<void(Inserter&)>& work, const QStringList& expected) {
            Inserter inserter(m_document);
            work(inserter);
            inserter.complete();
            QCOMPARE(pieces(m_document), expected);
        });
        add("the paragraph comes with its formats",
            [](Inserter& i) { i.text("a"_s, 8).end().formats(5, 9).text("b"_s, 10); },
            {"a|0|0", "b|5|9", "a|8", "b|10"});
        add("the last formats count", [](Inserter& i) { i.end().formats(5, 9).formats(6, 7); },
            {"|0|0", "|6|7"});
        add("without formats it is like the one before",
            [](Inserter& i) { i.formats(5, 9).text("a"_s, 9).end().formats(6, 7).end(); },
            {"a|5|9", "|6|7", "|6|7", "a|9"});
        add("formats of text are left alone",
            [](Inserter& i) { i.formats(5, 9).text("a"_s, 9).formats(6, 7).completed().formats(6, 7); },
            {"a|5|9", "a|9"});
        add("formats of empty paragraphs are replaced",
            [](Inserter& i) { i.formats(5, 9).completed().formats(6, 7); }, {"|6|7"});
        add("empty paragraphs are kept", [](Inserter& i) { i.end().end().text("c"_s, 9); },
            {"|0|0", "|0|0", "c|0|0", "c|9"});
        add("what the cursor does is seen",
            [](Inserter& i) {
                i.text("a"_s, 9).end().place().insertText("b"_s);
                i.place().insertBlock();
                i.formats(6, 7);
            },
            {"a|0|0", "b|0|9", "|6|7", "a|9", "b|9"});
        // What follows such a character is a new paragraph, and empty.
        for (const int unit : {int('\n'), int('\r'), 0x2029, 0xFDD0, 0xFDD1})
            add("paragraph ended by " + QByteArray::number(unit, 16),
                [unit](Inserter& i) {
                    i.formats(5, 9).text(QLatin1Char('a') + QString(QChar(ushort(unit))), 9).formats(6, 7);
                },
                {"a|5|9", "|6|7", "a|9"});
        // Other formats end the waiting of the text before.
        const auto second = [&add, this](const char* name, double margin, double blockSize, double size) {
            add(name,
                [=](Inserter& i) {
                    i.formats(5, 9).text("a"_s, 9).end().formats(margin, blockSize).text("b"_s, size);
                    QCOMPARE(paragraphs(m_document).first(), "a|5|9"_s);
                },
                {"a|5|9", "b|%1|%2"_s.arg(margin).arg(blockSize), "a|9", "b|%1"_s.arg(size)});
        };
        second("other paragraph", 6, 9, 9);
        second("other characters of the paragraph", 5, 8, 9);
        second("other characters", 5, 9, 8);
        second("both kinds of characters", 5, 8, 8);
    }

    void nowhere()
    {
        ORVRtfTextInserter inserter;
        inserter.setBlockFormats(ORVRtfParagraph(), sized(8));
        inserter.insertText("x"_s, sized(8));
        inserter.endBlock();
        inserter.complete();
        QVERIFY(inserter.place().isNull());
    }

    void paragraphsWaitUntilTheyMatter()
    {
        Inserter inserter(m_document);
        inserter.text("a"_s, 8).end();
        QCOMPARE(m_document.blockCount(), 1);
        inserter.formats(5, 9);
        QCOMPARE(m_document.blockCount(), 1);
        inserter.complete();
        QCOMPARE(m_document.blockCount(), 2);
        inserter.complete();
        QCOMPARE(m_document.blockCount(), 2);
    }

    /*! Setting them costs as much as the paragraph, and usually others follow before its text. */
    void formatsOfEmptyParagraphsWait()
    {
        Inserter inserter(m_document);
        inserter.formats(5, 9);
        QCOMPARE(paragraphs(m_document), QStringList("|0|0"_s));
        inserter.formats(6, 7).end();
        QCOMPARE(paragraphs(m_document), QStringList("|6|7"_s));
        inserter.formats(4, 3).place();
        QCOMPARE(paragraphs(m_document), QStringList({"|6|7"_s, "|4|3"_s}));
    }

    /*! The document of a cell ends with its table while the place is in it. */
    void placesMayVanish()
    {
        auto cell = std::make_unique<QTextDocument>();
        Inserter inserter(*cell);
        inserter.formats(5, 9).text("lost"_s, 9).end().formats(6, 9);
        cell.reset();
        inserter.moveTo(QTextCursor(&m_document));
        inserter.text("kept"_s, 9).complete();
        QCOMPARE(paragraphs(m_document), QStringList("kept|0|0"_s));
    }

    /*! Waiting formats are those of the paragraph at the place where they were set. */
    void movingCompletesTheOldPlace()
    {
        QTextDocument other, last;
        Inserter inserter(m_document);
        inserter.text("a"_s, 9).end().formats(6, 7).moveTo(QTextCursor(&other));
        QCOMPARE(paragraphs(m_document).last(), "|6|7"_s);
        // The text at the old place does not keep the empty paragraph here from getting its formats.
        inserter.formats(4, 3).moveTo(QTextCursor(&last));
        inserter.complete();
        QCOMPARE(paragraphs(other), QStringList("|4|3"_s));
        QCOMPARE(paragraphs(last), QStringList("|0|0"_s));
    }

    void textWaitsForMoreOfItsFormat()
    {
        Inserter inserter(m_document);
        inserter.text("a"_s, 9).text("b"_s, 9);
        QCOMPARE(m_document.toPlainText(), QString());
        inserter.text("c"_s, 10);
        QCOMPARE(m_document.toPlainText(), "ab"_s);
        QVERIFY(inserter.place().atEnd());
        QCOMPARE(m_document.toPlainText(), "abc"_s);
        QCOMPARE(inserter.place().charFormat().fontPointSize(), 10.0);
    }

    void textWaitsAcrossEqualParagraphs()
    {
        Inserter inserter(m_document);
        for (const char* text : {"a", "b", "c"})
            inserter.formats(5, 9).text(QLatin1String(text), 9).end();
        QCOMPARE(m_document.blockCount(), 1);
        inserter.formats(6, 9).complete();
        QCOMPARE(pieces(m_document),
                 QStringList({"a|5|9"_s, "b|5|9"_s, "c|5|9"_s, "|6|9"_s, "a|9"_s, "b|9"_s, "c|9"_s}));
    }

    /*! What waits takes memory in addition to the document's. */
    void littleTextWaits()
    {
        const QString text(100, QLatin1Char('a'));
        Inserter inserter(m_document);
        for (int count = 1; count <= 1000; ++count) {
            inserter.text(text, 9);
            QVERIFY(m_document.characterCount() + 10000 > count * text.size());
        }
        inserter.complete();
        QCOMPARE(m_document.toPlainText(), text.repeated(1000));
    }

    /*! Whatever is done, and in whatever order: the document is the one that has all of it done at once. */
    void piecesAreThoseOfOneByOne()
    {
        std::mt19937 random(20261122);
        const auto upTo = [&random](unsigned limit) { return int(random() % limit); };
        for (int round = 0; round < 400; ++round) {
            m_document.clear();
            QTextDocument expected;
            Inserter inserter(m_document);
            QTextCursor plain(&expected);
            for (int step = 0; step < 60; ++step) {
                const int margin = upTo(2), points = 9 + upTo(2), choice = upTo(8);
                if (choice < 2) {
                    inserter.end();
                    plain.insertBlock();
                } else if (choice < 4) {
                    inserter.formats(margin, points);
                    if (plain.block().length() == 1) {
                        plain.setBlockCharFormat(sized(points));
                        plain.setBlockFormat(indented(margin));
                    }
                } else if (choice == 4 && upTo(4) == 0) {
                    inserter.place().insertBlock(indented(margin));
                    plain.insertBlock(indented(margin));
                } else if (choice > 4) {
                    const QString text = QString(upTo(20) == 0 ? 5000 : 1, QLatin1Char(char('a' + step % 26)))
                        + (upTo(10) == 0 ? "\n"_s : QString());
                    inserter.text(text, points);
                    plain.insertText(text, sized(points));
                }
            }
            inserter.complete();
            QCOMPARE(pieces(m_document), pieces(expected));
        }
    }

private:
    QTextDocument m_document;
};

ORV_TEST("textinserter", TestTextInserter, QGuiApplication)
#include "textinserter.moc"
