#include "ORVTextPage.h"
#include "testsupport.h"

using namespace rtftest;

Q_DECLARE_METATYPE(Qt::Alignment)

namespace {

ORVTextPage textPage(const QString& text, const QFont& font = QFont("Quibble Head"_s, 10))
{
    ORVTextPage page;
    page.text = text;
    page.font = font;
    return page;
}

/*! An empty document with a page header or footer, or something else, under \a property. */
QSharedPointer<QTextDocument> documentWith(const char* property, const QVariant& value)
{
    const QSharedPointer<QTextDocument> document = newDocument();
    document->setProperty(property, value);
    return document;
}

QSharedPointer<QTextDocument> documentWith(const char* property, const ORVTextPage& page)
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
        const QSharedPointer<QTextDocument> document = documentWith("header", textPage("x"_s));
        QCOMPARE(document->property("header").value<ORVTextPage>().text, "x"_s);
    }

    void defaultPaperSize()
    {
        QCOMPARE(ORVTextRtfWriter::defaultPaperSize(false), QSize(12240, 15840));
        QCOMPARE(ORVTextRtfWriter::defaultPaperSize(true), QSize(8640, 12960));
    }

    void paperSizeOfADocument_data()
    {
        const Columns<QVariant, QSize> add("value", "twips");
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

    void paperSizeOfADocument()
    {
        FETCH(QVariant, value, QSize, twips);
        const QSharedPointer<QTextDocument> document = documentWith("paperSize", value);
        QCOMPARE(ORVTextRtfWriter::paperSizeForDocument(document.data()), twips);
        const QByteArray words = "}\n\\paperw" + QByteArray::number(twips.width()) + "\\paperh"
            + QByteArray::number(twips.height()) + "\\margl1800";
        const QByteArray rtf = write(*document);
        QVERIFY2(rtf.contains(words), rtf.constData());
    }

    void paperSizeOfNoDocument()
    {
        QCOMPARE(ORVTextRtfWriter::paperSizeForDocument(nullptr), QSize(12240, 15840));
    }

    void marginsDoNotChangeThePaperSize()
    {
        const QSharedPointer<QTextDocument> document = documentWith("paperSize", QSizeF(100, 200));
        document->setProperty("leftMargin", 10.0);
        document->setProperty("topMargin", 20.0);
        QCOMPARE(ORVTextRtfWriter::paperSizeForDocument(document.data()), QSize(2000, 4000));
    }

    void alignment_data()
    {
        const Columns<Qt::Alignment, QByteArray> add("alignment", "word");
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

    void alignment()
    {
        FETCH(Qt::Alignment, alignment, QByteArray, word);
        ORVTextPage page = textPage("x"_s);
        page.option.setAlignment(alignment);
        QCOMPARE(writeBody(*documentWith("header", page)),
                 "{\\header{\\pard" + word + "{\\f1\\fs20 x\\par}}}\n" + emptyBody());
    }

    void groupIsWrittenForBoth_data()
    {
        const Columns<QByteArray> add("name");
        add("header", "header");
        add("footer", "footer");
    }

    void groupIsWrittenForBoth()
    {
        FETCH(QByteArray, name);
        const QSharedPointer<QTextDocument> document =
            documentWith(name.constData(), textPage("a {b}\t\xc3\xa9"_s));
        // The escapes name the default font, whatever the font of the text is.
        QCOMPARE(
            write(*document),
            documentHead(defaultFontEntry() + headFont()) + "{\\" + name
                + "{\\pard\\ql{\\f1\\fs20 a \\{b\\}\\tab \\loch\\af0\\hich\\af0\\dbch\\af0\\uc1\\u233\\'E9"
                  "\\par}}}\n"
                + emptyBody() + '}');
    }

    void placeholders_data()
    {
        const Columns<QString, bool, QByteArray> add("text", "exportingMode", "rtf");
        const QString tags = "<$p>/<$pagecount>"_s;
        const QByteArray fields = "{\\chpgn}/{\\field{\\*\\fldinst{NUMPAGES}}{\\fldrslt 1}}";
        const QString characters = QString(QChar(0xe000)) + QLatin1Char('/') + QChar(0xe001);
        add("stored", tags, false, tags.toLatin1());
        add("exported", tags, true, fields);
        add("characters, stored", characters, false, fields);
        add("characters, exported", characters, true, fields);
    }

    void placeholders()
    {
        FETCH(QString, text, bool, exportingMode, QByteArray, rtf);
        WriteSettings settings;
        settings.exportingMode = exportingMode;
        QCOMPARE(writeBody(*documentWith("footer", textPage(text)), settings),
                 "{\\footer{\\pard\\ql{\\f1\\fs20 " + rtf + "\\par}}}\n" + emptyBody());
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

    void fontOfTheHeader()
    {
        // The default font of the document is not entered twice, whatever the size.
        const QFont font(QString::fromLatin1(DefaultFamily), 30);
        QCOMPARE(write(*documentWith("header", textPage("x"_s, font))),
                 documentHead() + "{\\header{\\pard\\ql{\\f0\\fs60 x\\par}}}\n" + emptyBody() + '}');
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

    void headerAndFooterShareAFont()
    {
        const QSharedPointer<QTextDocument> document = documentWith("header", textPage("x"_s));
        QFont larger("Quibble Head"_s);
        larger.setPointSizeF(10.5);
        document->setProperty("footer", QVariant::fromValue(textPage("y"_s, larger)));
        QCOMPARE(
            write(*document),
            documentHead(defaultFontEntry() + headFont())
                + "{\\header{\\pard\\ql{\\f1\\fs20 x\\par}}}\n{\\footer{\\pard\\ql{\\f1\\fs22 y\\par}}}\n"
                + emptyBody() + '}');
    }

    void fixedPitchIsAnotherFont()
    {
        QFont font(QString::fromLatin1(DefaultFamily), 10);
        font.setFixedPitch(true);
        QCOMPARE(write(*documentWith("footer", textPage("x"_s, font))),
                 documentHead(defaultFontEntry() + "{\\f1\\fnil\\fcharset1252\\fprq1 Quibble Sans;}")
                     + "{\\footer{\\pard\\ql{\\f1\\fs20 x\\par}}}\n" + emptyBody() + '}');
    }

    void emptyTextWritesNothing_data() { groupIsWrittenForBoth_data(); }

    void emptyTextWritesNothing()
    {
        FETCH(QByteArray, name);
        QCOMPARE(write(*documentWith(name.constData(), textPage(QString()))),
                 documentHead() + emptyBody() + '}');
    }

    void otherTypesWriteNothing_data()
    {
        const Columns<QVariant> add("value");
        add("text", QVariant("Top"_s));
        add("number", QVariant(1));
        add("font", QVariant(QFont("Quibble Head"_s)));
        add("list", QVariant(QVariantList() << QVariant::fromValue(textPage("x"_s))));
    }

    void otherTypesWriteNothing()
    {
        FETCH(QVariant, value);
        const QSharedPointer<QTextDocument> document = documentWith("header", value);
        document->setProperty("footer", value);
        QCOMPARE(write(*document), documentHead() + emptyBody() + '}');
    }

    void blankIsText()
    {
        QCOMPARE(writeBody(*documentWith("header", textPage(" "_s))),
                 "{\\header{\\pard\\ql{\\f1\\fs20  \\par}}}\n" + emptyBody());
    }

    void lineFeedIsEscaped()
    {
        QCOMPARE(writeBody(*documentWith("header", textPage("a\nb"_s))),
                 "{\\header{\\pard\\ql{\\f1\\fs20 a\\'0Ab\\par}}}\n" + emptyBody());
    }
};

ORV_TEST("pagesetup", TestPageSetup, QGuiApplication)
#include "pagesetup.moc"
