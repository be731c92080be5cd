#include "tooltest.h"

namespace {

/*! A document of two fonts, links, notes, lists and a picture whose counts manyThingsAsJson() has. */
QByteArray manyThings()
{
    return "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\froman Alpha Roman;}{\\f1\\fswiss Beta Sans;}}"
           "{\\*\\listtable{\\list\\listid1{\\listlevel\\levelnfc0{\\leveltext\\'01*;}}}"
           "{\\list\\listid2{\\listlevel\\levelnfc0{\\leveltext\\'01-;}}}}"
           "{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}{\\listoverride\\listid2\\ls2}}"
           "{\\info{\\title Many things}{\\author Ann}}{\\header Page \\chpgn}"
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
               "{'title': 'Many things', 'author': 'Ann', 'header': 'Page <$p>',"
               " 'paragraphs': 6, 'words': 13, 'characters': 56, 'fonts': ['Alpha Roman', 'Beta Sans'],"
               " 'pictures': 1, 'notes': 3, 'footnotes': 2, 'endnotes': 0, 'annotations': 1, 'tables': 0, "
               "'lists': 2,"
               " 'links': [{'text': 'link one', 'target': 'https://example.org/a'},"
               "           {'text': 'mail', 'target': 'mailto:x@example.org'}],"
               " 'status': 0, 'message': ''}")
        .replace('\'', '"');
}

} // namespace

class TestTool : public ToolTest {
    Q_OBJECT

private slots:
    /*! How often pieces of text occur in a file, or in the standard output, "-". */
    ORV_ROWS(pieces)
    {
        const Rows add([this](const QString& arguments, const QByteArray& rtf, const QString& output,
                              const std::map<QByteArray, int>& pieces) {
            write("in.rtf", rtf);
            const ToolRun result = run(words(arguments));
            QCOMPARE(result.exitCode, 0);
            QCOMPARE(result.err, QByteArray());
            const QByteArray text = output == "-"_s ? result.out : read(output);
            QVERIFY(text.indexOf("<!DOCTYPE") <= 0);
            for (const auto& piece : pieces)
                QVERIFY2(text.count(piece.first) == piece.second, (piece.first + " in " + text).constData());
        });
        const auto html = [&](const QByteArray& name, const QByteArray& rtf,
                              const std::map<QByteArray, int>& pieces) {
            add("HTML: " + name, "convert in.rtf out.html", "{\\rtf1\\ansi" + rtf + "}", "out.html", pieces);
        };
        html("encoding", " caf\\'e9 \\u8364? ",
             {{"charset=", 1}, {"charset=\"utf-8\"", 1}, {"caf\xc3\xa9 \xe2\x82\xac ", 1}});
        html("link", "{\\field{\\*\\fldinst HYPERLINK \"https://example.org/?a=1\"}{\\fldrslt here}}",
             {{"<a href=\"https://example.org/?a=1\">", 1}});
        html("indents", "\\pard\\li720\\fi-360\\sb240\\sl360\\slmult1 text",
             {{"p { text-indent: -18pt; line-height: 150%; margin: 12pt 0 0 36pt }\n", 1}});
        html("exact line height", "\\pard\\sl-480 text", {{"p { line-height: 24pt; margin: 0 }\n", 1}});
        const QByteArray page = "\\paperw10001\\paperh9003\\margl701\\margr307\\margt1009\\margb1111";
        add("page of RTF", "convert in.rtf out.rtf", "{\\rtf1" + page + " \\ri500 text}", "out.rtf",
            {{page, 1}, {"\\ri500\\", 1}});

        const auto format = [&](const QByteArray& arguments, const char* output, int isHtml) {
            add("format: " + arguments, QString::fromUtf8(arguments), "{\\rtf1 Text}", output,
                {{"<!DOCTYPE html", isHtml}, {"Text", 1}});
        };
        format("convert in.rtf out.html", "out.html", 1);
        format("convert in.rtf out.htm", "out.htm", 1);
        format("convert in.rtf OUT.HTML", "OUT.HTML", 1);
        format("convert in.rtf out.txt", "out.txt", 0);
        format("convert in.rtf out.txt.html", "out.txt.html", 1);
        format("convert in.rtf out --to html", "out", 1);
        format("convert in.rtf out.html --to txt", "out.html", 0);
        format("--to=html convert in.rtf out.txt", "out.txt", 1);
    }

    /*! PNG is decoded and encoded anew, JPEG keeps its bytes. */
    void htmlHoldsPictures()
    {
        const QByteArray jpeg = picture("JPEG", 0xff804020);
        QVERIFY(!jpeg.isEmpty());
        write("in.rtf",
              "{\\rtf1 a" + pngGroup(0xff123456) + pngGroup(0xff654321) + "b{\\pict\\jpegblip " + jpeg.toHex()
                  + "}}");
        QCOMPARE(run("convert in.rtf out.html"), success());
        const QString html = QString::fromUtf8(read("out.html"));
        QStringList sources;
        QRegularExpressionMatchIterator match =
            QRegularExpression("<img src=\"data:image/([^\"]*)\""_s).globalMatch(html);
        while (match.hasNext())
            sources << match.next().captured(1);
        QCOMPARE(sources.size(), 3);
        QCOMPARE(html.count("<img "_s), 3);
        const QRgb colours[] = {0xff123456, 0xff654321};
        for (int i = 0; i < 2; ++i) {
            QVERIFY(sources.at(i).startsWith("png;base64,"_s));
            const QByteArray base64 = sources.at(i).mid(11).toLatin1();
            const QImage image = QImage::fromData(QByteArray::fromBase64(base64), "PNG");
            QCOMPARE(image.size(), QSize(3, 2));
            QCOMPARE(image.pixel(2, 1), colours[i]);
        }
        QCOMPARE(sources.at(2), "jpeg;base64,"_s + QString::fromLatin1(jpeg.toBase64()));
    }

    ORV_ROWS(commands)
    {
        const auto add = commandRows();
        const auto text = [&](const QByteArray& name, const QByteArray& rtf, const QByteArray& written) {
            add("plain text: " + name, "convert in.rtf out.txt", {{"in.rtf", rtf}}, "", success(),
                {{"out.txt", written}});
        };
        text("paragraphs", "{\\rtf1 One\\par Two}", "One\nTwo\n");
        text("last paragraph ended", "{\\rtf1 One\\par}", "One\n");
        text("line break", "{\\rtf1 One\\line Two}", "One\nTwo\n");
        text("no-break space", "{\\rtf1 One\\~Two}", "One\xc2\xa0Two\n");
        text("UTF-8", "{\\rtf1 \\u8364?\\u-10179?\\u-8704?}", "\xe2\x82\xac\xf0\x9f\x98\x80\n");
        text("picture", "{\\rtf1 a" + pngGroup(0xff0000ff) + "b}", "ab\n");
        text("nothing", "{\\rtf1}", "");
        text("empty file", "", "");

        const QByteArray aText = "{\\rtf1 Text}";
        add("standard input to standard output", "convert - - --to txt", {}, aText, success("Text\n"), {});
        add("old output", "convert - out.txt", {{"out.txt", "what was there before, and longer"}}, aText,
            success(), {{"out.txt", "Text\n"}});
        add("names like options", "convert --to txt -- -in.rtf -platform", {{"-in.rtf", aText}}, "",
            success(), {{"-platform", "Text\n"}});
        add("strip", "strip in.rtf out.rtf",
            {{"in.rtf", "{\\rtf1\\ansi\\foo7\r\n{\\pict\\pngblip 89504e47}Text\\b01}"}}, "", success(),
            {{"out.rtf", "\n{\\rtf1\\ansi\n\n{\\pict}\nText\\b1}\n"}});
        add("info", "info -", {}, manyThings(),
            success("title       Many things\n"
                    "author      Ann\n"
                    "header      Page <$p>\n"
                    "paragraphs  6\n"
                    "words       13\n"
                    "characters  56\n"
                    "fonts       2 (Alpha Roman, Beta Sans)\n"
                    "pictures    1\n"
                    "links       2\n"
                    "notes       3 (2 footnotes, 0 endnotes, 1 annotations)\n"
                    "tables      0\n"
                    "lists       2\n"
                    "status      0\n"),
            {});
        // A Cyrillic letter, in the font of its code page.
        const QByteArray foreign =
            "{\\rtf1{\\fonttbl{\\f0\\fcharset204 Alpha;}}\\f0 \\'e4\\'e0{\\v  hidden}}";
        add("RTF of other programs", "convert in.rtf out.txt", {{"in.rtf", foreign}}, "", success(),
            {{"out.txt", "\xd0\xb4\xd0\xb0\n"}});
        add("RTF in the storage form", "convert in.rtf out.txt --storage", {{"in.rtf", foreign}}, "",
            success(), {{"out.txt", "?? hidden\n"}});
        for (const char* option : {"--version", "-v"})
            add(option, option, {}, "", success("orvrtf " ORVRTF_VERSION "\n"), {});

        add("check", "check in.rtf", {{"in.rtf", manyThings()}}, "", success(), {});
        const auto damage = [&](const QByteArray& name, const QByteArray& rtf, const QByteArray& message) {
            add("damage: " + name, "check in.rtf", {{"in.rtf", rtf}}, "",
                failure("orvrtf: in.rtf: " + message + "\n"), {});
        };
        damage("group too many ended", "{\\rtf1 abc}}", "Unmatched '{' in Rich Text file");
        damage("group not ended", "{\\rtf1 abc", "Unmatched '}' in Rich Text file");
        damage("backslash at the end", "{\\rtf1}\\", "Unexpected end of file");
        damage("endless control word", "{\\rtf1\\" + QByteArray(100, 'a') + "}",
               "Invalid control word encountered");
        damage("no hexadecimal digits", "{\\rtf1 \\'zz}", "Invalid control word parameter encountered");
        add("damaged file is converted", "convert in.rtf out.txt", {{"in.rtf", "{\\rtf1 kept}}"}}, "",
            failure("orvrtf: in.rtf: Unmatched '{' in Rich Text file\n"), {{"out.txt", "kept\n"}});
    }

    // A writer that pauses must not look like the end of the input.
    ORV_ROWS(waitsForSlowPipe)
    {
        const Rows add([this](const QString& arguments, const QByteArray& out) {
            makePipe("pipe");
            const int writer = openPipe("pipe", O_RDWR);
            QProcess process;
            start(process, words(arguments));
            feed(writer, "{\\rtf1 first half\\par ");
            feed(writer, "second half\\par}");
            close(writer);
            QCOMPARE(finish(process), success(out));
        });
        add("convert", "convert pipe - --to txt", "first half\nsecond half\n");
        // The stripper does not wait for the whole input, but for its end.
        add("strip", "strip pipe -", "\n{\\rtf1 first half\\par second half\\par}\n");
    }

    void writesIntoNamedPipe()
    {
        makePipe("pipe");
        const int reader = openPipe("pipe", O_RDWR);
        QCOMPARE(run("convert - pipe --to txt", "{\\rtf1 Text}"), success());
        char text[16] = {};
        QCOMPARE(::read(reader, text, sizeof text), ssize_t(5));
        QCOMPARE(QByteArray(text), "Text\n"_b);
        close(reader);
        struct stat status = {};
        QCOMPARE(stat(QFile::encodeName(path("pipe")).constData(), &status), 0);
        QVERIFY(S_ISFIFO(status.st_mode));
    }

    void infoAsJson()
    {
        write("in.rtf", manyThings());
        const ToolRun result = run("info in.rtf --json");
        QCOMPARE(result.err, QByteArray());
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(QJsonDocument::fromJson(result.out).toJson(),
                 QJsonDocument::fromJson(manyThingsAsJson()).toJson());
    }

    void infoOfDamagedFile()
    {
        const QByteArray message = "Unmatched '}' in Rich Text file";
        const ToolRun text = run("info -", "{\\rtf1 two words\\par ");
        QCOMPARE(text.exitCode, 1);
        QCOMPARE(text.err, "orvrtf: standard input: " + message + "\n");
        QVERIFY2(text.out.contains("words       2\n"), text.out.constData());
        QVERIFY2(text.out.endsWith("status      2 (" + message + ")\n"), text.out.constData());
        const ToolRun json = run("info - --json", "{\\rtf1 two words\\par ");
        QCOMPARE(json.exitCode, 1);
        const QJsonObject object = QJsonDocument::fromJson(json.out).object();
        QCOMPARE(object.value("status"_s).toInt(), 2);
        QCOMPARE(object.value("message"_s).toString(), QString::fromLatin1(message));
    }

    ORV_ROWS(usageErrors)
    {
        const Rows add([this](const QString& arguments, const QByteArray& message) {
            for (const char* name : {"in.rtf", "in.html", "in.docx", "a/in.rtf", "a/in.html"})
                write(name, name);
            QVERIFY(QFile::link(path("a/in.html"), path("a/link.rtf")));
            QCOMPARE(run(words(arguments)), refusal(message));
            QCOMPARE(files(), words("a in.docx in.html in.rtf"));
            QCOMPARE(files("a"), words("in.html in.rtf link.rtf"));
            for (const char* name : {"in.rtf", "in.html", "in.docx", "a/in.rtf", "a/in.html"})
                QCOMPARE(read(name), QByteArray(name));
        });
        const auto row = [&](const QByteArray& arguments, const QByteArray& message) {
            add(arguments, QString::fromUtf8(arguments), message);
        };
        add("nothing", "", "no command given");
        row("turn in.rtf out.html", "unknown command \"turn\"");
        row("--fast convert in.rtf out.html", "Unknown option 'fast'");
        row("convert in.rtf", "convert takes an input and an output file");
        row("convert in.rtf out.html more.html", "convert takes an input and an output file");
        row("info", "info takes one input file");
        row("info in.rtf in.rtf", "info takes one input file");
        row("check", "check takes one input file");
        row("strip in.rtf", "strip takes an input and an output file");
        row("strip in.rtf ./in.rtf", "\"in.rtf\" is both input and output");
        row("convert in.rtf ./in.rtf --to html", "\"in.rtf\" is both input and output");
        row("convert in.rtf ./in.rtf --storage", "\"in.rtf\" is both input and output");

        const QByteArray noFormat =
            " by its suffix, known are .rtf, .html, .htm, .txt, .md, .odt, .pdf and .png";
        row("convert in.rtf out.doc", "cannot tell the format of \"out.doc\"" + noFormat);
        row("convert in.docx out.docx", "cannot tell the format of \"out.docx\"" + noFormat);
        row("convert in.rtf out", "cannot tell the format of \"out\"" + noFormat);
        row("convert in.rtf out.html --to doc",
            "unknown output format \"doc\", known are rtf, html, txt, md, odt, pdf and png");
        row("convert in.rtf out.html --to", "Missing value after '--to'");
        for (const char* format : {"docx", "odt"})
            row("convert in.rtf out.rtf --from "_b + format,
                "unknown input format \""_b + format + "\", known are rtf, html and txt");
        row("convert in.rtf -", "the standard output needs --to rtf, html, txt, md, odt or pdf");
        row("convert - - --to png", "png is a file for each page and cannot go to the standard output");
        const QByteArray styles = ", known are annotation, footnote and alternate";
        row("convert in.rtf out.rtf --footnotes endnote", "unknown style \"endnote\"" + styles);
        row("convert in.rtf out.rtf --annotations 1", "unknown style \"1\"" + styles);
        row("convert in.rtf out.rtf --annotations=", "unknown style \"\"" + styles);

        const QByteArray engines = "known are auto, libreoffice, abiword and pandoc";
        row("convert in.docx out.rtf --engine word", "unknown engine \"word\", " + engines);
        row("convert in.docx --output-dir out --to html --engine abacus",
            "unknown engine \"abacus\", " + engines);
        for (const char* arguments : {"in.rtf out.html", "in.html out.rtf", "- out.rtf",
                                      "in.docx out.html --from rtf", "in.rtf --output-dir out --to txt"})
            row("convert --engine pandoc "_b + arguments, "--engine goes with .doc, .docx and .odt only");

        for (const char* arguments : {"in.rtf out.odt", "in.rtf --output-dir out --to odt"}) {
            for (const QByteArray name : {"auto", "abiword", "pandoc"})
                row("convert --engine " + name + ' ' + arguments,
                    "engine \"" + name + "\" does not write .odt, only libreoffice does");
        }
        row("convert in.rtf out.odt --engine word", "unknown engine \"word\", " + engines);

        const auto misplaced = [&](const QByteArray& option, const QByteArray& formats,
                                   const QByteArray& other) {
            const QByteArray name = option.split(' ').first();
            row("convert in.rtf out." + other + ' ' + option,
                name + " goes with " + formats + " output only");
            row("convert in.rtf --output-dir out --to " + other + ' ' + option,
                name + " goes with " + formats + " output only");
            for (const QByteArray command : {"info", "check"})
                row(command + " in.rtf " + option, name + " does not go with " + command);
            row("strip in.rtf out.rtf " + option, name + " does not go with strip");
            row("diff in.rtf in.html " + option, name + " does not go with diff");
        };
        misplaced("--html-style none", "HTML", "md");
        misplaced("--media pictures", "HTML and Markdown", "txt");
        misplaced("--table-layout", "plain text", "md");
        misplaced("--width 72", "plain text", "html");
        row("convert in.rtf out.html --html-style short",
            "unknown style \"short\", known are full, minimal and none");
        row("convert in.rtf out.html --media=", "--media takes a directory");
        for (const QByteArray value : {"19", "10001", "-1", "wide", "72.5", ""})
            row("convert in.rtf out.txt --width=" + value,
                "--width takes a number from 20 to 10000, not \"" + value + '"');

        for (const QByteArray arguments : {"", " in.rtf", " in.rtf in.html out.txt more.txt"})
            row("diff" + arguments, "diff takes two input files, and an output file if wanted");
        row("diff - -", "the standard input cannot be both files of diff");
        row("diff in.rtf in.html a/../in.rtf --to txt", "\"in.rtf\" is both input and output");
        row("diff in.rtf in.html ./in.html", "\"in.html\" is both input and output");
        row("diff in.rtf in.html out.rtf",
            "cannot tell the format of \"out.rtf\" by its suffix, known are .html, .htm and .txt");
        row("diff in.rtf in.html out",
            "cannot tell the format of \"out\" by its suffix, known are .html, .htm and .txt");
        for (const QByteArray format : {"rtf", "md", "doc"})
            row("diff in.rtf in.html --to " + format,
                "unknown report format \"" + format + "\", known are html and txt");
        row("diff in.rtf in.html --from docx", "unknown input format \"docx\", known are rtf, html and txt");
        row("diff in.rtf in.html --engine pandoc", "--engine goes with .doc, .docx and .odt only");
        row("diff in.html in.html --storage", "--storage goes with RTF only");
        row("diff in.rtf in.html --output-dir out", "--output-dir does not go with diff");
        row("diff in.rtf in.html --json", "--json does not go with diff");

        for (const QByteArray option : {"--ms-word-highlight", "--decorate-links", "--footnotes footnote",
                                        "--annotations annotation"}) {
            const QByteArray name = option.split(' ').first();
            row("convert in.rtf out.html " + option, name + " goes with RTF output only");
            row("convert in.rtf out.rtf --to txt " + option, name + " goes with RTF output only");
            row("convert in.rtf --output-dir out --to txt " + option, name + " goes with RTF output only");
            row("info in.rtf " + option, name + " does not go with info");
            row("check in.rtf " + option, name + " does not go with check");
        }
        row("convert in.html out.txt --storage", "--storage goes with RTF only");
        row("convert in.rtf out.txt --from html --storage", "--storage goes with RTF only");
        row("convert in.html --output-dir out --to txt --storage", "--storage goes with RTF only");
        row("strip in.rtf out.rtf --storage", "--storage does not go with strip");
        for (const QByteArray command : {"info", "check"}) {
            row(command + " in.rtf --to html", "--to does not go with " + command);
            row(command + " in.rtf --from html", "--from does not go with " + command);
        }
        row("strip in.rtf out.rtf --to rtf", "--to does not go with strip");
        row("check in.rtf --json", "--json does not go with check");
        row("check in.docx --engine pandoc", "--engine does not go with check");
        row("convert in.rtf out.html --json", "--json does not go with convert");
        for (const QByteArray option : {"--jobs 2", "--keep-going", "--timeout 2"})
            row("convert in.rtf out.txt " + option,
                option.split(' ').first() + " goes with --output-dir only");

        const auto batch = [&](const QByteArray& arguments, const QByteArray& message) {
            row("convert " + arguments, message);
        };
        batch("--output-dir out --to txt", "convert --output-dir takes input files");
        batch("in.rtf --output-dir out", "--output-dir needs --to");
        batch("in.rtf --output-dir out --to gif",
              "unknown output format \"gif\", known are rtf, html, txt, md, odt, pdf and png");
        batch("in.rtf --to txt --output-dir=", "--output-dir takes a directory");
        batch("in.rtf - --output-dir out --to txt", "the standard input does not go with --output-dir");
        const QByteArray conflict = " would both become \"out/in.txt\"";
        batch("in.rtf in.rtf --output-dir out --to txt", "\"in.rtf\" and \"in.rtf\"" + conflict);
        batch("in.rtf a/in.rtf --output-dir out --to txt", "\"in.rtf\" and \"a/in.rtf\"" + conflict);
        batch("in.rtf in.html --output-dir out --to txt", "\"in.rtf\" and \"in.html\"" + conflict);
        batch("in.rtf --output-dir . --to rtf", "\"./in.rtf\" is both input and output");
        batch("a/../in.rtf --output-dir ./a/.. --to rtf", "\"./a/../in.rtf\" is both input and output");
        // By the link, the output is an input.
        batch("in.rtf a/link.rtf --output-dir a --to html", "\"a/in.html\" is both input and output");
        for (const QByteArray value : {"many", "-1", "1.5", ""})
            batch("in.rtf --output-dir out --to txt --jobs=" + value,
                  "--jobs takes a number or auto, not \"" + value + '"');
        for (const QByteArray value : {"5m", "1000001"})
            batch("in.rtf --output-dir out --to txt --timeout " + value,
                  "--timeout takes a number of seconds, not \"" + value + '"');
    }

    ORV_ROWS(unreadableInput)
    {
        const Rows add([this](const QString& arguments, const QByteArray& input) {
            for (const char* name : {"in.rtf", "old.rtf", "old.txt"})
                write(name, name);
            verifyFailure(run(words(arguments)), "orvrtf: cannot read " + input + ": ");
            QCOMPARE(files(), words("in.rtf old.rtf old.txt"));
            for (const char* name : {"in.rtf", "old.rtf", "old.txt"})
                QCOMPARE(read(name), QByteArray(name));
        });
        const auto row = [&](const QByteArray& arguments, const QByteArray& input) {
            add(arguments, QString::fromUtf8(arguments), input);
        };
        for (const QByteArray command : {"convert %1 out.html", "convert %1 old.rtf", "convert %1 old.txt",
                                         "strip %1 out.rtf", "info %1", "check %1"}) {
            for (const QByteArray input : {"missing.rtf", "."})
                row(QByteArray(command).replace("%1", input), input);
        }
        row("check in.rtf/in.rtf", "in.rtf/in.rtf");
        row("convert in.rtf/missing.txt old.rtf", "in.rtf/missing.txt");
        row("convert missing.html old.rtf", "missing.html");
        row("convert missing.txt old.rtf", "missing.txt");
    }

    void standardInputCannotBeRead()
    {
        for (const char* command : {"convert - out.html", "strip - out.rtf", "info -", "check -"}) {
            QProcess process;
            process.setStandardInputFile(m_dir->path());
            start(process, words(command));
            verifyFailure(finish(process), "standard input");
        }
        QCOMPARE(files(), QStringList());
        m_environment.insert("TMPDIR"_s, write("file", QByteArray()));
        verifyFailure(run("check -", "{\\rtf1 Text}"), "no temporary file");
    }

    ORV_ROWS(unwritableOutput)
    {
        const Rows add([this](const QString& output, const QString& format) {
            write("in.rtf", "{\\rtf1 Text}");
            makeFolder("directory");
            verifyFailure(run({"convert"_s, "in.rtf"_s, output, "--to"_s, format}),
                          "orvrtf: cannot write " + output.toUtf8() + ": ");
            QCOMPARE(files(), words("directory in.rtf"));
            QCOMPARE(files("directory"), QStringList());
        });
        const auto row = [&](const QByteArray& name, const char* output, const char* format) {
            add(name + " as " + format, output, format);
        };
        // Not by permissions: whoever runs the tests may be allowed everything.
        for (const char* format : {"html", "rtf"}) {
            row("below a file", "in.rtf/out", format);
            row("a directory", "directory", format);
            row("the working directory", ".", format);
            row("a full device", "/dev/full", format);
        }
        for (const char* format : {"html", "rtf", "pdf", "png", "odt"})
            row("in a missing directory", "missing/out", format);
    }

    ORV_ROWS(interruptedWritingLeavesNoFile)
    {
        const Rows add([this](const QString& command) {
            write("in.rtf", "{\\rtf1 " + QByteArray(100000, 'a') + "\\par}");
            // Files may grow to a few blocks only, and the signal for it is ignored, so that writing fails.
            QProcess process;
            startByShell(process, "ulimit -f 8; trap '' XFSZ"_s, {command, "in.rtf"_s, "out.txt"_s});
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
        for (const char* arguments :
             {"convert in.rtf - --to html", "convert in.rtf - --to txt", "convert in.rtf - --to rtf",
              "convert in.rtf - --to rtf --storage", "strip in.rtf -", "info in.rtf", "--help", "--version"})
            add(arguments, arguments);
    }

    void help()
    {
        for (const char* option : {"--help", "-h"}) {
            const ToolRun result = run(option);
            QCOMPARE(result.exitCode, 0);
            QCOMPARE(result.err, QByteArray());
            for (const QString& topic : words("convert info check --to --json --help --version Exit --engine "
                                              ".docx .odt libreoffice abiword pandoc"))
                QVERIFY2(result.out.contains(topic.toUtf8()), qPrintable(topic));
        }
    }

    /*! Qt gives up a program whose platform does not work. */
    void needsNoDisplay()
    {
        m_environment.insert("DISPLAY"_s, "no-such-host:7"_s);
        m_environment.insert("WAYLAND_DISPLAY"_s, "no-such-socket"_s);
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(run("convert - - --to txt", "{\\rtf1 Text}"), success("Text\n"));
            m_environment.insert("QT_QPA_PLATFORM"_s, "no-such-platform"_s);
        }
    }

    ORV_ROWS(fileNamesInCLocale)
    {
        const Rows add([this](const QString& variable, const QString& locale) {
            const QString name = "\xc3\xa4 \xe2\x82\xac"_s;
            write("\xc3\xa4 \xe2\x82\xac.rtf", "{\\rtf1 Text}");
            m_environment.remove("LC_ALL"_s);
            m_environment.insert(variable, locale);
            QCOMPARE(run({"convert"_s, name + ".rtf"_s, name + ".txt"_s}), success());
            QCOMPARE(read("\xc3\xa4 \xe2\x82\xac.txt"), "Text\n"_b);
        });
        add("all categories", "LC_ALL", "C");
        add("default", "LANG", "C");
        add("characters", "LC_CTYPE", "POSIX");
        add("no locale", "LANG", QString());
        add("unknown locale", "LC_ALL", "xx_XX.UTF-8");
    }
};

ORV_TEST("tool", TestTool, QCoreApplication)
#include "tool.moc"
