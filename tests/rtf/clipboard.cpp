#include "ORV.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

typedef QSharedPointer<QTextDocument> Document;

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
Story tableStory()
{
    Story story;
    QTextTable* const table = story.add("before").cursor().insertTable(1, 1);
    table->cellAt(0, 0).firstCursorPosition().insertText("cell"_s);
    return story;
}

/*! Text that exporting would change: a placeholder, and a note that begins with blanks. */
Story unexportedStory()
{
    return Story().add("<$p>").add("  note", charFormat({{ORVRtfProperty::InFootnote, true}}));
}

/*! Mime data with \a rtf under every type of RTF. */
void setAllTypes(QMimeData& mime, const QByteArray& rtf)
{
    for (const QString& type : ORV::rtfMimeTypes())
        mime.setData(type, rtf);
}

} // namespace

/*! RTF on the clipboard, in both flavours. */
class TestClipboard : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(plainFlavour)
    {
        const Rows add([](const Story& story) {
            const QByteArray rtf =
                write(*story.document(), settingsWith(&WriteSettings::paragraphBeforeTableEnded));
            const bool undo = story.document()->isUndoAvailable();
            const QString text = textOf(*story.document());
            QMimeData mime;
            ORVTextRtf::setRtfMimeData(&mime, story.document());
            QCOMPARE(mime.formats(), ORV::rtfMimeTypes());
            QMimeData used;
            used.setText("as text"_s);
            used.setData(ownType(), Sample);
            setAllTypes(used, Sample);
            ORVTextRtf::setRtfMimeData(&used, story.document());
            QCOMPARE(used.formats().size(), 2 + ORV::rtfMimeTypes().size());
            QCOMPARE(used.text(), "as text"_s);
            QCOMPARE(used.data(ownType()), Sample);
            const QByteArray first = mime.data(ORV::rtfMimeTypes().first());
            for (const QString& type : ORV::rtfMimeTypes()) {
                QCOMPARE(mime.data(type), rtf);
                QCOMPARE(used.data(type), rtf);
                // Byte arrays that stem from one conversion share their memory.
                QCOMPARE(static_cast<const void*>(mime.data(type).constData()),
                         static_cast<const void*>(first.constData()));
            }
            QCOMPARE(story.document()->isUndoAvailable(), undo);
            QCOMPARE(textOf(*story.document()), text);
        });
        add("nothing", Story());
        add("text", Story().add("Hello"));
        add("paragraph before a table is ended", tableStory());
        add("no export", unexportedStory());
    }

    ORV_ROWS(ownFlavour)
    {
        const Rows add([](const Story& story) {
            const QByteArray rtf = write(*story.document());
            const QString text = textOf(*story.document());
            for (const bool inPlace : {false, true}) {
                QMimeData mime;
                ORVTextRtf::setOrvellineMarkupRtfMimeData(&mime, story.document(), inPlace);
                QCOMPARE(mime.formats(), QStringList(ownType()));
                QCOMPARE(mime.data(ownType()), rtf);
                QCOMPARE(story.document()->isUndoAvailable(), !inPlace);
                QCOMPARE(textOf(*story.document()), text);
            }
        });
        add("text", Story().add("Hello"));
        add("table", tableStory());
        add("no export", unexportedStory());
    }

    void writingNothingOrToNothing()
    {
        const QString type = ORV::rtfMimeTypes().first();
        const Document document = textDocument("Hello"_s);
        QMimeData mime;
        ORVTextRtf::setRtfMimeData(&mime, nullptr);
        QVERIFY(mime.formats().isEmpty());
        mime.setData(type, Sample);
        mime.setData(ownType(), Sample);
        ORVTextRtf::setRtfMimeData(&mime, nullptr);
        ORVTextRtf::setRtfMimeData(nullptr, document.data());
        ORVTextRtf::setRtfMimeData(nullptr, nullptr);
        for (bool inPlace : {false, true}) {
            ORVTextRtf::setOrvellineMarkupRtfMimeData(&mime, nullptr, inPlace);
            ORVTextRtf::setOrvellineMarkupRtfMimeData(nullptr, document.data(), inPlace);
            ORVTextRtf::setOrvellineMarkupRtfMimeData(nullptr, nullptr, inPlace);
        }
        QCOMPARE(mime.formats(), QStringList({type, ownType()}));
        QCOMPARE(mime.data(type), Sample);
        QCOMPARE(mime.data(ownType()), Sample);
        QVERIFY(document->isUndoAvailable());
    }

    ORV_ROWS(tableReadsBack)
    {
        const Rows add([](bool own, const QString& text) {
            QMimeData mime;
            const Document back = newDocument();
            if (own) {
                ORVTextRtf::setOrvellineMarkupRtfMimeData(&mime, tableStory().document(), false);
                QVERIFY(ORVTextRtf::fromOrvellineMarkupRtfMimeData(&mime, back.data()));
            } else {
                ORVTextRtf::setRtfMimeData(&mime, tableStory().document());
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
            add(type.toLatin1(), type, Sample, true);
            add(type.toLatin1() + ", empty", type, QByteArray(), true);
            add(type.toLatin1() + ", garbage", type, Garbage, true);
        }
        add("own flavour", ownType(), Sample, false);
        add("text", "text/plain", Sample, false);
        add("like RTF", "text/rtfd", Sample, false);
    }

    void asksInOrderUpToTheFirst()
    {
        const QStringList types = ORV::rtfMimeTypes();
        RecordingMimeData mime;
        QVERIFY(!ORVTextRtf::hasRtfMimeData(&mime));
        QCOMPARE(mime.asked, types);
        mime.asked.clear();
        mime.setData(types.at(1), Sample);
        QVERIFY(ORVTextRtf::hasRtfMimeData(&mime));
        QCOMPARE(mime.asked, types.mid(0, 2));
        // Reading asks up to the first that can be read.
        setAllTypes(mime, Sample);
        mime.setData(types.first(), Garbage);
        mime.asked.clear();
        QVERIFY(ORVTextRtf::fromRtfMimeData(&mime, newDocument().data()));
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
            for (const auto read : {&ORVTextRtf::fromRtfMimeData, &ORVTextRtf::importRtfMimeData}) {
                const Document document = textDocument("old"_s);
                QCOMPARE(read(&mime, document.data()), ok);
                QCOMPARE(textOf(*document), text);
            }
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

    void readingReplacesTheContent()
    {
        QMimeData mime;
        mime.setData(ORV::rtfMimeTypes().first(), Sample);
        const Story story = tableStory();
        QVERIFY(ORVTextRtf::fromRtfMimeData(&mime, story.document()));
        QCOMPARE(textOf(*story.document()), "One two"_s);
        QCOMPARE(formatOf(*story.document(), "two"_s).property(QTextFormat::FontWeight).toInt(),
                 int(QFont::Bold));
        QVERIFY(story.document()->rootFrame()->childFrames().isEmpty());
    }

    void readingIntoNothingOrFromNothing()
    {
        const QString type = ORV::rtfMimeTypes().first();
        RecordingMimeData mime;
        mime.setData(type, Sample);
        mime.setData(ownType(), Sample);
        QVERIFY(!ORVTextRtf::fromRtfMimeData(&mime, nullptr));
        QVERIFY(!ORVTextRtf::importRtfMimeData(&mime, nullptr));
        QVERIFY(!ORVTextRtf::parseRtfMimeData(type, &mime, nullptr));
        QVERIFY(!ORVTextRtf::fromOrvellineMarkupRtfMimeData(&mime, nullptr));
        QVERIFY(mime.asked.isEmpty());
        const Document document = textDocument("old"_s);
        QVERIFY(!ORVTextRtf::fromRtfMimeData(nullptr, document.data()));
        QVERIFY(!ORVTextRtf::importRtfMimeData(nullptr, document.data()));
        QVERIFY(!ORVTextRtf::parseRtfMimeData(type, nullptr, document.data()));
        QVERIFY(!ORVTextRtf::fromOrvellineMarkupRtfMimeData(nullptr, document.data()));
        QVERIFY(!ORVTextRtf::fromRtfMimeData(nullptr, nullptr));
        QCOMPARE(textOf(*document), "old"_s);
    }

    /*! One type that is given, and the own one. */
    ORV_ROWS(readingOneType)
    {
        const QString asked = "application/x-some-rtf"_s;
        const Rows add([asked](const QString& type, const QByteArray& data, bool ok, const QString& text) {
            QMimeData mime;
            setAllTypes(mime, OtherSample);
            mime.setData(type, data);
            const Document document = textDocument("old"_s);
            QCOMPARE(type == ownType() ? ORVTextRtf::fromOrvellineMarkupRtfMimeData(&mime, document.data())
                                       : ORVTextRtf::parseRtfMimeData(asked, &mime, document.data()),
                     ok);
            QCOMPARE(textOf(*document), text);
        });
        for (const QString& type : {asked, ownType()}) {
            add("valid " + type.toLatin1(), type, Sample, true, "One two");
            add("empty " + type.toLatin1(), type, QByteArray(), false, "old");
            add("damaged " + type.toLatin1(), type, Damaged, false, "Half a text\nand more");
        }
        add("another type", "text/plain", Sample, false, "old");
    }

    void ownFlavourIsNoOtherType()
    {
        QMimeData mime;
        setAllTypes(mime, Sample);
        QVERIFY(!ORVTextRtf::fromOrvellineMarkupRtfMimeData(&mime, newDocument().data()));
    }
};

ORV_TEST("clipboard", TestClipboard, QGuiApplication)
#include "clipboard.moc"
