#include "ORVGuiUtil.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

QTextCharFormat link(const QString& target)
{
    QTextCharFormat format;
    format.setAnchor(true);
    format.setAnchorHref(target);
    return format;
}

QTextCharFormat bookmark(const QString& name, QTextCharFormat format = QTextCharFormat())
{
    format.setProperty(ORVRtfProperty::BookmarkName, name);
    return format;
}

/*! A link's field around \a result. */
QByteArray field(const QByteArray& instruction, const QByteArray& result)
{
    return "{\\field{\\*\\fldinst " + instruction + "}{\\fldrslt" + result + "}}";
}

const QString PictureName = "picture"_s;

/*! Two red pixels side by side. */
QImage redPixels()
{
    QImage image(2, 1, QImage::Format_RGB32);
    image.fill(Qt::red);
    return image;
}

QByteArray png(const QImage& image)
{
    return ORVGuiUtil::toByteArray(image, "PNG", -1).toHex();
}

QTextImageFormat picture(const QString& name = PictureName)
{
    QTextImageFormat format;
    format.setName(name);
    format.setWidth(2);
    format.setHeight(1);
    return format;
}

template <typename Value>
QTextImageFormat with(QTextImageFormat format, int property, const Value& value)
{
    format.setProperty(property, value);
    return format;
}

Story pictureStory(const QTextImageFormat& format)
{
    Story story;
    story.addResource(PictureName, redPixels()).addPicture(format);
    return story;
}

/*! A pixel is 15 twips. */
QByteArray pictureGroup(const QByteArray& name,
                        const QByteArray& size = "\\picw2\\pich1\\picwgoal30\\pichgoal15")
{
    return "{\\*\\shppict{\\pict{\\*\\nisusfilename " + name + "}" + size + "\\pngblip " + png(redPixels())
        + "}}";
}

} // namespace

Q_DECLARE_METATYPE(QTextImageFormat)

class TestWriterFragments : public QObject {
    Q_OBJECT

private slots:
    void runsStandInGroupsOfTheirOwn()
    {
        Story story;
        story.add("a").add("b", bold()).add("c");
        QCOMPARE(story.body(), firstParagraph() + run("a") + "{\\f0\\fs24\\b1 b}" + run("c"));
    }

    void runsInCells()
    {
        Story story;
        QTextTable* table = story.cursor().insertTable(1, 1);
        table->cellAt(0, 0).firstCursorPosition().insertText("a", bold());
        const QByteArray body = story.body();
        QVERIFY2(body.contains("\n\\pard\\plain \\intbl\\itap1{\\f0\\fs24\\b1 a}\\cell"), body.constData());
    }

    void pictureIsWrittenAsPng()
    {
        QCOMPARE(pictureStory(picture()).body(), firstParagraph() + pictureGroup("picture"));
    }

    void pictureGoalIsItsDisplaySize_data()
    {
        const Columns<double, double, QByteArray> add("width", "height", "goals");
        add("scaled", 20.0, 10.0, "\\picwgoal300\\pichgoal150");
        add("fractionIsCut", 20.9, 10.1, "\\picwgoal300\\pichgoal150");
        add("none", 0.0, 0.0, "\\picwgoal0\\pichgoal0");
    }

    void pictureGoalIsItsDisplaySize()
    {
        FETCH(double, width, double, height, QByteArray, goals);
        QTextImageFormat format = picture();
        format.setWidth(width);
        format.setHeight(height);
        QCOMPARE(pictureStory(format).body(),
                 firstParagraph() + pictureGroup("picture", "\\picw2\\pich1" + goals));
    }

    void picturePosition_data()
    {
        using namespace ORVRtfProperty;
        const Columns<QTextImageFormat, QByteArray> add("format", "position");
        static const char* const words[] = {"",           "\\super ",   "\\sub ",    "\\vertalc ",
                                            "\\vertalt ", "\\vertalb ", "\\vertalj "};
        for (int i = 0; i < 7; ++i) {
            add(qPrintable("vertical%1"_s.arg(i)), with(picture(), QTextFormat::TextVerticalAlignment, i),
                QByteArray(words[i]));
        }
        add("unknownVertical", with(picture(), QTextFormat::TextVerticalAlignment, 7), QByteArray());

        const QTextImageFormat named = with(picture(), PdfFileName, "a.pdf"_b);
        add("shiftedUp", with(named, BaselineShift, 6), "\\up6 ");
        add("shiftedDown", with(named, BaselineShift, -6), "\\dn6 ");
        add("shiftedByNothing", with(named, BaselineShift, 0), "\\up0 ");
        add("shiftBeforeVertical",
            with(with(named, BaselineShift, -6), QTextFormat::TextVerticalAlignment, 3), "\\dn6 ");
        add("shiftWithoutName", with(picture(), BaselineShift, 6), QByteArray());
        add("shiftWithoutNameButVertical",
            with(with(picture(), BaselineShift, 6), QTextFormat::TextVerticalAlignment, 3), "\\vertalc ");
    }

    void picturePosition()
    {
        FETCH(QTextImageFormat, format, QByteArray, position);
        QCOMPARE(pictureStory(format).body(), firstParagraph() + position + pictureGroup("picture"));
    }

    void pictureOfJpegDataKeepsItsBytes_data()
    {
        const Columns<QString> add("type");
        add("JPEG", "JPEG");
        add("jpg", "jpg");
        add("Jpeg", "Jpeg");
    }

    void pictureOfJpegDataKeepsItsBytes()
    {
        FETCH(QString, type);
        const QTextImageFormat format =
            with(with(picture(), ORVRtfProperty::SourceImageData, QByteArray("\x00\xab\xff\xd8", 4)),
                 ORVRtfProperty::ImageType, type);
        QCOMPARE(
            pictureStory(format).body(),
            firstParagraph()
                + "{\\*\\shppict{\\pict{\\*\\nisusfilename picture}\\picw2\\pich1\\picwgoal30\\pichgoal15"
                  "\\jpegblip 00abffd8}}");
    }

    void pictureOfOtherDataIsEncodedAnew_data()
    {
        const Columns<QByteArray, QString> add("data", "type");
        add("otherType", "bytes", "PNG");
        add("noType", "bytes", QString());
        add("noBytes", "", "JPEG");
    }

    void pictureOfOtherDataIsEncodedAnew()
    {
        FETCH(QByteArray, data, QString, type);
        const QTextImageFormat format =
            with(with(picture(), ORVRtfProperty::SourceImageData, data), ORVRtfProperty::ImageType, type);
        QCOMPARE(pictureStory(format).body(), firstParagraph() + pictureGroup("picture"));
    }

    void pictureOfApplicationResourcesIsLookedUpThere()
    {
        Story story;
        story.addResource("qrc:/images/x.png", redPixels()).addPicture(picture(":/images/x.png"));
        QCOMPARE(story.body(), firstParagraph() + pictureGroup(":/images/x.png"));
    }

    void pictureThatIsMissingWritesNothing()
    {
        Story story;
        story.add("a").addPicture(picture()).add("b");
        QCOMPARE(story.body(), firstParagraph() + run("a") + run("b"));
    }

    void pictureThatIsMissingKeepsItsPosition()
    {
        Story story;
        story.addPicture(with(picture(), QTextFormat::TextVerticalAlignment, 4)).add("b");
        QCOMPARE(story.body(), firstParagraph() + "\\vertalt " + run("b"));
    }

    void picturesSideBySideAreAllWritten()
    {
        Story story = pictureStory(picture());
        story.addPicture(picture()).addPicture(picture());
        const QByteArray group = pictureGroup("picture");
        QCOMPARE(story.body(), firstParagraph() + group + group + group);
    }

    void pictureHasItsFormula()
    {
        const QTextImageFormat format = with(picture(), ORVRtfProperty::MathML, "<math>{x}</math>"_s);
        QCOMPARE(
            pictureStory(format).body(),
            firstParagraph()
                + "{\\*\\shppict{\\pict{\\*\\nisusfilename picture}{\\*\\mathmlequation <math>\\{x\\}</math>}"
                  "\\picw2\\pich1\\picwgoal30\\pichgoal15\\pngblip "
                + png(redPixels()) + "}}");
    }

    void pictureNameIsEscaped()
    {
        Story story;
        story.addResource("a{b}", redPixels()).addPicture(picture("a{b}"));
        QCOMPARE(story.body(), firstParagraph() + pictureGroup("a\\{b\\}"));
    }

    void pictureWithPdfIsWrittenAsPdf_data()
    {
        const Columns<QVariant, QByteArray> add("name", "written");
        add("bare", QVariant("foo"_b), "MathTypeEdEqfoo");
        add("prefixed", QVariant("MathTypeEdEqfoo"_b), "MathTypeEdEqfoo");
        add("prefixedTwice", QVariant("MathTypeEdEqMathTypeEdEqfoo"_b), "MathTypeEdEqMathTypeEdEqfoo");
        add("string", QVariant("foo"_s), "MathTypeEdEqfoo");
        add("missing", QVariant(), "MathTypeEdEq");
        add("special", QVariant("{\\}"_b), "MathTypeEdEq\\{\\\\\\}");
        add("latin1", QVariant("\xe9"_b), "MathTypeEdEq\\loch\\af0\\hich\\af0\\dbch\\af0\\uc1\\u233\\'E9");
        add("utf8", QVariant("\xc3\xa9"_b), "MathTypeEdEq\\loch\\af0\\hich\\af0\\dbch\\af0\\uc1\\u233\\'E9");
        add("zero byte", QVariant(QByteArray("a\0b", 3)), "MathTypeEdEqa\\'00b");
    }

    void pictureWithPdfIsWrittenAsPdf()
    {
        FETCH(QVariant, name, QByteArray, written);
        QTextImageFormat format = with(picture(), ORVRtfProperty::PdfData, "%PDF"_b);
        if (name.isValid())
            format.setProperty(ORVRtfProperty::PdfFileName, name);
        QCOMPARE(pictureStory(format).body(),
                 firstParagraph() + "{\\*\\orvellinepdf {{\\*\\pdffilename " + written + "}25504446}}");
    }

    void pictureWithEmptyPdfIsWrittenAsPicture()
    {
        const QTextImageFormat format = with(picture(), ORVRtfProperty::PdfData, ""_b);
        QCOMPARE(pictureStory(format).body(), firstParagraph() + pictureGroup("picture"));
    }

    void pictureBetweenRuns()
    {
        Story story;
        story.addResource(PictureName, redPixels()).add("a").addPicture(picture()).add("b");
        QCOMPARE(story.body(), firstParagraph() + run("a") + pictureGroup("picture") + run("b"));
    }

    void pictureInALink()
    {
        QTextImageFormat format = picture();
        format.merge(link("u"));
        Story story;
        story.addResource(PictureName, redPixels()).add("a").addPicture(format).add("b");
        // A blank that ends the word in front of the picture's group means nothing.
        const QByteArray body = story.body().replace("\\fldrslt {", "\\fldrslt{");
        QCOMPARE(body,
                 firstParagraph() + run("a") + field("HYPERLINK \"u\"", pictureGroup("picture")) + run("b"));
    }

    void linkOfOneRun()
    {
        Story story;
        story.add("word", link("http://localhost/a b"));
        QCOMPARE(story.body(),
                 firstParagraph() + field("HYPERLINK \"http://localhost/a b\"", "\\f0\\fs24 word"));
    }

    void linkOfTwoRuns()
    {
        Story story;
        story.add("one", link("u")).add("two", bold(link("u")));
        QCOMPARE(story.body(),
                 firstParagraph() + field("HYPERLINK \"u\"", run("one") + "{\\f0\\fs24\\b1 two}"));
    }

    void linkTargets_data()
    {
        const Columns<QString, QByteArray> add("target", "written");
        add("braces", "a{b}c", "a\\{b\\}c");
        add("backslash", "c:\\a", "c:\\\\a");
        add("openBrace", "{", "\\{");
        add("closingBraces", "}}", "\\}\\}");
        add("percentSigns", "a%20%1", "a%20%1");
        add("fragment", "#part", "#part");
        add("quotes", "a\"b", "a\"b");
    }

    void linkTargets()
    {
        FETCH(QString, target, QByteArray, written);
        Story story;
        story.add("word", link(target)).add(" after");
        QCOMPARE(story.body(),
                 firstParagraph() + field("HYPERLINK \"" + written + "\"", "\\f0\\fs24 word")
                     + run(" after"));
        const Reading reading = rtftest::read(write(*story.document()));
        QCOMPARE(reading.status, 0);
        QCOMPARE(reading.format("word").anchorHref(), target);
        QCOMPARE(reading.format("after").anchorHref(), QString());
    }

    void linkToAPage()
    {
        QTextCharFormat format = link("u");
        format.setProperty(ORVRtfProperty::PageReference, "ch{1}"_s);
        Story story;
        story.add("word", format);
        QCOMPARE(story.body(), firstParagraph() + field("HYPERLINK \\\\l ch\\{1\\}", "\\f0\\fs24 word"));
    }

    void anchorWithoutTargetIsNoLink()
    {
        QTextCharFormat format;
        format.setAnchor(true);
        QTextCharFormat noAnchor;
        noAnchor.setAnchorHref("u");
        Story story;
        story.add("one", format).add("two", noAnchor);
        QCOMPARE(story.body(), firstParagraph() + run("one") + run("two"));
    }

    void neighbouringLinksAreTwoFields()
    {
        Story story;
        story.add("one", link("a")).add("two", link("b"));
        QCOMPARE(story.body(),
                 firstParagraph() + field("HYPERLINK \"a\"", "\\f0\\fs24 one")
                     + field("HYPERLINK \"b\"", "\\f0\\fs24 two"));
    }

    void neighbouringPageLinksAreTwoFields()
    {
        QTextCharFormat first = link("u");
        first.setProperty(ORVRtfProperty::PageReference, "a"_s);
        QTextCharFormat second = link("u");
        second.setProperty(ORVRtfProperty::PageReference, "b"_s);
        Story story;
        story.add("one", first).add("two", second).add("three", link("u"));
        QCOMPARE(story.body(),
                 firstParagraph() + field("HYPERLINK \\\\l a", "\\f0\\fs24 one")
                     + field("HYPERLINK \\\\l b", "\\f0\\fs24 two")
                     + field("HYPERLINK \"u\"", "\\f0\\fs24 three"));
    }

    void neighbouringLinksWithOneTargetAreOneField()
    {
        QTextCharFormat named = link("u");
        named.setFontItalic(true);
        Story story;
        story.add("one", link("u")).add("two", named).add("three", bold(link("u")));
        QCOMPARE(story.body().count("\\field"), 1);
        const Reading reading = rtftest::read(write(*story.document()));
        QVERIFY(reading.format("two").fontItalic());
        QVERIFY(!reading.format("three").fontItalic());
        QCOMPARE(reading.format("three").fontWeight(), int(QFont::Bold));
    }

    void linkEndsWithItsParagraph()
    {
        Story story;
        story.add("one", link("u")).paragraph().add("two", link("u")).paragraph().add("three");
        QCOMPARE(story.body(),
                 firstParagraph() + field("HYPERLINK \"u\"", "\\f0\\fs24 one") + newParagraph()
                     + field("HYPERLINK \"u\"", "\\f0\\fs24 two") + newParagraph() + run("three"));
    }

    void linkEndsWithItsCell()
    {
        Story story;
        QTextTable* table = story.cursor().insertTable(1, 2);
        table->cellAt(0, 0).firstCursorPosition().insertText("one", link("u"));
        table->cellAt(0, 1).firstCursorPosition().insertText("two", link("u"));
        const QByteArray begin = "\n\\pard\\plain \\intbl\\itap1";
        const QByteArray cells = begin + field("HYPERLINK \"u\"", "\\f0\\fs24 one") + "\\cell " + begin
            + field("HYPERLINK \"u\"", "\\f0\\fs24 two") + "\\cell";
        const QByteArray body = story.body();
        QVERIFY2(body.contains(cells), body.constData());
    }

    void textAfterALinkIsOutside()
    {
        Story story;
        story.add("before").add("link", link("u")).add("after");
        QCOMPARE(story.body(),
                 firstParagraph() + run("before") + field("HYPERLINK \"u\"", "\\f0\\fs24 link")
                     + run("after"));
    }

    void decoratedLink()
    {
        WriteSettings settings;
        settings.decorateHyperlinks = true;
        settings.hyperlinksColor = QColor(0, 128, 0);
        Story story;
        story.add("word", link("u"));
        // Black and white are colours 1 and 2 once there are colours.
        QCOMPARE(story.body(settings),
                 firstParagraph() + field("HYPERLINK \"u\"", "\\f0\\fs24\\ul\\ulc3\\cf3 word"));
    }

    void bookmarkIsWrittenWhereItEnds()
    {
        Story story;
        story.add("marked", bookmark("bm")).add("after");
        QCOMPARE(story.body(), firstParagraph() + run("marked") + "{\\*\\bkmkstart bm}" + run("after"));
    }

    void bookmarkEndKeepsItsSign()
    {
        Story story;
        story.add("marked", bookmark("@bm")).add("after");
        QCOMPARE(story.body(), firstParagraph() + run("marked") + "{\\*\\bkmkend @bm}" + run("after"));
    }

    void bookmarkOverTwoRunsIsWrittenOnce()
    {
        Story story;
        story.add("one", bookmark("bm")).add("two", bookmark("bm", bold()));
        QCOMPARE(story.body(),
                 firstParagraph() + run("one") + "{\\f0\\fs24\\b1 two}" + "{\\*\\bkmkstart bm}");
    }

    void bookmarkOverTwoParagraphsIsWrittenOnce()
    {
        Story story;
        story.add("one", bookmark("bm")).paragraph().add("two", bookmark("bm")).paragraph().add("three");
        QCOMPARE(story.body(),
                 firstParagraph() + run("one") + newParagraph() + run("two") + "{\\*\\bkmkstart bm}"
                     + newParagraph() + run("three"));
    }

    void bookmarkAcrossAParagraphThatLacksIt()
    {
        Story story;
        story.add("one", bookmark("bm")).paragraph().add("x").paragraph().add("two", bookmark("bm"));
        QCOMPARE(story.body().count("{\\*\\bkmkstart bm}"), 2);
    }

    void neighbouringBookmarksAreBothWritten()
    {
        Story story;
        story.add("one", bookmark("a")).add("two", bookmark("@a")).add("three", bookmark("b"));
        QCOMPARE(story.body(),
                 firstParagraph() + run("one") + "{\\*\\bkmkstart a}" + run("two") + "{\\*\\bkmkend @a}"
                     + run("three") + "{\\*\\bkmkstart b}");
    }

    void emptyBookmarkNameWritesNothing()
    {
        Story story;
        story.add("one", bookmark("")).add("two", bold());
        QCOMPARE(story.body(), firstParagraph() + run("one") + "{\\f0\\fs24\\b1 two}");
    }

    void bookmarkNamesAreEscaped()
    {
        Story story;
        story.add("one", bookmark("a{b}\\c\"d")).add("two", bookmark("@}}"));
        QCOMPARE(story.body(),
                 firstParagraph() + run("one") + "{\\*\\bkmkstart a\\{b\\}\\\\c\"d}" + run("two")
                     + "{\\*\\bkmkend @\\}\\}}");
        QCOMPARE(rtftest::read(write(*story.document())).text(), "onetwo"_s);
    }

    void bookmarkOfALinkFollowsIt()
    {
        Story story;
        story.add("word", bookmark("bm", link("u"))).add("after");
        QCOMPARE(story.body(),
                 firstParagraph() + field("HYPERLINK \"u\"", "\\f0\\fs24 word") + "{\\*\\bkmkstart bm}"
                     + run("after"));
    }

    void bookmarkThatGoesOnBehindALinkIsWrittenOnce()
    {
        Story story;
        story.add("word", bookmark("bm", link("u"))).add("after", bookmark("bm"));
        QCOMPARE(story.body(),
                 firstParagraph() + field("HYPERLINK \"u\"", "\\f0\\fs24 word") + run("after")
                     + "{\\*\\bkmkstart bm}");
    }

    void bookmarkEndsWithItsCell()
    {
        Story story;
        QTextTable* table = story.cursor().insertTable(1, 2);
        table->cellAt(0, 0).firstCursorPosition().insertText("one", bookmark("bm"));
        table->cellAt(0, 1).firstCursorPosition().insertText("two", bookmark("bm"));
        const QByteArray body = story.body();
        QVERIFY2(body.contains(run("one") + "{\\*\\bkmkstart bm}\\cell"), body.constData());
        QVERIFY2(body.contains(run("two") + "{\\*\\bkmkstart bm}\\cell"), body.constData());
    }
};

ORV_TEST("writer_fragments", TestWriterFragments, QGuiApplication)
#include "fragments.moc"
