#include "ORVPagePainter.h"
#include "ORVTextPage.h"
#include "ORVTextRtfReader.h"
#include "testsupport.h"

namespace {

QVariant marginText(const char* text, Qt::Alignment alignment, const char* family)
{
    ORVTextPage page;
    page.text = QString::fromLatin1(text);
    page.option.setAlignment(alignment);
    page.font = QFont(QString::fromLatin1(family));
    return QVariant::fromValue(page);
}

} // namespace

/*! The page that a document or a reader has. */
class TestDocumentPage : public QObject {
    Q_OBJECT

private slots:
    void pageOfReader()
    {
        QByteArray rtf("{\\rtf1\\paperw8400\\paperh11901\\margl1080\\margr720\\margt20\\margb-10 x}");
        QBuffer buffer(&rtf);
        QTextDocument document;
        ORVTextRtfReader reader(&buffer);
        QCOMPARE(ORVPageGeometry::of(reader).paperSize, QSizeF(612, 792));

        QVERIFY(reader.read(&document));

        const ORVPageGeometry page = ORVPageGeometry::of(reader);
        QCOMPARE(page.paperSize, QSizeF(420, 595.05));
        QCOMPARE(page.leftMargin, 54.0);
        QCOMPARE(page.rightMargin, 36.0);
        QCOMPARE(page.topMargin, 1.0);
        QCOMPARE(page.bottomMargin, -0.5);
    }

    void setupOfPlainDocument()
    {
        const QTextDocument document;

        const ORVPageSetup setup = ORVPageSetup::of(&document);

        QCOMPARE(setup.page.paperSize, QSizeF(612, 792));
        QCOMPARE(setup.header.text, QString());
        QCOMPARE(setup.footer.text, QString());
        QVERIFY(setup.firstPageHasMarginTexts);
        QCOMPARE(setup.firstNumber, 0);
    }

    void setupOfDocument()
    {
        QTextDocument document;
        document.setProperty("paperSize", QSizeF(300, 400));
        document.setProperty("topMargin", 36);
        document.setProperty("header", marginText("Head", Qt::AlignRight, "Quibble Head"));
        document.setProperty("footer", marginText("<$p>", Qt::AlignHCenter, "Quibble Foot"));
        document.setProperty("notOnFirstPage", true);
        document.setProperty("countFirstPage", true);

        const ORVPageSetup setup = ORVPageSetup::of(&document);

        QCOMPARE(setup.page.paperSize, QSizeF(300, 400));
        QCOMPARE(setup.page.topMargin, 36.0);
        QCOMPARE(setup.header.text, QString::fromLatin1("Head"));
        QCOMPARE(setup.header.alignment, Qt::Alignment(Qt::AlignRight));
        QCOMPARE(setup.header.font.family(), QString::fromLatin1("Quibble Head"));
        QCOMPARE(setup.footer.text, QString::fromLatin1("<$p>"));
        QCOMPARE(setup.footer.alignment, Qt::Alignment(Qt::AlignHCenter));
        QCOMPARE(setup.footer.font.family(), QString::fromLatin1("Quibble Foot"));
        QVERIFY(!setup.firstPageHasMarginTexts);
        QCOMPARE(setup.firstNumber, 1);
    }

    void setupOfNoDocument()
    {
        const ORVPageSetup setup = ORVPageSetup::of(nullptr);

        QCOMPARE(setup.page.paperSize, QSizeF(612, 792));
        QCOMPARE(setup.firstNumber, ORVPageSetup().firstNumber);
    }
};

ORV_TEST("documentpage", TestDocumentPage, QGuiApplication)
#include "documentpage.moc"
