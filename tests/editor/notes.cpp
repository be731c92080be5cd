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

/*! Has the user type \a text, in place of what is there, in the dialog of a note. */
DialogAnswer<NoteDialog>* newAnswer(const QString& text)
{
    return new DialogAnswer<NoteDialog>([text](NoteDialog* dialog) {
        dialog->content()->setPlainText(text);
        dialog->accept();
    });
}

QByteArray footnote(const QByteArray& text)
{
    return "{\\super\\chftn{\\footnote\\pard\\plain {\\super\\chftn\\f0\\fs24} " + firstParagraph()
        + run(text) + "}}";
}

QByteArray comment(const QByteArray& range, const QByteArray& text)
{
    return "{{\\*\\atrfstart 1}\\f0\\fs24 " + range
        + "{\\*\\atrfend 1}}{\\chatn{\\*\\annotation{\\*\\atnref 1} " + firstParagraph() + run(text) + "}}";
}

/*! The notes of \a window's document: kind, place and text, a line each. */
QString notesOf(const EditorWindow& window)
{
    const QTextDocument& document = *window.textEdit()->document();
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

/*! The tool tip over the character at \a position, as HTML; empty for none. */
QString tipAt(EditorWindow& window, int position)
{
    QWidget* const viewport = window.textEdit()->viewport();
    const QPoint place = placeOf(window, position);
    QHelpEvent event(QEvent::ToolTip, place, viewport->mapToGlobal(place));
    QApplication::sendEvent(viewport, &event);
    return QToolTip::text();
}

} // namespace

/*! Footnotes and comments in the editor window. */
class TestEditorNotes : public QObject {
    Q_OBJECT

private slots:
    void init() { m_window = shownWindow(); }
    void cleanup() { m_window.reset(); }

    void insertedFootnoteIsSaved()
    {
        m_window->textEdit()->setPlainText("some words"_s);
        select(*m_window, 5, 10);
        trigger("Footnote…", "Which?"_s);
        QCOMPARE(notesOf(*m_window), "attached footnote 5+5 Which?"_s);
        const QByteArray rtf = savedRtf(*m_window);
        QCOMPARE(rtf,
                 documentHead() + firstParagraph() + run("some ") + run("words") + footnote("Which?") + "}");
        QVERIFY(formatOf(*read(rtf).document, "Which?"_s).boolProperty(ORVRtfProperty::InFootnote));
    }

    void insertedCommentIsSaved()
    {
        m_window->textEdit()->setPlainText("some words"_s);
        select(*m_window, 0, 4);
        trigger("Comment…", "How many?"_s);
        QCOMPARE(notesOf(*m_window), "attached comment 0+4 How many?"_s);
        QCOMPARE(savedRtf(*m_window),
                 documentHead() + firstParagraph() + comment("some", "How many?") + run(" words") + "}");
    }

    ORV_ROWS(placeOfANote)
    {
        const Rows add(
            [this](const QString& text, int from, int to, const QString& note, const QString& notes) {
                m_window->textEdit()->setPlainText(text);
                select(*m_window, from, to);
                trigger("Footnote…", note);
                QCOMPARE(notesOf(*m_window), notes);
            });
        add("first character", "one two.", 0, 0, "x", "attached footnote 0+3 x");
        add("within a word", "one two.", 5, 5, "x", "attached footnote 4+3 x");
        add("behind a word, before punctuation", "one two.", 7, 7, "x", "attached footnote 4+3 x");
        add("behind punctuation", "one two.", 8, 8, "x", "in line footnote 8+1 x");
        add("two paragraphs: the last", "one\ntwo", 1, 6, "x", "attached footnote 4+2 x");
        add("no word", "", 0, 0, "one\ntwo", "in line footnote 0+7 one\ntwo");
        add("empty note: none", "word", 0, 0, "", "");
    }

    /*! RTF has one of the two only, and the link would be lost. */
    ORV_ROWS(noteOfALinkIsPutBehindIt)
    {
        const Rows add([this](int from, int to) {
            QVERIFY(openRtf(
                *m_window, "{\\rtf1\\ansi A {\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt link}} end{}}"));
            select(*m_window, from, to);
            trigger("Comment…", "new"_s);
            QCOMPARE(notesOf(*m_window), "in line comment 6+3 new"_s);
            QCOMPARE(document()->toPlainText(), "A linknew end"_s);
            QCOMPARE(Links::at(*document(), 2).length, 4);
        });
        add("cursor in the link", 4, 4);
        add("selected link", 2, 6);
        add("part of it and more", 0, 4);
    }

    /*! A font of its own, which the document has nowhere else. */
    void fontOfANoteIsSaved()
    {
        m_window->textEdit()->setPlainText("word"_s);
        const DialogAnswer<NoteDialog> answer([](NoteDialog* dialog) {
            QTextCharFormat format;
            compat::setFontFamily(format, "Quibble Serif"_s);
            QTextCursor(dialog->content()).insertText("text"_s, format);
            dialog->accept();
        });
        actionOf(*m_window, "Footnote…")->trigger();
        const QByteArray rtf = savedRtf(*m_window);
        QVERIFY2(fontTableOf(rtf).contains("Quibble Serif"), rtf.constData());
        QCOMPARE(compat::fontFamily(formatOf(*read(rtf).document, "text"_s)), "Quibble Serif"_s);
    }

    void secondNoteOfAWordIsPutBehindIt()
    {
        m_window->textEdit()->setPlainText("word."_s);
        select(*m_window, 2, 2);
        trigger("Footnote…", "first"_s);
        select(*m_window, 2, 2);
        trigger("Footnote…", "second"_s);
        QCOMPARE(notesOf(*m_window), "attached footnote 0+4 first\nin line footnote 5+6 second"_s);
        QCOMPARE(document()->toPlainText(), "word second."_s);
    }

    void insertingIsOneStepForUndo()
    {
        m_window->textEdit()->setPlainText("word"_s);
        trigger("Comment…", "first"_s);
        trigger("Comment…", "second"_s);
        document()->undo();
        QCOMPARE(notesOf(*m_window), "attached comment 0+4 first"_s);
        QCOMPARE(document()->toPlainText(), "word"_s);
        document()->undo();
        QCOMPARE(notesOf(*m_window), QString());
    }

    ORV_ROWS(notesOfAFile)
    {
        const Rows add([this](const QByteArray& rtf, const QString& notes) {
            QVERIFY(openRtf(*m_window, rtf));
            QCOMPARE(notesOf(*m_window), notes);
        });
        add("are found",
            "{\\rtf1\\ansi One{\\super\\chftn{\\footnote first {\\b bold}}} two"
            "{\\chatn{\\*\\annotation second}}{\\footnote third}.{}}",
            "in line footnote 3+10 first bold\nin line comment 17+6 second\nin line footnote 23+5 third");
        add("end with their paragraph", "{\\rtf1\\ansi {\\footnote one\\par two} three{}}",
            "in line footnote 0+3 one\nin line footnote 4+3 two");
    }

    ORV_ROWS(noteIsEdited)
    {
        const Rows add([this](bool isAttached) {
            if (isAttached) {
                m_window->textEdit()->setPlainText("word end"_s);
                trigger("Comment…", "before"_s);
            } else {
                QVERIFY(openRtf(*m_window, "{\\rtf1\\ansi {\\*\\annotation before} end{}}"));
            }
            select(*m_window, 2, 2);
            QString shown;
            const DialogAnswer<NoteDialog> answer([&](NoteDialog* dialog) {
                shown = dialog->content()->toPlainText();
                dialog->content()->setPlainText("after"_s);
                dialog->accept();
            });
            actionOf(*m_window, "Edit note…")->trigger();
            QCOMPARE(shown, "before"_s);
            QCOMPARE(notesOf(*m_window),
                     isAttached ? "attached comment 0+4 after"_s : "in line comment 0+5 after"_s);
            QVERIFY(document()->toPlainText().endsWith(" end"_s));
        });
        add("attached", true);
        add("in line", false);
    }

    void editingKeepsFormats()
    {
        QVERIFY(openRtf(*m_window, "{\\rtf1\\ansi {\\footnote one {\\b two}} end{}}"));
        const DialogAnswer<NoteDialog> answer([](NoteDialog* dialog) {
            QTextCursor(dialog->content()).insertText("new "_s, QTextCharFormat());
            dialog->accept();
        });
        actionOf(*m_window, "Edit note…")->trigger();
        QCOMPARE(notesOf(*m_window), "in line footnote 0+11 new one two"_s);
        QCOMPARE(contentOf(*m_window), "new one *two* end"_s);
    }

    ORV_ROWS(noteIsDeleted)
    {
        const Rows add([this](const QByteArray& action, bool isEmptied) {
            QVERIFY(openRtf(*m_window, "{\\rtf1\\ansi word{\\footnote text} end{}}"));
            select(*m_window, 0, 4);
            trigger("Comment…", "x"_s);
            QCOMPARE(notesOf(*m_window), "attached comment 0+4 x\nin line footnote 4+4 text"_s);
            for (int position : {6, 2}) {
                select(*m_window, position, position);
                if (isEmptied)
                    trigger(action.constData(), QString());
                else
                    actionOf(*m_window, action.constData())->trigger();
            }
            QCOMPARE(notesOf(*m_window), QString());
            QCOMPARE(document()->toPlainText(), "word end"_s);
        });
        add("deleted", "Delete note", false);
        add("emptied", "Edit note…", true);
    }

    void actionsNeedANote()
    {
        QVERIFY(openRtf(*m_window, "{\\rtf1\\ansi word{\\footnote text} end{}}"));
        for (const char* action : {"Edit note…", "Delete note"}) {
            select(*m_window, 1, 1);
            QVERIFY(!actionOf(*m_window, action)->isEnabled());
            select(*m_window, 6, 6);
            QVERIFY(actionOf(*m_window, action)->isEnabled());
        }
    }

    ORV_ROWS(textTypedBehindANoteIsNoPartOfIt)
    {
        const Rows add([this](const QByteArray& rtf) {
            QVERIFY(openRtf(*m_window, rtf));
            const QString note = notesOf(*m_window);
            select(*m_window, 4, 4);
            QTest::keyClicks(m_window->textEdit(), "ab"_s);
            QCOMPARE(document()->toPlainText(), "textab"_s);
            QCOMPARE(notesOf(*m_window), note);
        });
        add("footnote", "{\\rtf1\\ansi {\\footnote text}{}}");
        add("comment", "{\\rtf1\\ansi {\\*\\annotation text}{}}");
    }

    void panelListsAllNotes()
    {
        QVERIFY(
            openRtf(*m_window, "{\\rtf1\\ansi a{\\footnote  one\\line two}b{\\*\\annotation <b>three}c{}}"));
        QCOMPARE(m_window->notesPanel()->texts(),
                 QStringList({"Footnote: one two"_s, "Comment: <b>three"_s}));
        QVERIFY(openRtf(*m_window, "{\\rtf1\\ansi a{}}"));
        QCOMPARE(m_window->notesPanel()->texts(), QStringList());
    }

    void panelFollowsTheText()
    {
        m_window->textEdit()->setPlainText("word"_s);
        trigger("Footnote…", "new"_s);
        QTRY_COMPARE(m_window->notesPanel()->texts(), QStringList("Footnote: new"_s));
        document()->undo();
        QTRY_COMPARE(m_window->notesPanel()->texts(), QStringList());
    }

    /*! Also when the text has changed since the list was made. */
    void panelShowsThePlaceOfANote()
    {
        QVERIFY(openRtf(*m_window, "{\\rtf1\\ansi a{\\footnote one}b{\\*\\annotation two}c{}}"));
        QTest::keyClicks(m_window->textEdit(), "xx"_s);
        m_window->notesPanel()->showNote(1);
        QCOMPARE(m_window->textEdit()->textCursor().selectedText(), "two"_s);
        m_window->notesPanel()->showNote(2);
        QCOMPARE(m_window->textEdit()->textCursor().selectedText(), "two"_s);
    }

    ORV_ROWS(clickInThePanelShowsThePlace)
    {
        const Rows add([this](int button) {
            QVERIFY(openRtf(*m_window, "{\\rtf1\\ansi a{\\footnote one}b{\\*\\annotation two}c{}}"));
            const QListWidget* list = m_window->notesPanel()->findChild<QListWidget*>();
            const QPoint second = list->visualItemRect(list->item(1)).center();
            QTest::mousePress(list->viewport(), Qt::MouseButton(button), Qt::NoModifier, second);
            QCOMPARE(m_window->textEdit()->textCursor().selectedText(), "two"_s);
            QCOMPARE(list->actions(), m_window->findChild<NoteActions*>()->actions());
        });
        add("left", int(Qt::LeftButton));
        add("right", int(Qt::RightButton));
    }

    void doubleClickInThePanelEdits()
    {
        QVERIFY(openRtf(*m_window, "{\\rtf1\\ansi a{\\footnote one}b{\\*\\annotation two}c{}}"));
        const QListWidget* list = m_window->notesPanel()->findChild<QListWidget*>();
        const QPoint second = list->visualItemRect(list->item(1)).center();
        const std::unique_ptr<DialogAnswer<NoteDialog>> answer(newAnswer("new"_s));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, second);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, second);
        QVERIFY(answer->isGiven());
        QCOMPARE(document()->toPlainText(), "aonebnewc"_s);
    }

    ORV_ROWS(tipSaysWhatTheNoteSays)
    {
        const Rows add([this](int position, const QString& tip) {
            QVERIFY(
                openRtf(*m_window, "{\\rtf1\\ansi w{\\footnote a <b>}{\\*\\annotation two\\line lines}{}}"));
            QCOMPARE(tipAt(*m_window, position), tip);
        });
        add("text without a note", 0, QString());
        add("footnote", 2, "<p>Footnote: a &lt;b&gt;</p>");
        add("comment", 7, "<p>Comment: two<br>lines</p>");
    }

    void printedNotesAreNumbered()
    {
        QVERIFY(openRtf(*m_window, "{\\rtf1\\ansi One{\\footnote first} two.{}}"));
        select(*m_window, 9, 12);
        trigger("Comment…", "second"_s);
        const std::unique_ptr<QTextDocument> copy = PrintCopy::of(*document());
        QCOMPARE(textOf(*copy), "One1 two2.\n1 first\n2 second"_s);
        QCOMPARE(formatOf(*copy, "2"_s).verticalAlignment(), QTextCharFormat::AlignSuperScript);
        QCOMPARE(document()->toPlainText(), "Onefirst two."_s);
    }

private:
    QTextDocument* document() const { return m_window->textEdit()->document(); }

    /*! Triggers \a action, and has the user say \a text in the dialog that it opens. */
    void trigger(const char* action, const QString& text)
    {
        const std::unique_ptr<DialogAnswer<NoteDialog>> answer(newAnswer(text));
        actionOf(*m_window, action)->trigger();
        QVERIFY(answer->isGiven());
    }

    std::unique_ptr<EditorWindow> m_window;
};

ORV_TEST("editor_notes", TestEditorNotes, QApplication)
#include "notes.moc"
