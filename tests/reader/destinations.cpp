#include "ORVGuiUtil.h"
#include "runhelpers.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

QByteArray png(int width, int height, const QColor& color = Qt::red)
{
    return encoded(solidImage(width, height, color));
}

QByteArray jpeg(int width, int height)
{
    return encoded(solidImage(width, height, Qt::red), "JPEG");
}

/*! A picture group: \a words, the word of the data's type and the data. */
QByteArray picture(const QByteArray& words, const QByteArray& type, const QByteArray& data)
{
    return "{\\pict" + words + type + "\n" + data.toHex() + "}";
}

/*! A picture group with a PNG. */
QByteArray pngPicture(int width, int height, const QByteArray& words = QByteArray())
{
    return picture(words, "\\pngblip", png(width, height));
}

/*! A field with \a instruction and the result "link". */
QByteArray field(const QByteArray& instruction)
{
    return "{\\field{\\*\\fldinst " + instruction + "}{\\fldrslt link}}";
}

} // namespace

/*! What groups with a purpose of their own do when they close: fields, pictures, notes. */
class TestDestinations : public QObject {
    Q_OBJECT

private slots:
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    // Newer Qt versions have a limit of their own, which the application may lift.
    void initTestCase()
    {
        QImageReader::setAllocationLimit(0);
    }
#endif

    ORV_ROWS(links)
    {
        // Without a target there is no link.
        const Rows add([](const QByteArray& instruction, const QString& target) {
            const Reading reading = readBody("before " + field(instruction) + " after");
            QCOMPARE(reading.status, 0);
            QCOMPARE(reading.text(), "before link after"_s);
            const Properties link{{QTextFormat::IsAnchor, true}, {QTextFormat::AnchorHref, target}};
            QCOMPARE(dump(reading.format("link"_s)), target.isNull() ? QString() : dump(link));
            QCOMPARE(dump(reading.format("before"_s)), QString());
            QCOMPARE(dump(reading.format("after"_s)), QString());
        });
        add("simple", "HYPERLINK \"notes/target\"", "notes/target");
        add("spaces around", "  HYPERLINK \"u\"  ", "u");
        add("tab before the target", "HYPERLINK\\tab \"u\"", "u");
        add("non-breaking spaces", "\\~HYPERLINK\\~\"u\"\\~", "u");
        add("empty target", "HYPERLINK \"\"", "");
        add("spaces in the target", "HYPERLINK \" a b \"", " a b ");
        add("backslash in the target", "HYPERLINK \"c:\\\\\\\\d\"", "c:\\\\d");
        add("escapes in the target", "HYPERLINK \"\\'e9\\u8212?\"", "é—"_s);
        add("braces in the target", "HYPERLINK \"\\{x\\}\"", "{x}");
        add("up to the last quote", "HYPERLINK \"a\" \"b\"", "a\" \"b");
        add("switch with a quoted name", "HYPERLINK \"a\" \\\\t \"b\"", "a\" \\t \"b");
        add("line ends in the input", "HYPER\nLINK \"a\r\nb\"", "ab");
        add("paragraph end in the target", "HYPERLINK \"a\\'0ab\"", "a\nb");
        add("group", "{HYPERLINK \"u\"}", "u");
        add("two groups", "{HYPERLINK }{\"u\"}", "u");
        add("formatted groups", "{\\b HYPERLINK }{\\i \"u\"}", "u");
        add("nested groups", "{{{HYPERLINK \"u\"}}}", "u");
        add("control words in between", "HYPERLINK \\b \"u\\b0 \"", "u");
        add("skipped group in between", "HYPERLINK {\\*\\datafield 00d0}\"u\"", "u");
        add("empty", "", QString());
        add("page number", "PAGE", QString());
        add("bookmark", "HYPERLINK \\\\l \"bookmark\"", QString());
        add("lower case", "hyperlink \"u\"", QString());
        add("mixed case", "Hyperlink \"u\"", QString());
        add("no space", "HYPERLINK\"u\"", QString());
        add("two spaces", "HYPERLINK  \"u\"", QString());
        add("no quotes", "HYPERLINK u", QString());
        add("one quote", "HYPERLINK \"u", QString());
        add("one quote only", "HYPERLINK \"", QString());
        add("text before", "x HYPERLINK \"u\"", QString());
        add("text after", "HYPERLINK \"u\" x", QString());
        add("switch after", "HYPERLINK \"u\" \\\\o", QString());
        add("typographic quotes", "HYPERLINK \\ldblquote u\\rdblquote ", QString());
    }

    ORV_ROWS(runs)
    {
        const Rows add([](const QByteArray& body, const QStringList& runs) {
            const Reading reading = readBody(body);
            QCOMPARE(reading.status, 0);
            QCOMPARE(runsOf(reading), runs);
        });
        const auto link = [](const char* target, const Properties& format = plainRun) {
            return with(QTextFormat::IsAnchor, true,
                        with(QTextFormat::AnchorHref, QString::fromLatin1(target), format));
        };
        add("link reaches the whole result only",
            "\\b a{\\field{\\*\\fldinst HYPERLINK \"u\"}{\\fldrslt b{\\i c}d\\par e}}f{\\fldrslt g}",
            {run("a", boldRun), run("b", link("u", boldRun)),
             run("c", link("u", with(QTextFormat::FontItalic, true, boldRun))), run("d", link("u", boldRun)),
             "|", run("e", link("u", boldRun)), run("fg", boldRun)});
        add("fields follow each other",
            "{\\field{\\*\\fldinst HYPERLINK \"a\"}{\\fldrslt x}}{\\field{\\*\\fldinst PAGE}{\\fldrslt 1}}"
            "{\\field{\\*\\fldinst HYPERLINK \"b\"}{\\fldrslt y}}",
            {run("x", link("a")), run("1", plainRun), run("y", link("b"))});
        add("field inside a result",
            "{\\field{\\*\\fldinst HYPERLINK \"a\"}{\\fldrslt x "
            "{\\field{\\*\\fldinst PAGE}{\\fldrslt 7}} y}}z",
            {run("x 7 y", link("a")), run("z", plainRun)});

        for (const char* word : {"\\footnote", "\\footnote\\ftnalt", "\\annotation", "\\*\\annotation"}) {
            const int flag = QByteArray(word).startsWith("\\footnote") ? ORVRtfProperty::InFootnote
                                                                       : ORVRtfProperty::InAnnotation;
            const Properties bold = with(QTextFormat::FontWeight, int(QFont::Bold), with(flag, true));
            add(word, "one{\\super\\chftn}{"_b + word + " two{\\b three}\\par four}five",
                {run("one", plainRun), run("two", with(flag, true)), run("three", bold), "|",
                 run("four", with(flag, true)), run("five", plainRun)});
        }
        add("references of notes are dropped",
            "a{\\*\\atrfstart 1}b{\\*\\atrfend 1}{\\*\\atnid c}{\\*\\atnauthor d}"
            "\\chatn{\\*\\annotation{\\*\\atnref 1}e}f",
            {run("ab", plainRun), run("e", with(ORVRtfProperty::InAnnotation, true)), run("f", plainRun)});
    }

    void instructionIsFilteredLikeText()
    {
        const QByteArray rtf = "{\\rtf1" + field("HYPERLINK \"a\\'7fb\"") + "}";
        QCOMPARE(read(rtf, true).format("link"_s).anchorHref(), "ab"_s);
        QCOMPARE(read(rtf, false).format("link"_s).anchorHref(), "a\uFFFDb"_s);
    }

    ORV_ROWS(pictureIsInserted)
    {
        const Rows add([](const QByteArray& typeWord, const QByteArray& data, const QString& type) {
            const Reading reading = readBody("a" + picture(QByteArray(), typeWord, data) + "b");
            QCOMPARE(reading.status, 0);
            QCOMPARE(reading.text(), QString("a" + QString(QChar::ObjectReplacementCharacter) + "b"));
            QCOMPARE(reading.images().size(), 1);
            const QTextImageFormat format = reading.images().first();
            const QImage expected = QImage::fromData(data);
            QCOMPARE(format.name(), ORVGuiUtil::resourceId(expected));
            QCOMPARE(reading.picture(format), expected);
            QCOMPARE(format.width(), 5.0);
            QCOMPARE(format.height(), 3.0);
            QCOMPARE(format.stringProperty(ORVRtfProperty::ImageType), type);
            QCOMPARE(format.stringProperty(ORVRtfProperty::ImageFileName), "Image1"_s);
            QVERIFY(!format.hasProperty(ORVRtfProperty::MathML));
        });
        add("PNG", "\\pngblip", png(5, 3), "PNG");
        add("JPEG", "\\jpegblip", jpeg(5, 3), "JPEG");
        add("metafile", "\\wmetafile8", png(5, 3), "WMF");
        add("no type", QByteArray(), png(5, 3), "");
        add("no type, JPEG data", QByteArray(), jpeg(5, 3), "");
        add("wrong type, PNG data", "\\jpegblip", png(5, 3), "JPEG");
        add("wrong type, JPEG data", "\\pngblip", jpeg(5, 3), "PNG");
        add("the last type counts", "\\jpegblip\\wmetafile\\pngblip", png(5, 3), "PNG");
        add("unknown word behind the type", "\\pngblip\\bliptag12", png(5, 3), "PNG");
        add("group behind the type", "\\pngblip{\\*\\blipuid 00112233445566778899aabbccddeeff}", png(5, 3),
            "PNG");
        add("group before the type", "{\\*\\picprop{\\sp{\\sn a}{\\sv 1}}}\\pngblip", png(5, 3), "PNG");
    }

    void pictureHasTheFormatAroundIt()
    {
        const Reading reading = readBody(colorTable() + "{\\b\\cf1\\footnote a" + pngPicture(2, 2) + "}b");
        QCOMPARE(reading.images().size(), 1);
        const QTextImageFormat format = reading.images().first();
        QCOMPARE(format.fontWeight(), int(QFont::Bold));
        QCOMPARE(format.foreground().color(), QColor(Qt::red));
        QVERIFY(format.boolProperty(ORVRtfProperty::InFootnote));
        QVERIFY(!reading.format("a"_s).isImageFormat());
        QCOMPARE(dump(reading.format("b"_s)), QString());
    }

    ORV_ROWS(pictureSizes)
    {
        const Rows add([](const QSize& size, const QByteArray& words, const QSizeF& expected) {
            const Reading reading = readBody(pngPicture(size.width(), size.height(), words));
            QCOMPARE(reading.images().size(), 1);
            const QTextImageFormat format = reading.images().first();
            QCOMPARE(QSizeF(format.width(), format.height()), expected);
        });
        // 1440 twips are an inch, 96 pixels.
        add("own", QSize(7, 9), "", QSizeF(7, 9));
        add("goals", QSize(7, 9), "\\picwgoal1440\\pichgoal720", QSizeF(96, 48));
        add("goals in whole pixels", QSize(7, 9), "\\picwgoal1448\\pichgoal1447", QSizeF(97, 96));
        add("goal width only", QSize(7, 9), "\\picwgoal1440", QSizeF(7, 9));
        add("goal height only", QSize(7, 9), "\\pichgoal1440", QSizeF(7, 9));
        add("goal 0", QSize(7, 9), "\\picwgoal0\\pichgoal1440", QSizeF(7, 9));
        add("negative goal", QSize(7, 9), "\\picwgoal1440\\pichgoal-1440", QSizeF(7, 9));
        add("own size is not in the words", QSize(7, 9), "\\picw70\\pich90", QSizeF(7, 9));
        add("scale 100", QSize(7, 9), "\\picscalex100\\picscaley100", QSizeF(7, 9));
        add("scale, halves go up", QSize(101, 101), "\\picscalex50\\picscaley50", QSizeF(51, 51));
        add("scale, below a half", QSize(7, 9), "\\picscalex107\\picscaley94", QSizeF(7, 8));
        add("scale to nothing", QSize(1, 1), "\\picscalex49\\picscaley50", QSizeF(0, 1));
        add("scale width only", QSize(7, 9), "\\picscalex50", QSizeF(7, 9));
        add("scale height only", QSize(7, 9), "\\picscaley50", QSizeF(7, 9));
        add("scale 0", QSize(7, 9), "\\picscalex0\\picscaley50", QSizeF(7, 9));
        add("negative scale", QSize(7, 9), "\\picscalex50\\picscaley-50", QSizeF(7, 9));
        add("goals and scale", QSize(7, 9), "\\picwgoal1440\\pichgoal720\\picscalex50\\picscaley200",
            QSizeF(48, 96));
        add("one goal and scale", QSize(10, 20), "\\picwgoal1440\\picscalex50\\picscaley200", QSizeF(5, 40));
        add("last number counts", QSize(7, 9), "\\picscalex10\\picscaley10\\picscalex200\\picscaley300",
            QSizeF(14, 27));
        add("largest side", QSize(7, 9), "\\picwgoal491505\\pichgoal15", QSizeF(32767, 1));
        add("beyond the largest side", QSize(7, 9), "\\picwgoal491520\\pichgoal15", QSizeF(32767, 1));
        add("largest numbers", QSize(7, 9), "\\picwgoal2147483647\\pichgoal2147483647", QSizeF(32767, 32767));
        add("largest scale", QSize(7, 9), "\\picscalex2147483647\\picscaley2147483647", QSizeF(32767, 32767));
        add("scaled down from beyond", QSize(7, 9),
            "\\picwgoal983040\\pichgoal983040\\picscalex10\\picscaley10", QSizeF(6554, 6554));
    }

    void pictureNames()
    {
        const QByteArray plain = pngPicture(2, 2);
        const QByteArray named = pngPicture(2, 2, "{\\*\\nisusfilename my picture.png}");
        QStringList names;
        for (const QTextImageFormat& format : readBody(plain + named + plain).images())
            names << format.stringProperty(ORVRtfProperty::ImageFileName);
        QCOMPARE(names, (QStringList{"Image1", "my picture.png", "Image2"}));
    }

    ORV_ROWS(pictureSourceIsKeptForJpegOnly)
    {
        const Rows add([](const QByteArray& type, const QByteArray& data, const QByteArray& source) {
            const QTextImageFormat format = readBody(picture("", type, data)).images().value(0);
            QCOMPARE(format.property(ORVRtfProperty::SourceImageData).toByteArray(), source);
            QCOMPARE(format.hasProperty(ORVRtfProperty::SourceImageData), !source.isEmpty());
        });
        add("JPEG", "\\jpegblip", jpeg(4, 4), jpeg(4, 4));
        add("PNG as JPEG", "\\jpegblip", png(4, 4), png(4, 4));
        add("PNG", "\\pngblip", png(4, 4), "");
        add("JPEG as PNG", "\\pngblip", jpeg(4, 4), "");
        add("PNG as metafile", "\\wmetafile", png(4, 4), "");
        add("JPEG of no type", "", jpeg(4, 4), "");
    }

    void pictureFromBinaryData()
    {
        // A grey-scale picture of one pixel without line feeds, which would end the look-ahead.
        const QByteArray data = "P5 1 1 255 A";
        const Reading reading = readBody("a{\\pict\\wmetafile\\bin12 " + data + "}b");
        QCOMPARE(reading.status, 0);
        QCOMPARE(reading.images().size(), 1);
        QCOMPARE(qGray(reading.picture(reading.images().first()).pixel(0, 0)), int('A'));
    }

    void equalPicturesShareAResource()
    {
        const Reading reading =
            readBody(pngPicture(2, 2) + pngPicture(2, 2) + picture("", "\\pngblip", png(2, 2, Qt::blue)));
        QCOMPARE(reading.images().size(), 3);
        QCOMPARE(reading.images().at(0).name(), reading.images().at(1).name());
        QVERIFY(reading.images().at(0).name() != reading.images().at(2).name());
        QCOMPARE(reading.picture(reading.images().at(2)).pixelColor(0, 0), QColor(Qt::blue));
    }

    /*! The text, "*" for each picture, and the sizes of the pictures. */
    ORV_ROWS(pictures)
    {
        const Rows add([](const QByteArray& body, QString text, const QList<QSizeF>& sizes) {
            const Reading reading = readBody(body);
            QCOMPARE(reading.status, 0);
            QCOMPARE(reading.text(),
                     text.replace(QLatin1Char('*'), QChar(QChar::ObjectReplacementCharacter)));
            const QList<QTextImageFormat> images = reading.images();
            QCOMPARE(images.size(), sizes.size());
            QCOMPARE(fragmentsOf(*reading.document).size(), images.isEmpty() ? 1 : 3);
            for (int i = 0; i < images.size(); ++i) {
                QCOMPARE(QSizeF(images.at(i).width(), images.at(i).height()), sizes.at(i));
                QCOMPARE(images.at(i).stringProperty(ORVRtfProperty::ImageFileName), "Image%1"_s.arg(i + 1));
            }
        });
        add("no picture data", "a" + picture("", "\\pngblip", "this is no picture") + "b", "ab", {});
        add("cut off in the header", "a" + picture("", "\\pngblip", png(5, 5).left(20)) + "b", "ab", {});
        add("one byte", "a" + picture("", "\\jpegblip", "x") + "b", "ab", {});
        add("real metafile", "a" + picture("", "\\wmetafile8", QByteArray::fromHex("010009000003")) + "b",
            "ab", {});
        add("no hexadecimal digits", "a{\\pict\\pngblip xyz ???}b", "ab", {});
        add("nothing", "a{\\pict}b", "ab", {});
        add("text in front of the type", "a{\\pict\\picw5 text\\pngblip}b", "ab", {});
        const QByteArray digits = png(2, 2).toHex();
        add("data before a word", "a{\\pict\\pngblip\\picw2 " + digits + "}b", "ab", {});
        add("data behind a word", "a{\\pict\\pngblip " + digits + "\\picw2 ffffff}b", "a*b", {QSizeF(2, 2)});
        add("shape group", "a{\\*\\shppict" + pngPicture(2, 2) + "}{\\nonshppict" + pngPicture(3, 3) + "}b",
            "a*b", {QSizeF(2, 2)});
        add("embedded PDF",
            "a{\\*\\orvellinepdf{\\*\\pdffilename a.pdf}\n255044462d}b" + pngPicture(2, 2)
                + "c{\\pdffilename d}e",
            "ab*ce", {QSizeF(2, 2)});
        // A group without data leaves everything, also what was said of its picture, as it is.
        add("scale of an empty group",
            "a{\\pict\\picscalex50\\picscaley50\\pngblip}" + pngPicture(10, 20) + "b", "a*b",
            {QSizeF(5, 10)});
        const auto blank = [](int width, int height) {
            QImage picture(width, height, QImage::Format_Mono);
            picture.fill(0);
            return encoded(picture);
        };
        add("largest", "a" + picture("", "\\pngblip", blank(10000, 10000)) + "b", "a*b",
            {QSizeF(10000, 10000)});
        add("larger", "a" + picture("", "\\pngblip", blank(10000, 10001)) + "b", "ab", {});
    }

    void brokenPictureCommitsTheParagraph()
    {
        const Reading reading = readBody("{\\qc" + picture("", "\\pngblip", "no picture") + "}");
        QCOMPARE(reading.blockCount(), 1);
        QCOMPARE(dump(reading.blockFormat(0)), dump(Properties{{QTextFormat::BlockAlignment, 4}}));
    }

    void pictureSettingsEndWithThePicture()
    {
        const QByteArray words =
            "{\\*\\nisusfilename a.png}{\\*\\mathmlequation <mi>\\u960?</mi>}\\picwgoal1440"
            "\\pichgoal1440\\picscalex50\\picscaley50";
        for (const QByteArray& data : {png(3, 3), "no picture"_b}) {
            const QList<QTextImageFormat> images =
                readBody(picture(words, "\\jpegblip", data) + picture("", "", png(7, 9))).images();
            const QTextImageFormat format = images.last();
            QCOMPARE(QSizeF(format.width(), format.height()), QSizeF(7, 9));
            QCOMPARE(format.stringProperty(ORVRtfProperty::ImageFileName), "Image1"_s);
            QCOMPARE(format.stringProperty(ORVRtfProperty::ImageType), QString());
            QVERIFY(!format.hasProperty(ORVRtfProperty::MathML));
            QVERIFY(!format.hasProperty(ORVRtfProperty::SourceImageData));
            if (images.size() > 1)
                QCOMPARE(images.first().stringProperty(ORVRtfProperty::MathML), "<mi>π</mi>"_s);
            QCOMPARE(images.size(), data.startsWith("no") ? 1 : 2);
        }
    }

    ORV_ROWS(texts)
    {
        const Rows add([](const QByteArray& body, const QString& text) {
            const Reading reading = readBody(body);
            QCOMPARE(reading.status, 0);
            QCOMPARE(reading.text(), text);
        });
        add("text of a field outside its result", "a{\\field b{\\*\\fldinst c}d{\\fldrslt e}f}g", "aeg");
        add("field without a result", "a{\\field{\\*\\fldinst c}}g", "ag");
        add("headers and footers",
            "{\\header\\pard a\\par}{\\footer\\pard b\\par}{\\*\\headerl c}{\\footerr d}e", "a\nb\ncde");
        add("groups inside a destination belong to it", "a{\\*\\atnref b{\\b c}d}e{\\*\\listtable{f}}g",
            "aeg");
        add("groups restore the destination",
            "a{\\fonttbl{\\f0 b;}}c{\\colortbl d;}e{\\field f{\\fldrslt g}h}i", "acegi");
        add("alternative text: Unicode half is read", "a{\\upr{b}{\\*\\ud{c}}}d", "acd");
        add("alternative text: without inner groups", "a{\\upr{b}{\\*\\ud c}}d", "acd");
        add("alternative text: groups in the ANSI half", "a{\\upr{b{\\i x}y}{\\*\\ud{c}}}d", "acd");
        add("alternative text: marked", "a{\\*\\upr{b}{\\*\\ud{c}}}d", "acd");
        add("alternative text: bookmarks", "a{\\upr{\\*\\bkmkstart b}{\\*\\ud{\\*\\bkmkstart c}}}d", "ad");
        add("alternative text: twice", "{\\upr{a}{\\*\\ud b}}{\\upr{c}{\\*\\ud d}}", "bd");
        add("alternative text: line ends between", "a{\\upr\n{b}\n{\\*\\ud\n{c}}\n}d", "acd");
    }
};

ORV_TEST("destinations", TestDestinations, QGuiApplication)
#include "destinations.moc"
