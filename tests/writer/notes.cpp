#include "ORVGuiUtil.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

QTextCharFormat flagged(int flag)
{
    QTextCharFormat format;
    format.setProperty(flag, true);
    return format;
}

const QByteArray PlainNote = "{\\rtf1\\ansi Note}";

/*! The format of text that has the note \a content. */
QTextCharFormat anchor(int flag, const QByteArray& content = PlainNote)
{
    QTextCharFormat format = flagged(flag);
    format.setProperty(ORVRtfProperty::HasNoteContent, true);
    format.setProperty(ORVRtfProperty::NoteContent, content);
    return format;
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
    return flagged(ORVRtfProperty::InFootnote);
}

QTextCharFormat inAnnotation()
{
    return flagged(ORVRtfProperty::InAnnotation);
}

/*! The text of a one-paragraph note that has a document of its own. */
QByteArray noteText(const QByteArray& text = "Note")
{
    return firstParagraph() + run(text);
}

QByteArray footnote(const QByteArray& content, const QByteArray& mark = "\\f0\\fs24")
{
    return "{\\super\\chftn{\\footnote\\pard\\plain {\\super\\chftn" + mark + "}" + content + "}}";
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

WriteSettings leadingSpace()
{
    WriteSettings settings;
    settings.footnotesWithLeadingSpace = true;
    return settings;
}

QTextBlockFormat centred()
{
    QTextBlockFormat format;
    format.setAlignment(Qt::AlignHCenter);
    return format;
}

/*! The first text of \a story's body that is read back with \a flag. */
QString textWith(const Reading& reading, int flag)
{
    QString text;
    const QList<QTextFragment> fragments = fragmentsOf(*reading.document);
    for (const QTextFragment& fragment : fragments) {
        if (fragment.charFormat().boolProperty(flag))
            text += fragment.text();
    }
    return text;
}

const QByteArray ColouredNote = "{\\rtf1\\ansi{\\fonttbl{\\f1\\froman Quibble Serif;}}"
                                "{\\colortbl;\\red255\\green0\\blue0;}\\f1\\cf1 Note}";

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
    void destinationsOfInlineNotes_data()
    {
        const Columns<bool, int, QByteArray> add("isFootnote", "destination", "written");
        const QByteArray text = "\\f0\\fs24 note";
        add("annotationToAnnotation", false, 0, annotation(text));
        add("annotationToFootnote", false, 1, footnote(text));
        add("annotationToAlternate", false, 2, alternateFootnote(text));
        add("footnoteToAnnotation", true, 0, annotation(text));
        add("footnoteToFootnote", true, 1, footnote(text));
        add("footnoteToAlternate", true, 2, alternateFootnote(text));
    }

    void destinationsOfInlineNotes()
    {
        FETCH(bool, isFootnote, int, destination, QByteArray, written);
        Story story;
        story.add("a").add("note", isFootnote ? inFootnote() : inAnnotation()).add("b");
        const WriteSettings settings =
            isFootnote ? destinations(destination, 0) : destinations(1, destination);
        QCOMPARE(story.body(settings), firstParagraph() + run("a") + written + run("b"));
    }

    void destinationsOfAnchoredNotes_data()
    {
        const Columns<bool, int, QByteArray> add("isFootnote", "destination", "written");
        const QByteArray word = "\\f0\\fs24 word";
        add("annotationToAnnotation", false, 0, annotatedRange("1", word, noteText()));
        add("annotationToFootnote", false, 1, word + footnote(noteText()));
        add("annotationToAlternate", false, 2, word + alternateFootnote(noteText()));
        add("footnoteToAnnotation", true, 0, word + annotation(noteText()));
        add("footnoteToFootnote", true, 1, "{" + word + "}" + footnote(noteText()));
        add("footnoteToAlternate", true, 2, word + alternateFootnote(noteText()));
    }

    void destinationsOfAnchoredNotes()
    {
        FETCH(bool, isFootnote, int, destination, QByteArray, written);
        Story story;
        story.add("a").add("word", isFootnote ? footnoteAnchor() : annotationAnchor()).add("b");
        const WriteSettings settings =
            isFootnote ? destinations(destination, 0) : destinations(1, destination);
        QCOMPARE(story.body(settings), firstParagraph() + run("a") + written + run("b"));
    }

    void anchorFormatEndsWithTheAnchor_data()
    {
        const Columns<bool, int> add("isFootnote", "destination");
        add("annotationToAnnotation", false, 0);
        add("footnoteToFootnote", true, 1);
    }

    void anchorFormatEndsWithTheAnchor()
    {
        FETCH(bool, isFootnote, int, destination);
        Story story;
        story.add("word", bold(isFootnote ? footnoteAnchor() : annotationAnchor())).add("after");
        const WriteSettings settings =
            isFootnote ? destinations(destination, 0) : destinations(1, destination);
        const Reading reading = rtftest::read(write(*story.document(), settings));
        QCOMPARE(reading.format("word").fontWeight(), int(QFont::Bold));
        QVERIFY(!reading.format("after").hasProperty(QTextFormat::FontWeight));
    }

    void inlineNoteHasTheParagraphFormat()
    {
        Story story;
        story.cursor().setBlockFormat(centred());
        story.add("one", inFootnote()).add("two", inAnnotation());
        QCOMPARE(story.body(),
                 "\n\\pard\\plain \\qc\\ltrch\\loch " + footnote("\\qc\\f0\\fs24 one")
                     + annotation("\\qc\\f0\\fs24 two"));
    }

    void inlineNoteOfTwoRuns()
    {
        const QByteArray content = run("one") + "{\\f0\\fs24\\b1 two}";
        Story story;
        story.add("one", inFootnote()).add("two", bold(inFootnote()));
        QCOMPARE(story.body(), firstParagraph() + footnote(content));

        Story annotated;
        annotated.add("one", inAnnotation()).add("two", bold(inAnnotation()));
        QCOMPARE(annotated.body(), firstParagraph() + annotation(content));
    }

    void inlineNoteOfTwoRunsGoingElsewhere()
    {
        // Where notes do not stay what they are, each run is a note.
        Story story;
        story.add("one", inFootnote()).add("two", inFootnote());
        story.add("three", bold(inFootnote()));
        QCOMPARE(story.body(destinations(0, 0)),
                 firstParagraph() + annotation("\\f0\\fs24 onetwo") + annotation("\\f0\\fs24\\b1 three"));
    }

    void inlineNoteOverTwoParagraphs()
    {
        Story story;
        story.add("one", inFootnote()).paragraph().add("two", inFootnote()).add("after");
        QCOMPARE(story.body(),
                 firstParagraph() + footnote("\\f0\\fs24 one" + newParagraph() + run("two")) + run("after"));
        const Reading reading = rtftest::read(write(*story.document()));
        QCOMPARE(reading.text(), "one\ntwoafter"_s);
        QCOMPARE(textWith(reading, ORVRtfProperty::InFootnote), "onetwo"_s);
    }

    void inlineNoteOverTwoParagraphsGoingElsewhere()
    {
        Story story;
        story.add("one", inFootnote()).paragraph().add("two", inFootnote());
        QCOMPARE(story.body(destinations(2, 0)),
                 firstParagraph() + alternateFootnote("\\f0\\fs24 one") + newParagraph()
                     + alternateFootnote("\\f0\\fs24 two"));
    }

    void inlineNoteEndsWithItsCell()
    {
        Story story;
        QTextTable* table = story.cursor().insertTable(1, 2);
        table->cellAt(0, 0).firstCursorPosition().insertText("one", inFootnote());
        table->cellAt(0, 1).firstCursorPosition().insertText("two", inFootnote());
        const QByteArray begin = "\n\\pard\\plain \\intbl\\itap1";
        const QByteArray body = story.body();
        QVERIFY2(body.contains(begin + footnote("\\f0\\fs24 one") + "\\cell " + begin
                               + footnote("\\f0\\fs24 two") + "\\cell"),
                 body.constData());
    }

    void inlineNotesOfBothKindsSideBySide()
    {
        Story story;
        story.add("one", inFootnote()).add("two", inAnnotation()).add("three", inFootnote());
        QCOMPARE(story.body(),
                 firstParagraph() + footnote("\\f0\\fs24 one") + annotation("\\f0\\fs24 two")
                     + footnote("\\f0\\fs24 three"));
    }

    void anchorOfTwoRuns()
    {
        Story story;
        story.add("one", annotationAnchor()).add("two", bold(annotationAnchor())).add("after");
        QCOMPARE(story.body(),
                 firstParagraph() + annotatedRange("1", run("one") + "{\\f0\\fs24\\b1 two}", noteText())
                     + run("after"));
    }

    void footnoteMarkHasTheFormatOfTheLastRun()
    {
        Story story;
        story.add("one", footnoteAnchor()).add("two", bold(footnoteAnchor())).add("after");
        QCOMPARE(story.body(),
                 firstParagraph() + run("one") + "{\\f0\\fs24\\b1 two}"
                     + footnote(noteText(), "\\f0\\fs24\\b1") + run("after"));
    }

    void anchorOverTwoParagraphs()
    {
        Story story;
        story.add("one", footnoteAnchor()).paragraph().add("two", footnoteAnchor());
        QCOMPARE(story.body(),
                 firstParagraph() + run("one") + newParagraph() + run("two") + footnote(noteText()));

        Story annotated;
        annotated.add("one", annotationAnchor()).paragraph().add("two", annotationAnchor());
        QCOMPARE(annotated.body(),
                 firstParagraph()
                     + annotatedRange("1", "\\f0\\fs24 one" + newParagraph() + run("two"), noteText()));
    }

    void neighbouringAnchorsHaveTheirOwnNotes()
    {
        const QByteArray other = "{\\rtf1\\ansi Other}";
        Story story;
        story.add("one", footnoteAnchor()).add("two", footnoteAnchor(other));
        QCOMPARE(story.body(),
                 firstParagraph() + run("one") + footnote(noteText()) + run("two")
                     + footnote(noteText("Other")));
    }

    void annotationsAreNumbered()
    {
        const QByteArray other = "{\\rtf1\\ansi Other}";
        Story story;
        story.add("one", annotationAnchor()).add("x", footnoteAnchor()).add("two", annotationAnchor(other));
        QCOMPARE(story.body(),
                 firstParagraph() + annotatedRange("1", "\\f0\\fs24 one", noteText()) + run("x")
                     + footnote(noteText()) + annotatedRange("2", "\\f0\\fs24 two", noteText("Other")));
    }

    void numbersBeginAnewWithEachWrite()
    {
        Story story;
        story.add("one", annotationAnchor());
        ORVTextRtfWriter writer;
        for (int i = 0; i < 2; ++i) {
            QBuffer buffer;
            writer.setDevice(&buffer);
            QVERIFY(writer.write(story.document(), false));
            QVERIFY2(buffer.data().contains("\\atrfstart 1}"), buffer.data().constData());
        }
    }

    void anchorEndsWithItsCell()
    {
        Story story;
        QTextTable* table = story.cursor().insertTable(1, 2);
        table->cellAt(0, 0).firstCursorPosition().insertText("one", annotationAnchor());
        table->cellAt(0, 1).firstCursorPosition().insertText("two", annotationAnchor());
        const QByteArray body = story.body();
        QVERIFY2(body.contains(annotatedRange("1", "\\f0\\fs24 one", noteText()) + "\\cell"),
                 body.constData());
        QVERIFY2(body.contains(annotatedRange("2", "\\f0\\fs24 two", noteText()) + "\\cell"),
                 body.constData());
    }

    void bookmarkOfAnAnchorIsNotWritten()
    {
        QTextCharFormat format = footnoteAnchor();
        format.setProperty(ORVRtfProperty::BookmarkName, "bm"_s);
        Story story;
        story.add("word", format);
        QCOMPARE(story.body(), firstParagraph() + run("word") + footnote(noteText()));
    }

    void noteFontsAndColoursAreInTheTables()
    {
        Story story;
        story.add("word", footnoteAnchor(ColouredNote));
        const QByteArray rtf = write(*story.document());
        QVERIFY2(rtf.contains("Quibble Serif;}}"), rtf.constData());
        // Black and white come first in a table that has any colour.
        QVERIFY2(rtf.contains("{\\colortbl;\\red0\\green0\\blue0;\\red255\\green255\\blue255;"
                              "\\red255\\green0\\blue0;}"),
                 rtf.constData());
        QCOMPARE(bodyOf(rtf),
                 firstParagraph() + run("word") + footnote(firstParagraph() + "{\\f1\\fs24\\cf3 Note}"));
    }

    void noteWithoutTheFlagIsNotCollected()
    {
        QTextCharFormat format = footnoteAnchor(ColouredNote);
        format.clearProperty(ORVRtfProperty::HasNoteContent);
        Story story;
        story.add("word", format);
        const QByteArray rtf = write(*story.document());
        QVERIFY2(!rtf.contains("Quibble Serif"), rtf.constData());
        QVERIFY2(rtf.contains("{\\colortbl;}"), rtf.constData());
        QCOMPARE(bodyOf(rtf), firstParagraph() + run("word") + footnote(noteText()));
    }

    void noteOfSeveralParagraphs()
    {
        Story story;
        story.add("word", footnoteAnchor("{\\rtf1\\ansi One\\par Two\\par\\pard\\qc Three}")).add("after");
        QCOMPARE(story.body(),
                 firstParagraph() + run("word")
                     + footnote(noteText("One") + newParagraph() + run("Two")
                                + "\n\\par\\pard\\plain \\qc\\ltrch\\loch " + run("Three"))
                     + run("after"));
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
        QVERIFY2(rtf.contains("{\\listoverride\\listid1\\listoverridecount0\\ls1}"
                              "{\\listoverride\\listid2\\listoverridecount0\\ls2}}\n"),
                 rtf.constData());
        const QByteArray body = bodyOf(rtf);
        QVERIFY2(body.indexOf("\\ls1\\ilvl0") > 0, body.constData());
        QVERIFY2(body.indexOf("\\ls2\\ilvl0") > body.indexOf("\\ls1\\ilvl0"), body.constData());
        QVERIFY2(body.endsWith("\\ls2\\ilvl0{\\listtext\\f0\\fs24 1.\\tab }" + run("Own")), body.constData());
    }

    void noteWithATable()
    {
        Story note;
        QTextTable* table = note.cursor().insertTable(1, 1);
        table->cellAt(0, 0).firstCursorPosition().insertText("Cell");
        Story story;
        story.add("word", footnoteAnchor(note.stored())).add("after").paragraph().add("next");
        const QByteArray body = story.body();
        QVERIFY2(body.contains("\n\\pard\\plain \\intbl\\itap1{\\f0\\fs24 Cell}\\cell{"), body.constData());
        // Reading begins a paragraph behind each table; the note ends with it.
        QVERIFY2(body.endsWith("\\row}\\pard" + firstParagraph() + "\\f0\\fs24}}" + run("after")
                               + newParagraph() + run("next")),
                 body.constData());
    }

    void noteWithAPicture()
    {
        QImage image(2, 1, QImage::Format_RGB32);
        image.fill(Qt::red);
        Story note;
        note.document()->addResource(QTextDocument::ImageResource, QUrl("picture"), image);
        note.cursor().insertImage("picture");
        Story story;
        story.add("word", footnoteAnchor(note.stored()));
        const QByteArray body = story.body();
        QVERIFY2(body.contains("\\picw2\\pich1"), body.constData());
    }

    void noteWithANote()
    {
        Story story;
        story.add("word", footnoteAnchor("{\\rtf1\\ansi Outer{\\footnote inner}}"));
        const QByteArray inner = footnote("\\f0\\fs24 inner");
        QCOMPARE(story.body(), firstParagraph() + run("word") + footnote(noteText("Outer") + inner));
    }

    void noteThatIsDamagedHasNoText()
    {
        const QByteArray damaged = "{\\rtf1\\ansi Note\\'zz}";
        Story story;
        story.add("one", footnoteAnchor(damaged)).add("two", annotationAnchor(damaged)).add("after");
        QCOMPARE(story.body(),
                 firstParagraph() + run("one") + footnote("") + annotatedRange("1", "\\f0\\fs24 two", "")
                     + run("after"));
    }

    void noteThatIsEmptyHasNoText_data()
    {
        const Columns<QByteArray> add("content");
        add("noBytes", "");
        add("noText", "{\\rtf1\\ansi}");
    }

    void noteThatIsEmptyHasNoText()
    {
        FETCH(QByteArray, content);
        Story story;
        story.add("one", footnoteAnchor(content)).add("two", annotationAnchor(content)).add("after");
        const QByteArray expected = firstParagraph() + run("one") + footnote("")
            + annotatedRange("1", "\\f0\\fs24 two", "") + run("after");
        QCOMPARE(story.body(), expected);
        QCOMPARE(story.body(leadingSpace()), expected);
    }

    void noteInACell()
    {
        Story story;
        QTextTable* table = story.cursor().insertTable(1, 1);
        QTextCursor cell = table->cellAt(0, 0).firstCursorPosition();
        cell.insertText("word", footnoteAnchor());
        cell.insertBlock(QTextBlockFormat(), QTextCharFormat());
        cell.insertText("next");
        const QByteArray body = story.body();
        QVERIFY2(body.contains("\n\\pard\\plain \\intbl\\itap1" + run("word") + footnote(noteText())
                               + "\n\\par\\plain \\intbl\\itap1" + run("next") + "\\cell"),
                 body.constData());
    }

    void paragraphAfterANoteGoesOn()
    {
        Story story;
        story.cursor().setBlockFormat(centred());
        story.add("word", footnoteAnchor("{\\rtf1\\ansi One\\par Two}")).paragraph().add("next");
        QCOMPARE(story.body(),
                 "\n\\pard\\plain \\qc\\ltrch\\loch " + run("word")
                     + footnote(noteText("One") + newParagraph() + run("Two")) + newParagraph()
                     + run("next"));
    }

    void textAfterANoteGoesOn()
    {
        // The bookmark around the second note begins before it and is written once, at its end.
        QTextCharFormat bookmarked;
        bookmarked.setProperty(ORVRtfProperty::BookmarkName, "bm"_s);
        Story story;
        story.add("word", annotationAnchor("{\\rtf1\\ansi Note{\\footnote inner}}"))
            .add("marked", bookmarked)
            .add("x");
        QCOMPARE(story.body(),
                 firstParagraph()
                     + annotatedRange("1", "\\f0\\fs24 word", noteText() + footnote("\\f0\\fs24 inner"))
                     + run("marked") + "{\\*\\bkmkstart bm}" + run("x"));
    }

    void leadingSpaceOfInlineNotes()
    {
        Story story;
        story.add(" note", inFootnote()).add("  note ", inAnnotation()).add(" after");
        // The first blank behind \annotation ends the word, the second is the note's.
        QCOMPARE(story.body(leadingSpace()),
                 firstParagraph() + footnote(" \\f0\\fs24 note") + annotation("  \\f0\\fs24 note ")
                     + run(" after"));
        QCOMPARE(story.body(),
                 firstParagraph() + footnote("\\f0\\fs24  note") + annotation("\\f0\\fs24   note ")
                     + run(" after"));
    }

    void leadingSpaceOfTheFirstRunOnly()
    {
        Story story;
        story.add(" a", inFootnote()).add(" b", bold(inFootnote()));
        QCOMPARE(story.body(leadingSpace()),
                 firstParagraph() + footnote(" " + run("a") + "{\\f0\\fs24\\b1  b}"));
    }

    void leadingSpaceOfAnchoredNotes()
    {
        const QByteArray content = "{\\rtf1\\ansi   Note }";
        Story story;
        story.add("one", footnoteAnchor(content)).add("two", annotationAnchor(content));
        QCOMPARE(story.body(leadingSpace()),
                 firstParagraph() + run("one") + footnote(" " + noteText())
                     + annotatedRange("1", "\\f0\\fs24 two", " " + noteText()));
        WriteSettings elsewhere = leadingSpace();
        elsewhere.annotationDestination = ORVTextRtf::ExportAsFootnote;
        elsewhere.footnoteDestination = ORVTextRtf::ExportAsAlternateFootnote;
        QCOMPARE(story.body(elsewhere),
                 firstParagraph() + "\\f0\\fs24 one" + alternateFootnote(" " + noteText()) + "\\f0\\fs24 two"
                     + footnote(" " + noteText()));
    }

    void leadingSpaceNeedsAText()
    {
        Story story;
        story.add("one", footnoteAnchor("{\\rtf1\\ansi Note\\'zz}"));
        QCOMPARE(story.body(leadingSpace()), firstParagraph() + run("one") + footnote(""));
    }

    void everyPairOfStatesBalances_data()
    {
        const Columns<int, int> add("footnotes", "annotations");
        for (int footnotes = 0; footnotes < 3; ++footnotes) {
            for (int annotations = 0; annotations < 3; ++annotations)
                add(qPrintable("%1-%2"_s.arg(footnotes).arg(annotations)), footnotes, annotations);
        }
    }

    void everyPairOfStatesBalances()
    {
        FETCH(int, footnotes, int, annotations);
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
    }

    void notesAreReadBack()
    {
        Story story;
        story.add("a")
            .add("word", annotationAnchor())
            .add("b")
            .add("other", footnoteAnchor("{\\rtf1\\ansi Foot}"));
        story.add("c").add("inline", inFootnote());
        const Reading reading = rtftest::read(write(*story.document()));
        QCOMPARE(reading.status, 0);
        QCOMPARE(textWith(reading, ORVRtfProperty::InAnnotation), "Note"_s);
        QCOMPARE(textWith(reading, ORVRtfProperty::InFootnote), "Footinline"_s);
        QVERIFY(reading.text().contains("aword"));
        QVERIFY(reading.text().contains("bother"));
    }
};

ORV_TEST("writer_notes", TestWriterNotes, QGuiApplication)
#include "notes.moc"
