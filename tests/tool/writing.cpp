#include "tooltest.h"

using namespace rtftest;

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

/*! The text of a note, in a paragraph of its own. */
QByteArray noteText(const QByteArray& content)
{
    return " " + firstParagraph() + text(content);
}

QByteArray annotation(const QByteArray& content)
{
    return "{\\f0\\fs24\\super\\chatn{\\*\\annotation " + noteText(content) + "}}";
}

QByteArray footnote(const QByteArray& content, const QByteArray& kind = QByteArray())
{
    return "{\\super\\f0\\fs24\\super\\chftn{\\footnote" + kind
        + "\\pard\\plain {\\super\\chftn\\f0\\fs24\\super}" + noteText(content) + "}}";
}

QByteArray alternate(const QByteArray& content)
{
    return footnote(content, "\\ftnalt");
}

/*! A link to "a" as a field, its text in \a format. */
QByteArray linkField(const QByteArray& format, const QByteArray& content)
{
    return "{\\field{\\*\\fldinst HYPERLINK \"a\"}{\\fldrslt" + format + " " + content + "}}";
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
    ORV_ROWS(options)
    {
        const Rows add([this](const QByteArray& content, const QString& options, const QByteArray& colours,
                              const QByteArray& body) {
            QCOMPARE(converted(rtfFile(content), options),
                     documentHead(defaultFontEntry(), colours) + firstParagraph() + body + "}");
        });
        const auto notes = [&](const QString& options, const QByteArray& first, const QByteArray& second) {
            add("notes " + options.toUtf8(),
                "One{\\footnote\\pard\\plain  note} two{\\*\\annotation\\pard\\plain  remark}.", options, "",
                text("One") + first + text(" two") + second + text("."));
        };
        notes("", footnote("note"), annotation("remark"));
        notes("--footnotes footnote", footnote("note"), annotation("remark"));
        notes("--footnotes annotation", annotation("note"), annotation("remark"));
        notes("--footnotes alternate", alternate("note"), annotation("remark"));
        notes("--annotations annotation", footnote("note"), annotation("remark"));
        notes("--annotations footnote", footnote("note"), footnote("remark"));
        notes("--annotations alternate", footnote("note"), alternate("remark"));
        notes("--footnotes annotation --annotations footnote", annotation("note"), footnote("remark"));
        notes("--footnotes alternate --footnotes annotation", annotation("note"), annotation("remark"));

        // Other colours follow black and white, which begin each table that is not empty.
        const QByteArray blue = "\\red0\\green0\\blue255;";
        const QByteArray yellow = "\\red255\\green255\\blue0;";
        const QByteArray seeHere = "See {\\field{\\*\\fldinst HYPERLINK \"a\"}{\\fldrslt here}}.";
        add("plain link", seeHere, "", "", text("See ") + linkField("\\f0\\fs24", "here") + text("."));
        add("decorated link", seeHere, "--decorate-links", blackAndWhite() + blue,
            text("See ") + linkField("\\f0\\fs24\\ul\\ulc3\\cf3", "here") + text("."));
        add("usual highlighting", "One {\\highlight1 two}", "", blackAndWhite() + yellow,
            text("One ") + "{\\f0\\fs24\\cb3\\highlight3 two}");
        add("highlighting of MS Word", "One {\\highlight1 two}", "--ms-word-highlight",
            blackAndWhite() + yellow, text("One ") + "{\\f0\\fs24\\cb3\\chshdng0\\chcbpat3 two}");
        add("all together",
            "{\\highlight1 One}{\\footnote\\pard\\plain note}"
            "{\\field{\\*\\fldinst HYPERLINK \"a\"}{\\fldrslt two}}<$p>",
            "--storage --ms-word-highlight --decorate-links --footnotes annotation",
            blackAndWhite() + yellow + blue,
            "{\\f0\\fs24\\cb3\\chshdng0\\chcbpat3 One}{\\chatn{\\*\\annotation\\f0\\fs24 note}}"
                + linkField("\\f0\\fs24\\ul\\ulc4\\cf4", "two") + text("<$p>"));
    }

    ORV_ROWS(storage)
    {
        const Rows add(
            [this](const QByteArray& content, const QByteArray& exported, const QByteArray& stored) {
                QCOMPARE(bodyOf(converted(rtfFile(content))), exported);
                QCOMPARE(bodyOf(converted(rtfFile(content), "--storage"_s)), stored);
            });
        const QByteArray begin = firstParagraph();
        const QByteArray one = firstParagraph() + text("One");
        add("page number", "Page <$p>.", begin + text("Page {\\chpgn}."), begin + text("Page <$p>."));
        add("number of pages", "<$pagecount> pages",
            begin + text("{\\field{\\*\\fldinst{NUMPAGES}}{\\fldrslt 1}} pages"),
            begin + text("<$pagecount> pages"));
        // Of another person's text the colour is seen elsewhere, the level is kept.
        add("revision", "{\\*\\orvrevlvl2 new} old", begin + "{\\f0\\fs24\\cf3 new}" + text(" old"),
            begin + "{\\f0\\fs24\\*\\orvrevlvl2 new}" + text(" old"));
        add("footnote", "One{\\footnote\\pard\\plain note}", one + footnote("note"),
            one + "{\\super\\chftn{\\footnote\\pard\\plain {\\super\\chftn\\f0\\fs24}\\f0\\fs24 note}}");
        add("annotation", "One{\\*\\annotation\\pard\\plain remark}", one + annotation("remark"),
            one + "{\\chatn{\\*\\annotation\\f0\\fs24 remark}}");
        const QByteArray item = "\\ltrch\\loch \\ls1\\ilvl0{\\listtext\\f0\\fs24 1.\\tab }" + text("One");
        const QByteArray list =
            "{\\*\\listtable{\\list{\\listlevel\\levelnfc0{\\leveltext\\'02\\'00.;}}\\listid1}}"
            "{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}";
        add("list item", list + "\\ls1 One", "\n\\pard\\plain \\fi-360" + item, "\n\\pard\\plain " + item);
        // Where the list is not defined, there is none for other programs.
        add("undefined list", "\\ls1 One", one,
            "\n\\pard\\plain \\ltrch\\loch \\ls1\\ilvl0{\\listtext\\f0\\fs24 .\\tab }" + text("One"));
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

    ORV_ROWS(formats)
    {
        const auto add = commandRows();
        // What the same bytes are as RTF, HTML and plain text.
        const QByteArray content = "{\\rtf1 <b>One</b>}";
        const QByteArray asRtf = "<b>One</b>\n";
        const QByteArray asHtml = "{\\rtf1 One}\n";
        const QByteArray asText = "{\\rtf1 <b>One</b>}\n";
        const auto input = [&](const QByteArray& arguments, const QByteArray& expected) {
            const QByteArray file = arguments.split(' ').first();
            add("input: " + arguments, "convert " + arguments, file == "-" ? Files() : Files{{file, content}},
                content, success(), {{"out.txt", expected}});
        };
        input("in.rtf out.txt", asRtf);
        input("in.html out.txt", asHtml);
        input("in.htm out.txt", asHtml);
        input("IN.HTML out.txt", asHtml);
        input("in.txt out.txt", asText);
        input("in.doc out.txt", asRtf);
        input("in out.txt", asRtf);
        input("- out.txt", asRtf);
        input("in.rtf out.txt --from txt", asText);
        input("in.txt out.txt --from html", asHtml);
        input("in.txt out.txt --from=rtf", asRtf);
        input("in.rtf out.txt --from TXT", asText);
        input("- out.txt --from html", asHtml);

        const QByteArray written = documentHead() + firstParagraph() + text("One") + "}";
        const auto output = [&](const QByteArray& arguments, const QByteArray& file) {
            add("output: " + arguments, "convert in.rtf " + arguments, {{"in.rtf", rtfFile("One")}}, "",
                success(), {{file, written}});
        };
        output("out.rtf", "out.rtf");
        output("OUT.RTF", "OUT.RTF");
        output("out --to rtf", "out");
        output("out.html --to=RTF", "out.html");
        add("damaged RTF", "convert in.rtf out.rtf", {{"in.rtf", rtfFile("One") + "}"}}, "",
            failure("orvrtf: in.rtf: Unmatched '{' in Rich Text file\n"), {{"out.rtf", written}});
    }

    /*! In the font of HTML that comes second, or the system's font of plain text. */
    ORV_ROWS(otherFormats)
    {
        const Rows add([this](const QByteArray& content, const QString& format, const QByteArray& body) {
            const QByteArray rtf = converted(content, "--from " + format);
            if (format == "html"_s)
                QVERIFY2(rtf.contains("{\\f1\\fnil\\fcharset1252\\fprq2 Quibble Sans;}}\n"), rtf.constData());
            QCOMPARE(format == "html"_s ? bodyOf(rtf) : withoutSize(bodyOf(rtf)), body);
        });
        const auto html = [&](const QByteArray& name, const QByteArray& content, const QByteArray& body) {
            add("HTML: " + name, htmlFile(content), "html", body);
        };
        html("character formats", "One <b>two</b> <i>three</i> <u>four</u>",
             firstParagraph() + "{\\f1\\fs24 One }{\\f1\\fs24\\b1 two}{\\f1\\fs24  }{\\f1\\fs24\\i1 three}"
                 + "{\\f1\\fs24  }{\\f1\\fs24\\ul\\ulc0 four}");
        html("special characters", "{a\\b} &lt;&nbsp;&ndash; caf\xc3\xa9",
             firstParagraph()
                 + "{\\f1\\fs24 \\{a\\\\b\\} <\\~\\endash  "
                   "caf\\loch\\af1\\hich\\af1\\dbch\\af1\\uc1\\u233\\'E9}");
        html("paragraphs", "<p style=\"margin:0\">One</p><p style=\"margin:0\" align=\"right\">Two</p>",
             firstParagraph() + "{\\f1\\fs24 One}\n\\par\\pard\\plain \\qr\\ltrch\\loch {\\f1\\fs24 Two}");
        // 12 pixels are 9 points.
        html("paragraph margins", "<p>One</p>",
             "\n\\pard\\plain \\sa180\\sb180\\ltrch\\loch {\\f1\\fs24 One}");
        html("line break", "One<br>two", firstParagraph() + "{\\f1\\fs24 One\\line two}");

        const auto text = [&](const QByteArray& name, const QByteArray& content, const QByteArray& body) {
            add("text: " + name, content, "txt", body);
        };
        const QByteArray one = firstParagraph() + "{\\f0\\fs0 One}";
        const QByteArray two = newParagraph() + "{\\f0\\fs0 two}";
        text("one line", "One", one);
        text("lines", "One\ntwo", one + two);
        text("lines of Windows", "One\r\ntwo", one + two);
        // As an editor shows it, the last line feed begins an empty line.
        text("last line ended", "One\ntwo\n", one + two + newParagraph() + "\\f0\\fs0");
        text("special characters", "{\\b x}\ttwo", firstParagraph() + "{\\f0\\fs0 \\{\\\\b x\\}\\tab two}");
        text("tags", "<b>&amp;</b>", firstParagraph() + "{\\f0\\fs0 <b>&amp;</b>}");
        text("nothing", QByteArray(), firstParagraph() + "\\f0\\fs0");
    }

    ORV_ROWS(encodings)
    {
        const auto add = commandRows();
        const auto row = [&](const QByteArray& name, const QByteArray& content, const QByteArray& expected,
                             const QByteArray& format = "txt") {
            add(name + " from " + format, "convert - - --to txt --from " + format, {}, content,
                success(expected + '\n'), {});
        };
        for (const char* format : {"txt", "html"}) {
            row("UTF-8", "caf\xc3\xa9", "caf\xc3\xa9", format);
            row("UTF-8 with byte order mark", "\xef\xbb\xbf\x63\x61\x66\xc3\xa9", "caf\xc3\xa9", format);
            row("Latin-1", "caf\xe9", "caf\xc3\xa9", format);
            row("UTF-16, high byte first", "\xfe\xff\0c\0a\0f\0\xe9"_b, "caf\xc3\xa9", format);
            row("UTF-16, low byte first", "\xff\xfe\x63\0a\0f\0\xe9\0"_b, "caf\xc3\xa9", format);
        }
        row("ASCII with a zero byte", "a\0b"_b, "a\0b"_b);
        row("UTF-8 with a zero byte", "\xc3\xa9\0b"_b, "\xc3\xa9\0b"_b);
        row("Latin-1 with a zero byte", "\xe9\0b"_b, "\xc3\xa9\0b"_b);
        row("UTF-16 with a zero", "\xfe\xff\0a\0\0\0b"_b, "a\0b"_b);
        row("zero byte first", "\0b"_b, "\0b"_b);
        row("half a unit of UTF-16 is shown", "\xff\xfe\x61\0b"_b, "a\xef\xbf\xbd");
    }

    void zeroBytesEndNoHtml()
    {
        const QByteArray text = run("convert - - --from html --to txt", "<p>a</p>\0<p>b</p>"_b).out;
        QVERIFY2(text.endsWith("b\n"), text.constData());
    }

private:
    /*! What "convert - - --to rtf", with \a options behind it, makes of \a input. */
    QByteArray converted(const QByteArray& input, const QString& options = QString()) const
    {
        const ToolRun result = run(words("convert - - --to rtf") + words(options), input);
        return result.exitCode == 0 && result.err.isEmpty() ? result.out : "failed: " + result.err;
    }
};

ORV_TEST("tool_writing", TestToolWriting, QCoreApplication)
#include "writing.moc"
