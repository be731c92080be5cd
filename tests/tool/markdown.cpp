#include "tooltest.h"

namespace {

const QRgb red = 0xffff0000;
const QRgb green = 0xff00ff00;

} // namespace

/*! Markdown output, and the pictures beside it. */
class TestToolMarkdown : public ToolTest {
    Q_OBJECT

private slots:
    /*! A document in RTF, and one in Qt's form. */
    ORV_ROWS(conversions)
    {
        const Rows add([this](const QByteArray& name, const QByteArray& input, const QByteArray& markdown) {
            write(name.constData(), input);
            const ToolRun result =
                run(QStringList{"convert"_s, QString::fromUtf8(name), "-"_s, "--to"_s, "md"_s});
            QCOMPARE(result, success(markdown));
        });
        add("RTF", "in.rtf", "{\\rtf1\\outlinelevel0 One\\par\\pard {\\b two}{\\footnote Note.}\\par}",
            "# One\n\n**two**[^1]\n\n[^1]: Note.\n");
        add("HTML", "in.html", "<h2>One</h2><ul><li>two</li><li>three</li></ul>",
            "## One\n\n- two\n- three\n");
        add("text", "in.txt", "one\n*two*\n", "one\n\n\\*two\\*\n");
        add("empty", "empty.rtf", "{\\rtf1}", "");
    }

    void suffix()
    {
        write("in.rtf", "{\\rtf1 text}");
        QCOMPARE(run("convert in.rtf out.md"), success());
        QCOMPARE(read("out.md"), "text\n"_b);
        QCOMPARE(files(), words("in.rtf out.md"));
    }

    /*! Where pictures are, and what names them. */
    ORV_ROWS(media)
    {
        const Rows add([this](const QByteArray& arguments, const QByteArray& markdown,
                              const QStringList& pictures) {
            write("in.rtf", "{\\rtf1 a" + pngGroup(red) + "b" + pngGroup(green) + "c" + pngGroup(red) + '}');
            makeFolder("out");
            QStringList words = ::words(arguments.constData());
            words.replaceInStrings("+"_s, " "_s);
            const ToolRun result = run(QStringList{"convert"_s, "in.rtf"_s} + words);
            QCOMPARE(result.err, QByteArray());
            QCOMPARE(result.exitCode, 0);
            QCOMPARE(words.contains("-"_s) ? result.out : read(words.first()), markdown);
            for (int i = 0; i < pictures.size(); ++i)
                QCOMPARE(QImage::fromData(read(pictures.at(i))).pixel(0, 0), i == 0 ? red : green);
        });
        add("beside the output", "page.md",
            "a![](page-media/image1.png)b![](page-media/image2.png)c![](page-media/image1.png)\n",
            QStringList{"page-media/image1.png"_s, "page-media/image2.png"_s});
        add("in another folder", "out/page.md --media pictures",
            "a![](../pictures/page-1.png)b![](../pictures/page-2.png)c![](../pictures/page-1.png)\n",
            QStringList{"pictures/page-1.png"_s, "pictures/page-2.png"_s});
        add("names to be escaped", "my+(page)#1.md",
            "a![](my%20%28page%29%231-media/image1.png)b![](my%20%28page%29%231-media/image2.png)"
            "c![](my%20%28page%29%231-media/image1.png)\n",
            QStringList{"my (page)#1-media/image1.png"_s, "my (page)#1-media/image2.png"_s});
        add("standard output", "- --to md --media pictures",
            "a![](pictures/image1.png)b![](pictures/image2.png)c![](pictures/image1.png)\n",
            QStringList{"pictures/image1.png"_s, "pictures/image2.png"_s});
    }

    /*! Nothing stands beside what is no file. */
    void picturesInThePipe()
    {
        write("in.rtf", "{\\rtf1 a" + pngGroup(red) + '}');
        const ToolRun result = run("convert in.rtf - --to md");
        QVERIFY2(result.out.startsWith("a![](data:image/png;base64,"), result.out.constData());
        QCOMPARE(run("convert in.rtf /dev/stdout --to md"), result);
        QCOMPARE(files(), words("in.rtf"));
    }

    void batch()
    {
        write("a.rtf", "{\\rtf1 " + pngGroup(red) + '}');
        write("b.rtf", "{\\rtf1 " + pngGroup(green) + '}');
        QCOMPARE(run("convert a.rtf b.rtf --to md --output-dir out --jobs 2").exitCode, 0);
        QCOMPARE(read("out/a.md"), "![](a-media/image1.png)\n"_b);
        QCOMPARE(QImage::fromData(read("out/b-media/image1.png")).pixel(0, 0), green);
    }

    /*! A failure leaves neither the output nor pictures. */
    ORV_ROWS(failures)
    {
        const Rows add([this](const QByteArray& file, const QByteArray& folder, const QByteArray& error,
                              const QStringList& left) {
            write("in.rtf", "{\\rtf1 " + pngGroup(red) + '}');
            if (!file.isEmpty())
                write(file.constData(), "a file");
            if (!folder.isEmpty())
                makeFolder(folder.constData());
            verifyFailure(run("convert in.rtf out.md"), error);
            QCOMPARE(all(), left);
        });
        add("the folder is a file", "out-media", "", "out-media", words("in.rtf out-media"));
        add("the picture is a folder", "", "out-media/image1.png", "image1.png",
            words("in.rtf out-media out-media/image1.png"));
        add("the output is a folder", "", "out.md", "cannot write out.md", words("in.rtf out.md"));
    }

    /*! The folder of the pictures would be in it, and is not to make it. */
    void missingFolderOfOutput()
    {
        write("in.rtf", "{\\rtf1 " + pngGroup(red) + '}');
        verifyFailure(run("convert in.rtf missing/out.md"), "cannot write missing/out.md");
        QCOMPARE(all(), words("in.rtf"));
    }

    /*! When the disk is full behind the pictures, they go. */
    void fullDevice()
    {
        write("in.rtf", "{\\rtf1 " + pngGroup(red) + '}');
        verifyFailure(run("convert in.rtf /dev/full --to md --media pictures"), "cannot write /dev/full");
        QCOMPARE(all(), words("in.rtf"));
    }
};

ORV_TEST("tool_markdown", TestToolMarkdown, QCoreApplication)

#include "markdown.moc"
