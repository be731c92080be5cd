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
    return "a{\\footnote one}b{\\*\\annotation two}c";
}

/*! The notes of \a document: kind, place and text, a line each. */
QString notesOf(const QTextDocument& document)
{
    QStringList lines;
    const QVector<Note> notes = Notes::in(document);
    for (const Note& note : notes) {
        lines << "%1 %2 %3+%4 %5"_s
                     .arg(QLatin1String(note.isAttached ? "attached" : "in line"),
                          QLatin1String(note.kind == Note::Comment ? "comment" : "footnote"))
                     .arg(note.position)
                     .arg(note.length)
                     .arg(Notes::text(document, note));
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
        const Rows add([this](int from, int to, const QByteArray& action, const QString& notes,
                              const QByteArray& body, int property) {
            edit()->setPlainText("some words"_s);
            select(from, to);
            enter(action, "Which?"_s);
            QCOMPARE(notesOf(*document()), notes);
            const QByteArray rtf = saved();
            QCOMPARE(rtf, documentHead() + firstParagraph() + body + "}");
            QVERIFY(formatOf(*read(rtf).document, "Which?"_s).boolProperty(property));
        });
        const QByteArray note = " " + firstParagraph() + run("Which?") + "}}";
        add("footnote", 5, 10, "Footnote…", "attached footnote 5+5 Which?",
            run("some ") + run("words") + "{\\super\\chftn{\\footnote\\pard\\plain {\\super\\chftn\\f0\\fs24}"
                + note,
            int(ORVRtfProperty::InFootnote));
        add("comment", 0, 4, "Comment…", "attached comment 0+4 Which?",
            "{{\\*\\atrfstart 1}\\f0\\fs24 some{\\*\\atrfend 1}}{\\chatn{\\*\\annotation{\\*\\atnref 1}"
                + note + run(" words"),
            int(ORVRtfProperty::InAnnotation));
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
            "{\\footnote third}.",
            0, 0, nothing,
            "in line footnote 3+10 first bold\nin line comment 17+6 second\nin line footnote 23+5 third",
            "Onefirst bold twosecondthird.");
        add("end with their paragraph", "{\\footnote one\\par two} three", 0, 0, nothing,
            "in line footnote 0+3 one\nin line footnote 4+3 two", "one\ntwo three");

        const auto footnote = [this] { enter("Footnote…", "x"_s); };
        add("of the first character", "one two.", 0, 0, footnote, "attached footnote 0+3 x", "one two.");
        add("within a word", "one two.", 5, 5, footnote, "attached footnote 4+3 x", "one two.");
        add("behind a word, before punctuation", "one two.", 7, 7, footnote, "attached footnote 4+3 x",
            "one two.");
        add("behind punctuation", "one two.", 8, 8, footnote, "in line footnote 8+1 x", "one two.x");
        add("two paragraphs: the last", "one\\par two", 1, 6, footnote, "attached footnote 4+2 x",
            "one\ntwo");
        add(
            "no word", "", 0, 0, [this] { enter("Footnote…", "one\ntwo"_s); },
            "in line footnote 0+7 one\ntwo", "one\ntwo");
        add(
            "empty note: none", "word", 0, 0, [this] { enter("Footnote…", QString()); }, "", "word");
        const auto two = [this] {
            enter("Footnote…", "first"_s);
            select(2);
            enter("Footnote…", "second"_s);
        };
        add("second note of a word is put behind it", "word.", 2, 2, two,
            "attached footnote 0+4 first\nin line footnote 5+6 second", "word second.");
        const auto undone = [this] {
            enter("Comment…", "first"_s);
            enter("Comment…", "second"_s);
            document()->undo();
            QCOMPARE(notesOf(*document()), "attached comment 0+4 first"_s);
            QCOMPARE(text(), "word"_s);
            document()->undo();
        };
        add("inserting is one step for undo", "word", 0, 0, undone, "", "word");
        // RTF has one of the two only, and the link would be lost.
        const QByteArray link = "A {\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt link}} end";
        const auto comment = [this] {
            enter("Comment…", "new"_s);
            QCOMPARE(Links::at(*document(), 2).length, 4);
        };
        add("cursor in a link", link, 4, 4, comment, "in line comment 6+3 new", "A linknew end");
        add("selected link", link, 2, 6, comment, "in line comment 6+3 new", "A linknew end");
        add("part of a link and more", link, 0, 4, comment, "in line comment 6+3 new", "A linknew end");

        const auto edit = [this] {
            trigger<NoteDialog>("Edit note…", [](NoteDialog* dialog) {
                QCOMPARE(dialog->content()->toPlainText(), "before"_s);
                dialog->content()->setPlainText("after"_s);
                dialog->accept();
            });
        };
        const auto insertAndEdit = [this, edit] {
            enter("Comment…", "before"_s);
            select(2);
            edit();
        };
        add("edited, attached", "word end", 0, 0, insertAndEdit, "attached comment 0+4 after", "word end");
        add("edited, in line", "{\\*\\annotation before} end", 2, 2, edit, "in line comment 0+5 after",
            "after end");

        const QByteArray oneOfEach = "word{\\footnote text} end";
        const auto forBoth = [this](const std::function<void()>& remove) {
            return [this, remove] {
                enter("Comment…", "x"_s);
                QCOMPARE(notesOf(*document()), "attached comment 0+4 x\nin line footnote 4+4 text"_s);
                for (int position : {6, 2}) {
                    select(position);
                    remove();
                }
            };
        };
        add("deleted", oneOfEach, 0, 4, forBoth([this] { trigger("Delete note"); }), "", "word end");
        add("emptied", oneOfEach, 0, 4, forBoth([this] { enter("Edit note…", QString()); }), "", "word end");
        const auto typing = [this] { type("ab"); };
        add("text behind a footnote", "{\\footnote text}", 4, 4, typing, "in line footnote 0+4 text",
            "textab");
        add("text behind a comment", "{\\*\\annotation text}", 4, 4, typing, "in line comment 0+4 text",
            "textab");
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
        open("{\\footnote one {\\b two}} end");
        trigger<NoteDialog>("Edit note…", [](NoteDialog* dialog) {
            QTextCursor(dialog->content()).insertText("new "_s, QTextCharFormat());
            dialog->accept();
        });
        QCOMPARE(notesOf(*document()), "in line footnote 0+11 new one two"_s);
        QCOMPARE(content(), "new one *two* end"_s);
    }

    void actionsNeedANote()
    {
        open("word{\\footnote text} end");
        for (const char* name : {"Edit note…", "Delete note"}) {
            select(1);
            QVERIFY(!action(name)->isEnabled());
            select(6);
            QVERIFY(action(name)->isEnabled());
        }
    }

    void panelListsAllNotesOfTheText()
    {
        open("a{\\footnote  one\\line two}b{\\*\\annotation <b>three}c");
        QCOMPARE(panel()->texts(), QStringList({"Footnote: one two"_s, "Comment: <b>three"_s}));
        open("a");
        QCOMPARE(panel()->texts(), QStringList());
        enter("Footnote…", "new"_s);
        QTRY_COMPARE(panel()->texts(), QStringList("Footnote: new"_s));
        document()->undo();
        QTRY_COMPARE(panel()->texts(), QStringList());
    }

    ORV_ROWS(panelShowsThePlaceOfANote)
    {
        const Rows add([this](const std::function<void()>& show) {
            open(twoNotes());
            show();
            QCOMPARE(edit()->textCursor().selectedText(), "two"_s);
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
        QCOMPARE(text(), "aonebnewc"_s);
    }

    ORV_ROWS(tipSaysWhatTheNoteSays)
    {
        const Rows add([this](int position, const QString& tip) {
            open("w{\\footnote a <b>}{\\*\\annotation two\\line lines}");
            QWidget* const viewport = edit()->viewport();
            QHelpEvent event(QEvent::ToolTip, placeOf(position), viewport->mapToGlobal(placeOf(position)));
            QApplication::sendEvent(viewport, &event);
            QCOMPARE(QToolTip::text(), tip);
        });
        add("text without a note", 0, QString());
        add("footnote", 2, "<p>Footnote: a &lt;b&gt;</p>");
        add("comment", 7, "<p>Comment: two<br>lines</p>");
    }

    void printedNotesAreNumbered()
    {
        open("One{\\footnote first} two.");
        select(9, 12);
        enter("Comment…", "second"_s);
        const std::unique_ptr<QTextDocument> copy = PrintCopy::of(*document());
        QCOMPARE(textOf(*copy), "One1 two2.\n1 first\n2 second"_s);
        QCOMPARE(formatOf(*copy, "2"_s).verticalAlignment(), QTextCharFormat::AlignSuperScript);
        QCOMPARE(text(), "Onefirst two."_s);
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
