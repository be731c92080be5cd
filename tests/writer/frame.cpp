#include "ORVTextPage.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

typedef QSharedPointer<QTextDocument> Document;

/*! Takes a number of bytes and refuses all later ones, as a full disk does. */
class LimitedDevice : public QIODevice {
public:
    enum Refusal { TakesWhatFits, TakesNothingOfAPiece };

    LimitedDevice(qint64 limit, Refusal refusal) : m_limit(limit), m_refusal(refusal) { }
    QByteArray taken() const { return m_taken; }

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* data, qint64 size) override
    {
        const qint64 room = m_full ? 0 : m_limit - m_taken.size();
        m_full = size > room;
        if (!m_full || m_refusal == TakesWhatFits)
            m_taken.append(data, int(qMin(size, room)));
        if (!m_full)
            return size;
        return m_refusal == TakesWhatFits && room > 0 ? room : -1;
    }

private:
    qint64 m_limit;
    Refusal m_refusal;
    bool m_full = false;
    QByteArray m_taken;
};

/*! Does not open. */
class LockedDevice : public QIODevice {
public:
    bool open(OpenMode) override { return false; }

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char*, qint64) override
    {
        wasWrittenTo = true;
        return -1;
    }

public:
    bool wasWrittenTo = false;
};

QTextCharFormat family(const char* name)
{
    QTextCharFormat format;
    compat::setFontFamily(format, QString::fromUtf8(name));
    return format;
}

QTextCharFormat fixedPitch(QTextCharFormat format)
{
    format.setFontFixedPitch(true);
    return format;
}

QTextCharFormat foreground(const QBrush& brush)
{
    QTextCharFormat format;
    format.setForeground(brush);
    return format;
}

/*! The font table's entry of an ordinary font. */
QByteArray fontEntry(int number, const QByteArray& name, int pitch = 2,
                     const QByteArray& familyWord = "\\fnil")
{
    return "{\\f" + QByteArray::number(number) + familyWord + "\\fcharset1252\\fprq"
        + QByteArray::number(pitch) + ' ' + name + ";}";
}

/*! A text of one letter in each of \a formats. */
Document runs(const QList<QTextCharFormat>& formats)
{
    const Document document = newDocument();
    QTextCursor cursor(document.data());
    char text = 'a';
    for (const QTextCharFormat& format : formats)
        cursor.insertText(QString(QLatin1Char(text++)), format);
    return document;
}

/*! Two paragraphs with a page break after the first, an undo stack, and visible tabs and spaces. */
Document documentOfAnEditor()
{
    const Document document = newDocument();
    QTextOption option;
    option.setFlags(QTextOption::ShowTabsAndSpaces | QTextOption::ShowLineAndParagraphSeparators);
    document->setDefaultTextOption(option);
    QTextCursor cursor(document.data());
    QTextBlockFormat breakAfter;
    breakAfter.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysAfter);
    cursor.setBlockFormat(breakAfter);
    cursor.insertText("One"_s);
    cursor.insertBlock(QTextBlockFormat());
    cursor.insertText("Two"_s);
    return document;
}

WriteSettings inPlace()
{
    WriteSettings settings;
    settings.inPlace = true;
    return settings;
}

/*! A document by a writer that may have written others. */
QByteArray writeBy(ORVTextRtfWriter& writer, const Document& document)
{
    QBuffer buffer;
    writer.setDevice(&buffer);
    if (!writer.write(document.data(), false))
        QTest::qFail("the document was not written", __FILE__, __LINE__);
    writer.setDevice(nullptr);
    return wellFormed(buffer.data());
}

QTextCharFormat hinted(QTextCharFormat format, QFont::StyleHint hint)
{
    format.setFontStyleHint(hint);
    return format;
}

/*! A gradient has no colour of its own. */
QBrush redGradient()
{
    QLinearGradient gradient(0, 0, 1, 1);
    gradient.setColorAt(0, Qt::red);
    return gradient;
}

QByteArray documentOfAnEditorAsRtf()
{
    return documentHead()
        + "\n\\pard\\plain \\ltrch\\loch {\\f0\\fs24 One}"
          "\n\\par\\pard\\plain \\pagebb\\ltrch\\loch {\\f0\\fs24 Two}}";
}

} // namespace

class TestWriterFrame : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(documents)
    {
        const Rows add(
            [](const Document& document, const QByteArray& rtf) { QCOMPARE(write(*document), rtf); });
        add("emptyDocument", newDocument(), documentHead() + firstParagraph() + "\\f0\\fs24}");
        add("oneParagraph", textDocument("Hello"_s), documentHead() + firstParagraph() + run("Hello") + '}');
        add("colouredText", runs({foreground(Qt::red), QTextCharFormat(), foreground(QColor(1, 20, 255))}),
            documentHead(defaultFontEntry(),
                         blackAndWhite() + "\\red255\\green0\\blue0;\\red1\\green20\\blue255;")
                + firstParagraph() + "{\\f0\\fs24\\cf3 a}{\\f0\\fs24 b}{\\f0\\fs24\\cf4 c}}");
        add("severalFonts",
            runs({family("Quibble Serif"), QTextCharFormat(), family("Quibble Mono"), family("Quibble Serif"),
                  family(DefaultFamily)}),
            documentHead(defaultFontEntry() + fontEntry(1, "Quibble Serif") + fontEntry(2, "Quibble Mono"))
                + firstParagraph()
                + "{\\f1\\fs24 a}{\\f0\\fs24 b}{\\f2\\fs24 c}{\\f1\\fs24 d}{\\f0\\fs24 e}}");
        // Nothing is registered, so there is no colour to refer to.
        add("brushWithoutColour", runs({foreground(redGradient())}),
            documentHead() + firstParagraph() + "{\\f0\\fs24 a}}");
    }

    void paragraphsRestateOnlyChangedFormats()
    {
        const Document document = newDocument();
        QTextCursor cursor(document.data());
        cursor.insertText("One\nTwo\n"_s);
        QTextBlockFormat centred;
        centred.setAlignment(Qt::AlignHCenter);
        cursor.setBlockFormat(centred);
        cursor.insertText("Three\nFour"_s);
        QCOMPARE(write(*document),
                 documentHead()
                     + "\n\\pard\\plain \\ltrch\\loch {\\f0\\fs24 One}"
                       "\n\\par\\plain {\\f0\\fs24 Two}"
                       "\n\\par\\pard\\plain \\qc\\ltrch\\loch {\\f0\\fs24 Three}"
                       "\n\\par\\plain {\\f0\\fs24 Four}}");
    }

    void headerAndFooter()
    {
        const Document document = runs({family("Quibble Serif")});
        ORVTextPage page;
        page.text = "Top"_s;
        page.option.setAlignment(Qt::AlignHCenter);
        page.font = QFont("Quibble Head"_s, 10);
        document->setProperty("header", QVariant::fromValue(page));
        page.text = "Bottom"_s;
        page.option.setAlignment(Qt::AlignRight);
        page.font = QFont("Quibble Foot"_s, 8);
        document->setProperty("footer", QVariant::fromValue(page));
        // Their fonts come before those of the text.
        QCOMPARE(write(*document),
                 documentHead(defaultFontEntry() + fontEntry(1, "Quibble Head") + fontEntry(2, "Quibble Foot")
                              + fontEntry(3, "Quibble Serif"))
                     + "{\\header{\\pard\\qc{\\f1\\fs20 Top\\par}}}\n{\\footer{\\pard\\qr{\\f2\\fs16 "
                       "Bottom\\par}}}\n"
                       "\n\\pard\\plain \\ltrch\\loch {\\f3\\fs24 a}}");
    }

    ORV_ROWS(margins)
    {
        const Rows add([](const QVariant& value, const QByteArray& twips) {
            const char* const names[] = {"leftMargin", "rightMargin", "topMargin", "bottomMargin"};
            const QList<QByteArray> words = {"\\margl", "\\margr", "\\margt", "\\margb"};
            const QList<QByteArray> defaults = {"1800", "1800", "1440", "1440"};
            for (int changed = 0; changed < 4; ++changed) {
                const Document document = newDocument();
                document->setProperty(names[changed], value);
                QByteArray expected = "\\paperw12240\\paperh15840";
                for (int i = 0; i < 4; ++i)
                    expected += words.at(i) + (i == changed ? twips : defaults.at(i));
                expected += "\\fet2\\ftnbj\\aenddoc\n";
                const QByteArray rtf = write(*document);
                QVERIFY2(rtf.contains(expected), rtf.constData());
            }
        });
        add("one inch", QVariant(72.0), "1440");
        add("zero", QVariant(0.0), "0");
        add("half a twip", QVariant(0.025), "1");
        add("less than half a twip", QVariant(0.02499), "0");
        add("minus half a twip", QVariant(-0.025), "-1");
        add("minus one and a half twips", QVariant(-0.075), "-2");
        add("integer", QVariant(36), "720");
        add("number as text", QVariant("36.5"_s), "730");
        add("no number", QVariant("wide"_s), "0");
        add("not a number", QVariant(qQNaN()), "0");
        add("infinite", QVariant(qInf()), "2147483647");
        add("below every integer", QVariant(-1e300), "-2147483648");
    }

    ORV_ROWS(pageNumbering)
    {
        const Rows add(
            [](const QVariant& notOnFirstPage, const QVariant& countFirstPage, const QByteArray& words) {
                const Document document = newDocument();
                document->setProperty("notOnFirstPage", notOnFirstPage);
                document->setProperty("countFirstPage", countFirstPage);
                const QByteArray rtf = write(*document);
                QVERIFY2(rtf.contains(words), rtf.constData());
            });
        const QByteArray everyPage = "\\aenddoc\n\\pgnrestart\\pgnstarts";
        const QByteArray notOnFirst = "\\aenddoc\n\\titlepg\\pgnrestart\\pgnstarts";
        add("nothing said", QVariant(), QVariant(), everyPage + "0\n");
        add("both false", QVariant(false), QVariant(false), everyPage + "0\n");
        add("first page counted", QVariant(), QVariant(true), everyPage + "1\n");
        add("not on first page", QVariant(true), QVariant(), notOnFirst + "0\n");
        add("both", QVariant(true), QVariant(true), notOnFirst + "1\n");
        add("integers", QVariant(1), QVariant(1), notOnFirst + "1\n");
    }

    void pageSetupComesFromTheGivenDocument()
    {
        const Document document = textDocument("a"_s);
        document->setProperty("topMargin", 10.0);
        document->setProperty("notOnFirstPage", true);
        const QByteArray copied = write(*document);
        QVERIFY2(copied.contains("\\margt200\\margb1440\\fet2\\ftnbj\\aenddoc\n\\titlepg"),
                 copied.constData());
        QCOMPARE(write(*document, inPlace()), copied);
    }

    void settersAndGetters()
    {
        ORVTextRtfWriter writer;
        QCOMPARE(writer.device(), static_cast<QIODevice*>(nullptr));
        QCOMPARE(int(writer.footnoteDestination()), 1);
        QCOMPARE(int(writer.annotationDestination()), 0);
        QBuffer buffer;
        writer.setDevice(&buffer);
        QCOMPARE(writer.device(), static_cast<QIODevice*>(&buffer));
        writer.setFootnoteDestination(ORVTextRtf::ExportAsAlternateFootnote);
        QCOMPARE(writer.footnoteDestination(), ORVTextRtf::ExportAsAlternateFootnote);
        QCOMPARE(writer.annotationDestination(), ORVTextRtf::ExportAsAnnotation);
        writer.setAnnotationDestination(ORVTextRtf::ExportAsFootnote);
        QCOMPARE(writer.annotationDestination(), ORVTextRtf::ExportAsFootnote);
        QCOMPARE(writer.footnoteDestination(), ORVTextRtf::ExportAsAlternateFootnote);
        writer.setDevice(nullptr);
        QCOMPARE(writer.device(), static_cast<QIODevice*>(nullptr));
        QCOMPARE(ORVTextRtfWriter(&buffer).device(), static_cast<QIODevice*>(&buffer));
        QVERIFY(!buffer.isOpen());
    }

    void exportingModeCanBeSwitchedOffAgain()
    {
        const Document document = runs({QTextCharFormat()});
        QTextCursor cursor(document.data());
        cursor.insertText("<$p>"_s);
        cursor.movePosition(QTextCursor::End);
        cursor.insertTable(1, 1);
        ORVTextRtfWriter writer;
        writer.setExportingMode(true);
        writer.setExportingMode(false);
        const QByteArray stored = writeBy(writer, document);
        QCOMPARE(stored, write(*document));

        WriteSettings paragraphEnded;
        paragraphEnded.paragraphBeforeTableEnded = true;
        ORVTextRtfWriter endingWriter;
        endingWriter.setParagraphBeforeTableEnded(true);
        endingWriter.setExportingMode(false);
        const QByteArray ended = writeBy(endingWriter, document);
        QCOMPARE(ended, write(*document, paragraphEnded));
        QVERIFY(ended != stored);
    }

    void copyLeavesTheDocumentAlone()
    {
        const Document document = documentOfAnEditor();
        QCOMPARE(write(*document), documentOfAnEditorAsRtf());
        QVERIFY(document->isUndoRedoEnabled());
        QVERIFY(document->isUndoAvailable());
        QCOMPARE(int(document->defaultTextOption().flags()),
                 int(QTextOption::ShowTabsAndSpaces | QTextOption::ShowLineAndParagraphSeparators));
        QCOMPARE(int(document->begin().blockFormat().pageBreakPolicy()),
                 int(QTextFormat::PageBreak_AlwaysAfter));
        QCOMPARE(int(document->begin().next().blockFormat().pageBreakPolicy()), 0);
    }

    void inPlaceChangesTheDocument()
    {
        const Document document = documentOfAnEditor();
        QCOMPARE(write(*document, inPlace()), documentOfAnEditorAsRtf());
        QVERIFY(!document->isUndoRedoEnabled());
        QVERIFY(!document->isUndoAvailable());
        QCOMPARE(int(document->defaultTextOption().flags()), 0);
        QCOMPARE(int(document->begin().blockFormat().pageBreakPolicy()), 0);
        QCOMPARE(int(document->begin().next().blockFormat().pageBreakPolicy()),
                 int(QTextFormat::PageBreak_AlwaysBefore));
        QCOMPARE(textOf(*document), "One\nTwo"_s);
    }

    void copyAndInPlaceGiveTheSameBytes()
    {
        const Document document =
            runs({foreground(Qt::green), fixedPitch(family("Quibble Mono")), QTextCharFormat()});
        const QByteArray copied = write(*document);
        QCOMPARE(write(*document, inPlace()), copied);
        QCOMPARE(write(*document, inPlace()), copied);
    }

    void writerCanWriteSeveralTimes()
    {
        const Document first = runs({family("Quibble Serif")});
        ORVTextRtfWriter writer;
        QCOMPARE(writeBy(writer, first), write(*first));
        // The default font comes first again, in front of the fonts of the first document.
        QCOMPARE(
            writeBy(writer, runs({foreground(Qt::red)})),
            documentHead(defaultFontEntry() + fontEntry(1, DefaultFamily) + fontEntry(2, "Quibble Serif"),
                         blackAndWhite() + "\\red255\\green0\\blue0;")
                + firstParagraph() + "{\\f0\\fs24\\cf3 a}}");
    }

    void tablesOfAWriterGrow()
    {
        const Document document = runs({family("Quibble Serif"), foreground(Qt::red)});
        ORVTextRtfWriter writer;
        QByteArray fonts;
        for (int i = 0; i < 3; ++i) {
            const QByteArray rtf = writeBy(writer, document);
            fonts += fontEntry(i, DefaultFamily);
            QCOMPARE(fontTableOf(rtf), fonts + fontEntry(i + 1, "Quibble Serif"));
            QCOMPARE(colorTableOf(rtf), blackAndWhite() + "\\red255\\green0\\blue0;");
            QCOMPARE(bodyOf(rtf),
                     firstParagraph() + "{\\f" + QByteArray::number(i + 1) + "\\fs24 a}{\\f0\\fs24\\cf3 b}");
        }
    }

    void notesAreCountedForEachWrite()
    {
        QTextCharFormat format;
        format.setProperty(ORVRtfProperty::AnnotationAnchor, true);
        format.setProperty(ORVRtfProperty::NoteContent, "{\\rtf1 Note}"_b);
        const Document document = runs({format});
        ORVTextRtfWriter writer;
        for (int i = 0; i < 2; ++i) {
            const QByteArray body = bodyOf(writeBy(writer, document));
            QVERIFY2(body.contains("{{\\*\\atrfstart 1}"), body.constData());
            QVERIFY2(body.contains("{\\*\\atrfend 1}"), body.constData());
            QVERIFY2(body.contains("{\\*\\atnref 1}"), body.constData());
        }
    }

    void noDevice()
    {
        ORVTextRtfWriter writer;
        QVERIFY(!writer.write(newDocument().data(), false));
        QVERIFY(!writer.write(newDocument().data(), true));
        QVERIFY(!writer.write(nullptr, false));
    }

    void noDocument()
    {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        ORVTextRtfWriter writer(&buffer);
        QVERIFY(!writer.write(nullptr, false));
        QVERIFY(!writer.write(nullptr, true));
        QCOMPARE(buffer.data(), QByteArray());
    }

    void closedDeviceIsOpened()
    {
        QBuffer buffer;
        ORVTextRtfWriter writer(&buffer);
        QVERIFY(writer.write(newDocument().data(), false));
        QVERIFY(buffer.isOpen());
        QVERIFY(buffer.isWritable());
        QVERIFY(!buffer.isReadable());
        QCOMPARE(wellFormed(buffer.data()), write(*newDocument()));

        QBuffer closedAgain;
        QVERIFY(closedAgain.open(QIODevice::WriteOnly));
        closedAgain.close();
        writer.setDevice(&closedAgain);
        QVERIFY(writer.write(newDocument().data(), false));
        QVERIFY(closedAgain.isOpen());
        wellFormed(closedAgain.data());
    }

    void openDeviceStaysOpenAndIsWrittenOnFrom()
    {
        QBuffer buffer;
        QVERIFY(buffer.open(QIODevice::ReadWrite));
        buffer.write("before");
        QVERIFY(ORVTextRtfWriter(&buffer).write(newDocument().data(), false));
        QVERIFY(buffer.isOpen());
        QCOMPARE(buffer.data(), "before" + write(*newDocument()));
    }

    void deviceThatDoesNotOpen()
    {
        LockedDevice device;
        QVERIFY(!ORVTextRtfWriter(&device).write(newDocument().data(), false));
        QVERIFY(!device.wasWrittenTo);
    }

    void directoryAsDevice()
    {
        QTemporaryDir directory;
        QFile file(directory.path());
        QVERIFY(!ORVTextRtfWriter(&file).write(newDocument().data(), false));
        QVERIFY(!file.isOpen());
    }

    void deviceOpenForReadingOnly()
    {
        QBuffer buffer;
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        QTest::ignoreMessage(QtWarningMsg, "QIODevice::write (QBuffer): ReadOnly device");
        QVERIFY(!ORVTextRtfWriter(&buffer).write(newDocument().data(), false));
        QCOMPARE(buffer.data(), QByteArray());
    }

    ORV_ROWS(fullDevice)
    {
        const Rows add([](int refusal) {
            const Document document = runs({foreground(Qt::red), family("Quibble Serif"), QTextCharFormat()});
            const QByteArray whole = write(*document);
            const int beginning = int(qstrlen("{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0\n"));
            for (int limit = 0; limit <= whole.size(); ++limit) {
                LimitedDevice device(limit, LimitedDevice::Refusal(refusal));
                const bool written = ORVTextRtfWriter(&device).write(document.data(), false);
                // Only the beginning counts; what is refused later is to be seen on the device.
                QVERIFY2(written == (limit >= beginning), qPrintable(QString::number(limit)));
                QVERIFY2(whole.startsWith(device.taken()), device.taken().constData());
                if (refusal == LimitedDevice::TakesWhatFits && limit >= beginning)
                    QCOMPARE(device.taken().size(), limit);
                if (limit < beginning)
                    QVERIFY(device.taken().size() <= limit);
            }
        });
        add("takes what fits", int(LimitedDevice::TakesWhatFits));
        add("takes nothing of the piece that does not fit", int(LimitedDevice::TakesNothingOfAPiece));
    }

    ORV_ROWS(familyWord)
    {
        const Rows add([](const QString& name, int hint, const QByteArray& word) {
            const Document document = newDocument();
            QTextCharFormat format;
            compat::setFontFamily(format, name);
            format.setFontPointSize(12);
            format.setFontStyleHint(QFont::StyleHint(hint));
            ORVTextFormat::setDefaultCharFormat(document.data(), format);
            QCOMPARE(fontTableOf(write(*document)), fontEntry(0, name.toLatin1(), 2, word));
        });
        const QString plain = "Quibble"_s;
        add("any style", plain, int(QFont::AnyStyle), "\\fnil");
        add("serif", plain, int(QFont::Serif), "\\froman");
        add("sans serif", plain, int(QFont::SansSerif), "\\fswiss");
        add("typewriter", plain, int(QFont::TypeWriter), "\\fmodern");
        add("decorative", plain, int(QFont::Decorative), "\\fdecor");
        add("system", plain, int(QFont::System), "\\fnil");
        add("monospace", plain, int(QFont::Monospace), "\\fnil");
        add("cursive", plain, int(QFont::Cursive), "\\fnil");
        add("fantasy", plain, int(QFont::Fantasy), "\\fnil");
        const QByteArray tech = "\\ftech";
        add("symbol", "Quibble SYMBOL", int(QFont::Serif), tech);
        add("within a word", "Quibblesymbols", int(QFont::AnyStyle), tech);
        add("dingbat", "QDingBats", int(QFont::Decorative), tech);
        const QByteArray script = "\\fscript";
        add("script", "Quibble Script", int(QFont::SansSerif), script);
        add("script, any case", "qSCRIPTq", int(QFont::AnyStyle), script);
        add("symbol before script", "Script Symbol", int(QFont::AnyStyle), tech);
    }

    ORV_ROWS(fontsAndColours)
    {
        const Rows add([](const Document& document, const QByteArray& fonts, const QByteArray& colors,
                          const QByteArray& body) {
            const QByteArray rtf = write(*document);
            QCOMPARE(fontTableOf(rtf), fonts);
            QCOMPARE(colorTableOf(rtf), colors);
            QCOMPARE(bodyOf(rtf), firstParagraph() + body);
        });
        const QByteArray red = "\\red255\\green0\\blue0;";
        const QTextCharFormat mono = family("Quibble Mono");
        add("familyWordOfARun",
            runs(
                {hinted(family("Quibble Serif"), QFont::Serif), hinted(fixedPitch(mono), QFont::TypeWriter)}),
            defaultFontEntry() + fontEntry(1, "Quibble Serif", 2, "\\froman")
                + fontEntry(2, "Quibble Mono", 1, "\\fmodern"),
            "", "{\\f1\\fs24 a}{\\f2\\fs24 b}");
        add("fontsAreToldApartByFamilyAndPitch",
            runs({mono, fixedPitch(mono), family("quibble mono"), fixedPitch(family(DefaultFamily)),
                  family(DefaultFamily)}),
            defaultFontEntry() + fontEntry(1, "Quibble Mono") + fontEntry(2, "Quibble Mono", 1)
                + fontEntry(3, "quibble mono") + fontEntry(4, DefaultFamily, 1),
            "", "{\\f1\\fs24 a}{\\f2\\fs24 b}{\\f3\\fs24 c}{\\f4\\fs24 d}{\\f0\\fs24 e}");
        add("formatWithoutFamilyAddsNoFont", runs({fixedPitch(QTextCharFormat()), foreground(Qt::black)}),
            defaultFontEntry(), blackAndWhite(), "{\\f0\\fs24 a}{\\f0\\fs24\\cf1 b}");
        QTextCharFormat families;
        families.setProperty(QTextFormat::FontFamilies, QStringList({"Quibble Serif"_s, "Quibble Mono"_s}));
        QTextCharFormat italic(families);
        italic.setFontItalic(true);
        add("firstOfSeveralFamiliesCounts", runs({families, italic}),
            defaultFontEntry() + fontEntry(1, "Quibble Serif"), "", "{\\f1\\fs24 a}{\\f1\\fs24\\i1 b}");
        add("fontNameIsEscaped", runs({family("Qu\xc3\xa9 {1}")}),
            defaultFontEntry() + fontEntry(1, "Qu\\loch\\af1\\hich\\af1\\dbch\\af1\\uc1\\u233\\'E9 \\{1\\}"),
            "", "{\\f1\\fs24 a}");

        add("colorsAreListedOnce",
            runs({foreground(Qt::red), foreground(Qt::blue), foreground(QColor(255, 0, 0))}),
            defaultFontEntry(), blackAndWhite() + red + "\\red0\\green0\\blue255;",
            "{\\f0\\fs24\\cf3 a}{\\f0\\fs24\\cf4 b}{\\f0\\fs24\\cf3 c}");
        add("blackAndWhiteAreNotRepeated", runs({foreground(Qt::white), foreground(Qt::black)}),
            defaultFontEntry(), blackAndWhite(), "{\\f0\\fs24\\cf2 a}{\\f0\\fs24\\cf1 b}");
        add("transparencyIsIgnored",
            runs({foreground(QColor(255, 0, 0, 1)), foreground(Qt::red), foreground(QColor(0, 0, 0, 0))}),
            defaultFontEntry(), blackAndWhite() + red,
            "{\\f0\\fs24\\cf3 a}{\\f0\\fs24\\cf3 b}{\\f0\\fs24\\cf1 c}");
        QTextCharFormat onYellow = foreground(Qt::red);
        onYellow.setBackground(Qt::yellow);
        add("foregroundBeforeBackground", runs({onYellow}), defaultFontEntry(),
            blackAndWhite() + red + "\\red255\\green255\\blue0;", "{\\f0\\fs24\\cf3\\cb4\\highlight4 a}");
        // A brush without a colour is black in a document with colours.
        add("brushWithoutColour", runs({foreground(redGradient()), foreground(Qt::red)}), defaultFontEntry(),
            blackAndWhite() + red, "{\\f0\\fs24\\cf1 a}{\\f0\\fs24\\cf3 b}");
    }

    void defaultFormatIsFontZero()
    {
        const Document document = runs({QTextCharFormat(), family(DefaultFamily)});
        QTextCharFormat format = family("Quibble Stored");
        format.setFontPointSize(12);
        ORVTextFormat::setDefaultCharFormat(document.data(), format);
        const QByteArray rtf = write(*document);
        QCOMPARE(fontTableOf(rtf), fontEntry(0, "Quibble Stored") + fontEntry(1, DefaultFamily));
        QCOMPARE(bodyOf(rtf), firstParagraph() + "{\\f0\\fs24 a}{\\f1\\fs24 b}");
    }
};

ORV_TEST("writer_frame", TestWriterFrame, QGuiApplication)
#include "frame.moc"
