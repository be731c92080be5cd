#include "ORVTextPage.h"
#include "testsupport.h"

using namespace rtftest;

Q_DECLARE_METATYPE(Qt::Alignment)

namespace {

typedef QSharedPointer<QTextDocument> Document;

ORVTextPage textPage(const QString& text, const QFont& font = QFont("Quibble Head"_s, 10))
{
    ORVTextPage page;
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

QByteArray emptyBody()
{
    return firstParagraph() + "\\f0\\fs24";
}

QByteArray headFont()
{
    return "{\\f1\\fnil\\fcharset1252\\fprq2 Quibble Head;}";
}

} // namespace

class TestPageSetup : public QObject {
    Q_OBJECT

private slots:
    void pageIsAnEmptyValueAtFirst()
    {
        const ORVTextPage page;
        QVERIFY(page.text.isEmpty());
        QCOMPARE(page.option.alignment(), QTextOption().alignment());
        QCOMPARE(page.font, QFont());
        ORVTextPage copy = textPage("x"_s);
        copy.option.setAlignment(Qt::AlignRight);
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

    void pageAsDocumentProperty()
    {
        const Document document = documentWith("header", textPage("x"_s));
        QCOMPARE(document->property("header").value<ORVTextPage>().text, "x"_s);
    }

    void defaultPaperSize()
    {
        QCOMPARE(ORVTextRtfWriter::defaultPaperSize(false), QSize(12240, 15840));
        QCOMPARE(ORVTextRtfWriter::defaultPaperSize(true), QSize(8640, 12960));
    }

    ORV_ROWS(paperSizeOfADocument)
    {
        const Rows add([](const QVariant& value, const QSize& twips) {
            const Document document = documentWith("paperSize", value);
            QCOMPARE(ORVTextRtfWriter::paperSizeForDocument(document.data()), twips);
            const QByteArray words = "}\n\\paperw" + QByteArray::number(twips.width()) + "\\paperh"
                + QByteArray::number(twips.height()) + "\\margl1800";
            const QByteArray rtf = write(*document);
            QVERIFY2(rtf.contains(words), rtf.constData());
        });
        const QSize letter(12240, 15840);
        add("none", QVariant(), letter);
        add("A4", QVariant(QSizeF(595.3, 841.9)), QSize(11906, 16838));
        add("half twips go away from zero", QVariant(QSizeF(0.025, -0.025)), QSize(1, -1));
        add("more halves", QVariant(QSizeF(0.125, -0.075)), QSize(3, -2));
        add("less than half", QVariant(QSizeF(0.0249, 0.0749)), QSize(0, 1));
        add("zero", QVariant(QSizeF(0, 0)), QSize(0, 0));
        add("beyond every integer", QVariant(QSizeF(1e300, qQNaN())), QSize(2147483647, 0));
        add("text", QVariant("A4"_s), letter);
        add("number", QVariant(595.3), letter);
    }

    void paperSizeOfNoDocument()
    {
        QCOMPARE(ORVTextRtfWriter::paperSizeForDocument(nullptr), QSize(12240, 15840));
    }

    void marginsDoNotChangeThePaperSize()
    {
        const Document document = documentWith("paperSize", QSizeF(100, 200));
        document->setProperty("leftMargin", 10.0);
        document->setProperty("topMargin", 20.0);
        QCOMPARE(ORVTextRtfWriter::paperSizeForDocument(document.data()), QSize(2000, 4000));
    }

    ORV_ROWS(alignment)
    {
        const Rows add([](Qt::Alignment alignment, const QByteArray& word) {
            ORVTextPage page = textPage("x"_s);
            page.option.setAlignment(alignment);
            QCOMPARE(writeBody(*documentWith("header", page)),
                     "{\\header{\\pard" + word + "{\\f1\\fs20 x\\par}}}\n" + emptyBody());
        });
        add("left", Qt::Alignment(Qt::AlignLeft), "\\ql");
        add("right", Qt::Alignment(Qt::AlignRight), "\\qr");
        add("centre", Qt::Alignment(Qt::AlignHCenter), "\\qc");
        add("justified", Qt::Alignment(Qt::AlignJustify), QByteArray());
        add("none", Qt::Alignment(), QByteArray());
        add("vertical only", Qt::Alignment(Qt::AlignVCenter), QByteArray());
        add("centre both ways", Qt::Alignment(Qt::AlignCenter), "\\qc");
        add("right and absolute", Qt::Alignment(Qt::AlignRight | Qt::AlignAbsolute), "\\qr");
        add("left and right", Qt::Alignment(Qt::AlignLeft | Qt::AlignRight), QByteArray());
    }

    ORV_ROWS(headersAndFooters)
    {
        const Rows add([](const Document& document, const QByteArray& fonts, const QByteArray& groups) {
            QCOMPARE(write(*document), documentHead(defaultFontEntry() + fonts) + groups + emptyBody() + '}');
        });
        // The escapes name the default font, whatever the font of the text is.
        const ORVTextPage special = textPage("a {b}\t\xc3\xa9"_s);
        const QByteArray escaped = "{\\pard\\ql{\\f1\\fs20 a \\{b\\}\\tab "
                                   "\\loch\\af0\\hich\\af0\\dbch\\af0\\uc1\\u233\\'E9\\par}}}\n";
        add("groupIsWrittenForBoth: header", documentWith("header", special), headFont(),
            "{\\header" + escaped);
        add("groupIsWrittenForBoth: footer", documentWith("footer", special), headFont(),
            "{\\footer" + escaped);
        // The default font of the document is not entered twice, whatever the size.
        const QFont large(QLatin1String(DefaultFamily), 30);
        add("fontOfTheHeader", documentWith("header", textPage("x"_s, large)), "",
            "{\\header{\\pard\\ql{\\f0\\fs60 x\\par}}}\n");
        const Document both = documentWith("header", textPage("x"_s));
        QFont larger("Quibble Head"_s);
        larger.setPointSizeF(10.5);
        both->setProperty("footer", QVariant::fromValue(textPage("y"_s, larger)));
        add("headerAndFooterShareAFont", both, headFont(),
            "{\\header{\\pard\\ql{\\f1\\fs20 x\\par}}}\n{\\footer{\\pard\\ql{\\f1\\fs22 y\\par}}}\n");
        QFont fixedPitch(QLatin1String(DefaultFamily), 10);
        fixedPitch.setFixedPitch(true);
        add("fixedPitchIsAnotherFont", documentWith("footer", textPage("x"_s, fixedPitch)),
            "{\\f1\\fnil\\fcharset1252\\fprq1 Quibble Sans;}", "{\\footer{\\pard\\ql{\\f1\\fs20 x\\par}}}\n");
        add("blankIsText", documentWith("header", textPage(" "_s)), headFont(),
            "{\\header{\\pard\\ql{\\f1\\fs20  \\par}}}\n");
        add("lineFeedIsEscaped", documentWith("header", textPage("a\nb"_s)), headFont(),
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
        const Rows add([](const QString& text, bool exportingMode, const QByteArray& rtf) {
            WriteSettings settings;
            settings.exportingMode = exportingMode;
            QCOMPARE(writeBody(*documentWith("footer", textPage(text)), settings),
                     "{\\footer{\\pard\\ql{\\f1\\fs20 " + rtf + "\\par}}}\n" + emptyBody());
        });
        const QString tags = "<$p>/<$pagecount>"_s;
        const QByteArray fields = "{\\chpgn}/{\\field{\\*\\fldinst{NUMPAGES}}{\\fldrslt 1}}";
        const QString characters = QString(QChar(0xe000)) + QLatin1Char('/') + QChar(0xe001);
        add("stored", tags, false, tags.toLatin1());
        add("exported", tags, true, fields);
        add("characters, stored", characters, false, fields);
        add("characters, exported", characters, true, fields);
    }

    void exportedExample()
    {
        ORVTextPage page = textPage("Page <$p> of <$pagecount>"_s);
        page.option.setAlignment(Qt::AlignHCenter);
        QCOMPARE(writeBody(*documentWith("header", page), exporting()),
                 "{\\header{\\pard\\qc{\\f1\\fs20 Page {\\chpgn} of "
                 "{\\field{\\*\\fldinst{NUMPAGES}}{\\fldrslt 1}}\\par}}}\n"
                     + emptyBody());
    }

    void sizeInPixels()
    {
        QFont font("Quibble Head"_s);
        font.setPixelSize(20);
        const int points = QFontInfo(font).pointSize();
        QVERIFY(points > 0);
        QCOMPARE(writeBody(*documentWith("header", textPage("x"_s, font))),
                 "{\\header{\\pard\\ql{\\f1\\fs" + QByteArray::number(2 * points) + " x\\par}}}\n"
                     + emptyBody());
    }
};

ORV_TEST("pagesetup", TestPageSetup, QGuiApplication)
#include "pagesetup.moc"
