#include "ORV.h"
#include "ORVRtfProperties.h"
#include "rtfstory.h"

#include <QtCore/QMimeData>
#include <QtGui/QTextTable>
#include <QtTest/QtTest>

using namespace rtftest;

namespace {

const QByteArray Sample = "{\\rtf1\\ansi One {\\b two}}";
const QByteArray OtherSample = "{\\rtf1\\ansi Other}";
// One group is not closed.
const QByteArray Damaged = "{\\rtf1\\ansi {Half a text\\par and more}";
const QByteArray Garbage = "}no RTF";

QString ownType()
{
    return QString::fromLatin1("application/x-orvelline-markup-rtf");
}

/*! Mime data that remembers which types it was asked for. */
class RecordingMimeData : public QMimeData {
public:
    bool hasFormat(const QString& type) const override
    {
        asked << type;
        return QMimeData::hasFormat(type);
    }

    mutable QStringList asked;
};

/*! A paragraph of text, directly followed by a table of one cell, which the document ends with. */
QSharedPointer<QTextDocument> tableDocument()
{
    const QSharedPointer<QTextDocument> document = textDocument(QStringLiteral("before"));
    QTextCursor cursor(document.data());
    cursor.movePosition(QTextCursor::End);
    QTextTableFormat format;
    format.setBorder(0);
    cursor.insertTable(1, 1, format)->cellAt(0, 0).firstCursorPosition().insertText(QStringLiteral("cell"));
    return document;
}

/*! tableDocument() as RTF, \a end being what ends the paragraph in front of the table. */
QByteArray tableRtf(const QByteArray& end)
{
    const QByteArray definition =
        "\n\\trowd\\trgaph0\\trautofit1\\lastrow "
        "\\trbrdrt\\brdrnil \\trbrdrr\\brdrnil \\trbrdrb\\brdrnil \\trbrdrl\\brdrnil "
        "\n\\clvertalt \\clshdrawnil"
        "\\clbrdrt\\brdrnil \\clbrdrr\\brdrnil \\clbrdrb\\brdrnil \\clbrdrl\\brdrnil "
        "\\cellx4000\n";
    // The colours are those of the border that a table has in Qt, whether it is shown or not.
    return documentHead(defaultFontEntry(), blackAndWhite() + "\\red128\\green128\\blue128;")
        + firstParagraph() + run("before") + end + "\n\n" + definition + "\n\\pard\\plain \\intbl\\itap1"
        + run("cell") + "\\cell{" + definition + "\\row}\\pard}";
}

/*! Text that exporting would change: a placeholder, and a note that begins with blanks. */
QSharedPointer<QTextDocument> unexportedDocument()
{
    const QSharedPointer<QTextDocument> document = textDocument(QStringLiteral("<$p>"));
    QTextCharFormat note;
    note.setProperty(ORVRtfProperty::InFootnote, true);
    QTextCursor cursor(document.data());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(QStringLiteral("  note"), note);
    return document;
}

QByteArray unexportedRtf()
{
    return documentHead() + firstParagraph() + run("<$p>")
        + "{\\super\\chftn{\\footnote\\pard\\plain {\\super\\chftn\\f0\\fs24}\\f0\\fs24   note}}}";
}

} // namespace

/*! RTF on the clipboard, in both flavours. */
class TestClipboard : public QObject {
    Q_OBJECT

private slots:
    void plainFlavourHasEveryType();
    void plainFlavourIsConvertedOnce();
    void plainFlavourEndsTheParagraphBeforeATable();
    void plainFlavourIsNoExport();
    void plainFlavourLeavesTheDocumentAlone();
    void plainFlavourLeavesOtherTypesAlone();
    void plainFlavourReplacesAnOlderOne();
    void plainFlavourOfNothing();

    void ownFlavourHasItsTypeOnly();
    void ownFlavourIsToTheLetter();
    void ownFlavourIsNoExport();
    void ownFlavourInPlace();
    void ownFlavourOfNothing();

    void tableReadsBack_data();
    void tableReadsBack();

    void hasRtf_data();
    void hasRtf();
    void hasRtfAsksInOrderUpToTheFirst();

    void reading_data();
    void reading();
    void readingAsksInOrderUpToTheFirstSuccess();
    void readingReplacesTheContent();
    void readingIntoNoDocumentAsksNothing();
    void readingNoMimeData();

    void readingOneType_data();
    void readingOneType();
    void readingTheOwnFlavour();
};

void TestClipboard::plainFlavourHasEveryType()
{
    const QSharedPointer<QTextDocument> document = textDocument(QStringLiteral("Hello"));
    QMimeData mime;
    ORVTextRtf::setRtfMimeData(&mime, document.data());
    QCOMPARE(mime.formats(), ORV::rtfMimeTypes());
    const QByteArray expected = documentHead() + firstParagraph() + run("Hello") + "}";
    for (const QString& type : mime.formats())
        QCOMPARE(mime.data(type), expected);
}

void TestClipboard::plainFlavourIsConvertedOnce()
{
    QMimeData mime;
    ORVTextRtf::setRtfMimeData(&mime, textDocument(QStringLiteral("Hello")).data());
    // Byte arrays that stem from one conversion share their memory.
    const QByteArray first = mime.data(ORV::rtfMimeTypes().first());
    for (const QString& type : ORV::rtfMimeTypes())
        QCOMPARE(static_cast<const void*>(mime.data(type).constData()),
                 static_cast<const void*>(first.constData()));
}

void TestClipboard::plainFlavourEndsTheParagraphBeforeATable()
{
    QMimeData mime;
    ORVTextRtf::setRtfMimeData(&mime, tableDocument().data());
    for (const QString& type : ORV::rtfMimeTypes())
        QCOMPARE(wellFormed(mime.data(type)), tableRtf("\n\\par"));
}

void TestClipboard::plainFlavourIsNoExport()
{
    QMimeData mime;
    ORVTextRtf::setRtfMimeData(&mime, unexportedDocument().data());
    QCOMPARE(wellFormed(mime.data(ORV::rtfMimeTypes().first())), unexportedRtf());
}

void TestClipboard::plainFlavourLeavesTheDocumentAlone()
{
    const QSharedPointer<QTextDocument> document = textDocument(QStringLiteral("Hello"));
    QMimeData mime;
    ORVTextRtf::setRtfMimeData(&mime, document.data());
    QVERIFY(document->isUndoAvailable());
    QCOMPARE(textOf(*document), QStringLiteral("Hello"));
}

void TestClipboard::plainFlavourLeavesOtherTypesAlone()
{
    QMimeData mime;
    mime.setText(QStringLiteral("as text"));
    mime.setData(ownType(), Sample);
    ORVTextRtf::setRtfMimeData(&mime, textDocument(QStringLiteral("Hello")).data());
    QCOMPARE(mime.text(), QStringLiteral("as text"));
    QCOMPARE(mime.data(ownType()), Sample);
    QCOMPARE(mime.formats().size(), 2 + ORV::rtfMimeTypes().size());
}

void TestClipboard::plainFlavourReplacesAnOlderOne()
{
    QMimeData mime;
    for (const QString& type : ORV::rtfMimeTypes())
        mime.setData(type, Sample);
    ORVTextRtf::setRtfMimeData(&mime, newDocument().data());
    for (const QString& type : ORV::rtfMimeTypes())
        QCOMPARE(mime.data(type), documentHead() + firstParagraph() + emptyRun() + "}");
}

void TestClipboard::plainFlavourOfNothing()
{
    QMimeData mime;
    ORVTextRtf::setRtfMimeData(&mime, nullptr);
    QVERIFY(mime.formats().isEmpty());
    const QString type = ORV::rtfMimeTypes().first();
    mime.setData(type, Sample);
    ORVTextRtf::setRtfMimeData(&mime, nullptr);
    QCOMPARE(mime.formats(), QStringList(type));
    QCOMPARE(mime.data(type), Sample);
    ORVTextRtf::setRtfMimeData(nullptr, textDocument(QStringLiteral("Hello")).data());
    ORVTextRtf::setRtfMimeData(nullptr, nullptr);
}

void TestClipboard::ownFlavourHasItsTypeOnly()
{
    const QSharedPointer<QTextDocument> document = textDocument(QStringLiteral("Hello"));
    for (bool inPlace : {false, true}) {
        QMimeData mime;
        ORVTextRtf::setOrvellineMarkupRtfMimeData(&mime, document.data(), inPlace);
        QCOMPARE(mime.formats(), QStringList(ownType()));
        QCOMPARE(mime.data(ownType()), documentHead() + firstParagraph() + run("Hello") + "}");
    }
}

void TestClipboard::ownFlavourIsToTheLetter()
{
    for (bool inPlace : {false, true}) {
        QMimeData mime;
        ORVTextRtf::setOrvellineMarkupRtfMimeData(&mime, tableDocument().data(), inPlace);
        QCOMPARE(wellFormed(mime.data(ownType())), tableRtf(QByteArray()));
    }
}

void TestClipboard::ownFlavourIsNoExport()
{
    QMimeData mime;
    ORVTextRtf::setOrvellineMarkupRtfMimeData(&mime, unexportedDocument().data(), false);
    QCOMPARE(wellFormed(mime.data(ownType())), unexportedRtf());
}

void TestClipboard::ownFlavourInPlace()
{
    const QSharedPointer<QTextDocument> document = textDocument(QStringLiteral("Hello"));
    QMimeData mime;
    ORVTextRtf::setOrvellineMarkupRtfMimeData(&mime, document.data(), false);
    QVERIFY(document->isUndoAvailable());
    ORVTextRtf::setOrvellineMarkupRtfMimeData(&mime, document.data(), true);
    QVERIFY(!document->isUndoAvailable());
    QCOMPARE(textOf(*document), QStringLiteral("Hello"));
}

void TestClipboard::ownFlavourOfNothing()
{
    QMimeData mime;
    mime.setData(ownType(), Sample);
    const QSharedPointer<QTextDocument> document = textDocument(QStringLiteral("Hello"));
    for (bool inPlace : {false, true}) {
        ORVTextRtf::setOrvellineMarkupRtfMimeData(&mime, nullptr, inPlace);
        QCOMPARE(mime.data(ownType()), Sample);
        ORVTextRtf::setOrvellineMarkupRtfMimeData(nullptr, document.data(), inPlace);
        ORVTextRtf::setOrvellineMarkupRtfMimeData(nullptr, nullptr, inPlace);
    }
    QVERIFY(document->isUndoAvailable());
}

void TestClipboard::tableReadsBack_data()
{
    QTest::addColumn<bool>("own");
    QTest::addColumn<QString>("text");
    // Behind a table that is read there are two paragraphs: the one that Qt needs there, and a new one.
    QTest::newRow("own flavour") << true << "before\ncell\n\n";
    // Where the paragraph in front of it is ended, Qt needs another one there, too.
    QTest::newRow("plain flavour") << false << "before\n\ncell\n\n";
}

void TestClipboard::tableReadsBack()
{
    QFETCH(bool, own);
    QFETCH(QString, text);
    QMimeData mime;
    const QSharedPointer<QTextDocument> back = newDocument();
    if (own) {
        ORVTextRtf::setOrvellineMarkupRtfMimeData(&mime, tableDocument().data(), false);
        QVERIFY(ORVTextRtf::fromOrvellineMarkupRtfMimeData(&mime, back.data()));
    } else {
        ORVTextRtf::setRtfMimeData(&mime, tableDocument().data());
        QVERIFY(ORVTextRtf::fromRtfMimeData(&mime, back.data()));
    }
    QCOMPARE(textOf(*back), text);
    QCOMPARE(back->rootFrame()->childFrames().size(), 1);
    QVERIFY(qobject_cast<QTextTable*>(back->rootFrame()->childFrames().first()));
}

void TestClipboard::hasRtf_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<bool>("expected");
    for (const QString& type : ORV::rtfMimeTypes()) {
        QTest::newRow(qPrintable(type)) << type << Sample << true;
        QTest::newRow(qPrintable(type + QStringLiteral(", empty"))) << type << QByteArray() << true;
        QTest::newRow(qPrintable(type + QStringLiteral(", garbage"))) << type << Garbage << true;
    }
    QTest::newRow("own flavour") << ownType() << Sample << false;
    QTest::newRow("text") << QStringLiteral("text/plain") << Sample << false;
    QTest::newRow("like RTF") << QStringLiteral("text/rtfd") << Sample << false;
}

void TestClipboard::hasRtf()
{
    QFETCH(QString, type);
    QFETCH(QByteArray, data);
    QFETCH(bool, expected);
    QMimeData mime;
    QVERIFY(!ORVTextRtf::hasRtfMimeData(&mime));
    mime.setData(type, data);
    QCOMPARE(ORVTextRtf::hasRtfMimeData(&mime), expected);
}

void TestClipboard::hasRtfAsksInOrderUpToTheFirst()
{
    const QStringList types = ORV::rtfMimeTypes();
    RecordingMimeData mime;
    QVERIFY(!ORVTextRtf::hasRtfMimeData(&mime));
    QCOMPARE(mime.asked, types);

    mime.asked.clear();
    mime.setData(types.at(1), Sample);
    QVERIFY(ORVTextRtf::hasRtfMimeData(&mime));
    QCOMPARE(mime.asked, types.mid(0, 2));
}

/*
    What is under the first three types of RTF (null: nothing at all), whether it is read, and the document's
    text then, which was "old".
*/
void TestClipboard::reading_data()
{
    const QByteArray absent;
    const QByteArray empty("");
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<QByteArray>("second");
    QTest::addColumn<QByteArray>("third");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << absent << absent << absent << false << "old";
    QTest::newRow("first") << Sample << absent << absent << true << "One two";
    QTest::newRow("second") << absent << Sample << absent << true << "One two";
    QTest::newRow("third") << absent << absent << Sample << true << "One two";
    QTest::newRow("first before second") << Sample << OtherSample << absent << true << "One two";
    QTest::newRow("second before third") << absent << Sample << OtherSample << true << "One two";
    QTest::newRow("empty, then valid") << empty << Sample << absent << true << "One two";
    QTest::newRow("empty throughout") << empty << empty << empty << false << "old";
    QTest::newRow("garbage, then valid") << Garbage << Sample << absent << true << "One two";
    QTest::newRow("damaged, then valid") << Damaged << Sample << absent << true << "One two";
    QTest::newRow("damaged, then empty, then valid") << Damaged << empty << Sample << true << "One two";
    QTest::newRow("damaged twice, then valid") << Damaged << Garbage << Sample << true << "One two";
    QTest::newRow("valid, then garbage") << Sample << Garbage << absent << true << "One two";
    QTest::newRow("damaged") << Damaged << absent << absent << false << "Half a text\nand more";
    QTest::newRow("damaged, then empty") << Damaged << empty << absent << false << "Half a text\nand more";
    QTest::newRow("garbage, then damaged")
        << Garbage << Damaged << absent << false << "Half a text\nand more";
}

void TestClipboard::reading()
{
    QFETCH(QByteArray, first);
    QFETCH(QByteArray, second);
    QFETCH(QByteArray, third);
    QFETCH(bool, ok);
    QFETCH(QString, text);

    QMimeData mime;
    const QByteArray contents[] = {first, second, third};
    for (int i = 0; i < 3; ++i) {
        if (!contents[i].isNull())
            mime.setData(ORV::rtfMimeTypes().at(i), contents[i]);
    }
    const QSharedPointer<QTextDocument> document = textDocument(QStringLiteral("old"));
    QCOMPARE(ORVTextRtf::fromRtfMimeData(&mime, document.data()), ok);
    QCOMPARE(textOf(*document), text);
}

void TestClipboard::readingAsksInOrderUpToTheFirstSuccess()
{
    const QStringList types = ORV::rtfMimeTypes();
    RecordingMimeData mime;
    for (const QString& type : types)
        mime.setData(type, type == types.first() ? Garbage : Sample);
    QVERIFY(ORVTextRtf::fromRtfMimeData(&mime, newDocument().data()));
    QCOMPARE(mime.asked, types.mid(0, 2));
}

void TestClipboard::readingReplacesTheContent()
{
    QMimeData mime;
    mime.setData(ORV::rtfMimeTypes().first(), Sample);
    const QSharedPointer<QTextDocument> document = tableDocument();
    QVERIFY(ORVTextRtf::fromRtfMimeData(&mime, document.data()));
    QCOMPARE(textOf(*document), QStringLiteral("One two"));
    QCOMPARE(formatOf(*document, QStringLiteral("two")).property(QTextFormat::FontWeight).toInt(),
             int(QFont::Bold));
    QVERIFY(document->rootFrame()->childFrames().isEmpty());
}

void TestClipboard::readingIntoNoDocumentAsksNothing()
{
    RecordingMimeData mime;
    mime.setData(ORV::rtfMimeTypes().first(), Sample);
    mime.setData(ownType(), Sample);
    QVERIFY(!ORVTextRtf::fromRtfMimeData(&mime, nullptr));
    QVERIFY(!ORVTextRtf::parseRtfMimeData(ORV::rtfMimeTypes().first(), &mime, nullptr));
    QVERIFY(!ORVTextRtf::fromOrvellineMarkupRtfMimeData(&mime, nullptr));
    QVERIFY(mime.asked.isEmpty());
}

void TestClipboard::readingNoMimeData()
{
    const QSharedPointer<QTextDocument> document = textDocument(QStringLiteral("old"));
    QVERIFY(!ORVTextRtf::fromRtfMimeData(nullptr, document.data()));
    QVERIFY(!ORVTextRtf::parseRtfMimeData(ORV::rtfMimeTypes().first(), nullptr, document.data()));
    QVERIFY(!ORVTextRtf::fromOrvellineMarkupRtfMimeData(nullptr, document.data()));
    QVERIFY(!ORVTextRtf::fromRtfMimeData(nullptr, nullptr));
    QCOMPARE(textOf(*document), QStringLiteral("old"));
}

void TestClipboard::readingOneType_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QString>("text");
    const QString asked = QStringLiteral("application/x-some-rtf");
    QTest::newRow("valid") << asked << Sample << true << "One two";
    QTest::newRow("empty") << asked << QByteArray() << false << "old";
    QTest::newRow("damaged") << asked << Damaged << false << "Half a text\nand more";
    QTest::newRow("another type") << ORV::rtfMimeTypes().first() << Sample << false << "old";
}

void TestClipboard::readingOneType()
{
    QFETCH(QString, type);
    QFETCH(QByteArray, data);
    QFETCH(bool, ok);
    QFETCH(QString, text);
    QMimeData mime;
    mime.setData(type, data);
    const QSharedPointer<QTextDocument> document = textDocument(QStringLiteral("old"));
    QCOMPARE(ORVTextRtf::parseRtfMimeData(QStringLiteral("application/x-some-rtf"), &mime, document.data()),
             ok);
    QCOMPARE(textOf(*document), text);
}

void TestClipboard::readingTheOwnFlavour()
{
    QMimeData mime;
    for (const QString& type : ORV::rtfMimeTypes())
        mime.setData(type, OtherSample);
    const QSharedPointer<QTextDocument> document = textDocument(QStringLiteral("old"));
    QVERIFY(!ORVTextRtf::fromOrvellineMarkupRtfMimeData(&mime, document.data()));
    mime.setData(ownType(), QByteArray());
    QVERIFY(!ORVTextRtf::fromOrvellineMarkupRtfMimeData(&mime, document.data()));
    QCOMPARE(textOf(*document), QStringLiteral("old"));

    mime.setData(ownType(), Sample);
    QVERIFY(ORVTextRtf::fromOrvellineMarkupRtfMimeData(&mime, document.data()));
    QCOMPARE(textOf(*document), QStringLiteral("One two"));

    mime.setData(ownType(), Damaged);
    QVERIFY(!ORVTextRtf::fromOrvellineMarkupRtfMimeData(&mime, document.data()));
    QCOMPARE(textOf(*document), QStringLiteral("Half a text\nand more"));
}

QTEST_MAIN(TestClipboard)
#include "tst_clipboard.moc"
