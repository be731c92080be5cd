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

const WriteSettings Decorating = settingsWith(&WriteSettings::decorateHyperlinks);
const WriteSettings ForMsWord = settingsWith(&WriteSettings::highlightForMsWord);

typedef QSharedPointer<QTextDocument> Document;

/*! A document of one paragraph for each text; the first paragraphs have \a formats. */
Document paragraphs(const QStringList& texts, const QList<QTextBlockFormat>& formats = {})
{
    const Document document = textDocument(texts.join('\n'));
    for (int i = 0; i < formats.size(); ++i)
        QTextCursor(document->findBlockByNumber(i)).setBlockFormat(formats.at(i));
    return document;
}

/*! Makes the first \a count paragraphs the items of a list. */
Document asList(const Document& document, int count = 1)
{
    QTextList* const list = QTextCursor(document->begin()).createList(QTextListFormat::ListDecimal);
    for (int i = 1; i < count; ++i)
        list->add(document->findBlockByNumber(i));
    return document;
}

/*! What the text of an item with the number \a marker is preceded by. */
QByteArray listText(const QByteArray& marker)
{
    return "{\\listtext\\f0\\fs24 " + marker + ".\\tab }";
}

const QByteArray FirstItem = "\\ls1\\ilvl0" + listText("1");

/*! What a paragraph begins with whose format is stated as \a words. */
QByteArray start(const QByteArray& words)
{
    return "\n\\pard\\plain " + words + "\\ltrch\\loch ";
}

/*! The same for a paragraph that follows another one. */
QByteArray next(const QByteArray& words)
{
    return "\n\\par\\pard\\plain " + words + "\\ltrch\\loch ";
}

QTextBlockFormat aligned(Qt::Alignment alignment)
{
    return blockFormat({{QTextFormat::BlockAlignment, int(alignment)}});
}

QTextBlockFormat withTabs(const QList<QTextOption::Tab>& tabs)
{
    QTextBlockFormat format;
    format.setTabPositions(tabs);
    return format;
}

QTextOption::Tab tab(double position, QTextOption::TabType type)
{
    return QTextOption::Tab(position, type);
}

} // namespace

/*! The formats of characters, paragraphs and list items. */
class TestWriterFormats : public QObject {
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
        add("background for Word", background(Qt::red), ForMsWord, RedEntry, "\\cb3\\chshdng0\\chcbpat3");
        add("white background", background(Qt::white), plain, none, "\\cb2\\highlight2");
        add("both", foreground(Qt::red) + background(Qt::yellow), plain, RedEntry + YellowEntry,
            "\\cf3\\cb4\\highlight4");
        add("both for Word", foreground(Qt::red) + background(Qt::yellow), ForMsWord, RedEntry + YellowEntry,
            "\\cf3\\cb4\\chshdng0\\chcbpat4");
        add("both the same", foreground(Qt::red) + background(Qt::red), plain, RedEntry,
            "\\cf3\\cb3\\highlight3");
        add("background without a colour", foreground(Qt::red) + background(noBrush), plain, RedEntry,
            "\\cf3\\cb1\\highlight1");

        add("anchor", anchor(), Decorating, BlueEntry, "\\ul\\ulc3\\cf3");
        add("anchor with a colour of its own", anchor() + foreground(Qt::red), Decorating, BlueEntry,
            "\\ul\\ulc3\\cf3");
        add("anchor with a background", anchor() + background(Qt::red), Decorating, BlueEntry + RedEntry,
            "\\ul\\ulc3\\cf3\\cb4\\highlight4");
        add("underlined anchor",
            anchor() + with(QTextFormat::TextUnderlineStyle, int(QTextCharFormat::WaveUnderline)), Decorating,
            BlueEntry, "\\ulwave\\ulc0\\ul\\ulc3\\cf3");
        WriteSettings yellowLinks = Decorating;
        yellowLinks.hyperlinksColor = Qt::yellow;
        add("anchor in yellow", anchor(), yellowLinks, YellowEntry, "\\ul\\ulc3\\cf3");
        add("no anchor", with(QTextFormat::IsAnchor, false) + foreground(Qt::red), Decorating, RedEntry,
            "\\cf3");
        add("anchor and revision", anchor() + revision(2), Decorating, BlueEntry,
            "\\*\\orvrevlvl2\\ul\\ulc3\\cf3");
        WriteSettings finalLinks = Decorating;
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
        QCOMPARE(writeBody(*document, Decorating),
                 firstParagraph() + until + "\\*\\orvrevlvl3\\ul\\ulc3\\cf3\\cb4\\highlight4 x}");
        QCOMPARE(writeBody(*document, exporting()), firstParagraph() + until + "\\cf3\\cb4\\highlight4 x}");
        QCOMPARE(writeBody(*document, ForMsWord),
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
        add("decorated", Decorating, blackAndWhite() + BlueEntry, "\\f0\\fs24\\ul\\ulc3\\cf3 x");
        WriteSettings yellowLinks;
        yellowLinks.hyperlinksColor = Qt::yellow;
        add("plain, whatever the colour", yellowLinks, QByteArray(), "\\f0\\fs24 x");
    }

    ORV_ROWS(formatIsStatedInWords)
    {
        using namespace ORVRtfProperty;
        const Rows add([](const QTextBlockFormat& format, const QByteArray& words) {
            const Document document = paragraphs({"x"}, {format});
            QCOMPARE(writeBody(*document), start(words) + run("x"));
            QCOMPARE(writeBody(*document, exporting()), start(words) + run("x"));
        });
        const auto row = [&add](const char* name, const Properties& properties, const char* words) {
            add(name, blockFormat(properties), words);
        };
        row("nothing", {}, "");
        row("pageBreakBefore", {{QTextFormat::PageBreakPolicy, 0x1}}, "\\pagebb");
        row("linesTogether", {{QTextFormat::PageBreakPolicy, 0x200}}, "\\keep");
        row("withNext", {{QTextFormat::PageBreakPolicy, 0x20}}, "\\keepn");
        row("allThree", {{QTextFormat::PageBreakPolicy, 0x221}}, "\\pagebb\\keep\\keepn");
        row("noBreak", {{QTextFormat::PageBreakPolicy, 0}}, "");

        add("leftTab", withTabs({tab(36, QTextOption::LeftTab)}), "\\tx720");
        add("rightTab", withTabs({tab(36, QTextOption::RightTab)}), "\\tqr\\tx720");
        add("centerTab", withTabs({tab(36, QTextOption::CenterTab)}), "\\tqc\\tx720");
        add("decimalTab", withTabs({tab(36, QTextOption::DelimiterTab)}), "\\tqdec\\tx720");
        add("tabsInTheirOrder",
            withTabs({tab(144, QTextOption::RightTab), tab(36, QTextOption::LeftTab),
                      tab(72, QTextOption::CenterTab)}),
            "\\tqr\\tx2880\\tx720\\tqc\\tx1440");

        row("leftAndFirstLine", {{LeftIndent, 36.0}, {QTextFormat::TextIndent, 18.0}}, "\\li720\\fi-360");
        row("leftAndEqualFirstLine", {{LeftIndent, 36.0}, {QTextFormat::TextIndent, 36.0}}, "\\li720");
        row("leftAlone", {{LeftIndent, 36.0}}, "\\li720\\fi-720");
        row("firstLineAlone", {{QTextFormat::TextIndent, 18.0}}, "\\fi360");
        row("negativeLeft", {{LeftIndent, -18.0}, {QTextFormat::TextIndent, -18.0}}, "\\li-360");
        row("zeroIndents", {{LeftIndent, 0.0}, {QTextFormat::TextIndent, 0.0}}, "");

        row("rightIndentAtTheMargin", {{RightIndent, 432.0}}, "\\ri0");
        row("rightIndentInside", {{RightIndent, 414.0}}, "\\ri360");
        row("rightIndentOutside", {{RightIndent, 450.0}}, "\\ri-360");
        row("rightIndentZero", {{RightIndent, 0.0}}, "");

        row("spaceAfter", {{QTextFormat::BlockBottomMargin, 12.0}}, "\\sa240");
        row("spaceBefore", {{QTextFormat::BlockTopMargin, 6.0}}, "\\sb120");
        row("spaceAfterComesFirst",
            {{QTextFormat::BlockTopMargin, 6.0}, {QTextFormat::BlockBottomMargin, 12.0}}, "\\sa240\\sb120");
        row("noSpace", {{QTextFormat::BlockTopMargin, 0.0}, {QTextFormat::BlockBottomMargin, 0.0}}, "");

        row("doubleSpacing", {{LineSpacing, 24.0}, {LineMultiple, 12.0}}, "\\sl480\\slmult1");
        row("oneAndAHalf", {{LineSpacing, 18.0}, {LineMultiple, 12.0}}, "\\sl360\\slmult1");
        row("multipleOfAnotherBase", {{LineSpacing, 15.0}, {LineMultiple, 10.0}}, "\\sl360\\slmult1");
        row("exactSpacing", {{LineSpacing, 14.0}}, "\\sl280\\slmult0");
        row("exactWithEmptyBase", {{LineSpacing, 14.0}, {LineMultiple, 0.0}}, "\\sl280\\slmult0");
        row("negativeSpacing", {{LineSpacing, -14.0}}, "\\sl-280\\slmult0");
        row("spacingEqualToItsBase", {{LineSpacing, 12.0}, {LineMultiple, 12.0}}, "");
        row("spacingOfNothing", {{LineSpacing, 0.0}}, "");
        row("spacingOfNothingWithBase", {{LineSpacing, 0.0}, {LineMultiple, 12.0}}, "");
        row("baseAlone", {{LineMultiple, 12.0}}, "");
        row("headingLevelIsNoSpacing", {{LineSpacing, 2}}, "");
        row("headingLevelIsNoSpacingWithBase", {{LineSpacing, 2}, {LineMultiple, 12.0}}, "");

        add("left", aligned(Qt::AlignLeft), "\\ql");
        add("right", aligned(Qt::AlignRight), "\\qr");
        add("centre", aligned(Qt::AlignHCenter), "\\qc");
        add("justify", aligned(Qt::AlignJustify), "\\qj");
        add("leftAbsolute", aligned(Qt::AlignLeft | Qt::AlignAbsolute), "\\ql");
        add("centreBothWays", aligned(Qt::AlignCenter), "\\qc");
        add("verticalOnly", aligned(Qt::AlignVCenter), "");
        add("leftAndRight", aligned(Qt::AlignLeft | Qt::AlignRight), "");
        row("leftToRight", {{QTextFormat::LayoutDirection, int(Qt::LeftToRight)}}, "");
    }

    ORV_ROWS(lengthsAreTruncated)
    {
        const Rows add([](double points, const QByteArray& twips) {
            QTextBlockFormat format = blockFormat({{ORVRtfProperty::LeftIndent, points},
                                                   {QTextFormat::TextIndent, points},
                                                   {QTextFormat::BlockBottomMargin, points},
                                                   {QTextFormat::BlockTopMargin, points},
                                                   {ORVRtfProperty::LineSpacing, points}});
            format.setTabPositions({tab(points, QTextOption::LeftTab)});
            QCOMPARE(writeBody(*paragraphs({"x"}, {format})),
                     start("\\tx" + twips + "\\li" + twips + "\\sa" + twips + "\\sb" + twips + "\\sl" + twips
                           + "\\slmult0")
                         + run("x"));
        });
        add("fractionIsCut", 36.04, "720");
        add("negativeFractionIsCut", -36.04, "-720");
        add("largeFractionIsCut", 35.9999, "719");
        add("binaryFractionBelowAnInteger", 35.99999998, "720");
        add("binaryFractionAboveANegativeInteger", -35.99999998, "-720");
        add("oneTwip", 0.05, "1");
        add("lessThanOneTwip", 0.04, "0");
        add("threeTwips", 0.15, "3");
    }

    ORV_ROWS(lengthsOutOfRangeAreClamped)
    {
        const Rows add([](double points, const QByteArray& twips) {
            const QTextBlockFormat format = blockFormat({{QTextFormat::BlockBottomMargin, points},
                                                         {QTextFormat::BlockTopMargin, points},
                                                         {ORVRtfProperty::LineSpacing, points}});
            QCOMPARE(writeBody(*paragraphs({"x"}, {format})),
                     start("\\sa" + twips + "\\sb" + twips + "\\sl" + twips + "\\slmult0") + run("x"));
        });
        add("infinite", qInf(), "2147483647");
        add("negativeInfinite", -qInf(), "-2147483648");
        add("beyondInt", 1e12, "2147483647");
        add("belowInt", -1e12, "-2147483648");
    }

    void lengthThatIsNoNumberIsHarmless()
    {
        QTextBlockFormat format = blockFormat({{ORVRtfProperty::LeftIndent, qQNaN()},
                                               {QTextFormat::TextIndent, 18.0},
                                               {ORVRtfProperty::RightIndent, qQNaN()}});
        format.setTabPositions({tab(qQNaN(), QTextOption::LeftTab)});
        const Document document = paragraphs({"x"}, {format});
        const QByteArray body = writeBody(*document);
        QVERIFY2(body.startsWith("\n\\pard\\plain \\tx0"), body.constData());
        QVERIFY2(body.endsWith("\\ltrch\\loch " + run("x")), body.constData());
        QCOMPARE(rtftest::read(write(*document)).status, 0);
    }

    void rightIndentCountsFromTheRightMargin()
    {
        const Document document = paragraphs({"x"}, {blockFormat({{ORVRtfProperty::RightIndent, 300.0}})});
        document->setProperty("paperSize", QSizeF(500.0, 700.0));
        document->setProperty("leftMargin", 50.0);
        document->setProperty("rightMargin", 100.0);
        // The text is 350 points wide: 500 - 50 - 100.
        QCOMPARE(writeBody(*document), start("\\ri1000") + run("x"));
    }

    void wordsStandInOneOrder()
    {
        using namespace ORVRtfProperty;
        QTextBlockFormat format = blockFormat({{LineSpacing, 24.0},
                                               {LineMultiple, 12.0},
                                               {QTextFormat::LayoutDirection, Qt::RightToLeft},
                                               {QTextFormat::BlockAlignment, int(Qt::AlignRight)},
                                               {QTextFormat::BlockTopMargin, 1.0},
                                               {QTextFormat::BlockBottomMargin, 2.0},
                                               {RightIndent, 414.0},
                                               {LeftIndent, 36.0},
                                               {QTextFormat::TextIndent, 54.0},
                                               {QTextFormat::PageBreakPolicy, 0x221}});
        format.setTabPositions({tab(72, QTextOption::LeftTab)});
        QCOMPARE(writeBody(*paragraphs({"x"}, {format})),
                 QByteArray("\n\\pard\\plain \\pagebb\\keep\\keepn\\tx1440\\li720\\fi360\\ri360\\sa40\\sb20"
                            "\\sl480\\slmult1\\qr\\rtlpar\\rtlch\\loch "
                            + run("x")));
    }

    ORV_ROWS(bodies)
    {
        using namespace ORVRtfProperty;
        const Rows add(
            [](const Document& document, const QByteArray& body) { QCOMPARE(writeBody(*document), body); });
        add("emptyDocumentIsOneEmptyParagraph", newDocument(), firstParagraph() + emptyRun());
        add("rightToLeftParagraphSaysSoTwice",
            paragraphs({"x", "y"}, {blockFormat({{QTextFormat::LayoutDirection, int(Qt::RightToLeft)}})}),
            "\n\\pard\\plain \\rtlpar\\rtlch\\loch " + run("x") + next("") + run("y"));
        const QTextBlockFormat centred = aligned(Qt::AlignHCenter);
        add("equalFormatIsNotRepeated", paragraphs({"x", "y", "z"}, {centred, centred, centred}),
            start("\\qc") + run("x") + newParagraph() + run("y") + newParagraph() + run("z"));
        add("changedFormatIsStatedAfterPard", paragraphs({"x", "y"}, {QTextBlockFormat(), centred}),
            firstParagraph() + run("x") + next("\\qc") + run("y"));
        add("returnToPlainFormatIsStated", paragraphs({"x", "y"}, {centred}),
            start("\\qc") + run("x") + next("") + run("y"));
        // Formats are compared as Qt compares them, and Qt sees the order in which properties were first set.
        const QTextBlockFormat before = blockFormat({{QTextFormat::BlockTopMargin, 6.0}});
        const QTextBlockFormat after = blockFormat({{QTextFormat::BlockBottomMargin, 12.0}});
        add("formatThatIsBuiltInAnotherOrderCountsAsChanged",
            paragraphs({"x", "y"}, {with(before, after.properties()), with(after, before.properties())}),
            start("\\sa240\\sb120") + run("x") + next("\\sa240\\sb120") + run("y"));

        add("listItemHasNumberLevelAndText", asList(paragraphs({"One"})),
            firstParagraph() + FirstItem + run("One"));
        add("listNumberIsStatedWithTheFormatOnly", asList(paragraphs({"One", "Two", "After"}), 2),
            firstParagraph() + FirstItem + run("One") + newParagraph() + "\\ilvl0" + listText("2")
                + run("Two") + next("") + run("After"));
        const Document twoLists = asList(paragraphs({"One", "Two"}));
        QTextCursor(twoLists->lastBlock()).createList(QTextListFormat::ListLowerAlpha);
        add("itemsOfTwoListsNameTheirLists", twoLists,
            firstParagraph() + FirstItem + run("One") + next("") + "\\ls2\\ilvl0" + listText("a")
                + run("Two"));
        add("emptyListItemHasItsMarker", asList(paragraphs({""})), firstParagraph() + FirstItem + emptyRun());
        add("tabStopsOfListItemsAreLeftOut",
            asList(paragraphs({"One"}, {withTabs({tab(36, QTextOption::LeftTab)})})),
            firstParagraph() + FirstItem + run("One"));
    }

    void emptyParagraphKeepsItsCharacterFormat()
    {
        const Document document = paragraphs({"x", "", "y"});
        const QTextCharFormat format =
            with(foreground(Qt::red), {{QTextFormat::FontPointSize, 20.0}, {QTextFormat::FontItalic, true}});
        QTextCursor(document->findBlockByNumber(1)).setBlockCharFormat(format);
        QCOMPARE(writeBody(*document),
                 firstParagraph() + run("x") + newParagraph() + "\\f0\\fs40\\i1\\cf3" + newParagraph()
                     + run("y"));
    }

    void listItemInATable()
    {
        const Document document = newDocument();
        QTextCursor cell = QTextCursor(document.data()).insertTable(1, 1)->cellAt(0, 0).firstCursorPosition();
        cell.insertText("One");
        cell.createList(QTextListFormat::ListDecimal);
        ORV_CONTAINS(writeBody(*document), cellStart() + FirstItem + run("One") + "\\cell");
    }

    ORV_ROWS(firstLineOfListItems)
    {
        const Rows add([](const QTextBlockFormat& format, bool exportingMode, const QByteArray& words) {
            const Document document = asList(paragraphs({"One"}, {format}));
            QCOMPARE(writeBody(*document, exportingMode ? exporting() : WriteSettings()),
                     start(words) + FirstItem + run("One"));
        });
        const QTextBlockFormat flush =
            blockFormat({{ORVRtfProperty::LeftIndent, 36.0}, {QTextFormat::TextIndent, 36.0}});
        const QTextBlockFormat hanging = with(flush, {{QTextFormat::TextIndent, 27.0}});
        add("plainStored", QTextBlockFormat(), false, QByteArray());
        add("plainExported", QTextBlockFormat(), true, "\\fi-360");
        add("hangingStored", hanging, false, "\\li720\\fi-180");
        add("hangingExported", hanging, true, "\\li720\\fi-180");
        add("flushStored", flush, false, "\\li720");
        add("flushExported", flush, true, "\\li720\\fi-360");
    }

    ORV_ROWS(emptyParagraphsAfterTables)
    {
        const Rows add([](const QString& textAfter, const QByteArray& end) {
            const Document document = newDocument();
            QTextCursor cursor(document.data());
            cursor.insertTable(1, 1);
            cursor.movePosition(QTextCursor::End);
            cursor.insertText(textAfter);
            const QByteArray body = writeBody(*document);
            QVERIFY2(body.endsWith(end), body.constData());
        });
        const QByteArray behind = "\\row}\\pard";
        add("emptyParagraphAfterTableIsDropped", "", behind);
        add("onlyTheFirstEmptyParagraphAfterTableIsDropped", "\n\nx",
            behind + firstParagraph() + emptyRun() + newParagraph() + run("x"));
        add("emptyParagraphAfterTextAfterTableStays", "x\n",
            behind + firstParagraph() + run("x") + newParagraph() + emptyRun());
    }

    void paragraphAfterTableStatesItsFormat()
    {
        const Document document = newDocument();
        QTextCursor cursor(document.data());
        cursor.setBlockFormat(aligned(Qt::AlignHCenter));
        cursor.insertText("x");
        cursor.insertTable(1, 1);
        cursor.movePosition(QTextCursor::End);
        cursor.setBlockFormat(aligned(Qt::AlignHCenter));
        cursor.insertText("y");
        const QByteArray body = writeBody(*document);
        QVERIFY2(body.startsWith("\n\\pard\\plain \\qc\\ltrch\\loch " + run("x") + "\n\n\n\\trowd"),
                 body.constData());
        QVERIFY2(body.endsWith("\\row}\\pard\n\\pard\\plain \\qc\\ltrch\\loch " + run("y")),
                 body.constData());
    }
};

ORV_TEST("writer_formats", TestWriterFormats, QGuiApplication)
#include "formats.moc"
