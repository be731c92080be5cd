#include "QtFontCompat_p.h"
#include "rtfwritinghelpers.h"

#include "ORVRtfProperties.h"

#include <QtGui/QGuiApplication>
#include <QtTest/QtTest>

using namespace rtftest;

namespace {

QByteArray serifEntry()
{
    return "{\\f0\\fnil\\fcharset1252\\fprq2 Quibble Serif;}";
}

/*! Text with a footnote in line, whose text begins with blanks. */
QSharedPointer<QTextDocument> footnoteDocument()
{
    const QSharedPointer<QTextDocument> document = textDocument(QStringLiteral("a"));
    QTextCharFormat format;
    format.setProperty(ORVRtfProperty::InFootnote, true);
    QTextCursor cursor(document.data());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(QStringLiteral("  note"), format);
    return document;
}

QByteArray footnote(const QByteArray& text)
{
    return "{\\super\\chftn{\\footnote\\pard\\plain {\\super\\chftn\\f0\\fs24}" + text + "}}";
}

} // namespace

/*! The conversions to bytes that an application calls. */
class TestInmemoryWriting : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    void toRtfData();
    void toRtfDataOfNoDocument();
    void toRtfDataExporting();
    void toRtfDataInPlace();
    void exportedNotesBeginWithOneBlank();
    void toRtfCData();
    void toRtfCDataReadsBack();

    void textToRtf_data();
    void textToRtf();
    void textToRtfInAFont();
    void textToRtfIsNoExport();
};

void TestInmemoryWriting::initTestCase()
{
    QFont font;
    compat::setFamily(font, QString::fromLatin1(DefaultFamily));
    font.setPointSizeF(DefaultPointSize);
    QGuiApplication::setFont(font);
}

void TestInmemoryWriting::toRtfData()
{
    const QSharedPointer<QTextDocument> document = textDocument(QStringLiteral("Hello"));
    QCOMPARE(wellFormed(ORVTextRtf::toRtfData(document.data(), false, false)),
             documentHead() + firstParagraph() + "{\\f0\\fs24 Hello}}");
    QCOMPARE(wellFormed(ORVTextRtf::toRtfData(newDocument().data(), false, false)),
             documentHead() + firstParagraph() + "\\f0\\fs24}");
}

void TestInmemoryWriting::toRtfDataOfNoDocument()
{
    for (bool inPlace : {false, true}) {
        for (bool exportingMode : {false, true})
            QVERIFY(ORVTextRtf::toRtfData(nullptr, inPlace, exportingMode).isEmpty());
        QVERIFY(ORVTextRtf::toRtfCData(nullptr, inPlace).isEmpty());
    }
}

void TestInmemoryWriting::toRtfDataExporting()
{
    QTextCharFormat format;
    format.setProperty(ORVRtfProperty::RevisionLevel, 1);
    const QSharedPointer<QTextDocument> document = textDocument(QStringLiteral("<$p>"), format);
    QCOMPARE(bodyOf(wellFormed(ORVTextRtf::toRtfData(document.data(), false, false))),
             firstParagraph() + "{\\f0\\fs24\\*\\orvrevlvl1 <$p>}");
    QCOMPARE(bodyOf(wellFormed(ORVTextRtf::toRtfData(document.data(), false, true))),
             firstParagraph() + "{\\f0\\fs24\\cf3 {\\chpgn}}");
}

void TestInmemoryWriting::toRtfDataInPlace()
{
    const QSharedPointer<QTextDocument> document = textDocument(QStringLiteral("Hello"));
    const QByteArray copied = ORVTextRtf::toRtfData(document.data(), false, false);
    QVERIFY(document->isUndoRedoEnabled());
    QVERIFY(document->isUndoAvailable());
    QCOMPARE(wellFormed(ORVTextRtf::toRtfData(document.data(), true, false)), copied);
    QVERIFY(!document->isUndoRedoEnabled());
}

void TestInmemoryWriting::exportedNotesBeginWithOneBlank()
{
    const QSharedPointer<QTextDocument> document = footnoteDocument();
    const QByteArray anchor = firstParagraph() + "{\\f0\\fs24 a}";
    QCOMPARE(bodyOf(wellFormed(ORVTextRtf::toRtfData(document.data(), false, false))),
             anchor + footnote("\\f0\\fs24   note"));
    QCOMPARE(bodyOf(wellFormed(ORVTextRtf::toRtfData(document.data(), false, true))),
             anchor + footnote(" \\f0\\fs24 note"));
}

void TestInmemoryWriting::toRtfCData()
{
    const QSharedPointer<QTextDocument> document = footnoteDocument();
    // As it is stored: no placeholder becomes a field and no note is touched.
    QTextCursor(document.data()).insertText(QStringLiteral("<$p>"));
    const QByteArray stored = ORVTextRtf::toRtfCData(document.data(), false);
    QCOMPARE(bodyOf(wellFormed(stored)),
             firstParagraph() + "{\\f0\\fs24 <$p>a}" + footnote("\\f0\\fs24   note"));
    QVERIFY(document->isUndoRedoEnabled());
    QCOMPARE(ORVTextRtf::toRtfCData(document.data(), true), stored);
    QVERIFY(!document->isUndoRedoEnabled());
}

void TestInmemoryWriting::toRtfCDataReadsBack()
{
    const QString text = QString::fromUtf8("{One}\n\xc3\xa9\xe2\x82\xac\\ \xf0\x9f\x98\x80\n\n\tend");
    const QSharedPointer<QTextDocument> document = textDocument(text);
    const QByteArray stored = ORVTextRtf::toRtfCData(document.data(), false);
    const QSharedPointer<QTextDocument> back = newDocument();
    QVERIFY(ORVTextRtf::fromRtfCData(wellFormed(stored), back.data()));
    QCOMPARE(textOf(*back), text);
    QCOMPARE(ORVTextRtf::rtfCDataText(stored), text);
}

void TestInmemoryWriting::textToRtf_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("body");
    QTest::newRow("nothing") << QString() << QByteArray("\\f0\\fs24");
    QTest::newRow("one line") << QStringLiteral("a {b}") << QByteArray("{\\f0\\fs24 a \\{b\\}}");
    QTest::newRow("two lines") << QStringLiteral("a\nb")
                               << QByteArray("{\\f0\\fs24 a}\n\\par\\plain {\\f0\\fs24 b}");
    QTest::newRow("ends with a line feed")
        << QStringLiteral("a\n") << QByteArray("{\\f0\\fs24 a}\n\\par\\plain \\f0\\fs24");
    QTest::newRow("looks like HTML") << QStringLiteral("<b>a</b>") << QByteArray("{\\f0\\fs24 <b>a</b>}");
}

void TestInmemoryWriting::textToRtf()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, body);
    QCOMPARE(wellFormed(ORVTextRtf::textToRtf(text, nullptr)),
             documentHead() + firstParagraph() + body + '}');
}

void TestInmemoryWriting::textToRtfInAFont()
{
    const QFont font(QStringLiteral("Quibble Serif"), 14);
    QCOMPARE(wellFormed(ORVTextRtf::textToRtf(QStringLiteral("a\nb"), &font)),
             documentHead(serifEntry()) + firstParagraph() + "{\\f0\\fs28 a}\n\\par\\plain {\\f0\\fs28 b}}");
}

void TestInmemoryWriting::textToRtfIsNoExport()
{
    QCOMPARE(bodyOf(wellFormed(ORVTextRtf::textToRtf(QStringLiteral("<$p>"), nullptr))),
             firstParagraph() + "{\\f0\\fs24 <$p>}");
}

QTEST_MAIN(TestInmemoryWriting)
#include "tst_inmemory_writing.moc"
