#include "Links.h"
#include "NoteActions.h"
#include "NoteDialog.h"
#include "Notes.h"
#include "NotesPanel.h"
#include "ORVRtfProperties.h"
#include "PrintCopy.h"
#include "QtFontCompat_p.h"
#include "editorhelpers.h"
#include "rtfstory.h"

#include <QtGui/QHelpEvent>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QToolTip>

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
        lines << QStringLiteral("%1 %2 %3+%4 %5")
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
    void init();
    void cleanup();

    void insertedFootnoteIsSaved();
    void insertedCommentIsSaved();
    void noteIsAttachedToTheWordAtTheCursor_data();
    void noteIsAttachedToTheWordAtTheCursor();
    void noteOfALinkIsPutBehindIt_data();
    void noteOfALinkIsPutBehindIt();
    void fontOfANoteIsSaved();
    void noteOfTwoParagraphsIsAttachedToTheLast();
    void noteWithoutAWordIsPutInLine();
    void secondNoteOfAWordIsPutBehindIt();
    void emptyNoteIsNotInserted();
    void insertingIsOneStepForUndo();

    void notesOfAFileAreFound();
    void notesEndWithTheirParagraph();
    void noteIsEdited_data();
    void noteIsEdited();
    void editingKeepsFormats();
    void noteIsDeleted_data();
    void noteIsDeleted();
    void actionsNeedANote();
    void textTypedBehindANoteIsNoPartOfIt_data();
    void textTypedBehindANoteIsNoPartOfIt();

    void panelListsAllNotes();
    void panelFollowsTheText();
    void panelShowsThePlaceOfANote();
    void clickInThePanelShowsThePlace_data();
    void clickInThePanelShowsThePlace();
    void doubleClickInThePanelEdits();
    void tipSaysWhatTheNoteSays_data();
    void tipSaysWhatTheNoteSays();
    void printedNotesAreNumbered();

private:
    QTextDocument* document() const { return m_window->textEdit()->document(); }
    void trigger(const char* action, const QString& text);

    std::unique_ptr<EditorWindow> m_window;
};

void TestEditorNotes::init()
{
    m_window = shownWindow();
}

void TestEditorNotes::cleanup()
{
    m_window.reset();
}

/*! Triggers \a action, and has the user say \a text in the dialog that it opens. */
void TestEditorNotes::trigger(const char* action, const QString& text)
{
    const std::unique_ptr<DialogAnswer<NoteDialog>> answer(newAnswer(text));
    actionOf(*m_window, action)->trigger();
    QVERIFY(answer->isGiven());
}

void TestEditorNotes::insertedFootnoteIsSaved()
{
    m_window->textEdit()->setPlainText(QStringLiteral("some words"));
    select(*m_window, 5, 10);
    trigger("Footnote…", QStringLiteral("Which?"));
    QCOMPARE(notesOf(*m_window), QStringLiteral("attached footnote 5+5 Which?"));
    const QByteArray rtf = savedRtf(*m_window);
    QCOMPARE(rtf, documentHead() + firstParagraph() + run("some ") + run("words") + footnote("Which?") + "}");
    QVERIFY(formatOf(*read(rtf).document, QStringLiteral("Which?")).boolProperty(ORVRtfProperty::InFootnote));
}

void TestEditorNotes::insertedCommentIsSaved()
{
    m_window->textEdit()->setPlainText(QStringLiteral("some words"));
    select(*m_window, 0, 4);
    trigger("Comment…", QStringLiteral("How many?"));
    QCOMPARE(notesOf(*m_window), QStringLiteral("attached comment 0+4 How many?"));
    QCOMPARE(savedRtf(*m_window),
             documentHead() + firstParagraph() + comment("some", "How many?") + run(" words") + "}");
}

void TestEditorNotes::noteIsAttachedToTheWordAtTheCursor_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("notes");
    QTest::newRow("first character") << 0 << QStringLiteral("attached footnote 0+3 x");
    QTest::newRow("within") << 5 << QStringLiteral("attached footnote 4+3 x");
    QTest::newRow("behind, before punctuation") << 7 << QStringLiteral("attached footnote 4+3 x");
    QTest::newRow("behind punctuation") << 8 << QStringLiteral("in line footnote 8+1 x");
}

void TestEditorNotes::noteIsAttachedToTheWordAtTheCursor()
{
    QFETCH(int, position);
    QFETCH(QString, notes);
    m_window->textEdit()->setPlainText(QStringLiteral("one two."));
    select(*m_window, position, position);
    trigger("Footnote…", QStringLiteral("x"));
    QCOMPARE(notesOf(*m_window), notes);
}

/*! RTF has one of the two only, and the link would be lost. */
void TestEditorNotes::noteOfALinkIsPutBehindIt_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::newRow("cursor in the link") << 4 << 4;
    QTest::newRow("selected link") << 2 << 6;
    QTest::newRow("part of it and more") << 0 << 4;
}

void TestEditorNotes::noteOfALinkIsPutBehindIt()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QVERIFY(
        openRtf(*m_window, "{\\rtf1\\ansi A {\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt link}} end{}}"));
    select(*m_window, from, to);
    trigger("Comment…", QStringLiteral("new"));
    QCOMPARE(notesOf(*m_window), QStringLiteral("in line comment 6+3 new"));
    QCOMPARE(document()->toPlainText(), QStringLiteral("A linknew end"));
    QCOMPARE(Links::at(*document(), 2).length, 4);
}

/*! A font of its own, which the document has nowhere else. */
void TestEditorNotes::fontOfANoteIsSaved()
{
    m_window->textEdit()->setPlainText(QStringLiteral("word"));
    const DialogAnswer<NoteDialog> answer([](NoteDialog* dialog) {
        QTextCharFormat format;
        compat::setFontFamily(format, QStringLiteral("Quibble Serif"));
        QTextCursor(dialog->content()).insertText(QStringLiteral("text"), format);
        dialog->accept();
    });
    actionOf(*m_window, "Footnote…")->trigger();
    const QByteArray rtf = savedRtf(*m_window);
    QVERIFY2(fontTableOf(rtf).contains("Quibble Serif"), rtf.constData());
    QCOMPARE(compat::fontFamily(formatOf(*read(rtf).document, QStringLiteral("text"))),
             QStringLiteral("Quibble Serif"));
}

void TestEditorNotes::noteOfTwoParagraphsIsAttachedToTheLast()
{
    m_window->textEdit()->setPlainText(QStringLiteral("one\ntwo"));
    select(*m_window, 1, 6);
    trigger("Comment…", QStringLiteral("x"));
    QCOMPARE(notesOf(*m_window), QStringLiteral("attached comment 4+2 x"));
}

void TestEditorNotes::noteWithoutAWordIsPutInLine()
{
    trigger("Footnote…", QStringLiteral("one\ntwo"));
    QCOMPARE(notesOf(*m_window), QStringLiteral("in line footnote 0+7 one\ntwo"));
}

void TestEditorNotes::secondNoteOfAWordIsPutBehindIt()
{
    m_window->textEdit()->setPlainText(QStringLiteral("word."));
    select(*m_window, 2, 2);
    trigger("Footnote…", QStringLiteral("first"));
    select(*m_window, 2, 2);
    trigger("Footnote…", QStringLiteral("second"));
    QCOMPARE(notesOf(*m_window), QStringLiteral("attached footnote 0+4 first\nin line footnote 5+6 second"));
    QCOMPARE(document()->toPlainText(), QStringLiteral("word second."));
}

void TestEditorNotes::emptyNoteIsNotInserted()
{
    m_window->textEdit()->setPlainText(QStringLiteral("word"));
    trigger("Footnote…", QString());
    QCOMPARE(notesOf(*m_window), QString());
}

void TestEditorNotes::insertingIsOneStepForUndo()
{
    m_window->textEdit()->setPlainText(QStringLiteral("word"));
    trigger("Comment…", QStringLiteral("first"));
    trigger("Comment…", QStringLiteral("second"));
    document()->undo();
    QCOMPARE(notesOf(*m_window), QStringLiteral("attached comment 0+4 first"));
    QCOMPARE(document()->toPlainText(), QStringLiteral("word"));
    document()->undo();
    QCOMPARE(notesOf(*m_window), QString());
}

void TestEditorNotes::notesOfAFileAreFound()
{
    QVERIFY(openRtf(*m_window,
                    "{\\rtf1\\ansi One{\\super\\chftn{\\footnote first {\\b bold}}} two"
                    "{\\chatn{\\*\\annotation second}}{\\footnote third}.{}}"));
    QCOMPARE(notesOf(*m_window),
             QStringLiteral("in line footnote 3+10 first bold\n"
                            "in line comment 17+6 second\n"
                            "in line footnote 23+5 third"));
}

void TestEditorNotes::notesEndWithTheirParagraph()
{
    QVERIFY(openRtf(*m_window, "{\\rtf1\\ansi {\\footnote one\\par two} three{}}"));
    QCOMPARE(notesOf(*m_window), QStringLiteral("in line footnote 0+3 one\nin line footnote 4+3 two"));
}

void TestEditorNotes::noteIsEdited_data()
{
    QTest::addColumn<bool>("isAttached");
    QTest::newRow("attached") << true;
    QTest::newRow("in line") << false;
}

void TestEditorNotes::noteIsEdited()
{
    QFETCH(bool, isAttached);
    if (isAttached) {
        m_window->textEdit()->setPlainText(QStringLiteral("word end"));
        trigger("Comment…", QStringLiteral("before"));
    } else {
        QVERIFY(openRtf(*m_window, "{\\rtf1\\ansi {\\*\\annotation before} end{}}"));
    }
    select(*m_window, 2, 2);
    QString shown;
    const DialogAnswer<NoteDialog> answer([&](NoteDialog* dialog) {
        shown = dialog->content()->toPlainText();
        dialog->content()->setPlainText(QStringLiteral("after"));
        dialog->accept();
    });
    actionOf(*m_window, "Edit note…")->trigger();
    QCOMPARE(shown, QStringLiteral("before"));
    QCOMPARE(notesOf(*m_window),
             isAttached ? QStringLiteral("attached comment 0+4 after")
                        : QStringLiteral("in line comment 0+5 after"));
    QVERIFY(document()->toPlainText().endsWith(QStringLiteral(" end")));
}

void TestEditorNotes::editingKeepsFormats()
{
    QVERIFY(openRtf(*m_window, "{\\rtf1\\ansi {\\footnote one {\\b two}} end{}}"));
    const DialogAnswer<NoteDialog> answer([](NoteDialog* dialog) {
        QTextCursor(dialog->content()).insertText(QStringLiteral("new "), QTextCharFormat());
        dialog->accept();
    });
    actionOf(*m_window, "Edit note…")->trigger();
    QCOMPARE(notesOf(*m_window), QStringLiteral("in line footnote 0+11 new one two"));
    QCOMPARE(contentOf(*m_window), QStringLiteral("new one *two* end"));
}

void TestEditorNotes::noteIsDeleted_data()
{
    QTest::addColumn<QByteArray>("action");
    QTest::addColumn<bool>("isEmptied");
    QTest::newRow("deleted") << QByteArray("Delete note") << false;
    QTest::newRow("emptied") << QByteArray("Edit note…") << true;
}

void TestEditorNotes::noteIsDeleted()
{
    QFETCH(QByteArray, action);
    QFETCH(bool, isEmptied);
    QVERIFY(openRtf(*m_window, "{\\rtf1\\ansi word{\\footnote text} end{}}"));
    select(*m_window, 0, 4);
    trigger("Comment…", QStringLiteral("x"));
    QCOMPARE(notesOf(*m_window), QStringLiteral("attached comment 0+4 x\nin line footnote 4+4 text"));
    for (int position : {6, 2}) {
        select(*m_window, position, position);
        if (isEmptied)
            trigger(action.constData(), QString());
        else
            actionOf(*m_window, action.constData())->trigger();
    }
    QCOMPARE(notesOf(*m_window), QString());
    QCOMPARE(document()->toPlainText(), QStringLiteral("word end"));
}

void TestEditorNotes::actionsNeedANote()
{
    QVERIFY(openRtf(*m_window, "{\\rtf1\\ansi word{\\footnote text} end{}}"));
    for (const char* action : {"Edit note…", "Delete note"}) {
        select(*m_window, 1, 1);
        QVERIFY(!actionOf(*m_window, action)->isEnabled());
        select(*m_window, 6, 6);
        QVERIFY(actionOf(*m_window, action)->isEnabled());
    }
}

void TestEditorNotes::textTypedBehindANoteIsNoPartOfIt_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::newRow("footnote") << QByteArray("{\\rtf1\\ansi {\\footnote text}{}}");
    QTest::newRow("comment") << QByteArray("{\\rtf1\\ansi {\\*\\annotation text}{}}");
}

void TestEditorNotes::textTypedBehindANoteIsNoPartOfIt()
{
    QFETCH(QByteArray, rtf);
    QVERIFY(openRtf(*m_window, rtf));
    const QString note = notesOf(*m_window);
    select(*m_window, 4, 4);
    QTest::keyClicks(m_window->textEdit(), QStringLiteral("ab"));
    QCOMPARE(document()->toPlainText(), QStringLiteral("textab"));
    QCOMPARE(notesOf(*m_window), note);
}

void TestEditorNotes::panelListsAllNotes()
{
    QVERIFY(openRtf(*m_window, "{\\rtf1\\ansi a{\\footnote  one\\line two}b{\\*\\annotation <b>three}c{}}"));
    QCOMPARE(m_window->notesPanel()->texts(),
             QStringList({QStringLiteral("Footnote: one two"), QStringLiteral("Comment: <b>three")}));
    QVERIFY(openRtf(*m_window, "{\\rtf1\\ansi a{}}"));
    QCOMPARE(m_window->notesPanel()->texts(), QStringList());
}

void TestEditorNotes::panelFollowsTheText()
{
    m_window->textEdit()->setPlainText(QStringLiteral("word"));
    trigger("Footnote…", QStringLiteral("new"));
    QTRY_COMPARE(m_window->notesPanel()->texts(), QStringList(QStringLiteral("Footnote: new")));
    document()->undo();
    QTRY_COMPARE(m_window->notesPanel()->texts(), QStringList());
}

/*! Also when the text has changed since the list was made. */
void TestEditorNotes::panelShowsThePlaceOfANote()
{
    QVERIFY(openRtf(*m_window, "{\\rtf1\\ansi a{\\footnote one}b{\\*\\annotation two}c{}}"));
    QTest::keyClicks(m_window->textEdit(), QStringLiteral("xx"));
    m_window->notesPanel()->showNote(1);
    QCOMPARE(m_window->textEdit()->textCursor().selectedText(), QStringLiteral("two"));
    m_window->notesPanel()->showNote(2);
    QCOMPARE(m_window->textEdit()->textCursor().selectedText(), QStringLiteral("two"));
}

void TestEditorNotes::clickInThePanelShowsThePlace_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("left") << int(Qt::LeftButton);
    QTest::newRow("right") << int(Qt::RightButton);
}

void TestEditorNotes::clickInThePanelShowsThePlace()
{
    QFETCH(int, button);
    QVERIFY(openRtf(*m_window, "{\\rtf1\\ansi a{\\footnote one}b{\\*\\annotation two}c{}}"));
    const QListWidget* list = m_window->notesPanel()->findChild<QListWidget*>();
    const QPoint second = list->visualItemRect(list->item(1)).center();
    QTest::mousePress(list->viewport(), Qt::MouseButton(button), Qt::NoModifier, second);
    QCOMPARE(m_window->textEdit()->textCursor().selectedText(), QStringLiteral("two"));
    QCOMPARE(list->actions(), m_window->findChild<NoteActions*>()->actions());
}

void TestEditorNotes::doubleClickInThePanelEdits()
{
    QVERIFY(openRtf(*m_window, "{\\rtf1\\ansi a{\\footnote one}b{\\*\\annotation two}c{}}"));
    const QListWidget* list = m_window->notesPanel()->findChild<QListWidget*>();
    const QPoint second = list->visualItemRect(list->item(1)).center();
    const std::unique_ptr<DialogAnswer<NoteDialog>> answer(newAnswer(QStringLiteral("new")));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, second);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, second);
    QVERIFY(answer->isGiven());
    QCOMPARE(document()->toPlainText(), QStringLiteral("aonebnewc"));
}

void TestEditorNotes::tipSaysWhatTheNoteSays_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("tip");
    QTest::newRow("text without a note") << 0 << QString();
    QTest::newRow("footnote") << 2 << QStringLiteral("<p>Footnote: a &lt;b&gt;</p>");
    QTest::newRow("comment") << 7 << QStringLiteral("<p>Comment: two<br>lines</p>");
}

void TestEditorNotes::tipSaysWhatTheNoteSays()
{
    QFETCH(int, position);
    QFETCH(QString, tip);
    QVERIFY(openRtf(*m_window, "{\\rtf1\\ansi w{\\footnote a <b>}{\\*\\annotation two\\line lines}{}}"));
    QCOMPARE(tipAt(*m_window, position), tip);
}

void TestEditorNotes::printedNotesAreNumbered()
{
    QVERIFY(openRtf(*m_window, "{\\rtf1\\ansi One{\\footnote first} two.{}}"));
    select(*m_window, 9, 12);
    trigger("Comment…", QStringLiteral("second"));
    const std::unique_ptr<QTextDocument> copy = PrintCopy::of(*document());
    QCOMPARE(textOf(*copy), QStringLiteral("One1 two2.\n1 first\n2 second"));
    QCOMPARE(formatOf(*copy, QStringLiteral("2")).verticalAlignment(), QTextCharFormat::AlignSuperScript);
    QCOMPARE(document()->toPlainText(), QStringLiteral("Onefirst two."));
}

QTEST_MAIN(TestEditorNotes)
#include "tst_editor_notes.moc"
