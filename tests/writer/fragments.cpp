#include "ORVGuiUtil.h"
#include "ORVRtfProperties.h"
#include "rtfstory.h"

#include <QtCore/QUrl>
#include <QtGui/QImage>
#include <QtGui/QTextTable>
#include <QtTest/QtTest>

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

const QString PictureName = QStringLiteral("picture");

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
    void runsStandInGroupsOfTheirOwn();
    void runsInCells();

    void pictureIsWrittenAsPng();
    void pictureGoalIsItsDisplaySize_data();
    void pictureGoalIsItsDisplaySize();
    void picturePosition_data();
    void picturePosition();
    void pictureOfJpegDataKeepsItsBytes_data();
    void pictureOfJpegDataKeepsItsBytes();
    void pictureOfOtherDataIsEncodedAnew_data();
    void pictureOfOtherDataIsEncodedAnew();
    void pictureOfApplicationResourcesIsLookedUpThere();
    void pictureThatIsMissingWritesNothing();
    void pictureThatIsMissingKeepsItsPosition();
    void picturesSideBySideAreAllWritten();
    void pictureHasItsFormula();
    void pictureNameIsEscaped();
    void pictureWithPdfIsWrittenAsPdf_data();
    void pictureWithPdfIsWrittenAsPdf();
    void pictureWithEmptyPdfIsWrittenAsPicture();
    void pictureBetweenRuns();
    void pictureInALink();

    void linkOfOneRun();
    void linkOfTwoRuns();
    void linkTargets_data();
    void linkTargets();
    void linkToAPage();
    void anchorWithoutTargetIsNoLink();
    void neighbouringLinksAreTwoFields();
    void neighbouringPageLinksAreTwoFields();
    void neighbouringLinksWithOneTargetAreOneField();
    void linkEndsWithItsParagraph();
    void linkEndsWithItsCell();
    void textAfterALinkIsOutside();
    void decoratedLink();

    void bookmarkIsWrittenWhereItEnds();
    void bookmarkEndKeepsItsSign();
    void bookmarkOverTwoRunsIsWrittenOnce();
    void bookmarkOverTwoParagraphsIsWrittenOnce();
    void bookmarkAcrossAParagraphThatLacksIt();
    void neighbouringBookmarksAreBothWritten();
    void emptyBookmarkNameWritesNothing();
    void bookmarkNamesAreEscaped();
    void bookmarkOfALinkFollowsIt();
    void bookmarkThatGoesOnBehindALinkIsWrittenOnce();
    void bookmarkEndsWithItsCell();
};

void TestWriterFragments::runsStandInGroupsOfTheirOwn()
{
    Story story;
    story.add("a").add("b", bold()).add("c");
    QCOMPARE(story.body(), firstParagraph() + run("a") + "{\\f0\\fs24\\b1 b}" + run("c"));
}

void TestWriterFragments::runsInCells()
{
    Story story;
    QTextTable* table = story.cursor().insertTable(1, 1);
    table->cellAt(0, 0).firstCursorPosition().insertText("a", bold());
    const QByteArray body = story.body();
    QVERIFY2(body.contains("\n\\pard\\plain \\intbl\\itap1{\\f0\\fs24\\b1 a}\\cell"), body.constData());
}

void TestWriterFragments::pictureIsWrittenAsPng()
{
    QCOMPARE(pictureStory(picture()).body(), firstParagraph() + pictureGroup("picture"));
}

void TestWriterFragments::pictureGoalIsItsDisplaySize_data()
{
    QTest::addColumn<double>("width");
    QTest::addColumn<double>("height");
    QTest::addColumn<QByteArray>("goals");

    QTest::newRow("scaled") << 20.0 << 10.0 << QByteArray("\\picwgoal300\\pichgoal150");
    QTest::newRow("fractionIsCut") << 20.9 << 10.1 << QByteArray("\\picwgoal300\\pichgoal150");
    QTest::newRow("none") << 0.0 << 0.0 << QByteArray("\\picwgoal0\\pichgoal0");
}

void TestWriterFragments::pictureGoalIsItsDisplaySize()
{
    QFETCH(double, width);
    QFETCH(double, height);
    QFETCH(QByteArray, goals);
    QTextImageFormat format = picture();
    format.setWidth(width);
    format.setHeight(height);
    QCOMPARE(pictureStory(format).body(),
             firstParagraph() + pictureGroup("picture", "\\picw2\\pich1" + goals));
}

void TestWriterFragments::picturePosition_data()
{
    using namespace ORVRtfProperty;
    QTest::addColumn<QTextImageFormat>("format");
    QTest::addColumn<QByteArray>("position");

    static const char* const words[] = {"",           "\\super ",   "\\sub ",    "\\vertalc ",
                                        "\\vertalt ", "\\vertalb ", "\\vertalj "};
    for (int i = 0; i < 7; ++i) {
        QTest::newRow(qPrintable(QStringLiteral("vertical%1").arg(i)))
            << with(picture(), QTextFormat::TextVerticalAlignment, i) << QByteArray(words[i]);
    }
    QTest::newRow("unknownVertical") << with(picture(), QTextFormat::TextVerticalAlignment, 7)
                                     << QByteArray();

    const QTextImageFormat named = with(picture(), PdfFileName, QByteArray("a.pdf"));
    QTest::newRow("shiftedUp") << with(named, BaselineShift, 6) << QByteArray("\\up6 ");
    QTest::newRow("shiftedDown") << with(named, BaselineShift, -6) << QByteArray("\\dn6 ");
    QTest::newRow("shiftedByNothing") << with(named, BaselineShift, 0) << QByteArray("\\up0 ");
    QTest::newRow("shiftBeforeVertical")
        << with(with(named, BaselineShift, -6), QTextFormat::TextVerticalAlignment, 3)
        << QByteArray("\\dn6 ");
    QTest::newRow("shiftWithoutName") << with(picture(), BaselineShift, 6) << QByteArray();
    QTest::newRow("shiftWithoutNameButVertical")
        << with(with(picture(), BaselineShift, 6), QTextFormat::TextVerticalAlignment, 3)
        << QByteArray("\\vertalc ");
}

void TestWriterFragments::picturePosition()
{
    QFETCH(QTextImageFormat, format);
    QFETCH(QByteArray, position);
    QCOMPARE(pictureStory(format).body(), firstParagraph() + position + pictureGroup("picture"));
}

void TestWriterFragments::pictureOfJpegDataKeepsItsBytes_data()
{
    QTest::addColumn<QString>("type");

    QTest::newRow("JPEG") << QStringLiteral("JPEG");
    QTest::newRow("jpg") << QStringLiteral("jpg");
    QTest::newRow("Jpeg") << QStringLiteral("Jpeg");
}

void TestWriterFragments::pictureOfJpegDataKeepsItsBytes()
{
    QFETCH(QString, type);
    const QTextImageFormat format =
        with(with(picture(), ORVRtfProperty::SourceImageData, QByteArray("\x00\xab\xff\xd8", 4)),
             ORVRtfProperty::ImageType, type);
    QCOMPARE(pictureStory(format).body(),
             firstParagraph()
                 + "{\\*\\shppict{\\pict{\\*\\nisusfilename picture}\\picw2\\pich1\\picwgoal30\\pichgoal15"
                   "\\jpegblip 00abffd8}}");
}

void TestWriterFragments::pictureOfOtherDataIsEncodedAnew_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("type");

    QTest::newRow("otherType") << QByteArray("bytes") << QStringLiteral("PNG");
    QTest::newRow("noType") << QByteArray("bytes") << QString();
    QTest::newRow("noBytes") << QByteArray("") << QStringLiteral("JPEG");
}

void TestWriterFragments::pictureOfOtherDataIsEncodedAnew()
{
    QFETCH(QByteArray, data);
    QFETCH(QString, type);
    const QTextImageFormat format =
        with(with(picture(), ORVRtfProperty::SourceImageData, data), ORVRtfProperty::ImageType, type);
    QCOMPARE(pictureStory(format).body(), firstParagraph() + pictureGroup("picture"));
}

void TestWriterFragments::pictureOfApplicationResourcesIsLookedUpThere()
{
    Story story;
    story.addResource("qrc:/images/x.png", redPixels()).addPicture(picture(":/images/x.png"));
    QCOMPARE(story.body(), firstParagraph() + pictureGroup(":/images/x.png"));
}

void TestWriterFragments::pictureThatIsMissingWritesNothing()
{
    Story story;
    story.add("a").addPicture(picture()).add("b");
    QCOMPARE(story.body(), firstParagraph() + run("a") + run("b"));
}

void TestWriterFragments::pictureThatIsMissingKeepsItsPosition()
{
    Story story;
    story.addPicture(with(picture(), QTextFormat::TextVerticalAlignment, 4)).add("b");
    QCOMPARE(story.body(), firstParagraph() + "\\vertalt " + run("b"));
}

void TestWriterFragments::picturesSideBySideAreAllWritten()
{
    Story story = pictureStory(picture());
    story.addPicture(picture()).addPicture(picture());
    const QByteArray group = pictureGroup("picture");
    QCOMPARE(story.body(), firstParagraph() + group + group + group);
}

void TestWriterFragments::pictureHasItsFormula()
{
    const QTextImageFormat format =
        with(picture(), ORVRtfProperty::MathML, QStringLiteral("<math>{x}</math>"));
    QCOMPARE(
        pictureStory(format).body(),
        firstParagraph()
            + "{\\*\\shppict{\\pict{\\*\\nisusfilename picture}{\\*\\mathmlequation <math>\\{x\\}</math>}"
              "\\picw2\\pich1\\picwgoal30\\pichgoal15\\pngblip "
            + png(redPixels()) + "}}");
}

void TestWriterFragments::pictureNameIsEscaped()
{
    Story story;
    story.addResource("a{b}", redPixels()).addPicture(picture("a{b}"));
    QCOMPARE(story.body(), firstParagraph() + pictureGroup("a\\{b\\}"));
}

void TestWriterFragments::pictureWithPdfIsWrittenAsPdf_data()
{
    QTest::addColumn<QVariant>("name");
    QTest::addColumn<QByteArray>("written");

    QTest::newRow("bare") << QVariant(QByteArray("foo")) << QByteArray("MathTypeEdEqfoo");
    QTest::newRow("prefixed") << QVariant(QByteArray("MathTypeEdEqfoo")) << QByteArray("MathTypeEdEqfoo");
    QTest::newRow("prefixedTwice") << QVariant(QByteArray("MathTypeEdEqMathTypeEdEqfoo"))
                                   << QByteArray("MathTypeEdEqMathTypeEdEqfoo");
    QTest::newRow("string") << QVariant(QStringLiteral("foo")) << QByteArray("MathTypeEdEqfoo");
    QTest::newRow("missing") << QVariant() << QByteArray("MathTypeEdEq");
    QTest::newRow("special") << QVariant(QByteArray("{\\}")) << QByteArray("MathTypeEdEq\\{\\\\\\}");
    QTest::newRow("latin1") << QVariant(QByteArray("\xe9"))
                            << QByteArray("MathTypeEdEq\\loch\\af0\\hich\\af0\\dbch\\af0\\uc1\\u233\\'E9");
    QTest::newRow("utf8") << QVariant(QByteArray("\xc3\xa9"))
                          << QByteArray("MathTypeEdEq\\loch\\af0\\hich\\af0\\dbch\\af0\\uc1\\u233\\'E9");
    QTest::newRow("zero byte") << QVariant(QByteArray("a\0b", 3)) << QByteArray("MathTypeEdEqa\\'00b");
}

void TestWriterFragments::pictureWithPdfIsWrittenAsPdf()
{
    QFETCH(QVariant, name);
    QFETCH(QByteArray, written);
    QTextImageFormat format = with(picture(), ORVRtfProperty::PdfData, QByteArray("%PDF"));
    if (name.isValid())
        format.setProperty(ORVRtfProperty::PdfFileName, name);
    QCOMPARE(pictureStory(format).body(),
             firstParagraph() + "{\\*\\orvellinepdf {{\\*\\pdffilename " + written + "}25504446}}");
}

void TestWriterFragments::pictureWithEmptyPdfIsWrittenAsPicture()
{
    const QTextImageFormat format = with(picture(), ORVRtfProperty::PdfData, QByteArray(""));
    QCOMPARE(pictureStory(format).body(), firstParagraph() + pictureGroup("picture"));
}

void TestWriterFragments::pictureBetweenRuns()
{
    Story story;
    story.addResource(PictureName, redPixels()).add("a").addPicture(picture()).add("b");
    QCOMPARE(story.body(), firstParagraph() + run("a") + pictureGroup("picture") + run("b"));
}

void TestWriterFragments::pictureInALink()
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

void TestWriterFragments::linkOfOneRun()
{
    Story story;
    story.add("word", link("http://localhost/a b"));
    QCOMPARE(story.body(), firstParagraph() + field("HYPERLINK \"http://localhost/a b\"", "\\f0\\fs24 word"));
}

void TestWriterFragments::linkOfTwoRuns()
{
    Story story;
    story.add("one", link("u")).add("two", bold(link("u")));
    QCOMPARE(story.body(), firstParagraph() + field("HYPERLINK \"u\"", run("one") + "{\\f0\\fs24\\b1 two}"));
}

void TestWriterFragments::linkTargets_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QByteArray>("written");

    QTest::newRow("braces") << QStringLiteral("a{b}c") << QByteArray("a\\{b\\}c");
    QTest::newRow("backslash") << QStringLiteral("c:\\a") << QByteArray("c:\\\\a");
    QTest::newRow("openBrace") << QStringLiteral("{") << QByteArray("\\{");
    QTest::newRow("closingBraces") << QStringLiteral("}}") << QByteArray("\\}\\}");
    QTest::newRow("percentSigns") << QStringLiteral("a%20%1") << QByteArray("a%20%1");
    QTest::newRow("fragment") << QStringLiteral("#part") << QByteArray("#part");
    QTest::newRow("quotes") << QStringLiteral("a\"b") << QByteArray("a\"b");
}

void TestWriterFragments::linkTargets()
{
    QFETCH(QString, target);
    QFETCH(QByteArray, written);
    Story story;
    story.add("word", link(target)).add(" after");
    QCOMPARE(story.body(),
             firstParagraph() + field("HYPERLINK \"" + written + "\"", "\\f0\\fs24 word") + run(" after"));
    const Reading reading = rtftest::read(write(*story.document()));
    QCOMPARE(reading.status, 0);
    QCOMPARE(reading.format("word").anchorHref(), target);
    QCOMPARE(reading.format("after").anchorHref(), QString());
}

void TestWriterFragments::linkToAPage()
{
    QTextCharFormat format = link("u");
    format.setProperty(ORVRtfProperty::PageReference, QStringLiteral("ch{1}"));
    Story story;
    story.add("word", format);
    QCOMPARE(story.body(), firstParagraph() + field("HYPERLINK \\\\l ch\\{1\\}", "\\f0\\fs24 word"));
}

void TestWriterFragments::anchorWithoutTargetIsNoLink()
{
    QTextCharFormat format;
    format.setAnchor(true);
    QTextCharFormat noAnchor;
    noAnchor.setAnchorHref("u");
    Story story;
    story.add("one", format).add("two", noAnchor);
    QCOMPARE(story.body(), firstParagraph() + run("one") + run("two"));
}

void TestWriterFragments::neighbouringLinksAreTwoFields()
{
    Story story;
    story.add("one", link("a")).add("two", link("b"));
    QCOMPARE(story.body(),
             firstParagraph() + field("HYPERLINK \"a\"", "\\f0\\fs24 one")
                 + field("HYPERLINK \"b\"", "\\f0\\fs24 two"));
}

void TestWriterFragments::neighbouringPageLinksAreTwoFields()
{
    QTextCharFormat first = link("u");
    first.setProperty(ORVRtfProperty::PageReference, QStringLiteral("a"));
    QTextCharFormat second = link("u");
    second.setProperty(ORVRtfProperty::PageReference, QStringLiteral("b"));
    Story story;
    story.add("one", first).add("two", second).add("three", link("u"));
    QCOMPARE(story.body(),
             firstParagraph() + field("HYPERLINK \\\\l a", "\\f0\\fs24 one")
                 + field("HYPERLINK \\\\l b", "\\f0\\fs24 two")
                 + field("HYPERLINK \"u\"", "\\f0\\fs24 three"));
}

void TestWriterFragments::neighbouringLinksWithOneTargetAreOneField()
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

void TestWriterFragments::linkEndsWithItsParagraph()
{
    Story story;
    story.add("one", link("u")).paragraph().add("two", link("u")).paragraph().add("three");
    QCOMPARE(story.body(),
             firstParagraph() + field("HYPERLINK \"u\"", "\\f0\\fs24 one") + newParagraph()
                 + field("HYPERLINK \"u\"", "\\f0\\fs24 two") + newParagraph() + run("three"));
}

void TestWriterFragments::linkEndsWithItsCell()
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

void TestWriterFragments::textAfterALinkIsOutside()
{
    Story story;
    story.add("before").add("link", link("u")).add("after");
    QCOMPARE(story.body(),
             firstParagraph() + run("before") + field("HYPERLINK \"u\"", "\\f0\\fs24 link") + run("after"));
}

void TestWriterFragments::decoratedLink()
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

void TestWriterFragments::bookmarkIsWrittenWhereItEnds()
{
    Story story;
    story.add("marked", bookmark("bm")).add("after");
    QCOMPARE(story.body(), firstParagraph() + run("marked") + "{\\*\\bkmkstart bm}" + run("after"));
}

void TestWriterFragments::bookmarkEndKeepsItsSign()
{
    Story story;
    story.add("marked", bookmark("@bm")).add("after");
    QCOMPARE(story.body(), firstParagraph() + run("marked") + "{\\*\\bkmkend @bm}" + run("after"));
}

void TestWriterFragments::bookmarkOverTwoRunsIsWrittenOnce()
{
    Story story;
    story.add("one", bookmark("bm")).add("two", bookmark("bm", bold()));
    QCOMPARE(story.body(), firstParagraph() + run("one") + "{\\f0\\fs24\\b1 two}" + "{\\*\\bkmkstart bm}");
}

void TestWriterFragments::bookmarkOverTwoParagraphsIsWrittenOnce()
{
    Story story;
    story.add("one", bookmark("bm")).paragraph().add("two", bookmark("bm")).paragraph().add("three");
    QCOMPARE(story.body(),
             firstParagraph() + run("one") + newParagraph() + run("two") + "{\\*\\bkmkstart bm}"
                 + newParagraph() + run("three"));
}

void TestWriterFragments::bookmarkAcrossAParagraphThatLacksIt()
{
    Story story;
    story.add("one", bookmark("bm")).paragraph().add("x").paragraph().add("two", bookmark("bm"));
    QCOMPARE(story.body().count("{\\*\\bkmkstart bm}"), 2);
}

void TestWriterFragments::neighbouringBookmarksAreBothWritten()
{
    Story story;
    story.add("one", bookmark("a")).add("two", bookmark("@a")).add("three", bookmark("b"));
    QCOMPARE(story.body(),
             firstParagraph() + run("one") + "{\\*\\bkmkstart a}" + run("two") + "{\\*\\bkmkend @a}"
                 + run("three") + "{\\*\\bkmkstart b}");
}

void TestWriterFragments::emptyBookmarkNameWritesNothing()
{
    Story story;
    story.add("one", bookmark("")).add("two", bold());
    QCOMPARE(story.body(), firstParagraph() + run("one") + "{\\f0\\fs24\\b1 two}");
}

void TestWriterFragments::bookmarkNamesAreEscaped()
{
    Story story;
    story.add("one", bookmark("a{b}\\c\"d")).add("two", bookmark("@}}"));
    QCOMPARE(story.body(),
             firstParagraph() + run("one") + "{\\*\\bkmkstart a\\{b\\}\\\\c\"d}" + run("two")
                 + "{\\*\\bkmkend @\\}\\}}");
    QCOMPARE(rtftest::read(write(*story.document())).text(), QStringLiteral("onetwo"));
}

void TestWriterFragments::bookmarkOfALinkFollowsIt()
{
    Story story;
    story.add("word", bookmark("bm", link("u"))).add("after");
    QCOMPARE(story.body(),
             firstParagraph() + field("HYPERLINK \"u\"", "\\f0\\fs24 word") + "{\\*\\bkmkstart bm}"
                 + run("after"));
}

void TestWriterFragments::bookmarkThatGoesOnBehindALinkIsWrittenOnce()
{
    Story story;
    story.add("word", bookmark("bm", link("u"))).add("after", bookmark("bm"));
    QCOMPARE(story.body(),
             firstParagraph() + field("HYPERLINK \"u\"", "\\f0\\fs24 word") + run("after")
                 + "{\\*\\bkmkstart bm}");
}

void TestWriterFragments::bookmarkEndsWithItsCell()
{
    Story story;
    QTextTable* table = story.cursor().insertTable(1, 2);
    table->cellAt(0, 0).firstCursorPosition().insertText("one", bookmark("bm"));
    table->cellAt(0, 1).firstCursorPosition().insertText("two", bookmark("bm"));
    const QByteArray body = story.body();
    QVERIFY2(body.contains(run("one") + "{\\*\\bkmkstart bm}\\cell"), body.constData());
    QVERIFY2(body.contains(run("two") + "{\\*\\bkmkstart bm}\\cell"), body.constData());
}

QTEST_MAIN(TestWriterFragments)
#include "tst_writer_fragments.moc"
