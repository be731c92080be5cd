#include "ORVTextPage.h"
#include "rtfwritinghelpers.h"

#include <QtCore/QSizeF>
#include <QtGui/QFontInfo>
#include <QtTest/QtTest>

using namespace rtftest;

Q_DECLARE_METATYPE(Qt::Alignment)

namespace {

ORVTextPage textPage(const QString& text, const QFont& font = QFont(QStringLiteral("Quibble Head"), 10))
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

class TestPagesetup : public QObject {
    Q_OBJECT

private slots:
    void pageIsAnEmptyValueAtFirst();
    void pageInAVariant();
    void pageAsDocumentProperty();

    void defaultPaperSize();
    void paperSizeOfADocument_data();
    void paperSizeOfADocument();
    void paperSizeOfNoDocument();
    void marginsDoNotChangeThePaperSize();

    void alignment_data();
    void alignment();
    void groupIsWrittenForBoth_data();
    void groupIsWrittenForBoth();
    void placeholders_data();
    void placeholders();
    void exportedExample();
    void fontOfTheHeader();
    void sizeInPixels();
    void headerAndFooterShareAFont();
    void fixedPitchIsAnotherFont();
    void emptyTextWritesNothing_data();
    void emptyTextWritesNothing();
    void otherTypesWriteNothing_data();
    void otherTypesWriteNothing();
    void blankIsText();
    void lineFeedIsEscaped();
};

void TestPagesetup::pageIsAnEmptyValueAtFirst()
{
    const ORVTextPage page;
    QVERIFY(page.text.isEmpty());
    QCOMPARE(page.option.alignment(), QTextOption().alignment());
    QCOMPARE(page.font, QFont());
    ORVTextPage copy = textPage(QStringLiteral("x"));
    copy.option.setAlignment(Qt::AlignRight);
    const ORVTextPage other(copy);
    copy = page;
    QVERIFY(copy.text.isEmpty());
    QCOMPARE(other.text, QStringLiteral("x"));
    QCOMPARE(int(other.option.alignment()), int(Qt::AlignRight));
    QCOMPARE(other.font, QFont(QStringLiteral("Quibble Head"), 10));
}

void TestPagesetup::pageInAVariant()
{
    const QVariant variant = QVariant::fromValue(textPage(QStringLiteral("x")));
    QCOMPARE(variant.typeName(), "ORVTextPage");
    const ORVTextPage page = qvariant_cast<ORVTextPage>(variant);
    QCOMPARE(page.text, QStringLiteral("x"));
    QCOMPARE(page.font, QFont(QStringLiteral("Quibble Head"), 10));
    QVERIFY(qvariant_cast<ORVTextPage>(QVariant()).text.isEmpty());
    QVERIFY(qvariant_cast<ORVTextPage>(QVariant(QStringLiteral("x"))).text.isEmpty());
}

void TestPagesetup::pageAsDocumentProperty()
{
    const QSharedPointer<QTextDocument> document = documentWith("header", textPage(QStringLiteral("x")));
    QCOMPARE(document->property("header").value<ORVTextPage>().text, QStringLiteral("x"));
}

void TestPagesetup::defaultPaperSize()
{
    QCOMPARE(ORVTextRtfWriter::defaultPaperSize(false), QSize(12240, 15840));
    QCOMPARE(ORVTextRtfWriter::defaultPaperSize(true), QSize(8640, 12960));
}

void TestPagesetup::paperSizeOfADocument_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QSize>("twips");
    const QSize letter(12240, 15840);
    QTest::newRow("none") << QVariant() << letter;
    QTest::newRow("A4") << QVariant(QSizeF(595.3, 841.9)) << QSize(11906, 16838);
    QTest::newRow("half twips go away from zero") << QVariant(QSizeF(0.025, -0.025)) << QSize(1, -1);
    QTest::newRow("more halves") << QVariant(QSizeF(0.125, -0.075)) << QSize(3, -2);
    QTest::newRow("less than half") << QVariant(QSizeF(0.0249, 0.0749)) << QSize(0, 1);
    QTest::newRow("zero") << QVariant(QSizeF(0, 0)) << QSize(0, 0);
    QTest::newRow("beyond every integer") << QVariant(QSizeF(1e300, qQNaN())) << QSize(2147483647, 0);
    QTest::newRow("text") << QVariant(QStringLiteral("A4")) << letter;
    QTest::newRow("number") << QVariant(595.3) << letter;
}

void TestPagesetup::paperSizeOfADocument()
{
    QFETCH(QVariant, value);
    QFETCH(QSize, twips);
    const QSharedPointer<QTextDocument> document = documentWith("paperSize", value);
    QCOMPARE(ORVTextRtfWriter::paperSizeForDocument(document.data()), twips);
    const QByteArray words = "}\n\\paperw" + QByteArray::number(twips.width()) + "\\paperh"
        + QByteArray::number(twips.height()) + "\\margl1800";
    const QByteArray rtf = write(*document);
    QVERIFY2(rtf.contains(words), rtf.constData());
}

void TestPagesetup::paperSizeOfNoDocument()
{
    QCOMPARE(ORVTextRtfWriter::paperSizeForDocument(nullptr), QSize(12240, 15840));
}

void TestPagesetup::marginsDoNotChangeThePaperSize()
{
    const QSharedPointer<QTextDocument> document = documentWith("paperSize", QSizeF(100, 200));
    document->setProperty("leftMargin", 10.0);
    document->setProperty("topMargin", 20.0);
    QCOMPARE(ORVTextRtfWriter::paperSizeForDocument(document.data()), QSize(2000, 4000));
}

void TestPagesetup::alignment_data()
{
    QTest::addColumn<Qt::Alignment>("alignment");
    QTest::addColumn<QByteArray>("word");
    QTest::newRow("left") << Qt::Alignment(Qt::AlignLeft) << QByteArray("\\ql");
    QTest::newRow("right") << Qt::Alignment(Qt::AlignRight) << QByteArray("\\qr");
    QTest::newRow("centre") << Qt::Alignment(Qt::AlignHCenter) << QByteArray("\\qc");
    QTest::newRow("justified") << Qt::Alignment(Qt::AlignJustify) << QByteArray();
    QTest::newRow("none") << Qt::Alignment() << QByteArray();
    QTest::newRow("vertical only") << Qt::Alignment(Qt::AlignVCenter) << QByteArray();
    QTest::newRow("centre both ways") << Qt::Alignment(Qt::AlignCenter) << QByteArray("\\qc");
    QTest::newRow("right and absolute")
        << Qt::Alignment(Qt::AlignRight | Qt::AlignAbsolute) << QByteArray("\\qr");
    QTest::newRow("left and right") << Qt::Alignment(Qt::AlignLeft | Qt::AlignRight) << QByteArray();
}

void TestPagesetup::alignment()
{
    QFETCH(Qt::Alignment, alignment);
    QFETCH(QByteArray, word);
    ORVTextPage page = textPage(QStringLiteral("x"));
    page.option.setAlignment(alignment);
    QCOMPARE(writeBody(*documentWith("header", page)),
             "{\\header{\\pard" + word + "{\\f1\\fs20 x\\par}}}\n" + emptyBody());
}

void TestPagesetup::groupIsWrittenForBoth_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("header") << QByteArray("header");
    QTest::newRow("footer") << QByteArray("footer");
}

void TestPagesetup::groupIsWrittenForBoth()
{
    QFETCH(QByteArray, name);
    const QSharedPointer<QTextDocument> document =
        documentWith(name.constData(), textPage(QString::fromUtf8("a {b}\t\xc3\xa9")));
    // The escapes name the default font, whatever the font of the text is.
    QCOMPARE(write(*document),
             documentHead(defaultFontEntry() + headFont()) + "{\\" + name
                 + "{\\pard\\ql{\\f1\\fs20 a \\{b\\}\\tab \\loch\\af0\\hich\\af0\\dbch\\af0\\uc1\\u233\\'E9"
                   "\\par}}}\n"
                 + emptyBody() + '}');
}

void TestPagesetup::placeholders_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("exportingMode");
    QTest::addColumn<QByteArray>("rtf");
    const QString tags = QStringLiteral("<$p>/<$pagecount>");
    const QByteArray fields = "{\\chpgn}/{\\field{\\*\\fldinst{NUMPAGES}}{\\fldrslt 1}}";
    const QString characters = QString(QChar(0xe000)) + QLatin1Char('/') + QChar(0xe001);
    QTest::newRow("stored") << tags << false << tags.toLatin1();
    QTest::newRow("exported") << tags << true << fields;
    QTest::newRow("characters, stored") << characters << false << fields;
    QTest::newRow("characters, exported") << characters << true << fields;
}

void TestPagesetup::placeholders()
{
    QFETCH(QString, text);
    QFETCH(bool, exportingMode);
    QFETCH(QByteArray, rtf);
    WriteSettings settings;
    settings.exportingMode = exportingMode;
    QCOMPARE(writeBody(*documentWith("footer", textPage(text)), settings),
             "{\\footer{\\pard\\ql{\\f1\\fs20 " + rtf + "\\par}}}\n" + emptyBody());
}

void TestPagesetup::exportedExample()
{
    ORVTextPage page = textPage(QStringLiteral("Page <$p> of <$pagecount>"));
    page.option.setAlignment(Qt::AlignHCenter);
    QCOMPARE(writeBody(*documentWith("header", page), exporting()),
             "{\\header{\\pard\\qc{\\f1\\fs20 Page {\\chpgn} of "
             "{\\field{\\*\\fldinst{NUMPAGES}}{\\fldrslt 1}}\\par}}}\n"
                 + emptyBody());
}

void TestPagesetup::fontOfTheHeader()
{
    // The default font of the document is not entered twice, whatever the size.
    const QFont font(QString::fromLatin1(DefaultFamily), 30);
    QCOMPARE(write(*documentWith("header", textPage(QStringLiteral("x"), font))),
             documentHead() + "{\\header{\\pard\\ql{\\f0\\fs60 x\\par}}}\n" + emptyBody() + '}');
}

void TestPagesetup::sizeInPixels()
{
    QFont font(QStringLiteral("Quibble Head"));
    font.setPixelSize(20);
    const int points = QFontInfo(font).pointSize();
    QVERIFY(points > 0);
    QCOMPARE(writeBody(*documentWith("header", textPage(QStringLiteral("x"), font))),
             "{\\header{\\pard\\ql{\\f1\\fs" + QByteArray::number(2 * points) + " x\\par}}}\n" + emptyBody());
}

void TestPagesetup::headerAndFooterShareAFont()
{
    const QSharedPointer<QTextDocument> document = documentWith("header", textPage(QStringLiteral("x")));
    QFont larger(QStringLiteral("Quibble Head"));
    larger.setPointSizeF(10.5);
    document->setProperty("footer", QVariant::fromValue(textPage(QStringLiteral("y"), larger)));
    QCOMPARE(write(*document),
             documentHead(defaultFontEntry() + headFont())
                 + "{\\header{\\pard\\ql{\\f1\\fs20 x\\par}}}\n{\\footer{\\pard\\ql{\\f1\\fs22 y\\par}}}\n"
                 + emptyBody() + '}');
}

void TestPagesetup::fixedPitchIsAnotherFont()
{
    QFont font(QString::fromLatin1(DefaultFamily), 10);
    font.setFixedPitch(true);
    QCOMPARE(write(*documentWith("footer", textPage(QStringLiteral("x"), font))),
             documentHead(defaultFontEntry() + "{\\f1\\fnil\\fcharset1252\\fprq1 Quibble Sans;}")
                 + "{\\footer{\\pard\\ql{\\f1\\fs20 x\\par}}}\n" + emptyBody() + '}');
}

void TestPagesetup::emptyTextWritesNothing_data()
{
    groupIsWrittenForBoth_data();
}

void TestPagesetup::emptyTextWritesNothing()
{
    QFETCH(QByteArray, name);
    QCOMPARE(write(*documentWith(name.constData(), textPage(QString()))), documentHead() + emptyBody() + '}');
}

void TestPagesetup::otherTypesWriteNothing_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("text") << QVariant(QStringLiteral("Top"));
    QTest::newRow("number") << QVariant(1);
    QTest::newRow("font") << QVariant(QFont(QStringLiteral("Quibble Head")));
    QTest::newRow("list") << QVariant(QVariantList() << QVariant::fromValue(textPage(QStringLiteral("x"))));
}

void TestPagesetup::otherTypesWriteNothing()
{
    QFETCH(QVariant, value);
    const QSharedPointer<QTextDocument> document = documentWith("header", value);
    document->setProperty("footer", value);
    QCOMPARE(write(*document), documentHead() + emptyBody() + '}');
}

void TestPagesetup::blankIsText()
{
    QCOMPARE(writeBody(*documentWith("header", textPage(QStringLiteral(" ")))),
             "{\\header{\\pard\\ql{\\f1\\fs20  \\par}}}\n" + emptyBody());
}

void TestPagesetup::lineFeedIsEscaped()
{
    QCOMPARE(writeBody(*documentWith("header", textPage(QStringLiteral("a\nb")))),
             "{\\header{\\pard\\ql{\\f1\\fs20 a\\'0Ab\\par}}}\n" + emptyBody());
}

QTEST_MAIN(TestPagesetup)
#include "tst_pagesetup.moc"
