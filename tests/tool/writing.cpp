#include "tooltest.h"

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
    return QString::fromLatin1(rtf).replace(QRegularExpression("\\\\fs\\d+"_s), "\\fs0"_s).toLatin1();
}

/*! HTML that sets all of its text in the font and size of the other tests. */
QByteArray htmlFile(const QByteArray& content)
{
    return "<html><body style=\"font-family:'Quibble Sans'; font-size:12pt\">" + content + "</body></html>";
}

} // namespace

/*! The RTF that the command line tool writes, from each of its formats and with each of its options. */
class TestToolWriting : public ToolTest {
    Q_OBJECT

private slots:
    ORV_ROWS(noteStyles)
    {
        const Rows add(
            [this](const QString& options, const QByteArray& footnoteText, const QByteArray& annotationText) {
                const QByteArray rtf = converted(
                    rtfFile("One{\\footnote\\pard\\plain  note} two{\\*\\annotation\\pard\\plain  remark}."),
                    options);
                QCOMPARE(rtf,
                         documentHead() + firstParagraph() + text("One") + footnoteText + text(" two")
                             + annotationText + text(".") + "}");
            });
        add("as they are", "", footnote("note"), annotation("remark"));
        add("footnotes as footnotes", "--footnotes footnote", footnote("note"), annotation("remark"));
        add("footnotes as annotations", "--footnotes annotation", annotation("note"), annotation("remark"));
        add("alternate footnotes", "--footnotes alternate", alternate("note"), annotation("remark"));
        add("annotations as annotations", "--annotations annotation", footnote("note"), annotation("remark"));
        add("annotations as footnotes", "--annotations footnote", footnote("note"), footnote("remark"));
        add("annotations as alternate footnotes", "--annotations alternate", footnote("note"),
            alternate("remark"));
        add("the one as the other", "--footnotes annotation --annotations footnote", annotation("note"),
            footnote("remark"));
        add("last style counts", "--footnotes alternate --footnotes annotation", annotation("note"),
            annotation("remark"));
    }

    ORV_ROWS(linkDecoration)
    {
        const Rows add([this](const QString& options, const QByteArray& colours, const QByteArray& format) {
            const QByteArray rtf = converted(
                rtfFile("See {\\field{\\*\\fldinst HYPERLINK \"http://localhost/a\"}{\\fldrslt here}}."),
                options);
            QCOMPARE(rtf,
                     documentHead(defaultFontEntry(), colours) + firstParagraph() + text("See ")
                         + link("http://localhost/a", format, "here") + text(".") + "}");
        });
        add("plain", "", QByteArray(), "\\f0\\fs24");
        // Blue follows black and white, which begin each table that is not empty.
        add("decorated", "--decorate-links", QByteArray(blackAndWhite() + "\\red0\\green0\\blue255;"),
            "\\f0\\fs24\\ul\\ulc3\\cf3");
    }

    ORV_ROWS(highlighting)
    {
        const Rows add([this](const QString& options, const QByteArray& background) {
            const QByteArray rtf = converted(rtfFile("One {\\highlight1 two}"), options);
            const QByteArray yellow = blackAndWhite() + "\\red255\\green255\\blue0;";
            QCOMPARE(rtf,
                     documentHead(defaultFontEntry(), yellow) + firstParagraph() + text("One ")
                         + "{\\f0\\fs24" + background + " two}}");
        });
        add("usual", "", "\\cb3\\highlight3");
        add("MS Word", "--ms-word-highlight", "\\cb3\\chshdng0\\chcbpat3");
    }

    ORV_ROWS(storage)
    {
        const Rows add(
            [this](const QByteArray& content, const QByteArray& exported, const QByteArray& stored) {
                QCOMPARE(bodyOf(converted(rtfFile(content), QString())), exported);
                QCOMPARE(bodyOf(converted(rtfFile(content), "--storage"_s)), stored);
            });
        add("page number", "Page <$p>.", firstParagraph() + text("Page {\\chpgn}."),
            firstParagraph() + text("Page <$p>."));
        add("number of pages", "<$pagecount> pages",
            firstParagraph() + text("{\\field{\\*\\fldinst{NUMPAGES}}{\\fldrslt 1}} pages"),
            firstParagraph() + text("<$pagecount> pages"));
        // Of another person's text the colour is seen elsewhere, the level is kept.
        add("revision", "{\\*\\orvrevlvl2 new} old",
            firstParagraph() + "{\\f0\\fs24\\cf3 new}" + text(" old"),
            firstParagraph() + "{\\f0\\fs24\\*\\orvrevlvl2 new}" + text(" old"));
        add("footnote", "One{\\footnote\\pard\\plain note}",
            firstParagraph() + text("One") + footnote("note"),
            firstParagraph() + text("One")
                + "{\\super\\chftn{\\footnote\\pard\\plain {\\super\\chftn\\f0\\fs24}\\f0\\fs24 note}}");
        add("annotation", "One{\\*\\annotation\\pard\\plain remark}",
            firstParagraph() + text("One") + annotation("remark"),
            firstParagraph() + text("One") + "{\\chatn{\\*\\annotation\\f0\\fs24 remark}}");
        const QByteArray item = "\\ltrch\\loch \\ls1\\ilvl0{\\listtext\\f0\\fs24 .\\tab }";
        add("list item", "\\ls1 One", "\n\\pard\\plain \\fi-360" + item + text("One"),
            "\n\\pard\\plain " + item + text("One"));
    }

    /*! Other programs would take that paragraph into the first cell. */
    void paragraphBeforeTable()
    {
        const QByteArray input =
            htmlFile("<p style=\"margin:0\">One</p><table><tr><td>cell</td></tr></table>");
        const QByteArray paragraph = firstParagraph() + "{\\f1\\fs24 One}";
        const QByteArray exported = bodyOf(converted(input, "--from html"_s));
        QVERIFY2(exported.startsWith(paragraph + "\n\\par\n\n\n\\trowd"), exported.constData());
        const QByteArray stored = bodyOf(converted(input, "--from html --storage"_s));
        QVERIFY2(stored.startsWith(paragraph + "\n\n\n\\trowd"), stored.constData());
    }

    void optionsGoTogether()
    {
        const QByteArray input = rtfFile("{\\highlight1 One}{\\footnote\\pard\\plain note}"
                                         "{\\field{\\*\\fldinst HYPERLINK \"a\"}{\\fldrslt two}}<$p>");
        const QByteArray rtf =
            converted(input, "--storage --ms-word-highlight --decorate-links --footnotes annotation"_s);
        QCOMPARE(rtf,
                 documentHead(defaultFontEntry(),
                              blackAndWhite() + "\\red255\\green255\\blue0;\\red0\\green0\\blue255;")
                     + firstParagraph() + "{\\f0\\fs24\\cb3\\chshdng0\\chcbpat3 One}"
                     + "{\\chatn{\\*\\annotation\\f0\\fs24 note}}"
                     + link("a", "\\f0\\fs24\\ul\\ulc4\\cf4", "two") + text("<$p>") + "}");
    }

    ORV_ROWS(inputFormat)
    {
        const Rows add([this](const QString& arguments, const QByteArray& expected) {
            const QByteArray content = "{\\rtf1 <b>One</b>}";
            const QStringList files = words(arguments);
            if (files.first() != "-"_s)
                write(files.first().toUtf8().constData(), content);
            QCOMPARE(run(words("convert") + files, content), success());
            QCOMPARE(read(path("out.txt")), QByteArray(expected + "\n"));
        });
        // What the same bytes are as RTF, HTML and plain text.
        const QByteArray asRtf = "<b>One</b>";
        const QByteArray asHtml = "{\\rtf1 One}";
        const QByteArray asText = "{\\rtf1 <b>One</b>}";
        add("rtf suffix", "in.rtf out.txt", asRtf);
        add("html suffix", "in.html out.txt", asHtml);
        add("htm suffix", "in.htm out.txt", asHtml);
        add("capital suffix", "IN.HTML out.txt", asHtml);
        add("txt suffix", "in.txt out.txt", asText);
        add("other suffix", "in.doc out.txt", asRtf);
        add("no suffix", "in out.txt", asRtf);
        add("standard input", "- out.txt", asRtf);
        add("from txt beats suffix", "in.rtf out.txt --from txt", asText);
        add("from html beats suffix", "in.txt out.txt --from html", asHtml);
        add("from rtf beats suffix", "in.txt out.txt --from=rtf", asRtf);
        add("from in capitals", "in.rtf out.txt --from TXT", asText);
        add("standard input from html", "- out.txt --from html", asHtml);
    }

    ORV_ROWS(outputFormat)
    {
        const Rows add([this](const QString& arguments, const QString& output) {
            write("in.rtf", rtfFile("One"));
            QCOMPARE(run(words("convert") + words(arguments)), success());
            QCOMPARE(read(path(output.toUtf8().constData())),
                     QByteArray(documentHead() + firstParagraph() + text("One") + "}"));
        });
        add("rtf suffix", "in.rtf out.rtf", "out.rtf");
        add("capital suffix", "in.rtf OUT.RTF", "OUT.RTF");
        add("to rtf without suffix", "in.rtf out --to rtf", "out");
        add("to rtf beats suffix", "in.rtf out.html --to=RTF", "out.html");
    }

    ORV_ROWS(html)
    {
        const Rows add([this](const QByteArray& content, const QByteArray& body) {
            const QByteArray rtf = converted(htmlFile(content), "--from html"_s);
            QVERIFY2(rtf.contains("{\\f1\\fnil\\fcharset1252\\fprq2 Quibble Sans;}}\n"), rtf.constData());
            QCOMPARE(bodyOf(rtf), body);
        });
        add("character formats", "One <b>two</b> <i>three</i> <u>four</u>",
            firstParagraph() + "{\\f1\\fs24 One }{\\f1\\fs24\\b1 two}{\\f1\\fs24  }{\\f1\\fs24\\i1 three}"
                + "{\\f1\\fs24  }{\\f1\\fs24\\ul\\ulc0 four}");
        add("special characters", "{a\\b} &lt;&nbsp;&ndash; caf\xc3\xa9",
            firstParagraph()
                + "{\\f1\\fs24 \\{a\\\\b\\} <\\~\\endash  "
                  "caf\\loch\\af1\\hich\\af1\\dbch\\af1\\uc1\\u233\\'E9}");
        add("paragraphs", "<p style=\"margin:0\">One</p><p style=\"margin:0\" align=\"right\">Two</p>",
            firstParagraph() + "{\\f1\\fs24 One}\n\\par\\pard\\plain \\qr\\ltrch\\loch {\\f1\\fs24 Two}");
        // 12 pixels are 9 points.
        add("paragraph margins", "<p>One</p>",
            "\n\\pard\\plain \\sa180\\sb180\\ltrch\\loch {\\f1\\fs24 One}");
        add("line break", "One<br>two", firstParagraph() + "{\\f1\\fs24 One\\line two}");
    }

    ORV_ROWS(plainText)
    {
        const Rows add([this](const QByteArray& content, const QByteArray& body) {
            const QByteArray rtf = converted(content, "--from txt"_s);
            QCOMPARE(withoutSize(bodyOf(rtf)), body);
        });
        const QByteArray one = firstParagraph() + "{\\f0\\fs0 One}";
        const QByteArray two = newParagraph() + "{\\f0\\fs0 two}";
        add("one line", "One", one);
        add("lines", "One\ntwo", one + two);
        add("lines of Windows", "One\r\ntwo", one + two);
        // As an editor shows it, the last line feed begins an empty line.
        add("last line ended", "One\ntwo\n", one + two + newParagraph() + "\\f0\\fs0");
        add("special characters", "{\\b x}\ttwo", firstParagraph() + "{\\f0\\fs0 \\{\\\\b x\\}\\tab two}");
        add("tags", "<b>&amp;</b>", firstParagraph() + "{\\f0\\fs0 <b>&amp;</b>}");
        add("nothing", QByteArray(), firstParagraph() + "\\f0\\fs0");
    }

    ORV_ROWS(encodingOfText)
    {
        const Rows add([this](const QByteArray& content) {
            for (const char* format : {"txt", "html"}) {
                const ToolRun result = run(words("convert - - --to txt --from") + words(format), content);
                QCOMPARE(result.out, "caf\xc3\xa9\n"_b);
            }
        });
        add("UTF-8", "caf\xc3\xa9");
        add("UTF-8 with byte order mark",
            "\xef\xbb\xbf"
            "caf\xc3\xa9");
        add("Latin-1", "caf\xe9");
        add("UTF-16, high byte first", "\xfe\xff\0c\0a\0f\0\xe9"_b);
        add("UTF-16, low byte first",
            QByteArray("\xff\xfe"
                       "c\0a\0f\0\xe9\0",
                       10));
    }

    ORV_ROWS(zeroBytesAndHalfUnits)
    {
        const Rows add([this](const QByteArray& content, const QByteArray& text) {
            QCOMPARE(run(words("convert - - --from txt --to txt"), content).out, text);
        });
        add("ASCII", "a\0b"_b, "a\0b\n"_b);
        add("UTF-8", "\xc3\xa9\0b"_b, "\xc3\xa9\0b\n"_b);
        add("Latin-1", "\xe9\0b"_b, "\xc3\xa9\0b\n"_b);
        add("UTF-16", "\xfe\xff\0a\0\0\0b"_b, "a\0b\n"_b);
        add("first", "\0b"_b, "\0b\n"_b);
        add("half a unit of UTF-16 is shown", "\xff\xfe\x61\0b"_b, "a\xef\xbf\xbd\n"_b);
    }

    void zeroBytesEndNoHtml()
    {
        const QByteArray text = run(words("convert - - --from html --to txt"), "<p>a</p>\0<p>b</p>"_b).out;
        QVERIFY2(text.endsWith("b\n"), text.constData());
    }

    ORV_ROWS(usageErrors)
    {
        const Rows add([this](const QString& arguments, const QByteArray& message) {
            const QByteArray content = rtfFile("One");
            write("in.rtf", content);
            QCOMPARE(run(words(arguments)), refusal(message));
            QCOMPARE(files(), words("in.rtf"));
            QCOMPARE(read(path("in.rtf")), content);
        });
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
            add(qPrintable(words + " to html"_s), "convert in.rtf out.html " + words,
                option.name + " goes with RTF output only"_b);
            add(qPrintable(words + " to txt"_s), "convert in.rtf out.rtf --to txt " + words,
                option.name + " goes with RTF output only"_b);
            for (const char* command : {"info", "check"})
                add(qPrintable(words + " for "_s + QLatin1String(command)),
                    QLatin1String(command) + " in.rtf " + words,
                    option.name + " does not go with "_b + command);
        }
        add("--from for info", "info in.rtf --from html", "--from does not go with info");
        add("--from for check", "check in.rtf --from html", "--from does not go with check");

        add("unknown footnote style", "convert in.rtf out.rtf --footnotes endnote",
            "unknown style \"endnote\", known are annotation, footnote and alternate");
        add("unknown annotation style", "convert in.rtf out.rtf --annotations 1",
            "unknown style \"1\", known are annotation, footnote and alternate");
        add("empty style", "convert in.rtf out.rtf --annotations=",
            "unknown style \"\", known are annotation, footnote and alternate");
        add("unknown input format", "convert in.rtf out.rtf --from odt",
            "unknown input format \"odt\", known are rtf, html and txt");
        add("unknown output format", "convert in.rtf out.rtf --to doc",
            "unknown output format \"doc\", known are rtf, html, txt, odt, pdf and png");
        add("unknown suffix", "convert in.rtf out.doc",
            "cannot tell the format of \"out.doc\" by its suffix, known "
            "are .rtf, .html, .htm, .txt, .odt, .pdf and .png");
        add("standard output without format", "convert in.rtf -",
            "the standard output needs --to rtf, html, txt, odt or pdf");
        add("output is input", "convert in.rtf ./in.rtf --storage", "\"in.rtf\" is both input and output");
    }

    /*! What could be read is written all the same. */
    void damagedRtf()
    {
        write("in.rtf", rtfFile("One") + "}");
        QCOMPARE(run(words("convert in.rtf out.rtf")),
                 failure("orvrtf: in.rtf: Unmatched '{' in Rich Text file\n"));
        QCOMPARE(read(path("out.rtf")), QByteArray(documentHead() + firstParagraph() + text("One") + "}"));
    }

private:
    /*! What "convert - - --to rtf", with \a options behind it, makes of \a input. */
    QByteArray converted(const QByteArray& input, const QString& options) const
    {
        QStringList arguments = words("convert - - --to rtf");
        if (!options.isEmpty())
            arguments += words(options);
        const ToolRun result = run(arguments, input);
        if (result.exitCode != 0 || !result.err.isEmpty())
            return "failed: " + result.err;
        return result.out;
    }
};

ORV_TEST("tool_writing", TestToolWriting, QCoreApplication)
#include "writing.moc"
