#include "Notes.h"
#include "Links.h"
#include "NoteActions.h"
#include "NoteDialog.h"
#include "NotesPanel.h"
#include "PrintCopy.h"
#include "editorhelpers.h"

using namespace editortest;
using namespace rtftest;

namespace {

/*! Text with a footnote and a comment in it. */
QByteArray twoNotes()
{
    return "a{\\super\\chftn{\\footnote one}}b{\\chatn{\\*\\annotation two}}c";
}

/*! The notes of \a document: kind, place and text, a line each. */
QString notesOf(const QTextDocument& document)
{
    QStringList lines;
    const char* const kinds[] = {"footnote", "endnote", "comment"};
    const char* const holdings[] = {"mark", "attached", "in line"};
    const QVector<ORVNote> notes = ORVNotes::all(&document);
    for (const ORVNote& note : notes) {
        lines << "%1 %2 %3+%4 %5 %6"_s
                     .arg(QLatin1String(holdings[note.holding]), QLatin1String(kinds[note.kind]))
                     .arg(note.position)
                     .arg(note.length)
                     .arg(note.mark, ORVNotes::text(&document, note));
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace

/*! Footnotes and comments in the editor window. */
class TestEditorNotes : public EditorTest {
    Q_OBJECT

private slots:
    ORV_ROWS(insertedNoteIsSaved)
    {
        const Rows add(
            [this](int from, int to, const QByteArray& action, const QString& notes, const QByteArray& body) {
                edit()->setPlainText("some words"_s);
                select(from, to);
                enter(action, "Which?"_s);
                QCOMPARE(notesOf(*document()), notes);
                const QByteArray rtf = saved();
                QCOMPARE(rtf, documentHead() + firstParagraph() + body + "}");
                open(rtf.mid(6, rtf.size() - 7));
                QCOMPARE(notesOf(*document()), notes);
            });
        const QByteArray note = " " + firstParagraph() + run("Which?") + "}}";
        add("footnote", 5, 10, "Footnote…", "mark footnote 10+1 1 Which?",
            run("some words")
                + "{\\super\\f0\\fs24\\super\\chftn{\\footnote\\pard\\plain {\\super\\chftn\\f0\\fs24\\super}"
                + note);
        add("comment", 0, 4, "Comment…", "mark comment 4+1 c1 Which?",
            run("some") + "{\\f0\\fs24\\super\\chatn{\\*\\annotation " + note + run(" words"));
    }

    /*! What is made of the notes and the text of a file by some steps, with a selection to begin with. */
    ORV_ROWS(notes)
    {
        const Rows add([this](const QByteArray& body, int from, int to, const std::function<void()>& steps,
                              const QString& notes, const QString& text) {
            open(body);
            select(from, to);
            steps();
            QCOMPARE(notesOf(*document()), notes);
            QCOMPARE(this->text(), text);
        });
        const auto nothing = [] {};
        add("of a file",
            "One{\\super\\chftn{\\footnote first {\\b bold}}} two{\\chatn{\\*\\annotation second}}"
            "{\\super\\chftn{\\footnote third}}.",
            0, 0, nothing,
            "mark footnote 3+1 1 first bold\nmark comment 8+1 c1 second\nmark footnote 9+1 2 third",
            "One1 two12.");

        const auto footnote = [this] { enter("Footnote…", "x"_s); };
        add("in front of the first character", "one two.", 0, 0, footnote, "mark footnote 0+1 1 x",
            "1one two.");
        add("within a word: behind it", "one two.", 5, 5, footnote, "mark footnote 7+1 1 x", "one two1.");
        add("behind a word", "one two.", 7, 7, footnote, "mark footnote 7+1 1 x", "one two1.");
        add("behind punctuation", "one two.", 8, 8, footnote, "mark footnote 8+1 1 x", "one two.1");
        add("within punctuation", "one...two", 4, 4, footnote, "mark footnote 4+1 1 x", "one.1..two");
        add("selection", "one two.", 0, 3, footnote, "mark footnote 3+1 1 x", "one1 two.");
        add("selection in two paragraphs", "one\\par two", 1, 6, footnote, "mark footnote 6+1 1 x",
            "one\ntw1o");
        add(
            "no word", "", 0, 0, [this] { enter("Footnote…", "one\ntwo"_s); }, "mark footnote 0+1 1 one\ntwo",
            "1");
        add(
            "empty note: none", "word", 0, 0, [this] { enter("Footnote…", QString()); }, "", "word");
        const auto undone = [this] {
            enter("Comment…", "first"_s);
            select(0);
            enter("Comment…", "second"_s);
            QCOMPARE(text(), "12word"_s);
            document()->undo();
            QCOMPARE(notesOf(*document()), "mark comment 0+1 c1 first"_s);
            document()->undo();
        };
        add("inserting is one step for undo", "word", 0, 0, undone, "", "word");
        const QByteArray link = "A {\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt link}} end";
        const auto comment = [this] {
            enter("Comment…", "new"_s);
            QCOMPARE(Links::at(*document(), 2).length, 4);
        };
        add("cursor in a link", link, 4, 4, comment, "mark comment 6+1 c1 new", "A link1 end");
        add("selected link", link, 2, 6, comment, "mark comment 6+1 c1 new", "A link1 end");
        add("part of a link and more", link, 0, 4, comment, "mark comment 6+1 c1 new", "A link1 end");

        const auto edit = [this] {
            trigger<NoteDialog>("Edit note…", [](NoteDialog* dialog) {
                QCOMPARE(dialog->content()->toPlainText(), "before"_s);
                dialog->content()->setPlainText("after"_s);
                dialog->accept();
            });
        };
        add("edited", "word{\\chatn{\\*\\annotation before}} end", 5, 5, edit, "mark comment 4+1 c1 after",
            "word1 end");
        const auto remove = [this] { trigger("Delete note"); };
        add("deleted", "word{\\super\\chftn{\\footnote text}} end", 4, 4, remove, "", "word end");
        add(
            "emptied", "word{\\super\\chftn{\\footnote text}} end", 4, 4,
            [this] { enter("Edit note…", QString()); }, "", "word end");
        const auto typing = [this] { type("ab"); };
        const QByteArray mark = "{\\super\\chftn{\\footnote text}}";
        add("text behind a mark", mark, 1, 1, typing, "mark footnote 0+1 1 text", "1ab");
        const auto typingInFront = [this] {
            select(0);
            type("ab");
        };
        add("text in front of a mark", mark, 1, 1, typingInFront, "mark footnote 2+1 1 text", "ab1");
        add("text behind a comment's mark", "a{\\chatn{\\*\\annotation text}}", 2, 2, typing,
            "mark comment 1+1 c1 text", "a1ab");
    }

    void typedTextIsNotRaised()
    {
        open("word{\\super\\chftn{\\footnote text}}");
        select(5);
        type("ab");
        QCOMPARE(formatOf(*document(), "1"_s).verticalAlignment(), QTextCharFormat::AlignSuperScript);
        QCOMPARE(formatOf(*document(), "ab"_s).verticalAlignment(), QTextCharFormat::AlignNormal);
    }

    /*! The numbers of other kinds, own marks, and a count that begins anew stay. */
    ORV_ROWS(numbers)
    {
        const Rows add([this](int position, const QByteArray& action, const QString& text) {
            const auto note = [](const QByteArray& mark, const QByteArray& kind = QByteArray()) {
                return "{\\super " + mark + "{\\footnote" + kind + " " + mark + " x}}";
            };
            open("\\aftnnrlc a" + note("\\chftn") + "b" + note("\\chftn", "\\ftnalt") + "c" + note("*") + "d"
                 + note("\\chftn") + "e" + note("\\chftn", "\\ftnalt") + "f{\\chatn{\\*\\annotation x}}g");
            QCOMPARE(this->text(), "a1bic*d2eiif1g"_s);
            select(position);
            if (action == "Delete note")
                trigger(action);
            else
                enter(action, "x"_s);
            QCOMPARE(this->text(), text);
            document()->undo();
            QCOMPARE(this->text(), "a1bic*d2eiif1g"_s);
        });
        add("footnote first", 0, "Footnote…", "1a2bic*d3eiif1g");
        add("footnote between", 3, "Footnote…", "a1b2ic*d3eiif1g");
        add("footnote last", 14, "Footnote…", "a1bic*d2eiif1g3");
        add("comment first", 0, "Comment…", "1a1bic*d2eiif2g");
        add("footnote deleted", 1, "Delete note", "abic*d1eiif1g");
        add("endnote deleted", 4, "Delete note", "a1bc*d2eif1g");
        add("own mark deleted", 6, "Delete note", "a1bicd2eiif1g");
        add("last footnote deleted", 8, "Delete note", "a1bic*deiif1g");
    }

    void countsThatBeginAnew()
    {
        edit()->setPlainText(QString());
        QTextCursor cursor(document());
        for (int number : {5, 6, 1, 2}) {
            QTextCharFormat format;
            format.setProperty(ORVRtfProperty::FootnoteAnchor, true);
            format.setProperty(ORVRtfProperty::NoteNumber, number);
            format.setProperty(ORVRtfProperty::NoteContent, "{\\rtf1 x}"_b);
            cursor.insertText(QString::number(number), format);
            cursor.insertText(" "_s, QTextCharFormat());
        }
        select(0);
        enter("Footnote…", "x"_s);
        QCOMPARE(text(), "56 7 1 2 "_s);
        select(1);
        trigger("Delete note");
        QCOMPARE(text(), "5 6 1 2 "_s);
    }

    /*! Notes of the storage form, which have no marks, come from the clipboard. */
    ORV_ROWS(notesWithoutMarks)
    {
        const Rows add([this](int position, const std::function<void()>& steps, const QString& notes,
                              const QString& text) {
            QTextCursor cursor(document());
            QTextCharFormat attached;
            attached.setProperty(ORVRtfProperty::AnnotationAnchor, true);
            attached.setProperty(ORVRtfProperty::HasNoteContent, true);
            attached.setProperty(ORVRtfProperty::NoteContent, "{\\rtf1 before}"_b);
            QTextCharFormat inLine;
            inLine.setProperty(ORVRtfProperty::InFootnote, true);
            cursor.insertText("word"_s, attached);
            cursor.insertText("before"_s, inLine);
            cursor.insertText(" end"_s, QTextCharFormat());
            QCOMPARE(notesOf(*document()), "attached comment 0+4 c1 before\nin line footnote 4+6 1 before"_s);
            select(position);
            steps();
            QCOMPARE(notesOf(*document()), notes);
            QCOMPARE(this->text(), text);
        });
        const auto edit = [this] { enter("Edit note…", "after"_s); };
        const auto remove = [this] { trigger("Delete note"); };
        const auto comment = [this] { enter("Comment…", "new"_s); };
        add("attached, edited", 2, edit, "attached comment 0+4 c1 after\nin line footnote 4+6 1 before",
            "wordbefore end");
        add("in line, edited", 6, edit, "attached comment 0+4 c1 before\nin line footnote 4+5 1 after",
            "wordafter end");
        add("attached, deleted", 2, remove, "in line footnote 4+6 1 before", "wordbefore end");
        add("in line, deleted", 6, remove, "attached comment 0+4 c1 before", "word end");
        add("new note within one in line", 6, comment,
            "attached comment 0+4 c2 before\nin line footnote 4+6 1 before\nmark comment 10+1 c1 new",
            "wordbefore1 end");
        const auto typing = [this] { type("ab"); };
        add("text behind one in line", 10, typing,
            "attached comment 0+4 c1 before\nin line footnote 4+6 1 before", "wordbeforeab end");
        const auto paragraphs = [this] { enter("Edit note…", "one\ntwo"_s); };
        add("paragraphs in line become lines", 6, paragraphs,
            "attached comment 0+4 c1 before\nin line footnote 4+7 1 one\ntwo", "wordone\ntwo end");
    }

    /*! A font of its own, which the document has nowhere else. */
    void fontOfANoteIsSaved()
    {
        edit()->setPlainText("word"_s);
        trigger<NoteDialog>("Footnote…", [](NoteDialog* dialog) {
            QTextCharFormat format;
            compat::setFontFamily(format, "Quibble Serif"_s);
            QTextCursor(dialog->content()).insertText("text"_s, format);
            dialog->accept();
        });
        const QByteArray rtf = saved();
        QVERIFY2(fontTableOf(rtf).contains("Quibble Serif"), rtf.constData());
        QCOMPARE(compat::fontFamily(formatOf(*read(rtf).document, "text"_s)), "Quibble Serif"_s);
    }

    void editingKeepsFormats()
    {
        open("{\\super\\chftn{\\footnote one {\\b two}}} end");
        select(0);
        trigger<NoteDialog>("Edit note…", [](NoteDialog* dialog) {
            QTextCursor(dialog->content()).insertText("new "_s, QTextCharFormat());
            dialog->accept();
        });
        QCOMPARE(notesOf(*document()), "mark footnote 0+1 1 new one two"_s);
        QTextDocument content;
        ORVNotes::copyContent(document(), ORVNotes::at(document(), 0), &content);
        QCOMPARE(formatOf(content, "two"_s).fontWeight(), int(QFont::Bold));
    }

    void actionsNeedANote()
    {
        open("word{\\super\\chftn{\\footnote text}} end");
        for (const char* name : {"Edit note…", "Delete note"}) {
            select(1);
            QVERIFY(!action(name)->isEnabled());
            select(5);
            QVERIFY(action(name)->isEnabled());
        }
    }

    void panelListsAllNotesOfTheText()
    {
        open("a{\\super\\chftn{\\footnote  one\\line two}}b{\\super\\chftn{\\footnote\\ftnalt end}}"
             "{\\*\\atnid AL}{\\*\\atnauthor Ann Lee}{\\chatn{\\*\\annotation{\\*\\atndate "
             "126159424}<b>three}}"
             "{\\chatn{\\*\\annotation four}}c");
        QCOMPARE(panel()->texts(),
                 QStringList({"Footnote 1: one two"_s, "Endnote i: end"_s,
                              "Comment 1 (Ann Lee, 2020-05-01): <b>three"_s, "Comment 2: four"_s}));
        open("a");
        QCOMPARE(panel()->texts(), QStringList());
        enter("Footnote…", "new"_s);
        QTRY_COMPARE(panel()->texts(), QStringList("Footnote 1: new"_s));
        document()->undo();
        QTRY_COMPARE(panel()->texts(), QStringList());
    }

    ORV_ROWS(panelShowsThePlaceOfANote)
    {
        const Rows add([this](const std::function<void()>& show) {
            open(twoNotes());
            show();
            QCOMPARE(edit()->textCursor().selectedText(), "1"_s);
            QCOMPARE(ORVNotes::at(document(), edit()->textCursor().selectionStart()).kind, ORVNote::Comment);
            QCOMPARE(list()->actions(), m_window->findChild<NoteActions*>()->actions());
        });
        const auto press = [this](Qt::MouseButton button) {
            return [=] { QTest::mousePress(list()->viewport(), button, Qt::NoModifier, second()); };
        };
        add("left button", press(Qt::LeftButton));
        add("right button", press(Qt::RightButton));
        add("text that has changed since the list was made", [this] {
            type("xx");
            panel()->showNote(1);
        });
        add("no such note", [this] {
            panel()->showNote(1);
            panel()->showNote(2);
        });
    }

    void doubleClickInThePanelEdits()
    {
        open(twoNotes());
        const DialogAnswer<NoteDialog> answer(enterInDialog("new"_s));
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, Qt::NoModifier, second());
        QTest::mouseDClick(list()->viewport(), Qt::LeftButton, Qt::NoModifier, second());
        QVERIFY(answer.isGiven());
        QTRY_COMPARE(panel()->texts(), QStringList({"Footnote 1: one"_s, "Comment 1: new"_s}));
    }

    ORV_ROWS(tipSaysWhatTheNoteSays)
    {
        const Rows add([this](int position, const QString& tip) {
            open("word{\\super\\chftn{\\footnote a <b>}}{\\chatn{\\*\\annotation two\\line lines}}");
            QWidget* const viewport = edit()->viewport();
            QHelpEvent event(QEvent::ToolTip, placeOf(position), viewport->mapToGlobal(placeOf(position)));
            QApplication::sendEvent(viewport, &event);
            QCOMPARE(QToolTip::text(), tip);
        });
        add("text without a note", 0, QString());
        add("footnote", 4, "<p>Footnote 1: a &lt;b&gt;</p>");
        add("comment", 5, "<p>Comment 1: two<br>lines</p>");
    }

    void printedNotesAreNumbered()
    {
        open("One{\\super\\chftn{\\footnote first}} two.");
        select(5, 8);
        enter("Comment…", "second"_s);
        const std::unique_ptr<QTextDocument> copy = PrintCopy::of(*document());
        QCOMPARE(textOf(*copy), "One1 twoc1.\n\n1 first\nc1 second"_s);
        QVERIFY(copy->findBlockByNumber(1).blockFormat().hasProperty(
            QTextFormat::BlockTrailingHorizontalRulerWidth));
        QCOMPARE(formatOf(*copy, "c1"_s).verticalAlignment(), QTextCharFormat::AlignSuperScript);
        QCOMPARE(text(), "One1 two1."_s);
    }

private:
    NotesPanel* panel() const { return m_window->notesPanel(); }
    QListWidget* list() const { return panel()->findChild<QListWidget*>(); }
    /*! Where the second note is shown in the list. */
    QPoint second() const { return list()->visualItemRect(list()->item(1)).center(); }

    /*! Has the user enter \a text, in place of what is there, in the dialog of a note. */
    static std::function<void(NoteDialog*)> enterInDialog(const QString& text)
    {
        return [text](NoteDialog* dialog) {
            dialog->content()->setPlainText(text);
            dialog->accept();
        };
    }

    /*! Triggers \a action, and has the user enter \a text in the dialog that it opens. */
    void enter(const QByteArray& action, const QString& text) const
    {
        trigger<NoteDialog>(action, enterInDialog(text));
    }
};

ORV_TEST("editor_notes", TestEditorNotes, QApplication)
#include "notes.moc"
