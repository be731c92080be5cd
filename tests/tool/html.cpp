#include "tooltest.h"

namespace {

const QRgb red = 0xffff0000;
const QRgb green = 0xff00ff00;

/*! The addresses of the pictures in \a html, in the order of the text. */
QStringList sources(const QByteArray& html)
{
    QStringList result;
    QRegularExpressionMatchIterator matches =
        QRegularExpression("<img src=\"([^\"]*)\""_s).globalMatch(QString::fromUtf8(html));
    while (matches.hasNext())
        result << matches.next().captured(1);
    return result;
}

} // namespace

/*! The options of HTML output. */
class TestToolHtml : public ToolTest {
    Q_OBJECT

private slots:
    ORV_ROWS(styles)
    {
        const Rows add([this](const QByteArray& option, const QList<QByteArray>& pieces,
                              const QList<QByteArray>& missing) {
            write(
                "in.rtf",
                "{\\rtf1{\\fonttbl{\\f0 Quibble Serif;}}\\f0\\qc\\fs30 One {\\b two} {\\scaps three}\\par}");
            QCOMPARE(run(("convert in.rtf out.html" + option).constData()), success());
            const QByteArray html = read("out.html");
            for (const QByteArray& piece : pieces)
                QVERIFY2(html.contains(piece), (piece + " is not in " + html).constData());
            for (const QByteArray& piece : missing)
                QVERIFY2(!html.contains(piece), (piece + " is in " + html).constData());
        });
        const QList<QByteArray> all{"font-family: \"Quibble Serif\"", "font-size: 15pt", "text-align: center",
                                    "font-variant: small-caps", "<strong>two</strong>"};
        add("by default all of them", "", all, QList<QByteArray>());
        add("full", " --html-style full", all, QList<QByteArray>());
        add("minimal", " --html-style minimal",
            QList<QByteArray>{"text-align: center", "<strong>two</strong>"},
            QList<QByteArray>{"font-family", "font-size", "small-caps"});
        add("none", " --html-style=none", QList<QByteArray>{"<p>One <strong>two</strong> three</p>"},
            QList<QByteArray>{"<style", "class", "style="});
    }

    /*! Where pictures are, and what links name them. */
    ORV_ROWS(media)
    {
        const Rows add([this](const QByteArray& arguments, const QStringList& addresses,
                              const QStringList& pictures) {
            write("in.rtf", "{\\rtf1 a" + pngGroup(red) + "b" + pngGroup(green) + "c" + pngGroup(red) + '}');
            makeFolder("out");
            QStringList words = ::words(arguments.constData());
            words.replaceInStrings("+"_s, " "_s);
            const ToolRun result = run(QStringList{"convert"_s, "in.rtf"_s} + words);
            QCOMPARE(result.err, QByteArray());
            QCOMPARE(result.exitCode, 0);
            QCOMPARE(sources(words.contains("-"_s) ? result.out : read(words.first())), addresses);
            for (int i = 0; i < pictures.size(); ++i) {
                const QImage image = QImage::fromData(read(pictures.at(i)));
                QCOMPARE(image.size(), QSize(3, 2));
                QCOMPARE(image.pixel(0, 0), i == 0 ? red : green);
            }
        });
        add("beside the output", "page.html --media pictures",
            QStringList{"pictures/page-1.png"_s, "pictures/page-2.png"_s, "pictures/page-1.png"_s},
            QStringList{"pictures/page-1.png"_s, "pictures/page-2.png"_s});
        add("elsewhere", "out/page.html --media pictures",
            QStringList{"../pictures/page-1.png"_s, "../pictures/page-2.png"_s, "../pictures/page-1.png"_s},
            QStringList{"pictures/page-1.png"_s, "pictures/page-2.png"_s});
        add("in the folder of the output", "out/page.html --media out",
            QStringList{"./page-1.png"_s, "./page-2.png"_s, "./page-1.png"_s},
            QStringList{"out/page-1.png"_s, "out/page-2.png"_s});
        add("names to be escaped", "my+page#1.html --media a+b/c%d",
            QStringList{"a%20b/c%25d/my%20page%231-1.png"_s, "a%20b/c%25d/my%20page%231-2.png"_s,
                        "a%20b/c%25d/my%20page%231-1.png"_s},
            QStringList{"a b/c%d/my page#1-1.png"_s, "a b/c%d/my page#1-2.png"_s});
        add("standard output", "- --to html --media pictures",
            QStringList{"pictures/image1.png"_s, "pictures/image2.png"_s, "pictures/image1.png"_s},
            QStringList{"pictures/image1.png"_s, "pictures/image2.png"_s});
    }

    void withoutPicturesNoFolder()
    {
        write("in.rtf", "{\\rtf1 a}");
        QCOMPARE(run("convert in.rtf out.html --media pictures"), success());
        QCOMPARE(files(), words("in.rtf out.html"));
    }

    void batchSharesFolder()
    {
        write("a.rtf", "{\\rtf1 " + pngGroup(red) + '}');
        write("b.rtf", "{\\rtf1 " + pngGroup(green) + '}');
        QCOMPARE(run("convert a.rtf b.rtf --to html --output-dir out --media out/pictures --jobs 2").exitCode,
                 0);
        QCOMPARE(files("out"), words("a.html b.html pictures"));
        QCOMPARE(files("out/pictures"), words("a-1.png b-1.png"));
        QCOMPARE(sources(read("out/a.html")), QStringList("pictures/a-1.png"_s));
        QCOMPARE(sources(read("out/b.html")), QStringList("pictures/b-1.png"_s));
        QCOMPARE(QImage::fromData(read("out/pictures/b-1.png")).pixel(0, 0), green);
    }

    /*! A failure leaves neither the output nor pictures. */
    ORV_ROWS(failures)
    {
        const Rows add([this](const QByteArray& preparation, const QByteArray& arguments,
                              const QByteArray& error, const QStringList& left) {
            write("in.rtf", "{\\rtf1 " + pngGroup(red) + '}');
            if (preparation == "file")
                write("pictures", "a file");
            else if (preparation == "folder")
                makeFolder("out.html");
            else
                makeFolder("pictures/out-1.png");
            verifyFailure(run(arguments.constData()), error);
            QCOMPARE(all(), left);
        });
        add("the folder is a file", "file", "convert in.rtf out.html --media pictures", "pictures",
            words("in.rtf pictures"));
        add("the picture is a folder", "picture", "convert in.rtf out.html --media pictures", "out-1.png",
            words("in.rtf pictures pictures/out-1.png"));
        add("the output is a folder", "folder", "convert in.rtf out.html --media pictures",
            "cannot write out.html", words("in.rtf out.html"));
        add("folders for the pictures only", "folder", "convert in.rtf out.html --media a/b/pictures",
            "cannot write out.html", words("in.rtf out.html"));
        add("full device behind the pictures", "folder",
            "convert in.rtf /dev/full --to html --media a/b/pictures", "cannot write /dev/full",
            words("in.rtf out.html"));
    }

    /*! HTML needs a title. */
    ORV_ROWS(titles)
    {
        const Rows add(
            [this](const QByteArray& information, const QByteArray& file, const QByteArray& title) {
                const QByteArray rtf = "{\\rtf1" + information + " Text}";
                if (file != "-")
                    write(file.constData(), rtf);
                const ToolRun result =
                    run(QStringList{"convert"_s, QString::fromUtf8(file), "-"_s, "--to"_s, "html"_s}, rtf);
                QVERIFY2(result.out.contains("<title>" + title + "</title>"), result.out.constData());
            });
        add("that of the document", "{\\info{\\title The <title>}}", "in.rtf", "The &lt;title&gt;");
        add("that of its file", "", "my letter.2.rtf", "my letter.2");
        add("none", "", "-", "");
    }
};

ORV_TEST("tool_html", TestToolHtml, QCoreApplication)

#include "html.moc"
