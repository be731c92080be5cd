#include "writerhelpers.h"

using namespace rtftest;

namespace {

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

QTextCharFormat bookmarked(const QTextCharFormat& format = QTextCharFormat())
{
    return with(format, {{ORVRtfProperty::BookmarkName, "bm"_s}});
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
    static const int flags[] = {InAnnotation, InFootnote, AnnotationAnchor, FootnoteAnchor};
    QTextCharFormat format;
    for (int i = 0; i < 4; ++i) {
        if (bits & (1 << i))
            format.setProperty(flags[i], true);
    }
    if (bits & 0xc)
        format.setProperty(NoteContent, PlainNote);
    format.setAnchor(true);
    if (bits & 0x10)
        format.setAnchorHref("u");
    if (bits & 0x20)
        format.setProperty(BookmarkName, "bm"_s);
    return format;
}

} // namespace

class TestWriterNotes : public QObject {
    Q_OBJECT

private slots:
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

    ORV_ROWS(bodies)
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
        row("bookmarkOfAnAnchorIsNotWritten", Story().add("word", bookmarked(footnoteAnchor())),
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
                .add("marked", bookmarked())
                .add("x"),
            annotatedRange("1", "\\f0\\fs24 word", noteText() + footnote("\\f0\\fs24 inner")) + run("marked")
                + "{\\*\\bkmkstart bm}" + run("x"));
        addEmptyNotes(add);
        addLeadingSpaces(add);
    }

    ORV_ROWS(anchorFormatEndsWithTheAnchor)
    {
        const Rows add([](const QTextCharFormat& format) {
            const Story story = Story().add("word", bold(format)).add("after");
            const Reading reading = rtftest::read(write(*story.document(), destinations(1, 0)));
            QCOMPARE(reading.format("word").fontWeight(), int(QFont::Bold));
            QVERIFY(!reading.format("after").hasProperty(QTextFormat::FontWeight));
        });
        add("annotationToAnnotation", annotationAnchor());
        add("footnoteToFootnote", footnoteAnchor());
    }

    ORV_ROWS(noteEndsWithItsCell)
    {
        const Rows add([](const QTextCharFormat& format, const QByteArray& one, const QByteArray& two) {
            ORV_CONTAINS(cellsWith(format).body(),
                         cellStart() + one + "\\cell " + cellStart() + two + "\\cell");
        });
        add("inline note", inFootnote(), footnote("\\f0\\fs24 one"), footnote("\\f0\\fs24 two"));
        add("anchor", annotationAnchor(), annotatedRange("1", "\\f0\\fs24 one", noteText()),
            annotatedRange("2", "\\f0\\fs24 two", noteText()));
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

ORV_TEST("writer_notes", TestWriterNotes, QGuiApplication)
#include "notes.moc"
