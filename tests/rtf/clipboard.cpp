#include "ORV.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

const QByteArray Sample = "{\\rtf1\\ansi One {\\b two}}";
const QByteArray OtherSample = "{\\rtf1\\ansi Other}";
// One group is not closed.
const QByteArray Damaged = "{\\rtf1\\ansi {Half a text\\par and more}";
const QByteArray Garbage = "}no RTF";

QString ownType()
{
    return "application/x-orvelline-markup-rtf"_s;
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
    const QSharedPointer<QTextDocument> document = textDocument("before"_s);
    QTextCursor cursor(document.data());
    cursor.movePosition(QTextCursor::End);
    QTextTableFormat format;
    format.setBorder(0);
    cursor.insertTable(1, 1, format)->cellAt(0, 0).firstCursorPosition().insertText("cell"_s);
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
    const QSharedPointer<QTextDocument> document = textDocument("<$p>"_s);
    QTextCharFormat note;
    note.setProperty(ORVRtfProperty::InFootnote, true);
    QTextCursor cursor(document.data());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText("  note"_s, note);
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
    void plainFlavourHasEveryType()
    {
        const QSharedPointer<QTextDocument> document = textDocument("Hello"_s);
        QMimeData mime;
        ORVTextRtf::setRtfMimeData(&mime, document.data());
        QCOMPARE(mime.formats(), ORV::rtfMimeTypes());
        const QByteArray first = mime.data(ORV::rtfMimeTypes().first());
        for (const QString& type : mime.formats()) {
            QCOMPARE(mime.data(type), documentHead() + firstParagraph() + run("Hello") + "}");
            // Byte arrays that stem from one conversion share their memory.
            QCOMPARE(static_cast<const void*>(mime.data(type).constData()),
                     static_cast<const void*>(first.constData()));
        }
        QVERIFY(document->isUndoAvailable());
        QCOMPARE(textOf(*document), "Hello"_s);
    }

    void plainFlavourEndsTheParagraphBeforeATable()
    {
        QMimeData mime;
        ORVTextRtf::setRtfMimeData(&mime, tableDocument().data());
        for (const QString& type : ORV::rtfMimeTypes())
            QCOMPARE(wellFormed(mime.data(type)), tableRtf("\n\\par"));
    }

    void plainFlavourIsNoExport()
    {
        QMimeData mime;
        ORVTextRtf::setRtfMimeData(&mime, unexportedDocument().data());
        QCOMPARE(wellFormed(mime.data(ORV::rtfMimeTypes().first())), unexportedRtf());
    }

    void plainFlavourLeavesOtherTypesAlone()
    {
        QMimeData mime;
        mime.setText("as text"_s);
        mime.setData(ownType(), Sample);
        ORVTextRtf::setRtfMimeData(&mime, textDocument("Hello"_s).data());
        QCOMPARE(mime.text(), "as text"_s);
        QCOMPARE(mime.data(ownType()), Sample);
        QCOMPARE(mime.formats().size(), 2 + ORV::rtfMimeTypes().size());
    }

    void plainFlavourReplacesAnOlderOne()
    {
        QMimeData mime;
        for (const QString& type : ORV::rtfMimeTypes())
            mime.setData(type, Sample);
        ORVTextRtf::setRtfMimeData(&mime, newDocument().data());
        for (const QString& type : ORV::rtfMimeTypes())
            QCOMPARE(mime.data(type), documentHead() + firstParagraph() + emptyRun() + "}");
    }

    void plainFlavourOfNothing()
    {
        QMimeData mime;
        ORVTextRtf::setRtfMimeData(&mime, nullptr);
        QVERIFY(mime.formats().isEmpty());
        const QString type = ORV::rtfMimeTypes().first();
        mime.setData(type, Sample);
        ORVTextRtf::setRtfMimeData(&mime, nullptr);
        QCOMPARE(mime.formats(), QStringList(type));
        QCOMPARE(mime.data(type), Sample);
        ORVTextRtf::setRtfMimeData(nullptr, textDocument("Hello"_s).data());
        ORVTextRtf::setRtfMimeData(nullptr, nullptr);
    }

    ORV_ROWS(ownFlavourIsToTheLetter)
    {
        typedef QSharedPointer<QTextDocument> Document;
        const Rows add([](const Document& document, bool inPlace, const QByteArray& rtf) {
            QMimeData mime;
            ORVTextRtf::setOrvellineMarkupRtfMimeData(&mime, document.data(), inPlace);
            QCOMPARE(mime.formats(), QStringList(ownType()));
            QCOMPARE(wellFormed(mime.data(ownType())), rtf);
        });
        const QByteArray text = documentHead() + firstParagraph() + run("Hello") + "}";
        add("text", textDocument("Hello"_s), false, text);
        add("text, in place", textDocument("Hello"_s), true, text);
        add("table", tableDocument(), false, tableRtf(""));
        add("table, in place", tableDocument(), true, tableRtf(""));
        add("no export", unexportedDocument(), false, unexportedRtf());
    }

    void ownFlavourInPlace()
    {
        const QSharedPointer<QTextDocument> document = textDocument("Hello"_s);
        QMimeData mime;
        ORVTextRtf::setOrvellineMarkupRtfMimeData(&mime, document.data(), false);
        QVERIFY(document->isUndoAvailable());
        ORVTextRtf::setOrvellineMarkupRtfMimeData(&mime, document.data(), true);
        QVERIFY(!document->isUndoAvailable());
        QCOMPARE(textOf(*document), "Hello"_s);
    }

    void ownFlavourOfNothing()
    {
        QMimeData mime;
        mime.setData(ownType(), Sample);
        const QSharedPointer<QTextDocument> document = textDocument("Hello"_s);
        for (bool inPlace : {false, true}) {
            ORVTextRtf::setOrvellineMarkupRtfMimeData(&mime, nullptr, inPlace);
            QCOMPARE(mime.data(ownType()), Sample);
            ORVTextRtf::setOrvellineMarkupRtfMimeData(nullptr, document.data(), inPlace);
            ORVTextRtf::setOrvellineMarkupRtfMimeData(nullptr, nullptr, inPlace);
        }
        QVERIFY(document->isUndoAvailable());
    }

    ORV_ROWS(tableReadsBack)
    {
        const Rows add([](bool own, const QString& text) {
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
        });
        // Behind a table that is read there are two paragraphs: the one that Qt needs there, and a new one.
        add("own flavour", true, "before\ncell\n\n");
        // Where the paragraph in front of it is ended, Qt needs another one there, too.
        add("plain flavour", false, "before\n\ncell\n\n");
    }

    ORV_ROWS(hasRtf)
    {
        const Rows add([](const QString& type, const QByteArray& data, bool expected) {
            QMimeData mime;
            QVERIFY(!ORVTextRtf::hasRtfMimeData(&mime));
            mime.setData(type, data);
            QCOMPARE(ORVTextRtf::hasRtfMimeData(&mime), expected);
        });
        for (const QString& type : ORV::rtfMimeTypes()) {
            add(qPrintable(type), type, Sample, true);
            add(qPrintable(type + ", empty"_s), type, QByteArray(), true);
            add(qPrintable(type + ", garbage"_s), type, Garbage, true);
        }
        add("own flavour", ownType(), Sample, false);
        add("text", "text/plain", Sample, false);
        add("like RTF", "text/rtfd", Sample, false);
    }

    void hasRtfAsksInOrderUpToTheFirst()
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
        What is under the first three types of RTF (null: nothing at all), whether it is read, and the
        document's text then, which was "old".
    */
    ORV_ROWS(reading)
    {
        const QByteArray absent;
        const QByteArray empty("");
        const Rows add([](const QByteArray& first, const QByteArray& second, const QByteArray& third, bool ok,
                          const QString& text) {
            QMimeData mime;
            const QByteArray contents[] = {first, second, third};
            for (int i = 0; i < 3; ++i) {
                if (!contents[i].isNull())
                    mime.setData(ORV::rtfMimeTypes().at(i), contents[i]);
            }
            const QSharedPointer<QTextDocument> document = textDocument("old"_s);
            QCOMPARE(ORVTextRtf::fromRtfMimeData(&mime, document.data()), ok);
            QCOMPARE(textOf(*document), text);
        });
        add("nothing", absent, absent, absent, false, "old");
        add("first", Sample, absent, absent, true, "One two");
        add("second", absent, Sample, absent, true, "One two");
        add("third", absent, absent, Sample, true, "One two");
        add("first before second", Sample, OtherSample, absent, true, "One two");
        add("second before third", absent, Sample, OtherSample, true, "One two");
        add("empty, then valid", empty, Sample, absent, true, "One two");
        add("empty throughout", empty, empty, empty, false, "old");
        add("garbage, then valid", Garbage, Sample, absent, true, "One two");
        add("damaged, then valid", Damaged, Sample, absent, true, "One two");
        add("damaged, then empty, then valid", Damaged, empty, Sample, true, "One two");
        add("damaged twice, then valid", Damaged, Garbage, Sample, true, "One two");
        add("valid, then garbage", Sample, Garbage, absent, true, "One two");
        add("damaged", Damaged, absent, absent, false, "Half a text\nand more");
        add("damaged, then empty", Damaged, empty, absent, false, "Half a text\nand more");
        add("garbage, then damaged", Garbage, Damaged, absent, false, "Half a text\nand more");
    }

    void readingAsksInOrderUpToTheFirstSuccess()
    {
        const QStringList types = ORV::rtfMimeTypes();
        RecordingMimeData mime;
        for (const QString& type : types)
            mime.setData(type, type == types.first() ? Garbage : Sample);
        QVERIFY(ORVTextRtf::fromRtfMimeData(&mime, newDocument().data()));
        QCOMPARE(mime.asked, types.mid(0, 2));
    }

    void readingReplacesTheContent()
    {
        QMimeData mime;
        mime.setData(ORV::rtfMimeTypes().first(), Sample);
        const QSharedPointer<QTextDocument> document = tableDocument();
        QVERIFY(ORVTextRtf::fromRtfMimeData(&mime, document.data()));
        QCOMPARE(textOf(*document), "One two"_s);
        QCOMPARE(formatOf(*document, "two"_s).property(QTextFormat::FontWeight).toInt(), int(QFont::Bold));
        QVERIFY(document->rootFrame()->childFrames().isEmpty());
    }

    void readingIntoNoDocumentAsksNothing()
    {
        RecordingMimeData mime;
        mime.setData(ORV::rtfMimeTypes().first(), Sample);
        mime.setData(ownType(), Sample);
        QVERIFY(!ORVTextRtf::fromRtfMimeData(&mime, nullptr));
        QVERIFY(!ORVTextRtf::parseRtfMimeData(ORV::rtfMimeTypes().first(), &mime, nullptr));
        QVERIFY(!ORVTextRtf::fromOrvellineMarkupRtfMimeData(&mime, nullptr));
        QVERIFY(mime.asked.isEmpty());
    }

    void readingNoMimeData()
    {
        const QSharedPointer<QTextDocument> document = textDocument("old"_s);
        QVERIFY(!ORVTextRtf::fromRtfMimeData(nullptr, document.data()));
        QVERIFY(!ORVTextRtf::parseRtfMimeData(ORV::rtfMimeTypes().first(), nullptr, document.data()));
        QVERIFY(!ORVTextRtf::fromOrvellineMarkupRtfMimeData(nullptr, document.data()));
        QVERIFY(!ORVTextRtf::fromRtfMimeData(nullptr, nullptr));
        QCOMPARE(textOf(*document), "old"_s);
    }

    ORV_ROWS(readingOneType)
    {
        const Rows add([](const QString& type, const QByteArray& data, bool ok, const QString& text) {
            QMimeData mime;
            mime.setData(type, data);
            const QSharedPointer<QTextDocument> document = textDocument("old"_s);
            QCOMPARE(ORVTextRtf::parseRtfMimeData("application/x-some-rtf"_s, &mime, document.data()), ok);
            QCOMPARE(textOf(*document), text);
        });
        const QString asked = "application/x-some-rtf"_s;
        add("valid", asked, Sample, true, "One two");
        add("empty", asked, QByteArray(), false, "old");
        add("damaged", asked, Damaged, false, "Half a text\nand more");
        add("another type", ORV::rtfMimeTypes().first(), Sample, false, "old");
    }

    void readingTheOwnFlavour()
    {
        QMimeData mime;
        for (const QString& type : ORV::rtfMimeTypes())
            mime.setData(type, OtherSample);
        const QSharedPointer<QTextDocument> document = textDocument("old"_s);
        QVERIFY(!ORVTextRtf::fromOrvellineMarkupRtfMimeData(&mime, document.data()));
        mime.setData(ownType(), QByteArray());
        QVERIFY(!ORVTextRtf::fromOrvellineMarkupRtfMimeData(&mime, document.data()));
        QCOMPARE(textOf(*document), "old"_s);

        mime.setData(ownType(), Sample);
        QVERIFY(ORVTextRtf::fromOrvellineMarkupRtfMimeData(&mime, document.data()));
        QCOMPARE(textOf(*document), "One two"_s);

        mime.setData(ownType(), Damaged);
        QVERIFY(!ORVTextRtf::fromOrvellineMarkupRtfMimeData(&mime, document.data()));
        QCOMPARE(textOf(*document), "Half a text\nand more"_s);
    }
};

ORV_TEST("clipboard", TestClipboard, QGuiApplication)
#include "clipboard.moc"
