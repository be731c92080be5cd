#include "conversionhelpers.h"

#include "TextTransform.h"

#include <ORVTextRtf.h>

#include <QCryptographicHash>
#include <QTextDocument>
#include <QtTest>

#include <filesystem>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <thread>
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
    const QString script = QStringLiteral(
        "import sys, zipfile\n"
        "frame = ('strong<draw:frame svg:width=\"1cm\" svg:height=\"1cm\" text:anchor-type=\"as-char\">'\n"
        "    '<draw:image xlink:href=\"' + sys.argv[3] + '\" xlink:type=\"simple\"/></draw:frame>')\n"
        "with zipfile.ZipFile(sys.argv[1]) as source, zipfile.ZipFile(sys.argv[2], 'w') as target:\n"
        "    for name in source.namelist():\n"
        "        data = source.read(name)\n"
        "        if name == 'content.xml':\n"
        "            data = data.replace(b'strong', frame.encode())\n"
        "        target.writestr(name, data)\n");
    runProgram(QStringLiteral("python3"), {QStringLiteral("-c"), script, source, target, address});
}

/*! Where a LibreOffice of the profile \a url listens for others. */
QString officeSocket(const QString& url)
{
    const QByteArray bytes(reinterpret_cast<const char*>(url.utf16()), int(url.size() * 2));
    QString hash;
    for (const char byte : QCryptographicHash::hash(bytes, QCryptographicHash::Md5))
        hash += QString::number(uchar(byte), 16);
    return QStringLiteral("/tmp/OSL_PIPE_%1_SingleOfficeIPC_%2").arg(getuid()).arg(hash);
}

} // namespace

/*! Converting with LibreOffice, AbiWord and pandoc themselves. */
class TestTextTransformPrograms : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void realProgramConverts_data();
    void realProgramConverts();
    void nothingIsFetched_data();
    void nothingIsFetched();
    void runningLibreOfficeIsNotDisturbed();
    void killedLibreOfficeLeavesNoSocket();
    void realProgramsTakeAnyFileName_data();
    void realProgramsTakeAnyFileName();
    void temporaryFolderBeyondAscii();
    void conversionsInSeveralThreads();

private:
    typedef TextTransform::Error Error;

    QString path(const char* name) const { return m_folders->path(QString::fromUtf8(name)); }
    Error toRtf(const QString& source, const QString& target, QString* message,
                ORVImportExport::Engine engine) const
    {
        return TextTransform::transformFileViaTools(source, target, ORVFormat::Rtf, engine, message, true);
    }

    QScopedPointer<Folders> m_folders;
    QScopedPointer<RealDocuments> m_documents;
};

void TestTextTransformPrograms::initTestCase()
{
    m_documents.reset(new RealDocuments);
}

void TestTextTransformPrograms::init()
{
    m_folders.reset(new Folders);
    TextTransform::setToolPath(ORVImportExport::LibreOfficeEngine, QString());
}

void TestTextTransformPrograms::cleanup()
{
    const QStringList leftovers = m_folders->leftovers();
    m_folders.reset();
    QCOMPARE(leftovers, QStringList());
}

void TestTextTransformPrograms::realProgramConverts_data()
{
    QTest::addColumn<int>("engine");
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<int>("format");

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
                << int(program.engine) << QStringLiteral("docx") << format;
    }
}

void TestTextTransformPrograms::realProgramConverts()
{
    QFETCH(int, engine);
    QFETCH(QString, suffix);
    QFETCH(int, format);
    const QString target = path("target");
    QString message;
    QCOMPARE(
        int(TextTransform::transformFileViaTools(m_documents->path(suffix), target, ORVFormat::Format(format),
                                                 ORVImportExport::Engine(engine), &message, true)),
        int(TextTransform::NoError));
    QCOMPARE(message, QString());
    QString text;
    if (format == ORVFormat::Rtf) {
        QTextDocument document;
        QVERIFY(ORVTextRtf::fromRtfFile(target, &document, nullptr));
        text = document.toPlainText();
    } else if (format == ORVFormat::Odt) {
        const QString plain = path("plain");
        runProgram(QStringLiteral("pandoc"),
                   {QStringLiteral("--from=odt"), QStringLiteral("--to=plain"),
                    QStringLiteral("--output=") + plain, target});
        text = QString::fromUtf8(readFile(plain));
    } else {
        text = QString::fromUtf8(readFile(target));
        QCOMPARE(text.contains(QLatin1String("<html"), Qt::CaseInsensitive), format == ORVFormat::Html);
        text.replace(QLatin1String("&uuml;"), QString::fromUtf8("\xc3\xbc"));
        text.replace(QLatin1String("&szlig;"), QString::fromUtf8("\xc3\x9f"));
    }
    QVERIFY2(missingWord(text).isEmpty(), qPrintable(text));
}

void TestTextTransformPrograms::nothingIsFetched_data()
{
    QTest::addColumn<int>("engine");

    QTest::newRow("LibreOffice") << int(ORVImportExport::LibreOfficeEngine);
    QTest::newRow("AbiWord") << int(ORVImportExport::AbiWordEngine);
    QTest::newRow("pandoc") << int(ORVImportExport::PandocEngine);
}

void TestTextTransformPrograms::nothingIsFetched()
{
    QFETCH(int, engine);
    const SilentServer server;
    addLinkedPicture(m_documents->path(QStringLiteral("odt")), path("in.odt"),
                     QStringLiteral("http://127.0.0.1:%1/picture.png").arg(server.port()));
    QString message;
    const Error error = toRtf(path("in.odt"), path("target.rtf"), &message, ORVImportExport::Engine(engine));
    QCOMPARE(message, QString());
    QCOMPARE(error, TextTransform::NoError);
    QTextDocument document;
    QVERIFY(ORVTextRtf::fromRtfFile(path("target.rtf"), &document, nullptr));
    QCOMPARE(missingWord(document.toPlainText()), QString());
    QVERIFY(!server.wasCalled());
}

void TestTextTransformPrograms::runningLibreOfficeIsNotDisturbed()
{
    const QString home = path("home");
    QVERIFY(QDir().mkdir(home));
    const Environment environment("HOME", QFile::encodeName(home));
    const QString socket =
        officeSocket(QLatin1String("file://") + home + QLatin1String("/.config/libreoffice/4"));
    QProcess office;
    QProcessEnvironment officeEnvironment = QProcessEnvironment::systemEnvironment();
    officeEnvironment.insert(QStringLiteral("TMPDIR"), home);
    office.setProcessEnvironment(officeEnvironment);
    office.start(
        QStandardPaths::findExecutable(QStringLiteral("soffice")),
        {QStringLiteral("--headless"), QStringLiteral("--norestore"), QStringLiteral("--nodefault")});
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(socket), 60000);
    QCOMPARE(toRtf(m_documents->path(QStringLiteral("docx")), path("target.rtf"), nullptr,
                   ORVImportExport::LibreOfficeEngine),
             TextTransform::NoError);
    QVERIFY(!office.waitForFinished(0));
    QVERIFY(QFileInfo::exists(socket));
    office.terminate();
    QVERIFY(office.waitForFinished(60000));
    QFile::remove(socket);
}

void TestTextTransformPrograms::killedLibreOfficeLeavesNoSocket()
{
    // Lets the real one run until its socket is there, and fails; what is left running is killed then.
    writeFile(path("killed.py"),
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
    QCOMPARE(toRtf(m_documents->path(QStringLiteral("docx")), path("target.rtf"), &message,
                   ORVImportExport::LibreOfficeEngine),
             TextTransform::ToolFailed);
    QVERIFY2(message.contains(QLatin1String("socket /tmp/OSL_PIPE_")), qPrintable(message));
    const QString socket = message.mid(message.lastIndexOf(QLatin1String("socket ")) + 7);
    QVERIFY(!QFileInfo::exists(socket));
}

void TestTextTransformPrograms::realProgramsTakeAnyFileName_data()
{
    nothingIsFetched_data();
}

void TestTextTransformPrograms::realProgramsTakeAnyFileName()
{
    QFETCH(int, engine);
    const QString name = QString::fromUtf8("--x 'q' \"\n;\xc3\xbc.docx");
    QVERIFY(QFile::copy(m_documents->path(QStringLiteral("docx")), m_folders->path(name)));
    const QString current = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_folders->path(QString())));
    const Error error = toRtf(name, QStringLiteral("-t.rtf"), nullptr, ORVImportExport::Engine(engine));
    QVERIFY(QDir::setCurrent(current));
    QCOMPARE(error, TextTransform::NoError);
    QTextDocument document;
    QVERIFY(ORVTextRtf::fromRtfFile(path("-t.rtf"), &document, nullptr));
    QCOMPARE(missingWord(document.toPlainText()), QString());
}

void TestTextTransformPrograms::temporaryFolderBeyondAscii()
{
    const QString folder = path("t\xc3\xbc 'x'");
    QVERIFY(QDir().mkdir(folder));
    const Environment temporary("TMPDIR", QFile::encodeName(folder));
    // What a system's services run in; LibreOffice would take the path for another one.
    const Environment locale("LC_ALL", "C");
    QCOMPARE(toRtf(m_documents->path(QStringLiteral("docx")), path("target.rtf"), nullptr,
                   ORVImportExport::LibreOfficeEngine),
             TextTransform::NoError);
    QVERIFY(QDir(folder).isEmpty());
    // Asked of the system, since Qt does not list names that are no UTF-8.
    const std::filesystem::directory_iterator entries(m_folders->path(QString()).toStdString());
    QCOMPARE(int(std::distance(begin(entries), end(entries))), 3); // target, folder and the usual folder
}

void TestTextTransformPrograms::conversionsInSeveralThreads()
{
    const int count = 3;
    int errors[count] = {-1, -1, -1};
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i)
        threads.emplace_back([this, &errors, i] {
            errors[i] = toRtf(m_documents->path(QStringLiteral("docx")),
                              m_folders->path(QStringLiteral("target%1").arg(i)), nullptr,
                              ORVImportExport::LibreOfficeEngine);
        });
    for (std::thread& thread : threads)
        thread.join();
    for (int i = 0; i < count; ++i) {
        QCOMPARE(errors[i], int(TextTransform::NoError));
        QTextDocument document;
        QVERIFY(
            ORVTextRtf::fromRtfFile(m_folders->path(QStringLiteral("target%1").arg(i)), &document, nullptr));
        QCOMPARE(missingWord(document.toPlainText()), QString());
    }
}

QTEST_GUILESS_MAIN(TestTextTransformPrograms)
#include "tst_texttransform_programs.moc"
