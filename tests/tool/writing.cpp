#include "rtfstory.h"
#include "tooltest.h"

#include <QDir>
#include <QRegularExpression>

using rtftest::blackAndWhite;
using rtftest::bodyOf;
using rtftest::defaultFontEntry;
using rtftest::documentHead;
using rtftest::firstParagraph;
using rtftest::newParagraph;

namespace {

/*! The content of an RTF file in a font that no machine has. */
QByteArray rtfFile(const QByteArray& content)
{
    return "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\fnil Quibble Sans;}}"
           "{\\colortbl;\\red255\\green255\\blue0;}\\pard\\plain\\f0\\fs24 "
        + content + "}";
}

/*! A run in the only font of the document. */
QByteArray text(const QByteArray& content)
{
    return rtftest::run(content);
}

QByteArray annotation(const QByteArray& content)
{
    return "{\\chatn{\\*\\annotation  \\f0\\fs24 " + content + "}}";
}

QByteArray footnote(const QByteArray& content, const QByteArray& kind = QByteArray())
{
    return "{\\super\\chftn{\\footnote" + kind + "\\pard\\plain {\\super\\chftn\\f0\\fs24} \\f0\\fs24 "
        + content + "}}";
}

QByteArray alternate(const QByteArray& content)
{
    return footnote(content, "\\ftnalt");
}

/*! A link as a field, its text in \a format. */
QByteArray link(const QByteArray& target, const QByteArray& format, const QByteArray& content)
{
    return "{\\field{\\*\\fldinst HYPERLINK \"" + target + "\"}{\\fldrslt" + format + " " + content + "}}";
}

/*! \a rtf with "\fs0" for the point size of the system's font, in which plain text is set. */
QByteArray withoutSize(const QByteArray& rtf)
{
    return QString::fromLatin1(rtf)
        .replace(QRegularExpression(QLatin1String("\\\\fs\\d+")), QLatin1String("\\fs0"))
        .toLatin1();
}

/*! HTML that sets all of its text in the font and size of the other tests. */
QByteArray htmlFile(const QByteArray& content)
{
    return "<html><body style=\"font-family:'Quibble Sans'; font-size:12pt\">" + content + "</body></html>";
}

} // namespace

/*! The RTF that the command line tool writes, from each of its formats and with each of its options. */
class tst_tool_writing : public ToolTest {
    Q_OBJECT

private slots:
    void noteStyles_data();
    void noteStyles();
    void linkDecoration_data();
    void linkDecoration();
    void highlighting_data();
    void highlighting();
    void storage_data();
    void storage();
    void paragraphBeforeTable();
    void optionsGoTogether();

    void inputFormat_data();
    void inputFormat();
    void outputFormat_data();
    void outputFormat();
    void html_data();
    void html();
    void plainText_data();
    void plainText();
    void encodingOfText_data();
    void encodingOfText();
    void zeroBytesEndNoText_data();
    void zeroBytesEndNoText();
    void zeroBytesEndNoHtml();
    void halfAUnitOfUtf16IsShown();

    void usageErrors_data();
    void usageErrors();
    void missingInput_data();
    void missingInput();
    void unwritableOutput_data();
    void unwritableOutput();
    void fullStandardOutput();
    void damagedRtf();

private:
    QByteArray converted(const QByteArray& input, const QString& options) const;
};

/*! What "convert - - --to rtf", with \a options behind it, makes of \a input. */
QByteArray tst_tool_writing::converted(const QByteArray& input, const QString& options) const
{
    QStringList arguments = words("convert - - --to rtf");
    if (!options.isEmpty())
        arguments += options.split(QLatin1Char(' '));
    const ToolRun result = run(arguments, input);
    if (result.exitCode != 0 || !result.err.isEmpty())
        return "failed: " + result.err;
    return result.out;
}

void tst_tool_writing::noteStyles_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QByteArray>("footnoteText");
    QTest::addColumn<QByteArray>("annotationText");

    QTest::newRow("as they are") << "" << footnote("note") << annotation("remark");
    QTest::newRow("footnotes as footnotes")
        << "--footnotes footnote" << footnote("note") << annotation("remark");
    QTest::newRow("footnotes as annotations")
        << "--footnotes annotation" << annotation("note") << annotation("remark");
    QTest::newRow("alternate footnotes")
        << "--footnotes alternate" << alternate("note") << annotation("remark");
    QTest::newRow("annotations as annotations")
        << "--annotations annotation" << footnote("note") << annotation("remark");
    QTest::newRow("annotations as footnotes")
        << "--annotations footnote" << footnote("note") << footnote("remark");
    QTest::newRow("annotations as alternate footnotes")
        << "--annotations alternate" << footnote("note") << alternate("remark");
    QTest::newRow("the one as the other")
        << "--footnotes annotation --annotations footnote" << annotation("note") << footnote("remark");
    QTest::newRow("last style counts")
        << "--footnotes alternate --footnotes annotation" << annotation("note") << annotation("remark");
}

void tst_tool_writing::noteStyles()
{
    QFETCH(QString, options);
    QFETCH(QByteArray, footnoteText);
    QFETCH(QByteArray, annotationText);
    const QByteArray rtf = converted(
        rtfFile("One{\\footnote\\pard\\plain  note} two{\\*\\annotation\\pard\\plain  remark}."), options);
    QCOMPARE(rtf,
             documentHead() + firstParagraph() + text("One") + footnoteText + text(" two") + annotationText
                 + text(".") + "}");
}

void tst_tool_writing::linkDecoration_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QByteArray>("colours");
    QTest::addColumn<QByteArray>("format");

    QTest::newRow("plain") << "" << QByteArray() << QByteArray("\\f0\\fs24");
    // Blue follows black and white, which begin each table that is not empty.
    QTest::newRow("decorated") << "--decorate-links"
                               << QByteArray(blackAndWhite() + "\\red0\\green0\\blue255;")
                               << QByteArray("\\f0\\fs24\\ul\\ulc3\\cf3");
}

void tst_tool_writing::linkDecoration()
{
    QFETCH(QString, options);
    QFETCH(QByteArray, colours);
    QFETCH(QByteArray, format);
    const QByteArray rtf = converted(
        rtfFile("See {\\field{\\*\\fldinst HYPERLINK \"http://localhost/a\"}{\\fldrslt here}}."), options);
    QCOMPARE(rtf,
             documentHead(defaultFontEntry(), colours) + firstParagraph() + text("See ")
                 + link("http://localhost/a", format, "here") + text(".") + "}");
}

void tst_tool_writing::highlighting_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QByteArray>("background");

    QTest::newRow("usual") << "" << QByteArray("\\cb3\\highlight3");
    QTest::newRow("MS Word") << "--ms-word-highlight" << QByteArray("\\cb3\\chshdng0\\chcbpat3");
}

void tst_tool_writing::highlighting()
{
    QFETCH(QString, options);
    QFETCH(QByteArray, background);
    const QByteArray rtf = converted(rtfFile("One {\\highlight1 two}"), options);
    const QByteArray yellow = blackAndWhite() + "\\red255\\green255\\blue0;";
    QCOMPARE(rtf,
             documentHead(defaultFontEntry(), yellow) + firstParagraph() + text("One ") + "{\\f0\\fs24"
                 + background + " two}}");
}

void tst_tool_writing::storage_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("exported");
    QTest::addColumn<QByteArray>("stored");

    QTest::newRow("page number") << QByteArray("Page <$p>.") << firstParagraph() + text("Page {\\chpgn}.")
                                 << firstParagraph() + text("Page <$p>.");
    QTest::newRow("number of pages") << QByteArray("<$pagecount> pages")
                                     << firstParagraph()
            + text("{\\field{\\*\\fldinst{NUMPAGES}}{\\fldrslt 1}} pages")
                                     << firstParagraph() + text("<$pagecount> pages");
    // Of another person's text the colour is seen elsewhere, the level is kept.
    QTest::newRow("revision") << QByteArray("{\\*\\orvrevlvl2 new} old")
                              << firstParagraph() + "{\\f0\\fs24\\cf3 new}" + text(" old")
                              << firstParagraph() + "{\\f0\\fs24\\*\\orvrevlvl2 new}" + text(" old");
    QTest::newRow("footnote") << QByteArray("One{\\footnote\\pard\\plain note}")
                              << firstParagraph() + text("One") + footnote("note")
                              << firstParagraph() + text("One")
            + "{\\super\\chftn{\\footnote\\pard\\plain {\\super\\chftn\\f0\\fs24}\\f0\\fs24 note}}";
    QTest::newRow("annotation") << QByteArray("One{\\*\\annotation\\pard\\plain remark}")
                                << firstParagraph() + text("One") + annotation("remark")
                                << firstParagraph() + text("One")
            + "{\\chatn{\\*\\annotation\\f0\\fs24 remark}}";
    const QByteArray item = "\\ltrch\\loch \\ls1\\ilvl0{\\listtext\\f0\\fs24 .\\tab }";
    QTest::newRow("list item") << QByteArray("\\ls1 One") << "\n\\pard\\plain \\fi-360" + item + text("One")
                               << "\n\\pard\\plain " + item + text("One");
}

void tst_tool_writing::storage()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, exported);
    QFETCH(QByteArray, stored);
    QCOMPARE(bodyOf(converted(rtfFile(content), QString())), exported);
    QCOMPARE(bodyOf(converted(rtfFile(content), QLatin1String("--storage"))), stored);
}

/*! Other programs would take that paragraph into the first cell. */
void tst_tool_writing::paragraphBeforeTable()
{
    const QByteArray input = htmlFile("<p style=\"margin:0\">One</p><table><tr><td>cell</td></tr></table>");
    const QByteArray paragraph = firstParagraph() + "{\\f1\\fs24 One}";
    const QByteArray exported = bodyOf(converted(input, QLatin1String("--from html")));
    QVERIFY2(exported.startsWith(paragraph + "\n\\par\n\n\n\\trowd"), exported.constData());
    const QByteArray stored = bodyOf(converted(input, QLatin1String("--from html --storage")));
    QVERIFY2(stored.startsWith(paragraph + "\n\n\n\\trowd"), stored.constData());
}

void tst_tool_writing::optionsGoTogether()
{
    const QByteArray input = rtfFile("{\\highlight1 One}{\\footnote\\pard\\plain note}"
                                     "{\\field{\\*\\fldinst HYPERLINK \"a\"}{\\fldrslt two}}<$p>");
    const QByteArray rtf = converted(
        input, QLatin1String("--storage --ms-word-highlight --decorate-links --footnotes annotation"));
    QCOMPARE(rtf,
             documentHead(defaultFontEntry(),
                          blackAndWhite() + "\\red255\\green255\\blue0;\\red0\\green0\\blue255;")
                 + firstParagraph() + "{\\f0\\fs24\\cb3\\chshdng0\\chcbpat3 One}"
                 + "{\\chatn{\\*\\annotation\\f0\\fs24 note}}" + link("a", "\\f0\\fs24\\ul\\ulc4\\cf4", "two")
                 + text("<$p>") + "}");
}

void tst_tool_writing::inputFormat_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("expected");

    // What the same bytes are as RTF, HTML and plain text.
    const QByteArray asRtf = "<b>One</b>";
    const QByteArray asHtml = "{\\rtf1 One}";
    const QByteArray asText = "{\\rtf1 <b>One</b>}";
    QTest::newRow("rtf suffix") << "in.rtf out.txt" << asRtf;
    QTest::newRow("html suffix") << "in.html out.txt" << asHtml;
    QTest::newRow("htm suffix") << "in.htm out.txt" << asHtml;
    QTest::newRow("capital suffix") << "IN.HTML out.txt" << asHtml;
    QTest::newRow("txt suffix") << "in.txt out.txt" << asText;
    QTest::newRow("other suffix") << "in.doc out.txt" << asRtf;
    QTest::newRow("no suffix") << "in out.txt" << asRtf;
    QTest::newRow("standard input") << "- out.txt" << asRtf;
    QTest::newRow("from txt beats suffix") << "in.rtf out.txt --from txt" << asText;
    QTest::newRow("from html beats suffix") << "in.txt out.txt --from html" << asHtml;
    QTest::newRow("from rtf beats suffix") << "in.txt out.txt --from=rtf" << asRtf;
    QTest::newRow("from in capitals") << "in.rtf out.txt --from TXT" << asText;
    QTest::newRow("standard input from html") << "- out.txt --from html" << asHtml;
}

void tst_tool_writing::inputFormat()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, expected);
    const QByteArray content = "{\\rtf1 <b>One</b>}";
    const QStringList files = arguments.split(QLatin1Char(' '));
    if (files.first() != QLatin1String("-"))
        write(files.first().toUtf8().constData(), content);
    const ToolRun result = run(words("convert") + files, content);
    QCOMPARE(result.err, QByteArray());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(read(path("out.txt")), QByteArray(expected + "\n"));
}

void tst_tool_writing::outputFormat_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("output");

    QTest::newRow("rtf suffix") << "in.rtf out.rtf"
                                << "out.rtf";
    QTest::newRow("capital suffix") << "in.rtf OUT.RTF"
                                    << "OUT.RTF";
    QTest::newRow("to rtf without suffix") << "in.rtf out --to rtf"
                                           << "out";
    QTest::newRow("to rtf beats suffix") << "in.rtf out.html --to=RTF"
                                         << "out.html";
}

void tst_tool_writing::outputFormat()
{
    QFETCH(QString, arguments);
    QFETCH(QString, output);
    write("in.rtf", rtfFile("One"));
    const ToolRun result = run(words("convert") + arguments.split(QLatin1Char(' ')));
    QCOMPARE(result.err, QByteArray());
    QCOMPARE(result.out, QByteArray());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(read(path(output.toUtf8().constData())),
             QByteArray(documentHead() + firstParagraph() + text("One") + "}"));
}

void tst_tool_writing::html_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("body");

    QTest::newRow("character formats")
        << QByteArray("One <b>two</b> <i>three</i> <u>four</u>")
        << firstParagraph() + "{\\f1\\fs24 One }{\\f1\\fs24\\b1 two}{\\f1\\fs24  }{\\f1\\fs24\\i1 three}"
            + "{\\f1\\fs24  }{\\f1\\fs24\\ul\\ulc0 four}";
    QTest::newRow("special characters") << QByteArray("{a\\b} &lt;&nbsp;&ndash; caf\xc3\xa9")
                                        << firstParagraph()
            + "{\\f1\\fs24 \\{a\\\\b\\} <\\~\\endash  caf\\loch\\af1\\hich\\af1\\dbch\\af1\\uc1\\u233\\'E9}";
    QTest::newRow("paragraphs") << QByteArray(
        "<p style=\"margin:0\">One</p><p style=\"margin:0\" align=\"right\">Two</p>")
                                << firstParagraph()
            + "{\\f1\\fs24 One}\n\\par\\pard\\plain \\qr\\ltrch\\loch {\\f1\\fs24 Two}";
    // 12 pixels are 9 points.
    QTest::newRow("paragraph margins")
        << QByteArray("<p>One</p>")
        << QByteArray("\n\\pard\\plain \\sa180\\sb180\\ltrch\\loch {\\f1\\fs24 One}");
    QTest::newRow("line break") << QByteArray("One<br>two")
                                << firstParagraph() + "{\\f1\\fs24 One\\line two}";
}

void tst_tool_writing::html()
{
    QFETCH(QByteArray, content);
    const QByteArray rtf = converted(htmlFile(content), QLatin1String("--from html"));
    QVERIFY2(rtf.contains("{\\f1\\fnil\\fcharset1252\\fprq2 Quibble Sans;}}\n"), rtf.constData());
    QTEST(bodyOf(rtf), "body");
}

void tst_tool_writing::plainText_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("body");

    const QByteArray one = firstParagraph() + "{\\f0\\fs0 One}";
    const QByteArray two = newParagraph() + "{\\f0\\fs0 two}";
    QTest::newRow("one line") << QByteArray("One") << one;
    QTest::newRow("lines") << QByteArray("One\ntwo") << one + two;
    QTest::newRow("lines of Windows") << QByteArray("One\r\ntwo") << one + two;
    // As an editor shows it, the last line feed begins an empty line.
    QTest::newRow("last line ended") << QByteArray("One\ntwo\n") << one + two + newParagraph() + "\\f0\\fs0";
    QTest::newRow("special characters")
        << QByteArray("{\\b x}\ttwo") << firstParagraph() + "{\\f0\\fs0 \\{\\\\b x\\}\\tab two}";
    QTest::newRow("tags") << QByteArray("<b>&amp;</b>") << firstParagraph() + "{\\f0\\fs0 <b>&amp;</b>}";
    QTest::newRow("nothing") << QByteArray() << firstParagraph() + "\\f0\\fs0";
}

void tst_tool_writing::plainText()
{
    QFETCH(QByteArray, content);
    const QByteArray rtf = converted(content, QLatin1String("--from txt"));
    QTEST(withoutSize(bodyOf(rtf)), "body");
}

void tst_tool_writing::encodingOfText_data()
{
    QTest::addColumn<QByteArray>("content");

    QTest::newRow("UTF-8") << QByteArray("caf\xc3\xa9");
    QTest::newRow("UTF-8 with byte order mark") << QByteArray("\xef\xbb\xbf"
                                                              "caf\xc3\xa9");
    QTest::newRow("Latin-1") << QByteArray("caf\xe9");
    QTest::newRow("UTF-16, high byte first") << QByteArray("\xfe\xff\0c\0a\0f\0\xe9", 10);
    QTest::newRow("UTF-16, low byte first") << QByteArray("\xff\xfe"
                                                          "c\0a\0f\0\xe9\0",
                                                          10);
}

void tst_tool_writing::encodingOfText()
{
    QFETCH(QByteArray, content);
    for (const char* format : {"txt", "html"}) {
        const ToolRun result = run(words("convert - - --to txt --from") + words(format), content);
        QCOMPARE(result.out, QByteArray("caf\xc3\xa9\n"));
    }
}

void tst_tool_writing::zeroBytesEndNoText_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("ASCII") << QByteArray("a\0b", 3) << QByteArray("a\0b\n", 4);
    QTest::newRow("UTF-8") << QByteArray("\xc3\xa9\0b", 4) << QByteArray("\xc3\xa9\0b\n", 5);
    QTest::newRow("Latin-1") << QByteArray("\xe9\0b", 3) << QByteArray("\xc3\xa9\0b\n", 5);
    QTest::newRow("UTF-16") << QByteArray("\xfe\xff\0a\0\0\0b", 8) << QByteArray("a\0b\n", 4);
    QTest::newRow("first") << QByteArray("\0b", 2) << QByteArray("\0b\n", 3);
}

void tst_tool_writing::zeroBytesEndNoText()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, text);
    QCOMPARE(run(words("convert - - --from txt --to txt"), content).out, text);
}

void tst_tool_writing::zeroBytesEndNoHtml()
{
    const ToolRun result =
        run(words("convert - - --from html --to txt"), QByteArray("<p>a</p>\0<p>b</p>", 17));
    QVERIFY2(result.out.endsWith("b\n"), result.out.constData());
}

void tst_tool_writing::halfAUnitOfUtf16IsShown()
{
    const ToolRun result = run(words("convert - - --from txt --to txt"),
                               QByteArray("\xff\xfe"
                                          "a\0b",
                                          5));
    QCOMPARE(result.out, QByteArray("a\xef\xbf\xbd\n"));
}

void tst_tool_writing::usageErrors_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("message");

    const struct {
        const char* option;
        const char* name;
    } rtfOptions[] = {{"--storage", "--storage"},
                      {"--ms-word-highlight", "--ms-word-highlight"},
                      {"--decorate-links", "--decorate-links"},
                      {"--footnotes footnote", "--footnotes"},
                      {"--annotations annotation", "--annotations"}};
    for (const auto& option : rtfOptions) {
        const QString words = QString::fromLatin1(option.option);
        QTest::newRow(qPrintable(words + QLatin1String(" to html")))
            << "convert in.rtf out.html " + words << option.name + QByteArray(" goes with RTF output only");
        QTest::newRow(qPrintable(words + QLatin1String(" to txt"))) << "convert in.rtf out.rtf --to txt "
                + words << option.name + QByteArray(" goes with RTF output only");
        for (const char* command : {"info", "check"})
            QTest::newRow(qPrintable(words + QLatin1String(" for ") + QLatin1String(command)))
                << QLatin1String(command) + " in.rtf " + words
                << option.name + QByteArray(" does not go with ") + command;
    }
    QTest::newRow("--from for info") << "info in.rtf --from html"
                                     << QByteArray("--from does not go with info");
    QTest::newRow("--from for check")
        << "check in.rtf --from html" << QByteArray("--from does not go with check");

    QTest::newRow("unknown footnote style")
        << "convert in.rtf out.rtf --footnotes endnote"
        << QByteArray("unknown style \"endnote\", known are annotation, footnote and alternate");
    QTest::newRow("unknown annotation style")
        << "convert in.rtf out.rtf --annotations 1"
        << QByteArray("unknown style \"1\", known are annotation, footnote and alternate");
    QTest::newRow("empty style") << "convert in.rtf out.rtf --annotations="
                                 << QByteArray(
                                        "unknown style \"\", known are annotation, footnote and alternate");
    QTest::newRow("unknown input format")
        << "convert in.rtf out.rtf --from odt"
        << QByteArray("unknown input format \"odt\", known are rtf, html and txt");
    QTest::newRow("unknown output format")
        << "convert in.rtf out.rtf --to doc"
        << QByteArray("unknown output format \"doc\", known are rtf, html, txt, odt, pdf and png");
    QTest::newRow("unknown suffix") << "convert in.rtf out.doc"
                                    << QByteArray(
                                           "cannot tell the format of \"out.doc\" by its suffix, known "
                                           "are .rtf, .html, .htm, .txt, .odt, .pdf and .png");
    QTest::newRow("standard output without format")
        << "convert in.rtf -" << QByteArray("the standard output needs --to rtf, html, txt, odt or pdf");
    QTest::newRow("output is input") << "convert in.rtf ./in.rtf --storage"
                                     << QByteArray("\"in.rtf\" is both input and output");
}

void tst_tool_writing::usageErrors()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, message);
    const QByteArray content = rtfFile("One");
    write("in.rtf", content);
    const ToolRun result = run(arguments.split(QLatin1Char(' ')));
    QCOMPARE(result.err, QByteArray("orvrtf: " + message + "; see orvrtf --help\n"));
    QCOMPARE(result.out, QByteArray());
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files), words("in.rtf"));
    QCOMPARE(read(path("in.rtf")), content);
}

void tst_tool_writing::missingInput_data()
{
    QTest::addColumn<QString>("input");
    QTest::newRow("rtf") << "missing.rtf";
    QTest::newRow("html") << "missing.html";
    QTest::newRow("txt") << "missing.txt";
    QTest::newRow("below a file") << "old.rtf/missing.txt";
    QTest::newRow("directory") << ".";
}

void tst_tool_writing::missingInput()
{
    QFETCH(QString, input);
    write("old.rtf", "old");
    const ToolRun result = run({QLatin1String("convert"), input, QLatin1String("old.rtf")});
    QVERIFY2(isOneLineAboutTool(result.err), result.err.constData());
    QVERIFY2(result.err.startsWith("orvrtf: cannot read " + input.toUtf8() + ": "), result.err.constData());
    QCOMPARE(result.out, QByteArray());
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(read(path("old.rtf")), QByteArray("old"));
}

void tst_tool_writing::unwritableOutput_data()
{
    QTest::addColumn<QString>("output");
    QTest::newRow("below a file") << "in.txt/out.rtf";
    QTest::newRow("in a missing directory") << "missing/out.rtf";
    QTest::newRow("a directory") << ".";
    QTest::newRow("a full device") << "/dev/full";
}

void tst_tool_writing::unwritableOutput()
{
    QFETCH(QString, output);
    write("in.txt", "One");
    const ToolRun result = run({QLatin1String("convert"), QLatin1String("in.txt"), output,
                                QLatin1String("--to"), QLatin1String("rtf")});
    QVERIFY2(isOneLineAboutTool(result.err), result.err.constData());
    QVERIFY2(result.err.startsWith("orvrtf: cannot write " + output.toUtf8() + ": "), result.err.constData());
    QCOMPARE(result.out, QByteArray());
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), words("in.txt"));
}

void tst_tool_writing::fullStandardOutput()
{
    write("in.rtf", rtfFile("One"));
    for (const char* arguments : {"convert in.rtf - --to rtf", "convert in.rtf - --to rtf --storage"}) {
        QProcess process;
        process.setStandardOutputFile(QLatin1String("/dev/full"));
        start(process, words(arguments));
        const ToolRun result = finish(process);
        QVERIFY2(isOneLineAboutTool(result.err), result.err.constData());
        QVERIFY2(result.err.startsWith("orvrtf: cannot write standard output: "), result.err.constData());
        QCOMPARE(result.exitCode, 1);
    }
}

/*! What could be read is written all the same. */
void tst_tool_writing::damagedRtf()
{
    write("in.rtf", rtfFile("One") + "}");
    const ToolRun result = run(words("convert in.rtf out.rtf"));
    QCOMPARE(result.err, QByteArray("orvrtf: in.rtf: Unmatched '{' in Rich Text file\n"));
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(read(path("out.rtf")), QByteArray(documentHead() + firstParagraph() + text("One") + "}"));
}

QTEST_GUILESS_MAIN(tst_tool_writing)
#include "tst_tool_writing.moc"
