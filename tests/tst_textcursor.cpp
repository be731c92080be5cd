#include "ORVRtfTextCursor_p.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QtTest>

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

} // namespace

/*! The place where text goes in, which owes its document the paragraph behind one that has ended. */
class tst_textcursor : public QObject {
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

private:
    QTextDocument m_document;
};

void tst_textcursor::nowhere()
{
    ORVRtfTextCursor cursor;
    cursor.setBlockFormats(indented(1), sized(8));
    cursor.insertText(QStringLiteral("x"), sized(8));
    cursor.endBlock();
    cursor.complete();
    QVERIFY(cursor.place().isNull());
}

void tst_textcursor::paragraphIsOwedUntilItMatters()
{
    ORVRtfTextCursor cursor;
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

void tst_textcursor::paragraphComesWithItsFormats()
{
    ORVRtfTextCursor cursor;
    cursor.moveTo(QTextCursor(&m_document));
    cursor.insertText(QStringLiteral("a"), sized(8));
    cursor.endBlock();
    cursor.setBlockFormats(indented(5), sized(9));
    cursor.insertText(QStringLiteral("b"), sized(10));
    QCOMPARE(paragraphs(m_document).last(), QStringLiteral("b|5|9"));
    QCOMPARE(m_document.lastBlock().begin().fragment().charFormat(), sized(10));
}

void tst_textcursor::lastFormatsCount()
{
    ORVRtfTextCursor cursor;
    cursor.moveTo(QTextCursor(&m_document));
    cursor.endBlock();
    cursor.setBlockFormats(indented(5), sized(9));
    cursor.setBlockFormats(indented(6), sized(7));
    cursor.complete();
    QCOMPARE(paragraphs(m_document).last(), QStringLiteral("|6|7"));
}

void tst_textcursor::withoutFormatsItIsLikeTheOneBefore()
{
    ORVRtfTextCursor cursor;
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

void tst_textcursor::formatsOfTextAreLeftAlone()
{
    ORVRtfTextCursor cursor;
    cursor.moveTo(QTextCursor(&m_document));
    cursor.setBlockFormats(indented(5), sized(9));
    cursor.insertText(QStringLiteral("a"), sized(9));
    cursor.setBlockFormats(indented(6), sized(7));
    QCOMPARE(paragraphs(m_document), QStringList(QStringLiteral("a|5|9")));
}

void tst_textcursor::formatsOfEmptyParagraphsAreReplaced()
{
    ORVRtfTextCursor cursor;
    cursor.moveTo(QTextCursor(&m_document));
    cursor.setBlockFormats(indented(5), sized(9));
    cursor.setBlockFormats(indented(6), sized(7));
    QCOMPARE(paragraphs(m_document), QStringList(QStringLiteral("|6|7")));
}

void tst_textcursor::emptyParagraphsAreKept()
{
    ORVRtfTextCursor cursor;
    cursor.moveTo(QTextCursor(&m_document));
    cursor.endBlock();
    cursor.endBlock();
    cursor.insertText(QStringLiteral("c"), sized(9));
    QCOMPARE(m_document.toPlainText(), QStringLiteral("\n\nc"));
}

void tst_textcursor::textThatEndsParagraphs_data()
{
    QTest::addColumn<int>("unit");
    for (const int unit : {int('\n'), int('\r'), 0x2029, 0xFDD0, 0xFDD1})
        QTest::newRow(qPrintable(QString::number(unit, 16))) << unit;
}

/*! What follows such a character is a new paragraph, and empty. */
void tst_textcursor::textThatEndsParagraphs()
{
    QFETCH(int, unit);
    ORVRtfTextCursor cursor;
    cursor.moveTo(QTextCursor(&m_document));
    cursor.setBlockFormats(indented(5), sized(9));
    cursor.insertText(QLatin1Char('a') + QString(QChar(ushort(unit))), sized(9));
    cursor.setBlockFormats(indented(6), sized(7));
    QCOMPARE(paragraphs(m_document), QStringList({QStringLiteral("a|5|9"), QStringLiteral("|6|7")}));
}

void tst_textcursor::movingCompletesTheOldPlace()
{
    QTextDocument other;
    ORVRtfTextCursor cursor;
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

void tst_textcursor::whatTheCursorDoesIsSeen()
{
    ORVRtfTextCursor cursor;
    cursor.moveTo(QTextCursor(&m_document));
    cursor.insertText(QStringLiteral("a"), sized(9));
    cursor.endBlock();
    cursor.place().insertText(QStringLiteral("b"));
    cursor.place().insertBlock();
    cursor.setBlockFormats(indented(6), sized(7));
    QCOMPARE(m_document.toPlainText(), QStringLiteral("a\nb\n"));
    QCOMPARE(paragraphs(m_document).last(), QStringLiteral("|6|7"));
}

QTEST_MAIN(tst_textcursor)
#include "tst_textcursor.moc"
