#include "writerhelpers.h"

using namespace rtftest;

namespace {

/*! A format with one property. */
QTextCharFormat with(int id, const QVariant& value)
{
    return charFormat({{id, value}});
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

} // namespace

class TestWriterCharFormats : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(sizes)
    {
        const Rows add([](double points, const QByteArray& word) {
            const QTextCharFormat format = with(QTextFormat::FontPointSize, points);
            QCOMPARE(writeBody(*textDocument("x"_s, format)), firstParagraph() + "{\\f0" + word + " x}");
            // The same size as that of the document's default font.
            const QSharedPointer<QTextDocument> document = textDocument("x"_s);
            QFont font = document->defaultFont();
            font.setPointSizeF(points);
            document->setDefaultFont(font);
            QCOMPARE(writeBody(*document), firstParagraph() + "{\\f0" + word + " x}");
        });
        add("1", 1.0, "\\fs2");
        add("9", 9.0, "\\fs18");
        add("10.4 is 10", 10.4, "\\fs20");
        add("10.5 is 11", 10.5, "\\fs22");
        add("11.5 is 12", 11.5, "\\fs24");
        add("10.49 is 10", 10.49, "\\fs20");
        add("1638", 1638.0, "\\fs3276");
    }

    void pixelSizes()
    {
        for (int pixels : {7, 16, 100}) {
            const QTextCharFormat format = with(QTextFormat::FontPixelSize, pixels);
            QFont font(QString::fromLatin1(DefaultFamily));
            font.setPixelSize(pixels);
            const int points = QFontInfo(font).pointSize();
            QVERIFY(points > 0);
            QCOMPARE(writeBody(*textDocument("x"_s, format)),
                     firstParagraph() + "{\\f0\\fs" + QByteArray::number(2 * points) + " x}");
        }
    }

    ORV_ROWS(words)
    {
        const Rows add([](const QTextCharFormat& format, const QByteArray& words) {
            const QByteArray rtf = write(*textDocument("x"_s, format));
            QCOMPARE(rtf, documentHead() + firstParagraph() + "{\\f0\\fs24" + words + " x}}");
        });
        const QByteArray nothing;

        add("no property", QTextCharFormat(), nothing);

        const int weight = QTextFormat::FontWeight;
        add("weight normal", with(weight, int(QFont::Normal)), "\\b0");
        add("weight bold", with(weight, int(QFont::Bold)), "\\b1");
        add("weight 0 is normal", with(weight, 0), "\\b0");
        add("weight light", with(weight, int(QFont::Light)), "\\b0");
        add("weight just above normal", with(weight, QFont::Normal + 1), "\\b1");
        add("weight medium", with(weight, int(QFont::Medium)), "\\b1");
        add("weight black", with(weight, int(QFont::Black)), "\\b1");
        add("weight -1", with(weight, -1), "\\b0");

        add("italic", with(QTextFormat::FontItalic, true), "\\i1");
        add("not italic", with(QTextFormat::FontItalic, false), "\\i0");

        const int underline = QTextFormat::TextUnderlineStyle;
        add("no underline", with(underline, int(QTextCharFormat::NoUnderline)), nothing);
        add("single", with(underline, int(QTextCharFormat::SingleUnderline)), "\\ul\\ulc0");
        add("dash", with(underline, int(QTextCharFormat::DashUnderline)), "\\uldash\\ulc0");
        add("dot", with(underline, int(QTextCharFormat::DotLine)), "\\uld\\ulc0");
        add("dash dot", with(underline, int(QTextCharFormat::DashDotLine)), "\\uldashd\\ulc0");
        add("dash dot dot", with(underline, int(QTextCharFormat::DashDotDotLine)), "\\uldashdd\\ulc0");
        add("wave", with(underline, int(QTextCharFormat::WaveUnderline)), "\\ulwave\\ulc0");
        add("spell check", with(underline, int(QTextCharFormat::SpellCheckUnderline)), nothing);

        const int vertical = QTextFormat::TextVerticalAlignment;
        add("normal height", with(vertical, int(QTextCharFormat::AlignNormal)), nothing);
        add("superscript", with(vertical, int(QTextCharFormat::AlignSuperScript)), "\\super");
        add("subscript", with(vertical, int(QTextCharFormat::AlignSubScript)), "\\sub");
        add("middle", with(vertical, int(QTextCharFormat::AlignMiddle)), nothing);
        add("top", with(vertical, int(QTextCharFormat::AlignTop)), nothing);
        add("bottom", with(vertical, int(QTextCharFormat::AlignBottom)), nothing);
        add("baseline", with(vertical, int(QTextCharFormat::AlignBaseline)), nothing);

        add("struck out", with(QTextFormat::FontStrikeOut, true), "\\strike\\strikec0");
        add("not struck out", with(QTextFormat::FontStrikeOut, false), nothing);

        const int caps = QTextFormat::FontCapitalization;
        add("small caps", with(caps, int(QFont::SmallCaps)), "\\scaps");
        add("mixed case", with(caps, int(QFont::MixedCase)), nothing);
        add("upper case", with(caps, int(QFont::AllUppercase)), nothing);
        add("capitalised", with(caps, int(QFont::Capitalize)), nothing);

        const QByteArray outlined = "\\outl\\strokewidth60\\strokec0";
        add("outline, solid pen", outline(QPen(Qt::SolidLine)), outlined);
        add("outline, black pen", outline(QPen(Qt::black)), outlined);
        add("outline, hairline", outline(QPen(QBrush(Qt::black), 0)), outlined);
        add("outline, red", outline(QPen(Qt::red)), nothing);
        add("outline, thick", outline(QPen(QBrush(Qt::black), 3)), nothing);
        add("outline, dashed", outline(QPen(Qt::DashLine)), nothing);
        add("outline, no pen", outline(QPen(Qt::NoPen)), nothing);

        add("revision 1", revision(1), "\\*\\orvrevlvl1");
        add("revision 2", revision(2), "\\*\\orvrevlvl2");
        add("revision 5", revision(5), "\\*\\orvrevlvl5");
        add("revision 6", revision(6), "\\*\\orvrevlvl6");
        add("revision 1000", revision(1000), "\\*\\orvrevlvl1000");
        add("revision 0", revision(0), nothing);
        add("revision -1", revision(-1), nothing);

        add("anchor that is not decorated", anchor(), nothing);
    }

    ORV_ROWS(colours)
    {
        const Rows add([](const QTextCharFormat& format, const WriteSettings& settings,
                          const QByteArray& entries, const QByteArray& words) {
            const QByteArray rtf = write(*textDocument("x"_s, format), settings);
            QCOMPARE(colorTableOf(rtf), words.isEmpty() ? QByteArray() : blackAndWhite() + entries);
            QCOMPARE(bodyOf(rtf), firstParagraph() + "{\\f0\\fs24" + words + " x}");
        });
        const WriteSettings plain;
        const QByteArray none;
        const QBrush noBrush;

        add("foreground", foreground(Qt::red), plain, RedEntry, "\\cf3");
        add("black", foreground(Qt::black), plain, none, "\\cf1");
        add("white", foreground(Qt::white), plain, none, "\\cf2");
        add("background", background(Qt::red), plain, RedEntry, "\\cb3\\highlight3");
        add("background for Word", background(Qt::red), forMsWord(), RedEntry, "\\cb3\\chshdng0\\chcbpat3");
        add("white background", background(Qt::white), plain, none, "\\cb2\\highlight2");
        add("both", foreground(Qt::red) + background(Qt::yellow), plain, RedEntry + YellowEntry,
            "\\cf3\\cb4\\highlight4");
        add("both for Word", foreground(Qt::red) + background(Qt::yellow), forMsWord(),
            RedEntry + YellowEntry, "\\cf3\\cb4\\chshdng0\\chcbpat4");
        add("both the same", foreground(Qt::red) + background(Qt::red), plain, RedEntry,
            "\\cf3\\cb3\\highlight3");
        add("background without a colour", foreground(Qt::red) + background(noBrush), plain, RedEntry,
            "\\cf3\\cb1\\highlight1");

        add("anchor", anchor(), decorating(), BlueEntry, "\\ul\\ulc3\\cf3");
        add("anchor with a colour of its own", anchor() + foreground(Qt::red), decorating(), BlueEntry,
            "\\ul\\ulc3\\cf3");
        add("anchor with a background", anchor() + background(Qt::red), decorating(), BlueEntry + RedEntry,
            "\\ul\\ulc3\\cf3\\cb4\\highlight4");
        add("underlined anchor",
            anchor() + with(QTextFormat::TextUnderlineStyle, int(QTextCharFormat::WaveUnderline)),
            decorating(), BlueEntry, "\\ulwave\\ulc0\\ul\\ulc3\\cf3");
        WriteSettings yellowLinks = decorating();
        yellowLinks.hyperlinksColor = Qt::yellow;
        add("anchor in yellow", anchor(), yellowLinks, YellowEntry, "\\ul\\ulc3\\cf3");
        add("no anchor", with(QTextFormat::IsAnchor, false) + foreground(Qt::red), decorating(), RedEntry,
            "\\cf3");
        add("anchor and revision", anchor() + revision(2), decorating(), BlueEntry,
            "\\*\\orvrevlvl2\\ul\\ulc3\\cf3");
        WriteSettings finalLinks = decorating();
        finalLinks.exportingMode = true;
        // The revision's colour is the text's, and the only one that is registered; the line's is then black.
        add("anchor and exported revision", anchor() + revision(1), finalLinks, RedEntry, "\\ul\\ulc1\\cf3");
        add("exported anchor", anchor() + revision(0), finalLinks, BlueEntry, "\\ul\\ulc3\\cf3");
        add("exported revision 1", revision(1), exporting(), RedEntry, "\\cf3");
        add("exported revision 2", revision(2), exporting(), BlueEntry, "\\cf3");
        add("exported revision 3", revision(3), exporting(), colorEntry(0, 255, 0), "\\cf3");
        add("exported revision 4", revision(4), exporting(), colorEntry(255, 165, 0), "\\cf3");
        add("exported revision 5", revision(5), exporting(), colorEntry(128, 0, 128), "\\cf3");
        add("exported revision 6 is black", revision(6), exporting(), none, "\\cf1");
        add("exported revision 0 is none", revision(0), exporting(), none, "");
        add("exported revision -1 is none", revision(-1), exporting(), none, "");
        add("exported revision with a colour of its own", revision(1) + foreground(Qt::yellow), exporting(),
            RedEntry, "\\cf3");
        add("exported colour", revision(-1) + foreground(Qt::yellow), exporting(), YellowEntry, "\\cf3");
        add("revision with a colour of its own", revision(1) + foreground(Qt::yellow), plain, YellowEntry,
            "\\*\\orvrevlvl1\\cf3");
    }

    void everyStepInOrder()
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
        compat::setFontFamily(format, "Quibble Serif"_s);
        const QSharedPointer<QTextDocument> document = textDocument("x"_s, format);
        const QByteArray until = "{\\f1\\fs22\\b1\\i0\\uld\\ulc0\\sub\\strike\\strikec0\\scaps"
                                 "\\outl\\strokewidth60\\strokec0";
        QCOMPARE(writeBody(*document), firstParagraph() + until + "\\*\\orvrevlvl3\\cf3\\cb4\\highlight4 x}");
        QCOMPARE(writeBody(*document, decorating()),
                 firstParagraph() + until + "\\*\\orvrevlvl3\\ul\\ulc3\\cf3\\cb4\\highlight4 x}");
        QCOMPARE(writeBody(*document, exporting()), firstParagraph() + until + "\\cf3\\cb4\\highlight4 x}");
        QCOMPARE(writeBody(*document, forMsWord()),
                 firstParagraph() + until + "\\*\\orvrevlvl3\\cf3\\cb4\\chshdng0\\chcbpat4 x}");
    }

    void everyRunStatesItsOwnFormat()
    {
        QCOMPARE(Story().add("a", bold()).add("1", with(QTextFormat::FontItalic, true)).add(" b").body(),
                 firstParagraph() + "{\\f0\\fs24\\b1 a}{\\f0\\fs24\\i1 1}{\\f0\\fs24  b}");
    }

    ORV_ROWS(hyperlinks)
    {
        const Rows add([](const WriteSettings& settings, const QByteArray& colors, const QByteArray& result) {
            const QTextCharFormat link = anchor() + with(QTextFormat::AnchorHref, "http://example.org/"_s);
            const QByteArray rtf = write(*textDocument("x"_s, link), settings);
            QCOMPARE(colorTableOf(rtf), colors);
            QCOMPARE(bodyOf(rtf),
                     firstParagraph() + "{\\field{\\*\\fldinst HYPERLINK \"http://example.org/\"}{\\fldrslt"
                         + result + "}}");
        });
        add("decorated", decorating(), blackAndWhite() + BlueEntry, "\\f0\\fs24\\ul\\ulc3\\cf3 x");
        WriteSettings yellowLinks;
        yellowLinks.hyperlinksColor = Qt::yellow;
        add("plain, whatever the colour", yellowLinks, QByteArray(), "\\f0\\fs24 x");
    }
};

ORV_TEST("writer_charformats", TestWriterCharFormats, QGuiApplication)
#include "charformats.moc"
