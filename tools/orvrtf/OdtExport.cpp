#include "OdtExport.h"

#include "VisibleDocument.h"

#include <QBuffer>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextDocumentWriter>
#include <QTextTable>

namespace {

/*! Replaces the ends of paragraphs between \a first and \a last by line breaks; empty lines at the end go. */
void joinParagraphs(const QTextCursor& first, const QTextCursor& last)
{
    QTextCursor cursor = last;
    while (cursor.block() != first.block()) {
        const bool isEmptyEnd = cursor.atBlockEnd() && cursor.atBlockStart() && cursor == last;
        cursor.movePosition(QTextCursor::StartOfBlock);
        cursor.deletePreviousChar();
        if (!isEmptyEnd)
            cursor.insertText(QString(QChar(QChar::LineSeparator)));
    }
}

/*! The text of a cell that holds tables, a line for each paragraph. */
void replaceByText(QTextCursor first, const QTextCursor& last)
{
    first.setPosition(last.position(), QTextCursor::KeepAnchor);
    QString text = first.selectedText();
    for (QChar& c : text) {
        if (c == QChar::ParagraphSeparator || c.unicode() == 0xfdd0 || c.unicode() == 0xfdd1)
            c = QChar(QChar::LineSeparator);
    }
    first.removeSelectedText();
    first.insertText(text);
}

bool holdsTables(const QTextTableCell& cell)
{
    for (QTextFrame::iterator it = cell.begin(); !it.atEnd(); ++it) {
        if (it.currentFrame())
            return true;
    }
    return false;
}

/*! Qt's writer makes a cell of each paragraph in a cell, and readers drop those beyond the last column. */
void joinParagraphsOfCells(QTextTable* table)
{
    for (int row = 0; row < table->rows(); ++row) {
        for (int column = 0; column < table->columns(); ++column) {
            const QTextTableCell cell = table->cellAt(row, column);
            if (cell.row() != row || cell.column() != column)
                continue;
            if (holdsTables(cell))
                replaceByText(cell.firstCursorPosition(), cell.lastCursorPosition());
            else
                joinParagraphs(cell.firstCursorPosition(), cell.lastCursorPosition());
        }
    }
}

void joinParagraphsOfCells(QTextDocument& document)
{
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    const QList<QTextFrame*> frames = document.rootFrame()->childFrames();
    for (QTextFrame* const frame : frames) {
        if (QTextTable* const table = qobject_cast<QTextTable*>(frame))
            joinParagraphsOfCells(table);
    }
    cursor.endEditBlock();
}

} // namespace

QByteArray documentToOdt(QTextDocument& document)
{
    makeVisible(document);
    joinParagraphsOfCells(document);
    QByteArray data;
    QBuffer buffer(&data);
    QTextDocumentWriter writer(&buffer, QByteArrayLiteral("odf"));
    return writer.write(&document) ? data : QByteArray();
}
