#include "toolpaths.h"
#include "tooltest.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/*! Picture data of one colour in the format \a type. */
QByteArray picture(const char* type, QRgb colour)
{
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(colour);
    QByteArray data;
    QBuffer buffer(&data);
    image.save(&buffer, type);
    return data;
}

/*! A document of two fonts, links, notes, lists and a picture whose counts infoAsJson() states. */
QByteArray manyThings()
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

} // namespace

class TestTool : public ToolTest {
    Q_OBJECT

private slots:
    void htmlHasTextLinksAndEncoding()
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

    void htmlHoldsPngPictures()
    {
        write("in.rtf",
              "{\\rtf1 a{\\pict\\pngblip " + picture("PNG", 0xff123456).toHex() + "}{\\pict\\pngblip "
                  + picture("PNG", 0xff654321).toHex() + "}b}");
        QCOMPARE(run(words("convert in.rtf out.html")).exitCode, 0);
        const QString html = QString::fromUtf8(read(path("out.html")));
        QCOMPARE(html.count("<img "_s), 2);
        QRegularExpressionMatchIterator match =
            QRegularExpression("src=\"data:image/png;base64,([^\"]*)\""_s).globalMatch(html);
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

    void htmlHoldsJpegBytesUnchanged()
    {
        const QByteArray jpeg = picture("JPEG", 0xff804020);
        QVERIFY(!jpeg.isEmpty());
        write("in.rtf", "{\\rtf1 {\\pict\\jpegblip " + jpeg.toHex() + "}}");
        QCOMPARE(run(words("convert in.rtf out.html")).exitCode, 0);
        const QByteArray html = read(path("out.html"));
        QVERIFY2(html.contains("src=\"data:image/jpeg;base64," + jpeg.toBase64() + "\""), html.constData());
    }

    void plainText_data()
    {
        const Columns<QByteArray, QByteArray> add("rtf", "text");
        add("paragraphs", "{\\rtf1 One\\par Two}", "One\nTwo\n");
        add("last paragraph ended", "{\\rtf1 One\\par}", "One\n");
        add("line break", "{\\rtf1 One\\line Two}", "One\nTwo\n");
        add("no-break space", "{\\rtf1 One\\~Two}", "One\xc2\xa0Two\n");
        add("UTF-8", "{\\rtf1 \\u8364?\\u-10179?\\u-8704?}", "\xe2\x82\xac\xf0\x9f\x98\x80\n");
        add("picture", QByteArray("{\\rtf1 a{\\pict\\pngblip " + picture("PNG", 0xff0000ff).toHex() + "}b}"),
            "ab\n");
        add("nothing", "{\\rtf1}", "");
        add("empty file", "", "");
    }

    void plainText()
    {
        FETCH(QByteArray, rtf);
        write("in.rtf", rtf);
        const ToolRun result = run(words("convert in.rtf out.txt"));
        QCOMPARE(result.err, QByteArray());
        QCOMPARE(result.exitCode, 0);
        QTEST(read(path("out.txt")), "text");
    }

    void outputFormat_data()
    {
        const Columns<QString, QString, bool> add("arguments", "output", "isHtml");
        add("html suffix", "convert in.rtf out.html", "out.html", true);
        add("htm suffix", "convert in.rtf out.htm", "out.htm", true);
        add("capital suffix", "convert in.rtf OUT.HTML", "OUT.HTML", true);
        add("txt suffix", "convert in.rtf out.txt", "out.txt", false);
        add("last suffix counts", "convert in.rtf out.txt.html", "out.txt.html", true);
        add("to html without suffix", "convert in.rtf out --to html", "out", true);
        add("to txt beats suffix", "convert in.rtf out.html --to txt", "out.html", false);
        add("option first", "--to=html convert in.rtf out.txt", "out.txt", true);
    }

    void outputFormat()
    {
        FETCH(QString, arguments, QString, output);
        write("in.rtf", "{\\rtf1 Text}");
        QCOMPARE(run(arguments.split(QLatin1Char(' '))).exitCode, 0);
        QTEST(read(path(output.toUtf8().constData())).startsWith("<!DOCTYPE HTML"), "isHtml");
    }

    void convertsStandardInputToStandardOutput()
    {
        const ToolRun result = run(words("convert - - --to txt"), "{\\rtf1 From a pipe\\par}");
        QCOMPARE(result.err, QByteArray());
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(result.out, "From a pipe\n"_b);
    }

    // A writer that pauses must not look like the end of the input.
    void waitsForSlowPipe_data()
    {
        const Columns<QString, QByteArray> add("arguments", "out");
        add("convert", "convert pipe - --to txt", "first half\nsecond half\n");
        // The stripper does not wait for the whole input, but for its end.
        add("strip", "strip pipe -", "\n{\\rtf1 first half\\par second half\\par}\n");
    }

    void waitsForSlowPipe()
    {
        FETCH(QString, arguments, QByteArray, out);
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

    void stripsFiles()
    {
        write("in.rtf", "{\\rtf1\\ansi\\foo7\r\n{\\pict\\pngblip 89504e47}Text\\b01}");
        const ToolRun result = run(words("strip in.rtf out.rtf"));
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(result.err, QByteArray());
        QCOMPARE(result.out, QByteArray());
        QCOMPARE(read(path("out.rtf")), "\n{\\rtf1\\ansi\n\n{\\pict}\nText\\b1}\n"_b);
    }

    void writesIntoNamedPipe()
    {
        const QByteArray pipeName = QFile::encodeName(path("pipe"));
        QCOMPARE(mkfifo(pipeName.constData(), 0600), 0);
        const int fd = open(pipeName.constData(), O_RDWR | O_CLOEXEC);
        QVERIFY(fd >= 0);
        const ToolRun result = run(words("convert - pipe --to txt"), "{\\rtf1 Text}");
        QCOMPARE(result.exitCode, 0);
        char text[16] = {};
        QCOMPARE(::read(fd, text, sizeof text), ssize_t(5));
        QCOMPARE(QByteArray(text), "Text\n"_b);
        close(fd);
        struct stat status = {};
        QCOMPARE(stat(pipeName.constData(), &status), 0);
        QVERIFY(S_ISFIFO(status.st_mode));
    }

    void overwritesOutputFile()
    {
        write("out.txt", "what was there before, and longer");
        QCOMPARE(run(words("convert - out.txt"), "{\\rtf1 New}").exitCode, 0);
        QCOMPARE(read(path("out.txt")), "New\n"_b);
    }

    void infoAsJson()
    {
        write("in.rtf", manyThings());
        const ToolRun result = run(words("info in.rtf --json"));
        QCOMPARE(result.err, QByteArray());
        QCOMPARE(result.exitCode, 0);
        const QJsonObject object = QJsonDocument::fromJson(result.out).object();
        QCOMPARE(object.keys(),
                 words("annotations characters fonts footnotes links lists message notes "
                       "paragraphs pictures status tables words"));
        QCOMPARE(object.value("paragraphs"_s).toInt(), 6);
        QCOMPARE(object.value("words"_s).toInt(), 14);
        QCOMPARE(object.value("characters"_s).toInt(), 75);
        QCOMPARE(object.value("fonts"_s).toArray(), QJsonArray({"Alpha Roman", "Beta Sans"}));
        QCOMPARE(object.value("pictures"_s).toInt(), 1);
        QCOMPARE(object.value("notes"_s).toInt(), 3);
        QCOMPARE(object.value("footnotes"_s).toInt(), 2);
        QCOMPARE(object.value("annotations"_s).toInt(), 1);
        QCOMPARE(object.value("tables"_s).toInt(-1), 0);
        QCOMPARE(object.value("lists"_s).toInt(), 2);
        QCOMPARE(object.value("status"_s).toInt(-1), 0);
        QVERIFY(object.value("message"_s).isString());
        QCOMPARE(object.value("message"_s).toString(), QString());
        const QJsonArray links({QJsonObject({{"text", "link one"}, {"target", "https://example.org/a"}}),
                                QJsonObject({{"text", "mail"}, {"target", "mailto:x@example.org"}})});
        QCOMPARE(object.value("links"_s).toArray(), links);
    }

    void infoAsText()
    {
        const ToolRun result = run(words("info -"), manyThings());
        QCOMPARE(result.err, QByteArray());
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(result.out,
                 "paragraphs  6\n"
                 "words       14\n"
                 "characters  75\n"
                 "fonts       2 (Alpha Roman, Beta Sans)\n"
                 "pictures    1\n"
                 "links       2\n"
                 "notes       3 (2 footnotes, 1 annotations)\n"
                 "tables      0\n"
                 "lists       2\n"
                 "status      0\n"_b);
    }

    void infoOfDamagedFile()
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
        QCOMPARE(object.value("status"_s).toInt(), 2);
        QCOMPARE(object.value("message"_s).toString(), QString::fromLatin1(message));
    }

    void checkAcceptsSoundFile()
    {
        write("in.rtf", manyThings());
        const ToolRun result = run(words("check in.rtf"));
        QCOMPARE(result.err, QByteArray());
        QCOMPARE(result.out, QByteArray());
        QCOMPARE(result.exitCode, 0);
    }

    void checkReportsDamage_data()
    {
        const Columns<QByteArray, QByteArray> add("rtf", "message");
        add("group too many ended", "{\\rtf1 abc}}", "Unmatched '{' in Rich Text file");
        add("group not ended", "{\\rtf1 abc", "Unmatched '}' in Rich Text file");
        add("backslash at the end", "{\\rtf1}\\", "Unexpected end of file");
        add("endless control word", QByteArray("{\\rtf1\\" + QByteArray(100, 'a') + "}"),
            "Invalid control word encountered");
        add("no hexadecimal digits", "{\\rtf1 \\'zz}", "Invalid control word parameter encountered");
    }

    void checkReportsDamage()
    {
        FETCH(QByteArray, rtf, QByteArray, message);
        write("in.rtf", rtf);
        const ToolRun result = run(words("check in.rtf"));
        QCOMPARE(result.err, "orvrtf: in.rtf: " + message + "\n");
        QCOMPARE(result.out, QByteArray());
        QCOMPARE(result.exitCode, 1);
    }

    void damagedFileIsConvertedAllTheSame()
    {
        write("in.rtf", "{\\rtf1 kept}}");
        const ToolRun result = run(words("convert in.rtf out.txt"));
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(result.err, "orvrtf: in.rtf: Unmatched '{' in Rich Text file\n"_b);
        QCOMPARE(read(path("out.txt")), "kept\n"_b);
    }

    void usageErrors_data()
    {
        const Columns<QString, QByteArray> add("arguments", "about");
        add("nothing", "", "no command given");
        add("unknown command", "turn in.rtf out.html", "\"turn\"");
        add("unknown option", "--fast convert in.rtf out.html", "'fast'");
        add("convert without output", "convert in.rtf", "convert takes");
        add("convert of three files", "convert in.rtf out.html more.html", "convert takes");
        add("info without input", "info", "info takes");
        add("info of two files", "info in.rtf in.rtf", "info takes");
        add("check without input", "check", "check takes");
        add("strip without output", "strip in.rtf", "strip takes");
        add("format for strip", "strip in.rtf out.rtf --to rtf", "--to");
        add("strip onto itself", "strip in.rtf ./in.rtf", "both input and output");
        add("unknown suffix", "convert in.rtf out.doc", "\"out.doc\"");
        add("no suffix", "convert in.rtf out", "\"out\"");
        add("unknown format", "convert in.rtf out.html --to doc", "\"doc\"");
        add("no format", "convert in.rtf out.html --to", "'--to'");
        add("standard output without format", "convert in.rtf -", "--to rtf");
        add("format for info", "info in.rtf --to html", "--to");
        add("format for check", "check in.rtf --to html", "--to");
        add("JSON for check", "check in.rtf --json", "--json");
        add("JSON for convert", "convert in.rtf out.html --json", "--json");
    }

    void usageErrors()
    {
        FETCH(QString, arguments, QByteArray, about);
        write("in.rtf", "{\\rtf1 Text}");
        const ToolRun result = run(arguments.isEmpty() ? QStringList() : arguments.split(QLatin1Char(' ')));
        QCOMPARE(result.exitCode, 2);
        QCOMPARE(result.out, QByteArray());
        QVERIFY2(isOneLineAboutTool(result.err), result.err.constData());
        QVERIFY2(result.err.contains(about), result.err.constData());
        QVERIFY2(result.err.endsWith("see orvrtf --help\n"), result.err.constData());
        QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files), words("in.rtf"));
    }

    void unreadableInput_data()
    {
        const Columns<QString, QByteArray> add("arguments", "name");
        add("convert missing", "convert missing.rtf out.html", "missing.rtf");
        add("info missing", "info missing.rtf", "missing.rtf");
        add("check missing", "check missing.rtf", "missing.rtf");
        add("strip missing", "strip missing.rtf out.rtf", "missing.rtf");
        add("strip directory", "strip . out.rtf", "cannot read .:");
        add("convert directory", "convert . out.html", "cannot read .:");
        add("info directory", "info .", "cannot read .:");
        add("check directory", "check .", "cannot read .:");
        add("below a file", "check in.rtf/in.rtf", "in.rtf/in.rtf");
    }

    void unreadableInput()
    {
        FETCH(QString, arguments, QByteArray, name);
        write("in.rtf", "{\\rtf1 Text}");
        const ToolRun result = run(arguments.split(QLatin1Char(' ')));
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(result.out, QByteArray());
        QVERIFY2(isOneLineAboutTool(result.err), result.err.constData());
        QVERIFY2(result.err.contains(name), result.err.constData());
        QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files), words("in.rtf"));
    }

    void failedReadingKeepsOldOutput()
    {
        write("out.txt", "old");
        QCOMPARE(run(words("convert missing.rtf out.txt")).exitCode, 1);
        QCOMPARE(read(path("out.txt")), "old"_b);
    }

    void standardInputIsDirectory()
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

    void noRoomForPipedInput()
    {
        m_environment.insert("TMPDIR"_s, write("file", QByteArray()));
        const ToolRun result = run(words("check -"), "{\\rtf1 Text}");
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(isOneLineAboutTool(result.err), result.err.constData());
        QVERIFY2(result.err.contains("no temporary file"), result.err.constData());
    }

    void unwritableOutput_data()
    {
        const Columns<QString> add("output");
        // Not by permissions: whoever runs the tests may be allowed everything.
        add("below a file", "in.rtf/out.html");
        add("in a missing directory", "missing/out.html");
        add("a directory", "directory.html");
    }

    void unwritableOutput()
    {
        FETCH(QString, output);
        write("in.rtf", "{\\rtf1 Text}");
        QVERIFY(QDir(m_dir->path()).mkdir("directory.html"_s));
        const ToolRun result = run({"convert"_s, "in.rtf"_s, output});
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(result.out, QByteArray());
        QVERIFY2(isOneLineAboutTool(result.err), result.err.constData());
        QVERIFY2(result.err.contains("cannot write " + output.toUtf8()), result.err.constData());
        QCOMPARE(QDir(m_dir->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 words("directory.html in.rtf"));
        QVERIFY(QDir(path("directory.html")).isEmpty());
    }

    void interruptedWritingLeavesNoFile_data()
    {
        const Columns<QString> add("command");
        add("convert", "convert");
        add("strip", "strip");
    }

    void interruptedWritingLeavesNoFile()
    {
        FETCH(QString, command);
        write("in.rtf", "{\\rtf1 " + QByteArray(100000, 'a') + "\\par}");
        QProcess process;
        process.setProcessEnvironment(m_environment);
        process.setWorkingDirectory(m_dir->path());
        // Files may grow to a few blocks only, and the signal for it is ignored, so that writing fails.
        process.start("/bin/sh"_s,
                      {"-c"_s, "ulimit -f 8; trap '' XFSZ; exec \"$0\" $1 in.rtf out.txt"_s,
                       QString::fromUtf8(ORVRTF_TOOL), command});
        const ToolRun result = finish(process);
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(isOneLineAboutTool(result.err), result.err.constData());
        QVERIFY2(result.err.contains("cannot write out.txt"), result.err.constData());
        QCOMPARE(QDir(m_dir->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), words("in.rtf"));
    }

    void outputIsInput()
    {
        write("in.rtf", "{\\rtf1 Text}");
        const ToolRun result = run(words("convert in.rtf ./in.rtf --to html"));
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(isOneLineAboutTool(result.err), result.err.constData());
        QVERIFY2(result.err.contains("both input and output"), result.err.constData());
        QCOMPARE(read(path("in.rtf")), "{\\rtf1 Text}"_b);
    }

    void fullStandardOutput_data()
    {
        const Columns<QString> add("arguments");
        add("convert to html", "convert in.rtf - --to html");
        add("convert to txt", "convert in.rtf - --to txt");
        add("strip", "strip in.rtf -");
        add("info", "info in.rtf");
        add("help", "--help");
        add("version", "--version");
    }

    void fullStandardOutput()
    {
        FETCH(QString, arguments);
        write("in.rtf", "{\\rtf1 Text}");
        QProcess process;
        process.setStandardOutputFile("/dev/full"_s);
        start(process, arguments.split(QLatin1Char(' ')));
        const ToolRun result = finish(process);
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(isOneLineAboutTool(result.err), result.err.constData());
        QVERIFY2(result.err.contains("cannot write standard output"), result.err.constData());
    }

    void version()
    {
        const char* const options[] = {"--version", "-v"};
        for (const char* option : options) {
            const ToolRun result = run(words(option));
            QCOMPARE(result.exitCode, 0);
            QCOMPARE(result.err, QByteArray());
            QCOMPARE(result.out, QByteArray("orvrtf " ORVRTF_VERSION "\n"));
        }
    }

    void help()
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

    void needsNoDisplay()
    {
        m_environment.insert("DISPLAY"_s, "no-such-host:7"_s);
        m_environment.insert("WAYLAND_DISPLAY"_s, "no-such-socket"_s);
        const ToolRun result = run(words("convert - - --to txt"), "{\\rtf1 Text}");
        QCOMPARE(result.err, QByteArray());
        QCOMPARE(result.out, "Text\n"_b);
    }

    /*! Qt gives up a program whose platform does not work. */
    void platformOfTheEnvironmentIsNotUsed()
    {
        m_environment.insert("QT_QPA_PLATFORM"_s, "no-such-platform"_s);
        const ToolRun result = run(words("convert - - --to txt"), "{\\rtf1 Text}");
        QCOMPARE(result.err, QByteArray());
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(result.out, "Text\n"_b);
    }

    void fileNamesInCLocale_data()
    {
        const Columns<QString, QString> add("variable", "locale");
        add("all categories", "LC_ALL", "C");
        add("default", "LANG", "C");
        add("characters", "LC_CTYPE", "POSIX");
        add("no locale", "LANG", QString());
        add("unknown locale", "LC_ALL", "xx_XX.UTF-8");
    }

    void fileNamesInCLocale()
    {
        FETCH(QString, variable, QString, locale);
        const QString name = "\xc3\xa4 \xe2\x82\xac"_s;
        write("\xc3\xa4 \xe2\x82\xac.rtf", "{\\rtf1 Text}");
        for (const char* other : {"LC_ALL", "LC_CTYPE", "LANG"})
            m_environment.remove(QLatin1String(other));
        m_environment.insert(variable, locale);
        const ToolRun result = run({"convert"_s, name + ".rtf"_s, name + ".txt"_s});
        QCOMPARE(result.err, QByteArray());
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(read(path("\xc3\xa4 \xe2\x82\xac.txt")), "Text\n"_b);
    }

    void fileNamesThatLookLikeOptions()
    {
        write("-in.rtf", "{\\rtf1 Text}");
        const ToolRun result = run(words("convert --to txt -- -in.rtf -platform"));
        QCOMPARE(result.err, QByteArray());
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(read(path("-platform")), "Text\n"_b);
    }
};

ORV_TEST("tool", TestTool, QCoreApplication)
#include "tool.moc"
