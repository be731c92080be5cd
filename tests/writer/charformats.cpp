#include "QtFontCompat_p.h"
#include "rtfwritinghelpers.h"

#include "ORVRtfProperties.h"

#include <QtGui/QFontInfo>
#include <QtGui/QLinearGradient>
#include <QtTest/QtTest>

using namespace rtftest;

Q_DECLARE_METATYPE(QTextCharFormat)
Q_DECLARE_METATYPE(rtftest::WriteSettings)

namespace {

/*! A format with one property. */
template <typename Value>
QTextCharFormat with(int id, const Value& value)
{
    QTextCharFormat format;
    format.setProperty(id, value);
    return format;
}

QTextCharFormat foreground(const QBrush& brush)
{
    return with(QTextFormat::ForegroundBrush, brush);
}

QTextCharFormat background(const QBrush& brush)
{
    return with(QTextFormat::BackgroundBrush, brush);
}

QTextCharFormat outline(const QPen& pen)
{
    return with(QTextFormat::TextOutline, pen);
}

QTextCharFormat revision(int level)
{
    return with(ORVRtfProperty::RevisionLevel, level);
}

/*! An anchor without a target: decorated like a link, but no field. */
QTextCharFormat anchor()
{
    return with(QTextFormat::IsAnchor, true);
}

QTextCharFormat operator+(QTextCharFormat first, const QTextCharFormat& second)
{
    first.merge(second);
    return first;
}

WriteSettings decorating()
{
    WriteSettings settings;
    settings.decorateHyperlinks = true;
    return settings;
}

WriteSettings forMsWord()
{
    WriteSettings settings;
    settings.highlightForMsWord = true;
    return settings;
}

QByteArray colorEntry(int red, int green, int blue)
{
    return "\\red" + QByteArray::number(red) + "\\green" + QByteArray::number(green) + "\\blue"
        + QByteArray::number(blue) + ';';
}

const QByteArray RedEntry = colorEntry(255, 0, 0);
const QByteArray BlueEntry = colorEntry(0, 0, 255);
const QByteArray YellowEntry = colorEntry(255, 255, 0);

} // namespace

class TestWriterCharformats : public QObject {
    Q_OBJECT

private slots:
    void sizes_data();
    void sizes();
    void pixelSizes();
    void words_data();
    void words();
    void colours_data();
    void colours();
    void revisionColours_data();
    void revisionColours();
    void everyStepInOrder();
    void everyRunStatesItsOwnFormat();
    void decoratedHyperlink();
    void plainHyperlink();
    void emptyParagraphKeepsItsFormat();
};

void TestWriterCharformats::sizes_data()
{
    QTest::addColumn<double>("points");
    QTest::addColumn<QByteArray>("word");
    QTest::newRow("1") << 1.0 << QByteArray("\\fs2");
    QTest::newRow("9") << 9.0 << QByteArray("\\fs18");
    QTest::newRow("10.4 is 10") << 10.4 << QByteArray("\\fs20");
    QTest::newRow("10.5 is 11") << 10.5 << QByteArray("\\fs22");
    QTest::newRow("11.5 is 12") << 11.5 << QByteArray("\\fs24");
    QTest::newRow("10.49 is 10") << 10.49 << QByteArray("\\fs20");
    QTest::newRow("1638") << 1638.0 << QByteArray("\\fs3276");
}

void TestWriterCharformats::sizes()
{
    QFETCH(double, points);
    QFETCH(QByteArray, word);
    const QTextCharFormat format = with(QTextFormat::FontPointSize, points);
    QCOMPARE(writeBody(*textDocument(QStringLiteral("x"), format)),
             firstParagraph() + "{\\f0" + word + " x}");
    // The same size as that of the document's default font.
    const QSharedPointer<QTextDocument> document = textDocument(QStringLiteral("x"));
    QFont font = document->defaultFont();
    font.setPointSizeF(points);
    document->setDefaultFont(font);
    QCOMPARE(writeBody(*document), firstParagraph() + "{\\f0" + word + " x}");
}

void TestWriterCharformats::pixelSizes()
{
    for (int pixels : {7, 16, 100}) {
        const QTextCharFormat format = with(QTextFormat::FontPixelSize, pixels);
        QFont font(QString::fromLatin1(DefaultFamily));
        font.setPixelSize(pixels);
        const int points = QFontInfo(font).pointSize();
        QVERIFY(points > 0);
        QCOMPARE(writeBody(*textDocument(QStringLiteral("x"), format)),
                 firstParagraph() + "{\\f0\\fs" + QByteArray::number(2 * points) + " x}");
    }
}

void TestWriterCharformats::words_data()
{
    QTest::addColumn<QTextCharFormat>("format");
    QTest::addColumn<QByteArray>("words");
    const QByteArray nothing;

    QTest::newRow("no property") << QTextCharFormat() << nothing;

    const int weight = QTextFormat::FontWeight;
    QTest::newRow("weight normal") << with(weight, int(QFont::Normal)) << QByteArray("\\b0");
    QTest::newRow("weight bold") << with(weight, int(QFont::Bold)) << QByteArray("\\b1");
    QTest::newRow("weight 0 is normal") << with(weight, 0) << QByteArray("\\b0");
    QTest::newRow("weight light") << with(weight, int(QFont::Light)) << QByteArray("\\b0");
    QTest::newRow("weight just above normal") << with(weight, QFont::Normal + 1) << QByteArray("\\b1");
    QTest::newRow("weight medium") << with(weight, int(QFont::Medium)) << QByteArray("\\b1");
    QTest::newRow("weight black") << with(weight, int(QFont::Black)) << QByteArray("\\b1");
    QTest::newRow("weight -1") << with(weight, -1) << QByteArray("\\b0");

    QTest::newRow("italic") << with(QTextFormat::FontItalic, true) << QByteArray("\\i1");
    QTest::newRow("not italic") << with(QTextFormat::FontItalic, false) << QByteArray("\\i0");

    const int underline = QTextFormat::TextUnderlineStyle;
    QTest::newRow("no underline") << with(underline, int(QTextCharFormat::NoUnderline)) << nothing;
    QTest::newRow("single") << with(underline, int(QTextCharFormat::SingleUnderline))
                            << QByteArray("\\ul\\ulc0");
    QTest::newRow("dash") << with(underline, int(QTextCharFormat::DashUnderline))
                          << QByteArray("\\uldash\\ulc0");
    QTest::newRow("dot") << with(underline, int(QTextCharFormat::DotLine)) << QByteArray("\\uld\\ulc0");
    QTest::newRow("dash dot") << with(underline, int(QTextCharFormat::DashDotLine))
                              << QByteArray("\\uldashd\\ulc0");
    QTest::newRow("dash dot dot") << with(underline, int(QTextCharFormat::DashDotDotLine))
                                  << QByteArray("\\uldashdd\\ulc0");
    QTest::newRow("wave") << with(underline, int(QTextCharFormat::WaveUnderline))
                          << QByteArray("\\ulwave\\ulc0");
    QTest::newRow("spell check") << with(underline, int(QTextCharFormat::SpellCheckUnderline)) << nothing;

    const int vertical = QTextFormat::TextVerticalAlignment;
    QTest::newRow("normal height") << with(vertical, int(QTextCharFormat::AlignNormal)) << nothing;
    QTest::newRow("superscript") << with(vertical, int(QTextCharFormat::AlignSuperScript))
                                 << QByteArray("\\super");
    QTest::newRow("subscript") << with(vertical, int(QTextCharFormat::AlignSubScript)) << QByteArray("\\sub");
    QTest::newRow("middle") << with(vertical, int(QTextCharFormat::AlignMiddle)) << nothing;
    QTest::newRow("top") << with(vertical, int(QTextCharFormat::AlignTop)) << nothing;
    QTest::newRow("bottom") << with(vertical, int(QTextCharFormat::AlignBottom)) << nothing;
    QTest::newRow("baseline") << with(vertical, int(QTextCharFormat::AlignBaseline)) << nothing;

    QTest::newRow("struck out") << with(QTextFormat::FontStrikeOut, true) << QByteArray("\\strike\\strikec0");
    QTest::newRow("not struck out") << with(QTextFormat::FontStrikeOut, false) << nothing;

    const int caps = QTextFormat::FontCapitalization;
    QTest::newRow("small caps") << with(caps, int(QFont::SmallCaps)) << QByteArray("\\scaps");
    QTest::newRow("mixed case") << with(caps, int(QFont::MixedCase)) << nothing;
    QTest::newRow("upper case") << with(caps, int(QFont::AllUppercase)) << nothing;
    QTest::newRow("capitalised") << with(caps, int(QFont::Capitalize)) << nothing;

    const QByteArray outlined = "\\outl\\strokewidth60\\strokec0";
    QTest::newRow("outline, solid pen") << outline(QPen(Qt::SolidLine)) << outlined;
    QTest::newRow("outline, black pen") << outline(QPen(Qt::black)) << outlined;
    QTest::newRow("outline, hairline") << outline(QPen(QBrush(Qt::black), 0)) << outlined;
    QTest::newRow("outline, red") << outline(QPen(Qt::red)) << nothing;
    QTest::newRow("outline, thick") << outline(QPen(QBrush(Qt::black), 3)) << nothing;
    QTest::newRow("outline, dashed") << outline(QPen(Qt::DashLine)) << nothing;
    QTest::newRow("outline, no pen") << outline(QPen(Qt::NoPen)) << nothing;

    QTest::newRow("revision 1") << revision(1) << QByteArray("\\*\\orvrevlvl1");
    QTest::newRow("revision 2") << revision(2) << QByteArray("\\*\\orvrevlvl2");
    QTest::newRow("revision 5") << revision(5) << QByteArray("\\*\\orvrevlvl5");
    QTest::newRow("revision 6") << revision(6) << QByteArray("\\*\\orvrevlvl6");
    QTest::newRow("revision 1000") << revision(1000) << QByteArray("\\*\\orvrevlvl1000");
    QTest::newRow("revision 0") << revision(0) << nothing;
    QTest::newRow("revision -1") << revision(-1) << nothing;

    QTest::newRow("anchor that is not decorated") << anchor() << nothing;
}

void TestWriterCharformats::words()
{
    QFETCH(QTextCharFormat, format);
    QFETCH(QByteArray, words);
    const QByteArray rtf = write(*textDocument(QStringLiteral("x"), format));
    QCOMPARE(rtf, documentHead() + firstParagraph() + "{\\f0\\fs24" + words + " x}}");
}

void TestWriterCharformats::colours_data()
{
    QTest::addColumn<QTextCharFormat>("format");
    QTest::addColumn<WriteSettings>("settings");
    QTest::addColumn<QByteArray>("entries");
    QTest::addColumn<QByteArray>("words");
    const WriteSettings plain;
    const QByteArray none;
    const QBrush noBrush;

    QTest::newRow("foreground") << foreground(Qt::red) << plain << RedEntry << QByteArray("\\cf3");
    QTest::newRow("black") << foreground(Qt::black) << plain << none << QByteArray("\\cf1");
    QTest::newRow("white") << foreground(Qt::white) << plain << none << QByteArray("\\cf2");
    QTest::newRow("background") << background(Qt::red) << plain << RedEntry
                                << QByteArray("\\cb3\\highlight3");
    QTest::newRow("background for Word")
        << background(Qt::red) << forMsWord() << RedEntry << QByteArray("\\cb3\\chshdng0\\chcbpat3");
    QTest::newRow("white background")
        << background(Qt::white) << plain << none << QByteArray("\\cb2\\highlight2");
    QTest::newRow("both") << foreground(Qt::red) + background(Qt::yellow) << plain << RedEntry + YellowEntry
                          << QByteArray("\\cf3\\cb4\\highlight4");
    QTest::newRow("both for Word") << foreground(Qt::red) + background(Qt::yellow) << forMsWord()
                                   << RedEntry + YellowEntry << QByteArray("\\cf3\\cb4\\chshdng0\\chcbpat4");
    QTest::newRow("both the same") << foreground(Qt::red) + background(Qt::red) << plain << RedEntry
                                   << QByteArray("\\cf3\\cb3\\highlight3");
    QTest::newRow("background without a colour") << foreground(Qt::red) + background(noBrush) << plain
                                                 << RedEntry << QByteArray("\\cf3\\cb1\\highlight1");

    QTest::newRow("anchor") << anchor() << decorating() << BlueEntry << QByteArray("\\ul\\ulc3\\cf3");
    QTest::newRow("anchor with a colour of its own")
        << anchor() + foreground(Qt::red) << decorating() << BlueEntry << QByteArray("\\ul\\ulc3\\cf3");
    QTest::newRow("anchor with a background")
        << anchor() + background(Qt::red) << decorating() << BlueEntry + RedEntry
        << QByteArray("\\ul\\ulc3\\cf3\\cb4\\highlight4");
    QTest::newRow("underlined anchor")
        << anchor() + with(QTextFormat::TextUnderlineStyle, int(QTextCharFormat::WaveUnderline))
        << decorating() << BlueEntry << QByteArray("\\ulwave\\ulc0\\ul\\ulc3\\cf3");
    WriteSettings yellowLinks = decorating();
    yellowLinks.hyperlinksColor = Qt::yellow;
    QTest::newRow("anchor in yellow")
        << anchor() << yellowLinks << YellowEntry << QByteArray("\\ul\\ulc3\\cf3");
    QTest::newRow("no anchor") << with(QTextFormat::IsAnchor, false) + foreground(Qt::red) << decorating()
                               << RedEntry << QByteArray("\\cf3");
    QTest::newRow("anchor and revision") << anchor() + revision(2) << decorating() << BlueEntry
                                         << QByteArray("\\*\\orvrevlvl2\\ul\\ulc3\\cf3");
    WriteSettings finalLinks = decorating();
    finalLinks.exportingMode = true;
    // The revision's colour is the text's, and the only one that is registered; the line's is then black.
    QTest::newRow("anchor and exported revision")
        << anchor() + revision(1) << finalLinks << RedEntry << QByteArray("\\ul\\ulc1\\cf3");
    QTest::newRow("exported anchor") << anchor() + revision(0) << finalLinks << BlueEntry
                                     << QByteArray("\\ul\\ulc3\\cf3");
    QTest::newRow("exported revision with a colour of its own")
        << revision(1) + foreground(Qt::yellow) << exporting() << RedEntry << QByteArray("\\cf3");
    QTest::newRow("exported colour") << revision(-1) + foreground(Qt::yellow) << exporting() << YellowEntry
                                     << QByteArray("\\cf3");
    QTest::newRow("revision with a colour of its own")
        << revision(1) + foreground(Qt::yellow) << plain << YellowEntry << QByteArray("\\*\\orvrevlvl1\\cf3");
}

void TestWriterCharformats::colours()
{
    QFETCH(QTextCharFormat, format);
    QFETCH(WriteSettings, settings);
    QFETCH(QByteArray, entries);
    QFETCH(QByteArray, words);
    const QByteArray rtf = write(*textDocument(QStringLiteral("x"), format), settings);
    QCOMPARE(colorTableOf(rtf), blackAndWhite() + entries);
    QCOMPARE(bodyOf(rtf), firstParagraph() + "{\\f0\\fs24" + words + " x}");
}

void TestWriterCharformats::revisionColours_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<QByteArray>("entries");
    QTest::addColumn<QByteArray>("words");
    const QByteArray own = "\\cf3";
    QTest::newRow("1") << 1 << blackAndWhite() + RedEntry << own;
    QTest::newRow("2") << 2 << blackAndWhite() + BlueEntry << own;
    QTest::newRow("3") << 3 << blackAndWhite() + colorEntry(0, 255, 0) << own;
    QTest::newRow("4") << 4 << blackAndWhite() + colorEntry(255, 165, 0) << own;
    QTest::newRow("5") << 5 << blackAndWhite() + colorEntry(128, 0, 128) << own;
    QTest::newRow("6 is black") << 6 << blackAndWhite() << QByteArray("\\cf1");
    QTest::newRow("0 is none") << 0 << QByteArray() << QByteArray();
    QTest::newRow("-1 is none") << -1 << QByteArray() << QByteArray();
}

void TestWriterCharformats::revisionColours()
{
    QFETCH(int, level);
    QFETCH(QByteArray, entries);
    QFETCH(QByteArray, words);
    const QByteArray rtf = write(*textDocument(QStringLiteral("x"), revision(level)), exporting());
    QCOMPARE(colorTableOf(rtf), entries);
    QCOMPARE(bodyOf(rtf), firstParagraph() + "{\\f0\\fs24" + words + " x}");
}

void TestWriterCharformats::everyStepInOrder()
{
    // Set from last to first, so that the order of setting is not the order of writing by accident.
    QTextCharFormat format;
    format.setBackground(Qt::yellow);
    format.setForeground(Qt::red);
    format.setAnchor(true);
    format.setProperty(ORVRtfProperty::RevisionLevel, 3);
    format.setTextOutline(QPen(Qt::black));
    format.setFontCapitalization(QFont::SmallCaps);
    format.setFontStrikeOut(true);
    format.setVerticalAlignment(QTextCharFormat::AlignSubScript);
    format.setUnderlineStyle(QTextCharFormat::DotLine);
    format.setFontItalic(false);
    format.setFontWeight(QFont::Bold);
    format.setFontPointSize(10.5);
    compat::setFontFamily(format, QStringLiteral("Quibble Serif"));
    const QSharedPointer<QTextDocument> document = textDocument(QStringLiteral("x"), format);
    const QByteArray until = "{\\f1\\fs22\\b1\\i0\\uld\\ulc0\\sub\\strike\\strikec0\\scaps"
                             "\\outl\\strokewidth60\\strokec0";
    QCOMPARE(writeBody(*document), firstParagraph() + until + "\\*\\orvrevlvl3\\cf3\\cb4\\highlight4 x}");
    QCOMPARE(writeBody(*document, decorating()),
             firstParagraph() + until + "\\*\\orvrevlvl3\\ul\\ulc3\\cf3\\cb4\\highlight4 x}");
    QCOMPARE(writeBody(*document, exporting()), firstParagraph() + until + "\\cf3\\cb4\\highlight4 x}");
    QCOMPARE(writeBody(*document, forMsWord()),
             firstParagraph() + until + "\\*\\orvrevlvl3\\cf3\\cb4\\chshdng0\\chcbpat4 x}");
}

void TestWriterCharformats::everyRunStatesItsOwnFormat()
{
    const QSharedPointer<QTextDocument> document =
        textDocument(QStringLiteral("a"), with(QTextFormat::FontWeight, int(QFont::Bold)));
    QTextCursor cursor(document.data());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(QStringLiteral("1"), with(QTextFormat::FontItalic, true));
    cursor.insertText(QStringLiteral(" b"), QTextCharFormat());
    QCOMPARE(writeBody(*document), firstParagraph() + "{\\f0\\fs24\\b1 a}{\\f0\\fs24\\i1 1}{\\f0\\fs24  b}");
}

namespace {

QSharedPointer<QTextDocument> linkDocument()
{
    QTextCharFormat format = anchor();
    format.setAnchorHref(QStringLiteral("http://example.org/"));
    return textDocument(QStringLiteral("x"), format);
}

} // namespace

void TestWriterCharformats::decoratedHyperlink()
{
    const QByteArray rtf = write(*linkDocument(), decorating());
    QCOMPARE(colorTableOf(rtf), blackAndWhite() + BlueEntry);
    QCOMPARE(bodyOf(rtf),
             firstParagraph()
                 + "{\\field{\\*\\fldinst HYPERLINK \"http://example.org/\"}"
                   "{\\fldrslt\\f0\\fs24\\ul\\ulc3\\cf3 x}}");
}

void TestWriterCharformats::plainHyperlink()
{
    WriteSettings yellowLinks;
    yellowLinks.hyperlinksColor = Qt::yellow;
    const QByteArray rtf = write(*linkDocument(), yellowLinks);
    QCOMPARE(colorTableOf(rtf), QByteArray());
    QCOMPARE(bodyOf(rtf),
             firstParagraph()
                 + "{\\field{\\*\\fldinst HYPERLINK \"http://example.org/\"}{\\fldrslt\\f0\\fs24 x}}");
}

void TestWriterCharformats::emptyParagraphKeepsItsFormat()
{
    const QSharedPointer<QTextDocument> document = newDocument();
    QTextCharFormat format = foreground(Qt::red);
    format.setFontWeight(QFont::Bold);
    format.setFontPointSize(20);
    QTextCursor(document.data()).setBlockCharFormat(format);
    const QByteArray rtf = write(*document);
    QCOMPARE(colorTableOf(rtf), blackAndWhite() + RedEntry);
    QCOMPARE(bodyOf(rtf), firstParagraph() + "\\f0\\fs40\\b1\\cf3");
}

QTEST_MAIN(TestWriterCharformats)
#include "tst_writer_charformats.moc"
