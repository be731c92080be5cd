#include "tooltest.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

class tst_tool : public ToolTest {
    Q_OBJECT

private slots:
    void htmlHasTextLinksAndEncoding();
    void htmlHoldsPngPictures();
    void htmlHoldsJpegBytesUnchanged();
    void plainText_data();
    void plainText();
    void outputFormat_data();
    void outputFormat();
    void convertsStandardInputToStandardOutput();
    void waitsForSlowPipe_data();
    void waitsForSlowPipe();
    void stripsFiles();
    void writesIntoNamedPipe();
    void overwritesOutputFile();

    void infoAsJson();
    void infoAsText();
    void infoOfDamagedFile();
    void checkAcceptsSoundFile();
    void checkReportsDamage_data();
    void checkReportsDamage();
    void damagedFileIsConvertedAllTheSame();

    void usageErrors_data();
    void usageErrors();
    void unreadableInput_data();
    void unreadableInput();
    void failedReadingKeepsOldOutput();
    void standardInputIsDirectory();
    void noRoomForPipedInput();
    void unwritableOutput_data();
    void unwritableOutput();
    void interruptedWritingLeavesNoFile_data();
    void interruptedWritingLeavesNoFile();
    void outputIsInput();
    void fullStandardOutput_data();
    void fullStandardOutput();

    void version();
    void help();
    void needsNoDisplay();
    void platformOfTheEnvironmentIsNotUsed();
    void fileNamesInCLocale();
    void fileNamesThatLookLikeOptions();
};

/*! Picture data of one colour in the format \a type. */
static QByteArray picture(const char* type, QRgb colour)
{
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(colour);
    QByteArray data;
    QBuffer buffer(&data);
    image.save(&buffer, type);
    return data;
}

/*! A document of two fonts, links, notes, lists and a picture whose counts infoAsJson() states. */
static QByteArray manyThings()
{
    return "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\froman Alpha Roman;}{\\f1\\fswiss Beta Sans;}}"
           "\\pard\\plain\\f0 One two {\\b three}{\\pict\\pngblip "
        + picture("PNG", 0xff00ff00).toHex()
        + "}\\par "
          "{\\field{\\*\\fldinst HYPERLINK \"https://example.org/a\"}{\\fldrslt {\\f1 link} one}} mid "
          "{\\field{\\*\\fldinst HYPERLINK \"mailto:x@example.org\"}{\\fldrslt mail}}\\par "
          "Word{\\footnote First note}{ gap}{\\footnote Second}{\\*\\annotation Remark}\\par"
          "\\pard\\ls1 item\\par\\pard\\ls2 other\\par\\pard\\ls1 item \\u-10179?\\u-8704?}";
}

void tst_tool::htmlHasTextLinksAndEncoding()
{
    write("in.rtf",
          "{\\rtf1\\ansi caf\\'e9 \\u8364? {\\field{\\*\\fldinst HYPERLINK "
          "\"https://example.org/?a=1\"}{\\fldrslt here}}\\par}");
    const ToolRun result = run(words("convert in.rtf out.html"));
    QCOMPARE(result.err, QByteArray());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.out, QByteArray());
    const QByteArray html = read(path("out.html"));
    QVERIFY2(html.contains("caf\xc3\xa9 \xe2\x82\xac "), html.constData());
    QVERIFY2(html.contains("<a href=\"https://example.org/?a=1\">"), html.constData());
    const int head = html.indexOf("</head>");
    QCOMPARE(html.count("charset="), 1);
    QVERIFY2(html.indexOf("charset=\"utf-8\"") < head, html.constData());
}

void tst_tool::htmlHoldsPngPictures()
{
    write("in.rtf",
          "{\\rtf1 a{\\pict\\pngblip " + picture("PNG", 0xff123456).toHex() + "}{\\pict\\pngblip "
              + picture("PNG", 0xff654321).toHex() + "}b}");
    QCOMPARE(run(words("convert in.rtf out.html")).exitCode, 0);
    const QString html = QString::fromUtf8(read(path("out.html")));
    QCOMPARE(html.count(QLatin1String("<img ")), 2);
    QRegularExpressionMatchIterator match =
        QRegularExpression(QLatin1String("src=\"data:image/png;base64,([^\"]*)\"")).globalMatch(html);
    const QRgb colours[] = {0xff123456, 0xff654321};
    for (const QRgb colour : colours) {
        QVERIFY(match.hasNext());
        const QByteArray data = QByteArray::fromBase64(match.next().captured(1).toLatin1());
        const QImage image = QImage::fromData(data, "PNG");
        QCOMPARE(image.size(), QSize(3, 2));
        QCOMPARE(image.pixel(2, 1), colour);
    }
    QVERIFY(!match.hasNext());
}

void tst_tool::htmlHoldsJpegBytesUnchanged()
{
    const QByteArray jpeg = picture("JPEG", 0xff804020);
    QVERIFY(!jpeg.isEmpty());
    write("in.rtf", "{\\rtf1 {\\pict\\jpegblip " + jpeg.toHex() + "}}");
    QCOMPARE(run(words("convert in.rtf out.html")).exitCode, 0);
    const QByteArray html = read(path("out.html"));
    QVERIFY2(html.contains("src=\"data:image/jpeg;base64," + jpeg.toBase64() + "\""), html.constData());
}

void tst_tool::plainText_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("paragraphs") << QByteArray("{\\rtf1 One\\par Two}") << QByteArray("One\nTwo\n");
    QTest::newRow("last paragraph ended") << QByteArray("{\\rtf1 One\\par}") << QByteArray("One\n");
    QTest::newRow("line break") << QByteArray("{\\rtf1 One\\line Two}") << QByteArray("One\nTwo\n");
    QTest::newRow("no-break space") << QByteArray("{\\rtf1 One\\~Two}") << QByteArray("One\xc2\xa0Two\n");
    QTest::newRow("UTF-8") << QByteArray("{\\rtf1 \\u8364?\\u-10179?\\u-8704?}")
                           << QByteArray("\xe2\x82\xac\xf0\x9f\x98\x80\n");
    QTest::newRow("picture") << QByteArray("{\\rtf1 a{\\pict\\pngblip " + picture("PNG", 0xff0000ff).toHex()
                                           + "}b}")
                             << QByteArray("ab\n");
    QTest::newRow("nothing") << QByteArray("{\\rtf1}") << QByteArray("");
    QTest::newRow("empty file") << QByteArray("") << QByteArray("");
}

void tst_tool::plainText()
{
    QFETCH(QByteArray, rtf);
    write("in.rtf", rtf);
    const ToolRun result = run(words("convert in.rtf out.txt"));
    QCOMPARE(result.err, QByteArray());
    QCOMPARE(result.exitCode, 0);
    QTEST(read(path("out.txt")), "text");
}

void tst_tool::outputFormat_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("output");
    QTest::addColumn<bool>("isHtml");

    QTest::newRow("html suffix") << "convert in.rtf out.html"
                                 << "out.html" << true;
    QTest::newRow("htm suffix") << "convert in.rtf out.htm"
                                << "out.htm" << true;
    QTest::newRow("capital suffix") << "convert in.rtf OUT.HTML"
                                    << "OUT.HTML" << true;
    QTest::newRow("txt suffix") << "convert in.rtf out.txt"
                                << "out.txt" << false;
    QTest::newRow("last suffix counts") << "convert in.rtf out.txt.html"
                                        << "out.txt.html" << true;
    QTest::newRow("to html without suffix") << "convert in.rtf out --to html"
                                            << "out" << true;
    QTest::newRow("to txt beats suffix") << "convert in.rtf out.html --to txt"
                                         << "out.html" << false;
    QTest::newRow("option first") << "--to=html convert in.rtf out.txt"
                                  << "out.txt" << true;
}

void tst_tool::outputFormat()
{
    QFETCH(QString, arguments);
    QFETCH(QString, output);
    write("in.rtf", "{\\rtf1 Text}");
    QCOMPARE(run(arguments.split(QLatin1Char(' '))).exitCode, 0);
    QTEST(read(path(output.toUtf8().constData())).startsWith("<!DOCTYPE HTML"), "isHtml");
}

void tst_tool::convertsStandardInputToStandardOutput()
{
    const ToolRun result = run(words("convert - - --to txt"), "{\\rtf1 From a pipe\\par}");
    QCOMPARE(result.err, QByteArray());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.out, QByteArray("From a pipe\n"));
}

// A writer that pauses must not look like the end of the input.
void tst_tool::waitsForSlowPipe_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("out");

    QTest::newRow("convert") << "convert pipe - --to txt" << QByteArray("first half\nsecond half\n");
    // The stripper does not wait for the whole input, but for its end.
    QTest::newRow("strip") << "strip pipe -" << QByteArray("\n{\\rtf1 first half\\par second half\\par}\n");
}

void tst_tool::waitsForSlowPipe()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, out);
    const QByteArray pipeName = QFile::encodeName(path("pipe"));
    QCOMPARE(mkfifo(pipeName.constData(), 0600), 0);
    const int fd = open(pipeName.constData(), O_RDWR | O_CLOEXEC);
    QVERIFY(fd >= 0);
    QProcess process;
    start(process, arguments.split(QLatin1Char(' ')));

    const QByteArray halves[] = {"{\\rtf1 first half\\par ", "second half\\par}"};
    for (const QByteArray& half : halves) {
        QCOMPARE(::write(fd, half.constData(), size_t(half.size())), ssize_t(half.size()));
        int unread = half.size();
        QTRY_VERIFY(ioctl(fd, FIONREAD, &unread) == 0 && unread == 0);
    }
    close(fd);
    const ToolRun result = finish(process);
    QCOMPARE(result.err, QByteArray());
    QCOMPARE(result.out, out);
}

void tst_tool::stripsFiles()
{
    write("in.rtf", "{\\rtf1\\ansi\\foo7\r\n{\\pict\\pngblip 89504e47}Text\\b01}");
    const ToolRun result = run(words("strip in.rtf out.rtf"));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.err, QByteArray());
    QCOMPARE(result.out, QByteArray());
    QCOMPARE(read(path("out.rtf")), QByteArray("\n{\\rtf1\\ansi\n\n{\\pict}\nText\\b1}\n"));
}

void tst_tool::writesIntoNamedPipe()
{
    const QByteArray pipeName = QFile::encodeName(path("pipe"));
    QCOMPARE(mkfifo(pipeName.constData(), 0600), 0);
    const int fd = open(pipeName.constData(), O_RDWR | O_CLOEXEC);
    QVERIFY(fd >= 0);
    const ToolRun result = run(words("convert - pipe --to txt"), "{\\rtf1 Text}");
    QCOMPARE(result.exitCode, 0);
    char text[16] = {};
    QCOMPARE(::read(fd, text, sizeof text), ssize_t(5));
    QCOMPARE(QByteArray(text), QByteArray("Text\n"));
    close(fd);
    struct stat status = {};
    QCOMPARE(stat(pipeName.constData(), &status), 0);
    QVERIFY(S_ISFIFO(status.st_mode));
}

void tst_tool::overwritesOutputFile()
{
    write("out.txt", "what was there before, and longer");
    QCOMPARE(run(words("convert - out.txt"), "{\\rtf1 New}").exitCode, 0);
    QCOMPARE(read(path("out.txt")), QByteArray("New\n"));
}

void tst_tool::infoAsJson()
{
    write("in.rtf", manyThings());
    const ToolRun result = run(words("info in.rtf --json"));
    QCOMPARE(result.err, QByteArray());
    QCOMPARE(result.exitCode, 0);
    const QJsonObject object = QJsonDocument::fromJson(result.out).object();
    QCOMPARE(object.keys(),
             words("annotations characters fonts footnotes links lists message notes "
                   "paragraphs pictures status tables words"));
    QCOMPARE(object.value(QLatin1String("paragraphs")).toInt(), 6);
    QCOMPARE(object.value(QLatin1String("words")).toInt(), 14);
    QCOMPARE(object.value(QLatin1String("characters")).toInt(), 75);
    QCOMPARE(object.value(QLatin1String("fonts")).toArray(), QJsonArray({"Alpha Roman", "Beta Sans"}));
    QCOMPARE(object.value(QLatin1String("pictures")).toInt(), 1);
    QCOMPARE(object.value(QLatin1String("notes")).toInt(), 3);
    QCOMPARE(object.value(QLatin1String("footnotes")).toInt(), 2);
    QCOMPARE(object.value(QLatin1String("annotations")).toInt(), 1);
    QCOMPARE(object.value(QLatin1String("tables")).toInt(-1), 0);
    QCOMPARE(object.value(QLatin1String("lists")).toInt(), 2);
    QCOMPARE(object.value(QLatin1String("status")).toInt(-1), 0);
    QVERIFY(object.value(QLatin1String("message")).isString());
    QCOMPARE(object.value(QLatin1String("message")).toString(), QString());
    const QJsonArray links({QJsonObject({{"text", "link one"}, {"target", "https://example.org/a"}}),
                            QJsonObject({{"text", "mail"}, {"target", "mailto:x@example.org"}})});
    QCOMPARE(object.value(QLatin1String("links")).toArray(), links);
}

void tst_tool::infoAsText()
{
    const ToolRun result = run(words("info -"), manyThings());
    QCOMPARE(result.err, QByteArray());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.out,
             QByteArray("paragraphs  6\n"
                        "words       14\n"
                        "characters  75\n"
                        "fonts       2 (Alpha Roman, Beta Sans)\n"
                        "pictures    1\n"
                        "links       2\n"
                        "notes       3 (2 footnotes, 1 annotations)\n"
                        "tables      0\n"
                        "lists       2\n"
                        "status      0\n"));
}

void tst_tool::infoOfDamagedFile()
{
    const QByteArray message = "Unmatched '}' in Rich Text file";
    const ToolRun text = run(words("info -"), "{\\rtf1 two words\\par ");
    QCOMPARE(text.exitCode, 1);
    QCOMPARE(text.err, "orvrtf: standard input: " + message + "\n");
    QVERIFY2(text.out.contains("words       2\n"), text.out.constData());
    QVERIFY2(text.out.endsWith("status      2 (" + message + ")\n"), text.out.constData());

    const ToolRun json = run(words("info - --json"), "{\\rtf1 two words\\par ");
    QCOMPARE(json.exitCode, 1);
    const QJsonObject object = QJsonDocument::fromJson(json.out).object();
    QCOMPARE(object.value(QLatin1String("status")).toInt(), 2);
    QCOMPARE(object.value(QLatin1String("message")).toString(), QString::fromLatin1(message));
}

void tst_tool::checkAcceptsSoundFile()
{
    write("in.rtf", manyThings());
    const ToolRun result = run(words("check in.rtf"));
    QCOMPARE(result.err, QByteArray());
    QCOMPARE(result.out, QByteArray());
    QCOMPARE(result.exitCode, 0);
}

void tst_tool::checkReportsDamage_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QByteArray>("message");

    QTest::newRow("group too many ended")
        << QByteArray("{\\rtf1 abc}}") << QByteArray("Unmatched '{' in Rich Text file");
    QTest::newRow("group not ended") << QByteArray("{\\rtf1 abc")
                                     << QByteArray("Unmatched '}' in Rich Text file");
    QTest::newRow("backslash at the end") << QByteArray("{\\rtf1}\\") << QByteArray("Unexpected end of file");
    QTest::newRow("endless control word") << QByteArray("{\\rtf1\\" + QByteArray(100, 'a') + "}")
                                          << QByteArray("Invalid control word encountered");
    QTest::newRow("no hexadecimal digits")
        << QByteArray("{\\rtf1 \\'zz}") << QByteArray("Invalid control word parameter encountered");
}

void tst_tool::checkReportsDamage()
{
    QFETCH(QByteArray, rtf);
    QFETCH(QByteArray, message);
    write("in.rtf", rtf);
    const ToolRun result = run(words("check in.rtf"));
    QCOMPARE(result.err, "orvrtf: in.rtf: " + message + "\n");
    QCOMPARE(result.out, QByteArray());
    QCOMPARE(result.exitCode, 1);
}

void tst_tool::damagedFileIsConvertedAllTheSame()
{
    write("in.rtf", "{\\rtf1 kept}}");
    const ToolRun result = run(words("convert in.rtf out.txt"));
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.err, QByteArray("orvrtf: in.rtf: Unmatched '{' in Rich Text file\n"));
    QCOMPARE(read(path("out.txt")), QByteArray("kept\n"));
}

void tst_tool::usageErrors_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("about");

    QTest::newRow("nothing") << "" << QByteArray("no command given");
    QTest::newRow("unknown command") << "turn in.rtf out.html" << QByteArray("\"turn\"");
    QTest::newRow("unknown option") << "--fast convert in.rtf out.html" << QByteArray("'fast'");
    QTest::newRow("convert without output") << "convert in.rtf" << QByteArray("convert takes");
    QTest::newRow("convert of three files")
        << "convert in.rtf out.html more.html" << QByteArray("convert takes");
    QTest::newRow("info without input") << "info" << QByteArray("info takes");
    QTest::newRow("info of two files") << "info in.rtf in.rtf" << QByteArray("info takes");
    QTest::newRow("check without input") << "check" << QByteArray("check takes");
    QTest::newRow("strip without output") << "strip in.rtf" << QByteArray("strip takes");
    QTest::newRow("format for strip") << "strip in.rtf out.rtf --to rtf" << QByteArray("--to");
    QTest::newRow("strip onto itself") << "strip in.rtf ./in.rtf" << QByteArray("both input and output");
    QTest::newRow("unknown suffix") << "convert in.rtf out.doc" << QByteArray("\"out.doc\"");
    QTest::newRow("no suffix") << "convert in.rtf out" << QByteArray("\"out\"");
    QTest::newRow("unknown format") << "convert in.rtf out.html --to doc" << QByteArray("\"doc\"");
    QTest::newRow("no format") << "convert in.rtf out.html --to" << QByteArray("'--to'");
    QTest::newRow("standard output without format") << "convert in.rtf -" << QByteArray("--to rtf");
    QTest::newRow("format for info") << "info in.rtf --to html" << QByteArray("--to");
    QTest::newRow("format for check") << "check in.rtf --to html" << QByteArray("--to");
    QTest::newRow("JSON for check") << "check in.rtf --json" << QByteArray("--json");
    QTest::newRow("JSON for convert") << "convert in.rtf out.html --json" << QByteArray("--json");
}

void tst_tool::usageErrors()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, about);
    write("in.rtf", "{\\rtf1 Text}");
    const ToolRun result = run(arguments.isEmpty() ? QStringList() : arguments.split(QLatin1Char(' ')));
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(result.out, QByteArray());
    QVERIFY2(isOneLineAboutTool(result.err), result.err.constData());
    QVERIFY2(result.err.contains(about), result.err.constData());
    QVERIFY2(result.err.endsWith("see orvrtf --help\n"), result.err.constData());
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files), words("in.rtf"));
}

void tst_tool::unreadableInput_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("name");

    QTest::newRow("convert missing") << "convert missing.rtf out.html" << QByteArray("missing.rtf");
    QTest::newRow("info missing") << "info missing.rtf" << QByteArray("missing.rtf");
    QTest::newRow("check missing") << "check missing.rtf" << QByteArray("missing.rtf");
    QTest::newRow("strip missing") << "strip missing.rtf out.rtf" << QByteArray("missing.rtf");
    QTest::newRow("strip directory") << "strip . out.rtf" << QByteArray("cannot read .:");
    QTest::newRow("convert directory") << "convert . out.html" << QByteArray("cannot read .:");
    QTest::newRow("info directory") << "info ." << QByteArray("cannot read .:");
    QTest::newRow("check directory") << "check ." << QByteArray("cannot read .:");
    QTest::newRow("below a file") << "check in.rtf/in.rtf" << QByteArray("in.rtf/in.rtf");
}

void tst_tool::unreadableInput()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, name);
    write("in.rtf", "{\\rtf1 Text}");
    const ToolRun result = run(arguments.split(QLatin1Char(' ')));
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.out, QByteArray());
    QVERIFY2(isOneLineAboutTool(result.err), result.err.constData());
    QVERIFY2(result.err.contains(name), result.err.constData());
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files), words("in.rtf"));
}

void tst_tool::failedReadingKeepsOldOutput()
{
    write("out.txt", "old");
    QCOMPARE(run(words("convert missing.rtf out.txt")).exitCode, 1);
    QCOMPARE(read(path("out.txt")), QByteArray("old"));
}

void tst_tool::standardInputIsDirectory()
{
    const char* const commands[] = {"convert - out.html", "strip - out.rtf", "info -", "check -"};
    for (const char* command : commands) {
        QProcess process;
        process.setStandardInputFile(m_dir->path());
        start(process, words(command));
        const ToolRun result = finish(process);
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(isOneLineAboutTool(result.err), result.err.constData());
        QVERIFY2(result.err.contains("standard input"), result.err.constData());
    }
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files), QStringList());
}

void tst_tool::noRoomForPipedInput()
{
    m_environment.insert(QLatin1String("TMPDIR"), write("file", QByteArray()));
    const ToolRun result = run(words("check -"), "{\\rtf1 Text}");
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(isOneLineAboutTool(result.err), result.err.constData());
    QVERIFY2(result.err.contains("no temporary file"), result.err.constData());
}

void tst_tool::unwritableOutput_data()
{
    QTest::addColumn<QString>("output");

    // Not by permissions: whoever runs the tests may be allowed everything.
    QTest::newRow("below a file") << "in.rtf/out.html";
    QTest::newRow("in a missing directory") << "missing/out.html";
    QTest::newRow("a directory") << "directory.html";
}

void tst_tool::unwritableOutput()
{
    QFETCH(QString, output);
    write("in.rtf", "{\\rtf1 Text}");
    QVERIFY(QDir(m_dir->path()).mkdir(QLatin1String("directory.html")));
    const ToolRun result = run({QLatin1String("convert"), QLatin1String("in.rtf"), output});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.out, QByteArray());
    QVERIFY2(isOneLineAboutTool(result.err), result.err.constData());
    QVERIFY2(result.err.contains("cannot write " + output.toUtf8()), result.err.constData());
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             words("directory.html in.rtf"));
    QVERIFY(QDir(path("directory.html")).isEmpty());
}

void tst_tool::interruptedWritingLeavesNoFile_data()
{
    QTest::addColumn<QString>("command");

    QTest::newRow("convert") << "convert";
    QTest::newRow("strip") << "strip";
}

void tst_tool::interruptedWritingLeavesNoFile()
{
    QFETCH(QString, command);
    write("in.rtf", "{\\rtf1 " + QByteArray(100000, 'a') + "\\par}");
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.setWorkingDirectory(m_dir->path());
    // Files may grow to a few blocks only, and the signal for it is ignored, so that writing fails.
    process.start(QLatin1String("/bin/sh"),
                  {QLatin1String("-c"),
                   QLatin1String("ulimit -f 8; trap '' XFSZ; exec \"$0\" $1 in.rtf out.txt"),
                   QString::fromUtf8(ORVRTF_TOOL), command});
    const ToolRun result = finish(process);
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(isOneLineAboutTool(result.err), result.err.constData());
    QVERIFY2(result.err.contains("cannot write out.txt"), result.err.constData());
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), words("in.rtf"));
}

void tst_tool::outputIsInput()
{
    write("in.rtf", "{\\rtf1 Text}");
    const ToolRun result = run(words("convert in.rtf ./in.rtf --to html"));
    QCOMPARE(result.exitCode, 2);
    QVERIFY2(isOneLineAboutTool(result.err), result.err.constData());
    QVERIFY2(result.err.contains("both input and output"), result.err.constData());
    QCOMPARE(read(path("in.rtf")), QByteArray("{\\rtf1 Text}"));
}

void tst_tool::fullStandardOutput_data()
{
    QTest::addColumn<QString>("arguments");

    QTest::newRow("convert to html") << "convert in.rtf - --to html";
    QTest::newRow("convert to txt") << "convert in.rtf - --to txt";
    QTest::newRow("strip") << "strip in.rtf -";
    QTest::newRow("info") << "info in.rtf";
    QTest::newRow("help") << "--help";
    QTest::newRow("version") << "--version";
}

void tst_tool::fullStandardOutput()
{
    QFETCH(QString, arguments);
    write("in.rtf", "{\\rtf1 Text}");
    QProcess process;
    process.setStandardOutputFile(QLatin1String("/dev/full"));
    start(process, arguments.split(QLatin1Char(' ')));
    const ToolRun result = finish(process);
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(isOneLineAboutTool(result.err), result.err.constData());
    QVERIFY2(result.err.contains("cannot write standard output"), result.err.constData());
}

void tst_tool::version()
{
    const char* const options[] = {"--version", "-v"};
    for (const char* option : options) {
        const ToolRun result = run(words(option));
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(result.err, QByteArray());
        QCOMPARE(result.out, QByteArray("orvrtf " ORVRTF_VERSION "\n"));
    }
}

void tst_tool::help()
{
    const char* const options[] = {"--help", "-h"};
    for (const char* option : options) {
        const ToolRun result = run(words(option));
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(result.err, QByteArray());
        const QStringList topics = words("convert info check --to --json --help --version Exit");
        for (const QString& topic : topics)
            QVERIFY2(result.out.contains(topic.toUtf8()), qPrintable(topic));
    }
}

void tst_tool::needsNoDisplay()
{
    m_environment.insert(QLatin1String("DISPLAY"), QLatin1String("no-such-host:7"));
    m_environment.insert(QLatin1String("WAYLAND_DISPLAY"), QLatin1String("no-such-socket"));
    const ToolRun result = run(words("convert - - --to txt"), "{\\rtf1 Text}");
    QCOMPARE(result.err, QByteArray());
    QCOMPARE(result.out, QByteArray("Text\n"));
}

/*! Qt gives up a program whose platform does not work. */
void tst_tool::platformOfTheEnvironmentIsNotUsed()
{
    m_environment.insert(QLatin1String("QT_QPA_PLATFORM"), QLatin1String("no-such-platform"));
    const ToolRun result = run(words("convert - - --to txt"), "{\\rtf1 Text}");
    QCOMPARE(result.err, QByteArray());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.out, QByteArray("Text\n"));
}

void tst_tool::fileNamesInCLocale()
{
    const QString name = QString::fromUtf8("\xc3\xa4 \xe2\x82\xac");
    write("\xc3\xa4 \xe2\x82\xac.rtf", "{\\rtf1 Text}");
    m_environment.insert(QLatin1String("LC_ALL"), QLatin1String("C"));
    const ToolRun result =
        run({QLatin1String("convert"), name + QLatin1String(".rtf"), name + QLatin1String(".txt")});
    QCOMPARE(result.err, QByteArray());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(read(path("\xc3\xa4 \xe2\x82\xac.txt")), QByteArray("Text\n"));
}

void tst_tool::fileNamesThatLookLikeOptions()
{
    write("-in.rtf", "{\\rtf1 Text}");
    const ToolRun result = run(words("convert --to txt -- -in.rtf -platform"));
    QCOMPARE(result.err, QByteArray());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(read(path("-platform")), QByteArray("Text\n"));
}

QTEST_GUILESS_MAIN(tst_tool)
#include "tst_tool.moc"
