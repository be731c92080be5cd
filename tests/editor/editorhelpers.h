#ifndef EDITORHELPERS_H
#define EDITORHELPERS_H

#include "EditorWindow.h"
#include "RichTextEdit.h"
#include "TextDocSupport.h"
#include "testsupport.h"

#include <QtWidgets/QtWidgets>

/*! What the tests of the editor window share. */
namespace editortest {

/*! RTF as a word processor might put it on the clipboard: bold text, a list, a picture and a table. */
inline QByteArray richRtf()
{
    return "{\\rtf1\\ansi{\\*\\listtable{\\list{\\listlevel\\levelnfc23{\\leveltext\\'01\\u8226 "
           "?;}}\\listid7}}"
           "{\\*\\listoverridetable{\\listoverride\\listid7\\ls1}}"
           "Before {\\b bold}\\par\\pard\\ls1 first\\par second\\par\\pard "
           "{\\pict\\pngblip 89504e470d0a1a0a0000000d4948445200000002000000010802000000"
           "7b40e8dd0000000d4944415478da63f8cfc000440008fe01ff19c06be70000000049454e44ae426082}\\par"
           "\\trowd\\cellx2000\\cellx4000\\pard\\intbl a\\cell b\\cell\\row\\pard after{}}";
}

/*! What describe() says of richRtf(): in Qt an empty paragraph stands on both sides of a table. */
inline QString richContent()
{
    return QString::fromUtf8("Before *bold*\n"
                             "\xe2\x80\xa2 first\n"
                             "\xe2\x80\xa2 second\n"
                             "[2x1 #ff0000]\n"
                             "\n"
                             "| a\n"
                             "| b\n"
                             "\n"
                             "after");
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

inline QString contentOf(const EditorWindow& window)
{
    return describe(*window.textEdit()->document());
}

inline void select(EditorWindow& window, int from, int to)
{
    QTextCursor cursor(window.textEdit()->document());
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    window.textEdit()->setTextCursor(cursor);
}

/*! Reads the RTF \a body into \a window. */
inline void setBody(EditorWindow& window, const QByteArray& body)
{
    QVERIFY(ORVTextRtf::fromRtfData("{\\rtf1\\ansi " + body + "{}}", window.textEdit()->document(), nullptr));
}

inline QAction* actionOf(const EditorWindow& window, const char* text)
{
    const QList<QAction*> actions = window.findChildren<QAction*>();
    for (QAction* action : actions) {
        if (action->text().remove(QLatin1Char('&')) == QString::fromUtf8(text))
            return action;
    }
    qFatal("no action %s", text);
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

/*! A window that is shown, with an empty document in the default font of the tests. */
inline std::unique_ptr<EditorWindow> shownWindow()
{
    auto window = std::make_unique<EditorWindow>();
    QFont font;
    compat::setFamily(font, QString::fromLatin1(rtftest::DefaultFamily));
    font.setPointSizeF(rtftest::DefaultPointSize);
    window->textEdit()->document()->setDefaultFont(font);
    window->show();
    if (!QTest::qWaitForWindowExposed(window.get()))
        qFatal("the window is not shown");
    return window;
}

/*! Opens a file with \a rtf in \a window. */
inline bool openRtf(EditorWindow& window, const QByteArray& rtf)
{
    QTemporaryFile file;
    return file.open() && file.write(rtf) == rtf.size() && file.flush() && window.openFile(file.fileName());
}

/*! What the file says when \a window saves its document. */
inline QByteArray savedRtf(EditorWindow& window)
{
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("saved.rtf")));
    if (!window.saveFile(file.fileName()) || !file.open(QIODevice::ReadOnly))
        qFatal("the document is not saved");
    return file.readAll();
}

/*! Where the character at \a position of the text is shown, in the viewport of the text edit. */
inline QPoint placeOf(const EditorWindow& window, int position)
{
    QTextCursor cursor(window.textEdit()->document());
    cursor.setPosition(position);
    return window.textEdit()->cursorRect(cursor).center() + QPoint(3, 0);
}

} // namespace editortest

#endif
