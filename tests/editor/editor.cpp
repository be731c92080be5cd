#include "InsertActions.h"
#include "ORV.h"
#include "ORVTextRtf.h"
#include "editorhelpers.h"

#include <QAction>
#include <QtCore/QMimeData>
#include <QtGui/QClipboard>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStatusBar>

using namespace editortest;
using namespace rtftest;

namespace {

/*! Answers the next message box with one of its buttons, as soon as it is there. */
class BoxAnswer {
public:
    explicit BoxAnswer(QMessageBox::StandardButton button)
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, button] {
            QMessageBox* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return;
            m_timer.stop();
            m_text = box->text();
            box->button(button)->click();
        });
        m_timer.start(1);
    }

    /*! The text of the box; null when there was none. */
    QString text() const { return m_text; }

private:
    QTimer m_timer;
    QString m_text;
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

/*! Copies what is selected in \a from, and pastes it in \a to. */
void copyAndPaste(EditorWindow& from, EditorWindow& to)
{
    from.textEdit()->copy();
    to.textEdit()->paste();
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
    void initTestCase();
    void init();
    void cleanup();

    void rtfIsDroppedIntoTheText();
    void rtfFileIsDroppedOntoTheText();
    void rtfFileIsDroppedOntoTheWindow();
    void otherFileIsNotOpened();
    void ownFlavourIsPreferred();
    void damagedRtfGivesWayToText();
    void htmlIsPastedWhereThereIsNoRtf();

    void pastingReplacesTheSelection();
    void pastingIsOneStepForUndo();
    void partOfAListIsCopied();
    void listItemIsCopied();
    void paragraphIsCopiedWithItsFormat();
    void wordsAreCopiedWithoutTheFormatOfTheirParagraph();
    void wordsKeepTheFormatOfAnEmptyParagraph();
    void cellsOfATableAreCopied();

    void titleTellsFileAndChanges();
    void openingAMissingFile();
    void openingADamagedFile();
    void newDocumentAfterChanges();
    void openedFilesAreIndependent();
    void savedFileHasTheDocument();
    void savingFails();
    void closingWithoutChanges();
    void closingAsks_data();
    void closingAsks();

    void textIsFormatted_data();
    void textIsFormatted();
    void actionsShowTheFormatAtTheCursor();
    void actionsShowTheFormatOfAnOpenedFile();
    void paragraphsAreAligned_data();
    void paragraphsAreAligned();
    void paragraphsBecomeLists_data();
    void paragraphsBecomeLists();
    void insertTable();
    void insertPicture();
    void insertNoPicture();

private:
    QString filePath(const char* name) const { return m_folder.filePath(QLatin1String(name)); }
    /*! A file with the RTF \a rtf. */
    QString makeFile(const char* name, const QByteArray& rtf) const;

    QTemporaryDir m_folder;
    QScopedPointer<EditorWindow> m_window;
};

void TestEditor::initTestCase()
{
    QVERIFY(m_folder.isValid());
}

void TestEditor::init()
{
    m_window.reset(new EditorWindow);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.data()));
}

void TestEditor::cleanup()
{
    m_window.reset();
}

QString TestEditor::makeFile(const char* name, const QByteArray& rtf) const
{
    QFile file(filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(rtf) != rtf.size())
        qFatal("cannot write %s", name);
    return file.fileName();
}

void TestEditor::rtfIsDroppedIntoTheText()
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

void TestEditor::rtfFileIsDroppedOntoTheText()
{
    const QString file = makeFile("dropped.rtf", richRtf());
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(file)});
    QVERIFY(drop(mime, m_window->textEdit()->viewport()));
    QCOMPARE(contentOf(*m_window), richContent());
    QCOMPARE(m_window->fileName(), file);
    QVERIFY(!m_window->isWindowModified());
}

void TestEditor::rtfFileIsDroppedOntoTheWindow()
{
    const QString file = makeFile("dropped.RTF", richRtf());
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(file)});
    m_window->textEdit()->insertPlainText(QStringLiteral("changed"));
    const BoxAnswer answer(QMessageBox::Cancel);
    QVERIFY(drop(mime, m_window.data()));
    QCOMPARE(answer.text(), QStringLiteral("Save the changes?"));
    QCOMPARE(contentOf(*m_window), QStringLiteral("changed"));

    const BoxAnswer secondAnswer(QMessageBox::Discard);
    QVERIFY(drop(mime, m_window.data()));
    QCOMPARE(contentOf(*m_window), richContent());
    QCOMPARE(m_window->fileName(), file);
}

void TestEditor::otherFileIsNotOpened()
{
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(makeFile("other.txt", richRtf()))});
    QVERIFY(!drop(mime, m_window->menuWidget()));
    QCOMPARE(m_window->fileName(), QString());
}

void TestEditor::ownFlavourIsPreferred()
{
    QMimeData* mime = new QMimeData;
    mime->setData(QStringLiteral("text/rtf"), "{\\rtf1 plain{}}");
    mime->setData(QString::fromLatin1(ORV::OrvellineMarkupRtfMimeType), "{\\rtf1 own{}}");
    QApplication::clipboard()->setMimeData(mime);
    m_window->textEdit()->paste();
    QCOMPARE(contentOf(*m_window), QStringLiteral("own"));
}

void TestEditor::damagedRtfGivesWayToText()
{
    QMimeData* mime = new QMimeData;
    mime->setData(QStringLiteral("text/rtf"), "{\\rtf1 {half} a text");
    mime->setText(QStringLiteral("whole text"));
    QApplication::clipboard()->setMimeData(mime);
    m_window->textEdit()->paste();
    QCOMPARE(contentOf(*m_window), QStringLiteral("whole text"));
}

void TestEditor::htmlIsPastedWhereThereIsNoRtf()
{
    QMimeData* mime = new QMimeData;
    mime->setHtml(QStringLiteral("some <b>bold</b> text"));
    QApplication::clipboard()->setMimeData(mime);
    m_window->textEdit()->paste();
    QCOMPARE(contentOf(*m_window), QStringLiteral("some *bold* text"));
}

void TestEditor::pastingReplacesTheSelection()
{
    EditorWindow source;
    setBody(source, "one {\\b two}");
    source.textEdit()->selectAll();
    m_window->textEdit()->setPlainText(QStringLiteral("abcde"));
    select(*m_window, 1, 4);
    copyAndPaste(source, *m_window);
    QCOMPARE(contentOf(*m_window), QStringLiteral("aone *two*e"));
    QCOMPARE(m_window->textEdit()->textCursor().position(), 8);
}

void TestEditor::pastingIsOneStepForUndo()
{
    EditorWindow source;
    setBody(source, "one\\par two\\par three");
    source.textEdit()->selectAll();
    m_window->textEdit()->setPlainText(QStringLiteral("abcde"));
    select(*m_window, 1, 4);
    copyAndPaste(source, *m_window);
    QCOMPARE(contentOf(*m_window), QStringLiteral("aone\ntwo\nthreee"));
    m_window->textEdit()->undo();
    QCOMPARE(contentOf(*m_window), QStringLiteral("abcde"));
}

void TestEditor::partOfAListIsCopied()
{
    EditorWindow source;
    setBody(source, bullets() + "intro\\par\\pard\\ls1 one\\par two\\par three\\par four");
    select(source, 10, 19); // "two" and "three"
    copyAndPaste(source, *m_window);
    QCOMPARE(contentOf(*m_window), bullet("two") + QLatin1Char('\n') + bullet("three"));
    const QTextBlock first = m_window->textEdit()->document()->begin();
    QCOMPARE(first.textList(), first.next().textList());
}

void TestEditor::listItemIsCopied()
{
    EditorWindow source;
    setBody(source, bullets() + "intro\\par\\pard\\ls1 one\\par two");
    select(source, 6, 9); // "one"
    copyAndPaste(source, *m_window);
    QCOMPARE(contentOf(*m_window), bullet("one"));
}

void TestEditor::paragraphIsCopiedWithItsFormat()
{
    EditorWindow source;
    setBody(source, "first\\par\\pard\\qr second\\par third");
    select(source, 6, 13); // "second" and its end
    copyAndPaste(source, *m_window);
    const QTextBlock block = m_window->textEdit()->document()->begin();
    QCOMPARE(block.text(), QStringLiteral("second"));
    QCOMPARE(block.blockFormat().alignment() & Qt::AlignHorizontal_Mask, Qt::Alignment(Qt::AlignRight));
}

void TestEditor::wordsAreCopiedWithoutTheFormatOfTheirParagraph()
{
    EditorWindow source;
    setBody(source, "first\\par\\pard\\qr second and more\\par third");
    select(source, 6, 12); // "second"
    copyAndPaste(source, *m_window);
    QCOMPARE(contentOf(*m_window), QStringLiteral("second"));
    QCOMPARE(m_window->textEdit()->alignment() & Qt::AlignHorizontal_Mask, Qt::Alignment(Qt::AlignLeft));
}

void TestEditor::wordsKeepTheFormatOfAnEmptyParagraph()
{
    EditorWindow source;
    setBody(source, "some words");
    select(source, 0, 4);
    m_window->textEdit()->setAlignment(Qt::AlignHCenter);
    copyAndPaste(source, *m_window);
    QCOMPARE(contentOf(*m_window), QStringLiteral("some"));
    QCOMPARE(m_window->textEdit()->alignment() & Qt::AlignHorizontal_Mask, Qt::Alignment(Qt::AlignHCenter));
}

void TestEditor::cellsOfATableAreCopied()
{
    EditorWindow source;
    QTextTable* table = source.textEdit()->textCursor().insertTable(3, 2);
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 2; ++column)
            table->cellAt(row, column).firstCursorPosition().insertText(QString::number(10 * row + column));
    }
    QTextCursor cursor = table->cellAt(1, 0).firstCursorPosition();
    cursor.setPosition(table->cellAt(2, 1).lastPosition(), QTextCursor::KeepAnchor);
    source.textEdit()->setTextCursor(cursor);
    copyAndPaste(source, *m_window);
    QVERIFY(contentOf(*m_window).contains(QLatin1String("\n| 10\n| 11\n| 20\n| 21\n")));
    QCOMPARE(contentOf(*m_window).count(QLatin1Char('|')), 4);
}

void TestEditor::titleTellsFileAndChanges()
{
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Unnamed[*]"));
    QVERIFY(!m_window->isWindowModified());
    const QString file = makeFile("title.rtf", richRtf());
    QVERIFY(m_window->openFile(file));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("title.rtf[*]"));
    QVERIFY(!m_window->isWindowModified());
    QTest::keyClicks(m_window->textEdit(), QStringLiteral("x"));
    QVERIFY(m_window->isWindowModified());
    m_window->textEdit()->undo();
    QVERIFY(!m_window->isWindowModified());
}

void TestEditor::openingAMissingFile()
{
    m_window->textEdit()->setPlainText(QStringLiteral("kept"));
    const BoxAnswer answer(QMessageBox::Ok);
    QVERIFY(!m_window->openFile(filePath("missing.rtf")));
    QCOMPARE(answer.text(),
             QStringLiteral("The file cannot be opened.\n\n%1\nNo such file or directory")
                 .arg(filePath("missing.rtf")));
    QCOMPARE(contentOf(*m_window), QStringLiteral("kept"));
    QCOMPARE(m_window->fileName(), QString());
}

void TestEditor::openingADamagedFile()
{
    QVERIFY(m_window->openFile(makeFile("damaged.rtf", "{\\rtf1 {half} a text")));
    QCOMPARE(contentOf(*m_window), QStringLiteral("half"));
    QCOMPARE(m_window->statusBar()->currentMessage(),
             QStringLiteral("This file is damaged; what can be read is shown "
                            "(Unmatched '}' in Rich Text file)"));
    QVERIFY(m_window->openFile(makeFile("sound.rtf", "{\\rtf1 {whole text}}")));
    QCOMPARE(m_window->statusBar()->currentMessage(), QString());
}

void TestEditor::newDocumentAfterChanges()
{
    QVERIFY(m_window->openFile(makeFile("changed.rtf", richRtf())));
    QTest::keyClicks(m_window->textEdit(), QStringLiteral("x"));
    const BoxAnswer answer(QMessageBox::Discard);
    actionOf(*m_window, "New")->trigger();
    QCOMPARE(answer.text(), QStringLiteral("Save the changes?"));
    QCOMPARE(contentOf(*m_window), QString());
    QCOMPARE(m_window->fileName(), QString());
    QVERIFY(!m_window->isWindowModified());
    QTest::keyClicks(m_window->textEdit(), QStringLiteral("y"));
    QVERIFY(m_window->isWindowModified());
}

/*! The fonts of one file are not those of the next, which says nothing of fonts, or of a new document. */
void TestEditor::openedFilesAreIndependent()
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
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Unnamed[*]"));
    QCOMPARE(contentOf(*m_window), QString());
}

void TestEditor::savedFileHasTheDocument()
{
    QVERIFY(m_window->openFile(makeFile("opened.rtf", richRtf())));
    QTest::keyClicks(m_window->textEdit(), QStringLiteral("x"));
    const QString file = filePath("saved.rtf");
    QVERIFY(m_window->saveFile(file));
    QCOMPARE(m_window->fileName(), file);
    QCOMPARE(m_window->windowTitle(), QStringLiteral("saved.rtf[*]"));
    QVERIFY(!m_window->isWindowModified());

    QTextDocument saved;
    QVERIFY(ORVTextRtf::fromRtfFile(file, &saved, nullptr));
    QCOMPARE(describe(saved), QLatin1Char('x') + richContent());
    QTextDocument opened;
    QVERIFY(ORVTextRtf::fromRtfFile(filePath("opened.rtf"), &opened, nullptr));
    QCOMPARE(describe(opened), richContent());
}

void TestEditor::savingFails()
{
    QTest::keyClicks(m_window->textEdit(), QStringLiteral("x"));
    const QString file = filePath("no such folder/a.rtf");
    const BoxAnswer answer(QMessageBox::Ok);
    QVERIFY(!m_window->saveFile(file));
    QCOMPARE(answer.text(),
             QStringLiteral("The document cannot be saved.\n\n%1\nNo such file or directory").arg(file));
    QCOMPARE(m_window->fileName(), QString());
    QVERIFY(m_window->isWindowModified());
}

void TestEditor::closingWithoutChanges()
{
    QVERIFY(m_window->openFile(makeFile("unchanged.rtf", richRtf())));
    QVERIFY(m_window->close());
}

void TestEditor::closingAsks_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<bool>("closed");
    QTest::addColumn<QString>("saved");
    QTest::newRow("save") << int(QMessageBox::Save) << true << "newold";
    QTest::newRow("discard") << int(QMessageBox::Discard) << true << "old";
    QTest::newRow("cancel") << int(QMessageBox::Cancel) << false << "old";
}

void TestEditor::closingAsks()
{
    QFETCH(int, button);
    QFETCH(bool, closed);
    QFETCH(QString, saved);
    const QString file = makeFile("closing.rtf", "{\\rtf1 {old}}");
    QVERIFY(m_window->openFile(file));
    QTest::keyClicks(m_window->textEdit(), QStringLiteral("new"));
    const BoxAnswer answer{QMessageBox::StandardButton(button)};
    QCOMPARE(m_window->close(), closed);
    QCOMPARE(answer.text(), QStringLiteral("Save the changes?"));
    QCOMPARE(m_window->isVisible(), !closed);
    QTextDocument document;
    QVERIFY(ORVTextRtf::fromRtfFile(file, &document, nullptr));
    QCOMPARE(textOf(document), saved);
}

void TestEditor::textIsFormatted_data()
{
    QTest::addColumn<QByteArray>("action");
    QTest::addColumn<int>("property");
    QTest::addColumn<QVariant>("on");
    QTest::addColumn<QVariant>("off");
    QTest::newRow("bold") << QByteArray("Bold") << int(QTextFormat::FontWeight) << QVariant(int(QFont::Bold))
                          << QVariant(int(QFont::Normal));
    QTest::newRow("italic") << QByteArray("Italic") << int(QTextFormat::FontItalic) << QVariant(true)
                            << QVariant(false);
    QTest::newRow("underline") << QByteArray("Underline") << int(QTextFormat::TextUnderlineStyle)
                               << QVariant(int(QTextCharFormat::SingleUnderline))
                               << QVariant(int(QTextCharFormat::NoUnderline));
}

void TestEditor::textIsFormatted()
{
    QFETCH(QByteArray, action);
    QFETCH(int, property);
    QFETCH(QVariant, on);
    QFETCH(QVariant, off);
    m_window->textEdit()->setPlainText(QStringLiteral("some text"));
    select(*m_window, 5, 9);
    QAction* const toggle = actionOf(*m_window, action.constData());
    toggle->trigger();
    QVERIFY(toggle->isChecked());
    const QTextDocument& document = *m_window->textEdit()->document();
    QCOMPARE(formatOf(document, QStringLiteral("text")).property(property), on);
    QVERIFY(!formatOf(document, QStringLiteral("some")).hasProperty(property));
    toggle->trigger();
    QVERIFY(!toggle->isChecked());
    QCOMPARE(formatOf(document, QStringLiteral("text")).property(property), off);
}

void TestEditor::actionsShowTheFormatAtTheCursor()
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
        QCOMPARE(checked.join(QLatin1String(", ")), QLatin1String(place.checked));
    }
}

void TestEditor::actionsShowTheFormatOfAnOpenedFile()
{
    QVERIFY(m_window->openFile(makeFile("format.rtf", "{\\rtf1 \\qc{\\b bold} and plain{}}")));
    QVERIFY(actionOf(*m_window, "Bold")->isChecked());
    QVERIFY(actionOf(*m_window, "Centre")->isChecked());
    QVERIFY(m_window->openFile(makeFile("format.rtf", "{\\rtf1 plain and {\\b bold}{}}")));
    QVERIFY(!actionOf(*m_window, "Bold")->isChecked());
    QVERIFY(actionOf(*m_window, "Align left")->isChecked());
}

void TestEditor::paragraphsAreAligned_data()
{
    QTest::addColumn<QByteArray>("action");
    QTest::addColumn<int>("alignment");
    QTest::newRow("left") << QByteArray("Align left") << int(Qt::AlignLeft);
    QTest::newRow("centre") << QByteArray("Centre") << int(Qt::AlignHCenter);
    QTest::newRow("right") << QByteArray("Align right") << int(Qt::AlignRight);
    QTest::newRow("justify") << QByteArray("Justify") << int(Qt::AlignJustify);
}

void TestEditor::paragraphsAreAligned()
{
    QFETCH(QByteArray, action);
    QFETCH(int, alignment);
    m_window->textEdit()->setPlainText(QStringLiteral("one\ntwo\nthree"));
    select(*m_window, 1, 5);
    m_window->textEdit()->setAlignment(Qt::AlignRight | Qt::AlignAbsolute);
    actionOf(*m_window, action.constData())->trigger();
    const QTextBlock first = m_window->textEdit()->document()->begin();
    QCOMPARE(int(first.blockFormat().alignment()), alignment);
    QCOMPARE(int(first.next().blockFormat().alignment()), alignment);
    QVERIFY(!first.next().next().blockFormat().hasProperty(QTextFormat::BlockAlignment));
}

void TestEditor::paragraphsBecomeLists_data()
{
    QTest::addColumn<QByteArray>("action");
    QTest::addColumn<QByteArray>("other");
    QTest::addColumn<QString>("list");
    const QString items = bullet("one") + QLatin1Char('\n') + bullet("two") + QLatin1String("\nthree");
    QTest::newRow("bullets") << QByteArray("Bullet list") << QByteArray("Numbered list") << items;
    QTest::newRow("numbers") << QByteArray("Numbered list") << QByteArray("Bullet list")
                             << QStringLiteral("1. one\n2. two\nthree");
}

void TestEditor::paragraphsBecomeLists()
{
    QFETCH(QByteArray, action);
    QFETCH(QByteArray, other);
    QFETCH(QString, list);
    m_window->textEdit()->setPlainText(QStringLiteral("one\ntwo\nthree"));
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
    QCOMPARE(contentOf(*m_window), QStringLiteral("one\ntwo\nthree"));
    QVERIFY(!toggle->isChecked());
    QCOMPARE(m_window->textEdit()->textCursor().blockFormat().indent(), 0);
}

void TestEditor::insertTable()
{
    m_window->insertActions()->insertTable(2, 3);
    const QList<QTextFrame*> frames = m_window->textEdit()->document()->rootFrame()->childFrames();
    QCOMPARE(frames.size(), 1);
    const QTextTable* table = qobject_cast<QTextTable*>(frames.first());
    QVERIFY(table);
    QCOMPARE(table->rows(), 2);
    QCOMPARE(table->columns(), 3);
    QTest::keyClicks(m_window->textEdit(), QStringLiteral("x"));
    QCOMPARE(table->cellAt(0, 0).firstCursorPosition().block().text(), QStringLiteral("x"));
}

void TestEditor::insertPicture()
{
    QString message;
    const QString file = QString::fromUtf8(TEST_DATA_DIR "/dot.png");
    QVERIFY(m_window->insertActions()->insertPicture(file, &message));
    const QImage image(file);
    QCOMPARE(contentOf(*m_window), QStringLiteral("[2x1 %1]").arg(image.pixelColor(0, 0).name()));
    const QList<QTextImageFormat> images = imagesOf(*m_window->textEdit()->document());
    QCOMPARE(images.first().width(), 2.0);
    QCOMPARE(images.first().height(), 1.0);
    QCOMPARE(message, QString());
}

void TestEditor::insertNoPicture()
{
    QString message;
    QVERIFY(!m_window->insertActions()->insertPicture(filePath("missing.png"), &message));
    QCOMPARE(message, QStringLiteral("File not found"));
    QCOMPARE(contentOf(*m_window), QString());
}

QTEST_MAIN(TestEditor)
#include "tst_editor.moc"
