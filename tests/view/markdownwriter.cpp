#include "markdownhelpers.h"
#include "markupwriters.h"
#include "testpaths.h"

using namespace rtftest;

/*! The structure of Markdown; what stands within paragraphs is tested by markdowntext. */
class TestMarkdownWriter : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(structure)
    {
        const Rows add(
            [](const QByteArray& rtf, const QByteArray& expected) { QCOMPARE(markdownOf(rtf), expected); });
        add("empty document", "", "");
        add("paragraph", "text", "text\n");
        add("empty paragraphs", "\\par one\\par\\par\\par two\\par", "one\n\ntwo\n");
        add("line breaks", "one\\line  two \\line\\line three\\line", "one\\\ntwo\\\n\\\nthree\n");
        add("headings", "\\outlinelevel0 A\\par\\outlinelevel2 B\\par\\outlinelevel5 C\\par\\pard t",
            "# A\n\n### B\n\n###### C\n\nt\n");
        add("bold heading", "\\outlinelevel0{\\b A}\\par\\pard{\\b t}", "# A\n\n**t**\n");
        add("bold word in a heading", "\\outlinelevel0 A {\\b B}", "# A **B**\n");
        add("line break in a heading", "\\outlinelevel0 A\\line B", "# A<br>B\n");
        add("empty heading", "\\outlinelevel0\\par\\pard t", "t\n");
        add("rule", "a\\par\\pard\\brdrb\\brdrs\\brdrw10\\par\\pard b", "a\n\n---\n\nb\n");
        add("code", "a\\par{\\f1 if (x)\\par   y();\\par\\par }{\\f1 z\\par\\par}{\\f0 b b b b b b b}",
            "a\n\n```\nif (x)\n  y();\n\nz\n```\n\nb b b b b b b\n");
        add("code with its own fence", "text text text text\\par{\\f1 ```x}",
            "text text text text\n\n````\n```x\n````\n");
        add("code in a line", "use {\\f1 x*y} here", "use `x*y` here\n");
        add("document of a typewriter", "\\f1 all of it\\par in one font", "all of it\n\nin one font\n");
    }

    /*! What Qt reads from HTML. */
    void horizontalRules()
    {
        QTextDocument document;
        document.setHtml("<hr><p>text</p><hr>"_s);
        QCOMPARE(markdown(document), "***\n\ntext\n\n---\n"_b);
    }

    ORV_ROWS(lists)
    {
        const Rows add([](const QByteArray& rtf, const QByteArray& expected) {
            const QByteArray tables =
                "{\\*\\listtable{\\list{\\listlevel\\levelnfc0\\levelstartat1{\\leveltext\\'02\\'00.;}"
                "{\\levelnumbers\\'01;}\\li360\\fi-360}{\\listlevel\\levelnfc4\\levelstartat1{\\leveltext\\'"
                "02\\'01);}"
                "{\\levelnumbers\\'01;}\\li720\\fi-360}{\\listlevel\\levelnfc0{\\leveltext\\'06\\'00.\\'01."
                "\\'02.;}"
                "{\\levelnumbers\\'01\\'03\\'05;}\\li1080\\fi-360}\\listid1}"
                "{\\list{\\listlevel\\levelnfc23{\\leveltext\\'01\\u8226?;}{\\levelnumbers;}\\li360\\fi-360}"
                "{\\listlevel\\levelnfc0\\levelstartat3{\\leveltext\\'02\\'01.;}{\\levelnumbers\\'01;}"
                "\\li720\\fi-360}"
                "\\listid2}{\\list{\\listlevel\\levelnfc23{\\leveltext\\'01-;}{\\levelnumbers;}\\li360\\fi-"
                "360}"
                "\\listid3}}{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}{"
                "\\listoverride\\listid2\\ls2}"
                "{\\listoverride\\listid3\\ls3}}";
            QCOMPARE(markdownOf(tables + rtf), expected);
        });
        const QByteArray first = "\\pard\\li360\\fi-360\\ls1\\ilvl0 ";
        const QByteArray second = "\\pard\\li720\\fi-360\\ls1\\ilvl1 ";
        const QByteArray third = "\\pard\\li1080\\fi-360\\ls1\\ilvl2 ";
        const QByteArray bullet = "\\pard\\li360\\fi-360\\ls2\\ilvl0 ";
        const QByteArray startAt3 = "\\pard\\li720\\fi-360\\ls2\\ilvl1 ";
        const QByteArray dash = "\\pard\\li360\\fi-360\\ls3\\ilvl0 ";
        add("numbers", first + "one\\par " + first + "two", "1. one\n2. two\n");
        add("bullets", bullet + "one\\par " + bullet + "two", "- one\n- two\n");
        add("around text", "a\\par" + bullet + "one\\par\\pard b", "a\n\n- one\n\nb\n");
        add("nested", first + "one\\par " + second + "inner\\par " + second + "more\\par " + first + "two",
            "1. one\n   1) inner\n   2) more\n2. two\n");
        add("nested below a wide marker",
            (first + "x\\par ").repeated(9) + first + "ten\\par " + second + "inner",
            "1. x\n2. x\n3. x\n4. x\n5. x\n6. x\n7. x\n8. x\n9. x\n10. ten\n    1) inner\n");
        add("line break in an item", bullet + "one\\line two", "- one\\\n  two\n");
        add("interrupted", first + "one\\par\\pard text\\par " + first + "two", "1. one\n\ntext\n\n2. two\n");
        add("not interrupted by empty paragraphs", first + "one\\par\\pard\\par " + first + "two",
            "1. one\n2. two\n");
        add("empty item", first + "one\\par " + first + "\\par " + first + "three", "1. one\n\n3) three\n");
        add("other list behind it", bullet + "one\\par " + dash + "two", "- one\n\n* two\n");
        add("numbers behind bullets", bullet + "one\\par " + first + "two", "- one\n\n1. two\n");
        // Word processors count the outer item that is missing.
        add("begins with an inner level", second + "inner\\par " + first + "two", "1) inner\n\n2. two\n");
        add("inner numbers that do not begin with 1", bullet + "one\\par " + startAt3 + "three",
            "- one\n\n  3. three\n");
        add("numbers of several levels", first + "one\\par " + third + "inner\\par " + first + "two",
            "1. one\n\n1.a.1. inner\n\n2. two\n");
        add("list in a note",
            "\\pard a{\\super\\chftn}{\\footnote" + bullet + "item\\par " + bullet + "more}",
            "a[^1]\n\n[^1]:\n\n    - item\n    - more\n");
        add("numbered heading", first + "\\outlinelevel0 one", "# 1. one\n");
    }

    /*! Documents in Qt's form can have any level. */
    void veryDeepItems()
    {
        Story story;
        for (int level = 1; level <= 100; ++level) {
            QTextListFormat format;
            format.setStyle(QTextListFormat::ListDisc);
            format.setIndent(level);
            story.add("x"_s);
            story.cursor().createList(format);
            story.paragraph();
        }
        const QByteArray text = markdown(*story.document());
        QCOMPARE(text.count('x'), 100);
        QVERIFY2(text.contains("\n" + QByteArray(28, ' ') + "- x\n"), text.constData());
        QVERIFY(!text.contains(QByteArray(29, ' ')));
    }

    ORV_ROWS(startNumbers)
    {
        const Rows add([](const QByteArray& start, const QByteArray& expected) {
            const QByteArray tables = "{\\*\\listtable{\\list{\\listlevel\\levelnfc0\\levelstartat" + start
                + "{\\leveltext\\'02\\'00.;}{\\levelnumbers\\'01;}\\li360\\fi-360}\\listid1}}"
                  "{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}";
            QCOMPARE(markdownOf(tables + "\\pard\\ls1 x"), expected);
        });
        add("nought", "0", "0. x\n");
        add("large", "32767", "32767. x\n");
    }

    ORV_ROWS(tables)
    {
        const Rows add(
            [](const QByteArray& rtf, const QByteArray& expected) { QCOMPARE(markdownOf(rtf), expected); });
        const QByteArray row = "\\trowd\\cellx2000\\cellx4000\\pard\\intbl ";
        const QByteArray empty = "|     |     |\n| --- | --- |\n";
        add("no head", row + "a\\cell b\\cell\\row\\pard after", empty + "| a   | b   |\n\nafter\n");
        add("head",
            "\\trowd\\trhdr\\cellx2000\\cellx4000\\pard\\intbl A\\cell B\\cell\\row" + row
                + "aaaa\\cell b\\cell\\row",
            "| A    | B   |\n| ---- | --- |\n| aaaa | b   |\n");
        add("bold row", row + "{\\b A}\\cell{\\b B}\\cell\\row" + row + "a\\cell{\\b b}\\cell\\row",
            "| A   | B     |\n| --- | ----- |\n| a   | **b** |\n");
        add("alignment",
            "\\trowd\\trhdr\\cellx2000\\cellx4000\\cellx6000\\pard\\intbl A\\cell B\\cell C\\cell\\row"
            "\\trowd\\cellx2000\\cellx4000\\cellx6000\\pard\\intbl\\qr a\\cell\\qc b\\cell\\ql c\\cell\\row",
            "|   A | B   | C   |\n| --: | :-: | --- |\n|   a | b   | c   |\n");
        add("paragraphs and pipes", row + "a\\par b\\line c\\cell |\\cell\\row",
            "|             |     |\n| ----------- | --- |\n| a<br>b<br>c | \\|  |\n");
        add("list in a cell",
            "\\trowd\\cellx2000\\cellx4000\\pard\\intbl{\\*\\pn\\pnlvlblt{\\pntxtb\\u8226?}}"
            "a\\cell\\pard\\intbl b\\cell\\row",
            "|     |     |\n| --- | --- |\n| \u2022 a | b   |\n");
        add("wide characters", row + "\\u20013?\\u20013?\\u20013?\\cell b\\cell\\row",
            "|        |     |\n| ------ | --- |\n| \u4e2d\u4e2d\u4e2d | b   |\n");
        add("too wide to be padded", row + QByteArray(130, 'x') + "\\cell b\\cell\\row",
            "|  |  |\n| --- | --- |\n| " + QByteArray(130, 'x') + " | b |\n");
        add("behind each other", row + "a\\cell b\\cell\\row\\pard\\par" + row + "c\\cell d\\cell\\row",
            empty + "| a   | b   |\n\n" + empty + "| c   | d   |\n");
        add("one cell", "\\trowd\\cellx2000\\pard\\intbl a\\par b\\cell\\row\\pard after",
            "a\n\nb\n\nafter\n");
        add("merged",
            "\\trowd\\trhdr\\clmgf\\cellx2000\\clmrg\\cellx4000\\pard\\intbl {\\i a}\\cell\\cell\\row" + row
                + "b\\par c\\cell\\cell\\row\\pard after",
            "<table>\n<tr>\n<th colspan=\"2\">\n\n*a*\n\n</th>\n</tr>\n<tr>\n<td>\n\nb\n\nc\n\n</td>\n"
            "<td></td>\n</tr>\n</table>\n\nafter\n");
        add("merged down",
            "\\trowd\\clvmgf\\cellx2000\\cellx4000\\pard\\intbl a\\cell b\\cell\\row"
            "\\trowd\\clvmrg\\cellx2000\\cellx4000\\pard\\intbl\\cell c\\cell\\row",
            "<table>\n<tr>\n<td rowspan=\"2\">\n\na\n\n</td>\n<td>\n\nb\n\n</td>\n</tr>\n<tr>\n<td>\n\nc\n\n"
            "</td>\n</tr>\n</table>\n");
        add("table in a cell",
            "\\trowd\\cellx4000\\cellx6000\\pard\\intbl a\\par\\pard\\intbl\\itap2 b\\nestcell c\\nestcell"
            "{\\*\\nesttableprops\\trowd\\cellx1000\\cellx2000\\nestrow}\\pard\\intbl\\cell d\\cell\\row",
            "<table>\n<tr>\n<td>\n\na\n\n" + empty
                + "| b   | c   |\n\n</td>\n<td>\n\nd\n\n</td>\n</tr>\n"
                  "</table>\n");
    }

    /*! Frames within each other neither overflow the stack nor lose text. */
    void deepFrames()
    {
        QTextDocument document;
        QTextCursor cursor(&document);
        for (int i = 0; i < 3000; ++i) {
            cursor = i % 2 ? cursor.insertTable(1, 2)->cellAt(0, 0).firstCursorPosition()
                           : cursor.insertFrame(QTextFrameFormat())->firstCursorPosition();
            cursor.insertText("x"_s);
        }
        QCOMPARE(markdown(document).count("x"), 3000);
    }

    ORV_ROWS(notes)
    {
        const Rows add(
            [](const QByteArray& rtf, const QByteArray& expected) { QCOMPARE(markdownOf(rtf), expected); });
        const QByteArray footnote = "{\\super\\chftn}{\\footnote{\\super\\chftn} ";
        add("footnote", "text" + footnote + "Note.} more", "text[^1] more\n\n[^1]: Note.\n");
        add("two paragraphs", "text" + footnote + "One.\\par Two.}", "text[^1]\n\n[^1]: One.\n\n    Two.\n");
        add("all kinds",
            "a{\\super\\chftn}{\\footnote\\ftnalt{\\super\\chftn} End.}" + footnote
                + "Foot.}{\\*\\atnid A}{\\*\\atnauthor Ann}\\chatn{\\*\\annotation Right?}",
            "a[^i][^1][^c1]\n\n[^1]: Foot.\n\n[^i]: End.\n\n[^c1]: Ann: Right?\n");
        add("mark of the author's", "a{\\super *}{\\footnote{\\super *} Note.}",
            "a[^1]\n\n[^1]: \\* Note.\n");
        add("within a note", "a" + footnote + "Outer" + footnote + "Inner.}.}",
            "a[^1]\n\n[^1]: Outer[^2].\n\n[^2]: Inner.\n");
        add("in front of parentheses and colons", footnote + "Note.}(a) b" + footnote + "Note.}: c",
            "[^1]\\(a) b[^2]\\: c\n\n[^1]: Note.\n\n[^2]: Note.\n");
        add("table in a note",
            "a" + footnote + "\\trowd\\cellx1000\\cellx2000\\pard\\intbl b\\cell c\\cell\\row\\pard end}",
            "a[^1]\n\n[^1]:\n\n    |     |     |\n    | --- | --- |\n    | b   | c   |\n\n    end\n");
        add("empty note", "a" + footnote + "}", "a[^1]\n\n[^1]:\n");
        add("in a table",
            "\\trowd\\cellx1000\\cellx2000\\pard\\intbl a" + footnote + "Note.}\\cell b\\cell\\row",
            "|       |     |\n| ----- | --- |\n| a[^1] | b   |\n\n[^1]: Note.\n");
    }

    void noteInLine()
    {
        QTextCharFormat note;
        note.setProperty(ORVRtfProperty::InFootnote, true);
        Story story;
        story.add("one "_s).add("note"_s, note).add("\nmore"_s, note).add(" two"_s);
        QCOMPARE(markdown(*story.document()), "one [^1] two\n\n[^1]: note\n\n    more\n"_b);
    }

    void pictures()
    {
        QTextImageFormat format;
        format.setName("name"_s);
        Story story;
        story.addResource("name"_s, square(0xffff0000)).add("a "_s).addPicture(format).add(" b"_s);
        const QByteArray text = markdown(*story.document());
        QVERIFY2(text.startsWith("a ![](data:image/png;base64,") && text.endsWith(") b\n"), text.constData());
    }

    // A name in a document must not make the program read a file.
    void pictureOfAFile()
    {
        QTextImageFormat format;
        format.setName(QString::fromUtf8(TEST_DATA_DIR "/dot.png"));
        Story story;
        story.addPicture(format).addPicture(QTextImageFormat());
        QCOMPARE(markdown(*story.document()), "![](" TEST_DATA_DIR "/dot.png)\n"_b);
    }

    void picturesAsFiles()
    {
        const QTemporaryDir folder;
        Story story;
        addThreePictures(&story);
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        ORVMarkdownWriter writer(&buffer);
        writer.setPictureFolder(folder.filePath("media"_s), "media"_s, "p-"_s);
        QVERIFY(writer.write(story.document()));
        QCOMPARE(buffer.data(), "![](media/p-1.png)![](media/p-2.png)![](media/p-1.png)\n"_b);
        QCOMPARE(writer.pictureFiles(),
                 (QStringList{folder.filePath("media/p-1.png"_s), folder.filePath("media/p-2.png"_s)}));
        QCOMPARE(QImage(folder.filePath("media/p-2.png"_s)).pixel(0, 0), 0xff0000ff);
    }

    void failureRemovesPictures() { verifyFailureRemovesPictures<ORVMarkdownWriter>(); }

    void noDocument()
    {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        QVERIFY(!ORVMarkdownWriter(&buffer).write(nullptr));
        QVERIFY(buffer.data().isEmpty());
    }

    void pictureFolderThatCannotBe() { verifyPictureFolderThatCannotBe<ORVMarkdownWriter>(); }

    void twice() { verifyWritingTwice<ORVMarkdownWriter>(); }
};

ORV_TEST("markdownwriter", TestMarkdownWriter, QGuiApplication)
#include "markdownwriter.moc"
