#include "ORVTextPage.h"
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
    cursor.setBlockFormat(
        blockFormat({{QTextFormat::PageBreakPolicy, int(QTextFormat::PageBreak_AlwaysAfter)}}));
    cursor.insertText("One"_s);
    cursor.insertBlock(QTextBlockFormat());
    cursor.insertText("Two"_s);
    return document;
}

const WriteSettings InPlace = settingsWith(&WriteSettings::inPlace);

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

ORVTextPage textPage(const QString& text, const QFont& font = QFont("Quibble Head"_s, 10),
                     Qt::Alignment alignment = Qt::AlignLeft)
{
    ORVTextPage page;
    page.option.setAlignment(alignment);
    page.text = text;
    page.font = font;
    return page;
}

/*! An empty document with a page header or footer, or something else, under \a property. */
Document documentWith(const char* property, const QVariant& value)
{
    const Document document = newDocument();
    document->setProperty(property, value);
    return document;
}

Document documentWith(const char* property, const ORVTextPage& page)
{
    return documentWith(property, QVariant::fromValue(page));
}

const QByteArray EmptyBody = firstParagraph() + emptyRun();
const QByteArray HeadFont = fontEntry(1, "Quibble Head");

} // namespace

/*! What surrounds the body: devices, settings, page setup, and the tables of fonts and colours. */
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

    ORV_ROWS(exportingModeCanBeSwitchedOff)
    {
        const Rows add([](bool WriteSettings::*setting) {
            const Document document = textDocument("<$p>"_s);
            QTextCursor cursor(document.data());
            cursor.movePosition(QTextCursor::End);
            cursor.insertTable(1, 1);
            ORVTextRtfWriter writer;
            settingsWith(setting).applyTo(writer);
            writer.setExportingMode(false);
            QCOMPARE(
                writeBy(writer, document),
                write(*document,
                      setting == &WriteSettings::exportingMode ? WriteSettings() : settingsWith(setting)));
        });
        add("again", &WriteSettings::exportingMode);
        add("but not what else was set", &WriteSettings::paragraphBeforeTableEnded);
    }

    void onlyInPlaceChangesTheDocument()
    {
        const Document document = documentOfAnEditor();
        const auto breakPolicies = [&document] {
            return QList<int>({int(document->firstBlock().blockFormat().pageBreakPolicy()),
                               int(document->lastBlock().blockFormat().pageBreakPolicy())});
        };
        const QByteArray rtf = documentHead() + firstParagraph() + run("One")
            + "\n\\par\\pard\\plain \\pagebb\\ltrch\\loch " + run("Two") + '}';
        QCOMPARE(write(*document), rtf);
        QVERIFY(document->isUndoRedoEnabled());
        QVERIFY(document->isUndoAvailable());
        QCOMPARE(int(document->defaultTextOption().flags()),
                 int(QTextOption::ShowTabsAndSpaces | QTextOption::ShowLineAndParagraphSeparators));
        QCOMPARE(breakPolicies(), QList<int>({QTextFormat::PageBreak_AlwaysAfter, 0}));

        for (int time = 0; time < 2; ++time)
            QCOMPARE(write(*document, InPlace), rtf);
        QVERIFY(!document->isUndoRedoEnabled());
        QVERIFY(!document->isUndoAvailable());
        QCOMPARE(int(document->defaultTextOption().flags()), 0);
        QCOMPARE(breakPolicies(), QList<int>({0, QTextFormat::PageBreak_AlwaysBefore}));
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
        for (int time = 0; time < 2; ++time)
            QCOMPARE(bodyOf(writeBy(writer, document)), writeBody(*document));
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

    void pageIsAnEmptyValueAtFirst()
    {
        const ORVTextPage page;
        QVERIFY(page.text.isEmpty());
        QCOMPARE(page.option.alignment(), QTextOption().alignment());
        QCOMPARE(page.font, QFont());
        ORVTextPage copy = textPage("x"_s, QFont("Quibble Head"_s, 10), Qt::AlignRight);
        const ORVTextPage other(copy);
        copy = page;
        QVERIFY(copy.text.isEmpty());
        QCOMPARE(other.text, "x"_s);
        QCOMPARE(int(other.option.alignment()), int(Qt::AlignRight));
        QCOMPARE(other.font, QFont("Quibble Head"_s, 10));
    }

    void pageInAVariant()
    {
        const QVariant variant = QVariant::fromValue(textPage("x"_s));
        QCOMPARE(variant.typeName(), "ORVTextPage");
        const ORVTextPage page = qvariant_cast<ORVTextPage>(variant);
        QCOMPARE(page.text, "x"_s);
        QCOMPARE(page.font, QFont("Quibble Head"_s, 10));
        QVERIFY(qvariant_cast<ORVTextPage>(QVariant()).text.isEmpty());
        QVERIFY(qvariant_cast<ORVTextPage>(QVariant("x"_s)).text.isEmpty());
    }

    void defaultPaperSize()
    {
        QCOMPARE(ORVTextRtfWriter::defaultPaperSize(false), QSize(12240, 15840));
        QCOMPARE(ORVTextRtfWriter::defaultPaperSize(true), QSize(8640, 12960));
        QCOMPARE(ORVTextRtfWriter::paperSizeForDocument(nullptr), QSize(12240, 15840));
    }

    ORV_ROWS(paperSizeOfADocument)
    {
        const Rows add([](const QVariant& value, const QSize& twips) {
            const Document document = documentWith("paperSize", value);
            QCOMPARE(ORVTextRtfWriter::paperSizeForDocument(document.data()), twips);
            ORV_CONTAINS(write(*document),
                         "}\n\\paperw" + QByteArray::number(twips.width()) + "\\paperh"
                             + QByteArray::number(twips.height()) + "\\margl1800");
            document->setProperty("leftMargin", 10.0);
            document->setProperty("topMargin", 20.0);
            QCOMPARE(ORVTextRtfWriter::paperSizeForDocument(document.data()), twips);
        });
        const QSize letter(12240, 15840);
        add("none", QVariant(), letter);
        add("A4", QSizeF(595.3, 841.9), QSize(11906, 16838));
        add("half twips go away from zero", QSizeF(0.025, -0.025), QSize(1, -1));
        add("more halves", QSizeF(0.125, -0.075), QSize(3, -2));
        add("less than half", QSizeF(0.0249, 0.0749), QSize(0, 1));
        add("zero", QSizeF(0, 0), QSize(0, 0));
        add("beyond every integer", QSizeF(1e300, qQNaN()), QSize(2147483647, 0));
        add("text", "A4"_s, letter);
        add("number", 595.3, letter);
    }

    ORV_ROWS(margins)
    {
        const Rows add([](const QVariant& value, const QByteArray& twips) {
            const char* const names[] = {"leftMargin", "rightMargin", "topMargin", "bottomMargin"};
            const QList<QByteArray> words = {"\\margl", "\\margr", "\\margt", "\\margb"};
            const QList<QByteArray> defaults = {"1800", "1800", "1440", "1440"};
            for (int changed = 0; changed < 4; ++changed) {
                QByteArray expected = "\\paperw12240\\paperh15840";
                for (int i = 0; i < 4; ++i)
                    expected += words.at(i) + (i == changed ? twips : defaults.at(i));
                ORV_CONTAINS(write(*documentWith(names[changed], value)),
                             expected + "\\fet2\\ftnbj\\aenddoc\n");
            }
        });
        add("one inch", 72.0, "1440");
        add("zero", 0.0, "0");
        add("half a twip", 0.025, "1");
        add("less than half a twip", 0.02499, "0");
        add("minus half a twip", -0.025, "-1");
        add("minus one and a half twips", -0.075, "-2");
        add("integer", 36, "720");
        add("number as text", "36.5"_s, "730");
        add("no number", "wide"_s, "0");
        add("not a number", qQNaN(), "0");
        add("infinite", qInf(), "2147483647");
        add("below every integer", -1e300, "-2147483648");
    }

    ORV_ROWS(pageNumbering)
    {
        const Rows add(
            [](const QVariant& notOnFirstPage, const QVariant& countFirstPage, const QByteArray& words) {
                const Document document = documentWith("notOnFirstPage", notOnFirstPage);
                document->setProperty("countFirstPage", countFirstPage);
                ORV_CONTAINS(write(*document), "\\aenddoc\n" + words + '\n');
            });
        add("nothing said", QVariant(), QVariant(), "\\pgnrestart\\pgnstarts0");
        add("both false", false, false, "\\pgnrestart\\pgnstarts0");
        add("first page counted", QVariant(), true, "\\pgnrestart\\pgnstarts1");
        add("not on first page", true, QVariant(), "\\titlepg\\pgnrestart\\pgnstarts0");
        add("both", true, true, "\\titlepg\\pgnrestart\\pgnstarts1");
        add("integers", 1, 1, "\\titlepg\\pgnrestart\\pgnstarts1");
    }

    void pageSetupIsTheSameInPlace()
    {
        const Document document = documentWith("topMargin", 10.0);
        document->setProperty("notOnFirstPage", true);
        const QByteArray copied = write(*document);
        ORV_CONTAINS(copied, "\\margt200\\margb1440\\fet2\\ftnbj\\aenddoc\n\\titlepg");
        QCOMPARE(write(*document, InPlace), copied);
    }

    ORV_ROWS(alignment)
    {
        const Rows add([](Qt::Alignment alignment, const QByteArray& word) {
            const ORVTextPage page = textPage("x"_s, QFont("Quibble Head"_s, 10), alignment);
            QCOMPARE(writeBody(*documentWith("header", page)),
                     "{\\header{\\pard" + word + "{\\f1\\fs20 x\\par}}}\n" + EmptyBody);
        });
        add("left", Qt::AlignLeft, "\\ql");
        add("right", Qt::AlignRight, "\\qr");
        add("centre", Qt::AlignHCenter, "\\qc");
        add("justified", Qt::AlignJustify, QByteArray());
        add("none", Qt::Alignment(), QByteArray());
        add("vertical only", Qt::AlignVCenter, QByteArray());
        add("centre both ways", Qt::AlignCenter, "\\qc");
        add("right and absolute", Qt::Alignment(Qt::AlignRight | Qt::AlignAbsolute), "\\qr");
        add("left and right", Qt::Alignment(Qt::AlignLeft | Qt::AlignRight), QByteArray());
    }

    ORV_ROWS(headersAndFooters)
    {
        const Rows add([](const Document& document, const QByteArray& fonts, const QByteArray& groups) {
            QCOMPARE(write(*document), documentHead(defaultFontEntry() + fonts) + groups + EmptyBody + '}');
        });
        // The escapes name the default font, whatever the font of the text is.
        const ORVTextPage special = textPage("a {\xc3\xa9\xe2\x80\x94\t\\}"_s);
        const QByteArray escaped = "{\\pard\\ql{\\f1\\fs20 a \\{" + preamble()
            + "\\u233\\'E9\\hich\\f0 \\emdash \\loch\\f0 \\tab \\\\\\}\\par}}}\n";
        add("groupIsWrittenForBoth: header", documentWith("header", special), HeadFont,
            "{\\header" + escaped);
        add("groupIsWrittenForBoth: footer", documentWith("footer", special), HeadFont,
            "{\\footer" + escaped);
        // The default font of the document is not entered twice, whatever the size.
        const QFont large(QLatin1String(DefaultFamily), 30);
        add("fontOfTheHeader", documentWith("header", textPage("x"_s, large)), "",
            "{\\header{\\pard\\ql{\\f0\\fs60 x\\par}}}\n");
        const Document both = documentWith("header", textPage("x"_s));
        QFont larger("Quibble Head"_s);
        larger.setPointSizeF(10.5);
        both->setProperty("footer", QVariant::fromValue(textPage("y"_s, larger)));
        add("headerAndFooterShareAFont", both, HeadFont,
            "{\\header{\\pard\\ql{\\f1\\fs20 x\\par}}}\n{\\footer{\\pard\\ql{\\f1\\fs22 y\\par}}}\n");
        QFont fixedPitch(QLatin1String(DefaultFamily), 10);
        fixedPitch.setFixedPitch(true);
        add("fixedPitchIsAnotherFont", documentWith("footer", textPage("x"_s, fixedPitch)),
            fontEntry(1, DefaultFamily, 1), "{\\footer{\\pard\\ql{\\f1\\fs20 x\\par}}}\n");
        QFont inPixels("Quibble Head"_s);
        inPixels.setPixelSize(20);
        const int points = QFontInfo(inPixels).pointSize();
        QVERIFY(points > 0);
        add("sizeInPixels", documentWith("header", textPage("x"_s, inPixels)), HeadFont,
            "{\\header{\\pard\\ql{\\f1\\fs" + QByteArray::number(2 * points) + " x\\par}}}\n");
        add("blankIsText", documentWith("header", textPage(" "_s)), HeadFont,
            "{\\header{\\pard\\ql{\\f1\\fs20  \\par}}}\n");
        add("lineFeedIsEscaped", documentWith("header", textPage("a\nb"_s)), HeadFont,
            "{\\header{\\pard\\ql{\\f1\\fs20 a\\'0Ab\\par}}}\n");
        add("emptyTextWritesNothing: header", documentWith("header", textPage(QString())), "", "");
        add("emptyTextWritesNothing: footer", documentWith("footer", textPage(QString())), "", "");
        const auto addOther = [&add](const char* name, const QVariant& value) {
            const Document document = documentWith("header", value);
            document->setProperty("footer", value);
            add(name, document, "", "");
        };
        addOther("otherTypesWriteNothing: text", "Top"_s);
        addOther("otherTypesWriteNothing: number", 1);
        addOther("otherTypesWriteNothing: font", QFont("Quibble Head"_s));
        addOther("otherTypesWriteNothing: list", QVariantList({QVariant::fromValue(textPage("x"_s))}));
    }

    ORV_ROWS(placeholders)
    {
        const Rows add([](const QString& text, const WriteSettings& settings, const QByteArray& rtf) {
            QCOMPARE(writeBody(*documentWith("footer", textPage(text)), settings),
                     "{\\footer{\\pard\\ql{\\f1\\fs20 " + rtf + "\\par}}}\n" + EmptyBody);
        });
        const QString tags = "<$p>/<$pagecount>"_s;
        const QByteArray fields = "{\\chpgn}/{\\field{\\*\\fldinst{NUMPAGES}}{\\fldrslt 1}}";
        const QString characters = QString(QChar(0xe000)) + QLatin1Char('/') + QChar(0xe001);
        add("stored", tags, WriteSettings(), tags.toLatin1());
        add("exported", tags, exporting(), fields);
        add("characters, stored", characters, WriteSettings(), fields);
        add("characters, exported", characters, exporting(), fields);
    }

    void fontsOfHeaderAndFooterComeBeforeThoseOfTheText()
    {
        const Document document = runs({family("Quibble Serif")});
        document->setProperty("footer",
                              QVariant::fromValue(textPage("Bottom"_s, QFont("Quibble Foot"_s, 8))));
        document->setProperty("header", QVariant::fromValue(textPage("Top"_s)));
        QCOMPARE(write(*document),
                 documentHead(defaultFontEntry() + HeadFont + fontEntry(2, "Quibble Foot")
                              + fontEntry(3, "Quibble Serif"))
                     + "{\\header{\\pard\\ql{\\f1\\fs20 Top\\par}}}\n"
                       "{\\footer{\\pard\\ql{\\f2\\fs16 Bottom\\par}}}\n"
                     + firstParagraph() + "{\\f3\\fs24 a}}");
    }
};

ORV_TEST("writer_frame", TestWriterFrame, QGuiApplication)
#include "frame.moc"
