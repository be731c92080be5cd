#include "htmlhelpers.h"
#include "markupwriters.h"
#include "testpaths.h"

using namespace rtftest;

/*! The structure of HTML: what stands in the body, without regard to styles. */
class TestHtmlWriter : public QObject {
    Q_OBJECT

private slots:
    /*! The body of a document without styles. */
    ORV_ROWS(structure)
    {
        const Rows add([](const QByteArray& rtf, const QByteArray& expected) {
            QCOMPARE(htmlBody(htmlOf(rtf, ORVHtmlWriter::NoStyle)), expected);
        });
        add("empty document", "", "<p><br></p>\n");
        add("paragraph", "text", "<p>text</p>\n");
        add("paragraphs, one empty", "one\\par\\par two", "<p>one</p>\n<p><br></p>\n<p>two</p>\n");
        add("markup in text", "a<b> & \"c\" 'd'", "<p>a&lt;b&gt; &amp; \"c\" 'd'</p>\n");
        add("special blanks and hyphens", "a\\~b\\-c\\_d", "<p>a&nbsp;b&shy;c\u2011d</p>\n");
        add("beyond U+FFFF", "\\u-10179?\\u-8704?", "<p>\U0001f600</p>\n");
        add("line break", "one\\line two", "<p>one<br>two</p>\n");

        add("bold and italic", "a {\\b b {\\i c}} d", "<p>a <strong>b <em>c</em></strong> d</p>\n");
        add("bold within italic", "{\\i a {\\b b} c}",
            "<p><em>a </em><strong><em>b</em></strong><em> c</em></p>\n");
        add("underline and strike-out", "{\\ul u}{\\strike s}{\\ul\\strike b}",
            "<p><u>u</u><s>s</s><u><s>b</s></u></p>\n");
        add("raised and lowered", "x{\\super 2}y{\\sub 3}z{\\up6 4}",
            "<p>x<sup>2</sup>y<sub>3</sub>z<sup>4</sup></p>\n");

        add("link", "{\\field{\\*\\fldinst HYPERLINK \"https://example.org/?a=1&b=2\"}{\\fldrslt here}}",
            "<p><a href=\"https://example.org/?a=1&amp;b=2\">here</a></p>\n");
        add("link of two formats",
            "{\\field{\\*\\fldinst HYPERLINK \"https://example.org/\"}{\\fldrslt he{\\b re}}}",
            "<p><a href=\"https://example.org/\">he<strong>re</strong></a></p>\n");
        add("link with a blank", "{\\field{\\*\\fldinst HYPERLINK \"a b.txt\"}{\\fldrslt here}}",
            "<p><a href=\"a%20b.txt\">here</a></p>\n");
        add("link within the document",
            "{\\*\\bkmkstart a b}text{\\*\\bkmkend a b} {\\field{\\*\\fldinst HYPERLINK \\\\l \"a "
            "b\"}{\\fldrslt there}}",
            "<p><a id=\"a_b\"></a>text <a href=\"#a_b\">there</a></p>\n");
        add("link that runs a program",
            "{\\field{\\*\\fldinst HYPERLINK \" java\tScript:alert(1)\"}{\\fldrslt here}}", "<p>here</p>\n");

        add("link that a browser would mend into a program",
            "{\\field{\\*\\fldinst HYPERLINK \"java\\u127?script:alert(1)\"}{\\fldrslt here}}"
            "{\\field{\\*\\fldinst HYPERLINK \"java\\u-560?script:alert(1)\"}{\\fldrslt there}}",
            "<p>herethere</p>\n");
        add("link with what addresses do not have",
            "{\\field{\\*\\fldinst HYPERLINK \"dir\\'5cfile <a>|\\{b\\}^`\\u2?\\u133?.txt\"}{\\fldrslt "
            "here}}",
            "<p><a href=\"dir/file%20%3Ca%3E%7C%7Bb%7D%5E%60.txt\">here</a></p>\n");
        add("characters that HTML does not have",
            "a\\'01b\\u127?c\\u133?d\\u-2?e\\u-1?f\\u-558?g\\u-529?h\\u-528?", "<p>abcdefgh\ufdf0</p>\n");
        add("bookmarks named like notes",
            "{\\*\\bkmkstart fn1}a{\\*\\bkmkend fn1}{\\*\\bkmkstart fn1-ref}b{\\*\\bkmkend fn1-ref}"
            "{\\*\\bkmkstart fnord}c{\\*\\bkmkend fnord}"
            "{\\field{\\*\\fldinst HYPERLINK \\\\l \"fn1\"}{\\fldrslt d}}",
            "<p><a id=\"fn1_\"></a>a<a id=\"fn1-ref_\"></a>b<a id=\"fnord\"></a>c<a "
            "href=\"#fn1_\">d</a></p>\n");
        add("from right to left", "\\pard\\rtlpar\\u1488?", "<p dir=\"rtl\">\u05d0</p>\n");
        add("footnote", "text{\\super\\chftn}{\\footnote{\\super\\chftn} Note.} more",
            "<p>text<sup><a id=\"fn1-ref\" href=\"#fn1\" role=\"doc-noteref\">1</a></sup> more</p>\n"
            "<section>\n<hr>\n<aside role=\"doc-footnote\" id=\"fn1\">\n"
            "<p><a href=\"#fn1-ref\" role=\"doc-backlink\"><sup>1</sup></a> "
            "Note.</p>\n</aside>\n</section>\n");
        add("endnote", "text{\\super\\chftn}{\\footnote\\ftnalt{\\super\\chftn} Note.}",
            "<p>text<sup><a id=\"en1-ref\" href=\"#en1\" role=\"doc-noteref\">i</a></sup></p>\n"
            "<section role=\"doc-endnotes\">\n<hr>\n<div id=\"en1\">\n"
            "<p><a href=\"#en1-ref\" role=\"doc-backlink\"><sup>i</sup></a> Note.</p>\n</div>\n</section>\n");
        add("comment", "text{\\*\\atnid A}{\\*\\atnauthor Ann}\\chatn{\\*\\annotation Right?}",
            "<p>text<sup><a id=\"cm1-ref\" href=\"#cm1\" role=\"doc-noteref\">c1</a></sup></p>\n"
            "<section>\n<hr>\n<aside role=\"note\" id=\"cm1\">\n"
            "<p><a href=\"#cm1-ref\" role=\"doc-backlink\"><sup>c1</sup></a> Ann: "
            "Right?</p>\n</aside>\n</section>\n");
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
                "\\listid2}}"
                "{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}{\\listoverride\\listid2\\ls2}}";
            QCOMPARE(htmlBody(htmlOf(tables + rtf, ORVHtmlWriter::NoStyle)), expected);
        });
        const QByteArray first = "\\pard\\li360\\fi-360\\ls1\\ilvl0 ";
        const QByteArray second = "\\pard\\li720\\fi-360\\ls1\\ilvl1 ";
        const QByteArray third = "\\pard\\li1080\\fi-360\\ls1\\ilvl2 ";
        const QByteArray bullet = "\\pard\\li360\\fi-360\\ls2\\ilvl0 ";
        add("numbers", first + "one\\par " + first + "two", "<ol>\n<li>one</li>\n<li>two</li>\n</ol>\n");
        add("bullets", bullet + "one\\par " + bullet + "two", "<ul>\n<li>one</li>\n<li>two</li>\n</ul>\n");
        add("nested", first + "one\\par " + second + "inner\\par " + first + "two",
            "<ol>\n<li>one\n<ol type=\"a\">\n<li>inner</li>\n</ol>\n</li>\n<li>two</li>\n</ol>\n");
        add("interrupted", first + "one\\par\\pard text\\par " + first + "two",
            "<ol>\n<li>one</li>\n</ol>\n<p>text</p>\n<ol start=\"2\">\n<li>two</li>\n</ol>\n");
        // The padding, which the marker stands in, is on the side where lines begin.
        add("other direction", first + "one\\par \\pard\\rtlpar\\ri360\\fi-360\\ls1\\ilvl0 two",
            "<ol>\n<li>one</li>\n</ol>\n<ol start=\"2\">\n<li dir=\"rtl\">two</li>\n</ol>\n");
        add("list behind a list", first + "one\\par " + bullet + "two",
            "<ol>\n<li>one</li>\n</ol>\n<ul>\n<li>two</li>\n</ul>\n");
        add("begins with an inner level", second + "inner",
            "<ul>\n<li>\n<ol type=\"a\">\n<li>inner</li>\n</ol>\n</li>\n</ul>\n");
        add("two levels deeper", first + "one\\par " + third + "inner",
            "<ol>\n<li>one\n<ul>\n<li>\n<ol>\n<li>inner</li>\n</ol>\n</li>\n</ul>\n</li>\n</ol>\n");
        add("heading", first + "\\outlinelevel0 one", "<ol>\n<li><h1>one</h1>\n</li>\n</ol>\n");
    }

    ORV_ROWS(tables)
    {
        const Rows add([](const QByteArray& rtf, const QByteArray& expected) {
            QCOMPARE(htmlBody(htmlOf(rtf, ORVHtmlWriter::NoStyle)), expected);
        });
        const QByteArray row = "\\trowd\\cellx2000\\cellx4000\\pard\\intbl ";
        const QByteArray cells = "<td>a</td>\n<td>b</td>\n";
        add("row", row + "a\\cell b\\cell\\row\\pard after",
            "<table>\n<tbody>\n<tr>\n" + cells + "</tr>\n</tbody>\n</table>\n<p>after</p>\n");
        add("head",
            "\\trowd\\trhdr\\cellx2000\\pard\\intbl a\\cell\\row\\trowd\\cellx2000 b\\cell\\row\\pard after",
            "<table>\n<thead>\n<tr>\n<th>a</th>\n</tr>\n</thead>\n<tbody>\n<tr>\n<td>b</td>\n</tr>\n</"
            "tbody>\n</table>\n"
            "<p>after</p>\n");
        add("paragraphs in a cell", "\\trowd\\cellx2000\\pard\\intbl a\\par b\\cell\\row\\pard after",
            "<table>\n<tbody>\n<tr>\n<td><p>a</p>\n<p>b</p>\n</td>\n</tr>\n</tbody>\n</table>\n<p>after</"
            "p>\n");
        add("centred text in a cell", "\\trowd\\cellx2000\\pard\\intbl\\qc a\\cell\\row\\pard after",
            "<table>\n<tbody>\n<tr>\n<td><p>a</p>\n</td>\n</tr>\n</tbody>\n</table>\n<p>after</p>\n");
        add("table in a cell",
            "\\trowd\\cellx4000\\pard\\intbl a\\par\\pard\\intbl\\itap2 "
            "b\\nestcell{\\*\\nesttableprops\\trowd\\cellx2000"
            "\\nestrow}\\pard\\intbl c\\cell\\row\\pard after",
            "<table>\n<tbody>\n<tr>\n<td><p>a</p>\n<table>\n<tbody>\n"
            "<tr>\n<td>b</td>\n</tr>\n</tbody>\n</table>\n<p>c</p>\n</td>\n</tr>\n</tbody>\n</"
            "table>\n<p>after</p>\n");
        add("merged",
            "\\trowd\\clmgf\\cellx2000\\clmrg\\cellx4000\\pard\\intbl a\\cell\\cell\\row" + row
                + "a\\cell b\\cell\\row\\pard after",
            "<table>\n<tbody>\n<tr>\n<td colspan=\"2\">a</td>\n</tr>\n<tr>\n" + cells
                + "</tr>\n</tbody>\n</table>\n<p>after</p>\n");
        add("list in a cell",
            "\\trowd\\cellx2000\\pard\\intbl{\\*\\pn\\pnlvlblt{\\pntxtb\\u8226?}}a\\cell\\row\\pard b",
            "<table>\n<tbody>\n<tr>\n<td><ul>\n<li>a</li>\n</ul>\n</td>\n</tr>\n</tbody>\n</table>\n<p>b</"
            "p>\n");
    }

    /*! A document in Qt's form can have any level; each one that is missing is bridged. */
    void veryDeepItem()
    {
        QTextListFormat format;
        format.setStyle(QTextListFormat::ListDecimal);
        format.setIndent(100000000);
        Story story;
        story.add("item"_s);
        story.cursor().createList(format);
        const QByteArray body = htmlBody(html(*story.document(), ORVHtmlWriter::NoStyle));
        QCOMPARE(body.count("<ul>"), 15);
        QCOMPARE(body.count("</ul>"), 15);
        QVERIFY2(body.contains("<ol>\n<li>item</li>\n</ol>\n"), body.constData());
    }

    /*! HTML has no rows in which no cell begins. */
    void rowsWithoutCells()
    {
        Story story;
        QTextTable* const table = story.cursor().insertTable(4, 2);
        table->mergeCells(0, 0, 3, 1);
        table->mergeCells(1, 1, 2, 1);
        const QByteArray body = htmlBody(html(*story.document(), ORVHtmlWriter::NoStyle));
        QCOMPARE(body.count("<tr>"), 3);
        QCOMPARE(body.count("</tr>"), 3);
        QCOMPARE(body.count(" rowspan=\"2\""), 1);
        QCOMPARE(body.count(" rowspan="), 1);
    }

    void hugeSpan()
    {
        Story story;
        story.cursor().insertTable(2, 1001)->mergeCells(0, 0, 1, 1001);
        QVERIFY(html(*story.document()).contains(" colspan=\"1000\">"));
    }

    /*! Notes within notes follow the others of their kind, and those in line are taken out of the text. */
    void notesOfNotes()
    {
        const QByteArray body = htmlBody(
            htmlOf("one{\\super\\chftn}{\\footnote{\\super\\chftn} First{\\super\\chftn}{\\footnote Inner.}.}"
                   " two{\\super\\chftn}{\\footnote{\\super\\chftn} Second.}",
                   ORVHtmlWriter::NoStyle));
        const QByteArray texts[] = {"</sup></a> First", "</sup></a> Second.", "</sup></a> Inner."};
        auto from = body.indexOf("<section>");
        for (const QByteArray& text : texts) {
            QVERIFY2(body.indexOf(text, from) > from, body.constData());
            from = body.indexOf(text, from);
        }
        for (const char* id : {"fn1", "fn2", "fn3"}) {
            QCOMPARE(body.count(" id=\""_b + id + "\""), 1);
            QCOMPARE(body.count(" id=\""_b + id + "-ref\""), 1);
            QCOMPARE(body.count(" href=\"#"_b + id + "\""), 1);
            QCOMPARE(body.count(" href=\"#"_b + id + "-ref\""), 1);
        }
    }

    /*! Footnotes are written before comments, which can have further ones. */
    void footnoteOfComment()
    {
        const QByteArray body = htmlBody(htmlOf("one{\\super\\chftn}{\\footnote{\\super\\chftn} First.}"
                                                "{\\*\\annotation Right{\\footnote Inner.}?}",
                                                ORVHtmlWriter::NoStyle));
        const auto mark = body.indexOf(" href=\"#fn2\"");
        QVERIFY2(mark > 0, body.constData());
        QVERIFY2(body.indexOf(" id=\"fn2\"") > mark, body.constData());
        QVERIFY2(body.contains("</sup></a> Inner.</p>"), body.constData());
    }

    void noteInLine()
    {
        QTextCharFormat note;
        note.setProperty(ORVRtfProperty::InFootnote, true);
        Story story;
        story.add("one "_s).add("note"_s, note).add("\nmore"_s, note).add(" two"_s);
        QCOMPARE(
            htmlBody(html(*story.document(), ORVHtmlWriter::NoStyle)),
            "<p>one <sup><a id=\"fn1-ref\" href=\"#fn1\" role=\"doc-noteref\">1</a></sup> two</p>\n"
            "<section>\n<hr>\n<aside role=\"doc-footnote\" id=\"fn1\">\n"
            "<p><a href=\"#fn1-ref\" role=\"doc-backlink\"><sup>1</sup></a> note</p>\n<p>more</p>\n</aside>\n"
            "</section>\n"_b);
    }

    /*! The file states its encoding, whatever its title is. */
    ORV_ROWS(head)
    {
        const Rows add([](const QString& title, const QByteArray& element) {
            QTextDocument document;
            document.setMetaInformation(QTextDocument::DocumentTitle, title);
            document.setProperty("author", "A \"B\" & <C>"_s);
            const QByteArray text = html(document);
            QVERIFY2(text.startsWith("<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n" + element
                                     + "\n"),
                     text.constData());
            QCOMPARE(text.count("<title>"), 1);
            QCOMPARE(text.count("<meta name=\"author\" content=\"A &quot;B&quot; &amp; &lt;C&gt;\">\n"), 1);
            QVERIFY(text.endsWith("</body>\n</html>\n"));
        });
        add("none", QString(), "<title></title>");
        add("plain", "A title", "<title>A title</title>");
        add("line break and control character", "a\u2028b\u0001\u0085"_s, "<title>a\u2028b</title>");
        add("like HTML", "<head></head></title><b>&",
            "<title>&lt;head&gt;&lt;/head&gt;&lt;/title&gt;&lt;b&gt;&amp;</title>");
    }

    void pictures()
    {
        QTextImageFormat format;
        format.setName("name"_s);
        format.setWidth(30);
        format.setHeight(20);
        Story story;
        story.addResource("name"_s, square(0xffff0000)).addPicture(format).addPicture(format);
        const QByteArray body = htmlBody(html(*story.document()));
        QCOMPARE(body.count("<img src=\"data:image/png;base64,"), 2);
        QCOMPARE(body.count("\" width=\"30\" height=\"20\" alt=\"\">"), 2);
    }

    // A name in a document must not make the program read a file.
    void pictureOfAFile()
    {
        QTextImageFormat format;
        format.setName(QString::fromUtf8(TEST_DATA_DIR "/dot.png"));
        Story story;
        story.addPicture(format);
        const QByteArray body = htmlBody(html(*story.document()));
        QCOMPARE(body.count("<img "), 1);
        QCOMPARE(body.count("data:"), 0);
    }

    void hugePicture()
    {
        QTextImageFormat format;
        format.setName("name"_s);
        format.setWidth(1e300);
        format.setHeight(0.1);
        Story story;
        story.addPicture(format);
        QCOMPARE(htmlBody(html(*story.document(), ORVHtmlWriter::NoStyle)),
                 "<p><img src=\"name\" width=\"1000000\" height=\"1\" alt=\"\"></p>\n"_b);
    }

    void pictureWithoutName()
    {
        Story story;
        story.add("text"_s).addPicture(QTextImageFormat());
        QCOMPARE(htmlBody(html(*story.document(), ORVHtmlWriter::NoStyle)), "<p>text</p>\n"_b);
    }

    void picturesAsFiles()
    {
        const QTemporaryDir folder;
        Story story;
        addThreePictures(&story);
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        ORVHtmlWriter writer(&buffer);
        writer.setPictureFolder(folder.filePath("media"_s), "media"_s);
        QVERIFY(writer.write(story.document()));
        QCOMPARE(buffer.data().count("<img src=\"media/image1.png\" "), 2);
        QCOMPARE(buffer.data().count("<img src=\"media/image2.png\" "), 1);
        QCOMPARE(QDir(folder.filePath("media"_s)).entryList(QDir::Files),
                 (QStringList{"image1.png"_s, "image2.png"_s}));
        QCOMPARE(QImage(folder.filePath("media/image2.png"_s)).pixel(0, 0), 0xff0000ff);
    }

    void pictureFolderThatCannotBe() { verifyPictureFolderThatCannotBe<ORVHtmlWriter>(); }

    void failureRemovesPictures() { verifyFailureRemovesPictures<ORVHtmlWriter>(); }

    void failingDevice()
    {
        Story story;
        story.add(QString(200000, QLatin1Char('x')));
        FullDevice none(0);
        FullDevice some(100000);
        for (FullDevice* const device : {&none, &some}) {
            ORVHtmlWriter writer(device);
            QVERIFY(!writer.write(story.document()));
            QCOMPARE(writer.errorString(), "full"_s);
        }
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        QVERIFY(!ORVHtmlWriter(&buffer).write(nullptr));
        QVERIFY(buffer.data().isEmpty());
    }

    void twice() { verifyWritingTwice<ORVHtmlWriter>(); }
};

ORV_TEST("htmlwriter", TestHtmlWriter, QGuiApplication)
#include "htmlwriter.moc"
