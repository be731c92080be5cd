#include "transformtest.h"

#include <filesystem>

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace ORVImportExport;
using namespace TextTransform;
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
class TestTextTransformPrograms : public TransformTest {
    Q_OBJECT

private slots:
    void initTestCase() { m_documents.reset(new RealDocuments); }

    ORV_ROWS(realProgramConverts)
    {
        const Rows add([this](Engine engine, const QString& suffix, ORVFormat::Format format) {
            const QString target = path("target");
            QString message;
            QCOMPARE(convert(m_documents->path(suffix), target, format, engine, &message), NoError);
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
                text.replace("&uuml;"_s, "\xc3\xbc"_s).replace("&szlig;"_s, "\xc3\x9f"_s);
            }
            QVERIFY2(missingWord(text).isEmpty(), qPrintable(text));
        });
        for (const char* const suffix : {"doc", "docx", "odt", "html"})
            add("LibreOffice from "_b + suffix, LibreOfficeEngine, suffix, ORVFormat::Rtf);
        for (const char* const suffix : {"doc", "docx", "odt"})
            add("AbiWord from "_b + suffix, AbiWordEngine, suffix, ORVFormat::Rtf);
        for (const char* const suffix : {"docx", "odt", "html"})
            add("pandoc from "_b + suffix, PandocEngine, suffix, ORVFormat::Rtf);
        add("LibreOffice to text", LibreOfficeEngine, "docx", ORVFormat::PlainText);
        add("LibreOffice to HTML", LibreOfficeEngine, "docx", ORVFormat::Html);
        add("LibreOffice to ODT", LibreOfficeEngine, "docx", ORVFormat::Odt);
        add("AbiWord to text", AbiWordEngine, "docx", ORVFormat::PlainText);
        add("pandoc to text", PandocEngine, "docx", ORVFormat::PlainText);
    }

    ORV_ROWS(nothingIsFetched)
    {
        const Rows add([this](Engine engine) {
            const SilentServer server;
            addLinkedPicture(m_documents->path("odt"_s), path("in.odt"),
                             "http://127.0.0.1:%1/picture.png"_s.arg(server.port()));
            QString message;
            QCOMPARE(toRtf(path("in.odt"), path("target.rtf"), &message, engine), NoError);
            QCOMPARE(message, QString());
            QCOMPARE(missingWord(textOfRtf(path("target.rtf"))), QString());
            QVERIFY(!server.wasCalled());
        });
        add("LibreOffice", LibreOfficeEngine);
        add("AbiWord", AbiWordEngine);
        add("pandoc", PandocEngine);
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
        QCOMPARE(runLibreOffice(path("target.rtf")), NoError);
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
        setToolPath(LibreOfficeEngine, writeScript(path("tool"), command));
        QString message;
        QCOMPARE(runLibreOffice(path("target.rtf"), &message), ToolFailed);
        QVERIFY2(message.contains("socket /tmp/OSL_PIPE_"_s), qPrintable(message));
        const QString socket = message.mid(message.lastIndexOf("socket "_s) + 7);
        QVERIFY(!QFileInfo::exists(socket));
    }

    ORV_ROWS(realProgramsTakeAnyFileName)
    {
        const Rows add([this](Engine engine) {
            const QString name = "--x 'q' \"\n;\xc3\xbc.docx"_s;
            QVERIFY(QFile::copy(m_documents->path("docx"_s), path(name)));
            const WorkingFolder folder(path(""));
            QCOMPARE(toRtf(name, "-t.rtf"_s, nullptr, engine), NoError);
            QCOMPARE(missingWord(textOfRtf(path("-t.rtf"))), QString());
        });
        add("LibreOffice", LibreOfficeEngine);
        add("AbiWord", AbiWordEngine);
        add("pandoc", PandocEngine);
    }

    void temporaryFolderBeyondAscii()
    {
        const QString folder = path("t\xc3\xbc 'x'");
        QVERIFY(QDir().mkdir(folder));
        const Environment temporary("TMPDIR", QFile::encodeName(folder));
        // What a system's services run in; LibreOffice would take the path for another one.
        const Environment locale("LC_ALL", "C");
        QCOMPARE(runLibreOffice(path("target.rtf")), NoError);
        QVERIFY(QDir(folder).isEmpty());
        // Asked of the system, since Qt does not list names that are no UTF-8.
        const std::filesystem::directory_iterator entries(path(QString()).toStdString());
        QCOMPARE(int(std::distance(begin(entries), end(entries))), 3); // target, folder and the usual folder
    }

    void conversionsInSeveralThreads()
    {
        const int count = 3;
        int errors[count] = {-1, -1, -1};
        std::vector<std::thread> threads;
        for (int i = 0; i < count; ++i)
            threads.emplace_back(
                [this, &errors, i] { errors[i] = runLibreOffice(path("target%1"_s.arg(i))); });
        for (std::thread& thread : threads)
            thread.join();
        for (int i = 0; i < count; ++i) {
            QCOMPARE(errors[i], int(NoError));
            QCOMPARE(missingWord(textOfRtf(path("target%1"_s.arg(i)))), QString());
        }
    }

private:
    /*! Has LibreOffice convert the .docx document. */
    Error runLibreOffice(const QString& target, QString* message = nullptr) const
    {
        return toRtf(m_documents->path("docx"_s), target, message, LibreOfficeEngine);
    }

    QScopedPointer<RealDocuments> m_documents;
};

ORV_TEST_WITH("soffice abiword pandoc python3", "texttransform_programs", TestTextTransformPrograms,
              QCoreApplication)
#include "texttransformprograms.moc"
