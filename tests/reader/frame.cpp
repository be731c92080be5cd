#include "testpaths.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

/*! A default format with colours, which reads may have to leave out. */
QTextCharFormat colouredFormat()
{
    QTextCharFormat format;
    compat::setFontFamily(format, "Quibble Serif"_s);
    format.setProperty(QTextFormat::FontPointSize, 17.0);
    format.setForeground(QColor(Qt::red));
    format.setBackground(QColor(Qt::yellow));
    return format;
}

typedef QVector<int> Page;

/*! Paper width and height, margins left, right, top and bottom. */
Page pageOf(const ORVTextRtfReader& reader)
{
    return {reader.paperWidth(),  reader.paperHeight(), reader.marginLeft(),
            reader.marginRight(), reader.marginTop(),   reader.marginBottom()};
}

/*! A reader with a buffer, and a document with the default font of the tests. */
struct BufferReader {
    explicit BufferReader(const QByteArray& rtf)
    {
        buffer.setData(rtf);
        reader.setDevice(&buffer);
    }
    bool read() { return reader.read(document.data()); }
    bool read(const QTextCharFormat& format, bool removeInvalidChars = true)
    {
        return reader.read(document.data(), removeInvalidChars, format);
    }
    QString text() const { return textOf(*document); }

    QBuffer buffer;
    ORVTextRtfReader reader;
    const QSharedPointer<QTextDocument> document = newDocument();
};

const Page letter{12240, 15840, 1800, 1800, 1440, 1440};

} // namespace

/*! The public class: devices, documents, defaults and messages. */
class TestReaderFrame : public QObject {
    Q_OBJECT

private slots:
    void defaults()
    {
        QCOMPARE(ORVTextRtfReader::DefaultFontHinting, false);
        QCOMPARE(ORVTextRtfReader::DefaultRemoveInvalidRtfChars, true);
        QCOMPARE(ORVTextRtfReader::DefaultTextColor, QColor(Qt::black));
        ORVTextRtfReader reader;
        QVERIFY(!reader.device());
        QCOMPARE(reader.error(), 0);
        QCOMPARE(reader.errorString(), QString());
        QCOMPARE(pageOf(reader), letter);
        QBuffer buffer;
        QCOMPARE(ORVTextRtfReader(&buffer).device(), static_cast<QIODevice*>(&buffer));
        reader.setDevice(&buffer);
        QCOMPARE(reader.device(), static_cast<QIODevice*>(&buffer));
    }

    void errorAndPageAreReplacedByTheNextRead()
    {
        BufferReader bad("{\\paperw300 abc}}");
        BufferReader good("{\\paperh400 abc}");
        QVERIFY(!bad.read());
        QCOMPARE(bad.reader.error(), 1);
        QCOMPARE(pageOf(bad.reader), Page({300, 15840, 1800, 1800, 1440, 1440}));
        bad.reader.setDevice(&good.buffer);
        QCOMPARE(bad.reader.error(), 1);
        QVERIFY(bad.read());
        QCOMPARE(bad.reader.error(), 0);
        QCOMPARE(bad.reader.errorString(), QString());
        QCOMPARE(pageOf(bad.reader), Page({12240, 400, 1800, 1800, 1440, 1440}));
        QCOMPARE(bad.text(), "abc"_s);
    }

    // Lists and the numbers of pictures belong to one read.
    void readingTwiceWithOneReader()
    {
        BufferReader source("{\\ls1 a{\\pict\\wmetafile8 " + "P5 1 1 255 A"_b.toHex() + "}\\par b}");
        QTextDocument documents[2];
        for (QTextDocument& document : documents) {
            source.buffer.seek(0);
            QVERIFY(source.reader.read(&document));
            QCOMPARE(document.blockCount(), 2);
            QCOMPARE(imagesOf(document).size(), 1);
            QCOMPARE(imagesOf(document).first().stringProperty(ORVRtfProperty::ImageFileName), "Image1"_s);
            QTextList* list = document.firstBlock().textList();
            QVERIFY(list);
            QCOMPARE(list->document(), &document);
            QCOMPARE(list->count(), 2);
        }
    }

    ORV_ROWS(messages)
    {
        const Rows add([](const QByteArray& rtf, int status, const QString& message) {
            const Reading reading = read(rtf);
            QCOMPARE(reading.status, status);
            QCOMPARE(reading.message, message);
            QCOMPARE(reading.ok, status == 0);
        });
        add("none", "{a}", 0, QString());
        add("closing brace too many", "{a}}", 1, "Unmatched '{' in Rich Text file");
        add("closing brace missing", "{a", 2, "Unmatched '}' in Rich Text file");
        add("input ends in a word", "{a\\", 7, "Unexpected end of file");
        add("long word", "{\\" + QByteArray(70, 'q') + " }", 8, "Invalid control word encountered");
        add("escape", "{\\'zz}", 9, "Invalid control word parameter encountered");
    }

    void messagesAreTranslated()
    {
        ContextTranslator translator;
        QCoreApplication::installTranslator(&translator);
        const QStringList messages{read("{a").message, read("{a}").message};
        QCoreApplication::removeTranslator(&translator);
        QCOMPARE(messages, QStringList({"[ORVTextRtf] Unmatched '}' in Rich Text file"_s, QString()}));
    }

    void nullDocument()
    {
        BufferReader source("{\\rtf1 abc}");
        QVERIFY(!source.reader.read(nullptr));
        QCOMPARE(source.reader.error(), 6);
        QCOMPARE(source.reader.errorString(), "Assertion Error"_s);
        QVERIFY(!source.reader.read(nullptr, true));
        QVERIFY(!source.reader.read(nullptr, false, QTextCharFormat()));
        QCOMPARE(source.reader.error(), 6);
        QVERIFY(!source.buffer.isOpen());
    }

    void opensAClosedDevice()
    {
        BufferReader source("{\\rtf1 abc}");
        QVERIFY(source.read());
        QVERIFY(source.buffer.isReadable());
        QVERIFY(!source.buffer.isWritable());
        QCOMPARE(source.text(), "abc"_s);
    }

    void readsAnOpenDeviceFromItsPosition()
    {
        BufferReader source("{\\rtf1 one}{\\rtf1 two}");
        const QSignalSpy closing(&source.buffer, &QIODevice::aboutToClose);
        source.buffer.open(QIODevice::ReadOnly);
        source.buffer.seek(11);
        QVERIFY(source.read());
        QCOMPARE(source.text(), "two"_s);
        QVERIFY(source.buffer.isOpen());
        QVERIFY(source.buffer.atEnd());
        QCOMPARE(int(closing.count()), 0);
    }

    void deviceThatCannotBeOpened()
    {
        QFile file(QStringLiteral(TEST_DATA_DIR "/no such folder/no such file.rtf"));
        QTextDocument document("old text"_s);
        ORVTextRtfReader reader(&file);
        QVERIFY(!reader.read(&document));
        QCOMPARE(reader.error(), 10);
        QCOMPARE(reader.errorString(), "Could not open device"_s);
        QVERIFY(document.isEmpty());
    }

    void writeOnlyDevice()
    {
        BufferReader source("{\\rtf1 abc}");
        source.buffer.open(QIODevice::WriteOnly);
        source.document->setPlainText("old text"_s);
        QVERIFY(source.read());
        QCOMPARE(source.reader.error(), 0);
        QVERIFY(source.document->isEmpty());
    }

    ORV_ROWS(position)
    {
        const Rows add([](const QByteArray& rtf, int expected) {
            BufferReader source(rtf);
            source.buffer.open(QIODevice::ReadOnly);
            QCOMPARE(source.reader.pos(), qint64(0));
            QVERIFY(source.read());
            QCOMPARE(source.reader.pos(), qint64(expected));
        });
        // The position of the device, which is the size, plus the bytes passed in the buffer; the buffer is
        // shortened by 1024 bytes whenever more than 1024 have been passed.
        add("empty", QByteArray(), 0);
        add("short", "{\\rtf1 a}", 9 + 9);
        add("1024 bytes", "{" + QByteArray(1022, 'a') + "}", 1024 + 1024);
        add("1025 bytes", "{" + QByteArray(1023, 'a') + "}", 1025 + 1);
        add("3000 bytes", "{" + QByteArray(2998, 'a') + "}", 3000 + 952);
    }

    void contentAndShownSignsAreReplaced()
    {
        const QSharedPointer<QTextDocument> document = newDocument();
        document->setPlainText("old\ntext"_s);
        document->addResource(QTextDocument::ImageResource, QUrl("old"_s),
                              QImage(1, 1, QImage::Format_RGB32));
        const QTextOption::Flags shown =
            QTextOption::ShowTabsAndSpaces | QTextOption::ShowLineAndParagraphSeparators;
        QTextOption option = document->defaultTextOption();
        option.setFlags(shown);
        document->setDefaultTextOption(option);
        QCOMPARE(readInto(document, "{\\rtf1 new}").text(), "new"_s);
        QVERIFY(!document->resource(QTextDocument::ImageResource, QUrl("old"_s)).isValid());
        QVERIFY(!(document->defaultTextOption().flags() & shown));
    }

    // One edit block around the whole read: the number of signals does not depend on the content.
    void documentIsToldOfChangesOnce()
    {
        QList<int> counts;
        for (const int paragraphs : {1, 500}) {
            const QSharedPointer<QTextDocument> document = newDocument();
            const QSignalSpy spy(document.data(), &QTextDocument::contentsChanged);
            readInto(document, "{\\rtf1 " + "{\\b text}\\par\n"_b.repeated(paragraphs) + "}");
            QCOMPARE(document->blockCount(), paragraphs + 1);
            counts << int(spy.count());
        }
        QCOMPARE(counts.at(1), counts.at(0));
        QVERIFY(counts.at(0) > 0);
    }

    /*! The setting of undo is restored, and changes are reported again. */
    ORV_ROWS(documentAfterwards)
    {
        const Rows add([](const QByteArray& rtf) {
            for (const bool undo : {true, false}) {
                const QSharedPointer<QTextDocument> document = newDocument();
                document->setUndoRedoEnabled(undo);
                readInto(document, rtf);
                QCOMPARE(document->isUndoRedoEnabled(), undo);
                QVERIFY(!document->isUndoAvailable());
                const QSignalSpy spy(document.data(), &QTextDocument::contentsChanged);
                QTextCursor(document.data()).insertText("x"_s);
                QCOMPARE(int(spy.count()), 1);
            }
        });
        add("text", "{\\rtf1 abc}");
        add("error", "{\\rtf1 abc");
        add("open table cell", "{\\rtf1\\trowd\\cellx1000\\intbl abc}");
        add("open nested table cell", "{\\rtf1\\itap2 abc\\nestcell}");
        add("nothing", QByteArray());
    }

    ORV_ROWS(removalOfInvalidCharacters)
    {
        const Rows add([](bool byDefault, const QString& text) {
            const QScopedValueRollback<bool> restore(ORVTextRtfReader::DefaultRemoveInvalidRtfChars,
                                                     byDefault);
            BufferReader source("{\\rtf1 a\\u133?b}");
            QVERIFY(source.read());
            QCOMPARE(source.text(), text);

            // The two other forms of read() are told what to do.
            const bool given = !byDefault;
            const QString other = given ? "ab"_s : "a\uFFFDb"_s;
            QCOMPARE(read(source.buffer.data(), given).text(), other);
            source.buffer.close();
            QVERIFY(source.read(QTextCharFormat(), given));
            QCOMPARE(source.text(), other);
        });
        add("removed", true, "ab");
        add("replaced", false, "a\uFFFDb");
    }

    ORV_ROWS(hinting)
    {
        const Rows add([](bool byDefault, int preference) {
            const QScopedValueRollback<bool> restore(ORVTextRtfReader::DefaultFontHinting, byDefault);
            BufferReader source("{\\rtf1\\plain abc}");
            QVERIFY(source.read());
            const int hinting = QTextFormat::FontHintingPreference;
            QCOMPARE(ORVTextFormat::defaultCharFormat(source.document.data()).intProperty(hinting),
                     preference);
            QCOMPARE(formatOf(*source.document, "abc"_s).intProperty(hinting), preference);
        });
        add("full", true, int(QFont::PreferFullHinting));
        add("none", false, int(QFont::PreferNoHinting));
    }

    void defaultFormat()
    {
        BufferReader source("{\\rtf1 abc}");
        QTextDocument* const document = source.document.data();
        const auto current = [document] { return dump(ORVTextFormat::defaultCharFormat(document)); };
        Properties font{{Family, "Quibble Serif"_s}, {QTextFormat::FontPointSize, 17.0}};

        // A given format becomes the default, but for its colours.
        QVERIFY(source.read(colouredFormat()));
        QCOMPARE(current(), dump(font));

        // One that is no character format does not, nor does reading otherwise change the default.
        ORVTextFormat::setDefaultCharFormat(document, colouredFormat());
        const QTextCharFormat none = QTextFormat().toCharFormat();
        QVERIFY(!none.isCharFormat());
        source.buffer.seek(0);
        QVERIFY(source.read(none));
        QCOMPARE(current(), dump(colouredFormat()));
        readInto(source.document, "{\\rtf1 abc}");
        QCOMPARE(current(), dump(colouredFormat()));

        // Reading without further arguments keeps the font of the default.
        source.buffer.seek(0);
        QVERIFY(source.read());
        font.insert(QTextFormat::FontHintingPreference, int(QFont::PreferNoHinting));
        QCOMPARE(current(), dump(font));
        QCOMPARE(dump(formatOf(*document, "abc"_s)), QString());
    }

    ORV_ROWS(page)
    {
        const Rows add([](const QByteArray& rtf, const Page& page) {
            BufferReader source(rtf);
            source.read();
            QCOMPARE(pageOf(source.reader), page);
        });
        add("not stated", "{\\rtf1 text}", letter);
        add("no RTF", QByteArray(), letter);
        add("stated", "{\\rtf1\\paperw11906\\paperh16838\\margl1\\margr2\\margt3\\margb4 text}",
            Page{11906, 16838, 1, 2, 3, 4});
        add("one of them", "{\\rtf1\\margr500 text}", Page{12240, 15840, 1800, 500, 1440, 1440});
        add("as it stands", "{\\rtf1\\paperw0\\margt-20 text}", Page{0, 15840, 1800, 1800, -20, 1440});
        add("in a damaged file", "{\\rtf1\\paperw300 text", Page{300, 15840, 1800, 1800, 1440, 1440});
    }
};

ORV_TEST("readerframe", TestReaderFrame, QGuiApplication)
#include "frame.moc"
