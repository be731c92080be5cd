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
        m_previous = qInstallMessageHandler(&MessageLog::append);
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
    static void append(QtMsgType type, const QMessageLogContext&, const QString& text)
    {
        texts() << (type == QtWarningMsg ? "warning: "_s : "other: "_s) + text;
    }

    QtMessageHandler m_previous;
};

#ifdef Q_OS_UNIX
/*! Lets files grow to some size only while this object lives, as a quota does. */
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        getrlimit(RLIMIT_FSIZE, &m_previous);
        m_previousHandler = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit = m_previous;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_previous);
        std::signal(SIGXFSZ, m_previousHandler);
    }
    Q_DISABLE_COPY(FileSizeLimit)

private:
    rlimit m_previous;
    void (*m_previousHandler)(int);
};
#endif

const char* const FullDevice = "/dev/full";

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

/*! A document of more bytes than Qt's files and the writer hold back. */
QSharedPointer<QTextDocument> longDocument()
{
    return textDocument("lorem ipsum "_s.repeated(10000));
}

QSharedPointer<QTextDocument> shortDocument()
{
    return textDocument("<$p> Hello"_s);
}

} // namespace

class TestFiles : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_directory.reset(new QTemporaryDir);
        QVERIFY(m_directory->isValid());
    }

    void readsAFile()
    {
        store("a.rtf", "{\\rtf1\\ansi One\\par {\\b Two}}");
        const QSharedPointer<QTextDocument> document = textDocument("old"_s);
        QString message = untouched();
        QVERIFY(ORVTextRtf::fromRtfFile(path("a.rtf"), document.data(), &message));
        QCOMPARE(textOf(*document), "One\nTwo"_s);
        QCOMPARE(formatOf(*document, "Two"_s).fontWeight(), int(QFont::Bold));
        QCOMPARE(message, untouched());
    }

    void readingReportsDamage()
    {
        store("open.rtf", "{\\rtf1\\ansi One{\\b Two}");
        const QSharedPointer<QTextDocument> document = newDocument();
        QString message = untouched();
        QVERIFY(!ORVTextRtf::fromRtfFile(path("open.rtf"), document.data(), &message));
        QCOMPARE(message, "Unmatched '}' in Rich Text file"_s);
        QCOMPARE(textOf(*document), "OneTwo"_s);
    }

    void readingWithoutAMessagePointer()
    {
        store("open.rtf", "{\\rtf1\\ansi One{}");
        store("good.rtf", "{\\rtf1\\ansi One}");
        const QSharedPointer<QTextDocument> document = newDocument();
        QVERIFY(!ORVTextRtf::fromRtfFile(path("open.rtf"), document.data(), nullptr));
        QVERIFY(!ORVTextRtf::fromRtfFile(path("missing.rtf"), document.data(), nullptr));
        QVERIFY(!ORVTextRtf::fromRtfFile(m_directory->path(), document.data(), nullptr));
        QVERIFY(ORVTextRtf::fromRtfFile(path("good.rtf"), document.data(), nullptr));
    }

    void readingWhatIsNoFile()
    {
        for (const QString& name : {path("missing.rtf"), m_directory->path()}) {
            const QSharedPointer<QTextDocument> document = textDocument("old"_s);
            QString message = untouched();
            QVERIFY(!ORVTextRtf::fromRtfFile(name, document.data(), &message));
            QCOMPARE(message, untouched());
            QCOMPARE(textOf(*document), "old"_s);
        }
        QVERIFY(!QFile::exists(path("missing.rtf")));
    }

    void readingIntoNoDocument()
    {
        store("a.rtf", "{\\rtf1\\ansi One}");
        QString message = untouched();
        QVERIFY(!ORVTextRtf::fromRtfFile(path("a.rtf"), nullptr, &message));
        QCOMPARE(message, untouched());
    }

    ORV_ROWS(writesAFile)
    {
        const Rows add([this](bool exportingMode) {
            const QSharedPointer<QTextDocument> document = shortDocument();
            QString message = untouched();
            MessageLog log;
            QVERIFY(ORVTextRtf::toRtfFile(path("a.rtf"), document.data(), &message, false, exportingMode));
            QCOMPARE(message, untouched());
            const QByteArray text = exportingMode ? "{\\chpgn} Hello" : "<$p> Hello";
            QCOMPARE(wellFormed(contents("a.rtf")),
                     documentHead() + firstParagraph() + "{\\f0\\fs24 " + text + "}}");
            QVERIFY(ORVTextRtf::toRtfFile(path("b.rtf"), document.data(), nullptr, false, exportingMode));
            QCOMPARE(contents("b.rtf"), contents("a.rtf"));
            QCOMPARE(log.texts(), QStringList());
        });
        add("storing", false);
        add("exporting", true);
    }

    ORV_ROWS(writingReplacesTheFile)
    {
        const Rows add([this](bool direct) {
            store("a.rtf", QByteArray(100000, 'x'));
            QVERIFY(writeFile(direct, "a.rtf", shortDocument().data()));
            QCOMPARE(contents("a.rtf"), write(*shortDocument()));
        });
        add("with a check", false);
        add("directly", true);
    }

    ORV_ROWS(writingInPlace)
    {
        const Rows add([this](bool direct) {
            const QSharedPointer<QTextDocument> document = shortDocument();
            QVERIFY(writeFile(direct, "a.rtf", document.data()));
            QVERIFY(document->isUndoRedoEnabled());
            QVERIFY(writeFile(direct, "b.rtf", document.data(), true));
            QVERIFY(!document->isUndoRedoEnabled());
            QCOMPARE(contents("b.rtf"), contents("a.rtf"));
        });
        add("with a check", false);
        add("directly", true);
    }

    void writingNoDocument()
    {
        QString message = untouched();
        QVERIFY(!ORVTextRtf::toRtfFile(path("a.rtf"), nullptr, &message, false, false));
        QVERIFY(!ORVTextRtf::toRtfFile(path("a.rtf"), nullptr, &message, true, true));
        QVERIFY(!ORVTextRtf::toRtfFile(path("a.rtf"), nullptr, nullptr, false, false));
        QVERIFY(!ORVTextRtf::toRtfFile(m_directory->path(), nullptr, &message, false, false));
        QCOMPARE(message, untouched());
        QVERIFY(!QFile::exists(path("a.rtf")));
    }

    void writingToADirectory()
    {
        const QString name = m_directory->path();
        QString message;
        QVERIFY(!ORVTextRtf::toRtfFile(name, shortDocument().data(), &message, false, false));
        QCOMPARE(message,
                 "Could not open RTF file for writing.\nFile: '"_s + name + "'\nError: '"_s
                     + openingError(name) + QLatin1Char('\''));
        QVERIFY(!ORVTextRtf::toRtfFile(name, shortDocument().data(), nullptr, false, false));
    }

    void writingBelowAFile()
    {
        store("a.rtf", "kept");
        const QString name = path("a.rtf/%2 b.rtf");
        QString message;
        MessageLog log;
        QVERIFY(!ORVTextRtf::toRtfFile(name, shortDocument().data(), &message, false, false));
        // A "%2" in the name of the file stays what it is.
        QCOMPARE(message,
                 "Could not open RTF file for writing.\nFile: '"_s + name + "'\nError: '"_s
                     + openingError(name) + QLatin1Char('\''));
        QCOMPARE(contents("a.rtf"), "kept"_b);
        QCOMPARE(log.texts(), QStringList());
    }

    void messageOfOpeningIsTranslated()
    {
        const QString name = m_directory->path();
        ContextTranslator translator;
        QVERIFY(QCoreApplication::installTranslator(&translator));
        QString message;
        const bool written = ORVTextRtf::toRtfFile(name, shortDocument().data(), &message, false, false);
        QCoreApplication::removeTranslator(&translator);
        QVERIFY(!written);
        const QString begin =
            "[QObject] Could not open RTF file for writing.\nFile: '"_s + name + QLatin1Char('\'');
        QVERIFY2(message.startsWith(begin), qPrintable(message));
    }

    void writingToAFullDevice()
    {
        const QString name = QString::fromLatin1(FullDevice);
        if (!QFile::exists(name))
            QSKIP("this system has no device that is always full");
        const QSharedPointer<QTextDocument> document = longDocument();
        QString message;
        MessageLog log;
        QVERIFY(!ORVTextRtf::toRtfFile(name, document.data(), &message, false, false));
        QCOMPARE(message, "Could not write RTF contents to file: '/dev/full'"_s);
        const QString counts =
            "warning: Bytes to write:  %1 Actually written:  -1"_s.arg(write(*document).size());
        QCOMPARE(log.texts(),
                 QStringList() << "warning: Could not write RTF contents to file:  \"/dev/full\""_s
                               << counts);
        QVERIFY(!ORVTextRtf::toRtfFile(name, document.data(), nullptr, false, false));
    }

    void flushingToAFullDevice()
    {
        const QString name = QString::fromLatin1(FullDevice);
        if (!QFile::exists(name))
            QSKIP("this system has no device that is always full");
        // So few bytes that they wait in the file object's own buffer until it is flushed.
        QString message;
        MessageLog log;
        QVERIFY(!ORVTextRtf::toRtfFile(name, shortDocument().data(), &message, false, false));
        QCOMPARE(message,
                 "Could not flush RTF contents of file: '/dev/full'\nError: '"_s + qt_error_string(ENOSPC)
                     + QLatin1Char('\''));
        QCOMPARE(log.texts(), QStringList());
        QVERIFY(!ORVTextRtf::toRtfFile(name, shortDocument().data(), nullptr, false, false));
    }

    void partlyWrittenFileStays()
    {
#ifdef Q_OS_UNIX
        const QSharedPointer<QTextDocument> document = longDocument();
        const QByteArray whole = write(*document);
        const QString name = path("a.rtf");
        QString message;
        bool written = true;
        QStringList texts;
        {
            MessageLog log;
            FileSizeLimit limit(50000);
            written = ORVTextRtf::toRtfFile(name, document.data(), &message, false, false);
            texts = log.texts();
        }
        QVERIFY(!written);
        QCOMPARE(message, "Could not write RTF contents to file: '"_s + name + QLatin1Char('\''));
        const QString first =
            "warning: Could not write RTF contents to file:  \""_s + name + QLatin1Char('"');
        const QString second = "warning: Bytes to write:  %1 Actually written:  50000"_s.arg(whole.size());
        QCOMPARE(texts, QStringList() << first << second);
        QCOMPARE(contents("a.rtf"), whole.left(50000));
#else
        QSKIP("the size of files cannot be limited on this system");
#endif
    }

    void writesAFileDirectly()
    {
        const QSharedPointer<QTextDocument> document = longDocument();
        QString message = untouched();
        QVERIFY(ORVTextRtf::toRtfFileDirect(path("a.rtf"), document.data(), &message, false));
        QCOMPARE(message, untouched());
        QCOMPARE(contents("a.rtf"), write(*document));
        // Never in exporting mode.
        QVERIFY(ORVTextRtf::toRtfFileDirect(path("b.rtf"), shortDocument().data(), nullptr, false));
        QCOMPARE(contents("b.rtf"), documentHead() + firstParagraph() + "{\\f0\\fs24 <$p> Hello}}");
    }

    void writingNoDocumentDirectly()
    {
        QString message = untouched();
        QVERIFY(!ORVTextRtf::toRtfFileDirect(path("a.rtf"), nullptr, &message, false));
        QVERIFY(!ORVTextRtf::toRtfFileDirect(path("a.rtf"), nullptr, nullptr, true));
        QVERIFY(!ORVTextRtf::toRtfFileDirect(m_directory->path(), nullptr, &message, false));
        QCOMPARE(message, untouched());
        QVERIFY(!QFile::exists(path("a.rtf")));
    }

    void directMessageIsThatOfTheFile()
    {
        store("a.rtf", "kept");
        const QStringList names = {m_directory->path(), path("a.rtf/b.rtf"), path("missing/b.rtf")};
        for (const QString& name : names) {
            QString message;
            QVERIFY(!ORVTextRtf::toRtfFileDirect(name, shortDocument().data(), &message, false));
            QCOMPARE(message, openingError(name));
            QVERIFY(!message.isEmpty());
            QVERIFY(!ORVTextRtf::toRtfFileDirect(name, shortDocument().data(), nullptr, false));
        }
        QCOMPARE(contents("a.rtf"), "kept"_b);
    }

    void directWritingChecksNoFlush()
    {
        const QString name = QString::fromLatin1(FullDevice);
        if (!QFile::exists(name))
            QSKIP("this system has no device that is always full");
        QString message = untouched();
        MessageLog log;
        QVERIFY(ORVTextRtf::toRtfFileDirect(name, shortDocument().data(), &message, false));
        QVERIFY(ORVTextRtf::toRtfFileDirect(name, longDocument().data(), &message, false));
        QCOMPARE(message, untouched());
        QCOMPARE(log.texts(), QStringList());
    }

private:
    bool writeFile(bool direct, const char* name, QTextDocument* document, bool inPlace = false) const
    {
        return direct ? ORVTextRtf::toRtfFileDirect(path(name), document, nullptr, inPlace)
                      : ORVTextRtf::toRtfFile(path(name), document, nullptr, inPlace, false);
    }

    QString path(const char* name) const
    {
        return m_directory->filePath(QLatin1String(name));
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

ORV_TEST("files", TestFiles, QGuiApplication)
#include "files.moc"
