#include "ORVFragments.h"
#include "ORVNotes.h"
#include "ORVPageGeometry.h"
#include "ORVStockFormats.h"
#include "TextDocSupport.h"
#include "testsupport.h"

#include <QtGui/QTextTable>

using namespace ORVRtfProperty;
using rtftest::Story;

namespace {

QByteArray rtf(const QByteArray& body)
{
    return "{\\rtf1{\\fonttbl{\\f0 Serif;}}\\f0 " + body + "}";
}

QTextCharFormat inLine(int flag)
{
    QTextCharFormat format;
    format.setProperty(flag, true);
    return format;
}

QTextCharFormat attached(const QByteArray& body, int anchor = FootnoteAnchor)
{
    QTextCharFormat format;
    format.setProperty(anchor, true);
    format.setProperty(HasNoteContent, true);
    format.setProperty(NoteContent, body.isNull() ? body : rtf(body));
    return format;
}

QTextCharFormat mark(int number, const QByteArray& body, int anchor = FootnoteAnchor)
{
    QTextCharFormat format = attached(body, anchor);
    format.setProperty(NoteNumber, number);
    format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    return format;
}

QTextCharFormat endnote(int number, const QByteArray& body)
{
    QTextCharFormat format = mark(number, body);
    format.setProperty(EndnoteAnchor, true);
    return format;
}

QTextCharFormat comment(int number, const QByteArray& body, const QString& author = QString(),
                        const QDate& date = QDate(), const QString& initials = QString())
{
    QTextCharFormat format = mark(number, body, AnnotationAnchor);
    if (!author.isEmpty())
        format.setProperty(NoteAuthor, author);
    if (!initials.isEmpty())
        format.setProperty(NoteInitials, initials);
    if (date.isValid())
        format.setProperty(NoteDate, QDateTime(date, QTime(12, 30)));
    return format;
}

/*! The notes of \a document: kind, holding, place, mark and text, a line each. */
QString notesOf(const QTextDocument& document)
{
    const char* const kinds[] = {"footnote", "endnote", "comment"};
    const char* const holdings[] = {"mark", "attached", "in line"};
    QStringList lines;
    const QVector<ORVNote> notes = ORVNotes::all(&document);
    for (const ORVNote& note : notes) {
        lines << "%1 %2 %3+%4 %5: %6"_s
                     .arg(QLatin1String(holdings[note.holding]), QLatin1String(kinds[note.kind]))
                     .arg(note.position)
                     .arg(note.length)
                     .arg(note.mark, ORVNotes::text(&document, note));
    }
    return lines.join(QLatin1Char('\n'));
}

/*! \a document with its notes at the end, marks in brackets. */
QString bracketed(QTextDocument* document)
{
    ORVNotes::moveToEnd(document, ORVNotes::ApplicationForm, ORVNotes::BracketedMarks);
    return document->toPlainText();
}

QTextCharFormat formatAt(const QTextDocument& document, int position)
{
    QTextCursor cursor(const_cast<QTextDocument*>(&document));
    cursor.setPosition(position + 1);
    return cursor.charFormat();
}

} // namespace

/*! The notes of a document, and a document with its notes at the end. */
class TestNotes : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(notes)
    {
        const Rows add([](const Story& story, const QString& expected) {
            QCOMPARE(notesOf(*story.document()), expected);
        });
        add("no notes", Story().add("text"_s), "");
        add("marks",
            Story()
                .add("a"_s)
                .add("1"_s, mark(1, "one"))
                .add("*"_s, mark(0, "own"))
                .add("i"_s, endnote(1, "end"))
                .add("1"_s, comment(1, "remark"))
                .add("2"_s, mark(2, "one")),
            "mark footnote 1+1 1: one\nmark footnote 2+1 *: own\nmark endnote 3+1 i: end\n"
            "mark comment 4+1 c1: remark\nmark footnote 5+1 2: one");
        add("mark of several runs",
            Story().add("*"_s, mark(0, "one")).add("*"_s, rtftest::bold(mark(0, "one"))),
            "mark footnote 0+2 **: one");
        add("attached", Story().add("word"_s, attached("one")).add(" "_s).add("next"_s, attached("two")),
            "attached footnote 0+4 1: one\nattached footnote 5+4 2: two");
        add("attached to text of several formats",
            Story().add("wo"_s, attached("one")).add("rd"_s, rtftest::bold(attached("one"))),
            "attached footnote 0+4 1: one");
        add("attached in two paragraphs", Story().add("a\nb"_s, attached("one")),
            "attached footnote 0+1 1: one\nattached footnote 2+1 2: one");
        add("attached without content", Story().add("word"_s, attached(QByteArray())), "");
        add("mark without content", Story().add("1"_s, mark(1, QByteArray())).add("text"_s),
            "mark footnote 0+1 1: ");
        add("own mark without content", Story().add("*"_s, mark(0, QByteArray())).add("text"_s),
            "mark footnote 0+1 *: ");
        add("in line",
            Story()
                .add("a"_s)
                .add(" one "_s, inLine(InFootnote))
                .add("more"_s, rtftest::bold(inLine(InFootnote)))
                .add("two"_s, inLine(InAnnotation)),
            "in line footnote 1+9 1: one more\nin line comment 10+3 c1: two");
        add("in line, several paragraphs",
            Story().add("a"_s).add("one\n\ntwo"_s, inLine(InFootnote)).add("b"_s),
            "in line footnote 1+8 1: one\n\ntwo");
        Story apart;
        apart.add("one"_s, inLine(InFootnote)).paragraph().add("two"_s, inLine(InFootnote));
        add("in line, paragraph end between", apart,
            "in line footnote 0+3 1: one\nin line footnote 4+3 2: two");
        Story cells;
        QTextTable* const table = cells.cursor().insertTable(1, 2);
        for (int column : {0, 1}) {
            QTextCursor cursor = table->cellAt(0, column).firstCursorPosition();
            QTextCharFormat format = cursor.blockCharFormat();
            format.setProperty(InFootnote, true);
            cursor.setBlockCharFormat(format);
            cursor.insertText("x"_s, inLine(InFootnote));
        }
        add("in line, in two cells", cells, "in line footnote 1+1 1: x\nin line footnote 3+1 2: x");
        QTextCharFormat both = inLine(InFootnote);
        both.setProperty(InAnnotation, true);
        add("comment in a footnote",
            Story().add("one "_s, inLine(InFootnote)).add("remark"_s, both).add(" end"_s, inLine(InFootnote)),
            "in line footnote 0+14 1: one remark end");
        QTextCharFormat flagged = attached("one");
        flagged.setProperty(InFootnote, true);
        add("attached and in line", Story().add("word"_s, flagged), "attached footnote 0+4 1: one");
        add("numbers go on behind the largest",
            Story().add("word"_s, attached("one")).add("7"_s, mark(7, "two")).add("x"_s, inLine(InFootnote)),
            "attached footnote 0+4 8: one\nmark footnote 4+1 7: two\nin line footnote 5+1 9: x");
        QTextCharFormat endless = mark(std::numeric_limits<int>::max(), "one");
        add("largest number", Story().add("1"_s, endless).add("x"_s, inLine(InFootnote)),
            "mark footnote 0+1 1: one\nin line footnote 1+1 1000000001: x");
        add("negative number", Story().add("x"_s, mark(-5, "one")), "mark footnote 0+1 x: one");
        add("damaged content", Story().add("a"_s, mark(1, "on{e \\'")), "mark footnote 0+1 a: one");
    }

    void originOfAComment()
    {
        const QDate day(2020, 5, 1);
        const auto origin = [](const QTextCharFormat& format) {
            return ORVNotes::origin(ORVNotes::at(Story().add("1"_s, format).document(), 0));
        };
        QCOMPARE(origin(comment(1, "x", "Ann Lee"_s, day, "AL"_s)), "Ann Lee, 2020-05-01"_s);
        QCOMPARE(origin(comment(1, "x", QString(), day, "AL"_s)), "AL, 2020-05-01"_s);
        QCOMPARE(origin(comment(1, "x", QString(), day)), "2020-05-01"_s);
        QCOMPARE(origin(comment(1, "x", "Ann Lee"_s)), "Ann Lee"_s);
        QCOMPARE(origin(comment(1, "x")), QString());
    }

    void noteAtAPosition()
    {
        const Story story = Story()
                                .add("a"_s)
                                .add("1"_s, mark(1, "one"))
                                .add("b"_s)
                                .add("x\ny"_s, inLine(InFootnote))
                                .add("c"_s);
        QStringList found;
        for (int position = -1; position < 9; ++position) {
            const ORVNote note = ORVNotes::at(story.document(), position);
            found << "%1+%2"_s.arg(note.position).arg(note.length);
        }
        QCOMPARE(found.join(QLatin1Char(' ')), "0+0 0+0 1+1 0+0 3+3 3+3 3+3 0+0 0+0 0+0"_s);
        QCOMPARE(ORVNotes::at(story.document(), 1).mark, "1"_s);
    }

    void contentHasFormatsAndPictures()
    {
        QTextDocument document;
        QTextCharFormat standard;
        standard.setFontPointSize(17);
        ORVTextFormat::setDefaultCharFormat(&document, standard);
        ORVPageGeometry page;
        page.leftMargin = 50;
        page.setOn(&document);
        QTextCursor(&document).insertText("1"_s, mark(1, "plain {\\b bold}\\par second"));
        QTextDocument content;
        QVERIFY(ORVNotes::copyContent(&document, ORVNotes::at(&document, 0), &content));
        QCOMPARE(content.toPlainText(), "plain bold\nsecond"_s);
        QCOMPARE(formatAt(content, 7).fontWeight(), int(QFont::Bold));
        QCOMPARE(ORVTextFormat::defaultCharFormat(&content).fontPointSize(), 17.0);
        QCOMPARE(ORVPageGeometry::of(&content).leftMargin, 50.0);
        QVERIFY(!content.isUndoRedoEnabled());
    }

    void contentInLineHasItsOwnParagraphs()
    {
        Story story;
        story.cursor().createList(QTextListFormat::ListDecimal);
        story.add("item"_s).add("one\ntwo\nthree"_s, inLine(InFootnote)).add("end"_s);
        QTextImageFormat picture;
        picture.setName("picture"_s);
        picture.setProperty(InFootnote, true);
        story.cursor().setPosition(7);
        story.addPicture(picture).addResource("picture"_s, QImage(2, 2, QImage::Format_RGB32));
        QTextDocument content;
        QVERIFY(ORVNotes::copyContent(story.document(), ORVNotes::all(story.document()).first(), &content));
        QCOMPARE(content.toPlainText(), "one\ufffc\ntwo\nthree"_s);
        QVERIFY(!content.begin().textList());
        QVERIFY(content.begin().next().textList());
        QCOMPARE(content.begin().next().textList(), content.lastBlock().textList());
        QVERIFY(!TextDocSupport::image(&content, "picture"_s).isNull());
        for (const QTextFragment& run : rtftest::fragmentsOf(content))
            QVERIFY(!run.charFormat().hasProperty(InFootnote));
    }

    void contentIsInTheFormOfTheDocument()
    {
        const Story story = Story().add("1"_s, mark(1, "\\pard\\li720 text"));
        const ORVNote note = ORVNotes::at(story.document(), 0);
        QTextDocument content;
        ORVNotes::copyContent(story.document(), note, &content, ORVNotes::ApplicationForm);
        QCOMPARE(content.begin().blockFormat().doubleProperty(LeftIndent), 36.0);
        QCOMPARE(content.begin().blockFormat().leftMargin(), 0.0);
        ORVNotes::copyContent(story.document(), note, &content, ORVNotes::StockForm);
        QCOMPARE(content.begin().blockFormat().leftMargin(), 48.0);
    }

    void damagedContent()
    {
        const Story story = Story().add("1"_s, mark(1, "text{"));
        QTextDocument content;
        QVERIFY(!ORVNotes::copyContent(story.document(), ORVNotes::at(story.document(), 0), &content));
        QCOMPARE(content.toPlainText(), "text"_s);
    }

    ORV_ROWS(notesAtEnd)
    {
        const Rows add([](const Story& story, const QString& expected) {
            QCOMPARE(bracketed(story.document()), expected);
            QVERIFY(ORVNotes::all(story.document()).isEmpty());
        });
        add("no notes", Story().add("text\n"_s), "text\n");
        add("marks, by kind",
            Story()
                .add("a"_s)
                .add("1"_s, comment(1, "remark", "Ann"_s, QDate(2020, 5, 1)))
                .add("b"_s)
                .add("i"_s, endnote(1, "end"))
                .add("c"_s)
                .add("1"_s, mark(1, "one"))
                .add("2"_s, mark(2, "two"))
                .add("*"_s, mark(0, "own")),
            "a[c1]b[i]c[1][2][*]\n\n[1] one\n[2] two\n[*] own\n[i] end\n[c1] Ann, 2020-05-01: remark");
        add("attached", Story().add("a "_s).add("word"_s, attached("one")).add("."_s),
            "a word[1].\n\n[1] one");
        add("in line", Story().add("a"_s).add(" one\ntwo "_s, inLine(InFootnote)).add("b"_s),
            "a[1]b\n\n[1] one\ntwo");
        add("an empty last paragraph", Story().add("a"_s).add("1"_s, mark(1, "one")).add("\n"_s),
            "a[1]\n\n[1] one");
        add("all of the text is a note", Story().add("one"_s, inLine(InFootnote)), "[1]\n\n[1] one");
        add("without content", Story().add("1"_s, mark(1, QByteArray())), "[1]\n\n[1] ");
        add("white space around the content", Story().add("1"_s, mark(1, " \\par  one\\par two\\par\\par ")),
            "[1]\n\n[1] one\ntwo");
        QTextCharFormat both = inLine(InFootnote);
        both.setProperty(InAnnotation, true);
        add("a note in a note",
            Story()
                .add("a"_s)
                .add("one "_s, inLine(InFootnote))
                .add("inner"_s, both)
                .add(" end"_s, inLine(InFootnote))
                .add("b"_s)
                .add("1"_s, comment(1, "remark {\\footnote deep{\\*\\annotation deeper}} end"))
                .add("2"_s, mark(2, "two")),
            "a[3]b[c1][2]\n\n[3] one [c2] end\n[2] two\n[4] deep[c3]\n[c1] remark [4] end\n[c2] inner\n"
            "[c3] deeper");
        Story table;
        table.add("a"_s).cursor().insertTable(1, 1);
        table.add("1"_s, mark(1, "one"));
        add("in a table", table, "a\n[1]\n\n[1] one");
    }

    /*! Paragraph formats, lists and tables of notes are those of their contents. */
    void structureOfNotes()
    {
        const Story story =
            Story()
                .add("1"_s,
                     mark(1,
                          "{\\*\\listtable{\\list\\listid1{\\listlevel\\levelnfc0{\\leveltext\\'02\\'00.;}"
                          "{\\levelnumbers\\'01;}}}}{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}"
                          "\\pard\\ls1\\qc one\\par two\\par\\pard\\qr three"))
                .add("2"_s, mark(2, "\\trowd\\cellx1000\\cellx2000\\intbl x\\cell y\\cell\\row\\pard z"));
        ORVNotes::moveToEnd(story.document());
        QCOMPARE(story.document()->toPlainText(), "12\n\n1 one\ntwo\nthree\n2 \nx\ny\n\nz"_s);
        const QTextBlock one = story.document()->findBlockByNumber(2);
        QVERIFY(one.textList());
        QCOMPARE(one.textList()->count(), 2);
        QCOMPARE(one.textList(), one.next().textList());
        QCOMPARE(one.blockFormat().alignment(), Qt::AlignHCenter);
        QCOMPARE(one.next().next().blockFormat().alignment(), Qt::AlignRight);
        QVERIFY(!one.next().next().textList());
        const QTextTable* const table = story.document()->findChild<QTextTable*>();
        QVERIFY(table);
        QCOMPARE(table->columns(), 2);
    }

    void picturesOfNotes()
    {
        QImage image(2, 2, QImage::Format_RGB32);
        image.fill(Qt::red);
        Story note;
        QTextImageFormat format;
        format.setName("picture"_s);
        note.addResource("picture"_s, image).addPicture(format);
        QTextCharFormat anchor = mark(1, "x");
        anchor.setProperty(NoteContent, note.stored());
        const Story story = Story().add("1"_s, anchor);
        ORVNotes::moveToEnd(story.document());
        const QStringList names = ORVFragments::pictureNames(story.document());
        QCOMPARE(names.size(), 1);
        QCOMPARE(TextDocSupport::image(story.document(), names.first()).pixelColor(0, 0), QColor(Qt::red));
    }

    /*! Superscript and without links, of the format of the text around them. */
    void marksAreRaised()
    {
        QTextCharFormat link = rtftest::bold(attached("three"));
        link.setAnchor(true);
        link.setAnchorHref("target"_s);
        QTextCharFormat plainMark = mark(2, "two");
        plainMark.clearProperty(QTextFormat::TextVerticalAlignment);
        const Story story = Story()
                                .add("a"_s)
                                .add("1"_s, mark(1, "{\\fs40 one}"))
                                .add("2"_s, plainMark)
                                .add("1"_s, comment(1, "remark"))
                                .add("word"_s, link);
        ORVNotes::moveToEnd(story.document());
        QCOMPARE(story.document()->toPlainText(), "a12c1word3\n\n1 one\n2 two\n3 three\nc1 remark"_s);
        for (int position : {1, 2, 3, 4, 9, 12, 18, 24, 32, 33})
            QCOMPARE(formatAt(*story.document(), position).verticalAlignment(),
                     QTextCharFormat::AlignSuperScript);
        for (int position : {0, 5, 13, 14, 34})
            QCOMPARE(formatAt(*story.document(), position).verticalAlignment(), QTextCharFormat::AlignNormal);
        QVERIFY(formatAt(*story.document(), 8).isAnchor());
        QVERIFY(!formatAt(*story.document(), 9).isAnchor());
        QCOMPARE(formatAt(*story.document(), 9).fontWeight(), int(QFont::Bold));
        QCOMPARE(formatAt(*story.document(), 12).fontPointSize(), 20.0);
    }

    /*! Of 2 inches, at the left, in both forms. */
    void ruleInFrontOfTheNotes()
    {
        QTextBlockFormat rules[2];
        for (bool stockFirst : {false, true}) {
            const Story story = Story().add("1"_s, mark(1, "\\pard\\li720 one"));
            ORVPageGeometry page;
            page.paperSize = QSizeF(400, 600);
            page.setOn(story.document());
            if (stockFirst)
                ORVStockFormats::toStock(story.document());
            ORVNotes::moveToEnd(story.document(),
                                stockFirst ? ORVNotes::StockForm : ORVNotes::ApplicationForm);
            if (!stockFirst)
                ORVStockFormats::toStock(story.document());
            rules[stockFirst] = story.document()->findBlockByNumber(1).blockFormat();
            QCOMPARE(story.document()->lastBlock().blockFormat().leftMargin(), 48.0);
        }
        for (const QTextBlockFormat& rule : rules) {
            QCOMPARE(rule.lengthProperty(QTextFormat::BlockTrailingHorizontalRulerWidth).rawValue(), 192.0);
            // 400 - 90 - 90 - 144 points
            QCOMPARE(rule.rightMargin(), 76 * 96 / 72.0);
        }
    }

    void isOneStepForUndo()
    {
        const Story story = Story().add("a"_s).add("one"_s, inLine(InFootnote)).add("b"_s);
        ORVNotes::moveToEnd(story.document());
        QCOMPARE(story.document()->toPlainText(), "a1b\n\n1 one"_s);
        story.document()->undo();
        QCOMPARE(story.document()->toPlainText(), "aoneb"_s);
        QCOMPARE(notesOf(*story.document()), "in line footnote 1+3 1: one"_s);
    }

    /*! In time proportional to them: of one paragraph, whose runs Qt can only walk from its start. */
    void manyNotesInOneParagraph()
    {
        const int count = 5000;
        Story story;
        story.cursor().beginEditBlock();
        for (int i = 1; i <= count; ++i) {
            story.add("w"_s).add(QString::number(i), mark(i, QByteArray::number(i)));
            story.add("w"_s).add("x"_s, inLine(InFootnote));
        }
        story.cursor().endEditBlock();
        QElapsedTimer timer;
        timer.start();
        ORVNotes::moveToEnd(story.document());
        QVERIFY2(timer.elapsed() < 10000, qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(story.document()->blockCount(), 2 + 2 * count);
        QCOMPARE(story.document()->lastBlock().text(), "10000 x"_s);
    }

    void nullDocuments()
    {
        QTextDocument document;
        QVERIFY(ORVNotes::all(nullptr).isEmpty());
        QCOMPARE(ORVNotes::at(nullptr, 0).length, 0);
        QVERIFY(!ORVNotes::copyContent(nullptr, ORVNote(), &document));
        QVERIFY(!ORVNotes::copyContent(&document, ORVNote(), nullptr));
        QCOMPARE(ORVNotes::text(nullptr, ORVNote()), QString());
        ORVNotes::clear(nullptr);
        ORVNotes::moveToEnd(nullptr);
    }
};

ORV_TEST("notes", TestNotes, QGuiApplication)
#include "notes.moc"
