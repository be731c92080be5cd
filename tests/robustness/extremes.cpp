#include "ORVRtfProperties.h"
#include "ORVTextListFormat.h"
#include "ORVTextRtfStripper.h"
#include "QtFontCompat_p.h"
#include "rtfwritinghelpers.h"
#include "tabletesthelpers.h"

#include <QtCore/QUrl>
#include <QtGui/QImage>
#include <QtGui/QPixmap>
#include <QtGui/QTextList>
#include <QtGui/QTextTable>

#include <QtTest/QtTest>

#include <cmath>
#include <limits>

using namespace rtftest;

namespace {

QByteArray stripped(const QByteArray& rtf)
{
    QBuffer input;
    input.setData(rtf);
    input.open(QIODevice::ReadOnly);
    QBuffer output;
    output.open(QIODevice::WriteOnly);
    ORVTextRtfStripper stripper;
    stripper.setDevice(&input);
    stripper.setOutput(&output);
    stripper.process();
    return output.data();
}

const QList<QByteArray>& destinations()
{
    static const QList<QByteArray> words = {"\\fonttbl",
                                            "\\colortbl",
                                            "\\stylesheet",
                                            "\\info",
                                            "\\*\\listtable",
                                            "\\list",
                                            "\\listlevel",
                                            "\\leveltext",
                                            "\\listname",
                                            "\\levelmarker",
                                            "\\listtext",
                                            "\\pntext",
                                            "\\listoverridetable",
                                            "\\listoverride",
                                            "\\lfolevel",
                                            "\\field",
                                            "\\*\\fldinst",
                                            "\\fldrslt",
                                            "\\footnote",
                                            "\\*\\annotation",
                                            "\\*\\atnid",
                                            "\\*\\atnauthor",
                                            "\\*\\atnref",
                                            "\\*\\atrfstart",
                                            "\\*\\atrfend",
                                            "\\*\\bkmkstart",
                                            "\\*\\bkmkend",
                                            "\\pict",
                                            "\\*\\shppict",
                                            "\\nonshppict",
                                            "\\*\\orvellinepdf",
                                            "\\*\\pdffilename",
                                            "\\*\\nisusfilename",
                                            "\\*\\mathmlequation",
                                            "\\*\\nesttableprops",
                                            "\\nonesttables",
                                            "\\upr",
                                            "\\*\\ud",
                                            "\\header",
                                            "\\footer",
                                            "\\*\\zzz"};
    return words;
}

/*! \a document is written as RTF that is well formed and that can be read without an error. */
QString complaintAboutWriting(const QTextDocument& document)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    ORVTextRtfWriter writer(&buffer);
    if (!writer.write(&document, false))
        return QStringLiteral("not written");
    const QString problem = checkWellFormed(buffer.data());
    if (!problem.isEmpty())
        return problem + QLatin1String(" in ") + QString::fromLatin1(buffer.data());
    const int status = read(buffer.data()).status;
    return status == 0 ? QString() : QStringLiteral("reads back with status %1").arg(status);
}

/*! Every control word, in the spelling that ends before its number. */
QList<QByteArray> allWords()
{
    ORVTextRtfCommon::initHash();
    QList<QByteArray> words;
    for (int word = 1; word <= ORVTextRtfCommon::KeyWordCount; ++word) {
        const QLatin1String spelling = ORVTextRtfCommon::toLatin1(ORVTextRtfCommon::KeyWord(word));
        words << QByteArray(spelling.latin1(), int(spelling.size()));
    }
    return words;
}

/*! Names that would end a construct or open one, were they written as they are. */
void nameRows()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("braces") << QStringLiteral("a{b}c");
    QTest::newRow("opening brace") << QStringLiteral("a{");
    QTest::newRow("closing brace") << QStringLiteral("}b");
    QTest::newRow("backslash") << QStringLiteral("a\\b");
    QTest::newRow("backslash at the end") << QStringLiteral("a\\");
    QTest::newRow("control word") << QStringLiteral("\\par}{\\b x");
    QTest::newRow("quotes") << QStringLiteral("a\"b'c");
    QTest::newRow("semicolon") << QStringLiteral("a;b");
    QTest::newRow("line feed") << QStringLiteral("a\nb");
    QTest::newRow("carriage return") << QStringLiteral("a\r\nb");
    QTest::newRow("tab") << QStringLiteral("a\tb");
    QTest::newRow("beyond ASCII") << QString::fromUtf8("ä€\U0001F600");
    QTest::newRow("half a surrogate") << QString(QChar(0xD83D));
}

} // namespace

/*! Words, numbers, names and formats that nobody expects have a defined result. */
class TestExtremes : public QObject {
    Q_OBJECT

private slots:
    void namedInputs_data();
    void namedInputs();
    void strippedInputs_data();
    void strippedInputs();
    void bytesAfterABackslash();
    void documentReportsChangesAfterAnOpenCell();
    void destinationsInDestinations();
    void paperOfNoWidth();
    void extremeNumbers_data();
    void extremeNumbers();
    void namesOfFonts_data();
    void namesOfFonts();
    void targetsOfLinks_data();
    void targetsOfLinks();
    void namesOfBookmarks_data();
    void namesOfBookmarks();
    void textsOfLevels_data();
    void textsOfLevels();
    void wrongTypes_data();
    void wrongTypes();
    void senselessNumbers_data();
    void senselessNumbers();
    void senselessTables();
    void unknownKinds_data();
    void unknownKinds();
    void unusualBrushes();
};

void TestExtremes::namedInputs_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("text");
    QTest::newRow("level below 0") << QByteArray("{\\rtf1\\itap-1 x\\par}") << 0 << QStringLiteral("x\n");
    QTest::newRow("skipped destination without a group") << QByteArray("\\stylesheet}") << 1 << QString();
    QTest::newRow("unknown destination without a group") << QByteArray("\\*\\zzz}") << 1 << QString();
    QTest::newRow("text behind a destination without a group")
        << QByteArray("\\stylesheet a}{b}") << 1 << QStringLiteral("b");
    QTest::newRow("fallback of -12 bytes") << QByteArray("{\\uc-12\\u65 x}") << 0 << QStringLiteral("Ax");
    // What no brace and no word ends is not inserted.
    QTest::newRow("fallback of -12 bytes at the end") << QByteArray("\\uc-12\\u65 x") << 0 << QString();
    QTest::newRow("fallback of two billion bytes")
        << QByteArray("{a\\uc2000000000\\u65 tail}") << 2 << QStringLiteral("a");
    QTest::newRow("fallback of two billion bytes without a group")
        << QByteArray("\\uc2000000000\\u65 tail") << 0 << QString();
    QTest::newRow("-5 bytes of data") << QByteArray("{\\bin-5 abcde}") << 0 << QStringLiteral("abcde");
    QTest::newRow("0 bytes of data") << QByteArray("{\\bin0 abcde}") << 0 << QStringLiteral("abcde");
    QTest::newRow("5 bytes of data, with 5 left")
        << QByteArray("{\\bin5 abcd}") << 9 << QStringLiteral("abcd");
    QTest::newRow("5 bytes of data, with 6 left") << QByteArray("{\\bin5 abcde}") << 0 << QString();
    QTest::newRow("two gigabytes of data")
        << QByteArray("{\\bin2147483647 abcde}") << 9 << QStringLiteral("abcde");
    QTest::newRow("lone backslash") << QByteArray("\\") << 7 << QString();
    QTest::newRow("backslash at the end") << QByteArray("a\\") << 7 << QStringLiteral("a");
}

void TestExtremes::namedInputs()
{
    QFETCH(QByteArray, rtf);
    QFETCH(int, status);
    QFETCH(QString, text);
    const Reading reading = read(rtf);
    QCOMPARE(reading.status, status);
    QCOMPARE(reading.text(), text);
    QVERIFY(tablesOf(*reading.document).isEmpty());
}

void TestExtremes::strippedInputs_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QByteArray>("output");
    QTest::newRow("lone backslash") << QByteArray("\\") << QByteArray();
    QTest::newRow("backslash at the end") << QByteArray("a\\") << QByteArray("a");
    QTest::newRow("two gigabytes of data")
        << QByteArray("\\bin2147483647 abcde") << QByteArray("\\bin2147483647abcde");
    QTest::newRow("-5 bytes of data") << QByteArray("\\bin-5 abcde") << QByteArray("\\bin-5abcde");
    QTest::newRow("0 bytes of data") << QByteArray("\\bin0 abcde") << QByteArray("\\bin0abcde");
    QTest::newRow("5 bytes of data, with 5 left") << QByteArray("\\bin5 abcde") << QByteArray("\\bin5abcde");
}

void TestExtremes::strippedInputs()
{
    QFETCH(QByteArray, rtf);
    QTEST(stripped(rtf), "output");
}

/*! A byte that is no letter is a symbol; an unknown one is nothing. */
void TestExtremes::bytesAfterABackslash()
{
    const QByteArray known = "'*-\\_{|}~\n";
    for (int code = 0; code < 256; ++code) {
        const char byte = char(code);
        const bool isLetter = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
        if (isLetter || (code != 0 && known.contains(byte)))
            continue;
        const Reading reading = read("{a\\" + QByteArray(1, byte) + "b}");
        QVERIFY2(reading.status == 0, QByteArray::number(code).constData());
        QVERIFY2(reading.text() == QLatin1String("ab"), QByteArray::number(code).constData());
        QVERIFY2(stripped("{a\\" + QByteArray(1, byte) + "b}").endsWith("b}\n"),
                 QByteArray::number(code).constData());
    }
}

void TestExtremes::documentReportsChangesAfterAnOpenCell()
{
    const Reading reading = read("{\\rtf1\\intbl x");
    QCOMPARE(reading.status, 2);
    QSignalSpy changes(reading.document.data(), SIGNAL(contentsChanged()));
    QTextCursor(reading.document.data()).insertText(QStringLiteral("y"));
    QCOMPARE(int(changes.count()), 1);
}

void TestExtremes::destinationsInDestinations()
{
    for (const QByteArray& outer : destinations()) {
        for (const QByteArray& inner : destinations()) {
            const QByteArray content = " \\'01a;{\\b 0}";
            const QByteArray rtf = "{\\rtf1 a{" + outer + content + "{" + inner + content + "}" + content
                + inner + content + "}\\par z}";
            const Reading reading = read(rtf);
            QVERIFY2(reading.status == 0, rtf.constData());
            QVERIFY2(reading.text().startsWith(QLatin1Char('a')), rtf.constData());
            QVERIFY2(reading.text().endsWith(QLatin1Char('z')), rtf.constData());
            const QString complaint = complaintAboutWriting(*reading.document);
            QVERIFY2(complaint.isEmpty(), qPrintable(complaint));
        }
    }
}

void TestExtremes::paperOfNoWidth()
{
    for (const QByteArray& paper : {QByteArray("0"), QByteArray("-1"), QByteArray("-2147483648")}) {
        const Reading reading = readBody("\\paperw" + paper + row("1000 3000", "A B") + "\\pard after");
        const QTextTable* const table = tablesOf(*reading.document).value(0);
        QVERIFY(table);
        const QVector<QTextLength> widths = table->format().columnWidthConstraints();
        QCOMPARE(int(widths.size()), 2);
        for (const QTextLength& width : widths) {
            QCOMPARE(int(width.type()), int(QTextLength::PercentageLength));
            QCOMPARE(width.rawValue(), 50.0);
        }
    }
}

void TestExtremes::extremeNumbers_data()
{
    QTest::addColumn<QByteArray>("number");
    for (const char* number : {"-2147483648", "-2147483647", "-32769", "-1", "0", "1", "255", "65536",
                               "2147483647", "2147483648", "4294967295", "99999999999999999999"})
        QTest::newRow(number) << QByteArray(number);
}

/*! Each word with the number in every place where it may mean something else. */
void TestExtremes::extremeNumbers()
{
    QFETCH(QByteArray, number);
    static const char* const frames[] = {
        "{\\rtf1 @ x\\par @ y}",
        "{\\rtf1{\\fonttbl{\\f1@ Quibble;}@}\\f1 x}",
        "{\\rtf1{\\colortbl;@;}@ x}",
        ("{\\rtf1{\\*\\listtable{\\list{\\listlevel@{\\leveltext\\'01@a;}}@\\listid1}}"
         "{\\*\\listoverridetable{\\listoverride\\listid1@\\ls1}}\\ls1 x@\\par}"),
        "{\\rtf1\\trowd@\\cellx900@\\cellx2000\\pard\\intbl a@\\cell b\\cell\\row\\pard x}",
        "{\\rtf1{\\pict\\pngblip@ 50352031203120323535200A41}x}"};
    for (const QByteArray& word : allWords()) {
        // Data and fallbacks take the rest of the document with them.
        if (word == "\\bin" || word == "\\uc" || word == "\\u" || !QChar::isLetter(uint(uchar(word.at(1)))))
            continue;
        for (const char* frame : frames) {
            const QByteArray rtf = QByteArray(frame).replace('@', word + number + ' ');
            const Reading reading = read(rtf);
            QVERIFY2(reading.status == 0 || reading.status == 2, rtf.constData());
            const QString complaint = complaintAboutWriting(*reading.document);
            QVERIFY2(complaint.isEmpty(), qPrintable(QString::fromLatin1(rtf) + complaint));
        }
    }
}

void TestExtremes::namesOfFonts_data()
{
    nameRows();
}

void TestExtremes::namesOfFonts()
{
    QFETCH(QString, name);
    QTextCharFormat format;
    compat::setFontFamily(format, name);
    const QByteArray rtf = write(*textDocument(QStringLiteral("x"), format));
    QCOMPARE(read(rtf).status, 0);
    QCOMPARE(read(rtf).text(), QStringLiteral("x"));
}

void TestExtremes::targetsOfLinks_data()
{
    nameRows();
}

void TestExtremes::targetsOfLinks()
{
    QFETCH(QString, name);
    QTextCharFormat format;
    format.setAnchor(true);
    format.setAnchorHref(name);
    const QByteArray rtf = write(*textDocument(QStringLiteral("x"), format));
    QCOMPARE(read(rtf).status, 0);
    QCOMPARE(read(rtf).text(), QStringLiteral("x"));
}

void TestExtremes::namesOfBookmarks_data()
{
    nameRows();
}

void TestExtremes::namesOfBookmarks()
{
    QFETCH(QString, name);
    QTextCharFormat format;
    format.setProperty(ORVRtfProperty::BookmarkName, name);
    QSharedPointer<QTextDocument> document = textDocument(QStringLiteral("x"), format);
    format.setProperty(ORVRtfProperty::PageReference, name);
    QTextCursor end(document.data());
    end.movePosition(QTextCursor::End);
    end.insertText(QStringLiteral("<$p>"), format);
    QCOMPARE(read(write(*document)).text(), QStringLiteral("x<$p>"));
    QCOMPARE(read(write(*document, exporting())).status, 0);
}

void TestExtremes::textsOfLevels_data()
{
    nameRows();
}

void TestExtremes::textsOfLevels()
{
    QFETCH(QString, name);
    ORVTextListLevel level;
    level.setText(name + QLatin1String("%0"));
    QTextListFormat format;
    ORVTextListFormat::setLevels(format, QList<ORVTextListLevel>() << level);
    QSharedPointer<QTextDocument> document = textDocument(QStringLiteral("x"));
    QTextCursor(document.data()).createList(format);
    const QByteArray rtf = write(*document);
    QCOMPARE(read(rtf).status, 0);
    QCOMPARE(read(rtf).text(), QStringLiteral("x"));
}

void TestExtremes::wrongTypes_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("text") << QVariant(QStringLiteral("}{\\"));
    QTest::newRow("bytes") << QVariant(QByteArray("}{\\\0\xFF", 5));
    QTest::newRow("list") << QVariant(QVariantList() << 1 << QStringLiteral("x"));
    QTest::newRow("smallest integer") << QVariant(std::numeric_limits<int>::min());
    QTest::newRow("largest integer") << QVariant(std::numeric_limits<int>::max());
    QTest::newRow("long integer") << QVariant(std::numeric_limits<qlonglong>::max());
    QTest::newRow("not a number") << QVariant(std::numeric_limits<double>::quiet_NaN());
    QTest::newRow("infinity") << QVariant(std::numeric_limits<double>::infinity());
    QTest::newRow("boolean") << QVariant(true);
    QTest::newRow("colour") << QVariant(QColor(Qt::red));
    QTest::newRow("pen") << QVariant(QPen(Qt::red));
    QTest::newRow("length") << QVariant(QTextLength(QTextLength::PercentageLength, 50));
    QTest::newRow("nothing") << QVariant();
}

/*! Each property that Qt or the application has, in all kinds of formats, with a value of that type. */
void TestExtremes::wrongTypes()
{
    QFETCH(QVariant, value);
    const int own = QTextFormat::UserProperty;
    const QList<QPair<int, int>> ranges = {{0x0800, 0x0803},       {0x1000, 0x1080},      {0x1FE0, 0x2040},
                                           {0x2100, 0x2102},       {0x3000, 0x3002},      {0x4000, 0x4006},
                                           {0x5000, 0x5012},       {0x7000, 0x7001},      {own + 1, own + 16},
                                           {own + 100, own + 104}, {own + 200, own + 225}};
    for (const QPair<int, int>& range : ranges) {
        for (int id = range.first; id < range.second; ++id) {
            QTextCharFormat format;
            format.setProperty(id, value);
            QTextBlockFormat blockFormat;
            blockFormat.setProperty(id, value);
            QTextTableFormat tableFormat;
            tableFormat.setProperty(id, value);
            const QSharedPointer<QTextDocument> document = newDocument();
            QTextCursor cursor(document.data());
            cursor.insertBlock(blockFormat, format);
            cursor.insertText(QStringLiteral("x"), format);
            cursor.insertTable(1, 2, tableFormat);
            cursor.insertText(QStringLiteral("y"), format);
            const QString complaint = complaintAboutWriting(*document);
            QVERIFY2(complaint.isEmpty(), qPrintable(QStringLiteral("%1: ").arg(id, 0, 16) + complaint));
        }
    }
}

void TestExtremes::senselessNumbers_data()
{
    QTest::addColumn<double>("value");
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
    QTest::newRow("negatively infinite") << -std::numeric_limits<double>::infinity();
    QTest::newRow("largest") << std::numeric_limits<double>::max();
    QTest::newRow("lowest") << std::numeric_limits<double>::lowest();
    QTest::newRow("smallest") << std::numeric_limits<double>::denorm_min();
    QTest::newRow("beyond an integer") << 1e10;
    QTest::newRow("negative") << -5000000.0;
}

void TestExtremes::senselessNumbers()
{
    QFETCH(double, value);
    const QSharedPointer<QTextDocument> document = newDocument();
    for (const char* name : {"topMargin", "leftMargin", "rightMargin", "bottomMargin"})
        document->setProperty(name, value);
    document->setProperty("paperSize", QSizeF(value, value));
    QTextBlockFormat blockFormat;
    blockFormat.setTopMargin(value);
    blockFormat.setBottomMargin(value);
    blockFormat.setTextIndent(value);
    for (int id : {ORVRtfProperty::LeftIndent, ORVRtfProperty::RightIndent, ORVRtfProperty::LineSpacing,
                   ORVRtfProperty::LineMultiple})
        blockFormat.setProperty(id, value);
    blockFormat.setTabPositions(QList<QTextOption::Tab>() << QTextOption::Tab(value, QTextOption::RightTab));
    QTextCharFormat format;
    format.setFontPointSize(12);
    QTextCursor cursor(document.data());
    cursor.insertBlock(blockFormat, format);
    cursor.insertText(QStringLiteral("x"), format);

    QImage image(2, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    document->addResource(QTextDocument::ImageResource, QUrl(QStringLiteral("a")), image);
    QTextImageFormat picture;
    picture.setName(QStringLiteral("a"));
    picture.setWidth(value);
    picture.setHeight(value);
    cursor.insertImage(picture);

    ORVTextListLevel level;
    level.setIndent(value);
    level.setFirstLinePosition(value);
    QTextListFormat listFormat;
    ORVTextListFormat::setLevels(listFormat, QList<ORVTextListLevel>() << level);
    cursor.createList(listFormat);
    QCOMPARE(complaintAboutWriting(*document), QString());
}

void TestExtremes::senselessTables()
{
    const double infinity = std::numeric_limits<double>::infinity();
    for (double value : {std::nan(""), infinity, -infinity, 1e300, -1e300, 0.0}) {
        QTextTableFormat format;
        format.setCellPadding(value);
        format.setBorder(value);
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        QVector<QTextLength> widths;
        widths << QTextLength(QTextLength::PercentageLength, value)
               << QTextLength(QTextLength::FixedLength, value);
        format.setColumnWidthConstraints(widths);
        const QSharedPointer<QTextDocument> document = newDocument();
        QTextCursor(document.data()).insertTable(2, 3, format);
        QCOMPARE(complaintAboutWriting(*document), QString());
    }
}

void TestExtremes::unknownKinds_data()
{
    QTest::addColumn<int>("kind");
    for (const int kind :
         {32, 77, -1, -100, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        QTest::newRow(qPrintable(QString::number(kind))) << kind;
}

/*! Properties that are to say one of a few kinds, with a number that stands for none. */
void TestExtremes::unknownKinds()
{
    QFETCH(int, kind);
    QTextBlockFormat blockFormat;
    for (const int id : {QTextFormat::LayoutDirection, QTextFormat::BlockAlignment,
                         QTextFormat::LineHeightType, QTextFormat::PageBreakPolicy})
        blockFormat.setProperty(id, kind);
    QTextCharFormat charFormat;
    for (const int id :
         {QTextFormat::LayoutDirection, QTextFormat::TextVerticalAlignment, QTextFormat::TextUnderlineStyle,
          QTextFormat::FontCapitalization, QTextFormat::FontHintingPreference, QTextFormat::FontStyleHint})
        charFormat.setProperty(id, kind);
    QTextListFormat listFormat;
    listFormat.setProperty(QTextFormat::ListStyle, kind);
    QTextTableFormat tableFormat;
    for (const int id : {QTextFormat::FrameBorderStyle, QTextFormat::CssFloat, QTextFormat::BlockAlignment,
                         QTextFormat::LayoutDirection, QTextFormat::PageBreakPolicy})
        tableFormat.setProperty(id, kind);

    const QSharedPointer<QTextDocument> document = newDocument();
    QTextCursor cursor(document.data());
    cursor.setBlockFormat(blockFormat);
    cursor.insertText(QStringLiteral("x"), charFormat);
    cursor.createList(listFormat);
    QTextTable* const table = cursor.insertTable(1, 1, tableFormat);
    table->cellAt(0, 0).setFormat(charFormat);
    QCOMPARE(complaintAboutWriting(*document), QString());
}

void TestExtremes::unusualBrushes()
{
    QPixmap pixmap(2, 2);
    pixmap.fill(Qt::red);
    const QList<QBrush> brushes = {QBrush(),
                                   QBrush(QColor()),
                                   QBrush(Qt::NoBrush),
                                   QBrush(Qt::Dense4Pattern),
                                   QBrush(QLinearGradient(0, 0, 1, 1)),
                                   QBrush(pixmap),
                                   QBrush(QColor::fromHsvF(0.5, 1, 1)),
                                   QBrush(QColor(1, 2, 3, 4))};
    for (const QBrush& brush : brushes) {
        QTextCharFormat format;
        format.setForeground(brush);
        format.setBackground(brush);
        format.setTextOutline(QPen(brush, -1));
        const QSharedPointer<QTextDocument> document = textDocument(QStringLiteral("x"), format);
        QTextTableFormat tableFormat;
        tableFormat.setBorderBrush(brush);
        tableFormat.setBorder(1);
        QTextTable* const table = QTextCursor(document.data()).insertTable(1, 1, tableFormat);
        table->cellAt(0, 0).setFormat(format);
        QCOMPARE(complaintAboutWriting(*document), QString());
    }
}

QTEST_MAIN(TestExtremes)
#include "tst_extremes.moc"
