#include "ORVRtfProperties.h"
#include "ORVTextFormat.h"
#include "QtFontCompat_p.h"
#include "rtftesthelpers.h"

#include <QtCore/QFile>
#include <QtCore/QTranslator>
#include <QtGui/QTextList>
#include <QtTest/QtTest>

#include <cstring>

using namespace rtftest;

namespace {

/*! A device without random access that hands out a few bytes at a time, as a pipe does. */
class Pipe : public QIODevice {
public:
    explicit Pipe(const QByteArray& data) : m_data(data) { }

    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return m_data.size() - m_taken + QIODevice::bytesAvailable(); }

protected:
    qint64 readData(char* data, qint64 maxSize) override
    {
        const qint64 count = qMin(qMin(maxSize, qint64(7)), qint64(m_data.size() - m_taken));
        std::memcpy(data, m_data.constData() + m_taken, size_t(count));
        m_taken += count;
        return count;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QByteArray m_data;
    qint64 m_taken = 0;
};

/*! Counts how often it is closed. */
class WatchedBuffer : public QBuffer {
public:
    void close() override
    {
        ++closed;
        QBuffer::close();
    }
    int closed = 0;
};

/*! Translates the texts of one context by putting brackets around them. */
class Brackets : public QTranslator {
public:
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        return std::strcmp(context, "ORVTextRtf") == 0 ? "[" + QString::fromLatin1(text) + "]" : QString();
    }
    bool isEmpty() const override { return false; }
};

/*! Puts the static defaults of the reader back at the end of a test. */
class StaticDefaults {
public:
    ~StaticDefaults()
    {
        ORVTextRtfReader::DefaultFontHinting = m_hinting;
        ORVTextRtfReader::DefaultRemoveInvalidRtfChars = m_remove;
    }

private:
    const bool m_hinting = ORVTextRtfReader::DefaultFontHinting;
    const bool m_remove = ORVTextRtfReader::DefaultRemoveInvalidRtfChars;
};

/*! A default format with colours, which reads may have to leave out. */
QTextCharFormat colouredFormat()
{
    QTextCharFormat format;
    compat::setFontFamily(format, QStringLiteral("Quibble Serif"));
    format.setProperty(QTextFormat::FontPointSize, 17.0);
    format.setForeground(QColor(Qt::red));
    format.setBackground(QColor(Qt::yellow));
    return format;
}

} // namespace

/*! The public class: devices, documents, defaults and messages. */
class TestReaderframe : public QObject {
    Q_OBJECT

private slots:
    void staticDefaults();
    void freshReader();
    void devices();
    void errorIsReplacedByTheNextRead();
    void readingTwiceWithOneReader();
    void messages_data();
    void messages();
    void messagesAreTranslated();
    void nullDocument();
    void opensAClosedDevice();
    void leavesTheDeviceOpen();
    void readsFromTheCurrentPosition();
    void deviceThatCannotBeOpened();
    void writeOnlyDevice();
    void sequentialDevice();
    void emptyDevice();
    void position_data();
    void position();
    void contentIsReplaced();
    void contentIsKeptAfterAnError();
    void undoSettingIsRestored_data();
    void undoSettingIsRestored();
    void documentIsToldOfChangesOnce();
    void documentReportsChangesAfterwards_data();
    void documentReportsChangesAfterwards();
    void textOptionFlagsAreCleared();
    void removalOfInvalidCharacters_data();
    void removalOfInvalidCharacters();
    void hinting_data();
    void hinting();
    void givenFormatBecomesTheDefault();
    void givenFormatThatIsNoCharacterFormat();
    void defaultFormatStays();
    void plainReadKeepsTheFontOfTheDefault();
    void page_data();
    void page();
    void pageOfTheNextReadBeginsAnew();
};

void TestReaderframe::staticDefaults()
{
    QCOMPARE(ORVTextRtfReader::DefaultFontHinting, false);
    QCOMPARE(ORVTextRtfReader::DefaultRemoveInvalidRtfChars, true);
    QCOMPARE(ORVTextRtfReader::DefaultTextColor, QColor(Qt::black));
}

void TestReaderframe::freshReader()
{
    QBuffer buffer;
    ORVTextRtfReader reader(&buffer);
    QCOMPARE(reader.error(), 0);
    QCOMPARE(reader.errorString(), QString());
}

void TestReaderframe::devices()
{
    QBuffer first;
    QBuffer second;
    QVERIFY(!ORVTextRtfReader().device());
    ORVTextRtfReader reader(&first);
    QCOMPARE(reader.device(), static_cast<QIODevice*>(&first));
    reader.setDevice(&second);
    QCOMPARE(reader.device(), static_cast<QIODevice*>(&second));
}

void TestReaderframe::errorIsReplacedByTheNextRead()
{
    QBuffer bad;
    bad.setData("}");
    QBuffer good;
    good.setData("{abc}");
    QTextDocument document;
    ORVTextRtfReader reader(&bad);
    QVERIFY(!reader.read(&document));
    QCOMPARE(reader.error(), 1);
    reader.setDevice(&good);
    QCOMPARE(reader.error(), 1);
    QVERIFY(reader.read(&document));
    QCOMPARE(reader.error(), 0);
    QCOMPARE(reader.errorString(), QString());
    QCOMPARE(document.toPlainText(), QStringLiteral("abc"));
}

// Lists and the numbers of pictures belong to one read.
void TestReaderframe::readingTwiceWithOneReader()
{
    const QByteArray rtf = "{\\ls1 a{\\pict\\wmetafile8 " + QByteArray("P5 1 1 255 A").toHex() + "}\\par b}";
    QTextDocument documents[2];
    ORVTextRtfReader reader;
    for (QTextDocument& document : documents) {
        QBuffer buffer;
        buffer.setData(rtf);
        reader.setDevice(&buffer);
        QVERIFY(reader.read(&document));
        QCOMPARE(document.blockCount(), 2);
        QCOMPARE(imagesOf(document).size(), 1);
        QCOMPARE(imagesOf(document).first().stringProperty(ORVRtfProperty::ImageFileName),
                 QStringLiteral("Image1"));
        QTextList* list = document.firstBlock().textList();
        QVERIFY(list);
        QCOMPARE(list->document(), &document);
        QCOMPARE(list->count(), 2);
    }
}

void TestReaderframe::messages_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("message");

    QTest::newRow("none") << QByteArray("{a}") << 0 << QString();
    QTest::newRow("closing brace too many") << QByteArray("{a}}") << 1 << "Unmatched '{' in Rich Text file";
    QTest::newRow("closing brace missing") << QByteArray("{a") << 2 << "Unmatched '}' in Rich Text file";
    QTest::newRow("input ends in a word") << QByteArray("{a\\") << 7 << "Unexpected end of file";
    QTest::newRow("long word") << "{\\" + QByteArray(70, 'q') + " }" << 8
                               << "Invalid control word encountered";
    QTest::newRow("escape") << QByteArray("{\\'zz}") << 9 << "Invalid control word parameter encountered";
}

void TestReaderframe::messages()
{
    QFETCH(QByteArray, rtf);
    QFETCH(int, status);
    QFETCH(QString, message);

    const Reading reading = read(rtf);
    QCOMPARE(reading.status, status);
    QCOMPARE(reading.message, message);
    QCOMPARE(reading.ok, status == 0);
}

void TestReaderframe::messagesAreTranslated()
{
    Brackets translator;
    QCoreApplication::installTranslator(&translator);
    const QString message = read("{a").message;
    const QString none = read("{a}").message;
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(message, QStringLiteral("[Unmatched '}' in Rich Text file]"));
    QCOMPARE(none, QString());
}

void TestReaderframe::nullDocument()
{
    QBuffer buffer;
    buffer.setData("{\\rtf1 abc}");
    ORVTextRtfReader reader(&buffer);
    QVERIFY(!reader.read(nullptr));
    QCOMPARE(reader.error(), 6);
    QCOMPARE(reader.errorString(), QStringLiteral("Assertion Error"));
    QVERIFY(!reader.read(nullptr, true));
    QCOMPARE(reader.error(), 6);
    QVERIFY(!reader.read(nullptr, false, QTextCharFormat()));
    QCOMPARE(reader.error(), 6);
    QVERIFY(!buffer.isOpen());
}

void TestReaderframe::opensAClosedDevice()
{
    QBuffer buffer;
    buffer.setData("{\\rtf1 abc}");
    QTextDocument document;
    ORVTextRtfReader reader(&buffer);
    QVERIFY(reader.read(&document));
    QVERIFY(buffer.isReadable());
    QVERIFY(!buffer.isWritable());
    QCOMPARE(document.toPlainText(), QStringLiteral("abc"));
}

void TestReaderframe::leavesTheDeviceOpen()
{
    WatchedBuffer buffer;
    buffer.setData("{\\rtf1 abc}");
    buffer.open(QIODevice::ReadOnly);
    {
        QTextDocument document;
        ORVTextRtfReader reader(&buffer);
        QVERIFY(reader.read(&document));
    }
    QVERIFY(buffer.isOpen());
    QCOMPARE(buffer.closed, 0);
    QVERIFY(buffer.atEnd());
}

void TestReaderframe::readsFromTheCurrentPosition()
{
    QBuffer buffer;
    buffer.setData("{\\rtf1 one}{\\rtf1 two}");
    buffer.open(QIODevice::ReadOnly);
    buffer.seek(11);
    QTextDocument document;
    ORVTextRtfReader reader(&buffer);
    QVERIFY(reader.read(&document));
    QCOMPARE(document.toPlainText(), QStringLiteral("two"));
}

void TestReaderframe::deviceThatCannotBeOpened()
{
    QFile file(QStringLiteral(TEST_DATA_DIR "/no such folder/no such file.rtf"));
    QTextDocument document;
    document.setPlainText(QStringLiteral("old text"));
    ORVTextRtfReader reader(&file);
    QVERIFY(!reader.read(&document));
    QCOMPARE(reader.error(), 10);
    QCOMPARE(reader.errorString(), QStringLiteral("Could not open device"));
    QVERIFY(document.isEmpty());
}

void TestReaderframe::writeOnlyDevice()
{
    QBuffer buffer;
    buffer.setData("{\\rtf1 abc}");
    buffer.open(QIODevice::WriteOnly);
    QTextDocument document;
    document.setPlainText(QStringLiteral("old text"));
    ORVTextRtfReader reader(&buffer);
    QVERIFY(reader.read(&document));
    QCOMPARE(reader.error(), 0);
    QVERIFY(document.isEmpty());
}

void TestReaderframe::sequentialDevice()
{
    const QByteArray rtf = "{\\rtf1\\ansi\n{\\fonttbl{\\f0 Quibble Serif;}}\nOne {\\b two}\\par\n"
                           "\\u8364?three\\'e9 "
        + QByteArray(3000, 'x') + "}";
    Pipe pipe(rtf);
    pipe.open(QIODevice::ReadOnly);
    QTextDocument document;
    ORVTextRtfReader reader(&pipe);
    QVERIFY(reader.read(&document));
    QCOMPARE(textOf(document), QString::fromUtf8("One two\n€threeé ") + QString(3000, QLatin1Char('x')));
    QCOMPARE(pipe.bytesAvailable(), qint64(0));
}

void TestReaderframe::emptyDevice()
{
    const Reading reading = read(QByteArray());
    QVERIFY(reading.ok);
    QCOMPARE(reading.status, 0);
    QVERIFY(reading.document->isEmpty());
    QCOMPARE(reading.blockCount(), 1);
}

void TestReaderframe::position_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<int>("expected");

    // The position of the device, which is the size, plus the bytes passed in the buffer; the buffer is
    // shortened by 1024 bytes whenever more than 1024 have been passed.
    QTest::newRow("empty") << QByteArray() << 0;
    QTest::newRow("short") << QByteArray("{\\rtf1 a}") << 9 + 9;
    QTest::newRow("1024 bytes") << "{" + QByteArray(1022, 'a') + "}" << 1024 + 1024;
    QTest::newRow("1025 bytes") << "{" + QByteArray(1023, 'a') + "}" << 1025 + 1;
    QTest::newRow("3000 bytes") << "{" + QByteArray(2998, 'a') + "}" << 3000 + 952;
}

void TestReaderframe::position()
{
    QFETCH(QByteArray, rtf);
    QFETCH(int, expected);

    QBuffer buffer;
    buffer.setData(rtf);
    buffer.open(QIODevice::ReadOnly);
    QTextDocument document;
    ORVTextRtfReader reader(&buffer);
    QCOMPARE(reader.pos(), qint64(0));
    QVERIFY(reader.read(&document));
    QCOMPARE(reader.pos(), qint64(expected));
}

void TestReaderframe::contentIsReplaced()
{
    const QSharedPointer<QTextDocument> document = newDocument();
    document->setPlainText(QStringLiteral("old\ntext"));
    document->addResource(QTextDocument::ImageResource, QUrl(QStringLiteral("old")),
                          QImage(1, 1, QImage::Format_RGB32));
    const Reading reading = readInto(document, "{\\rtf1 new}");
    QCOMPARE(reading.text(), QStringLiteral("new"));
    QVERIFY(!document->resource(QTextDocument::ImageResource, QUrl(QStringLiteral("old"))).isValid());
}

void TestReaderframe::contentIsKeptAfterAnError()
{
    const Reading reading = read("{\\rtf1 one\\par\\'zz{\\b two}\\par}}{three}");
    QCOMPARE(reading.status, 9);
    QVERIFY(reading.text().startsWith(QLatin1String("one\n")));
    QVERIFY(reading.text().endsWith(QLatin1String("two\nthree")));
    QCOMPARE(reading.format(QStringLiteral("two")).property(QTextFormat::FontWeight).toInt(),
             int(QFont::Bold));
}

void TestReaderframe::undoSettingIsRestored_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<QByteArray>("rtf");
    QTest::newRow("on") << true << QByteArray("{\\rtf1 abc}");
    QTest::newRow("off") << false << QByteArray("{\\rtf1 abc}");
    QTest::newRow("on, after an error") << true << QByteArray("{\\rtf1 abc");
    QTest::newRow("off, after an error") << false << QByteArray("{\\rtf1 abc");
}

void TestReaderframe::undoSettingIsRestored()
{
    QFETCH(bool, enabled);
    QFETCH(QByteArray, rtf);

    const QSharedPointer<QTextDocument> document = newDocument();
    document->setUndoRedoEnabled(enabled);
    readInto(document, rtf);
    QCOMPARE(document->isUndoRedoEnabled(), enabled);
    QVERIFY(!document->isUndoAvailable());
}

// One edit block around the whole read: the number of signals does not depend on the content.
void TestReaderframe::documentIsToldOfChangesOnce()
{
    int counts[2];
    const int paragraphs[2] = {1, 500};
    for (int i = 0; i < 2; ++i) {
        const QSharedPointer<QTextDocument> document = newDocument();
        const QSignalSpy spy(document.data(), &QTextDocument::contentsChanged);
        readInto(document, "{\\rtf1 " + QByteArray("{\\b text}\\par\n").repeated(paragraphs[i]) + "}");
        QCOMPARE(document->blockCount(), paragraphs[i] + 1);
        counts[i] = int(spy.count());
    }
    QCOMPARE(counts[1], counts[0]);
    QVERIFY(counts[0] > 0);
}

void TestReaderframe::documentReportsChangesAfterwards_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::newRow("text") << QByteArray("{\\rtf1 abc}");
    QTest::newRow("error") << QByteArray("{\\rtf1 abc");
    QTest::newRow("open table cell") << QByteArray("{\\rtf1\\trowd\\cellx1000\\intbl abc}");
    QTest::newRow("open nested table cell") << QByteArray("{\\rtf1\\itap2 abc\\nestcell}");
    QTest::newRow("nothing") << QByteArray();
}

void TestReaderframe::documentReportsChangesAfterwards()
{
    QFETCH(QByteArray, rtf);

    const QSharedPointer<QTextDocument> document = newDocument();
    readInto(document, rtf);
    const QSignalSpy spy(document.data(), &QTextDocument::contentsChanged);
    QTextCursor(document.data()).insertText(QStringLiteral("x"));
    QCOMPARE(int(spy.count()), 1);
}

void TestReaderframe::textOptionFlagsAreCleared()
{
    const QSharedPointer<QTextDocument> document = newDocument();
    QTextOption option = document->defaultTextOption();
    option.setFlags(QTextOption::ShowTabsAndSpaces | QTextOption::ShowLineAndParagraphSeparators);
    document->setDefaultTextOption(option);
    readInto(document, "{\\rtf1 abc}");
    const QTextOption::Flags shown =
        QTextOption::ShowTabsAndSpaces | QTextOption::ShowLineAndParagraphSeparators;
    QVERIFY(!(document->defaultTextOption().flags() & shown));
}

void TestReaderframe::removalOfInvalidCharacters_data()
{
    QTest::addColumn<bool>("byDefault");
    QTest::addColumn<QString>("text");
    QTest::newRow("removed") << true << QStringLiteral("ab");
    QTest::newRow("replaced") << false << QStringLiteral("a\uFFFDb");
}

void TestReaderframe::removalOfInvalidCharacters()
{
    QFETCH(bool, byDefault);
    QFETCH(QString, text);

    const StaticDefaults restore;
    ORVTextRtfReader::DefaultRemoveInvalidRtfChars = byDefault;
    QBuffer buffer;
    buffer.setData("{\\rtf1 a\\u133?b}");
    QTextDocument document;
    QVERIFY(ORVTextRtfReader(&buffer).read(&document));
    QCOMPARE(textOf(document), text);

    // The two other forms of read() are told what to do.
    const bool given = !byDefault;
    const QString other = given ? QStringLiteral("ab") : QStringLiteral("a\uFFFDb");
    QCOMPARE(read(buffer.data(), given).text(), other);
    buffer.close();
    QVERIFY(ORVTextRtfReader(&buffer).read(&document, given, QTextCharFormat()));
    QCOMPARE(textOf(document), other);
}

void TestReaderframe::hinting_data()
{
    QTest::addColumn<bool>("byDefault");
    QTest::addColumn<int>("preference");
    QTest::newRow("full") << true << int(QFont::PreferFullHinting);
    QTest::newRow("none") << false << int(QFont::PreferNoHinting);
}

void TestReaderframe::hinting()
{
    QFETCH(bool, byDefault);
    QFETCH(int, preference);

    const StaticDefaults restore;
    ORVTextRtfReader::DefaultFontHinting = byDefault;
    QBuffer buffer;
    buffer.setData("{\\rtf1\\plain abc}");
    const QSharedPointer<QTextDocument> document = newDocument();
    QVERIFY(ORVTextRtfReader(&buffer).read(document.data()));
    const QTextCharFormat format = ORVTextFormat::defaultCharFormat(document.data());
    QCOMPARE(format.intProperty(QTextFormat::FontHintingPreference), preference);
    QCOMPARE(formatOf(*document, QStringLiteral("abc")).intProperty(QTextFormat::FontHintingPreference),
             preference);
}

void TestReaderframe::givenFormatBecomesTheDefault()
{
    QBuffer buffer;
    buffer.setData("{\\rtf1 abc}");
    const QSharedPointer<QTextDocument> document = newDocument();
    QVERIFY(ORVTextRtfReader(&buffer).read(document.data(), true, colouredFormat()));
    QCOMPARE(dump(ORVTextFormat::defaultCharFormat(document.data())),
             dump(Properties{{Family, QStringLiteral("Quibble Serif")}, {QTextFormat::FontPointSize, 17.0}}));
}

void TestReaderframe::givenFormatThatIsNoCharacterFormat()
{
    QBuffer buffer;
    buffer.setData("{\\rtf1 abc}");
    const QSharedPointer<QTextDocument> document = newDocument();
    ORVTextFormat::setDefaultCharFormat(document.data(), colouredFormat());
    const QTextCharFormat none = QTextFormat().toCharFormat();
    QVERIFY(!none.isCharFormat());
    QVERIFY(ORVTextRtfReader(&buffer).read(document.data(), true, none));
    QCOMPARE(dump(ORVTextFormat::defaultCharFormat(document.data())), dump(colouredFormat()));
}

void TestReaderframe::defaultFormatStays()
{
    const QSharedPointer<QTextDocument> document = newDocument();
    ORVTextFormat::setDefaultCharFormat(document.data(), colouredFormat());
    readInto(document, "{\\rtf1 abc}");
    QCOMPARE(dump(ORVTextFormat::defaultCharFormat(document.data())), dump(colouredFormat()));
}

void TestReaderframe::plainReadKeepsTheFontOfTheDefault()
{
    QBuffer buffer;
    buffer.setData("{\\rtf1 abc}");
    const QSharedPointer<QTextDocument> document = newDocument();
    ORVTextFormat::setDefaultCharFormat(document.data(), colouredFormat());
    QVERIFY(ORVTextRtfReader(&buffer).read(document.data()));
    QCOMPARE(dump(ORVTextFormat::defaultCharFormat(document.data())),
             dump(Properties{{Family, QStringLiteral("Quibble Serif")},
                             {QTextFormat::FontPointSize, 17.0},
                             {QTextFormat::FontHintingPreference, int(QFont::PreferNoHinting)}}));
    QCOMPARE(dump(formatOf(*document, QStringLiteral("abc"))), QString());
}

typedef QVector<int> Page;

/*! Paper width and height, margins left, right, top and bottom. */
static Page pageOf(const ORVTextRtfReader& reader)
{
    return {reader.paperWidth(),  reader.paperHeight(), reader.marginLeft(),
            reader.marginRight(), reader.marginTop(),   reader.marginBottom()};
}

void TestReaderframe::page_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<Page>("page");

    const Page letter{12240, 15840, 1800, 1800, 1440, 1440};
    QTest::newRow("not stated") << QByteArray("{\\rtf1 text}") << letter;
    QTest::newRow("no RTF") << QByteArray() << letter;
    QTest::newRow("stated") << QByteArray(
        "{\\rtf1\\paperw11906\\paperh16838\\margl1\\margr2\\margt3\\margb4 text}")
                            << Page{11906, 16838, 1, 2, 3, 4};
    QTest::newRow("one of them") << QByteArray("{\\rtf1\\margr500 text}")
                                 << Page{12240, 15840, 1800, 500, 1440, 1440};
    QTest::newRow("as it stands") << QByteArray("{\\rtf1\\paperw0\\margt-20 text}")
                                  << Page{0, 15840, 1800, 1800, -20, 1440};
    QTest::newRow("in a damaged file")
        << QByteArray("{\\rtf1\\paperw300 text") << Page{300, 15840, 1800, 1800, 1440, 1440};
}

void TestReaderframe::page()
{
    QFETCH(QByteArray, rtf);
    QBuffer buffer(&rtf);
    ORVTextRtfReader reader(&buffer);
    reader.read(newDocument().data());
    QTEST(pageOf(reader), "page");
}

void TestReaderframe::pageOfTheNextReadBeginsAnew()
{
    QBuffer first;
    first.setData("{\\rtf1\\paperw300 text}");
    QBuffer second;
    second.setData("{\\rtf1\\paperh400 text}");
    ORVTextRtfReader reader(&first);
    QCOMPARE(pageOf(reader), Page({12240, 15840, 1800, 1800, 1440, 1440}));
    reader.read(newDocument().data());
    reader.setDevice(&second);
    reader.read(newDocument().data());
    QCOMPARE(pageOf(reader), Page({12240, 400, 1800, 1800, 1440, 1440}));
}

QTEST_MAIN(TestReaderframe)
#include "tst_readerframe.moc"
