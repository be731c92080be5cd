#include "TextTransform.h"
#include "conversionhelpers.h"
#include "testsupport.h"

#include <filesystem>

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace conversiontest;

namespace {

/*! A server that takes calls and never answers. */
class SilentServer {
public:
    SilentServer() : m_socket(socket(AF_INET, SOCK_STREAM, 0))
    {
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof(address);
        if (bind(m_socket, reinterpret_cast<sockaddr*>(&address), size) != 0 || listen(m_socket, 5) != 0
            || getsockname(m_socket, reinterpret_cast<sockaddr*>(&address), &size) != 0)
            qFatal("no server");
        m_port = ntohs(address.sin_port);
    }
    ~SilentServer() { close(m_socket); }
    Q_DISABLE_COPY(SilentServer)

    int port() const { return m_port; }
    bool wasCalled() const
    {
        pollfd call = {m_socket, POLLIN, 0};
        return poll(&call, 1, 0) > 0;
    }

private:
    int m_socket;
    int m_port = 0;
};

/*! Copies the .odt \a source to \a target and adds a picture that is elsewhere, at \a address. */
void addLinkedPicture(const QString& source, const QString& target, const QString& address)
{
    const QString script =
        "import sys, zipfile\n"
        "frame = ('strong<draw:frame svg:width=\"1cm\" svg:height=\"1cm\" text:anchor-type=\"as-char\">'\n"
        "    '<draw:image xlink:href=\"' + sys.argv[3] + '\" xlink:type=\"simple\"/></draw:frame>')\n"
        "with zipfile.ZipFile(sys.argv[1]) as source, zipfile.ZipFile(sys.argv[2], 'w') as target:\n"
        "    for name in source.namelist():\n"
        "        data = source.read(name)\n"
        "        if name == 'content.xml':\n"
        "            data = data.replace(b'strong', frame.encode())\n"
        "        target.writestr(name, data)\n"_s;
    runProgram("python3"_s, {"-c"_s, script, source, target, address});
}

/*! The text of an RTF file that can be read without an error; otherwise empty. */
QString textOfRtf(const QString& path)
{
    QTextDocument document;
    return ORVTextRtf::fromRtfFile(path, &document, nullptr) ? document.toPlainText() : QString();
}

/*! Where a LibreOffice of the profile \a url listens for others. */
QString officeSocket(const QString& url)
{
    const QByteArray bytes(reinterpret_cast<const char*>(url.utf16()), int(url.size() * 2));
    QString hash;
    for (const char byte : QCryptographicHash::hash(bytes, QCryptographicHash::Md5))
        hash += QString::number(uchar(byte), 16);
    return "/tmp/OSL_PIPE_%1_SingleOfficeIPC_%2"_s.arg(getuid()).arg(hash);
}

} // namespace

/*! Converting with LibreOffice, AbiWord and pandoc themselves. */
class TestTextTransformPrograms : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_documents.reset(new RealDocuments); }

    void init()
    {
        m_folders.reset(new Folders);
        TextTransform::setToolPath(ORVImportExport::LibreOfficeEngine, QString());
    }

    void cleanup()
    {
        const QStringList leftovers = m_folders->leftovers();
        m_folders.reset();
        QCOMPARE(leftovers, QStringList());
    }

    void realProgramConverts_data()
    {
        Columns<int, QString, int>("engine", "suffix", "format");
        struct Program {
            const char* name;
            ORVImportExport::Engine engine;
            const char* suffixes;
            QList<int> otherFormats;
        };
        const Program programs[] = {
            {"LibreOffice",
             ORVImportExport::LibreOfficeEngine,
             "doc docx odt html",
             {ORVFormat::PlainText, ORVFormat::Html, ORVFormat::Odt}},
            {"AbiWord", ORVImportExport::AbiWordEngine, "doc docx odt", {ORVFormat::PlainText}},
            {"pandoc", ORVImportExport::PandocEngine, "docx odt html", {ORVFormat::PlainText}},
        };
        for (const Program& program : programs) {
            for (const QString& suffix : QString::fromLatin1(program.suffixes).split(QLatin1Char(' ')))
                QTest::addRow("%s from %s to RTF", program.name, qPrintable(suffix))
                    << int(program.engine) << suffix << int(ORVFormat::Rtf);
            for (const int format : program.otherFormats)
                QTest::addRow("%s from docx to format %d", program.name, format)
                    << int(program.engine) << "docx"_s << format;
        }
    }

    void realProgramConverts()
    {
        FETCH(int, engine, QString, suffix, int, format);
        const QString target = path("target");
        QString message;
        QCOMPARE(int(TextTransform::transformFileViaTools(m_documents->path(suffix), target,
                                                          ORVFormat::Format(format),
                                                          ORVImportExport::Engine(engine), &message, true)),
                 int(TextTransform::NoError));
        QCOMPARE(message, QString());
        QString text;
        if (format == ORVFormat::Rtf) {
            text = textOfRtf(target);
        } else if (format == ORVFormat::Odt) {
            const QString plain = path("plain");
            runProgram("pandoc"_s, {"--from=odt"_s, "--to=plain"_s, "--output="_s + plain, target});
            text = QString::fromUtf8(readFile(plain));
        } else {
            text = QString::fromUtf8(readFile(target));
            QCOMPARE(text.contains("<html"_s, Qt::CaseInsensitive), format == ORVFormat::Html);
            text.replace("&uuml;"_s, "\xc3\xbc"_s);
            text.replace("&szlig;"_s, "\xc3\x9f"_s);
        }
        QVERIFY2(missingWord(text).isEmpty(), qPrintable(text));
    }

    ORV_ROWS(nothingIsFetched)
    {
        const Rows add([this](int engine) {
            const SilentServer server;
            addLinkedPicture(m_documents->path("odt"_s), path("in.odt"),
                             "http://127.0.0.1:%1/picture.png"_s.arg(server.port()));
            QString message;
            const Error error =
                toRtf(path("in.odt"), path("target.rtf"), &message, ORVImportExport::Engine(engine));
            QCOMPARE(message, QString());
            QCOMPARE(error, TextTransform::NoError);
            QCOMPARE(missingWord(textOfRtf(path("target.rtf"))), QString());
            QVERIFY(!server.wasCalled());
        });
        add("LibreOffice", int(ORVImportExport::LibreOfficeEngine));
        add("AbiWord", int(ORVImportExport::AbiWordEngine));
        add("pandoc", int(ORVImportExport::PandocEngine));
    }

    void runningLibreOfficeIsNotDisturbed()
    {
        const QString home = path("home");
        QVERIFY(QDir().mkdir(home));
        const Environment environment("HOME", QFile::encodeName(home));
        const QString socket = officeSocket("file://"_s + home + "/.config/libreoffice/4"_s);
        QProcess office;
        QProcessEnvironment officeEnvironment = QProcessEnvironment::systemEnvironment();
        officeEnvironment.insert("TMPDIR"_s, home);
        office.setProcessEnvironment(officeEnvironment);
        office.start(QStandardPaths::findExecutable("soffice"_s),
                     {"--headless"_s, "--norestore"_s, "--nodefault"_s});
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(socket), 60000);
        QCOMPARE(runLibreOffice(path("target.rtf")), TextTransform::NoError);
        QVERIFY(!office.waitForFinished(0));
        QVERIFY(QFileInfo::exists(socket));
        office.terminate();
        QVERIFY(office.waitForFinished(60000));
        QFile::remove(socket);
    }

    void killedLibreOfficeLeavesNoSocket()
    {
        // Lets the real one run until its socket is there, and fails; what is left running is killed then.
        writeFile(
            path("killed.py"),
            "import glob, hashlib, subprocess, sys, time\n"
            "url = [a for a in sys.argv if a.startswith('-env:UserInstallation=')][0].split('=', 1)[1]\n"
            "office = subprocess.Popen(['soffice'] + sys.argv[1:])\n"
            "name = ''.join('%x' % b for b in hashlib.md5(url.encode('utf-16le')).digest())\n"
            "sockets = []\n"
            "while not sockets and office.poll() is None:\n"
            "    sockets = glob.glob('/tmp/OSL_PIPE_*_SingleOfficeIPC_' + name)\n"
            "    time.sleep(0.001)\n"
            "sys.stderr.write('socket ' + sockets[0])\n"
            "sys.exit(7)\n");
        const QByteArray command = "exec python3 '" + QFile::encodeName(path("killed.py")) + "' \"$@\"";
        TextTransform::setToolPath(ORVImportExport::LibreOfficeEngine, writeScript(path("tool"), command));
        QString message;
        QCOMPARE(runLibreOffice(path("target.rtf"), &message), TextTransform::ToolFailed);
        QVERIFY2(message.contains("socket /tmp/OSL_PIPE_"_s), qPrintable(message));
        const QString socket = message.mid(message.lastIndexOf("socket "_s) + 7);
        QVERIFY(!QFileInfo::exists(socket));
    }

    ORV_ROWS(realProgramsTakeAnyFileName)
    {
        const Rows add([this](int engine) {
            const QString name = "--x 'q' \"\n;\xc3\xbc.docx"_s;
            QVERIFY(QFile::copy(m_documents->path("docx"_s), m_folders->path(name)));
            const QString current = QDir::currentPath();
            QVERIFY(QDir::setCurrent(m_folders->path(QString())));
            const Error error = toRtf(name, "-t.rtf"_s, nullptr, ORVImportExport::Engine(engine));
            QVERIFY(QDir::setCurrent(current));
            QCOMPARE(error, TextTransform::NoError);
            QCOMPARE(missingWord(textOfRtf(path("-t.rtf"))), QString());
        });
        add("LibreOffice", int(ORVImportExport::LibreOfficeEngine));
        add("AbiWord", int(ORVImportExport::AbiWordEngine));
        add("pandoc", int(ORVImportExport::PandocEngine));
    }

    void temporaryFolderBeyondAscii()
    {
        const QString folder = path("t\xc3\xbc 'x'");
        QVERIFY(QDir().mkdir(folder));
        const Environment temporary("TMPDIR", QFile::encodeName(folder));
        // What a system's services run in; LibreOffice would take the path for another one.
        const Environment locale("LC_ALL", "C");
        QCOMPARE(runLibreOffice(path("target.rtf")), TextTransform::NoError);
        QVERIFY(QDir(folder).isEmpty());
        // Asked of the system, since Qt does not list names that are no UTF-8.
        const std::filesystem::directory_iterator entries(m_folders->path(QString()).toStdString());
        QCOMPARE(int(std::distance(begin(entries), end(entries))), 3); // target, folder and the usual folder
    }

    void conversionsInSeveralThreads()
    {
        const int count = 3;
        int errors[count] = {-1, -1, -1};
        std::vector<std::thread> threads;
        for (int i = 0; i < count; ++i)
            threads.emplace_back(
                [this, &errors, i] { errors[i] = runLibreOffice(m_folders->path("target%1"_s.arg(i))); });
        for (std::thread& thread : threads)
            thread.join();
        for (int i = 0; i < count; ++i) {
            QCOMPARE(errors[i], int(TextTransform::NoError));
            QCOMPARE(missingWord(textOfRtf(m_folders->path("target%1"_s.arg(i)))), QString());
        }
    }

private:
    typedef TextTransform::Error Error;
    QString path(const char* name) const { return m_folders->path(QString::fromUtf8(name)); }

    Error toRtf(const QString& source, const QString& target, QString* message,
                ORVImportExport::Engine engine) const
    {
        return TextTransform::transformFileViaTools(source, target, ORVFormat::Rtf, engine, message, true);
    }

    /*! Has LibreOffice convert the .docx document. */
    Error runLibreOffice(const QString& target, QString* message = nullptr) const
    {
        return toRtf(m_documents->path("docx"_s), target, message, ORVImportExport::LibreOfficeEngine);
    }

    QScopedPointer<Folders> m_folders;
    QScopedPointer<RealDocuments> m_documents;
};

ORV_TEST_WITH("soffice abiword pandoc python3", "texttransform_programs", TestTextTransformPrograms,
              QCoreApplication)
#include "texttransformprograms.moc"
