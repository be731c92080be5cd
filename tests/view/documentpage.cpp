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

QMarginsF marginsOf(const ORVPageGeometry& page)
{
    return {page.leftMargin, page.topMargin, page.rightMargin, page.bottomMargin};
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
        QCOMPARE(ORVPageGeometry::of(reader).paperSize, QSizeF(420, 595.05));
        QCOMPARE(marginsOf(ORVPageGeometry::of(reader)), QMarginsF(54, 1, 36, -0.5));
    }

    /*! A twip is a twentieth of a point. */
    void pageInTwips()
    {
        const auto page = ORVPageGeometry::fromTwips(QSize(8400, 11901), QMargins(1080, 720, 20, -10));
        QCOMPARE(page.paperSize, QSizeF(420, 595.05));
        QCOMPARE(marginsOf(page), QMarginsF(54, 36, 1, -0.5));
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
        QCOMPARE(setup.header.text, "Head"_s);
        QCOMPARE(setup.header.alignment, Qt::Alignment(Qt::AlignRight));
        QCOMPARE(setup.header.font.family(), "Quibble Head"_s);
        QCOMPARE(setup.footer.text, "<$p>"_s);
        QCOMPARE(setup.footer.alignment, Qt::Alignment(Qt::AlignHCenter));
        QCOMPARE(setup.footer.font.family(), "Quibble Foot"_s);
        QVERIFY(!setup.firstPageHasMarginTexts);
        QCOMPARE(setup.firstNumber, 1);
    }

    void setupOfNoDocument()
    {
        QCOMPARE(ORVPageGeometry::of(nullptr).paperSize, QSizeF(612, 792));
        QCOMPARE(ORVPageSetup::of(nullptr).page.paperSize, QSizeF(612, 792));
        QCOMPARE(ORVPageSetup::of(nullptr).firstNumber, ORVPageSetup().firstNumber);
    }
};

ORV_TEST("documentpage", TestDocumentPage, QGuiApplication)
#include "documentpage.moc"
