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

const QByteArray PlainNote = "{\\rtf1\\ansi Note}";

/*! The format of text that has the note \a content. */
QTextCharFormat anchor(int flag, const QByteArray& content = PlainNote)
{
    return charFormat(
        {{flag, true}, {ORVRtfProperty::HasNoteContent, true}, {ORVRtfProperty::NoteContent, content}});
}

QTextCharFormat footnoteAnchor(const QByteArray& content = PlainNote)
{
    return anchor(ORVRtfProperty::FootnoteAnchor, content);
}

QTextCharFormat annotationAnchor(const QByteArray& content = PlainNote)
{
    return anchor(ORVRtfProperty::AnnotationAnchor, content);
}

QTextCharFormat inFootnote()
{
    return charFormat({{ORVRtfProperty::InFootnote, true}});
}

QTextCharFormat inAnnotation()
{
    return charFormat({{ORVRtfProperty::InAnnotation, true}});
}

/*! The text of a one-paragraph note that has a document of its own. */
QByteArray noteText(const QByteArray& text = "Note")
{
    return firstParagraph() + run(text);
}

QByteArray alternateFootnote(const QByteArray& content)
{
    return "{\\super\\chftn{\\footnote\\ftnalt\\pard\\plain {\\super\\chftn\\f0\\fs24}" + content + "}}";
}

QByteArray annotation(const QByteArray& content)
{
    return "{\\chatn{\\*\\annotation" + content + "}}";
}

/*! An annotation with the range of text it is about. */
QByteArray annotatedRange(const QByteArray& number, const QByteArray& range, const QByteArray& content)
{
    return "{{\\*\\atrfstart " + number + "}" + range + "{\\*\\atrfend " + number
        + "}}{\\chatn{\\*\\annotation{\\*\\atnref " + number + "}" + content + "}}";
}

WriteSettings destinations(int footnotes, int annotations)
{
    WriteSettings settings;
    settings.footnoteDestination = ORVTextRtf::ExportStyle(footnotes);
    settings.annotationDestination = ORVTextRtf::ExportStyle(annotations);
    return settings;
}

const WriteSettings LeadingSpace = settingsWith(&WriteSettings::footnotesWithLeadingSpace);

QTextBlockFormat centred()
{
    return blockFormat({{QTextFormat::BlockAlignment, int(Qt::AlignHCenter)}});
}

/*! The texts that were read with \a flag. */
QString textWith(const Reading& reading, int flag)
{
    QString text;
    for (const QTextFragment& fragment : fragmentsOf(*reading.document)) {
        if (fragment.charFormat().boolProperty(flag))
            text += fragment.text();
    }
    return text;
}

QTextCharFormat stateFormat(int bits)
{
    using namespace ORVRtfProperty;
    static const QPair<int, QVariant> states[] = {{InAnnotation, true},
                                                  {InFootnote, true},
                                                  {AnnotationAnchor, true},
                                                  {FootnoteAnchor, true},
                                                  {QTextFormat::AnchorHref, "u"_s},
                                                  {BookmarkName, "bm"_s}};
    Properties properties = {{QTextFormat::IsAnchor, true}};
    for (int i = 0; i < 6; ++i) {
        if (bits & (1 << i))
            properties.insert(states[i].first, states[i].second);
    }
    if (bits & 0xc)
        properties.insert(NoteContent, PlainNote);
    return charFormat(properties);
}

} // namespace

/*! What runs of text are written as: pictures, links, bookmarks and notes. */
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
        add("bookmarkNamesAreEscaped", Story().add("one", bookmark("a{b}\\c\"d")).add("two", bookmark("@}}")),
            run("one") + "{\\*\\bkmkstart a\\{b\\}\\\\c\"d}" + run("two") + "{\\*\\bkmkend @\\}\\}}");
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
        add("inlineNoteEndsWithItsCell", inFootnote(), footnote("\\f0\\fs24 one"),
            footnote("\\f0\\fs24 two"));
        add("anchorEndsWithItsCell", annotationAnchor(), annotatedRange("1", "\\f0\\fs24 one", noteText()),
            annotatedRange("2", "\\f0\\fs24 two", noteText()));
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

    ORV_ROWS(destinationsOfNotes)
    {
        const Rows add([](const QTextCharFormat& format, int destination, const QByteArray& written) {
            const bool isFootnote = format.boolProperty(ORVRtfProperty::InFootnote)
                || format.boolProperty(ORVRtfProperty::FootnoteAnchor);
            const Story story = Story().add("a").add("word", format).add("b");
            QCOMPARE(story.body(isFootnote ? destinations(destination, 0) : destinations(1, destination)),
                     firstParagraph() + run("a") + written + run("b"));
        });
        const QByteArray text = "\\f0\\fs24 word";
        add("inline annotationToAnnotation", inAnnotation(), 0, annotation(text));
        add("inline annotationToFootnote", inAnnotation(), 1, footnote(text));
        add("inline annotationToAlternate", inAnnotation(), 2, alternateFootnote(text));
        add("inline footnoteToAnnotation", inFootnote(), 0, annotation(text));
        add("inline footnoteToFootnote", inFootnote(), 1, footnote(text));
        add("inline footnoteToAlternate", inFootnote(), 2, alternateFootnote(text));
        add("anchored annotationToAnnotation", annotationAnchor(), 0, annotatedRange("1", text, noteText()));
        add("anchored annotationToFootnote", annotationAnchor(), 1, text + footnote(noteText()));
        add("anchored annotationToAlternate", annotationAnchor(), 2, text + alternateFootnote(noteText()));
        add("anchored footnoteToAnnotation", footnoteAnchor(), 0, text + annotation(noteText()));
        add("anchored footnoteToFootnote", footnoteAnchor(), 1, "{" + text + "}" + footnote(noteText()));
        add("anchored footnoteToAlternate", footnoteAnchor(), 2, text + alternateFootnote(noteText()));
    }

    ORV_ROWS(bodiesWithNotes)
    {
        const Rows add([](const Story& story, const WriteSettings& settings, const QByteArray& body) {
            QCOMPARE(story.body(settings), body);
        });
        const auto row = [&add](const QByteArray& name, const Story& story, const QByteArray& written) {
            add(name, story, WriteSettings(), firstParagraph() + written);
        };
        const QByteArray two = "{\\f0\\fs24\\b1 two}";
        const QByteArray other = "{\\rtf1\\ansi Other}";
        const QByteArray centredParagraph = "\n\\pard\\plain \\qc\\ltrch\\loch ";
        add("inlineNoteHasTheParagraphFormat",
            Story().format(centred()).add("one", inFootnote()).add("two", inAnnotation()), WriteSettings(),
            centredParagraph + footnote("\\qc\\f0\\fs24 one") + annotation("\\qc\\f0\\fs24 two"));
        row("inlineNoteOfTwoRuns: footnote", Story().add("one", inFootnote()).add("two", bold(inFootnote())),
            footnote(run("one") + two));
        row("inlineNoteOfTwoRuns: annotation",
            Story().add("one", inAnnotation()).add("two", bold(inAnnotation())),
            annotation(run("one") + two));
        // Where notes do not stay what they are, each run is a note.
        add("inlineNoteOfTwoRunsGoingElsewhere",
            Story().add("one", inFootnote()).add("two", inFootnote()).add("three", bold(inFootnote())),
            destinations(0, 0),
            firstParagraph() + annotation("\\f0\\fs24 onetwo") + annotation("\\f0\\fs24\\b1 three"));
        add("inlineNoteOverTwoParagraphsGoingElsewhere",
            Story().add("one", inFootnote()).paragraph().add("two", inFootnote()), destinations(2, 0),
            firstParagraph() + alternateFootnote("\\f0\\fs24 one") + newParagraph()
                + alternateFootnote("\\f0\\fs24 two"));
        row("inlineNoteOverTwoParagraphs",
            Story().add("one", inFootnote()).paragraph().add("two", inFootnote()).add("after"),
            footnote("\\f0\\fs24 one" + newParagraph() + run("two")) + run("after"));
        row("inlineNotesOfBothKindsSideBySide",
            Story().add("one", inFootnote()).add("two", inAnnotation()).add("three", inFootnote()),
            footnote("\\f0\\fs24 one") + annotation("\\f0\\fs24 two") + footnote("\\f0\\fs24 three"));
        row("anchorOfTwoRuns",
            Story().add("one", annotationAnchor()).add("two", bold(annotationAnchor())).add("after"),
            annotatedRange("1", run("one") + two, noteText()) + run("after"));
        row("anchorFormatEndsWithTheAnchor: annotation",
            Story().add("word", bold(annotationAnchor())).add("after"),
            annotatedRange("1", "\\f0\\fs24\\b1 word", noteText()) + run("after"));
        row("anchorFormatEndsWithTheAnchor: footnote",
            Story().add("word", bold(footnoteAnchor())).add("after"),
            "{\\f0\\fs24\\b1 word}" + footnote(noteText(), "\\f0\\fs24\\b1") + run("after"));
        row("footnoteMarkHasTheFormatOfTheLastRun",
            Story().add("one", footnoteAnchor()).add("two", bold(footnoteAnchor())).add("after"),
            run("one") + two + footnote(noteText(), "\\f0\\fs24\\b1") + run("after"));
        row("anchorOverTwoParagraphs: footnote",
            Story().add("one", footnoteAnchor()).paragraph().add("two", footnoteAnchor()),
            run("one") + newParagraph() + run("two") + footnote(noteText()));
        row("anchorOverTwoParagraphs: annotation",
            Story().add("one", annotationAnchor()).paragraph().add("two", annotationAnchor()),
            annotatedRange("1", "\\f0\\fs24 one" + newParagraph() + run("two"), noteText()));
        row("neighbouringAnchorsHaveTheirOwnNotes",
            Story().add("one", footnoteAnchor()).add("two", footnoteAnchor(other)),
            run("one") + footnote(noteText()) + run("two") + footnote(noteText("Other")));
        row("annotationsAreNumbered",
            Story()
                .add("one", annotationAnchor())
                .add("x", footnoteAnchor())
                .add("two", annotationAnchor(other)),
            annotatedRange("1", "\\f0\\fs24 one", noteText()) + run("x") + footnote(noteText())
                + annotatedRange("2", "\\f0\\fs24 two", noteText("Other")));
        row("bookmarkOfAnAnchorIsNotWritten", Story().add("word", bookmark("bm", footnoteAnchor())),
            run("word") + footnote(noteText()));
        row("noteOfSeveralParagraphs",
            Story()
                .add("word", footnoteAnchor("{\\rtf1\\ansi One\\par Two\\par\\pard\\qc Three}"))
                .add("after"),
            run("word")
                + footnote(noteText("One") + newParagraph() + run("Two")
                           + "\n\\par\\pard\\plain \\qc\\ltrch\\loch " + run("Three"))
                + run("after"));
        row("noteWithANote", Story().add("word", footnoteAnchor("{\\rtf1\\ansi Outer{\\footnote inner}}")),
            run("word") + footnote(noteText("Outer") + footnote("\\f0\\fs24 inner")));
        add("paragraphAfterANoteGoesOn",
            Story()
                .format(centred())
                .add("word", footnoteAnchor("{\\rtf1\\ansi One\\par Two}"))
                .paragraph()
                .add("next"),
            WriteSettings(),
            centredParagraph + run("word") + footnote(noteText("One") + newParagraph() + run("Two"))
                + newParagraph() + run("next"));
        // The bookmark around the second note begins before it and is written once, at its end.
        row("textAfterANoteGoesOn",
            Story()
                .add("word", annotationAnchor("{\\rtf1\\ansi Note{\\footnote inner}}"))
                .add("marked", bookmark("bm"))
                .add("x"),
            annotatedRange("1", "\\f0\\fs24 word", noteText() + footnote("\\f0\\fs24 inner")) + run("marked")
                + "{\\*\\bkmkstart bm}" + run("x"));
        addEmptyNotes(add);
        addLeadingSpaces(add);
    }

    ORV_ROWS(fontsAndColoursOfNotes)
    {
        const Rows add([](const QTextCharFormat& format, const QByteArray& fonts, const QByteArray& colors,
                          const QByteArray& note) {
            const QByteArray rtf = write(*Story().add("word", format).document());
            QCOMPARE(fontTableOf(rtf), defaultFontEntry() + fonts);
            QCOMPARE(colorTableOf(rtf), colors);
            QCOMPARE(bodyOf(rtf), firstParagraph() + run("word") + footnote(firstParagraph() + note));
        });
        const QTextCharFormat format = footnoteAnchor("{\\rtf1\\ansi{\\fonttbl{\\f1\\froman Quibble Serif;}}"
                                                      "{\\colortbl;\\red255\\green0\\blue0;}\\f1\\cf1 Note}");
        add("are in the tables", format, fontEntry(1, "Quibble Serif"), blackAndWhite() + RedEntry,
            "{\\f1\\fs24\\cf3 Note}");
        add("are not collected without the flag",
            with(format, {{ORVRtfProperty::HasNoteContent, QVariant()}}), "", "", run("Note"));
    }

    void noteWithAList()
    {
        Story note;
        note.add("Item");
        note.cursor().createList(QTextListFormat::ListDecimal);
        Story story;
        story.add("word", footnoteAnchor(note.stored())).paragraph().add("Own");
        story.cursor().createList(QTextListFormat::ListDecimal);
        const QByteArray rtf = write(*story.document());
        ORV_CONTAINS(rtf,
                     "{\\listoverride\\listid1\\listoverridecount0\\ls1}"
                     "{\\listoverride\\listid2\\listoverridecount0\\ls2}}\n");
        const QByteArray body = bodyOf(rtf);
        QVERIFY2(body.indexOf("\\ls1\\ilvl0") > 0, body.constData());
        QVERIFY2(body.indexOf("\\ls2\\ilvl0") > body.indexOf("\\ls1\\ilvl0"), body.constData());
        QVERIFY2(body.endsWith("\\ls2\\ilvl0{\\listtext\\f0\\fs24 1.\\tab }" + run("Own")), body.constData());
    }

    void noteWithATable()
    {
        Story note;
        note.cursor().insertTable(1, 1)->cellAt(0, 0).firstCursorPosition().insertText("Cell");
        Story story;
        story.add("word", footnoteAnchor(note.stored())).add("after").paragraph().add("next");
        const QByteArray body = story.body();
        ORV_CONTAINS(body, cellStart() + run("Cell") + "\\cell{");
        // Reading begins a paragraph behind each table; the note ends with it.
        QVERIFY2(body.endsWith("\\row}\\pard" + firstParagraph() + "\\f0\\fs24}}" + run("after")
                               + newParagraph() + run("next")),
                 body.constData());
    }

    void noteWithAPicture()
    {
        Story note;
        note.addResource("picture"_s, redPixels()).cursor().insertImage("picture");
        ORV_CONTAINS(Story().add("word", footnoteAnchor(note.stored())).body(), "\\picw2\\pich1");
    }

    void noteInACell()
    {
        Story story;
        QTextCursor cell = story.cursor().insertTable(1, 1)->cellAt(0, 0).firstCursorPosition();
        cell.insertText("word", footnoteAnchor());
        cell.insertBlock(QTextBlockFormat(), QTextCharFormat());
        cell.insertText("next");
        ORV_CONTAINS(story.body(),
                     cellStart() + run("word") + footnote(noteText()) + "\n\\par\\plain \\intbl\\itap1"
                         + run("next") + "\\cell");
    }

    ORV_ROWS(everyPairOfStatesBalances)
    {
        const Rows add([](int footnotes, int annotations) {
            const WriteSettings settings = destinations(footnotes, annotations);
            // A third of the states for each setting: all of them meet all others in three settings.
            for (int first = (footnotes + annotations) % 3; first < 64; first += 3) {
                Story story;
                for (int second = 0; second < 64; ++second) {
                    story.add("<a", stateFormat(first)).add("b", bold(stateFormat(second)));
                    if (second % 2)
                        story.paragraph();
                    story.add("c", stateFormat(second)).add("d>");
                }
                const Reading reading = rtftest::read(write(*story.document(), settings));
                QCOMPARE(reading.status, 0);
                const QString text = reading.text().remove("Note").remove('\n');
                QCOMPARE(text, "<abcd>"_s.repeated(64));
            }
        });
        for (int footnotes = 0; footnotes < 3; ++footnotes) {
            for (int annotations = 0; annotations < 3; ++annotations)
                add(qPrintable("%1-%2"_s.arg(footnotes).arg(annotations)), footnotes, annotations);
        }
    }

    void notesAreReadBack()
    {
        Story story;
        story.add("a").add("word", annotationAnchor()).add("b").add("other", footnoteAnchor("{\\rtf1 Foot}"));
        story.add("c").add("inline", inFootnote());
        const Reading reading = rtftest::read(write(*story.document()));
        QCOMPARE(reading.status, 0);
        QCOMPARE(textWith(reading, ORVRtfProperty::InAnnotation), "Note"_s);
        QCOMPARE(textWith(reading, ORVRtfProperty::InFootnote), "Footinline"_s);
        QVERIFY(reading.text().contains("aword"));
        QVERIFY(reading.text().contains("bother"));
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

    template <typename AddRow>
    static void addEmptyNotes(const AddRow& add)
    {
        const QByteArray body = firstParagraph() + run("one") + footnote("")
            + annotatedRange("1", "\\f0\\fs24 two", "") + run("after");
        const auto notes = [](const QByteArray& content) {
            return Story()
                .add("one", footnoteAnchor(content))
                .add("two", annotationAnchor(content))
                .add("after");
        };
        const QByteArray damaged = "{\\rtf1\\ansi Note\\'zz}";
        add("noteThatIsDamagedHasNoText", notes(damaged), WriteSettings(), body);
        add("leadingSpaceNeedsAText", Story().add("one", footnoteAnchor(damaged)), LeadingSpace,
            firstParagraph() + run("one") + footnote(""));
        add("noBytes", notes(""), WriteSettings(), body);
        add("noBytes, leading space", notes(""), LeadingSpace, body);
        add("noText", notes("{\\rtf1\\ansi}"), WriteSettings(), body);
        add("noText, leading space", notes("{\\rtf1\\ansi}"), LeadingSpace, body);
    }

    template <typename AddRow>
    static void addLeadingSpaces(const AddRow& add)
    {
        const Story spaces = Story().add(" note", inFootnote()).add("  note ", inAnnotation()).add(" after");
        // The first blank behind \annotation ends the word, the second is the note's.
        add("leadingSpaceOfInlineNotes", spaces, LeadingSpace,
            firstParagraph() + footnote(" \\f0\\fs24 note") + annotation("  \\f0\\fs24 note ")
                + run(" after"));
        add("leadingSpaceOfInlineNotes: not set", spaces, WriteSettings(),
            firstParagraph() + footnote("\\f0\\fs24  note") + annotation("\\f0\\fs24   note ")
                + run(" after"));
        add("leadingSpaceOfTheFirstRunOnly", Story().add(" a", inFootnote()).add(" b", bold(inFootnote())),
            LeadingSpace, firstParagraph() + footnote(" " + run("a") + "{\\f0\\fs24\\b1  b}"));
        const QByteArray content = "{\\rtf1\\ansi   Note }";
        const Story anchored =
            Story().add("one", footnoteAnchor(content)).add("two", annotationAnchor(content));
        const QByteArray note = " " + noteText();
        add("leadingSpaceOfAnchoredNotes", anchored, LeadingSpace,
            firstParagraph() + run("one") + footnote(note) + annotatedRange("1", "\\f0\\fs24 two", note));
        WriteSettings elsewhere = destinations(2, 1);
        elsewhere.footnotesWithLeadingSpace = true;
        add("leadingSpaceOfAnchoredNotes: elsewhere", anchored, elsewhere,
            firstParagraph() + "\\f0\\fs24 one" + alternateFootnote(note) + "\\f0\\fs24 two"
                + footnote(note));
    }
};

ORV_TEST("writer_fragments", TestWriterFragments, QGuiApplication)
#include "fragments.moc"
