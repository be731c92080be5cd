#include "ORVRtfTextInserter_p.h"
#include "testsupport.h"

namespace {

/*! An inserter at the begin of a document. */
struct Inserter : ORVRtfTextInserter {
    explicit Inserter(QTextDocument& document) { moveTo(QTextCursor(&document)); }
};

ORVRtfParagraph indented(double margin)
{
    ORVRtfParagraph paragraph;
    paragraph.setProperty(QTextFormat::BlockLeftMargin, margin);
    return paragraph;
}

QTextBlockFormat indentedFormat(double margin)
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

    void nowhere()
    {
        ORVRtfTextInserter cursor;
        cursor.setBlockFormats(indented(1), sized(8));
        cursor.insertText("x"_s, sized(8));
        cursor.endBlock();
        cursor.complete();
        QVERIFY(cursor.place().isNull());
    }

    void paragraphWaitsUntilItMatters()
    {
        Inserter cursor(m_document);
        cursor.insertText("a"_s, sized(8));
        cursor.endBlock();
        QCOMPARE(m_document.blockCount(), 1);
        cursor.setBlockFormats(indented(5), sized(9));
        QCOMPARE(m_document.blockCount(), 1);
        cursor.complete();
        QCOMPARE(m_document.blockCount(), 2);
        cursor.complete();
        QCOMPARE(m_document.blockCount(), 2);
    }

    void paragraphComesWithItsFormats()
    {
        Inserter cursor(m_document);
        cursor.insertText("a"_s, sized(8));
        cursor.endBlock();
        cursor.setBlockFormats(indented(5), sized(9));
        cursor.insertText("b"_s, sized(10));
        cursor.complete();
        QCOMPARE(paragraphs(m_document).last(), "b|5|9"_s);
        QCOMPARE(m_document.lastBlock().begin().fragment().charFormat(), sized(10));
    }

    void lastFormatsCount()
    {
        Inserter cursor(m_document);
        cursor.endBlock();
        cursor.setBlockFormats(indented(5), sized(9));
        cursor.setBlockFormats(indented(6), sized(7));
        cursor.complete();
        QCOMPARE(paragraphs(m_document).last(), "|6|7"_s);
    }

    void withoutFormatsItIsLikeTheOneBefore()
    {
        Inserter cursor(m_document);
        cursor.setBlockFormats(indented(5), sized(9));
        cursor.insertText("a"_s, sized(9));
        cursor.endBlock();
        cursor.setBlockFormats(indented(6), sized(7));
        cursor.endBlock();
        cursor.complete();
        QCOMPARE(paragraphs(m_document), QStringList({"a|5|9"_s, "|6|7"_s, "|6|7"_s}));
    }

    void formatsOfTextAreLeftAlone()
    {
        Inserter cursor(m_document);
        cursor.setBlockFormats(indented(5), sized(9));
        cursor.insertText("a"_s, sized(9));
        cursor.setBlockFormats(indented(6), sized(7));
        cursor.complete();
        cursor.setBlockFormats(indented(6), sized(7));
        QCOMPARE(paragraphs(m_document), QStringList("a|5|9"_s));
    }

    void formatsOfEmptyParagraphsAreReplaced()
    {
        Inserter cursor(m_document);
        cursor.setBlockFormats(indented(5), sized(9));
        cursor.complete();
        cursor.setBlockFormats(indented(6), sized(7));
        cursor.complete();
        QCOMPARE(paragraphs(m_document), QStringList("|6|7"_s));
    }

    /*! Setting them costs as much as the paragraph, and usually others follow before its text. */
    void formatsOfEmptyParagraphsWait()
    {
        Inserter cursor(m_document);
        cursor.setBlockFormats(indented(5), sized(9));
        QCOMPARE(paragraphs(m_document), QStringList("|0|0"_s));
        cursor.setBlockFormats(indented(6), sized(7));
        cursor.endBlock();
        QCOMPARE(paragraphs(m_document), QStringList("|6|7"_s));
        cursor.setBlockFormats(indented(4), sized(3));
        cursor.place();
        QCOMPARE(paragraphs(m_document), QStringList({"|6|7"_s, "|4|3"_s}));
    }

    /*! They are those of the paragraph at the place where they were set. */
    void waitingFormatsStayBehind()
    {
        QTextDocument other;
        Inserter cursor(m_document);
        cursor.setBlockFormats(indented(5), sized(9));
        cursor.moveTo(QTextCursor(&other));
        cursor.complete();
        QCOMPARE(paragraphs(m_document), QStringList("|5|9"_s));
        QCOMPARE(paragraphs(other), QStringList("|0|0"_s));
    }

    /*! The document of a cell ends with its table while the place is in it. */
    void placesMayVanish()
    {
        ORVRtfTextInserter cursor;
        {
            QTextDocument cell;
            cursor.moveTo(QTextCursor(&cell));
            cursor.setBlockFormats(indented(5), sized(9));
            cursor.insertText("lost"_s, sized(9));
            cursor.endBlock();
            cursor.setBlockFormats(indented(6), sized(9));
        }
        cursor.moveTo(QTextCursor(&m_document));
        cursor.insertText("kept"_s, sized(9));
        cursor.complete();
        QCOMPARE(paragraphs(m_document), QStringList("kept|0|0"_s));
    }

    void emptyParagraphsAreKept()
    {
        Inserter cursor(m_document);
        cursor.endBlock();
        cursor.endBlock();
        cursor.insertText("c"_s, sized(9));
        cursor.complete();
        QCOMPARE(m_document.toPlainText(), "\n\nc"_s);
    }

    /*! What follows such a character is a new paragraph, and empty. */
    ORV_ROWS(textThatEndsParagraphs)
    {
        const Rows add([this](int unit) {
            Inserter cursor(m_document);
            cursor.setBlockFormats(indented(5), sized(9));
            cursor.insertText(QLatin1Char('a') + QString(QChar(ushort(unit))), sized(9));
            cursor.setBlockFormats(indented(6), sized(7));
            cursor.complete();
            QCOMPARE(paragraphs(m_document), QStringList({"a|5|9"_s, "|6|7"_s}));
        });
        for (const int unit : {int('\n'), int('\r'), 0x2029, 0xFDD0, 0xFDD1})
            add(qPrintable(QString::number(unit, 16)), unit);
    }

    void movingCompletesTheOldPlace()
    {
        QTextDocument other;
        Inserter cursor(m_document);
        cursor.insertText("a"_s, sized(9));
        cursor.endBlock();
        cursor.setBlockFormats(indented(6), sized(7));
        cursor.moveTo(QTextCursor(&other));
        QCOMPARE(paragraphs(m_document).last(), "|6|7"_s);
        // The text at the old place does not keep the empty paragraph here from getting its formats.
        cursor.setBlockFormats(indented(4), sized(3));
        cursor.complete();
        QCOMPARE(paragraphs(other), QStringList("|4|3"_s));
    }

    void whatTheCursorDoesIsSeen()
    {
        Inserter cursor(m_document);
        cursor.insertText("a"_s, sized(9));
        cursor.endBlock();
        cursor.place().insertText("b"_s);
        cursor.place().insertBlock();
        cursor.setBlockFormats(indented(6), sized(7));
        cursor.complete();
        QCOMPARE(m_document.toPlainText(), "a\nb\n"_s);
        QCOMPARE(paragraphs(m_document).last(), "|6|7"_s);
    }

    void textWaitsForMoreOfItsFormat()
    {
        Inserter cursor(m_document);
        cursor.insertText("a"_s, sized(9));
        cursor.insertText("b"_s, sized(9));
        QCOMPARE(m_document.toPlainText(), QString());
        cursor.insertText("c"_s, sized(10));
        QCOMPARE(m_document.toPlainText(), "ab"_s);
        QVERIFY(cursor.place().atEnd());
        QCOMPARE(m_document.toPlainText(), "abc"_s);
        QCOMPARE(cursor.place().charFormat().fontPointSize(), 10.0);
    }

    void textWaitsAcrossEqualParagraphs()
    {
        Inserter cursor(m_document);
        for (const QChar c : {QLatin1Char('a'), QLatin1Char('b'), QLatin1Char('c')}) {
            cursor.setBlockFormats(indented(5), sized(9));
            cursor.insertText(c, sized(9));
            cursor.endBlock();
        }
        QCOMPARE(m_document.blockCount(), 1);
        cursor.setBlockFormats(indented(6), sized(9));
        cursor.complete();
        QCOMPARE(paragraphs(m_document), QStringList({"a|5|9"_s, "b|5|9"_s, "c|5|9"_s, "|6|9"_s}));
        QCOMPARE(m_document.begin().next().begin().fragment().charFormat(), sized(9));
    }

    ORV_ROWS(otherFormatsEndTheWaiting)
    {
        const Rows add([this](double margin, double blockSize, double size) {
            Inserter cursor(m_document);
            cursor.setBlockFormats(indented(5), sized(9));
            cursor.insertText("a"_s, sized(9));
            cursor.endBlock();
            cursor.setBlockFormats(indented(margin), sized(blockSize));
            cursor.insertText("b"_s, sized(size));
            QCOMPARE(paragraphs(m_document).first(), "a|5|9"_s);
            cursor.complete();
            QCOMPARE(paragraphs(m_document).last(), "b|%1|%2"_s.arg(margin).arg(blockSize));
            QCOMPARE(m_document.lastBlock().begin().fragment().charFormat(), sized(size));
        });
        add("paragraph", 6.0, 9.0, 9.0);
        add("characters of the paragraph", 5.0, 8.0, 9.0);
        add("characters", 5.0, 9.0, 8.0);
        add("both alike", 5.0, 8.0, 8.0);
    }

    /*! What waits takes memory in addition to the document's. */
    void littleTextWaits()
    {
        const QString text(100, QLatin1Char('a'));
        Inserter cursor(m_document);
        for (int count = 1; count <= 1000; ++count) {
            cursor.insertText(text, sized(9));
            QVERIFY(m_document.characterCount() + 10000 > count * text.size());
        }
        cursor.complete();
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
            ORVRtfTextInserter cursor;
            cursor.moveTo(QTextCursor(&m_document));
            QTextCursor plain(&expected);
            for (int step = 0; step < 60; ++step) {
                const int margin = upTo(2);
                const QTextBlockFormat blockFormat = indentedFormat(margin);
                const QTextCharFormat charFormat = sized(9 + upTo(2));
                switch (upTo(8)) {
                case 0:
                case 1:
                    cursor.endBlock();
                    plain.insertBlock();
                    break;
                case 2:
                case 3:
                    cursor.setBlockFormats(indented(margin), charFormat);
                    if (plain.block().length() == 1) {
                        plain.setBlockCharFormat(charFormat);
                        plain.setBlockFormat(blockFormat);
                    }
                    break;
                case 4:
                    if (upTo(4) == 0) {
                        cursor.place().insertBlock(blockFormat);
                        plain.insertBlock(blockFormat);
                    }
                    break;
                default: {
                    const QString text = QString(upTo(20) == 0 ? 5000 : 1, QLatin1Char(char('a' + step % 26)))
                        + (upTo(10) == 0 ? "\n"_s : QString());
                    cursor.insertText(text, charFormat);
                    plain.insertText(text, charFormat);
                }
                }
            }
            cursor.complete();
            QCOMPARE(pieces(m_document), pieces(expected));
        }
    }

private:
    QTextDocument m_document;
};

ORV_TEST("textinserter", TestTextInserter, QGuiApplication)
#include "textinserter.moc"
