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

QTextBlockFormat withTabStops(unsigned char value)
{
    ORVRtfParagraph paragraph;
    scribbleOnTheStack(value);
    paragraph.addTab(5);
    paragraph.setNextTabType(QTextOption::DelimiterTab);
    scribbleOnTheStack(value);
    paragraph.addTab(10);
    return paragraph.format();
}

} // namespace

/*! What reading a paragraph's words alone does not show. */
class TestParagraph : public QObject {
    Q_OBJECT

private slots:
    // Qt 5 compares tab stops in variants byte by byte, the unused bytes between their members included.
    void equalTabStopsGiveEqualFormats()
    {
        const QTextBlockFormat format = withTabStops(0);
        QCOMPARE(
            format.tabPositions(),
            (QList<QTextOption::Tab>{QTextOption::Tab(5, QTextOption::LeftTab),
                                     QTextOption::Tab(10, QTextOption::DelimiterTab, QLatin1Char('.'))}));
        QVERIFY(withTabStops(0x5A) == format);
        QVERIFY(withTabStops(0xA5) == format);
    }
};

ORV_TEST("paragraph", TestParagraph, QCoreApplication)
#include "paragraph.moc"
