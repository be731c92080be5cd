#ifndef STRUCTUREHELPERS_H
#define STRUCTUREHELPERS_H

#include "ORVTextListFormat.h"
#include "tabletesthelpers.h"

#include <QtGui/QTextList>

/*! Contents of whole documents as lines of text, by which two documents are compared. */
namespace rtftest {

/*! A line of the properties of \a format, without the number of a list or table, which documents differ in. */
inline QString formatLine(const QString& name, const QTextFormat& format)
{
    Properties properties = propertiesOf(format);
    properties.remove(QTextFormat::ObjectIndex);
    return name + QLatin1Char(' ') + dump(properties);
}

inline QStringList blockLines(const QTextBlock& block)
{
    QStringList lines = {formatLine(QStringLiteral("paragraph"), block.blockFormat()),
                         formatLine(QStringLiteral("its characters"), block.charFormat())};
    if (const QTextList* list = block.textList()) {
        lines << QStringLiteral("item %1 of %2").arg(list->itemNumber(block)).arg(list->count())
              << formatLine(QStringLiteral("list from %1").arg(list->item(0).blockNumber()), list->format());
    }
    for (const QTextFragment& fragment : fragmentsOf(block))
        lines << formatLine(QLatin1Char('"') + fragment.text() + QLatin1Char('"'), fragment.charFormat());
    return lines;
}

inline QStringList frameLines(const QTextFrame* frame)
{
    QStringList lines(formatLine(QStringLiteral("frame"), frame->frameFormat()));
    if (const QTextTable* table = qobject_cast<const QTextTable*>(frame)) {
        const QVector<QTextLength> widths = table->format().columnWidthConstraints();
        for (const QTextLength& width : widths)
            lines << QStringLiteral("width %1").arg(width.rawValue(), 0, 'g', 17);
    }
    for (QTextFrame::iterator it = frame->begin(); !it.atEnd(); ++it)
        lines << (it.currentFrame() ? frameLines(it.currentFrame()) : blockLines(it.currentBlock()));
    return lines << QStringLiteral("end");
}

/*! All texts and formats of \a document. */
inline QStringList documentLines(const QTextDocument& document)
{
    return frameLines(document.rootFrame());
}

/*! The tables of \a document, those within cells as part of them, a line each. */
inline QString tableLines(const QTextDocument& document)
{
    QStringList lines;
    const QList<QTextTable*> tables = tablesOf(document);
    for (const QTextTable* table : tables)
        lines << shapeOf(table);
    return lines.join(QLatin1Char('\n'));
}

inline QString levelLine(const ORVTextListLevel& level)
{
    // The text comes last, as it may have place markers of its own.
    return QStringLiteral("kind %1 indent %2 first line %3 '%4'")
        .arg(level.kind())
        .arg(level.indent())
        .arg(level.firstLinePosition())
        .arg(level.text());
}

/*! The levels of \a list that can be kept: eight at most. */
inline QString levelLines(const QTextList* list)
{
    const int writtenLevels = 8;
    QStringList lines;
    const QList<ORVTextListLevel> levels = ORVTextListFormat::levels(list->format()).mid(0, writtenLevels);
    for (const ORVTextListLevel& level : levels)
        lines << levelLine(level);
    return lines.join(QLatin1Char('\n'));
}

/*! The lists of \a document in the order of their first items. */
inline QList<QTextList*> listsOf(const QTextDocument& document)
{
    QList<QTextList*> lists;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block.textList() && !lists.contains(block.textList()))
            lists << block.textList();
    }
    return lists;
}

/*!
    The list items of \a document, a line each: the list's number, which begins at 0, the level and the text.
*/
inline QString itemLines(const QTextDocument& document)
{
    const QList<QTextList*> lists = listsOf(document);
    QStringList lines;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (QTextList* const list = block.textList())
            lines << QStringLiteral("%1 %2 %3")
                         .arg(lists.indexOf(list))
                         .arg(ORVTextListFormat::blockLevel(list, block))
                         .arg(block.text());
    }
    return lines.join(QLatin1Char('\n'));
}

/*! The levels of all lists of \a document, the style that a plain text view shows, and all items. */
inline QString listLines(const QTextDocument& document)
{
    QStringList lines;
    const QList<QTextList*> lists = listsOf(document);
    for (const QTextList* list : lists)
        lines << QStringLiteral("style %1").arg(int(list->format().style())) << levelLines(list);
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n') + itemLines(document);
}

/*! A level of a list; positions in points. */
inline ORVTextListLevel makeLevel(unsigned kind, const QString& text, double indent = 0, double firstLine = 0)
{
    ORVTextListLevel level;
    level.setKind(kind);
    level.setText(text);
    level.setIndent(indent);
    level.setFirstLinePosition(firstLine);
    return level;
}

inline QTextListFormat listFormatWith(const QList<ORVTextListLevel>& levels)
{
    QTextListFormat format;
    ORVTextListFormat::setLevels(format, levels);
    return format;
}

} // namespace rtftest

#endif
