#include "ORVRtfFormatSerials_p.h"
#include "ORVRtfParagraph_p.h"
#include "testsupport.h"

namespace {

/*! Leaves \a value in the memory that the next calls will use. */
Q_NEVER_INLINE void scribbleOnTheStack(unsigned char value)
{
    volatile unsigned char memory[4096];
    for (volatile unsigned char& byte : memory)
        byte = value;
}

QTextBlockFormat withTabStops(unsigned char value, ORVRtfFormatSerials& tabLists)
{
    ORVRtfParagraph paragraph;
    scribbleOnTheStack(value);
    paragraph.addTab(5);
    paragraph.setNextTabType(QTextOption::DelimiterTab);
    scribbleOnTheStack(value);
    paragraph.addTab(10);
    return paragraph.format(tabLists);
}

/*! Where the tab stops of \a format are in memory. */
QVector<const void*> tabAddresses(const QTextBlockFormat& format)
{
    QVector<const void*> addresses;
    const QVariantList tabs = format.property(QTextFormat::TabPositions).toList();
    for (const QVariant& tab : tabs)
        addresses.append(tab.constData());
    return addresses;
}

} // namespace

/*! What reading a paragraph's words alone does not show. */
class TestParagraph : public QObject {
    Q_OBJECT

private slots:
    // Qt 5 compares tab stops in variants byte by byte, the unused bytes between their members included.
    void equalTabStopsGiveEqualFormats()
    {
        ORVRtfFormatSerials tabLists[3];
        const QTextBlockFormat format = withTabStops(0, tabLists[0]);
        QCOMPARE(
            format.tabPositions(),
            (QList<QTextOption::Tab>{QTextOption::Tab(5, QTextOption::LeftTab),
                                     QTextOption::Tab(10, QTextOption::DelimiterTab, QLatin1Char('.'))}));
        QVERIFY(withTabStops(0x5A, tabLists[1]) == format);
        QVERIFY(withTabStops(0xA5, tabLists[2]) == format);
    }

    // Qt 4 compares tab stops in variants by their addresses.
    void equalTabStopsAreOneValue()
    {
        ORVRtfFormatSerials tabLists;
        const QTextBlockFormat first = withTabStops(0, tabLists);
        const QTextBlockFormat second = withTabStops(0x5A, tabLists);
        QCOMPARE(tabAddresses(first).size(), 2);
        QCOMPARE(tabAddresses(first), tabAddresses(second));
        // What a document stores and hands out is that value, too.
        QTextDocument document;
        QTextCursor cursor(&document);
        cursor.setBlockFormat(first);
        cursor.insertBlock(second);
        QCOMPARE(tabAddresses(document.firstBlock().blockFormat()), tabAddresses(first));
        QCOMPARE(document.firstBlock().blockFormatIndex(), document.lastBlock().blockFormatIndex());
    }

    void otherTabStopsAreOtherValues()
    {
        ORVRtfFormatSerials tabLists;
        ORVRtfParagraph paragraph;
        paragraph.addTab(5);
        const QTextBlockFormat one = paragraph.format(tabLists);
        paragraph.addTab(10);
        const QTextBlockFormat two = paragraph.format(tabLists);
        paragraph.reset();
        const QTextBlockFormat none = paragraph.format(tabLists);
        paragraph.addTab(5);
        QCOMPARE(one.tabPositions().size(), 1);
        QCOMPARE(two.tabPositions().size(), 2);
        QVERIFY(!none.hasProperty(QTextFormat::TabPositions));
        QVERIFY(paragraph.format(tabLists) == one);
    }

    void paragraphsAreEqualWhenTheirFormatsAre()
    {
        ORVRtfParagraph paragraph;
        ORVRtfParagraph other;
        QVERIFY(paragraph == other);
        paragraph.addTab(5);
        QVERIFY(!(paragraph == other));
        other.addTab(5);
        QVERIFY(paragraph == other);
        other.setProperty(QTextFormat::BlockTopMargin, 3.0);
        QVERIFY(!(paragraph == other));
        // The kind of the next tab stop is no part of the format.
        paragraph.setProperty(QTextFormat::BlockTopMargin, 3.0);
        other.setNextTabType(QTextOption::RightTab);
        QVERIFY(paragraph == other);
    }
};

ORV_TEST("paragraph", TestParagraph, QGuiApplication)
#include "paragraph.moc"
