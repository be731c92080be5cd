#include "writerhelpers.h"

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
        for (int time = 0; time < 2; ++time)
            QCOMPARE(write(*document, inPlace()), documentOfAnEditorAsRtf());
        QVERIFY(!document->isUndoRedoEnabled());
        QVERIFY(!document->isUndoAvailable());
        QCOMPARE(int(document->defaultTextOption().flags()), 0);
        QCOMPARE(int(document->begin().blockFormat().pageBreakPolicy()), 0);
        QCOMPARE(int(document->begin().next().blockFormat().pageBreakPolicy()),
                 int(QTextFormat::PageBreak_AlwaysBefore));
        QCOMPARE(textOf(*document), "One\nTwo"_s);
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
            QCOMPARE(colorTableOf(rtf), blackAndWhite() + RedEntry);
            QCOMPARE(bodyOf(rtf),
                     firstParagraph() + "{\\f" + QByteArray::number(i + 1) + "\\fs24 a}{\\f0\\fs24\\cf3 b}");
        }
    }

    void notesAreCountedForEachWrite()
    {
        const Document document = runs({charFormat(
            {{ORVRtfProperty::AnnotationAnchor, true}, {ORVRtfProperty::NoteContent, "{\\rtf1 Note}"_b}})});
        ORVTextRtfWriter writer;
        for (int i = 0; i < 2; ++i) {
            const QByteArray body = bodyOf(writeBy(writer, document));
            QVERIFY2(body.contains("{{\\*\\atrfstart 1}"), body.constData());
            QVERIFY2(body.contains("{\\*\\atrfend 1}"), body.constData());
            QVERIFY2(body.contains("{\\*\\atnref 1}"), body.constData());
        }
    }

    void nothingToWriteOrToWriteTo()
    {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        for (const bool inPlace : {false, true}) {
            QVERIFY(!ORVTextRtfWriter().write(newDocument().data(), inPlace));
            QVERIFY(!ORVTextRtfWriter(&buffer).write(nullptr, inPlace));
        }
        QVERIFY(!ORVTextRtfWriter().write(nullptr, false));
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
            const QTextCharFormat format =
                with(family(name), {{QTextFormat::FontPointSize, 12.0}, {QTextFormat::FontStyleHint, hint}});
            ORVTextFormat::setDefaultCharFormat(document.data(), format);
            QCOMPARE(fontTableOf(write(*document)), fontEntry(0, name.toLatin1(), 2, word));
        });
        const QString plain = "Quibble"_s;
        add("any style", plain, QFont::AnyStyle, "\\fnil");
        add("serif", plain, QFont::Serif, "\\froman");
        add("sans serif", plain, QFont::SansSerif, "\\fswiss");
        add("typewriter", plain, QFont::TypeWriter, "\\fmodern");
        add("decorative", plain, QFont::Decorative, "\\fdecor");
        add("system", plain, QFont::System, "\\fnil");
        add("monospace", plain, QFont::Monospace, "\\fnil");
        add("cursive", plain, QFont::Cursive, "\\fnil");
        add("fantasy", plain, QFont::Fantasy, "\\fnil");
        const QByteArray tech = "\\ftech";
        add("symbol", "Quibble SYMBOL", QFont::Serif, tech);
        add("within a word", "Quibblesymbols", QFont::AnyStyle, tech);
        add("dingbat", "QDingBats", QFont::Decorative, tech);
        const QByteArray script = "\\fscript";
        add("script", "Quibble Script", QFont::SansSerif, script);
        add("script, any case", "qSCRIPTq", QFont::AnyStyle, script);
        add("symbol before script", "Script Symbol", QFont::AnyStyle, tech);
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
        const QTextCharFormat mono = family("Quibble Mono");
        add("severalFonts",
            runs({family("Quibble Serif"), QTextCharFormat(), mono, family("Quibble Serif"),
                  family(DefaultFamily)}),
            defaultFontEntry() + fontEntry(1, "Quibble Serif") + fontEntry(2, "Quibble Mono"), "",
            "{\\f1\\fs24 a}{\\f0\\fs24 b}{\\f2\\fs24 c}{\\f1\\fs24 d}{\\f0\\fs24 e}");
        add("familyWordOfARun",
            runs({with(family("Quibble Serif"), {{QTextFormat::FontStyleHint, QFont::Serif}}),
                  with(fixedPitch(mono), {{QTextFormat::FontStyleHint, QFont::TypeWriter}})}),
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
        const QTextCharFormat families =
            charFormat({{QTextFormat::FontFamilies, QStringList({"Quibble Serif"_s, "Quibble Mono"_s})}});
        add("firstOfSeveralFamiliesCounts",
            runs({families, with(families, {{QTextFormat::FontItalic, true}})}),
            defaultFontEntry() + fontEntry(1, "Quibble Serif"), "", "{\\f1\\fs24 a}{\\f1\\fs24\\i1 b}");
        add("fontNameIsEscaped", runs({family("Qu\xc3\xa9 {1}")}),
            defaultFontEntry() + fontEntry(1, "Qu" + preamble(1) + "\\u233\\'E9 \\{1\\}"), "",
            "{\\f1\\fs24 a}");

        add("colorsAreListedOnce",
            runs({foreground(Qt::red), foreground(Qt::blue), foreground(QColor(255, 0, 0))}),
            defaultFontEntry(), blackAndWhite() + RedEntry + BlueEntry,
            "{\\f0\\fs24\\cf3 a}{\\f0\\fs24\\cf4 b}{\\f0\\fs24\\cf3 c}");
        add("blackAndWhiteAreNotRepeated", runs({foreground(Qt::white), foreground(Qt::black)}),
            defaultFontEntry(), blackAndWhite(), "{\\f0\\fs24\\cf2 a}{\\f0\\fs24\\cf1 b}");
        add("transparencyIsIgnored",
            runs({foreground(QColor(255, 0, 0, 1)), foreground(Qt::red), foreground(QColor(0, 0, 0, 0))}),
            defaultFontEntry(), blackAndWhite() + RedEntry,
            "{\\f0\\fs24\\cf3 a}{\\f0\\fs24\\cf3 b}{\\f0\\fs24\\cf1 c}");
        add("foregroundBeforeBackground",
            runs({with(foreground(Qt::red), {{QTextFormat::BackgroundBrush, QBrush(Qt::yellow)}})}),
            defaultFontEntry(), blackAndWhite() + RedEntry + YellowEntry,
            "{\\f0\\fs24\\cf3\\cb4\\highlight4 a}");
        // Nothing is registered for a brush without a colour, which is black in a document with colours.
        add("noColour", runs({foreground(redGradient())}), defaultFontEntry(), "", "{\\f0\\fs24 a}");
        add("brushWithoutColour", runs({foreground(redGradient()), foreground(Qt::red)}), defaultFontEntry(),
            blackAndWhite() + RedEntry, "{\\f0\\fs24\\cf1 a}{\\f0\\fs24\\cf3 b}");
    }

    void defaultFormatIsFontZero()
    {
        const Document document = runs({QTextCharFormat(), family(DefaultFamily)});
        ORVTextFormat::setDefaultCharFormat(
            document.data(), with(family("Quibble Stored"), {{QTextFormat::FontPointSize, 12.0}}));
        const QByteArray rtf = write(*document);
        QCOMPARE(fontTableOf(rtf), fontEntry(0, "Quibble Stored") + fontEntry(1, DefaultFamily));
        QCOMPARE(bodyOf(rtf), firstParagraph() + "{\\f0\\fs24 a}{\\f1\\fs24 b}");
    }
};

ORV_TEST("writer_frame", TestWriterFrame, QGuiApplication)
#include "frame.moc"
