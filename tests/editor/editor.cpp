#include "InsertActions.h"
#include "ORV.h"
#include "editorhelpers.h"
#include "testpaths.h"

using namespace editortest;
using namespace rtftest;

namespace {

/*! Answers the next message box with one of its buttons, as soon as it is there. */
class BoxAnswer {
public:
    explicit BoxAnswer(QMessageBox::StandardButton button)
        : m_answer([this, button](QMessageBox* box) {
              m_text = box->text();
              box->button(button)->click();
          })
    {
    }

    /*! The text of the box; null when there was none. */
    QString text() const { return m_text; }

private:
    QString m_text;
    DialogAnswer<QMessageBox> m_answer;
};

/*! Drags \a mime onto the middle of \a target and drops it there; false when it is not wanted there. */
bool drop(const QMimeData& mime, QWidget* target)
{
    const QPoint middle = target->rect().center();
    QDragEnterEvent enter(middle, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent drop(middle, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &drop);
    return drop.isAccepted();
}

/*! Drags the file \a name onto \a target, as the other drop(). */
bool dropFile(const QString& name, QWidget* target)
{
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(name)});
    return drop(mime, target);
}

QString bullet(const char* text)
{
    return QChar(0x2022) + QLatin1Char(' ') + QLatin1String(text);
}

} // namespace

/*! The editor window, without other programs. */
class TestEditor : public EditorTest {
    Q_OBJECT

private slots:
    void rtfIsDroppedIntoTheText()
    {
        for (const QString& type : ORV::rtfMimeTypes()) {
            edit()->clear();
            QMimeData mime;
            mime.setData(type, richRtf());
            QVERIFY(drop(mime, edit()->viewport()));
            QCOMPARE(content(), richContent());
        }
        QVERIFY(m_window->isWindowModified());
    }

    void rtfFileIsDroppedOntoTheText()
    {
        const QString file = makeFile("dropped.rtf", richRtf());
        QVERIFY(!dropFile(makeFile("other.txt", richRtf()), m_window->menuWidget()));
        QCOMPARE(m_window->fileName(), QString());
        QVERIFY(dropFile(file, edit()->viewport()));
        QCOMPARE(content(), richContent());
        QCOMPARE(m_window->fileName(), file);
        QVERIFY(!m_window->isWindowModified());
        QVERIFY(m_window->close());
    }

    void rtfFileIsDroppedOntoTheWindow()
    {
        const QString file = makeFile("dropped.RTF", richRtf());
        edit()->insertPlainText("changed"_s);
        const BoxAnswer answer(QMessageBox::Cancel);
        QVERIFY(dropFile(file, m_window.get()));
        QCOMPARE(answer.text(), "Save the changes?"_s);
        QCOMPARE(content(), "changed"_s);
        const BoxAnswer secondAnswer(QMessageBox::Discard);
        QVERIFY(dropFile(file, m_window.get()));
        QCOMPARE(content(), richContent());
        QCOMPARE(m_window->fileName(), file);
    }

    ORV_ROWS(bestFlavourIsPasted)
    {
        typedef std::map<QString, QByteArray> Flavours;
        const Rows add([this](const Flavours& flavours, const QString& pasted) {
            QMimeData* mime = new QMimeData;
            for (const auto& flavour : flavours)
                mime->setData(flavour.first, flavour.second);
            QApplication::clipboard()->setMimeData(mime);
            edit()->paste();
            QCOMPARE(content(), pasted);
        });
        const QString own = QString::fromLatin1(ORV::OrvellineMarkupRtfMimeType);
        add("own flavour is preferred", {{"text/rtf"_s, "{\\rtf1 plain{}}"}, {own, "{\\rtf1 own{}}"}}, "own");
        add("damaged RTF gives way to text",
            {{"text/rtf"_s, "{\\rtf1 {half} a text"}, {"text/plain"_s, "whole text"}}, "whole text");
        add("HTML where there is no RTF", {{"text/html"_s, "some <b>bold</b> text"}}, "some *bold* text");
    }

    ORV_ROWS(pastingReplacesTheSelection)
    {
        const Rows add([this](const QByteArray& body, int length, const QString& pasted) {
            edit()->setPlainText("abcde"_s);
            select(1, 4);
            copyAndPaste(body, 0, length);
            QCOMPARE(content(), pasted);
            QCOMPARE(edit()->textCursor().position(), 1 + length);
            // In one step
            edit()->undo();
            QCOMPARE(content(), "abcde"_s);
        });
        add("words", "one {\\b two}", 7, "aone *two*e");
        add("paragraphs", "one\\par two\\par three", 13, "aone\ntwo\nthreee");
    }

    ORV_ROWS(partIsCopied)
    {
        const Rows add(
            [this](const QByteArray& body, int from, int to, const QString& pasted, int alignment) {
                copyAndPaste(body, from, to);
                QCOMPARE(content(), pasted);
                const QTextBlock first = document()->begin();
                QCOMPARE(int(first.blockFormat().alignment() & Qt::AlignHorizontal_Mask), alignment);
                if (first.textList() && first.next().isValid())
                    QCOMPARE(first.textList(), first.next().textList());
            });
        const QByteArray list = bulletTable() + "intro\\par\\pard\\ls1 one\\par two\\par three\\par four";
        const QString items = bullet("two") + QLatin1Char('\n') + bullet("three");
        const int left = Qt::AlignLeft;
        const int right = Qt::AlignRight;
        add("part of a list", list, 10, 19, items, left);
        add("list item", list, 6, 9, bullet("one"), left);
        add("paragraph with its format", "first\\par\\pard\\qr second\\par third", 6, 13, "second\n", right);
        const auto row = [](const QByteArray& first, const QByteArray& second) {
            return "\\trowd\\cellx2000\\cellx4000\\pard\\intbl " + first + "\\cell " + second + "\\cell\\row";
        };
        add("cells of a table", row("00", "01") + row("10", "11") + row("20", "21") + "\\pard", 7, 18,
            "\n| 10\n| 11\n| 20\n| 21\n\n", left);
        add("words without that of their paragraph", "first\\par\\pard\\qr second and more\\par third", 6, 12,
            "second", left);
    }

    void wordsKeepTheFormatOfAnEmptyParagraph()
    {
        edit()->setAlignment(Qt::AlignHCenter);
        copyAndPaste("some words", 0, 4);
        QCOMPARE(content(), "some"_s);
        QCOMPARE(int(edit()->alignment() & Qt::AlignHorizontal_Mask), int(Qt::AlignHCenter));
    }

    void documentIsOpenedAndSaved()
    {
        QCOMPARE(m_window->windowTitle(), "Unnamed[*]"_s);
        QVERIFY(!m_window->isWindowModified());
        open(richBody(), "title.rtf");
        QCOMPARE(m_window->windowTitle(), "title.rtf[*]"_s);
        QVERIFY(!m_window->isWindowModified());
        type("x");
        QVERIFY(m_window->isWindowModified());
        edit()->undo();
        QVERIFY(!m_window->isWindowModified());

        type("x");
        const QString file = path("saved.rtf");
        QVERIFY(m_window->saveFile(file));
        QCOMPARE(m_window->fileName(), file);
        QCOMPARE(m_window->windowTitle(), "saved.rtf[*]"_s);
        QVERIFY(!m_window->isWindowModified());
        QTextDocument saved;
        QVERIFY(ORVTextRtf::importRtfFile(file, &saved, nullptr));
        QCOMPARE(describe(saved), QLatin1Char('x') + richContent());
        QTextDocument opened;
        QVERIFY(ORVTextRtf::importRtfFile(path("title.rtf"), &opened, nullptr));
        QCOMPARE(describe(opened), richContent());
    }

    void filesThatCannotBeOpenedOrSaved()
    {
        type("kept");
        const BoxAnswer answer(QMessageBox::Ok);
        QVERIFY(!m_window->openFile(path("missing.rtf")));
        QCOMPARE(answer.text(),
                 "The file cannot be opened.\n\n%1\nNo such file or directory"_s.arg(path("missing.rtf")));
        const QString file = path("no such folder/a.rtf");
        const BoxAnswer secondAnswer(QMessageBox::Ok);
        QVERIFY(!m_window->saveFile(file));
        QCOMPARE(secondAnswer.text(),
                 "The document cannot be saved.\n\n%1\nNo such file or directory"_s.arg(file));
        QCOMPARE(content(), "kept"_s);
        QCOMPARE(m_window->fileName(), QString());
        QVERIFY(m_window->isWindowModified());
    }

    void openingADamagedFile()
    {
        QVERIFY(m_window->openFile(makeFile("damaged.rtf", "{\\rtf1 {half} a text")));
        QCOMPARE(content(), "half a text"_s);
        QCOMPARE(message(),
                 "This file is damaged; what can be read is shown "
                 "(Unmatched '}' in Rich Text file)"_s);
        QVERIFY(m_window->openFile(makeFile("sound.rtf", "{\\rtf1 {whole text}}")));
        QCOMPARE(message(), QString());
    }

    /*! The fonts of one file are not those of the next, which says nothing of fonts, or of a new document. */
    void openedFilesAreIndependent()
    {
        const QFont font = EditorWindow().textEdit()->document()->defaultFont();
        open("{\\fonttbl{\\f1 Quibble Serif;}}\\deff1\\fs40 large", "fonts.rtf");
        QVERIFY(document()->defaultFont() != font);
        open("small");
        QCOMPARE(document()->defaultFont().family(), font.family());
        QCOMPARE(document()->defaultFont().pointSizeF(), font.pointSizeF());
        QVERIFY(m_window->openFile(path("fonts.rtf")));
        type("x");
        const BoxAnswer answer(QMessageBox::Discard);
        trigger("New");
        QCOMPARE(answer.text(), "Save the changes?"_s);
        QCOMPARE(document()->defaultFont(), font);
        QCOMPARE(m_window->windowTitle(), "Unnamed[*]"_s);
        QCOMPARE(m_window->fileName(), QString());
        QCOMPARE(content(), QString());
        QVERIFY(!m_window->isWindowModified());
        type("y");
        QVERIFY(m_window->isWindowModified());
    }

    ORV_ROWS(closingAsks)
    {
        const Rows add([this](int button, bool closed, const QString& saved) {
            open("old", "closing.rtf");
            type("new");
            const BoxAnswer answer{QMessageBox::StandardButton(button)};
            QCOMPARE(m_window->close(), closed);
            QCOMPARE(answer.text(), "Save the changes?"_s);
            QCOMPARE(m_window->isVisible(), !closed);
            QTextDocument document;
            QVERIFY(ORVTextRtf::fromRtfFile(path("closing.rtf"), &document, nullptr));
            QCOMPARE(textOf(document), saved);
        });
        add("save", int(QMessageBox::Save), true, "newold");
        add("discard", int(QMessageBox::Discard), true, "old");
        add("cancel", int(QMessageBox::Cancel), false, "old");
    }

    ORV_ROWS(textIsFormatted)
    {
        const Rows add(
            [this](const QByteArray& action, int property, const QVariant& on, const QVariant& off) {
                edit()->setPlainText("some text"_s);
                select(5, 9);
                QAction* const toggle = this->action(action);
                toggle->trigger();
                QVERIFY(toggle->isChecked());
                QCOMPARE(formatOf(*document(), "text"_s).property(property), on);
                QVERIFY(!formatOf(*document(), "some"_s).hasProperty(property));
                toggle->trigger();
                QVERIFY(!toggle->isChecked());
                QCOMPARE(formatOf(*document(), "text"_s).property(property), off);
            });
        add("bold", "Bold", int(QTextFormat::FontWeight), QVariant(int(QFont::Bold)),
            QVariant(int(QFont::Normal)));
        add("italic", "Italic", int(QTextFormat::FontItalic), QVariant(true), QVariant(false));
        add("underline", "Underline", int(QTextFormat::TextUnderlineStyle),
            QVariant(int(QTextCharFormat::SingleUnderline)), QVariant(int(QTextCharFormat::NoUnderline)));
    }

    void actionsShowTheFormatAtTheCursor()
    {
        setBody("none {\\b bold }{\\i italic }{\\ul under}\\par\\pard\\qr right");
        struct {
            int position;
            const char* checked;
        } const places[] = {{2, "Align left"},
                            {7, "Bold, Align left"},
                            {12, "Italic, Align left"},
                            {19, "Underline, Align left"},
                            {24, "Align right"}};
        for (const auto& place : places) {
            select(place.position);
            QCOMPARE(checkedActions(), QLatin1String(place.checked));
        }
        open("\\qc{\\b bold} and plain");
        QCOMPARE(checkedActions(), "Bold, Centre"_s);
        open("plain and {\\b bold}");
        QCOMPARE(checkedActions(), "Align left"_s);
    }

    ORV_ROWS(paragraphsAreAligned)
    {
        const Rows add([this](const QByteArray& action, int alignment) {
            edit()->setPlainText("one\ntwo\nthree"_s);
            select(1, 5);
            edit()->setAlignment(Qt::AlignRight | Qt::AlignAbsolute);
            trigger(action);
            const QTextBlock first = document()->begin();
            QCOMPARE(int(first.blockFormat().alignment()), alignment);
            QCOMPARE(int(first.next().blockFormat().alignment()), alignment);
            QVERIFY(!first.next().next().blockFormat().hasProperty(QTextFormat::BlockAlignment));
        });
        add("left", "Align left", int(Qt::AlignLeft));
        add("centre", "Centre", int(Qt::AlignHCenter));
        add("right", "Align right", int(Qt::AlignRight));
        add("justify", "Justify", int(Qt::AlignJustify));
    }

    ORV_ROWS(paragraphsBecomeLists)
    {
        const Rows add([this](const QByteArray& action, const QByteArray& other, const QString& list) {
            edit()->setPlainText("one\ntwo\nthree"_s);
            select(1, 5);
            QAction* const toggle = this->action(action);
            toggle->trigger();
            QCOMPARE(content(), list);
            QVERIFY(toggle->isChecked());
            QVERIFY(!this->action(other)->isChecked());

            // The other kind instead, and back.
            trigger(other);
            QVERIFY(content() != list);
            QVERIFY(!toggle->isChecked());
            toggle->trigger();
            QCOMPARE(content(), list);

            toggle->trigger();
            QCOMPARE(content(), "one\ntwo\nthree"_s);
            QVERIFY(!toggle->isChecked());
            QCOMPARE(edit()->textCursor().blockFormat().indent(), 0);
        });
        const QString items = bullet("one") + QLatin1Char('\n') + bullet("two") + "\nthree"_s;
        add("bullets", "Bullet list", "Numbered list", items);
        add("numbers", "Numbered list", "Bullet list", "1. one\n2. two\nthree");
    }

    void insertTable()
    {
        m_window->insertActions()->insertTable(2, 3);
        const QList<QTextFrame*> frames = document()->rootFrame()->childFrames();
        QCOMPARE(frames.size(), 1);
        const QTextTable* table = qobject_cast<QTextTable*>(frames.first());
        QVERIFY(table);
        QCOMPARE(table->rows(), 2);
        QCOMPARE(table->columns(), 3);
        type("x");
        QCOMPARE(table->cellAt(0, 0).firstCursorPosition().block().text(), "x"_s);
    }

    void insertPicture()
    {
        QString message;
        const QString file = QString::fromUtf8(TEST_DATA_DIR "/dot.png");
        QVERIFY(m_window->insertActions()->insertPicture(file, &message));
        const QImage image(file);
        QCOMPARE(content(), "[2x1 %1]"_s.arg(image.pixelColor(0, 0).name()));
        const QList<QTextImageFormat> images = imagesOf(*document());
        QCOMPARE(images.first().width(), 2.0);
        QCOMPARE(images.first().height(), 1.0);
        QCOMPARE(message, QString());

        edit()->clear();
        QVERIFY(!m_window->insertActions()->insertPicture(path("missing.png"), &message));
        QCOMPARE(message, "File not found"_s);
        QCOMPARE(content(), QString());
    }

private:
    QString checkedActions() const
    {
        QStringList checked;
        for (const char* name :
             {"Bold", "Italic", "Underline", "Align left", "Centre", "Align right", "Justify"}) {
            if (action(name)->isChecked())
                checked << QLatin1String(name);
        }
        return checked.join(", "_s);
    }

    /*! Copies the RTF \a body from one position to another in a window of its own, and pastes it. */
    void copyAndPaste(const QByteArray& body, int begin, int end)
    {
        const EditorWindow source;
        QTextEdit* const from = source.textEdit();
        QVERIFY(ORVTextRtf::fromRtfData("{\\rtf1\\ansi " + body + "{}}", from->document(), nullptr));
        QTextCursor cursor(from->document());
        cursor.setPosition(begin);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        from->setTextCursor(cursor);
        from->copy();
        edit()->paste();
    }
};

ORV_TEST("editor", TestEditor, QApplication)
#include "editor.moc"
