#include "ORVGuiUtil.h"
#include "writerhelpers.h"

using namespace rtftest;

namespace {

QTextCharFormat link(const QString& target)
{
    return charFormat({{QTextFormat::IsAnchor, true}, {QTextFormat::AnchorHref, target}});
}

QTextCharFormat bookmark(const QString& name, const QTextCharFormat& format = QTextCharFormat())
{
    return with(format, {{ORVRtfProperty::BookmarkName, name}});
}

/*! A link's field around \a result. */
QByteArray field(const QByteArray& instruction, const QByteArray& result)
{
    return "{\\field{\\*\\fldinst " + instruction + "}{\\fldrslt" + result + "}}";
}

const QString PictureName = "picture"_s;

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

Story pictureStory(const QTextImageFormat& format, const QString& name = PictureName)
{
    return Story().addResource(name, redPixels()).addPicture(format);
}

/*! A picture that is shown in another size. */
QTextImageFormat sized(double width, double height)
{
    return with(picture(), {{QTextFormat::ImageWidth, width}, {QTextFormat::ImageHeight, height}});
}

/*! A pixel is 15 twips. */
QByteArray pictureGroup(const QByteArray& name,
                        const QByteArray& size = "\\picw2\\pich1\\picwgoal30\\pichgoal15")
{
    return "{\\*\\shppict{\\pict{\\*\\nisusfilename " + name + "}" + size + "\\pngblip " + png(redPixels())
        + "}}";
}

} // namespace

class TestWriterFragments : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(bodies)
    {
        const Rows add([](const Story& story, const QByteArray& written) {
            QCOMPARE(story.body(), firstParagraph() + written);
        });
        const QByteArray two = "{\\f0\\fs24\\b1 two}";
        add("runsStandInGroupsOfTheirOwn", Story().add("one").add("two", bold()).add("three"),
            run("one") + two + run("three"));
        addPictures(add);
        addLinks(add);

        const QByteArray start = "{\\*\\bkmkstart bm}";
        add("bookmarkIsWrittenWhereItEnds", Story().add("marked", bookmark("bm")).add("after"),
            run("marked") + start + run("after"));
        add("bookmarkEndKeepsItsSign", Story().add("marked", bookmark("@bm")).add("after"),
            run("marked") + "{\\*\\bkmkend @bm}" + run("after"));
        add("bookmarkOverTwoRunsIsWrittenOnce",
            Story().add("one", bookmark("bm")).add("two", bookmark("bm", bold())), run("one") + two + start);
        add("bookmarkOverTwoParagraphsIsWrittenOnce",
            Story()
                .add("one", bookmark("bm"))
                .paragraph()
                .add("two", bookmark("bm"))
                .paragraph()
                .add("three"),
            run("one") + newParagraph() + run("two") + start + newParagraph() + run("three"));
        add("neighbouringBookmarksAreBothWritten",
            Story().add("one", bookmark("a")).add("two", bookmark("@a")).add("three", bookmark("b")),
            run("one") + "{\\*\\bkmkstart a}" + run("two") + "{\\*\\bkmkend @a}" + run("three")
                + "{\\*\\bkmkstart b}");
        add("bookmarkAcrossAParagraphThatLacksIt",
            Story().add("one", bookmark("bm")).paragraph().add("x").paragraph().add("two", bookmark("bm")),
            run("one") + start + newParagraph() + run("x") + newParagraph() + run("two") + start);
        add("emptyBookmarkNameWritesNothing", Story().add("one", bookmark("")).add("two", bold()),
            run("one") + two);
        add("bookmarkOfALinkFollowsIt", Story().add("word", bookmark("bm", link("u"))).add("after"),
            field("HYPERLINK \"u\"", "\\f0\\fs24 word") + start + run("after"));
        add("bookmarkThatGoesOnBehindALinkIsWrittenOnce",
            Story().add("word", bookmark("bm", link("u"))).add("after", bookmark("bm")),
            field("HYPERLINK \"u\"", "\\f0\\fs24 word") + run("after") + start);
    }

    ORV_ROWS(cells)
    {
        const Rows add([](const QTextCharFormat& format, const QByteArray& one, const QByteArray& two) {
            ORV_CONTAINS(cellsWith(format).body(),
                         cellStart() + one + "\\cell " + cellStart() + two + "\\cell");
        });
        add("runs", bold(), "{\\f0\\fs24\\b1 one}", "{\\f0\\fs24\\b1 two}");
        add("linkEndsWithItsCell", link("u"), field("HYPERLINK \"u\"", "\\f0\\fs24 one"),
            field("HYPERLINK \"u\"", "\\f0\\fs24 two"));
        add("bookmarkEndsWithItsCell", bookmark("bm"), run("one") + "{\\*\\bkmkstart bm}",
            run("two") + "{\\*\\bkmkstart bm}");
    }

    ORV_ROWS(picturePosition)
    {
        using namespace ORVRtfProperty;
        const Rows add([](const QTextImageFormat& format, const QByteArray& position) {
            QCOMPARE(pictureStory(format).body(), firstParagraph() + position + pictureGroup("picture"));
        });
        static const char* const words[] = {"",           "\\super ",   "\\sub ",    "\\vertalc ",
                                            "\\vertalt ", "\\vertalb ", "\\vertalj "};
        for (int i = 0; i < 7; ++i) {
            add(qPrintable("vertical%1"_s.arg(i)), with(picture(), {{QTextFormat::TextVerticalAlignment, i}}),
                QByteArray(words[i]));
        }
        add("unknownVertical", with(picture(), {{QTextFormat::TextVerticalAlignment, 7}}), QByteArray());

        const QTextImageFormat named = with(picture(), {{PdfFileName, "a.pdf"_b}});
        add("shiftedUp", with(named, {{BaselineShift, 6}}), "\\up6 ");
        add("shiftedDown", with(named, {{BaselineShift, -6}}), "\\dn6 ");
        add("shiftedByNothing", with(named, {{BaselineShift, 0}}), "\\up0 ");
        add("shiftBeforeVertical",
            with(named, {{BaselineShift, -6}, {QTextFormat::TextVerticalAlignment, 3}}), "\\dn6 ");
        add("shiftWithoutName", with(picture(), {{BaselineShift, 6}}), QByteArray());
        add("shiftWithoutNameButVertical",
            with(picture(), {{BaselineShift, 6}, {QTextFormat::TextVerticalAlignment, 3}}), "\\vertalc ");
    }

    ORV_ROWS(pictureWithPdfIsWrittenAsPdf)
    {
        const Rows add([](const QVariant& name, const QByteArray& written) {
            QTextImageFormat format = with(picture(), {{ORVRtfProperty::PdfData, "%PDF"_b}});
            if (name.isValid())
                format.setProperty(ORVRtfProperty::PdfFileName, name);
            QCOMPARE(pictureStory(format).body(),
                     firstParagraph() + "{\\*\\orvellinepdf {{\\*\\pdffilename " + written + "}25504446}}");
        });
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

    ORV_ROWS(linkTargets)
    {
        const Rows add([](const QString& target, const QByteArray& written) {
            Story story;
            story.add("word", link(target)).add(" after");
            QCOMPARE(story.body(),
                     firstParagraph() + field("HYPERLINK \"" + written + "\"", "\\f0\\fs24 word")
                         + run(" after"));
            const Reading reading = rtftest::read(write(*story.document()));
            QCOMPARE(reading.status, 0);
            QCOMPARE(reading.format("word").anchorHref(), target);
            QCOMPARE(reading.format("after").anchorHref(), QString());
        });
        add("braces", "a{b}c", "a\\{b\\}c");
        add("backslash", "c:\\a", "c:\\\\a");
        add("openBrace", "{", "\\{");
        add("closingBraces", "}}", "\\}\\}");
        add("percentSigns", "a%20%1", "a%20%1");
        add("fragment", "#part", "#part");
        add("quotes", "a\"b", "a\"b");
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

private:
    template <typename AddRow>
    static void addPictures(const AddRow& add)
    {
        const QByteArray group = pictureGroup("picture");
        add("pictureIsWrittenAsPng", pictureStory(picture()), group);
        add("picturesSideBySideAreAllWritten",
            pictureStory(picture()).addPicture(picture()).addPicture(picture()), group + group + group);
        add("pictureBetweenRuns",
            Story().addResource(PictureName, redPixels()).add("a").addPicture(picture()).add("b"),
            run("a") + group + run("b"));
        add("pictureGoalIsItsDisplaySize: scaled", pictureStory(sized(20, 10)),
            pictureGroup("picture", "\\picw2\\pich1\\picwgoal300\\pichgoal150"));
        add("pictureGoalIsItsDisplaySize: fractionIsCut", pictureStory(sized(20.9, 10.1)),
            pictureGroup("picture", "\\picw2\\pich1\\picwgoal300\\pichgoal150"));
        add("pictureGoalIsItsDisplaySize: none", pictureStory(sized(0, 0)),
            pictureGroup("picture", "\\picw2\\pich1\\picwgoal0\\pichgoal0"));
        add("pictureOfApplicationResourcesIsLookedUpThere",
            pictureStory(picture(":/images/x.png"), "qrc:/images/x.png"_s), pictureGroup(":/images/x.png"));
        add("pictureNameIsEscaped", pictureStory(picture("a{b}"), "a{b}"_s), pictureGroup("a\\{b\\}"));
        add("pictureThatIsMissingWritesNothing", Story().add("a").addPicture(picture()).add("b"),
            run("a") + run("b"));
        add("pictureThatIsMissingKeepsItsPosition",
            Story().addPicture(with(picture(), {{QTextFormat::TextVerticalAlignment, 4}})).add("b"),
            "\\vertalt " + run("b"));
        add("pictureHasItsFormula",
            pictureStory(with(picture(), {{ORVRtfProperty::MathML, "<math>{x}</math>"_s}})),
            pictureGroup("picture}{\\*\\mathmlequation <math>\\{x\\}</math>"));
        add("pictureWithEmptyPdfIsWrittenAsPicture",
            pictureStory(with(picture(), {{ORVRtfProperty::PdfData, ""_b}})), group);

        const auto pictureOf = [](const QByteArray& data, const QString& type) {
            return pictureStory(with(
                picture(), {{ORVRtfProperty::SourceImageData, data}, {ORVRtfProperty::ImageType, type}}));
        };
        for (const char* type : {"JPEG", "jpg", "Jpeg"}) {
            add(qPrintable("pictureOfJpegDataKeepsItsBytes: %1"_s.arg(QLatin1String(type))),
                pictureOf("\0\xab\xff\xd8"_b, type),
                "{\\*\\shppict{\\pict{\\*\\nisusfilename picture}\\picw2\\pich1\\picwgoal30\\pichgoal15"
                "\\jpegblip 00abffd8}}");
        }
        add("pictureOfOtherDataIsEncodedAnew: otherType", pictureOf("bytes", "PNG"_s), group);
        add("pictureOfOtherDataIsEncodedAnew: noType", pictureOf("bytes", QString()), group);
        add("pictureOfOtherDataIsEncodedAnew: noBytes", pictureOf("", "JPEG"_s), group);
    }

    template <typename AddRow>
    static void addLinks(const AddRow& add)
    {
        const auto pageLink = [](const QString& page) {
            return with(link("u"), {{ORVRtfProperty::PageReference, page}});
        };
        const QTextCharFormat anchorOnly = charFormat({{QTextFormat::IsAnchor, true}});
        const QTextCharFormat targetOnly = charFormat({{QTextFormat::AnchorHref, "u"_s}});
        const QByteArray one = field("HYPERLINK \"u\"", "\\f0\\fs24 one");
        const QByteArray two = field("HYPERLINK \"u\"", "\\f0\\fs24 two");
        add("linkOfOneRun", Story().add("word", link("http://localhost/a b")),
            field("HYPERLINK \"http://localhost/a b\"", "\\f0\\fs24 word"));
        add("linkOfTwoRuns", Story().add("one", link("u")).add("two", bold(link("u"))),
            field("HYPERLINK \"u\"", run("one") + "{\\f0\\fs24\\b1 two}"));
        add("linkOfThreeRuns",
            Story()
                .add("one", link("u"))
                .add("two", with(link("u"), {{QTextFormat::FontItalic, true}}))
                .add("three", bold(link("u"))),
            field("HYPERLINK \"u\"", run("one") + "{\\f0\\fs24\\i1 two}{\\f0\\fs24\\b1 three}"));
        add("linkToAPage", Story().add("word", pageLink("ch{1}"_s)),
            field("HYPERLINK \\\\l ch\\{1\\}", "\\f0\\fs24 word"));
        add("anchorWithoutTargetIsNoLink", Story().add("one", anchorOnly).add("two", targetOnly),
            run("one") + run("two"));
        add("neighbouringLinksAreTwoFields", Story().add("one", link("a")).add("two", link("b")),
            field("HYPERLINK \"a\"", "\\f0\\fs24 one") + field("HYPERLINK \"b\"", "\\f0\\fs24 two"));
        add("neighbouringPageLinksAreTwoFields",
            Story().add("one", pageLink("a"_s)).add("two", pageLink("b"_s)).add("three", link("u")),
            field("HYPERLINK \\\\l a", "\\f0\\fs24 one") + field("HYPERLINK \\\\l b", "\\f0\\fs24 two")
                + field("HYPERLINK \"u\"", "\\f0\\fs24 three"));
        add("linkEndsWithItsParagraph",
            Story().add("one", link("u")).paragraph().add("two", link("u")).paragraph().add("three"),
            one + newParagraph() + two + newParagraph() + run("three"));
        add("textAfterALinkIsOutside", Story().add("before").add("one", link("u")).add("after"),
            run("before") + one + run("after"));
    }
};

ORV_TEST("writer_fragments", TestWriterFragments, QGuiApplication)
#include "fragments.moc"
