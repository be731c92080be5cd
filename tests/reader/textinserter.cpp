#include "ORVRtfTextInserter_p.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QtTest>

#include <random>

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

/*! The texts of the paragraphs with their margins and the sizes of their own character formats. */
QStringList paragraphs(const QTextDocument& document)
{
    QStringList result;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        result << block.text() + QLatin1Char('|') + QString::number(block.blockFormat().leftMargin())
                + QLatin1Char('|') + QString::number(block.charFormat().fontPointSize());
    return result;
}

/*! The same with the pieces of their texts, as the document holds them. */
QStringList pieces(const QTextDocument& document)
{
    QStringList result = paragraphs(document);
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it)
            result << it.fragment().text() + QLatin1Char('|')
                    + QString::number(it.fragment().charFormat().fontPointSize());
    }
    return result;
}

} // namespace

/*! The place where text goes in, which owes its document the paragraph behind one that has ended. */
class tst_textinserter : public QObject {
    Q_OBJECT

private slots:
    void init() { m_document.clear(); }

    void nowhere();
    void paragraphIsOwedUntilItMatters();
    void paragraphComesWithItsFormats();
    void lastFormatsCount();
    void withoutFormatsItIsLikeTheOneBefore();
    void formatsOfTextAreLeftAlone();
    void formatsOfEmptyParagraphsAreReplaced();
    void emptyParagraphsAreKept();
    void textThatEndsParagraphs_data();
    void textThatEndsParagraphs();
    void movingCompletesTheOldPlace();
    void whatTheCursorDoesIsSeen();
    void textWaitsForMoreOfItsFormat();
    void textWaitsAcrossEqualParagraphs();
    void otherFormatsEndTheWaiting_data();
    void otherFormatsEndTheWaiting();
    void littleTextWaits();
    void piecesAreThoseOfOneByOne();

private:
    QTextDocument m_document;
};

void tst_textinserter::nowhere()
{
    ORVRtfTextInserter cursor;
    cursor.setBlockFormats(indented(1), sized(8));
    cursor.insertText(QStringLiteral("x"), sized(8));
    cursor.endBlock();
    cursor.complete();
    QVERIFY(cursor.place().isNull());
}

void tst_textinserter::paragraphIsOwedUntilItMatters()
{
    ORVRtfTextInserter cursor;
    cursor.moveTo(QTextCursor(&m_document));
    cursor.insertText(QStringLiteral("a"), sized(8));
    cursor.endBlock();
    QCOMPARE(m_document.blockCount(), 1);
    cursor.setBlockFormats(indented(5), sized(9));
    QCOMPARE(m_document.blockCount(), 1);
    cursor.complete();
    QCOMPARE(m_document.blockCount(), 2);
    cursor.complete();
    QCOMPARE(m_document.blockCount(), 2);
}

void tst_textinserter::paragraphComesWithItsFormats()
{
    ORVRtfTextInserter cursor;
    cursor.moveTo(QTextCursor(&m_document));
    cursor.insertText(QStringLiteral("a"), sized(8));
    cursor.endBlock();
    cursor.setBlockFormats(indented(5), sized(9));
    cursor.insertText(QStringLiteral("b"), sized(10));
    cursor.complete();
    QCOMPARE(paragraphs(m_document).last(), QStringLiteral("b|5|9"));
    QCOMPARE(m_document.lastBlock().begin().fragment().charFormat(), sized(10));
}

void tst_textinserter::lastFormatsCount()
{
    ORVRtfTextInserter cursor;
    cursor.moveTo(QTextCursor(&m_document));
    cursor.endBlock();
    cursor.setBlockFormats(indented(5), sized(9));
    cursor.setBlockFormats(indented(6), sized(7));
    cursor.complete();
    QCOMPARE(paragraphs(m_document).last(), QStringLiteral("|6|7"));
}

void tst_textinserter::withoutFormatsItIsLikeTheOneBefore()
{
    ORVRtfTextInserter cursor;
    cursor.moveTo(QTextCursor(&m_document));
    cursor.setBlockFormats(indented(5), sized(9));
    cursor.insertText(QStringLiteral("a"), sized(9));
    cursor.endBlock();
    cursor.setBlockFormats(indented(6), sized(7));
    cursor.endBlock();
    cursor.complete();
    QCOMPARE(paragraphs(m_document),
             QStringList({QStringLiteral("a|5|9"), QStringLiteral("|6|7"), QStringLiteral("|6|7")}));
}

void tst_textinserter::formatsOfTextAreLeftAlone()
{
    ORVRtfTextInserter cursor;
    cursor.moveTo(QTextCursor(&m_document));
    cursor.setBlockFormats(indented(5), sized(9));
    cursor.insertText(QStringLiteral("a"), sized(9));
    cursor.setBlockFormats(indented(6), sized(7));
    cursor.complete();
    cursor.setBlockFormats(indented(6), sized(7));
    QCOMPARE(paragraphs(m_document), QStringList(QStringLiteral("a|5|9")));
}

void tst_textinserter::formatsOfEmptyParagraphsAreReplaced()
{
    ORVRtfTextInserter cursor;
    cursor.moveTo(QTextCursor(&m_document));
    cursor.setBlockFormats(indented(5), sized(9));
    cursor.setBlockFormats(indented(6), sized(7));
    QCOMPARE(paragraphs(m_document), QStringList(QStringLiteral("|6|7")));
}

void tst_textinserter::emptyParagraphsAreKept()
{
    ORVRtfTextInserter cursor;
    cursor.moveTo(QTextCursor(&m_document));
    cursor.endBlock();
    cursor.endBlock();
    cursor.insertText(QStringLiteral("c"), sized(9));
    cursor.complete();
    QCOMPARE(m_document.toPlainText(), QStringLiteral("\n\nc"));
}

void tst_textinserter::textThatEndsParagraphs_data()
{
    QTest::addColumn<int>("unit");
    for (const int unit : {int('\n'), int('\r'), 0x2029, 0xFDD0, 0xFDD1})
        QTest::newRow(qPrintable(QString::number(unit, 16))) << unit;
}

/*! What follows such a character is a new paragraph, and empty. */
void tst_textinserter::textThatEndsParagraphs()
{
    QFETCH(int, unit);
    ORVRtfTextInserter cursor;
    cursor.moveTo(QTextCursor(&m_document));
    cursor.setBlockFormats(indented(5), sized(9));
    cursor.insertText(QLatin1Char('a') + QString(QChar(ushort(unit))), sized(9));
    cursor.setBlockFormats(indented(6), sized(7));
    QCOMPARE(paragraphs(m_document), QStringList({QStringLiteral("a|5|9"), QStringLiteral("|6|7")}));
}

void tst_textinserter::movingCompletesTheOldPlace()
{
    QTextDocument other;
    ORVRtfTextInserter cursor;
    cursor.moveTo(QTextCursor(&m_document));
    cursor.insertText(QStringLiteral("a"), sized(9));
    cursor.endBlock();
    cursor.setBlockFormats(indented(6), sized(7));
    cursor.moveTo(QTextCursor(&other));
    QCOMPARE(paragraphs(m_document).last(), QStringLiteral("|6|7"));
    // The text at the old place does not keep the empty paragraph here from getting its formats.
    cursor.setBlockFormats(indented(4), sized(3));
    QCOMPARE(paragraphs(other), QStringList(QStringLiteral("|4|3")));
}

void tst_textinserter::whatTheCursorDoesIsSeen()
{
    ORVRtfTextInserter cursor;
    cursor.moveTo(QTextCursor(&m_document));
    cursor.insertText(QStringLiteral("a"), sized(9));
    cursor.endBlock();
    cursor.place().insertText(QStringLiteral("b"));
    cursor.place().insertBlock();
    cursor.setBlockFormats(indented(6), sized(7));
    QCOMPARE(m_document.toPlainText(), QStringLiteral("a\nb\n"));
    QCOMPARE(paragraphs(m_document).last(), QStringLiteral("|6|7"));
}

void tst_textinserter::textWaitsForMoreOfItsFormat()
{
    ORVRtfTextInserter cursor;
    cursor.moveTo(QTextCursor(&m_document));
    cursor.insertText(QStringLiteral("a"), sized(9));
    cursor.insertText(QStringLiteral("b"), sized(9));
    QCOMPARE(m_document.toPlainText(), QString());
    cursor.insertText(QStringLiteral("c"), sized(10));
    QCOMPARE(m_document.toPlainText(), QStringLiteral("ab"));
    QVERIFY(cursor.place().atEnd());
    QCOMPARE(m_document.toPlainText(), QStringLiteral("abc"));
    QCOMPARE(cursor.place().charFormat().fontPointSize(), 10.0);
}

void tst_textinserter::textWaitsAcrossEqualParagraphs()
{
    ORVRtfTextInserter cursor;
    cursor.moveTo(QTextCursor(&m_document));
    for (const QChar c : {QLatin1Char('a'), QLatin1Char('b'), QLatin1Char('c')}) {
        cursor.setBlockFormats(indented(5), sized(9));
        cursor.insertText(c, sized(9));
        cursor.endBlock();
    }
    QCOMPARE(m_document.blockCount(), 1);
    cursor.setBlockFormats(indented(6), sized(9));
    cursor.complete();
    QCOMPARE(paragraphs(m_document),
             QStringList({QStringLiteral("a|5|9"), QStringLiteral("b|5|9"), QStringLiteral("c|5|9"),
                          QStringLiteral("|6|9")}));
    QCOMPARE(m_document.begin().next().begin().fragment().charFormat(), sized(9));
}

void tst_textinserter::otherFormatsEndTheWaiting_data()
{
    QTest::addColumn<double>("margin");
    QTest::addColumn<double>("blockSize");
    QTest::addColumn<double>("size");
    QTest::newRow("paragraph") << 6.0 << 9.0 << 9.0;
    QTest::newRow("characters of the paragraph") << 5.0 << 8.0 << 9.0;
    QTest::newRow("characters") << 5.0 << 9.0 << 8.0;
    QTest::newRow("both alike") << 5.0 << 8.0 << 8.0;
}

void tst_textinserter::otherFormatsEndTheWaiting()
{
    QFETCH(double, margin);
    QFETCH(double, blockSize);
    QFETCH(double, size);
    ORVRtfTextInserter cursor;
    cursor.moveTo(QTextCursor(&m_document));
    cursor.setBlockFormats(indented(5), sized(9));
    cursor.insertText(QStringLiteral("a"), sized(9));
    cursor.endBlock();
    cursor.setBlockFormats(indented(margin), sized(blockSize));
    cursor.insertText(QStringLiteral("b"), sized(size));
    QCOMPARE(paragraphs(m_document).first(), QStringLiteral("a|5|9"));
    cursor.complete();
    QCOMPARE(paragraphs(m_document).last(), QStringLiteral("b|%1|%2").arg(margin).arg(blockSize));
    QCOMPARE(m_document.lastBlock().begin().fragment().charFormat(), sized(size));
}

/*! What waits takes memory in addition to the document's. */
void tst_textinserter::littleTextWaits()
{
    const QString text(100, QLatin1Char('a'));
    ORVRtfTextInserter cursor;
    cursor.moveTo(QTextCursor(&m_document));
    for (int count = 1; count <= 1000; ++count) {
        cursor.insertText(text, sized(9));
        QVERIFY(m_document.characterCount() + 10000 > count * text.size());
    }
    cursor.complete();
    QCOMPARE(m_document.toPlainText(), text.repeated(1000));
}

/*! Whatever is done, and in whatever order: the document is the one that has all of it done at once. */
void tst_textinserter::piecesAreThoseOfOneByOne()
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
            const QTextBlockFormat blockFormat = indented(upTo(2));
            const QTextCharFormat charFormat = sized(9 + upTo(2));
            switch (upTo(8)) {
            case 0:
            case 1:
                cursor.endBlock();
                plain.insertBlock();
                break;
            case 2:
            case 3:
                cursor.setBlockFormats(blockFormat, charFormat);
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
                    + (upTo(10) == 0 ? QStringLiteral("\n") : QString());
                cursor.insertText(text, charFormat);
                plain.insertText(text, charFormat);
            }
            }
        }
        cursor.complete();
        QCOMPARE(pieces(m_document), pieces(expected));
    }
}

QTEST_MAIN(tst_textinserter)
#include "tst_textinserter.moc"
