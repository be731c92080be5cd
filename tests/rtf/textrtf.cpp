#include "testsupport.h"

#include <cerrno>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#endif

using namespace rtftest;

namespace {

/*! What was sent to Qt's message handler while this object lives. */
class MessageLog {
public:
    MessageLog()
    {
        texts().clear();
        m_previous =
            qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
                texts() << (type == QtWarningMsg ? "warning: "_s : "other: "_s) + text;
            });
    }
    ~MessageLog() { qInstallMessageHandler(m_previous); }
    Q_DISABLE_COPY(MessageLog)

    /*! The texts, each with the level in front that was used. */
    static QStringList& texts()
    {
        static QStringList list;
        return list;
    }

private:
    QtMessageHandler m_previous;
};

const QString FullDevice = "/dev/full"_s;

/*! What Qt says when a file called \a name is opened for writing. */
QString openingError(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::WriteOnly) ? "none"_s : file.errorString();
}

QString untouched()
{
    return "untouched"_s;
}

const QByteArray Sample = "{\\rtf1\\ansi One {\\b two}\\par th\\'e9 three}";
const QByteArray Damaged = "{\\rtf1\\ansi One {\\b two}";

typedef std::function<bool(const QByteArray& rtf, QTextDocument* document, QString* message)> ReadFunction;
/*! Gives nothing where nothing is written. */
typedef std::function<QByteArray(QTextDocument* document, bool inPlace)> WriteFunction;

/*! A document of more bytes than Qt's files and the writer hold back. */
QSharedPointer<QTextDocument> longDocument()
{
    return textDocument("lorem ipsum "_s.repeated(10000));
}

QSharedPointer<QTextDocument> shortDocument()
{
    return textDocument("<$p> Hello"_s);
}

/*! What exporting changes: a placeholder, text of a revision, and a footnote that begins with blanks. */
Story exportableStory()
{
    return Story()
        .add("<$p>", charFormat({{ORVRtfProperty::RevisionLevel, 1}}))
        .add("  note", charFormat({{ORVRtfProperty::InFootnote, true}}));
}

QByteArray footnote(const QByteArray& text)
{
    return "{\\super\\chftn{\\footnote\\pard\\plain {\\super\\chftn\\f0\\fs24}" + text + "}}";
}

} // namespace

/*! The conversions between a document and RTF in memory or in a file that an application calls. */
class TestTextRtf : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QGuiApplication::setFont(newDocument()->defaultFont()); }

    void init()
    {
        m_directory.reset(new QTemporaryDir);
        QVERIFY(m_directory->isValid());
    }

    ORV_ROWS(reading)
    {
        const Rows add(
            [](const ReadFunction& read, const QByteArray& rtf, const QString& text, const QString& message) {
                const QSharedPointer<QTextDocument> document = textDocument("old"_s);
                QString actual = untouched();
                QCOMPARE(read(rtf, document.data(), &actual), message == untouched());
                QCOMPARE(actual, message);
                QCOMPARE(textOf(*document), text);
                if (text.contains("two"_s))
                    QCOMPARE(formatOf(*document, "two"_s).fontWeight(), int(QFont::Bold));
                QCOMPARE(read(rtf, document.data(), nullptr), message == untouched());
                QCOMPARE(textOf(*document), text);
                actual = untouched();
                QVERIFY(!read(rtf, nullptr, &actual));
                QVERIFY(!read(rtf, nullptr, nullptr));
                QCOMPARE(actual, untouched());
            });
        const auto addSource = [&add](const QByteArray& source, const ReadFunction& read) {
            add(source, read, Sample, "One two\nthé three", untouched());
            add(source + ", empty", read, "", "", untouched());
            add(source + ", null", read, QByteArray(), "", untouched());
            add(source + ", brace missing", read, Damaged, "One two", "Unmatched '}' in Rich Text file");
            add(source + ", brace too many", read, Sample + "}", "One two\nthé three",
                "Unmatched '{' in Rich Text file");
            add(source + ", cut off", read, "{a\\", "a", "Unexpected end of file");
            add(source + ", bad escape", read, "{a\\'", "a", "Invalid control word parameter encountered");
        };
        addSource("bytes", &ORVTextRtf::fromRtfData);
        addSource("imported bytes", &ORVTextRtf::importRtfData);
        addSource("imported file", [this](const QByteArray& rtf, QTextDocument* document, QString* message) {
            store("a.rtf", rtf);
            return ORVTextRtf::importRtfFile(path("a.rtf"), document, message);
        });
        addSource("file", [this](const QByteArray& rtf, QTextDocument* document, QString* message) {
            store("a.rtf", rtf);
            return ORVTextRtf::fromRtfFile(path("a.rtf"), document, message);
        });
    }

    void readingStoredBytes()
    {
        QTextDocument document;
        QVERIFY(ORVTextRtf::fromRtfCData(Sample, &document));
        QCOMPARE(textOf(document), "One two\nthé three"_s);
        QVERIFY(!ORVTextRtf::fromRtfCData(Damaged, &document));
        QCOMPARE(textOf(document), "One two"_s);
        QVERIFY(!ORVTextRtf::fromRtfCData(Sample, nullptr));
    }

    void readingWhatIsNoFile()
    {
        for (const QString& name : {path("missing.rtf"), m_directory->path()}) {
            const QSharedPointer<QTextDocument> document = textDocument("old"_s);
            QString message = untouched();
            for (const auto read : {&ORVTextRtf::fromRtfFile, &ORVTextRtf::importRtfFile}) {
                QVERIFY(!read(name, document.data(), &message));
                QVERIFY(!read(name, document.data(), nullptr));
            }
            QCOMPARE(message, untouched());
            QCOMPARE(textOf(*document), "old"_s);
        }
        QVERIFY(!QFile::exists(path("missing.rtf")));
    }

    void readingUsesTheStaticDefaults()
    {
        QTextDocument document;
        const auto hinting = [&document] {
            return ORVTextFormat::defaultCharFormat(&document).intProperty(
                QTextFormat::FontHintingPreference);
        };
        QVERIFY(ORVTextRtf::fromRtfData("{a\\u133?b}", &document, nullptr));
        QCOMPARE(textOf(document), "ab"_s);
        QCOMPARE(hinting(), int(QFont::PreferNoHinting));

        ORVTextRtfReader::DefaultRemoveInvalidRtfChars = false;
        ORVTextRtfReader::DefaultFontHinting = true;
        const bool ok = ORVTextRtf::fromRtfData("{a\\u133?b}", &document, nullptr);
        ORVTextRtfReader::DefaultRemoveInvalidRtfChars = true;
        ORVTextRtfReader::DefaultFontHinting = false;
        QVERIFY(ok);
        QCOMPARE(textOf(document), "a\uFFFDb"_s);
        QCOMPARE(hinting(), int(QFont::PreferFullHinting));
    }

    /*! Of bytes, and of a property that holds them; null where there is no text. */
    ORV_ROWS(textOfStoredBytes)
    {
        const Rows add([](const QVariant& value, const QString& text) {
            const QByteArray bytes = value.toByteArray();
            QCOMPARE(ORVTextRtf::rtfCDataText(bytes), text);
            QCOMPARE(ORVTextRtf::rtfCDataText(bytes).isNull(), text.isNull() && !bytes.isEmpty());
            using namespace ORVRtfProperty;
            QTextCharFormat format;
            format.setProperty(NoteContent, value);
            QCOMPARE(ORVTextRtf::rtfProperty(NoteContent, format, false), text);
            QCOMPARE(ORVTextRtf::rtfProperty(NoteContent, format, false).isNull(), text.isNull());
            QCOMPARE(ORVTextRtf::rtfProperty(NoteContent, format, true).isNull(), text.isNull());
            // Another property is another text.
            QVERIFY(ORVTextRtf::rtfProperty(PdfData, format, false).isNull());
        });
        add("bytes", Sample, "One two\nthé three");
        add("string", "{\\rtf1 abc}"_s, "abc");
        // As plain text, not as stored: spaces and line ends are ordinary ones.
        add("plain characters", "{a\\~b\\line c}"_b, "a b\nc");
        add("missing", QVariant(), QString());
        add("empty", ""_b, QString());
        add("no bytes", QSize(1, 2), QString());
        add("damaged", Damaged, QString());
        add("damaged behind the text", Sample + "}", QString());
    }

    void rtfPropertyAsHtml()
    {
        QTextCharFormat format;
        format.setProperty(ORVRtfProperty::NoteContent, Sample);
        QTextDocument document;
        QVERIFY(ORVTextRtf::fromRtfCData(Sample, &document));
        const QString html = ORVTextRtf::rtfProperty(ORVRtfProperty::NoteContent, format, true);
        QCOMPARE(html, document.toHtml());
        QVERIFY(html.contains(">two</span>"_s));
    }

    ORV_ROWS(writing)
    {
        const Rows add([](const WriteFunction& write, bool exports) {
            MessageLog log;
            QCOMPARE(write(newDocument().data(), false),
                     documentHead() + firstParagraph() + emptyRun() + '}');
            const Story story = exportableStory();
            const QByteArray copied = wellFormed(write(story.document(), false));
            QCOMPARE(bodyOf(copied),
                     firstParagraph()
                         + (exports ? "{\\f0\\fs24\\cf3 {\\chpgn}}" + footnote(" \\f0\\fs24 note")
                                    : "{\\f0\\fs24\\*\\orvrevlvl1 <$p>}" + footnote("\\f0\\fs24   note")));
            QVERIFY(story.document()->isUndoRedoEnabled());
            QVERIFY(story.document()->isUndoAvailable());
            QCOMPARE(write(story.document(), true), copied);
            QVERIFY(!story.document()->isUndoRedoEnabled());
            QCOMPARE(write(nullptr, false), QByteArray());
            QCOMPARE(write(nullptr, true), QByteArray());
            QCOMPARE(log.texts(), QStringList());
        });
        add("stored bytes", &ORVTextRtf::toRtfCData, false);
        const auto addExporting = [&add, this](const QByteArray& suffix, bool exports) {
            const auto toBytes = [exports](QTextDocument* document, bool inPlace) {
                return ORVTextRtf::toRtfData(document, inPlace, exports);
            };
            const auto toFile = [this, exports](QTextDocument* document, bool inPlace) {
                return written([&](const QString& name, QString* message) {
                    return ORVTextRtf::toRtfFile(name, document, message, inPlace, exports);
                });
            };
            add("bytes" + suffix, toBytes, exports);
            add("file" + suffix, toFile, exports);
        };
        addExporting("", false);
        addExporting(", exported", true);
        const auto toFileDirectly = [this](QTextDocument* document, bool inPlace) {
            return written([&](const QString& name, QString* message) {
                return ORVTextRtf::toRtfFileDirect(name, document, message, inPlace);
            });
        };
        add("file, directly", toFileDirectly, false);
    }

    ORV_ROWS(writingALongFile)
    {
        const Rows add([this](bool direct) {
            const QSharedPointer<QTextDocument> document = longDocument();
            QVERIFY(writeFile(direct, path("a.rtf"), document.data(), nullptr));
            QCOMPARE(contents("a.rtf"), write(*document));
        });
        add("with a check", false);
        add("directly", true);
    }

    ORV_ROWS(fileThatDoesNotOpen)
    {
        const Rows add([this](bool direct, const QString& relativeName) {
            store("a.rtf", "kept");
            const QString name = path(relativeName);
            QString message;
            MessageLog log;
            QVERIFY(!writeFile(direct, name, shortDocument().data(), &message));
            const QString error = openingError(name);
            QVERIFY(!error.isEmpty());
            QCOMPARE(message,
                     direct ? error
                            : "Could not open RTF file for writing.\nFile: '"_s + name + "'\nError: '"_s
                             + error + QLatin1Char('\''));
            QVERIFY(!writeFile(direct, name, shortDocument().data(), nullptr));
            QCOMPARE(contents("a.rtf"), "kept"_b);
            QCOMPARE(log.texts(), QStringList());
            if (direct)
                return;
            ContextTranslator translator;
            QVERIFY(QCoreApplication::installTranslator(&translator));
            writeFile(direct, name, shortDocument().data(), &message);
            QCoreApplication::removeTranslator(&translator);
            const QString begin =
                "[QObject] Could not open RTF file for writing.\nFile: '"_s + name + QLatin1Char('\'');
            QVERIFY2(message.startsWith(begin), qPrintable(message));
        });
        for (const bool direct : {false, true}) {
            const QByteArray suffix = direct ? ", directly" : "";
            add("a folder" + suffix, direct, ".");
            add("in no folder" + suffix, direct, "missing/b.rtf");
            // A "%2" in the name of the file stays what it is.
            add("below a file" + suffix, direct, "a.rtf/%2 b.rtf");
        }
    }

    ORV_ROWS(fullDevice)
    {
        typedef QSharedPointer<QTextDocument> Document;
        const Rows add([](bool direct, const Document& document, const QString& expectedMessage,
                          const QStringList& logged) {
            if (!QFile::exists(FullDevice))
                QSKIP("this system has no device that is always full");
            QString message = untouched();
            MessageLog log;
            const bool ok = expectedMessage == untouched();
            QCOMPARE(writeFile(direct, FullDevice, document.data(), &message), ok);
            QCOMPARE(message, expectedMessage);
            QCOMPARE(log.texts(), logged);
            QCOMPARE(writeFile(direct, FullDevice, document.data(), nullptr), ok);
        });
        add("many bytes", false, longDocument(), "Could not write RTF contents to file: '/dev/full'",
            {"warning: Could not write RTF contents to file:  \"/dev/full\""_s,
             "warning: Bytes to write:  %1 Actually written:  -1"_s.arg(write(*longDocument()).size())});
        // So few bytes that they wait in the file object's own buffer until it is flushed.
        add("few bytes", false, shortDocument(),
            "Could not flush RTF contents of file: '/dev/full'\nError: '"_s + qt_error_string(ENOSPC)
                + QLatin1Char('\''),
            {});
        add("many bytes, directly", true, longDocument(), untouched(), {});
        add("few bytes, directly", true, shortDocument(), untouched(), {});
    }

    void partlyWrittenFileStays()
    {
#ifdef Q_OS_UNIX
        const QSharedPointer<QTextDocument> document = longDocument();
        const QByteArray whole = write(*document);
        const QString name = path("a.rtf");
        QString message;
        MessageLog log;
        // Files grow to some size only, as with a quota.
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit previous;
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &previous), 0);
        rlimit limit = previous;
        limit.rlim_cur = 50000;
        setrlimit(RLIMIT_FSIZE, &limit);
        const bool written = ORVTextRtf::toRtfFile(name, document.data(), &message, false, false);
        setrlimit(RLIMIT_FSIZE, &previous);
        QVERIFY(!written);
        QCOMPARE(message, "Could not write RTF contents to file: '%1'"_s.arg(name));
        QCOMPARE(log.texts(),
                 QStringList({"warning: Could not write RTF contents to file:  \"%1\""_s.arg(name),
                              "warning: Bytes to write:  %1 Actually written:  50000"_s.arg(whole.size())}));
        QCOMPARE(contents("a.rtf"), whole.left(50000));
#else
        QSKIP("the size of files cannot be limited on this system");
#endif
    }

    void storedBytesReadBack()
    {
        const QString text = "{One}\n\xc3\xa9\xe2\x82\xac\\ \xf0\x9f\x98\x80\n\n\tend"_s;
        const QByteArray stored = ORVTextRtf::toRtfCData(textDocument(text).data(), false);
        const QSharedPointer<QTextDocument> back = newDocument();
        QVERIFY(ORVTextRtf::fromRtfCData(wellFormed(stored), back.data()));
        QCOMPARE(textOf(*back), text);
        QCOMPARE(ORVTextRtf::rtfCDataText(stored), text);
    }

    ORV_ROWS(textToRtf)
    {
        const Rows add([](const QString& text, const QByteArray& body) {
            QCOMPARE(wellFormed(ORVTextRtf::textToRtf(text, nullptr)),
                     documentHead() + firstParagraph() + body + '}');
        });
        add("nothing", QString(), emptyRun());
        add("one line", "a {b}", run("a \\{b\\}"));
        add("two lines", "a\nb", run("a") + newParagraph() + run("b"));
        add("ends with a line feed", "a\n", run("a") + newParagraph() + emptyRun());
        add("looks like HTML", "<b>a</b>", run("<b>a</b>"));
        add("no export", "<$p>", run("<$p>"));
    }

    void textToRtfInAFont()
    {
        const QFont font("Quibble Serif"_s, 14);
        QCOMPARE(wellFormed(ORVTextRtf::textToRtf("a\nb"_s, &font)),
                 documentHead("{\\f0\\fnil\\fcharset1252\\fprq2 Quibble Serif;}") + firstParagraph()
                     + "{\\f0\\fs28 a}" + newParagraph() + "{\\f0\\fs28 b}}");
    }

private:
    static bool writeFile(bool direct, const QString& name, QTextDocument* document, QString* message)
    {
        return direct ? ORVTextRtf::toRtfFileDirect(name, document, message, false)
                      : ORVTextRtf::toRtfFile(name, document, message, false, false);
    }

    /*! What \a writeTo makes of a larger file; empty when it gives false and leaves the file alone. */
    QByteArray written(const std::function<bool(const QString& name, QString* message)>& writeTo) const
    {
        const QByteArray before(100000, 'x');
        QString message = untouched();
        store("a.rtf", before);
        const bool ok = writeTo(path("a.rtf"), &message);
        const QByteArray bytes = contents("a.rtf");
        if (message != untouched() || writeTo(path("a.rtf"), nullptr) != ok || contents("a.rtf") != bytes)
            QTest::qFail("there is a message, or it is different without one", __FILE__, __LINE__);
        return !ok && bytes == before ? QByteArray() : bytes;
    }

    QString path(const QString& name) const
    {
        return m_directory->filePath(name);
    }

    QByteArray contents(const char* name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : "not there"_b;
    }

    void store(const char* name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), qint64(bytes.size()));
    }

    QScopedPointer<QTemporaryDir> m_directory;
};

ORV_TEST("textrtf", TestTextRtf, QGuiApplication)
#include "textrtf.moc"
