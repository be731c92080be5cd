#ifndef EDITORHELPERS_H
#define EDITORHELPERS_H

#include "EditorWindow.h"
#include "RichTextEdit.h"
#include "TextDocSupport.h"
#include "testsupport.h"

#include <QtWidgets/QtWidgets>

/*! What the tests of the editor window share. */
namespace editortest {

/*! A list table with the bullet list 1. */
inline QByteArray bulletTable()
{
    return "{\\*\\listtable{\\list{\\listlevel\\levelnfc23{\\leveltext\\'01\\u8226 ?;}}\\listid7}}"
           "{\\*\\listoverridetable{\\listoverride\\listid7\\ls1}}";
}

/*! RTF as a word processor might put it on the clipboard: bold text, a list, a picture and a table. */
inline QByteArray richBody()
{
    return bulletTable()
        + "Before {\\b bold}\\par\\pard\\ls1 first\\par second\\par\\pard "
          "{\\pict\\pngblip 89504e470d0a1a0a0000000d4948445200000002000000010802000000"
          "7b40e8dd0000000d4944415478da63f8cfc000440008fe01ff19c06be70000000049454e44ae426082}\\par"
          "\\trowd\\cellx2000\\cellx4000\\pard\\intbl a\\cell b\\cell\\row\\pard after";
}

inline QByteArray richRtf()
{
    return "{\\rtf1\\ansi " + richBody() + "{}}";
}

/*! The description of richBody(), with \a besideTable before and behind the cells. */
inline QString richContent(const QString& besideTable = QString())
{
    return QString::fromUtf8("Before *bold*\n"
                             "\xe2\x80\xa2 first\n"
                             "\xe2\x80\xa2 second\n"
                             "[2x1 #ff0000]\n"
                             "%1"
                             "| a\n"
                             "| b\n"
                             "%1"
                             "after")
        .arg(besideTable);
}

/*! The same in the storage form, in which an empty paragraph stands on both sides of a table. */
inline QString storedContent()
{
    return richContent(QLatin1String("\n"));
}

inline QString describe(const QTextDocument& document, const QTextFragment& fragment)
{
    const QTextCharFormat format = fragment.charFormat();
    if (!format.isImageFormat())
        return format.fontWeight() > QFont::Normal ? QLatin1Char('*') + fragment.text() + QLatin1Char('*')
                                                   : fragment.text();
    const QImage image = TextDocSupport::image(&document, format.toImageFormat().name());
    if (image.isNull())
        return QStringLiteral("[missing]");
    return QStringLiteral("[%1x%2 %3]")
        .arg(image.width())
        .arg(image.height())
        .arg(image.pixelColor(0, 0).name());
}

/*! The number of a list item, or a bullet. */
inline QString markerOf(const QTextBlock& block)
{
    const int style = block.textList()->format().style();
    const bool isBullet = style == QTextListFormat::ListDisc || style == QTextListFormat::ListCircle
        || style == QTextListFormat::ListSquare;
    return isBullet ? QString(QChar(0x2022)) : block.textList()->itemText(block);
}

/*!
    The paragraphs of \a document, a line each: bold text in asterisks, pictures with their size and colour in
    brackets, after the marker of a list item and, in tables, a bar.
*/
inline QString describe(const QTextDocument& document)
{
    QStringList lines;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QString line;
        if (QTextCursor(block).currentTable())
            line += QStringLiteral("| ");
        if (block.textList())
            line += markerOf(block) + QLatin1Char(' ');
        for (const QTextFragment& fragment : rtftest::fragmentsOf(block))
            line += describe(document, fragment);
        lines << line;
    }
    return lines.join(QLatin1Char('\n'));
}

/*! Has \a answer fill in and close the next dialog of the class \a Dialog, as soon as it is there. */
template <typename Dialog>
class DialogAnswer {
public:
    explicit DialogAnswer(const std::function<void(Dialog*)>& answer)
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, answer] {
            Dialog* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            m_timer.stop();
            answer(dialog);
        });
        m_timer.start(1);
    }

    /*! Whether there has been one. */
    bool isGiven() const { return !m_timer.isActive(); }

private:
    QTimer m_timer;
};

/*! What the tests of the editor window share: for each a window that is shown, with an empty document. */
class EditorTest : public QObject {
    Q_OBJECT

protected slots:
    void init()
    {
        m_window.reset(new EditorWindow);
        QFont font;
        compat::setFamily(font, QString::fromLatin1(rtftest::DefaultFamily));
        font.setPointSizeF(rtftest::DefaultPointSize);
        document()->setDefaultFont(font);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    }

    void cleanup() { m_window.reset(); }

protected:
    RichTextEdit* edit() const { return m_window->textEdit(); }
    QTextDocument* document() const { return edit()->document(); }
    QString text() const { return document()->toPlainText(); }
    QString content() const { return describe(*document()); }
    QString message() const { return m_window->statusBar()->currentMessage(); }

    QString path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }

    QString makeFile(const char* name, const QByteArray& rtf) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(rtf) != rtf.size())
            qFatal("cannot write %s", name);
        return file.fileName();
    }

    /*! Formats that the view adds to the first paragraph. */
    QVector<QTextLayout::FormatRange> shownFormats() const { return document()->begin().layout()->formats(); }

    /*! Opens a file with the RTF \a body. */
    void open(const QByteArray& body, const char* name = "opened.rtf")
    {
        QVERIFY(m_window->openFile(makeFile(name, "{\\rtf1\\ansi " + body + "{}}")));
    }

    /*! Reads the RTF \a body, without a file. */
    void setBody(const QByteArray& body)
    {
        QVERIFY(ORVTextRtf::fromRtfData("{\\rtf1\\ansi " + body + "{}}", document(), nullptr));
    }

    /*! What the file says when the window saves its document. */
    QByteArray saved()
    {
        QFile file(path("saved.rtf"));
        if (!m_window->saveFile(file.fileName()) || !file.open(QIODevice::ReadOnly))
            qFatal("the document is not saved");
        return file.readAll();
    }

    void select(int from, int to)
    {
        QTextCursor cursor(document());
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        edit()->setTextCursor(cursor);
    }

    void select(int position) { select(position, position); }

    /*! Types \a keys where the cursor is. */
    void type(const char* keys) { QTest::keyClicks(edit(), QString::fromLatin1(keys)); }

    QAction* action(const QByteArray& text) const
    {
        const QList<QAction*> actions = m_window->findChildren<QAction*>();
        for (QAction* action : actions) {
            if (action->text().remove(QLatin1Char('&')) == QString::fromUtf8(text))
                return action;
        }
        qFatal("no action %s", text.constData());
    }

    void trigger(const QByteArray& text) const { action(text)->trigger(); }

    /*! Triggers an action, and has \a answer fill in and close the dialog that it opens. */
    template <typename Dialog>
    void trigger(const QByteArray& text, const std::function<void(Dialog*)>& answer) const
    {
        const DialogAnswer<Dialog> given(answer);
        trigger(text);
        QVERIFY(given.isGiven());
    }

    /*! Where the character at \a position of the text is shown, in the viewport of the text edit. */
    QPoint placeOf(int position) const
    {
        QTextCursor cursor(document());
        cursor.setPosition(position);
        return edit()->cursorRect(cursor).center() + QPoint(3, 0);
    }

    QTemporaryDir m_folder;
    std::unique_ptr<EditorWindow> m_window;
};

} // namespace editortest

#endif
