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

/*! Copies the RTF \a body from one position to another in a window of its own, and pastes it in \a window. */
void copyAndPaste(const QByteArray& body, int from, int to, EditorWindow& window)
{
    EditorWindow source;
    setBody(source, body);
    select(source, from, to);
    source.textEdit()->copy();
    window.textEdit()->paste();
}

/*! A list table with the bullet list 1. */
QByteArray bullets()
{
    return "{\\*\\listtable{\\list{\\listlevel\\levelnfc23{\\leveltext\\'01\\u8226 ?;}}\\listid7}}"
           "{\\*\\listoverridetable{\\listoverride\\listid7\\ls1}}";
}

QString bullet(const char* text)
{
    return QChar(0x2022) + QLatin1Char(' ') + QLatin1String(text);
}

} // namespace

/*! The editor window, without other programs. */
class TestEditor : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_folder.isValid()); }

    void init()
    {
        m_window.reset(new EditorWindow);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.data()));
    }

    void cleanup() { m_window.reset(); }

    void rtfIsDroppedIntoTheText()
    {
        for (const QString& type : ORV::rtfMimeTypes()) {
            m_window->textEdit()->clear();
            QMimeData mime;
            mime.setData(type, richRtf());
            QVERIFY(drop(mime, m_window->textEdit()->viewport()));
            QCOMPARE(contentOf(*m_window), richContent());
        }
        QVERIFY(m_window->isWindowModified());
    }

    void rtfFileIsDroppedOntoTheText()
    {
        const QString file = makeFile("dropped.rtf", richRtf());
        QVERIFY(dropFile(file, m_window->textEdit()->viewport()));
        QCOMPARE(contentOf(*m_window), richContent());
        QCOMPARE(m_window->fileName(), file);
        QVERIFY(!m_window->isWindowModified());
    }

    void rtfFileIsDroppedOntoTheWindow()
    {
        const QString file = makeFile("dropped.RTF", richRtf());
        m_window->textEdit()->insertPlainText("changed"_s);
        const BoxAnswer answer(QMessageBox::Cancel);
        QVERIFY(dropFile(file, m_window.data()));
        QCOMPARE(answer.text(), "Save the changes?"_s);
        QCOMPARE(contentOf(*m_window), "changed"_s);
        const BoxAnswer secondAnswer(QMessageBox::Discard);
        QVERIFY(dropFile(file, m_window.data()));
        QCOMPARE(contentOf(*m_window), richContent());
        QCOMPARE(m_window->fileName(), file);
    }

    void otherFileIsNotOpened()
    {
        QVERIFY(!dropFile(makeFile("other.txt", richRtf()), m_window->menuWidget()));
        QCOMPARE(m_window->fileName(), QString());
    }

    ORV_ROWS(bestFlavourIsPasted)
    {
        const Rows add([this](const QByteArray& rtf, const QByteArray& own, const QString& html,
                              const QString& text, const QString& pasted) {
            QMimeData* mime = new QMimeData;
            if (!rtf.isEmpty())
                mime->setData("text/rtf"_s, rtf);
            if (!own.isEmpty())
                mime->setData(QString::fromLatin1(ORV::OrvellineMarkupRtfMimeType), own);
            if (!html.isEmpty())
                mime->setHtml(html);
            if (!text.isEmpty())
                mime->setText(text);
            QApplication::clipboard()->setMimeData(mime);
            m_window->textEdit()->paste();
            QCOMPARE(contentOf(*m_window), pasted);
        });
        add("own flavour is preferred", "{\\rtf1 plain{}}", "{\\rtf1 own{}}", QString(), QString(), "own");
        add("damaged RTF gives way to text", "{\\rtf1 {half} a text", QByteArray(), QString(), "whole text",
            "whole text");
        add("HTML where there is no RTF", QByteArray(), QByteArray(), "some <b>bold</b> text", QString(),
            "some *bold* text");
    }

    ORV_ROWS(pastingReplacesTheSelection)
    {
        const Rows add([this](const QByteArray& body, int length, const QString& content) {
            m_window->textEdit()->setPlainText("abcde"_s);
            select(*m_window, 1, 4);
            copyAndPaste(body, 0, length, *m_window);
            QCOMPARE(contentOf(*m_window), content);
            QCOMPARE(m_window->textEdit()->textCursor().position(), 1 + length);
            // In one step
            m_window->textEdit()->undo();
            QCOMPARE(contentOf(*m_window), "abcde"_s);
        });
        add("words", "one {\\b two}", 7, "aone *two*e");
        add("paragraphs", "one\\par two\\par three", 13, "aone\ntwo\nthreee");
    }

    ORV_ROWS(partIsCopied)
    {
        const Rows add(
            [this](const QByteArray& body, int from, int to, const QString& content, int alignment) {
                copyAndPaste(body, from, to, *m_window);
                QCOMPARE(contentOf(*m_window), content);
                const QTextBlock first = m_window->textEdit()->document()->begin();
                QCOMPARE(int(first.blockFormat().alignment() & Qt::AlignHorizontal_Mask), alignment);
                if (first.textList() && first.next().isValid())
                    QCOMPARE(first.textList(), first.next().textList());
            });
        const QByteArray list = bullets() + "intro\\par\\pard\\ls1 one\\par two\\par three\\par four";
        const QString items = bullet("two") + QLatin1Char('\n') + bullet("three");
        const int left = Qt::AlignLeft;
        const int right = Qt::AlignRight;
        add("part of a list", list, 10, 19, items, left);
        add("list item", list, 6, 9, bullet("one"), left);
        add("paragraph with its format", "first\\par\\pard\\qr second\\par third", 6, 13, "second\n", right);
        add("words without that of their paragraph", "first\\par\\pard\\qr second and more\\par third", 6, 12,
            "second", left);
    }

    void wordsKeepTheFormatOfAnEmptyParagraph()
    {
        m_window->textEdit()->setAlignment(Qt::AlignHCenter);
        copyAndPaste("some words", 0, 4, *m_window);
        QCOMPARE(contentOf(*m_window), "some"_s);
        QCOMPARE(int(m_window->textEdit()->alignment() & Qt::AlignHorizontal_Mask), int(Qt::AlignHCenter));
    }

    void cellsOfATableAreCopied()
    {
        EditorWindow source;
        QTextTable* table = source.textEdit()->textCursor().insertTable(3, 2);
        for (int row = 0; row < 3; ++row) {
            for (int column = 0; column < 2; ++column)
                table->cellAt(row, column)
                    .firstCursorPosition()
                    .insertText(QString::number(10 * row + column));
        }
        QTextCursor cursor = table->cellAt(1, 0).firstCursorPosition();
        cursor.setPosition(table->cellAt(2, 1).lastPosition(), QTextCursor::KeepAnchor);
        source.textEdit()->setTextCursor(cursor);
        source.textEdit()->copy();
        m_window->textEdit()->paste();
        QVERIFY(contentOf(*m_window).contains("\n| 10\n| 11\n| 20\n| 21\n"_s));
        QCOMPARE(contentOf(*m_window).count(QLatin1Char('|')), 4);
    }

    void titleTellsFileAndChanges()
    {
        QCOMPARE(m_window->windowTitle(), "Unnamed[*]"_s);
        QVERIFY(!m_window->isWindowModified());
        const QString file = makeFile("title.rtf", richRtf());
        QVERIFY(m_window->openFile(file));
        QCOMPARE(m_window->windowTitle(), "title.rtf[*]"_s);
        QVERIFY(!m_window->isWindowModified());
        QTest::keyClicks(m_window->textEdit(), "x"_s);
        QVERIFY(m_window->isWindowModified());
        m_window->textEdit()->undo();
        QVERIFY(!m_window->isWindowModified());
    }

    void openingAMissingFile()
    {
        m_window->textEdit()->setPlainText("kept"_s);
        const BoxAnswer answer(QMessageBox::Ok);
        QVERIFY(!m_window->openFile(filePath("missing.rtf")));
        QCOMPARE(
            answer.text(),
            "The file cannot be opened.\n\n%1\nNo such file or directory"_s.arg(filePath("missing.rtf")));
        QCOMPARE(contentOf(*m_window), "kept"_s);
        QCOMPARE(m_window->fileName(), QString());
    }

    void openingADamagedFile()
    {
        QVERIFY(m_window->openFile(makeFile("damaged.rtf", "{\\rtf1 {half} a text")));
        QCOMPARE(contentOf(*m_window), "half"_s);
        QCOMPARE(m_window->statusBar()->currentMessage(),
                 "This file is damaged; what can be read is shown "
                 "(Unmatched '}' in Rich Text file)"_s);
        QVERIFY(m_window->openFile(makeFile("sound.rtf", "{\\rtf1 {whole text}}")));
        QCOMPARE(m_window->statusBar()->currentMessage(), QString());
    }

    void newDocumentAfterChanges()
    {
        QVERIFY(m_window->openFile(makeFile("changed.rtf", richRtf())));
        QTest::keyClicks(m_window->textEdit(), "x"_s);
        const BoxAnswer answer(QMessageBox::Discard);
        actionOf(*m_window, "New")->trigger();
        QCOMPARE(answer.text(), "Save the changes?"_s);
        QCOMPARE(contentOf(*m_window), QString());
        QCOMPARE(m_window->fileName(), QString());
        QVERIFY(!m_window->isWindowModified());
        QTest::keyClicks(m_window->textEdit(), "y"_s);
        QVERIFY(m_window->isWindowModified());
    }

    /*! The fonts of one file are not those of the next, which says nothing of fonts, or of a new document. */
    void openedFilesAreIndependent()
    {
        const QFont font = m_window->textEdit()->document()->defaultFont();
        const QByteArray fonts = "{\\fonttbl{\\f1 Quibble Serif;}}\\deff1\\fs40 ";
        QVERIFY(m_window->openFile(makeFile("fonts.rtf", "{\\rtf1" + fonts + "large{}}")));
        QVERIFY(m_window->textEdit()->document()->defaultFont() != font);
        QVERIFY(m_window->openFile(makeFile("nofonts.rtf", "{\\rtf1 small{}}")));
        QCOMPARE(m_window->textEdit()->document()->defaultFont().family(), font.family());
        QCOMPARE(m_window->textEdit()->document()->defaultFont().pointSizeF(), font.pointSizeF());
        QVERIFY(m_window->openFile(filePath("fonts.rtf")));
        actionOf(*m_window, "New")->trigger();
        QCOMPARE(m_window->textEdit()->document()->defaultFont(), font);
        QCOMPARE(m_window->windowTitle(), "Unnamed[*]"_s);
        QCOMPARE(contentOf(*m_window), QString());
    }

    void savedFileHasTheDocument()
    {
        QVERIFY(m_window->openFile(makeFile("opened.rtf", richRtf())));
        QTest::keyClicks(m_window->textEdit(), "x"_s);
        const QString file = filePath("saved.rtf");
        QVERIFY(m_window->saveFile(file));
        QCOMPARE(m_window->fileName(), file);
        QCOMPARE(m_window->windowTitle(), "saved.rtf[*]"_s);
        QVERIFY(!m_window->isWindowModified());
        QTextDocument saved;
        QVERIFY(ORVTextRtf::fromRtfFile(file, &saved, nullptr));
        QCOMPARE(describe(saved), QLatin1Char('x') + richContent());
        QTextDocument opened;
        QVERIFY(ORVTextRtf::fromRtfFile(filePath("opened.rtf"), &opened, nullptr));
        QCOMPARE(describe(opened), richContent());
    }

    void savingFails()
    {
        QTest::keyClicks(m_window->textEdit(), "x"_s);
        const QString file = filePath("no such folder/a.rtf");
        const BoxAnswer answer(QMessageBox::Ok);
        QVERIFY(!m_window->saveFile(file));
        QCOMPARE(answer.text(), "The document cannot be saved.\n\n%1\nNo such file or directory"_s.arg(file));
        QCOMPARE(m_window->fileName(), QString());
        QVERIFY(m_window->isWindowModified());
    }

    void closingWithoutChanges()
    {
        QVERIFY(m_window->openFile(makeFile("unchanged.rtf", richRtf())));
        QVERIFY(m_window->close());
    }

    ORV_ROWS(closingAsks)
    {
        const Rows add([this](int button, bool closed, const QString& saved) {
            const QString file = makeFile("closing.rtf", "{\\rtf1 {old}}");
            QVERIFY(m_window->openFile(file));
            QTest::keyClicks(m_window->textEdit(), "new"_s);
            const BoxAnswer answer{QMessageBox::StandardButton(button)};
            QCOMPARE(m_window->close(), closed);
            QCOMPARE(answer.text(), "Save the changes?"_s);
            QCOMPARE(m_window->isVisible(), !closed);
            QTextDocument document;
            QVERIFY(ORVTextRtf::fromRtfFile(file, &document, nullptr));
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
                m_window->textEdit()->setPlainText("some text"_s);
                select(*m_window, 5, 9);
                QAction* const toggle = actionOf(*m_window, action.constData());
                toggle->trigger();
                QVERIFY(toggle->isChecked());
                const QTextDocument& document = *m_window->textEdit()->document();
                QCOMPARE(formatOf(document, "text"_s).property(property), on);
                QVERIFY(!formatOf(document, "some"_s).hasProperty(property));
                toggle->trigger();
                QVERIFY(!toggle->isChecked());
                QCOMPARE(formatOf(document, "text"_s).property(property), off);
            });
        add("bold", "Bold", int(QTextFormat::FontWeight), QVariant(int(QFont::Bold)),
            QVariant(int(QFont::Normal)));
        add("italic", "Italic", int(QTextFormat::FontItalic), QVariant(true), QVariant(false));
        add("underline", "Underline", int(QTextFormat::TextUnderlineStyle),
            QVariant(int(QTextCharFormat::SingleUnderline)), QVariant(int(QTextCharFormat::NoUnderline)));
    }

    void actionsShowTheFormatAtTheCursor()
    {
        setBody(*m_window, "none {\\b bold }{\\i italic }{\\ul under}\\par\\pard\\qr right");
        struct {
            int position;
            const char* checked;
        } const places[] = {{2, "Align left"},
                            {7, "Bold, Align left"},
                            {12, "Italic, Align left"},
                            {19, "Underline, Align left"},
                            {24, "Align right"}};
        for (const auto& place : places) {
            select(*m_window, place.position, place.position);
            QStringList checked;
            for (const char* name :
                 {"Bold", "Italic", "Underline", "Align left", "Centre", "Align right", "Justify"}) {
                if (actionOf(*m_window, name)->isChecked())
                    checked << QLatin1String(name);
            }
            QCOMPARE(checked.join(", "_s), QLatin1String(place.checked));
        }
    }

    void actionsShowTheFormatOfAnOpenedFile()
    {
        QVERIFY(m_window->openFile(makeFile("format.rtf", "{\\rtf1 \\qc{\\b bold} and plain{}}")));
        QVERIFY(actionOf(*m_window, "Bold")->isChecked());
        QVERIFY(actionOf(*m_window, "Centre")->isChecked());
        QVERIFY(m_window->openFile(makeFile("format.rtf", "{\\rtf1 plain and {\\b bold}{}}")));
        QVERIFY(!actionOf(*m_window, "Bold")->isChecked());
        QVERIFY(actionOf(*m_window, "Align left")->isChecked());
    }

    ORV_ROWS(paragraphsAreAligned)
    {
        const Rows add([this](const QByteArray& action, int alignment) {
            m_window->textEdit()->setPlainText("one\ntwo\nthree"_s);
            select(*m_window, 1, 5);
            m_window->textEdit()->setAlignment(Qt::AlignRight | Qt::AlignAbsolute);
            actionOf(*m_window, action.constData())->trigger();
            const QTextBlock first = m_window->textEdit()->document()->begin();
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
            m_window->textEdit()->setPlainText("one\ntwo\nthree"_s);
            select(*m_window, 1, 5);
            QAction* const toggle = actionOf(*m_window, action.constData());
            toggle->trigger();
            QCOMPARE(contentOf(*m_window), list);
            QVERIFY(toggle->isChecked());
            QVERIFY(!actionOf(*m_window, other.constData())->isChecked());

            // The other kind instead, and back.
            actionOf(*m_window, other.constData())->trigger();
            QVERIFY(contentOf(*m_window) != list);
            QVERIFY(!toggle->isChecked());
            toggle->trigger();
            QCOMPARE(contentOf(*m_window), list);

            toggle->trigger();
            QCOMPARE(contentOf(*m_window), "one\ntwo\nthree"_s);
            QVERIFY(!toggle->isChecked());
            QCOMPARE(m_window->textEdit()->textCursor().blockFormat().indent(), 0);
        });
        const QString items = bullet("one") + QLatin1Char('\n') + bullet("two") + "\nthree"_s;
        add("bullets", "Bullet list", "Numbered list", items);
        add("numbers", "Numbered list", "Bullet list", "1. one\n2. two\nthree");
    }

    void insertTable()
    {
        m_window->insertActions()->insertTable(2, 3);
        const QList<QTextFrame*> frames = m_window->textEdit()->document()->rootFrame()->childFrames();
        QCOMPARE(frames.size(), 1);
        const QTextTable* table = qobject_cast<QTextTable*>(frames.first());
        QVERIFY(table);
        QCOMPARE(table->rows(), 2);
        QCOMPARE(table->columns(), 3);
        QTest::keyClicks(m_window->textEdit(), "x"_s);
        QCOMPARE(table->cellAt(0, 0).firstCursorPosition().block().text(), "x"_s);
    }

    void insertPicture()
    {
        QString message;
        const QString file = QString::fromUtf8(TEST_DATA_DIR "/dot.png");
        QVERIFY(m_window->insertActions()->insertPicture(file, &message));
        const QImage image(file);
        QCOMPARE(contentOf(*m_window), "[2x1 %1]"_s.arg(image.pixelColor(0, 0).name()));
        const QList<QTextImageFormat> images = imagesOf(*m_window->textEdit()->document());
        QCOMPARE(images.first().width(), 2.0);
        QCOMPARE(images.first().height(), 1.0);
        QCOMPARE(message, QString());
    }

    void insertNoPicture()
    {
        QString message;
        QVERIFY(!m_window->insertActions()->insertPicture(filePath("missing.png"), &message));
        QCOMPARE(message, "File not found"_s);
        QCOMPARE(contentOf(*m_window), QString());
    }

private:
    QString filePath(const char* name) const { return m_folder.filePath(QLatin1String(name)); }

    /*! A file with the RTF \a rtf. */
    QString makeFile(const char* name, const QByteArray& rtf) const
    {
        QFile file(filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(rtf) != rtf.size())
            qFatal("cannot write %s", name);
        return file.fileName();
    }

    QTemporaryDir m_folder;
    QScopedPointer<EditorWindow> m_window;
};

ORV_TEST("editor", TestEditor, QApplication)
#include "editor.moc"
