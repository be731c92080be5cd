#include "ORVHtmlWriter.h"
#include "ORVMarkdownWriter.h"
#include "ORVRtfInterchangeWords_p.h"
#include "interchangehelpers.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

const QList<QByteArray>& destinations()
{
    static const QList<QByteArray> words =
        QByteArray("\\fonttbl \\colortbl \\stylesheet \\info \\*\\listtable \\list \\listlevel \\leveltext "
                   "\\listname \\levelmarker \\listtext \\pntext \\listoverridetable \\listoverride "
                   "\\lfolevel \\field \\*\\fldinst \\fldrslt \\footnote \\*\\annotation \\*\\atnid "
                   "\\*\\atnauthor \\*\\atnref \\*\\atrfstart \\*\\atrfend \\*\\bkmkstart \\*\\bkmkend "
                   "\\pict \\*\\shppict \\nonshppict \\*\\orvellinepdf \\*\\pdffilename \\*\\nisusfilename "
                   "\\*\\mathmlequation \\*\\nesttableprops \\nonesttables \\upr \\*\\ud \\header \\footer "
                   "\\*\\formfield \\*\\shpinst \\sp \\sn \\*\\shptxt \\*\\zzz")
            .split(' ');
    return words;
}

/*! \a document is written as RTF that is well formed and that can be read without an error. */
QString complaintAboutWriting(const QTextDocument& document)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    ORVTextRtfWriter writer(&buffer);
    if (!writer.write(&document, false))
        return "not written"_s;
    const QString problem = checkWellFormed(buffer.data());
    if (!problem.isEmpty())
        return problem + " in "_s + QString::fromLatin1(buffer.data());
    const int status = read(buffer.data()).status;
    return status == 0 ? QString() : "reads back with status %1"_s.arg(status);
}

/*! Every control word of both forms, in the spelling that ends before its number. */
QList<QByteArray> allWords()
{
    ORVTextRtfCommon::initHash();
    QList<QByteArray> words;
    for (int word = 1; word <= ORVTextRtfCommon::KeyWordCount; ++word) {
        const QLatin1String spelling = ORVTextRtfCommon::toLatin1(ORVTextRtfCommon::KeyWord(word));
        words << QByteArray(spelling.latin1(), int(spelling.size()));
    }
#define ORV_SPELLING(name, spelling) words << spelling;
    ORV_INTERCHANGE_WORDS(ORV_SPELLING)
#undef ORV_SPELLING
    return words;
}

} // namespace

/*! Words, numbers, names and formats that nobody expects have a defined result. */
class TestExtremes : public QObject {
    Q_OBJECT

private slots:
    /*! A byte that is no letter is a symbol; an unknown one is nothing. */
    void bytesAfterABackslash()
    {
        const QByteArray known = "'*-\\_{|}~\n";
        for (int code = 0; code < 256; ++code) {
            const QByteArray byte(1, char(code));
            if ((code | 32) >= 'a' && (code | 32) <= 'z')
                continue;
            if (code != 0 && known.contains(byte))
                continue;
            const QByteArray rtf = "{a\\" + byte + "b}";
            const Reading reading = read(rtf);
            QVERIFY2(reading.status == 0, rtf.constData());
            QVERIFY2(reading.text() == "ab"_s, rtf.constData());
            QVERIFY2(stripped(rtf).endsWith("b}\n"), rtf.constData());
        }
    }

    void destinationsInDestinations()
    {
        for (const QByteArray& outer : destinations()) {
            for (const QByteArray& inner : destinations()) {
                const QByteArray content = " \\'01a;{\\b 0}";
                const QByteArray rtf = "{\\rtf1 a{" + outer + content + "{" + inner + content + "}" + content
                    + inner + content + "}\\par z}";
                for (const Reading& reading : inBothForms(rtf)) {
                    QVERIFY2(reading.status == 0, rtf.constData());
                    QVERIFY2(reading.text().startsWith(QLatin1Char('a')), rtf.constData());
                    QVERIFY2(reading.text().endsWith(QLatin1Char('z')), rtf.constData());
                    const QString complaint = complaintAboutWriting(*reading.document);
                    QVERIFY2(complaint.isEmpty(), qPrintable(complaint));
                }
            }
        }
    }

    /*! Each word with the number in every place where it may mean something else. */
    ORV_ROWS(extremeNumbers)
    {
        const Rows add([](const QByteArray& number) {
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
                if (word == "\\bin" || word == "\\uc" || word == "\\u"
                    || !QChar::isLetter(uint(uchar(word.at(1)))))
                    continue;
                for (const char* frame : frames) {
                    const QByteArray rtf = QByteArray(frame).replace('@', word + number + ' ');
                    for (const Reading& reading : inBothForms(rtf)) {
                        QVERIFY2(reading.status == 0 || reading.status == 2, rtf.constData());
                        const QString complaint = complaintAboutWriting(*reading.document);
                        QVERIFY2(complaint.isEmpty(), qPrintable(QString::fromLatin1(rtf) + complaint));
                    }
                }
            }
        });
        for (const char* number : {"-2147483648", "-2147483647", "-32769", "-1", "0", "1", "255", "65536",
                                   "2147483647", "2147483648", "4294967295", "99999999999999999999"})
            add(number, QByteArray(number));
    }

    /*! Names that would end a construct or open one, were they written as they are. */
    ORV_ROWS(names)
    {
        const Rows add([](const QString& name) {
            QTextCharFormat font, link, bookmark, reference;
            compat::setFontFamily(font, name);
            link.setAnchor(true);
            link.setAnchorHref(name);
            bookmark.setProperty(ORVRtfProperty::BookmarkName, name);
            reference.setProperty(ORVRtfProperty::PageReference, name);
            ORVTextListLevel level;
            level.setText(name + "%0"_s);
            QTextListFormat list;
            ORVTextListFormat::setLevels(list, {level});

            Story story;
            story.add("x"_s, font).add("y"_s, link).add("z"_s, bookmark).add("<$p>"_s, reference);
            story.cursor().createList(list);
            const Reading reading = read(write(*story.document()));
            QCOMPARE(reading.status, 0);
            QCOMPARE(reading.text(), "xyz<$p>"_s);
            QCOMPARE(read(write(*story.document(), exporting())).status, 0);
        });
        add("braces", "a{b}c");
        add("opening brace", "a{");
        add("closing brace", "}b");
        add("backslash", "a\\b");
        add("backslash at the end", "a\\");
        add("control word", "\\par}{\\b x");
        add("quotes", "a\"b'c");
        add("semicolon", "a;b");
        add("line feed", "a\nb");
        add("carriage return", "a\r\nb");
        add("tab", "a\tb");
        add("beyond ASCII", "ä€\U0001F600");
        add("half a surrogate", QString(QChar(0xD83D)));
    }

    /*! Each property that Qt or the application has, in all kinds of formats, with a value of that type. */
    ORV_ROWS(wrongTypes)
    {
        const Rows add([](const QVariant& value) {
            const int own = QTextFormat::UserProperty;
            const QList<QPair<int, int>> ranges = {
                {0x0800, 0x0830},       {0x1000, 0x1080},      {0x1FE0, 0x2040},    {0x2100, 0x2102},
                {0x3000, 0x3002},       {0x4000, 0x4020},      {0x4100, 0x4110},    {0x4800, 0x4822},
                {0x5000, 0x5012},       {0x7000, 0x7001},      {own + 1, own + 16}, {own + 100, own + 104},
                {own + 200, own + 225}, {own + 230, own + 250}};
            for (const QPair<int, int>& range : ranges) {
                for (int id = range.first; id < range.second; ++id) {
                    QTextCharFormat format;
                    format.setProperty(id, value);
                    QTextBlockFormat blockFormat;
                    blockFormat.setProperty(id, value);
                    QTextListFormat listFormat;
                    listFormat.setProperty(id, value);
                    QTextTableFormat tableFormat;
                    tableFormat.setProperty(id, value);
                    const QSharedPointer<QTextDocument> document = newDocument();
                    QTextCursor cursor(document.data());
                    cursor.insertBlock(blockFormat, format);
                    cursor.insertText("x"_s, format);
                    cursor.createList(listFormat);
                    QTextTable* const table = cursor.insertTable(1, 2, tableFormat);
                    table->cellAt(0, 0).setFormat(format);
                    cursor.insertText("y"_s, format);
                    const QString complaint = complaintAboutWriting(*document);
                    QVERIFY2(complaint.isEmpty(), qPrintable("%1: "_s.arg(id, 0, 16) + complaint));
                    QBuffer html;
                    html.open(QIODevice::WriteOnly);
                    QVERIFY2(ORVHtmlWriter(&html).write(document.data()), qPrintable("%1"_s.arg(id, 0, 16)));
                    QBuffer markdown;
                    markdown.open(QIODevice::WriteOnly);
                    QVERIFY2(ORVMarkdownWriter(&markdown).write(document.data()),
                             qPrintable("%1"_s.arg(id, 0, 16)));
                    QVERIFY2(markdown.data().contains('x') && markdown.data().contains('y'),
                             markdown.data().constData());
                }
            }
        });
        add("text", QVariant("}{\\"_s));
        add("bytes", QVariant(QByteArray("}{\\\0\xFF", 5)));
        add("list", QVariant(QVariantList() << 1 << "x"_s));
        for (const int kind : {32, 77, -1, -100})
            add("integer " + QByteArray::number(kind), QVariant(kind));
        add("smallest integer", QVariant(std::numeric_limits<int>::min()));
        add("largest integer", QVariant(std::numeric_limits<int>::max()));
        add("long integer", QVariant(std::numeric_limits<qlonglong>::max()));
        add("not a number", QVariant(std::numeric_limits<double>::quiet_NaN()));
        add("infinity", QVariant(std::numeric_limits<double>::infinity()));
        add("boolean", QVariant(true));
        add("colour", QVariant(QColor(Qt::red)));
        add("pen", QVariant(QPen(Qt::red)));
        add("length", QVariant(QTextLength(QTextLength::PercentageLength, 50)));
        add("nothing", QVariant());
    }

    ORV_ROWS(senselessNumbers)
    {
        const Rows add([](double value) {
            const QSharedPointer<QTextDocument> document = newDocument();
            for (const char* name : {"topMargin", "leftMargin", "rightMargin", "bottomMargin"})
                document->setProperty(name, value);
            document->setProperty("paperSize", QSizeF(value, value));
            QTextBlockFormat blockFormat;
            blockFormat.setTopMargin(value);
            blockFormat.setBottomMargin(value);
            blockFormat.setTextIndent(value);
            for (int id : {ORVRtfProperty::LeftIndent, ORVRtfProperty::RightIndent,
                           ORVRtfProperty::LineSpacing, ORVRtfProperty::LineMultiple})
                blockFormat.setProperty(id, value);
            blockFormat.setTabPositions(QList<QTextOption::Tab>()
                                        << QTextOption::Tab(value, QTextOption::RightTab));
            QTextCharFormat format;
            format.setFontPointSize(12);
            QTextCursor cursor(document.data());
            cursor.insertBlock(blockFormat, format);
            cursor.insertText("x"_s, format);

            QImage image(2, 2, QImage::Format_RGB32);
            image.fill(Qt::red);
            document->addResource(QTextDocument::ImageResource, QUrl("a"_s), image);
            QTextImageFormat picture;
            picture.setName("a"_s);
            picture.setWidth(value);
            picture.setHeight(value);
            cursor.insertImage(picture);

            ORVTextListLevel level;
            level.setIndent(value);
            level.setFirstLinePosition(value);
            QTextListFormat listFormat;
            ORVTextListFormat::setLevels(listFormat, {level});
            cursor.createList(listFormat);

            QTextTableFormat tableFormat;
            tableFormat.setCellPadding(value);
            tableFormat.setBorder(value);
            tableFormat.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
            tableFormat.setColumnWidthConstraints({QTextLength(QTextLength::PercentageLength, value),
                                                   QTextLength(QTextLength::FixedLength, value)});
            cursor.insertTable(2, 3, tableFormat);
            QCOMPARE(complaintAboutWriting(*document), QString());
        });
        add("not a number", std::numeric_limits<double>::quiet_NaN());
        add("infinite", std::numeric_limits<double>::infinity());
        add("negatively infinite", -std::numeric_limits<double>::infinity());
        add("largest", std::numeric_limits<double>::max());
        add("lowest", std::numeric_limits<double>::lowest());
        add("smallest", std::numeric_limits<double>::denorm_min());
        add("zero", 0.0);
        add("beyond an integer", 1e10);
        add("negative", -5000000.0);
    }

    void unusualBrushes()
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
            const QSharedPointer<QTextDocument> document = textDocument("x"_s, format);
            QTextTableFormat tableFormat;
            tableFormat.setBorderBrush(brush);
            tableFormat.setBorder(1);
            QTextTable* const table = QTextCursor(document.data()).insertTable(1, 1, tableFormat);
            table->cellAt(0, 0).setFormat(format);
            QCOMPARE(complaintAboutWriting(*document), QString());
        }
    }
};

ORV_TEST("extremes", TestExtremes, QGuiApplication)
#include "extremes.moc"
