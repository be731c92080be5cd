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

/*! A document of two fonts, links, notes, lists and a picture whose counts manyThingsAsJson() has. */
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

/*! What "info --json" says of manyThings(). */
QByteArray manyThingsAsJson()
{
    return QByteArray(
               "{'paragraphs': 6, 'words': 14, 'characters': 75, 'fonts': ['Alpha Roman', 'Beta Sans'],"
               " 'pictures': 1, 'notes': 3, 'footnotes': 2, 'annotations': 1, 'tables': 0, 'lists': 2,"
               " 'links': [{'text': 'link one', 'target': 'https://example.org/a'},"
               "           {'text': 'mail', 'target': 'mailto:x@example.org'}],"
               " 'status': 0, 'message': ''}")
        .replace('\'', '"');
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
        QCOMPARE(run(words("convert in.rtf out.html")), success());
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
        for (const QRgb colour : {0xff123456, 0xff654321}) {
            QVERIFY(match.hasNext());
            const QByteArray base64 = match.next().captured(1).toLatin1();
            const QImage image = QImage::fromData(QByteArray::fromBase64(base64), "PNG");
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

    ORV_ROWS(plainText)
    {
        const Rows add([this](const QByteArray& rtf, const QByteArray& text) {
            write("in.rtf", rtf);
            QCOMPARE(run(words("convert in.rtf out.txt")), success());
            QCOMPARE(read(path("out.txt")), text);
        });
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

    ORV_ROWS(outputFormat)
    {
        const Rows add([this](const QString& arguments, const QString& output, bool isHtml) {
            write("in.rtf", "{\\rtf1 Text}");
            QCOMPARE(run(words(arguments)).exitCode, 0);
            QCOMPARE(read(path(output.toUtf8().constData())).startsWith("<!DOCTYPE HTML"), isHtml);
        });
        add("html suffix", "convert in.rtf out.html", "out.html", true);
        add("htm suffix", "convert in.rtf out.htm", "out.htm", true);
        add("capital suffix", "convert in.rtf OUT.HTML", "OUT.HTML", true);
        add("txt suffix", "convert in.rtf out.txt", "out.txt", false);
        add("last suffix counts", "convert in.rtf out.txt.html", "out.txt.html", true);
        add("to html without suffix", "convert in.rtf out --to html", "out", true);
        add("to txt beats suffix", "convert in.rtf out.html --to txt", "out.html", false);
        add("option first", "--to=html convert in.rtf out.txt", "out.txt", true);
    }

    void convertsStandardInputToStandardOutput()
    {
        QCOMPARE(run(words("convert - - --to txt"), "{\\rtf1 From a pipe\\par}"), success("From a pipe\n"));
    }

    // A writer that pauses must not look like the end of the input.
    ORV_ROWS(waitsForSlowPipe)
    {
        const Rows add([this](const QString& arguments, const QByteArray& out) {
            const QByteArray pipeName = QFile::encodeName(path("pipe"));
            QCOMPARE(mkfifo(pipeName.constData(), 0600), 0);
            const int fd = open(pipeName.constData(), O_RDWR | O_CLOEXEC);
            QVERIFY(fd >= 0);
            QProcess process;
            start(process, words(arguments));
            const QByteArray halves[] = {"{\\rtf1 first half\\par ", "second half\\par}"};
            for (const QByteArray& half : halves) {
                QCOMPARE(::write(fd, half.constData(), size_t(half.size())), ssize_t(half.size()));
                int unread = half.size();
                QTRY_VERIFY(ioctl(fd, FIONREAD, &unread) == 0 && unread == 0);
            }
            close(fd);
            QCOMPARE(finish(process), success(out));
        });
        add("convert", "convert pipe - --to txt", "first half\nsecond half\n");
        // The stripper does not wait for the whole input, but for its end.
        add("strip", "strip pipe -", "\n{\\rtf1 first half\\par second half\\par}\n");
    }

    void stripsFiles()
    {
        write("in.rtf", "{\\rtf1\\ansi\\foo7\r\n{\\pict\\pngblip 89504e47}Text\\b01}");
        QCOMPARE(run(words("strip in.rtf out.rtf")), success());
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
        QCOMPARE(QJsonDocument::fromJson(result.out).toJson(),
                 QJsonDocument::fromJson(manyThingsAsJson()).toJson());
    }

    void infoAsText()
    {
        QCOMPARE(run(words("info -"), manyThings()),
                 success("paragraphs  6\n"
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
        QCOMPARE(run(words("check in.rtf")), success());
    }

    ORV_ROWS(checkReportsDamage)
    {
        const Rows add([this](const QByteArray& rtf, const QByteArray& message) {
            write("in.rtf", rtf);
            QCOMPARE(run(words("check in.rtf")), failure("orvrtf: in.rtf: " + message + "\n"));
        });
        add("group too many ended", "{\\rtf1 abc}}", "Unmatched '{' in Rich Text file");
        add("group not ended", "{\\rtf1 abc", "Unmatched '}' in Rich Text file");
        add("backslash at the end", "{\\rtf1}\\", "Unexpected end of file");
        add("endless control word", QByteArray("{\\rtf1\\" + QByteArray(100, 'a') + "}"),
            "Invalid control word encountered");
        add("no hexadecimal digits", "{\\rtf1 \\'zz}", "Invalid control word parameter encountered");
    }

    void damagedFileIsConvertedAllTheSame()
    {
        write("in.rtf", "{\\rtf1 kept}}");
        QCOMPARE(run(words("convert in.rtf out.txt")),
                 failure("orvrtf: in.rtf: Unmatched '{' in Rich Text file\n"));
        QCOMPARE(read(path("out.txt")), "kept\n"_b);
    }

    ORV_ROWS(usageErrors)
    {
        const Rows add([this](const QString& arguments, const QByteArray& about) {
            write("in.rtf", "{\\rtf1 Text}");
            verifyRefusal(run(arguments.isEmpty() ? QStringList() : words(arguments)), about);
            QCOMPARE(files(), words("in.rtf"));
            QCOMPARE(read(path("in.rtf")), "{\\rtf1 Text}"_b);
        });
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
        add("convert onto itself", "convert in.rtf ./in.rtf --to html", "both input and output");
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

    ORV_ROWS(unreadableInput)
    {
        const Rows add([this](const QString& arguments, const QByteArray& name) {
            write("in.rtf", "{\\rtf1 Text}");
            write("old.rtf", "old");
            write("old.txt", "old");
            verifyFailure(run(words(arguments)), name);
            QCOMPARE(files(), words("in.rtf old.rtf old.txt"));
            QCOMPARE(read(path("old.rtf")), "old"_b);
            QCOMPARE(read(path("old.txt")), "old"_b);
        });
        add("convert missing", "convert missing.rtf out.html", "missing.rtf");
        add("info missing", "info missing.rtf", "missing.rtf");
        add("check missing", "check missing.rtf", "missing.rtf");
        add("strip missing", "strip missing.rtf out.rtf", "missing.rtf");
        add("strip directory", "strip . out.rtf", "cannot read .:");
        add("convert directory", "convert . out.html", "cannot read .:");
        add("info directory", "info .", "cannot read .:");
        add("check directory", "check .", "cannot read .:");
        add("below a file", "check in.rtf/in.rtf", "in.rtf/in.rtf");
        add("old output, missing rtf", "convert missing.rtf old.rtf", "orvrtf: cannot read missing.rtf: ");
        add("old output, missing html", "convert missing.html old.rtf", "orvrtf: cannot read missing.html: ");
        add("old output, missing txt", "convert missing.txt old.rtf", "orvrtf: cannot read missing.txt: ");
        add("old output, below a file", "convert in.rtf/missing.txt old.rtf",
            "orvrtf: cannot read in.rtf/missing.txt: ");
        add("old output, directory", "convert . old.rtf", "orvrtf: cannot read .: ");
        add("old text", "convert missing.rtf old.txt", "missing.rtf");
    }

    void standardInputIsDirectory()
    {
        for (const char* command : {"convert - out.html", "strip - out.rtf", "info -", "check -"}) {
            QProcess process;
            process.setStandardInputFile(m_dir->path());
            start(process, words(command));
            verifyFailure(finish(process), "standard input");
        }
        QCOMPARE(files(), QStringList());
    }

    void noRoomForPipedInput()
    {
        m_environment.insert("TMPDIR"_s, write("file", QByteArray()));
        verifyFailure(run(words("check -"), "{\\rtf1 Text}"), "no temporary file");
    }

    ORV_ROWS(unwritableOutput)
    {
        const Rows add([this](const QString& output, const QString& format) {
            write("in.rtf", "{\\rtf1 Text}");
            QVERIFY(QDir(m_dir->path()).mkdir("directory"_s));
            verifyFailure(run({"convert"_s, "in.rtf"_s, output, "--to"_s, format}),
                          "orvrtf: cannot write " + output.toUtf8() + ": ");
            QCOMPARE(files(), words("directory in.rtf"));
            QCOMPARE(files("directory"), QStringList());
        });
        // Not by permissions: whoever runs the tests may be allowed everything.
        for (const char* format : {"html", "rtf"}) {
            const auto row = [&](const char* name, const char* output) {
                add(qPrintable("%1 as %2"_s.arg(QLatin1String(name), QLatin1String(format))), output, format);
            };
            row("below a file", "in.rtf/out");
            row("in a missing directory", "missing/out");
            row("a directory", "directory");
            row("the working directory", ".");
            row("a full device", "/dev/full");
        }
    }

    ORV_ROWS(interruptedWritingLeavesNoFile)
    {
        const Rows add([this](const QString& command) {
            write("in.rtf", "{\\rtf1 " + QByteArray(100000, 'a') + "\\par}");
            QProcess process;
            process.setProcessEnvironment(m_environment);
            process.setWorkingDirectory(m_dir->path());
            // Files may grow to a few blocks only, and the signal for it is ignored, so that writing fails.
            process.start("/bin/sh"_s,
                          {"-c"_s, "ulimit -f 8; trap '' XFSZ; exec \"$0\" $1 in.rtf out.txt"_s,
                           QString::fromUtf8(ORVRTF_TOOL), command});
            verifyFailure(finish(process), "cannot write out.txt");
            QCOMPARE(files(), words("in.rtf"));
        });
        add("convert", "convert");
        add("strip", "strip");
    }

    ORV_ROWS(fullStandardOutput)
    {
        const Rows add([this](const QString& arguments) {
            write("in.rtf", "{\\rtf1 Text}");
            QProcess process;
            process.setStandardOutputFile("/dev/full"_s);
            start(process, words(arguments));
            verifyFailure(finish(process), "orvrtf: cannot write standard output: ");
        });
        add("convert to html", "convert in.rtf - --to html");
        add("convert to txt", "convert in.rtf - --to txt");
        add("convert to rtf", "convert in.rtf - --to rtf");
        add("convert to rtf for storage", "convert in.rtf - --to rtf --storage");
        add("strip", "strip in.rtf -");
        add("info", "info in.rtf");
        add("help", "--help");
        add("version", "--version");
    }

    void version()
    {
        for (const char* option : {"--version", "-v"})
            QCOMPARE(run(words(option)), success("orvrtf " ORVRTF_VERSION "\n"));
    }

    void help()
    {
        for (const char* option : {"--help", "-h"}) {
            const ToolRun result = run(words(option));
            QCOMPARE(result.exitCode, 0);
            QCOMPARE(result.err, QByteArray());
            for (const QString& topic : words("convert info check --to --json --help --version Exit"))
                QVERIFY2(result.out.contains(topic.toUtf8()), qPrintable(topic));
        }
    }

    void needsNoDisplay()
    {
        m_environment.insert("DISPLAY"_s, "no-such-host:7"_s);
        m_environment.insert("WAYLAND_DISPLAY"_s, "no-such-socket"_s);
        QCOMPARE(run(words("convert - - --to txt"), "{\\rtf1 Text}"), success("Text\n"));
    }

    /*! Qt gives up a program whose platform does not work. */
    void platformOfTheEnvironmentIsNotUsed()
    {
        m_environment.insert("QT_QPA_PLATFORM"_s, "no-such-platform"_s);
        QCOMPARE(run(words("convert - - --to txt"), "{\\rtf1 Text}"), success("Text\n"));
    }

    ORV_ROWS(fileNamesInCLocale)
    {
        const Rows add([this](const QString& variable, const QString& locale) {
            const QString name = "\xc3\xa4 \xe2\x82\xac"_s;
            write("\xc3\xa4 \xe2\x82\xac.rtf", "{\\rtf1 Text}");
            for (const char* other : {"LC_ALL", "LC_CTYPE", "LANG"})
                m_environment.remove(QLatin1String(other));
            m_environment.insert(variable, locale);
            QCOMPARE(run({"convert"_s, name + ".rtf"_s, name + ".txt"_s}), success());
            QCOMPARE(read(path("\xc3\xa4 \xe2\x82\xac.txt")), "Text\n"_b);
        });
        add("all categories", "LC_ALL", "C");
        add("default", "LANG", "C");
        add("characters", "LC_CTYPE", "POSIX");
        add("no locale", "LANG", QString());
        add("unknown locale", "LC_ALL", "xx_XX.UTF-8");
    }

    void fileNamesThatLookLikeOptions()
    {
        write("-in.rtf", "{\\rtf1 Text}");
        QCOMPARE(run(words("convert --to txt -- -in.rtf -platform")), success());
        QCOMPARE(read(path("-platform")), "Text\n"_b);
    }
};

ORV_TEST("tool", TestTool, QCoreApplication)
#include "tool.moc"
