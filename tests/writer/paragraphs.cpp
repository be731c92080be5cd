#include "testsupport.h"

using namespace rtftest;

Q_DECLARE_METATYPE(QTextBlockFormat)

namespace {

typedef QSharedPointer<QTextDocument> Document;

/*! A document of one paragraph for each text. */
Document paragraphs(const QStringList& texts)
{
    const Document document = newDocument();
    QTextCursor cursor(document.data());
    for (int i = 0; i < texts.size(); ++i) {
        if (i > 0)
            cursor.insertBlock();
        cursor.insertText(texts.at(i));
    }
    return document;
}

/*! The same, whose first paragraphs have \a formats. */
Document paragraphs(const QStringList& texts, const QList<QTextBlockFormat>& formats)
{
    const Document document = paragraphs(texts);
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

template <typename Value>
QTextBlockFormat with(int property, const Value& value)
{
    QTextBlockFormat format;
    format.setProperty(property, value);
    return format;
}

template <typename First, typename Second>
QTextBlockFormat with(int property, const First& value, int secondProperty, const Second& secondValue)
{
    QTextBlockFormat format = with(property, value);
    format.setProperty(secondProperty, secondValue);
    return format;
}

QTextBlockFormat aligned(Qt::Alignment alignment)
{
    return with(QTextFormat::BlockAlignment, int(alignment));
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

void row(const char* name, const QTextBlockFormat& format, const char* words)
{
    QTest::newRow(name) << format << QByteArray(words);
}

const double Infinity = std::numeric_limits<double>::infinity();
const double NotANumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

class TestWriterParagraphs : public QObject {
    Q_OBJECT

private slots:
    void formatIsStatedInWords_data()
    {
        using namespace ORVRtfProperty;
        Columns<QTextBlockFormat, QByteArray>("format", "words");
        row("nothing", QTextBlockFormat(), "");
        row("pageBreakBefore", with(QTextFormat::PageBreakPolicy, 0x1), "\\pagebb");
        row("linesTogether", with(QTextFormat::PageBreakPolicy, 0x200), "\\keep");
        row("withNext", with(QTextFormat::PageBreakPolicy, 0x20), "\\keepn");
        row("allThree", with(QTextFormat::PageBreakPolicy, 0x221), "\\pagebb\\keep\\keepn");
        row("noBreak", with(QTextFormat::PageBreakPolicy, 0), "");

        row("leftTab", withTabs({tab(36, QTextOption::LeftTab)}), "\\tx720");
        row("rightTab", withTabs({tab(36, QTextOption::RightTab)}), "\\tqr\\tx720");
        row("centerTab", withTabs({tab(36, QTextOption::CenterTab)}), "\\tqc\\tx720");
        row("decimalTab", withTabs({tab(36, QTextOption::DelimiterTab)}), "\\tqdec\\tx720");
        row("tabsInTheirOrder",
            withTabs({tab(144, QTextOption::RightTab), tab(36, QTextOption::LeftTab),
                      tab(72, QTextOption::CenterTab)}),
            "\\tqr\\tx2880\\tx720\\tqc\\tx1440");

        row("leftAndFirstLine", with(LeftIndent, 36.0, QTextFormat::TextIndent, 18.0), "\\li720\\fi-360");
        row("leftAndEqualFirstLine", with(LeftIndent, 36.0, QTextFormat::TextIndent, 36.0), "\\li720");
        row("leftAlone", with(LeftIndent, 36.0), "\\li720\\fi-720");
        row("firstLineAlone", with(QTextFormat::TextIndent, 18.0), "\\fi360");
        row("negativeLeft", with(LeftIndent, -18.0, QTextFormat::TextIndent, -18.0), "\\li-360");
        row("zeroIndents", with(LeftIndent, 0.0, QTextFormat::TextIndent, 0.0), "");

        row("rightIndentAtTheMargin", with(RightIndent, 432.0), "\\ri0");
        row("rightIndentInside", with(RightIndent, 414.0), "\\ri360");
        row("rightIndentOutside", with(RightIndent, 450.0), "\\ri-360");
        row("rightIndentZero", with(RightIndent, 0.0), "");

        row("spaceAfter", with(QTextFormat::BlockBottomMargin, 12.0), "\\sa240");
        row("spaceBefore", with(QTextFormat::BlockTopMargin, 6.0), "\\sb120");
        row("spaceAfterComesFirst",
            with(QTextFormat::BlockTopMargin, 6.0, QTextFormat::BlockBottomMargin, 12.0), "\\sa240\\sb120");
        row("noSpace", with(QTextFormat::BlockTopMargin, 0.0, QTextFormat::BlockBottomMargin, 0.0), "");

        row("doubleSpacing", with(LineSpacing, 24.0, LineMultiple, 12.0), "\\sl480\\slmult1");
        row("oneAndAHalf", with(LineSpacing, 18.0, LineMultiple, 12.0), "\\sl360\\slmult1");
        row("multipleOfAnotherBase", with(LineSpacing, 15.0, LineMultiple, 10.0), "\\sl360\\slmult1");
        row("exactSpacing", with(LineSpacing, 14.0), "\\sl280\\slmult0");
        row("exactWithEmptyBase", with(LineSpacing, 14.0, LineMultiple, 0.0), "\\sl280\\slmult0");
        row("negativeSpacing", with(LineSpacing, -14.0), "\\sl-280\\slmult0");
        row("spacingEqualToItsBase", with(LineSpacing, 12.0, LineMultiple, 12.0), "");
        row("spacingOfNothing", with(LineSpacing, 0.0), "");
        row("spacingOfNothingWithBase", with(LineSpacing, 0.0, LineMultiple, 12.0), "");
        row("baseAlone", with(LineMultiple, 12.0), "");
        row("headingLevelIsNoSpacing", with(LineSpacing, 2), "");
        row("headingLevelIsNoSpacingWithBase", with(LineSpacing, 2, LineMultiple, 12.0), "");

        row("left", aligned(Qt::AlignLeft), "\\ql");
        row("right", aligned(Qt::AlignRight), "\\qr");
        row("centre", aligned(Qt::AlignHCenter), "\\qc");
        row("justify", aligned(Qt::AlignJustify), "\\qj");
        row("leftAbsolute", aligned(Qt::AlignLeft | Qt::AlignAbsolute), "\\ql");
        row("centreBothWays", aligned(Qt::AlignCenter), "\\qc");
        row("verticalOnly", aligned(Qt::AlignVCenter), "");
        row("leftAndRight", aligned(Qt::AlignLeft | Qt::AlignRight), "");
        row("leftToRight", with(QTextFormat::LayoutDirection, int(Qt::LeftToRight)), "");
    }

    void formatIsStatedInWords()
    {
        FETCH(QTextBlockFormat, format, QByteArray, words);
        const Document document = paragraphs({"x"}, {format});
        const QByteArray expected = start(words) + run("x");
        QCOMPARE(writeBody(*document), expected);
        QCOMPARE(writeBody(*document, exporting()), expected);
    }

    ORV_ROWS(lengthsAreTruncated)
    {
        const Rows add([](double points, const QByteArray& twips) {
            QTextBlockFormat format =
                with(ORVRtfProperty::LeftIndent, points, QTextFormat::TextIndent, points);
            format.setBottomMargin(points);
            format.setTopMargin(points);
            format.setProperty(ORVRtfProperty::LineSpacing, points);
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
            QTextBlockFormat format;
            format.setBottomMargin(points);
            format.setTopMargin(points);
            format.setProperty(ORVRtfProperty::LineSpacing, points);
            QCOMPARE(writeBody(*paragraphs({"x"}, {format})),
                     start("\\sa" + twips + "\\sb" + twips + "\\sl" + twips + "\\slmult0") + run("x"));
        });
        add("infinite", Infinity, "2147483647");
        add("negativeInfinite", -Infinity, "-2147483648");
        add("beyondInt", 1e12, "2147483647");
        add("belowInt", -1e12, "-2147483648");
    }

    void lengthThatIsNoNumberIsHarmless()
    {
        QTextBlockFormat format = with(ORVRtfProperty::LeftIndent, NotANumber, QTextFormat::TextIndent, 18.0);
        format.setProperty(ORVRtfProperty::RightIndent, NotANumber);
        format.setTabPositions({tab(NotANumber, QTextOption::LeftTab)});
        const Document document = paragraphs({"x"}, {format});
        const QByteArray body = writeBody(*document);
        QVERIFY2(body.startsWith("\n\\pard\\plain \\tx0"), body.constData());
        QVERIFY2(body.endsWith("\\ltrch\\loch " + run("x")), body.constData());
        QCOMPARE(rtftest::read(write(*document)).status, 0);
    }

    void rightIndentCountsFromTheRightMargin()
    {
        const Document document = paragraphs({"x"}, {with(ORVRtfProperty::RightIndent, 300.0)});
        document->setProperty("paperSize", QSizeF(500.0, 700.0));
        document->setProperty("leftMargin", 50.0);
        document->setProperty("rightMargin", 100.0);
        // The text is 350 points wide: 500 - 50 - 100.
        QCOMPARE(writeBody(*document), start("\\ri1000") + run("x"));
    }

    void wordsStandInOneOrder()
    {
        using namespace ORVRtfProperty;
        QTextBlockFormat format = with(LineSpacing, 24.0, LineMultiple, 12.0);
        format.setLayoutDirection(Qt::RightToLeft);
        format.setAlignment(Qt::AlignRight);
        format.setTopMargin(1);
        format.setBottomMargin(2);
        format.setProperty(RightIndent, 414.0);
        format.setProperty(LeftIndent, 36.0);
        format.setTextIndent(54);
        format.setTabPositions({tab(72, QTextOption::LeftTab)});
        format.setProperty(QTextFormat::PageBreakPolicy, 0x221);
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
            paragraphs({"x", "y"}, {with(QTextFormat::LayoutDirection, int(Qt::RightToLeft))}),
            "\n\\pard\\plain \\rtlpar\\rtlch\\loch " + run("x") + next("") + run("y"));
        const QTextBlockFormat centred = aligned(Qt::AlignHCenter);
        add("equalFormatIsNotRepeated", paragraphs({"x", "y", "z"}, {centred, centred, centred}),
            start("\\qc") + run("x") + newParagraph() + run("y") + newParagraph() + run("z"));
        add("changedFormatIsStatedAfterPard", paragraphs({"x", "y"}, {QTextBlockFormat(), centred}),
            firstParagraph() + run("x") + next("\\qc") + run("y"));
        add("returnToPlainFormatIsStated", paragraphs({"x", "y"}, {centred}),
            start("\\qc") + run("x") + next("") + run("y"));
        // Formats are compared as Qt compares them, and Qt sees the order in which properties were first set.
        add("formatThatIsBuiltInAnotherOrderCountsAsChanged",
            paragraphs({"x", "y"},
                       {with(QTextFormat::BlockTopMargin, 6.0, QTextFormat::BlockBottomMargin, 12.0),
                        with(QTextFormat::BlockBottomMargin, 12.0, QTextFormat::BlockTopMargin, 6.0)}),
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
        QTextCharFormat format;
        format.setFontPointSize(20);
        format.setFontItalic(true);
        QTextCursor(document->findBlockByNumber(1)).setBlockCharFormat(format);
        QCOMPARE(writeBody(*document),
                 firstParagraph() + run("x") + newParagraph() + "\\f0\\fs40\\i1" + newParagraph() + run("y"));
    }

    void everyParagraphStartsPlain()
    {
        QCOMPARE(writeBody(*paragraphs({"x", "y", "", "z"})).count("\\plain "), 4);
    }

    void listLevelIsStatedForEachItem()
    {
        const Document document = asList(paragraphs({"One", "Two"}), 2);
        ORVTextListFormat::setBlockLevel(document->begin().textList(), document->lastBlock(), 2);
        const QByteArray body = writeBody(*document);
        QVERIFY2(body.contains(FirstItem + run("One")), body.constData());
        QVERIFY2(body.contains("\\ilvl2" + listText("2") + run("Two")), body.constData());
    }

    void listItemInATable()
    {
        const Document document = newDocument();
        QTextTable* table = QTextCursor(document.data()).insertTable(1, 1);
        QTextCursor cell = table->cellAt(0, 0).firstCursorPosition();
        cell.insertText("One");
        cell.createList(QTextListFormat::ListDecimal);
        const QByteArray body = writeBody(*document);
        QVERIFY2(body.contains("\n\\pard\\plain \\intbl\\itap1" + FirstItem + run("One") + "\\cell"),
                 body.constData());
    }

    ORV_ROWS(firstLineOfListItems)
    {
        const Rows add([](const QTextBlockFormat& format, bool exportingMode, const QByteArray& words) {
            const Document document = asList(paragraphs({"One"}, {format}));
            QCOMPARE(writeBody(*document, exportingMode ? exporting() : WriteSettings()),
                     start(words) + FirstItem + run("One"));
        });
        const QTextBlockFormat hanging =
            with(ORVRtfProperty::LeftIndent, 36.0, QTextFormat::TextIndent, 27.0);
        const QTextBlockFormat flush = with(ORVRtfProperty::LeftIndent, 36.0, QTextFormat::TextIndent, 36.0);
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

ORV_TEST("writer_paragraphs", TestWriterParagraphs, QGuiApplication)
#include "paragraphs.moc"
